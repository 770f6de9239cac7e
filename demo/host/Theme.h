#pragma once

#include <QColor>
#include <QHash>
#include <QIcon>
#include <QString>

class QApplication;

namespace korvel::Demo {

/// One of Tessra's two appearances: named colours and the style sheet made with them.
///
/// The style sheet serves Tessra's own windows and, through the property "customStyle", those of the venue
/// database.
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
    /// The complete style sheet, every name replaced by its value.
    QString StyleSheet() const;
    /// The icon \p name in this theme's drawing.
    QIcon Icon(const QString& name) const;
    /// Makes it the appearance of the whole application.
    void Apply(QApplication* application) const;

private:
    QString FileSuffix() const;

    bool m_dayMode = true;
    QHash<QString, QColor> m_colours;
};

} // namespace korvel::Demo
