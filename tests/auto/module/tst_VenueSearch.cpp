#include <data/ConnectorJsonRest.h>

#include <tests/support/Fixture.h>
#include <tests/support/MessageGuard.h>
#include <tests/support/ScriptedServer.h>
#include <tests/support/VdbMessages.h>

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkReply>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

using namespace korvel::Data::VenueDatabase;
using namespace Qt::Literals::StringLiterals;
using korvel::Demo::Fault;
using korvel::Demo::NetworkFault;
using korvel::Test::Fixture;
using korvel::Test::FixtureObject;
using korvel::Test::JsonObject;
using korvel::Test::ScriptedServer;
using korvel::Test::VdbMessages;

using Filters = QList<std::pair<QString, QString>>;
using Script = std::function<void(ScriptedServer&)>;
using TextGetter = QString (Venue::*)() const;

Q_DECLARE_METATYPE(Script)
Q_DECLARE_METATYPE(TextGetter)

namespace {

QStringList ComplexNames(const QList<Venue>& venues)
{
    QStringList names;
    for (const Venue& venue : venues)
        names.append(venue.GetComplexName());
    return names;
}

/// What stood in the caller's list before a search.
QList<Venue> OldVenues()
{
    Venue venue;
    venue.SetComplexName(u"old"_s);
    return {venue, venue};
}

/// A document with one venue that has these "attributes".
QByteArray DocumentWithAttributes(const QByteArray& attributes)
{
    return R"({"data": [{"type": "venue", "attributes": )" + attributes + "}]}";
}

constexpr const char* c_jsonApi = "application/vnd.api+json";
const QByteArray c_oneVenue = R"({"data": [{"attributes": {"title": "new"}}]})";

} // namespace

