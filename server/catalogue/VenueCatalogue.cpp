#include <server/catalogue/VenueCatalogue.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

/// Null when \p object lacks the member, so that a missing text and an empty one stay different.
QString TextOf(const QJsonObject& object, const QString& name)
{
    const QJsonValue value = object.value(name);
    if (!value.isString())
        return {};
    const QString text = value.toString();
    return text.isNull() ? u""_s : text;
}

/// \p path is a name or two names joined by a dot.
QString TextAtPath(const QJsonObject& object, const QString& path)
{
    const qsizetype dot = path.indexOf(QLatin1Char('.'));
    return dot < 0 ? TextOf(object, path)
                   : TextOf(object.value(path.left(dot)).toObject(), path.mid(dot + 1));
}

VenueRecord ReadVenue(const QJsonObject& object)
{
    VenueRecord venue;
    venue.entityId = object.value(u"entity_id"_s).toInteger();
    for (const VenueText& text : VenueCatalogue::Texts())
        venue.*text.member = TextAtPath(object, QString::fromLatin1(text.path));
    venue.house = TextOf(object, u"house"_s);
    venue.editor = TextOf(object, u"editor"_s);
    const QJsonArray pictures = object.value(u"pictures"_s).toArray();
    for (const QJsonValue value : pictures) {
        const QJsonObject picture = value.toObject();
        venue.pictures.append({TextOf(picture, u"id"_s), TextOf(picture, u"view"_s),
                               TextOf(picture, u"name"_s), TextOf(picture, u"alt"_s),
                               TextOf(picture, u"created"_s)});
    }
    const QJsonArray files = object.value(u"model_files"_s).toArray();
    for (const QJsonValue value : files) {
        const QJsonObject file = value.toObject();
        venue.modelFiles.append({TextOf(file, u"id"_s), TextOf(file, u"name"_s), TextOf(file, u"file"_s),
                                 TextOf(file, u"created"_s), TextOf(file, u"file_version"_s), QByteArray()});
    }
    return venue;
}

/// What is wrong with \p venue, empty when nothing is.
QString FindMistake(const VenueRecord& venue)
{
    if (venue.entityId <= 0)
        return u"a venue has no positive entity_id"_s;
    if (!venue.pictures.isEmpty() && !VenueCatalogue::Houses().contains(venue.house))
        return u"venue %1: pictures of an unknown house \"%2\""_s.arg(venue.entityId).arg(venue.house);
    for (const PictureRecord& picture : venue.pictures) {
        if (picture.id.isEmpty() || !VenueCatalogue::Views().contains(picture.view)) {
            return u"venue %1: picture \"%2\" has no id or an unknown view \"%3\""_s.arg(venue.entityId)
                .arg(picture.id, picture.view);
        }
    }
    for (const ModelFileRecord& file : venue.modelFiles) {
        // Names are looked up below models/: none may lead out of it.
        if (file.id.isEmpty() || file.file.isEmpty() || file.file.contains(QLatin1Char('/'))) {
            return u"venue %1: model file \"%2\" has no id or no plain file name"_s.arg(venue.entityId)
                .arg(file.id);
        }
    }
    return {};
}

QString AddFromJson(VenueCatalogue& catalogue, const QByteArray& json, const QDir* models)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (!document.isObject())
        return u"no JSON object (%1, offset %2)"_s.arg(parseError.errorString()).arg(parseError.offset);
    const QJsonArray users = document.object().value(u"users"_s).toArray();
    for (const QJsonValue value : users) {
        const QJsonObject user = value.toObject();
        catalogue.AddUser(
            {TextOf(user, u"id"_s), user.value(u"entity_id"_s).toInteger(), TextOf(user, u"name"_s)});
    }
    const QJsonArray venues = document.object().value(u"venues"_s).toArray();
    for (const QJsonValue value : venues) {
        VenueRecord venue = ReadVenue(value.toObject());
        if (const QString mistake = FindMistake(venue); !mistake.isEmpty())
            return mistake;
        for (ModelFileRecord& file : venue.modelFiles) {
            if (QFile content(models != nullptr ? models->filePath(file.file) : QString());
                models != nullptr && content.open(QIODevice::ReadOnly)) {
                // Never null: that would mean a file that is missing.
                file.content = QByteArray("") + content.readAll();
            }
        }
        catalogue.AddVenue(venue);
    }
    return {};
}

} // namespace

