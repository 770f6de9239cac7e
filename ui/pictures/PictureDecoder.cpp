#include <ui/pictures/PictureDecoder_p.h>

#include <data/Picture.h>

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QPixelFormat>

#include <algorithm>

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::Picture;

namespace {

/// Qt counts pictures of fewer colours as if they had these.
constexpr int c_leastBitsPerPixel = 32;

struct Reading
{
    /// Null where the bytes were not decoded.
    QPixmap pixmap;
    /// They were not because they are a picture that would take more memory than Qt may use for one.
    bool isTooLarge = false;
};

bool IsAllowed(const QSize& size, int bitsPerPixel = c_leastBitsPerPixel)
{
    constexpr double c_bitsPerMegabyte = 8.0 * 1024 * 1024;
    const int limit = QImageReader::allocationLimit();
    return limit == 0
        || static_cast<double>(size.width()) * size.height() * bitsPerPixel <= limit * c_bitsPerMegabyte;
}

/// What each pixel of a picture of \p size will take.
int BitsPerPixel(const QImageReader& reader, const QSize& size)
{
    // Where there is no header some of Qt's readers name a wrong format.
    const QImage::Format format = size.isValid() ? reader.imageFormat() : QImage::Format_Invalid;
    if (format <= QImage::Format_Invalid || format >= QImage::NImageFormats)
        return c_leastBitsPerPixel;
    return std::max<int>(c_leastBitsPerPixel, QImage::toPixelFormat(format).bitsPerPixel());
}

Reading Read(const QByteArray& data)
{
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer);
    // Deliberate: no SVG. Qt's reader opens the local files that a drawing names, and a pipe among them
    // blocks the application for ever.
    if (reader.format().startsWith("svg"))
        return {};
    reader.setAutoTransform(true);

    const QSize size = reader.size();
    const bool isAllowed = IsAllowed(size, BitsPerPixel(reader, size));
    // JPEG is scaled while it is decoded, most other formats are refused by Qt. Halved once and no more: some
    // files take memory for all of their pixels on the way. The decoder may round sides up.
    if (!isAllowed && IsAllowed(QSize((size.width() + 1) / 2, (size.height() + 1) / 2)))
        reader.setScaledSize(QSize(size.width() / 2, size.height() / 2).expandedTo(QSize(1, 1)));
    Reading reading;
    reading.pixmap = QPixmap::fromImageReader(&reader);
    reading.isTooLarge = reading.pixmap.isNull() && !isAllowed;
    return reading;
}

} // namespace

QPixmap DecodePicture(const QByteArray& data)
{
    return Read(data).pixmap;
}

QPixmap DecodeRendition(const QByteArray& data, const Picture& picture)
{
    const Reading rendition = Read(data);
    if (!rendition.isTooLarge)
        return rendition.pixmap;
    const QPixmap medium = DecodePicture(picture.GetPictureDataMedium());
    return medium.isNull() ? DecodePicture(picture.GetPictureDataSmall()) : medium;
}

} // namespace korvel::Ui::VenueDatabase
