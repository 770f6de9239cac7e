#include <demo/Theme.h>

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

QString ReadText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The resource %s is missing", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

} // namespace

Theme::Theme(bool dayMode)
    : m_dayMode(dayMode)
{
    static const QRegularExpression entry(u"^([a-z-]+) +(#[0-9a-f]+)$"_s,
                                          QRegularExpression::MultilineOption);
    const QString text = ReadText(u":/Tessra/%1.colours"_s.arg(Name()));
    for (const QRegularExpressionMatch& match : entry.globalMatch(text))
        m_colours.insert(match.captured(1), QColor(match.captured(2)));
}

QColor Theme::Colour(const QString& name) const
{
    const auto found = m_colours.constFind(name);
    if (found == m_colours.cend())
        qFatal("The theme has no colour %s", qPrintable(name));
    return *found;
}

QString Theme::VenueDatabaseSheetPath() const
{
    return u":/kvVenueDatabase/styles/%1/venue-database.qss"_s.arg(Name());
}

QString Theme::WindowStyleSheet() const
{
    return ReadText(u":/Tessra/styles/%1.qss"_s.arg(Name()));
}

QIcon Theme::Icon(const QString& name) const
{
    return QIcon(u":/Tessra/%1-%2.svg"_s.arg(name, Name()));
}

void Theme::Apply(QApplication* application) const
{
    // What no rule of the style sheet reaches, plain containers for example, takes its colours from the
    // palette.
    QPalette palette(Colour(u"raised"_s), Colour(u"window"_s));
    const struct
    {
        QPalette::ColorRole role;
        const char* colour;
    } roles[] = {
        {QPalette::WindowText, "text"},
        {QPalette::Base, "surface"},
        {QPalette::AlternateBase, "surface-alt"},
        {QPalette::Text, "text"},
        {QPalette::ButtonText, "text"},
        {QPalette::PlaceholderText, "text-muted"},
        {QPalette::Highlight, "accent"},
        {QPalette::HighlightedText, "accent-text"},
        {QPalette::Link, "accent"},
        {QPalette::LinkVisited, "accent"},
        {QPalette::ToolTipBase, "tooltip"},
        {QPalette::ToolTipText, "tooltip-text"},
    };
    for (const auto& entry : roles)
        palette.setColor(entry.role, Colour(QLatin1String(entry.colour)));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Colour(u"text-off"_s));

    application->setPalette(palette);
    // As a file: the sheet names its pictures by where they lie beside it.
    application->setStyleSheet(u"file:///"_s + VenueDatabaseSheetPath());
}

QString Theme::Name() const
{
    return m_dayMode ? u"light"_s : u"dark"_s;
}

} // namespace korvel::Demo
