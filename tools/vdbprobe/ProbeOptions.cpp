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

/// The certificates in the PEM or DER file \p path; none when there are none.
QList<QSslCertificate> ReadCertificates(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    const QList<QSslCertificate> certificates = QSslCertificate::fromData(bytes, QSsl::Pem);
    return certificates.isEmpty() ? QSslCertificate::fromData(bytes, QSsl::Der) : certificates;
}

} // namespace

ProbeOptions ProbeOptions::FromArguments(const QStringList& arguments)
{
    const QCommandLineOption hostOption(QStringLiteral("host"),
                                        QStringLiteral("Server to ask, with :port if it is not 443."),
                                        QStringLiteral("name"), QStringLiteral(KVVENUEDATABASE_SERVER_HOST));
    const QCommandLineOption proxyOption(
        QStringLiteral("proxy"),
        QStringLiteral("HTTP proxy as [user:password@]host:port; \"system\": as the system is set up; "
                       "\"none\": directly."),
        QStringLiteral("proxy"), QStringLiteral("system"));
    const QCommandLineOption caOption(
        QStringLiteral("ca"), QStringLiteral("Trust the certificates in this PEM or DER file as well."),
        QStringLiteral("file"));
    const QCommandLineOption timeoutOption(QStringLiteral("timeout"),
                                           QStringLiteral("How long to wait for each answer."),
                                           QStringLiteral("seconds"), QStringLiteral("30"));
    const QCommandLineOption verboseOption(
        QStringLiteral("verbose"), QStringLiteral("Tell also certificates, addresses and each request."));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Asks a venue database server what the module would ask, and tells step by step what works.\n\n"
        "Exit code: 0 when all is well, otherwise the number of the first step that failed:\n"
        "  1 name or proxy   2 connection   3 TLS        4 HTTP\n"
        "  5 media type      6 venues       7 pictures   8 model files\n"
        "64: the command line cannot be used."));
    const QCommandLineOption helpOption = parser.addHelpOption();
    const QCommandLineOption versionOption = parser.addVersionOption();
    parser.addOptions({hostOption, proxyOption, caOption, timeoutOption, verboseOption});

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

    const QUrl server = ReadAuthority(parser.value(hostOption));
    if (!server.isValid() || !server.userInfo().isEmpty())
        return Refusal(QStringLiteral("--host wants a host name, with :port if it is not 443."));
    options.host = server.host();
    options.port = quint16(server.port(443));

    const QString proxy = parser.value(proxyOption);
    options.usesSystemProxy = proxy == QLatin1String("system");
    if (!options.usesSystemProxy && proxy != QLatin1String("none")) {
        const QUrl url = ReadAuthority(proxy);
        if (!url.isValid() || url.port() <= 0)
            return Refusal(QStringLiteral("--proxy wants host:port, \"system\" or \"none\"."));
        options.proxy = QNetworkProxy(QNetworkProxy::HttpProxy, url.host(), quint16(url.port()),
                                      url.userName(QUrl::FullyDecoded), url.password(QUrl::FullyDecoded));
    }

    if (parser.isSet(caOption)) {
        options.authorities = ReadCertificates(parser.value(caOption));
        if (options.authorities.isEmpty())
            return Refusal(QStringLiteral("There is no certificate in \"%1\".").arg(parser.value(caOption)));
    }

    bool isNumber = false;
    const double seconds = parser.value(timeoutOption).toDouble(&isNumber);
    // Written so that "nan" is refused too.
    if (!isNumber || !(seconds > 0.0 && seconds <= c_longestTimeout))
        return Refusal(QStringLiteral("--timeout wants a number of seconds, at most 3600."));
    options.timeout = qMax(1, int(seconds * 1000.0));
    options.isVerbose = parser.isSet(verboseOption);
    return options;
}

} // namespace korvel::Tools
