#include <demo/HostApplication.h>
#include <demo/Languages.h>
#include <demo/ServerConnection.h>
#include <tests/tour/Tour.h>

#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[])
{
    using namespace korvel::Demo;

    const HostApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Goes through the main flow in the reference host's windows by itself, leaves a "
        "picture of each step in the folder and quits; fails if a step does."_s);
    parser.addHelpOption();
    const QCommandLineOption theme(u"theme"_s, u"Only in this theme: day or night. Both otherwise."_s,
                                   u"name"_s);
    const QCommandLineOption language(
        u"language"_s, u"de, en, es, fr, it or ja instead of the system's language (LANG)."_s, u"name"_s);
    parser.addOptions({theme, language});
    parser.addPositionalArgument(u"folder"_s, u"Where the pictures go."_s);
    parser.process(application);

    const QString themeName = parser.value(theme);
    if (parser.positionalArguments().size() != 1
        || (parser.isSet(theme) && themeName != u"day"_s && themeName != u"night"_s))
        parser.showHelp(2);

    ServerConnection server;
    if (!server.StartOwnServer()) {
        std::fprintf(stderr, "vdbtour: %s\n", qPrintable(server.ErrorText()));
        return 2;
    }

    const Languages texts;
    Tour tour(*server.OwnServer(), parser.positionalArguments().constFirst(),
              parser.isSet(theme) ? QList{themeName == u"day"_s} : QList{true, false});
    QTimer::singleShot(0, &tour, [&tour] { QApplication::exit(tour.Run() ? 0 : 1); });
    return QApplication::exec();
}
