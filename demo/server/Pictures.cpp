#include "VenueServer.h"

#include <QBuffer>
#include <QImage>

namespace korvel::Demo {

PictureSource VenueServer::Pictures()
{
    return [](const VenueRecord&, const PictureRecord&, QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "JPEG", 85);
        return bytes;
    };
}

} // namespace korvel::Demo
