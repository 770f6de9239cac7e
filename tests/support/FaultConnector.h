#pragma once

#include <data/ConnectorJsonRest.h>

#include <QElapsedTimer>
#include <QStringList>

namespace korvel::Test {

/// The real connector for the queries that are under test; the others are answered from memory. Notes what
/// each real query returned, and how long it took.
class FaultConnector : public Data::VenueDatabase::ConnectorJsonRest
{
    Q_OBJECT

public:
    using Filters = QList<std::pair<QString, QString>>;

    FaultConnector();

    bool asksForVenues = false;
    bool asksForPictures = false;
    bool asksForFiles = false;
    /// What a search finds that is not asked for.
    QList<Data::VenueDatabase::Venue> venues;

    /// Of every search: its status, and the complex names in the list that it was given, which held "old"
    /// twice before.
    QList<Data::VenueDatabase::ResultStatus> statuses;
    QList<QStringList> found;
    QList<Data::VenueDatabase::Picture> pictures;
    QList<Data::VenueDatabase::TsFile> files;
    /// The longest of the real queries, in milliseconds.
    qint64 longest = 0;

    QNetworkAccessManager* Manager() const;

    Data::VenueDatabase::ResultStatus FindVenueEntries(Filters filters,
                                                       QList<Data::VenueDatabase::Venue>& result) override;
    QList<Data::VenueDatabase::Picture> GetPictureEntries(qint64 venueId) override;
    QList<Data::VenueDatabase::TsFile> GetTSFileEntries(qint64 venueId) override;

private:
    void Note(const QElapsedTimer& timer);
};

/// What stands in the caller's list before a search.
QStringList OldNames();

} // namespace korvel::Test
