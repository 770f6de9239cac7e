#pragma once

#include <data/Venue.h>

#include <QList>

#include <optional>

class QByteArray;
class QJsonObject;

namespace korvel::Data::VenueDatabase {

class CountryCodeTranslator;

/// Reads the records out of the reply to a venue search.
class VenueReader
{
public:
    /// A reader that names countries by \p countries, which must outlive it.
    explicit VenueReader(const CountryCodeTranslator& countries);

    /// The venues of the reply \p body, in the reverse order of its "data" array; nothing where it is not a
    /// JSON object with such an array. What QJsonDocument makes of \p body is the law; most replies are read
    /// in a fraction of its time and memory.
    std::optional<QList<Venue>> ReadBody(const QByteArray& body) const;
    /// The venues of a whole JSON:API document, likewise; none without a "data" array.
    QList<Venue> Read(const QJsonObject& document) const;

private:
    const CountryCodeTranslator& m_countries;
};

} // namespace korvel::Data::VenueDatabase
