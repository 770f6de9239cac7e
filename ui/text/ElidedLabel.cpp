#include <ui/text/ElidedLabel_p.h>

#include <ui/text/ShownText_p.h>

#include <QEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace korvel::Ui::VenueDatabase {

namespace {

QString OneLine(const QString& text)
{
    QString line = WithinCell(text);
    for (const QChar lineBreak :
         {QChar(u'\n'), QChar(u'\r'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        line.replace(lineBreak, u' ');
    return line;
}

} // namespace

QSize ElidedLabel::sizeHint() const
{
    return SizeFor(OneLine(text()), QWIDGETSIZE_MAX);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || IsShownWhole())
        return PlainLabel::event(event);
    // As rich text, so that Qt breaks the lines, and takes nothing of it for markup.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       Qt::convertFromPlainText(WithinCell(text()), Qt::WhiteSpaceNormal), this);
    return true;
}

QString ElidedLabel::ShownText() const
{
    return fontMetrics().elidedText(OneLine(text()), Qt::ElideRight, TextArea().width());
}

} // namespace korvel::Ui::VenueDatabase
