#include <server/network/Tunnel.h>

#include <server/log/RequestLog.h>

#include <QHostAddress>
#include <QNetworkProxy>
#include <QTcpSocket>

#include <algorithm>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

constexpr qint64 c_bufferSize = 256LL * 1024;
constexpr qsizetype c_headerLimit = 16LL * 1024;
constexpr int c_shaperInterval = 20;

ConnectRecord ConnectTo(const QString& host, quint16 port)
{
    ConnectRecord connect;
    connect.host = host;
    connect.port = port;
    return connect;
}

} // namespace

Tunnel::Tunnel(ConnectForwarder& forwarder, QTcpSocket* client, QObject* parent)
    : QObject(parent)
    , m_forwarder(forwarder)
    , m_client(client)
    , m_shaper(this)
    , m_lateTimer(this)
{
    m_clock.start();
    m_client->setParent(this);
    m_client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_client->setReadBufferSize(c_bufferSize);
    connect(m_client, &QTcpSocket::readyRead, this, &Tunnel::OnClientReadyRead);
    connect(m_client, &QTcpSocket::disconnected, this, &Tunnel::OnClientDisconnected);
    connect(m_client, &QTcpSocket::bytesWritten, this, &Tunnel::PumpDown);
    m_lateTimer.setSingleShot(true);
    m_lateTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_lateTimer, &QTimer::timeout, this, &Tunnel::OnLateTimeout);
    m_shaper.setTimerType(Qt::PreciseTimer);
}

Tunnel::~Tunnel()
{
    m_client->disconnect(this);
    m_client->abort();
    if (m_upstream != nullptr) {
        m_upstream->disconnect(this);
        m_upstream->abort();
    }
}

void Tunnel::StartAsProxy()
{
    m_isProxy = true;
    OnClientReadyRead();
}

void Tunnel::StartDirect()
{
    m_host = u"localhost"_s;
    m_connectionId = m_forwarder.m_shared.log.AddConnect(ConnectTo(m_host, m_forwarder.DirectPort()));
    m_faults = m_forwarder.TakeFaults(m_host);
    if (FindFault(NetworkFault::Kind::RefuseConnection) != nullptr) {
        ResetClient();
        return;
    }
    OpenUpstream();
}

void Tunnel::OnClientReadyRead()
{
    if (m_isOpen) {
        PumpUp();
    } else if (m_isProxy && !m_ignoreClient && m_upstream == nullptr) {
        // Byte by byte up to the blank line: what follows belongs to TLS.
        while (m_client->bytesAvailable() > 0 && !m_header.endsWith("\r\n\r\n")
               && m_header.size() < c_headerLimit) {
            m_header.append(m_client->read(1));
        }
        if (m_header.endsWith("\r\n\r\n"))
            HandleConnect();
        else if (m_header.size() >= c_headerLimit)
            AnswerConnect(431, "Request Header Fields Too Large");
    }
}

void Tunnel::HandleConnect()
{
    const QList<QByteArray> words = m_header.left(m_header.indexOf("\r\n")).split(' ');
    if (words.size() != 3 || words.at(0) != "CONNECT") {
        AnswerConnect(405, "Method Not Allowed");
        return;
    }
    const qsizetype colon = words.at(1).lastIndexOf(':');
    m_host = QString::fromLatin1(words.at(1).left(colon)).toLower();
    const quint16 port = words.at(1).mid(colon + 1).toUShort();
    m_connectionId = m_forwarder.m_shared.log.AddConnect(ConnectTo(m_host, port));
    m_faults = m_forwarder.TakeFaults(m_host);
    if (ObeyConnectFaults())
        return;
    if (port != 443 || !m_forwarder.KnowsHost(m_host)) {
        AnswerConnect(502, "Bad Gateway");
        return;
    }
    OpenUpstream();
}

