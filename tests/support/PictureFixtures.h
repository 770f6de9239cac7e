#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

namespace korvel::Test {

/// \p image encoded as PNG.
QByteArray Png(const QImage& image);
/// A picture of one colour, encoded as PNG.
QByteArray EncodedPicture(const QSize& size, const QColor& color);

/// The URL that carries \p data itself, which Qt's network classes answer without a server, asynchronously.
QString DataUrl(const QByteArray& data, const QString& mediaType = QStringLiteral("image/png"));

/// The colours agree up to \p tolerance steps per channel: the rounding of blending, or what JPEG takes away.
bool IsNear(const QColor& shown, const QColor& expected, int tolerance = 2);

} // namespace korvel::Test
