#pragma once

#include <server/faults/NetworkFault.h>

#include <QHash>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QSet>
#include <QThread>

#include <optional>

class QTcpServer;
class QTcpSocket;

namespace korvel::Demo {

class RequestLog;
class Tunnel;

/// An HTTP CONNECT proxy on 127.0.0.1 that leads known host names, port 443, to one local TLS server, and
/// damages connections on demand. It also accepts direct connections to that server on a port of its own.
///
/// All sockets live in a thread of the forwarder. Public members may be used from every thread, Start() and
/// Stop() from one at a time.
class ConnectForwarder
{
public:
    /// Connections are noted in \p log, which must live as long as the forwarder.
    explicit ConnectForwarder(RequestLog* log);
    ~ConnectForwarder();
    Q_DISABLE_COPY_MOVE(ConnectForwarder)

    /// Listens on \p proxyPort and \p directPort (0: any free one) and forwards to \p upstreamPort.
    /// False with the reason in ErrorText() when a port cannot be had.
    bool Start(quint16 proxyPort, quint16 directPort, quint16 upstreamPort);
    /// Closes every connection and the ports. Returns when that is done.
    void Stop();

    const QString& ErrorText() const
    {
        return m_errorText;
    }
    quint16 ProxyPort() const
    {
        return m_proxyPort;
    }
    quint16 DirectPort() const
    {
        return m_directPort;
    }

    /// Makes \p host known; others are answered with 502.
    void AddHost(const QString& host);
    /// \p host in lower case.
    bool KnowsHost(const QString& host) const;

    void AddFault(const NetworkFault& fault);
    void ClearFaults();

    /// What the TLS server may ask about a connection that reached it from the local port \p
    /// upstreamLocalPort.
    struct ConnectionInfo
    {
        qint64 connectionId = 0;
        CertificateKind certificate = CertificateKind::Good;
    };
    ConnectionInfo Info(quint16 upstreamLocalPort) const;

    /// Makes the end of this connection, as soon as the TLS server closes it, a TCP reset towards the client.
    /// Every byte sent before arrives first. Call before closing.
    void ResetWhenClosed(quint16 upstreamLocalPort);

private:
    friend class Tunnel;

    struct FaultEntry
    {
        NetworkFault fault;
        int skip = 0;
        int times = 0;
    };

    /// Every fault that is due for a new connection to \p host, at most one of each kind; counts them.
    QList<NetworkFault> TakeFaults(const QString& host);
    void NoteUpstream(quint16 localPort, const ConnectionInfo& info);
    bool ForgetUpstream(quint16 localPort);

    void Listen(quint16 proxyPort, quint16 directPort);
    void Close();
    void OnProxyConnection();
    void OnDirectConnection();

    RequestLog* m_log = nullptr;
    QThread m_thread;
    /// Lives in m_thread while that runs; parent of the servers and of all tunnels.
    QObject* m_context = nullptr;
    QTcpServer* m_proxyServer = nullptr;
    QTcpServer* m_directServer = nullptr;
    quint16 m_proxyPort = 0;
    quint16 m_directPort = 0;
    quint16 m_upstreamPort = 0;
    QString m_errorText;

    mutable QMutex m_mutex;
    QSet<QString> m_hosts;
    QList<FaultEntry> m_faults;
    QHash<quint16, ConnectionInfo> m_upstreams;
    QSet<quint16> m_resetWhenClosed;
};

} // namespace korvel::Demo
