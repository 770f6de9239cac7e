#include <fuzz/FuzzTargets.h>
#include <fuzz/MutatedReplies.h>
#include <fuzz/ReaderComparison.h>

#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

using namespace Qt::StringLiterals;
using namespace korvel::Test;
using korvel::Fuzz::IsReadQuickly;
using korvel::Fuzz::MutatedReplies;
using korvel::Fuzz::ReaderDifference;

namespace {

/// A reply with one venue with these "attributes".
QByteArray WithAttributes(const QByteArray& attributes)
{
    return R"({"data":[{"attributes":)" + attributes + "}]}";
}

/// A reply with a venue that \p editor edited, and these users.
QByteArray WithUsers(const QByteArray& editor, const QByteArray& users)
{
    return R"({"data":[{"relationships":{"editor":{"data":{"id":)" + editor + R"(}}}}],"included":[)" + users
        + "]}";
}

/// A reply with \p depth arrays within each other in a member that nobody reads.
QByteArray WithDepth(int depth)
{
    return R"({"data":[{"attributes":{"title":"deep"}}],"meta":)" + QByteArray(depth, '[') + '1'
        + QByteArray(depth, ']') + "}";
}

} // namespace

/// Holds the reading of replies straight from their bytes to what QJsonDocument makes of them.
class tst_VenueReader : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void ReadsLikeQJsonDocument_data()
    {
        const Rows<QByteArray, bool> row("body", "isQuick");
        AddDocuments(row);
        AddNumbers(row);
        AddTexts(row);
        AddUsers(row);
    }
    void ReadsLikeQJsonDocument()
    {
        QFETCH(QByteArray, body);
        QCOMPARE(ReaderDifference(body), QString());
        // What is refused costs more than before, so it must not become more by the way.
        QTEST(IsReadQuickly(body), "isQuick");
    }

    /// script/more/mutate-replies asks for many more.
    void ReadsMutatedRepliesLikeQJsonDocument()
    {
        const int count = qEnvironmentVariableIsSet("VDB_MUTATED_REPLIES")
            ? qEnvironmentVariableIntValue("VDB_MUTATED_REPLIES")
            : 3000;
        MutatedReplies replies(1);
        int quick = 0;
        for (int number = 0; number < count; ++number) {
            const QByteArray body = replies.Next();
            const QString difference = ReaderDifference(body);
            QVERIFY2(difference.isEmpty(),
                     qPrintable(u"reply %1: %2: %3"_s.arg(QString::number(number), difference,
                                                          QString::fromLatin1(body))));
            quick += IsReadQuickly(body);
        }
        qInfo("%d replies, %d of them read straight from their bytes", count, quick);
        // Replies that only QJsonDocument reads would prove nothing.
        QVERIFY(quick > count / 10);
        QVERIFY(quick < count);
    }

