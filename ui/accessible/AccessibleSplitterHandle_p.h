#pragma once

#include <QAccessibleWidget>

class QSplitter;
class QSplitterHandle;

namespace korvel::Ui::VenueDatabase {

/// The line between table and details. Its value is the height of the table in pixels, which can be set.
class AccessibleSplitterHandle : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleSplitterHandle(QSplitterHandle* handle);

    void* interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    QSplitter* Splitter() const;
};

} // namespace korvel::Ui::VenueDatabase
