#pragma once

#include <tools/vdbprobe/Outcome.h>
#include <tools/vdbprobe/ProbeConnector.h>
#include <tools/vdbprobe/ProbeOptions.h>

#include <QList>
#include <QSslSocket>
#include <QTextStream>

class QUrlQuery;

namespace korvel::Tools {

/// The steps from a host name to a loaded model file, each built on the ones before, in the order in which
/// they go wrong in practice.
///
/// What it writes is meant for a ticket: English everywhere, and no password, no query, no header.
class Probe
{
public:
    /// Writes to \p output, which must outlive the probe.
    Probe(const ProbeOptions& options, QTextStream& output);

    /// Runs all steps, the last two even if one of them fails. The number of the first step that failed, 0
    /// when all went well. Blocks, partly in nested event loops.
    int Run();

private:
    struct Step
    {
        const char* name = nullptr;
        Outcome (Probe::*run)() = nullptr;
        bool isNeededByLaterOnes = true;
    };

    void SetUpNetwork();
    void WriteHeader();
    void WriteDetail(const QString& text);
    void WriteCertificate(const QSslCertificate& certificate);

    Outcome FindHostOrProxy();
    Outcome FindHost();
    Outcome ReachProxy();
    Outcome Connect();
    Outcome StartTls();
    Outcome AskForVenues();
    Outcome CheckMediaType();
    Outcome ReadVenues();
    Outcome LoadPicture();
    Outcome LoadModelFile();

    QUrl Url(const QString& path) const;
    QUrl VenueUrl(const QList<std::pair<QString, QString>>& query) const;
    /// Asks for the resources \p include of one venue after the other until one has some: its "included"
    /// array and id. Otherwise \p result is the outcome of the step.
    bool FindIncluded(const QString& include, const QString& what, QJsonArray& included, qint64& venueId,
                      Outcome& result);

    const ProbeOptions m_options;
    QTextStream& m_output;
    ProbeConnector m_connector;
    QNetworkProxy m_proxy; ///< that leads to the server
    QSslSocket m_socket;
    FetchResult m_venues;
    QList<qint64> m_venueIds;
};

} // namespace korvel::Tools
