#pragma once

#include <server/VenueServer.h>

#include <QByteArray>
#include <QString>

#include <memory>

namespace korvel::Test {

constexpr const char* c_jsonApi = "application/vnd.api+json";

/// The local venue server as tests want it: no catalogue, every answer told beforehand, the whole application
/// led to it. Real TLS on 127.0.0.1 under the module's own host name.
///
/// Make it before the first network access manager speaks; one for all tests of a program, with Reset()
/// between them. A manager whose connection broke may fail its next request too: give each test a manager of
/// its own.
class ScriptedServer
{
public:
    /// Aborts the program when no port can be had.
    ScriptedServer();

    /// Forgets answers, faults and the log; starts again if it was stopped.
    void Reset();

    /// Answers every request whose path and query contain \p target. Of several answers that match the first
    /// one given counts.
    void Answer(const QString& target, const QByteArray& body, const QByteArray& mediaType, int status = 200);
    /// Answers like that with a JSON:API document.
    void AnswerJsonApi(const QString& target, const QByteArray& body);
    /// Requests whose path and query contain \p target are read and never answered.
    void Withhold(const QString& target);
    void AddFault(const Demo::Fault& fault);
    void AddFault(const Demo::NetworkFault& fault);

    /// The targets (path and query as sent) of all requests so far.
    QStringList Targets();
    Demo::RequestLog& Log();
    /// The bytes of HTTP that arrived through all connections but the first \p count.
    qint64 ReceivedBytesAfter(int count);
    /// Until Reset() the application's proxy has a name that nobody knows.
    void HideProxy();
    Demo::VenueServer& Server();

    /// "https://<the module's host><path>"
    static QString Url(const QString& path);

private:
    Demo::VenueServer m_server;
    std::unique_ptr<Demo::ApplicationNetworkGuard> m_network;
    bool m_isProxyHidden = false;
};

} // namespace korvel::Test