bool Tunnel::ObeyConnectFaults()
{
    if (FindFault(NetworkFault::Kind::NeverAnswer) != nullptr) {
        m_ignoreClient = true;
        return true;
    }
    if (FindFault(NetworkFault::Kind::RefuseConnection) != nullptr) {
        ResetClient();
        return true;
    }
    if (FindFault(NetworkFault::Kind::NoProxy) != nullptr) {
        m_ignoreClient = true;
        m_client->write("220 mail.example ESMTP\r\n502 Unknown command\r\n");
        m_client->disconnectFromHost();
        return true;
    }
    if (const NetworkFault* fault = FindFault(NetworkFault::Kind::AnswerConnect)) {
        AnswerConnect(static_cast<int>(fault->value), "Not This Time");
        return true;
    }
    return false;
}

void Tunnel::AnswerConnect(int status, const QByteArray& reason)
{
    m_ignoreClient = true;
    if (m_connectionId != 0)
        m_forwarder.m_shared.log.SetConnectStatus(m_connectionId, status);
    QByteArray answer = "HTTP/1.1 " + QByteArray::number(status) + ' ' + reason + "\r\n";
    if (status == 407)
        answer += "Proxy-Authenticate: " + FindFault(NetworkFault::Kind::AnswerConnect)->challenge + "\r\n";
    m_client->write(answer + "Content-Length: 0\r\nConnection: close\r\n\r\n");
    m_client->disconnectFromHost();
}

void Tunnel::OpenUpstream()
{
    int ends[2] = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        AnswerConnect(502, "Bad Gateway");
        return;
    }
    m_upstream = new QTcpSocket(this);
    m_upstream->setProxy(QNetworkProxy::NoProxy);
    m_upstream->setReadBufferSize(c_bufferSize);
    m_upstream->setSocketDescriptor(ends[0]);
    connect(m_upstream, &QTcpSocket::readyRead, this, &Tunnel::PumpDown);
    connect(m_upstream, &QTcpSocket::bytesWritten, this, &Tunnel::PumpUp);
    connect(m_upstream, &QTcpSocket::disconnected, this, &Tunnel::OnUpstreamDisconnected);
    const NetworkFault* fault = FindFault(NetworkFault::Kind::BadCertificate);
    m_http = new HttpConnection(m_forwarder.m_shared, m_connectionId, this);
    m_http->Start(ends[1],
                  m_forwarder.TlsFor(m_host, fault == nullptr ? CertificateKind::Good : fault->certificate));
    SetUpShaping();
    OpenTunnel();
}

void Tunnel::SetUpShaping()
{
    if (const NetworkFault* fault = FindFault(NetworkFault::Kind::Latency))
        m_latency = static_cast<int>(fault->value);
    if (const NetworkFault* fault = FindFault(NetworkFault::Kind::Jitter))
        m_jitter = static_cast<int>(fault->value);
    if (const NetworkFault* fault = FindFault(NetworkFault::Kind::ByteRate)) {
        m_byteRate = fault->value;
        m_shaper.setInterval(c_shaperInterval);
        connect(&m_shaper, &QTimer::timeout, this, [this] {
            m_allowance = qMax(qint64(1), m_byteRate * c_shaperInterval / 1000);
            PumpDown();
        });
        m_shaper.start();
    } else if (FindFault(NetworkFault::Kind::SingleBytes) != nullptr) {
        m_singleBytes = true;
        m_shaper.setInterval(0);
        m_shaper.setSingleShot(true);
        connect(&m_shaper, &QTimer::timeout, this, [this] {
            m_allowance = 1;
            PumpDown();
        });
        m_allowance = 1;
    }
}

void Tunnel::OpenTunnel()
{
    m_isOpen = true;
    if (m_isProxy) {
        m_forwarder.m_shared.log.SetConnectStatus(m_connectionId, 200);
        m_client->write("HTTP/1.1 200 Connection established\r\n\r\n");
        m_client->flush();
    }
    if (FindFault(NetworkFault::Kind::GarbageInsteadOfTls) != nullptr) {
        m_isOpen = false;
        m_ignoreClient = true;
        m_client->write(QByteArray(200, '?') + "\r\nThese bytes are not TLS.\r\n");
        m_client->disconnectFromHost();
        return;
    }
    if (const NetworkFault* fault = FindFault(NetworkFault::Kind::ResetAfter)) {
        m_bytesUntilReset = fault->value;
        if (m_bytesUntilReset == 0) {
            ResetClient();
            return;
        }
    }
    PumpUp();
}

