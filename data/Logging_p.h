#pragma once

#include <QLoggingCategory>
#include <QString>

class QNetworkReply;
class QUrl;

namespace korvel::Data::VenueDatabase {

/// The module's one logging category, "vdb": failures that the user does not see.
const QLoggingCategory& VdbLog();

/// Writes one critical message to VdbLog() for a request of \p url that failed: \p what failed, host and path
/// without user info and query, HTTP status if there is one, and \p reason or else Qt's error text. Texts of
/// the server are cut to a reasonable length and cannot break the line.
///
/// \p url is what was asked for; the request of \p reply lacks it where the scheme was refused.
void LogFailedRequest(QLatin1String what, const QUrl& url, const QNetworkReply& reply,
                      const QString& reason = {});

/// Why a download of the media type \p contentType is no picture.
QString NotAnImageReason(const QString& contentType);

} // namespace korvel::Data::VenueDatabase
