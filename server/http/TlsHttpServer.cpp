#include <server/http/TlsHttpServer.h>

#include <server/api/JsonApiDocument.h>
#include <server/api/VenueQuery.h>
#include <server/faults/BodyTricks.h>
#include <server/faults/FaultPlan.h>
#include <server/http/ThreadPerTask.h>
#include <server/http/TlsStream.h>
#include <server/network/ConnectForwarder.h>

#include <QMutexLocker>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace korvel::Demo {

/// The connection that the current thread serves.
struct TlsHttpServer::Connection
{
    TlsStream& stream;
    quint16 peerPort = 0;
    bool answered = false;
    bool noMediaType = false;
};

thread_local TlsHttpServer::Connection* TlsHttpServer::m_connection = nullptr;

namespace {

constexpr int c_idleMilliseconds = 60 * 1000;
constexpr qint64 c_pieceSize = 256LL * 1024;

quint16 PeerPort(int socket)
{
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getpeername(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

} // namespace

TlsHttpServer::TlsHttpServer(const QString& host, const CertificateAuthority& authority,
                             ConnectForwarder& forwarder, FaultPlan& faults, RequestLog& log, Handler handler)
    : m_host(host)
    , m_authority(authority)
    , m_forwarder(forwarder)
    , m_faults(faults)
    , m_log(log)
    , m_handler(std::move(handler))
    , m_context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free)
{
    SSL_CTX_set_min_proto_version(m_context.get(), TLS1_2_VERSION);
    SSL_CTX_set_cert_cb(m_context.get(), &TlsHttpServer::ChooseCertificate, this);
    // Every connection shows its certificate anew: a resumed session would hide one that has gone bad.
    SSL_CTX_set_session_cache_mode(m_context.get(), SSL_SESS_CACHE_OFF);
    SSL_CTX_set_options(m_context.get(), SSL_OP_NO_TICKET);
    SSL_CTX_set_num_tickets(m_context.get(), 0);

    new_task_queue = [] { return new ThreadPerTask; };
    set_address_family(AF_INET);
    // None of httplib's own: they would let two servers share a port.
    set_socket_options([](socket_t) {});
    set_tcp_nodelay(true);
    set_keep_alive_max_count(100000);
    set_keep_alive_timeout(c_idleMilliseconds / 1000);
    set_read_timeout(c_idleMilliseconds / 1000);
    set_write_timeout(600);
    set_default_headers({{"Server", "venue-server"}, {"X-Content-Type-Options", "nosniff"}});
    set_pre_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
        const bool hasBody = request.has_header("Content-Length") || request.has_header("Transfer-Encoding");
        if (hasBody && request.method != "GET" && request.method != "HEAD") {
            return HandlerResponse::Unhandled;
        }
        if (hasBody) {
            // Nobody reads it, and it must not be taken for the next request.
            m_connection->stream.CloseAfterAnswer();
        }
        Handle(request, response);
        return HandlerResponse::Handled;
    });
    const auto refuse
        = [this](const httplib::Request& request, httplib::Response& response) { Handle(request, response); };
    // Through these, a request's body is read before it is refused, and the connection stays usable.
    Post(".*", refuse).Put(".*", refuse).Patch(".*", refuse).Delete(".*", refuse).Options(".*", refuse);
    set_error_handler([this](const httplib::Request& request, httplib::Response& response) {
        if (!m_connection->answered) {
            HandleRefused(request, response);
        }
    });
    set_post_routing_handler([](const httplib::Request&, httplib::Response& response) {
        if (m_connection->noMediaType) {
            response.headers.erase("Content-Type");
        }
    });
}

TlsHttpServer::~TlsHttpServer()
{
    Stop();
}

quint16 TlsHttpServer::Start()
{
    const int port = bind_to_any_port("127.0.0.1");
    if (port <= 0) {
        return 0;
    }
    m_stop.Reset();
    m_thread = std::thread([this] { listen_after_bind(); });
    while (!is_running()) {
        std::this_thread::yield();
    }
    return static_cast<quint16>(port);
}

void TlsHttpServer::Stop()
{
    m_stop.Stop();
    if (m_thread.joinable()) {
        stop();
        m_thread.join();
    }
}

