#pragma once

#include <QList>
#include <QNetworkRequest>
#include <QString>
#include <QUrl>

#include <utility>

namespace korvel::Data::VenueDatabase {

/// Names and values of a query, in their order.
using QueryPairs = QList<std::pair<QString, QString>>;

/// The path of every query for venues.
constexpr QLatin1String c_venuePath("/api/venue");
/// What the answer to such a query must be, to the letter.
constexpr QLatin1String c_jsonApiMediaType("application/vnd.api+json");
/// The relationships that hold a venue's pictures and its model files.
constexpr QLatin1String
    c_pictureInclude("from_the_auditorium.file,from_the_stage_into_the_auditorium.file,isometric.file,"
                     "stage_left.file,stage_right.file,view_from_the_inside.file,view_from_the_outside.file");
constexpr QLatin1String c_modelFileInclude("tessra.file");

/// \p path on the built-in host; invalid where \p path does not begin with a slash.
QUrl ServerUrl(const QString& path, const QueryPairs& query = {});
/// The request for \p url, for the empty one where RequestUrl() refuses it. It has no headers of its own and
/// does not offer HTTP/2.
QNetworkRequest ServerRequest(const QUrl& url);
/// Asks for the venues whose attributes contain the texts of \p filters, and for their editors.
QueryPairs SearchQuery(const QueryPairs& filters);
/// Asks for the resources behind \p include of one venue.
QueryPairs IncludedQuery(const QString& include, qint64 venueId);

} // namespace korvel::Data::VenueDatabase
