#pragma once

#include <data/Venue.h>

#include <QAbstractTableModel>
#include <QDateTime>
#include <QSortFilterProxyModel>
#include <QStringList>

namespace korvel::Bench {

/// The venue table as one would write it down from its description, without a thought for speed: the
/// reference for the module's own, which must show the same.
class LiteralTableModel : public QAbstractTableModel
{
public:
    void SetVenueData(const QList<Data::VenueDatabase::Venue>& venues)
    {
        beginResetModel();
        m_venues = venues;
        endResetModel();
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_venues.size());
    }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : Data::VenueDatabase::Venue::Size(true);
    }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        Data::VenueDatabase::Venue venue = m_venues.at(index.row());
        venue.SetMinimizedElementCount(true);
        return venue.GetDataAt(index.column());
    }

private:
    QList<Data::VenueDatabase::Venue> m_venues;
};

/// The order of the venue table, written likewise.
class LiteralSortProxy : public QSortFilterProxyModel
{
public:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override
    {
        const QVariant leftValue = sourceModel()->data(left, Qt::DisplayRole);
        const QVariant rightValue = sourceModel()->data(right, Qt::DisplayRole);
        if (leftValue.canConvert<QDateTime>() && rightValue.canConvert<QDateTime>())
            return rightValue.toDateTime() < leftValue.toDateTime();
        return leftValue.toString().localeAwareCompare(rightValue.toString()) < 0;
    }
};

/// The entries of the country list, written likewise.
inline QStringList LiteralCountries(const QList<Data::VenueDatabase::Venue>& venues)
{
    QStringList countries;
    for (const Data::VenueDatabase::Venue& venue : venues)
        if (!venue.GetCountry().isNull() && !countries.contains(venue.GetCountry()))
            countries.append(venue.GetCountry());
    countries.sort(Qt::CaseInsensitive);
    return countries;
}

} // namespace korvel::Bench
