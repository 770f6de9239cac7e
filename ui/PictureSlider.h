#pragma once

#include <data/Picture.h>
#include <data/VenueDatabaseExport.h>

#include <QCache>
#include <QFont>
#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QWidget>

class QLabel;
class QPushButton;

namespace korvel::Ui::VenueDatabase {

class PictureFullscreenDialog;
class PictureNavigationButton;

/// The strip of 500 x 240 pixels that shows a venue's pictures one at a time, from their small renditions,
/// with buttons for the previous, the next and the full-screen view and with a caption.
///
/// It fetches nothing itself. It owns the full-screen viewer, which it creates once and hands every list.
/// Bytes that do not decode show "Image failure". User-interface thread only.
///
/// @code{.cpp}
/// auto* slider = new PictureSlider(&window);
/// slider->SetDayMode(true);
/// slider->UpdateUi(&pictures); // keeps a copy; shows the first
/// slider->ShowVenuePic(1); // the second
/// @endcode
class KVVENUEDATABASE_API PictureSlider : public QWidget
{
    Q_OBJECT

public:
    /// Builds the slider in the dark theme, without pictures and with the caption "-/0".
    explicit PictureSlider(QWidget* parent = nullptr);
    /// The viewer goes with the slider, also while it is open.
    ~PictureSlider() override;

    /// Takes a shared copy of the list and shows its first picture; "No Image" for an empty list. Null keeps
    /// what is shown. The viewer is handed the same pointer.
    void UpdateUi(QList<Data::VenueDatabase::Picture>* pictures);
    /// Sets the caption to "-/0"; picture, list and index stay.
    void ResetUi() const;
    /// True: the light theme. Reaches the viewer too.
    void SetDayMode(bool dayMode);
    /// Decodes and shows the previous picture (-1), the next one (+1), both round the ends of the list, or
    /// the first one (0). Any other \p direction changes nothing.
    void ShowVenuePic(short direction);
    /// Rewrites the caption: "2/5 description" of the current picture, "-/0" for an empty list.
    void SetVenuePicButtonsStatus();
    /// Gives the full-screen button the disc of its theme, opaque while the mouse is over it.
    void SetFullscreenIconStyle();

public Q_SLOTS:
    /// The same as ShowVenuePic().
    void OnPictureNavigationRequested(int direction);
    /// Opens the viewer on the current picture. Returns at once: the viewer is modal without an event loop of
    /// its own.
    void ShowFullScreen();

protected:
    /// Follows the focus of the full-screen button, for its ring.
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Ends the hover of the full-screen button.
    void leaveEvent(QEvent* event) override;
    /// Follows the hover of the full-screen button.
    void mouseMoveEvent(QMouseEvent* event) override;
    /// Draws the picture in the middle, the band behind the caption, and the text where there is no picture.
    void paintEvent(QPaintEvent* event) override;

private:
    void SetupUi();
    void ConnectSignals();
    /// Decodes the current picture into the pixmap that is drawn, or takes it from those seen before.
    void LoadPixmap();
    void SetFullscreenHovered(bool hovered);

    bool m_dayMode = false;
    /// What is drawn instead of a picture; empty while there is one.
    QString m_text;
    bool m_isFullscreenHovered = false;
    bool m_isFullscreenFocusShown = false;
    QFont m_font;
    QPixmap m_pixmap;
    /// The pictures of the list that were shown before, scaled, by their rows; at most 16 MB, those shown
    /// last.
    QCache<qsizetype, QPixmap> m_seenPixmaps;
    QLabel* m_captionLabel = nullptr;
    QList<Data::VenueDatabase::Picture> m_pictures;
    qsizetype m_index = -1;
    QPointer<PictureFullscreenDialog> m_fullscreenDialog;
    PictureNavigationButton* m_leftButton = nullptr;
    PictureNavigationButton* m_rightButton = nullptr;
    QPushButton* m_fullscreenButton = nullptr;
};

} // namespace korvel::Ui::VenueDatabase
