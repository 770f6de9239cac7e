#pragma once

#include <QPixmap>

class QByteArray;

namespace korvel::Ui::VenueDatabase {

/// Decodes the bytes of a picture that came from the server; the format is found out from the bytes. A null
/// pixmap where they are no picture, exceed Qt's allocation limit, or are a drawing that may refer to files.
QPixmap DecodePicture(const QByteArray& data);

} // namespace korvel::Ui::VenueDatabase
