#pragma once

#include <QUrl>

namespace korvel::Data::VenueDatabase {

/// What may be asked of the network for \p url, which comes from the server: the URL itself for the schemes
/// http, https and data if it is valid; otherwise the empty URL, whose request fails like one to an
/// unreachable host. Qt would read local files and block on devices for other schemes.
QUrl RequestUrl(const QUrl& url);

} // namespace korvel::Data::VenueDatabase
