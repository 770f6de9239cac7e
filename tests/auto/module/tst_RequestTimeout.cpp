#include <data/ConnectorJsonRest.h>

#include <tests/support/Fixture.h>
#include <tests/support/ServerTest.h>

#include <QElapsedTimer>
#include <QNetworkReply>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using korvel::Demo::Fault;

namespace {

using Step = std::function<void(ConnectorJsonRest&)>;

/// Runs \p steps inside each other, so that all of them wait at the same time, each with a connector of its
/// own. Appends to \p times how long each took, in milliseconds.
void RunInsideEachOther(QList<Step> steps, QList<qint64>& times)
{
    if (steps.isEmpty())
        return;
    const Step step = steps.takeFirst();
    QTimer::singleShot(0, QCoreApplication::instance(),
                       [steps, &times]() { RunInsideEachOther(steps, times); });
    ConnectorJsonRest connector(nullptr);
    QElapsedTimer timer;
    timer.start();
    step(connector);
    times.append(timer.elapsed());
    for (const QNetworkReply* reply : connector.findChildren<QNetworkReply*>())
        QVERIFY(reply->isFinished());
}

QJsonArray Files(const QByteArrayList& paths)
{
    QByteArrayList elements;
    for (const QByteArray& path : paths)
        elements.append(R"({"type": "file", "attributes": {"url": ")" + path + R"("}})");
    return Included(elements.join(','));
}

} // namespace

/// Waits as long as the module really does, inside each other. What one query alone makes of a silent server
/// stands in tst_FaultMatrixTimeouts.
class tst_RequestTimeout : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void EveryWaitEndsAfterThirtySecondsAndListsGoOn()
    {
        m_server->Withhold(u"/api/venue"_s);
        m_server->Withhold(u"/silent"_s);
        m_server->Answer(u"/good"_s, "bytes", "image/png");

        ResultStatus status = Ok;
        QList<Venue> venues;
        QList<Picture> pictures;
        QList<TsFile> files;
        QList<qint64> times;
        RunInsideEachOther(
            {[&](ConnectorJsonRest& connector) { status = connector.FindVenueEntries({}, venues); },
             [&](ConnectorJsonRest& connector) {
                 pictures
                     = connector.ProcessPictureEntriesReply(Files({"/silent/picture", "/good/picture"}), 7);
             },
             [&](ConnectorJsonRest& connector) {
                 files = connector.ProcessTSFileEntriesReply(Files({"/silent/file", "/good/file"}), 7);
             }},
            times);

        QCOMPARE(times.size(), 3);
        for (const qint64 time : times) {
            // Not a millisecond early; late only by what the others take to end.
            QVERIFY2(time >= 30'000 && time < 45'000, qPrintable(QString::number(time)));
        }
        QCOMPARE(status, Timeout);
        // One file that does not come is listed without its bytes, and the others come after it.
        QCOMPARE(pictures.size(), 2);
        QCOMPARE(pictures.at(0).GetPictureDataSmall(), QByteArray());
        QCOMPARE(pictures.at(1).GetPictureDataSmall(), QByteArray("bytes"));
        QCOMPARE(files.size(), 2);
        QCOMPARE(files.at(0).GetFileData(), QByteArray());
        QCOMPARE(files.at(1).GetFileData(), QByteArray("bytes"));

        // The search is silent: its failure is shown to the user. The others report once each.
        QStringList found = VdbMessages::Take();
        found.sort();
        const QString noReply = u" - no HTTP status - no reply within 30000 ms"_s;
        QCOMPARE(found,
                 QStringList({u"Model file download failed: "_s + m_host + u"/silent/file"_s + noReply,
                              u"Picture download failed: "_s + m_host + u"/silent/picture"_s + noReply}));
    }
};

QTEST_GUILESS_MAIN(tst_RequestTimeout)
#include "tst_RequestTimeout.moc"
