#include <ui/PictureView.h>

#include <tests/support/PictureFixtures.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QGraphicsScene>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <memory>

using namespace Qt::StringLiterals;
using namespace korvel::Test;
using korvel::Ui::VenueDatabase::PictureView;

namespace {

constexpr QSize c_viewportSize(1000, 700);

/// A shown view with a viewport of c_viewportSize and a picture of the given size.
struct ShownView
{
    explicit ShownView(const QSizeF& pictureSize)
    {
        view.setScene(&scene);
        if (!pictureSize.isEmpty())
            scene.setSceneRect(QRectF(QPointF(0, 0), pictureSize));
        view.resize(c_viewportSize);
        view.show();
        view.resize(c_viewportSize + view.size() - view.viewport()->size());
        view.FitPictureInView();
    }

    /// Shows the point in the middle, in its natural size.
    void LookAt(double x, double y)
    {
        view.resetTransform();
        view.centerOn(x, y);
    }
    double Scale() const
    {
        return view.transform().m11();
    }

    QGraphicsScene scene;
    PictureView view;
};

/// A widget that notes the keys and mouse moves that reach it.
class NotingWidget : public QWidget
{
public:
    QList<int> keys;
    int mouseMoves = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        keys.append(event->key());
    }
    void mouseMoveEvent(QMouseEvent* /*event*/) override
    {
        ++mouseMoves;
    }
};

