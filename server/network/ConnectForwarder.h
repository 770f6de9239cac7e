#pragma once

#include <server/faults/NetworkFault.h>
#include <server/http/HttpConnection.h>
#include <server/network/CertificateAuthority.h>

#include <QList>
#include <QMap>
#include <QMutex>
#include <QObject>
#include <QSet>
#include <QSslConfiguration>
#include <QThread>

class QTcpServer;

namespace korvel::Demo {

class FaultPlan;
class RequestLog;
class Tunnel;

/// An HTTP CONNECT proxy on 127.0.0.1 that leads known host names, port 443, to the HTTPS server of this
/// process, and damages connections on demand. It also accepts direct connections on a port of its own.
///
/// All sockets live in a thread of the forwarder. Public members may be used from every thread, Start() and
/// Stop() from one at a time.
class ConnectForwarder
{
public:
    /// What is passed must live as long as the forwarder. \p handler is called in other threads.
    ConnectForwarder(const CertificateAuthority& authority, FaultPlan& faults, RequestLog& log,
                     HttpConnection::Handler handler);
    ~ConnectForwarder();
    Q_DISABLE_COPY_MOVE(ConnectForwarder)

    /// Listens on \p proxyPort and \p directPort (0: any free one).
    /// False with the reason in ErrorText() when a port cannot be had.
    bool Start(quint16 proxyPort, quint16 directPort);
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

    /// True between Start() and Stop().
    bool IsRunning() const
    {
        return m_context != nullptr;
    }

    /// Makes \p host known; others are answered with 502.
    void AddHost(const QString& host);

    void AddFault(const NetworkFault& fault);
    void ClearFaults();

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
    /// \p host in lower case.
    bool KnowsHost(const QString& host) const;
    /// What the server shows to clients that ask for \p host. One that it does not know, so comes without the
    /// proxy, finds every known name in the certificate.
    QSslConfiguration TlsFor(const QString& host, CertificateKind kind);

    void Listen(quint16 proxyPort, quint16 directPort);
    void Close();
    void OnProxyConnection();
    void OnDirectConnection();

    const CertificateAuthority& m_authority;
    HttpConnection::Shared m_shared;
    QThread m_thread;
    /// Lives in m_thread while that runs; parent of the servers and of all tunnels.
    QObject* m_context = nullptr;
    QTcpServer* m_proxyServer = nullptr;
    QTcpServer* m_directServer = nullptr;
    quint16 m_proxyPort = 0;
    quint16 m_directPort = 0;
    QString m_errorText;
    /// By the names and the kind of the certificate; the forwarder's thread only.
    QMap<std::pair<QStringList, CertificateKind>, QSslConfiguration> m_tls;

    mutable QMutex m_mutex;
    QSet<QString> m_hosts;
    QList<FaultEntry> m_faults;
};

} // namespace korvel::Demo
