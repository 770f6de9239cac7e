#include <ui/text/PlainLabel_p.h>

#include <ui/text/ShownText_p.h>

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace korvel::Ui::VenueDatabase {

PlainLabel::PlainLabel(const QString& text, QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setText(text);
}

QSize PlainLabel::sizeHint() const
{
    return IsShownWhole() ? QLabel::sizeHint() : SizeFor(ShownText(), QWIDGETSIZE_MAX);
}

int PlainLabel::heightForWidth(int width) const
{
    return IsShownWhole() || !wordWrap() ? QLabel::heightForWidth(width)
                                         : SizeFor(ShownText(), width).height();
}

void PlainLabel::paintEvent(QPaintEvent* event)
{
    if (IsShownWhole()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, TextArea(), TextFlags(), palette(), isEnabled(), ShownText(),
                          foregroundRole());
}

QString PlainLabel::ShownText() const
{
    return WithinScreen(text());
}

bool PlainLabel::IsShownWhole() const
{
    return ShownText() == text();
}

QRect PlainLabel::TextArea() const
{
    QRect area = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    // As QLabel: a frame keeps the text half a letter away, on its side.
    const int gap
        = indent() < 0 && frameWidth() > 0 ? fontMetrics().horizontalAdvance(u'x') / 2 - margin() : indent();
    if (gap > 0 && TextFlags() & Qt::AlignLeft)
        area.setLeft(area.left() + gap);
    else if (gap > 0 && TextFlags() & Qt::AlignRight)
        area.setRight(area.right() - gap);
    return area;
}

QSize PlainLabel::SizeFor(const QString& shown, int width) const
{
    const QSize around = size() - TextArea().size();
    const QRect available(0, 0, width - around.width(), QWIDGETSIZE_MAX);
    return fontMetrics().boundingRect(available, TextFlags(), shown).size() + around;
}

int PlainLabel::TextFlags() const
{
    // As QLabel: the text decides, not the layout.
    const Qt::LayoutDirection direction = text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    const int force = direction == Qt::LeftToRight ? Qt::TextForceLeftToRight : Qt::TextForceRightToLeft;
    return QStyle::visualAlignment(direction, alignment()) | force | (wordWrap() ? Qt::TextWordWrap : 0);
}

} // namespace korvel::Ui::VenueDatabase
