#include <fuzz/MutatedReplies.h>

namespace korvel::Fuzz {

namespace {

/// Documents with every member that is read, in several spellings.
const QList<QByteArray> c_documents{
    R"({"jsonapi":{"version":"1.0"},"data":[{"type":"venue","id":"a-1","attributes":{"entity_id":7,"title":)"
    R"("Opera","venue_room_name":"Main \"hall\"","general_comment":"line\nline \u00e9\ud83d\ude00","address":)"
    R"({"address_line1":"Ring 1","postal_code":"1010","locality":"Vienna","country_code":"AT"},"comment":"","created":)"
    R"("2024-03-01","changed":"2024-03-01T10:20:30+00:00","clearance_of_house_grid_rigging_beams_above_venue_floor":)"
    R"("12.5","load_in_comments":null,"rigging_specialties":"none","loading_dock_street_address":"Back \/ 2"},)"
    R"("relationships":{"editor":{"data":{"type":"user","id":"u1"}}}}],"included":[{"type":"user","id":"u1",)"
    R"("attributes":{"entity_id":42,"name":"A"}}]})",
    R"( { "included" : [ {"id":"u2","attributes":{"entity_id":-0},"type":"user"} , {"type":"user","id":"u2",)"
    R"("attributes":{"entity_id":9}}, 5 ] , "data" : [ {"attributes":{"address":{"country_code":"CH"},"entity_id":)"
    R"(1e2,"lat":48.2082,"title":"Z)"
    "\xc3\xbc"
    R"(rich","created":"2023-02-29"},"relationships":{"editor":{"data":{"id":"u2"}}}} , {"attributes":[]}, {} ] } )",
    R"({"data":[{"attributes":{"entity_id":2147483648,"changed":"2024-01-01T00:00:00Z","deep":[[[{"x":[true,false,)"
    R"(null,-1.5e-3]}]]]}},{"attributes":{"entity_id":5.0}}],"links":{"self":"https:\/\/x.example\/api"},"meta":{}})",
};

/// What takes the place of a value.
const QList<QByteArray> c_values{
    "null",
    "true",
    "{}",
    "[]",
    "[1,[2]]",
    "0",
    "-0",
    "5.0",
    "1e2",
    "1E+02",
    "0.1",
    "2147483647",
    "2147483648",
    "-2147483648",
    "9223372036854775808",
    "\"\"",
    "\"data\"",
    "\"user\"",
    "\"u1\"",
    "\"u2\"",
    "\"AT\"",
    "\"2024-03-01\"",
    "\"2024-03-01T10:20:30+00:00\"",
    "\"a\\u0062\"",
    "\"\\ud800\"",
    "\"\\u0000\"",
    "\"\xc3\xa9\"",
    "\"\xf0\x9f\x98\x80\"",
    "{\"entity_id\":3}",
    "{\"id\":\"u2\"}",
    "{\"locality\":\"Graz\"}",
};

/// What is put anywhere.
const QList<QByteArray> c_pieces{
    "fals",
    "[",
    "]",
    "{",
    "}",
    ",",
    ":",
    "\"",
    "\\",
    "\\u0000",
    "\\ud800",
    "\\u12g4",
    "\\x",
    "1e400",
    "1.",
    ".5",
    "01",
    "-",
    "123456789012345678901234567890123456789012345",
    " ",
    "\t\r\n",
    "\xef\xbb\xbf",
    "\xed\xa0\x80",
    "\xff",
    "\xc3\xa9",
    QByteArray(1, '\0'),
    "\"data\":",
    "\"data\":[{}],",
    "\"attributes\":{\"entity_id\":3},",
    "\"id\":\"u2\",",
    "\"title\":\"twice\",",
    "\"t\\u0069tle\":\"hidden\",",
    QByteArray(70, '['),
    QByteArray(1100, '['),
};

} // namespace

MutatedReplies::MutatedReplies(quint32 seed)
    : m_random(seed)
{
}

QByteArray MutatedReplies::Next()
{
    QByteArray document = AnyOf(c_documents);
    for (quint32 changes = m_random.bounded(1U, 4U); changes > 0; --changes)
        Mutate(document);
    return document;
}

qsizetype MutatedReplies::Place(const QByteArray& text)
{
    return m_random.bounded(int(text.size()) + 1);
}

QByteArray MutatedReplies::AnyOf(const QList<QByteArray>& pieces)
{
    return pieces.at(m_random.bounded(int(pieces.size())));
}

void MutatedReplies::Mutate(QByteArray& document)
{
    switch (m_random.bounded(10)) {
    case 0:
        document.insert(Place(document), AnyOf(c_pieces));
        break;
    case 1:
        document.remove(Place(document), m_random.bounded(1, 9));
        break;
    case 2:
        if (const qsizetype place = Place(document); place < document.size())
            document[place] = char(uchar(document.at(place)) ^ (1U << m_random.bounded(8U)));
        break;
    case 3:
        RepeatPiece(document);
        break;
    default:
        MutateValue(document);
    }
}

/// Puts another value behind a colon.
void MutatedReplies::MutateValue(QByteArray& document)
{
    const qsizetype colon = document.indexOf(':', Place(document));
    if (colon < 0)
        return;
    qsizetype end = colon + 1;
    // A text up to its quote, anything else up to the next member.
    if (end < document.size() && document.at(end) == '"')
        end = document.indexOf('"', end + 1) + 1;
    else
        end = document.indexOf(',', end);
    if (end > colon)
        document.replace(colon + 1, end - colon - 1, AnyOf(c_values));
}

/// Lets a piece between two commas stand twice: members and elements, mostly.
void MutatedReplies::RepeatPiece(QByteArray& document)
{
    const qsizetype from = document.indexOf(',', Place(document));
    const qsizetype to = from < 0 ? -1 : document.indexOf(',', from + 1);
    if (to > 0)
        document.insert(Place(document) % 2 == 0 ? to : from, document.mid(from, to - from));
}

} // namespace korvel::Fuzz
