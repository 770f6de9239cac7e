#include <ui/accessible/AccessiblePane_p.h>

#include <QCursor>
#include <QWidget>

namespace korvel::Ui::VenueDatabase {

AccessiblePane::AccessiblePane(QWidget* widget)
    : QAccessibleWidget(widget, QAccessible::Grouping)
{
}

QAccessible::State AccessiblePane::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.busy = widget()->cursor().shape() == Qt::WaitCursor;
    return state;
}

} // namespace korvel::Ui::VenueDatabase
