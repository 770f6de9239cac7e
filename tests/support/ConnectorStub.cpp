#include <tests/support/ConnectorStub.h>

using namespace Qt::StringLiterals;

namespace korvel::Test {

using namespace Data::VenueDatabase;

void ConnectorStub::Reset()
{
    onFindVenues = nullptr;
    onGetPictures = nullptr;
    onGetFiles = nullptr;
    venues.clear();
    result = Ok;
    duringCall = nullptr;
    searches.clear();
    calls.clear();
}

void ConnectorStub::Note(const QString& call)
{
    calls.append(call);
    if (const auto script = duringCall)
        script();
}

ResultStatus ConnectorStub::FindVenueEntries(Filters filters, QList<Venue>& found)
{
    searches.append(filters);
    Note(u"find"_s);
    // A copy: the script may delete the stub.
    if (const auto script = onFindVenues)
        return script(filters, found);
    if (result == Ok)
        found = venues;
    return result;
}

QList<Picture> ConnectorStub::GetPictureEntries(qint64 venueId)
{
    Note(u"pictures %1"_s.arg(venueId));
    if (const auto script = onGetPictures)
        return script(venueId);
    return {};
}

QList<TsFile> ConnectorStub::GetTSFileEntries(qint64 venueId)
{
    Note(u"files %1"_s.arg(venueId));
    if (const auto script = onGetFiles)
        return script(venueId);
    return {};
}

} // namespace korvel::Test
