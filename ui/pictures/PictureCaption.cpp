#include <ui/pictures/PictureCaption_p.h>

#include <QString>

namespace korvel::Ui::VenueDatabase {

QString PictureCaption(qsizetype index, qsizetype count, const QString& description)
{
    if (count == 0)
        return CaptionWithoutPictures();
    return QStringLiteral("%1/%2 ").arg(index + 1).arg(count).append(description);
}

QString CaptionWithoutPictures()
{
    return QStringLiteral("-/0");
}

} // namespace korvel::Ui::VenueDatabase
