#include <data/reading/JsonPath_p.h>

#include <QJsonValue>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

QString TextAt(const QJsonObject& object, std::initializer_list<QLatin1String> path)
{
    QJsonValue value(object);
    for (const QLatin1String member : path)
        value = value.toObject().value(member);
    return value.toString();
}

bool IsResource(const QJsonObject& resource, QLatin1String type)
{
    return resource.value("type"_L1) == type;
}

} // namespace korvel::Data::VenueDatabase
