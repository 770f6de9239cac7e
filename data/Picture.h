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
/// and need not decode; texts may hold markup.
class KVVENUEDATABASE_API Picture
{
public:
    /// An empty picture: id -1, no texts, no bytes.
    Picture() = default;
    Picture(const Picture& other) = default;
    Picture(Picture&& other) noexcept = default;
    Picture& operator=(const Picture& other) = default;
    Picture& operator=(Picture&& other) noexcept = default;
    ~Picture() = default;

    /// Entity id; the connector stores the id of the venue here. -1 means none.
    qint64 GetId() const;
    QString GetPictureName() const;
    /// URL of the picture as the server lists it.
    QString GetPictureUrl() const;
    QString GetPictureUrlSmall() const;
    QString GetPictureUrlMedium() const;
    QString GetPictureUrlLarge() const;
    /// Encoded image bytes; empty until they are downloaded.
    QByteArray GetPictureDataSmall() const;
    QByteArray GetPictureDataMedium() const;
    QByteArray GetPictureDataLarge() const;
    /// What the picture shows, for captions and for people who cannot see it.
    QString GetAlternativeDescription() const;
    /// As delivered by the server, not parsed.
    QString GetUploadDate() const;
    /// Number of columns, 5.
    qint64 Size() const;

    void SetId(qint64 id);
    void SetPictureName(const QString& pictureName);
    void SetPictureUrl(const QString& url);
    void SetPictureUrlSmall(const QString& url);
    void SetPictureUrlMedium(const QString& url);
    void SetPictureUrlLarge(const QString& url);
    void SetPictureDataSmall(const QByteArray& data);
    void SetPictureDataMedium(const QByteArray& data);
    void SetPictureDataLarge(const QByteArray& data);
    void SetAlternativeDescription(const QString& description);
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
