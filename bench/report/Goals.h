#pragma once

#include <QList>
#include <QString>

namespace korvel::Bench {

/// How a figure is judged.
enum class Judgement
{
    AtMost, ///< the counter must not exceed the limit
    TimesFaster, ///< ours / reference, shown and judged as reference / ours, which must reach the limit
    Note, ///< reported, not judged
};

/// One line of the report.
struct Goal
{
    QString number;
    QString what;
    /// The benchmark with its arguments, and the counter that holds the figure.
    QString benchmark;
    QString counter;
    Judgement judgement = Judgement::Note;
    double limit = 0;
    /// The limit where the environment variable TZ is not set; 0: the same, and measured only once.
    double limitWithoutZone = 0;
    QString unit;
};

/// Every line in the order of the report.
QList<Goal> Goals();

} // namespace korvel::Bench
