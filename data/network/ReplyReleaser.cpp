#include <data/network/ReplyReleaser_p.h>

#include <data/network/Logging_p.h>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

ReplyReleaser::ReplyReleaser(QNetworkReply* reply)
    : m_reply(reply)
{
}

ReplyReleaser::~ReplyReleaser()
{
    if (m_reply)
        m_reply->deleteLater();
}

QNetworkReply* ReplyReleaser::operator->() const
{
    return m_reply;
}

QNetworkReply& ReplyReleaser::operator*() const
{
    return *m_reply;
}

QNetworkReply* ReplyReleaser::Get() const
{
    return m_reply;
}

void ReplyReleaser::LogTimeout(QLatin1String what, const QUrl& url, int timeout) const
{
    if (m_reply && m_reply->isFinished())
        LogFailedRequest(what, url, *m_reply, u"no reply within %1 ms"_s.arg(timeout));
}

} // namespace korvel::Data::VenueDatabase
