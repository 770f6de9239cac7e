#include <data/network/ServerQuery_p.h>

#include <data/network/RequestUrl_p.h>

#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

QUrl ServerUrl(const QString& path, const QueryPairs& query)
{
    QUrlQuery urlQuery;
    for (const auto& [name, value] : query)
        urlQuery.addQueryItem(name, value);
    QUrl url;
    url.setScheme(u"https"_s);
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
        const QString condition = u"filter["_s + path + u"][condition]"_s;
        query.append({condition + u"[path]"_s, path});
        query.append({condition + u"[operator]"_s, u"CONTAINS"_s});
        query.append({condition + u"[value]"_s, value});
    }
    query.append({u"include"_s, u"editor"_s});
    return query;
}

QueryPairs IncludedQuery(const QString& include, qint64 venueId)
{
    return {{u"include"_s, include}, {u"filter[entity_id]"_s, QString::number(venueId)}};
}

} // namespace korvel::Data::VenueDatabase
