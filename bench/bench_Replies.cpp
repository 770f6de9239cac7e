// Reading the reply to a venue search: time and memory.
#include <bench/Comparison.h>
#include <bench/Documents.h>
#include <bench/HeapUse.h>
#include <bench/JsonaReader.h>

#include <data/ConnectorJsonRest.h>

#include <QJsonArray>
#include <QJsonDocument>

using namespace korvel::Bench;
using korvel::Data::VenueDatabase::ConnectorJsonRest;
using korvel::Data::VenueDatabase::Venue;

namespace {

/// Reading the records from the parsed document, against parsing it.
void ReadRecords(benchmark::State& state)
{
    const QByteArray& body = Body(state.range(0), state.range(1));
    const ConnectorJsonRest connector;
    const QJsonObject object = QJsonDocument::fromJson(body).object();
    Comparison(state).Run([&]() { return connector.ProcessVenueEntriesReply(object); },
                          [&]() { return QJsonDocument::fromJson(body); });
    state.counters["bytesPerVenue"] = static_cast<double>(body.size()) / static_cast<double>(state.range(0));
}
BENCHMARK(ReadRecords)->Args({1000, 10})->Args({1000, 1})->Iterations(101)->UseManualTime();
BENCHMARK(ReadRecords)->Args({10000, 10})->Args({10000, 1})->Iterations(31)->UseManualTime();
BENCHMARK(ReadRecords)->Args({100000, 10})->Args({100000, 1})->Iterations(7)->UseManualTime();

/// One reply of 100,000 venues against a hundred of 1,000: what a venue costs more in a large reply.
void ReadRecordsGrowth(benchmark::State& state)
{
    constexpr qsizetype c_small = 1000;
    constexpr qsizetype c_factor = 100;
    const ConnectorJsonRest connector;
    const QJsonObject small = QJsonDocument::fromJson(Body(c_small, state.range(0))).object();
    const QJsonObject large = QJsonDocument::fromJson(Body(c_small * c_factor, state.range(0))).object();
    Comparison(state).Run([&]() { return connector.ProcessVenueEntriesReply(large); },
                          [&]() {
                              for (qsizetype i = 0; i < c_factor; ++i)
                                  benchmark::DoNotOptimize(connector.ProcessVenueEntriesReply(small));
                          });
}
BENCHMARK(ReadRecordsGrowth)->Arg(10)->Arg(1)->Iterations(5)->UseManualTime();

/// From the bytes to the records, against jsona on Node, each in its own program, in turn.
void ReadBodyAgainstJsona(benchmark::State& state)
{
    const QByteArray& body = Body(state.range(0), state.range(1));
    JsonaReader jsona;
    if (!jsona.Start(body)) {
        state.SkipWithError(qPrintable(jsona.ErrorText()));
        return;
    }
    const ConnectorJsonRest connector;
    // Node compiles what runs often: let it.
    for (int i = 0; i < 5; ++i)
        jsona.Read();
    Comparison(state, Clock::Wall)
        .RunTimed(
            [&]() {
                return TimeOf(Clock::Wall, [&]() {
                    return connector.ProcessVenueEntriesReply(QJsonDocument::fromJson(body).object());
                });
            },
            [&]() { return jsona.Read(); });
}
BENCHMARK(ReadBodyAgainstJsona)->Args({10000, 10})->Args({10000, 1})->Iterations(31)->UseManualTime();

qsizetype TextBytes(const Venue& venue)
{
    const QGeoAddress address = venue.GetAddress();
    qsizetype characters = 0;
    for (const QString& text :
         {venue.GetComplexName(), venue.GetVenueRoomName(), venue.GetGeneralComment(), address.street(),
          address.postalCode(), address.city(), address.countryCode(), address.country(),
          venue.GetLocationComment(), venue.GetLoadDockStreetAddress(), venue.GetLoadDockComment(),
          venue.GetClearingOfHouseGrid(), venue.GetRiggingComment()})
        characters += text.size();
    return characters * qsizetype(sizeof(QChar));
}

/// The body with the free texts of each venue cut to at most \p length characters.
QByteArray WithShortTexts(const QByteArray& body, qsizetype length)
{
    QJsonObject document = QJsonDocument::fromJson(body).object();
    QJsonArray data;
    const QJsonArray elements = document.value(QLatin1String("data")).toArray();
    for (const QJsonValue value : elements) {
        QJsonObject element = value.toObject();
        QJsonObject attributes = element.value(QLatin1String("attributes")).toObject();
        for (const QLatin1String name :
             {QLatin1String("general_comment"), QLatin1String("comment"), QLatin1String("load_in_comments"),
              QLatin1String("rigging_specialties")})
            attributes.insert(name, attributes.value(name).toString().left(length));
        element.insert(QLatin1String("attributes"), attributes);
        data.append(element);
    }
    document.insert(QLatin1String("data"), data);
    return QJsonDocument(document).toJson(QJsonDocument::Compact);
}

/// Bytes of heap that a venue with about 416 bytes of text keeps, everything that was needed to read it
/// released.
void RecordMemory(benchmark::State& state)
{
    constexpr qsizetype c_textLength = 30;
    const QByteArray body = WithShortTexts(Body(state.range(0), state.range(1)), c_textLength);
    const ConnectorJsonRest connector;
    std::vector<double> perVenue;
    double textBytes = 0;
    for ([[maybe_unused]] const auto _ : state) {
        const double before = HeapInUse();
        const QList<Venue> venues
            = connector.ProcessVenueEntriesReply(QJsonDocument::fromJson(body).object());
        perVenue.push_back((HeapInUse() - before) / static_cast<double>(state.range(0)));
        textBytes = 0;
        for (const Venue& venue : venues)
            textBytes += static_cast<double>(TextBytes(venue));
        state.SetIterationTime(1e-3);
    }
    state.counters["figure"] = Median(perVenue);
    state.counters["textBytes"] = textBytes / static_cast<double>(state.range(0));
}
BENCHMARK(RecordMemory)->Args({100000, 10})->Iterations(3)->UseManualTime();

} // namespace
