// Uses the module for a long time and tells what it holds on to: vdbsoak --help
#include <tests/soak/SoakRun.h>
#include <tests/soak/SoakSample.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace korvel::Soak;

namespace {

const QString& WorkerOption()
{
    static const QString option = u"worker"_s;
    return option;
}

qint64 Number(const QCommandLineParser& parser, const char* option)
{
    return parser.value(QLatin1String(option)).toLongLong();
}

void AddNumber(QCommandLineParser& parser, const char* option, qint64 standard)
{
    parser.addOption({QString::fromLatin1(option), u"How many %1."_s.arg(QLatin1String(option)), u"number"_s,
                      QString::number(standard)});
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

/// Lets a worker work and judges what it held, and what it left when it had ended.
int Watch()
{
    const QTemporaryDir temp;
    // Where none is set, Qt makes one in the temporary folder.
    const QTemporaryDir runtime;
    QProcess worker;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TMPDIR"_s, temp.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, runtime.path());
    worker.setProcessEnvironment(environment);
    worker.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    worker.start(QCoreApplication::applicationFilePath(),
                 QStringList{u"--"_s + WorkerOption()} + QCoreApplication::arguments().mid(1));
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
        complaints.append(u"left in the temporary folder: "_s + left.join(QLatin1Char(' ')));

    std::fwrite(csv.constData(), 1, size_t(csv.size()), stdout);
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
    parser.setApplicationDescription(
        u"Searches, selects, looks and imports thousands of times against a server of its own,\n"
        "writes what the process held as CSV, and fails where it held too much."_s);
    parser.addHelpOption();
    AddNumber(parser, "warm-up", standard.warmUp);
    AddNumber(parser, "searches", standard.searches);
    AddNumber(parser, "selections", standard.selections);
    AddNumber(parser, "steps", standard.viewerSteps);
    AddNumber(parser, "imports", standard.imports);
    QCommandLineOption worker(WorkerOption());
    worker.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(worker);
    parser.process(application);
    return parser.isSet(worker) ? Work(parser) : Watch();
}
