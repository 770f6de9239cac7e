#include <tests/support/Widgets.h>

#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>

#include <QComboBox>
#include <QFileDialog>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Test {

using namespace Data::VenueDatabase;
using namespace Ui::VenueDatabase;

namespace {

constexpr QSize c_sliderSize(500, 240);

template <typename Widget, typename Condition> Widget* First(const QList<Widget*>& widgets, Condition isSo)
{
    const auto found = std::find_if(widgets.cbegin(), widgets.cend(), isSo);
    return found == widgets.cend() ? nullptr : *found;
}

template <typename Widget> Widget* WithText(const QWidget& root, const QString& text)
{
    return First(root.findChildren<Widget*>(), [&](const Widget* widget) { return widget->text() == text; });
}

PictureView* View(const PictureFullscreenDialog& viewer)
{
    return viewer.findChild<PictureView*>();
}

} // namespace

QString StyleOf(const QObject* object)
{
    return object->property("customStyle").toString();
}

QPushButton* Button(const QWidget& root, const QString& text)
{
    return WithText<QPushButton>(root, text);
}

QLabel* Label(const QWidget& root, const QString& text)
{
    return WithText<QLabel>(root, text);
}

QStringList ItemTexts(const QComboBox* comboBox)
{
    QStringList texts;
    for (int index = 0; index < comboBox->count(); ++index)
        texts.append(comboBox->itemText(index));
    return texts;
}

QStringList ColumnTexts(const QTableView* table, int column)
{
    QStringList texts;
    for (int row = 0; row < RowCount(table); ++row)
        texts.append(table->model()->index(row, column).data().toString());
    return texts;
}

int RowCount(const QTableView* table)
{
    return table->model() ? table->model()->rowCount() : -1;
}

void ClickRow(const QTableView* table, int row)
{
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualRect(table->model()->index(row, 1)).center());
}

void MoveMouse(QWidget* widget, const QPoint& position, Qt::MouseButtons buttons)
{
    QMouseEvent event(QEvent::MouseMove, position, widget->mapToGlobal(position), Qt::NoButton, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void SaveAs(QFileDialog* fileDialog, const QString& path)
{
    fileDialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(path);
    // Hidden in QFileDialog, but this is what its button does.
    static_cast<QDialog*>(fileDialog)->accept();
}

VenueDbCentralWidget* SearchPanel(const VenueDbDialog& dialog)
{
    return dialog.findChild<VenueDbCentralWidget*>();
}

QLabel* Caption(const PictureSlider& slider)
{
    return slider.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
}

QLabel* Caption(const PictureFullscreenDialog& viewer)
{
    return View(viewer)->findChild<QLabel*>();
}

PictureNavigationButton* NavigationButton(const PictureSlider& slider, int which)
{
    return slider.findChildren<PictureNavigationButton*>(Qt::FindDirectChildrenOnly).value(which);
}

PictureNavigationButton* NavigationButton(const PictureFullscreenDialog& viewer, int which)
{
    return View(viewer)->findChildren<PictureNavigationButton*>().value(which);
}

QPushButton* FullscreenButton(const PictureSlider& slider)
{
    return First(slider.findChildren<QPushButton*>(Qt::FindDirectChildrenOnly),
                 [](QPushButton* button) { return !qobject_cast<PictureNavigationButton*>(button); });
}

QLabel* FoldIcon(const QWidget& details)
{
    const QLabel* caption = First(details.findChildren<QLabel*>(), [](const QLabel* label) {
        return StyleOf(label) == u"labelKorvelSectionCaptionDark"_s;
    });
    const QLayout* bar = caption->parentWidget()->layout();
    return qobject_cast<QLabel*>(bar->itemAt(0)->widget());
}

QSize ShownSize(const PictureFullscreenDialog& viewer)
{
    const QList<QGraphicsItem*> items = View(viewer)->scene()->items();
    const auto* item = items.size() == 1 ? qgraphicsitem_cast<QGraphicsPixmapItem*>(items.first()) : nullptr;
    return item ? item->pixmap().size() : QSize(0, 0);
}

void OpenViewer(PictureFullscreenDialog& viewer, QList<Picture> pictures)
{
    viewer.SetPictures(&pictures);
    viewer.Open();
    viewer.SetPicturesIndex(0);
}

QImage Painted(PictureSlider& slider)
{
    QImage image(c_sliderSize, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    slider.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

QImage PaintedText(const QString& text)
{
    QImage image(c_sliderSize, QImage::Format_RGB32);
    image.fill(QColor(49, 49, 49));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(128, 128, 128));
    painter.setFont(QFont(u"Verdana"_s, 40));
    painter.drawText(QRect(0, 0, 800, 300), Qt::AlignCenter, text);
    return image;
}

void Show(PictureFullscreenDialog& viewer, QList<Picture> pictures, int index)
{
    viewer.SetPictures(&pictures);
    viewer.SetPicturesIndex(static_cast<short>(index));
}

void Show(PictureSlider& slider, QList<Picture> pictures)
{
    slider.UpdateUi(&pictures);
}

void Show(TsFileOpener& opener, QList<TsFile> files)
{
    opener.UpdateUi(&files);
}

} // namespace korvel::Test
