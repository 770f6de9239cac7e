#include <ui/table/VenueSortKeys_p.h>

#include <ui/VenueTableModel.h>

#include <limits>
#include <typeinfo>

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::Venue;

namespace {

/// In place of the day: a text that is not a date. Two of them are never one before the other.
constexpr qint64 c_noDate = std::numeric_limits<qint64>::min();
/// In place of the day: another invalid date, on which Qt decides.
constexpr qint64 c_invalidDate = c_noDate + 1;
/// Beyond this many days the time zones, which differ by little more than one, need not be asked.
constexpr qint64 c_safeDays = 3;

/// False for texts in which Qt's ISO parser finds no date for certain; they need no parsing to be known
/// invalid.
bool MayBeIsoDate(const QString& text)
{
    return text.size() >= 10 && text.at(4).isPunct() && text.at(7).isPunct() && text.at(9).isDigit();
}

QString TextOf(const Venue& venue, int column)
{
    switch (column) {
    case 1:
        return venue.GetComplexName();
    case 2:
        return venue.GetVenueRoomName();
    case 3:
        return venue.GetCity();
    default:
        return venue.GetCountry();
    }
}

constexpr int c_firstTextColumn = 1;
constexpr int c_dateColumn = 5;

} // namespace

const VenueSortKeys* VenueSortKeys::Of(const QAbstractItemModel* model, int column)
{
    // A derived model may show other data.
    if (!model || typeid(*model) != typeid(VenueTableModel))
        return nullptr;
    return static_cast<const VenueTableModel*>(model)->GetSortKeys(column);
}

bool VenueSortKeys::HasKeys(int column)
{
    return column >= c_firstTextColumn && column <= c_dateColumn;
}

VenueSortKeys::VenueSortKeys(const QList<Venue>& venues, int column)
    : m_column(column)
{
    m_keys.reserve(static_cast<std::size_t>(venues.size()));
    for (const Venue& venue : venues)
        m_keys.push_back(column == c_dateColumn ? KeyOf(venue.GetEditDate()) : KeyOf(TextOf(venue, column)));
}

int VenueSortKeys::Column() const
{
    return m_column;
}

bool VenueSortKeys::IsEarlier(int leftRow, int rightRow) const
{
    const Key& left = m_keys[static_cast<std::size_t>(leftRow)];
    const Key& right = m_keys[static_cast<std::size_t>(rightRow)];
    if (left.day > c_invalidDate && right.day > c_invalidDate) {
        const qint64 days = right.day - left.day;
        if (days > c_safeDays || days < -c_safeDays)
            return days > 0;
    } else if (left.day == c_noDate && right.day == c_noDate) {
        return false;
    }
    return left.date < right.date;
}

VenueSortKeys::Key VenueSortKeys::KeyOf(const QDateTime& date)
{
    return {date.isValid() ? date.date().toJulianDay() : c_invalidDate, date};
}

VenueSortKeys::Key VenueSortKeys::KeyOf(const QString& text)
{
    if (!MayBeIsoDate(text))
        return {c_noDate, QDateTime()};
    return KeyOf(QDateTime::fromString(text, Qt::ISODate));
}

} // namespace korvel::Ui::VenueDatabase
