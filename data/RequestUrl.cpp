#include <data/RequestUrl_p.h>

namespace korvel::Data::VenueDatabase {

QUrl RequestUrl(const QUrl& url)
{
    // QUrl keeps schemes in lower case.
    const QString scheme = url.scheme();
    const bool isAllowed = scheme == QLatin1String("https") || scheme == QLatin1String("http")
        || scheme == QLatin1String("data");
    // Qt would send a request without a target to the host of an invalid URL.
    return isAllowed && url.isValid() ? url : QUrl();
}

} // namespace korvel::Data::VenueDatabase
