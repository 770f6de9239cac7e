#include <tests/support/ConnectorTest.h>
#include <tests/support/Fixture.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>

#include <QPointer>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Demo;
using namespace korvel::Test;

using Filters = QList<std::pair<QString, QString>>;
using TextGetter = QString (Venue::*)() const;

Q_DECLARE_METATYPE(TextGetter)

namespace {

/// What stood in the caller's list before a search.
QList<Venue> OldVenues()
{
    return {MakeVenue(-1, u"old"_s), MakeVenue(-1, u"old"_s)};
}

/// A document with one venue that has these "attributes".
QByteArray DocumentWithAttributes(const QByteArray& attributes)
{
    return R"({"data": [{"type": "venue", "attributes": )" + attributes + "}]}";
}

const QByteArray c_oneVenue = R"({"data": [{"attributes": {"title": "new"}}]})";
const QStringList c_oldNames{u"old"_s, u"old"_s};

} // namespace

class tst_VenueSearch : public ConnectorTest
{
    Q_OBJECT

private Q_SLOTS:
    // The reply.

    void WholeReplyIsReadInReverseOrder()
    {
        const QList<Venue> venues = m_connector->ProcessVenueEntriesReply(FixtureObject(u"venues.json"_s));
        QCOMPARE(NamesOf(venues), QStringList({u"Complex C"_s, u"Complex B"_s, u"Komplex \u00c4"_s}));

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
        QVERIFY(bare.GetUploadDate().isNull() && bare.GetEditDate().isNull());
        QCOMPARE(bare.GetEditor(), -1);
    }

