#include <demo/ServerConnection.h>

#include <QNetworkProxy>
#include <QSslCertificate>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

bool ServerConnection::StartOwnServer()
{
    QString problem;
    const VenueCatalogue catalogue = VenueCatalogue::Load(QStringLiteral(VDB_CATALOGUE_DIR), &problem);
    if (!problem.isEmpty())
        return Fail(problem);

    auto server = std::make_unique<VenueServer>();
    server->SetCatalogue(catalogue);
    if (!server->Start())
        return Fail(server->ErrorText());
    m_network = server->InstallInApplication();
    m_server = std::move(server);
    return true;
}

bool ServerConnection::UseProxy(const QString& address, const QString& caFile)
{
    const qsizetype colon = address.lastIndexOf(QLatin1Char(':'));
    bool isNumber = false;
    const quint16 port = address.mid(colon + 1).toUShort(&isNumber);
    if (colon < 1 || !isNumber || port == 0)
        return Fail(u"\"%1\" is not of the form host:port"_s.arg(address));
    const QList<QSslCertificate> authorities = QSslCertificate::fromPath(caFile, QSsl::Pem);
    if (authorities.isEmpty())
        return Fail(u"\"%1\" holds no PEM certificate"_s.arg(caFile));
    m_network = std::make_unique<ApplicationNetworkGuard>(
        QNetworkProxy(QNetworkProxy::HttpProxy, address.left(colon), port), authorities.constFirst());
    return true;
}

bool ServerConnection::Fail(const QString& text)
{
    m_errorText = text;
    return false;
}

} // namespace korvel::Demo
