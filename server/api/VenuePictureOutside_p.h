#pragma once

#include <server/api/VenuePictureStyle_p.h>

#include <QSizeF>

class QPainter;

namespace korvel::Demo {

/// Paints the building from the square in front of it, by day or at dusk.
void PaintOutside(QPainter& painter, QSizeF sheet, const VenueStyle& style);

} // namespace korvel::Demo
