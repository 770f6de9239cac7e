#include <server/VenueServer.h>

#include <server/api/VenueService.h>
#include <server/faults/FaultPlan.h>
#include <server/network/ConnectForwarder.h>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

VenueServer::Options::Options()
    : host(QStringLiteral(KVVENUEDATABASE_SERVER_HOST))
{
}

VenueServer::VenueServer(QObject* parent)
    : VenueServer(Options(), parent)
{
}

VenueServer::VenueServer(const Options& options, QObject* parent)
    : QObject(parent)
    , m_options(options)
    , m_httpsPort(options.httpsPort)
    , m_proxyPort(options.proxyPort)
    , m_log(new RequestLog(this))
    , m_service(std::make_unique<VenueService>(
          options.host, options.pictureSource ? options.pictureSource : VenuePicture::Make))
    , m_faults(std::make_unique<FaultPlan>())
    , m_forwarder(
          std::make_unique<ConnectForwarder>(m_authority, *m_faults, *m_log, [this](const Request& request) {
              return m_service->AnswerTo(request);
          }))
{
    AddHost(options.host);
}

VenueServer::~VenueServer()
{
    Stop();
}

bool VenueServer::Start()
{
    if (!m_forwarder->Start(m_proxyPort, m_httpsPort)) {
        m_errorText = m_forwarder->ErrorText();
        return false;
    }
    m_errorText.clear();
    m_proxyPort = m_forwarder->ProxyPort();
    m_httpsPort = m_forwarder->DirectPort();
    return true;
}

void VenueServer::Stop()
{
    m_forwarder->Stop();
}

bool VenueServer::IsRunning() const
{
    return m_forwarder->IsRunning();
}

QString VenueServer::ErrorText() const
{
    return m_errorText;
}

QString VenueServer::Host() const
{
    return m_options.host;
}

quint16 VenueServer::HttpsPort() const
{
    return m_httpsPort;
}

quint16 VenueServer::ProxyPort() const
{
    return m_proxyPort;
}

QNetworkProxy VenueServer::Proxy() const
{
    return {QNetworkProxy::HttpProxy, u"127.0.0.1"_s, m_proxyPort};
}

QSslCertificate VenueServer::CaCertificate() const
{
    return m_authority.Certificate();
}

QByteArray VenueServer::CaPem() const
{
    return m_authority.Pem();
}

std::unique_ptr<ApplicationNetworkGuard> VenueServer::InstallInApplication() const
{
    return std::make_unique<ApplicationNetworkGuard>(Proxy(), CaCertificate());
}

void VenueServer::SetCatalogue(const VenueCatalogue& catalogue)
{
    m_service->SetCatalogue(catalogue);
}

std::shared_ptr<const VenueCatalogue> VenueServer::Catalogue() const
{
    return m_service->Catalogue();
}

void VenueServer::AddHost(const QString& host)
{
    m_forwarder->AddHost(host);
}

void VenueServer::AddFault(const Fault& fault)
{
    m_faults->Add(fault);
}

void VenueServer::AddFault(const NetworkFault& fault)
{
    m_forwarder->AddFault(fault);
}

void VenueServer::ClearFaults()
{
    m_faults->Clear();
    m_forwarder->ClearFaults();
}

bool VenueServer::DropConnections()
{
    return Start();
}

} // namespace korvel::Demo
