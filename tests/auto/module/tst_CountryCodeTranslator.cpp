#include <data/CountryCodeTranslator.h>

#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <algorithm>

using namespace korvel::Test;
using korvel::Data::VenueDatabase::CountryCodeTranslator;

class tst_CountryCodeTranslator : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void CodeTranslatesToName_data()
    {
        const Rows<QString, QString> row("code", "name");
        const QString unknown = QStringLiteral("unknown");
        row("upper case", QStringLiteral("DE"), QStringLiteral("Germany"));
        row("lower case is unknown", QStringLiteral("de"), unknown);
        row("empty is unknown", {}, unknown);
        row("blank around is unknown", QStringLiteral(" DE"), unknown);
        row("withdrawn code stays", QStringLiteral("AN"), QStringLiteral("Netherlands Antilles"));
        for (const char* gap : {"UA", "AQ", "BV", "GS", "HM"})
            QTest::addRow("gap %s", gap) << QString::fromLatin1(gap) << unknown;
        row("accent in BL", QStringLiteral("BL"), QStringLiteral(u"Saint Barth\u00e9lemy"));
        row("cedilla in CW", QStringLiteral("CW"), QStringLiteral(u"Cura\u00e7ao"));
        row("plain ASCII: AX", QStringLiteral("AX"), QStringLiteral("Aland Islands"));
        row("plain ASCII: CI", QStringLiteral("CI"), QStringLiteral("Cote d'Ivoire"));
        row("plain ASCII: RE", QStringLiteral("RE"), QStringLiteral("Reunion"));
        row("plain ASCII: ST", QStringLiteral("ST"), QStringLiteral("Sao Tome and Principe"));
        row("older name: SZ", QStringLiteral("SZ"), QStringLiteral("Swaziland"));
        row("older name: CV", QStringLiteral("CV"), QStringLiteral("Cape Verde"));
        row("older name: CZ", QStringLiteral("CZ"), QStringLiteral("Czech Republic"));
        row("older name: MK", QStringLiteral("MK"),
            QStringLiteral("Macedonia, the former Yugoslav Republic of"));
        row("older name: TR", QStringLiteral("TR"), QStringLiteral("Turkey"));
        row("older name: VA", QStringLiteral("VA"), QStringLiteral("Holy See (Vatican City State)"));
        row("punctuation: US", QStringLiteral("US"), QStringLiteral("United States of America (the)"));
        row("punctuation: MF", QStringLiteral("MF"), QStringLiteral("Saint Martin (French Part)"));
        row("punctuation: SX", QStringLiteral("SX"), QStringLiteral("Sint Maarten (Dutch Part)"));
        row("punctuation: VI", QStringLiteral("VI"), QStringLiteral("Virgin Islands (U.S.)"));
        row("punctuation: VG", QStringLiteral("VG"), QStringLiteral("Virgin Islands, British"));
        row("punctuation: CD", QStringLiteral("CD"), QStringLiteral("Congo, the Democratic Republic of the"));
        row("punctuation: BO", QStringLiteral("BO"), QStringLiteral("Bolivia, Plurinational State of"));
    }
    void CodeTranslatesToName()
    {
        QFETCH(QString, code);
        QFETCH(QString, name);
        QCOMPARE(CountryCodeTranslator().GetCountry(code), name);
    }

    void NameTranslatesToCode_data()
    {
        const Rows<QString, QString> row("name", "code");
        row("exact", QStringLiteral("Germany"), QStringLiteral("DE"));
        row("lower case is unknown", QStringLiteral("germany"), QStringLiteral("-"));
        row("empty is unknown", {}, QStringLiteral("-"));
        row("unfilled pattern is unknown", QStringLiteral("Saint Barth%1lemy"), QStringLiteral("-"));
        row("filled pattern", QStringLiteral(u"Saint Barth\u00e9lemy"), QStringLiteral("BL"));
        row("with its article", QStringLiteral("United States of America (the)"), QStringLiteral("US"));
        row("without its article", QStringLiteral("United States of America"), QStringLiteral("-"));
    }
    void NameTranslatesToCode()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QCOMPARE(CountryCodeTranslator().GetCountryCode(name), code);
    }

    void ListsAreCompleteAndStrictlyAscending()
    {
        const CountryCodeTranslator translator;
        const QList<QString> codes = translator.GetCountryCodeList();
        const QList<QString> names = translator.GetCountryList();
        QCOMPARE(codes.size(), 245);
        QCOMPARE(names.size(), 245);
        const auto isNotLess = [](const QString& left, const QString& right) { return !(left < right); };
        QVERIFY(std::adjacent_find(codes.cbegin(), codes.cend(), isNotLess) == codes.cend());
        QVERIFY(std::adjacent_find(names.cbegin(), names.cend(), isNotLess) == names.cend());
        QCOMPARE(codes.first(), QStringLiteral("AD"));
        QCOMPARE(codes.last(), QStringLiteral("ZW"));
        QCOMPARE(names.first(), QStringLiteral("Afghanistan"));
        QCOMPARE(names.last(), QStringLiteral("Zimbabwe"));
    }

    void NeighboursFollowCodeUnitOrder_data()
    {
        const Rows<QString, QString> row("first", "second");
        row("no accent", QStringLiteral("Afghanistan"), QStringLiteral("Aland Islands"));
        row("prefix first", QStringLiteral("Congo"), QStringLiteral("Congo, the Democratic Republic of the"));
        row("upper case first", QStringLiteral("United States Minor Outlying Islands"),
            QStringLiteral("United States of America (the)"));
        row("bracket before comma", QStringLiteral("Virgin Islands (U.S.)"),
            QStringLiteral("Virgin Islands, British"));
    }
    void NeighboursFollowCodeUnitOrder()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        const QList<QString> names = CountryCodeTranslator().GetCountryList();
        QVERIFY(names.contains(first));
        QCOMPARE(names.indexOf(second), names.indexOf(first) + 1);
    }

    void EveryCodeSurvivesTheRoundTrip()
    {
        const CountryCodeTranslator translator;
        for (const QString& code : translator.GetCountryCodeList())
            QCOMPARE(translator.GetCountryCode(translator.GetCountry(code)), code);
    }

    void FillingAgainChangesNothing()
    {
        CountryCodeTranslator translator;
        const QList<QString> before = translator.GetCountryList();
        translator.InitTranslationMaps();
        QCOMPARE(translator.GetCountryList(), before);
    }
};

QTEST_GUILESS_MAIN(tst_CountryCodeTranslator)
#include "tst_CountryCodeTranslator.moc"
