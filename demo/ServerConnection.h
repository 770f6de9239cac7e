#pragma once

#include <server/VenueServer.h>
#include <server/network/ApplicationNetworkGuard.h>

#include <QString>

#include <memory>

namespace korvel::Demo {

/// How the demo reaches a venue server under the module's fixed host name: application-wide, so that the
/// module needs no change. A real host has no such class; it talks to the real server.
class ServerConnection
{
public:
    /// Starts a server with the catalogue of this repository in this process. False with ErrorText().
    bool StartOwnServer();
    /// Uses a running server: \p address is "host:port" of its proxy, \p caFile the authority it is signed
    /// by. False with ErrorText() when one of them makes no sense; nothing is sent.
    bool UseProxy(const QString& address, const QString& caFile);

    /// Null unless StartOwnServer() succeeded.
    VenueServer* OwnServer() const
    {
        return m_server.get();
    }
    QString ErrorText() const
    {
        return m_errorText;
    }

private:
    bool Fail(const QString& text);

    QString m_errorText;
    std::unique_ptr<VenueServer> m_server;
    std::unique_ptr<ApplicationNetworkGuard> m_network;
};

} // namespace korvel::Demo