    void AttributeGoesToItsField_data()
    {
        const Rows<QByteArray, TextGetter> row("attributes", "getter");
        for (const Attribute& attribute : c_attributes)
            row(attribute.json, QByteArray(attribute.json), attribute.getter);
    }
    void AttributeGoesToItsField()
    {
        const auto [attributes, getter] = Fetch<QByteArray, TextGetter>();
        const Venue venue = OnlyVenue(DocumentWithAttributes(attributes));
        QCOMPARE((venue.*getter)(), u"x"_s);
        for (const Attribute& other : c_attributes)
            if (other.getter != getter)
                QCOMPARE((venue.*other.getter)(), QString());
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
        const Rows<QByteArray> row("value");
        row("number", "12.5");
        row("bool", "true");
        row("null", "null");
        row("array", R"(["x"])");
        row("object", R"({"x": "x"})");
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

    void Id_data()
    {
        Numbers();
    }
    void Id()
    {
        QFETCH(QByteArray, json);
        QTEST(OnlyVenue(DocumentWithAttributes(json)).GetId(), "number");
    }

    void EditorId_data()
    {
        Numbers();
    }
    void EditorId()
    {
        QFETCH(QByteArray, json);
        const Venue venue = OnlyVenue(R"({"data": [{"relationships": {"editor": {"data": {"id": "u"}}}}],)"
                                      R"("included": [{"type": "user", "id": "u", "attributes": )"
                                      + json + "}]}");
        QTEST(venue.GetEditor(), "number");
    }

    void Country_data()
    {
        const Rows<QByteArray, QString, QString> row("address", "code", "name");
        row("known", R"({"country_code": "DE"})", u"DE"_s, u"Germany"_s);
        row("lower case", R"({"country_code": "de"})", u"de"_s, u"unknown"_s);
        row("not in the table", R"({"country_code": "UA"})", u"UA"_s, u"unknown"_s);
        row("missing", "{}", {}, u"unknown"_s);
        row("number", R"({"country_code": 49})", {}, u"unknown"_s);
        row("name instead of code", R"({"country_code": "Germany"})", u"Germany"_s, u"unknown"_s);
        row("no address", "null", {}, u"unknown"_s);
    }
    void Country()
    {
        QFETCH(QByteArray, address);
        const Venue venue = OnlyVenue(DocumentWithAttributes(R"({"address": )" + address + "}"));
        QTEST(venue.GetAddress().countryCode(), "code");
        QTEST(venue.GetCountry(), "name");
    }

    // More dates, and what Qt makes of them, stand in tst_ServerDate.
    void UploadDate_data()
    {
        const Rows<QByteArray, QDate> row("created", "date");
        row("date", R"("2023-02-01")", QDate(2023, 2, 1));
        row("leap day", R"("2024-02-29")", QDate(2024, 2, 29));
        row("without hyphens", R"("20230201")", {});
        row("other order", R"("01-02-2023")", {});
        row("number", "20230201", {});
        row("null", "null", {});
    }
    void UploadDate()
    {
        QFETCH(QByteArray, created);
        QTEST(OnlyVenue(DocumentWithAttributes(R"({"created": )" + created + "}")).GetUploadDate(), "date");
    }

    void EditDate_data()
    {
        const Rows<QByteArray, bool> row("changed", "valid");
        row("+00:00", R"("2024-03-01T10:20:30+00:00")", true);
        row("Z", R"("2024-03-01T10:20:30Z")", false);
        row("-00:00", R"("2024-03-01T10:20:30-00:00")", false);
        row("+0000", R"("2024-03-01T10:20:30+0000")", false);
        row("fraction of a second", R"("2024-03-01T10:20:30.123+00:00")", false);
        row("text behind", R"("2024-03-01T10:20:30+00:00 UTC")", false);
        row("number", "1709288430", false);
        row("null", "null", false);
    }
    void EditDate()
    {
        const auto [changed, valid] = Fetch<QByteArray, bool>();
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
        const Rows<QByteArray, QByteArray, qint64> row("relationships", "included", "editor");
        const QByteArray toU = R"({"editor": {"data": {"type": "user", "id": "u"}}})";
        const QByteArray userU = R"({"type": "user", "id": "u", "attributes": {"entity_id": 5}})";
        const QByteArray laterU = R"({"type": "user", "id": "u", "attributes": {"entity_id": 6}})";

        row("matching user", toU, "[" + userU + "]", 5);
        row("first of two matches wins", toU, "[" + userU + "," + laterU + "]", 5);
        row("first match wins although it names no entity", toU,
            R"([{"type": "user", "id": "u"},)" + userU + "]", 0);
        row("other type with the same id is skipped", toU,
            R"([{"type": "venue", "id": "u", "attributes": {"entity_id": 4}},)" + userU + "]", 5);
        row("type in capitals", toU, R"([{"type": "User", "id": "u", "attributes": {"entity_id": 4}}])", -1);
        row("no type", toU, R"([{"id": "u", "attributes": {"entity_id": 4}}])", -1);
        row("other user", toU, R"([{"type": "user", "id": "v", "attributes": {"entity_id": 4}}])", -1);
        row("id in capitals", toU, R"([{"type": "user", "id": "U", "attributes": {"entity_id": 4}}])", -1);
        row("no user", toU, "[]", -1);
        row("included is an object", toU, userU, -1);
        row("included is null", toU, "null", -1);
        row("rubbish in included is skipped", toU, R"([null, 1, "u", [],)" + userU + "]", 5);
        row("number never equals the text", R"({"editor": {"data": {"id": "5"}}})",
            R"([{"type": "user", "id": 5, "attributes": {"entity_id": 4}}])", -1);
        row("text never equals the number", R"({"editor": {"data": {"id": 5}}})",
            R"([{"type": "user", "id": "5", "attributes": {"entity_id": 4}}])", -1);
        row("number in both places", R"({"editor": {"data": {"id": 5}}})",
            R"([{"type": "user", "id": 5, "attributes": {"entity_id": 4}}])", -1);
        row("no relationship", "{}", "[" + userU + "]", -1);
        row("relationship to nobody", R"({"editor": {"data": null}})", "[" + userU + "]", -1);
        row("relationship to many", R"({"editor": {"data": [{"id": "u"}]}})", "[" + userU + "]", -1);
        // A missing id reads as an empty text, which is the id of this user.
        row("no relationship, user with an empty id", "{}",
            R"([{"type": "user", "id": "", "attributes": {"entity_id": 4}}])", 4);
        row("no relationship, user without an id", "{}",
            R"([{"type": "user", "attributes": {"entity_id": 4}}])", -1);
        row("relationship of another kind", R"({"author": {"data": {"id": "u"}}})", "[" + userU + "]", -1);
    }
    void Editor()
    {
        const auto [relationships, included] = Fetch<QByteArray, QByteArray>();
        const Venue venue = OnlyVenue(R"({"data": [{"relationships": )" + relationships
                                      + R"(}], "included": )" + included + "}");
        QTEST(venue.GetEditor(), "editor");
    }

    void EveryVenueFindsItsOwnEditor()
    {
        // The last ones first.
        constexpr int count = 300;
        QJsonArray data;
        QJsonArray included;
        for (int index = 1; index <= count; ++index) {
            const QJsonObject user{{u"id"_s, u"user-%1"_s.arg(count + 1 - index)}};
            data.append(QJsonObject{
                {u"relationships"_s, QJsonObject{{u"editor"_s, QJsonObject{{u"data"_s, user}}}}}});
            included.append(QJsonObject{{u"type"_s, u"user"_s},
                                        {u"id"_s, u"user-%1"_s.arg(index)},
                                        {u"attributes"_s, QJsonObject{{u"entity_id"_s, index}}}});
        }
        const QList<Venue> venues
            = m_connector->ProcessVenueEntriesReply({{u"data"_s, data}, {u"included"_s, included}});
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
        const Rows<Filters, QByteArray> row("filters", "target");
        const auto condition = [](const QByteArray& key, const QByteArray& path, const QByteArray& value) {
            const QByteArray prefix = "filter[" + key + "][condition]";
            return prefix + "[path]=" + path + "&" + prefix + "[operator]=CONTAINS&" + prefix
                + "[value]=" + value + "&";
        };
        const QByteArray start = "/api/venue?";
        const QByteArray end = "include=editor";
        const auto title = [](const QString& text) { return Filters{{u"title"_s, text}}; };

        row("no filter asks for all venues", {}, start + end);
        row("text keeps its case", title(u"Hall"_s), start + condition("title", "title", "Hall") + end);
        row("path in lower case", {{u"Venue_ROOM_Name"_s, u"A"_s}},
            start + condition("venue_room_name", "venue_room_name", "A") + end);
        row("path into the address", {{u"address.locality"_s, u"Paris"_s}},
            start + condition("address.locality", "address.locality", "Paris") + end);
        row("two filters in their order", {{u"venue_room_name"_s, u"B"_s}, {u"title"_s, u"A"_s}},
            start + condition("venue_room_name", "venue_room_name", "B") + condition("title", "title", "A")
                + end);
        row("same path twice", {{u"title"_s, u"A"_s}, {u"title"_s, u"B"_s}},
            start + condition("title", "title", "A") + condition("title", "title", "B") + end);
        row("empty text", title(u""_s), start + condition("title", "title", "") + end);
        row("separators", title(u"A&B=C#D"_s), start + condition("title", "title", "A%26B%3DC%23D") + end);
        row("blank", title(u"Royal Hall"_s), start + condition("title", "title", "Royal%20Hall") + end);
        row("plus, question mark, slash", title(u"A+B?/C"_s),
            start + condition("title", "title", "A+B?/C") + end);
        row("not ASCII", title(u"Stra\u00dfe \u0416"_s),
            start + condition("title", "title", "Stra%C3%9Fe%20%D0%96") + end);
        row("line break and markup", title(u"a\r\nX: <b>\""_s),
            start + condition("title", "title", "a%0D%0AX:%20%3Cb%3E%22") + end);
        row("typed triplets count as encoded", title(u"%41 %C3%9F"_s),
            start + condition("title", "title", "A%20%C3%9F") + end);
        row("per cent sign", title(u"100%"_s), start + condition("title", "title", "100%25") + end);
        row("brackets in a path", {{u"a]b"_s, u"x"_s}}, start + condition("a]b", "a]b", "x") + end);
    }
    void RequestOnTheWire()
    {
        const auto [filters, target] = Fetch<Filters, QByteArray>();
        m_server->AnswerJsonApi(u"/api/venue"_s, c_oneVenue);
        QList<Venue> venues;
        QCOMPARE(m_connector->FindVenueEntries(filters, venues), Ok);
        QCOMPARE(NamesOf(venues), QStringList{u"new"_s});
        QCOMPARE(m_server->Log().RequestCount(), 1);
        QCOMPARE(m_server->Log().LastRequest().method, QByteArray("GET"));
        QCOMPARE(m_server->Log().LastRequest().target, target);
    }

    // The outcome.

    // Every way to fail stands in the matrix; this answer is hardly different.
    void MediaTypeWithASemicolonIsAnother()
    {
        m_server->Answer(u"/api/venue"_s, c_oneVenue, "application/vnd.api+json;");
        QList<Venue> venues = OldVenues();
        QCOMPARE(m_connector->FindVenueEntries({}, venues), WrongContentType);
        QCOMPARE(NamesOf(venues), c_oldNames);
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
        const Rows<int> row("status");
        row("success", 200);
        row("failure", 500);
    }
    void ReadReplyIsReleased()
    {
        QFETCH(int, status);
        m_server->Answer(u"/api/venue"_s, c_oneVenue, c_jsonApi, status);
        QList<Venue> venues;
        m_connector->FindVenueEntries({}, venues);
        QCOMPARE(m_connector->findChildren<QNetworkReply*>().size(), 1);
        QCOMPARE(ReplyCount(), 0);
    }

    void BodyIsInMemoryOnce()
    {
        m_server->AnswerJsonApi(u"/api/venue"_s, c_oneVenue + QByteArray(4'000'000, ' '));
        int pieceCount = 0;
        qint64 leftBehind = 0;
        QTimer::singleShot(0, this, [&, this]() {
            const auto* const reply = m_connector->findChild<QNetworkReply*>();
            QVERIFY(reply);
            connect(reply, &QNetworkReply::readyRead, this, [&pieceCount, &leftBehind, reply]() {
                ++pieceCount;
                leftBehind = qMax(leftBehind, reply->bytesAvailable());
            });
        });
        QList<Venue> venues;
        QCOMPARE(m_connector->FindVenueEntries({}, venues), Ok);
        QCOMPARE(NamesOf(venues), QStringList{u"new"_s});
        QCOMPARE_GT(pieceCount, 1);
        QCOMPARE(leftBehind, 0);
    }

    void EqualTextsShareTheirMemory_data()
    {
        const Rows<QByteArray> row("before");
        row("read from the bytes", {});
        // Only QJsonDocument reads what follows a byte order mark.
        row("read by QJsonDocument", "\xef\xbb\xbf");
    }
    void EqualTextsShareTheirMemory()
    {
        QFETCH(QByteArray, before);
        QByteArrayList elements;
        QStringList names;
        // More names than are remembered.
        for (int number = 0; number < 6000; ++number) {
            elements.append(R"({"attributes": {"title": "Hall )" + QByteArray::number(number)
                            + R"(", "address": {"locality": "Salzburg"}}})");
            names.prepend(u"Hall %1"_s.arg(number));
        }
        m_server->AnswerJsonApi(u"/api/venue"_s, before + R"({"data": [)" + elements.join(',') + "]}");
        QList<Venue> venues;
        QCOMPARE(m_connector->FindVenueEntries({}, venues), Ok);
        QCOMPARE(NamesOf(venues), names);
        QVERIFY(venues.at(0).GetCity().constData() == venues.at(1).GetCity().constData());
    }

    void ConnectorMayBeDeletedDuringTheWait()
    {
        m_server->Withhold(u"/api/venue"_s);
        OnRequest({}, [this]() { m_connector.reset(); });
        QList<Venue> venues = OldVenues();
        QCOMPARE(m_connector->FindVenueEntries({}, venues), Timeout);
        QCOMPARE(m_connector, nullptr);
        QCOMPARE(NamesOf(venues), c_oldNames);
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
        QCOMPARE(NamesOf(venues), status == Ok ? QStringList{u"new"_s} : c_oldNames);
        DeleteWhatIsDue();
        QVERIFY(!alive);
    }

    void QuittingEndsTheWait()
    {
        m_server->Withhold(u"/api/venue"_s);
        QList<Venue> venues = OldVenues();
        ResultStatus status = Ok;
        QVERIFY(QuittingEnds({}, [&]() { status = m_connector->FindVenueEntries({}, venues); }));
        QCOMPARE(status, Timeout);
        QCOMPARE(NamesOf(venues), c_oldNames);
    }

    void SearchInsideASearchIsIndependent_data()
    {
        const Rows<int, int> row("outerDelay", "innerDelay");
        row("inner one ends first", 300, 0);
        row("inner one outlasts the outer one", 0, 300);
    }
    void SearchInsideASearchIsIndependent()
    {
        QFETCH(int, outerDelay);
        QFETCH(int, innerDelay);
        m_server->AddFault(Fault::On(u"outer"_s).WithBody(c_oneVenue).WithDelay(outerDelay));
        m_server->AddFault(Fault::On(u"inner"_s).WithBody(R"({"data": []})").WithDelay(innerDelay));
        QList<Venue> inner = OldVenues();
        ResultStatus innerStatus = Timeout;
        QTimer::singleShot(0, this, [&]() {
            innerStatus = m_connector->FindVenueEntries({{u"title"_s, u"inner"_s}}, inner);
        });
        QList<Venue> outer;
        QCOMPARE(m_connector->FindVenueEntries({{u"title"_s, u"outer"_s}}, outer), Ok);
        QCOMPARE(NamesOf(outer), QStringList{u"new"_s});
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
        const Rows<QByteArray, qint64> rows("json", "number");
        const auto row = [&rows](const char* name, const char* value, qint64 number) {
            rows(name, QByteArray(R"({"entity_id": )") + value + "}", number);
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
        rows("missing is 0", "{}", 0);
    }

    Venue OnlyVenue(const QByteArray& document) const
    {
        const QList<Venue> venues = m_connector->ProcessVenueEntriesReply(JsonObject(document));
        if (venues.size() != 1)
            qFatal("%d venues instead of one", int(venues.size()));
        return venues.first();
    }
};

QTEST_GUILESS_MAIN(tst_VenueSearch)
#include "tst_VenueSearch.moc"
