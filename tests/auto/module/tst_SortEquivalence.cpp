#include <tests/support/LiteralTable.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueTableModel.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QComboBox>
#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QTimeZone>

#include <array>
#include <ctime>
#include <limits>

using namespace Qt::StringLiterals;
using namespace korvel::Bench;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;
using korvel::Data::VenueDatabase::Venue;

namespace {

using OurProxy = VenueDbCentralWidget::VenueSortFilterProxyModel;

constexpr int c_columnCount = 6;

/// Sets the time zone of the process and restores it.
class TimeZoneOverride
{
public:
    explicit TimeZoneOverride(const QByteArray& zone)
        : m_previous(qgetenv("TZ"))
        , m_wasSet(qEnvironmentVariableIsSet("TZ"))
    {
        Set(!zone.isEmpty(), zone);
    }
    ~TimeZoneOverride()
    {
        Set(m_wasSet, m_previous);
    }
    Q_DISABLE_COPY_MOVE(TimeZoneOverride)

private:
    static void Set(bool isSet, const QByteArray& zone)
    {
        if (isSet)
            qputenv("TZ", zone);
        else
            qunsetenv("TZ");
        tzset();
    }

    QByteArray m_previous;
    bool m_wasSet = false;
};

QStringList OddTexts()
{
    const QString texts
        = u" |Arena|arena|Älvsjö|Zürich|10 Downing Street|2024|2024-3-1|2024-03-0|2024-03-01| 2024-03-01|"
          "2024-03-01 |2024-03-01x|2024-03-012|2024-03-01T|2024-03-01T10:30|2024-03-01T10:30:00|"
          "2024-03-01 10:30:00|2024-03-01T10:30:00.250|2024-03-01T10:30:00Z|2024-03-01T10:30:00+05:30|"
          "2024-03-01T10:30:00-1100|2024-03-01T24:00:00|2024-03-01T25:00:00|2024-02-30|2024-13-01|"
          "0000-01-01|0001-01-01|9999-12-31|2024/03/01|2024.03.01|2024_03_01|2024+03+01|20240301T10|"
          "+024-03-01|2024-+3-+1|2024-03- 1|2024-03-1 |2024-03-1-|2024-W09-5|٢٠٢٤-٠٣-٠١|2024-03-0١|"
          "2024–03–01|2024-03-01T02:30:00|2024-03-31T02:30:00|2024-10-27T03:30:00|2011-12-30T12:00:00|"
          "https://example.test/2024-03-01"_s;
    return QStringList{QString(), ""_L1} + texts.split(u'|');
}

QList<QDateTime> OddDates()
{
    const auto moment
        = [](const char* text) { return QDateTime::fromString(QLatin1String(text), Qt::ISODate); };
    return {
        QDateTime(),
        QDateTime(QDate(), QTime(10, 0)),
        QDateTime(QDate(2024, 3, 1), QTime(10, 30)),
        moment("2024-03-01T10:30:00Z"),
        moment("2024-03-01T10:30:00+14:00"),
        moment("2024-03-02T00:30:00-12:00"),
        moment("2024-03-04T00:00:00Z"),
        moment("2024-03-05T00:00:00Z"),
        // Around the hours that zones skip and repeat, and a day that one zone skipped.
        QDateTime(QDate(2024, 3, 31), QTime(2, 30)),
        QDateTime(QDate(2024, 10, 27), QTime(3, 0)),
        QDateTime(QDate(2024, 10, 27), QTime(1, 59)),
        moment("2024-10-27T00:59:00Z"),
        QDateTime(QDate(2011, 12, 29), QTime(23, 59)),
        QDateTime(QDate(2011, 12, 30), QTime(12, 0)),
        QDateTime(QDate(2011, 12, 31), QTime(0, 0)),
        QDateTime(QDate(1, 1, 1), QTime(0, 0)),
        QDateTime(QDate(-4713, 1, 1), QTime(0, 0)),
        QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59)),
        QDateTime(QDate(300000, 1, 1), QTime(0, 0)),
        QDateTime(QDate(2024, 3, 1), QTime(10, 30), QTimeZone("America/St_Johns")),
    };
}

template <typename Values> auto Pick(QRandomGenerator& random, const Values& values)
{
    return values.at(random.bounded(int(values.size())));
}

