#pragma once

#include <data/Venue.h>

#include <QByteArrayView>

#include <array>

namespace korvel::Data::VenueDatabase {

/// A member of a reply and where its value goes in a record.
template <typename Value> struct VenueField
{
    QByteArrayView name;
    void (*set)(Venue& venue, const Value& value);
};

/// The members of a venue's "attributes" object. For readers of any kind: Value is one's way to hand out a
/// member, with Integer(), Text(), SharedText() for texts that venues often have in common, Date() and
/// DateTime(). A missing member is a value like others.
template <typename Value>
inline constexpr auto c_attributeFields = std::to_array<VenueField<Value>>({
    {"entity_id", [](Venue& venue, const Value& value) { venue.SetId(value.Integer()); }},
    {"title", [](Venue& venue, const Value& value) { venue.SetComplexName(value.SharedText()); }},
    {"venue_room_name", [](Venue& venue, const Value& value) { venue.SetVenueRoomName(value.SharedText()); }},
    {"general_comment", [](Venue& venue, const Value& value) { venue.SetGeneralComment(value.Text()); }},
    {"comment", [](Venue& venue, const Value& value) { venue.SetLocationComment(value.Text()); }},
    {"loading_dock_street_address",
     [](Venue& venue, const Value& value) { venue.SetLoadDockStreetAddress(value.SharedText()); }},
    {"load_in_comments", [](Venue& venue, const Value& value) { venue.SetLoadDockComment(value.Text()); }},
    {"clearance_of_house_grid_rigging_beams_above_venue_floor",
     [](Venue& venue, const Value& value) { venue.SetClearingOfHouseGrid(value.SharedText()); }},
    {"rigging_specialties", [](Venue& venue, const Value& value) { venue.SetRiggingComment(value.Text()); }},
    {"created", [](Venue& venue, const Value& value) { venue.SetUploadDate(value.Date()); }},
    {"changed", [](Venue& venue, const Value& value) { venue.SetEditDate(value.DateTime()); }},
});

/// The members of the "address" object in "attributes"; Country() names the country of a code.
template <typename Value>
inline constexpr auto c_addressFields = std::to_array<VenueField<Value>>({
    {"address_line1", [](Venue& venue, const Value& value) { venue.SetStreetAddress(value.SharedText()); }},
    {"postal_code", [](Venue& venue, const Value& value) { venue.SetPostalCode(value.SharedText()); }},
    {"locality", [](Venue& venue, const Value& value) { venue.SetCity(value.SharedText()); }},
    {"country_code",
     [](Venue& venue, const Value& value) {
         venue.SetCountryCode(value.SharedText());
         venue.SetCountry(value.Country());
     }},
});

} // namespace korvel::Data::VenueDatabase
