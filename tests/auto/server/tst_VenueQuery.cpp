#include <server/api/VenueQuery.h>
#include <tests/support/MessageGuard.h>

#include <QTest>

using namespace korvel::Demo;

namespace {

VenueRecord MusicHall()
{
    VenueRecord venue;
    venue.entityId = 7;
    venue.title = QStringLiteral("Große Musikhalle");
    venue.venueRoomName = QStringLiteral("");
    venue.locality = QStringLiteral("Zürich");
    venue.countryCode = QStringLiteral("CH");
    return venue;
}

QString Condition(const QString& path, const QString& value)
{
    return QStringLiteral("filter[%1][condition][path]=%1&filter[%1][condition][operator]=CONTAINS"
                          "&filter[%1][condition][value]=%2&")
        .arg(path, value);
}

VenueQuery QueryOf(const QString& query)
{
    return VenueQuery(VenueQuery::Split("/api/venue?" + query.toUtf8()));
}

} // namespace

class tst_VenueQuery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
    }

    void TargetIsSplitIntoPairs_data();
    void TargetIsSplitIntoPairs();
    void VenuesAreMatched_data();
    void VenuesAreMatched();
    void EveryTextCanBeSearched();
    void IncludesKeepTheirOrder();
    void MistakesAreNamed_data();
    void MistakesAreNamed();
};

void tst_VenueQuery::TargetIsSplitIntoPairs_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<VenueQuery::Pairs>("pairs");
    const auto pair = [](const char* name, const char* value) {
        return std::pair(QString::fromUtf8(name), QString::fromUtf8(value));
    };
    QTest::newRow("no query") << QByteArray("/api/venue") << VenueQuery::Pairs();
    QTest::newRow("empty query") << QByteArray("/api/venue?") << VenueQuery::Pairs();
    QTest::newRow("order and repetition")
        << QByteArray("/?b=1&a=2&b=3") << VenueQuery::Pairs{pair("b", "1"), pair("a", "2"), pair("b", "3")};
    QTest::newRow("percent-encoded") << QByteArray("/?filter%5Ba%5D=A%26B%3DC%20%C3%BC")
                                     << VenueQuery::Pairs{pair("filter[a]", "A&B=C ü")};
    QTest::newRow("equals sign in the value") << QByteArray("/?a=b=c") << VenueQuery::Pairs{pair("a", "b=c")};
    QTest::newRow("plus stays plus") << QByteArray("/?a=1+1") << VenueQuery::Pairs{pair("a", "1+1")};
    QTest::newRow("question mark in the value")
        << QByteArray("/?a=b?c") << VenueQuery::Pairs{pair("a", "b?c")};
    QTest::newRow("empty items") << QByteArray("/?&&a=1&") << VenueQuery::Pairs{pair("a", "1")};
    QTest::newRow("name alone") << QByteArray("/?a") << VenueQuery::Pairs{{QStringLiteral("a"), QString()}};
}

void tst_VenueQuery::TargetIsSplitIntoPairs()
{
    QFETCH(QByteArray, target);
    QFETCH(VenueQuery::Pairs, pairs);
    QCOMPARE(VenueQuery::Split(target), pairs);
}

void tst_VenueQuery::VenuesAreMatched_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<bool>("matches");
    QTest::newRow("nothing asked") << QString() << true;
    QTest::newRow("part of the text") << Condition(QStringLiteral("title"), QStringLiteral("Musik")) << true;
    QTest::newRow("other case") << Condition(QStringLiteral("title"), QStringLiteral("mUSIKHALLE")) << true;
    QTest::newRow("other case beyond Latin letters")
        << Condition(QStringLiteral("address.locality"), QStringLiteral("ZÜR")) << true;
    QTest::newRow("text not there") << Condition(QStringLiteral("title"), QStringLiteral("Oper")) << false;
    QTest::newRow("empty value, text there") << Condition(QStringLiteral("title"), QString()) << true;
    QTest::newRow("empty value, empty text")
        << Condition(QStringLiteral("venue_room_name"), QString()) << true;
    QTest::newRow("empty value, text missing") << Condition(QStringLiteral("comment"), QString()) << false;
    QTest::newRow("both conditions hold") << Condition(QStringLiteral("title"), QStringLiteral("halle"))
            + Condition(QStringLiteral("address.country_code"), QStringLiteral("ch"))
                                          << true;
    QTest::newRow("one condition of two holds") << Condition(QStringLiteral("title"), QStringLiteral("halle"))
            + Condition(QStringLiteral("address.country_code"), QStringLiteral("de"))
                                                << false;
    QTest::newRow("this id") << QStringLiteral("filter[entity_id]=7") << true;
    QTest::newRow("other id") << QStringLiteral("filter[entity_id]=8") << false;
    QTest::newRow("this id, condition fails")
        << QStringLiteral("filter[entity_id]=7&") + Condition(QStringLiteral("title"), QStringLiteral("Oper"))
        << false;
    QTest::newRow("pattern characters are text")
        << Condition(QStringLiteral("title"), QStringLiteral(".*")) << false;
}

