#include <fuzz/AnsweringCache.h>

#include <QBuffer>
#include <QDateTime>
#include <QNetworkRequest>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace korvel::Fuzz {

namespace {

bool IsDocument(const QUrl& url)
{
    return url.path().startsWith("/api/"_L1);
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
    data.setRawHeaders(
        {{"Content-Type"_ba, IsDocument(url) ? "application/vnd.api+json"_ba : "application/octet-stream"_ba},
         {"Cache-Control"_ba, "max-age=31536000"_ba}});
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
    const QByteArray& document = m_document.isEmpty() ? " "_ba : m_document;
    buffer->setData(IsDocument(url) ? document : FileBytes());
    buffer->open(QIODevice::ReadOnly);
    return buffer;
}

} // namespace korvel::Fuzz
