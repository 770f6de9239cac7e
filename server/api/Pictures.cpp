#include <server/VenueServer.h>

#include <server/api/VenuePictureArtist.h>

namespace korvel::Demo {

PictureSource VenueServer::Pictures()
{
    return [](const VenueRecord& venue, const PictureRecord& picture, QSize size) {
        constexpr int c_quality = 88;
        const PictureSubject subject{venue.entityId,      picture.view,   venue.title,
                                     venue.venueRoomName, venue.locality, venue.countryCode};
        return VenuePictureArtist::DrawJpeg(subject, size, c_quality);
    };
}

} // namespace korvel::Demo
