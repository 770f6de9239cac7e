#include <ui/accessible/AccessibleSplitterHandle_p.h>

#include <QSplitter>

#include <algorithm>

namespace korvel::Ui::VenueDatabase {

namespace {

/// The handle between the two parts; the splitter has a hidden one in front of the first.
constexpr int c_handle = 1;

} // namespace

AccessibleSplitterHandle::AccessibleSplitterHandle(QSplitterHandle* handle)
    : QAccessibleWidget(handle, QAccessible::Separator)
{
}

void* AccessibleSplitterHandle::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant AccessibleSplitterHandle::currentValue() const
{
    return Splitter()->sizes().constFirst();
}

void AccessibleSplitterHandle::setCurrentValue(const QVariant& value)
{
    const QList<int> sizes = Splitter()->sizes();
    const int both = sizes.constFirst() + sizes.constLast();
    const int first = std::clamp(value.toInt(), minimumValue().toInt(), maximumValue().toInt());
    Splitter()->setSizes({first, both - first});
}

QVariant AccessibleSplitterHandle::maximumValue() const
{
    int minimum = 0;
    int maximum = 0;
    Splitter()->getRange(c_handle, &minimum, &maximum);
    return maximum;
}

QVariant AccessibleSplitterHandle::minimumValue() const
{
    int minimum = 0;
    int maximum = 0;
    Splitter()->getRange(c_handle, &minimum, &maximum);
    return minimum;
}

QVariant AccessibleSplitterHandle::minimumStepSize() const
{
    return 1;
}

QSplitter* AccessibleSplitterHandle::Splitter() const
{
    return static_cast<QSplitterHandle*>(widget())->splitter();
}

} // namespace korvel::Ui::VenueDatabase
