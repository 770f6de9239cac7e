#include <tools/vdbprobe/JsonApiAnswer.h>

#include <tools/vdbprobe/SafeText.h>

#include <data/reading/ServerDate_p.h>

#include <QJsonDocument>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace korvel::Tools {

namespace {

using Data::VenueDatabase::ReadServerDate;
using Data::VenueDatabase::ReadServerDateTime;

/// Of many errors the first ones tell enough.
constexpr qsizetype c_errorsToTell = 3;
/// A web page has its title near its beginning.
constexpr qsizetype c_titleIsWithin = 8192;

/// \p value as it stands in the document.
QString Written(const QJsonValue& value)
{
    if (value.isUndefined())
        return u"missing"_s;
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return OneLine(QString::fromUtf8(list.mid(1, list.size() - 2)));
}

/// How many venues of \p document have an attribute \p name that \p isUnusable, with the first one's value.
QString CountUnusable(const QJsonObject& document, QLatin1String name,
                      const std::function<bool(const QJsonValue&)>& isUnusable)
{
    const QJsonArray venues = document.value("data"_L1).toArray();
    qsizetype count = 0;
    QString example;
    for (const QJsonValue venue : venues) {
        const QJsonValue value = venue.toObject().value("attributes"_L1).toObject().value(name);
        if (!isUnusable(value))
            continue;
        if (count++ == 0)
            example = Written(value);
    }
    return count == 0 ? QString()
                      : u"\"%1\" of %2 of %3 venues cannot be used, for example %4"_s.arg(name)
                            .arg(count)
                            .arg(venues.size())
                            .arg(example);
}

} // namespace

JsonApiAnswer::JsonApiAnswer(const QByteArray& body)
    : m_body(body)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    m_document = document.object();
    if (error.error != QJsonParseError::NoError)
        m_parseError = error.errorString();
    else if (!document.isObject())
        m_parseError = u"it is a list"_s;
}

QString JsonApiAnswer::ParseError() const
{
    return m_parseError;
}

QJsonArray JsonApiAnswer::Included() const
{
    return m_document.value("included"_L1).toArray();
}

QString JsonApiAnswer::Words() const
{
    if (m_parseError.isEmpty())
        return ErrorWords();
    static const QRegularExpression c_title(u"<title[^>]*>([^<]+)<"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    return OneLine(c_title.match(QString::fromUtf8(m_body.left(c_titleIsWithin))).captured(1));
}

QString JsonApiAnswer::ErrorWords() const
{
    const QJsonArray errors = m_document.value("errors"_L1).toArray();
    QStringList words;
    for (qsizetype index = 0; index < qMin(errors.size(), c_errorsToTell); ++index) {
        const QJsonObject error = errors.at(index).toObject();
        QStringList parts{error.value("title"_L1).toString(), error.value("detail"_L1).toString()};
        parts.removeAll(QString());
        words.append(OneLine(parts.join(": "_L1)));
    }
    words.removeAll(QString());
    return words.join("; "_L1);
}

bool JsonApiAnswer::HasNextPage() const
{
    const QJsonValue next = m_document.value("links"_L1).toObject().value("next"_L1);
    return next.isObject() || !next.toString().isEmpty();
}

QString JsonApiAnswer::UnusableIds() const
{
    return CountUnusable(m_document, "entity_id"_L1, [](const QJsonValue& value) {
        return !value.isDouble() || value.toDouble() != value.toInt(0);
    });
}

QString JsonApiAnswer::UnusableDates() const
{
    const QString created = CountUnusable(m_document, "created"_L1, [](const QJsonValue& value) {
        return !value.toString().isEmpty() && !ReadServerDate(value.toString()).isValid();
    });
    const QString changed = CountUnusable(m_document, "changed"_L1, [](const QJsonValue& value) {
        return !value.toString().isEmpty() && !ReadServerDateTime(value.toString()).isValid();
    });
    return created.isEmpty() || changed.isEmpty() ? created + changed : created + u"; "_s + changed;
}

QString JsonApiAnswer::UnusableTypes(std::initializer_list<QLatin1String> wanted) const
{
    QStringList types;
    const QJsonArray included = Included();
    for (const QJsonValue value : included)
        types.append(value.toObject().value("type"_L1).toString());
    types.removeDuplicates();
    QStringList findings;
    for (const QLatin1String type : wanted) {
        if (types.contains(type))
            continue;
        const auto alike = std::find_if(types.cbegin(), types.cend(), [type](const QString& other) {
            return other.startsWith(type, Qt::CaseInsensitive);
        });
        if (alike != types.cend())
            findings.append(
                u"\"included\" has the type \"%1\" instead of \"%2\""_s.arg(OneLine(*alike), type));
    }
    return findings.join(", "_L1);
}

} // namespace korvel::Tools
