#include <bench/report/Results.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace korvel::Bench {

Results::Results(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        m_document = QJsonDocument::fromJson(file.readAll()).object();
}

bool Results::HasZone() const
{
    return Context().value(QLatin1String("zone")).toString() != QLatin1String("unset");
}

QJsonObject Results::Context() const
{
    return m_document.value(QLatin1String("context")).toObject();
}

std::optional<double> Results::Counter(const QString& benchmark, const QString& counter) const
{
    const QJsonValue value = Benchmark(benchmark).value(counter);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

QString Results::Error(const QString& benchmark) const
{
    return Benchmark(benchmark).value(QLatin1String("error_message")).toString();
}

QJsonObject Results::Benchmark(const QString& name) const
{
    const QJsonArray benchmarks = m_document.value(QLatin1String("benchmarks")).toArray();
    for (const QJsonValue value : benchmarks) {
        // The full name goes on with "/iterations:…".
        const QString fullName = value.toObject().value(QLatin1String("name")).toString();
        if (fullName.section(QStringLiteral("/iterations:"), 0, 0) == name)
            return value.toObject();
    }
    return {};
}

} // namespace korvel::Bench
