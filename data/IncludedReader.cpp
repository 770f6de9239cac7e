#include <data/IncludedReader_p.h>

#include <data/JsonPath_p.h>

#include <QJsonObject>
#include <QJsonValue>
#include <QMap>

#include <utility>

namespace korvel::Data::VenueDatabase {

namespace {

/// The identifier of the stored file that a "picture" or "tessra" resource refers to.
QString FileId(const QJsonObject& resource)
{
    return TextAt(
        resource,
        {QLatin1String("relationships"), QLatin1String("file"), QLatin1String("data"), QLatin1String("id")});
}

/// Fills \p picture from the "picture" resource that describes it.
void Describe(Picture& picture, const QJsonObject& resource)
{
    picture.SetPictureName(TextAt(resource, {QLatin1String("attributes"), QLatin1String("name")}));
    picture.SetUploadDate(TextAt(resource, {QLatin1String("attributes"), QLatin1String("created")}));
    picture.SetAlternativeDescription(
        TextAt(resource,
               {QLatin1String("relationships"), QLatin1String("file"), QLatin1String("data"),
                QLatin1String("meta"), QLatin1String("alt")}));
}

/// Fills \p file from the "tessra" resource that describes it.
void Describe(TsFile& file, const QJsonObject& resource)
{
    QString name = TextAt(resource, {QLatin1String("attributes"), QLatin1String("name")});
    QString uploadDate = TextAt(resource, {QLatin1String("attributes"), QLatin1String("created")});
    QString version = TextAt(resource, {QLatin1String("attributes"), QLatin1String("file_version")});
    file.SetFileName(name);
    file.SetUploadDate(uploadDate);
    file.SetTsVersion(version);
}

QString RenditionUrl(const QJsonObject& file, QLatin1String rendition)
{
    return TextAt(file, {QLatin1String("links"), rendition, QLatin1String("href")});
}

/// Fills \p picture from its "file" resource.
void Locate(Picture& picture, const QJsonObject& file)
{
    picture.SetPictureUrlSmall(RenditionUrl(file, QLatin1String("small")));
    picture.SetPictureUrlMedium(RenditionUrl(file, QLatin1String("medium")));
    picture.SetPictureUrlLarge(RenditionUrl(file, QLatin1String("large")));
}

/// A model file has no addresses of its own.
void Locate(TsFile& /*file*/, const QJsonObject& /*file*/) { }

/// Joins the resources of \p type with the "file" resources that they refer to.
template <typename Record>
QList<StoredFile<Record>> FilesOf(const QJsonArray& included, QLatin1String type, qint64 venueId)
{
    QMap<QString, Record> recordsByFile;
    for (const QJsonValue value : included) {
        const QJsonObject resource = value.toObject();
        if (!IsResource(resource, type))
            continue;
        Record record;
        record.SetId(venueId);
        Describe(record, resource);
        recordsByFile.insert(FileId(resource), record);
    }

    QList<StoredFile<Record>> files;
    for (const QJsonValue value : included) {
        const QJsonObject resource = value.toObject();
        if (!IsResource(resource, QLatin1String("file")))
            continue;
        Record record = recordsByFile.value(TextAt(resource, {QLatin1String("id")}));
        Locate(record, resource);
        files.append(
            {std::move(record), TextAt(resource, {QLatin1String("attributes"), QLatin1String("url")})});
    }
    return files;
}

} // namespace

IncludedReader::IncludedReader(const QJsonArray& included, qint64 venueId)
    : m_included(included)
    , m_venueId(venueId)
{
}

QList<StoredFile<Picture>> IncludedReader::Pictures() const
{
    return FilesOf<Picture>(m_included, QLatin1String("picture"), m_venueId);
}

QList<StoredFile<TsFile>> IncludedReader::ModelFiles() const
{
    return FilesOf<TsFile>(m_included, QLatin1String("tessra"), m_venueId);
}

} // namespace korvel::Data::VenueDatabase
