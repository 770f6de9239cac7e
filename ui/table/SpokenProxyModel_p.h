#pragma once

#include <ui/VenueDbCentralWidget.h>

namespace korvel::Ui::VenueDatabase {

/// The model that the venue table shows. It also answers what a screen reader asks, so that dates are read
/// as the table shows them: Qt would read the ISO text.
class SpokenProxyModel : public VenueDbCentralWidget::VenueSortFilterProxyModel
{
public:
    QVariant data(const QModelIndex& index, int role) const override;
};

} // namespace korvel::Ui::VenueDatabase
