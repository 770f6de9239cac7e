#pragma once

#include <QByteArrayView>
#include <QString>

#include <cstring>
#include <span>

namespace korvel::Data::VenueDatabase {

/// A value of a JSON text where it is a text or a number.
struct JsonScalar
{
    enum Kind
    {
        Other,
        Text,
        Number,
    };

    /// The characters between the quotes as they stand in the JSON text, or those of the number.
    QByteArrayView raw;
    Kind kind = Other;
    bool hasEscapes = false;

    /// True for a text that means what stands in raw.
    bool IsPlainText() const
    {
        return kind == Text && !hasEscapes;
    }
    /// What QJsonValue::toString() gives: a null text for anything but texts.
    QString ToString() const;
    /// What QJsonValue::toInt(0) gives: 0 for anything but a number that an int can hold.
    int ToInt() const;
};

/// Reads a JSON text once from its begin to its end, without building a tree of it. Nothing is copied: what
/// it hands out points into the text.
///
/// It accepts less than QJsonDocument does, and understands what it accepts in the same way. It refuses
/// whatever is malformed, rare or ambiguous: a byte order mark, member names with escapes, a name that it was
/// asked for and that occurs twice, very long numbers, very deep nesting. Who is refused must read the text
/// with QJsonDocument.
class JsonCursor
{
public:
    /// A cursor at the begin of \p text, which must outlive it.
    explicit JsonCursor(QByteArrayView text);

    /// True once something was refused. Nothing that was read before counts then.
    bool HasRefused() const
    {
        return m_hasRefused;
    }
    /// True when the whole text was read and nothing refused.
    bool HasReadAll();

    /// Refuses the text, also for a reason of the caller's.
    void Refuse();

    /// Reads an object: calls visit(index) for each member that has the name names[index], which must read
    /// the value, and skips the others. Skips a value that is not an
    /// object.
    template <typename Visit> void ReadObject(std::span<const QByteArrayView> names, Visit&& visit);
    /// Reads an array: calls visit() for each element, which must read it. Skips a value that is not an array
    /// and returns false then.
    template <typename Visit> bool ReadArray(Visit&& visit);
    /// Reads any value.
    JsonScalar ReadScalar();

private:
    /// What == says, without a call into another library for each name of a reply.
    static bool IsSame(QByteArrayView name, QByteArrayView other)
    {
        return name.size() == other.size()
            && std::memcmp(name.data(), other.data(), static_cast<std::size_t>(name.size())) == 0;
    }
    /// The next character that is not white space; NUL at the end.
    char Next()
    {
        while (m_at != m_end && (*m_at == ' ' || *m_at == '\n' || *m_at == '\r' || *m_at == '\t'))
            ++m_at;
        return m_at != m_end ? *m_at : '\0';
    }
    bool Accept(char token)
    {
        if (Next() != token)
            return false;
        ++m_at;
        return true;
    }
    void Expect(char token)
    {
        if (!Accept(token))
            Refuse();
    }
    void Skip()
    {
        (void)ReadScalar();
    }
    bool Enter(char end);
    JsonScalar ReadText();
    void GoThroughEscapes(const char* from);
    JsonScalar ReadNumber();
    qsizetype ReadDigits();
    JsonScalar ReadWord(QByteArrayView word);

    const char* m_at = nullptr;
    const char* m_end = nullptr;
    /// The first backslash from m_at on, or m_end.
    const char* m_backslash = nullptr;
    int m_depth = 0;
    bool m_hasRefused = false;
};

template <typename Visit> void JsonCursor::ReadObject(std::span<const QByteArrayView> names, Visit&& visit)
{
    if (Next() != '{')
        return Skip();
    if (!Enter('}'))
        return;
    quint64 seen = 0;
    // Servers write the members of all objects in one order: look first behind the last one.
    std::size_t likely = 0;
    do {
        if (Next() != '"')
            return Refuse();
        const JsonScalar key = ReadText();
        if (key.hasEscapes)
            return Refuse();
        Expect(':');
        std::size_t index = likely;
        if (index >= names.size() || !IsSame(names[index], key.raw)) {
            for (index = 0; index < names.size() && !IsSame(names[index], key.raw); ++index) { }
        }
        if (index == names.size()) {
            Skip();
            continue;
        }
        const quint64 bit = quint64(1) << index;
        if ((seen & bit) != 0)
            return Refuse();
        seen |= bit;
        likely = index + 1;
        visit(index);
    } while (Accept(','));
    Expect('}');
    --m_depth;
}

template <typename Visit> bool JsonCursor::ReadArray(Visit&& visit)
{
    if (Next() != '[') {
        Skip();
        return false;
    }
    if (!Enter(']'))
        return true;
    do {
        visit();
    } while (Accept(','));
    Expect(']');
    --m_depth;
    return true;
}

} // namespace korvel::Data::VenueDatabase
