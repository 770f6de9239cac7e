#pragma once

#include <data/Venue.h>
#include <data/VenueDatabaseExport.h>

#include <QAbstractTableModel>
#include <QList>

#include <memory>

namespace korvel::Ui::VenueDatabase {

class VenueSortKeys;

/// The venues of the last search as a read-only table, one row per venue in the order of the list, in the
/// minimised column set of the record.
///
/// Cells are unformatted values, dates included; texts come from the server as they are. Answers no role but
/// Qt::DisplayRole. User-interface thread only.
///
/// @code{.cpp}
/// VenueTableModel model;
/// model.SetVenueData(venues);
/// Venue second;
/// model.GetSingleVenueData(model.index(1, 0), &second);
/// @endcode
class KVVENUEDATABASE_API VenueTableModel : public QAbstractTableModel
{
    // Deliberate: no Q_OBJECT; the model adds no signal, slot or property.

public:
    /// An empty model without parent; its creator deletes it.
    VenueTableModel();
    /// Views that still show the model show nothing afterwards.
    ~VenueTableModel() override;

    /// Replaces all rows by \p venues: a model reset.
    void SetVenueData(const QList<Data::VenueDatabase::Venue>& venues);
    /// Copies the whole record of the row of \p index to \p venue, its column-set flag included. \p index is
    /// one of this model: indexes of a proxy are to be mapped first. A row that does not exist leaves \p
    /// venue as it is.
    void GetSingleVenueData(const QModelIndex& index, Data::VenueDatabase::Venue* venue) const;

    /// The number of venues; 0 below a row.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// 6, also for an empty list; 0 below a row.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Id, complex name, venue/room name, city, country, editing date; invalid outside the table.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Horizontally the translated label, empty behind the last column; vertically the id of the venue,
    /// invalid outside the table.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    friend class VenueSortKeys;

    bool HasRow(int row) const;
    /// What \p column is sorted by: made at the first call after SetVenueData() or for another column, valid
    /// until the next such call. Null for columns that are not sorted by dates.
    const VenueSortKeys* GetSortKeys(int column) const;

    QList<Data::VenueDatabase::Venue> m_venues;
    /// The keys of the column that was sorted last; null before the first sort.
    mutable std::unique_ptr<VenueSortKeys> m_sortKeys;
};

} // namespace korvel::Ui::VenueDatabase
