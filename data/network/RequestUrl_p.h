#pragma once

#include <QUrl>

namespace korvel::Data::VenueDatabase {

/// What may be asked of the network for \p url, which comes from the server: the URL itself for the schemes
/// http, https and data if it is valid; otherwise the empty URL, whose request fails like one to an
/// unreachable host. Qt would read local files and block on devices for other schemes.
QUrl RequestUrl(const QUrl& url);

/// The path of \p url as it follows the host in a log. A \c url member of the server's may be relative or a
/// whole address: such a path is quoted and stands apart, without user info, query and fragment.
QString LoggedPath(const QUrl& url);

} // namespace korvel::Data::VenueDatabase
