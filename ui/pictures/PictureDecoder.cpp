#include <ui/pictures/PictureDecoder_p.h>

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

namespace korvel::Ui::VenueDatabase {

QPixmap DecodePicture(const QByteArray& data)
{
    QBuffer buffer;
    buffer.setData(data);
    // Cannot fail: there is nothing to open but memory.
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    // Deliberate: no SVG. Qt's reader opens the local files that a drawing names, and a pipe among them
    // blocks the application for ever.
    if (reader.format().startsWith("svg"))
        return {};
    return QPixmap::fromImageReader(&reader);
}

} // namespace korvel::Ui::VenueDatabase
