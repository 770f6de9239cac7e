#include "MainWindow.h"
#include "ServerConnection.h"
#include "tour/Tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFontDatabase>
#include <QLocale>
#include <QStyleFactory>
#include <QTimer>
#include <QTranslator>

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

int RunTour(VenueServer& server, const QString& folder)
{
    Tour tour(server, folder);
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
    const QCommandLineOption proxy(QStringLiteral("server-proxy"),
                                   QStringLiteral("Use the vdbserver whose proxy listens there."),
                                   QStringLiteral("host:port"));
    const QCommandLineOption ca(QStringLiteral("ca"),
                                QStringLiteral("The certificate authority of that server, a PEM file."),
                                QStringLiteral("file"));
    const QCommandLineOption tour(
        QStringLiteral("tour"),
        QStringLiteral("Go through the main flow unattended, in both themes, leave a picture "
                       "of each step in the folder and quit; fails if a step does."),
        QStringLiteral("folder"));
    parser.addOptions({theme, proxy, ca, tour});
    parser.process(application);

    // Before the dialog is created: widgets read their texts when they are built. The tour looks for English
    // ones.
    QTranslator venueDatabaseTexts;
    if (!parser.isSet(tour)
        && venueDatabaseTexts.load(QLocale(), QStringLiteral("kvvenuedatabase"), QStringLiteral("_"),
                                   QStringLiteral(":/kvVenueDatabase/translations")))
        QApplication::installTranslator(&venueDatabaseTexts);

    const QString themeName = parser.value(theme);
    if (themeName != QStringLiteral("day") && themeName != QStringLiteral("night"))
        return Fail(QStringLiteral("the theme is day or night"));
    if (parser.isSet(tour) && parser.isSet(proxy))
        return Fail(QStringLiteral("the tour needs the server of its own, which it stops and starts"));

    // The network before the first request of the module: a proxy and a trusted authority count from then on.
    ServerConnection server;
    const bool connected = parser.isSet(proxy) ? server.UseProxy(parser.value(proxy), parser.value(ca))
                                               : server.StartOwnServer();
    if (!connected)
        return Fail(server.ErrorText());

    if (parser.isSet(tour))
        return RunTour(*server.OwnServer(), parser.value(tour));

    MainWindow window(themeName == QStringLiteral("day"));
    window.show();
    return QApplication::exec();
}
