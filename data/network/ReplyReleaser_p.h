#pragma once

#include <QLatin1String>
#include <QNetworkReply>
#include <QPointer>

class QUrl;

namespace korvel::Data::VenueDatabase {

/// Releases the reply of one query when the query has ended; the reply may be gone before.
class ReplyReleaser
{
public:
    explicit ReplyReleaser(QNetworkReply* reply);
    /// Deletes the reply in the next turn of the event loop.
    ~ReplyReleaser();
    Q_DISABLE_COPY_MOVE(ReplyReleaser)

    QNetworkReply* operator->() const;
    QNetworkReply& operator*() const;
    /// The reply; null once it is gone.
    QNetworkReply* Get() const;

    /// Logs that \p url was not answered within \p timeout milliseconds. Does so only for a reply that was
    /// aborted: where it died or the application quits, nothing failed.
    void LogTimeout(QLatin1String what, const QUrl& url, int timeout) const;

private:
    QPointer<QNetworkReply> m_reply;
};

} // namespace korvel::Data::VenueDatabase
