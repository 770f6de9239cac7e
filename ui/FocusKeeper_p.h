#pragma once

#include <QPointer>
#include <QWidget>

namespace korvel::Ui::VenueDatabase {

/// Keeps the keyboard focus for widgets that are disabled for a time.
///
/// Qt takes the focus from a widget that is disabled and gives it to nobody. When the window becomes active
/// the next time, after a message box for example, the first widget in the tab order gets it. In the module's
/// dialogs that is "Close", and the next Return closes them.
class FocusKeeper
{
public:
    /// To be called before \p area is disabled: if the focus is in it, \p refuge has it from now on.
    void Park(const QWidget* area, QWidget* refuge);
    /// Gives the focus back to the widget that had it, or to \p fallback where that one cannot take it any
    /// more. Does nothing when the user has moved it meanwhile.
    void GiveBack(QWidget* fallback);

private:
    QPointer<QWidget> m_owner;
    QPointer<QWidget> m_refuge;
};

/// Whether \p area or a widget in it has the keyboard focus in its window.
bool HoldsFocus(const QWidget* area);

} // namespace korvel::Ui::VenueDatabase
