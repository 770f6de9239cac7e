#include <ui/table/VenueTableView_p.h>

#include <ui/CustomStyle_p.h>
#include <ui/table/LineDelegate_p.h>
#include <ui/table/VenueHeaderView_p.h>

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QResizeEvent>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

VenueTableView::VenueTableView(QWidget* parent)
    : QTableView(parent)
{
    setHorizontalHeader(new VenueHeaderView(this));
    setItemDelegate(new LineDelegate(this));
    setShowGrid(false);
    setFrameShape(QFrame::NoFrame);
    setFrameShadow(QFrame::Plain);
    SetCustomStyle(this, "tableViewKorvelAudioNetworkDevices"_L1);
    setMinimumHeight(45);
    // Tab leads on to the details: the cells of a row are not chosen one by one.
    setTabKeyNavigation(false);
    verticalHeader()->setVisible(false);
    setSortingEnabled(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void VenueTableView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        // Qt would go on from the current row, which nobody has seen yet.
        if (SelectCurrentRow())
            return;
        break;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

void VenueTableView::resizeEvent(QResizeEvent* event)
{
    constexpr int c_firstShownColumn = 1;
    const QModelIndexList selected
        = selectionModel() ? selectionModel()->selectedRows(c_firstShownColumn) : QModelIndexList();
    const QRect row = selected.isEmpty() ? QRect() : visualRect(selected.first());
    const bool isInView = row.isValid() && row.bottom() >= 0 && row.top() < event->oldSize().height();
    QTableView::resizeEvent(event);
    if (isInView)
        scrollTo(selected.first());
}

bool VenueTableView::SelectCurrentRow()
{
    if (!currentIndex().isValid() || selectionModel()->hasSelection())
        return false;
    scrollTo(currentIndex());
    // The last act: the details of the row load now.
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return true;
}

} // namespace korvel::Ui::VenueDatabase
