#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace korvel::Soak {

/// What the process holds at one moment of a phase.
struct Sample
{
    QString phase;
    qint64 round = 0; ///< 0: the warm-up has just ended
    qint64 heap = 0; ///< bytes in use, server included
    qint64 descriptors = 0; ///< open files and sockets, the server's included
    qint64 replies = 0; ///< network replies under the connector
    qint64 tempFiles = 0; ///< files in the temporary folder
};

/// How often each phase repeats after its warm-up.
struct Rounds
{
    qint64 warmUp = 200;
    qint64 searches = 10000;
    qint64 selections = 2000;
    qint64 viewerSteps = 10000; ///< half of them with a download of the large rendition
    qint64 imports = 1000; ///< half of them of one record, half of a newly selected one
};

/// \p samples as CSV with a line of headings.
QByteArray ToCsv(const QList<Sample>& samples);
/// The samples of such a text; empty where it is none.
QList<Sample> FromCsv(const QByteArray& csv);

/// Which limits \p samples exceed, in words; empty when all is well.
QStringList Complaints(const QList<Sample>& samples);
/// One line per phase: rounds, and growth of everything from the first to the last sample.
QStringList Summary(const QList<Sample>& samples);
/// The samples of each phase, in their order.
QList<QList<Sample>> ByPhase(const QList<Sample>& samples);

} // namespace korvel::Soak
