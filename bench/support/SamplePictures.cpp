#include <bench/support/SamplePictures.h>

#include <QBuffer>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace korvel::Bench {

using Data::VenueDatabase::Picture;

namespace {

constexpr int c_shapeCount = 400;
constexpr int c_jpegQuality = 85;

} // namespace

QByteArray SampleJpeg(QSize size, quint32 seed)
{
    QRandomGenerator random(seed + 1);
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, size.width(), size.height());
    sky.setColorAt(0, QColor::fromHsv(random.bounded(360), 120, 230));
    sky.setColorAt(1, QColor::fromHsv(random.bounded(360), 180, 90));
    painter.fillRect(image.rect(), sky);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < c_shapeCount; ++i) {
        painter.setBrush(QColor::fromHsv(random.bounded(360), random.bounded(256), random.bounded(256), 120));
        const double width = random.bounded(size.width() / 6.0);
        painter.drawEllipse(
            QRectF(random.bounded(size.width()), random.bounded(size.height()), width, width * 0.7));
    }
    painter.end();

    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG", c_jpegQuality);
    return jpeg;
}

QList<Picture> SamplePictures(int count, QSize size)
{
    QList<Picture> pictures;
    for (int i = 0; i < count; ++i) {
        Picture picture;
        picture.SetPictureDataSmall(SampleJpeg(size, static_cast<quint32>(i)));
        picture.SetAlternativeDescription(u"View %1 of the hall"_s.arg(i + 1));
        pictures.append(picture);
    }
    return pictures;
}

} // namespace korvel::Bench
