#include <server/network/ConnectForwarder.h>

#include <server/log/RequestLog.h>
#include <server/network/Tunnel.h>

#include <QHostAddress>
#include <QMutexLocker>
#include <QNetworkProxy>
#include <QSslDiffieHellmanParameters>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

/// What the kinds of certificates want of TLS itself.
void AdjustProtocol(QSslConfiguration& tls, CertificateKind kind)
{
    if (kind == CertificateKind::OldTls) {
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        tls.setProtocol(QSsl::TlsV1_1);
        QT_WARNING_POP
    } else if (kind == CertificateKind::ClientDemandedTls12) {
        tls.setProtocol(QSsl::TlsV1_2);
    }
    if (kind == CertificateKind::ClientDemanded || kind == CertificateKind::ClientDemandedTls12) {
        tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
        tls.setMissingCertificateIsFatal(true);
    }
}

} // namespace

ConnectForwarder::ConnectForwarder(const CertificateAuthority& authority, FaultPlan& faults, RequestLog& log,
                                   HttpConnection::Handler handler)
    : m_authority(authority)
    , m_shared{.faults = faults, .log = log, .handler = std::move(handler), .workers = {}}
{
    // As many as a client opens connections, so that making pictures holds up no document.
    m_shared.workers.setMaxThreadCount(8);
    m_thread.setObjectName(u"ConnectForwarder"_s);
}

ConnectForwarder::~ConnectForwarder()
{
    Stop();
}

bool ConnectForwarder::Start(quint16 proxyPort, quint16 directPort)
{
    Stop();
    m_thread.start();
    m_context = new QObject;
    m_context->moveToThread(&m_thread);
    QMetaObject::invokeMethod(
        m_context, [=, this] { Listen(proxyPort, directPort); }, Qt::BlockingQueuedConnection);
    if (!m_errorText.isEmpty()) {
        Stop();
        return false;
    }
    return true;
}

void ConnectForwarder::Stop()
{
    if (m_context == nullptr)
        return;
    QMetaObject::invokeMethod(m_context, [this] { Close(); }, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
    m_shared.workers.waitForDone();
    delete m_context;
    m_context = nullptr;
}

void ConnectForwarder::AddHost(const QString& host)
{
    const QMutexLocker lock(&m_mutex);
    m_hosts.insert(host.toLower());
}

void ConnectForwarder::AddFault(const NetworkFault& fault)
{
    const QMutexLocker lock(&m_mutex);
    m_faults.append({fault, fault.skip, fault.times});
}

void ConnectForwarder::ClearFaults()
{
    const QMutexLocker lock(&m_mutex);
    m_faults.clear();
}

bool ConnectForwarder::KnowsHost(const QString& host) const
{
    const QMutexLocker lock(&m_mutex);
    return m_hosts.contains(host);
}

QList<NetworkFault> ConnectForwarder::TakeFaults(const QString& host)
{
    const QMutexLocker lock(&m_mutex);
    QList<NetworkFault> due;
    for (FaultEntry& entry : m_faults) {
        const bool concerned
            = entry.fault.host.isEmpty() || entry.fault.host.compare(host, Qt::CaseInsensitive) == 0;
        const bool taken = std::any_of(due.cbegin(), due.cend(), [&entry](const NetworkFault& other) {
            return other.kind == entry.fault.kind;
        });
        if (!concerned || taken || entry.times == 0)
            continue;
        if (entry.skip > 0) {
            --entry.skip;
            continue;
        }
        if (entry.times > 0)
            --entry.times;
        due.append(entry.fault);
    }
    return due;
}

QSslConfiguration ConnectForwarder::TlsFor(const QString& host, CertificateKind kind)
{
    QStringList names{host};
    if (!KnowsHost(host)) {
        const QMutexLocker lock(&m_mutex);
        names = QStringList(m_hosts.cbegin(), m_hosts.cend());
    }
    QSslConfiguration& tls = m_tls[{names, kind}];
    if (tls.isNull()) {
        const ServerIdentity identity = m_authority.Issue(names, kind);
        tls.setLocalCertificateChain(identity.chain);
        tls.setPrivateKey(identity.key);
        tls.setPeerVerifyMode(QSslSocket::VerifyNone);
        // Qt's own are shorter than OpenSSL accepts; elliptic curves do.
        tls.setDiffieHellmanParameters(QSslDiffieHellmanParameters());
        // The shortest tickets that there are. None is ever accepted, as each connection has a context of its
        // own: every client sees the certificate anew, also one that has gone bad.
        tls.setSslOption(QSsl::SslOptionDisableSessionTickets, true);
        AdjustProtocol(tls, kind);
    }
    return tls;
}

void ConnectForwarder::Listen(quint16 proxyPort, quint16 directPort)
{
    m_errorText.clear();
    const auto listen = [this](quint16 port) {
        auto* server = new QTcpServer(m_context);
        // Otherwise an application proxy, perhaps this very one, would be asked to listen.
        server->setProxy(QNetworkProxy::NoProxy);
        server->setListenBacklogSize(200);
        if (!server->listen(QHostAddress::LocalHost, port))
            m_errorText = u"127.0.0.1:%1: %2"_s.arg(port).arg(server->errorString());
        return server;
    };
    m_proxyServer = listen(proxyPort);
    m_directServer = listen(directPort);
    m_proxyPort = m_proxyServer->serverPort();
    m_directPort = m_directServer->serverPort();
    QObject::connect(m_proxyServer, &QTcpServer::newConnection, m_context, [this] { OnProxyConnection(); });
    QObject::connect(m_directServer, &QTcpServer::newConnection, m_context, [this] { OnDirectConnection(); });
}

void ConnectForwarder::Close()
{
    // Ports first, so that no client gets in again while the others are thrown out.
    delete m_proxyServer;
    delete m_directServer;
    m_proxyServer = nullptr;
    m_directServer = nullptr;
    qDeleteAll(m_context->findChildren<Tunnel*>(QString(), Qt::FindDirectChildrenOnly));
}

void ConnectForwarder::OnProxyConnection()
{
    while (QTcpSocket* client = m_proxyServer->nextPendingConnection())
        (new Tunnel(*this, client, m_context))->StartAsProxy();
}

void ConnectForwarder::OnDirectConnection()
{
    while (QTcpSocket* client = m_directServer->nextPendingConnection())
        (new Tunnel(*this, client, m_context))->StartDirect();
}

} // namespace korvel::Demo
