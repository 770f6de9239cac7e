#include <ui/table/SpokenProxyModel_p.h>

#include <QLocale>
#include <QMetaType>
#include <QVariant>

namespace korvel::Ui::VenueDatabase {

QVariant SpokenProxyModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::AccessibleTextRole) {
        const QVariant shown = VenueSortFilterProxyModel::data(index, Qt::DisplayRole);
        if (shown.typeId() == QMetaType::QDateTime)
            return QLocale().toString(shown.toDateTime(), QLocale::ShortFormat);
    }
    return VenueSortFilterProxyModel::data(index, role);
}

} // namespace korvel::Ui::VenueDatabase
