#include <tools/vdbprobe/ProbeConnector.h>

#include <tools/vdbprobe/SafeText.h>

#include <data/network/Logging_p.h>

#include <QJsonArray>

#include <memory>
#include <utility>

namespace korvel::Tools {

FetchResult ProbeConnector::Fetch(const QUrl& url, int timeout) const
{
    const std::unique_ptr<QNetworkReply> reply(
        SendGetUrlRequest(QString::fromUtf8(url.toEncoded(QUrl::FullyEncoded))));
    FetchResult result;
    connect(reply.get(), &QNetworkReply::downloadProgress, reply.get(),
            [&result](qint64 received, qint64) { result.receivedBytes = received; });
    result.wasInTime = waitForFinished(reply.get(), timeout);
    result.asked = reply->request().url().isEmpty() ? url : reply->request().url();
    result.url = reply->url().isEmpty() ? result.asked : reply->url();
    result.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    result.error = reply->error();
    result.errorText = OneLine(Data::VenueDatabase::ErrorText(*reply));
    result.contentType = reply->header(QNetworkRequest::ContentTypeHeader).toString();
    const bool isRedirect = result.status >= 300 && result.status < 400;
    if (isRedirect && !result.WasRedirected() && reply->hasRawHeader("Location"))
        result.refusedRedirect = result.url.resolved(QUrl::fromEncoded(reply->rawHeader("Location")));
    result.retryAfter = OneLine(QString::fromLatin1(reply->rawHeader("Retry-After")));
    // A reply that was aborted is closed.
    if (reply->isOpen())
        result.body = reply->readAll();
    return result;
}

QStringList ProbeConnector::PictureUrls(const QJsonArray& included, qint64 venueId)
{
    m_pictureUrls.clear();
    ProcessPictureEntriesReply(included, venueId);
    return std::exchange(m_pictureUrls, {});
}

QByteArray ProbeConnector::GetPictureBinaryData(const QString& url)
{
    m_pictureUrls.append(url);
    return {};
}

} // namespace korvel::Tools
