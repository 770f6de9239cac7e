#pragma once

#include <QtGlobal>

class QFocusEvent;
class QPainter;
class QPointF;

namespace korvel::Ui::VenueDatabase {

/// Whether a widget is to show its focus after \p event, which gave or took it: only a focus that did not
/// come by the mouse is shown. \p shownBefore is kept where merely the window or a menu came in between.
bool ShowsFocusAfter(const QFocusEvent& event, bool shownBefore);

/// Draws the ring of \p radius pixels that shows the focus of a round button: white with dark edges, to be
/// seen on any picture.
void PaintFocusRing(QPainter& painter, const QPointF& center, qreal radius);

} // namespace korvel::Ui::VenueDatabase
