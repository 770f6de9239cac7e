#include <ui/CountryList_p.h>

#include <QSet>

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::Venue;

QStringList CountryList(const QList<Venue>& venues)
{
    QSet<QString> known;
    QStringList countries;
    for (const Venue& venue : venues) {
        const QString country = venue.GetCountry();
        if (country.isNull() || known.contains(country))
            continue;
        known.insert(country);
        countries.append(country);
    }
    countries.sort(Qt::CaseInsensitive);
    return countries;
}

} // namespace korvel::Ui::VenueDatabase