/// Mostly one of the odd texts, else one that looks like a date with random characters in it.
QString RandomText(QRandomGenerator& random, const QStringList& texts)
{
    if (random.bounded(4) > 0)
        return Pick(random, texts);
    QString text = u"20%1-0%2-1%3T1%4:00:00"_s.arg(random.bounded(10, 30))
                       .arg(random.bounded(10))
                       .arg(random.bounded(10))
                       .arg(random.bounded(10));
    const QString characters = u"0129-+/:.,T Zxé٣"_s;
    for (int i = random.bounded(3); i > 0; --i)
        text[random.bounded(int(text.size()))] = Pick(random, characters);
    return text.left(random.bounded(int(text.size()) + 1));
}

QDateTime RandomDate(QRandomGenerator& random, const QList<QDateTime>& dates)
{
    if (random.bounded(3) == 0)
        return Pick(random, dates);
    // Few days, so that the times of day decide, and around the change of the clocks. The hour that comes
    // twice is left out: which of the two the C library takes depends on what it was asked before, so that
    // one pair compares this way now and that way then, literally too.
    constexpr std::array c_hours{0, 1, 3, 4};
    return QDateTime(QDate(2024, 10, 24).addDays(random.bounded(6)),
                     QTime(c_hours.at(random.bounded(4U)), random.bounded(60)));
}

QList<Venue> RandomVenues(quint32 seed, int count)
{
    QRandomGenerator random(seed);
    const QStringList texts = OddTexts();
    const QList<QDateTime> dates = OddDates();
    const QList<qint64> ids{-1,
                            0,
                            7,
                            10,
                            9,
                            100,
                            2147483648,
                            -20,
                            std::numeric_limits<qint64>::max(),
                            std::numeric_limits<qint64>::min()};
    QList<Venue> venues;
    for (int i = 0; i < count; ++i) {
        Venue venue;
        venue.SetId(random.bounded(3) == 0 ? Pick(random, ids) : random.bounded(1000));
        venue.SetComplexName(RandomText(random, texts));
        venue.SetVenueRoomName(RandomText(random, texts));
        venue.SetCity(RandomText(random, texts));
        venue.SetCountry(RandomText(random, texts));
        venue.SetEditDate(RandomDate(random, dates));
        venue.SetMinimizedElementCount(random.bounded(2) == 0);
        venues.append(venue);
    }
    return venues;
}

QList<int> SourceRows(const QSortFilterProxyModel& proxy)
{
    QList<int> rows;
    for (int row = 0; row < proxy.rowCount(); ++row)
        rows.append(proxy.mapToSource(proxy.index(row, 0)).row());
    return rows;
}

} // namespace

