#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QUtf8StringView>

namespace korvel::Data::VenueDatabase {

/// The date in a text of the exact form "yyyy-MM-dd", as QDate::fromString() reads it; invalid for any other
/// text.
QDate ReadServerDate(const QString& text);
QDate ReadServerDate(QUtf8StringView text);

/// The date and time in a text of the exact form "yyyy-MM-ddThh:mm:ss+00:00", as QDateTime::fromString()
/// reads it: the "+00:00" is text, so the value carries no time zone. Invalid for any other text.
QDateTime ReadServerDateTime(const QString& text);
QDateTime ReadServerDateTime(QUtf8StringView text);

} // namespace korvel::Data::VenueDatabase
