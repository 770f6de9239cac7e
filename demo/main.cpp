#include <demo/HostApplication.h>
#include <demo/Languages.h>
#include <demo/MainWindow.h>
#include <demo/ServerConnection.h>

#include <QCommandLineParser>
#include <QLocale>

#include <cstdio>

using namespace Qt::StringLiterals;

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
    parser.setApplicationDescription(
        u"A small planning application that embeds the venue database, together with a local venue server."_s);
    parser.addHelpOption();
    const QCommandLineOption theme(u"theme"_s, u"The appearance: day or night."_s, u"name"_s, u"day"_s);
    const QCommandLineOption language(
        u"language"_s, u"de, en, es, fr, it or ja instead of the system's language (LANG)."_s, u"name"_s);
    const QCommandLineOption proxy(u"server-proxy"_s, u"Use the vdbserver whose proxy listens there."_s,
                                   u"host:port"_s);
    const QCommandLineOption ca(u"ca"_s, u"The certificate authority of that server, a PEM file."_s,
                                u"file"_s);
    parser.addOptions({theme, language, proxy, ca});
    parser.process(application);

    const QString themeName = parser.value(theme);
    if (themeName != u"day"_s && themeName != u"night"_s)
        return Fail(u"the theme is day or night"_s);
    if (parser.isSet(language) && QLocale(parser.value(language)).language() == QLocale::C)
        return Fail(u"\"%1\" is not a language"_s.arg(parser.value(language)));

    // The network before the first request of the module: a proxy and a trusted authority count from then on.
    ServerConnection server;
    const bool connected = parser.isSet(proxy) ? server.UseProxy(parser.value(proxy), parser.value(ca))
                                               : server.StartOwnServer();
    if (!connected)
        return Fail(server.ErrorText());

    const Languages texts;
    MainWindow window(themeName == u"day"_s);
    window.show();
    return QApplication::exec();
}
