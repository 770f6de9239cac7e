#include <data/DownloadManager.h>
#include <ui/PictureFullscreenDialog.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>

#include <tests/support/ErrorBoxes.h>
#include <tests/support/FairTimer.h>
#include <tests/support/FaultConnector.h>
#include <tests/support/FaultRows.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/StrictTest.h>
#include <tests/support/VdbMessages.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QLabel>
#include <QNetworkAccessManager>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Ui::VenueDatabase;
namespace Demo = korvel::Demo;
using namespace korvel::Test;

namespace {

constexpr qint64 c_timeout = 30'000;
/// A query ends at the latest half a second after its time-out.
constexpr qint64 c_longest = 30'500;
/// A timer may fire a millisecond early, and clocks are rounded down.
constexpr qint64 c_shortest = c_timeout - 10;
/// Serves as every kind of reply: one venue, one file behind /bytes.
const QByteArray c_reply = QByteArray(R"({"data": [{"attributes": {"title": "A"}}],)"
                                      R"("included": [{"type": "file", "attributes": {"url": "/bytes"},)"
                                      R"("links": {"small": {"href": "data:image\/png;base64,AAAA"}}}]})")
    + QByteArray(12'000, ' ');

/// One kind of query.
struct EntryPoint
{
    const char* name;
    bool isLater; ///< not the first request of its manager
    QString request; ///< the pattern of the one that goes wrong
    /// Runs the query and tells what is wrong with its result; empty where nothing is.
    std::function<QString(FaultConnector&, ResultStatus)> complaint;
    /// What is logged, up to the colon; empty for what the user is told of.
    QString logged;
};

QString Complaint(bool isRight, const QString& text)
{
    return isRight ? QString() : text;
}

bool IsRight(ResultStatus expected, qsizetype count)
{
    return count == (expected == Ok ? 1 : 0);
}

QString SearchComplaint(FaultConnector& connector, ResultStatus expected)
{
    connector.asksForVenues = true;
    QList<Venue> venues;
    const ResultStatus status = connector.FindVenueEntries({}, venues);
    const QStringList found = expected == Ok ? QStringList{u"A"_s} : OldNames();
    return Complaint(status == expected && connector.found.last() == found, u"status %1"_s.arg(status));
}

QString RefreshComplaint(FaultConnector& connector, ResultStatus expected)
{
    connector.asksForVenues = true;
    QList<Venue> venues;
    const ResultStatus status = connector.FindVenueEntries({{u"title"_s, u"x"_s}}, venues);
    return status == Ok ? SearchComplaint(connector, expected) : u"the first search: %1"_s.arg(status);
}

QString PictureListComplaint(FaultConnector& connector, ResultStatus expected)
{
    connector.asksForPictures = true;
    const qsizetype count = connector.GetPictureEntries(7).size();
    return Complaint(IsRight(expected, count), u"%1 pictures"_s.arg(count));
}

QString FileListComplaint(FaultConnector& connector, ResultStatus expected)
{
    connector.asksForFiles = true;
    const qsizetype count = connector.GetTSFileEntries(7).size();
    return Complaint(IsRight(expected, count), u"%1 files"_s.arg(count));
}

QString PictureBytesComplaint(FaultConnector& connector, ResultStatus expected)
{
    const QByteArray bytes = connector.GetPictureBinaryData(ScriptedServer::Url(u"/bytes"_s));
    return Complaint(bytes == (expected == Ok ? c_reply : QByteArray()), u"%1 bytes"_s.arg(bytes.size()));
}

QString FileBytesComplaint(FaultConnector& connector, ResultStatus expected)
{
    connector.asksForFiles = true;
    const QList<TsFile> files = connector.GetTSFileEntries(7);
    return Complaint(files.size() == 1
                         && files.first().GetFileData() == (expected == Ok ? c_reply : QByteArray()),
                     u"%1 files"_s.arg(files.size()));
}

QList<EntryPoint> EntryPoints()
{
    const QString query = u"^/api/venue\\?include="_s;
    return {
        {"search", false, query, SearchComplaint, {}},
        {"country refresh", true, query, RefreshComplaint, {}},
        {"picture list", false, query, PictureListComplaint, u"Picture query"_s},
        {"picture bytes", false, u"^/bytes$"_s, PictureBytesComplaint, u"Picture download"_s},
        {"model file list", false, query, FileListComplaint, u"Model file query"_s},
        {"model file bytes", true, u"^/bytes$"_s, FileBytesComplaint, u"Model file download"_s},
    };
}

/// One query that meets a fault, in a thread and with a server of its own.
class Wait : public QThread
{
public:
    Wait(const FaultRow& faultRow, const EntryPoint& entryPoint)
        : fault(faultRow)
        , entry(entryPoint)
    {
    }

    QString Name() const
    {
        return u"%1: %2"_s.arg(QLatin1String(entry.name), QString::fromLatin1(fault.name));
    }

    const FaultRow fault;
    const EntryPoint entry;
    /// What is wrong with the query's result, how many milliseconds it took, and how many of them are its
    /// own.
    QString complaint = u"was not run"_s;
    qint64 elapsed = 0;
    qint64 ownElapsed = 0;
    /// Of the same query once more, after a time-out.
    QString nextComplaint = u"was not run"_s;
    qint64 nextElapsed = 0;

protected:
    void run() override
    {
        FaultConnector connector;
        connector.Manager()->setProxy(m_server.Server().Proxy());
        const FaultTarget target{.request = QRegularExpression(entry.request),
                                 .body = c_reply,
                                 .mediaType = MediaType(),
                                 .requestsBefore = entry.isLater ? 1 : 0,
                                 .manager = connector.Manager()};
        // The request before comes on a connection of its own.
        if (entry.isLater) {
            m_server.AddFault(
                Demo::Fault::OnPattern(QRegularExpression(u"^/api/venue\\?(filter|include=tessra)"_s))
                    .WithBody(c_reply)
                    .WithMediaType(c_jsonApi)
                    .WithHeader("Connection", "close"));
        }
        fault.make(m_server, target);
        m_server.Answer(QString(), c_reply, c_jsonApi);
        FairTimer timer;
        // Each request has its time: that of a later one counts from the end of the one before.
        if (entry.isLater) {
            connect(
                connector.Manager(), &QNetworkAccessManager::finished, &connector,
                [&timer]() { timer.Restart(); }, Qt::SingleShotConnection);
        }
        complaint = entry.complaint(connector, fault.search);
        elapsed = timer.Elapsed();
        ownElapsed = timer.OwnElapsed();
        if (fault.search != Timeout)
            return;
        // The way is free again.
        m_server.Reset();
        m_server.Answer(QString(), c_reply, MediaType());
        timer.Restart();
        nextComplaint = entry.complaint(connector, Ok);
        nextElapsed = timer.Elapsed();
    }

private:
    QByteArray MediaType() const
    {
        return entry.name == "picture bytes"_ba ? "image/png" : c_jsonApi;
    }

    ScriptedServer m_server;
};

} // namespace

/// Servers that never come to an end: every query gives up after 30 seconds, and not before. All of them
/// wait at the same time, so that the whole program takes one time-out.
class tst_FaultMatrixTimeouts : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_messages = std::make_unique<VdbMessages>();
        for (const EntryPoint& entry : EntryPoints())
            for (const FaultRow& fault : EndlessFaultRows() + QList{JustInTimeRow()})
                m_waits.push_back(std::make_unique<Wait>(fault, entry));
        // One more for what the user sees.
        m_server = std::make_unique<ScriptedServer>();
        LoadWhatQtNeeds();
        m_server->Withhold(u"/api/venue"_s);

