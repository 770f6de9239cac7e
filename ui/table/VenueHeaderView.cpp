#include <ui/table/VenueHeaderView_p.h>

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyleOptionHeader>

namespace korvel::Ui::VenueDatabase {

VenueHeaderView::VenueHeaderView(QWidget* table)
    : QHeaderView(Qt::Horizontal, table)
{
    setFocusPolicy(Qt::TabFocus);
    // What a table view does with the headers that it makes itself.
    setSectionsClickable(true);
    setHighlightSections(true);
}

void VenueHeaderView::setModel(QAbstractItemModel* model)
{
    QHeaderView::setModel(model);
    GoTo(CurrentSection());
}

void VenueHeaderView::focusInEvent(QFocusEvent* event)
{
    // The section may have been hidden since.
    GoTo(CurrentSection());
    QHeaderView::focusInEvent(event);
}

void VenueHeaderView::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const
{
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    // Qt takes the focus of the whole for that of each section.
    option->state.setFlag(QStyle::State_HasFocus, hasFocus() && logicalIndex == CurrentSection());
}

void VenueHeaderView::keyPressEvent(QKeyEvent* event)
{
    const int forward = isRightToLeft() ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        GoTo(VisibleSection(visualIndex(CurrentSection()) - forward, -forward));
        break;
    case Qt::Key_Right:
        GoTo(VisibleSection(visualIndex(CurrentSection()) + forward, forward));
        break;
    case Qt::Key_Home:
        GoTo(VisibleSection(0, 1));
        break;
    case Qt::Key_End:
        GoTo(VisibleSection(count() - 1, -1));
        break;
    case Qt::Key_Up:
        break;
    case Qt::Key_Down:
        parentWidget()->setFocus(Qt::TabFocusReason);
        break;
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat())
            SortByCurrentSection();
        break;
    default:
        // Not the base class, which would look for rows that begin with the letter.
        event->ignore();
    }
}

void VenueHeaderView::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    painter->save();
    QHeaderView::paintSection(painter, rect, logicalIndex);
    painter->restore();
    if (!hasFocus() || logicalIndex != CurrentSection())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.state |= QStyle::State_KeyboardFocusChange;
    option.rect = rect.adjusted(1, 1, -1, -1);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, painter, this);
}

int VenueHeaderView::CurrentSection() const
{
    const bool isThere = m_section >= 0 && m_section < count() && !isSectionHidden(m_section);
    return isThere ? m_section : VisibleSection(0, 1);
}

int VenueHeaderView::VisibleSection(int from, int step) const
{
    for (int visual = from; visual >= 0 && visual < count(); visual += step)
        if (const int section = logicalIndex(visual); !isSectionHidden(section))
            return section;
    return -1;
}

void VenueHeaderView::GoTo(int section)
{
    if (section < 0)
        return;
    m_section = section;
    setAccessibleName(tr("Sort by %1").arg(model()->headerData(section, Qt::Horizontal).toString()));
    viewport()->update();
}

void VenueHeaderView::SortByCurrentSection()
{
    const int section = CurrentSection();
    if (section < 0)
        return;
    // As a click does.
    const bool isFlipped = section == sortIndicatorSection() && sortIndicatorOrder() == Qt::AscendingOrder;
    setSortIndicator(section, isFlipped ? Qt::DescendingOrder : Qt::AscendingOrder);
}

} // namespace korvel::Ui::VenueDatabase
