#include <ui/FocusRing_p.h>

#include <QFocusEvent>
#include <QPainter>
#include <QPen>
#include <QPointF>

namespace korvel::Ui::VenueDatabase {

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

void PaintFocusRing(QPainter& painter, const QPointF& center, qreal radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const QPen& pen : {QPen(Qt::black, 4.0), QPen(Qt::white, 2.0)}) {
        painter.setPen(pen);
        painter.drawEllipse(center, radius, radius);
    }
    painter.restore();
}

} // namespace korvel::Ui::VenueDatabase
