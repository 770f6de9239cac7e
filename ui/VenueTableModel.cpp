#include <ui/VenueTableModel.h>

#include <ui/table/VenueSortKeys_p.h>

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::Venue;

VenueTableModel::VenueTableModel() = default;

VenueTableModel::~VenueTableModel() = default;

void VenueTableModel::SetVenueData(const QList<Venue>& venues)
{
    beginResetModel();
    m_venues = venues;
    m_sortKeys.reset();
    endResetModel();
}

void VenueTableModel::GetSingleVenueData(const QModelIndex& index, Venue* venue) const
{
    if (HasRow(index.row()))
        *venue = m_venues.at(index.row());
}

const VenueSortKeys* VenueTableModel::GetSortKeys(int column) const
{
    if (!VenueSortKeys::HasKeys(column))
        return nullptr;
    if (!m_sortKeys || m_sortKeys->Column() != column)
        m_sortKeys = std::make_unique<VenueSortKeys>(m_venues, column);
    return m_sortKeys.get();
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
    return m_venues.at(index.row()).GetMinimizedDataAt(index.column());
}

QVariant VenueTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return Venue::GetLabelAt(section, true);
    if (!HasRow(section))
        return {};
    return m_venues.at(section).GetMinimizedDataAt(0);
}

bool VenueTableModel::HasRow(int row) const
{
    return row >= 0 && row < m_venues.size();
}

} // namespace korvel::Ui::VenueDatabase
