#include <ui/text/PlainComboBox_p.h>

#include <ui/text/ShownText_p.h>

#include <QStyleOptionComboBox>

namespace korvel::Ui::VenueDatabase {

PlainComboBox::PlainComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void PlainComboBox::initStyleOption(QStyleOptionComboBox* option) const
{
    QComboBox::initStyleOption(option);
    option->currentText = WithinCell(option->currentText);
}

} // namespace korvel::Ui::VenueDatabase
