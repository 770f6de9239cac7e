#include <data/CountryCodeTranslator.h>

#include <tests/support/MessageGuard.h>

#include <QTest>

#include <algorithm>

using korvel::Data::VenueDatabase::CountryCodeTranslator;

class tst_CountryCodeTranslator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
    }

    void CodeTranslatesToName_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("name");
        const QString unknown = QStringLiteral("unknown");
        QTest::newRow("upper case") << QStringLiteral("DE") << QStringLiteral("Germany");
        QTest::newRow("lower case is unknown") << QStringLiteral("de") << unknown;
        QTest::newRow("empty is unknown") << QString() << unknown;
        QTest::newRow("blank around is unknown") << QStringLiteral(" DE") << unknown;
        QTest::newRow("withdrawn code stays")
            << QStringLiteral("AN") << QStringLiteral("Netherlands Antilles");
        for (const char* gap : {"UA", "AQ", "BV", "GS", "HM"})
            QTest::addRow("gap %s", gap) << QString::fromLatin1(gap) << unknown;
        QTest::newRow("accent in BL") << QStringLiteral("BL") << QStringLiteral(u"Saint Barth\u00e9lemy");
        QTest::newRow("cedilla in CW") << QStringLiteral("CW") << QStringLiteral(u"Cura\u00e7ao");
        QTest::newRow("plain ASCII: AX") << QStringLiteral("AX") << QStringLiteral("Aland Islands");
        QTest::newRow("plain ASCII: CI") << QStringLiteral("CI") << QStringLiteral("Cote d'Ivoire");
        QTest::newRow("plain ASCII: RE") << QStringLiteral("RE") << QStringLiteral("Reunion");
        QTest::newRow("plain ASCII: ST") << QStringLiteral("ST") << QStringLiteral("Sao Tome and Principe");
        QTest::newRow("older name: SZ") << QStringLiteral("SZ") << QStringLiteral("Swaziland");
        QTest::newRow("older name: CV") << QStringLiteral("CV") << QStringLiteral("Cape Verde");
        QTest::newRow("older name: CZ") << QStringLiteral("CZ") << QStringLiteral("Czech Republic");
        QTest::newRow("older name: MK")
            << QStringLiteral("MK") << QStringLiteral("Macedonia, the former Yugoslav Republic of");
        QTest::newRow("older name: TR") << QStringLiteral("TR") << QStringLiteral("Turkey");
        QTest::newRow("older name: VA")
            << QStringLiteral("VA") << QStringLiteral("Holy See (Vatican City State)");
        QTest::newRow("punctuation: US")
            << QStringLiteral("US") << QStringLiteral("United States of America (the)");
        QTest::newRow("punctuation: MF")
            << QStringLiteral("MF") << QStringLiteral("Saint Martin (French Part)");
        QTest::newRow("punctuation: SX")
            << QStringLiteral("SX") << QStringLiteral("Sint Maarten (Dutch Part)");
        QTest::newRow("punctuation: VI") << QStringLiteral("VI") << QStringLiteral("Virgin Islands (U.S.)");
        QTest::newRow("punctuation: VG") << QStringLiteral("VG") << QStringLiteral("Virgin Islands, British");
        QTest::newRow("punctuation: CD")
            << QStringLiteral("CD") << QStringLiteral("Congo, the Democratic Republic of the");
        QTest::newRow("punctuation: BO")
            << QStringLiteral("BO") << QStringLiteral("Bolivia, Plurinational State of");
    }
    void CodeTranslatesToName()
    {
        QFETCH(QString, code);
        QFETCH(QString, name);
        QCOMPARE(CountryCodeTranslator().GetCountry(code), name);
    }

    void FilledPatternsHaveTheAccentInPlace()
    {
        const CountryCodeTranslator translator;
        const QString barthelemy = translator.GetCountry(QStringLiteral("BL"));
        QCOMPARE(barthelemy.size(), 16);
        QCOMPARE(barthelemy.at(11), QChar(0xe9));
        const QString curacao = translator.GetCountry(QStringLiteral("CW"));
        QCOMPARE(curacao.size(), 7);
        QCOMPARE(curacao.at(4), QChar(0xe7));
    }

    void NameTranslatesToCode_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("code");
        QTest::newRow("exact") << QStringLiteral("Germany") << QStringLiteral("DE");
        QTest::newRow("lower case is unknown") << QStringLiteral("germany") << QStringLiteral("-");
        QTest::newRow("empty is unknown") << QString() << QStringLiteral("-");
        QTest::newRow("unfilled pattern is unknown")
            << QStringLiteral("Saint Barth%1lemy") << QStringLiteral("-");
        QTest::newRow("filled pattern") << QStringLiteral(u"Saint Barth\u00e9lemy") << QStringLiteral("BL");
        QTest::newRow("with its article")
            << QStringLiteral("United States of America (the)") << QStringLiteral("US");
        QTest::newRow("without its article")
            << QStringLiteral("United States of America") << QStringLiteral("-");
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
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::newRow("no accent") << QStringLiteral("Afghanistan") << QStringLiteral("Aland Islands");
        QTest::newRow("prefix first")
            << QStringLiteral("Congo") << QStringLiteral("Congo, the Democratic Republic of the");
        QTest::newRow("upper case first") << QStringLiteral("United States Minor Outlying Islands")
                                          << QStringLiteral("United States of America (the)");
        QTest::newRow("bracket before comma")
            << QStringLiteral("Virgin Islands (U.S.)") << QStringLiteral("Virgin Islands, British");
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

    void HasItsOwnMetaObjectAndNoParent()
    {
        const CountryCodeTranslator translator;
        QCOMPARE(translator.parent(), nullptr);
        QCOMPARE(translator.metaObject()->className(), "korvel::Data::VenueDatabase::CountryCodeTranslator");
    }
};

QTEST_GUILESS_MAIN(tst_CountryCodeTranslator)
#include "tst_CountryCodeTranslator.moc"