private:
    static void AddDocuments(const Rows<QByteArray, bool>& add)
    {
        add("document: a list without venues", R"({"data":[]})", true);
        add("document: no list", R"({"meta":1})", false);
        add("document: an object instead of the list", R"({"data":{"attributes":{"title":"x"}}})", false);
        add("document: an array", R"([{"data":[{}]}])", false);
        add("document: a text", R"("data")", false);
        add("document: a number", "5", false);
        add("document: empty", "", false);
        add("document: white space", " \t\r\n", false);
        add("document: white space everywhere",
            " {\n\t\"data\" : [ { \"attributes\" : { \"entity_id\" : 5 , \"title\" : \"x\" } } ,\r\n { } ] "
            "} ",
            true);
        add("document: cut short", R"({"data":[{"attributes":{"entity_id":5}})", false);
        add("document: cut short in a text", "{\"data\":[{\"attributes\":{\"title\":\"x", false);
        add("document: cut short in an escape", "{\"data\":[{\"attributes\":{\"title\":\"x\\u00", false);
        add("document: something behind it", R"({"data":[{}]} x)", false);
        add("document: a NUL behind it", QByteArray(R"({"data":[{}]})") + '\0', false);
        add("document: a comma too many in an object", R"({"data":[{"attributes":{"entity_id":5,}}]})",
            false);
        add("document: a comma too many in the list", R"({"data":[{},]})", false);
        add("document: a comma missing", R"({"data":[{} {}]})", false);
        add("document: a colon missing", R"({"data" [{}]})", false);
        add("document: a name without quotes", R"({data:[{}]})", false);
        add("document: words cut short", R"({"data":[{}],"meta":tru})", false);
        add("document: byte order mark", "\xef\xbb\xbf{\"data\":[{\"attributes\":{\"entity_id\":5}}]}",
            false);
        add("document: elements of any type", R"({"data":[5,"x",null,true,[],{},[{}]]})", true);
        add("document: members of any type",
            R"({"data":[{"attributes":5},{"attributes":{"address":[]}},{"attributes":[{"title":"x"}]},)"
            R"({"relationships":"x"},{"relationships":{"editor":5}},{"relationships":{"editor":{"data":[]}}}]})",
            true);
        add("document: users first",
            R"({"included":[{"type":"user","id":"u","attributes":{"entity_id":3}}],)"
            R"("data":[{"relationships":{"editor":{"data":{"id":"u"}}}}]})",
            true);
        add("document: the order of the venues",
            R"({"data":[{"attributes":{"entity_id":1}},{"attributes":{"entity_id":2}},{"attributes":{"entity_id":3}}]})",
            true);
        add("document: two lists", R"({"data":[{"attributes":{"entity_id":1}}],"data":[]})", false);
        add("document: a name with an escape", R"({"d\u0061ta":[{"attributes":{"entity_id":1}}]})", false);
        add("document: two members whose names are equal without escapes",
            R"({"data":[{"attributes":{"title":"a","t\u0069tle":"b"}}]})", false);
        add("document: a member twice", WithAttributes(R"({"title":"first","title":"second"})"), false);
        add("document: attributes twice",
            R"({"data":[{"attributes":{"title":"first"},"attributes":{"entity_id":5}}]})", false);
        add("document: an address twice",
            WithAttributes(R"({"address":{"locality":"first"},"address":{"postal_code":"1"}})"), false);
        add("document: a member twice that nobody reads", WithAttributes(R"({"x":1,"x":2,"title":"t"})"),
            true);
        add("document: an empty name", WithAttributes(R"({"":"x","title":"t"})"), true);
        add("document: 64 levels", WithDepth(63), true);
        add("document: 65 levels", WithDepth(64), false);
        add("document: 1024 levels", WithDepth(1023), false);
        add("document: 1025 levels", WithDepth(1024), false);
        add("document: an array that is never closed", "{\"data\":" + QByteArray(100000, '['), false);
    }

    static void AddNumbers(const Rows<QByteArray, bool>& row)
    {
        const auto add = [&row](const QByteArray& number, bool isQuick) {
            row("number: " + number,
                WithAttributes(R"({"entity_id":)" + number + R"(,"title":5,"lat":)" + number + "}"), isQuick);
        };
        for (const char* number :
             {"0",          "7",           "-7",         "-0",          "5.0",        "-5.00",
              "0.5",        "1.5",         "1e2",        "1E+2",        "100e-2",     "1e-2",
              "2147483647", "-2147483648", "2147483648", "-2147483649", "4294967296", "9007199254740993",
              "1e10",       "5.0e9",       "1e99"})
            add(number, true);
        add("9223372036854775807", true);
        add("9223372036854775808", true);
        add("-9223372036854775809", true);
        add("18446744073709551616", true);
        add("1234567890123456789012345678901234567890", true);
        for (const char* number :
             {"-",      "+5",    "01",  "-01",      "00",  ".5",
              "5.",     "5.e1",  "1e",  "1e+",      "0x5", "1e100",
              "1e309",  "1e400", "NaN", "Infinity", "5 5", "12345678901234567890123456789012345678901",
              "\"5\"5", "- 5"})
            add(number, false);
        row("number: as a text", WithAttributes(R"({"entity_id":"5"})"), true);
        row("number: missing", WithAttributes(R"({"title":"x"})"), true);
        row("number: other types", WithAttributes(R"({"entity_id":true})"), true);
        row("number: an array", WithAttributes(R"({"entity_id":[5]})"), true);
        row("number: at the end", "{\"data\":5", false);
    }

    static void AddTexts(const Rows<QByteArray, bool>& row)
    {
        const auto add = [&row](const QByteArray& name, const QByteArray& text, bool isQuick) {
            const QByteArray value = '"' + text + '"';
            row("text: " + name,
                WithAttributes(R"({"title":)" + value + R"(,"general_comment":)" + value + R"(,"created":)"
                               + value + R"(,"address":{"country_code":)" + value + R"(},"unread":)" + value
                               + "}"),
                isQuick);
        };
        add("empty", "", true);
        add("plain", "Opera", true);
        add("of other languages", "Z\xc3\xbcrich \xe6\x9d\xb1\xe4\xba\xac \xf0\x9f\x98\x80", true);
        add("every escape", R"(\"\\\/\b\f\n\r\t\u00e9\u00E9)", true);
        add("escape at the end", R"(x\n)", true);
        add("escaped backslash before the quote", R"(x\\)", true);
        add("escaped NUL", R"(a\u0000b)", true);
        add("escaped control character", R"(a\u001fb)", true);
        add("surrogate pair", R"(\ud83d\ude00)", true);
        add("lone high surrogate", R"(a\ud83db)", true);
        add("lone low surrogate", R"(\ude00)", true);
        add("surrogates the wrong way round", R"(\ude00\ud83d)", true);
        add("raw control characters", "a\nb\tc\x01", true);
        add("raw NUL", QByteArray("a\0b", 3), true);
        add("unknown escape", R"(a\xb)", false);
        add("escaped letter of another language", "a\\\xc3\xa9", false);
        add("escape without digits", R"(\u12)", false);
        add("escape with wrong digits", R"(\u12g4)", false);
        add("escape with a sign", R"(\u+123)", false);
        add("byte that is never UTF-8", "a\xff", false);
        add("UTF-8 cut short", "a\xe6\x9d", false);
        add("overlong UTF-8", "a\xc0\xaf", false);
        add("UTF-8 surrogate", "a\xed\xa0\x80", false);
        add("beyond Unicode", "a\xf4\x90\x80\x80", false);
        add("non-character", "a\xef\xbf\xbe\xf4\x8f\xbf\xbf", true);
        add("byte order mark within", "a\xef\xbb\xbf", true);
        add("byte order mark at the begin",
            "\xef\xbb\xbf"
            "a",
            false);
        add("byte order mark at the begin, with an escape",
            "\xef\xbb\xbf"
            "a\\n",
            false);
        add("date", "2024-02-29", true);
        add("date with an escape", R"(2024\u002d02-29)", true);
        add("impossible date", "2023-02-29", true);
        add("date of full-width digits",
            "\xef\xbc\x92"
            "024-02-29",
            true);
        add("long", QByteArray(100000, 'x'), true);
        row("text: missing", WithAttributes("{}"), true);
        row("text: null", WithAttributes(R"({"title":null,"address":{"locality":null}})"), true);
        for (const QByteArray dateTime :
             {"2024-03-01T10:20:30+00:00", "2024-03-01T10:20:30Z", "2024-03-01T24:00:00+00:00", "2024-03-01",
              "2024-03-01T10:20:30+01:00", "2024-03-01T10:20:30\\u002b00:00", "0000-00-00T00:00:00+00:00"})
            row("text: edited " + dateTime, WithAttributes(R"({"changed":)" + ('"' + dateTime) + "\"}"),
                true);
        // Rooms of one building: the second text is the memory of the first.
        row("text: equal texts in several spellings",
            R"({"data":[{"attributes":{"title":"a/b"}},{"attributes":{"title":"a\/b"}},)"
            R"({"attributes":{"title":"a/b"}},{"attributes":{"title":""}},{"attributes":{}}]})",
            true);
    }

    static void AddUsers(const Rows<QByteArray, bool>& row)
    {
        const auto add = [&row](const QByteArray& name, const QByteArray& editor, const QByteArray& users,
                                bool isQuick) { row("users: " + name, WithUsers(editor, users), isQuick); };
        const QByteArray user = R"({"type":"user","id":"u","attributes":{"entity_id":4}})";
        add("known", R"("u")", user, true);
        add("unknown", R"("v")", user, true);
        add("the first of an id counts", R"("u")",
            user + R"(,{"type":"user","id":"u","attributes":{"entity_id":5}})", true);
        add("the first of an id counts, also without a number", R"("u")",
            R"({"type":"user","id":"u"},)" + user, true);
        add("other types are skipped", R"("u")",
            R"({"type":"file","id":"u","attributes":{"entity_id":5}},)" + user, true);
        add("the case of the type counts", R"("u")", R"({"type":"User","id":"u"})", true);
        add("a number is not an id", "5", R"({"type":"user","id":5,"attributes":{"entity_id":5}})", true);
        add("a text of digits is an id", R"("5")", R"({"type":"user","id":"5","attributes":{"entity_id":5}})",
            true);
        add("a number does not equal a text", "5", R"({"type":"user","id":"5","attributes":{"entity_id":5}})",
            true);
        add("an empty id", R"("")", R"({"type":"user","id":"","attributes":{"entity_id":5}})", true);
        add("a missing id equals an empty one", "null",
            R"({"type":"user","id":"","attributes":{"entity_id":5}})", true);
        add("no id at all", "null", R"({"type":"user","attributes":{"entity_id":5}})", true);
        add("an id with an escape", R"("\u0075")", user, false);
        add("a type with an escape", R"("u")",
            R"({"type":"us\u0065r","id":"u","attributes":{"entity_id":5}})", false);
        add("an id with a byte order mark", R"("u")",
            "{\"type\":\"user\",\"id\":\"\xef\xbb\xbf"
            "u\",\"attributes\":{\"entity_id\":5}}",
            false);
        add("a type that is not a text", R"("u")", R"({"type":["user"],"id":"u"})", true);
        add("a user twice in one", R"("u")", R"({"type":"user","id":"u","id":"v"})", false);
        add("an entity id that is not an int", R"("u")",
            R"({"type":"user","id":"u","attributes":{"entity_id":2.5}})", true);
        add("members of any type", R"("u")", R"(5,null,"x",[],{"type":"user","id":"u","attributes":[]})",
            true);
        row("users: not a list", R"({"data":[{}],"included":{"type":"user","id":"u"}})", true);
    }
};

QTEST_GUILESS_MAIN(tst_VenueReader)
#include "tst_VenueReader.moc"
