#include <data/DownloadManager.h>

#include <data/Logging_p.h>
#include <data/RequestTracer_p.h>
#include <data/RequestUrl_p.h>

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace korvel::Data::VenueDatabase {

DownloadManager::DownloadManager(QObject* parent)
    : QObject(parent)
    , m_networkAccessManager(new QNetworkAccessManager(this))
{
}

DownloadManager::~DownloadManager()
{
    QObject::disconnect(m_networkAccessManager, nullptr, this, nullptr);
    m_networkAccessManager->deleteLater();
}

void DownloadManager::ConnectSignals() { }

void DownloadManager::RequestPictureBinaryData(const QUrl& url)
{
    QNetworkReply* reply = m_networkAccessManager->get(QNetworkRequest(RequestUrl(url)));
    // Before the connections below: what they call reads the body or deletes this object.
    RequestTracer::Follow(QLatin1String("Picture download"), url, reply);
    connect(
        reply, &QNetworkReply::finished, reply,
        [this, url, reply]() { OnPictureBinaryDataResponse(url, reply); }, Qt::DirectConnection);
    connect(reply, &QNetworkReply::errorOccurred, this,
            [this, url]() { Q_EMIT RequestFailed(url, QStringLiteral("Request failed!")); });
}

void DownloadManager::OnPictureBinaryDataResponse(QUrl url, QNetworkReply* reply)
{
    const QString contentType = reply->header(QNetworkRequest::ContentTypeHeader).toString();
    const bool isImage = contentType.startsWith(QLatin1String("image"));
    // The reply lives as long as this manager, so its body must not: read also what is not wanted.
    const QByteArray body = reply->readAll();

    if (reply->error() != QNetworkReply::NoError)
        LogFailedRequest(QLatin1String("Picture download"), url, *reply);
    else if (!isImage)
        LogFailedRequest(QLatin1String("Picture download"), url, *reply, NotAnImageReason(contentType));

    if (isImage)
        Q_EMIT PictureBinaryDataFinished(url, body);
    else
        Q_EMIT RequestFailed(url, QStringLiteral("Cannot convert reply. Reply is not an image."));
}

} // namespace korvel::Data::VenueDatabase

#include "moc_DownloadManager.cpp"
