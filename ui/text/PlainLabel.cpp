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
    return IsShownWhole() ? QLabel::sizeHint() : SizeOfLongText(QWIDGETSIZE_MAX);
}

QSize PlainLabel::minimumSizeHint() const
{
    return IsShownWhole() ? QLabel::minimumSizeHint() : SizeOfLongText(QWIDGETSIZE_MAX);
}

int PlainLabel::heightForWidth(int width) const
{
    return IsShownWhole() || !wordWrap() ? QLabel::heightForWidth(width) : SizeOfLongText(width).height();
}

void PlainLabel::paintEvent(QPaintEvent* event)
{
    if (IsShownWhole()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    const int inset = margin();
    style()->drawItemText(&painter, contentsRect().adjusted(inset, inset, -inset, -inset), TextFlags(),
                          palette(), isEnabled(), WithinScreen(text()), foregroundRole());
}

bool PlainLabel::IsShownWhole() const
{
    return WithinScreen(text()).size() == text().size();
}

int PlainLabel::TextFlags() const
{
    const Qt::LayoutDirection direction = layoutDirection();
    const int force = direction == Qt::LeftToRight ? Qt::TextForceLeftToRight : Qt::TextForceRightToLeft;
    return QStyle::visualAlignment(direction, alignment()) | force | (wordWrap() ? Qt::TextWordWrap : 0);
}

QSize PlainLabel::SizeOfLongText(int width) const
{
    const QSize around = size() - contentsRect().size() + 2 * QSize(margin(), margin());
    const QRect available(0, 0, width - around.width(), QWIDGETSIZE_MAX);
    return fontMetrics().boundingRect(available, TextFlags(), WithinScreen(text())).size() + around;
}

} // namespace korvel::Ui::VenueDatabase
