#include <bench/rivals/BareReader.h>

#include <simdjson.h>

#include <cstdlib>
#include <string_view>
#include <unordered_map>

namespace korvel::Bench {

namespace {

using simdjson::dom::element;

constexpr std::array<const char*, 8> c_attributes{"title",
                                                  "venue_room_name",
                                                  "general_comment",
                                                  "comment",
                                                  "loading_dock_street_address",
                                                  "load_in_comments",
                                                  "clearance_of_house_grid_rigging_beams_above_venue_floor",
                                                  "rigging_specialties"};
constexpr std::array<const char*, 4> c_address{"address_line1", "postal_code", "locality", "country_code"};
static_assert(c_attributes.size() + c_address.size() == BareVenue::c_textCount);

std::string_view View(const simdjson::simdjson_result<element>& value)
{
    std::string_view text;
    return value.get_string().get(text) == simdjson::SUCCESS ? text : std::string_view();
}

qint64 Number(const simdjson::simdjson_result<element>& value)
{
    qint64 number = 0;
    std::int64_t read = 0;
    if (value.get_int64().get(read) == simdjson::SUCCESS)
        number = read;
    return number;
}

QString Text(const simdjson::simdjson_result<element>& value)
{
    const std::string_view text = View(value);
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

/// The numbers in \p text, however they are separated.
template <std::size_t count> std::array<int, count> Numbers(std::string_view text)
{
    std::array<int, count> numbers{};
    std::size_t index = 0;
    for (const char character : text)
        if (character >= '0' && character <= '9')
            numbers[index] = numbers[index] * 10 + (character - '0');
        else if (++index == count)
            break;
    return numbers;
}

BareVenue ReadVenue(const element& data)
{
    BareVenue venue;
    const auto attributes = data["attributes"];
    const auto address = attributes["address"];
    venue.id = Number(attributes["entity_id"]);
    std::size_t index = 0;
    for (const char* name : c_attributes)
        venue.texts[index++] = Text(attributes[name]);
    for (const char* name : c_address)
        venue.texts[index++] = Text(address[name]);
    venue.uploadDate = Numbers<3>(View(attributes["created"]));
    venue.editDate = Numbers<6>(View(attributes["changed"]));
    return venue;
}

} // namespace

std::vector<BareVenue> ReadBare(const QByteArray& body)
{
    simdjson::dom::parser parser;
    element document;
    simdjson::dom::array data;
    simdjson::dom::array included;
    const bool hasRoom = body.capacity() >= body.size() + qsizetype(simdjson::SIMDJSON_PADDING);
    if (parser.parse(body.constData(), std::size_t(body.size()), !hasRoom).get(document) != simdjson::SUCCESS
        || document["data"].get_array().get(data) != simdjson::SUCCESS
        || document["included"].get_array().get(included) != simdjson::SUCCESS)
        std::abort();
    std::unordered_map<std::string_view, qint64> users;
    for (const element user : included)
        if (View(user["type"]) == "user")
            users.emplace(View(user["id"]), Number(user["attributes"]["entity_id"]));
    std::vector<BareVenue> venues;
    venues.reserve(data.size());
    for (const element venue : data) {
        venues.push_back(ReadVenue(venue));
        const auto user = users.find(View(venue["relationships"]["editor"]["data"]["id"]));
        if (user != users.end())
            venues.back().editor = user->second;
    }
    return venues;
}

} // namespace korvel::Bench
