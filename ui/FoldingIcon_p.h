#pragma once

#include <QLabel>

namespace korvel::Ui::VenueDatabase {

/// The icon that folds the details panel up and down, as a button for the keyboard and for screen readers.
///
/// The mouse is not its business: the panel watches for that itself. A focus that came by the keyboard is
/// shown with a frame. Where the host has no icon an arrow takes its place, in the colour of the words beside
/// it.
class FoldingIcon : public QLabel
{
    Q_OBJECT

public:
    /// \p caption is the label beside it, which must live as long.
    FoldingIcon(const QLabel* caption, QWidget* parent);
    ~FoldingIcon() override;

    /// Shows the icon in the resource \p path, as sharp as the screen can. \p collapsed and \p dayMode are
    /// the panel's: they decide what the icon is called and how its focus looks.
    void ShowIcon(const QString& path, bool collapsed, bool dayMode);
    /// Whether \p release, which came to \p watched, the icon or the bar that it stands in, is to fold the
    /// panel.
    bool IsMeantBy(const QObject* watched, const QMouseEvent& release) const;
    /// The panel is folded up.
    bool IsCollapsed() const;

Q_SIGNALS:
    /// The user asked by key or screen reader to fold the panel the other way.
    void ToggleRequested();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The host has the icon for the present state.
    bool HasIcon() const;
    void UpdatePixmap();
    void PaintArrow();
    QColor CaptionColor() const;

    const QLabel* m_caption = nullptr;
    QString m_path;
    bool m_isCollapsed = false;
    bool m_isDayMode = false;
    bool m_isFocusShown = false;
    /// The scale of the screen that the pixmap was made for.
    qreal m_pixmapScale = 1.0;
};

} // namespace korvel::Ui::VenueDatabase
