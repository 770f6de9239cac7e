#include <ui/table/VenueTableView_p.h>

#include <ui/CustomStyle_p.h>
#include <ui/table/LineDelegate_p.h>

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

VenueTableView::VenueTableView(QWidget* parent)
    : QTableView(parent)
{
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

} // namespace korvel::Ui::VenueDatabase
