#include <server/faults/FaultSyntax.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

class tst_FaultSyntax : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void PatternMayHoldEqualsSigns()
    {
        const ParsedFault parsed = ParseFault(u"filter[entity_id]=7=status:503"_s);
        QVERIFY2(parsed.fault.has_value(), qPrintable(parsed.error));
        QCOMPARE(parsed.fault->GetEffect().status, 503);
        QVERIFY(parsed.fault->Matches({}, "/api/venue?filter%5Bentity_id%5D=7"));
        QVERIFY(!parsed.fault->Matches({}, "/api/venue?filter%5Bentity_id%5D=8"));
    }

    void EffectsAreRead()
    {
        const auto effect = [](const char* kind) {
            return ParseFault(u"/api="_s + QString::fromLatin1(kind)).fault.value().GetEffect();
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

    void TimesAreRead()
    {
        QCOMPARE(ParseFault(u"/api=status:500*2"_s).fault.value().GetTimes(), 2);
        QCOMPARE(ParseFault(u"/api=reset*3"_s).fault.value().GetTimes(), 3);
        QCOMPARE(ParseFault(u"/api=reset"_s).fault.value().GetTimes(), -1);
    }

    void RedirectMayHoldColonsAndEqualsSigns()
    {
        const Fault fault = ParseFault(u"/api=redirect:https://second.example/api?a=b"_s).fault.value();
        QCOMPARE(fault.GetEffect().status, 302);
        QCOMPARE(fault.GetEffect().headers.constFirst().second, QByteArray("https://second.example/api?a=b"));
    }

    void HostFaultsAreRead()
    {
        const NetworkFault status
            = ParseFault(u"@second.example=connect-status:403*1"_s).networkFault.value();
        QCOMPARE(status.kind, NetworkFault::Kind::AnswerConnect);
        QCOMPARE(status.value, 403);
        QCOMPARE(status.host, u"second.example"_s);
        QCOMPARE(status.times, 1);
        const NetworkFault jitter = ParseFault(u"@=jitter:80"_s).networkFault.value();
        QCOMPARE(jitter.kind, NetworkFault::Kind::Jitter);
        QCOMPARE(jitter.value, 80);
        const NetworkFault certificate = ParseFault(u"@=certificate:expired"_s).networkFault.value();
        QCOMPARE(certificate.kind, NetworkFault::Kind::BadCertificate);
        QCOMPARE(certificate.certificate, CertificateKind::Expired);
        QCOMPARE(certificate.host, QString());
    }

    void MistakesAreReported_data()
    {
        const Rows<QString> row("text");
        row("empty", {});
        row("no kind", u"/api/venue"_s);
        row("unknown kind", u"/api=explode"_s);
        row("number missing", u"/api=status"_s);
        row("no number", u"/api=delay:soon"_s);
        row("negative number", u"/api=cut:-1"_s);
        row("argument too many", u"/api=reset:5"_s);
        row("times not a number", u"/api=reset*x"_s);
        row("drip without interval", u"/api=drip:5"_s);
        row("request kind for a host", u"@h=status:500"_s);
        row("connection kind for a request", u"/api=refuse"_s);
        row("unknown certificate", u"@h=certificate:old"_s);
    }
    void MistakesAreReported()
    {
        QFETCH(QString, text);
        const ParsedFault parsed = ParseFault(text);
        QVERIFY(!parsed.fault.has_value());
        QVERIFY(!parsed.networkFault.has_value());
        QVERIFY2(parsed.error.contains(text), qPrintable(parsed.error));
    }
};

QTEST_GUILESS_MAIN(tst_FaultSyntax)
#include "tst_FaultSyntax.moc"
