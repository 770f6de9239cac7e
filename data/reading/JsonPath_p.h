#pragma once

#include <QJsonObject>
#include <QLatin1String>
#include <QString>

#include <initializer_list>

namespace korvel::Data::VenueDatabase {

/// The text at the end of \p path below \p object; empty where a member is missing or of another type.
QString TextAt(const QJsonObject& object, std::initializer_list<QLatin1String> path);

/// True when \p resource is a resource of \p type, compared to the letter.
bool IsResource(const QJsonObject& resource, QLatin1String type);

} // namespace korvel::Data::VenueDatabase
