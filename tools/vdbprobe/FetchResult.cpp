#include <tools/vdbprobe/FetchResult.h>

#include <tools/vdbprobe/JsonApiAnswer.h>
#include <tools/vdbprobe/SafeText.h>

namespace korvel::Tools {

namespace {

constexpr int c_noContent = 204;
constexpr int c_notModified = 304;

} // namespace

bool FetchResult::HasSucceeded() const
{
    return wasInTime && error == QNetworkReply::NoError && status != c_noContent && status != c_notModified;
}

QString FetchResult::Reason(int timeout) const
{
    const QString where = WasRedirected()
        ? QStringLiteral("%1, redirected from %2").arg(Address(url), Address(asked))
        : Address(url);
    const double seconds = timeout / 1000.0;
    if (!wasInTime && status == 0)
        return QStringLiteral("no answer from %1 within %2 s").arg(where).arg(seconds);
    if (!wasInTime) {
        return QStringLiteral(
                   "HTTP status %1, but the body did not come within %2 s: %3 bytes of it are here (%4)")
            .arg(status)
            .arg(seconds)
            .arg(receivedBytes)
            .arg(where);
    }
    const QString statusText
        = status > 0 ? QStringLiteral("HTTP status %1").arg(status) : QStringLiteral("no HTTP status");
    QString text = QStringLiteral("%1, %2 (%3)").arg(statusText, errorText, where);
    if (error == QNetworkReply::NoError)
        text = QStringLiteral("%1, no body (%2)").arg(statusText, where);
    if (!refusedRedirect.isEmpty())
        text += QStringLiteral(", redirect to %1").arg(Address(refusedRedirect));
    const QString words = JsonApiAnswer(body).Words();
    return words.isEmpty() ? text : text + QStringLiteral("; the answer says: %1").arg(words);
}

QString FetchResult::Hint() const
{
    if (!wasInTime && status == 0)
        return QStringLiteral("The server is overloaded or something on the way holds the answer back.");
    if (!wasInTime) {
        return QStringLiteral("The server answers, but it or something on the way, perhaps a virus scanner, "
                              "holds the body back.");
    }
    if (error == QNetworkReply::InsecureRedirectError) {
        return QStringLiteral("The server sends the module to an address that is not encrypted. The module "
                              "does not go there: the server must answer itself, or redirect to https.");
    }
    if (error == QNetworkReply::TooManyRedirectsError)
        return QStringLiteral("The server sends the module from one address to the next without an end.");
    if (!refusedRedirect.isEmpty()) {
        return QStringLiteral("The server sends the module to an address where it does not go: the server "
                              "must answer itself, or redirect to https.");
    }
    // The status that led to another host is all that there is when that one cannot be reached.
    const bool hasAnswer = status > 0 && !(WasRedirected() && status >= 300 && status < 400);
    return hasAnswer ? StatusHint() : ConnectionHint();
}

QString FetchResult::StatusHint() const
{
    switch (status) {
    case c_noContent:
        return QStringLiteral("The server has nothing to say to this query: is it a venue database, and has "
                              "it data?");
    case c_notModified:
        return QStringLiteral(
            "\"Not modified\", though nobody asked whether it was: a cache before the server "
            "is set up wrongly.");
    case 400:
        return QStringLiteral(
            "The server does not understand the module's query: does it know \"include\" and "
            "\"filter\" as the module sends them? Some answer so, too, where they want a "
            "client certificate.");
    case 401:
    case 403:
        return QStringLiteral("The server, or a filter on the way, does not let this computer in.");
    case 404:
    case 410:
        return QStringLiteral("There is nothing at this address: is this host a venue database?");
    case 406:
        return QStringLiteral(
            "The server does not offer \"application/vnd.api+json\" to a client that sends no "
            "\"Accept\" header, as the module does: the server must be set so.");
    case 407:
        return QStringLiteral("The proxy wants a user name and a password.");
    case 414:
        return QStringLiteral("The address is too long for the server, or for something on the way: it must "
                              "take the %1 characters of this query, and more where a user searches.")
            .arg(asked.toEncoded().size());
    case 429:
        return QStringLiteral("Too many requests: the server wants a pause%1. Whoever runs it may allow this "
                              "computer more.")
            .arg(retryAfter.isEmpty() ? QString() : QStringLiteral(" (Retry-After: %1)").arg(retryAfter));
    default:
        break;
    }
    if (status >= 500)
        return QStringLiteral("The server itself is in trouble: try again later, then tell who runs it.");
    if (status < 300)
        return QStringLiteral("The answer was cut short or damaged on the way, perhaps by a filter.");
    return QStringLiteral("The server refuses the query: show this to whoever runs it.");
}

QString FetchResult::ConnectionHint() const
{
    if (errorText.contains(QLatin1String("certificate required"))) {
        return QStringLiteral("The server demands a client certificate, which the module does not have: "
                              "whoever runs it must let clients in without one.");
    }
    if (error == QNetworkReply::ProxyAuthenticationRequiredError)
        return QStringLiteral("The proxy wants a user name and a password.");
    // Qt has no error of its own for most answers of a proxy.
    if (errorText.contains(QLatin1String("proxy"), Qt::CaseInsensitive)) {
        return QStringLiteral(
                   "The proxy does not lead to %1: does it allow this host, and does the host run?")
            .arg(OneLine(url.host()));
    }
    switch (error) {
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::ConnectionRefusedError:
        return QStringLiteral("This computer does not reach %1: is the name right, and does the host run?")
            .arg(OneLine(url.host()));
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return QStringLiteral("The server gives an address that the module does not ask.");
    default:
        return QStringLiteral("The connection broke after it was made: look at filters and virus scanners.");
    }
}

} // namespace korvel::Tools
