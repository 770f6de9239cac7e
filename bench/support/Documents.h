#pragma once

#include <data/Venue.h>

#include <QByteArray>
#include <QJsonObject>
#include <QList>

namespace korvel::Bench {

/// The body of a reply with \p venueCount venues of about 1.2 KB, one user for every \p venuesPerUser of
/// them. The last one made is kept.
const QByteArray& Body(qsizetype venueCount, qsizetype venuesPerUser = 10);

/// The venues that the connector reads from such a body. The last ones made are kept.
const QList<Data::VenueDatabase::Venue>& Venues(qsizetype venueCount);

} // namespace korvel::Bench
