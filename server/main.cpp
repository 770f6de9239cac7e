#include <server/VenueServer.h>
#include <server/catalogue/CatalogueGenerator.h>
#include <server/faults/FaultSyntax.h>

#include <QCommandLineParser>
#include <QFile>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <QTextStream>

#include <csignal>

#include <unistd.h>

using namespace korvel::Demo;

namespace {

int g_signalPipe[2] = {-1, -1};

// The only thing that is safe in here; the notifier at the other end does the rest.
void OnSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(g_signalPipe[1], &byte, 1);
}

/// Makes SIGINT and SIGTERM end the event loop.
void QuitOnSignals(QCoreApplication& application)
{
    if (pipe(g_signalPipe) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(g_signalPipe[0], QSocketNotifier::Read, &application);
    QObject::connect(notifier, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    struct sigaction action = {};
    action.sa_handler = OnSignal;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

int Fail(const QString& text)
{
    QTextStream(stderr) << "vdbserver: " << text << Qt::endl;
    return 1;
}

QString LogLine(const Request& request)
{
    return QStringLiteral("%1 #%2 %3 %4 https://%5%6")
        .arg(request.time.toString(Qt::ISODateWithMs))
        .arg(request.connectionId)
        .arg(request.status)
        .arg(QString::fromLatin1(request.method), request.host, QString::fromUtf8(request.target));
}

/// Writes a line for each answered request, as long as \p server and \p file live.
void WriteLog(VenueServer& server, QFile& file)
{
    QObject::connect(&server.Log(), &RequestLog::RequestAnswered, &server, [&server, &file](qint64 id) {
        const QList<Request> requests = server.Log().Requests();
        for (const Request& request : requests) {
            if (request.id == id) {
                file.write(LogLine(request).toUtf8() + '\n');
                file.flush();
            }
        }
    });
}

} // namespace

int main(int argc, char* argv[])
{
    // The captions of pictures need fonts and these a GUI application, but no display.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vdbserver"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A venue database server on 127.0.0.1.\n\n")
                                     + FaultSyntaxHelp());
    parser.addHelpOption();
    const QCommandLineOption port(QStringLiteral("port"), QStringLiteral("HTTPS port; 0: any."),
                                  QStringLiteral("port"), QStringLiteral("0"));
    const QCommandLineOption proxyPort(QStringLiteral("proxy-port"),
                                       QStringLiteral("CONNECT proxy port; 0: any."), QStringLiteral("port"),
                                       QStringLiteral("0"));
    const QCommandLineOption catalogue(QStringLiteral("catalogue"),
                                       QStringLiteral("Folder of the venues' JSON files."),
                                       QStringLiteral("folder"), QStringLiteral(VDB_CATALOGUE_DIR));
    const QCommandLineOption generate(QStringLiteral("generate"),
                                      QStringLiteral("Invent this many venues instead."),
                                      QStringLiteral("count"));
    const QCommandLineOption caFile(QStringLiteral("ca-file"),
                                    QStringLiteral("Write the certificate authority's certificate here."),
                                    QStringLiteral("file"));
    const QCommandLineOption fault(QStringLiteral("fault"), QStringLiteral("A fault, see above; repeatable."),
                                   QStringLiteral("pattern=kind"));
    const QCommandLineOption log(QStringLiteral("log"),
                                 QStringLiteral("Log requests to this file; -: standard output."),
                                 QStringLiteral("file"));
    parser.addOptions({port, proxyPort, catalogue, generate, caFile, fault, log});
    parser.process(application);

    VenueServer::Options options;
    bool areNumbers[3] = {true, true, true};
    options.httpsPort = parser.value(port).toUShort(&areNumbers[0]);
    options.proxyPort = parser.value(proxyPort).toUShort(&areNumbers[1]);
    VenueServer server(options);
    if (parser.isSet(generate)) {
        const int count = parser.value(generate).toInt(&areNumbers[2]);
        server.SetCatalogue(
            CatalogueGenerator({.venueCount = count, .picturesPerVenue = 3, .modelFilesPerVenue = 1})
                .Catalogue());
    } else {
        QString error;
        server.SetCatalogue(VenueCatalogue::Load(parser.value(catalogue), &error));
        if (!error.isEmpty()) {
            return Fail(error);
        }
    }
    if (!areNumbers[0] || !areNumbers[1] || !areNumbers[2]) {
        return Fail(QStringLiteral("ports and counts are numbers"));
    }
    const QStringList faults = parser.values(fault);
    for (const QString& text : faults) {
        const ParsedFault parsed = ParseFault(text);
        if (parsed.fault.has_value()) {
            server.AddFault(*parsed.fault);
        } else if (parsed.networkFault.has_value()) {
            server.AddFault(*parsed.networkFault);
        } else {
            return Fail(parsed.error);
        }
    }
    QFile logFile(parser.value(log));
    if (parser.isSet(log)) {
        const bool isOpen = parser.value(log) == QLatin1String("-")
            ? logFile.open(stdout, QIODevice::WriteOnly)
            : logFile.open(QIODevice::WriteOnly | QIODevice::Append);
        if (!isOpen) {
            return Fail(logFile.fileName() + QStringLiteral(": ") + logFile.errorString());
        }
        WriteLog(server, logFile);
    }
    if (!server.Start()) {
        return Fail(server.ErrorText());
    }
    const QString caName = parser.isSet(caFile) ? parser.value(caFile) : QStringLiteral("FILE");
    if (parser.isSet(caFile)) {
        QFile file(caName);
        if (!file.open(QIODevice::WriteOnly) || file.write(server.CaPem()) < 0) {
            return Fail(caName + QStringLiteral(": ") + file.errorString());
        }
    }
    QuitOnSignals(application);
    QTextStream out(stdout);
    out << "venues:      " << server.Catalogue()->Venues().size() << '\n'
        << "https port:  " << server.HttpsPort() << '\n'
        << "proxy port:  " << server.ProxyPort() << '\n'
        << "directly:    curl --cacert " << caName << " -g 'https://localhost:" << server.HttpsPort()
        << "/api/venue?include=editor'\n"
        << "by its name: curl --cacert " << caName << " -g --proxy http://127.0.0.1:" << server.ProxyPort()
        << " 'https://" << server.Host() << "/api/venue?include=editor'\n";
    if (!parser.isSet(caFile)) {
        out << "(start it with --ca-file FILE to have the certificate authority written)\n";
    }
    out.flush();
    return QCoreApplication::exec();
}
