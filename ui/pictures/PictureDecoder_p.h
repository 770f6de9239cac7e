#pragma once

#include <QPixmap>

class QByteArray;

namespace korvel::Data::VenueDatabase {
class Picture;
}

namespace korvel::Ui::VenueDatabase {

/// Decodes the bytes of a picture that came from the server, and turns it upright where they say how it was
/// taken; the format is found out from the bytes. A JPEG that exceeds Qt's allocation limit is decoded at
/// half its size if that helps. A null pixmap where the bytes are not a picture, exceed the limit, or are a
/// drawing that may refer to files.
QPixmap DecodePicture(const QByteArray& data);

/// The same for a rendition of \p picture. Where \p data exceeds the limit, the medium rendition takes its
/// place, or else the small one.
QPixmap DecodeRendition(const QByteArray& data, const Data::VenueDatabase::Picture& picture);

} // namespace korvel::Ui::VenueDatabase
