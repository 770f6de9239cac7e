#include <data/reading/IncludedReader_p.h>

#include <data/reading/JsonPath_p.h>

#include <QJsonObject>
#include <QJsonValue>
#include <QMap>

#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

namespace {

/// The identifier of the stored file that a "picture" or "tessra" resource refers to.
QString FileId(const QJsonObject& resource)
{
    return TextAt(resource, {"relationships"_L1, "file"_L1, "data"_L1, "id"_L1});
}

/// Fills \p picture from the "picture" resource that describes it.
void Describe(Picture& picture, const QJsonObject& resource)
{
    picture.SetPictureName(TextAt(resource, {"attributes"_L1, "name"_L1}));
    picture.SetUploadDate(TextAt(resource, {"attributes"_L1, "created"_L1}));
    picture.SetAlternativeDescription(
        TextAt(resource, {"relationships"_L1, "file"_L1, "data"_L1, "meta"_L1, "alt"_L1}));
}

/// Fills \p file from the "tessra" resource that describes it.
void Describe(TsFile& file, const QJsonObject& resource)
{
    QString name = TextAt(resource, {"attributes"_L1, "name"_L1});
    QString uploadDate = TextAt(resource, {"attributes"_L1, "created"_L1});
    QString version = TextAt(resource, {"attributes"_L1, "file_version"_L1});
    file.SetFileName(name);
    file.SetUploadDate(uploadDate);
    file.SetTsVersion(version);
}

QString RenditionUrl(const QJsonObject& file, QLatin1String rendition)
{
    return TextAt(file, {"links"_L1, rendition, "href"_L1});
}

/// Fills \p picture from its "file" resource.
void Locate(Picture& picture, const QJsonObject& file)
{
    picture.SetPictureUrlSmall(RenditionUrl(file, "small"_L1));
    picture.SetPictureUrlMedium(RenditionUrl(file, "medium"_L1));
    picture.SetPictureUrlLarge(RenditionUrl(file, "large"_L1));
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
        if (!IsResource(resource, "file"_L1))
            continue;
        Record record = recordsByFile.value(TextAt(resource, {"id"_L1}));
        Locate(record, resource);
        files.append({std::move(record), TextAt(resource, {"attributes"_L1, "url"_L1})});
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
    return FilesOf<Picture>(m_included, "picture"_L1, m_venueId);
}

QList<StoredFile<TsFile>> IncludedReader::ModelFiles() const
{
    return FilesOf<TsFile>(m_included, "tessra"_L1, m_venueId);
}

} // namespace korvel::Data::VenueDatabase
