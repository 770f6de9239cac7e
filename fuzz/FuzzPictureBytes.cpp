#include <fuzz/FuzzTargets.h>

#include <data/Picture.h>
#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>

#include <QApplication>
#include <QCoreApplication>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QImageReader>
#include <QLabel>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace korvel::Fuzz {

using Data::VenueDatabase::Picture;
using Ui::VenueDatabase::PictureFullscreenDialog;
using Ui::VenueDatabase::PictureSlider;
using Ui::VenueDatabase::PictureView;

namespace {

const QString& LargeUrl()
{
    // Fails in the manager itself, without a request.
    static const QString url = u"none:large"_s;
    return url;
}

QList<Picture> Pictures(const QByteArray& bytes)
{
    Picture small;
    small.SetPictureUrlLarge(LargeUrl());
    small.SetPictureDataSmall(bytes);
    Picture large;
    large.SetPictureDataLarge(bytes);
    return {small, large};
}

/// A slider and a viewer as hosts keep them: for many lists, one after the other.
struct Widgets
{
    PictureSlider slider;
    PictureFullscreenDialog viewer;
};

void FeedSlider(PictureSlider& slider, QList<Picture>& pictures)
{
    slider.UpdateUi(&pictures);
    (void)slider.grab();
    for (const short direction : {1, 1, -1}) {
        slider.ShowVenuePic(direction);
        Require(slider.findChild<QLabel*>()->text().endsWith("/2 "_L1), "the caption counts");
    }
    (void)slider.grab();
}

void FeedViewer(PictureFullscreenDialog& viewer, QList<Picture>& pictures, const QByteArray& bytes)
{
    auto* view = viewer.findChild<PictureView*>();
    viewer.SetPictures(&pictures);
    viewer.SetPicturesIndex(1);
    const QList<QGraphicsItem*> items = view->scene()->items();
    Require(items.size() <= 1, "one picture at most is shown");
    for (const QGraphicsItem* item : items) {
        const auto* pixmapItem = dynamic_cast<const QGraphicsPixmapItem*>(item);
        Require(pixmapItem && QRectF(pixmapItem->pixmap().rect()) == view->scene()->sceneRect(),
                "the scene is as large as the picture");
    }
    for (const double factor : {1.2, 5.0, 1.0 / 1.2, 0.01})
        view->ZoomBy(factor);
    (void)view->grab();

    // The small picture is shown, then its large rendition arrives.
    viewer.SetPicturesIndex(0);
    viewer.OnPictureBinaryDataFinished(QUrl(LargeUrl()), bytes);
    Require(view->scene()->items().size() == items.size(), "both renditions are shown or none");
    QCoreApplication::processEvents();
    viewer.hide();
    Require(!QApplication::overrideCursor(), "no wait cursor stays");
}

} // namespace

void FuzzPictureBytes(const QByteArray& input)
{
    // What the decoders may allocate, in megabytes: hosts can lower it too, and the runs are quicker.
    QImageReader::setAllocationLimit(8);
    auto& widgets = Kept<std::unique_ptr<Widgets>>();
    static int runs = 0;
    // The viewer keeps the replies of its downloads until it dies.
    constexpr int c_runsPerViewer = 100;
    if (!widgets || ++runs % c_runsPerViewer == 0)
        widgets = std::make_unique<Widgets>();

    QList<Picture> pictures = Pictures(input);
    FeedSlider(widgets->slider, pictures);
    FeedViewer(widgets->viewer, pictures, input);
}

} // namespace korvel::Fuzz
