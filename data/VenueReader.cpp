#include <data/VenueReader_p.h>

#include <data/CountryCodeTranslator.h>
#include <data/JsonPath_p.h>
#include <data/ServerDate_p.h>
#include <data/TextPool_p.h>

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

#include <utility>

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
        if (!IsResource(resource, QLatin1String("user")))
            continue;
        const QJsonValue id = resource.value(QLatin1String("id"));
        // A number never equals the text that a relationship names.
        if (!id.isString())
            continue;
        const qsizetype known = editors.size();
        qint64& editor = editors[id.toString()];
        // The first user of an id counts.
        if (editors.size() == known)
            continue;
        const QJsonObject attributes = resource.value(QLatin1String("attributes")).toObject();
        editor = attributes.value(QLatin1String("entity_id")).toInt(0);
    }
    return editors;
}

Venue ReadVenue(const QJsonObject& element, const CountryCodeTranslator& countries, TextPool& pool)
{
    const QJsonObject attributes = element.value(QLatin1String("attributes")).toObject();
    const QJsonObject address = attributes.value(QLatin1String("address")).toObject();
    const auto text = [&attributes](QLatin1String name) { return attributes.value(name).toString(); };
    const auto sharedText
        = [&attributes, &pool](QLatin1String name) { return pool.Shared(attributes.value(name).toString()); };
    const auto addressText
        = [&address, &pool](QLatin1String name) { return pool.Shared(address.value(name).toString()); };

    Venue venue;
    venue.SetId(attributes.value(QLatin1String("entity_id")).toInt(0));
    venue.SetComplexName(sharedText(QLatin1String("title")));
    venue.SetVenueRoomName(sharedText(QLatin1String("venue_room_name")));
    venue.SetGeneralComment(text(QLatin1String("general_comment")));
    venue.SetStreetAddress(addressText(QLatin1String("address_line1")));
    venue.SetPostalCode(addressText(QLatin1String("postal_code")));
    venue.SetCity(addressText(QLatin1String("locality")));
    const QString countryCode = addressText(QLatin1String("country_code"));
    venue.SetCountryCode(countryCode);
    venue.SetCountry(countries.GetCountry(countryCode));
    venue.SetLocationComment(text(QLatin1String("comment")));
    venue.SetLoadDockStreetAddress(sharedText(QLatin1String("loading_dock_street_address")));
    venue.SetLoadDockComment(text(QLatin1String("load_in_comments")));
    venue.SetClearingOfHouseGrid(
        sharedText(QLatin1String("clearance_of_house_grid_rigging_beams_above_venue_floor")));
    venue.SetRiggingComment(text(QLatin1String("rigging_specialties")));
    venue.SetUploadDate(ReadServerDate(text(QLatin1String("created"))));
    venue.SetEditDate(ReadServerDateTime(text(QLatin1String("changed"))));
    return venue;
}

} // namespace

VenueReader::VenueReader(const CountryCodeTranslator& countries)
    : m_countries(countries)
{
}

QList<Venue> VenueReader::Read(const QJsonObject& document) const
{
    QList<Venue> venues;
    const QJsonArray data = document.value(QLatin1String("data")).toArray();
    if (data.isEmpty())
        return venues;

    const QHash<QString, qint64> editors = EditorsById(document.value(QLatin1String("included")).toArray());
    venues.reserve(data.size());
    TextPool pool(data.size());
    // Deliberate: the list is in the reverse order of the server's.
    for (qsizetype index = data.size() - 1; index >= 0; --index) {
        const QJsonObject element = data.at(index).toObject();
        Venue venue = ReadVenue(element, m_countries, pool);
        const auto editor = editors.constFind(TextAt(element,
                                                     {QLatin1String("relationships"), QLatin1String("editor"),
                                                      QLatin1String("data"), QLatin1String("id")}));
        if (editor != editors.constEnd())
            venue.SetEditor(*editor);
        venues.append(std::move(venue));
    }
    return venues;
}

} // namespace korvel::Data::VenueDatabase
