#pragma once

#include <QColor>
#include <QHash>
#include <QIcon>
#include <QString>

class QApplication;

namespace korvel::Demo {

/// One of Tessra's two appearances: named colours and the style sheets made with them.
///
/// The sheet of the venue database is the one that is installed for every host; what Tessra's own windows
/// also need is a second one.
class Theme
{
public:
    /// \p dayMode: the light theme, otherwise the dark one. Both are compiled in.
    explicit Theme(bool dayMode);

    bool IsDayMode() const
    {
        return m_dayMode;
    }
    /// The colour called \p name in the theme's .colours file; a name that is not there is a programming
    /// error.
    QColor Colour(const QString& name) const;
    /// The file, a resource, with the complete style sheet for the venue database.
    QString VenueDatabaseSheetPath() const;
    /// The style sheet for the main window and what belongs to it.
    QString WindowStyleSheet() const;
    /// The icon \p name in this theme's drawing.
    QIcon Icon(const QString& name) const;
    /// Makes it the appearance of the whole application, but for WindowStyleSheet().
    void Apply(QApplication* application) const;

private:
    /// "light" or "dark", as files are called.
    QString Name() const;

    bool m_dayMode = true;
    QHash<QString, QColor> m_colours;
};

} // namespace korvel::Demo
