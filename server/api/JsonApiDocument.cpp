#include <server/api/JsonApiDocument.h>

#include <server/log/Answer.h>

#include <QUrl>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

void WriteVersion(JsonWriter& writer)
{
    writer.Key("jsonapi").BeginObject();
    writer.Member("version", u"1.0"_s);
    writer.Key("meta").BeginObject().Key("links").BeginObject().Key("self").BeginObject();
    writer.Member("href", u"http://jsonapi.org/format/1.0/"_s);
    writer.EndObject().EndObject().EndObject().EndObject();
}

QString FileId(const QString& ownerId)
{
    return u"file-"_s + ownerId;
}

} // namespace

JsonApiDocument::JsonApiDocument(const QString& host, const QByteArray& target, const QStringList& includes)
    : m_origin(u"https://"_s + host)
    , m_target(target)
    , m_includes(includes)
{
}

void JsonApiDocument::AddVenue(const VenueRecord& venue, const UserRecord* editor)
{
    ++m_count;
    m_data.BeginObject();
    m_data.Member("type", u"venue"_s);
    m_data.Member("id", u"venue-%1"_s.arg(venue.entityId));
    WriteSelfLink(m_data, u"/api/venue/venue-%1"_s.arg(venue.entityId));
    WriteAttributes(venue);
    WriteRelationships(venue);
    m_data.EndObject();
    Include(venue, editor);
}

QByteArray JsonApiDocument::Finish()
{
    JsonWriter document;
    document.BeginObject();
    WriteVersion(document);
    document.Key("data").BeginArray().Raw(m_data.Json()).EndArray();
    if (!m_includes.isEmpty())
        document.Key("included").BeginArray().Raw(m_included.Json()).EndArray();
    document.Key("meta").BeginObject().Key("count").Number(m_count).EndObject();
    document.Key("links").BeginObject().Key("self").BeginObject();
    document.Member("href", m_origin + QString::fromUtf8(m_target));
    document.EndObject().EndObject().EndObject();
    return document.Take();
}

QByteArray JsonApiDocument::Error(int status, const QString& detail)
{
    JsonWriter document;
    document.BeginObject();
    WriteVersion(document);
    document.Key("errors").BeginArray().BeginObject();
    document.Member("title", QString::fromLatin1(Answer::StatusText(status)));
    document.Member("status", QString::number(status));
    document.Member("detail", detail);
    document.EndObject().EndArray().EndObject();
    return document.Take();
}

QString JsonApiDocument::PicturePath(const PictureRecord& picture, const QString& rendition)
{
    return u"/files/pictures/%1-%2.jpg"_s.arg(picture.id, rendition);
}

QString JsonApiDocument::ModelFilePath(const ModelFileRecord& file)
{
    return u"/files/models/"_s + QString::fromLatin1(QUrl::toPercentEncoding(file.file));
}

void JsonApiDocument::WriteAttributes(const VenueRecord& venue)
{
    m_data.Key("attributes").BeginObject();
    m_data.Key("entity_id").Number(venue.entityId);
    m_data.Member("langcode", u"en"_s);
    m_data.Key("status").Bool(true);
    bool insideAddress = false;
    for (const VenueText& text : VenueCatalogue::Texts()) {
        static const QByteArray c_addressPrefix = "address.";
        const QByteArray path
            = QByteArray::fromRawData(text.path, static_cast<qsizetype>(qstrlen(text.path)));
        const bool ofAddress = path.startsWith(c_addressPrefix);
        const QString& value = venue.*text.member;
        if (value.isNull())
            continue;
        if (ofAddress && !insideAddress)
            m_data.Key("address").BeginObject().Key("langcode").Null();
        else if (!ofAddress && insideAddress)
            m_data.EndObject();
        insideAddress = ofAddress;
        m_data.Member(ofAddress ? text.path + c_addressPrefix.size() : text.path, value);
    }
    if (insideAddress)
        m_data.EndObject();
    m_data.EndObject();
}

void JsonApiDocument::WriteRelationships(const VenueRecord& venue)
{
    m_data.Key("relationships").BeginObject();
    m_data.Key("venue_type").BeginObject().Key("data");
    WriteReference("taxonomy_term", u"hall"_s);
    m_data.EndObject();
    m_data.Key("editor").BeginObject().Key("data");
    if (venue.editor.isNull())
        m_data.Null();
    else
        WriteReference("user", venue.editor);
    m_data.EndObject();
    for (const QString& view : VenueCatalogue::Views()) {
        m_data.Key(view).BeginObject().Key("data").BeginArray();
        for (const PictureRecord& picture : venue.pictures)
            if (picture.view == view)
                WriteReference("picture", picture.id);
        m_data.EndArray().EndObject();
    }
    m_data.Key("tessra").BeginObject().Key("data").BeginArray();
    for (const ModelFileRecord& file : venue.modelFiles)
        WriteReference("tessra", file.id);
    m_data.EndArray().EndObject();
    m_data.EndObject();
}

