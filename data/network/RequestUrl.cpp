#include <data/network/RequestUrl_p.h>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

QUrl RequestUrl(const QUrl& url)
{
    // QUrl keeps schemes in lower case.
    const QString scheme = url.scheme();
    const bool isAllowed = scheme == "https"_L1 || scheme == "http"_L1 || scheme == "data"_L1;
    // Qt would send a request without a target to the host of an invalid URL.
    return isAllowed && url.isValid() ? url : QUrl();
}

QString LoggedPath(const QUrl& url)
{
    const QString path = url.path();
    if (url.host().isEmpty() || path.isEmpty() || path.startsWith(QLatin1Char('/')))
        return path;
    const QUrl address(url.path(QUrl::FullyDecoded), QUrl::TolerantMode);
    const QString text = address.toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment);
    return u" \"%1\""_s.arg(text.isEmpty() ? path : text);
}

} // namespace korvel::Data::VenueDatabase
