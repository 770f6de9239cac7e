#include <tools/vdbprobe/Probe.h>

#include <tools/vdbprobe/SafeText.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QHostAddress>
#include <QHostInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkProxyFactory>
#include <QSslCipher>
#include <QSslConfiguration>
#include <QSysInfo>
#include <QTimer>
#include <QUrlQuery>

namespace korvel::Tools {

namespace {

/// Most venues have neither pictures nor model files; this many are asked before that counts as the answer.
constexpr qsizetype c_venuesToTry = 10;
/// A certificate that ends within this many days is worth a word.
constexpr qint64 c_daysToWarn = 14;
constexpr QLatin1String c_jsonApiMediaType("application/vnd.api+json");

/// Qt leads connections to the own computer past every proxy.
bool IsOwnComputer(const QString& host)
{
    const QHostAddress address(host);
    return host == QLatin1String("localhost") || host.startsWith(QLatin1String("localhost."))
        || address.isLoopback();
}

QString NamesOf(const QStringList& commonNames, const QStringList& organizations)
{
    const QStringList names = commonNames.isEmpty() ? organizations : commonNames;
    return names.isEmpty() ? QStringLiteral("without a name") : OneLine(names.join(QLatin1String(", ")));
}

QString IssuerOf(const QSslCertificate& certificate)
{
    return NamesOf(certificate.issuerInfo(QSslCertificate::CommonName),
                   certificate.issuerInfo(QSslCertificate::Organization));
}

QString SubjectOf(const QSslCertificate& certificate)
{
    return NamesOf(certificate.subjectInfo(QSslCertificate::CommonName),
                   certificate.subjectInfo(QSslCertificate::Organization));
}

QString DateText(const QDateTime& date)
{
    return date.toUTC().toString(Qt::ISODate);
}

QString TlsName(QSsl::SslProtocol protocol)
{
    switch (protocol) {
    case QSsl::TlsV1_2:
        return QStringLiteral("TLS 1.2");
    case QSsl::TlsV1_3:
        return QStringLiteral("TLS 1.3");
    default:
        return QStringLiteral("TLS");
    }
}

QString CertificateHint(QSslError::SslError error)
{
    switch (error) {
    case QSslError::SelfSignedCertificate:
    case QSslError::SelfSignedCertificateInChain:
    case QSslError::UnableToGetIssuerCertificate:
    case QSslError::UnableToGetLocalIssuerCertificate:
    case QSslError::UnableToVerifyFirstCertificate:
    case QSslError::CertificateUntrusted:
        return QStringLiteral(
            "The issuer is not trusted here. If it is your company's own authority, name its "
            "certificate with --ca, and let the application trust it before its first request.");
    case QSslError::CertificateExpired:
    case QSslError::CertificateNotYetValid:
        return QStringLiteral(
            "Is this computer's clock right? Otherwise the server needs a new certificate.");
    case QSslError::HostNameMismatch:
        return QStringLiteral(
            "Another server answers under this name: look at the proxy and the name service.");
    default:
        return QStringLiteral("Show this to whoever runs the server or the proxy.");
    }
}

} // namespace

Probe::Probe(const ProbeOptions& options, QTextStream& output)
    : m_options(options)
    , m_output(output)
    , m_connector(nullptr)
{
}

int Probe::Run()
{
    static constexpr Step c_steps[] = {
        {"name or proxy", &Probe::FindHostOrProxy, true},
        {"connection", &Probe::Connect, true},
        {"TLS", &Probe::StartTls, true},
        {"HTTP", &Probe::AskForVenues, true},
        {"media type", &Probe::CheckMediaType, true},
        {"venues", &Probe::ReadVenues, true},
        {"pictures", &Probe::LoadPicture, false},
        {"model files", &Probe::LoadModelFile, false},
    };

    SetUpNetwork();
    WriteHeader();
    int firstFailure = 0;
    bool goesOn = true;
    int number = 0;
    for (const Step& step : c_steps) {
        ++number;
        const QString title = QStringLiteral("%1 %2 ").arg(number).arg(QLatin1String(step.name), -14);
        if (!goesOn) {
            m_output << title << "not tried" << Qt::endl;
            continue;
        }
        QElapsedTimer elapsed;
        elapsed.start();
        const Outcome outcome = (this->*step.run)();
        m_output << title << (outcome.isOk ? "ok      " : "FAILED  ") << outcome.text << Qt::endl;
        if (!outcome.hint.isEmpty())
            m_output << "    hint: " << outcome.hint << Qt::endl;
        WriteDetail(QStringLiteral("%1 ms").arg(elapsed.elapsed()));
        if (!outcome.isOk) {
            firstFailure = firstFailure > 0 ? firstFailure : number;
            goesOn = !step.isNeededByLaterOnes;
        }
    }
    m_output << (firstFailure == 0 ? QStringLiteral("All is well.")
                                   : QStringLiteral("First failure: step %1.").arg(firstFailure))
             << Qt::endl;
    return firstFailure;
}

void Probe::SetUpNetwork()
{
    // The network access manager takes all this over with its first request.
    if (!m_options.authorities.isEmpty()) {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.addCaCertificates(m_options.authorities);
        QSslConfiguration::setDefaultConfiguration(configuration);
        m_socket.setSslConfiguration(configuration);
    }
    m_proxy = m_options.proxy;
    if (m_options.usesSystemProxy) {
        QNetworkProxyFactory::setUseSystemConfiguration(true);
        const QList<QNetworkProxy> proxies
            = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(Url({})));
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
        ? QStringLiteral("%1 (%2)").arg(QSslSocket::sslLibraryVersionString(), QSslSocket::activeBackend())
        : QStringLiteral("none");
    m_output << "vdbprobe " KVVENUEDATABASE_VERSION ", venue database module " KVVENUEDATABASE_VERSION
             << Qt::endl
             << "Qt " << qVersion() << ", TLS library " << tls << Qt::endl
             << QSysInfo::prettyProductName() << ", " << QSysInfo::currentCpuArchitecture() << Qt::endl
             << "Server " << Address(Url({})) << ", proxy " << Address(m_proxy)
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

void Probe::WriteCertificate(const QSslCertificate& certificate)
{
    WriteDetail(QStringLiteral("certificate of \"%1\", issued by \"%2\", valid from %3 until %4, SHA-256 %5")
                    .arg(SubjectOf(certificate), IssuerOf(certificate), DateText(certificate.effectiveDate()),
                         DateText(certificate.expiryDate()),
                         QString::fromLatin1(certificate.digest(QCryptographicHash::Sha256).toHex())));
}

Outcome Probe::FindHostOrProxy()
{
    return m_proxy.type() == QNetworkProxy::NoProxy ? FindHost() : ReachProxy();
}

Outcome Probe::FindHost()
{
    QHostInfo found;
    bool hasAnswer = false;
    QEventLoop loop;
    const int lookup = QHostInfo::lookupHost(m_options.host, &loop, [&](const QHostInfo& info) {
        found = info;
        hasAnswer = true;
        loop.quit();
    });
    QTimer::singleShot(m_options.timeout, &loop, &QEventLoop::quit);
    if (!hasAnswer)
        loop.exec();
    if (!hasAnswer) {
        QHostInfo::abortHostLookup(lookup);
        return Outcome::Failed(QStringLiteral("the name service does not answer"),
                               QStringLiteral("Is this computer connected to a network?"));
    }
    if (found.error() != QHostInfo::NoError || found.addresses().isEmpty()) {
        return Outcome::Failed(
            QStringLiteral("%1: %2").arg(OneLine(m_options.host), OneLine(found.errorString())),
            QStringLiteral(
                "Is the name right, and is this computer connected? Where only a proxy knows names "
                "of the internet, name it with --proxy."));
    }
    QStringList addresses;
    for (const QHostAddress& address : found.addresses())
        addresses.append(address.toString());
    return Outcome::Ok(
        QStringLiteral("%1 is %2").arg(OneLine(m_options.host), addresses.join(QLatin1String(", "))));
}

Outcome Probe::ReachProxy()
{
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(m_proxy.hostName(), m_proxy.port());
    if (!socket.waitForConnected(m_options.timeout)) {
        return Outcome::Failed(
            QStringLiteral("proxy %1: %2").arg(Address(m_proxy), OneLine(socket.errorString())),
            QStringLiteral("Are name and port of the proxy right, and does it run?"));
    }
    return Outcome::Ok(QStringLiteral("proxy %1 can be reached").arg(Address(m_proxy)));
}

Outcome Probe::Connect()
{
    const bool hasProxy = m_proxy.type() != QNetworkProxy::NoProxy;
    m_socket.setProxy(m_proxy);
    m_socket.connectToHost(m_options.host, m_options.port);
    if (!m_socket.waitForConnected(m_options.timeout)) {
        QString hint
            = QStringLiteral("Is the server up? Does a firewall block port %1, or is there a proxy to "
                             "be named with --proxy?")
                  .arg(m_options.port);
        if (m_socket.error() == QAbstractSocket::ProxyAuthenticationRequiredError)
            hint = QStringLiteral("The proxy wants a user name and a password.");
        else if (hasProxy)
            hint = QStringLiteral(
                "The proxy does not lead to this server: is the name right, and does the proxy "
                "allow it?");
        return Outcome::Failed(QStringLiteral("%1:%2: %3")
                                   .arg(OneLine(m_options.host))
                                   .arg(m_options.port)
                                   .arg(OneLine(m_socket.errorString())),
                               hint);
    }
    WriteDetail(QStringLiteral("from %1:%2 to %3:%4")
                    .arg(m_socket.localAddress().toString())
                    .arg(m_socket.localPort())
                    .arg(hasProxy ? OneLine(m_proxy.hostName()) : m_socket.peerAddress().toString())
                    .arg(hasProxy ? m_proxy.port() : m_socket.peerPort()));
    return Outcome::Ok(QStringLiteral("%1:%2%3")
                           .arg(OneLine(m_options.host))
                           .arg(m_options.port)
                           .arg(hasProxy ? QStringLiteral(" through the proxy") : QString()));
}

Outcome Probe::StartTls()
{
    if (!QSslSocket::supportsSsl()) {
        return Outcome::Failed(
            QStringLiteral("Qt finds no TLS library"),
            QStringLiteral("Install Qt's \"tls\" plug-ins and the library that they need."));
    }
    m_socket.startClientEncryption();
    const bool isEncrypted = m_socket.waitForEncrypted(m_options.timeout);
    const QList<QSslError> errors = m_socket.sslHandshakeErrors();
    QSslCertificate certificate = m_socket.peerCertificate();
    if (certificate.isNull() && !errors.isEmpty())
        certificate = errors.first().certificate();
    for (const QSslCertificate& link : m_socket.peerCertificateChain())
        WriteCertificate(link);
    const QString details = certificate.isNull()
        ? QStringLiteral("the server showed no certificate")
        : QStringLiteral("issuer \"%1\", valid until %2")
              .arg(IssuerOf(certificate), DateText(certificate.expiryDate()));

    if (!isEncrypted) {
        if (errors.isEmpty()) {
            return Outcome::Failed(
                QStringLiteral("%1; %2").arg(OneLine(m_socket.errorString()), details),
                QStringLiteral("What answers does not speak TLS, or something on the way breaks it: look at "
                               "proxies, filters and sign-in pages of the network."));
        }
        QStringList reasons;
        for (const QSslError& error : errors)
            reasons.append(OneLine(error.errorString()));
        return Outcome::Failed(QStringLiteral("%1; %2").arg(reasons.join(QLatin1Char(' ')), details),
                               CertificateHint(errors.first().error()));
    }
    Outcome outcome = Outcome::Ok(
        QStringLiteral("%1, %2, %3")
            .arg(TlsName(m_socket.sessionProtocol()), m_socket.sessionCipher().name(), details));
    if (QDateTime::currentDateTimeUtc().daysTo(certificate.expiryDate()) < c_daysToWarn)
        outcome.hint = QStringLiteral("The certificate ends soon.");
    m_socket.abort();
    return outcome;
}

Outcome Probe::AskForVenues()
{
    m_venues = m_connector.Fetch(VenueUrl({{QStringLiteral("include"), QStringLiteral("editor")}}),
                                 m_options.timeout);
    if (!m_venues.HasSucceeded())
        return Outcome::Failed(m_venues.Reason(m_options.timeout), m_venues.Hint());
    const QString text = QStringLiteral("status %1, %2 bytes").arg(m_venues.status).arg(m_venues.body.size());
    return Outcome::Ok(
        m_venues.wasRedirected ? text + QStringLiteral(", redirected to ") + Address(m_venues.url) : text);
}

Outcome Probe::CheckMediaType()
{
    if (m_venues.contentType == c_jsonApiMediaType)
        return Outcome::Ok(m_venues.contentType);
    const QString type = m_venues.contentType.isEmpty()
        ? QStringLiteral("no media type")
        : QStringLiteral("\"%1\"").arg(OneLine(m_venues.contentType));
    const QString hint = m_venues.contentType.startsWith(QLatin1String("text/html"))
        ? QStringLiteral("A web page answers, perhaps the sign-in page of a network or a proxy's own.")
        : QStringLiteral(
            "The module takes no other type, nor one with parameters: the server must be set so.");
    return Outcome::Failed(QStringLiteral("%1 instead of \"%2\"").arg(type, c_jsonApiMediaType), hint);
}

Outcome Probe::ReadVenues()
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(m_venues.body, &error);
    if (!document.isObject()) {
        return Outcome::Failed(
            QStringLiteral("the body is no JSON object: %1").arg(error.errorString()),
            QStringLiteral("The answer was damaged on the way, or the server is at fault."));
    }
    const auto venues = m_connector.ProcessVenueEntriesReply(document.object());
    if (venues.isEmpty()) {
        return Outcome::Failed(QStringLiteral("the server knows no venue"),
                               QStringLiteral("Is this the right server? Its data may be missing."));
    }
    for (const auto& venue : venues)
        m_venueIds.append(venue.GetId());
    return Outcome::Ok(venues.size() == 1 ? QStringLiteral("1 venue")
                                          : QStringLiteral("%1 venues").arg(venues.size()));
}

Outcome Probe::LoadPicture()
{
    QJsonArray included;
    qint64 venueId = 0;
    Outcome outcome;
    const QString include = QStringLiteral(
        "from_the_auditorium.file,from_the_stage_into_the_auditorium.file,isometric.file,"
        "stage_left.file,stage_right.file,view_from_the_inside.file,view_from_the_outside.file");
    if (!FindIncluded(include, QStringLiteral("pictures"), included, venueId, outcome))
        return outcome;

    const QStringList urls = m_connector.PictureUrls(included, venueId);
    const FetchResult picture = m_connector.Fetch(QUrl(urls.first()), m_options.timeout);
    const QString found = QStringLiteral("%1 at venue %2; ").arg(urls.size()).arg(venueId);
    if (!picture.HasSucceeded())
        return Outcome::Failed(found + picture.Reason(m_options.timeout), picture.Hint());
    if (!picture.contentType.startsWith(QLatin1String("image"))) {
        return Outcome::Failed(
            found
                + QStringLiteral("%1 is no image but \"%2\"")
                      .arg(Address(picture.url), OneLine(picture.contentType)),
            QStringLiteral("The server, or a filter on the way, answers with something else."));
    }
    if (picture.body.isEmpty()) {
        return Outcome::Failed(found + QStringLiteral("%1 is empty").arg(Address(picture.url)),
                               QStringLiteral("The server has lost the picture's file."));
    }
    return Outcome::Ok(found
                       + QStringLiteral("%1, %2, %3 bytes")
                             .arg(Address(picture.url), OneLine(picture.contentType))
                             .arg(picture.body.size()));
}

Outcome Probe::LoadModelFile()
{
    QJsonArray included;
    qint64 venueId = 0;
    Outcome outcome;
    if (!FindIncluded(QStringLiteral("tessra.file"), QStringLiteral("model files"), included, venueId,
                      outcome))
        return outcome;

    QStringList paths;
    for (const QJsonValue value : std::as_const(included)) {
        const QJsonObject resource = value.toObject();
        if (resource.value(QLatin1String("type")) == QLatin1String("file"))
            paths.append(resource.value(QLatin1String("attributes"))
                             .toObject()
                             .value(QLatin1String("url"))
                             .toString()
                             .remove(QLatin1Char('\\')));
    }
    const FetchResult file = m_connector.Fetch(Url(paths.first()), m_options.timeout);
    const QString found = QStringLiteral("%1 at venue %2; ").arg(paths.size()).arg(venueId);
    if (!file.HasSucceeded())
        return Outcome::Failed(found + file.Reason(m_options.timeout), file.Hint());
    if (file.body.isEmpty()) {
        return Outcome::Failed(found + QStringLiteral("%1 is empty").arg(Address(file.url)),
                               QStringLiteral("The server has lost the model file."));
    }
    return Outcome::Ok(found + QStringLiteral("%1, %2 bytes").arg(Address(file.url)).arg(file.body.size()));
}

QUrl Probe::Url(const QString& path) const
{
    QUrl url;
    url.setScheme(QStringLiteral("https"));
    url.setHost(m_options.host, QUrl::DecodedMode);
    if (m_options.port != 443)
        url.setPort(m_options.port);
    url.setPath(path, QUrl::TolerantMode);
    return url;
}

QUrl Probe::VenueUrl(const QList<std::pair<QString, QString>>& query) const
{
    QUrlQuery urlQuery;
    for (const auto& [name, value] : query)
        urlQuery.addQueryItem(name, value);
    QUrl url = Url(QStringLiteral("/api/venue"));
    url.setQuery(urlQuery);
    return url;
}

bool Probe::FindIncluded(const QString& include, const QString& what, QJsonArray& included, qint64& venueId,
                         Outcome& result)
{
    const QList<qint64> candidates = m_venueIds.first(qMin(c_venuesToTry, m_venueIds.size()));
    for (const qint64 candidate : candidates) {
        const FetchResult list
            = m_connector.Fetch(VenueUrl({{QStringLiteral("include"), include},
                                          {QStringLiteral("filter[entity_id]"), QString::number(candidate)}}),
                                m_options.timeout);
        const QString name = QStringLiteral("list of %1: ").arg(what);
        if (!list.HasSucceeded()) {
            result = Outcome::Failed(name + list.Reason(m_options.timeout), list.Hint());
            return false;
        }
        if (list.contentType != c_jsonApiMediaType) {
            result = Outcome::Failed(
                name + QStringLiteral("the media type is \"%1\"").arg(OneLine(list.contentType)),
                QStringLiteral("The server must answer with \"%1\".").arg(c_jsonApiMediaType));
            return false;
        }
        const QJsonDocument document = QJsonDocument::fromJson(list.body);
        if (!document.isObject()) {
            result = Outcome::Failed(
                name + QStringLiteral("the body is no JSON object"),
                QStringLiteral("The answer was damaged on the way, or the server is at fault."));
            return false;
        }
        included = document.object().value(QLatin1String("included")).toArray();
        venueId = candidate;
        for (const QJsonValue value : std::as_const(included)) {
            if (value.toObject().value(QLatin1String("type")) == QLatin1String("file"))
                return true;
        }
    }
    result = Outcome::Ok(
        QStringLiteral("the first %1 venues have no %2: nothing to load").arg(candidates.size()).arg(what));
    return false;
}

} // namespace korvel::Tools
