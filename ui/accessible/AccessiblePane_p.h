#pragma once

#include <QAccessibleWidget>

namespace korvel::Ui::VenueDatabase {

/// A part of the window that a screen reader names when the focus enters it. It is busy while its widget
/// shows the wait cursor.
class AccessiblePane : public QAccessibleWidget
{
public:
    explicit AccessiblePane(QWidget* widget);

    QAccessible::State state() const override;
};

} // namespace korvel::Ui::VenueDatabase
