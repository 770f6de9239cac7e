#pragma once

#include <QByteArray>
#include <QString>

namespace korvel::Demo {

/// Writes JSON text piece by piece, as web frameworks do it: slashes and markup characters escaped, UTF-8.
///
/// QJsonDocument neither escapes slashes nor copes with replies of 100 MB in reasonable memory. The writer
/// places the commas; that the calls nest properly is the caller's duty.
class JsonWriter
{
public:
    /// In an object call Key() before each value.
    JsonWriter& Key(const char* name);
    JsonWriter& Key(const QString& name);

    JsonWriter& BeginObject();
    JsonWriter& EndObject();
    JsonWriter& BeginArray();
    JsonWriter& EndArray();

    JsonWriter& Text(const QString& text);
    JsonWriter& Number(qint64 number);
    JsonWriter& Bool(bool value);
    JsonWriter& Null();
    /// Inserts \p json, a complete value or several separated by commas, as it stands.
    JsonWriter& Raw(const QByteArray& json);

    /// Key() and Text(); nothing at all when \p text is null.
    JsonWriter& Member(const char* name, const QString& text);

    const QByteArray& Json() const
    {
        return m_json;
    }
    /// Hands the text over and starts anew.
    QByteArray Take();

private:
    void Separate();
    void AppendQuoted(const QByteArray& text);

    QByteArray m_json;
    bool m_needsComma = false;
};

} // namespace korvel::Demo
