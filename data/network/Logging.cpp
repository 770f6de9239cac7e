#include <data/network/Logging_p.h>

#include <data/network/RequestUrl_p.h>

#include <QNetworkReply>
#include <QUrl>
#include <QVariant>

using namespace Qt::StringLiterals;

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
    QString line = text.size() > c_longestLoggedText ? text.left(c_longestLoggedText) + u"..."_s : text;
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
    for (const QUrl& url : {reply.url(), reply.request().url()})
        if (!url.isEmpty())
            text.replace(url.toString(),
                         url.toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment));
    return text;
}

QString StatusText(const QVariant& status)
{
    return status.isValid() ? u"HTTP status %1"_s.arg(status.toInt()) : u"no HTTP status"_s;
}

void LogFailedRequest(QLatin1String what, const QUrl& url, const QNetworkReply& reply, const QString& reason)
{
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    qCCritical(VdbLog).noquote() << what << "failed:"_L1 << Loggable(url.host() + LoggedPath(url)) << "-"_L1
                                 << StatusText(status) << "-"_L1
                                 << Loggable(reason.isEmpty() ? ErrorText(reply) : reason);
}

QString NotJsonApiReason(const QString& contentType)
{
    return u"the reply is not JSON:API but \"%1\""_s.arg(contentType);
}

QString NotAnAnswerReason()
{
    return u"a provisional answer came; what follows it may be meant for another request"_s;
}

QString NotAnImageReason(const QString& contentType)
{
    return u"the reply is not an image but \"%1\""_s.arg(contentType);
}

} // namespace korvel::Data::VenueDatabase
