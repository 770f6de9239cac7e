#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace korvel::Bench {

/// What one run of a benchmark program wrote as JSON.
class Results
{
public:
    /// Reads the file; an empty object where it cannot be read.
    explicit Results(const QString& path);

    /// True where the run had the environment variable TZ set.
    bool HasZone() const;
    /// The machine, date and versions as the program tells them.
    QJsonObject Context() const;
    /// The counter of a benchmark, named with its arguments; nothing where it was not run.
    std::optional<double> Counter(const QString& benchmark, const QString& counter) const;
    /// Why the benchmark was given up; empty where it was not.
    QString Error(const QString& benchmark) const;

private:
    QJsonObject Benchmark(const QString& name) const;

    QJsonObject m_document;
};

} // namespace korvel::Bench