void Tunnel::OnClientDisconnected()
{
    if (m_upstream != nullptr) {
        m_upstream->disconnect(this);
        m_upstream->abort();
    }
    deleteLater();
}

void Tunnel::OnUpstreamDisconnected()
{
    m_upstreamClosed = true;
    m_resetAtEnd = m_http->WantsReset();
    PumpDown();
}

void Tunnel::OnLateTimeout()
{
    while (!m_late.empty() && m_late.front().due <= m_clock.elapsed()) {
        const Late late = std::move(m_late.front());
        m_late.pop_front();
        Deliver(late.to, late.bytes);
    }
    if (!m_late.empty())
        m_lateTimer.start(static_cast<int>(m_late.front().due - m_clock.elapsed()) + 1);
    FinishIfDone();
}

void Tunnel::PumpUp()
{
    while (m_isOpen && !m_upstreamClosed && m_client->bytesAvailable() > 0
           && m_upstream->bytesToWrite() < c_bufferSize) {
        Forward(m_upstream, m_client->read(c_bufferSize));
    }
}

void Tunnel::PumpDown()
{
    while (m_isOpen && m_upstream->bytesAvailable() > 0 && m_client->bytesToWrite() < c_bufferSize) {
        const qint64 count = Allowance(qMin(m_upstream->bytesAvailable(), c_bufferSize));
        if (count == 0)
            break;
        Forward(m_client, m_upstream->read(count));
    }
    FinishIfDone();
}

qint64 Tunnel::Allowance(qint64 wanted)
{
    if (m_byteRate == 0 && !m_singleBytes)
        return wanted;
    const qint64 count = qMin(wanted, m_allowance);
    m_allowance -= count;
    if (m_singleBytes && m_allowance == 0 && !m_shaper.isActive())
        m_shaper.start();
    return count;
}

void Tunnel::Forward(QTcpSocket* to, const QByteArray& bytes)
{
    if (m_latency == 0 && m_jitter == 0) {
        Deliver(to, bytes);
        return;
    }
    const int lateness = m_latency + (m_jitter == 0 ? 0 : m_random.bounded(m_jitter));
    // What is less late than the piece before it goes right behind that one.
    const qint64 due = qMax(m_clock.elapsed() + lateness, m_late.empty() ? qint64(0) : m_late.back().due);
    m_late.push_back({due, to, bytes});
    if (!m_lateTimer.isActive())
        m_lateTimer.start(lateness);
}

void Tunnel::Deliver(QTcpSocket* to, QByteArray bytes)
{
    if (to == m_client && m_bytesUntilReset >= 0) {
        bytes.truncate(m_bytesUntilReset);
        m_bytesUntilReset -= bytes.size();
        if (m_bytesUntilReset == 0) {
            m_resetAtEnd = true;
            m_isOpen = false;
        }
    }
    to->write(bytes);
    if (m_singleBytes && to == m_client)
        to->flush();
}

void Tunnel::FinishIfDone()
{
    const bool nothingLeft = m_late.empty() && m_client->bytesToWrite() == 0;
    const bool endReached = !m_isOpen || (m_upstreamClosed && m_upstream->bytesAvailable() == 0);
    if (m_resetAtEnd && nothingLeft && endReached) {
        ResetClient();
    } else if (m_isOpen && !m_resetAtEnd && endReached && m_late.empty()) {
        m_isOpen = false;
        m_client->disconnectFromHost();
    }
}

void Tunnel::ResetClient()
{
    m_isOpen = false;
    m_resetAtEnd = false;
    // Without lingering, close() throws away what is under way and sends a reset.
    const linger noLinger{.l_onoff = 1, .l_linger = 0};
    setsockopt(static_cast<int>(m_client->socketDescriptor()), SOL_SOCKET, SO_LINGER, &noLinger,
               sizeof noLinger);
    m_client->abort();
}

const NetworkFault* Tunnel::FindFault(NetworkFault::Kind kind) const
{
    const auto found = std::find_if(m_faults.cbegin(), m_faults.cend(),
                                    [kind](const NetworkFault& fault) { return fault.kind == kind; });
    return found == m_faults.cend() ? nullptr : &*found;
}

} // namespace korvel::Demo
