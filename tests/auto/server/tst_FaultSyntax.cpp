#include <server/faults/FaultSyntax.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

using namespace korvel::Demo;
using namespace korvel::Test;

class tst_FaultSyntax : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void PatternMayHoldEqualsSigns();
    void EffectsAreRead();
    void TimesAreRead();
    void RedirectMayHoldColonsAndEqualsSigns();
    void HostFaultsAreRead();
    void MistakesAreReported_data();
    void MistakesAreReported();
};

void tst_FaultSyntax::PatternMayHoldEqualsSigns()
{
    const ParsedFault parsed = ParseFault(QStringLiteral("filter[entity_id]=7=status:503"));
    QVERIFY2(parsed.fault.has_value(), qPrintable(parsed.error));
    QCOMPARE(parsed.fault->GetEffect().status, 503);
    QVERIFY(parsed.fault->Matches({}, "/api/venue?filter%5Bentity_id%5D=7"));
    QVERIFY(!parsed.fault->Matches({}, "/api/venue?filter%5Bentity_id%5D=8"));
}

void tst_FaultSyntax::EffectsAreRead()
{
    const auto effect = [](const char* kind) {
        return ParseFault(QStringLiteral("/api=") + QString::fromLatin1(kind)).fault.value().GetEffect();
    };
    QCOMPARE(effect("delay:250").delay, 250);
    QCOMPARE(effect("cut:12").cutAfter, 12);
    QCOMPARE(effect("reset-after:12").resetAfter, 12);
    QCOMPARE(effect("gzip-bomb:5").gzipBombMegabytes, 5);
    QCOMPARE(effect("drip:10/200").dripBytes, 10);
    QCOMPARE(effect("drip:10/200").dripInterval, 200);
    QCOMPARE(effect("type:text/html").mediaType, QByteArray("text/html"));
    QCOMPARE(effect("body:").body, QByteArray());
    QVERIFY(effect("no-type").noMediaType);
    QVERIFY(effect("no-answer").noAnswer);
    QVERIFY(effect("silent").silentAfterHeader);
    QVERIFY(effect("reset").reset);
    QCOMPARE(effect("close").rawAnswer, QByteArray());
    QVERIFY(effect("chunked").chunked);
    QVERIFY(effect("broken-gzip").brokenGzip);
}

void tst_FaultSyntax::TimesAreRead()
{
    QCOMPARE(ParseFault(QStringLiteral("/api=status:500*2")).fault.value().GetTimes(), 2);
    QCOMPARE(ParseFault(QStringLiteral("/api=reset*3")).fault.value().GetTimes(), 3);
    QCOMPARE(ParseFault(QStringLiteral("/api=reset")).fault.value().GetTimes(), -1);
}

void tst_FaultSyntax::RedirectMayHoldColonsAndEqualsSigns()
{
    const Fault fault
        = ParseFault(QStringLiteral("/api=redirect:https://second.example/api?a=b")).fault.value();
    QCOMPARE(fault.GetEffect().status, 302);
    QCOMPARE(fault.GetEffect().headers.constFirst().second, QByteArray("https://second.example/api?a=b"));
}

void tst_FaultSyntax::HostFaultsAreRead()
{
    const NetworkFault status
        = ParseFault(QStringLiteral("@second.example=connect-status:403*1")).networkFault.value();
    QCOMPARE(status.kind, NetworkFault::Kind::AnswerConnect);
    QCOMPARE(status.value, 403);
    QCOMPARE(status.host, QStringLiteral("second.example"));
    QCOMPARE(status.times, 1);
    const NetworkFault jitter = ParseFault(QStringLiteral("@=jitter:80")).networkFault.value();
    QCOMPARE(jitter.kind, NetworkFault::Kind::Jitter);
    QCOMPARE(jitter.value, 80);
    const NetworkFault certificate = ParseFault(QStringLiteral("@=certificate:expired")).networkFault.value();
    QCOMPARE(certificate.kind, NetworkFault::Kind::BadCertificate);
    QCOMPARE(certificate.certificate, CertificateKind::Expired);
    QCOMPARE(certificate.host, QString());
}

void tst_FaultSyntax::MistakesAreReported_data()
{
    const Rows<QString> row("text");
    row("empty", {});
    row("no kind", QStringLiteral("/api/venue"));
    row("unknown kind", QStringLiteral("/api=explode"));
    row("number missing", QStringLiteral("/api=status"));
    row("no number", QStringLiteral("/api=delay:soon"));
    row("negative number", QStringLiteral("/api=cut:-1"));
    row("argument too many", QStringLiteral("/api=reset:5"));
    row("times not a number", QStringLiteral("/api=reset*x"));
    row("drip without interval", QStringLiteral("/api=drip:5"));
    row("request kind for a host", QStringLiteral("@h=status:500"));
    row("connection kind for a request", QStringLiteral("/api=refuse"));
    row("unknown certificate", QStringLiteral("@h=certificate:old"));
}

void tst_FaultSyntax::MistakesAreReported()
{
    QFETCH(QString, text);
    const ParsedFault parsed = ParseFault(text);
    QVERIFY(!parsed.fault.has_value());
    QVERIFY(!parsed.networkFault.has_value());
    QVERIFY2(parsed.error.contains(text), qPrintable(parsed.error));
}

QTEST_GUILESS_MAIN(tst_FaultSyntax)
#include "tst_FaultSyntax.moc"
