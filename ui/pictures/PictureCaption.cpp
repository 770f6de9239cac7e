#include <ui/pictures/PictureCaption_p.h>

#include <ui/text/ShownText_p.h>

#include <QString>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

QString PictureCaption(qsizetype index, qsizetype count, const QString& description)
{
    if (count == 0)
        return CaptionWithoutPictures();
    return u"%1/%2 "_s.arg(index + 1).arg(count).append(description);
}

QString CaptionWithoutPictures()
{
    return u"-/0"_s;
}

void DescribeSteps(QWidget* leftButton, QWidget* rightButton, const QString& caption)
{
    const QString spoken = WithinScreen(caption);
    leftButton->setAccessibleDescription(spoken);
    rightButton->setAccessibleDescription(spoken);
}

} // namespace korvel::Ui::VenueDatabase
