#pragma once

#include <data/Picture.h>
#include <data/TsFile.h>
#include <data/User.h>
#include <data/Venue.h>
#include <data/VenueDatabaseExport.h>

#include <QByteArray>
#include <QList>
#include <QString>

#include <utility>

namespace korvel::Data::VenueDatabase {

/// How a venue search ended. Everything but Ok means that the server could not be reached.
enum ResultStatus
{
    /// The reply came in time, had the right media type and was read; it may still hold no venue.
    Ok = 0,
    /// The reply is not "application/vnd.api+json" or failed: network errors and HTTP error pages end here.
    WrongContentType = 1,
    /// No reply within the time-out, or the wait was cut short; the request is gone.
    Timeout = 2
};

/// What the user interface knows of the venue database server. Stateless towards its callers: each operation
/// is a complete query.
///
/// Operations are synchronous and may run a nested event loop while they wait, so anything can happen
/// meanwhile, the deletion of the connector or of the caller included: a caller checks what it holds
/// afterwards. Failures are return values; no operation throws. User-interface thread only.
///
/// The search panel takes any implementation, for example one that reads a local file:
/// @code{.cpp}
/// LocalConnector connector; // outlives the panel's use of it
/// VenueDbCentralWidget panel;
/// panel.SetConnector(&connector);
/// panel.PerformQuery();
/// @endcode
class KVVENUEDATABASE_API Connector_Interface
{
public:
    /// For implementations; the interface has no state.
    Connector_Interface() = default;
    /// Copies nothing: there is no state.
    Connector_Interface(const Connector_Interface& other) = default;
    /// Assigns nothing: there is no state.
    Connector_Interface& operator=(const Connector_Interface& other) = default;
    /// Connectors are deleted through this class by whoever created them.
    virtual ~Connector_Interface();

    /// Searches the venues that match every one of \p filters, pairs of attribute path and text to look for;
    /// no filter finds all. Paths are those of the server, for
    /// example "title", "venue_room_name", "address.locality" and "address.country_code". \p venues is
    /// replaced on Ok and left exactly as it was otherwise.
    virtual ResultStatus FindVenueEntries(QList<std::pair<QString, QString>> filters, QList<Venue>& venues)
        = 0;
    /// The user accounts that match \p filters.
    virtual QList<User> FindUserEntries(QList<std::pair<QString, QString>> filters) = 0;
    /// The pictures of the venue with the entity id \p venueId, with the bytes of one small rendition each;
    /// empty on any failure.
    virtual QList<Picture> GetPictureEntries(qint64 venueId) = 0;
    /// The model files of the venue with the entity id \p venueId, with their contents; empty on any failure.
    virtual QList<TsFile> GetTSFileEntries(qint64 venueId) = 0;
    /// The body behind the full URL \p url if it is an image, otherwise an empty array.
    virtual QByteArray GetPictureBinaryData(const QString& url) = 0;

private:
    virtual QList<Venue> GetAllVenueEntries() = 0;
    virtual QList<Venue> GetVenueEntries() = 0;
    virtual QList<User> GetAllUserEntries() = 0;
    virtual QList<User> GetUserEntries() = 0;
};

} // namespace korvel::Data::VenueDatabase
