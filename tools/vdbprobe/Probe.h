#pragma once

#include <tools/vdbprobe/Outcome.h>

#include <QNetworkProxy>
#include <QTextStream>

#include <functional>

namespace korvel::Tools {

struct ProbeOptions;

/// The steps from a host name to a search, in the order in which they go wrong in practice.
///
/// What it writes is meant for a ticket: English everywhere, and no password or other secret.
class Probe
{
public:
    /// Writes to \p output. Both must outlive the probe.
    Probe(const ProbeOptions& options, QTextStream& output);

    /// Runs all steps, the last three even if one of them fails. The number of the first step that failed, 0
    /// when all went well. Blocks, partly in nested event loops.
    int Run();

private:
    struct Step
    {
        const char* name = nullptr;
        std::function<Outcome()> run;
        bool isNeededByLaterOnes = true;
    };

    void SetUpNetwork();
    void WriteHeader();
    void RunStep(int number, const Step& step);
    void WriteDetail(const QString& text);
    void WriteEnd();

    const ProbeOptions& m_options;
    QTextStream& m_output;
    QNetworkProxy m_proxy; ///< that leads to the server
    int m_firstFailure = 0;
    bool m_goesOn = true;
};

} // namespace korvel::Tools
