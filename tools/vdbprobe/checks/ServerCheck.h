#pragma once

#include <tools/vdbprobe/FetchResult.h>
#include <tools/vdbprobe/Outcome.h>
#include <tools/vdbprobe/ProbeConnector.h>

#include <data/Venue.h>
#include <data/network/ServerQuery_p.h>

#include <QJsonArray>
#include <QList>

#include <optional>

namespace korvel::Tools {

class JsonApiAnswer;
struct ProbeOptions;

/// The steps from the first query to a search: what the module would ask, and whether it could use the
/// answers. They block, partly in nested event loops.
class ServerCheck
{
public:
    /// Asks the host of \p options, which must outlive the check, through the application's proxy.
    explicit ServerCheck(const ProbeOptions& options);

    Outcome AskForVenues();
    Outcome CheckMediaType();
    Outcome ReadVenues();
    Outcome LoadPicture();
    Outcome LoadModelFile();
    Outcome SearchTitle();

private:
    /// The "included" array of one venue, and which venue it is.
    struct Stored
    {
        QJsonArray included;
        qint64 venueId = 0;
    };

    FetchResult Ask(const Data::VenueDatabase::QueryPairs& query) const;
    /// Why \p result is not a JSON:API document, as the outcome of a step; nothing when it is one. \p name
    /// says what was asked for.
    std::optional<Outcome> FailureOf(const FetchResult& result, const QString& name) const;
    Outcome VenuesOutcome(const JsonApiAnswer& answer) const;
    /// How the download of a stored file ended; \p found tells of how many.
    Outcome DownloadOutcome(const FetchResult& file, const QString& found) const;
    /// Asks for the resources \p include of one venue after the other until one has some, described by
    /// "file" resources and those of type \p type. Otherwise \p outcome is that of the step.
    std::optional<Stored> FindStored(QLatin1String include, QLatin1String type, const QString& what,
                                     Outcome& outcome) const;

    const ProbeOptions& m_options;
    ProbeConnector m_connector;
    FetchResult m_answer; ///< to the query for all venues
    QList<Data::VenueDatabase::Venue> m_venues;
    QList<qint64> m_venueIds; ///< that can be asked for
};

} // namespace korvel::Tools
