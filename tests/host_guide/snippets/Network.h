#pragma once

#include <QNetworkProxy>
#include <QSslConfiguration>

/// How a host leads the module to its server.
namespace Network {

inline void UseSystemProxy()
{
    //! [system proxy]
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    //! [system proxy]
}

inline void UseProxy(const QString& user, const QString& password)
{
    //! [explicit proxy]
    QNetworkProxy proxy(QNetworkProxy::HttpProxy, QStringLiteral("proxy.company.example"), 3128);
    proxy.setUser(user); // empty where the proxy asks for none
    proxy.setPassword(password);
    QNetworkProxy::setApplicationProxy(proxy);
    //! [explicit proxy]
}

inline void UseNoProxy()
{
    //! [no proxy]
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    //! [no proxy]
}

//! [company authority]
/// False when the file holds no certificate. To be called before the venue database is first opened.
inline bool TrustAuthority(const QString& pemFile)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    if (!configuration.addCaCertificates(pemFile))
        return false;
    QSslConfiguration::setDefaultConfiguration(configuration);
    return true;
}
//! [company authority]

} // namespace Network
