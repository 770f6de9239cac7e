// Where the time of a search goes, from the request to the painted table.
#include <bench/support/Comparison.h>
#include <bench/support/Documents.h>

#include <data/ConnectorJsonRest.h>
#include <data/CountryCodeTranslator.h>
#include <data/reading/VenueReader_p.h>
#include <server/VenueServer.h>
#include <server/catalogue/CatalogueGenerator.h>
#include <tests/support/ConnectorStub.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueTableModel.h>

#include <QApplication>
#include <QHeaderView>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QTableView>

#include <array>
#include <functional>

using namespace Qt::StringLiterals;

using namespace korvel;
using namespace korvel::Bench;
using Data::VenueDatabase::ConnectorJsonRest;
using Data::VenueDatabase::CountryCodeTranslator;
using Data::VenueDatabase::Venue;
using Data::VenueDatabase::VenueReader;
using Ui::VenueDatabase::VenueDbCentralWidget;
using Ui::VenueDatabase::VenueTableModel;

namespace {

constexpr int c_timeout = 30000;
constexpr QSize c_tableSize(1062, 600);

/// The table as the search panel shows it, in the order of the list until the user clicks a header.
struct Table
{
    VenueTableModel model;
    VenueDbCentralWidget::VenueSortFilterProxyModel proxy;
    QTableView view;

    Table()
    {
        view.setSortingEnabled(true);
        view.verticalHeader()->setVisible(false);
        view.resize(c_tableSize);
        view.show();
    }
};

/// The stations of a search, in their order; the time of a phase is that between two of them.
enum Station
{
    Start,
    Encrypted,
    FirstByte,
    LastByte,
    Read,
    Modelled,
    Painted,
    StationCount
};
constexpr std::array<const char*, StationCount> c_phaseEndingAt{
    "", "tlsMs", "serverMs", "networkMs", "recordsMs", "modelMs", "viewMs"};

using Times = std::array<double, StationCount>;

/// One search for all venues over a new connection.
Times Search()
{
    static const CountryCodeTranslator countries;
    ConnectorJsonRest connector;
    Table table;
    QApplication::processEvents();

    Times times{};
    const auto reach = [&times](Station station) {
        // Only the first time counts: a reply may tell of its headers more than once.
        if (times[station] == 0)
            times[station] = NowOn(Clock::Wall);
    };
    reach(Start);
    QNetworkReply* reply = connector.SendGetJsonRequest(u"/api/venue"_s, {{u"include"_s, u"editor"_s}});
    QObject::connect(reply, &QNetworkReply::encrypted, reply, [&]() { reach(Encrypted); });
    QObject::connect(reply, &QNetworkReply::metaDataChanged, reply, [&]() { reach(FirstByte); });
    if (!connector.waitForFinished(reply, c_timeout) || reply->error() != QNetworkReply::NoError)
        qFatal("the venue server does not answer");
    const QByteArray body = reply->readAll();
    reach(LastByte);
    const QList<Venue> venues = VenueReader(countries).ReadBody(body).value();
    reach(Read);
    table.model.SetVenueData(venues);
    table.proxy.setSourceModel(&table.model);
    table.view.setModel(&table.proxy);
    // The proxy maps the rows when it is first asked.
    table.proxy.rowCount();
    reach(Modelled);
    table.view.horizontalHeader()->setStretchLastSection(true);
    table.view.setColumnHidden(0, true);
    QApplication::processEvents();
    table.view.viewport()->repaint();
    reach(Painted);
    reply->deleteLater();
    return times;
}

void SearchPhases(benchmark::State& state)
{
    Demo::CatalogueGenerator::Settings settings;
    settings.venueCount = state.range(0);
    Demo::VenueServer server;
    server.SetCatalogue(Demo::CatalogueGenerator(settings).Catalogue());
    if (!server.Start())
        qFatal("%s", qPrintable(server.ErrorText()));
    const auto network = server.InstallInApplication();
    Search();

    std::array<std::vector<double>, StationCount> durations;
    for ([[maybe_unused]] const auto _ : state) {
        const Times times = Search();
        for (std::size_t station = Encrypted; station < StationCount; ++station)
            durations[station].push_back((times[station] - times[station - 1]) / 1e6);
        state.SetIterationTime((times[Painted] - times[Start]) / 1e9);
    }
    double total = 0;
    for (std::size_t station = Encrypted; station < StationCount; ++station) {
        const double middle = Median(durations[station]);
        state.counters[c_phaseEndingAt[station]] = middle;
        total += middle;
    }
    state.counters["figure"] = total;
}
BENCHMARK(SearchPhases)->Arg(100)->Arg(1000)->Arg(10000)->Iterations(15)->UseManualTime();

/// The longest time that the thread computes without a turn of the event loop while the search panel searches
/// for all venues and lists their countries, in nanoseconds. \p read makes venues of the reply.
double LongestStall(const std::function<QList<Venue>()>& read)
{
    double longest = 0;
    double lastTurn = NowOn(Clock::Thread);
    const auto turn = [&]() {
        const double now = NowOn(Clock::Thread);
        longest = qMax(longest, now - lastTurn);
        lastTurn = now;
    };
    Test::ConnectorStub connector;
    connector.onFindVenues = [&](const Test::ConnectorStub::Filters&, QList<Venue>& venues) {
        // Here the connector would wait for the reply in an event loop.
        QApplication::processEvents();
        turn();
        venues = read();
        return Data::VenueDatabase::Ok;
    };
    VenueDbCentralWidget widget;
    widget.SetConnector(&connector);
    widget.show();
    QApplication::processEvents();
    turn();
    longest = 0;
    widget.PerformQuery();
    QApplication::processEvents();
    turn();
    return longest;
}

/// The same search with the present reader, against one with that of a QJsonObject.
void SearchStall(benchmark::State& state)
{
    static const CountryCodeTranslator countries;
    const QByteArray& body = Body(state.range(0));
    Comparison(state).RunTimed(
        [&]() { return LongestStall([&]() { return VenueReader(countries).ReadBody(body).value(); }); },
        [&]() {
            return LongestStall(
                [&]() { return VenueReader(countries).Read(QJsonDocument::fromJson(body).object()); });
        });
}
BENCHMARK(SearchStall)->Arg(10000)->Iterations(15)->UseManualTime();
BENCHMARK(SearchStall)->Arg(100000)->Iterations(5)->UseManualTime();

} // namespace
