#include <server/api/VenueQuery.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

using namespace korvel::Demo;
using namespace korvel::Test;

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

class tst_VenueQuery : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
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
    const Rows<QByteArray, VenueQuery::Pairs> row("target", "pairs");
    const auto pair = [](const char* name, const char* value) {
        return std::pair(QString::fromUtf8(name), QString::fromUtf8(value));
    };
    row("no query", "/api/venue", {});
    row("empty query", "/api/venue?", {});
    row("order and repetition", "/?b=1&a=2&b=3", {pair("b", "1"), pair("a", "2"), pair("b", "3")});
    row("percent-encoded", "/?filter%5Ba%5D=A%26B%3DC%20%C3%BC", {pair("filter[a]", "A&B=C ü")});
    row("equals sign in the value", "/?a=b=c", {pair("a", "b=c")});
    row("plus stays plus", "/?a=1+1", {pair("a", "1+1")});
    row("question mark in the value", "/?a=b?c", {pair("a", "b?c")});
    row("empty items", "/?&&a=1&", {pair("a", "1")});
    row("name alone", "/?a", {{QStringLiteral("a"), QString()}});
}

void tst_VenueQuery::TargetIsSplitIntoPairs()
{
    QFETCH(QByteArray, target);
    QFETCH(VenueQuery::Pairs, pairs);
    QCOMPARE(VenueQuery::Split(target), pairs);
}

void tst_VenueQuery::VenuesAreMatched_data()
{
    const Rows<QString, bool> row("query", "matches");
    row("nothing asked", {}, true);
    row("part of the text", Condition(QStringLiteral("title"), QStringLiteral("Musik")), true);
    row("other case", Condition(QStringLiteral("title"), QStringLiteral("mUSIKHALLE")), true);
    row("other case beyond Latin letters",
        Condition(QStringLiteral("address.locality"), QStringLiteral("ZÜR")), true);
    row("text not there", Condition(QStringLiteral("title"), QStringLiteral("Oper")), false);
    row("empty value, text there", Condition(QStringLiteral("title"), QString()), true);
    row("empty value, empty text", Condition(QStringLiteral("venue_room_name"), QString()), true);
    row("empty value, text missing", Condition(QStringLiteral("comment"), QString()), false);
    row("both conditions hold",
        Condition(QStringLiteral("title"), QStringLiteral("halle"))
            + Condition(QStringLiteral("address.country_code"), QStringLiteral("ch")),
        true);
    row("one condition of two holds",
        Condition(QStringLiteral("title"), QStringLiteral("halle"))
            + Condition(QStringLiteral("address.country_code"), QStringLiteral("de")),
        false);
    row("this id", QStringLiteral("filter[entity_id]=7"), true);
    row("other id", QStringLiteral("filter[entity_id]=8"), false);
    row("this id, condition fails",
        QStringLiteral("filter[entity_id]=7&") + Condition(QStringLiteral("title"), QStringLiteral("Oper")),
        false);
    row("pattern characters are text", Condition(QStringLiteral("title"), QStringLiteral(".*")), false);
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
    const Rows<QString, QString> row("query", "part");
    row("unknown parameter", QStringLiteral("page[limit]=3"), QStringLiteral("page[limit]"));
    row("unknown filter form", QStringLiteral("filter[title]=x"), QStringLiteral("filter[title]"));
    row("unknown relationship", QStringLiteral("include=editor,cousin"), QStringLiteral("cousin"));
    row("file of a user", QStringLiteral("include=editor.file"), QStringLiteral("editor.file"));
    row("id no number", QStringLiteral("filter[entity_id]=seven"), QStringLiteral("seven"));
    row("unknown attribute", Condition(QStringLiteral("colour"), QStringLiteral("red")),
        QStringLiteral("colour"));
    row("attribute in capitals", Condition(QStringLiteral("Title"), QStringLiteral("x")),
        QStringLiteral("Title"));
    row("no path", QStringLiteral("filter[a][condition][operator]=CONTAINS&filter[a][condition][value]=x"),
        QStringLiteral("\"a\" needs a path"));
    row("no value",
        QStringLiteral("filter[a][condition][path]=title&filter[a][condition][operator]=CONTAINS"),
        QStringLiteral("\"a\" needs a path"));
    row("no operator", QStringLiteral("filter[a][condition][path]=title&filter[a][condition][value]=x"),
        QStringLiteral("operator"));
    row("operator in small letters",
        QStringLiteral("filter[a][condition][path]=title&filter[a][condition][operator]=contains"
                       "&filter[a][condition][value]=x"),
        QStringLiteral("contains"));
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
