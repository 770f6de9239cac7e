#include <server/faults/FaultSyntax.h>

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <functional>

namespace korvel::Demo {

namespace {

/// Each applies its argument; false when it cannot be understood.
using ApplyToFault = std::function<bool(Fault&, const QString&)>;
using ApplyToNetworkFault = std::function<bool(NetworkFault&, const QString&)>;

bool ReadNumber(const QString& text, qint64* number)
{
    bool isNumber = false;
    *number = text.toLongLong(&isNumber);
    return isNumber && *number >= 0;
}

ApplyToFault WithNumber(const std::function<void(Fault&, qint64)>& apply)
{
    return [apply](Fault& fault, const QString& argument) {
        qint64 number = 0;
        const bool isNumber = ReadNumber(argument, &number);
        if (isNumber) {
            apply(fault, number);
        }
        return isNumber;
    };
}

ApplyToFault WithoutArgument(const std::function<void(Fault&)>& apply)
{
    return [apply](Fault& fault, const QString& argument) {
        apply(fault);
        return argument.isEmpty();
    };
}

ApplyToNetworkFault NetworkKind(NetworkFault::Kind kind, bool takesNumber)
{
    return [kind, takesNumber](NetworkFault& fault, const QString& argument) {
        fault.kind = kind;
        return takesNumber ? ReadNumber(argument, &fault.value) : argument.isEmpty();
    };
}

bool ApplyDrip(Fault& fault, const QString& argument)
{
    qint64 bytes = 0;
    qint64 milliseconds = 0;
    const bool isUnderstood = ReadNumber(argument.section(QLatin1Char('/'), 0, 0), &bytes) && bytes > 0
        && ReadNumber(argument.section(QLatin1Char('/'), 1), &milliseconds);
    fault.WithDrip(bytes, static_cast<int>(milliseconds));
    return isUnderstood;
}

bool ApplyCertificate(NetworkFault& fault, const QString& argument)
{
    static const QHash<QString, CertificateKind> c_kinds{
        {QStringLiteral("expired"), CertificateKind::Expired},
        {QStringLiteral("self-signed"), CertificateKind::SelfSigned},
        {QStringLiteral("wrong-host"), CertificateKind::WrongHost},
        {QStringLiteral("unknown-authority"), CertificateKind::UnknownAuthority},
    };
    fault.kind = NetworkFault::Kind::BadCertificate;
    fault.certificate = c_kinds.value(argument, CertificateKind::Good);
    return fault.certificate != CertificateKind::Good;
}

const QHash<QString, ApplyToFault>& RequestKinds()
{
    static const QHash<QString, ApplyToFault> c_kinds{
        {QStringLiteral("status"), WithNumber([](Fault& f, qint64 n) { f.WithStatus(static_cast<int>(n)); })},
        {QStringLiteral("delay"), WithNumber([](Fault& f, qint64 n) { f.WithDelay(static_cast<int>(n)); })},
        {QStringLiteral("cut"), WithNumber([](Fault& f, qint64 n) { f.WithCutAfter(n); })},
        {QStringLiteral("reset-after"), WithNumber([](Fault& f, qint64 n) { f.WithResetAfter(n); })},
        {QStringLiteral("gzip-bomb"),
         WithNumber([](Fault& f, qint64 n) { f.WithGzipBomb(static_cast<int>(n)); })},
        {QStringLiteral("no-type"), WithoutArgument([](Fault& f) { f.WithoutMediaType(); })},
        {QStringLiteral("no-answer"), WithoutArgument([](Fault& f) { f.WithoutAnswer(); })},
        {QStringLiteral("silent"), WithoutArgument([](Fault& f) { f.WithSilenceAfterHeader(); })},
        {QStringLiteral("reset"), WithoutArgument([](Fault& f) { f.WithReset(); })},
        {QStringLiteral("close"), WithoutArgument([](Fault& f) { f.WithClose(); })},
        {QStringLiteral("chunked"), WithoutArgument([](Fault& f) { f.WithChunks(); })},
        {QStringLiteral("broken-gzip"), WithoutArgument([](Fault& f) { f.WithBrokenGzip(); })},
        {QStringLiteral("drip"), &ApplyDrip},
        {QStringLiteral("type"),
         [](Fault& f, const QString& argument) {
             f.WithMediaType(argument.toLatin1());
             return !argument.isEmpty();
         }},
        {QStringLiteral("body"),
         [](Fault& f, const QString& argument) {
             f.WithBody(argument.toUtf8());
             return true;
         }},
        {QStringLiteral("redirect"),
         [](Fault& f, const QString& argument) {
             f.WithRedirect(argument.toUtf8());
             return !argument.isEmpty();
         }},
    };
    return c_kinds;
}

const QHash<QString, ApplyToNetworkFault>& NetworkKinds()
{
    using Kind = NetworkFault::Kind;
    static const QHash<QString, ApplyToNetworkFault> c_kinds{
        {QStringLiteral("refuse"), NetworkKind(Kind::RefuseConnection, false)},
        {QStringLiteral("connect-status"), NetworkKind(Kind::AnswerConnect, true)},
        {QStringLiteral("no-connect"), NetworkKind(Kind::NeverAnswer, false)},
        {QStringLiteral("garbage"), NetworkKind(Kind::GarbageInsteadOfTls, false)},
        {QStringLiteral("reset-after"), NetworkKind(Kind::ResetAfter, true)},
        {QStringLiteral("latency"), NetworkKind(Kind::Latency, true)},
        {QStringLiteral("jitter"), NetworkKind(Kind::Jitter, true)},
        {QStringLiteral("rate"), NetworkKind(Kind::ByteRate, true)},
        {QStringLiteral("single-bytes"), NetworkKind(Kind::SingleBytes, false)},
        {QStringLiteral("certificate"), &ApplyCertificate},
    };
    return c_kinds;
}

/// The position of the equals sign before the first word that is one of \p kinds: patterns may hold such
/// signs too.
qsizetype FindKind(const QString& text, const QStringList& kinds)
{
    const QRegularExpression expression(
        QStringLiteral("=(?:%1)(?=[:*]|$)").arg(kinds.join(QLatin1Char('|'))));
    return text.indexOf(expression);
}

} // namespace

ParsedFault ParseFault(const QString& text)
{
    const auto fail = [&text](const QString& reason) {
        return ParsedFault{
            .fault = {}, .networkFault = {}, .error = QStringLiteral("Fault \"%1\": %2").arg(text, reason)};
    };
    const bool isForHost = text.startsWith(QLatin1Char('@'));
    const qsizetype equals = FindKind(text, isForHost ? NetworkKinds().keys() : RequestKinds().keys());
    if (equals < 0) {
        return fail(QStringLiteral("no known kind"));
    }
    QString kind = text.mid(equals + 1);
    int times = -1;
    static const QRegularExpression c_times(QStringLiteral("\\*(\\d+)$"));
    if (const QRegularExpressionMatch match = c_times.match(kind); match.hasMatch()) {
        times = match.captured(1).toInt();
        kind.truncate(match.capturedStart());
    }
    const QString argument = kind.section(QLatin1Char(':'), 1);
    kind = kind.section(QLatin1Char(':'), 0, 0);
    if (isForHost) {
        NetworkFault fault;
        fault.host = text.mid(1, equals - 1);
        fault.times = times;
        return NetworkKinds().value(kind)(fault, argument)
            ? ParsedFault{.fault = {}, .networkFault = fault, .error = {}}
            : fail(QStringLiteral("argument not understood"));
    }
    Fault fault = Fault::On(text.left(equals)).Times(times);
    return RequestKinds().value(kind)(fault, argument)
        ? ParsedFault{.fault = fault, .networkFault = {}, .error = {}}
        : fail(QStringLiteral("argument not understood"));
}

QString FaultSyntaxHelp()
{
    return QStringLiteral(
        "Faults of requests, PATTERN=KIND, PATTERN being a part of path and query:\n"
        "  status:CODE  type:MEDIATYPE  no-type  body:TEXT  redirect:URL  delay:MS  no-answer\n"
        "  silent  drip:BYTES/MS  cut:BYTES  close  reset  reset-after:BYTES  chunked  broken-gzip\n"
        "  gzip-bomb:MEGABYTES\n"
        "Faults of connections, @HOST=KIND, @ alone being every host:\n"
        "  refuse  connect-status:CODE  no-connect  garbage  reset-after:BYTES  latency:MS\n"
        "  jitter:MS  rate:BYTES_PER_SECOND  single-bytes\n"
        "  certificate:expired|self-signed|wrong-host|unknown-authority\n"
        "*N at the end limits a fault to N requests or connections.");
}

} // namespace korvel::Demo
