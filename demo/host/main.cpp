#include "Languages.h"
#include "MainWindow.h"
#include "ServerConnection.h"
#include "tour/Tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QStyleFactory>
#include <QTimer>

#include <cstdio>

namespace {

using namespace korvel::Demo;

/// An interface font that is as narrow as the dialog's fixed columns expect, where one is installed.
void SetInterfaceFont()
{
    QFont font(QStringList{QStringLiteral("Inter"), QStringLiteral("Segoe UI"), QStringLiteral("Noto Sans"),
                           QApplication::font().family()});
    font.setPixelSize(12);
    QApplication::setFont(font);
}

int Fail(const QString& text)
{
    std::fprintf(stderr, "vdbdemo: %s\n", qPrintable(text));
    return 2;
}

/// The value that follows \p option or is joined to it by an equals sign.
QString ValueOfOption(const char* option, int argc, char* argv[])
{
    const QString name = QString::fromLatin1(option);
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument == name && i + 1 < argc)
            return QString::fromLocal8Bit(argv[i + 1]);
        if (argument.startsWith(name + QLatin1Char('=')))
            return argument.mid(name.size() + 1);
    }
    return {};
}

int RunTour(VenueServer& server, const QString& folder, const QList<bool>& dayModes)
{
    Tour tour(server, folder, dayModes);
    int result = 1;
    QTimer::singleShot(0, &tour, [&] {
        result = tour.Run() ? 0 : 1;
        QApplication::exit(result);
    });
    QApplication::exec();
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    // Too late once the application exists, which parses all the other options.
    Languages::UseForSystem(ValueOfOption("--language", argc, argv));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vdbdemo"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tessra"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/Tessra/tessra.svg")));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    SetInterfaceFont();

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "A small planning application that embeds the venue database, together with a local venue server."));
    parser.addHelpOption();
    const QCommandLineOption theme(QStringLiteral("theme"), QStringLiteral("The appearance: day or night."),
                                   QStringLiteral("name"), QStringLiteral("day"));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QStringLiteral("de, en, es, fr, it or ja instead of the system's language (LANG)."),
        QStringLiteral("name"));
    const QCommandLineOption proxy(QStringLiteral("server-proxy"),
                                   QStringLiteral("Use the vdbserver whose proxy listens there."),
                                   QStringLiteral("host:port"));
    const QCommandLineOption ca(QStringLiteral("ca"),
                                QStringLiteral("The certificate authority of that server, a PEM file."),
                                QStringLiteral("file"));
    const QCommandLineOption tour(
        QStringLiteral("tour"),
        QStringLiteral("Go through the main flow unattended, in both themes if --theme names none, leave a "
                       "picture of each step in the folder and quit; fails if a step does."),
        QStringLiteral("folder"));
    parser.addOptions({theme, language, proxy, ca, tour});
    parser.process(application);

    const QString themeName = parser.value(theme);
    if (themeName != QStringLiteral("day") && themeName != QStringLiteral("night"))
        return Fail(QStringLiteral("the theme is day or night"));
    if (parser.isSet(language) && QLocale(parser.value(language)).language() == QLocale::C)
        return Fail(QStringLiteral("\"%1\" is no language").arg(parser.value(language)));
    if (parser.isSet(tour) && parser.isSet(proxy))
        return Fail(QStringLiteral("the tour needs the server of its own, which it stops and starts"));

    // The network before the first request of the module: a proxy and a trusted authority count from then on.
    ServerConnection server;
    const bool connected = parser.isSet(proxy) ? server.UseProxy(parser.value(proxy), parser.value(ca))
                                               : server.StartOwnServer();
    if (!connected)
        return Fail(server.ErrorText());

    const Languages texts;
    const bool dayMode = themeName == QStringLiteral("day");
    if (parser.isSet(tour))
        return RunTour(*server.OwnServer(), parser.value(tour),
                       parser.isSet(theme) ? QList{dayMode} : QList{true, false});

    MainWindow window(dayMode);
    window.show();
    return QApplication::exec();
}
