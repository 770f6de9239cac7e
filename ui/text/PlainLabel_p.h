#pragma once

#include <QLabel>

namespace korvel::Ui::VenueDatabase {

/// A label for texts of the server: shows them as they are, and draws no more of one than a screen can show.
/// text() is always the whole text.
///
/// No class of its own for style sheets: they reach it as a QLabel.
class PlainLabel : public QLabel
{
public:
    PlainLabel(const QString& text, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool IsShownWhole() const;
    int TextFlags() const;
    /// The size of the label for what is shown of a text that is too long, \p width pixels wide.
    QSize SizeOfLongText(int width) const;
};

} // namespace korvel::Ui::VenueDatabase
