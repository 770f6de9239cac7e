#include <demo/Theme.h>

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QRegularExpression>

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
    static const QRegularExpression entry(QStringLiteral("^([a-z-]+) +(#[0-9a-f]+)$"),
                                          QRegularExpression::MultilineOption);
    const QString text = ReadText(QStringLiteral(":/Tessra/%1.colours").arg(Name()));
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
    return QStringLiteral(":/kvVenueDatabase/styles/%1/venue-database.qss").arg(Name());
}

QString Theme::WindowStyleSheet() const
{
    return ReadText(QStringLiteral(":/Tessra/styles/%1.qss").arg(Name()));
}

QIcon Theme::Icon(const QString& name) const
{
    return QIcon(QStringLiteral(":/Tessra/%1-%2.svg").arg(name, Name()));
}

void Theme::Apply(QApplication* application) const
{
    // What no rule of the style sheet reaches, plain containers for example, takes its colours from the
    // palette.
    QPalette palette(Colour(QStringLiteral("raised")), Colour(QStringLiteral("window")));
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
        palette.setColor(QPalette::Disabled, role, Colour(QStringLiteral("text-off")));

    application->setPalette(palette);
    // As a file: the sheet names its pictures by where they lie beside it.
    application->setStyleSheet(QStringLiteral("file:///") + VenueDatabaseSheetPath());
}

QString Theme::Name() const
{
    return m_dayMode ? QStringLiteral("light") : QStringLiteral("dark");
}

} // namespace korvel::Demo