std::span<const VenueText> VenueCatalogue::Texts()
{
    static constexpr VenueText c_texts[] = {
        {"title", &VenueRecord::title},
        {"venue_room_name", &VenueRecord::venueRoomName},
        {"general_comment", &VenueRecord::generalComment},
        {"address.country_code", &VenueRecord::countryCode},
        {"address.locality", &VenueRecord::locality},
        {"address.postal_code", &VenueRecord::postalCode},
        {"address.address_line1", &VenueRecord::addressLine1},
        {"comment", &VenueRecord::comment},
        {"loading_dock_street_address", &VenueRecord::loadingDockStreetAddress},
        {"load_in_comments", &VenueRecord::loadInComments},
        {"clearance_of_house_grid_rigging_beams_above_venue_floor", &VenueRecord::clearance},
        {"rigging_specialties", &VenueRecord::riggingSpecialties},
        {"created", &VenueRecord::created},
        {"changed", &VenueRecord::changed},
    };
    return c_texts;
}

const QStringList& VenueCatalogue::Views()
{
    static const QStringList c_views{u"from_the_auditorium"_s,
                                     u"from_the_stage_into_the_auditorium"_s,
                                     u"isometric"_s,
                                     u"stage_left"_s,
                                     u"stage_right"_s,
                                     u"view_from_the_inside"_s,
                                     u"view_from_the_outside"_s};
    return c_views;
}

const QStringList& VenueCatalogue::Houses()
{
    static const QStringList c_houses{u"opera"_s, u"shoebox"_s, u"vineyard"_s, u"arena"_s, u"modern"_s};
    return c_houses;
}

VenueCatalogue VenueCatalogue::Load(const QString& folder, QString* error)
{
    const auto fail = [error](const QString& text) {
        if (error != nullptr)
            *error = text;
        return VenueCatalogue();
    };
    const QDir directory(folder);
    const QDir models(directory.filePath(u"models"_s));
    QStringList names = directory.entryList({u"venues-*.json"_s}, QDir::Files, QDir::Name);
    if (names.isEmpty())
        return fail(u"%1 has no venues-*.json"_s.arg(directory.absolutePath()));
    if (directory.exists(u"users.json"_s))
        names.prepend(u"users.json"_s);
    VenueCatalogue catalogue;
    for (const QString& name : names) {
        QFile file(directory.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            return fail(u"%1: %2"_s.arg(name, file.errorString()));
        if (const QString mistake = AddFromJson(catalogue, file.readAll(), &models); !mistake.isEmpty())
            return fail(u"%1: %2"_s.arg(name, mistake));
    }
    if (error != nullptr)
        error->clear();
    return catalogue;
}

VenueCatalogue VenueCatalogue::FromJson(const QByteArray& json, QString* error)
{
    VenueCatalogue catalogue;
    const QString mistake = AddFromJson(catalogue, json, nullptr);
    if (error != nullptr)
        *error = mistake;
    return mistake.isEmpty() ? catalogue : VenueCatalogue();
}

void VenueCatalogue::AddVenue(const VenueRecord& venue)
{
    const qsizetype index = m_venues.size();
    for (qsizetype i = 0; i < venue.pictures.size(); ++i)
        m_pictureById.insert(venue.pictures.at(i).id, {index, i});
    for (qsizetype i = 0; i < venue.modelFiles.size(); ++i)
        m_modelByFile.insert(venue.modelFiles.at(i).file, {index, i});
    m_venues.append(venue);
}

void VenueCatalogue::AddUser(const UserRecord& user)
{
    m_userById.insert(user.id, m_users.size());
    m_users.append(user);
}

const UserRecord* VenueCatalogue::FindUser(const QString& id) const
{
    const auto found = m_userById.constFind(id);
    return found == m_userById.cend() ? nullptr : &m_users.at(*found);
}

const PictureRecord* VenueCatalogue::FindPicture(const QString& id, const VenueRecord** venue) const
{
    const auto found = m_pictureById.constFind(id);
    if (found == m_pictureById.cend())
        return nullptr;
    *venue = &m_venues.at(found->venue);
    return &(*venue)->pictures.at(found->item);
}

const ModelFileRecord* VenueCatalogue::FindModelFile(const QString& file) const
{
    const auto found = m_modelByFile.constFind(file);
    return found == m_modelByFile.cend() ? nullptr : &m_venues.at(found->venue).modelFiles.at(found->item);
}

} // namespace korvel::Demo
