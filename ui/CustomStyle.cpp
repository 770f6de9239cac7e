#include <ui/CustomStyle_p.h>

#include <QPainter>
#include <QString>
#include <QStyle>
#include <QStyleOption>
#include <QVariant>
#include <QWidget>

namespace korvel::Ui::VenueDatabase {

void SetCustomStyle(QObject* object, QLatin1String styleClass)
{
    object->setProperty("customStyle", QString(styleClass));
}

void PaintStyledBackground(QWidget* widget)
{
    QStyleOption option;
    option.initFrom(widget);
    QPainter painter(widget);
    widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, widget);
}

} // namespace korvel::Ui::VenueDatabase
