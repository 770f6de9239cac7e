#include <bench/report/Results.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace korvel::Bench {

Results::Results(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        m_document = QJsonDocument::fromJson(file.readAll()).object();
}

bool Results::HasZone() const
{
    return Context().value("zone"_L1).toString() != "unset"_L1;
}

QJsonObject Results::Context() const
{
    return m_document.value("context"_L1).toObject();
}

std::optional<double> Results::Counter(const QString& benchmark, const QString& counter) const
{
    const QJsonValue value = Benchmark(benchmark).value(counter);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

QString Results::Error(const QString& benchmark) const
{
    return Benchmark(benchmark).value("error_message"_L1).toString();
}

QJsonObject Results::Benchmark(const QString& name) const
{
    const QJsonArray benchmarks = m_document.value("benchmarks"_L1).toArray();
    for (const QJsonValue value : benchmarks) {
        // The full name goes on with "/iterations:…".
        const QString fullName = value.toObject().value("name"_L1).toString();
        if (fullName.section(u"/iterations:"_s, 0, 0) == name)
            return value.toObject();
    }
    return {};
}

} // namespace korvel::Bench
