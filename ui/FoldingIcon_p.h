#pragma once

#include <QLabel>

namespace korvel::Ui::VenueDatabase {

/// The icon that folds the details panel up and down, as a button for the keyboard and for screen readers.
///
/// The mouse is not its business: the panel watches for that itself. It takes part in the tab order only
/// while it has an icon, and shows a focus that came by the keyboard with a frame.
class FoldingIcon : public QLabel
{
    Q_OBJECT

public:
    explicit FoldingIcon(QWidget* parent);
    ~FoldingIcon() override;

    /// Shows the icon in the resource \p path, as sharp as the screen can. \p collapsed and \p dayMode are
    /// the panel's: they decide what the icon is called and how its focus looks.
    void ShowIcon(const QString& path, bool collapsed, bool dayMode);
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
    void UpdatePixmap();

    QString m_path;
    bool m_isCollapsed = false;
    bool m_isDayMode = false;
    bool m_isFocusShown = false;
    /// The scale of the screen that the pixmap was made for.
    qreal m_pixmapScale = 1.0;
};

} // namespace korvel::Ui::VenueDatabase