void tst_VenueQuery::VenuesAreMatched()
{
    QFETCH(QString, query);
    QFETCH(bool, matches);
    const VenueQuery understood = QueryOf(query);
    QCOMPARE(understood.Error(), QString());
    QCOMPARE(understood.Matches(MusicHall()), matches);
}

void tst_VenueQuery::EveryTextCanBeSearched()
{
    QCOMPARE(VenueCatalogue::Texts().size(), size_t(14));
    for (const VenueText& text : VenueCatalogue::Texts()) {
        VenueRecord venue;
        venue.*text.member = QStringLiteral("needle");
        const VenueQuery query = QueryOf(Condition(QString::fromLatin1(text.path), QStringLiteral("eedl")));
        QVERIFY2(query.Matches(venue), text.path);
        QVERIFY2(!query.Matches(VenueRecord()), text.path);
    }
}

void tst_VenueQuery::IncludesKeepTheirOrder()
{
    const VenueQuery query
        = QueryOf(QStringLiteral("include=tessra.file,editor,stage_left.file,editor,isometric"));
    QCOMPARE(query.Error(), QString());
    QCOMPARE(query.Includes(),
             QStringList({QStringLiteral("tessra.file"), QStringLiteral("editor"),
                          QStringLiteral("stage_left.file"), QStringLiteral("isometric")}));
}

void tst_VenueQuery::MistakesAreNamed_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("part");
    QTest::newRow("unknown parameter") << QStringLiteral("page[limit]=3") << QStringLiteral("page[limit]");
    QTest::newRow("unknown filter form")
        << QStringLiteral("filter[title]=x") << QStringLiteral("filter[title]");
    QTest::newRow("unknown relationship")
        << QStringLiteral("include=editor,cousin") << QStringLiteral("cousin");
    QTest::newRow("file of a user") << QStringLiteral("include=editor.file") << QStringLiteral("editor.file");
    QTest::newRow("id no number") << QStringLiteral("filter[entity_id]=seven") << QStringLiteral("seven");
    QTest::newRow("unknown attribute")
        << Condition(QStringLiteral("colour"), QStringLiteral("red")) << QStringLiteral("colour");
    QTest::newRow("attribute in capitals")
        << Condition(QStringLiteral("Title"), QStringLiteral("x")) << QStringLiteral("Title");
    QTest::newRow("no path") << QStringLiteral(
        "filter[a][condition][operator]=CONTAINS&filter[a][condition][value]=x")
                             << QStringLiteral("\"a\" needs a path");
    QTest::newRow("no value") << QStringLiteral(
        "filter[a][condition][path]=title&filter[a][condition][operator]=CONTAINS")
                              << QStringLiteral("\"a\" needs a path");
    QTest::newRow("no operator") << QStringLiteral(
        "filter[a][condition][path]=title&filter[a][condition][value]=x")
                                 << QStringLiteral("operator");
    QTest::newRow("operator in small letters")
        << QStringLiteral("filter[a][condition][path]=title&filter[a][condition][operator]=contains"
                          "&filter[a][condition][value]=x")
        << QStringLiteral("contains");
}

void tst_VenueQuery::MistakesAreNamed()
{
    QFETCH(QString, query);
    QFETCH(QString, part);
    const VenueQuery understood = QueryOf(query);
    QVERIFY2(understood.Error().contains(part), qPrintable(understood.Error()));
}

QTEST_GUILESS_MAIN(tst_VenueQuery)
#include "tst_VenueQuery.moc"
