#pragma once

#include <QLatin1String>

class QObject;
class QWidget;

namespace korvel::Ui::VenueDatabase {

/// Names the class of the host's style sheet that \p object shows: sets its dynamic property "customStyle".
void SetCustomStyle(QObject* object, QLatin1String styleClass);

/// Draws the style-sheet background of a plain widget, which Qt leaves out for subclasses of QWidget. To be
/// called from the widget's paint event.
void PaintStyledBackground(QWidget* widget);

} // namespace korvel::Ui::VenueDatabase
