#include <server/faults/FaultSyntax.h>

#include <QRegularExpression>
#include <QStringList>

#include <span>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

constexpr char c_nothing[] = "";
constexpr char c_number[] = "\\d{1,9}";
constexpr char c_text[] = ".+";

/// A kind of fault on the command line: its name, what its argument looks like as a regular expression, and
/// what such an argument makes of a fault.
template <typename AnyFault> struct Kind
{
    const char* name;
    const char* argument;
    void (*apply)(AnyFault& fault, const QString& argument);
};

constexpr Kind<Fault> c_requestKinds[] = {
    {"status", c_number, [](Fault& f, const QString& a) { f.WithStatus(a.toInt()); }},
    {"delay", c_number, [](Fault& f, const QString& a) { f.WithDelay(a.toInt()); }},
    {"cut", c_number, [](Fault& f, const QString& a) { f.WithCutAfter(a.toInt()); }},
    {"reset-after", c_number, [](Fault& f, const QString& a) { f.WithResetAfter(a.toInt()); }},
    {"gzip-bomb", c_number, [](Fault& f, const QString& a) { f.WithGzipBomb(a.toInt()); }},
    {"no-type", c_nothing, [](Fault& f, const QString&) { f.WithoutMediaType(); }},
    {"no-answer", c_nothing, [](Fault& f, const QString&) { f.WithoutAnswer(); }},
    {"silent", c_nothing, [](Fault& f, const QString&) { f.WithSilenceAfterHeader(); }},
    {"reset", c_nothing, [](Fault& f, const QString&) { f.WithReset(); }},
    {"close", c_nothing, [](Fault& f, const QString&) { f.WithClose(); }},
    {"chunked", c_nothing, [](Fault& f, const QString&) { f.WithChunks(); }},
    {"broken-gzip", c_nothing, [](Fault& f, const QString&) { f.WithBrokenGzip(); }},
    {"drip", "[1-9]\\d{0,8}/\\d{1,9}",
     [](Fault& f, const QString& a) {
         f.WithDrip(a.section(QLatin1Char('/'), 0, 0).toInt(), a.section(QLatin1Char('/'), 1).toInt());
     }},
    {"type", c_text, [](Fault& f, const QString& a) { f.WithMediaType(a.toLatin1()); }},
    {"body", ".*", [](Fault& f, const QString& a) { f.WithBody(a.toUtf8()); }},
    {"redirect", c_text, [](Fault& f, const QString& a) { f.WithRedirect(a.toUtf8()); }},
};

template <NetworkFault::Kind kind> void ApplyKind(NetworkFault& fault, const QString& argument)
{
    fault.kind = kind;
    fault.value = argument.toInt();
}

template <CertificateKind certificate> void ApplyCertificate(NetworkFault& fault, const QString&)
{
    fault.kind = NetworkFault::Kind::BadCertificate;
    fault.certificate = certificate;
}

constexpr Kind<NetworkFault> c_networkKinds[] = {
    {"refuse", c_nothing, ApplyKind<NetworkFault::Kind::RefuseConnection>},
    {"connect-status", c_number, ApplyKind<NetworkFault::Kind::AnswerConnect>},
    {"no-connect", c_nothing, ApplyKind<NetworkFault::Kind::NeverAnswer>},
    {"garbage", c_nothing, ApplyKind<NetworkFault::Kind::GarbageInsteadOfTls>},
    {"reset-after", c_number, ApplyKind<NetworkFault::Kind::ResetAfter>},
    {"latency", c_number, ApplyKind<NetworkFault::Kind::Latency>},
    {"jitter", c_number, ApplyKind<NetworkFault::Kind::Jitter>},
    {"rate", c_number, ApplyKind<NetworkFault::Kind::ByteRate>},
    {"single-bytes", c_nothing, ApplyKind<NetworkFault::Kind::SingleBytes>},
    {"certificate:expired", c_nothing, ApplyCertificate<CertificateKind::Expired>},
    {"certificate:self-signed", c_nothing, ApplyCertificate<CertificateKind::SelfSigned>},
    {"certificate:wrong-host", c_nothing, ApplyCertificate<CertificateKind::WrongHost>},
    {"certificate:unknown-authority", c_nothing, ApplyCertificate<CertificateKind::UnknownAuthority>},
};

/// A kind that a text names, with what stands around its name.
template <typename AnyFault> struct Named
{
    const Kind<AnyFault>* kind = nullptr; ///< null: none of them, or not with this argument
    QString pattern;
    QString argument;
    int times = -1;
};

template <typename AnyFault> Named<AnyFault> Find(const QString& text, std::span<const Kind<AnyFault>> kinds)
{
    QStringList names;
    for (const Kind<AnyFault>& kind : kinds)
        names.append(QString::fromLatin1(kind.name));
    // Up to the first equals sign with a kind behind it: patterns may hold such signs too.
    const QRegularExpression form(
        u"^(.*?)=(%1)(?::(.*?))?(?:\\*(\\d{1,9}))?$"_s.arg(names.join(QLatin1Char('|'))),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return {};
    const Kind<AnyFault>& kind = kinds[static_cast<std::size_t>(names.indexOf(match.captured(2)))];
    const QRegularExpression argument(QRegularExpression::anchoredPattern(QString::fromLatin1(kind.argument)),
                                      QRegularExpression::DotMatchesEverythingOption);
    if (!argument.match(match.captured(3)).hasMatch())
        return {};
    return {&kind, match.captured(1), match.captured(3),
            match.hasCaptured(4) ? match.captured(4).toInt() : -1};
}

} // namespace

ParsedFault ParseFault(const QString& text)
{
    ParsedFault parsed;
    if (text.startsWith(QLatin1Char('@'))) {
        if (const auto named = Find<NetworkFault>(text.mid(1), c_networkKinds); named.kind != nullptr) {
            parsed.networkFault.emplace();
            parsed.networkFault->host = named.pattern;
            parsed.networkFault->times = named.times;
            named.kind->apply(*parsed.networkFault, named.argument);
            return parsed;
        }
    } else if (const auto named = Find<Fault>(text, c_requestKinds); named.kind != nullptr) {
        parsed.fault = Fault::On(named.pattern).Times(named.times);
        named.kind->apply(*parsed.fault, named.argument);
        return parsed;
    }
    parsed.error = u"Fault \"%1\": no known kind, or not with this argument"_s.arg(text);
    return parsed;
}

QString FaultSyntaxHelp()
{
    return u"Faults of requests, PATTERN=KIND, PATTERN being a part of path and query:\n"
           "  status:CODE  type:MEDIATYPE  no-type  body:TEXT  redirect:URL  delay:MS  no-answer\n"
           "  silent  drip:BYTES/MS  cut:BYTES  close  reset  reset-after:BYTES  chunked  broken-gzip\n"
           "  gzip-bomb:MEGABYTES\n"
           "Faults of connections, @HOST=KIND, @ alone being every host:\n"
           "  refuse  connect-status:CODE  no-connect  garbage  reset-after:BYTES  latency:MS\n"
           "  jitter:MS  rate:BYTES_PER_SECOND  single-bytes\n"
           "  certificate:expired|self-signed|wrong-host|unknown-authority\n"
           "*N at the end limits a fault to N requests or connections."_s;
}

} // namespace korvel::Demo
