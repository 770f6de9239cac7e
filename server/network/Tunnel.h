#pragma once

#include <server/network/ConnectForwarder.h>

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QRandomGenerator>
#include <QTimer>

#include <deque>

class QTcpSocket;

namespace korvel::Demo {

/// One client connection of the forwarder and its way on to the server, with what goes wrong on it.
///
/// The way on is a pair of connected sockets with an HttpConnection behind it, so that everything here speaks
/// of the bytes of TLS.
///
/// Lives in the forwarder's thread and deletes itself when both ends are closed.
class Tunnel : public QObject
{
    Q_OBJECT

public:
    /// Takes \p client over.
    Tunnel(ConnectForwarder& forwarder, QTcpSocket* client, QObject* parent);
    ~Tunnel() override;

    /// Expects a CONNECT from the client.
    void StartAsProxy();
    /// Leads the client to the server at once.
    void StartDirect();

private:
    struct Late
    {
        qint64 due = 0;
        QTcpSocket* to = nullptr;
        QByteArray bytes;
    };

    void OnClientReadyRead();
    void OnClientDisconnected();
    void OnUpstreamDisconnected();
    void OnLateTimeout();

    void HandleConnect();
    bool ObeyConnectFaults();
    void AnswerConnect(int status, const QByteArray& reason);
    void OpenUpstream();
    void SetUpShaping();
    void OpenTunnel();
    void PumpUp();
    void PumpDown();
    qint64 Allowance(qint64 wanted);
    void Forward(QTcpSocket* to, const QByteArray& bytes);
    void Deliver(QTcpSocket* to, QByteArray bytes);
    void FinishIfDone();
    void ResetClient();
    const NetworkFault* FindFault(NetworkFault::Kind kind) const;

    ConnectForwarder& m_forwarder;
    QTcpSocket* m_client = nullptr;
    QTcpSocket* m_upstream = nullptr;
    HttpConnection* m_http = nullptr;
    QString m_host;
    qint64 m_connectionId = 0;
    QList<NetworkFault> m_faults;
    QByteArray m_header;
    bool m_isProxy = false;
    bool m_isOpen = false;
    bool m_ignoreClient = false;
    bool m_upstreamClosed = false;
    bool m_resetAtEnd = false;

    qint64 m_bytesUntilReset = -1;
    int m_latency = 0;
    int m_jitter = 0;
    QRandomGenerator m_random{1};
    qint64 m_byteRate = 0;
    qint64 m_allowance = 0;
    bool m_singleBytes = false;
    QTimer m_shaper;
    QTimer m_lateTimer;
    QElapsedTimer m_clock;
    std::deque<Late> m_late;
};

} // namespace korvel::Demo
