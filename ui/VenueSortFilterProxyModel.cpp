#include <ui/VenueDbCentralWidget.h>

#include <ui/table/VenueSortKeys_p.h>

#include <QDateTime>
#include <QVariant>

#include <optional>

namespace korvel::Ui::VenueDatabase {

namespace {

/// The comparison for the module's own model, which knows what its rows are sorted by; the result is the same
/// as for any other model. Nothing for other models and columns.
std::optional<bool> LessInVenueTable(const QModelIndex& left, const QModelIndex& right)
{
    if (left.column() != right.column())
        return {};
    const VenueSortKeys* keys = VenueSortKeys::Of(left.model(), left.column());
    // Deliberate: the operands are swapped, so that an ascending sort lists the newest edit first.
    return keys ? std::optional(keys->IsEarlier(right.row(), left.row())) : std::nullopt;
}

} // namespace

VenueDbCentralWidget::VenueSortFilterProxyModel::VenueSortFilterProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent)
{
}

VenueDbCentralWidget::VenueSortFilterProxyModel::~VenueSortFilterProxyModel() = default;

bool VenueDbCentralWidget::VenueSortFilterProxyModel::lessThan(const QModelIndex& left,
                                                               const QModelIndex& right) const
{
    if (const std::optional<bool> isLess = LessInVenueTable(left, right))
        return *isLess;

    const QVariant leftValue = sourceModel()->data(left, Qt::DisplayRole);
    const QVariant rightValue = sourceModel()->data(right, Qt::DisplayRole);
    // Deliberate: Qt says that texts can be converted as well. Most of them become invalid date-times, which
    // all compare as equal, so a text column keeps the order that it is in.
    if (leftValue.canConvert<QDateTime>() && rightValue.canConvert<QDateTime>()) {
        // Deliberate: the operands are swapped, so that an ascending sort lists the newest edit first.
        return rightValue.toDateTime() < leftValue.toDateTime();
    }
    return leftValue.toString().localeAwareCompare(rightValue.toString()) < 0;
}

} // namespace korvel::Ui::VenueDatabase
