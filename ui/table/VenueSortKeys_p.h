#pragma once

#include <data/Venue.h>

#include <QDateTime>
#include <QList>

#include <vector>

class QAbstractItemModel;

namespace korvel::Ui::VenueDatabase {

/// What one column of the venue table is sorted by, row by row: the date that a cell holds or that its text
/// can be read as.
///
/// Made once for a sort. Reading the records in every comparison would fetch each from another place in
/// memory and parse the same texts again and again.
class VenueSortKeys
{
public:
    /// The keys by which \p model sorts \p column, valid until its data change or another column is asked
    /// for. Null where \p model is not a VenueTableModel, or is a class derived from it, and for columns that
    /// are not sorted by dates.
    static const VenueSortKeys* Of(const QAbstractItemModel* model, int column);

    /// True for the columns whose cells are dates or texts. The id is neither.
    static bool HasKeys(int column);

    /// The keys of \p column in \p venues; HasKeys() must be true.
    VenueSortKeys(const QList<Data::VenueDatabase::Venue>& venues, int column);

    int Column() const;
    /// The comparison of the two dates by QDateTime, whatever they are; rows must exist.
    bool IsEarlier(int leftRow, int rightRow) const;

private:
    struct Key
    {
        /// The Julian day of a valid date.
        qint64 day = 0;
        QDateTime date;
    };

    static Key KeyOf(const QDateTime& date);
    static Key KeyOf(const QString& text);

    int m_column = 0;
    std::vector<Key> m_keys;
};

} // namespace korvel::Ui::VenueDatabase
