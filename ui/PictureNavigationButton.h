#pragma once

#include <data/VenueDatabaseExport.h>

#include <QPushButton>

namespace korvel::Ui::VenueDatabase {

/// The translucent round button over the left or right edge of a picture, which asks for the previous or the
/// next one. It covers the whole height of its parent's edge and draws itself; it has no text and no icon.
///
/// It reports the press itself: it never looks pressed and a mouse never makes it emit clicked(). Space and a
/// screen reader's press do, and navigate as well. A ring shows a focus that did not come by the mouse.
/// User-interface thread only.
///
/// @code{.cpp}
/// auto* next = new PictureNavigationButton(1, picture);
/// QObject::connect(next, &PictureNavigationButton::PictureNavigationClicked, picture,
///                  [picture](int direction) { Step(picture, direction); });
/// next->AdjustToParent(0);
/// @endcode
class KVVENUEDATABASE_API PictureNavigationButton : public QPushButton
{
    Q_OBJECT

public:
    /// \p direction is -1 for the left edge (previous) or +1 for the right one (next). Any other value gives
    /// a disc without chevron that does not place itself.
    explicit PictureNavigationButton(int direction, QWidget* parent = nullptr);
    /// Emits nothing.
    ~PictureNavigationButton() override;

    /// True: the light theme (dark disc, white chevron). Initially false.
    void SetDayMode(bool dayMode);
    /// Gives the button its parent's height and a twelfth of its width, but 32 to 80 pixels, and stands it on
    /// its edge, moved right by \p offset pixels. Does nothing without a parent.
    void AdjustToParent(int offset);

Q_SIGNALS:
    /// A mouse button was pressed on this button, or it was clicked without a mouse; \p direction is the
    /// button's own.
    void PictureNavigationClicked(int direction);

protected:
    /// Follows hover and focus itself; the button classes' own handling is left out.
    bool event(QEvent* event) override;
    /// Emits PictureNavigationClicked() at once, for every mouse button.
    void mousePressEvent(QMouseEvent* event) override;
    /// Draws the disc, opaque while hovered and half transparent otherwise, the chevron and the focus ring.
    void paintEvent(QPaintEvent* event) override;
    /// The same as AdjustToParent() without offset.
    void resizeEvent(QResizeEvent* event) override;

private:
    qint32 m_direction = 0;
    bool m_isHovered = false;
    bool m_isFocusShown = false;
    bool m_dayMode = false;
};

} // namespace korvel::Ui::VenueDatabase
