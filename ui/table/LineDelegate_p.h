#pragma once

#include <QStyledItemDelegate>

namespace korvel::Ui::VenueDatabase {

/// Draws the cells of the venue table. Of a text that is longer than any screen is wide it lays out only the
/// beginning: Qt would measure all of it, at each repaint.
class LineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override;
};

} // namespace korvel::Ui::VenueDatabase
