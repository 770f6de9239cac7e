#include <data/Logging_p.h>

#include <data/RequestUrl_p.h>

#include <QNetworkReply>
#include <QUrl>
#include <QVariant>

namespace korvel::Data::VenueDatabase {

namespace {

// A "data:" URL or a hostile one has no natural end; a log line has.
constexpr qsizetype c_longestLoggedText = 300;

} // namespace

const QLoggingCategory& VdbLog()
{
    static const QLoggingCategory category("vdb", QtDebugMsg);
    return category;
}

const QLoggingCategory& VdbTrace()
{
    static const QLoggingCategory category("vdb.trace", QtInfoMsg);
    return category;
}

QString Loggable(const QString& text)
{
    QString line
        = text.size() > c_longestLoggedText ? text.left(c_longestLoggedText) + QStringLiteral("...") : text;
    for (QChar& character : line) {
        const bool breaksTheLine = character.category() == QChar::Other_Control
            || character.category() == QChar::Separator_Line
            || character.category() == QChar::Separator_Paragraph;
        if (breaksTheLine)
            character = QLatin1Char(' ');
    }
    return line;
}

QString ErrorText(const QNetworkReply& reply)
{
    QString text = reply.errorString();
    // Qt's text quotes the URL with everything in it, after a redirect the last one. Credentials, also those
    // in a query, have no place in a log.
    for (const QUrl& url : {reply.url(), reply.request().url()}) {
        if (!url.isEmpty())
            text.replace(url.toString(),
                         url.toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment));
    }
    return text;
}

QString StatusText(const QVariant& status)
{
    return status.isValid() ? QStringLiteral("HTTP status %1").arg(status.toInt())
                            : QStringLiteral("no HTTP status");
}

void LogFailedRequest(QLatin1String what, const QUrl& url, const QNetworkReply& reply, const QString& reason)
{
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    qCCritical(VdbLog).noquote() << what << QLatin1String("failed:") << Loggable(url.host() + LoggedPath(url))
                                 << QLatin1String("-") << StatusText(status) << QLatin1String("-")
                                 << Loggable(reason.isEmpty() ? ErrorText(reply) : reason);
}

QString NotJsonApiReason(const QString& contentType)
{
    return QStringLiteral("the reply is not JSON:API but \"%1\"").arg(contentType);
}

QString NotAnAnswerReason()
{
    return QStringLiteral("a provisional answer came; what follows it may be meant for another request");
}

QString NotAnImageReason(const QString& contentType)
{
    return QStringLiteral("the reply is not an image but \"%1\"").arg(contentType);
}

} // namespace korvel::Data::VenueDatabase
