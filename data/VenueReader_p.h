#pragma once

#include <data/Venue.h>

#include <QList>

class QJsonObject;

namespace korvel::Data::VenueDatabase {

class CountryCodeTranslator;

/// Reads the records out of the reply to a venue search.
class VenueReader
{
public:
    /// A reader that names countries by \p countries, which must outlive it.
    explicit VenueReader(const CountryCodeTranslator& countries);

    /// The venues of a whole JSON:API document, in the reverse order of its "data" array.
    QList<Venue> Read(const QJsonObject& document) const;

private:
    const CountryCodeTranslator& m_countries;
};

} // namespace korvel::Data::VenueDatabase
