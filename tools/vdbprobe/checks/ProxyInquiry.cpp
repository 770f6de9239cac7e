#include <tools/vdbprobe/checks/ProxyInquiry.h>

#include <tools/vdbprobe/SafeText.h>

#include <QDeadlineTimer>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Tools {

namespace {

constexpr qsizetype c_longestHeader = 16 * 1024;
constexpr int c_wantsPassword = 407;

/// The first word of a challenge for a password: "Basic", "NTLM" and the like.
QString SchemeOf(const QString& challenge)
{
    return challenge.section(QLatin1Char(' '), 0, 0);
}

bool OffersBasic(const QStringList& challenges)
{
    return std::any_of(challenges.cbegin(), challenges.cend(), [](const QString& challenge) {
        return SchemeOf(challenge).compare("Basic"_L1, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

ProxyInquiry::ProxyInquiry(const QNetworkProxy& proxy, const QString& host, quint16 port, int timeout)
    : m_proxy(proxy)
    , m_target((host.contains(QLatin1Char(':')) ? '[' + host.toLatin1() + ']' : QUrl::toAce(host)) + ':'
               + QByteArray::number(port))
{
    Ask({}, timeout);
    if (m_status == c_wantsPassword && !m_proxy.user().isEmpty() && OffersBasic(m_challenges)) {
        // Latin-1, as Qt sends it.
        const QString credentials = m_proxy.user() + QLatin1Char(':') + m_proxy.password();
        Ask("Proxy-Authorization: Basic " + credentials.toLatin1().toBase64() + "\r\n", timeout);
    }
}

void ProxyInquiry::Ask(const QByteArray& credentials, int timeout)
{
    m_answer.clear();
    m_status = 0;
    const QDeadlineTimer deadline(timeout);
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(m_proxy.hostName(), m_proxy.port());
    m_isConnected = socket.waitForConnected(int(deadline.remainingTime()));
    if (!m_isConnected)
        return;
    socket.write("CONNECT " + m_target + " HTTP/1.1\r\nHost: " + m_target + "\r\n" + credentials + "\r\n");
    while (!m_answer.contains("\r\n\r\n") && m_answer.size() < c_longestHeader
           && socket.waitForReadyRead(int(deadline.remainingTime())))
        m_answer += socket.read(c_longestHeader);
    m_isClosed = socket.state() != QAbstractSocket::ConnectedState;
    ReadStatus(m_answer.left(m_answer.indexOf("\r\n\r\n")));
    socket.abort();
}

void ProxyInquiry::ReadStatus(const QByteArray& header)
{
    const QList<QByteArray> lines = header.split('\n');
    static const QRegularExpression c_statusLine(u"^HTTP/\\S+ (\\d{3})(?: (.*))?$"_s);
    const QRegularExpressionMatch match
        = c_statusLine.match(QString::fromLatin1(lines.constFirst()).trimmed());
    m_status = match.captured(1).toInt();
    m_words = OneLine(match.captured(2));
    m_challenges.clear();
    for (const QByteArray& line : lines) {
        const QString text = QString::fromLatin1(line);
        const QString name = text.section(QLatin1Char(':'), 0, 0).toLower();
        const QString value = OneLine(text.section(QLatin1Char(':'), 1));
        if (name == "proxy-authenticate"_L1)
            m_challenges.append(value);
        // Two widespread ways of saying more than a status can.
        else if (name == "x-squid-error"_L1 || name == "proxy-status"_L1)
            m_words += u" (%1)"_s.arg(value);
    }
}

bool ProxyInquiry::IsProxy() const
{
    // A web server takes CONNECT for a bad request.
    return m_status != 0 && m_status != 400 && m_status != 404 && m_status != 405 && m_status != 501;
}

QString ProxyInquiry::Reason() const
{
    if (!m_isConnected || (m_status >= 200 && m_status < 300))
        return {};
    if (m_answer.isEmpty()) {
        return m_isClosed ? u"the proxy closes the connection without an answer"_s
                          : u"the proxy does not answer"_s;
    }
    if (m_status > 0)
        return OneLine(u"the proxy answers \"%1 %2\""_s.arg(m_status).arg(m_words));
    // The first bytes of TLS's complaint about bytes that are none.
    return m_answer.startsWith("\x15\x03")
        ? u"what answers as proxy speaks TLS instead of HTTP"_s
        : u"what answers as proxy does not speak HTTP: \"%1\""_s.arg(OneLine(QString::fromLatin1(m_answer)));
}

QString ProxyInquiry::Hint() const
{
    if (Reason().isEmpty())
        return {};
    if (m_answer.isEmpty())
        return u"Is this the port of an HTTP proxy, and does it let this computer in?"_s;
    if (!IsProxy()) {
        return u"This is not a proxy for https: are its name and port right, and does it know the "
               "method CONNECT?"_s;
    }
    switch (m_status) {
    case c_wantsPassword:
        return PasswordHint();
    case 403:
        return u"The proxy forbids this server: whoever runs the proxy must allow %1."_s.arg(
            OneLine(QString::fromLatin1(m_target)));
    case 502:
    case 503:
        return u"The proxy works but does not reach the server: is the server's name right, "
               "does it run, and does the proxy itself get out?"_s;
    case 504:
        return u"The proxy works but waited for the server in vain: is the server up, and does "
               "a firewall behind the proxy block it?"_s;
    default:
        return u"This is the proxy's answer, not the server's: show it to whoever runs the "
               "proxy."_s;
    }
}

QString ProxyInquiry::PasswordHint() const
{
    const QString offers = m_challenges.isEmpty()
        ? QString()
        : u" It asks for: %1."_s.arg(OneLine(m_challenges.join(", "_L1)));
    if (m_proxy.user().isEmpty()) {
        return u"The proxy wants a user name and a password, and none was given: put "
               "user:password@ before the proxy's name."_s
            + offers;
    }
    return u"The proxy does not accept this user name and password. For NTLM the name is "
           "DOMAIN\\user."_s
        + offers;
}

} // namespace korvel::Tools
