#pragma once

#include <data/VenueDatabaseExport.h>

#include <QGraphicsView>

namespace korvel::Ui::VenueDatabase {

/// The zooming and panning view of the full-screen viewer. Dragging with the left button pans; the wheel
/// zooms, with Control it scrolls and with Shift it scrolls sideways.
///
/// It shows the scene that it is given and treats the scene rectangle as the picture: its size in scene units
/// is the picture's natural size. Every key also reaches the parent, which steps through the pictures.
class KVVENUEDATABASE_API PictureView : public QGraphicsView
{
    Q_OBJECT

public:
    /// The factor of one zoom step by wheel or key.
    static constexpr double c_zoomStep = 1.2;

    /// Starts with the dark theme's background and without a scene.
    explicit PictureView(QWidget* parent = nullptr);
    ~PictureView() override;

    /// True: the light theme's background.
    void SetDayMode(bool dayMode);
    /// Zooms by \p factor around the mouse. Zooming out ends at the view of FitPictureInView(); a step that
    /// would enlarge the picture beyond five times its natural size does nothing. Without a picture nothing
    /// happens.
    void ZoomBy(double factor);
    /// Shows the whole picture: shrunk where it is larger than the view, otherwise at its natural size, never
    /// enlarged.
    void FitPictureInView();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace korvel::Ui::VenueDatabase
