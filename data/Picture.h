#pragma once

#include <data/VenueDatabaseExport.h>

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace korvel::Data::VenueDatabase {

/// One photograph of a venue: the addresses of its renditions and, once downloaded, their encoded image
/// bytes.
///
/// A plain value, copied memberwise; bytes and texts are implicitly shared. Bytes are what the server sent
/// and need not decode; texts may hold markup. A record can be used in any thread that owns it.
class KVVENUEDATABASE_API Picture
{
public:
    /// An empty picture: id -1, no texts, no bytes.
    Picture() = default;
    /// Copies memberwise.
    Picture(const Picture& other) = default;
    /// Moves memberwise; \p other can only be assigned to or destroyed afterwards.
    Picture(Picture&& other) noexcept = default;
    /// Assigns memberwise.
    Picture& operator=(const Picture& other) = default;
    /// Moves memberwise; \p other can only be assigned to or destroyed afterwards.
    Picture& operator=(Picture&& other) noexcept = default;
    /// Holds nothing but values.
    ~Picture() = default;

    /// Entity id; the connector stores the id of the venue here. -1 means none.
    qint64 GetId() const;
    /// The picture's name on the server; the viewer suggests it as the name of the saved file.
    QString GetPictureName() const;
    /// URL of the picture as the server lists it.
    QString GetPictureUrl() const;
    /// Full URL of the small rendition; empty when there is none.
    QString GetPictureUrlSmall() const;
    /// Full URL of the medium rendition; empty when there is none.
    QString GetPictureUrlMedium() const;
    /// Full URL of the large rendition; empty when there is none.
    QString GetPictureUrlLarge() const;
    /// Encoded bytes of the small rendition; empty until they are downloaded. The connector stores here what
    /// it fetched, of whichever rendition was the smallest that the server named.
    QByteArray GetPictureDataSmall() const;
    /// Encoded bytes of the medium rendition; empty until they are downloaded.
    QByteArray GetPictureDataMedium() const;
    /// Encoded bytes of the large rendition; empty until they are downloaded.
    QByteArray GetPictureDataLarge() const;
    /// What the picture shows, for captions and for people who cannot see it.
    QString GetAlternativeDescription() const;
    /// As delivered by the server, not parsed.
    QString GetUploadDate() const;
    /// Number of columns, 5.
    qint64 Size() const;

    /// See GetId().
    void SetId(qint64 id);
    /// See GetPictureName().
    void SetPictureName(const QString& pictureName);
    /// See GetPictureUrl(); the renditions keep theirs.
    void SetPictureUrl(const QString& url);
    /// See GetPictureUrlSmall(); the bytes stay.
    void SetPictureUrlSmall(const QString& url);
    /// See GetPictureUrlMedium(); the bytes stay.
    void SetPictureUrlMedium(const QString& url);
    /// See GetPictureUrlLarge(); the bytes stay.
    void SetPictureUrlLarge(const QString& url);
    /// Keeps \p data (shared), whether it decodes or not; empty means not downloaded.
    void SetPictureDataSmall(const QByteArray& data);
    /// Keeps \p data (shared), whether it decodes or not; empty means not downloaded.
    void SetPictureDataMedium(const QByteArray& data);
    /// Keeps \p data (shared), whether it decodes or not; empty means not downloaded.
    void SetPictureDataLarge(const QByteArray& data);
    /// See GetAlternativeDescription().
    void SetAlternativeDescription(const QString& description);
    /// Stores the text as it is.
    void SetUploadDate(const QString& uploadDate);

    /// The first of large, medium and small data that is not empty; empty when none has been downloaded.
    QByteArray GetLargestPictureData() const;
    /// The first of small, medium and large data that is not empty; empty when none has been downloaded.
    QByteArray GetSmallestPictureData() const;

    /// 0 id, 1 name, 2 small data, 3 alternative description, 4 upload date; otherwise an invalid variant.
    QVariant GetDataAt(qint64 index) const;
    /// The untranslated name of column \p index; empty where there is none.
    static QString GetLabelAt(qint64 index);

private:
    qint64 m_elementCount = 5;
    qint64 m_id = -1;
    QString m_pictureName;
    QString m_pictureUrl;
    QString m_pictureUrlSmall;
    QString m_pictureUrlMedium;
    QString m_pictureUrlLarge;
    QByteArray m_pictureDataSmall;
    QByteArray m_pictureDataMedium;
    QByteArray m_pictureDataLarge;
    QString m_alternativeDescription;
    QString m_uploadDate;
};

} // namespace korvel::Data::VenueDatabase
