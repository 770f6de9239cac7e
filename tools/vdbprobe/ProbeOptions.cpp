#include <tools/vdbprobe/ProbeOptions.h>

#include <QCommandLineParser>
#include <QFile>
#include <QUrl>

namespace korvel::Tools {

namespace {

// As long as an hour: whatever is longer is a slip of the keyboard.
constexpr double c_longestTimeout = 3600.0;

ProbeOptions Refusal(const QString& message)
{
    ProbeOptions options;
    options.request = ProbeOptions::Request::Refuse;
    options.message = message;
    return options;
}

/// \p text, "host[:port]" with what may stand before the host, as a URL; invalid when it is anything else.
QUrl ReadAuthority(const QString& text)
{
    const bool hasScheme = text.startsWith(QLatin1String("http://"));
    const QUrl url(hasScheme ? text : QStringLiteral("http://") + text, QUrl::StrictMode);
    const bool isAuthorityOnly = url.path().isEmpty() || url.path() == QLatin1String("/");
    if (url.host().isEmpty() || !isAuthorityOnly || url.hasQuery() || url.hasFragment())
        return {};
    return url;
}

// The readers of single options: each returns what is wrong with \p text, or an empty text.

QString ReadHost(const QString& text, ProbeOptions& options)
{
    const QUrl server = ReadAuthority(text);
    if (!server.isValid() || !server.userInfo().isEmpty())
        return QStringLiteral("--host wants a host name, with :port if it is not 443.");
    options.host = server.host();
    options.port = quint16(server.port(443));
    return {};
}

QString ReadProxy(const QString& text, ProbeOptions& options)
{
    options.usesSystemProxy = text == QLatin1String("system");
    options.proxy = QNetworkProxy(QNetworkProxy::NoProxy);
    if (options.usesSystemProxy || text == QLatin1String("none"))
        return {};
    // As Windows writes names of users: DOMAIN\user.
    const QUrl url = ReadAuthority(QString(text).replace(QLatin1Char('\\'), QLatin1String("%5C")));
    if (!url.isValid() || url.port() <= 0)
        return QStringLiteral("--proxy wants host:port, \"system\" or \"none\".");
    options.proxy = QNetworkProxy(QNetworkProxy::HttpProxy, url.host(), quint16(url.port()),
                                  url.userName(QUrl::FullyDecoded), url.password(QUrl::FullyDecoded));
    return {};
}

QString ReadAuthorities(const QString& path, ProbeOptions& options)
{
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    QList<QSslCertificate> certificates = QSslCertificate::fromData(bytes, QSsl::Pem);
    if (certificates.isEmpty())
        certificates = QSslCertificate::fromData(bytes, QSsl::Der);
    options.authorities += certificates;
    return certificates.isEmpty() ? QStringLiteral("There is no certificate in \"%1\".").arg(path)
                                  : QString();
}

QString ReadTimeout(const QString& text, ProbeOptions& options)
{
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    // Written so that "nan" is refused too.
    if (!isNumber || !(seconds > 0.0 && seconds <= c_longestTimeout))
        return QStringLiteral("--timeout wants a number of seconds, at most 3600.");
    options.timeout = qMax(1, int(seconds * 1000.0));
    return {};
}

struct Option
{
    QString name;
    QString description;
    QString valueName;
    QString defaultValue;
    QString (*read)(const QString& text, ProbeOptions& options) = nullptr;
};

QList<Option> Options()
{
    return {{QStringLiteral("host"), QStringLiteral("Server to ask, with :port if it is not 443."),
             QStringLiteral("name"), QStringLiteral(KVVENUEDATABASE_SERVER_HOST), ReadHost},
            {QStringLiteral("proxy"),
             QStringLiteral("HTTP proxy as [user:password@]host:port; \"system\": as the system is set up; "
                            "\"none\": directly."),
             QStringLiteral("proxy"), QStringLiteral("system"), ReadProxy},
            {QStringLiteral("ca"),
             QStringLiteral("Trust the certificates in this PEM or DER file as well."),
             QStringLiteral("file"),
             {},
             ReadAuthorities},
            {QStringLiteral("timeout"), QStringLiteral("How long to wait for each answer."),
             QStringLiteral("seconds"), QStringLiteral("30"), ReadTimeout}};
}

} // namespace

ProbeOptions ProbeOptions::FromArguments(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Asks a venue database server what the module would ask, and tells step by step what works.\n\n"
        "Exit code: 0 when all is well, otherwise the number of the first step that failed:\n"
        "  1 name or proxy   2 connection   3 TLS        4 HTTP          5 media type\n"
        "  6 venues          7 pictures     8 model files                9 search\n"
        "64: the command line cannot be used."));
    const QCommandLineOption helpOption = parser.addHelpOption();
    const QCommandLineOption versionOption = parser.addVersionOption();
    const QList<Option> known = Options();
    for (const Option& option : known)
        parser.addOption({option.name, option.description, option.valueName, option.defaultValue});
    const QCommandLineOption verboseOption(
        QStringLiteral("verbose"), QStringLiteral("Tell also certificates, addresses and each request."));
    parser.addOption(verboseOption);

    // Not process(): it ends the program with 1, which is the code of a step.
    if (!parser.parse(arguments))
        return Refusal(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return Refusal(QStringLiteral("Unexpected argument \"%1\".").arg(parser.positionalArguments().at(0)));

    ProbeOptions options;
    if (parser.isSet(helpOption)) {
        options.request = Request::ShowHelp;
        options.message = parser.helpText();
        return options;
    }
    if (parser.isSet(versionOption)) {
        options.request = Request::ShowVersion;
        options.message = QStringLiteral("vdbprobe " KVVENUEDATABASE_VERSION "\n");
        return options;
    }
    for (const Option& option : known) {
        const QStringList values = parser.values(option.name);
        for (const QString& value : values) {
            if (const QString complaint = option.read(value, options); !complaint.isEmpty())
                return Refusal(complaint);
        }
    }
    options.isVerbose = parser.isSet(verboseOption);
    return options;
}

QUrl ProbeOptions::Url(const QString& path, const Data::VenueDatabase::QueryPairs& query) const
{
    QUrl url = Data::VenueDatabase::ServerUrl(path, query);
    url.setHost(host, QUrl::DecodedMode);
    if (port != 443)
        url.setPort(port);
    return url;
}

} // namespace korvel::Tools
