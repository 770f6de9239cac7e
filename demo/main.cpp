#include <demo/HostApplication.h>
#include <demo/Languages.h>
#include <demo/MainWindow.h>
#include <demo/ServerConnection.h>

#include <QCommandLineParser>
#include <QLocale>

#include <cstdio>

namespace {

using namespace korvel::Demo;

int Fail(const QString& text)
{
    std::fprintf(stderr, "vdbdemo: %s\n", qPrintable(text));
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    const HostApplication application(argc, argv);

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
    parser.addOptions({theme, language, proxy, ca});
    parser.process(application);

    const QString themeName = parser.value(theme);
    if (themeName != QStringLiteral("day") && themeName != QStringLiteral("night"))
        return Fail(QStringLiteral("the theme is day or night"));
    if (parser.isSet(language) && QLocale(parser.value(language)).language() == QLocale::C)
        return Fail(QStringLiteral("\"%1\" is no language").arg(parser.value(language)));

    // The network before the first request of the module: a proxy and a trusted authority count from then on.
    ServerConnection server;
    const bool connected = parser.isSet(proxy) ? server.UseProxy(parser.value(proxy), parser.value(ca))
                                               : server.StartOwnServer();
    if (!connected)
        return Fail(server.ErrorText());

    const Languages texts;
    MainWindow window(themeName == QStringLiteral("day"));
    window.show();
    return QApplication::exec();
}
