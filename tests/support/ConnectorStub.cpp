#include <tests/support/ConnectorStub.h>

using namespace Qt::StringLiterals;

namespace korvel::Test {

using namespace Data::VenueDatabase;

ConnectorStub::ConnectorStub(QObject* parent)
    : QObject(parent)
{
}

ConnectorStub::~ConnectorStub() = default;

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

QList<User> ConnectorStub::FindUserEntries(Filters /*filters*/)
{
    return {};
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

QByteArray ConnectorStub::GetPictureBinaryData(const QString& /*url*/)
{
    return {};
}

QList<Venue> ConnectorStub::GetAllVenueEntries()
{
    return {};
}

QList<Venue> ConnectorStub::GetVenueEntries()
{
    return {};
}

QList<User> ConnectorStub::GetAllUserEntries()
{
    return {};
}

QList<User> ConnectorStub::GetUserEntries()
{
    return {};
}

} // namespace korvel::Test
