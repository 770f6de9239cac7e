#include <demo/HostApplication.h>
#include <demo/Languages.h>
#include <demo/ServerConnection.h>
#include <tests/tour/Tour.h>

#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>

int main(int argc, char* argv[])
{
    using namespace korvel::Demo;

    const HostApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Goes through the main flow in the reference host's windows by itself, leaves a "
                       "picture of each step in the folder and quits; fails if a step does."));
    parser.addHelpOption();
    const QCommandLineOption theme(QStringLiteral("theme"),
                                   QStringLiteral("Only in this theme: day or night. Both otherwise."),
                                   QStringLiteral("name"));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QStringLiteral("de, en, es, fr, it or ja instead of the system's language (LANG)."),
        QStringLiteral("name"));
    parser.addOptions({theme, language});
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where the pictures go."));
    parser.process(application);

    const QString themeName = parser.value(theme);
    if (parser.positionalArguments().size() != 1
        || (parser.isSet(theme) && themeName != QStringLiteral("day")
            && themeName != QStringLiteral("night")))
        parser.showHelp(2);

    ServerConnection server;
    if (!server.StartOwnServer()) {
        std::fprintf(stderr, "vdbtour: %s\n", qPrintable(server.ErrorText()));
        return 2;
    }

    const Languages texts;
    Tour tour(*server.OwnServer(), parser.positionalArguments().constFirst(),
              parser.isSet(theme) ? QList{themeName == QStringLiteral("day")} : QList{true, false});
    QTimer::singleShot(0, &tour, [&tour] { QApplication::exit(tour.Run() ? 0 : 1); });
    return QApplication::exec();
}
