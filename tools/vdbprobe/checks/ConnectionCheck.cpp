#include <tools/vdbprobe/checks/ConnectionCheck.h>

#include <tools/vdbprobe/ProbeOptions.h>
#include <tools/vdbprobe/SafeText.h>
#include <tools/vdbprobe/checks/CertificateReport.h>
#include <tools/vdbprobe/checks/ProxyInquiry.h>

#include <QEventLoop>
#include <QHostAddress>
#include <QHostInfo>
#include <QSslCipher>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace korvel::Tools {

namespace {

QString TlsName(QSsl::SslProtocol protocol)
{
    switch (protocol) {
    case QSsl::TlsV1_2:
        return u"TLS 1.2"_s;
    case QSsl::TlsV1_3:
        return u"TLS 1.3"_s;
    default:
        return u"TLS"_s;
    }
}

} // namespace

ConnectionCheck::ConnectionCheck(const ProbeOptions& options, const QNetworkProxy& proxy)
    : m_options(options)
    , m_proxy(proxy)
{
    QObject::connect(&m_socket, &QSslSocket::alertReceived, &m_socket,
                     [this](QSsl::AlertLevel, QSsl::AlertType type) { m_alert = type; });
}

Outcome ConnectionCheck::FindHostOrProxy() const
{
    return m_proxy.type() == QNetworkProxy::NoProxy ? FindHost() : ReachProxy();
}

Outcome ConnectionCheck::FindHost() const
{
    QHostInfo found;
    bool hasAnswer = false;
    QEventLoop loop;
    const int lookup = QHostInfo::lookupHost(m_options.host, &loop, [&](const QHostInfo& info) {
        found = info;
        hasAnswer = true;
        loop.quit();
    });
    QTimer::singleShot(m_options.timeout, &loop, &QEventLoop::quit);
    if (!hasAnswer)
        loop.exec();
    if (!hasAnswer) {
        QHostInfo::abortHostLookup(lookup);
        return Outcome::Failed(u"the name service does not answer"_s,
                               u"Is this computer connected to a network?"_s);
    }
    if (found.error() != QHostInfo::NoError || found.addresses().isEmpty()) {
        return Outcome::Failed(
            u"%1: %2"_s.arg(OneLine(m_options.host), OneLine(found.errorString())),
            u"Is the name right, and is this computer connected? Where only a proxy knows names "
            "of the internet, name it with --proxy."_s);
    }
    QStringList addresses;
    for (const QHostAddress& address : found.addresses())
        addresses.append(address.toString());
    return Outcome::Ok(u"%1 is %2"_s.arg(OneLine(m_options.host), addresses.join(", "_L1)));
}

Outcome ConnectionCheck::ReachProxy() const
{
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(m_proxy.hostName(), m_proxy.port());
    if (!socket.waitForConnected(m_options.timeout)) {
        return Outcome::Failed(u"proxy %1: %2"_s.arg(Address(m_proxy), OneLine(socket.errorString())),
                               u"Are name and port of the proxy right, and does it run?"_s);
    }
    return Outcome::Ok(u"proxy %1 can be reached"_s.arg(Address(m_proxy)));
}

Outcome ConnectionCheck::Connect()
{
    m_socket.setProxy(m_proxy);
    m_socket.connectToHost(m_options.host, m_options.port);
    if (!m_socket.waitForConnected(m_options.timeout))
        return ConnectFailure();
    const bool hasProxy = m_proxy.type() != QNetworkProxy::NoProxy;
    Outcome outcome = Outcome::Ok(u"%1:%2%3"_s.arg(OneLine(m_options.host))
                                      .arg(m_options.port)
                                      .arg(hasProxy ? u" through the proxy"_s : QString()));
    outcome.details.append(
        u"from %1:%2 to %3:%4"_s.arg(m_socket.localAddress().toString())
            .arg(m_socket.localPort())
            .arg(hasProxy ? OneLine(m_proxy.hostName()) : m_socket.peerAddress().toString())
            .arg(hasProxy ? m_proxy.port() : m_socket.peerPort()));
    return outcome;
}

Outcome ConnectionCheck::ConnectFailure() const
{
    const QString address = u"%1:%2: "_s.arg(OneLine(m_options.host)).arg(m_options.port);
    const QString reason = OneLine(m_socket.errorString());
    if (m_proxy.type() == QNetworkProxy::NoProxy) {
        return Outcome::Failed(address + reason,
                               u"Is the server up? Does a firewall block port %1, or is there a "
                               "proxy to be named with --proxy?"_s.arg(m_options.port));
    }
    if (m_proxy.type() == QNetworkProxy::HttpProxy) {
        const ProxyInquiry inquiry(m_proxy, m_options.host, m_options.port, m_options.timeout);
        if (!inquiry.Reason().isEmpty())
            return Outcome::Failed(address + inquiry.Reason(), inquiry.Hint());
    }
    return Outcome::Failed(address + reason,
                           u"The proxy does not lead to this server: is the name right, and does "
                           "the proxy allow it?"_s);
}

Outcome ConnectionCheck::StartTls()
{
    if (!QSslSocket::supportsSsl()) {
        return Outcome::Failed(u"Qt finds no TLS library"_s,
                               u"Install Qt's \"tls\" plug-ins and the library that they need."_s);
    }
    m_socket.startClientEncryption();
    const bool isEncrypted = m_socket.waitForEncrypted(m_options.timeout);
    const CertificateReport report(m_socket.peerCertificateChain(), m_socket.sslHandshakeErrors(),
                                   m_options.host);
    Outcome outcome;
    if (isEncrypted) {
        const QString tls = TlsName(m_socket.sessionProtocol());
        outcome = Outcome::Ok(u"%1, %2, %3"_s.arg(tls, m_socket.sessionCipher().name(), report.Summary()),
                              report.Hint());
    } else if (report.HasErrors()) {
        outcome = Outcome::Failed(u"%1; %2"_s.arg(report.Reason(), report.Summary()), report.Hint());
    } else {
        outcome = HandshakeFailure(report.Summary());
    }
    outcome.details = report.Details();
    m_socket.abort();
    return outcome;
}

Outcome ConnectionCheck::HandshakeFailure(const QString& summary) const
{
    const QString text = m_socket.errorString();
    QString hint;
    // Old servers do not complain but answer in their own version, and the TLS library here does.
    if (m_alert == QSsl::AlertType::ProtocolVersion || text.contains("unsupported protocol"_L1)) {
        hint = u"The server speaks TLS only in versions older than 1.2, which are no longer "
               "allowed here: whoever runs it must bring it up to date."_s;
    } else if (m_alert == QSsl::AlertType::HandshakeFailure) {
        hint = u"The server ends the handshake: it demands a client certificate, which the "
               "module does not have, or has no cipher in common with this computer. Whoever "
               "runs it must change that."_s;
    } else {
        hint = u"What answers does not speak TLS, or something on the way breaks it: look at "
               "proxies, filters and sign-in pages of the network."_s;
    }
    return Outcome::Failed(u"%1; %2"_s.arg(OneLine(text), summary), hint);
}

} // namespace korvel::Tools
