#include <demo/Languages.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

void Install(QTranslator& translator, const QString& name, const QString& folder)
{
    if (translator.load(QLocale(), name, u"_"_s, folder))
        QCoreApplication::installTranslator(&translator);
}

} // namespace

void Languages::UseForSystem(const QString& language)
{
    if (language.isEmpty())
        return;
    // Qt reads the environment when the system's locale is first asked for. The C library must not see this
    // value: it may not know the locale, and Qt would complain.
    const bool wasSet = qEnvironmentVariableIsSet("LC_ALL");
    const QByteArray before = qgetenv("LC_ALL");
    qputenv("LC_ALL", (QLocale(language).name() + u".UTF-8"_s).toLatin1());
    QLocale::setDefault(QLocale(QLocale::system().name()));
    if (wasSet)
        qputenv("LC_ALL", before);
    else
        qunsetenv("LC_ALL");
}

Languages::Languages()
{
    Install(m_qt, u"qtbase"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Install(m_venueDatabase, u"kvvenuedatabase"_s, u":/kvVenueDatabase/translations"_s);
    Install(m_host, u"vdbdemo"_s, u":/Tessra/translations"_s);
}

Languages::~Languages() = default; // A translator takes itself out of the application.

} // namespace korvel::Demo
