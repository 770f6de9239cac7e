#pragma once

#include <QLoggingCategory>
#include <QString>

class QNetworkReply;

namespace korvel::Data::VenueDatabase {

/// The module's one logging category, "vdb": failures that the user does not see.
const QLoggingCategory& VdbLog();

/// Writes one critical message to VdbLog() for a request that failed: \p what failed, host and path without
/// user info and query, HTTP status if there is one, and \p reason or else Qt's error text.
void LogFailedRequest(QLatin1String what, const QNetworkReply& reply, const QString& reason = {});

/// Why a download of the media type \p contentType is no picture.
QString NotAnImageReason(const QString& contentType);

} // namespace korvel::Data::VenueDatabase
