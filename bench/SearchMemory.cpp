#include <bench/SearchMemory.h>

#include <bench/support/Comparison.h>
#include <bench/support/Documents.h>

#include <data/ConnectorJsonRest.h>
#include <server/VenueServer.h>
#include <server/catalogue/CatalogueGenerator.h>

#include <QCoreApplication>
#include <QFile>
#include <QNetworkReply>
#include <QProcess>
#include <QTemporaryDir>

#include <malloc.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace korvel::Bench {

namespace {

using Data::VenueDatabase::ConnectorJsonRest;
using Data::VenueDatabase::Venue;

/// Bytes that the kernel tells of this process under \p name.
qint64 StatusBytes(const QByteArray& name)
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines)
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).trimmed().split(' ').constFirst().toLongLong() * 1024;
    return 0;
}

/// The most memory that a search for all venues takes beyond what stays, per byte of the body: each time in a
/// new process, the server in this one.
void SearchMemory(benchmark::State& state)
{
    Demo::CatalogueGenerator::Settings settings;
    settings.venueCount = state.range(0);
    Demo::VenueServer server;
    server.SetCatalogue(Demo::CatalogueGenerator(settings).Catalogue());
    const QTemporaryDir folder;
    QFile certificate(folder.filePath(u"authority.pem"_s));
    if (!server.Start() || !certificate.open(QIODevice::WriteOnly)) {
        state.SkipWithError("the server did not start");
        return;
    }
    certificate.write(server.CaPem());
    certificate.close();
    const auto bodySize = static_cast<double>(Body(state.range(0)).size());
    std::vector<double> figures;
    for ([[maybe_unused]] const auto _ : state) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {QLatin1String(c_searchMemoryOption), QString::number(server.ProxyPort()),
                       certificate.fileName()});
        process.waitForFinished(-1);
        const QList<QByteArray> numbers = process.readAllStandardOutput().trimmed().split(' ');
        if (process.exitCode() != 0 || numbers.size() != 2) {
            state.SkipWithError("the search failed");
            return;
        }
        figures.push_back((numbers.at(0).toDouble() - numbers.at(1).toDouble()) / bodySize);
        state.SetIterationTime(1e-3);
    }
    state.counters["figure"] = Median(figures);
}
BENCHMARK(SearchMemory)->Arg(100000)->Iterations(3)->UseManualTime();

} // namespace

int PrintSearchMemory(const QStringList& arguments)
{
    QFile file(arguments.value(1));
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    const QNetworkProxy proxy(QNetworkProxy::HttpProxy, u"127.0.0.1"_s, arguments.value(0).toUShort());
    const Demo::ApplicationNetworkGuard network(proxy, QSslCertificate(file.readAll()));
    QList<Venue> venues;
    {
        ConnectorJsonRest connector;
        if (connector.FindVenueEntries({}, venues) != Data::VenueDatabase::Ok || venues.isEmpty())
            return 1;
    }
    // Replies and their manager are deleted later.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    malloc_trim(0);
    std::printf("%lld %lld\n", StatusBytes("VmHWM"), StatusBytes("VmRSS"));
    return 0;
}

} // namespace korvel::Bench
