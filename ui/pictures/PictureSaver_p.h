#pragma once

#include <QString>

#include <functional>

class QPixmap;
class QWidget;

namespace korvel::Ui::VenueDatabase {

/// Writes \p picture to \p path as JPEG: afterwards either all of it stands in the file, or what was there
/// before.
bool WriteJpeg(const QPixmap& picture, const QString& path);

/// Asks for a JPEG file in a dialog with \p title and proposes \p pictureName without its suffixes. Where the
/// desktop's own dialog did not ask about a file that is there, it asks itself before replacing it. Hands the
/// path to \p save, and asks again as long as that returns false and the user does not give up.
///
/// Runs nested event loops, in which \p parent may be destroyed; the dialog goes with it.
void AskWhereToSave(QWidget* parent, const QString& title, const QString& pictureName,
                    const std::function<bool(const QString& path)>& save);

} // namespace korvel::Ui::VenueDatabase
