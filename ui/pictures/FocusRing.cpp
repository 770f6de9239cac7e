#include <ui/pictures/FocusRing_p.h>

#include <QFocusEvent>
#include <QPainter>
#include <QPen>
#include <QPointF>

namespace korvel::Ui::VenueDatabase {

namespace {

constexpr qreal c_ringRadius = 14.0;

} // namespace

bool ShowsFocusAfter(const QFocusEvent& event, bool shownBefore)
{
    switch (event.reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
        return shownBefore;
    case Qt::MouseFocusReason:
        return false;
    default:
        return event.gotFocus();
    }
}

void PaintFocusRing(QPainter& painter, const QPointF& center)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const QPen& pen : {QPen(Qt::black, 4.0), QPen(Qt::white, 2.0)}) {
        painter.setPen(pen);
        painter.drawEllipse(center, c_ringRadius, c_ringRadius);
    }
    painter.restore();
}

} // namespace korvel::Ui::VenueDatabase
