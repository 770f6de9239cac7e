#pragma once

#include <QGraphicsPixmapItem>

#include <vector>

namespace korvel::Ui::VenueDatabase {

/// A picture in a scene that is drawn as well and as fast where it is shown much smaller than it is.
///
/// Qt mixes the four nearest pixels of a picture: below half its size it leaves pixels out, so that thin
/// lines break up, and yet has to walk through all of its memory. Below half size this item draws from a copy
/// of half the sides, below a quarter from one of a quarter, and so on. The copies are made when they are
/// first drawn and take a third of the picture's memory together.
class PictureItem : public QGraphicsPixmapItem
{
public:
    explicit PictureItem(const QPixmap& picture);

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    /// The smallest copy that has a pixel for each one that is shown at \p scale.
    const QPixmap& CopyFor(qreal scale);

    /// Each of half the sides of the one before it, the first of half those of the picture.
    std::vector<QPixmap> m_smallerCopies;
};

} // namespace korvel::Ui::VenueDatabase