// The module's sort order against the same order written down literally: whatever shortcuts it takes, no row
// may end up elsewhere.
class tst_SortEquivalence : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EveryComparisonAgrees_data()
    {
        AddZones();
    }
    void EveryComparisonAgrees()
    {
        QFETCH(QByteArray, zone);
        const TimeZoneOverride timeZone(zone);
        QList<Venue> venues;
        const QStringList texts = OddTexts();
        const QList<QDateTime> dates = OddDates();
        for (int i = 0; i < texts.size(); ++i) {
            Venue venue;
            venue.SetId(i % 2 == 0 ? i * 37 : -i);
            venue.SetComplexName(texts.at(i));
            venue.SetVenueRoomName(texts.at((i + 7) % texts.size()));
            venue.SetCity(texts.at((i + 11) % texts.size()));
            venue.SetCountry(texts.at((i + 13) % texts.size()));
            venue.SetEditDate(dates.at(i % dates.size()));
            venues.append(venue);
        }
        venues.append(RandomVenues(1, 60));

        VenueTableModel ourModel;
        OurProxy ours;
        ours.setSourceModel(&ourModel);
        ourModel.SetVenueData(venues);
        LiteralTableModel literalModel;
        LiteralSortProxy literal;
        literal.setSourceModel(&literalModel);
        literalModel.SetVenueData(venues);

        for (int column = 0; column < c_columnCount; ++column) {
            for (int left = 0; left < venues.size(); ++left) {
                for (int right = 0; right < venues.size(); ++right) {
                    const bool isLess
                        = ours.lessThan(ourModel.index(left, column), ourModel.index(right, column));
                    const bool isLiterallyLess = literal.lessThan(literalModel.index(left, column),
                                                                  literalModel.index(right, column));
                    if (isLess != isLiterallyLess) {
                        QFAIL(qPrintable(u"column %1: \"%2\" and \"%3\""_s.arg(column).arg(
                            literalModel.index(left, column).data().toString(),
                            literalModel.index(right, column).data().toString())));
                    }
                }
            }
        }
    }

    void RepeatedSortsGiveTheSameRows_data()
    {
        AddZones();
    }
    void RepeatedSortsGiveTheSameRows()
    {
        QFETCH(QByteArray, zone);
        const TimeZoneOverride timeZone(zone);
        for (quint32 seed = 1; seed <= 8; ++seed) {
            VenueTableModel ourModel;
            OurProxy ours;
            LiteralTableModel literalModel;
            LiteralSortProxy literal;
            ours.setSourceModel(&ourModel);
            literal.setSourceModel(&literalModel);
            QRandomGenerator random(seed);
            for (int step = 0; step < 20; ++step) {
                // Every now and then a new search; the sort stays, as in the table.
                if (step % 7 == 0) {
                    const QList<Venue> venues = RandomVenues(seed * 100 + quint32(step), 150);
                    ourModel.SetVenueData(venues);
                    literalModel.SetVenueData(venues);
                }
                const int column = random.bounded(-1, c_columnCount);
                const Qt::SortOrder order = random.bounded(2) == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
                ours.sort(column, order);
                literal.sort(column, order);
                QCOMPARE(SourceRows(ours), SourceRows(literal));
            }
        }
    }

    // Everything that is not the module's own model is read through data(), date or not.
    void OtherModelsAreSortedTheSame()
    {
        QStandardItemModel model;
        QRandomGenerator random(5);
        const QStringList texts = OddTexts();
        const QList<QDateTime> dates = OddDates();
        for (int row = 0; row < 120; ++row) {
            auto* text = new QStandardItem(RandomText(random, texts));
            auto* date = new QStandardItem;
            date->setData(RandomDate(random, dates), Qt::DisplayRole);
            auto* number = new QStandardItem;
            number->setData(random.bounded(50), Qt::DisplayRole);
            auto* mixed = new QStandardItem;
            mixed->setData(row % 2 == 0 ? QVariant(RandomDate(random, dates)) : QVariant(row),
                           Qt::DisplayRole);
            model.appendRow({text, date, number, mixed});
        }
        OurProxy ours;
        LiteralSortProxy literal;
        ours.setSourceModel(&model);
        literal.setSourceModel(&model);
        for (int column = 0; column < model.columnCount(); ++column) {
            for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
                ours.sort(column, order);
                literal.sort(column, order);
                QCOMPARE(SourceRows(ours), SourceRows(literal));
            }
        }
    }

    void CountryListIsTheLiteralOne()
    {
        const QStringList countries{u"Germany"_s, u"germany"_s,       u"GERMANY"_s,      u"France"_s,
                                    u"france"_s,  u"unknown"_s,       u"Österreich"_s,   QString(),
                                    ""_L1,        u"Aland Islands"_s, u"aLAND islands"_s};
        for (quint32 seed = 1; seed <= 20; ++seed) {
            QRandomGenerator random(seed);
            ConnectorStub connector;
            for (int i = 0; i < 60; ++i) {
                Venue venue;
                venue.SetCountry(Pick(random, countries));
                connector.venues.append(venue);
            }
            VenueDbCentralWidget widget;
            widget.SetConnector(&connector);
            widget.UpdateCountryComboBox();
            const auto* comboBox = widget.findChild<QComboBox*>();
            QStringList shown;
            for (int i = 0; i < comboBox->count(); ++i)
                shown.append(comboBox->itemText(i));
            QCOMPARE(shown, QStringList(u"--"_s) + LiteralCountries(connector.venues));
        }
    }

private:
    static void AddZones()
    {
        const Rows<QByteArray> row("zone");
        row("UTC", "UTC");
        row("Berlin", "Europe/Berlin");
        row("a zone that skipped a day", "Pacific/Apia");
        row("a zone with a clock change of half an hour", "Australia/Lord_Howe");
        row("no zone set", {});
    }
};

QTEST_MAIN(tst_SortEquivalence)
#include "tst_SortEquivalence.moc"
