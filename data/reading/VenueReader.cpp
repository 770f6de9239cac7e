#include <data/reading/VenueReader_p.h>

#include <data/CountryCodeTranslator.h>
#include <data/reading/JsonPath_p.h>
#include <data/reading/QuickVenueReader_p.h>
#include <data/reading/ServerDate_p.h>
#include <data/reading/TextPool_p.h>
#include <data/reading/VenueFields_p.h>

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

namespace {

/// Entity ids of the users of an "included" array by their resource ids; of several entries with one id the
/// first counts.
QHash<QString, qint64> EditorsById(const QJsonArray& included)
{
    QHash<QString, qint64> editors;
    editors.reserve(included.size());
    for (const QJsonValue value : included) {
        const QJsonObject resource = value.toObject();
        if (!IsResource(resource, "user"_L1))
            continue;
        const QJsonValue id = resource.value("id"_L1);
        // A number never equals the text that a relationship names.
        if (!id.isString())
            continue;
        const qsizetype known = editors.size();
        qint64& editor = editors[id.toString()];
        // The first user of an id counts.
        if (editors.size() == known)
            continue;
        const QJsonObject attributes = resource.value("attributes"_L1).toObject();
        editor = attributes.value("entity_id"_L1).toInt(0);
    }
    return editors;
}

/// A member of a venue.
class Member
{
public:
    Member(const QJsonObject& object, QByteArrayView name, TextPool<QString>& pool,
           const CountryCodeTranslator& countries)
        : m_value(object.value(QLatin1String(name.data(), name.size())))
        , m_pool(pool)
        , m_countries(countries)
    {
    }

    qint64 Integer() const
    {
        return m_value.toInt(0);
    }
    QString Text() const
    {
        return m_value.toString();
    }
    QString SharedText() const
    {
        const QString text = Text();
        return text.isEmpty() ? text : m_pool.Shared(text, [&text]() { return text; });
    }
    QString Country() const
    {
        return m_countries.GetCountry(Text());
    }
    QDate Date() const
    {
        return ReadServerDate(Text());
    }
    QDateTime DateTime() const
    {
        return ReadServerDateTime(Text());
    }

private:
    QJsonValue m_value;
    TextPool<QString>& m_pool;
    const CountryCodeTranslator& m_countries;
};

Venue ReadVenue(const QJsonObject& element, const CountryCodeTranslator& countries, TextPool<QString>& pool)
{
    const QJsonObject attributes = element.value("attributes"_L1).toObject();
    const QJsonObject address = attributes.value("address"_L1).toObject();
    Venue venue;
    for (const auto& [name, set] : c_attributeFields<Member>)
        set(venue, Member(attributes, name, pool, countries));
    for (const auto& [name, set] : c_addressFields<Member>)
        set(venue, Member(address, name, pool, countries));
    return venue;
}

} // namespace

VenueReader::VenueReader(const CountryCodeTranslator& countries)
    : m_countries(countries)
{
}

std::optional<QList<Venue>> VenueReader::ReadBody(const QByteArray& body) const
{
    if (std::optional<QList<Venue>> venues = QuickVenueReader(body, m_countries).Read())
        return venues;
    const QJsonObject document = QJsonDocument::fromJson(body).object();
    if (!document.value("data"_L1).isArray())
        return std::nullopt;
    return Read(document);
}

QList<Venue> VenueReader::Read(const QJsonObject& document) const
{
    QList<Venue> venues;
    const QJsonArray data = document.value("data"_L1).toArray();
    if (data.isEmpty())
        return venues;

    const QHash<QString, qint64> editors = EditorsById(document.value("included"_L1).toArray());
    venues.reserve(data.size());
    TextPool<QString> pool;
    // Deliberate: the list is in the reverse order of the server's.
    for (qsizetype index = data.size() - 1; index >= 0; --index) {
        const QJsonObject element = data.at(index).toObject();
        Venue venue = ReadVenue(element, m_countries, pool);
        const auto editor
            = editors.constFind(TextAt(element, {"relationships"_L1, "editor"_L1, "data"_L1, "id"_L1}));
        if (editor != editors.constEnd())
            venue.SetEditor(*editor);
        venues.append(std::move(venue));
    }
    return venues;
}

} // namespace korvel::Data::VenueDatabase
