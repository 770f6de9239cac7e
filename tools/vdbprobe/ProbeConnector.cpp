#include <tools/vdbprobe/ProbeConnector.h>

#include <tools/vdbprobe/SafeText.h>

#include <QJsonArray>

#include <memory>
#include <utility>

namespace korvel::Tools {

namespace {

QString SafeErrorText(const QNetworkReply& reply)
{
    QString text = reply.errorString();
    // Qt quotes the address with everything in it.
    for (const QUrl& url : {reply.url(), reply.request().url()}) {
        if (!url.isEmpty())
            text.replace(url.toString(), Address(url));
    }
    return OneLine(text);
}

} // namespace

QString FetchResult::Reason(int timeout) const
{
    if (!wasInTime)
        return QStringLiteral("no answer from %1 within %2 s").arg(Address(url)).arg(timeout / 1000.0);
    const QString statusText
        = status > 0 ? QStringLiteral("HTTP status %1").arg(status) : QStringLiteral("no HTTP status");
    return QStringLiteral("%1, %2 (%3)").arg(statusText, errorText, Address(url));
}

QString FetchResult::Hint() const
{
    if (!wasInTime)
        return QStringLiteral("The server is overloaded or something on the way holds the answer back.");
    if (status == 401 || status == 403)
        return QStringLiteral("The server, or a filter on the way, does not let this computer in.");
    if (status == 404)
        return QStringLiteral("There is nothing at this address: is this host a venue database?");
    if (status == 407 || error == QNetworkReply::ProxyAuthenticationRequiredError)
        return QStringLiteral("The proxy wants a user name and a password.");
    if (status == 429 || status >= 500)
        return QStringLiteral("The server itself is in trouble: try again later, then tell who runs it.");
    if (status >= 200 && status < 300)
        return QStringLiteral("The answer was cut short or damaged on the way, perhaps by a filter.");
    return QStringLiteral("The connection broke after it was made: look at filters and virus scanners.");
}

FetchResult ProbeConnector::Fetch(const QUrl& url, int timeout) const
{
    const std::unique_ptr<QNetworkReply> reply(
        SendGetUrlRequest(QString::fromUtf8(url.toEncoded(QUrl::FullyEncoded))));
    FetchResult result;
    result.wasInTime = waitForFinished(reply.get(), timeout);
    result.url = reply->url().isEmpty() ? url : reply->url();
    result.wasRedirected = reply->url() != reply->request().url();
    result.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    result.error = reply->error();
    result.errorText = SafeErrorText(*reply);
    result.contentType = reply->header(QNetworkRequest::ContentTypeHeader).toString();
    result.body = reply->readAll();
    return result;
}

QStringList ProbeConnector::PictureUrls(const QJsonArray& included, qint64 venueId)
{
    m_pictureUrls.clear();
    ProcessPictureEntriesReply(included, venueId);
    return std::exchange(m_pictureUrls, {});
}

QByteArray ProbeConnector::GetPictureBinaryData(const QString& url)
{
    m_pictureUrls.append(url);
    return {};
}

} // namespace korvel::Tools