class tst_VenueSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_server = std::make_unique<ScriptedServer>();
    }
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
        m_messages = std::make_unique<VdbMessages>();
        m_server->Reset();
        m_connector = std::make_unique<ConnectorJsonRest>(nullptr);
    }
    void cleanup()
    {
        m_connector.reset();
        // A failed search is shown to the user, so nothing of it belongs into the log.
        QCOMPARE(m_messages->Take(), QStringList());
        m_messages.reset();
    }
    void cleanupTestCase()
    {
        m_server.reset();
    }

    // The reply.

    void WholeReplyIsReadInReverseOrder()
    {
        const QList<Venue> venues = m_connector->ProcessVenueEntriesReply(FixtureObject(u"venues.json"_s));
        QCOMPARE(ComplexNames(venues), QStringList({u"Complex C"_s, u"Complex B"_s, u"Komplex \u00c4"_s}));

        const Venue& full = venues.at(2);
        QCOMPARE(full.GetId(), 101);
        QCOMPARE(full.GetVenueRoomName(), u"Gro\u00dfer Saal"_s);
        QCOMPARE(full.GetGeneralComment(), u"Foyer on two levels.\nBar & <b>cloakroom</b>."_s);
        QCOMPARE(full.GetAddress().street(), u"Main St 5"_s);
        QCOMPARE(full.GetAddress().postalCode(), u"10115"_s);
        QCOMPARE(full.GetCity(), u"Berlin"_s);
        QCOMPARE(full.GetAddress().countryCode(), u"DE"_s);
        QCOMPARE(full.GetCountry(), u"Germany"_s);
        QCOMPARE(full.GetLocationComment(), u"Behind the station"_s);
        QCOMPARE(full.GetLoadDockStreetAddress(), u"Dock St 6"_s);
        QCOMPARE(full.GetLoadDockComment(), u"Ramp 1.2 m"_s);
        QCOMPARE(full.GetClearingOfHouseGrid(), u"12.5"_s);
        QCOMPARE(full.GetRiggingComment(), u"Motor grid"_s);
        QCOMPARE(full.GetUploadDate(), QDate(2023, 2, 1));
        QCOMPARE(full.GetEditDate().date(), QDate(2024, 3, 1));
        QCOMPARE(full.GetEditDate().time(), QTime(10, 20, 30));
        QCOMPARE(full.GetEditor(), 22);
        // The full column set is the one that a record answers with.
        QCOMPARE(full.GetDataAt(5), QVariant(u"Behind the station"_s));

        const Venue& withoutDates = venues.at(1);
        QCOMPARE(withoutDates.GetId(), 102);
        QCOMPARE(withoutDates.GetCountry(), u"unknown"_s);
        QVERIFY(!withoutDates.GetUploadDate().isValid());
        QVERIFY(!withoutDates.GetEditDate().isValid());
        QCOMPARE(withoutDates.GetEditor(), -1);

        const Venue& bare = venues.at(0);
        QCOMPARE(bare.GetId(), 103);
        QCOMPARE(bare.GetCity(), QString());
        QCOMPARE(bare.GetEditor(), -1);
    }

    void ReplyWithoutVenues_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::newRow("empty object") << QByteArray("{}");
        QTest::newRow("no data") << QByteArray(R"({"meta": {"count": 0}})");
        QTest::newRow("empty data") << QByteArray(R"({"data": []})");
        QTest::newRow("data is null") << QByteArray(R"({"data": null})");
        QTest::newRow("data is an object") << QByteArray(R"({"data": {"attributes": {"title": "x"}}})");
        QTest::newRow("data is a text") << QByteArray(R"({"data": "x"})");
        QTest::newRow("data in capitals") << QByteArray(R"({"Data": [{"attributes": {"title": "x"}}]})");
    }
    void ReplyWithoutVenues()
    {
        QFETCH(QByteArray, reply);
        QCOMPARE(m_connector->ProcessVenueEntriesReply(JsonObject(reply)).size(), 0);
    }

    void AttributeGoesToItsField_data()
    {
        QTest::addColumn<QByteArray>("attributes");
        QTest::addColumn<TextGetter>("getter");
        for (const Attribute& attribute : c_attributes)
            QTest::newRow(attribute.json) << QByteArray(attribute.json) << attribute.getter;
    }
    void AttributeGoesToItsField()
    {
        QFETCH(QByteArray, attributes);
        QFETCH(TextGetter, getter);
        const Venue venue = OnlyVenue(DocumentWithAttributes(attributes));
        QCOMPARE((venue.*getter)(), u"x"_s);
        for (const Attribute& other : c_attributes) {
            if (other.getter != getter)
                QCOMPARE((venue.*other.getter)(), QString());
        }
    }

    void AddressAttributeGoesToTheAddress()
    {
        const Venue venue = OnlyVenue(DocumentWithAttributes(
            R"({"address": {"address_line1": "s", "postal_code": "p", "locality": "c", "country_code": "FR"}})"));
        QCOMPARE(venue.GetAddress().street(), u"s"_s);
        QCOMPARE(venue.GetAddress().postalCode(), u"p"_s);
        QCOMPARE(venue.GetAddress().city(), u"c"_s);
        QCOMPARE(venue.GetAddress().countryCode(), u"FR"_s);
        QCOMPARE(venue.GetAddress().country(), u"France"_s);
    }

    void TextOfAnotherTypeIsEmpty_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("number") << QByteArray("12.5");
        QTest::newRow("bool") << QByteArray("true");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("array") << QByteArray(R"(["x"])");
        QTest::newRow("object") << QByteArray(R"({"x": "x"})");
    }
    void TextOfAnotherTypeIsEmpty()
    {
        QFETCH(QByteArray, value);
        for (const Attribute& attribute : c_attributes) {
            QByteArray attributes(attribute.json);
            attributes.replace("\"x\"", value);
            const Venue venue = OnlyVenue(DocumentWithAttributes(attributes));
            QCOMPARE((venue.*attribute.getter)(), QString());
        }
    }

    void IncompleteElementIsAnEmptyVenue_data()
    {
        QTest::addColumn<QByteArray>("element");
        QTest::newRow("empty object") << QByteArray("{}");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("number") << QByteArray("1");
        QTest::newRow("text") << QByteArray(R"("venue")");
        QTest::newRow("array") << QByteArray(R"([{"attributes": {"title": "x"}}])");
        QTest::newRow("attributes are null") << QByteArray(R"({"attributes": null})");
        QTest::newRow("attributes are an array") << QByteArray(R"({"attributes": [{"title": "x"}]})");
        QTest::newRow("relationships are a text")
            << QByteArray(R"({"relationships": "x", "attributes": {}})");
    }
    void IncompleteElementIsAnEmptyVenue()
    {
        QFETCH(QByteArray, element);
        const Venue venue = OnlyVenue(R"({"data": [)" + element + "]}");
        QCOMPARE(venue.GetId(), 0);
        QCOMPARE(venue.GetComplexName(), QString());
        QCOMPARE(venue.GetCity(), QString());
        QCOMPARE(venue.GetCountry(), u"unknown"_s);
        QVERIFY(venue.GetUploadDate().isNull());
        QVERIFY(venue.GetEditDate().isNull());
        QCOMPARE(venue.GetEditor(), -1);
    }

    void Id_data()
    {
        Numbers();
    }
    void Id()
    {
        QFETCH(QByteArray, json);
        QFETCH(qint64, number);
        QCOMPARE(OnlyVenue(DocumentWithAttributes(json)).GetId(), number);
    }

    void EditorId_data()
    {
        Numbers();
    }
    void EditorId()
    {
        QFETCH(QByteArray, json);
        QFETCH(qint64, number);
        const Venue venue = OnlyVenue(R"({"data": [{"relationships": {"editor": {"data": {"id": "u"}}}}],)"
                                      R"("included": [{"type": "user", "id": "u", "attributes": )"
                                      + json + "}]}");
        QCOMPARE(venue.GetEditor(), number);
    }

    void Country_data()
    {
        QTest::addColumn<QByteArray>("address");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("name");
        QTest::newRow("known") << QByteArray(R"({"country_code": "DE"})") << u"DE"_s << u"Germany"_s;
        QTest::newRow("lower case") << QByteArray(R"({"country_code": "de"})") << u"de"_s << u"unknown"_s;
        QTest::newRow("not in the table")
            << QByteArray(R"({"country_code": "UA"})") << u"UA"_s << u"unknown"_s;
        QTest::newRow("missing") << QByteArray("{}") << QString() << u"unknown"_s;
        QTest::newRow("number") << QByteArray(R"({"country_code": 49})") << QString() << u"unknown"_s;
        QTest::newRow("name instead of code")
            << QByteArray(R"({"country_code": "Germany"})") << u"Germany"_s << u"unknown"_s;
        QTest::newRow("no address") << QByteArray("null") << QString() << u"unknown"_s;
    }
    void Country()
    {
        QFETCH(QByteArray, address);
        QFETCH(QString, code);
        QFETCH(QString, name);
        const Venue venue = OnlyVenue(DocumentWithAttributes(R"({"address": )" + address + "}"));
        QCOMPARE(venue.GetAddress().countryCode(), code);
        QCOMPARE(venue.GetCountry(), name);
    }

    void UploadDate_data()
    {
        QTest::addColumn<QByteArray>("created");
        QTest::addColumn<QDate>("date");
        QTest::newRow("date") << QByteArray(R"("2023-02-01")") << QDate(2023, 2, 1);
        QTest::newRow("leap day") << QByteArray(R"("2024-02-29")") << QDate(2024, 2, 29);
        QTest::newRow("no leap day") << QByteArray(R"("2023-02-29")") << QDate();
        QTest::newRow("with a time") << QByteArray(R"("2023-02-01T00:00:00+00:00")") << QDate();
        QTest::newRow("single digits") << QByteArray(R"("2023-2-1")") << QDate();
        QTest::newRow("without hyphens") << QByteArray(R"("20230201")") << QDate();
        QTest::newRow("other order") << QByteArray(R"("01-02-2023")") << QDate();
        QTest::newRow("blank behind") << QByteArray(R"("2023-02-01 ")") << QDate();
        QTest::newRow("empty") << QByteArray(R"("")") << QDate();
        QTest::newRow("number") << QByteArray("20230201") << QDate();
        QTest::newRow("null") << QByteArray("null") << QDate();
    }
    void UploadDate()
    {
        QFETCH(QByteArray, created);
        QFETCH(QDate, date);
        QCOMPARE(OnlyVenue(DocumentWithAttributes(R"({"created": )" + created + "}")).GetUploadDate(), date);
    }

    void EditDate_data()
    {
        QTest::addColumn<QByteArray>("changed");
        QTest::addColumn<bool>("valid");
        QTest::newRow("+00:00") << QByteArray(R"("2024-03-01T10:20:30+00:00")") << true;
        QTest::newRow("Z") << QByteArray(R"("2024-03-01T10:20:30Z")") << false;
        QTest::newRow("+01:00") << QByteArray(R"("2024-03-01T10:20:30+01:00")") << false;
        QTest::newRow("-00:00") << QByteArray(R"("2024-03-01T10:20:30-00:00")") << false;
        QTest::newRow("+0000") << QByteArray(R"("2024-03-01T10:20:30+0000")") << false;
        QTest::newRow("no zone") << QByteArray(R"("2024-03-01T10:20:30")") << false;
        QTest::newRow("fraction of a second") << QByteArray(R"("2024-03-01T10:20:30.123+00:00")") << false;
        QTest::newRow("date only") << QByteArray(R"("2024-03-01")") << false;
        QTest::newRow("blank instead of T") << QByteArray(R"("2024-03-01 10:20:30+00:00")") << false;
        QTest::newRow("hour 24") << QByteArray(R"("2024-03-01T24:20:30+00:00")") << false;
        QTest::newRow("no such day") << QByteArray(R"("2024-02-30T10:20:30+00:00")") << false;
        QTest::newRow("text behind") << QByteArray(R"("2024-03-01T10:20:30+00:00 UTC")") << false;
        QTest::newRow("empty") << QByteArray(R"("")") << false;
        QTest::newRow("number") << QByteArray("1709288430") << false;
        QTest::newRow("null") << QByteArray("null") << false;
    }
    void EditDate()
    {
        QFETCH(QByteArray, changed);
        QFETCH(bool, valid);
        const QDateTime date
            = OnlyVenue(DocumentWithAttributes(R"({"changed": )" + changed + "}")).GetEditDate();
        QCOMPARE(date.isValid(), valid);
        if (!valid)
            return;
        QCOMPARE(date.date(), QDate(2024, 3, 1));
        QCOMPARE(date.time(), QTime(10, 20, 30));
        // UTC by meaning, but the value carries no zone.
        QCOMPARE(date.timeSpec(), Qt::LocalTime);
    }

    void Editor_data()
    {
        QTest::addColumn<QByteArray>("relationships");
        QTest::addColumn<QByteArray>("included");
        QTest::addColumn<qint64>("editor");
        const QByteArray toU = R"({"editor": {"data": {"type": "user", "id": "u"}}})";
        const QByteArray userU = R"({"type": "user", "id": "u", "attributes": {"entity_id": 5}})";
        const QByteArray laterU = R"({"type": "user", "id": "u", "attributes": {"entity_id": 6}})";

        QTest::newRow("matching user") << toU << "[" + userU + "]" << 5LL;
        QTest::newRow("first of two matches wins") << toU << "[" + userU + "," + laterU + "]" << 5LL;
        QTest::newRow("first match wins although it names no entity")
            << toU << R"([{"type": "user", "id": "u"},)" + userU + "]" << 0LL;
        QTest::newRow("other type with the same id is skipped")
            << toU << R"([{"type": "venue", "id": "u", "attributes": {"entity_id": 4}},)" + userU + "]"
            << 5LL;
        QTest::newRow("type in capitals")
            << toU << QByteArray(R"([{"type": "User", "id": "u", "attributes": {"entity_id": 4}}])") << -1LL;
        QTest::newRow("no type") << toU << QByteArray(R"([{"id": "u", "attributes": {"entity_id": 4}}])")
                                 << -1LL;
        QTest::newRow("other user") << toU
                                    << QByteArray(
                                           R"([{"type": "user", "id": "v", "attributes": {"entity_id": 4}}])")
                                    << -1LL;
        QTest::newRow("id in capitals")
            << toU << QByteArray(R"([{"type": "user", "id": "U", "attributes": {"entity_id": 4}}])") << -1LL;
        QTest::newRow("no user") << toU << QByteArray("[]") << -1LL;
        QTest::newRow("included is an object") << toU << userU << -1LL;
        QTest::newRow("included is null") << toU << QByteArray("null") << -1LL;
        QTest::newRow("rubbish in included is skipped")
            << toU << R"([null, 1, "u", [],)" + userU + "]" << 5LL;
        QTest::newRow("number never equals the text")
            << QByteArray(R"({"editor": {"data": {"id": "5"}}})")
            << QByteArray(R"([{"type": "user", "id": 5, "attributes": {"entity_id": 4}}])") << -1LL;
        QTest::newRow("text never equals the number")
            << QByteArray(R"({"editor": {"data": {"id": 5}}})")
            << QByteArray(R"([{"type": "user", "id": "5", "attributes": {"entity_id": 4}}])") << -1LL;
        QTest::newRow("number in both places")
            << QByteArray(R"({"editor": {"data": {"id": 5}}})")
            << QByteArray(R"([{"type": "user", "id": 5, "attributes": {"entity_id": 4}}])") << -1LL;
        QTest::newRow("no relationship") << QByteArray("{}") << "[" + userU + "]" << -1LL;
        QTest::newRow("relationship to nobody")
            << QByteArray(R"({"editor": {"data": null}})") << "[" + userU + "]" << -1LL;
        QTest::newRow("relationship to many")
            << QByteArray(R"({"editor": {"data": [{"id": "u"}]}})") << "[" + userU + "]" << -1LL;
        // A missing id reads as an empty text, which is the id of this user.
        QTest::newRow("no relationship, user with an empty id")
            << QByteArray("{}")
            << QByteArray(R"([{"type": "user", "id": "", "attributes": {"entity_id": 4}}])") << 4LL;
        QTest::newRow("no relationship, user without an id")
            << QByteArray("{}") << QByteArray(R"([{"type": "user", "attributes": {"entity_id": 4}}])")
            << -1LL;
        QTest::newRow("relationship of another kind")
            << QByteArray(R"({"author": {"data": {"id": "u"}}})") << "[" + userU + "]" << -1LL;
    }
    void Editor()
    {
        QFETCH(QByteArray, relationships);
        QFETCH(QByteArray, included);
        QFETCH(qint64, editor);
        const Venue venue = OnlyVenue(R"({"data": [{"relationships": )" + relationships
                                      + R"(}], "included": )" + included + "}");
        QCOMPARE(venue.GetEditor(), editor);
    }

    void CostGrowsLinearlyWithTheReply()
    {
        // Every venue has an editor of its own, the last ones first. Walking "included" for each venue would
        // take minutes.
        constexpr int count = 30'000;
        QJsonArray data;
        QJsonArray included;
        for (int index = 0; index < count; ++index) {
            const QString user = u"user-%1"_s.arg(count - index);
            data.append(QJsonObject{
                {u"relationships"_s,
                 QJsonObject{{u"editor"_s, QJsonObject{{u"data"_s, QJsonObject{{u"id"_s, user}}}}}}}});
            included.append(QJsonObject{{u"type"_s, u"user"_s},
                                        {u"id"_s, u"user-%1"_s.arg(index + 1)},
                                        {u"attributes"_s, QJsonObject{{u"entity_id"_s, index + 1}}}});
        }
        QElapsedTimer timer;
        timer.start();
        const QList<Venue> venues
            = m_connector->ProcessVenueEntriesReply({{u"data"_s, data}, {u"included"_s, included}});
        QVERIFY2(timer.elapsed() < 20'000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(venues.size(), count);
        for (int index = 0; index < count; ++index)
            QCOMPARE(venues.at(index).GetEditor(), index + 1);
    }

    void DeepNestingInAFieldIsHarmless()
    {
        const QByteArray deep = QByteArray(900, '[') + QByteArray(900, ']');
        const Venue venue = OnlyVenue(DocumentWithAttributes(R"({"entity_id": 3, "title": )" + deep + "}"));
        QCOMPARE(venue.GetId(), 3);
        QCOMPARE(venue.GetComplexName(), QString());
    }

    // The request.

    void RequestOnTheWire_data()
    {
        QTest::addColumn<Filters>("filters");
        QTest::addColumn<QByteArray>("target");
        const auto condition = [](const QByteArray& key, const QByteArray& path, const QByteArray& value) {
            const QByteArray prefix = "filter[" + key + "][condition]";
            return prefix + "[path]=" + path + "&" + prefix + "[operator]=CONTAINS&" + prefix
                + "[value]=" + value + "&";
        };
        const QByteArray start = "/api/venue?";
        const QByteArray end = "include=editor";
        const auto title = [](const QString& text) { return Filters{{u"title"_s, text}}; };

        QTest::newRow("no filter asks for all venues") << Filters() << start + end;
        QTest::newRow("text keeps its case")
            << title(u"Hall"_s) << start + condition("title", "title", "Hall") + end;
        QTest::newRow("path in lower case")
            << Filters{{u"Venue_ROOM_Name"_s, u"A"_s}}
            << start + condition("venue_room_name", "venue_room_name", "A") + end;
        QTest::newRow("path into the address")
            << Filters{{u"address.locality"_s, u"Paris"_s}}
            << start + condition("address.locality", "address.locality", "Paris") + end;
        QTest::newRow("two filters in their order")
            << Filters{{u"venue_room_name"_s, u"B"_s}, {u"title"_s, u"A"_s}}
            << start + condition("venue_room_name", "venue_room_name", "B") + condition("title", "title", "A")
                + end;
        QTest::newRow("same path twice")
            << Filters{{u"title"_s, u"A"_s}, {u"title"_s, u"B"_s}}
            << start + condition("title", "title", "A") + condition("title", "title", "B") + end;
        QTest::newRow("empty text") << title(u""_s) << start + condition("title", "title", "") + end;
        QTest::newRow("separators") << title(u"A&B=C#D"_s)
                                    << start + condition("title", "title", "A%26B%3DC%23D") + end;
        QTest::newRow("blank") << title(u"Royal Hall"_s)
                               << start + condition("title", "title", "Royal%20Hall") + end;
        QTest::newRow("plus, question mark, slash")
            << title(u"A+B?/C"_s) << start + condition("title", "title", "A+B?/C") + end;
        QTest::newRow("not ASCII") << title(u"Stra\u00dfe \u0416"_s)
                                   << start + condition("title", "title", "Stra%C3%9Fe%20%D0%96") + end;
        QTest::newRow("line break and markup")
            << title(u"a\r\nX: <b>\""_s)
            << start + condition("title", "title", "a%0D%0AX:%20%3Cb%3E%22") + end;
        QTest::newRow("typed triplets count as encoded")
            << title(u"%41 %C3%9F"_s) << start + condition("title", "title", "A%20%C3%9F") + end;
        QTest::newRow("per cent sign")
            << title(u"100%"_s) << start + condition("title", "title", "100%25") + end;
        QTest::newRow("brackets in a path")
            << Filters{{u"a]b"_s, u"x"_s}} << start + condition("a]b", "a]b", "x") + end;
    }
    void RequestOnTheWire()
    {
        QFETCH(Filters, filters);
        QFETCH(QByteArray, target);
        m_server->AnswerJsonApi(u"/api/venue"_s, c_oneVenue);
        QList<Venue> venues;
        QCOMPARE(m_connector->FindVenueEntries(filters, venues), Ok);
        QCOMPARE(ComplexNames(venues), QStringList{u"new"_s});
        QCOMPARE(m_server->Log().RequestCount(), 1);
        QCOMPARE(m_server->Log().LastRequest().method, QByteArray("GET"));
        QCOMPARE(m_server->Log().LastRequest().target, target);
    }

    // The outcome.

    void Outcome_data()
    {
        QTest::addColumn<Script>("script");
        QTest::addColumn<ResultStatus>("status");
        QTest::addColumn<QStringList>("names");
        const QString path = u"/api/venue"_s;
        const QStringList old{u"old"_s, u"old"_s};
        const QStringList none;
        const QStringList found{u"new"_s};
        const auto answer
            = [path](const QByteArray& body, const QByteArray& type = c_jsonApi, int status = 200) {
                  return Script([=](ScriptedServer& server) { server.Answer(path, body, type, status); });
              };
        const auto fault = [](const Fault& fault) {
            return Script([=](ScriptedServer& server) {
                // The honest answer would have no venue in it.
                server.AddFault(Fault(fault).WithBody(c_oneVenue + QByteArray(20'000, ' ')));
            });
        };
        const auto network = [path](NetworkFault::Kind kind, qint64 value = 0) {
            return Script([=](ScriptedServer& server) {
                NetworkFault fault;
                fault.kind = kind;
                fault.value = value;
                server.AddFault(fault);
                server.AnswerJsonApi(path, c_oneVenue);
            });
        };
        const auto certificate = [path](korvel::Demo::CertificateKind kind) {
            return Script([=](ScriptedServer& server) {
                NetworkFault fault;
                fault.kind = NetworkFault::Kind::BadCertificate;
                fault.certificate = kind;
                server.AddFault(fault);
                server.AnswerJsonApi(path, c_oneVenue);
            });
        };

        QTest::newRow("venues") << answer(c_oneVenue) << Ok << found;
        QTest::newRow("venues of a fixture")
            << answer(Fixture(u"venues.json"_s)) << Ok
            << QStringList{u"Complex C"_s, u"Complex B"_s, u"Komplex \u00c4"_s};

        QTest::newRow("media type with a charset")
            << answer(c_oneVenue, "application/vnd.api+json; charset=utf-8") << WrongContentType << old;
        QTest::newRow("media type with a semicolon")
            << answer(c_oneVenue, "application/vnd.api+json;") << WrongContentType << old;
        QTest::newRow("media type in capitals")
            << answer(c_oneVenue, "Application/vnd.api+json") << WrongContentType << old;
        QTest::newRow("plain JSON") << answer(c_oneVenue, "application/json") << WrongContentType << old;
        QTest::newRow("HTML") << answer("<html>", "text/html") << WrongContentType << old;
        QTest::newRow("no media type")
            << fault(Fault::On(path).WithoutMediaType()) << WrongContentType << old;
        QTest::newRow("two media types")
            << fault(Fault::On(path).WithSecondMediaType("text/html")) << WrongContentType << old;

        QTest::newRow("error page in HTML") << answer("<html>", "text/html", 500) << WrongContentType << old;
        for (const int status : {400, 401, 403, 404, 410, 418, 429, 500, 502, 503}) {
            QTest::addRow("status %d with the right media type", status)
                << answer(c_oneVenue, c_jsonApi, status) << WrongContentType << old;
        }
        QTest::newRow("empty body") << answer({}) << Ok << none;
        QTest::newRow("not JSON") << answer("<html>") << Ok << none;
        QTest::newRow("JSON array") << answer("[" + c_oneVenue + "]") << Ok << none;
        QTest::newRow("JSON text") << answer("\"x\"") << Ok << none;
        QTest::newRow("no data") << answer("{}") << Ok << none;
        QTest::newRow("empty data") << answer(R"({"data": []})") << Ok << none;
        QTest::newRow("rubbish behind the JSON") << answer(c_oneVenue + "x") << Ok << none;
        QTest::newRow("NaN") << answer(R"({"data": [{"attributes": {"entity_id": NaN}}]})") << Ok << none;
        QTest::newRow("byte order mark") << answer("\xef\xbb\xbf" + c_oneVenue) << Ok << found;
        QTest::newRow("invalid UTF-8")
            << answer("{\"data\": [{\"attributes\": {\"title\": \"\xff\xfe\"}}]}") << Ok << none;
        QTest::newRow("last of duplicate keys")
            << answer(R"({"data": [{"attributes": {"title": "old"}}],)"
                      R"("data": [{"attributes": {"title": "old", "title": "new"}}]})")
            << Ok << found;
        QTest::newRow("nested too deeply")
            << answer(R"({"data": )" + QByteArray(5000, '[') + QByteArray(5000, ']') + "}") << Ok << none;
        QTest::newRow("chunked") << fault(Fault::On(path).WithChunks()) << Ok << found;
        QTest::newRow("in drips") << fault(Fault::On(path).WithDrip(5000, 10)) << Ok << found;

        QTest::newRow("cut before the body")
            << fault(Fault::On(path).WithCutAfter(0)) << WrongContentType << old;
        QTest::newRow("cut in the body")
            << fault(Fault::On(path).WithCutAfter(10'000)) << WrongContentType << old;
        QTest::newRow("cut in a chunked body")
            << fault(Fault::On(path).WithChunks().WithCutAfter(10'000)) << WrongContentType << old;
        QTest::newRow("reset instead of an answer")
            << fault(Fault::On(path).WithReset()) << WrongContentType << old;
        QTest::newRow("reset in the body")
            << fault(Fault::On(path).WithResetAfter(10'000)) << WrongContentType << old;
        QTest::newRow("broken gzip") << fault(Fault::On(path).WithBrokenGzip()) << WrongContentType << old;

        const QString host = m_server->Server().Host();
        const auto redirect = [path, host](const QByteArray& url) {
            return Script([=](ScriptedServer& server) {
                server.AddFault(Fault::On(path).ForHost(host).WithRedirect(url));
                server.AnswerJsonApi(u"/elsewhere"_s, c_oneVenue);
            });
        };
        QTest::newRow("redirect to another https host")
            << redirect("https://second.example/elsewhere") << Ok << found;
        QTest::newRow("redirect to http")
            << redirect("http://second.example/elsewhere") << WrongContentType << old;
        QTest::newRow("redirect to a file") << redirect("file:///etc/passwd") << WrongContentType << old;
        QTest::newRow("redirect in a circle")
            << redirect("https://" + host.toLatin1() + "/api/venue") << WrongContentType << old;

        QTest::newRow("proxy answers 502")
            << network(NetworkFault::Kind::AnswerConnect, 502) << WrongContentType << old;
        QTest::newRow("no TLS") << network(NetworkFault::Kind::GarbageInsteadOfTls) << WrongContentType
                                << old;
        QTest::newRow("connection reset")
            << network(NetworkFault::Kind::ResetAfter) << WrongContentType << old;
        using korvel::Demo::CertificateKind;
        QTest::newRow("expired certificate")
            << certificate(CertificateKind::Expired) << WrongContentType << old;
        QTest::newRow("self-signed certificate")
            << certificate(CertificateKind::SelfSigned) << WrongContentType << old;
        QTest::newRow("certificate of another host")
            << certificate(CertificateKind::WrongHost) << WrongContentType << old;
        QTest::newRow("certificate of an unknown authority")
            << certificate(CertificateKind::UnknownAuthority) << WrongContentType << old;
        QTest::newRow("server down") << Script([](ScriptedServer& server) { server.Server().Stop(); })
                                     << WrongContentType << old;
    }
    void Outcome()
    {
        QFETCH(Script, script);
        QFETCH(ResultStatus, status);
        QFETCH(QStringList, names);
        script(*m_server);
        QList<Venue> venues = OldVenues();
        QCOMPARE(m_connector->FindVenueEntries({}, venues), status);
        QCOMPARE(ComplexNames(venues), names);
    }

    void ConnectorWorksAgainAfterAFailure()
    {
        m_server->AddFault(Fault::On(u"/api/venue"_s).WithStatus(503).Times(1));
        m_server->AnswerJsonApi(u"/api/venue"_s, c_oneVenue);
        QList<Venue> venues;
        QCOMPARE(m_connector->FindVenueEntries({}, venues), WrongContentType);
        QCOMPARE(m_connector->FindVenueEntries({}, venues), Ok);
        QCOMPARE(ComplexNames(venues), QStringList{u"new"_s});
    }

    void PagingLinksAreNotFollowed()
    {
        m_server->AnswerJsonApi(u"/api/venue"_s, Fixture(u"venues.json"_s));
        QList<Venue> venues;
        QCOMPARE(m_connector->FindVenueEntries({}, venues), Ok);
        QCOMPARE(m_server->Targets(), QStringList{u"/api/venue?include=editor"_s});
    }

    // Lifetimes.

    void ReadReplyIsReleased_data()
    {
        QTest::addColumn<int>("status");
        QTest::newRow("success") << 200;
        QTest::newRow("failure") << 500;
    }
    void ReadReplyIsReleased()
    {
        QFETCH(int, status);
        m_server->Answer(u"/api/venue"_s, c_oneVenue, c_jsonApi, status);
        QList<Venue> venues;
        m_connector->FindVenueEntries({}, venues);
        QCOMPARE(m_connector->findChildren<QNetworkReply*>().size(), 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(m_connector->findChildren<QNetworkReply*>().size(), 0);
    }

    void ConnectorMayBeDeletedDuringTheWait()
    {
        m_server->Withhold(u"/api/venue"_s);
        const QObject context;
        connect(&m_server->Log(), &korvel::Demo::RequestLog::RequestReceived, &context,
                [this]() { m_connector.reset(); });
        QList<Venue> venues = OldVenues();
        QCOMPARE(m_connector->FindVenueEntries({}, venues), Timeout);
        QCOMPARE(m_connector, nullptr);
        QCOMPARE(ComplexNames(venues), QStringList({u"old"_s, u"old"_s}));
    }

    void ConnectorMayBeDeletedWhenItsReplyFinishes()
    {
        m_server->AnswerJsonApi(u"/api/venue"_s, c_oneVenue);
        QTimer::singleShot(0, this, [this]() {
            const auto reply = m_connector->findChild<QNetworkReply*>();
            QVERIFY(reply);
            connect(reply, &QNetworkReply::finished, this,
                    [this]() { m_connector.release()->deleteLater(); });
        });
        QList<Venue> venues = OldVenues();
        ConnectorJsonRest* const connector = m_connector.get();
        const QPointer<ConnectorJsonRest> alive(connector);
        const ResultStatus status = connector->FindVenueEntries({}, venues);
        // Whether the deletion or the end of the wait comes first is the event loop's affair.
        if (status == Ok)
            QCOMPARE(ComplexNames(venues), QStringList{u"new"_s});
        else
            QCOMPARE(ComplexNames(venues), QStringList({u"old"_s, u"old"_s}));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!alive);
    }

    void QuittingEndsTheWait()
    {
        m_server->Withhold(u"/api/venue"_s);
        const QObject context;
        connect(&m_server->Log(), &korvel::Demo::RequestLog::RequestReceived, &context,
                []() { QCoreApplication::quit(); });
        QList<Venue> venues = OldVenues();
        ResultStatus status = Ok;
        QTimer::singleShot(0, &context, [&]() { status = m_connector->FindVenueEntries({}, venues); });
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::exec();
        QCOMPARE(status, Timeout);
        QCOMPARE(ComplexNames(venues), QStringList({u"old"_s, u"old"_s}));
        QVERIFY(timer.elapsed() < 15'000);
    }

    void SearchInsideASearchIsIndependent()
    {
        m_server->AddFault(Fault::On(u"outer"_s).WithBody(c_oneVenue).WithDelay(300));
        m_server->AddFault(Fault::On(u"inner"_s).WithBody(R"({"data": []})"));
        QList<Venue> inner = OldVenues();
        ResultStatus innerStatus = Timeout;
        QTimer::singleShot(0, this, [&]() {
            innerStatus = m_connector->FindVenueEntries({{u"title"_s, u"inner"_s}}, inner);
        });
        QList<Venue> outer;
        QCOMPARE(m_connector->FindVenueEntries({{u"title"_s, u"outer"_s}}, outer), Ok);
        QCOMPARE(ComplexNames(outer), QStringList{u"new"_s});
        QCOMPARE(innerStatus, Ok);
        QCOMPARE(inner.size(), 0);
    }

    void InnerSearchThatOutlastsTheOuterOne()
    {
        m_server->AddFault(Fault::On(u"outer"_s).WithBody(c_oneVenue));
        m_server->AddFault(Fault::On(u"inner"_s).WithBody(R"({"data": []})").WithDelay(300));
        QList<Venue> inner = OldVenues();
        ResultStatus innerStatus = Timeout;
        QTimer::singleShot(0, this, [&]() {
            innerStatus = m_connector->FindVenueEntries({{u"title"_s, u"inner"_s}}, inner);
        });
        QList<Venue> outer;
        QCOMPARE(m_connector->FindVenueEntries({{u"title"_s, u"outer"_s}}, outer), Ok);
        QCOMPARE(ComplexNames(outer), QStringList{u"new"_s});
        QCOMPARE(innerStatus, Ok);
        QCOMPARE(inner.size(), 0);
    }

private:
    struct Attribute
    {
        const char* json;
        TextGetter getter;
    };
    static constexpr Attribute c_attributes[] = {
        {R"({"title": "x"})", &Venue::GetComplexName},
        {R"({"venue_room_name": "x"})", &Venue::GetVenueRoomName},
        {R"({"general_comment": "x"})", &Venue::GetGeneralComment},
        {R"({"address": {"locality": "x"}})", &Venue::GetCity},
        {R"({"comment": "x"})", &Venue::GetLocationComment},
        {R"({"loading_dock_street_address": "x"})", &Venue::GetLoadDockStreetAddress},
        {R"({"load_in_comments": "x"})", &Venue::GetLoadDockComment},
        {R"({"clearance_of_house_grid_rigging_beams_above_venue_floor": "x"})",
         &Venue::GetClearingOfHouseGrid},
        {R"({"rigging_specialties": "x"})", &Venue::GetRiggingComment},
    };

    /// Attributes and the entity id that they give.
    static void Numbers()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<qint64>("number");
        const auto row = [](const char* name, const char* value, qint64 number) {
            QTest::newRow(name) << QByteArray(R"({"entity_id": )") + value + "}" << number;
        };
        row("number", "17", 17);
        row("negative", "-17", -17);
        row("exponent", "1e3", 1000);
        row("greatest of 31 bits", "2147483647", 2147483647);
        row("one more is 0", "2147483648", 0);
        row("64 bits are 0", "9007199254740993", 0);
        row("fraction is 0", "1.5", 0);
        row("text is 0", "\"17\"", 0);
        row("true is 0", "true", 0);
        row("null is 0", "null", 0);
        row("array is 0", "[17]", 0);
        row("object is 0", R"({"value": 17})", 0);
        QTest::newRow("missing is 0") << QByteArray("{}") << 0LL;
    }

    Venue OnlyVenue(const QByteArray& document) const
    {
        const QList<Venue> venues = m_connector->ProcessVenueEntriesReply(JsonObject(document));
        if (venues.size() != 1)
            qFatal("%d venues instead of one", int(venues.size()));
        return venues.first();
    }

    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<VdbMessages> m_messages;
    std::unique_ptr<ConnectorJsonRest> m_connector;
};

QTEST_GUILESS_MAIN(tst_VenueSearch)
#include "tst_VenueSearch.moc"
