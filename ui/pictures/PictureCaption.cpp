#include <ui/pictures/PictureCaption_p.h>

#include <QString>

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

} // namespace korvel::Ui::VenueDatabase
