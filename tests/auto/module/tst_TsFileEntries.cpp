#include <data/ConnectorJsonRest.h>

#include <tests/support/Fixture.h>
#include <tests/support/MessageGuard.h>
#include <tests/support/ScriptedServer.h>
#include <tests/support/VdbMessages.h>

#include <QElapsedTimer>
#include <QJsonArray>
#include <QNetworkReply>
#include <QTest>
#include <QTimer>

#include <functional>
#include <limits>
#include <memory>

using namespace korvel::Data::VenueDatabase;
using namespace Qt::Literals::StringLiterals;
using korvel::Demo::Fault;
using korvel::Demo::RequestLog;
using korvel::Test::Fixture;
using korvel::Test::FixtureObject;
using korvel::Test::JsonObject;
using korvel::Test::ScriptedServer;
using korvel::Test::VdbMessages;

using Script = std::function<void(ScriptedServer&)>;

Q_DECLARE_METATYPE(Script)

namespace {

constexpr const char* c_jsonApi = "application/vnd.api+json";
const QByteArray c_bytes("\0model\r\n\xff", 9);

QJsonArray Included(const QByteArray& elements)
{
    return JsonObject(R"({"included": [)" + elements + "]}").value("included"_L1).toArray();
}

QByteArray ModelElement(const QByteArray& fileId, const QByteArray& name)
{
    return R"({"type": "tessra", "attributes": {"name": ")" + name
        + R"("}, "relationships": {"file": {"data": {"id": ")" + fileId + R"("}}}})";
}

QByteArray FileElement(const QByteArray& id)
{
    return R"({"type": "file", "id": ")" + id + R"(", "attributes": {"url": "/files/)" + id + R"("}})";
}

QStringList Names(const QList<TsFile>& files)
{
    QStringList names;
    for (const TsFile& file : files)
        names.append(file.GetFileName());
    return names;
}

} // namespace

