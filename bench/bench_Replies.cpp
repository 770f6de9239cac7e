// Reading the reply to a venue search: time and memory.
#ifdef VDB_BENCH_HAS_SIMDJSON
#include <bench/rivals/BareReader.h>
#endif
#include <bench/rivals/JsonaReader.h>
#include <bench/support/Comparison.h>
#include <bench/support/Documents.h>
#include <bench/support/HeapUse.h>

#include <data/ConnectorJsonRest.h>
#include <data/CountryCodeTranslator.h>
#include <data/reading/VenueReader_p.h>

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

using namespace korvel::Bench;
using korvel::Data::VenueDatabase::ConnectorJsonRest;
using korvel::Data::VenueDatabase::CountryCodeTranslator;
using korvel::Data::VenueDatabase::Venue;
using korvel::Data::VenueDatabase::VenueReader;

namespace {

/// What a search makes of \p body.
QList<Venue> ReadBody(const QByteArray& body)
{
    static const CountryCodeTranslator countries;
    return VenueReader(countries).ReadBody(body).value();
}

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
void ReadBodyGrowth(benchmark::State& state)
{
    constexpr qsizetype c_small = 1000;
    constexpr qsizetype c_factor = 100;
    const QByteArray small = Body(c_small, state.range(0));
    const QByteArray large = Body(c_small * c_factor, state.range(0));
    Comparison(state).Run([&]() { return ReadBody(large); },
                          [&]() {
                              for (qsizetype i = 0; i < c_factor; ++i)
                                  benchmark::DoNotOptimize(ReadBody(small));
                          });
}
BENCHMARK(ReadBodyGrowth)->Arg(10)->Arg(1)->Iterations(5)->UseManualTime();

/// From the bytes to the records, against parsing them with QJsonDocument alone.
void ReadBodyAgainstParser(benchmark::State& state)
{
    const QByteArray& body = Body(state.range(0), state.range(1));
    Comparison(state).Run([&]() { return ReadBody(body); }, [&]() { return QJsonDocument::fromJson(body); });
}
BENCHMARK(ReadBodyAgainstParser)->Args({1000, 10})->Args({1000, 1})->Iterations(101)->UseManualTime();
BENCHMARK(ReadBodyAgainstParser)->Args({10000, 10})->Args({10000, 1})->Iterations(31)->UseManualTime();
BENCHMARK(ReadBodyAgainstParser)->Args({100000, 10})->Args({100000, 1})->Iterations(7)->UseManualTime();

/// From the bytes to the records, against a bare program that has simdjson read the same members.
void ReadBodyAgainstBareReader(benchmark::State& state)
{
#ifdef VDB_BENCH_HAS_SIMDJSON
    // simdjson reads some bytes beyond the end; with room for them it needs no copy.
    QByteArray body = Body(state.range(0), state.range(1));
    body.reserve(body.size() + 64);
    Comparison(state).Run([&]() { return ReadBody(body); }, [&]() { return ReadBare(body); });
#else
    state.SkipWithError("built without simdjson");
#endif
}
BENCHMARK(ReadBodyAgainstBareReader)->Args({1000, 10})->Args({1000, 1})->Iterations(101)->UseManualTime();
BENCHMARK(ReadBodyAgainstBareReader)->Args({10000, 10})->Args({10000, 1})->Iterations(31)->UseManualTime();
BENCHMARK(ReadBodyAgainstBareReader)->Args({100000, 10})->Args({100000, 1})->Iterations(7)->UseManualTime();

/// From the bytes to the records, against jsona on Node, each in its own program, in turn.
void ReadBodyAgainstJsona(benchmark::State& state)
{
    const QByteArray& body = Body(state.range(0), state.range(1));
    JsonaReader jsona;
    if (!jsona.Start(body)) {
        state.SkipWithError(qPrintable(jsona.ErrorText()));
        return;
    }
    // Node compiles what runs often: let it.
    for (int i = 0; i < 5; ++i)
        jsona.Read();
    Comparison(state, Clock::Wall)
        .RunTimed([&]() { return TimeOf(Clock::Wall, [&]() { return ReadBody(body); }); },
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
    const QJsonArray elements = document.value("data"_L1).toArray();
    for (const QJsonValue value : elements) {
        QJsonObject element = value.toObject();
        QJsonObject attributes = element.value("attributes"_L1).toObject();
        for (const QLatin1String name :
             {"general_comment"_L1, "comment"_L1, "load_in_comments"_L1, "rigging_specialties"_L1})
            attributes.insert(name, attributes.value(name).toString().left(length));
        element.insert("attributes"_L1, attributes);
        data.append(element);
    }
    document.insert("data"_L1, data);
    return QJsonDocument(document).toJson(QJsonDocument::Compact);
}

/// Bytes of heap that a venue with about 416 bytes of text keeps, everything that was needed to read it
/// released.
void RecordMemory(benchmark::State& state)
{
    constexpr qsizetype c_textLength = 30;
    const QByteArray body = WithShortTexts(Body(state.range(0), state.range(1)), c_textLength);
    std::vector<double> perVenue;
    double textBytes = 0;
    for ([[maybe_unused]] const auto _ : state) {
        const double before = HeapInUse();
        const QList<Venue> venues = ReadBody(body);
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
