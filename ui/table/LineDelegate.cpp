#include <ui/table/LineDelegate_p.h>

#include <ui/text/ShownText_p.h>

#include <QLocale>
#include <QMetaType>
#include <QVariant>

namespace korvel::Ui::VenueDatabase {

QString LineDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    if (value.typeId() != QMetaType::QString)
        return QStyledItemDelegate::displayText(value, locale);
    return QStyledItemDelegate::displayText(WithinCell(value.toString()), locale);
}

} // namespace korvel::Ui::VenueDatabase
