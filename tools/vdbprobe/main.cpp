#include <tools/vdbprobe/Probe.h>
#include <tools/vdbprobe/ProbeOptions.h>

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

using korvel::Tools::Probe;
using korvel::Tools::ProbeOptions;

namespace {

constexpr int c_wrongUsage = 64;

/// What the module logs belongs between the steps, in the same stream; what Qt itself has to say goes the
/// usual way.
QtMessageHandler g_usualHandler = nullptr;
void WriteMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (std::strncmp(context.category, "vdb", 3) != 0) {
        g_usualHandler(type, context, message);
        return;
    }
    QTextStream(stdout) << "    " << context.category << ": " << message << Qt::endl;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"vdbprobe"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(KVVENUEDATABASE_VERSION));

    const ProbeOptions options = ProbeOptions::FromArguments(QCoreApplication::arguments());
    QTextStream output(stdout);
    switch (options.request) {
    case ProbeOptions::Request::Refuse:
        QTextStream(stderr) << "vdbprobe: " << options.message << Qt::endl;
        return c_wrongUsage;
    case ProbeOptions::Request::ShowHelp:
    case ProbeOptions::Request::ShowVersion:
        output << options.message;
        return 0;
    case ProbeOptions::Request::Probe:
        break;
    }
    if (options.isVerbose) {
        QLoggingCategory::setFilterRules(u"vdb.trace=true"_s);
        g_usualHandler = qInstallMessageHandler(WriteMessage);
    }
    return Probe(options, output).Run();
}
