// Uses the module for a long time and tells what it holds on to: vdbsoak --help
#include <tests/soak/SoakChart.h>
#include <tests/soak/SoakRun.h>
#include <tests/soak/SoakSample.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

using namespace korvel::Soak;

namespace {

const QString& WorkerOption()
{
    static const QString option = QStringLiteral("worker");
    return option;
}

qint64 Number(const QCommandLineParser& parser, const char* option)
{
    return parser.value(QLatin1String(option)).toLongLong();
}

void AddNumber(QCommandLineParser& parser, const char* option, qint64 standard)
{
    parser.addOption({QString::fromLatin1(option), QStringLiteral("How many %1.").arg(QLatin1String(option)),
                      QStringLiteral("number"), QString::number(standard)});
}

/// Uses the module in a process of its own, with a temporary folder of its own, and writes the samples.
int Work(const QCommandLineParser& parser)
{
    Rounds rounds;
    rounds.warmUp = Number(parser, "warm-up");
    rounds.searches = Number(parser, "searches");
    rounds.selections = Number(parser, "selections");
    rounds.viewerSteps = Number(parser, "steps");
    rounds.imports = Number(parser, "imports");
    const QByteArray csv = ToCsv(SoakRun(rounds).Run());
    std::fwrite(csv.constData(), 1, static_cast<size_t>(csv.size()), stdout);
    return 0;
}

bool Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

/// Lets a worker work and judges what it held, and what it left when it had ended.
int Watch(const QCommandLineParser& parser)
{
    const QTemporaryDir temp;
    // Where none is set, Qt makes one in the temporary folder.
    const QTemporaryDir runtime;
    QProcess worker;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), temp.path());
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
    worker.setProcessEnvironment(environment);
    worker.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    worker.start(QCoreApplication::applicationFilePath(),
                 QStringList{QStringLiteral("--") + WorkerOption()} + QCoreApplication::arguments().mid(1));
    worker.waitForFinished(-1);
    if (worker.exitStatus() != QProcess::NormalExit || worker.exitCode() != 0) {
        std::fprintf(stderr, "The worker failed.\n");
        return 1;
    }

    const QByteArray csv = worker.readAllStandardOutput();
    const QList<Sample> samples = FromCsv(csv);
    if (samples.isEmpty()) {
        std::fprintf(stderr, "The worker measured nothing.\n");
        return 1;
    }
    QStringList complaints = Complaints(samples);
    const QStringList left
        = QDir(temp.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    if (!left.isEmpty())
        complaints.append(QStringLiteral("left in the temporary folder: ") + left.join(QLatin1Char(' ')));

    const QString csvPath = parser.value(QStringLiteral("csv"));
    const bool isCsvWritten = csvPath.isEmpty()
        ? std::fwrite(csv.constData(), 1, size_t(csv.size()), stdout) == size_t(csv.size())
        : Write(csvPath, csv);
    if (!isCsvWritten)
        complaints.append(QStringLiteral("The samples cannot be written."));
    const QString chartPath = parser.value(QStringLiteral("chart"));
    if (!chartPath.isEmpty() && !DrawChart(samples).save(chartPath))
        complaints.append(QStringLiteral("The chart cannot be written."));

    for (const QString& line : Summary(samples))
        std::fprintf(stderr, "%s\n", qPrintable(line));
    for (const QString& complaint : std::as_const(complaints))
        std::fprintf(stderr, "TOO MUCH: %s\n", qPrintable(complaint));
    return complaints.isEmpty() ? 0 : 1;
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);

    const Rounds standard;
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Searches, selects, looks and imports thousands of times against a server of its own,\n"
        "writes what the process held as CSV, and fails where it held too much."));
    parser.addHelpOption();
    AddNumber(parser, "warm-up", standard.warmUp);
    AddNumber(parser, "searches", standard.searches);
    AddNumber(parser, "selections", standard.selections);
    AddNumber(parser, "steps", standard.viewerSteps);
    AddNumber(parser, "imports", standard.imports);
    parser.addOption({QStringLiteral("csv"),
                      QStringLiteral("Where to write the samples; else to the standard output."),
                      QStringLiteral("file")});
    parser.addOption(
        {QStringLiteral("chart"), QStringLiteral("Where to draw the curves."), QStringLiteral("file")});
    QCommandLineOption worker(WorkerOption());
    worker.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(worker);
    parser.process(application);
    return parser.isSet(worker) ? Work(parser) : Watch(parser);
}
