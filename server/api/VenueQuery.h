#pragma once

#include <server/catalogue/VenueCatalogue.h>

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

namespace korvel::Demo {

/// The query of a request for venues, understood: which venues are meant and what is to be included.
class VenueQuery
{
public:
    using Pairs = QList<std::pair<QString, QString>>;

    /// The pairs of the query part of \p target (path and query as sent), decoded, in their order.
    /// A plus sign stays one: the query is not a form.
    static Pairs Split(const QByteArray& target);

    /// Understands \p pairs; whether that succeeded is told by Error().
    explicit VenueQuery(const Pairs& pairs);

    /// What is wrong with the query, as a sentence for the client; empty when nothing is.
    const QString& Error() const
    {
        return m_error;
    }
    /// The include paths asked for, in their order: "editor", "tessra", "tessra.file", a view, a view +
    /// ".file".
    const QStringList& Includes() const
    {
        return m_includes;
    }
    /// True when \p venue fulfils every condition. A venue without the text never does.
    bool Matches(const VenueRecord& venue) const;

private:
    struct Condition
    {
        QString name;
        QString path;
        QString comparison;
        QString value;
        bool hasPath = false;
        bool hasValue = false;
        QString VenueRecord::* member = nullptr;
    };

    void ReadPair(const QString& name, const QString& value);
    void ReadIncludes(const QString& value);
    Condition& ConditionNamed(const QString& name);
    void CheckConditions();
    void Fail(const QString& error);

    QString m_error;
    QStringList m_includes;
    QList<Condition> m_conditions;
    std::optional<qint64> m_entityId;
};

} // namespace korvel::Demo
