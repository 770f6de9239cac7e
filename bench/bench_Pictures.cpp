// The picture slider and the full-screen viewer.
#include <bench/support/Comparison.h>
#include <bench/support/SamplePictures.h>

#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>

#include <QApplication>
#include <QGraphicsPixmapItem>
#include <QLabel>
#include <QScrollBar>

using namespace korvel::Bench;
using korvel::Data::VenueDatabase::Picture;
using korvel::Ui::VenueDatabase::PictureFullscreenDialog;
using korvel::Ui::VenueDatabase::PictureNavigationButton;
using korvel::Ui::VenueDatabase::PictureSlider;
using korvel::Ui::VenueDatabase::PictureView;

namespace {

constexpr int c_pictureCount = 7;
constexpr QSize c_smallRendition(800, 533);

QPixmap DecodedAndScaled(const Picture& picture)
{
    QPixmap pixmap;
    pixmap.loadFromData(picture.GetPictureDataSmall());
    return pixmap.scaled(800, 240, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// Steps to pictures that were not shown before, against decoding and scaling them and nothing else.
void FirstPictureSteps(benchmark::State& state)
{
    QList<Picture> pictures = SamplePictures(c_pictureCount, c_smallRendition);
    PictureSlider slider;
    Comparison comparison(state);
    comparison.prepare = [&]() { slider.UpdateUi(&pictures); };
    comparison.Run(
        [&]() {
            for (int i = 1; i < c_pictureCount; ++i)
                slider.ShowVenuePic(1);
        },
        [&]() {
            for (int i = 1; i < c_pictureCount; ++i)
                benchmark::DoNotOptimize(DecodedAndScaled(pictures.at(i)));
        });
    state.counters["bytes"] = static_cast<double>(pictures.constFirst().GetPictureDataSmall().size());
}
BENCHMARK(FirstPictureSteps)->Iterations(61)->UseManualTime();

/// Steps back through pictures that were shown before, against the same.
void RepeatedPictureSteps(benchmark::State& state)
{
    QList<Picture> pictures = SamplePictures(c_pictureCount, c_smallRendition);
    PictureSlider slider;
    Comparison comparison(state);
    comparison.prepare = [&]() {
        slider.UpdateUi(&pictures);
        for (int i = 1; i < c_pictureCount; ++i)
            slider.ShowVenuePic(1);
    };
    comparison.Run(
        [&]() {
            for (int i = 1; i < c_pictureCount; ++i)
                slider.ShowVenuePic(-1);
        },
        [&]() {
            for (int i = 1; i < c_pictureCount; ++i)
                benchmark::DoNotOptimize(DecodedAndScaled(pictures.at(i)));
        });
}
BENCHMARK(RepeatedPictureSteps)->Iterations(61)->UseManualTime();

constexpr QSize c_viewportSize(1920, 1080);
constexpr QSize c_largeRendition(6000, 4000);
constexpr double c_zoomStep = 1.2;
/// Scene pixels to view pixels when panning.
constexpr double c_panScale = 1.0;
constexpr int c_panStep = 40;

enum ViewerAction
{
    Repaint,
    Zoom,
    Pan
};

/// Gives \p window the size at which the viewport of \p view is 1920 x 1080.
void ShowWithViewport(QWidget* window, QGraphicsView* view)
{
    window->resize(c_viewportSize);
    window->show();
    QApplication::processEvents();
    window->resize(window->size() + c_viewportSize - view->viewport()->size());
    QApplication::processEvents();
}

/// How much of the viewer the view that it is compared with has.
enum Reference
{
    Equipped, ///< the same settings, buttons and caption: what the module's own classes add
    Bare, ///< nothing but the quality of the drawing
};

/// One picture of 24 megapixels in the viewer, and the same picture in a QGraphicsView.
class Viewers
{
public:
    explicit Viewers(Reference reference)
    {
        QList<Picture> pictures = SamplePictures(2, QSize(300, 200));
        pictures.first().SetPictureDataLarge(SampleJpeg(c_largeRendition, 7));
        m_dialog.SetPictures(&pictures);
        m_dialog.SetPicturesIndex(0);
        m_view = m_dialog.findChild<PictureView*>();
        ShowWithViewport(&m_dialog, m_view);
        m_view->FitPictureInView();

        const auto* shown = qgraphicsitem_cast<QGraphicsPixmapItem*>(m_view->scene()->items().value(0));
        if (!shown || m_view->viewport()->size() != c_viewportSize)
            qFatal("the viewer does not show the picture in 1920 x 1080");
        QGraphicsPixmapItem* item = m_scene.addPixmap(shown->pixmap());
        item->setTransformationMode(shown->transformationMode());
        m_reference.setScene(&m_scene);
        m_reference.setRenderHints(m_view->renderHints());
        m_reference.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        m_reference.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        ShowWithViewport(&m_reference, &m_reference);
        if (reference == Equipped)
            Equip();
    }

    /// Both views as they are before \p action.
    void Prepare(ViewerAction action)
    {
        for (QGraphicsView* view : {static_cast<QGraphicsView*>(m_view), &m_reference}) {
            if (action == Pan)
                view->setTransform(QTransform::fromScale(c_panScale, c_panScale));
            else
                view->setTransform(FittedTransform());
            view->centerOn(view->sceneRect().center());
        }
        QApplication::processEvents();
    }

    PictureView* View()
    {
        return m_view;
    }
    QGraphicsView* ReferenceView()
    {
        return &m_reference;
    }

private:
    void Equip()
    {
        m_reference.setBackgroundBrush(m_view->backgroundBrush());
        m_reference.setCacheMode(m_view->cacheMode());
        m_reference.setViewportUpdateMode(m_view->viewportUpdateMode());
        m_reference.setTransformationAnchor(m_view->transformationAnchor());
        m_reference.setDragMode(m_view->dragMode());
        m_reference.setMouseTracking(true);
        const auto buttons = m_view->findChildren<PictureNavigationButton*>();
        for (const PictureNavigationButton* button : buttons) {
            auto* copy = new PictureNavigationButton(button->x() == 0 ? -1 : 1, &m_reference);
            copy->show();
            copy->setGeometry(button->geometry());
        }
        const auto* caption = m_view->findChild<QLabel*>();
        auto* copy = new QLabel(caption->text(), &m_reference);
        copy->setStyleSheet(caption->styleSheet());
        copy->setGeometry(caption->geometry());
        copy->show();
        QApplication::processEvents();
    }

    QTransform FittedTransform() const
    {
        const double scale = static_cast<double>(c_viewportSize.height()) / c_largeRendition.height();
        return QTransform::fromScale(scale, scale);
    }

    PictureFullscreenDialog m_dialog;
    PictureView* m_view = nullptr;
    QGraphicsScene m_scene;
    QGraphicsView m_reference;
};

/// Does \p action and paints what it changed.
void Perform(ViewerAction action, QGraphicsView* view)
{
    switch (action) {
    case Repaint:
        view->viewport()->repaint();
        return;
    case Zoom:
        if (auto* pictureView = qobject_cast<PictureView*>(view))
            pictureView->ZoomBy(c_zoomStep);
        else
            view->scale(c_zoomStep, c_zoomStep);
        break;
    case Pan:
        view->horizontalScrollBar()->setValue(view->horizontalScrollBar()->value() + c_panStep);
        view->verticalScrollBar()->setValue(view->verticalScrollBar()->value() + c_panStep);
        break;
    }
    QApplication::processEvents();
}

/// A step in the viewer against the same in the other view.
void PaintViewer(benchmark::State& state)
{
    const auto action = static_cast<ViewerAction>(state.range(0));
    Viewers viewers(static_cast<Reference>(state.range(1)));
    Comparison comparison(state, Clock::Process);
    comparison.prepare = [&]() { viewers.Prepare(action); };
    comparison.Run([&]() { Perform(action, viewers.View()); },
                   [&]() { Perform(action, viewers.ReferenceView()); });

    // How long a user waits, apart from the comparison: threads share the painting.
    std::vector<double> waits;
    for (int64_t i = 0; i < state.max_iterations; ++i) {
        viewers.Prepare(action);
        waits.push_back(TimeOf(Clock::Wall, [&]() { Perform(action, viewers.View()); }) / 1e6);
    }
    state.counters["waitMs"] = Median(waits);
}
BENCHMARK(PaintViewer)
    ->ArgsProduct({{Repaint, Zoom, Pan}, {Equipped, Bare}})
    ->Iterations(61)
    ->UseManualTime();

} // namespace
