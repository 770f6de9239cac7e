#pragma once

#include <tools/vdbprobe/FetchResult.h>

#include <data/ConnectorJsonRest.h>

#include <QStringList>

namespace korvel::Tools {

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
