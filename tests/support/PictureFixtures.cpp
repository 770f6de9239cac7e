#include <tests/support/PictureFixtures.h>

#include <QBuffer>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace korvel::Test {

QByteArray Png(const QImage& image)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return data;
}

QByteArray EncodedPicture(const QSize& size, const QColor& color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return Png(image);
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
