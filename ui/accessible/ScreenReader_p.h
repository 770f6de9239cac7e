#pragma once

class QWidget;

namespace korvel::Ui::VenueDatabase {

/// From now on the module's widgets are what they mean to a screen reader: the parts of the window groups,
/// the viewer's view a picture with a caption and buttons in it, the splitter's handle a line that can be
/// moved. Every class that needs it calls it; only the first call counts.
void ServeScreenReaders();

/// Has a screen reader say the accessible name of \p widget now.
void Announce(QWidget* widget);

/// To be called when \p widget, which is a group, became busy, or has become free again.
void TellBusyChange(QWidget* widget);

} // namespace korvel::Ui::VenueDatabase
