#include <data/Logging_p.h>

#include <QNetworkReply>
#include <QUrl>

namespace korvel::Data::VenueDatabase {

namespace {

// A "data:" URL or a hostile one has no natural end; a log line has.
constexpr qsizetype c_longestLoggedText = 300;

QString Shortened(const QString& text)
{
    return text.size() > c_longestLoggedText ? text.left(c_longestLoggedText) + QStringLiteral("...") : text;
}

QString ErrorText(const QNetworkReply& reply)
{
    QString text = reply.errorString();
    // Qt's text quotes the whole URL; credentials have no place in a log.
    const QString userInfo = reply.url().userInfo(QUrl::FullyEncoded);
    if (!userInfo.isEmpty())
        text.remove(userInfo + QLatin1Char('@'));
    return text;
}

} // namespace

const QLoggingCategory& VdbLog()
{
    static const QLoggingCategory category("vdb", QtDebugMsg);
    return category;
}

void LogFailedRequest(QLatin1String what, const QNetworkReply& reply, const QString& reason)
{
    const QUrl url = reply.request().url();
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const QString statusText = status.isValid() ? QStringLiteral("HTTP status %1").arg(status.toInt())
                                                : QStringLiteral("no HTTP status");
    qCCritical(VdbLog).noquote() << what << QLatin1String("failed:") << Shortened(url.host() + url.path())
                                 << QLatin1String("-") << statusText << QLatin1String("-")
                                 << Shortened(reason.isEmpty() ? ErrorText(reply) : reason);
}

QString NotAnImageReason(const QString& contentType)
{
    return QStringLiteral("the reply is not an image but \"%1\"").arg(contentType);
}

} // namespace korvel::Data::VenueDatabase
