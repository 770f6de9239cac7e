#pragma once

#include <QLatin1String>

class QFrame;
class QLabel;
class QObject;
class QPushButton;
class QString;
class QWidget;

namespace korvel::Ui::VenueDatabase {

/// Names the class of the host's style sheet that \p object shows: sets its dynamic property "customStyle".
void SetCustomStyle(QObject* object, QLatin1String styleClass);

/// Draws the style-sheet background of a plain widget, which Qt leaves out for subclasses of QWidget. To be
/// called from the widget's paint event.
void PaintStyledBackground(QWidget* widget);

/// A label of the module's own words, in the style class \p styleClass. \p parent owns it.
QLabel* CreateLabel(const QString& text, QLatin1String styleClass, QWidget* parent);

/// A push button in the module's usual style. \p parent owns it.
QPushButton* CreateButton(const QString& text, QWidget* parent);

/// A horizontal line, one pixel high, between two parts of a window. \p parent owns it.
QFrame* CreateSeparator(QWidget* parent);

} // namespace korvel::Ui::VenueDatabase
