#include <ui/PictureNavigationButton.h>

#include <ui/pictures/FocusRing_p.h>

#include <QEvent>
#include <QFocusEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPolygon>

#include <algorithm>

namespace korvel::Ui::VenueDatabase {

namespace {

constexpr qreal c_discRadius = 12.0;
constexpr qreal c_chevronPenWidth = 1.5;
constexpr int c_minimumWidth = 32;
constexpr int c_maximumWidth = 80;
constexpr int c_partOfParentWidth = 12;

/// The open line of the chevron around the origin; empty for a direction that is none.
QPolygon ChevronLine(int direction)
{
    if (direction != -1 && direction != 1)
        return {};
    return QPolygon({QPoint(-2 * direction, 6), QPoint(4 * direction, 0), QPoint(-2 * direction, -6)});
}

} // namespace

PictureNavigationButton::PictureNavigationButton(int direction, QWidget* parent)
    : QPushButton(parent)
    , m_direction(direction)
{
    setFlat(true);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setMouseTracking(true);
    if (direction == -1)
        setAccessibleName(tr("Previous picture"));
    else if (direction == 1)
        setAccessibleName(tr("Next picture"));
    // What is left to the button classes: the click by key or screen reader.
    connect(this, &QAbstractButton::clicked, this, [this] { Q_EMIT PictureNavigationClicked(m_direction); });
}

PictureNavigationButton::~PictureNavigationButton() = default;

void PictureNavigationButton::SetDayMode(bool dayMode)
{
    m_dayMode = dayMode;
    update();
}

void PictureNavigationButton::AdjustToParent(int offset)
{
    const QWidget* parent = parentWidget();
    if (!parent)
        return;
    setFixedSize(std::clamp(parent->width() / c_partOfParentWidth, c_minimumWidth, c_maximumWidth),
                 parent->height());
    if (m_direction == -1)
        move(offset, 0);
    else if (m_direction == 1)
        move(parent->width() + offset - width(), 0);
}

bool PictureNavigationButton::event(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        m_isHovered = event->type() == QEvent::HoverEnter;
        update();
        return true;
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        m_isFocusShown = ShowsFocusAfter(*static_cast<QFocusEvent*>(event), m_isFocusShown);
        update();
    }
    // Deliberate: past the button classes. Their hover and press handling would repaint and click.
    return QWidget::event(event); // NOLINT(bugprone-parent-virtual-call)
}

void PictureNavigationButton::mousePressEvent(QMouseEvent* /*event*/)
{
    // Deliberate: no base call. The press itself navigates, so there is no pressed state and no clicked().
    Q_EMIT PictureNavigationClicked(m_direction);
}

void PictureNavigationButton::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event); // NOLINT(bugprone-parent-virtual-call)

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPoint center(width() / 2, height() / 2);

    QPainterPath disc;
    disc.addEllipse(center, c_discRadius, c_discRadius);
    QColor discColor = m_dayMode ? Qt::black : Qt::white;
    discColor.setAlphaF(m_isHovered ? 1.0F : 0.5F);
    painter.fillPath(disc, discColor);

    painter.setPen(QPen(m_dayMode ? Qt::white : Qt::black, c_chevronPenWidth, Qt::SolidLine, Qt::SquareCap,
                        Qt::MiterJoin));
    painter.drawPolyline(ChevronLine(m_direction).translated(center));

    if (m_isFocusShown && hasFocus())
        PaintFocusRing(painter, center);
}

void PictureNavigationButton::resizeEvent(QResizeEvent* event)
{
    AdjustToParent(0);
    QWidget::resizeEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_PictureNavigationButton.cpp"
