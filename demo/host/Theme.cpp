#include "Theme.h"

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
    static const QRegularExpression entry(QStringLiteral("^([a-z-]+) +(#[0-9a-f]{6})$"),
                                          QRegularExpression::MultilineOption);
    const QString text = ReadText(QStringLiteral(":/Tessra/%1.colours").arg(FileSuffix()));
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

QString Theme::StyleSheet() const
{
    static const QRegularExpression reference(QStringLiteral("@([a-z-]+)"));
    const QString rules = ReadText(QStringLiteral(":/Tessra/tessra.qss"));
    QString sheet;
    qsizetype end = 0;
    for (const QRegularExpressionMatch& match : reference.globalMatch(rules)) {
        const QString name = match.captured(1);
        sheet += QStringView(rules).mid(end, match.capturedStart() - end);
        sheet += name == QStringLiteral("theme") ? FileSuffix() : Colour(name).name();
        end = match.capturedEnd();
    }
    sheet += QStringView(rules).mid(end);
    return sheet;
}

QIcon Theme::Icon(const QString& name) const
{
    return QIcon(QStringLiteral(":/Tessra/%1-%2.svg").arg(name, FileSuffix()));
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
    application->setStyleSheet(StyleSheet());
}

QString Theme::FileSuffix() const
{
    return m_dayMode ? QStringLiteral("day") : QStringLiteral("night");
}

} // namespace korvel::Demo
