#include <ui/PictureCaption_p.h>

#include <QString>

namespace korvel::Ui::VenueDatabase {

QString PictureCaption(qsizetype index, qsizetype count, const QString& description)
{
    if (count == 0)
        return QStringLiteral("-/0");
    return QStringLiteral("%1/%2 ").arg(index + 1).arg(count).append(description);
}

} // namespace korvel::Ui::VenueDatabase