void TurnWheel(PictureView& view, const QPoint& angleDelta, Qt::KeyboardModifiers modifiers = {},
               const QPointF& position = QRectF(QPointF(), c_viewportSize).center())
{
    QWheelEvent event(position, view.viewport()->mapToGlobal(position), QPoint(), angleDelta, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

/// The scale at which a picture is fitted: Qt leaves a margin of two pixels on every side.
double FittedScale(const QSize& united)
{
    return std::min(996.0 / united.width(), 696.0 / united.height());
}

} // namespace

class tst_PictureView : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void IsSetUpForPanningAndZooming()
    {
        const PictureView view;
        QCOMPARE(view.cacheMode(), QGraphicsView::CacheMode(QGraphicsView::CacheBackground));
        QCOMPARE(view.viewportUpdateMode(), QGraphicsView::BoundingRectViewportUpdate);
        QVERIFY(view.renderHints().testFlag(QPainter::Antialiasing));
        QVERIFY(view.renderHints().testFlag(QPainter::SmoothPixmapTransform));
        QCOMPARE(view.transformationAnchor(), QGraphicsView::AnchorUnderMouse);
        QCOMPARE(view.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
        QCOMPARE(view.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
        QCOMPARE(view.dragMode(), QGraphicsView::ScrollHandDrag);
        QVERIFY(view.testAttribute(Qt::WA_MouseTracking));
    }

    void BackgroundTellsTheTheme()
    {
        ShownView shown(QSizeF(10, 10));
        const QPoint corner(5, 5);
        const auto background = [&] { return shown.view.viewport()->grab().toImage().pixelColor(corner); };
        QCOMPARE(background(), QColor(49, 49, 49));
        shown.view.SetDayMode(true);
        QCOMPARE(background(), QColor(255, 255, 255));
        shown.view.SetDayMode(false);
        QCOMPARE(background(), QColor(49, 49, 49));
    }

    void FittingNeverEnlarges_data()
    {
        const Rows<QSizeF, double> row("picture", "scale");
        row("smaller: natural size", QSizeF(400, 300), 1.0);
        row("one pixel", QSizeF(1, 1), 1.0);
        row("exactly the viewport", QSizeF(1000, 700), 1.0);
        row("no picture", {}, 1.0);
        row("wider", QSizeF(2000, 100), FittedScale(QSize(2000, 700)));
        row("higher", QSizeF(100, 2800), FittedScale(QSize(1000, 2800)));
        row("larger", QSizeF(3000, 2000), FittedScale(QSize(3000, 2000)));
        row("one pixel too wide", QSizeF(1001, 10), FittedScale(QSize(1001, 700)));
    }
    void FittingNeverEnlarges()
    {
        const auto [picture, scale] = Fetch<QSizeF, double>();
        ShownView shown(picture);
        QCOMPARE(shown.view.viewport()->size(), c_viewportSize);
        QCOMPARE(shown.Scale(), scale);
        QCOMPARE(shown.view.transform().m22(), scale);

        // Again from any zoom.
        shown.view.scale(3.0, 3.0);
        shown.view.FitPictureInView();
        QCOMPARE(shown.Scale(), scale);
    }

    void FittedPictureStandsInTheMiddle()
    {
        ShownView shown(QSizeF(400, 300));
        QCOMPARE(shown.view.mapFromScene(QPointF(0, 0)), QPoint(300, 200));
        QCOMPARE(shown.view.mapFromScene(QPointF(400, 300)), QPoint(700, 500));
    }

    void ZoomingInStopsAtFiveTimesTheNaturalSize_data()
    {
        const Rows<QSizeF, double, double, double> row("picture", "startScale", "factor", "scale");
        const QSizeF small(400, 300);
        row("a step", small, 1.0, 1.2, 1.2);
        row("exactly to the limit", small, 1.0, 5.0, 5.0);
        row("beyond the limit", small, 1.0, 5.01, 1.0);
        row("below the limit", small, 4.0, 1.2, 4.8);
        row("a step too far", small, 4.2, 1.2, 4.2);
        row("the larger side counts", QSizeF(10, 400), 4.5, 1.2, 4.5);
        row("factor one", small, 2.0, 1.0, 2.0);
    }
    void ZoomingInStopsAtFiveTimesTheNaturalSize()
    {
        const auto [picture, startScale, factor, scale] = Fetch<QSizeF, double, double, double>();
        ShownView shown(picture);
        shown.view.scale(startScale, startScale);
        shown.view.ZoomBy(factor);
        QCOMPARE(shown.Scale(), scale);
    }

    void EightStepsInAreAllowedFromTheNaturalSize()
    {
        ShownView shown(QSizeF(400, 300));
        for (int step = 0; step < 20; ++step)
            shown.view.ZoomBy(PictureView::c_zoomStep);
        QCOMPARE(shown.Scale(), std::pow(1.2, 8));
    }

    void ZoomingOutStopsAtTheFittedSize_data()
    {
        const Rows<QSizeF, double, bool> row("picture", "startFactor", "isFittedAfterwards");
        row("small, from the fitted size", QSizeF(400, 300), 1.0, true);
        row("small, between", QSizeF(400, 300), 1.1, true);
        row("small, still larger", QSizeF(400, 300), 2.0, false);
        row("large, from the fitted size", QSizeF(3000, 2000), 1.0, true);
        row("large, between", QSizeF(3000, 2000), 1.19, true);
        row("large, still larger", QSizeF(3000, 2000), 3.0, false);
    }
    void ZoomingOutStopsAtTheFittedSize()
    {
        const auto [picture, startFactor, isFittedAfterwards] = Fetch<QSizeF, double, bool>();
        ShownView shown(picture);
        const double fitted = shown.Scale();
        shown.view.scale(startFactor, startFactor);
        shown.view.ZoomBy(1.0 / PictureView::c_zoomStep);
        QCOMPARE(shown.Scale(), isFittedAfterwards ? fitted : fitted * startFactor / 1.2);
    }

    void WithoutPictureZoomingDoesNothing()
    {
        ShownView shown((QSizeF()));
        shown.view.ZoomBy(1.2);
        shown.view.ZoomBy(0.5);
        QCOMPARE(shown.view.transform(), QTransform());
    }

    void WithoutSceneNothingHappens()
    {
        PictureView view;
        view.ZoomBy(1.2);
        view.FitPictureInView();
        QCOMPARE(view.transform(), QTransform());
    }

    void PlainWheelZooms_data()
    {
        const Rows<QPoint, double> row("angleDelta", "factor");
        row("up", QPoint(0, 120), 1.2);
        row("up by the least", QPoint(0, 1), 1.2);
        row("down", QPoint(0, -120), 1.0 / 1.2);
        row("sideways counts as down", QPoint(120, 0), 1.0 / 1.2);
    }
    void PlainWheelZooms()
    {
        const auto [angleDelta, factor] = Fetch<QPoint, double>();
        ShownView shown(QSizeF(400, 300));
        shown.view.scale(2.0, 2.0);
        TurnWheel(shown.view, angleDelta, Qt::NoModifier);
        QCOMPARE(shown.Scale(), 2.0 * factor);
    }

    void WheelZoomsAroundTheMouse_data()
    {
        const Rows<QPoint, bool> row("lastMove", "isAnotherPicture");
        row("before the mouse moved", QPoint(), false);
        row("after it moved elsewhere", QPoint(100, 600), false);
        row("before it moved over another picture", QPoint(800, 150), true);
    }
    void WheelZoomsAroundTheMouse()
    {
        const auto [lastMove, isAnotherPicture] = Fetch<QPoint, bool>();
        ShownView shown(QSizeF(3000, 2000));
        if (!lastMove.isNull())
            MoveMouse(shown.view.viewport(), lastMove);
        if (isAnotherPicture) {
            shown.scene.setSceneRect(0, 0, 6000, 4000);
            shown.view.FitPictureInView();
        }
        const QPoint mouse(800, 150);
        const QPointF pointed = shown.view.mapToScene(mouse);
        for (int turn = 0; turn < 4; ++turn) {
            TurnWheel(shown.view, QPoint(0, 120), Qt::NoModifier, mouse);
            const QPoint distance = shown.view.mapFromScene(pointed) - mouse;
            // Scrolling knows whole pixels only.
            QVERIFY2(std::abs(distance.x()) <= 1 + turn && std::abs(distance.y()) <= 1 + turn,
                     qPrintable(u"%1, %2"_s.arg(distance.x()).arg(distance.y())));
        }
    }

    void WheelWithModifierScrolls_data()
    {
        const Rows<Qt::KeyboardModifiers, QPoint, int, int> row("modifiers", "angleDelta", "horizontal",
                                                                "vertical");
        const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
        const Qt::KeyboardModifiers control = Qt::ControlModifier;
        row("Control: down", control, QPoint(0, -120), 0, 1);
        row("Control: up", control, QPoint(0, 120), 0, -1);
        row("Control: sideways stays sideways", control, QPoint(-120, 0), 1, 0);
        row("Shift: down turns right", shift, QPoint(0, -120), 1, 0);
        row("Shift: up turns left", shift, QPoint(0, 120), -1, 0);
        row("Shift: sideways turns vertical", shift, QPoint(-120, 0), 0, 1);
        row("Control and Shift: nothing", (control | shift), QPoint(0, -120), 0, 0);
        row("Alt: nothing", Qt::AltModifier, QPoint(0, -120), 0, 0);
    }
    void WheelWithModifierScrolls()
    {
        const auto [modifiers, angleDelta, horizontal, vertical]
            = Fetch<Qt::KeyboardModifiers, QPoint, int, int>();
        ShownView shown(QSizeF(3000, 2000));
        shown.LookAt(1500, 1000);
        const QScrollBar* across = shown.view.horizontalScrollBar();
        const QScrollBar* down = shown.view.verticalScrollBar();
        const QPoint before(across->value(), down->value());
        TurnWheel(shown.view, angleDelta, modifiers);
        const auto sign = [](int value) { return (value > 0) - (value < 0); };
        QCOMPARE(sign(across->value() - before.x()), horizontal);
        QCOMPARE(sign(down->value() - before.y()), vertical);
        QCOMPARE(shown.Scale(), 1.0);
    }

    void ShiftScrollsAsFarAsControl()
    {
        ShownView shown(QSizeF(3000, 3000));
        shown.LookAt(1500, 1500);
        QScrollBar* across = shown.view.horizontalScrollBar();
        QScrollBar* down = shown.view.verticalScrollBar();
        // Otherwise the scroll bar would take Shift for a page.
        across->setSingleStep(7);
        down->setSingleStep(7);
        const QPoint before(across->value(), down->value());
        TurnWheel(shown.view, QPoint(0, -120), Qt::ShiftModifier);
        TurnWheel(shown.view, QPoint(0, -120), Qt::ControlModifier);
        QVERIFY(across->value() > before.x());
        QCOMPARE(across->value() - before.x(), down->value() - before.y());
    }

    void EveryKeyReachesTheParent_data()
    {
        const Rows<int, bool> row("key", "scrolls");
        row("Page Up does not scroll", Qt::Key_PageUp, false);
        row("Page Down does not scroll", Qt::Key_PageDown, false);
        row("Up scrolls", Qt::Key_Up, true);
        row("Right scrolls", Qt::Key_Right, true);
        row("A", Qt::Key_A, false);
        row("Escape", Qt::Key_Escape, false);
        row("+", Qt::Key_Plus, false);
    }
    void EveryKeyReachesTheParent()
    {
        const auto [key, scrolls] = Fetch<int, bool>();
        NotingWidget parent;
        parent.resize(400, 400);
        QGraphicsScene scene(0, 0, 3000, 3000);
        PictureView view(&parent);
        view.setScene(&scene);
        view.resize(400, 400);
        parent.show();
        view.centerOn(1500, 1500);
        const QPointF before = view.mapToScene(QPoint(0, 0));
        QTest::keyClick(&view, Qt::Key(key));
        QCOMPARE(parent.keys, QList<int>{key});
        QCOMPARE(view.mapToScene(QPoint(0, 0)) != before, scrolls);
    }

    void MouseMovesReachTheParent()
    {
        NotingWidget parent;
        parent.setMouseTracking(true);
        PictureView view(&parent);
        view.resize(200, 200);
        parent.show();
        MoveMouse(view.viewport(), QPoint(50, 50));
        QCOMPARE(parent.mouseMoves, 1);
    }

    void DraggingPans()
    {
        ShownView shown(QSizeF(3000, 2000));
        shown.LookAt(1500, 1000);
        const QPointF before = shown.view.mapToScene(QPoint(0, 0));
        QWidget* viewport = shown.view.viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, QPoint(500, 300));
        MoveMouse(viewport, QPoint(450, 280), Qt::LeftButton);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, QPoint(450, 280));
        QCOMPARE(shown.view.mapToScene(QPoint(0, 0)) - before, QPointF(50, 20));
    }
};

QTEST_MAIN(tst_PictureView)
#include "tst_PictureView.moc"
