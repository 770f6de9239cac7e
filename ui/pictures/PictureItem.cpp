#include <ui/pictures/PictureItem_p.h>

#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace korvel::Ui::VenueDatabase {

namespace {

constexpr qreal c_halfSize = 0.5;

} // namespace

PictureItem::PictureItem(const QPixmap& picture)
    : QGraphicsPixmapItem(picture)
{
    // The item's own mode decides, not the view's render hints.
    setTransformationMode(Qt::SmoothTransformation);
}

void PictureItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    const qreal scale = QStyleOptionGraphicsItem::levelOfDetailFromTransform(painter->deviceTransform());
    if (scale > c_halfSize) {
        QGraphicsPixmapItem::paint(painter, option, widget);
        return;
    }
    const QPixmap& copy = CopyFor(scale);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(QRectF(offset(), QSizeF(pixmap().size())), copy, QRectF(copy.rect()));
}

const QPixmap& PictureItem::CopyFor(qreal scale)
{
    std::size_t index = 0;
    for (;; ++index, scale /= c_halfSize) {
        if (index == m_smallerCopies.size()) {
            const QPixmap larger = index == 0 ? pixmap() : m_smallerCopies.back();
            m_smallerCopies.push_back(larger.scaled((larger.width() + 1) / 2, (larger.height() + 1) / 2,
                                                    Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        }
        // A view of no size has the scale 0: the last copy, of one pixel, ends the search.
        if (scale > c_halfSize * c_halfSize || m_smallerCopies[index].size() == QSize(1, 1))
            return m_smallerCopies[index];
    }
}

} // namespace korvel::Ui::VenueDatabase