int TlsHttpServer::ChooseCertificate(SSL* ssl, void* self)
{
    // The client has spoken, so the forwarder has noted the connection.
    auto* server = static_cast<TlsHttpServer*>(self);
    const CertificateKind kind = server->m_forwarder.Info(PeerPort(SSL_get_fd(ssl))).certificate;
    const char* name = SSL_get_servername(ssl, TLSEXT_NAMETYPE_host_name);
    const QString host = QString::fromLatin1(name).toLower();
    const ServerIdentity identity
        = server->IdentityFor(server->m_forwarder.KnowsHost(host) ? host : server->m_host, kind);
    return SSL_use_certificate(ssl, identity.certificate.get()) == 1
            && SSL_use_PrivateKey(ssl, identity.key.get()) == 1
        ? 1
        : 0;
}

bool TlsHttpServer::IsPseudoHeader(const std::string& name)
{
    return name == "REMOTE_ADDR" || name == "REMOTE_PORT" || name == "LOCAL_ADDR" || name == "LOCAL_PORT";
}

bool TlsHttpServer::process_and_close_socket(socket_t socket)
{
    const std::unique_ptr<SSL, decltype(&SSL_free)> ssl(SSL_new(m_context.get()), SSL_free);
    SSL_set_fd(ssl.get(), socket);
    if (SSL_accept(ssl.get()) == 1) {
        m_log.AddTlsConnection();
        const qint64 connectionId = m_forwarder.Info(PeerPort(socket)).connectionId;
        TlsStream stream(ssl.get(), socket,
                         [&](qint64 count) { m_log.AddReceivedBytes(connectionId, count); });
        Connection connection{.stream = stream, .peerPort = PeerPort(socket)};
        m_connection = &connection;
        Serve(connection);
        m_connection = nullptr;
        if (!stream.Failed()) {
            SSL_shutdown(ssl.get());
        }
    }
    shutdown(socket, SHUT_WR);
    close(socket);
    return true;
}

void TlsHttpServer::Serve(Connection& connection)
{
    while (connection.stream.ReadRequestLine(c_idleMilliseconds)) {
        connection.answered = false;
        connection.noMediaType = false;
        bool closed = false;
        const bool served = process_request(connection.stream, false, closed, nullptr);
        if (!served) {
            // An answer that was cut short must not look complete: no orderly end of TLS.
            connection.stream.FailWrites();
        }
        if (closed || connection.stream.Failed() || connection.stream.ClosesAfterAnswer()) {
            break;
        }
    }
}

void TlsHttpServer::Handle(const httplib::Request& request, httplib::Response& response)
{
    m_connection->answered = true;
    Request record = RecordOf(request);
    record.id = m_log.AddRequest(record);
    const Fault::Effect effect = m_faults.Take(record.host, record.target).value_or(Fault::Effect());
    TlsStream& stream = m_connection->stream;
    if (effect.noAnswer) {
        WaitForEnd(stream);
        return;
    }
    if (effect.delay > 0 && m_stop.WaitFor(effect.delay)) {
        stream.FailWrites();
        return;
    }
    if (effect.reset) {
        m_forwarder.ResetWhenClosed(m_connection->peerPort);
        stream.FailWrites();
        return;
    }
    if (effect.rawAnswer.has_value()) {
        stream.write(effect.rawAnswer->constData(), static_cast<size_t>(effect.rawAnswer->size()));
        stream.FailWrites();
        return;
    }
    stream.write(effect.earlyAnswer.constData(), static_cast<size_t>(effect.earlyAnswer.size()));
    Answer answer;
    if (effect.status.has_value() && !effect.body.has_value()) {
        answer.mediaType = JsonApiDocument::c_mediaType;
        answer.body
            = JsonApiDocument::Error(*effect.status, QStringLiteral("The server was told to fail here."));
    } else {
        answer = m_handler(record);
    }
    answer.status = effect.status.value_or(answer.status);
    m_log.SetStatus(record.id, answer.status);
    Deliver(std::move(answer), effect, response);
}

void TlsHttpServer::HandleRefused(const httplib::Request& request, httplib::Response& response)
{
    m_connection->answered = true;
    // httplib answers 400 or 404 to methods that it does not know; without a path the line was no request at
    // all.
    if (!request.path.empty() && request.method != "GET" && request.method != "HEAD") {
        response.status = 405;
    }
    m_log.SetStatus(m_log.AddRequest(RecordOf(request)), response.status);
    const QByteArray body = JsonApiDocument::Error(
        response.status, QStringLiteral("This is no request that the server serves."));
    response.set_content(body.toStdString(), JsonApiDocument::c_mediaType);
    // What follows a line that was not understood cannot be told from a next request.
    response.set_header("Connection", "close");
    m_connection->stream.CloseAfterAnswer();
}

