#include <data/CountryCodeTranslator.h>

#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace korvel::Test;
using korvel::Data::VenueDatabase::CountryCodeTranslator;

class tst_CountryCodeTranslator : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void CodeTranslatesToName_data()
    {
        const Rows<QString, QString> row("code", "name");
        const QString unknown = u"unknown"_s;
        row("upper case", u"DE"_s, u"Germany"_s);
        row("lower case is unknown", u"de"_s, unknown);
        row("empty is unknown", {}, unknown);
        row("blank around is unknown", u" DE"_s, unknown);
        row("withdrawn code stays", u"AN"_s, u"Netherlands Antilles"_s);
        for (const char* gap : {"UA", "AQ", "BV", "GS", "HM"})
            QTest::addRow("gap %s", gap) << QString::fromLatin1(gap) << unknown;
        row("accent in BL", u"BL"_s, u"Saint Barth\u00e9lemy"_s);
        row("cedilla in CW", u"CW"_s, u"Cura\u00e7ao"_s);
        row("plain ASCII: AX", u"AX"_s, u"Aland Islands"_s);
        row("plain ASCII: CI", u"CI"_s, u"Cote d'Ivoire"_s);
        row("plain ASCII: RE", u"RE"_s, u"Reunion"_s);
        row("plain ASCII: ST", u"ST"_s, u"Sao Tome and Principe"_s);
        row("older name: SZ", u"SZ"_s, u"Swaziland"_s);
        row("older name: CV", u"CV"_s, u"Cape Verde"_s);
        row("older name: CZ", u"CZ"_s, u"Czech Republic"_s);
        row("older name: MK", u"MK"_s, u"Macedonia, the former Yugoslav Republic of"_s);
        row("older name: TR", u"TR"_s, u"Turkey"_s);
        row("older name: VA", u"VA"_s, u"Holy See (Vatican City State)"_s);
        row("punctuation: US", u"US"_s, u"United States of America (the)"_s);
        row("punctuation: MF", u"MF"_s, u"Saint Martin (French Part)"_s);
        row("punctuation: SX", u"SX"_s, u"Sint Maarten (Dutch Part)"_s);
        row("punctuation: VI", u"VI"_s, u"Virgin Islands (U.S.)"_s);
        row("punctuation: VG", u"VG"_s, u"Virgin Islands, British"_s);
        row("punctuation: CD", u"CD"_s, u"Congo, the Democratic Republic of the"_s);
        row("punctuation: BO", u"BO"_s, u"Bolivia, Plurinational State of"_s);
    }
    void CodeTranslatesToName()
    {
        const auto [code, name] = Fetch<QString, QString>();
        QCOMPARE(CountryCodeTranslator().GetCountry(code), name);
    }

    void NameTranslatesToCode_data()
    {
        const Rows<QString, QString> row("name", "code");
        row("exact", u"Germany"_s, u"DE"_s);
        row("lower case is unknown", u"germany"_s, u"-"_s);
        row("empty is unknown", {}, u"-"_s);
        row("unfilled pattern is unknown", u"Saint Barth%1lemy"_s, u"-"_s);
        row("filled pattern", u"Saint Barth\u00e9lemy"_s, u"BL"_s);
        row("with its article", u"United States of America (the)"_s, u"US"_s);
        row("without its article", u"United States of America"_s, u"-"_s);
    }
    void NameTranslatesToCode()
    {
        const auto [name, code] = Fetch<QString, QString>();
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
        QCOMPARE(codes.first(), u"AD"_s);
        QCOMPARE(codes.last(), u"ZW"_s);
        QCOMPARE(names.first(), u"Afghanistan"_s);
        QCOMPARE(names.last(), u"Zimbabwe"_s);
    }

    void NeighboursFollowCodeUnitOrder_data()
    {
        const Rows<QString, QString> row("first", "second");
        row("no accent", u"Afghanistan"_s, u"Aland Islands"_s);
        row("prefix first", u"Congo"_s, u"Congo, the Democratic Republic of the"_s);
        row("upper case first", u"United States Minor Outlying Islands"_s,
            u"United States of America (the)"_s);
        row("bracket before comma", u"Virgin Islands (U.S.)"_s, u"Virgin Islands, British"_s);
    }
    void NeighboursFollowCodeUnitOrder()
    {
        const auto [first, second] = Fetch<QString, QString>();
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
