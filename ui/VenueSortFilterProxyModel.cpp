#include <ui/VenueDbCentralWidget.h>

#include <QDateTime>
#include <QVariant>

#include <optional>
#include <typeinfo>

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::Venue;

namespace {

/// left < right, without asking the time zone when the days alone decide: zones differ by little more than a
/// day.
bool IsEarlier(const QDateTime& left, const QDateTime& right)
{
    constexpr qint64 c_safeDays = 3;
    if (left.isValid() && right.isValid()) {
        const qint64 days = left.date().daysTo(right.date());
        if (qAbs(days) > c_safeDays)
            return days > 0;
    }
    return left < right;
}

/// False for texts in which Qt's ISO parser finds no date for certain; they need no parsing to be known
/// invalid.
bool MayBeIsoDate(const QString& text)
{
    return text.size() >= 10 && text.at(4).isPunct() && text.at(7).isPunct() && text.at(9).isDigit();
}

bool IsLessText(const QString& left, const QString& right)
{
    if (!MayBeIsoDate(left) && !MayBeIsoDate(right))
        return false;
    return QDateTime::fromString(right, Qt::ISODate) < QDateTime::fromString(left, Qt::ISODate);
}

/// The comparison for the module's own model, whose records can be read in place; the values and the result
/// are the same as for any other model. Nothing for other models and columns.
std::optional<bool> LessInVenueTable(const QAbstractItemModel* model, const QModelIndex& left,
                                     const QModelIndex& right)
{
    if (typeid(*model) != typeid(VenueTableModel))
        return {};
    const auto* venues = static_cast<const VenueTableModel*>(model);
    const Venue* leftVenue = venues->GetVenueAt(left.row());
    const Venue* rightVenue = venues->GetVenueAt(right.row());
    if (!leftVenue || !rightVenue)
        return {};
    switch (left.column()) {
    case 1:
        return IsLessText(leftVenue->GetComplexName(), rightVenue->GetComplexName());
    case 2:
        return IsLessText(leftVenue->GetVenueRoomName(), rightVenue->GetVenueRoomName());
    case 3:
        return IsLessText(leftVenue->GetCity(), rightVenue->GetCity());
    case 4:
        return IsLessText(leftVenue->GetCountry(), rightVenue->GetCountry());
    case 5:
        return IsEarlier(rightVenue->GetEditDate(), leftVenue->GetEditDate());
    default:
        return {};
    }
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
    if (const std::optional<bool> isLess = LessInVenueTable(sourceModel(), left, right))
        return *isLess;

    const QVariant leftValue = sourceModel()->data(left, Qt::DisplayRole);
    const QVariant rightValue = sourceModel()->data(right, Qt::DisplayRole);
    // Deliberate: texts can be converted too, and most give invalid date-times, none less than the other.
    // Text columns therefore keep the order that they are in.
    if (leftValue.canConvert<QDateTime>() && rightValue.canConvert<QDateTime>()) {
        // Deliberate: the operands are swapped, so that an ascending sort lists the newest edit first.
        return IsEarlier(rightValue.toDateTime(), leftValue.toDateTime());
    }
    return leftValue.toString().localeAwareCompare(rightValue.toString()) < 0;
}

} // namespace korvel::Ui::VenueDatabase
