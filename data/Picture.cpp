#include <data/Picture.h>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

qint64 Picture::GetId() const
{
    return m_id;
}

QString Picture::GetPictureName() const
{
    return m_pictureName;
}

QString Picture::GetPictureUrl() const
{
    return m_pictureUrl;
}

QString Picture::GetPictureUrlSmall() const
{
    return m_pictureUrlSmall;
}

QString Picture::GetPictureUrlMedium() const
{
    return m_pictureUrlMedium;
}

QString Picture::GetPictureUrlLarge() const
{
    return m_pictureUrlLarge;
}

QByteArray Picture::GetPictureDataSmall() const
{
    return m_pictureDataSmall;
}

QByteArray Picture::GetPictureDataMedium() const
{
    return m_pictureDataMedium;
}

QByteArray Picture::GetPictureDataLarge() const
{
    return m_pictureDataLarge;
}

QString Picture::GetAlternativeDescription() const
{
    return m_alternativeDescription;
}

QString Picture::GetUploadDate() const
{
    return m_uploadDate;
}

qint64 Picture::Size() const
{
    return m_elementCount;
}

void Picture::SetId(qint64 id)
{
    m_id = id;
}

void Picture::SetPictureName(const QString& pictureName)
{
    m_pictureName = pictureName;
}

void Picture::SetPictureUrl(const QString& url)
{
    m_pictureUrl = url;
}

void Picture::SetPictureUrlSmall(const QString& url)
{
    m_pictureUrlSmall = url;
}

void Picture::SetPictureUrlMedium(const QString& url)
{
    m_pictureUrlMedium = url;
}

void Picture::SetPictureUrlLarge(const QString& url)
{
    m_pictureUrlLarge = url;
}

void Picture::SetPictureDataSmall(const QByteArray& data)
{
    m_pictureDataSmall = data;
}

void Picture::SetPictureDataMedium(const QByteArray& data)
{
    m_pictureDataMedium = data;
}

void Picture::SetPictureDataLarge(const QByteArray& data)
{
    m_pictureDataLarge = data;
}

void Picture::SetAlternativeDescription(const QString& description)
{
    m_alternativeDescription = description;
}

void Picture::SetUploadDate(const QString& uploadDate)
{
    m_uploadDate = uploadDate;
}

QByteArray Picture::GetLargestPictureData() const
{
    if (!m_pictureDataLarge.isEmpty())
        return m_pictureDataLarge;
    if (!m_pictureDataMedium.isEmpty())
        return m_pictureDataMedium;
    return m_pictureDataSmall;
}

QByteArray Picture::GetSmallestPictureData() const
{
    if (!m_pictureDataSmall.isEmpty())
        return m_pictureDataSmall;
    if (!m_pictureDataMedium.isEmpty())
        return m_pictureDataMedium;
    return m_pictureDataLarge;
}

QVariant Picture::GetDataAt(qint64 index) const
{
    switch (index) {
    case 0:
        return m_id;
    case 1:
        return m_pictureName;
    case 2:
        return m_pictureDataSmall;
    case 3:
        return m_alternativeDescription;
    case 4:
        return m_uploadDate;
    default:
        return {};
    }
}

QString Picture::GetLabelAt(qint64 index)
{
    switch (index) {
    case 0:
        return u"ID"_s;
    case 1:
        return u"PictureName"_s;
    case 2:
        return u"PictureData"_s;
    case 3:
        return u"AlternativeDescription"_s;
    case 4:
        return u"UploadDate"_s;
    default:
        return {};
    }
}

} // namespace korvel::Data::VenueDatabase