void JsonApiDocument::WriteReference(const char* type, const QString& id)
{
    m_data.BeginObject().Member("type", QString::fromLatin1(type)).Member("id", id).EndObject();
}

void JsonApiDocument::WriteSelfLink(JsonWriter& writer, const QString& path) const
{
    writer.Key("links").BeginObject().Key("self").BeginObject();
    writer.Member("href", m_origin + path);
    writer.EndObject().EndObject();
}

void JsonApiDocument::Include(const VenueRecord& venue, const UserRecord* editor)
{
    for (const QString& path : std::as_const(m_includes)) {
        const bool withFile = path.endsWith(".file"_L1);
        const QString relationship = withFile ? path.chopped(5) : path;
        if (relationship == "editor"_L1) {
            if (editor != nullptr)
                IncludeUser(*editor);
        } else if (relationship == "tessra"_L1) {
            for (const ModelFileRecord& file : venue.modelFiles)
                IncludeModelFile(file);
            for (const ModelFileRecord& file : venue.modelFiles)
                if (withFile)
                    IncludeModelFileContent(file);
        } else {
            // A resource stands before the file that it refers to.
            for (const PictureRecord& picture : venue.pictures)
                if (picture.view == relationship)
                    IncludePicture(picture);
            for (const PictureRecord& picture : venue.pictures)
                if (withFile && picture.view == relationship)
                    IncludePictureFile(picture);
        }
    }
}

void JsonApiDocument::IncludeUser(const UserRecord& user)
{
    if (m_includedUsers.contains(user.id))
        return;
    m_includedUsers.insert(user.id);
    m_included.BeginObject();
    m_included.Member("type", u"user"_s).Member("id", user.id);
    WriteSelfLink(m_included, u"/api/user/"_s + user.id);
    m_included.Key("attributes").BeginObject();
    m_included.Key("entity_id").Number(user.entityId);
    m_included.Member("display_name", user.name);
    m_included.EndObject().EndObject();
}

void JsonApiDocument::IncludePicture(const PictureRecord& picture)
{
    m_included.BeginObject();
    m_included.Member("type", u"picture"_s).Member("id", picture.id);
    WriteSelfLink(m_included, u"/api/picture/"_s + picture.id);
    m_included.Key("attributes").BeginObject();
    m_included.Member("name", picture.name).Member("created", picture.created);
    m_included.EndObject();
    m_included.Key("relationships").BeginObject().Key("file").BeginObject().Key("data").BeginObject();
    m_included.Member("type", u"file"_s).Member("id", FileId(picture.id));
    m_included.Key("meta").BeginObject();
    m_included.Member("alt", picture.alt).Member("title", u""_s);
    m_included.EndObject().EndObject().EndObject().EndObject().EndObject();
}

void JsonApiDocument::IncludePictureFile(const PictureRecord& picture)
{
    m_included.BeginObject();
    m_included.Member("type", u"file"_s).Member("id", FileId(picture.id));
    m_included.Key("links").BeginObject();
    for (const char* rendition : {"small", "medium", "large"}) {
        m_included.Key(rendition).BeginObject();
        m_included.Member("href", m_origin + PicturePath(picture, QString::fromLatin1(rendition)));
        m_included.EndObject();
    }
    m_included.EndObject();
    m_included.Key("attributes").BeginObject();
    m_included.Member("filename", picture.id + u".jpg"_s);
    m_included.Member("filemime", u"image/jpeg"_s);
    // The original upload; the server keeps nothing better than the large rendition.
    m_included.Member("url", PicturePath(picture, u"large"_s));
    m_included.EndObject().EndObject();
}

void JsonApiDocument::IncludeModelFile(const ModelFileRecord& file)
{
    m_included.BeginObject();
    m_included.Member("type", u"tessra"_s).Member("id", file.id);
    WriteSelfLink(m_included, u"/api/tessra/"_s + file.id);
    m_included.Key("attributes").BeginObject();
    m_included.Member("name", file.name)
        .Member("created", file.created)
        .Member("file_version", file.fileVersion);
    m_included.EndObject();
    m_included.Key("relationships").BeginObject().Key("file").BeginObject().Key("data").BeginObject();
    m_included.Member("type", u"file"_s).Member("id", FileId(file.id));
    m_included.EndObject().EndObject().EndObject().EndObject();
}

void JsonApiDocument::IncludeModelFileContent(const ModelFileRecord& file)
{
    m_included.BeginObject();
    m_included.Member("type", u"file"_s).Member("id", FileId(file.id));
    WriteSelfLink(m_included, u"/api/file/"_s + FileId(file.id));
    m_included.Key("attributes").BeginObject();
    m_included.Member("filename", file.file);
    m_included.Key("filesize").Number(file.content.size());
    m_included.Member("url", ModelFilePath(file));
    m_included.EndObject().EndObject();
}

} // namespace korvel::Demo
