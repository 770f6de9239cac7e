#pragma once

#include <QString>
#include <QTranslator>

namespace korvel::Demo {

/// The texts of the whole application in one language: Tessra's own, those of the venue database and Qt's.
/// What there is not in that language stays English.
class Languages
{
public:
    /// Has Qt take \p language, for example "de" or "de_AT", for the language of the system: dates in the
    /// venue details are in that one. To be called before the application object is created, whose
    /// construction settles it; an empty name leaves what the environment says.
    static void UseForSystem(const QString& language);

    /// Loads and installs the texts in the language of QLocale(), as long as this object lives. Before the
    /// first window is built: widgets read their texts then.
    Languages();
    ~Languages();
    Languages(const Languages&) = delete;
    Languages& operator=(const Languages&) = delete;

private:
    QTranslator m_qt;
    QTranslator m_venueDatabase;
    QTranslator m_host;
};

} // namespace korvel::Demo
