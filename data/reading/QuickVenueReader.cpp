#include <data/reading/QuickVenueReader_p.h>

#include <data/CountryCodeTranslator.h>
#include <data/reading/ServerDate_p.h>
#include <data/reading/VenueFields_p.h>

#include <utility>

namespace korvel::Data::VenueDatabase {

namespace {

/// The names in the table \p fields and after them \p more.
template <std::size_t count, typename Field, typename... More>
constexpr auto NamesOf(const std::array<Field, count>& fields, More... more)
{
    std::array<QByteArrayView, count + sizeof...(More)> names{};
    std::size_t index = 0;
    for (const Field& field : fields)
        names[index++] = field.name;
    ((names[index++] = more), ...);
    return names;
}

/// Reads the object at \p cursor, of which only the member \p name counts, by read().
template <typename Read> void ReadMember(JsonCursor& cursor, QByteArrayView name, Read&& read)
{
    cursor.ReadObject({&name, 1}, [&read](std::size_t) { read(); });
}

} // namespace

/// A member of a venue.
class QuickVenueReader::Value
{
public:
    Value(const JsonScalar& scalar, QuickVenueReader& reader)
        : m_scalar(scalar)
        , m_reader(reader)
    {
    }

    qint64 Integer() const
    {
        return m_scalar.ToInt();
    }
    QString Text() const
    {
        return m_scalar.ToString();
    }
    QString SharedText() const
    {
        return Shared(m_reader.m_texts, [this]() { return Text(); });
    }
    QString Country() const
    {
        return Shared(m_reader.m_countryNames, [this]() { return m_reader.m_countries.GetCountry(Text()); });
    }
    QDate Date() const
    {
        return m_scalar.IsPlainText() ? ReadServerDate(QUtf8StringView(m_scalar.raw))
                                      : ReadServerDate(Text());
    }
    QDateTime DateTime() const
    {
        return m_scalar.IsPlainText() ? ReadServerDateTime(QUtf8StringView(m_scalar.raw))
                                      : ReadServerDateTime(Text());
    }

private:
    template <typename Make> QString Shared(TextPool<QByteArrayView>& pool, Make&& make) const
    {
        return m_scalar.IsPlainText() ? pool.Shared(m_scalar.raw, make) : make();
    }

    const JsonScalar& m_scalar;
    QuickVenueReader& m_reader;
};

QuickVenueReader::QuickVenueReader(QByteArrayView body, const CountryCodeTranslator& countries)
    : m_cursor(body)
    , m_countries(countries)
{
}

std::optional<QList<Venue>> QuickVenueReader::Read()
{
    static constexpr auto c_names = std::to_array<QByteArrayView>({"data", "included"});
    bool hasList = false;
    m_cursor.ReadObject(c_names, [this, &hasList](std::size_t index) {
        if (index == 0)
            hasList = m_cursor.ReadArray([this]() { ReadVenue(); });
        else
            m_cursor.ReadArray([this]() { ReadUser(); });
    });
    if (!m_cursor.HasReadAll() || !hasList)
        return std::nullopt;

    QList<Venue> venues;
    venues.reserve(qsizetype(m_venues.size()));
    // Deliberate: the list is in the reverse order of the server's.
    for (; !m_venues.empty(); m_venues.pop_back()) {
        Venue& venue = m_venues.back();
        const auto editor = m_users.constFind(m_editorIds[m_venues.size() - 1]);
        if (editor != m_users.constEnd())
            venue.SetEditor(*editor);
        venues.append(std::move(venue));
    }
    return venues;
}

void QuickVenueReader::ReadVenue()
{
    static constexpr auto c_elementNames = std::to_array<QByteArrayView>({"attributes", "relationships"});
    static constexpr auto c_attributes = c_attributeFields<Value>;
    static constexpr auto c_attributeNames = NamesOf(c_attributes, QByteArrayView("address"));
    static constexpr auto c_address = c_addressFields<Value>;
    static constexpr auto c_addressNames = NamesOf(c_address);

    // A missing member is set, too: an id of 0, for example.
    std::array<JsonScalar, c_attributes.size()> attributes;
    std::array<JsonScalar, c_address.size()> address;
    QByteArrayView editorId;
    m_cursor.ReadObject(c_elementNames, [&](std::size_t member) {
        if (member == 1) {
            editorId = ReadEditorId();
            return;
        }
        m_cursor.ReadObject(c_attributeNames, [&](std::size_t index) {
            if (index < attributes.size()) {
                attributes[index] = m_cursor.ReadScalar();
                return;
            }
            m_cursor.ReadObject(c_addressNames,
                                [&](std::size_t part) { address[part] = m_cursor.ReadScalar(); });
        });
    });
    if (m_cursor.HasRefused())
        return;

    Venue& venue = m_venues.emplace_back();
    m_editorIds.push_back(editorId);
    for (std::size_t index = 0; index < attributes.size(); ++index)
        c_attributes[index].set(venue, Value(attributes[index], *this));
    for (std::size_t index = 0; index < address.size(); ++index)
        c_address[index].set(venue, Value(address[index], *this));
}

/// The identifier in a venue's relationships, or an empty one.
QByteArrayView QuickVenueReader::ReadEditorId()
{
    QByteArrayView id;
    ReadMember(m_cursor, "editor", [&]() {
        ReadMember(m_cursor, "data", [&]() { ReadMember(m_cursor, "id", [&]() { id = ReadId().raw; }); });
    });
    return id;
}

void QuickVenueReader::ReadUser()
{
    static constexpr auto c_names = std::to_array<QByteArrayView>({"type", "id", "attributes"});
    JsonScalar type;
    JsonScalar id;
    JsonScalar entityId;
    m_cursor.ReadObject(c_names, [&](std::size_t index) {
        if (index == 0)
            type = ReadId();
        else if (index == 1)
            id = ReadId();
        else
            ReadMember(m_cursor, "entity_id", [&]() { entityId = m_cursor.ReadScalar(); });
    });
    // The first user of an id counts. A number never equals the text that a relationship names.
    if (type.raw == "user" && id.kind == JsonScalar::Text && !m_users.contains(id.raw))
        m_users.insert(id.raw, entityId.ToInt());
}

/// A text that is compared by its bytes; any other value is an empty text of another kind.
JsonScalar QuickVenueReader::ReadId()
{
    const JsonScalar id = m_cursor.ReadScalar();
    if (id.hasEscapes)
        m_cursor.Refuse();
    return id.kind == JsonScalar::Text ? id : JsonScalar();
}

} // namespace korvel::Data::VenueDatabase
