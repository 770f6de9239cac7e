#include <data/ServerQuery_p.h>

#include <data/RequestUrl_p.h>

#include <QUrlQuery>

namespace korvel::Data::VenueDatabase {

QUrl ServerUrl(const QString& path, const QueryPairs& query)
{
    QUrlQuery urlQuery;
    for (const auto& [name, value] : query)
        urlQuery.addQueryItem(name, value);
    QUrl url;
    url.setScheme(QStringLiteral("https"));
    url.setHost(QStringLiteral(KVVENUEDATABASE_SERVER_HOST), QUrl::DecodedMode);
    if (!urlQuery.isEmpty())
        url.setQuery(urlQuery);
    url.setPath(path, QUrl::TolerantMode);
    return url;
}

QNetworkRequest ServerRequest(const QUrl& url)
{
    QNetworkRequest request(RequestUrl(url));
    // With one request at a time HTTP/2 gains nothing. Qt 6.4 loses requests there: after the server's
    // GOAWAY, and on connections that have gone silent.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    return request;
}

QueryPairs SearchQuery(const QueryPairs& filters)
{
    QueryPairs query;
    query.reserve(3 * filters.size() + 1);
    for (const auto& [key, value] : filters) {
        const QString path = key.toLower();
        const QString condition = QStringLiteral("filter[") + path + QStringLiteral("][condition]");
        query.append({condition + QStringLiteral("[path]"), path});
        query.append({condition + QStringLiteral("[operator]"), QStringLiteral("CONTAINS")});
        query.append({condition + QStringLiteral("[value]"), value});
    }
    query.append({QStringLiteral("include"), QStringLiteral("editor")});
    return query;
}

QueryPairs IncludedQuery(const QString& include, qint64 venueId)
{
    return {{QStringLiteral("include"), include},
            {QStringLiteral("filter[entity_id]"), QString::number(venueId)}};
}

} // namespace korvel::Data::VenueDatabase
