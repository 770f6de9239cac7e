#pragma once

#include <QLoggingCategory>
#include <QString>

class QNetworkReply;
class QUrl;
class QVariant;

namespace korvel::Data::VenueDatabase {

/// The module's logging category "vdb": failures that the user does not see.
const QLoggingCategory& VdbLog();
/// The logging category "vdb.trace": debug messages that follow every request, off unless a rule such as
/// "vdb.trace=true" asks for them.
const QLoggingCategory& VdbTrace();

/// \p text as one line of reasonable length: servers must not forge log entries or talk to a terminal.
QString Loggable(const QString& text);
/// Qt's error text of \p reply without the user info and query that it quotes.
QString ErrorText(const QNetworkReply& reply);
/// The HTTP status \p status, an attribute of a reply, in words; there may be none.
QString StatusText(const QVariant& status);

/// Writes one critical message to VdbLog() for a request of \p url that failed: \p what failed, host and path
/// without user info and query, HTTP status if there is one, and \p reason or else Qt's error text. Texts of
/// the server are cut to a reasonable length and cannot break the line.
///
/// \p url is what was asked for; the request of \p reply lacks it where the scheme was refused.
void LogFailedRequest(QLatin1String what, const QUrl& url, const QNetworkReply& reply,
                      const QString& reason = {});

/// Why a reply of the media type \p contentType to a query is not read.
QString NotJsonApiReason(const QString& contentType);
/// Why a reply that ended without an error is still not an answer.
QString NotAnAnswerReason();
/// Why a download of the media type \p contentType is not a picture.
QString NotAnImageReason(const QString& contentType);

} // namespace korvel::Data::VenueDatabase
