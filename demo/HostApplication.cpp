#include <demo/HostApplication.h>

#include <demo/Languages.h>

#include <QFont>
#include <QIcon>
#include <QStyleFactory>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

/// An interface font that is as narrow as the dialog's fixed columns expect, where one is installed.
void SetInterfaceFont()
{
    QFont font(QStringList{u"Inter"_s, u"Segoe UI"_s, u"Noto Sans"_s, QApplication::font().family()});
    font.setPixelSize(12);
    QApplication::setFont(font);
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

/// Settles the language and hands \p argc on: once the application exists, which parses the other options,
/// it is too late.
int& AfterLanguage(int& argc, char* argv[])
{
    Languages::UseForSystem(ValueOfOption("--language", argc, argv));
    return argc;
}

} // namespace

HostApplication::HostApplication(int& argc, char* argv[])
    : QApplication(AfterLanguage(argc, argv), argv)
{
    setApplicationName(u"vdbdemo"_s);
    setApplicationDisplayName(u"Tessra"_s);
    setWindowIcon(QIcon(u":/Tessra/tessra.svg"_s));
    setStyle(QStyleFactory::create(u"Fusion"_s));
    SetInterfaceFont();
}

} // namespace korvel::Demo
