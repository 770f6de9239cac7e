#pragma once

#include <data/Picture.h>
#include <data/TsFile.h>

#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

class QComboBox;
class QFileDialog;
class QLabel;
class QPoint;
class QPushButton;
class QTableView;
class QWidget;

namespace korvel::Ui::VenueDatabase {
class PictureFullscreenDialog;
class PictureNavigationButton;
class PictureSlider;
class TsFileOpener;
class VenueDbCentralWidget;
class VenueDbDialog;
} // namespace korvel::Ui::VenueDatabase

namespace korvel::Test {

/// The style class of a widget or layout.
QString StyleOf(const QObject* object);

/// The button or label below \p root with that text; null where there is none.
QPushButton* Button(const QWidget& root, const QString& text);
QLabel* Label(const QWidget& root, const QString& text);

QStringList ItemTexts(const QComboBox* comboBox);
/// The texts of one column from top to bottom; none as long as the table has no model.
QStringList ColumnTexts(const QTableView* table, int column);
/// -1 as long as the table has no model.
int RowCount(const QTableView* table);
/// Clicks into the row \p row of the table.
void ClickRow(const QTableView* table, int row);
/// Moves the mouse without a platform that would do it.
void MoveMouse(QWidget* widget, const QPoint& position, Qt::MouseButtons buttons = Qt::NoButton);

/// Answers the save dialog as a user who types \p path and presses "Save".
void SaveAs(QFileDialog* fileDialog, const QString& path);

Ui::VenueDatabase::VenueDbCentralWidget* SearchPanel(const Ui::VenueDatabase::VenueDbDialog& dialog);
/// The caption of the slider's picture, and of the viewer's.
QLabel* Caption(const Ui::VenueDatabase::PictureSlider& slider);
QLabel* Caption(const Ui::VenueDatabase::PictureFullscreenDialog& viewer);
/// The previous (0) or next (1) button of slider or viewer.
Ui::VenueDatabase::PictureNavigationButton* NavigationButton(const Ui::VenueDatabase::PictureSlider& slider,
                                                             int which);
Ui::VenueDatabase::PictureNavigationButton*
NavigationButton(const Ui::VenueDatabase::PictureFullscreenDialog& viewer, int which);
QPushButton* FullscreenButton(const Ui::VenueDatabase::PictureSlider& slider);
/// The icon in the caption bar of the venue details.
QLabel* FoldIcon(const QWidget& details);

/// The size of the only picture in the viewer's scene; of none (0, 0).
QSize ShownSize(const Ui::VenueDatabase::PictureFullscreenDialog& viewer);
/// Opens \p viewer on the first of \p pictures.
void OpenViewer(Ui::VenueDatabase::PictureFullscreenDialog& viewer,
                QList<Data::VenueDatabase::Picture> pictures);
/// What the slider itself paints, without its children.
QImage Painted(Ui::VenueDatabase::PictureSlider& slider);
/// What a dark slider paints that has \p text instead of a picture; nothing but its background for none.
QImage PaintedText(const QString& text);

/// Hands on a list that the caller need not keep.
void Show(Ui::VenueDatabase::PictureFullscreenDialog& viewer, QList<Data::VenueDatabase::Picture> pictures,
          int index = 0);
void Show(Ui::VenueDatabase::PictureSlider& slider, QList<Data::VenueDatabase::Picture> pictures);
void Show(Ui::VenueDatabase::TsFileOpener& opener, QList<Data::VenueDatabase::TsFile> files);

} // namespace korvel::Test
