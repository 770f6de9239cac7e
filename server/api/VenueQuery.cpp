#include <server/api/VenueQuery.h>

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

VenueQuery::Pairs VenueQuery::Split(const QByteArray& target)
{
    Pairs pairs;
    const qsizetype mark = target.indexOf('?');
    if (mark < 0)
        return pairs;
    const auto decode
        = [](const QByteArray& text) { return QString::fromUtf8(QByteArray::fromPercentEncoding(text)); };
    const QList<QByteArray> items = target.mid(mark + 1).split('&');
    for (const QByteArray& item : items) {
        if (!item.isEmpty()) {
            const qsizetype equals = item.indexOf('=');
            pairs.append(equals < 0 ? std::pair(decode(item), QString())
                                    : std::pair(decode(item.left(equals)), decode(item.mid(equals + 1))));
        }
    }
    return pairs;
}

VenueQuery::VenueQuery(const Pairs& pairs)
{
    for (const auto& [name, value] : pairs)
        ReadPair(name, value);
    CheckConditions();
}

bool VenueQuery::Matches(const VenueRecord& venue) const
{
    if (m_entityId.has_value() && *m_entityId != venue.entityId)
        return false;
    return std::all_of(m_conditions.cbegin(), m_conditions.cend(), [&venue](const Condition& condition) {
        const QString& text = venue.*condition.member;
        return !text.isNull() && text.contains(condition.value, Qt::CaseInsensitive);
    });
}

void VenueQuery::ReadPair(const QString& name, const QString& value)
{
    static const QRegularExpression c_condition(
        u"^filter\\[([^\\[\\]]+)\\]\\[condition\\]\\[(path|operator|value)\\]$"_s);
    if (name == "include"_L1) {
        ReadIncludes(value);
    } else if (name == "filter[entity_id]"_L1) {
        bool isNumber = false;
        m_entityId = value.toLongLong(&isNumber);
        if (!isNumber)
            Fail(u"The entity id \"%1\" is not a number."_s.arg(value));
    } else if (const QRegularExpressionMatch match = c_condition.match(name); match.hasMatch()) {
        Condition& condition = ConditionNamed(match.captured(1));
        if (match.captured(2) == "path"_L1) {
            condition.path = value;
            condition.hasPath = true;
        } else if (match.captured(2) == "operator"_L1) {
            condition.comparison = value;
        } else {
            condition.value = value;
            condition.hasValue = true;
        }
    } else {
        Fail(u"The query parameter \"%1\" is not understood."_s.arg(name));
    }
}

void VenueQuery::ReadIncludes(const QString& value)
{
    const QStringList paths = value.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& path : paths) {
        const QString view = path.endsWith(".file"_L1) ? path.chopped(5) : path;
        if (path != "editor"_L1 && view != "tessra"_L1 && !VenueCatalogue::Views().contains(view))
            Fail(u"\"%1\" is not a relationship of a venue that can be included."_s.arg(path));
        else if (!m_includes.contains(path))
            m_includes.append(path);
    }
}

VenueQuery::Condition& VenueQuery::ConditionNamed(const QString& name)
{
    const auto found = std::find_if(m_conditions.begin(), m_conditions.end(),
                                    [&name](const Condition& condition) { return condition.name == name; });
    if (found != m_conditions.end())
        return *found;
    Condition condition;
    condition.name = name;
    m_conditions.append(condition);
    return m_conditions.last();
}

void VenueQuery::CheckConditions()
{
    for (Condition& condition : m_conditions) {
        const auto texts = VenueCatalogue::Texts();
        const auto text = std::find_if(texts.begin(), texts.end(), [&condition](const VenueText& candidate) {
            return condition.path == QLatin1String(candidate.path);
        });
        if (!condition.hasPath || !condition.hasValue) {
            Fail(u"The filter \"%1\" needs a path and a value."_s.arg(condition.name));
        } else if (condition.comparison != "CONTAINS"_L1) {
            Fail(u"The filter \"%1\" has the unknown operator \"%2\"."_s.arg(condition.name,
                                                                             condition.comparison));
        } else if (text == texts.end()) {
            Fail(u"A venue has no attribute \"%1\"."_s.arg(condition.path));
        } else {
            condition.member = text->member;
        }
    }
}

void VenueQuery::Fail(const QString& error)
{
    if (m_error.isEmpty())
        m_error = error;
}

} // namespace korvel::Demo
