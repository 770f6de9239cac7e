#pragma once

#include <server/faults/Fault.h>
#include <server/log/Answer.h>
#include <server/log/Request.h>

#include <QByteArray>
#include <QFutureWatcher>
#include <QObject>
#include <QSslSocket>
#include <QThreadPool>
#include <QTimer>

#include <functional>

class QSslConfiguration;

namespace korvel::Demo {

class FaultPlan;
class RequestLog;

/// The server's end of one TLS connection: reads HTTP/1.1 requests, and answers one after another with what
/// is to go wrong with each.
///
/// It lives in one thread with the other connections and never blocks it: waits are timers, and the honest
/// answers are made by other threads. A connection that has ended stays until its parent deletes it.
class HttpConnection : public QObject
{
    Q_OBJECT

public:
    /// Gives the honest answer to a request. Called by several threads at a time.
    using Handler = std::function<Answer(const Request&)>;

    /// What the connections of a server share. It must outlive them, and the workers what the handler needs.
    struct Shared
    {
        FaultPlan& faults;
        RequestLog& log;
        Handler handler;
        QThreadPool workers;
    };

    /// \p connectionId is the one of the log.
    HttpConnection(Shared& shared, qint64 connectionId, QObject* parent);

    /// Takes over \p descriptor, a connected stream, and waits there for a TLS client.
    void Start(qintptr descriptor, const QSslConfiguration& tls);

    /// True when the client, after all bytes sent before, is to see a TCP reset as the end of the connection.
    bool WantsReset() const
    {
        return m_wantsReset;
    }

private:
    void OnReadyRead();
    void OnEncryptedBytesWritten();

    bool ReadHead();
    int UnderstandHead(const QList<QByteArray>& lines);
    void Handle();
    void MakeAnswer();
    void Deliver(const Answer& answer);
    void SendBody();
    void SendPiece(qint64 size);
    void FinishAnswer();
    void Cut();
    qint64 BytesUnderWay() const;

    Shared& m_shared;
    QSslSocket m_socket;
    QTimer m_idleTimer;
    QFutureWatcher<Answer> m_answer;

    QByteArray m_received;
    Request m_request;
    qint64 m_bodyLeft = -1; ///< of the request, still to be skipped; -1: its head has not arrived
    bool m_isLast = false;
    bool m_isAnswering = false;

    Fault::Effect m_effect;
    QByteArray m_body;
    qint64 m_sent = 0;
    qint64 m_end = 0;
    bool m_isSending = false;
    bool m_isCut = false;
    bool m_wantsReset = false;
};

} // namespace korvel::Demo
