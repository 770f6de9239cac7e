#pragma once

#include <data/VenueDatabaseExport.h>

#include <QGraphicsView>

#include <optional>

namespace korvel::Ui::VenueDatabase {

/// The zooming and panning view of the full-screen viewer. Dragging with the left button pans; the wheel
/// zooms, with Control it scrolls and with Shift it scrolls sideways.
///
/// It shows the scene that it is given and treats the scene rectangle as the picture: its size in scene units
/// is the picture's natural size. Every key also reaches the parent, which steps through the pictures.
/// User-interface thread only.
///
/// @code{.cpp}
/// auto* view = new PictureView(&window);
/// view->setScene(scene); // stays the caller's
/// view->FitPictureInView();
/// view->ZoomBy(PictureView::c_zoomStep);
/// @endcode
class KVVENUEDATABASE_API PictureView : public QGraphicsView
{
    Q_OBJECT

public:
    /// The factor of one zoom step by wheel or key.
    static constexpr double c_zoomStep = 1.2;

    /// Starts with the dark theme's background and without a scene.
    explicit PictureView(QWidget* parent = nullptr);
    /// The scene stays.
    ~PictureView() override;

    /// True: the light theme's background.
    void SetDayMode(bool dayMode);
    /// Zooms by \p factor around the mouse, or around the middle where the mouse is elsewhere. Zooming out
    /// ends at the view of FitPictureInView(); a step that would enlarge the picture beyond five times its
    /// natural size does nothing. Without a picture nothing happens.
    void ZoomBy(double factor);
    /// Shows the whole picture: shrunk where it is larger than the view, otherwise at its natural size, never
    /// enlarged.
    void FitPictureInView();

protected:
    /// Pans while the left button is held; the parent sees the event as well.
    void mouseMoveEvent(QMouseEvent* event) override;
    /// Zooms without a modifier, scrolls with Control, scrolls sideways with Shift; anything else does
    /// nothing.
    void wheelEvent(QWheelEvent* event) override;
    /// Scrolls by the arrow keys; Page Up and Page Down go to the parent alone, every other key as well.
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Zooms so that what is under \p mouse, in the viewport, stays there; without one Qt decides what stays.
    void ZoomAround(std::optional<QPoint> mouse, double factor);
};

} // namespace korvel::Ui::VenueDatabase
