#include <tools/vdbprobe/FetchResult.h>

#include <tools/vdbprobe/JsonApiAnswer.h>
#include <tools/vdbprobe/SafeText.h>

using namespace Qt::StringLiterals;

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
    const QString where
        = WasRedirected() ? u"%1, redirected from %2"_s.arg(Address(url), Address(asked)) : Address(url);
    const double seconds = timeout / 1000.0;
    if (!wasInTime && status == 0)
        return u"no answer from %1 within %2 s"_s.arg(where).arg(seconds);
    if (!wasInTime) {
        return u"HTTP status %1, but the body did not come within %2 s: %3 bytes of it are here (%4)"_s
            .arg(status)
            .arg(seconds)
            .arg(receivedBytes)
            .arg(where);
    }
    const QString statusText = status > 0 ? u"HTTP status %1"_s.arg(status) : u"no HTTP status"_s;
    QString text = u"%1, %2 (%3)"_s.arg(statusText, errorText, where);
    if (error == QNetworkReply::NoError)
        text = u"%1, no body (%2)"_s.arg(statusText, where);
    if (!refusedRedirect.isEmpty())
        text += u", redirect to %1"_s.arg(Address(refusedRedirect));
    const QString words = JsonApiAnswer(body).Words();
    return words.isEmpty() ? text : text + u"; the answer says: %1"_s.arg(words);
}

QString FetchResult::Hint() const
{
    if (!wasInTime && status == 0)
        return u"The server is overloaded or something on the way holds the answer back."_s;
    if (!wasInTime) {
        return u"The server answers, but it or something on the way, perhaps a virus scanner, "
               "holds the body back."_s;
    }
    if (error == QNetworkReply::InsecureRedirectError) {
        return u"The server sends the module to an address that is not encrypted. The module "
               "does not go there: the server must answer itself, or redirect to https."_s;
    }
    if (error == QNetworkReply::TooManyRedirectsError)
        return u"The server sends the module from one address to the next without an end."_s;
    if (!refusedRedirect.isEmpty()) {
        return u"The server sends the module to an address where it does not go: the server "
               "must answer itself, or redirect to https."_s;
    }
    // The status that led to another host is all that there is when that one cannot be reached.
    const bool hasAnswer = status > 0 && !(WasRedirected() && status >= 300 && status < 400);
    return hasAnswer ? StatusHint() : ConnectionHint();
}

QString FetchResult::StatusHint() const
{
    switch (status) {
    case c_noContent:
        return u"The server has nothing to say to this query: is it a venue database, and has "
               "it data?"_s;
    case c_notModified:
        return u"\"Not modified\", though nobody asked whether it was: a cache before the server "
               "is set up wrongly."_s;
    case 400:
        return u"The server does not understand the module's query: does it know \"include\" and "
               "\"filter\" as the module sends them? Some answer so, too, where they want a "
               "client certificate."_s;
    case 401:
    case 403:
        return u"The server, or a filter on the way, does not let this computer in."_s;
    case 404:
    case 410:
        return u"There is nothing at this address: is this host a venue database?"_s;
    case 406:
        return u"The server does not offer \"application/vnd.api+json\" to a client that sends no "
               "\"Accept\" header, as the module does: the server must be set so."_s;
    case 407:
        return u"The proxy wants a user name and a password."_s;
    case 414:
        return u"The address is too long for the server, or for something on the way: it must "
               "take the %1 characters of this query, and more where a user searches."_s.arg(
                   asked.toEncoded().size());
    case 429:
        return u"Too many requests: the server wants a pause%1. Whoever runs it may allow this "
               "computer more."_s.arg(retryAfter.isEmpty() ? QString()
                                                           : u" (Retry-After: %1)"_s.arg(retryAfter));
    default:
        break;
    }
    if (status >= 500)
        return u"The server itself is in trouble: try again later, then tell who runs it."_s;
    if (status < 300)
        return u"The answer was cut short or damaged on the way, perhaps by a filter."_s;
    return u"The server refuses the query: show this to whoever runs it."_s;
}

QString FetchResult::ConnectionHint() const
{
    if (errorText.contains("certificate required"_L1)) {
        return u"The server demands a client certificate, which the module does not have: "
               "whoever runs it must let clients in without one."_s;
    }
    if (error == QNetworkReply::ProxyAuthenticationRequiredError)
        return u"The proxy wants a user name and a password."_s;
    // Qt has no error of its own for most answers of a proxy.
    if (errorText.contains("proxy"_L1, Qt::CaseInsensitive)) {
        return u"The proxy does not lead to %1: does it allow this host, and does the host run?"_s.arg(
            OneLine(url.host()));
    }
    switch (error) {
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::ConnectionRefusedError:
        return u"This computer does not reach %1: is the name right, and does the host run?"_s.arg(
            OneLine(url.host()));
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return u"The server gives an address that the module does not ask."_s;
    default:
        return u"The connection broke after it was made: look at filters and virus scanners."_s;
    }
}

} // namespace korvel::Tools
