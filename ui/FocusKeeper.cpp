#include <ui/FocusKeeper_p.h>

#include <utility>

namespace korvel::Ui::VenueDatabase {

void FocusKeeper::Park(const QWidget* area, QWidget* refuge)
{
    if (!HoldsFocus(area))
        return;
    m_owner = area->window()->focusWidget();
    m_refuge = refuge;
    refuge->setFocus(Qt::OtherFocusReason);
}

void FocusKeeper::GiveBack(QWidget* fallback)
{
    const QPointer<QWidget> owner = std::exchange(m_owner, nullptr);
    const QPointer<QWidget> refuge = std::exchange(m_refuge, nullptr);
    if (!refuge || refuge->window()->focusWidget() != refuge)
        return;
    const bool canTakeIt = owner && owner->isEnabled() && owner->isVisibleTo(owner->window());
    (canTakeIt ? owner.get() : fallback)->setFocus(Qt::OtherFocusReason);
}

bool HoldsFocus(const QWidget* area)
{
    const QWidget* focused = area->window()->focusWidget();
    return focused && (focused == area || area->isAncestorOf(focused));
}

} // namespace korvel::Ui::VenueDatabase
