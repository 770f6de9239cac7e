#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

namespace korvel::Test {

/// \p image as a file of that format.
QByteArray Encoded(const QImage& image, const QByteArray& format);
/// \p image encoded as PNG.
QByteArray Png(const QImage& image);
/// A picture of one colour.
QByteArray EncodedPicture(const QSize& size, const QColor& color, const QByteArray& format = "PNG");

/// \p image encoded as a JPEG that is to be turned for showing, as the camera's \p orientation of the Exif
/// standard says: 1 for upright, 3 for upside down, 6 and 8 for a quarter turn, even numbers below 6 and odd
/// ones above mirrored.
QByteArray TurnedJpeg(const QImage& image, int orientation);

/// The URL that carries \p data itself, which Qt's network classes answer without a server, asynchronously.
QString DataUrl(const QByteArray& data, const QString& mediaType = QStringLiteral("image/png"));

/// The colours agree up to \p tolerance steps per channel: the rounding of blending, or what JPEG takes away.
bool IsNear(const QColor& shown, const QColor& expected, int tolerance = 2);

} // namespace korvel::Test
