#pragma once

#include <data/Venue.h>

#include <QList>
#include <QStringList>

namespace korvel::Ui::VenueDatabase {

/// The countries that occur in \p venues, each once, in alphabetical order without regard to case. Names that
/// differ in case only are two.
QStringList CountryList(const QList<Data::VenueDatabase::Venue>& venues);

} // namespace korvel::Ui::VenueDatabase
