#pragma once

#include <QtGlobal>

class QString;
class QWidget;

namespace korvel::Ui::VenueDatabase {

/// The caption of the picture at the zero-based \p index of \p count: "2/5 description"; "-/0" without
/// pictures.
QString PictureCaption(qsizetype index, qsizetype count, const QString& description);

/// The caption where there is no picture: "-/0".
QString CaptionWithoutPictures();

/// Lets a screen reader say \p caption with the two buttons that step through the pictures: when one of them
/// gets the focus, and when a press of it has changed the picture.
void DescribeSteps(QWidget* leftButton, QWidget* rightButton, const QString& caption);

} // namespace korvel::Ui::VenueDatabase
