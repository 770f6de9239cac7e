#pragma once

#include <data/ConnectorJsonRest.h>

#include <QByteArray>
#include <QNetworkReply>
#include <QStringList>
#include <QUrl>

namespace korvel::Tools {

/// What came back for one request.
struct FetchResult
{
    QUrl url; ///< the last one, after redirects
    bool wasRedirected = false;
    bool wasInTime = false;
    int status = 0; ///< HTTP status, 0 when there is none
    QNetworkReply::NetworkError error = QNetworkReply::UnknownNetworkError;
    QString errorText; ///< safe to print
    QString contentType;
    QByteArray body;

    bool HasSucceeded() const
    {
        return wasInTime && error == QNetworkReply::NoError;
    }
    /// What is wrong with a result that has not succeeded, and what the user may do.
    QString Reason(int timeout) const;
    QString Hint() const;
};

/// The module's own connector, asked for any host: it sends, waits and reads as in a planning application.
class ProbeConnector : public Data::VenueDatabase::ConnectorJsonRest
{
    Q_OBJECT

public:
    using ConnectorJsonRest::ConnectorJsonRest;

    /// Fetches \p url and waits at most \p timeout milliseconds, in a nested event loop.
    FetchResult Fetch(const QUrl& url, int timeout) const;
    /// The addresses from which the module would load the pictures that \p included describes.
    QStringList PictureUrls(const QJsonArray& included, qint64 venueId);

    /// Notes \p url for PictureUrls(); loads nothing.
    QByteArray GetPictureBinaryData(const QString& url) override;

private:
    QStringList m_pictureUrls;
};

} // namespace korvel::Tools
