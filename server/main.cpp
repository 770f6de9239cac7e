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

using namespace Qt::StringLiterals;

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
void QuitOnSignals()
{
    if (pipe(g_signalPipe) != 0)
        return;
    auto* notifier = new QSocketNotifier(g_signalPipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
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

/// Understands the command line, or ends the program with what is wrong with it or with the help.
void ReadCommandLine(QCommandLineParser& parser)
{
    parser.setApplicationDescription(u"A venue database server on 127.0.0.1.\n\n"_s + FaultSyntaxHelp());
    parser.addHelpOption();
    parser.addOptions({
        {u"port"_s, u"HTTPS port; 0: any."_s, u"port"_s, u"0"_s},
        {u"proxy-port"_s, u"CONNECT proxy port; 0: any."_s, u"port"_s, u"0"_s},
        {u"catalogue"_s, u"Folder of the venues' JSON files."_s, u"folder"_s,
         QStringLiteral(VDB_CATALOGUE_DIR)},
        {u"generate"_s, u"Invent this many venues instead."_s, u"count"_s},
        {u"ca-file"_s, u"Write the certificate authority's certificate here."_s, u"file"_s},
        {u"fault"_s, u"A fault, see above; repeatable."_s, u"pattern=kind"_s},
        {u"log"_s, u"Log requests to this file; -: standard output."_s, u"file"_s},
    });
    parser.process(*QCoreApplication::instance());
}

/// The number that the option \p name has; \p ok turns false where it has none.
quint16 PortOf(const QCommandLineParser& parser, const QString& name, bool* ok)
{
    bool isNumber = false;
    const quint16 port = parser.value(name).toUShort(&isNumber);
    *ok = *ok && isNumber;
    return port;
}

/// The catalogue that \p parser asks for; what is wrong with it in \p error.
VenueCatalogue CatalogueFrom(const QCommandLineParser& parser, QString* error)
{
    const QString count = parser.value(u"generate"_s);
    if (count.isEmpty())
        return VenueCatalogue::Load(parser.value(u"catalogue"_s), error);
    bool isNumber = false;
    const int venues = count.toInt(&isNumber);
    *error = isNumber ? QString() : u"the count of venues is not a number"_s;
    return CatalogueGenerator({.venueCount = venues, .picturesPerVenue = 3, .modelFilesPerVenue = 1})
        .Catalogue();
}

/// What is wrong with the first fault that cannot be understood, empty when all are in force.
QString AddFaults(VenueServer& server, const QStringList& faults)
{
    for (const QString& text : faults) {
        const ParsedFault parsed = ParseFault(text);
        if (parsed.fault.has_value())
            server.AddFault(*parsed.fault);
        else if (parsed.networkFault.has_value())
            server.AddFault(*parsed.networkFault);
        else
            return parsed.error;
    }
    return {};
}

QString LogLine(const Request& request)
{
    return u"%1 #%2 %3 %4 https://%5%6"_s.arg(request.time.toString(Qt::ISODateWithMs))
        .arg(request.connectionId)
        .arg(request.status)
        .arg(QString::fromLatin1(request.method), request.host, QString::fromUtf8(request.target));
}

/// Writes a line for each answered request, as long as \p server and \p file live. False: \p file does not
/// open.
bool WriteLog(VenueServer& server, QFile& file)
{
    const bool isOpen = file.fileName() == "-"_L1 ? file.open(stdout, QIODevice::WriteOnly)
                                                  : file.open(QIODevice::WriteOnly | QIODevice::Append);
    if (!isOpen)
        return false;
    QObject::connect(&server.Log(), &RequestLog::RequestAnswered, &server, [&server, &file](qint64 id) {
        const QList<Request> requests = server.Log().Requests();
        for (const Request& request : requests) {
            if (request.id == id) {
                file.write(LogLine(request).toUtf8() + '\n');
                file.flush();
            }
        }
    });
    return true;
}

/// Tells on standard output how to ask \p server; \p caFile is empty when its authority is not written.
void TellHowToAsk(VenueServer& server, const QString& caFile)
{
    const QString caName = caFile.isEmpty() ? u"FILE"_s : caFile;
    QTextStream out(stdout);
    out << "venues:      " << server.Catalogue()->Venues().size() << '\n'
        << "https port:  " << server.HttpsPort() << '\n'
        << "proxy port:  " << server.ProxyPort() << '\n'
        << "directly:    curl --cacert " << caName << " -g 'https://localhost:" << server.HttpsPort()
        << "/api/venue?include=editor'\n"
        << "by its name: curl --cacert " << caName << " -g --proxy http://127.0.0.1:" << server.ProxyPort()
        << " 'https://" << server.Host() << "/api/venue?include=editor'\n";
    if (caFile.isEmpty())
        out << "(start it with --ca-file FILE to have the certificate authority written)\n";
}

} // namespace

int main(int argc, char* argv[])
{
    // The captions of pictures need fonts and these a GUI application, but no display.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"vdbserver"_s);
    QCommandLineParser parser;
    ReadCommandLine(parser);

    VenueServer::Options options;
    bool areNumbers = true;
    options.httpsPort = PortOf(parser, u"port"_s, &areNumbers);
    options.proxyPort = PortOf(parser, u"proxy-port"_s, &areNumbers);
    if (!areNumbers)
        return Fail(u"a port is a number from 0 to 65535"_s);
    VenueServer server(options);
    QString error;
    server.SetCatalogue(CatalogueFrom(parser, &error));
    if (error.isEmpty())
        error = AddFaults(server, parser.values(u"fault"_s));
    if (!error.isEmpty())
        return Fail(error);
    QFile log(parser.value(u"log"_s));
    if (parser.isSet(u"log"_s) && !WriteLog(server, log))
        return Fail(log.fileName() + u": "_s + log.errorString());
    if (!server.Start())
        return Fail(server.ErrorText());
    QFile caFile(parser.value(u"ca-file"_s));
    if (!caFile.fileName().isEmpty()
        && (!caFile.open(QIODevice::WriteOnly) || caFile.write(server.CaPem()) < 0 || !caFile.flush())) {
        return Fail(caFile.fileName() + u": "_s + caFile.errorString());
    }
    QuitOnSignals();
    TellHowToAsk(server, caFile.fileName());
    return QCoreApplication::exec();
}
