#pragma once

#include <server/faults/Fault.h>
#include <server/http/StopSignal.h>
#include <server/log/Answer.h>
#include <server/log/RequestLog.h>
#include <server/network/CertificateAuthority.h>

#include <QMap>
#include <QMutex>
#include <QString>

#include <httplib.h>

#include <functional>
#include <memory>
#include <thread>

namespace korvel::Demo {

class ConnectForwarder;
class FaultPlan;
class TlsStream;

/// httplib's HTTP/1.1 server behind a TLS layer of our own, which chooses a certificate for each connection
/// and can let answers fail at any byte. One thread per connection: connections that hang hold nobody else
/// up.
class TlsHttpServer : private httplib::Server
{
public:
    /// Gives the honest answer to a request; called in the connection's thread, by many at a time.
    using Handler = std::function<Answer(const Request&)>;

    /// All references must outlive the server. \p host is the name that clients without a name mean.
    TlsHttpServer(const QString& host, const CertificateAuthority& authority, ConnectForwarder& forwarder,
                  FaultPlan& faults, RequestLog& log, Handler handler);
    /// Stops.
    ~TlsHttpServer() override;
    Q_DISABLE_COPY_MOVE(TlsHttpServer)

    /// Takes any free port of 127.0.0.1 and returns it, 0 when there is none.
    quint16 Start();
    /// Ends every wait and connection; returns when no thread is left. Clients that are still connected must
    /// have been thrown out before, for example by ConnectForwarder::Stop().
    void Stop();

private:
    struct Connection;

    static int ChooseCertificate(SSL* ssl, void* self);
    static bool IsPseudoHeader(const std::string& name);

    bool process_and_close_socket(socket_t socket) override;
    void Serve(Connection& connection);
    void Handle(const httplib::Request& request, httplib::Response& response);
    void HandleRefused(const httplib::Request& request, httplib::Response& response);
    Request RecordOf(const httplib::Request& request) const;
    void Deliver(Answer answer, const Fault::Effect& effect, httplib::Response& response);
    void DeliverBody(const QByteArray& body, const QByteArray& mediaType, const Fault::Effect& effect,
                     httplib::Response& response);
    /// Until the client goes or the server stops; then nothing more can be sent.
    void WaitForEnd(TlsStream& stream);
    ServerIdentity IdentityFor(const QString& host, CertificateKind kind);

    static thread_local Connection* m_connection;

    QString m_host;
    const CertificateAuthority& m_authority;
    ConnectForwarder& m_forwarder;
    FaultPlan& m_faults;
    RequestLog& m_log;
    Handler m_handler;
    StopSignal m_stop;
    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> m_context;
    std::thread m_thread;
    QMutex m_identityMutex;
    QMap<std::pair<QString, CertificateKind>, ServerIdentity> m_identities;
};

} // namespace korvel::Demo
