#include <ui/PictureView.h>

#include <ui/accessible/ScreenReader_p.h>

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QTransform>
#include <QWheelEvent>

#include <algorithm>

namespace korvel::Ui::VenueDatabase {

namespace {

constexpr double c_maximumZoom = 5.0;

double LargerSide(const QRectF& rectangle)
{
    return std::max(rectangle.width(), rectangle.height());
}

} // namespace

PictureView::PictureView(QWidget* parent)
    : QGraphicsView(parent)
{
    ServeScreenReaders();
    SetDayMode(false);
    setCacheMode(QGraphicsView::CacheBackground);
    setViewportUpdateMode(QGraphicsView::BoundingRectViewportUpdate);
    setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setDragMode(QGraphicsView::ScrollHandDrag);
    setMouseTracking(true);
    // The background covers it all: Qt need not fill the viewport before.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

PictureView::~PictureView() = default;

void PictureView::SetDayMode(bool dayMode)
{
    setBackgroundBrush(dayMode ? QColor(255, 255, 255) : QColor(49, 49, 49));
    update();
}

void PictureView::ZoomBy(double factor)
{
    if (underMouse())
        ZoomAround(viewport()->mapFromGlobal(QCursor::pos()), factor);
    else
        ZoomAround(std::nullopt, factor);
}

void PictureView::ZoomAround(std::optional<QPoint> mouse, double factor)
{
    const QRectF picture = sceneRect();
    if (picture.isEmpty())
        return;

    const QRect zoomed = QTransform(transform()).scale(factor, factor).mapRect(picture).toRect();
    const QRect visible = picture.intersected(QRectF(viewport()->rect())).toRect();
    if (factor < 1.0 && !zoomed.contains(visible)) {
        FitPictureInView();
        return;
    }
    if (factor > 1.0 && LargerSide(zoomed) > c_maximumZoom * LargerSide(picture))
        return;
    const QPointF pointed = mapToScene(mouse.value_or(QPoint()));
    scale(factor, factor);
    // Qt takes the mouse for where it moved last in this view, and over the top left corner before it did.
    if (mouse)
        centerOn(pointed + (QRectF(viewport()->rect()).center() - QPointF(*mouse)) / transform().m11());
}

void PictureView::FitPictureInView()
{
    const QRectF available(viewport()->rect());
    // Deliberate: united, so that a smaller picture is not enlarged.
    const QRectF shown = sceneRect().united(available);
    fitInView(shown, Qt::KeepAspectRatio);
    // Qt leaves a margin, for which a picture that needs no fitting would be shrunk by a blurring half
    // percent.
    if (shown == available)
        resetTransform();
}

void PictureView::mouseMoveEvent(QMouseEvent* event)
{
    QGraphicsView::mouseMoveEvent(event);
    QWidget::mouseMoveEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void PictureView::wheelEvent(QWheelEvent* event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    if (modifiers == Qt::NoModifier) {
        ZoomAround(event->position().toPoint(), event->angleDelta().y() >= 1 ? c_zoomStep : 1.0 / c_zoomStep);
    } else if (modifiers == Qt::ShiftModifier) {
        QWheelEvent sideways(event->position(), event->globalPosition(), event->pixelDelta(),
                             event->angleDelta().transposed(), event->buttons(), Qt::NoModifier,
                             event->phase(), event->inverted(), Qt::MouseEventNotSynthesized,
                             QPointingDevice::primaryPointingDevice());
        QGraphicsView::wheelEvent(&sideways);
    } else if (modifiers == Qt::ControlModifier) {
        event->setModifiers(Qt::NoModifier);
        QGraphicsView::wheelEvent(event);
    }
}

void PictureView::keyPressEvent(QKeyEvent* event)
{
    // Page Up and Page Down step through the pictures and must not scroll as well.
    if (event->key() != Qt::Key_PageUp && event->key() != Qt::Key_PageDown)
        QGraphicsView::keyPressEvent(event);
    // Deliberate: it ignores the event, so that Qt passes every key on to the dialog.
    QWidget::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_PictureView.cpp"
