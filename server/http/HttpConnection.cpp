#include <server/http/HttpConnection.h>

#include <server/api/JsonApiDocument.h>
#include <server/api/VenueQuery.h>
#include <server/faults/BodyTricks.h>
#include <server/faults/FaultPlan.h>
#include <server/log/RequestLog.h>

#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QtConcurrentRun>

#include <algorithm>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

using Headers = QList<std::pair<QByteArray, QByteArray>>;

constexpr int c_idleMilliseconds = 60 * 1000;
constexpr qint64 c_bufferSize = 256LL * 1024;
constexpr qsizetype c_longestHead = 64LL * 1024;
constexpr qsizetype c_longestTarget = 8LL * 1024;

void SortByName(Headers& headers)
{
    std::stable_sort(headers.begin(), headers.end(), [](const auto& left, const auto& right) {
        return left.first.compare(right.first, Qt::CaseInsensitive) < 0;
    });
}

QByteArray ValueOf(const Headers& headers, const QByteArray& name)
{
    const auto found = std::find_if(headers.cbegin(), headers.cend(), [&name](const auto& header) {
        return header.first.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == headers.cend() ? QByteArray() : found->second;
}

Answer ErrorAnswer(int status, const QString& detail)
{
    return {.status = status,
            .mediaType = JsonApiDocument::c_mediaType,
            .body = JsonApiDocument::Error(status, detail),
            .headers = {}};
}

/// The answer of \p handler with what \p effect changes of it. Takes its time: runs in a worker.
Answer AnswerWith(const HttpConnection::Handler& handler, const Request& request, const Fault::Effect& effect)
{
    Answer answer = effect.status.has_value() && !effect.body.has_value()
        ? ErrorAnswer(*effect.status, u"The server was told to fail here."_s)
        : handler(request);
    answer.status = effect.status.value_or(answer.status);
    answer.mediaType = effect.mediaType.value_or(answer.mediaType);
    answer.body = effect.body.value_or(answer.body);
    answer.headers += effect.headers;
    if (effect.brokenGzip || effect.gzipBombMegabytes > 0) {
        answer.body
            = effect.brokenGzip ? BodyTricks::BrokenGzip() : BodyTricks::GzipBomb(effect.gzipBombMegabytes);
        answer.headers.emplaceBack("Content-Encoding", "gzip");
    }
    return answer;
}

/// The head of \p answer up to the blank line, its names in alphabetical order.
QByteArray HeadOf(const Answer& answer, const Fault::Effect& effect, bool isLast)
{
    Headers headers = answer.headers;
    headers.emplaceBack("Server", "venue-server");
    headers.emplaceBack("X-Content-Type-Options", "nosniff");
    if (isLast)
        headers.emplaceBack("Connection", "close");
    else
        headers.emplaceBack("Keep-Alive", "timeout=60, max=100000");
    if (effect.chunked) {
        headers.emplaceBack("Transfer-Encoding", "chunked");
    } else {
        // Nobody would wait for a silent body of no bytes.
        const qsizetype least = effect.silentAfterHeader ? 1 : 0;
        headers.emplaceBack("Content-Length", QByteArray::number(qMax(least, answer.body.size())));
    }
    if (!effect.noMediaType && !answer.mediaType.isEmpty())
        headers.emplaceBack("Content-Type", answer.mediaType);
    if (!effect.secondMediaType.isEmpty())
        headers.emplaceBack("Content-Type", effect.secondMediaType);
    SortByName(headers);
    QByteArray head
        = "HTTP/1.1 " + QByteArray::number(answer.status) + ' ' + Answer::StatusText(answer.status) + "\r\n";
    for (const auto& [name, value] : std::as_const(headers))
        head += name + ": " + value + "\r\n";
    return head + "\r\n";
}

} // namespace

HttpConnection::HttpConnection(Shared& shared, qint64 connectionId, QObject* parent)
    : QObject(parent)
    , m_shared(shared)
{
    m_request.connectionId = connectionId;
    // Otherwise the application's proxy, perhaps this very server's, would be asked.
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(c_bufferSize);
    m_idleTimer.setSingleShot(true);
    m_idleTimer.setInterval(c_idleMilliseconds);
    connect(&m_idleTimer, &QTimer::timeout, &m_socket, &QSslSocket::disconnectFromHost);
    connect(&m_socket, &QSslSocket::encrypted, this, [this] {
        m_shared.log.AddTlsConnection();
        m_idleTimer.start();
    });
    // Queued: the signals can come in the middle of a write.
    connect(&m_socket, &QSslSocket::readyRead, this, &HttpConnection::OnReadyRead, Qt::QueuedConnection);
    connect(&m_socket, &QSslSocket::encryptedBytesWritten, this, &HttpConnection::OnEncryptedBytesWritten,
            Qt::QueuedConnection);
    connect(&m_answer, &QFutureWatcherBase::finished, this, [this] { Deliver(m_answer.result()); });
}

void HttpConnection::Start(qintptr descriptor, const QSslConfiguration& tls)
{
    m_socket.setSslConfiguration(tls);
    m_socket.setSocketDescriptor(descriptor);
    m_socket.startServerEncryption();
}

void HttpConnection::OnReadyRead()
{
    if (m_isAnswering)
        return;
    const QByteArray bytes = m_socket.readAll();
    if (!bytes.isEmpty()) {
        m_shared.log.AddReceivedBytes(m_request.connectionId, bytes.size());
        m_received += bytes;
        m_idleTimer.start();
    }
    if (m_bodyLeft < 0 && !ReadHead())
        return;
    // No request that is served has a body: it is only kept from being taken for the next request.
    const qsizetype skipped = qMin(m_bodyLeft, m_received.size());
    m_received.remove(0, skipped);
    m_bodyLeft -= skipped;
    if (m_bodyLeft == 0) {
        m_bodyLeft = -1;
        Handle();
    }
}

bool HttpConnection::ReadHead()
{
    const qsizetype end = m_received.indexOf("\r\n\r\n");
    if (end < 0 && m_received.size() < c_longestHead)
        return false;
    const qint64 connectionId = m_request.connectionId;
    m_request = {};
    m_request.connectionId = connectionId;
    const int error = UnderstandHead(m_received.first(end < 0 ? m_received.size() : end).split('\n'));
    if (end >= 0 && error == 0) {
        m_received.remove(0, end + 4);
        return true;
    }
    // What follows cannot be told from a next request.
    m_isLast = true;
    m_isAnswering = true;
    m_effect = {};
    m_request.id = m_shared.log.AddRequest(m_request);
    Deliver(ErrorAnswer(error == 0 ? 400 : error, u"The server does not serve such a request."_s));
    return false;
}

int HttpConnection::UnderstandHead(const QList<QByteArray>& lines)
{
    const QByteArray& requestLine = lines.constFirst().trimmed();
    const QByteArray& version = requestLine.mid(requestLine.lastIndexOf(' ') + 1);
    const qsizetype begin = requestLine.indexOf(' ') + 1;
    m_request.method = requestLine.left(qMax(qsizetype(0), begin - 1));
    m_request.target = requestLine.mid(begin).chopped(version.size()).trimmed();
    m_request.path
        = QString::fromUtf8(QByteArray::fromPercentEncoding(m_request.target.split('?').constFirst()));
    m_request.query = VenueQuery::Split(m_request.target);
    for (qsizetype i = 1; i < lines.size(); ++i)
        if (const qsizetype colon = lines.at(i).indexOf(':'); colon > 0)
            m_request.headers.append({lines.at(i).left(colon), lines.at(i).mid(colon + 1).trimmed()});
    SortByName(m_request.headers);
    m_request.host
        = QString::fromLatin1(ValueOf(m_request.headers, "Host")).section(QLatin1Char(':'), 0, 0).toLower();

    const QByteArray connection = ValueOf(m_request.headers, "Connection").toLower();
    // The end of a chunked body is not looked for.
    m_isLast = (version == "HTTP/1.1" ? connection == "close" : connection != "keep-alive")
        || !ValueOf(m_request.headers, "Transfer-Encoding").isEmpty();
    m_bodyLeft = qMax(0LL, ValueOf(m_request.headers, "Content-Length").toLongLong());
    if (requestLine.size() > c_longestTarget)
        return 414;
    return m_request.target.isEmpty() || (version != "HTTP/1.1" && version != "HTTP/1.0") ? 400 : 0;
}

void HttpConnection::Handle()
{
    m_isAnswering = true;
    m_idleTimer.stop();
    m_request.id = m_shared.log.AddRequest(m_request);
    m_effect = m_shared.faults.Take(m_request.host, m_request.target).value_or(Fault::Effect());
    if (m_effect.noAnswer)
        return;
    if (m_effect.delay > 0)
        QTimer::singleShot(m_effect.delay, Qt::PreciseTimer, this, &HttpConnection::MakeAnswer);
    else
        MakeAnswer();
}

void HttpConnection::MakeAnswer()
{
    if (m_effect.reset || m_effect.rawAnswer.has_value()) {
        m_wantsReset = m_effect.reset;
        m_socket.write(m_effect.rawAnswer.value_or(QByteArray()));
        Cut();
        return;
    }
    m_socket.write(m_effect.earlyAnswer);
    m_answer.setFuture(
        QtConcurrent::run(&m_shared.workers, AnswerWith, m_shared.handler, m_request, m_effect));
}

void HttpConnection::Deliver(const Answer& answer)
{
    m_shared.log.SetStatus(m_request.id, answer.status);
    m_socket.write(HeadOf(answer, m_effect, m_isLast));
    if (m_request.method == "HEAD") {
        FinishAnswer();
        return;
    }
    if (m_effect.silentAfterHeader)
        return;
    m_body = answer.body;
    m_sent = 0;
    const qint64 end = m_effect.resetAfter >= 0 ? m_effect.resetAfter : m_effect.cutAfter;
    m_end = end >= 0 ? qMin(end, qint64(m_body.size())) : m_body.size();
    m_isSending = true;
    SendBody();
}

void HttpConnection::SendBody()
{
    if (m_effect.dripBytes > 0) {
        SendPiece(m_effect.dripBytes);
        if (m_sent < m_end) {
            m_socket.flush();
            QTimer::singleShot(m_effect.dripInterval, Qt::PreciseTimer, this, &HttpConnection::SendBody);
            return;
        }
    }
    while (m_sent < m_end && BytesUnderWay() < c_bufferSize)
        SendPiece(c_bufferSize);
    if (m_sent < m_end)
        return;
    m_isSending = false;
    // Without chunks the length tells that everything is there; with them, only the last chunk does.
    const bool isCut = m_effect.cutAfter >= 0 || m_effect.resetAfter >= 0;
    if (isCut && (m_effect.chunked || m_end < m_body.size())) {
        m_wantsReset = m_effect.resetAfter >= 0;
        Cut();
        return;
    }
    if (m_effect.chunked)
        m_socket.write("0\r\n\r\n");
    FinishAnswer();
}

void HttpConnection::SendPiece(qint64 size)
{
    const QByteArray piece = m_body.mid(m_sent, qMin(size, m_end - m_sent));
    m_sent += piece.size();
    if (!m_effect.chunked)
        m_socket.write(piece);
    else if (!piece.isEmpty())
        m_socket.write(QByteArray::number(piece.size(), 16) + "\r\n" + piece + "\r\n");
}

void HttpConnection::OnEncryptedBytesWritten()
{
    if (m_isCut && BytesUnderWay() == 0 && m_socket.state() == QAbstractSocket::ConnectedState) {
        // Closing TLS in order would tell the client that all is well: the stream below just ends.
        ::shutdown(static_cast<int>(m_socket.socketDescriptor()), SHUT_RDWR);
        m_socket.abort();
    } else if (m_isSending && m_effect.dripBytes == 0) {
        SendBody();
    }
}

void HttpConnection::FinishAnswer()
{
    m_body.clear();
    if (m_isLast) {
        m_socket.disconnectFromHost();
        return;
    }
    m_isAnswering = false;
    m_idleTimer.start();
    // The next request may be there already.
    QMetaObject::invokeMethod(this, &HttpConnection::OnReadyRead, Qt::QueuedConnection);
}

void HttpConnection::Cut()
{
    m_isCut = true;
    m_socket.flush();
    OnEncryptedBytesWritten();
}

qint64 HttpConnection::BytesUnderWay() const
{
    return m_socket.bytesToWrite() + m_socket.encryptedBytesToWrite();
}

} // namespace korvel::Demo
