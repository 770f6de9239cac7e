#include <server/api/VenuePicture.h>

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

QString CaptionOf(const VenueRecord& venue, const PictureRecord& picture)
{
    QStringList place;
    for (const QString& part : {venue.locality, venue.title, venue.venueRoomName}) {
        const QString line = part.simplified();
        if (!line.isEmpty() && !place.contains(line))
            place.append(line);
    }
    QString view = picture.view;
    const QString what = view.replace(QLatin1Char('_'), QLatin1Char(' ')) + u" (drawing)"_s;
    return place.isEmpty() ? what : place.join(u", "_s) + u" — "_s + what;
}

/// Writes \p caption into the dark strip that the drawings keep free at the top: viewers put captions of
/// their own over the bottom edge.
void WriteCaption(QImage& image, const QString& caption)
{
    // All measures are those of a sheet of this height.
    constexpr qreal c_sheetHeight = 1000.0;
    const qreal scale = image.height() / c_sheetHeight;
    const QRectF room(48, 0, image.width() / scale - 72, 46);
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(22);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    painter.setFont(font);
    painter.setPen(QColor(0xEC, 0xEA, 0xE4));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     QFontMetricsF(font).elidedText(caption, Qt::ElideMiddle, room.width()));
}

} // namespace

VenuePicture::VenuePicture(const VenueRecord& venue, const PictureRecord& picture)
    : m_caption(CaptionOf(venue, picture))
{
    // Both become part of a file name: none but the known ones.
    if (VenueCatalogue::Houses().contains(venue.house) && VenueCatalogue::Views().contains(picture.view))
        m_file = QStringLiteral(VDB_PICTURES_DIR "/%1-%2.jpg").arg(venue.house, picture.view);
}

QSize VenuePicture::RenditionSize(const QString& rendition)
{
    if (rendition == "small"_L1)
        return {480, 320};
    if (rendition == "medium"_L1)
        return {1200, 800};
    return rendition == "large"_L1 ? QSize(3000, 2000) : QSize();
}

QByteArray VenuePicture::Make(const VenueRecord& venue, const PictureRecord& picture, QSize size)
{
    return VenuePicture(venue, picture).Jpeg(size);
}

QImage VenuePicture::Image(QSize size) const
{
    if (m_file.isEmpty() || size.isEmpty())
        return {};
    QImageReader reader(m_file, "jpg");
    reader.setScaledSize(size);
    QImage image = reader.read();
    if (!image.isNull())
        WriteCaption(image, m_caption);
    return image;
}

QByteArray VenuePicture::Jpeg(QSize size) const
{
    constexpr int c_quality = 88;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setQuality(c_quality);
    return writer.write(Image(size)) ? bytes : QByteArray();
}

} // namespace korvel::Demo
