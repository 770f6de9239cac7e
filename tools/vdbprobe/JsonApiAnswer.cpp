#include <tools/vdbprobe/JsonApiAnswer.h>

#include <tools/vdbprobe/SafeText.h>

#include <data/ServerDate_p.h>

#include <QJsonDocument>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <functional>

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
        return QStringLiteral("missing");
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return OneLine(QString::fromUtf8(list.mid(1, list.size() - 2)));
}

/// How many venues of \p document have an attribute \p name that \p isUnusable, with the first one's value.
QString CountUnusable(const QJsonObject& document, QLatin1String name,
                      const std::function<bool(const QJsonValue&)>& isUnusable)
{
    const QJsonArray venues = document.value(QLatin1String("data")).toArray();
    qsizetype count = 0;
    QString example;
    for (const QJsonValue venue : venues) {
        const QJsonValue value = venue.toObject().value(QLatin1String("attributes")).toObject().value(name);
        if (!isUnusable(value))
            continue;
        if (count++ == 0)
            example = Written(value);
    }
    return count == 0 ? QString()
                      : QStringLiteral("\"%1\" of %2 of %3 venues cannot be used, for example %4")
                            .arg(name)
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
        m_parseError = QStringLiteral("it is a list");
}

QString JsonApiAnswer::ParseError() const
{
    return m_parseError;
}

QJsonArray JsonApiAnswer::Included() const
{
    return m_document.value(QLatin1String("included")).toArray();
}

QString JsonApiAnswer::Words() const
{
    if (m_parseError.isEmpty())
        return ErrorWords();
    static const QRegularExpression c_title(QStringLiteral("<title[^>]*>([^<]+)<"),
                                            QRegularExpression::CaseInsensitiveOption);
    return OneLine(c_title.match(QString::fromUtf8(m_body.left(c_titleIsWithin))).captured(1));
}

QString JsonApiAnswer::ErrorWords() const
{
    const QJsonArray errors = m_document.value(QLatin1String("errors")).toArray();
    QStringList words;
    for (qsizetype index = 0; index < qMin(errors.size(), c_errorsToTell); ++index) {
        const QJsonObject error = errors.at(index).toObject();
        QStringList parts{error.value(QLatin1String("title")).toString(),
                          error.value(QLatin1String("detail")).toString()};
        parts.removeAll(QString());
        words.append(OneLine(parts.join(QLatin1String(": "))));
    }
    words.removeAll(QString());
    return words.join(QLatin1String("; "));
}

bool JsonApiAnswer::HasNextPage() const
{
    const QJsonValue next = m_document.value(QLatin1String("links")).toObject().value(QLatin1String("next"));
    return next.isObject() || !next.toString().isEmpty();
}

QString JsonApiAnswer::UnusableIds() const
{
    return CountUnusable(m_document, QLatin1String("entity_id"), [](const QJsonValue& value) {
        return !value.isDouble() || value.toDouble() != value.toInt(0);
    });
}

QString JsonApiAnswer::UnusableDates() const
{
    const QString created = CountUnusable(m_document, QLatin1String("created"), [](const QJsonValue& value) {
        return !value.toString().isEmpty() && !ReadServerDate(value.toString()).isValid();
    });
    const QString changed = CountUnusable(m_document, QLatin1String("changed"), [](const QJsonValue& value) {
        return !value.toString().isEmpty() && !ReadServerDateTime(value.toString()).isValid();
    });
    return created.isEmpty() || changed.isEmpty() ? created + changed
                                                  : created + QStringLiteral("; ") + changed;
}

QString JsonApiAnswer::UnusableTypes(std::initializer_list<QLatin1String> wanted) const
{
    QStringList types;
    const QJsonArray included = Included();
    for (const QJsonValue value : included)
        types.append(value.toObject().value(QLatin1String("type")).toString());
    types.removeDuplicates();
    QStringList findings;
    for (const QLatin1String type : wanted) {
        if (types.contains(type))
            continue;
        const auto alike = std::find_if(types.cbegin(), types.cend(), [type](const QString& other) {
            return other.startsWith(type, Qt::CaseInsensitive);
        });
        if (alike != types.cend())
            findings.append(QStringLiteral("\"included\" has the type \"%1\" instead of \"%2\"")
                                .arg(OneLine(*alike), type));
    }
    return findings.join(QLatin1String(", "));
}

} // namespace korvel::Tools