class tst_TsFileEntries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_server = std::make_unique<ScriptedServer>();
        m_host = m_server->Server().Host();
    }
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
        m_messages = std::make_unique<VdbMessages>();
        m_server->Reset();
        m_connector = std::make_unique<ConnectorJsonRest>(nullptr);
    }
    void cleanup()
    {
        m_connector.reset();
        // Tests that expect messages take them.
        QCOMPARE(m_messages->Take(), QStringList());
        m_messages.reset();
    }
    void cleanupTestCase()
    {
        m_server.reset();
    }

    // The list query.

    void QueryOnTheWire_data()
    {
        QTest::addColumn<qint64>("venueId");
        QTest::newRow("ordinary") << 4711LL;
        QTest::newRow("zero") << 0LL;
        QTest::newRow("none") << -1LL;
        QTest::newRow("64 bits") << std::numeric_limits<qint64>::max();
    }
    void QueryOnTheWire()
    {
        QFETCH(qint64, venueId);
        m_server->AnswerJsonApi(u"/api/venue"_s, R"({"included": []})");
        QCOMPARE(m_connector->GetTSFileEntries(venueId).size(), 0);
        QCOMPARE(m_server->Targets(),
                 QStringList{u"/api/venue?include=tessra.file&filter[entity_id]=%1"_s.arg(venueId)});
    }

    void WholeQueryOverTheNetwork()
    {
        m_server->AnswerJsonApi(u"/api/venue"_s, Fixture(u"model-files.json"_s));
        m_server->Answer(u"/files/hall.tessra"_s, c_bytes, "application/octet-stream");
        m_server->Answer(u"/files/stage.tessra"_s, "stage", "text/html");
        m_connector->SetServerAddress(u"https://second.example"_s);
        const QList<TsFile> files = m_connector->GetTSFileEntries(7);
        QCOMPARE(Names(files), QStringList({u"stage.tessra"_s, u"hall.tessra"_s}));

        const TsFile& hall = files.at(1);
        QCOMPARE(hall.GetId(), 7);
        QCOMPARE(hall.GetUploadDate(), u"2023-02-01T10:20:30+00:00"_s);
        QCOMPARE(hall.GetTsVersion(), u"2.1"_s);
        QCOMPARE(hall.GetFileData(), c_bytes);
        QCOMPARE(hall.GetTempPath(), QString());
        // No media type is asked of the contents.
        QCOMPARE(files.at(0).GetFileData(), QByteArray("stage"));

        QCOMPARE(m_server->Targets().mid(1),
                 QStringList({u"/files/stage.tessra"_s, u"/files/hall.tessra"_s}));
        for (const auto& request : m_server->Log().Requests())
            QCOMPARE(request.host, m_host);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(m_connector->findChildren<QNetworkReply*>().size(), 0);
    }

    void FailedQueryIsEmptyAndLoggedOnce_data()
    {
        QTest::addColumn<Script>("script");
        QTest::addColumn<QString>("message");
        const QString path = u"/api/venue"_s;
        const QByteArray reply = R"({"included": [{"type": "file"}]})";
        const auto answer
            = [path](const QByteArray& body, const QByteArray& type = c_jsonApi, int status = 200) {
                  return Script([=](ScriptedServer& server) { server.Answer(path, body, type, status); });
              };
        const QString notJsonApi = u"HTTP status 200 - the reply is not JSON:API but .+"_s;
        const QString notJson = u"HTTP status 200 - the reply is no JSON object"_s;
        QTest::newRow("media type with a charset")
            << answer(reply, "application/vnd.api+json; charset=utf-8") << notJsonApi;
        QTest::newRow("plain JSON") << answer(reply, "application/json") << notJsonApi;
        QTest::newRow("no media type") << Script([=](ScriptedServer& server) {
            server.AddFault(Fault::On(path).WithBody(reply).WithoutMediaType());
        }) << notJsonApi;
        QTest::newRow("not JSON") << answer("<html>") << notJson;
        QTest::newRow("empty body") << answer({}) << notJson;
        QTest::newRow("not found with the right media type")
            << answer(reply, c_jsonApi, 404) << u"HTTP status 404 - .+"_s;
        QTest::newRow("server error in HTML")
            << answer("<html>", "text/html", 500) << u"HTTP status 500 - .+"_s;
        QTest::newRow("cut in the body") << Script([=](ScriptedServer& server) {
            server.AddFault(Fault::On(path).WithBody(reply + QByteArray(20'000, ' ')).WithCutAfter(10'000));
        }) << u"HTTP status 200 - .+"_s;
        QTest::newRow("server down") << Script([](ScriptedServer& server) { server.Server().Stop(); })
                                     << u"no HTTP status - .+"_s;
    }
    void FailedQueryIsEmptyAndLoggedOnce()
    {
        QFETCH(Script, script);
        QFETCH(QString, message);
        script(*m_server);
        QCOMPARE(m_connector->GetTSFileEntries(7).size(), 0);
        VdbMessages::Verify({u"Model file query failed: "_s + m_host + u"/api/venue - "_s + message});
        QVERIFY(m_server->Log().RequestCount() <= 1);
    }

    void QueryWithoutFilesIsNoFailure_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::newRow("no included") << QByteArray(R"({"data": []})");
        QTest::newRow("empty included") << QByteArray(R"({"included": []})");
        QTest::newRow("only pictures")
            << QByteArray(R"({"included": [{"type": "picture", "attributes": {"name": "x"}}]})");
        QTest::newRow("included is an object") << QByteArray(R"({"included": {"type": "file"}})");
        QTest::newRow("empty document") << QByteArray("{}");
    }
    void QueryWithoutFilesIsNoFailure()
    {
        QFETCH(QByteArray, reply);
        m_server->AnswerJsonApi(u"/api/venue"_s, reply);
        QCOMPARE(m_connector->GetTSFileEntries(7).size(), 0);
        QCOMPARE(m_server->Log().RequestCount(), 1);
    }

    // The "included" array.

    void ModelsMeetTheirFiles_data()
    {
        QTest::addColumn<QByteArray>("elements");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QList<qint64>>("ids");
        const QByteArray fileA = FileElement("a");
        const QByteArray fileB = FileElement("b");
        const auto row
            = [](const char* name, const QByteArrayList& elements, const QStringList& names,
                 const QList<qint64>& ids) { QTest::newRow(name) << elements.join(',') << names << ids; };
        row("nothing", {}, {}, {});
        row("model before its file", {ModelElement("a", "A"), fileA}, {u"A"_s}, {7});
        row("model behind its file", {fileA, ModelElement("a", "A")}, {u"A"_s}, {7});
        row("order of the files", {ModelElement("b", "B"), ModelElement("a", "A"), fileA, fileB},
            {u"A"_s, u"B"_s}, {7, 7});
        row("file without model", {fileA}, {QString()}, {-1});
        row("model without file", {ModelElement("a", "A")}, {}, {});
        row("later model of one file wins", {ModelElement("a", "first"), ModelElement("a", "second"), fileA},
            {u"second"_s}, {7});
        row("one file twice", {ModelElement("a", "A"), fileA, fileA}, {u"A"_s, u"A"_s}, {7, 7});
        row("other types are skipped",
            {R"({"type": "picture", "relationships": {"file": {"data": {"id": "a"}}}, "attributes": {"name": "x"}})",
             R"({"type": "venue", "id": "a"})", ModelElement("a", "A"), fileA},
            {u"A"_s}, {7});
        row("types are case-sensitive",
            {R"({"type": "File", "id": "a"})",
             R"({"type": "Tessra", "attributes": {"name": "x"}, "relationships": {"file": {"data": {"id": "a"}}}})",
             fileA},
            {QString()}, {-1});
        row("rubbish is skipped", {"null", "1", R"("file")", R"([{"type": "file"}])", fileA}, {QString()},
            {-1});
        row("missing ids meet each other",
            {R"({"type": "tessra", "attributes": {"name": "A"}})",
             R"({"type": "file", "attributes": {"url": "/files/x"}})"},
            {u"A"_s}, {7});
    }
    void ModelsMeetTheirFiles()
    {
        QFETCH(QByteArray, elements);
        QFETCH(QStringList, names);
        QFETCH(QList<qint64>, ids);
        m_server->Answer(u"/files/"_s, "model", "application/octet-stream");
        const QList<TsFile> files = m_connector->ProcessTSFileEntriesReply(Included(elements), 7);
        QCOMPARE(Names(files), names);
        QList<qint64> foundIds;
        for (const TsFile& file : files) {
            foundIds.append(file.GetId());
            QCOMPARE(file.GetFileData(), QByteArray("model"));
        }
        QCOMPARE(foundIds, ids);
        QCOMPARE(m_server->Log().RequestCount(), names.size());
    }

    void FileWithoutModelStillHasItsBytes()
    {
        m_server->Answer(u"/files/a"_s, c_bytes, "application/octet-stream");
        const QList<TsFile> files = m_connector->ProcessTSFileEntriesReply(Included(FileElement("a")), 7);
        QCOMPARE(files.size(), 1);
        QCOMPARE(files.first().GetFileName(), QString());
        QCOMPARE(files.first().GetUploadDate(), QString());
        QCOMPARE(files.first().GetTsVersion(), QString());
        QCOMPARE(files.first().GetFileData(), c_bytes);
    }

    void TextsOfAnotherTypeAreEmpty()
    {
        m_server->Answer(u"/files/a"_s, c_bytes, "application/octet-stream");
        const QList<TsFile> files = m_connector->ProcessTSFileEntriesReply(
            Included(R"({"type": "tessra", "attributes": {"name": 1, "created": ["x"], "file_version": 2.1},)"
                     R"("relationships": {"file": {"data": {"id": "a"}}}},)"
                     + FileElement("a")),
            7);
        QCOMPARE(files.size(), 1);
        QCOMPARE(files.first().GetId(), 7);
        QCOMPARE(files.first().GetFileName(), QString());
        QCOMPARE(files.first().GetUploadDate(), QString());
        QCOMPARE(files.first().GetTsVersion(), QString());
    }

    void PathOfTheContents_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("target");
        QTest::newRow("ordinary") << u"/files/hall.tessra"_s << QByteArray("/files/hall.tessra");
        QTest::newRow("backslashes are removed")
            << u"\\/files\\/ha\\\\ll.tessra"_s << QByteArray("/files/hall.tessra");
        QTest::newRow("blank and accent")
            << u"/files/gro\u00df a.tessra"_s << QByteArray("/files/gro%C3%9F%20a.tessra");
        QTest::newRow("triplet") << u"/files/a%20b"_s << QByteArray("/files/a%20b");
        QTest::newRow("question mark and hash belong to the path")
            << u"/files/a?b#c"_s << QByteArray("/files/a%3Fb%23c");
        // Qt folds the slashes; what counts is that it remains a path.
        QTest::newRow("host in the path") << u"//second.example/a"_s << QByteArray("/second.example/a");
        QTest::newRow("empty") << QString() << QByteArray("/");
    }
    void PathOfTheContents()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, target);
        m_server->Answer(QString(), c_bytes, "application/octet-stream");
        const QJsonArray included{QJsonObject{
            {u"type"_s, u"file"_s}, {u"id"_s, u"a"_s}, {u"attributes"_s, QJsonObject{{u"url"_s, path}}}}};
        const QList<TsFile> files = m_connector->ProcessTSFileEntriesReply(included, 7);
        QCOMPARE(files.size(), 1);
        QCOMPARE(files.first().GetFileData(), c_bytes);
        QCOMPARE(m_server->Log().RequestCount(), 1);
        QCOMPARE(m_server->Log().LastRequest().target, target);
        QCOMPARE(m_server->Log().LastRequest().host, m_host);
    }

    void PathWithoutSlashStaysOnTheFixedHost_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("relative") << u"files/a"_s;
        QTest::newRow("whole URL") << u"https://second.example/a"_s;
        QTest::newRow("file") << u"file:///etc/passwd"_s;
        QTest::newRow("port and user") << u":8080@second.example/a"_s;
    }
    void PathWithoutSlashStaysOnTheFixedHost()
    {
        QFETCH(QString, path);
        // Nothing that stands there is answered; an error page would be the file all the same.
        QVERIFY(!m_connector->GetBinaryData(path).contains("root:"));
        for (const auto& connection : m_server->Log().Connects())
            QCOMPARE(connection.host, m_host);
        VdbMessages::Verify({u"Model file download failed: "_s + m_host + u".+ - .+"_s});
    }

    // The contents.

    void WhateverComesIsTheFile_data()
    {
        QTest::addColumn<Script>("script");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message");
        const QString path = u"/files/a"_s;
        const auto answer = [path](const QByteArray& type, int status) {
            return Script([=](ScriptedServer& server) { server.Answer(path, c_bytes, type, status); });
        };
        QTest::newRow("binary") << answer("application/octet-stream", 200) << c_bytes << QString();
        QTest::newRow("HTML") << answer("text/html", 200) << c_bytes << QString();
        QTest::newRow("no media type") << Script([=](ScriptedServer& server) {
            server.AddFault(Fault::On(path).WithStatus(200).WithBody(c_bytes).WithoutMediaType());
        }) << c_bytes << QString();
        QTest::newRow("empty") << Script([=](ScriptedServer& server) {
            server.Answer(path, {}, "text/plain");
        }) << QByteArray() << QString();
        QTest::newRow("not found") << answer("text/html", 404) << c_bytes << u"HTTP status 404 - .+"_s;
        QTest::newRow("server error")
            << answer("application/octet-stream", 500) << c_bytes << u"HTTP status 500 - .+"_s;
        QTest::newRow("cut in the body") << Script([=](ScriptedServer& server) {
            server.AddFault(Fault::On(path).WithStatus(200).WithBody(c_bytes).WithCutAfter(3));
        }) << c_bytes.left(3) << u"HTTP status 200 - .+"_s;
        QTest::newRow("server down") << Script([](ScriptedServer& server) { server.Server().Stop(); })
                                     << QByteArray() << u"no HTTP status - .+"_s;
    }
    void WhateverComesIsTheFile()
    {
        QFETCH(Script, script);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        script(*m_server);
        QCOMPARE(m_connector->GetBinaryData(u"/files/a"_s), bytes);
        VdbMessages::Verify(message.isEmpty() ? QStringList()
                                              : QStringList{u"Model file download failed: "_s + m_host
                                                            + u"/files/a - "_s + message});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(m_connector->findChildren<QNetworkReply*>().size(), 0);
    }

    void LargeFileArrivesWhole()
    {
        const QByteArray large(5'000'000, 'x');
        m_server->Answer(u"/files/a"_s, large, "application/octet-stream");
        QCOMPARE(m_connector->GetBinaryData(u"/files/a"_s), large);
    }

    void OneFailedFileLeavesTheOthers()
    {
        m_server->Answer(u"/files/b"_s, "error page", "text/html", 500);
        m_server->Answer(u"/files/"_s, c_bytes, "application/octet-stream");
        const QList<TsFile> files = m_connector->ProcessTSFileEntriesReply(
            Included(FileElement("a") + "," + FileElement("b") + "," + FileElement("c")), 7);
        QCOMPARE(files.size(), 3);
        QCOMPARE(files.at(0).GetFileData(), c_bytes);
        QCOMPARE(files.at(1).GetFileData(), QByteArray("error page"));
        QCOMPARE(files.at(2).GetFileData(), c_bytes);
        VdbMessages::Verify({u"Model file download failed: .+/files/b - HTTP status 500 - .+"_s});
    }

    // Lifetimes.

    void ConnectorMayBeDeletedDuringTheWait_data()
    {
        QTest::addColumn<QString>("withheld");
        QTest::newRow("list query") << u"/api/venue"_s;
        QTest::newRow("first file") << u"/files/stage.tessra"_s;
        QTest::newRow("second file") << u"/files/hall.tessra"_s;
    }
    void ConnectorMayBeDeletedDuringTheWait()
    {
        QFETCH(QString, withheld);
        WithholdAndAnswerTheRest(withheld);
        const QObject context;
        connect(&m_server->Log(), &RequestLog::RequestReceived, &context, [this, withheld]() {
            if (m_server->Log().RequestCount(withheld) > 0)
                m_connector.reset();
        });
        QCOMPARE(m_connector->GetTSFileEntries(7).size(), 0);
        QCOMPARE(m_connector, nullptr);
    }

    void QuittingEndsTheWait_data()
    {
        ConnectorMayBeDeletedDuringTheWait_data();
    }
    void QuittingEndsTheWait()
    {
        QFETCH(QString, withheld);
        WithholdAndAnswerTheRest(withheld);
        const QObject context;
        connect(&m_server->Log(), &RequestLog::RequestReceived, &context, [this, withheld]() {
            if (m_server->Log().RequestCount(withheld) > 0)
                QCoreApplication::quit();
        });
        bool hasReturned = false;
        QTimer::singleShot(0, &context, [&]() {
            m_connector->GetTSFileEntries(7);
            hasReturned = true;
        });
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::exec();
        QVERIFY(hasReturned);
        QVERIFY(timer.elapsed() < 15'000);
    }

private:
    void WithholdAndAnswerTheRest(const QString& withheld)
    {
        m_server->Withhold(withheld);
        m_server->AnswerJsonApi(u"/api/venue"_s, Fixture(u"model-files.json"_s));
        m_server->Answer(u"/files/"_s, c_bytes, "application/octet-stream");
    }

    QString m_host;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<VdbMessages> m_messages;
    std::unique_ptr<ConnectorJsonRest> m_connector;
};

QTEST_GUILESS_MAIN(tst_TsFileEntries)
#include "tst_TsFileEntries.moc"
