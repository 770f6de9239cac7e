#pragma once

#include <QNetworkProxy>
#include <QSslConfiguration>

namespace korvel::Demo {

/// Leads the whole application to a local server for as long as it lives: an application-wide proxy, and one
/// more trusted authority in the default TLS configuration. Its end restores what was there before.
///
/// A network access manager takes the authorities that count when it first speaks to a host: install before
/// that. GUI thread only; guards end in the reverse order of their making.
class ApplicationNetworkGuard
{
public:
    ApplicationNetworkGuard(const QNetworkProxy& proxy, const QSslCertificate& authority);
    ~ApplicationNetworkGuard();
    Q_DISABLE_COPY_MOVE(ApplicationNetworkGuard)

private:
    QNetworkProxy m_previousProxy;
    QSslConfiguration m_previousConfiguration;
};

} // namespace korvel::Demo
