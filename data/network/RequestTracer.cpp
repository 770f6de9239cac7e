#include <data/network/RequestTracer_p.h>

#include <data/network/Logging_p.h>
#include <data/network/RequestUrl_p.h>

#include <QMetaEnum>
#include <QNetworkReply>
#include <QStringList>
#include <QUrlQuery>

#include <algorithm>
#include <atomic>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

namespace {

/// \p query without its values, which may be tokens or what a user typed, but for those of \p openItems.
QString QueryText(const QUrlQuery& query, std::initializer_list<QLatin1String> openItems)
{
    QStringList items;
    const auto pairs = query.queryItems();
    for (const auto& [name, value] : pairs) {
        const bool isOpen = std::find(openItems.begin(), openItems.end(), name) != openItems.end();
        items.append(name + QLatin1Char('=') + (isOpen ? value : u"..."_s));
    }
    return items.join(QLatin1Char('&'));
}

QString AddressText(const QUrl& url, std::initializer_list<QLatin1String> openItems = {})
{
    // A path that does not fit its host makes the whole address invalid, and Qt shows none.
    if (!url.isValid() && !url.host().isEmpty())
        return Loggable(url.scheme() + "://"_L1 + url.host() + LoggedPath(url));
    QString text = url.toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment);
    if (url.hasQuery())
        text += QLatin1Char('?') + QueryText(QUrlQuery(url), openItems);
    return Loggable(text);
}

} // namespace

void RequestTracer::Follow(QLatin1String what, const QUrl& url, QNetworkReply* reply,
                           std::initializer_list<QLatin1String> openItems)
{
    if (!VdbTrace().isDebugEnabled())
        return;
    // Downloads run side by side: the number tells which lines belong together.
    static std::atomic<quint64> requestCount = 0;
    const QString title = u"#%1 %2"_s.arg(++requestCount).arg(what);
    new RequestTracer(title, AddressText(url, openItems), reply);
}

void RequestTracer::NoteUnusable(const QNetworkReply& reply, const QString& why)
{
    if (const auto* tracer = reply.findChild<const RequestTracer*>())
        qCDebug(VdbTrace).noquote() << tracer->m_title << "unusable:"_L1 << tracer->m_address << "-"_L1
                                    << Loggable(why);
}

void RequestTracer::NoteTaken(const QNetworkReply& reply, qint64 size)
{
    if (auto* const tracer = reply.findChild<RequestTracer*>())
        tracer->m_takenSize += size;
}

RequestTracer::RequestTracer(const QString& title, const QString& address, QNetworkReply* reply)
    : QObject(reply)
    , m_reply(reply)
    , m_title(title)
    , m_address(address)
{
    m_elapsed.start();
    connect(reply, &QNetworkReply::finished, this, &RequestTracer::OnFinished);
    qCDebug(VdbTrace).noquote() << m_title << "sent:"_L1 << m_address;
}

RequestTracer::~RequestTracer()
{
    if (m_hasEnded)
        return;
    // The reply is no more than a plain object by now.
    qCDebug(VdbTrace).noquote() << m_title << "dropped:"_L1 << m_address << "-"_L1 << m_elapsed.elapsed()
                                << "ms"_L1;
}

void RequestTracer::OnFinished()
{
    m_hasEnded = true;
    const QVariant status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool wasRedirected = m_reply->url() != m_reply->request().url();
    const QString errorText = m_reply->error() == QNetworkReply::NoError
        ? u"no error"_s
        : u"%1: %2"_s.arg(QString::fromLatin1(QMetaEnum::fromType<QNetworkReply::NetworkError>().valueToKey(
                              m_reply->error())),
                          Loggable(ErrorText(*m_reply)));
    qCDebug(VdbTrace).noquote() << m_title << "ended:"_L1
                                << (wasRedirected ? m_address + u" -> "_s + AddressText(m_reply->url())
                                                  : m_address)
                                << "-"_L1 << StatusText(status) << "-"_L1
                                << m_takenSize + m_reply->bytesAvailable() << "bytes -"_L1
                                << m_elapsed.elapsed() << "ms -"_L1 << errorText;
}

} // namespace korvel::Data::VenueDatabase

#include "moc_RequestTracer_p.cpp"
