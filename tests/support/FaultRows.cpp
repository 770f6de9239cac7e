#include <tests/support/FaultRows.h>
#include <tests/support/QtVersion.h>

#include <QNetworkAccessManager>
#include <QTest>

namespace korvel::Test {

using namespace Data::VenueDatabase;
using namespace Qt::Literals::StringLiterals;
using Demo::CertificateKind;
using Demo::Fault;
using Demo::NetworkFault;

namespace {

using Change = std::function<void(Fault&, const FaultTarget&)>;

constexpr const char* c_html = "text/html; charset=utf-8";
const QByteArray c_page = "<html><body><h1>Something went wrong</h1></body></html>";
const QByteArray c_errors = R"({"errors": [{"status": "500", "title": "Something went wrong"}]})";
/// A body that Qt has given up to unpack leaves less than this of itself.
constexpr qsizetype c_longestScrap = 100'000;
const QByteArray c_elsewhere = "https://third.example/elsewhere";

/// An answer that is honest but for \p change, and taken as one.
FaultRow Harmless(const QByteArray& name, const Change& change)
{
    FaultRow row;
    row.name = name;
    row.make = [change](ScriptedServer& server, const FaultTarget& target) {
        Fault fault = Honest(target);
        change(fault, target);
        server.AddFault(fault);
    };
    row.search = Ok;
    row.picture = Received::Whole;
    row.file = Received::Whole;
    row.viewer = Signals::Image;
    row.isError = false;
    row.status = 200;
    return row;
}

/// An answer whose header arrives and whose body does not, or not in full.
FaultRow Broken(const QByteArray& name, Received received, const Change& change)
{
    FaultRow row = Harmless(name, change);
    row.search = WrongContentType;
    row.picture = received;
    row.file = received;
    row.viewer = Signals::FailedThenImage;
    row.isError = true;
    return row;
}

/// No header arrives.
FaultRow Unanswered(const QByteArray& name, const Change& change)
{
    FaultRow row = Broken(name, Received::Nothing, change);
    row.viewer = Signals::TwoFailures;
    row.status = 0;
    return row;
}

/// An answer of a media type other than the honest one; \p isImage where it begins like that of a picture.
FaultRow OtherType(const QByteArray& name, bool isImage, const Change& change)
{
    FaultRow row = Harmless(name, change);
    row.search = WrongContentType;
    row.picture = isImage ? Received::Whole : Received::Nothing;
    row.viewer = isImage ? Signals::Image : Signals::NotAnImage;
    return row;
}

/// An answer of the right media type, followed by the one of \p second.
FaultRow SecondType(const QByteArray& name, const std::function<QByteArray(const FaultTarget&)>& second)
{
    const Change change
        = [second](Fault& fault, const FaultTarget& target) { fault.WithSecondMediaType(second(target)); };
    return c_tellsFirstMediaType ? Harmless(name, change) : OtherType(name, true, change);
}

/// An error page.
FaultRow Page(int status, const char* mediaType, const QByteArray& page, const char* name)
{
    FaultRow row = Broken(QByteArray("status ") + QByteArray::number(status) + " as " + name, Received::Page,
                          [=](Fault& fault, const FaultTarget&) {
                              fault.WithStatus(status).WithMediaType(mediaType).WithBody(page);
                          });
    row.picture = Received::Nothing;
    row.viewer = Signals::TwoFailures;
    row.status = status;
    row.page = page;
    return row;
}

/// An error status with a body that is an image, or at least called one.
FaultRow ImagePage(int status)
{
    FaultRow row = Broken(
        "status " + QByteArray::number(status) + " as an image", Received::Whole,
        [status](Fault& fault, const FaultTarget&) { fault.WithStatus(status).WithMediaType("image/png"); });
    row.status = status;
    return row;
}

/// An error status with the honest body and media type.
FaultRow HonestPage(int status)
{
    FaultRow row = ImagePage(status);
    row.name = "status " + QByteArray::number(status) + " with the right media type";
    row.make = [status](ScriptedServer& server, const FaultTarget& target) {
        server.AddFault(Honest(target).WithStatus(status));
    };
    // The file's bytes come whatever they are called.
    return row;
}

/// A status without a body and without a media type, which is no error.
FaultRow Bodiless(int status)
{
    FaultRow row = OtherType("status " + QByteArray::number(status), false,
                             [status](Fault& fault, const FaultTarget&) {
                                 fault.WithStatus(status).WithBody({}).WithoutMediaType();
                             });
    row.file = Received::Nothing;
    row.status = status;
    return row;
}

/// A demand for credentials that nobody gives.
FaultRow Demand(int status, const QByteArray& header, const QByteArray& challenge)
{
    FaultRow row = Page(status, c_html, c_page, "a demand");
    row.name = "status " + QByteArray::number(status) + ": " + challenge.split(' ').first();
    row.make = [=](ScriptedServer& server, const FaultTarget& target) {
        server.AddFault(Honest(target).WithStatus(status).WithMediaType(c_html).WithBody(c_page).WithHeader(
            header, challenge));
    };
    return row;
}

/// A redirection to \p url, where the honest answer is, whoever may fetch it.
FaultRow Redirect(const QByteArray& name, const QByteArray& url, int status = 302)
{
    FaultRow row = Harmless("redirect " + name, [](Fault&, const FaultTarget&) { });
    row.make = [=](ScriptedServer& server, const FaultTarget& target) {
        server.Server().AddHost(u"third.example"_s);
        server.AddFault(Fault::OnPattern(target.request).WithRedirect(url, status).WithMediaType(c_html));
        FaultTarget elsewhere = target;
        elsewhere.request = QRegularExpression(u"^/elsewhere$"_s);
        server.AddFault(Honest(elsewhere));
    };
    return row;
}

/// A redirection that is not followed.
FaultRow RefusedRedirect(const QByteArray& name, const QByteArray& url)
{
    const FaultRow followed = Redirect(name, url);
    FaultRow row = Broken(followed.name, Received::Nothing, {});
    row.make = followed.make;
    row.viewer = Signals::TwoFailures;
    row.status = 302;
    return row;
}

/// \p hops redirections in a row before the honest answer.
FaultRow RedirectChain(const QByteArray& name, int hops, FaultRow row)
{
    row.name = name;
    row.make = [hops](ScriptedServer& server, const FaultTarget& target) {
        const auto hop = [](int number) { return "/hop" + QByteArray::number(number) + "."; };
        server.AddFault(Fault::OnPattern(target.request).WithRedirect(hop(1)).WithMediaType(c_html));
        for (int number = 1; number < hops; ++number) {
            server.AddFault(Fault::On(QString::fromLatin1(hop(number)))
                                .WithRedirect(hop(number + 1))
                                .WithMediaType(c_html));
        }
        FaultTarget end = target;
        end.request = QRegularExpression(QRegularExpression::escape(QString::fromLatin1(hop(hops))));
        server.AddFault(Honest(end));
    };
    return row;
}

/// A fault below HTTP that does no more than to slow the answer down.
FaultRow Slow(const QByteArray& name, NetworkFault::Kind kind, qint64 value = 0)
{
    FaultRow row = Harmless(name, [](Fault&, const FaultTarget&) { });
    row.make = [kind, value](ScriptedServer& server, const FaultTarget& target) {
        server.AddFault(NetworkFault{.kind = kind, .value = value, .host = target.host});
        server.AddFault(Honest(target));
    };
    return row;
}

/// A fault below HTTP through which no request gets.
FaultRow Unreachable(const QByteArray& name, const NetworkFault& fault)
{
    FaultRow row = Unanswered(name, {});
    row.make = [fault](ScriptedServer& server, const FaultTarget& target) {
        NetworkFault due = fault;
        due.host = target.host;
        due.skip = target.host.isEmpty() ? target.requestsBefore : 0;
        server.AddFault(due);
        server.AddFault(Honest(target));
    };
    row.isRequestSent = false;
    return row;
}

FaultRow Unreachable(const QByteArray& name, NetworkFault::Kind kind, qint64 value = 0)
{
    return Unreachable(name, NetworkFault{.kind = kind, .value = value, .host = {}});
}

FaultRow BadCertificate(const QByteArray& name, CertificateKind certificate)
{
    return Unreachable("certificate " + name,
                       {.kind = NetworkFault::Kind::BadCertificate, .certificate = certificate, .host = {}});
}

/// Something happens to the way to the server once the requests that go well have finished.
FaultRow WayLost(const QByteArray& name, const std::function<void(ScriptedServer&)>& lose)
{
    FaultRow row = Unreachable(name, NetworkFault());
    row.make = [lose](ScriptedServer& server, const FaultTarget& target) {
        if (target.requestsBefore == 0) {
            lose(server);
            return;
        }
        QObject::connect(target.manager, &QNetworkAccessManager::finished, target.manager,
                         [&server, lose, left = target.requestsBefore]() mutable {
                             if (--left == 0)
                                 lose(server);
                         });
    };
    return row;
}

/// Bytes that are no answer, or a damaged one.
FaultRow Raw(const QByteArray& name, const QByteArray& bytes)
{
    FaultRow row = Unanswered(name, {});
    row.make = [bytes](ScriptedServer& server, const FaultTarget& target) {
        server.AddFault(Fault::OnPattern(target.request)
                            .WithRawAnswer(QByteArray(bytes).replace("TYPE", target.mediaType)));
    };
    return row;
}

QList<FaultRow> ConnectionRows()
{
    using Kind = NetworkFault::Kind;
    QList<FaultRow> rows{
        Unreachable("connection refused", Kind::RefuseConnection),
        WayLost("proxy down", [](ScriptedServer& server) { server.Server().Stop(); }),
        WayLost("proxy unknown", [](ScriptedServer& server) { server.HideProxy(); }),
        Unreachable("connection reset at once", Kind::ResetAfter, 0),
        Unreachable("connection reset in the handshake", Kind::ResetAfter, 150),
        Unreachable("no TLS", Kind::GarbageInsteadOfTls),
        BadCertificate("of an unknown authority", CertificateKind::UnknownAuthority),
        BadCertificate("signed by itself", CertificateKind::SelfSigned),
        BadCertificate("that has expired", CertificateKind::Expired),
        BadCertificate("of another host", CertificateKind::WrongHost),
    };
    rows.first().isEndlessForQueries = true;
    // 404 is the proxy's word for a host that it does not know.
    for (const int status : {302, 400, 403, 404, 407, 500, 502, 503, 504})
        rows.append(Unreachable("proxy answers " + QByteArray::number(status), Kind::AnswerConnect, status));
    return rows;
}

QList<FaultRow> SlowRows()
{
    using Kind = NetworkFault::Kind;
    return {
        Harmless("one byte at a time, chunked",
                 [](Fault& fault, const FaultTarget&) { fault.WithChunks().WithDrip(1, 0); }),
        Harmless("chunks of an odd size",
                 [](Fault& fault, const FaultTarget&) { fault.WithChunks().WithDrip(997, 3); }),
        Harmless("late answer", [](Fault& fault, const FaultTarget&) { fault.WithDelay(300); }),
        Slow("every byte in a packet of its own", Kind::SingleBytes),
        Slow("latency", Kind::Latency, 60),
        Slow("jitter", Kind::Jitter, 80),
        Slow("narrow line", Kind::ByteRate, 100'000),
    };
}

QList<FaultRow> BrokenBodyRows()
{
    const qsizetype begin = FaultRow::c_begin;
    return {
        Unanswered("reset before the header", [](Fault& fault, const FaultTarget&) { fault.WithReset(); }),
        Unanswered("closed before the header", [](Fault& fault, const FaultTarget&) { fault.WithClose(); }),
        Broken("cut before the body", Received::Nothing,
               [](Fault& fault, const FaultTarget&) { fault.WithCutAfter(0); }),
        Broken("cut in the body", Received::Begin,
               [=](Fault& fault, const FaultTarget&) { fault.WithCutAfter(begin); }),
        Broken("cut in a chunked body", Received::Begin,
               [=](Fault& fault, const FaultTarget&) { fault.WithChunks().WithCutAfter(begin); }),
        Broken("reset in the body", Received::Begin,
               [=](Fault& fault, const FaultTarget&) { fault.WithResetAfter(begin); }),
        Broken("reset in a chunked body", Received::Begin,
               [=](Fault& fault, const FaultTarget&) { fault.WithChunks().WithResetAfter(begin); }),
        Broken("broken gzip", Received::Nothing,
               [](Fault& fault, const FaultTarget&) { fault.WithBrokenGzip(); }),
        Broken("gzip bomb", Received::Scrap,
               [](Fault& fault, const FaultTarget&) { fault.WithGzipBomb(50); }),
        Raw("other protocol", "SSH-2.0-OpenSSH_9.2\r\n"),
        Raw("body without a header", c_page),
        Raw("status line without a number", "HTTP/1.1 good OK\r\nContent-Type: TYPE\r\n\r\n{}"),
        Raw("header without an end", "HTTP/1.1 200 OK\r\nContent-Type: TYPE\r\nContent-Le"),
    };
}

/// The answer comes behind another one of \p status, which Qt 6.4 takes for it.
FaultRow EarlyAnswer(int status, const QByteArray& header = {})
{
    const QByteArray name = "status " + QByteArray::number(status) + " first";
    const QByteArray early = "HTTP/1.1 " + QByteArray::number(status) + " Early\r\n" + header + "\r\n";
    const Change change = [early](Fault& fault, const FaultTarget& target) {
        fault.WithEarlyAnswer(QByteArray(early).replace("TYPE", target.mediaType));
    };
    if (c_skipsEarlyAnswers)
        return Harmless(name, change);
    FaultRow row = Unanswered(name, change);
    row.status = status;
    return row;
}

QList<FaultRow> EarlyAnswerRows()
{
    FaultRow typed = EarlyAnswer(103, "Content-Type: TYPE\r\n");
    typed.name += ", with the right media type";
    FaultRow alone = Raw("status 103 and nothing else", "HTTP/1.1 103 Early Hints\r\nLink: </a.css>\r\n\r\n");
    alone.status = c_skipsEarlyAnswers ? 0 : 103;
    // Every Qt knows that this one is no answer.
    FaultRow harmless = Harmless("status 100 first", [](Fault& fault, const FaultTarget&) {
        fault.WithEarlyAnswer("HTTP/1.1 100 Continue\r\n\r\n");
    });
    return {harmless, EarlyAnswer(102), EarlyAnswer(103), EarlyAnswer(199), typed, alone};
}

QList<FaultRow> StatusRows()
{
    QList<FaultRow> rows;
    for (const int status : {400, 403, 404, 410, 429, 500, 502, 503})
        rows.append(Page(status, c_html, c_page, "HTML"));
    for (const int status : {400, 404, 500, 503})
        rows.append(Page(status, "application/vnd.api+json", c_errors, "JSON:API errors"));
    for (const int status : {404, 500, 503})
        rows.append(ImagePage(status));
    for (const int status : {401, 403, 404, 410, 418, 429, 500, 502, 503})
        rows.append(HonestPage(status));
    for (const int status : {204, 304})
        rows.append(Bodiless(status));
    const QByteArray basic = R"(Basic realm="venues")";
    rows.append(Demand(401, "WWW-Authenticate", basic));
    rows.append(Demand(401, "WWW-Authenticate", R"(Digest realm="venues", nonce="1", qop="auth")"));
    rows.append(Demand(401, "WWW-Authenticate", "NTLM"));
    rows.append(Demand(401, "WWW-Authenticate", "Negotiate"));
    rows.append(Demand(407, "Proxy-Authenticate", basic));
    return rows;
}

QList<FaultRow> RedirectRows()
{
    QList<FaultRow> rows;
    for (const int status : {301, 302, 303, 307, 308}) {
        rows.append(
            Redirect("of status " + QByteArray::number(status) + " to the same host", "/elsewhere", status));
    }
    rows.append(Redirect("to another https host", c_elsewhere));
    rows.append(RefusedRedirect("to http", "http://third.example/elsewhere"));
    rows.append(RefusedRedirect("to a file", "file:///etc/passwd"));
    rows.append(RefusedRedirect("to a resource", "qrc:/Resources/korvelFullscreen.svg"));
    rows.append(RefusedRedirect("to ftp", "ftp://third.example/elsewhere"));
    rows.append(RefusedRedirect("to data", "data:image/png;base64,AAAA"));
    rows.append(RefusedRedirect("to a script", "javascript:alert(1)"));
    rows.append(RedirectChain("50 redirects", 50, Redirect({}, {})));
    rows.append(RedirectChain("51 redirects", 51, RefusedRedirect({}, {})));

    FaultRow loop = RefusedRedirect("in a circle", "/elsewhere");
    loop.make = [](ScriptedServer& server, const FaultTarget& target) {
        server.AddFault(Fault::OnPattern(target.request).WithRedirect("/loop").WithMediaType(c_html));
        server.AddFault(Fault::On(u"/loop"_s).WithRedirect("/loop").WithMediaType(c_html));
    };
    rows.append(loop);

    // Its media type alone makes it a picture, if an empty one.
    FaultRow image = RefusedRedirect("to http, as the right media type", "http://third.example/elsewhere");
    image.make = [](ScriptedServer& server, const FaultTarget& target) {
        server.AddFault(Honest(target).WithRedirect("http://third.example/elsewhere"));
    };
    image.viewer = Signals::FailedThenImage;
    rows.append(image);
    return rows;
}

QList<FaultRow> MediaTypeRows()
{
    QList<FaultRow> rows;
    for (const char* type : {"text/html", "application/json", "application/octet-stream", "x-image/png"}) {
        rows.append(OtherType(QByteArray("media type ") + type, false,
                              [type](Fault& fault, const FaultTarget&) { fault.WithMediaType(type); }));
    }
    rows.append(OtherType("media type with a charset", true, [](Fault& fault, const FaultTarget& target) {
        fault.WithMediaType(target.mediaType + "; charset=utf-8");
    }));
    rows.append(OtherType("media type in capitals", false, [](Fault& fault, const FaultTarget& target) {
        fault.WithMediaType(target.mediaType.toUpper());
    }));
    rows.append(SecondType("media type twice", [](const FaultTarget& target) { return target.mediaType; }));
    rows.append(SecondType("right media type, then another", [](const FaultTarget&) { return "text/html"; }));
    rows.append(OtherType("no media type", false,
                          [](Fault& fault, const FaultTarget&) { fault.WithoutMediaType(); }));
    return rows;
}

FaultRow TimedOut(FaultRow row)
{
    row.search = Timeout;
    row.picture = Received::Nothing;
    row.file = Received::Nothing;
    row.isError = true;
    return row;
}

} // namespace

Fault Honest(const FaultTarget& target)
{
    return Fault::OnPattern(target.request)
        .WithStatus(200)
        .WithBody(target.body)
        .WithMediaType(target.mediaType);
}

QList<FaultRow> FaultRows()
{
    QList<FaultRow> rows = ViewerFaultRows();
    rows.removeIf([](const FaultRow& row) { return row.isEndlessForQueries; });
    return rows;
}

QList<FaultRow> EndlessFaultRows()
{
    QList<FaultRow> rows = EndlessViewerFaultRows();
    for (const FaultRow& row : ViewerFaultRows())
        if (row.isEndlessForQueries)
            rows.append(TimedOut(row));
    return rows;
}

QList<FaultRow> ViewerFaultRows()
{
    return ConnectionRows() + SlowRows() + BrokenBodyRows() + EarlyAnswerRows() + StatusRows()
        + RedirectRows() + MediaTypeRows();
}

QList<FaultRow> EndlessViewerFaultRows()
{
    using Kind = NetworkFault::Kind;
    FaultRow silentProxy = TimedOut(Unreachable("proxy that never answers", Kind::NeverAnswer));
    FaultRow silent
        = TimedOut(Unanswered("no answer", [](Fault& fault, const FaultTarget&) { fault.WithoutAnswer(); }));
    FaultRow halfSilent = TimedOut(Unanswered(
        "header and then silence", [](Fault& fault, const FaultTarget&) { fault.WithSilenceAfterHeader(); }));
    halfSilent.status = 200;
    FaultRow drip = TimedOut(Unanswered("slow drip past the time-out",
                                        [](Fault& fault, const FaultTarget&) { fault.WithDrip(10, 500); }));
    drip.status = 200;
    return {silentProxy, silent, halfSilent, drip};
}

FaultRow JustInTimeRow()
{
    return Harmless("answer just in time", [](Fault& fault, const FaultTarget&) { fault.WithDelay(28'000); });
}

void AddFaultRows(const QList<FaultRow>& rows)
{
    QTest::addColumn<FaultRow>("fault");
    for (const FaultRow& row : rows)
        QTest::newRow(row.name.constData()) << row;
}

QString FailureMessage(const FaultRow& row, const QString& what, const QString& place)
{
    const QString status = row.status == 0 ? u"no HTTP status"_s : u"HTTP status %1"_s.arg(row.status);
    return u"^%1 failed: %2 - %3 - .+$"_s.arg(what, QRegularExpression::escape(place), status);
}

void VerifyNothingLeft(const FaultRow& row, ScriptedServer& server, int requests)
{
    if (row.isRequestSent)
        return;
    QCOMPARE(server.Log().RequestCount(), requests);
    QCOMPARE(server.ReceivedBytesAfter(requests), 0);
}

QString ReceivedComplaint(Received expected, const FaultRow& row, const FaultTarget& target,
                          const QByteArray& bytes)
{
    QByteArray right;
    switch (expected) {
    case Received::Nothing:
        break;
    case Received::Whole:
        right = target.body;
        break;
    case Received::Page:
        right = row.page;
        break;
    case Received::Begin:
        right = target.body.left(FaultRow::c_begin);
        break;
    case Received::Scrap:
        right = bytes.left(c_longestScrap);
        break;
    }
    return bytes == right ? QString()
                          : u"%1 bytes instead of %2: %3"_s.arg(bytes.size())
                                .arg(right.size())
                                .arg(QString::fromLatin1(bytes.left(50)));
}

} // namespace korvel::Test
