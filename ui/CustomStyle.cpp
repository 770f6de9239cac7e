#include <ui/CustomStyle_p.h>

#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSizePolicy>
#include <QString>
#include <QStyle>
#include <QStyleOption>
#include <QVariant>
#include <QWidget>

using namespace Qt::StringLiterals;

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

QLabel* CreateLabel(const QString& text, QLatin1String styleClass, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    SetCustomStyle(label, styleClass);
    return label;
}

QPushButton* CreateButton(const QString& text, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    SetCustomStyle(button, "buttonKorvelDefault"_L1);
    return button;
}

QFrame* CreateSeparator(QWidget* parent)
{
    auto* separator = new QFrame(parent);
    separator->setFixedHeight(1);
    separator->setFrameShape(QFrame::HLine);
    separator->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    SetCustomStyle(separator, "lineKorvelDark"_L1);
    return separator;
}

} // namespace korvel::Ui::VenueDatabase
