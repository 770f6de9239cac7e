#include <demo/Languages.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace korvel::Demo {

namespace {

void Install(QTranslator& translator, const QString& name, const QString& folder)
{
    if (translator.load(QLocale(), name, QStringLiteral("_"), folder))
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
    qputenv("LC_ALL", (QLocale(language).name() + QStringLiteral(".UTF-8")).toLatin1());
    QLocale::setDefault(QLocale(QLocale::system().name()));
    if (wasSet)
        qputenv("LC_ALL", before);
    else
        qunsetenv("LC_ALL");
}

Languages::Languages()
{
    Install(m_qt, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Install(m_venueDatabase, QStringLiteral("kvvenuedatabase"),
            QStringLiteral(":/kvVenueDatabase/translations"));
    Install(m_host, QStringLiteral("vdbdemo"), QStringLiteral(":/Tessra/translations"));
}

Languages::~Languages() = default; // A translator takes itself out of the application.

} // namespace korvel::Demo
