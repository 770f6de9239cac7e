#include <ui/VenueTableModel.h>

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::Venue;

namespace {

/// What Venue::GetDataAt() answers for the minimised column set, whatever the flag of \p venue. Sorting asks
/// for every cell many times: setting the flag would take a copy of the whole record each time.
QVariant MinimizedDataAt(const Venue& venue, int column)
{
    switch (column) {
    case 0:
        return venue.GetId();
    case 1:
        return venue.GetComplexName();
    case 2:
        return venue.GetVenueRoomName();
    case 3:
        return venue.GetCity();
    case 4:
        return venue.GetCountry();
    case 5:
        return venue.GetEditDate();
    default:
        return {};
    }
}

} // namespace

VenueTableModel::VenueTableModel() = default;

VenueTableModel::~VenueTableModel() = default;

void VenueTableModel::SetVenueData(const QList<Venue>& venues)
{
    beginResetModel();
    m_venues = venues;
    endResetModel();
}

void VenueTableModel::GetSingleVenueData(const QModelIndex& index, Venue* venue) const
{
    if (HasRow(index.row()))
        *venue = m_venues.at(index.row());
}

int VenueTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_venues.size());
}

int VenueTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Venue::Size(true);
}

QVariant VenueTableModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !HasRow(index.row()))
        return {};
    return MinimizedDataAt(m_venues.at(index.row()), index.column());
}

QVariant VenueTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return Venue::GetLabelAt(section, true);
    if (!HasRow(section))
        return {};
    return MinimizedDataAt(m_venues.at(section), 0);
}

bool VenueTableModel::HasRow(int row) const
{
    return row >= 0 && row < m_venues.size();
}

} // namespace korvel::Ui::VenueDatabase
