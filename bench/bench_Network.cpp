// Fetching from the local venue server over real TLS: time, connections, memory.
#include <bench/support/Comparison.h>
#include <bench/support/HeapUse.h>
#ifdef VDB_BENCH_HAS_CURL
#include <bench/rivals/CurlClient.h>
#endif

#include <data/ConnectorJsonRest.h>
#include <server/VenueServer.h>
#include <server/catalogue/CatalogueGenerator.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>

using namespace Qt::StringLiterals;

using namespace korvel;
using namespace korvel::Bench;
using Data::VenueDatabase::ConnectorJsonRest;
using Data::VenueDatabase::Picture;
using Data::VenueDatabase::Venue;

namespace {

constexpr int c_pictureCount = 20;
constexpr qsizetype c_pictureSize = 40000;
constexpr qint64 c_venueId = 1;

/// The venue server with one venue of many pictures, and the application led to it.
class PictureServer
{
public:
    PictureServer()
        : m_server(Options())
    {
        Demo::CatalogueGenerator::Settings settings;
        settings.venueCount = 5;
        settings.picturesPerVenue = c_pictureCount;
        m_server.SetCatalogue(Demo::CatalogueGenerator(settings).Catalogue());
        if (!m_server.Start())
            qFatal("%s", qPrintable(m_server.ErrorText()));
        m_network = m_server.InstallInApplication();
    }

    Demo::VenueServer& operator*()
    {
        return m_server;
    }
    Demo::VenueServer* operator->()
    {
        return &m_server;
    }

private:
    static Demo::VenueServer::Options Options()
    {
        Demo::VenueServer::Options options;
        // Bytes that TLS cannot squeeze, beginning as a JPEG does.
        options.pictureSource = [](const Demo::VenueRecord&, const Demo::PictureRecord&, QSize) {
            QByteArray bytes(c_pictureSize, Qt::Uninitialized);
            quint32 state = 1;
            for (char& byte : bytes) {
                state = state * 1664525 + 1013904223;
                byte = static_cast<char>(state >> 24);
            }
            return bytes.replace(0, 4, "\xff\xd8\xff\xe0");
        };
        return options;
    }

    Demo::VenueServer m_server;
    std::unique_ptr<Demo::ApplicationNetworkGuard> m_network;
};

/// The addresses that the connector asks for to fetch the venue's pictures, in its order.
QList<QUrl> AddressesOf(ConnectorJsonRest& connector, PictureServer& server)
{
    server->Log().Clear();
    const QList<Picture> pictures = connector.GetPictureEntries(c_venueId);
    QList<QUrl> addresses;
    for (const Demo::Request& request : server->Log().Requests())
        addresses.append(QUrl(u"https://"_s + server->Host() + QString::fromLatin1(request.target)));
    if (pictures.size() != c_pictureCount || addresses.size() != c_pictureCount + 1
        || pictures.constFirst().GetPictureDataSmall().size() != c_pictureSize)
        qFatal("the venue server does not deliver the pictures");
    return addresses;
}

/// What the connector's manager takes at least: one request after another, the bodies kept, nothing else
/// done.
QList<QByteArray> FetchPlainly(QNetworkAccessManager& manager, const QList<QUrl>& addresses)
{
    QList<QByteArray> bodies;
    for (const QUrl& address : addresses) {
        QNetworkReply* reply = manager.get(QNetworkRequest(address));
        QEventLoop loop;
        QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
        loop.exec();
        bodies.append(reply->readAll());
        reply->deleteLater();
    }
    return bodies;
}

/// The pictures of one venue over a warm connection, from the list to the records, against a plain loop of
/// the same manager over their addresses.
void FetchPictures(benchmark::State& state)
{
    PictureServer server;
    ConnectorJsonRest connector;
    const QList<QUrl> addresses = AddressesOf(connector, server);
    auto* manager = connector.findChild<QNetworkAccessManager*>();
    const QJsonArray included
        = QJsonDocument::fromJson(FetchPlainly(*manager, {addresses.constFirst()}).constFirst())
              .object()
              .value("included"_L1)
              .toArray();
    if (connector.ProcessPictureEntriesReply(included, c_venueId).size() != c_pictureCount)
        qFatal("the list of the pictures is not as it was");
    const QList<QUrl> pictureAddresses = addresses.sliced(1);
    Comparison(state, Clock::Wall)
        .Run([&]() { return connector.ProcessPictureEntriesReply(included, c_venueId); },
             [&]() { return FetchPlainly(*manager, pictureAddresses); });
}
BENCHMARK(FetchPictures)->Iterations(301)->UseManualTime();

/// The same with the request for the list, which the plain loop fetches but does not read.
void FetchPicturesAndList(benchmark::State& state)
{
    PictureServer server;
    ConnectorJsonRest connector;
    const QList<QUrl> addresses = AddressesOf(connector, server);
    auto* manager = connector.findChild<QNetworkAccessManager*>();
    Comparison(state, Clock::Wall)
        .Run([&]() { return connector.GetPictureEntries(c_venueId); },
             [&]() { return FetchPlainly(*manager, addresses); });
}
BENCHMARK(FetchPicturesAndList)->Iterations(301)->UseManualTime();

#ifdef VDB_BENCH_HAS_CURL
/// The same against libcurl in this program, one connection.
void FetchPicturesAgainstCurl(benchmark::State& state)
{
    PictureServer server;
    ConnectorJsonRest connector;
    const QList<QUrl> addresses = AddressesOf(connector, server);
    CurlClient curl(*server);
    Comparison(state, Clock::Wall)
        .Run([&]() { return connector.GetPictureEntries(c_venueId); },
             [&]() {
                 QList<QByteArray> bodies;
                 for (const QUrl& address : addresses) {
                     bodies.append(curl.Get(address.toEncoded()));
                     if (bodies.constLast().isEmpty())
                         qFatal("libcurl did not get what it asked for");
                 }
                 return bodies;
             });
}
BENCHMARK(FetchPicturesAgainstCurl)->Iterations(101)->UseManualTime();
#endif

/// TLS connections that two hundred searches of one connector open.
void Connections(benchmark::State& state)
{
    PictureServer server;
    ConnectorJsonRest connector;
    constexpr int c_queries = 200;
    for ([[maybe_unused]] const auto _ : state) {
        for (int i = 0; i < c_queries; ++i) {
            QList<Venue> venues;
            if (connector.FindVenueEntries({}, venues) != Data::VenueDatabase::Ok)
                qFatal("the venue server does not answer");
        }
    }
    state.counters["figure"] = static_cast<double>(server->Log().TlsConnectionCount());
}
BENCHMARK(Connections)->Iterations(1);

/// Bytes of heap that stay behind a fetched picture when its record is gone.
void PictureMemory(benchmark::State& state)
{
    PictureServer server;
    ConnectorJsonRest connector;
    constexpr int c_rounds = 50;
    const auto fetch = [&](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            benchmark::DoNotOptimize(connector.GetPictureEntries(c_venueId));
            // As the host's event loop does between two user actions.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
            // The server runs in this program, and what it notes is not the module's.
            server->Log().Clear();
        }
    };
    fetch(5);
    const double before = HeapInUse();
    for ([[maybe_unused]] const auto _ : state)
        fetch(c_rounds);
    state.counters["figure"] = (HeapInUse() - before) / (c_rounds * c_pictureCount);
}
BENCHMARK(PictureMemory)->Iterations(1);

} // namespace
