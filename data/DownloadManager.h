#pragma once

#include <data/VenueDatabaseExport.h>

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;

namespace korvel::Data::VenueDatabase {

/// Fetches pictures from full URLs without blocking: the caller goes on and receives the bytes or an error
/// text by signal.
///
/// Requests are independent: no queue, no deduplication, no time-out, no cancellation; the same URL asked
/// twice is fetched twice. User-interface thread only. Destroying the manager ends its running requests
/// silently.
///
/// @code{.cpp}
/// auto* downloads = new DownloadManager(&window);
/// QObject::connect(downloads, &DownloadManager::PictureBinaryDataFinished, &window,
///                  [&window](const QUrl&, const QByteArray& buffer) { ShowPicture(window, buffer); });
/// downloads->RequestPictureBinaryData(url);
/// @endcode
class KVVENUEDATABASE_API DownloadManager : public QObject
{
    Q_OBJECT

public:
    /// A manager with a network access manager of its own; nothing is sent yet.
    explicit DownloadManager(QObject* parent = nullptr);
    /// Ends running requests without a signal.
    ~DownloadManager() override;

    /// Does nothing; kept for callers that wire every object the same way.
    void ConnectSignals();
    /// Starts a download and returns at once. Schemes other than http, https and data fail like an
    /// unreachable host.
    void RequestPictureBinaryData(const QUrl& url);

Q_SIGNALS:
    /// A reply of an image type ended; \p buffer is its whole body. \p url is the one that was asked for.
    void PictureBinaryDataFinished(QUrl url, QByteArray buffer);
    /// The request for \p url failed. A failing request normally reports twice: "Request failed!" and then
    /// "Cannot convert reply. Reply is not an image."; an error page that is an image reports "Request
    /// failed!" and then PictureBinaryDataFinished(). A provisional answer (status below 200) that
    /// Qt takes for the real one, as Qt 6.4 does, is a failure too, as are the downloads beside it, whose
    /// bytes may be another one's. The texts are not translated.
    void RequestFailed(QUrl url, QString errorMessage);

private Q_SLOTS:
    void OnPictureBinaryDataResponse(QUrl url, QNetworkReply* reply);

private:
    QNetworkAccessManager* m_networkAccessManager = nullptr;
};

} // namespace korvel::Data::VenueDatabase
