#include <tools/vdbprobe/ProbeOptions.h>

#include <QCommandLineParser>
#include <QFile>
#include <QUrl>

using namespace Qt::StringLiterals;

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
    const bool hasScheme = text.startsWith("http://"_L1);
    const QUrl url(hasScheme ? text : u"http://"_s + text, QUrl::StrictMode);
    const bool isAuthorityOnly = url.path().isEmpty() || url.path() == "/"_L1;
    if (url.host().isEmpty() || !isAuthorityOnly || url.hasQuery() || url.hasFragment())
        return {};
    return url;
}

// The readers of single options: each returns what is wrong with \p text, or an empty text.

QString ReadHost(const QString& text, ProbeOptions& options)
{
    const QUrl server = ReadAuthority(text);
    if (!server.isValid() || !server.userInfo().isEmpty())
        return u"--host wants a host name, with :port if it is not 443."_s;
    options.host = server.host();
    options.port = quint16(server.port(443));
    return {};
}

QString ReadProxy(const QString& text, ProbeOptions& options)
{
    options.usesSystemProxy = text == "system"_L1;
    options.proxy = QNetworkProxy(QNetworkProxy::NoProxy);
    if (options.usesSystemProxy || text == "none"_L1)
        return {};
    // As Windows writes names of users: DOMAIN\user.
    const QUrl url = ReadAuthority(QString(text).replace(QLatin1Char('\\'), "%5C"_L1));
    if (!url.isValid() || url.port() <= 0)
        return u"--proxy wants host:port, \"system\" or \"none\"."_s;
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
    return certificates.isEmpty() ? u"There is no certificate in \"%1\"."_s.arg(path) : QString();
}

QString ReadTimeout(const QString& text, ProbeOptions& options)
{
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    // Written so that "nan" is refused too.
    if (!isNumber || !(seconds > 0.0 && seconds <= c_longestTimeout))
        return u"--timeout wants a number of seconds, at most 3600."_s;
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
    return {{u"host"_s, u"Server to ask, with :port if it is not 443."_s, u"name"_s,
             QStringLiteral(KVVENUEDATABASE_SERVER_HOST), ReadHost},
            {u"proxy"_s,
             u"HTTP proxy as [user:password@]host:port; \"system\": as the system is set up; "
             "\"none\": directly."_s,
             u"proxy"_s, u"system"_s, ReadProxy},
            {u"ca"_s,
             u"Trust the certificates in this PEM or DER file as well."_s,
             u"file"_s,
             {},
             ReadAuthorities},
            {u"timeout"_s, u"How long to wait for each answer."_s, u"seconds"_s, u"30"_s, ReadTimeout}};
}

} // namespace

ProbeOptions ProbeOptions::FromArguments(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Asks a venue database server what the module would ask, and tells step by step what works.\n\n"
        "Exit code: 0 when all is well, otherwise the number of the first step that failed:\n"
        "  1 name or proxy   2 connection   3 TLS        4 HTTP          5 media type\n"
        "  6 venues          7 pictures     8 model files                9 search\n"
        "64: the command line cannot be used."_s);
    const QCommandLineOption helpOption = parser.addHelpOption();
    const QCommandLineOption versionOption = parser.addVersionOption();
    const QList<Option> known = Options();
    for (const Option& option : known)
        parser.addOption({option.name, option.description, option.valueName, option.defaultValue});
    const QCommandLineOption verboseOption(u"verbose"_s,
                                           u"Tell also certificates, addresses and each request."_s);
    parser.addOption(verboseOption);

    // Not process(): it ends the program with 1, which is the code of a step.
    if (!parser.parse(arguments))
        return Refusal(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return Refusal(u"Unexpected argument \"%1\"."_s.arg(parser.positionalArguments().at(0)));

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
        for (const QString& value : values)
            if (const QString complaint = option.read(value, options); !complaint.isEmpty())
                return Refusal(complaint);
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
