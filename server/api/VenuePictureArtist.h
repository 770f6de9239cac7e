#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

namespace korvel::Demo {

/// What a picture shows and what its caption says. Every text may be empty.
struct PictureSubject
{
    qint64 venueId
        = -1; ///< decides architecture, colours and light: the same id always gives the same building
    QString view; ///< one of the seven views of the catalogue; any other text shows the outside
    QString title;
    QString room;
    QString city;
    QString country;
};

/// Draws illustrations of venues, which the demo server offers in place of photographs.
///
/// All functions may be called from any thread, several at a time. They need a QGuiApplication because of the
/// fonts, and no widgets. The same subject and size always give the same picture.
class VenuePictureArtist
{
public:
    /// Returns the picture of \p subject in exactly \p size pixels, or a null image where \p size is empty
    /// or too large to allocate.
    static QImage Draw(const PictureSubject& subject, QSize size);
    /// The same picture as JPEG; \p quality from 0 to 100. Empty where Draw() gives a null image.
    static QByteArray DrawJpeg(const PictureSubject& subject, QSize size, int quality);
};

} // namespace korvel::Demo
