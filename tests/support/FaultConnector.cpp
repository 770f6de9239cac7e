#include <tests/support/FaultConnector.h>

#include <tests/support/Records.h>

#include <QNetworkAccessManager>

using namespace Qt::StringLiterals;

namespace korvel::Test {

using namespace Data::VenueDatabase;

namespace {

QList<Venue> OldVenues()
{
    return {MakeVenue(-1, u"old"_s), MakeVenue(-1, u"old"_s)};
}

} // namespace

FaultConnector::FaultConnector()
    : ConnectorJsonRest(nullptr)
{
}

QNetworkAccessManager* FaultConnector::Manager() const
{
    return findChild<QNetworkAccessManager*>();
}

ResultStatus FaultConnector::FindVenueEntries(Filters filters, QList<Venue>& result)
{
    if (!asksForVenues) {
        result = venues;
        return Ok;
    }
    QElapsedTimer timer;
    timer.start();
    QList<Venue> list = OldVenues();
    const ResultStatus status = ConnectorJsonRest::FindVenueEntries(filters, list);
    Note(timer);
    statuses.append(status);
    found.append(NamesOf(list));
    if (status == Ok)
        result = list;
    return status;
}

QList<Picture> FaultConnector::GetPictureEntries(qint64 venueId)
{
    if (asksForPictures) {
        QElapsedTimer timer;
        timer.start();
        pictures = ConnectorJsonRest::GetPictureEntries(venueId);
        Note(timer);
    }
    return pictures;
}

QList<TsFile> FaultConnector::GetTSFileEntries(qint64 venueId)
{
    if (asksForFiles) {
        QElapsedTimer timer;
        timer.start();
        files = ConnectorJsonRest::GetTSFileEntries(venueId);
        Note(timer);
    }
    return files;
}

void FaultConnector::Note(const QElapsedTimer& timer)
{
    longest = qMax(longest, timer.elapsed());
}

QStringList OldNames()
{
    return NamesOf(OldVenues());
}

} // namespace korvel::Test
