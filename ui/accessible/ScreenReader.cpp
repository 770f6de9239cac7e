#include <ui/accessible/ScreenReader_p.h>

#include <ui/PictureSlider.h>
#include <ui/PictureView.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDetailsWidget.h>
#include <ui/accessible/AccessiblePane_p.h>
#include <ui/accessible/AccessibleSplitterHandle_p.h>

#include <QAccessible>
#include <QSplitter>

namespace korvel::Ui::VenueDatabase {

namespace {

bool IsPane(const QObject* object)
{
    return qobject_cast<const VenueDbCentralWidget*>(object)
        || qobject_cast<const VenueDetailsWidget*>(object) || qobject_cast<const PictureSlider*>(object);
}

QAccessibleInterface* CreateAccessible(const QString& /*className*/, QObject* object)
{
    if (IsPane(object))
        return new AccessiblePane(static_cast<QWidget*>(object));
    // Qt's own interface for views hides the children that are not the view's own scroll bars and viewport.
    if (auto* view = qobject_cast<PictureView*>(object))
        return new QAccessibleWidget(view, QAccessible::Graphic);
    // The host may have splitters too.
    auto* handle = qobject_cast<QSplitterHandle*>(object);
    if (handle && qobject_cast<VenueDbCentralWidget*>(handle->splitter()->parentWidget()))
        return new AccessibleSplitterHandle(handle);
    return nullptr;
}

} // namespace

void ServeScreenReaders()
{
    // Qt ignores a factory that it has already.
    QAccessible::installFactory(&CreateAccessible);
}

void Announce(QWidget* widget)
{
    QAccessibleEvent event(widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void TellBusyChange(QWidget* widget)
{
    QAccessible::State changed;
    changed.busy = true;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace korvel::Ui::VenueDatabase
