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
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

    /// What is drawn of text(). The label leaves the drawing to QLabel where that is all of it.
    virtual QString ShownText() const;
    bool IsShownWhole() const;
    /// Where the text is drawn.
    QRect TextArea() const;
    /// The size of the label for \p shown, in lines of at most \p width pixels where it wraps.
    QSize SizeFor(const QString& shown, int width) const;

private:
    int TextFlags() const;
};

} // namespace korvel::Ui::VenueDatabase
