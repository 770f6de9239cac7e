#include <data/reading/JsonCursor_p.h>

#include <QJsonValue>

#include <cstring>

namespace korvel::Data::VenueDatabase {

namespace {

constexpr QByteArrayView c_byteOrderMark = "\xef\xbb\xbf";
constexpr qsizetype c_maximalNumberLength = 40;
constexpr qsizetype c_maximalExponentLength = 2;
/// Far below what QJsonDocument accepts.
constexpr int c_maximalDepth = 64;

const char* Find(char character, const char* from, const char* end)
{
    // An empty array has no memory to search.
    if (from == end)
        return end;
    const void* place = std::memchr(from, character, static_cast<std::size_t>(end - from));
    return place ? static_cast<const char*>(place) : end;
}

/// The character that the escape with the letter \p letter stands for.
QChar EscapedCharacter(QChar letter)
{
    constexpr QStringView letters = u"bfnrt";
    constexpr QStringView characters = u"\b\f\n\r\t";
    const qsizetype index = letters.indexOf(letter);
    return index < 0 ? letter : characters.at(index);
}

} // namespace

QString JsonScalar::ToString() const
{
    if (kind != Text)
        return {};
    QString text = QString::fromUtf8(raw);
    if (!hasEscapes)
        return text;
    // In place: an escape is longer than what it stands for.
    QChar* out = text.data();
    for (const QChar* in = text.constData(); in != text.constEnd(); ++in) {
        if (*in != u'\\') {
            *out++ = *in;
        } else if (*++in == u'u') {
            *out++ = QChar(QStringView(in + 1, 4).toUShort(nullptr, 16));
            in += 4;
        } else {
            *out++ = EscapedCharacter(*in);
        }
    }
    text.truncate(out - text.constData());
    return text;
}

int JsonScalar::ToInt() const
{
    return kind == Number ? QJsonValue(raw.toDouble()).toInt(0) : 0;
}

JsonCursor::JsonCursor(QByteArrayView text)
    : m_at(text.data())
    , m_end(m_at + text.size())
    , m_backslash(Find('\\', m_at, m_end))
{
    // Each text within valid UTF-8 is valid, too.
    if (!text.isValidUtf8())
        Refuse();
}

bool JsonCursor::HasReadAll()
{
    return !m_hasRefused && Next() == '\0' && m_at == m_end;
}

void JsonCursor::Refuse()
{
    m_hasRefused = true;
    m_at = m_end;
}

JsonScalar JsonCursor::ReadScalar()
{
    switch (Next()) {
    case '"':
        return ReadText();
    case '{':
        ReadObject({}, [](std::size_t) { });
        return {};
    case '[':
        ReadArray([this]() { Skip(); });
        return {};
    case 't':
        return ReadWord("true");
    case 'f':
        return ReadWord("false");
    case 'n':
        return ReadWord("null");
    default:
        return ReadNumber();
    }
}

/// Goes into an object or array; false when it is empty and \p end follows.
bool JsonCursor::Enter(char end)
{
    ++m_at;
    if (Accept(end))
        return false;
    if (++m_depth > c_maximalDepth)
        Refuse();
    return true;
}

JsonScalar JsonCursor::ReadText()
{
    const char* const from = ++m_at;
    m_at = Find('"', from, m_end);
    const bool hasEscapes = m_backslash < m_at;
    if (hasEscapes)
        GoThroughEscapes(from);
    const QByteArrayView raw(from, m_at);
    Expect('"');
    // Whether it belongs to the text depends on where one asks QJsonDocument for it. Hardly a text begins
    // with its first byte.
    if (!raw.isEmpty() && raw.front() == c_byteOrderMark.front() && raw.startsWith(c_byteOrderMark))
        Refuse();
    return {raw, JsonScalar::Text, hasEscapes};
}

/// Goes from the begin of a text with escapes to its closing quote.
void JsonCursor::GoThroughEscapes(const char* from)
{
    m_at = from;
    while (m_at != m_end && *m_at != '"') {
        if (*m_at != '\\') {
            ++m_at;
            continue;
        }
        const QByteArrayView rest(m_at + 1, m_end);
        const bool isCode = rest.startsWith('u');
        if (rest.size() < 5 || !QByteArrayView("\"\\/bfnrtu").contains(rest.front()))
            return Refuse();
        for (qsizetype index = 1; isCode && index < 5; ++index)
            if (!QByteArrayView("0123456789abcdefABCDEF").contains(rest[index]))
                return Refuse();
        m_at += isCode ? 6 : 2;
    }
    m_backslash = Find('\\', m_at, m_end);
}

/// Reads one digit or more and returns how many.
qsizetype JsonCursor::ReadDigits()
{
    const char* const from = m_at;
    while (m_at != m_end && *m_at >= '0' && *m_at <= '9')
        ++m_at;
    if (m_at == from)
        Refuse();
    return m_at - from;
}

JsonScalar JsonCursor::ReadNumber()
{
    const char* const from = m_at;
    const auto accept = [this](QByteArrayView characters) {
        const bool isThere = m_at != m_end && characters.contains(*m_at);
        m_at += isThere;
        return isThere;
    };
    accept("-");
    // A zero at the begin stands alone.
    if (!accept("0"))
        ReadDigits();
    if (accept("."))
        ReadDigits();
    if (accept("eE")) {
        accept("+-");
        if (ReadDigits() > c_maximalExponentLength)
            Refuse();
    }
    const QByteArrayView raw(from, m_at);
    // A longer number could be too large for QJsonDocument.
    if (raw.size() > c_maximalNumberLength)
        Refuse();
    return {raw, JsonScalar::Number, false};
}

JsonScalar JsonCursor::ReadWord(QByteArrayView word)
{
    if (QByteArrayView(m_at, m_end).startsWith(word))
        m_at += word.size();
    else
        Refuse();
    return {};
}

} // namespace korvel::Data::VenueDatabase
