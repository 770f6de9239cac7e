#pragma once

#include <server/catalogue/VenueCatalogue.h>

namespace korvel::Demo {

/// Makes venue catalogues of any size, the same for the same settings on every machine.
class CatalogueGenerator
{
public:
    struct Settings
    {
        qsizetype venueCount = 100;
        qsizetype venuesPerUser = 10; ///< 1: every venue has an editor of its own; 0: no editors
        int picturesPerVenue = 0; ///< views repeat from the eighth picture on
        int modelFilesPerVenue = 0;
        qsizetype modelFileSize = 1000; ///< bytes
        quint32 seed = 1;
    };

    explicit CatalogueGenerator(const Settings& settings)
        : m_settings(settings)
    {
    }

    /// The whole catalogue. Venues have the entity ids 1 to venueCount, users 1 to the number of users.
    VenueCatalogue Catalogue() const;
    /// One venue, \p index from 0. Depends on nothing but the settings and the index.
    VenueRecord Venue(qsizetype index) const;
    /// The user that edited the venue \p index; without meaning when there are no editors.
    UserRecord Editor(qsizetype index) const;
    /// The body of the server's answer to "all venues, include=editor" with links to \p host, about 1.2 KB a
    /// venue. Made without keeping the catalogue in memory.
    QByteArray Body(const QString& host) const;

private:
    Settings m_settings;
};

} // namespace korvel::Demo
