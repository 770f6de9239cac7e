// The venue table and the country list.
#include <bench/support/Comparison.h>
#include <bench/support/Documents.h>
#include <tests/support/LiteralTable.h>

#include <data/CountryCodeTranslator.h>
#include <data/reading/VenueReader_p.h>
#include <tests/support/ConnectorStub.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueTableModel.h>

#include <algorithm>
#include <numeric>

using namespace korvel::Bench;
using korvel::Data::VenueDatabase::CountryCodeTranslator;
using korvel::Data::VenueDatabase::Venue;
using korvel::Data::VenueDatabase::VenueReader;
using korvel::Ui::VenueDatabase::VenueDbCentralWidget;
using korvel::Ui::VenueDatabase::VenueTableModel;

namespace {

constexpr int c_dateColumn = 5;

/// A model and the proxy that sorts it.
template <typename Model, typename Proxy> class SortedTable
{
public:
    SortedTable()
    {
        m_proxy.setSourceModel(&m_model);
    }

    /// Fills the table with \p venues and sorts it by \p column, as a click on a header does after a search.
    void FillAndSort(const QList<Venue>& venues, int column)
    {
        m_model.SetVenueData(venues);
        m_proxy.sort(column, Qt::AscendingOrder);
    }

    /// Back to the order of the list, for the next time.
    void Clear()
    {
        m_proxy.sort(-1);
        m_model.SetVenueData({});
    }

    QList<int> Rows() const
    {
        QList<int> rows(m_proxy.rowCount());
        for (int row = 0; row < rows.size(); ++row)
            rows[row] = m_proxy.mapToSource(m_proxy.index(row, 0)).row();
        return rows;
    }

private:
    Model m_model;
    Proxy m_proxy;
};

using OurTable = SortedTable<VenueTableModel, VenueDbCentralWidget::VenueSortFilterProxyModel>;
using LiteralTable = SortedTable<LiteralTableModel, LiteralSortProxy>;

/// Model reset and sort by a column, against the same written literally.
void SortTable(benchmark::State& state)
{
    const QList<Venue>& venues = Venues(state.range(0));
    const int column = static_cast<int>(state.range(1));
    OurTable ours;
    LiteralTable literal;
    ours.FillAndSort(venues, column);
    literal.FillAndSort(venues, column);
    if (ours.Rows() != literal.Rows()) {
        state.SkipWithError("the order differs from the literal one");
        return;
    }
    Comparison comparison(state);
    comparison.prepare = [&]() {
        ours.Clear();
        literal.Clear();
    };
    comparison.Run([&]() { ours.FillAndSort(venues, column); },
                   [&]() { literal.FillAndSort(venues, column); });
}
BENCHMARK(SortTable)->Args({10000, 0})->Args({10000, 1})->Args({10000, 5})->Iterations(15)->UseManualTime();
BENCHMARK(SortTable)->Args({100000, 1})->Args({100000, 5})->Iterations(5)->UseManualTime();

/// Model reset and sort by date, against sorting row numbers by keys that are ready.
template <typename Key> void SortTableAgainstKeys(benchmark::State& state, Key (*keyOf)(const Venue&))
{
    const QList<Venue>& venues = Venues(state.range(0));
    std::vector<Key> keys;
    keys.reserve(static_cast<std::size_t>(venues.size()));
    for (const Venue& venue : venues)
        keys.push_back(keyOf(venue));

    OurTable ours;
    Comparison comparison(state);
    comparison.prepare = [&]() { ours.Clear(); };
    comparison.Run([&]() { ours.FillAndSort(venues, c_dateColumn); },
                   [&]() {
                       std::vector<int> rows(keys.size());
                       std::iota(rows.begin(), rows.end(), 0);
                       std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
                           return keys[std::size_t(right)] < keys[std::size_t(left)];
                       });
                       return rows;
                   });
}

/// The dates themselves.
void SortTableAgainstDates(benchmark::State& state)
{
    SortTableAgainstKeys<QDateTime>(state, [](const Venue& venue) { return venue.GetEditDate(); });
}
BENCHMARK(SortTableAgainstDates)->Arg(100000)->Iterations(15)->UseManualTime();

/// Plain numbers, which no sort that has to ask Qt's proxy can reach.
void SortTableAgainstNumbers(benchmark::State& state)
{
    SortTableAgainstKeys<qint64>(state,
                                 [](const Venue& venue) { return venue.GetEditDate().toMSecsSinceEpoch(); });
}
BENCHMARK(SortTableAgainstNumbers)->Arg(100000)->Iterations(15)->UseManualTime();

/// The venues, with \p countryCount countries in turn; 0: with those that they have.
QList<Venue> WithCountries(QList<Venue> venues, qsizetype countryCount)
{
    if (countryCount == 0)
        return venues;
    const QStringList countries = CountryCodeTranslator().GetCountryList().first(countryCount);
    for (qsizetype i = 0; i < venues.size(); ++i)
        venues[i].SetCountry(countries.at(i % countryCount));
    return venues;
}

/// The country list after a search, against reading the reply that it is made of.
void CountryList(benchmark::State& state)
{
    korvel::Test::ConnectorStub connector;
    connector.venues = WithCountries(Venues(state.range(0)), state.range(1));
    VenueDbCentralWidget widget;
    widget.SetConnector(&connector);
    const CountryCodeTranslator countries;
    const QByteArray& body = Body(state.range(0));
    Comparison(state).Run([&]() { widget.UpdateCountryComboBox(); },
                          [&]() { return VenueReader(countries).ReadBody(body); });
}
BENCHMARK(CountryList)->Args({100000, 0})->Args({100000, 60})->Iterations(21)->UseManualTime();

} // namespace
