#include <server/api/VenueQuery.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

VenueRecord MusicHall()
{
    VenueRecord venue;
    venue.entityId = 7;
    venue.title = u"Große Musikhalle"_s;
    venue.venueRoomName = u""_s;
    venue.locality = u"Zürich"_s;
    venue.countryCode = u"CH"_s;
    return venue;
}

QString Condition(const QString& path, const QString& value)
{
    return u"filter[%1][condition][path]=%1&filter[%1][condition][operator]=CONTAINS"
           "&filter[%1][condition][value]=%2&"_s.arg(path, value);
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
    void TargetIsSplitIntoPairs_data()
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
        row("name alone", "/?a", {{u"a"_s, QString()}});
    }
    void TargetIsSplitIntoPairs()
    {
        QFETCH(QByteArray, target);
        QTEST(VenueQuery::Split(target), "pairs");
    }

    void VenuesAreMatched_data()
    {
        const Rows<QString, bool> row("query", "matches");
        row("nothing asked", {}, true);
        row("part of the text", Condition(u"title"_s, u"Musik"_s), true);
        row("other case", Condition(u"title"_s, u"mUSIKHALLE"_s), true);
        row("other case beyond Latin letters", Condition(u"address.locality"_s, u"ZÜR"_s), true);
        row("text not there", Condition(u"title"_s, u"Oper"_s), false);
        row("empty value, text there", Condition(u"title"_s, QString()), true);
        row("empty value, empty text", Condition(u"venue_room_name"_s, QString()), true);
        row("empty value, text missing", Condition(u"comment"_s, QString()), false);
        row("both conditions hold",
            Condition(u"title"_s, u"halle"_s) + Condition(u"address.country_code"_s, u"ch"_s), true);
        row("one condition of two holds",
            Condition(u"title"_s, u"halle"_s) + Condition(u"address.country_code"_s, u"de"_s), false);
        row("this id", u"filter[entity_id]=7"_s, true);
        row("other id", u"filter[entity_id]=8"_s, false);
        row("this id, condition fails", u"filter[entity_id]=7&"_s + Condition(u"title"_s, u"Oper"_s), false);
        row("pattern characters are text", Condition(u"title"_s, u".*"_s), false);
    }
    void VenuesAreMatched()
    {
        QFETCH(QString, query);
        const VenueQuery understood = QueryOf(query);
        QCOMPARE(understood.Error(), QString());
        QTEST(understood.Matches(MusicHall()), "matches");
    }

    void EveryTextCanBeSearched()
    {
        QCOMPARE(VenueCatalogue::Texts().size(), size_t(14));
        for (const VenueText& text : VenueCatalogue::Texts()) {
            VenueRecord venue;
            venue.*text.member = u"needle"_s;
            const VenueQuery query = QueryOf(Condition(QString::fromLatin1(text.path), u"eedl"_s));
            QVERIFY2(query.Matches(venue), text.path);
            QVERIFY2(!query.Matches(VenueRecord()), text.path);
        }
    }

    void IncludesKeepTheirOrder()
    {
        const VenueQuery query = QueryOf(u"include=tessra.file,editor,stage_left.file,editor,isometric"_s);
        QCOMPARE(query.Error(), QString());
        QCOMPARE(query.Includes(),
                 QStringList({u"tessra.file"_s, u"editor"_s, u"stage_left.file"_s, u"isometric"_s}));
    }

    void MistakesAreNamed_data()
    {
        const Rows<QString, QString> row("query", "part");
        row("unknown parameter", u"page[limit]=3"_s, u"page[limit]"_s);
        row("unknown filter form", u"filter[title]=x"_s, u"filter[title]"_s);
        row("unknown relationship", u"include=editor,cousin"_s, u"cousin"_s);
        row("file of a user", u"include=editor.file"_s, u"editor.file"_s);
        row("id no number", u"filter[entity_id]=seven"_s, u"seven"_s);
        row("unknown attribute", Condition(u"colour"_s, u"red"_s), u"colour"_s);
        row("attribute in capitals", Condition(u"Title"_s, u"x"_s), u"Title"_s);
        row("no path", u"filter[a][condition][operator]=CONTAINS&filter[a][condition][value]=x"_s,
            u"\"a\" needs a path"_s);
        row("no value", u"filter[a][condition][path]=title&filter[a][condition][operator]=CONTAINS"_s,
            u"\"a\" needs a path"_s);
        row("no operator", u"filter[a][condition][path]=title&filter[a][condition][value]=x"_s,
            u"operator"_s);
        row("operator in small letters",
            u"filter[a][condition][path]=title&filter[a][condition][operator]=contains"
            "&filter[a][condition][value]=x"_s,
            u"contains"_s);
    }
    void MistakesAreNamed()
    {
        const auto [query, part] = Fetch<QString, QString>();
        const VenueQuery understood = QueryOf(query);
        QVERIFY2(understood.Error().contains(part), qPrintable(understood.Error()));
    }
};

QTEST_GUILESS_MAIN(tst_VenueQuery)
#include "tst_VenueQuery.moc"
