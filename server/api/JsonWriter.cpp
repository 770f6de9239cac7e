#include <server/api/JsonWriter.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

JsonWriter& JsonWriter::Key(const char* name)
{
    Separate();
    AppendQuoted(name);
    m_json.append(':');
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::Key(const QString& name)
{
    return Key(name.toUtf8().constData());
}

JsonWriter& JsonWriter::BeginObject()
{
    Separate();
    m_json.append('{');
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::EndObject()
{
    m_json.append('}');
    m_needsComma = true;
    return *this;
}

JsonWriter& JsonWriter::BeginArray()
{
    Separate();
    m_json.append('[');
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::EndArray()
{
    m_json.append(']');
    m_needsComma = true;
    return *this;
}

JsonWriter& JsonWriter::Text(const QString& text)
{
    Separate();
    AppendQuoted(text.toUtf8());
    return *this;
}

JsonWriter& JsonWriter::Number(qint64 number)
{
    return Raw(QByteArray::number(number));
}

JsonWriter& JsonWriter::Bool(bool value)
{
    return Raw(value ? "true"_ba : "false"_ba);
}

JsonWriter& JsonWriter::Null()
{
    return Raw("null"_ba);
}

JsonWriter& JsonWriter::Raw(const QByteArray& json)
{
    if (!json.isEmpty()) {
        Separate();
        m_json.append(json);
    }
    return *this;
}

JsonWriter& JsonWriter::Member(const char* name, const QString& text)
{
    return text.isNull() ? *this : Key(name).Text(text);
}

QByteArray JsonWriter::Take()
{
    m_needsComma = false;
    return std::exchange(m_json, QByteArray());
}

void JsonWriter::Separate()
{
    if (m_needsComma)
        m_json.append(',');
    m_needsComma = true;
}

void JsonWriter::AppendQuoted(const QByteArray& text)
{
    m_json.append('"');
    for (const char c : text) {
        switch (c) {
        case '"':
        case '\\':
        case '/':
            m_json.append('\\').append(c);
            break;
        case '<':
        case '>':
        case '&':
        case '\'':
            m_json.append("\\u00").append(QByteArray::number(c, 16).toUpper());
            break;
        case '\n':
            m_json.append("\\n");
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20)
                m_json.append("\\u00").append(QByteArray::number(c, 16).rightJustified(2, '0'));
            else
                m_json.append(c);
        }
    }
    m_json.append('"');
}

} // namespace korvel::Demo
