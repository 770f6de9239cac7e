#pragma once

#include <QtGlobal>

class QString;

namespace korvel::Ui::VenueDatabase {

/// The caption of the picture at the zero-based \p index of \p count: "2/5 description"; "-/0" without
/// pictures.
QString PictureCaption(qsizetype index, qsizetype count, const QString& description);

/// The caption where there is no picture: "-/0".
QString CaptionWithoutPictures();

} // namespace korvel::Ui::VenueDatabase
