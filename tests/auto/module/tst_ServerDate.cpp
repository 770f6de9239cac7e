#include <data/ConnectorJsonRest.h>
#include <fuzz/ReaderComparison.h>

#include <tests/support/QtVersion.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QCalendar>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include <ctime>

using namespace Qt::StringLiterals;

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;

namespace {

/// The definition: what Qt's parser makes of the text.
QDate ParsedDate(const QString& text)
{
    return QDate::fromString(text, u"yyyy-MM-dd"_s, QCalendar());
}

QDateTime ParsedDateTime(const QString& text)
{
    return QDateTime::fromString(text, u"yyyy-MM-ddThh:mm:ss+00:00"_s, QCalendar());
}

/// A reply with a venue for each of \p texts, which is both dates of it.
QJsonObject Document(const QStringList& texts)
{
    QJsonArray data;
    // The connector lists venues in the reverse order.
    for (auto text = texts.crbegin(); text != texts.crend(); ++text) {
        data.append(
            QJsonObject{{u"attributes"_s, QJsonObject{{u"created"_s, *text}, {u"changed"_s, *text}}}});
    }
    return {{u"data"_s, data}};
}

/// What the connector makes of \p texts, in their order.
QList<Venue> Read(const QStringList& texts)
{
    static const ConnectorJsonRest connector;
    return connector.ProcessVenueEntriesReply(Document(texts));
}

/// Where dates that are read from the bytes of a reply differ from these; empty for none.
QString DifferenceInBytes(const QStringList& texts)
{
    return korvel::Fuzz::ReaderDifference(QJsonDocument(Document(texts)).toJson());
}

/// Equal in everything that can be seen, the repeated hour of a time zone included, where == may say no.
bool AreAlike(const QDateTime& left, const QDateTime& right)
{
    return left.isValid() == right.isValid() && left.isNull() == right.isNull() && left.date() == right.date()
        && left.time() == right.time() && left.timeSpec() == right.timeSpec();
}

} // namespace

/// Runs in a time zone whose clocks skip and repeat an hour a year.
class tst_ServerDate : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TZ", "Europe/Berlin");
        tzset();
        // 02:00 to 03:00 is skipped on this day; without it the gap rows would test nothing.
        const QDateTime skipped(QDate(2024, 3, 31), QTime(2, 30));
        QCOMPARE(skipped.isValid(), c_movesSkippedTimes);
        QCOMPARE(skipped.time(), c_movesSkippedTimes ? QTime(3, 30) : QTime(2, 30));
    }

    void ReadsAsQtParses_data()
    {
        const Rows<QString> row("text");
        const QString texts
            = u"2024-03-01|2024-02-30|2024-2-3|24-03-01|0000-01-01|0001-01-01|9999-12-31|| 2024-03-01|"
              "2024-03-01 |2024/03/01|-024-03-01|+024-03-01|2024-03-01T10:20:30+00:00|2024-03-01T10:20:30Z|"
              "2024-03-01T10:20:30+01:00|2024-03-01T10:20:30|2024-03-01 10:20:30+00:00|"
              "2024-03-01T24:00:00+00:00|2024-03-01T10:60:30+00:00|2024-03-01T10:20:60+00:00|"
              "2024-03-31T02:30:00+00:00|2024-10-27T02:30:00+00:00|2024-03-01T10:20:30+00:00 |"
              "0000-00-00T00:00:00+00:00|2023-02-29T10:20:30+00:00|2024-02-29T10:20:30+00:00|"
              "2024-03-01t10:20:30+00:00|2024-03-01T1:2:3+00:00|1900-01-01T00:00:00+00:00|"
              "2400-12-31T23:59:59+00:00|2023-02-29|2024-02-30T10:20:30+00:00|2024-03-01T24:20:30+00:00"_s;
        for (const QString& text : texts.split(u'|'))
            row(text.isEmpty() ? "empty"_ba : text.toLatin1(), text);
        row("digits of another script", u"\u0662\u0660\u0662\u0664-03-01"_s);
    }
    void ReadsAsQtParses()
    {
        QFETCH(QString, text);
        const Venue venue = Read({text}).first();
        QCOMPARE(venue.GetUploadDate(), ParsedDate(text));
        QVERIFY(AreAlike(venue.GetEditDate(), ParsedDateTime(text)));
        QCOMPARE(DifferenceInBytes({text}), QString());
    }

    void ReadsEveryHourOfManyYearsAsQtParses()
    {
        // Every 7 hours from 1995 to 2037: passes every gap and every repeated hour in turn.
        QStringList texts;
        for (QDateTime moment = QDateTime::fromString(u"1995-01-01T00:00:00Z"_s, Qt::ISODate);
             moment.date().year() < 2037; moment = moment.addSecs(7 * 3600 + 60))
            texts.append(moment.toString(u"yyyy-MM-ddThh:mm:ss"_s) + u"+00:00"_s);
        QVERIFY(texts.size() > 50000);
        ExpectAsParsed(texts);
    }

    void ReadsRandomDamageAsQtParses()
    {
        QRandomGenerator random(1);
        const QString characters = u"0123456789-T:+ Z."_s;
        QStringList texts;
        for (int round = 0; round < 20000; ++round) {
            QString text = u"2024-03-01T10:20:30+00:00"_s;
            if (round % 2)
                text.truncate(10);
            for (int changes = random.bounded(1, 4); changes > 0; --changes)
                text[random.bounded(text.size())] = characters.at(random.bounded(characters.size()));
            texts.append(text);
        }
        ExpectAsParsed(texts);
    }

private:
    static void ExpectAsParsed(const QStringList& texts)
    {
        const QList<Venue> venues = Read(texts);
        QCOMPARE(venues.size(), texts.size());
        for (qsizetype index = 0; index < texts.size(); ++index) {
            const QString& text = texts.at(index);
            if (venues.at(index).GetUploadDate() != ParsedDate(text)
                || !AreAlike(venues.at(index).GetEditDate(), ParsedDateTime(text)))
                QFAIL(qPrintable(text));
        }
        QCOMPARE(DifferenceInBytes(texts), QString());
    }
};

QTEST_GUILESS_MAIN(tst_ServerDate)
#include "tst_ServerDate.moc"