        for (const auto& wait : m_waits)
            wait->start();
        ShowViewers();
        StartSilentDownloads();
        SearchInTheDialog();
        for (const auto& wait : m_waits)
            QVERIFY2(wait->wait(60'000), qPrintable(wait->Name()));
        m_logged = m_messages->Take();
    }
    void cleanup()
    {
        // The viewers stay open from the first row to the last.
    }
    void cleanupTestCase()
    {
        QVERIFY(NoWindowIsLeft());
        QCOMPARE(m_messages->Take(), QStringList());
        m_messages.reset();
        m_downloads.reset();
        // Each has put itself in front of the one before as the application's network.
        m_silentServer.reset();
        while (!m_viewers.empty())
            m_viewers.pop_back();
        m_server.reset();
        while (!m_waits.empty())
            m_waits.pop_back();
    }

    void Query_data()
    {
        QTest::addColumn<int>("index");
        for (std::size_t index = 0; index < m_waits.size(); ++index)
            QTest::newRow(qPrintable(m_waits.at(index)->Name())) << int(index);
    }
    void Query()
    {
        QFETCH(int, index);
        const Wait& wait = *m_waits.at(std::size_t(index));
        QCOMPARE(wait.complaint, QString());
        QVERIFY2(wait.ownElapsed <= c_longest,
                 qPrintable(u"%1 of %2"_s.arg(wait.ownElapsed).arg(wait.elapsed)));
        if (wait.fault.search != Timeout)
            return;
        QVERIFY2(wait.elapsed >= c_shortest, qPrintable(QString::number(wait.elapsed)));
        // What ended this query does not end the next one.
        QCOMPARE(wait.nextComplaint, QString());
        QVERIFY2(wait.nextElapsed < c_shortest, qPrintable(QString::number(wait.nextElapsed)));
    }

    void EveryTimeoutIsLoggedOnce()
    {
        // A failed search is shown to the user instead.
        QStringList expected;
        for (const auto& wait : m_waits) {
            if (wait->fault.search == Timeout && !wait->entry.logged.isEmpty()) {
                const QString path = wait->entry.request.contains(u"bytes"_s) ? u"/bytes"_s : u"/api/venue"_s;
                const QString status = wait->fault.status == 0 ? u"no HTTP status"_s : u"HTTP status 200"_s;
                expected.append(u"%1 failed: %2%3 - %4 - no reply within 30000 ms"_s.arg(
                    wait->entry.logged, m_server->Server().Host(), path, status));
            }
        }
        expected.sort();
        m_logged.sort();
        QCOMPARE(m_logged, expected);
    }

    void DialogTellsTheUser()
    {
        QCOMPARE(m_boxes, QStringList{ErrorBoxes::ServerUnreachable()});
        QVERIFY(m_dialogElapsed >= c_shortest);
        QVERIFY2(m_dialogOwnElapsed <= c_longest,
                 qPrintable(u"%1 of %2"_s.arg(m_dialogOwnElapsed).arg(m_dialogElapsed)));
        QCOMPARE(m_statusMeanwhile, u"Loading..."_s);
        QVERIFY(m_isDialogHidden);
    }

    void ViewerWaitsOn_data()
    {
        AddFaultRows(EndlessViewerFaultRows());
    }
    void ViewerWaitsOn()
    {
        QFETCH(FaultRow, fault);
        const auto found = std::find_if(m_viewers.cbegin(), m_viewers.cend(),
                                        [&](const auto& shown) { return shown->fault.name == fault.name; });
        QVERIFY(found != m_viewers.cend());
        PictureFullscreenDialog& viewer = (*found)->viewer;
        // More than 30 seconds later.
        QCOMPARE((*found)->outcomes, 0);
        QVERIFY(viewer.isVisible());
        QCOMPARE(viewer.GetStatusLabel()->text(), u"Loading large image..."_s);
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        viewer.hide();
        // The others go on waiting, and have cursors of their own.
        const bool isLast = fault.name == EndlessViewerFaultRows().last().name;
        QCOMPARE(QGuiApplication::overrideCursor() == nullptr, isLast);
    }

    /// Qt has six connections to a host. Where six downloads wait for ever, the next one must not wait with
    /// them.
    void NextDownloadArrives()
    {
        QCOMPARE(m_silentServer->Log().RequestCount(), 6);
        QByteArray arrived;
        connect(m_downloads.get(), &DownloadManager::PictureBinaryDataFinished, this,
                [&arrived](const QUrl&, const QByteArray& buffer) { arrived = buffer; });
        m_downloads->RequestPictureBinaryData(QUrl(ScriptedServer::Url(u"/good.png"_s)));
        QTRY_COMPARE(arrived, c_reply);
        disconnect(m_downloads.get(), nullptr, this, nullptr);
    }

private:
    struct ShownViewer
    {
        FaultRow fault;
        ScriptedServer server;
        PictureFullscreenDialog viewer;
        int outcomes = 0;
    };

    /// Qt's first request loads libraries and certificates. Those that come meanwhile would wait for that.
    void LoadWhatQtNeeds()
    {
        m_server->Answer(QString(), c_reply, c_jsonApi);
        FaultConnector connector;
        QCOMPARE(SearchComplaint(connector, Ok), QString());
        m_server->Reset();
    }

    void ShowViewers()
    {
        for (const FaultRow& fault : EndlessViewerFaultRows()) {
            m_viewers.push_back(std::make_unique<ShownViewer>());
            ShownViewer& shown = *m_viewers.back();
            shown.fault = fault;
            auto* downloads = shown.viewer.findChild<DownloadManager*>();
            downloads->findChild<QNetworkAccessManager*>()->setProxy(shown.server.Server().Proxy());
            connect(downloads, &DownloadManager::PictureBinaryDataFinished, this,
                    [&shown]() { ++shown.outcomes; });
            connect(downloads, &DownloadManager::RequestFailed, this, [&shown]() { ++shown.outcomes; });
            fault.make(shown.server,
                       {.request = QRegularExpression(u"^/large\\.png$"_s),
                        .body = c_reply,
                        .mediaType = "image/png"});
            Picture picture = MakePicture(EncodedPicture(QSize(60, 40), Qt::red));
            picture.SetPictureUrlLarge(ScriptedServer::Url(u"/large.png"_s));
            // Modal windows would stand in each other's way.
            shown.viewer.setModal(false);
            OpenViewer(shown.viewer, {picture});
        }
    }

    void StartSilentDownloads()
    {
        m_silentServer = std::make_unique<ScriptedServer>();
        m_silentServer->Withhold(u"/silent"_s);
        m_silentServer->Answer(u"/good.png"_s, c_reply, "image/png");
        m_downloads = std::make_unique<DownloadManager>();
        m_downloads->findChild<QNetworkAccessManager*>()->setProxy(m_silentServer->Server().Proxy());
        for (int count = 0; count < 6; ++count)
            m_downloads->RequestPictureBinaryData(QUrl(ScriptedServer::Url(u"/silent%1.png"_s.arg(count))));
    }

    void SearchInTheDialog()
    {
        FaultConnector connector;
        connector.asksForVenues = true;
        connector.Manager()->setProxy(m_server->Server().Proxy());
        VenueDbDialog dialog;
        SearchPanel(dialog)->SetConnector(&connector);
        dialog.show();
        ErrorBoxes boxes(QMessageBox::Close);
        QTimer::singleShot(15'000, &dialog, [&]() { m_statusMeanwhile = dialog.GetStatusLabel()->text(); });
        const FairTimer timer;
        SearchPanel(dialog)->PerformQuery();
        m_boxes = boxes.shown;
        m_dialogElapsed = timer.Elapsed();
        m_dialogOwnElapsed = timer.OwnElapsed();
        m_isDialogHidden = dialog.isHidden();
    }

    std::vector<std::unique_ptr<Wait>> m_waits;
    std::vector<std::unique_ptr<ShownViewer>> m_viewers;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<ScriptedServer> m_silentServer;
    std::unique_ptr<DownloadManager> m_downloads;
    std::unique_ptr<VdbMessages> m_messages;
    QStringList m_logged;
    QStringList m_boxes;
    QString m_statusMeanwhile;
    qint64 m_dialogElapsed = 0;
    qint64 m_dialogOwnElapsed = 0;
    bool m_isDialogHidden = false;
};

QTEST_MAIN(tst_FaultMatrixTimeouts)
#include "tst_FaultMatrixTimeouts.moc"
