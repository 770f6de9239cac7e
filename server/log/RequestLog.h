#pragma once

#include <server/log/Request.h>

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QString>

#include <functional>
#include <utility>

namespace korvel::Demo {

/// One connection of a client: a CONNECT to the proxy, or a direct connection to the HTTPS port.
struct ConnectRecord
{
    qint64 connectionId = 0; ///< counts from 1
    QDateTime time; ///< UTC
    QString host; ///< "localhost" for a direct connection
    quint16 port = 0;
    int status = 0; ///< answered to CONNECT: 200, 502 ...; 0: closed or left without an answer
    qint64 receivedBytes = 0; ///< of HTTP, within TLS
};

/// Everything that clients asked the server. All members may be used from every thread.
///
/// A test whose client lives in its own thread waits with QTRY_COMPARE(log.RequestCount(), n) or with a
/// signal spy: no member blocks.
class RequestLog : public QObject
{
    Q_OBJECT

public:
    explicit RequestLog(QObject* parent = nullptr);

    /// All requests in the order of their arrival.
    QList<Request> Requests() const;
    /// The requests whose target as sent, or the same percent-decoded, contains \p text.
    QList<Request> Requests(const QString& text) const;
    /// The latest request; a default record when there is none.
    Request LastRequest() const;
    qsizetype RequestCount() const;
    qsizetype RequestCount(const QString& text) const;

    QList<ConnectRecord> Connects() const;
    qsizetype ConnectCount() const;
    /// The number of TLS handshakes that succeeded.
    qsizetype TlsConnectionCount() const;

    /// Forgets everything; ids go on counting.
    void Clear();

    /// For the server: notes \p request and returns its id.
    qint64 AddRequest(Request request);
    /// For the server: the status with which the request \p id was answered.
    void SetStatus(qint64 id, int status);
    /// For the server: notes a connection and returns its id.
    qint64 AddConnect(ConnectRecord connect);
    /// For the server: the status with which the CONNECT \p connectionId was answered.
    void SetConnectStatus(qint64 connectionId, int status);
    /// For the server: \p count more bytes of HTTP arrived through the connection \p connectionId.
    void AddReceivedBytes(qint64 connectionId, qint64 count);
    /// For the server: one more TLS handshake succeeded.
    void AddTlsConnection();

Q_SIGNALS:
    /// A request arrived. Emitted in a thread of the server: receivers need a queued connection, which the
    /// automatic one is for an object of another thread.
    void RequestReceived(qint64 id);
    /// The request \p id is about to be answered with \p status. Emitted like RequestReceived().
    void RequestAnswered(qint64 id, int status);
    /// A connection was noted. Emitted like RequestReceived().
    void ConnectReceived(qint64 connectionId);

private:
    void ChangeConnect(qint64 connectionId, const std::function<void(ConnectRecord&)>& change);

    mutable QMutex m_mutex;
    QList<Request> m_requests;
    QList<ConnectRecord> m_connects;
    qint64 m_requestIds = 0;
    qint64 m_connectIds = 0;
    qsizetype m_tlsConnections = 0;
};

/// True when \p target, as sent or percent-decoded, contains \p text.
bool TargetContains(const QByteArray& target, const QString& text);

} // namespace korvel::Demo
