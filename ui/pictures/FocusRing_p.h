#pragma once

class QFocusEvent;
class QPainter;
class QPointF;

namespace korvel::Ui::VenueDatabase {

/// Whether a widget is to show its focus after \p event, which gave or took it: only a focus that did not
/// come by the mouse is shown. \p shownBefore is kept where merely the window or a menu came in between.
bool ShowsFocusAfter(const QFocusEvent& event, bool shownBefore);

/// Draws the ring that shows the focus of a round button of 24 pixels: white with dark edges, to be seen on
/// any picture.
void PaintFocusRing(QPainter& painter, const QPointF& center);

} // namespace korvel::Ui::VenueDatabase
