#pragma once

#include <server/catalogue/VenueCatalogue.h>

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <functional>

namespace korvel::Demo {

/// Makes the encoded bytes of a picture in a size; empty bytes: there is no such picture. Called in threads
/// of the server.
using PictureSource
    = std::function<QByteArray(const VenueRecord& venue, const PictureRecord& picture, QSize size)>;

/// A picture that the server offers in place of a photograph: the stored drawing of the venue's kind of house
/// in one view, scaled, with a caption that names the venue and says that it is a drawing.
///
/// Functions that make a picture need a QGuiApplication because of the fonts, and no widgets; they may be
/// called from any thread. The same venue, view and size always give the same picture.
class VenuePicture
{
public:
    VenuePicture(const VenueRecord& venue, const PictureRecord& picture);

    /// The size of the rendition "small", "medium" or "large"; empty for any other name.
    static QSize RenditionSize(const QString& rendition);
    /// A PictureSource: Jpeg() of \p picture.
    static QByteArray Make(const VenueRecord& venue, const PictureRecord& picture, QSize size);

    /// City, title, room and view, as far as the venue has them.
    QString Caption() const
    {
        return m_caption;
    }
    /// Exactly \p size pixels. Null where \p size is empty or too large to allocate, or where no drawing is
    /// stored for the house and the view.
    QImage Image(QSize size) const;
    /// The same as JPEG; empty where Image() is null.
    QByteArray Jpeg(QSize size) const;

private:
    QString m_file;
    QString m_caption;
};

} // namespace korvel::Demo
