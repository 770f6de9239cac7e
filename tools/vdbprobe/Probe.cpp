#include <tools/vdbprobe/Probe.h>

#include <tools/vdbprobe/ProbeOptions.h>
#include <tools/vdbprobe/SafeText.h>
#include <tools/vdbprobe/checks/ConnectionCheck.h>
#include <tools/vdbprobe/checks/ServerCheck.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QSslConfiguration>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace korvel::Tools {

namespace {

/// Qt leads connections to the own computer past every proxy.
bool IsOwnComputer(const QString& host)
{
    const QHostAddress address(host);
    return host == "localhost"_L1 || host.startsWith("localhost."_L1) || address.isLoopback();
}

} // namespace

Probe::Probe(const ProbeOptions& options, QTextStream& output)
    : m_options(options)
    , m_output(output)
{
}

int Probe::Run()
{
    SetUpNetwork();
    WriteHeader();
    ConnectionCheck connection(m_options, m_proxy);
    ServerCheck server(m_options);
    const Step steps[] = {
        {"name or proxy", [&] { return connection.FindHostOrProxy(); }, true},
        {"connection", [&] { return connection.Connect(); }, true},
        {"TLS", [&] { return connection.StartTls(); }, true},
        {"HTTP", [&] { return server.AskForVenues(); }, true},
        {"media type", [&] { return server.CheckMediaType(); }, true},
        {"venues", [&] { return server.ReadVenues(); }, true},
        {"pictures", [&] { return server.LoadPicture(); }, false},
        {"model files", [&] { return server.LoadModelFile(); }, false},
        {"search", [&] { return server.SearchTitle(); }, false},
    };
    int number = 0;
    for (const Step& step : steps)
        RunStep(++number, step);
    WriteEnd();
    return m_firstFailure;
}

void Probe::RunStep(int number, const Step& step)
{
    const QString title = u"%1 %2 "_s.arg(number).arg(QLatin1String(step.name), -14);
    if (!m_goesOn) {
        m_output << title << "not tried" << Qt::endl;
        return;
    }
    QElapsedTimer elapsed;
    elapsed.start();
    const Outcome outcome = step.run();
    m_output << title << (outcome.isOk ? "ok      " : "FAILED  ") << outcome.text << Qt::endl;
    if (!outcome.hint.isEmpty())
        m_output << "    hint: " << outcome.hint << Qt::endl;
    for (const QString& detail : outcome.details)
        WriteDetail(detail);
    WriteDetail(u"%1 ms"_s.arg(elapsed.elapsed()));
    if (!outcome.isOk && m_firstFailure == 0)
        m_firstFailure = number;
    m_goesOn = outcome.isOk || outcome.canGoOn || !step.isNeededByLaterOnes;
}

void Probe::SetUpNetwork()
{
    // The network access manager takes all this over with its first request.
    if (!m_options.authorities.isEmpty()) {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.addCaCertificates(m_options.authorities);
        QSslConfiguration::setDefaultConfiguration(configuration);
    }
    m_proxy = m_options.proxy;
    if (m_options.usesSystemProxy) {
        QNetworkProxyFactory::setUseSystemConfiguration(true);
        const QList<QNetworkProxy> proxies
            = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(m_options.Url({})));
        m_proxy = proxies.isEmpty() ? QNetworkProxy(QNetworkProxy::NoProxy) : proxies.first();
    } else {
        QNetworkProxy::setApplicationProxy(m_options.proxy);
    }
    if (IsOwnComputer(m_options.host))
        m_proxy = QNetworkProxy(QNetworkProxy::NoProxy);
}

void Probe::WriteHeader()
{
    const QString tls = QSslSocket::supportsSsl()
        ? u"%1 (%2)"_s.arg(QSslSocket::sslLibraryVersionString(), QSslSocket::activeBackend())
        : u"none"_s;
    m_output << "vdbprobe " KVVENUEDATABASE_VERSION ", venue database module " KVVENUEDATABASE_VERSION
             << Qt::endl
             << "Qt " << qVersion() << ", TLS library " << tls << Qt::endl
             << QSysInfo::prettyProductName() << ", " << QSysInfo::currentCpuArchitecture() << Qt::endl
             << "Server " << Address(m_options.Url({})) << ", proxy " << Address(m_proxy)
             << (m_options.usesSystemProxy ? " (system settings)" : "") << ", time-out "
             << m_options.timeout / 1000.0 << " s" << Qt::endl
             << DateText(QDateTime::currentDateTimeUtc()) << Qt::endl
             << Qt::endl;
}

void Probe::WriteDetail(const QString& text)
{
    if (m_options.isVerbose)
        m_output << "    " << text << Qt::endl;
}

void Probe::WriteEnd()
{
    m_output << (m_firstFailure == 0 ? u"All is well."_s : u"First failure: step %1."_s.arg(m_firstFailure))
             << Qt::endl;
}

} // namespace korvel::Tools
