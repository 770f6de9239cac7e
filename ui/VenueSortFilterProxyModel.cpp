#include <ui/VenueDbCentralWidget.h>

#include <ui/VenueSortKeys_p.h>

#include <QDateTime>
#include <QVariant>

#include <optional>
#include <typeinfo>

namespace korvel::Ui::VenueDatabase {

namespace {

/// The comparison for the module's own model, which knows what its rows are sorted by; the result is the same
/// as for any other model. Nothing for other models and columns.
std::optional<bool> LessInVenueTable(const QModelIndex& left, const QModelIndex& right)
{
    const QAbstractItemModel* model = left.model();
    if (!model || typeid(*model) != typeid(VenueTableModel) || left.column() != right.column())
        return {};
    const VenueSortKeys* keys = static_cast<const VenueTableModel*>(model)->GetSortKeys(left.column());
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
    // Deliberate: texts can be converted too, and most give invalid date-times, none less than the other.
    // Text columns therefore keep the order that they are in.
    if (leftValue.canConvert<QDateTime>() && rightValue.canConvert<QDateTime>()) {
        // Deliberate: the operands are swapped, so that an ascending sort lists the newest edit first.
        return rightValue.toDateTime() < leftValue.toDateTime();
    }
    return leftValue.toString().localeAwareCompare(rightValue.toString()) < 0;
}

} // namespace korvel::Ui::VenueDatabase