Request TlsHttpServer::RecordOf(const httplib::Request& request) const
{
    Request record;
    record.connectionId = m_forwarder.Info(m_connection->peerPort).connectionId;
    record.method = QByteArray::fromStdString(request.method);
    record.target = m_connection->stream.Target();
    record.path = QString::fromUtf8(QByteArray::fromPercentEncoding(record.target.split('?').constFirst()));
    record.query = VenueQuery::Split(record.target);
    for (const auto& [name, value] : request.headers) {
        if (!IsPseudoHeader(name)) {
            record.headers.append({QByteArray::fromStdString(name), QByteArray::fromStdString(value)});
        }
    }
    const QString host = QString::fromStdString(request.get_header_value("Host"));
    record.host = host.section(QLatin1Char(':'), 0, 0).toLower();
    return record;
}

void TlsHttpServer::Deliver(Answer answer, const Fault::Effect& effect, httplib::Response& response)
{
    QByteArray body = effect.body.value_or(answer.body);
    const QByteArray mediaType = effect.mediaType.value_or(answer.mediaType);
    if (effect.brokenGzip) {
        body = BodyTricks::BrokenGzip();
    } else if (effect.gzipBombMegabytes > 0) {
        body = BodyTricks::GzipBomb(effect.gzipBombMegabytes);
    }
    response.status = answer.status;
    for (const auto& [name, value] : answer.headers + effect.headers) {
        response.headers.emplace(name.toStdString(), value.toStdString());
    }
    if (effect.brokenGzip || effect.gzipBombMegabytes > 0) {
        response.set_header("Content-Encoding", "gzip");
    }
    DeliverBody(body, mediaType, effect, response);
    if (!effect.secondMediaType.isEmpty()) {
        response.headers.emplace("Content-Type", effect.secondMediaType.toStdString());
    }
    m_connection->noMediaType = effect.noMediaType || mediaType.isEmpty();
}

void TlsHttpServer::DeliverBody(const QByteArray& body, const QByteArray& mediaType,
                                const Fault::Effect& effect, httplib::Response& response)
{
    if (body.isEmpty() && !effect.chunked && !effect.silentAfterHeader) {
        response.set_header("Content-Type", mediaType.toStdString());
        return;
    }
    const qint64 end = effect.resetAfter >= 0 ? effect.resetAfter : effect.cutAfter;
    const qint64 limit = end >= 0 ? qMin(end, qint64(body.size())) : body.size();
    // Runs in this connection's thread, after Handle() has returned.
    const auto sendPiece = [this, body, effect, limit](size_t position, httplib::DataSink& sink) {
        const auto offset = static_cast<qint64>(position);
        TlsStream& stream = m_connection->stream;
        if (effect.silentAfterHeader) {
            WaitForEnd(stream);
            return false;
        }
        if (offset >= limit) {
            if (effect.resetAfter >= 0) {
                m_forwarder.ResetWhenClosed(m_connection->peerPort);
            }
            return false;
        }
        if (effect.dripBytes > 0 && offset > 0 && m_stop.WaitFor(effect.dripInterval)) {
            return false;
        }
        const qint64 piece = qMin(limit - offset, effect.dripBytes > 0 ? effect.dripBytes : c_pieceSize);
        return sink.write(body.constData() + offset, static_cast<size_t>(piece));
    };
    if (effect.chunked) {
        const bool complete = limit == body.size() && effect.cutAfter < 0 && effect.resetAfter < 0;
        response.set_chunked_content_provider(
            mediaType.toStdString(), [sendPiece, body, complete](size_t offset, httplib::DataSink& sink) {
                if (complete && static_cast<qsizetype>(offset) == body.size()) {
                    sink.done();
                    return true;
                }
                return sendPiece(offset, sink);
            });
    } else {
        response.set_content_provider(
            static_cast<size_t>(qMax(qsizetype(1), body.size())), mediaType.toStdString(),
            [sendPiece](size_t offset, size_t, httplib::DataSink& sink) { return sendPiece(offset, sink); });
    }
}

void TlsHttpServer::WaitForEnd(TlsStream& stream)
{
    while (!stream.IsPeerGone() && !m_stop.WaitFor(50)) { }
    stream.FailWrites();
}

ServerIdentity TlsHttpServer::IdentityFor(const QString& host, CertificateKind kind)
{
    const QMutexLocker lock(&m_identityMutex);
    ServerIdentity& identity = m_identities[{host, kind}];
    if (identity.certificate == nullptr) {
        identity = m_authority.Issue({host}, kind);
    }
    return identity;
}

} // namespace korvel::Demo
