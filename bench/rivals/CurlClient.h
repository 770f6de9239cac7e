#pragma once

#include <QByteArray>
#include <QList>

using CURL = void;

namespace korvel::Demo {
class VenueServer;
}

namespace korvel::Bench {

/// libcurl with one kept connection to the venue server, through its proxy as the module's requests go.
class CurlClient
{
public:
    explicit CurlClient(const Demo::VenueServer& server);
    ~CurlClient();
    Q_DISABLE_COPY_MOVE(CurlClient)

    /// The body behind \p url, empty on failure.
    QByteArray Get(const QByteArray& url);

private:
    CURL* m_handle = nullptr;
};

} // namespace korvel::Bench
