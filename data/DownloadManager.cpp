#include <data/DownloadManager.h>

#include <data/network/Logging_p.h>
#include <data/network/RenewingNetworkManager_p.h>
#include <data/network/RequestTracer_p.h>
#include <data/network/RequestUrl_p.h>

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

DownloadManager::DownloadManager(QObject* parent)
    : QObject(parent)
    , m_networkAccessManager(new RenewingNetworkManager(this))
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
    RequestTracer::Follow("Picture download"_L1, url, reply);
    connect(
        reply, &QNetworkReply::finished, reply,
        [this, url, reply]() { OnPictureBinaryDataResponse(url, reply); }, Qt::DirectConnection);
    connect(reply, &QNetworkReply::errorOccurred, this,
            [this, url]() { Q_EMIT RequestFailed(url, u"Request failed!"_s); });
}

void DownloadManager::OnPictureBinaryDataResponse(QUrl url, QNetworkReply* reply)
{
    const QString contentType = reply->header(QNetworkRequest::ContentTypeHeader).toString();
    const bool isAnswer = RenewingNetworkManager::IsAnswer(*reply);
    const bool isImage = isAnswer && contentType.startsWith("image"_L1);
    // The reply lives as long as this manager, so its body must not: read also what is not wanted.
    const QByteArray body = reply->readAll();

    const bool hasError = reply->error() != QNetworkReply::NoError;
    if (hasError)
        LogFailedRequest("Picture download"_L1, url, *reply);
    else if (!isAnswer)
        LogFailedRequest("Picture download"_L1, url, *reply, NotAnAnswerReason());
    else if (!isImage)
        LogFailedRequest("Picture download"_L1, url, *reply, NotAnImageReason(contentType));

    const QPointer<DownloadManager> self(this);
    // Qt reports no error here, but it is one like those that it reports.
    if (!isAnswer && !hasError)
        Q_EMIT RequestFailed(url, u"Request failed!"_s);
    if (!self)
        return;
    if (isImage)
        Q_EMIT PictureBinaryDataFinished(url, body);
    else
        Q_EMIT RequestFailed(url, u"Cannot convert reply. Reply is not an image."_s);
}

} // namespace korvel::Data::VenueDatabase

#include "moc_DownloadManager.cpp"
