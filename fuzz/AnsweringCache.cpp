#include <fuzz/AnsweringCache.h>

#include <QBuffer>
#include <QDateTime>
#include <QNetworkRequest>
#include <QUrl>

namespace korvel::Fuzz {

namespace {

bool IsDocument(const QUrl& url)
{
    return url.path().startsWith(QLatin1String("/api/"));
}

} // namespace

QNetworkCacheMetaData AnsweringCache::metaData(const QUrl& url)
{
    static const QDateTime now = QDateTime::currentDateTimeUtc();
    QNetworkCacheMetaData data;
    data.setUrl(url);
    data.setLastModified(now);
    data.setExpirationDate(now.addYears(1));
    data.setSaveToDisk(true);
    data.setRawHeaders({{QByteArrayLiteral("Content-Type"),
                         IsDocument(url) ? QByteArrayLiteral("application/vnd.api+json")
                                         : QByteArrayLiteral("application/octet-stream")},
                        {QByteArrayLiteral("Cache-Control"), QByteArrayLiteral("max-age=31536000")}});
    QNetworkCacheMetaData::AttributesMap attributes;
    attributes.insert(QNetworkRequest::HttpStatusCodeAttribute, 200);
    data.setAttributes(attributes);
    return data;
}

QIODevice* AnsweringCache::data(const QUrl& url)
{
    // The reply that reads it deletes it.
    auto* buffer = new QBuffer;
    // A cached body without a byte never ends: Qt waits for its readyRead().
    const QByteArray& document = m_document.isEmpty() ? QByteArrayLiteral(" ") : m_document;
    buffer->setData(IsDocument(url) ? document : FileBytes());
    buffer->open(QIODevice::ReadOnly);
    return buffer;
}

} // namespace korvel::Fuzz
