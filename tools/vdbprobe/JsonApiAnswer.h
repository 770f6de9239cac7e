#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QLatin1String>
#include <QString>

#include <initializer_list>

namespace korvel::Tools {

/// The body of an answer, and what in it the module cannot use although it is there.
class JsonApiAnswer
{
public:
    explicit JsonApiAnswer(const QByteArray& body);

    /// Why the body is not a JSON object; empty when it is one.
    QString ParseError() const;
    const QJsonObject& Document() const
    {
        return m_document;
    }
    QJsonArray Included() const;

    /// What the body says of an error in words: titles and details of JSON:API's "errors", or the title of a
    /// web page. Empty when there are none.
    QString Words() const;
    /// Whether the server holds more back for a next page.
    bool HasNextPage() const;

    /// How many of the venues have an id that is not a number, with an example; empty when none has.
    QString UnusableIds() const;
    /// The same for dates that are there but have another form.
    QString UnusableDates() const;
    /// The types of included resources that look like one of \p wanted and are not; empty where one of each
    /// wanted is there.
    QString UnusableTypes(std::initializer_list<QLatin1String> wanted) const;

private:
    QString ErrorWords() const;

    QByteArray m_body;
    QJsonObject m_document;
    QString m_parseError;
};

} // namespace korvel::Tools
