#include <tests/support/PictureFixtures.h>

#include <QBuffer>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace korvel::Test {

QByteArray Encoded(const QImage& image, const QByteArray& format)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format.constData());
    return data;
}

QByteArray Png(const QImage& image)
{
    return Encoded(image, "PNG");
}

QByteArray EncodedPicture(const QSize& size, const QColor& color, const QByteArray& format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return Encoded(image, format);
}

QByteArray TurnedJpeg(const QImage& image, int orientation)
{
    // The Exif segment with one entry, the orientation, comes right after the two bytes that begin the file.
    QByteArray exif = QByteArray::fromHex("ffe10022") + QByteArray("Exif\0\0II*\0", 10)
        + QByteArray::fromHex("08000000"
                              "0100"
                              "1201030001000000")
        + QByteArray(8, '\0');
    exif[exif.size() - 8] = static_cast<char>(orientation);
    return Encoded(image, "JPEG").insert(2, exif);
}

QString DataUrl(const QByteArray& data, const QString& mediaType)
{
    return u"data:%1;base64,%2"_s.arg(mediaType, QString::fromLatin1(data.toBase64()));
}

bool IsNear(const QColor& shown, const QColor& expected, int tolerance)
{
    return std::abs(shown.red() - expected.red()) <= tolerance
        && std::abs(shown.green() - expected.green()) <= tolerance
        && std::abs(shown.blue() - expected.blue()) <= tolerance;
}

} // namespace korvel::Test
