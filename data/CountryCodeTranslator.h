#pragma once

#include <data/VenueDatabaseExport.h>

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

namespace korvel::Data::VenueDatabase {

/// The built-in table of two-letter country codes (ISO 3166-1 alpha-2, upper case) and English country names,
/// in both directions.
///
/// 245 rows, each code and each name once, filled at construction and never changed: reading is safe in any
/// thread. Look-ups are exact and case-sensitive. The names are data, not translated.
///
/// @code{.cpp}
/// const CountryCodeTranslator countries;
/// countries.GetCountry(QStringLiteral("CH")); // "Switzerland"
/// countries.GetCountryCode(QStringLiteral("Japan")); // "JP"
/// @endcode
class KVVENUEDATABASE_API CountryCodeTranslator : public QObject
{
    Q_OBJECT

public:
    /// A filled translator without a parent; the creator deletes it.
    CountryCodeTranslator();
    /// Releases both maps; lists that were handed out stay.
    ~CountryCodeTranslator() override;

    /// Fills both maps. The constructor has done so already; a further call changes nothing.
    void InitTranslationMaps();

    /// The name of the country with the code \p code, or "unknown".
    QString GetCountry(QString code) const;
    /// The code of the country called \p name, or "-".
    QString GetCountryCode(QString name) const;
    /// All codes in ascending order.
    QList<QString> GetCountryCodeList() const;
    /// All names in ascending order of their UTF-16 code units, not in a locale's order.
    QList<QString> GetCountryList() const;

private:
    QMap<QString, QString> m_codeToName;
    QMap<QString, QString> m_nameToCode;
};

} // namespace korvel::Data::VenueDatabase
