#pragma once

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QTranslator>

/// What a host sets up for texts and logs.
namespace Texts {

inline bool InstallTranslations(QTranslator& translator)
{
    // clang-format off
    //! [translator]
    if (translator.load(QLocale(), QStringLiteral("kvvenuedatabase"), QStringLiteral("_"),
                        QStringLiteral(":/kvVenueDatabase/translations")))
        QCoreApplication::installTranslator(&translator);
    //! [translator]
    // clang-format on
    return !translator.isEmpty();
}

inline bool InstallQtTranslations(QTranslator& qtTranslator)
{
    //! [translator of Qt]
    if (qtTranslator.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qtTranslator);
    //! [translator of Qt]
    return !qtTranslator.isEmpty();
}

inline void TraceRequests()
{
    //! [trace]
    QLoggingCategory::setFilterRules(QStringLiteral("vdb.trace=true"));
    //! [trace]
}

} // namespace Texts
