#include <server/network/ApplicationNetworkGuard.h>

#include <QSslCertificate>

namespace korvel::Demo {

ApplicationNetworkGuard::ApplicationNetworkGuard(const QNetworkProxy& proxy, const QSslCertificate& authority)
    : m_previousProxy(QNetworkProxy::applicationProxy())
    , m_previousConfiguration(QSslConfiguration::defaultConfiguration())
{
    QNetworkProxy::setApplicationProxy(proxy);
    QSslConfiguration configuration = m_previousConfiguration;
    configuration.addCaCertificate(authority);
    QSslConfiguration::setDefaultConfiguration(configuration);
}

ApplicationNetworkGuard::~ApplicationNetworkGuard()
{
    QSslConfiguration::setDefaultConfiguration(m_previousConfiguration);
    QNetworkProxy::setApplicationProxy(m_previousProxy);
}

} // namespace korvel::Demo
