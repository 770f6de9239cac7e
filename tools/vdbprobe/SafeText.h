#pragma once

#include <QString>

class QDateTime;
class QNetworkProxy;
class QUrl;

namespace korvel::Tools {

/// \p text, which may come from a server, as one line of reasonable length without control characters.
QString OneLine(const QString& text);
/// Scheme, host and path of \p url: no user info, no query, no fragment.
QString Address(const QUrl& url);
/// Host and port of \p proxy, without the user name and password that it may carry; "none" without a proxy.
QString Address(const QNetworkProxy& proxy);
/// \p date in UTC, the same everywhere.
QString DateText(const QDateTime& date);

} // namespace korvel::Tools
