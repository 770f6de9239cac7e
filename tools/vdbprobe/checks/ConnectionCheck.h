#pragma once

#include <tools/vdbprobe/Outcome.h>

#include <QNetworkProxy>
#include <QSslSocket>

namespace korvel::Tools {

struct ProbeOptions;

/// The steps from a name to an encrypted connection, each built on the one before. They block.
class ConnectionCheck
{
public:
    /// Goes to the host of \p options, which must outlive the check, through \p proxy.
    ConnectionCheck(const ProbeOptions& options, const QNetworkProxy& proxy);

    Outcome FindHostOrProxy() const;
    Outcome Connect();
    Outcome StartTls();

private:
    Outcome FindHost() const;
    Outcome ReachProxy() const;
    Outcome ConnectFailure() const;
    Outcome HandshakeFailure(const QString& summary) const;

    const ProbeOptions& m_options;
    QNetworkProxy m_proxy;
    QSslSocket m_socket;
    QSsl::AlertType m_alert = QSsl::AlertType::CloseNotify; ///< the last one of the server's
};

} // namespace korvel::Tools
