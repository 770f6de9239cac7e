#pragma once

#include <server/api/JsonWriter.h>
#include <server/catalogue/VenueCatalogue.h>

#include <QSet>
#include <QStringList>

namespace korvel::Demo {

/// Builds one JSON:API document of venues, venue by venue, as a full-grown content server would write it.
class JsonApiDocument
{
public:
    /// The one media type of every JSON answer.
    static constexpr const char* c_mediaType = "application/vnd.api+json";

    /// Links lead to https://\p host; \p target is the request's path and query as sent. \p includes lists
    /// the relationships whose resources go into "included", see VenueQuery::Includes().
    JsonApiDocument(const QString& host, const QByteArray& target, const QStringList& includes);

    /// Appends \p venue and what it includes. \p editor is the user that its editor names, null when unknown.
    void AddVenue(const VenueRecord& venue, const UserRecord* editor);
    /// The complete document. Call once, at the end.
    QByteArray Finish();

    /// A document that reports one error. \p detail is a sentence for the client.
    static QByteArray Error(int status, const QString& detail);

    /// The path on the server of one rendition ("small", "medium", "large") of a picture.
    static QString PicturePath(const PictureRecord& picture, const QString& rendition);
    /// The percent-encoded path on the server of a model file.
    static QString ModelFilePath(const ModelFileRecord& file);

private:
    void WriteAttributes(const VenueRecord& venue);
    void WriteRelationships(const VenueRecord& venue);
    void WriteReference(const char* type, const QString& id);
    void WriteSelfLink(JsonWriter& writer, const QString& path) const;
    void Include(const VenueRecord& venue, const UserRecord* editor);
    void IncludeUser(const UserRecord& user);
    void IncludePicture(const PictureRecord& picture);
    void IncludePictureFile(const PictureRecord& picture);
    void IncludeModelFile(const ModelFileRecord& file);
    void IncludeModelFileContent(const ModelFileRecord& file);

    QString m_origin;
    QByteArray m_target;
    QStringList m_includes;
    JsonWriter m_data;
    JsonWriter m_included;
    QSet<QString> m_includedUsers;
    qint64 m_count = 0;
};

} // namespace korvel::Demo
