#include <ui/FoldingIcon_p.h>

#include <ui/pictures/FocusRing_p.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFocusEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>

namespace korvel::Ui::VenueDatabase {

namespace {

constexpr QSize c_arrowArea(16, 16);

/// What a screen reader meets: a button that tells whether the panel is folded up.
class AccessibleFoldingIcon : public QAccessibleWidget
{
public:
    explicit AccessibleFoldingIcon(FoldingIcon* icon)
        : QAccessibleWidget(icon, QAccessible::Button)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.collapsed = Icon()->IsCollapsed();
        state.expanded = !state.collapsed;
        return state;
    }

    QStringList actionNames() const override
    {
        if (!widget()->isEnabled())
            return QAccessibleWidget::actionNames();
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name != pressAction())
            QAccessibleWidget::doAction(name);
        else if (widget()->isEnabled())
            Q_EMIT Icon()->ToggleRequested();
    }

private:
    FoldingIcon* Icon() const
    {
        return qobject_cast<FoldingIcon*>(object());
    }
};

QAccessibleInterface* CreateAccessible(const QString& /*className*/, QObject* object)
{
    auto* icon = qobject_cast<FoldingIcon*>(object);
    return icon ? new AccessibleFoldingIcon(icon) : nullptr;
}

} // namespace

FoldingIcon::FoldingIcon(const QLabel* caption, QWidget* parent)
    : QLabel(parent)
    , m_caption(caption)
{
    setFocusPolicy(Qt::TabFocus);
    // Qt ignores a factory that it has already.
    QAccessible::installFactory(&CreateAccessible);
}

FoldingIcon::~FoldingIcon() = default;

void FoldingIcon::ShowIcon(const QString& path, bool collapsed, bool dayMode)
{
    const bool isFolded = collapsed != m_isCollapsed;
    m_path = path;
    m_isCollapsed = collapsed;
    m_isDayMode = dayMode;
    UpdatePixmap();
    setMinimumSize(HasIcon() ? QSize(0, 0) : c_arrowArea);
    update();

    setAccessibleName(collapsed ? tr("Expand venue details") : tr("Collapse venue details"));
    if (isFolded) {
        QAccessible::State changed;
        changed.expanded = true;
        changed.collapsed = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
}

bool FoldingIcon::HasIcon() const
{
    return !pixmap(Qt::ReturnByValue).isNull();
}

bool FoldingIcon::IsMeantBy(const QObject* watched, const QMouseEvent& release) const
{
    if (watched == this)
        return true;
    // Without the host's icon there is only a small arrow, so the whole bar serves. What the arrow was told
    // comes to the bar a second time.
    return watched == parentWidget() && !HasIcon() && !geometry().contains(release.position().toPoint());
}

bool FoldingIcon::IsCollapsed() const
{
    return m_isCollapsed;
}

void FoldingIcon::UpdatePixmap()
{
    const QPixmap plain(m_path);
    m_pixmapScale = devicePixelRatioF();
    // At scale 1 the file is shown as it is, without an icon engine that might resize it.
    const bool isPlain = plain.isNull() || qFuzzyCompare(m_pixmapScale, 1.0);
    setPixmap(isPlain ? plain : QIcon(m_path).pixmap(plain.size(), m_pixmapScale));
}

void FoldingIcon::focusInEvent(QFocusEvent* event)
{
    m_isFocusShown = ShowsFocusAfter(*event, m_isFocusShown);
    QLabel::focusInEvent(event);
    update();
}

void FoldingIcon::focusOutEvent(QFocusEvent* event)
{
    m_isFocusShown = ShowsFocusAfter(*event, m_isFocusShown);
    QLabel::focusOutEvent(event);
    update();
}

void FoldingIcon::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat())
            Q_EMIT ToggleRequested();
        return;
    default:
        QLabel::keyPressEvent(event);
    }
}

void FoldingIcon::paintEvent(QPaintEvent* event)
{
    // The panel may have moved to a screen of another scale.
    if (!qFuzzyCompare(m_pixmapScale, devicePixelRatioF()))
        UpdatePixmap();

    QLabel::paintEvent(event);
    if (!HasIcon())
        PaintArrow();
    if (m_isFocusShown && hasFocus()) {
        QPainter painter(this);
        painter.setPen(HasIcon() ? QColor(m_isDayMode ? Qt::black : Qt::white) : CaptionColor());
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

QColor FoldingIcon::CaptionColor() const
{
    return m_caption->palette().color(m_caption->foregroundRole());
}

void FoldingIcon::PaintArrow()
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(CaptionColor(), 2.0, Qt::SolidLine, Qt::RoundCap));
    painter.translate(QRectF(rect()).center());
    if (m_isCollapsed)
        painter.rotate(isRightToLeft() ? 90.0 : -90.0);
    painter.drawPolyline(QPolygonF{{-4.0, -2.0}, {0.0, 2.0}, {4.0, -2.0}});
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_FoldingIcon_p.cpp"
