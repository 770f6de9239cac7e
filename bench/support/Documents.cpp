#include <bench/support/Documents.h>

#include <data/ConnectorJsonRest.h>
#include <server/catalogue/CatalogueGenerator.h>

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace korvel::Bench {

const QByteArray& Body(qsizetype venueCount, qsizetype venuesPerUser)
{
    static std::pair<qsizetype, qsizetype> kept;
    static QByteArray body;
    const std::pair wanted(venueCount, venuesPerUser);
    if (kept != wanted) {
        body.clear();
        Demo::CatalogueGenerator::Settings settings;
        settings.venueCount = venueCount;
        settings.venuesPerUser = venuesPerUser;
        body = Demo::CatalogueGenerator(settings).Body(u"venues.korvel.example"_s);
        kept = wanted;
    }
    return body;
}

const QList<Data::VenueDatabase::Venue>& Venues(qsizetype venueCount)
{
    static QList<Data::VenueDatabase::Venue> venues;
    if (venues.size() != venueCount) {
        venues.clear();
        const Data::VenueDatabase::ConnectorJsonRest connector;
        venues = connector.ProcessVenueEntriesReply(QJsonDocument::fromJson(Body(venueCount)).object());
    }
    return venues;
}

} // namespace korvel::Bench
