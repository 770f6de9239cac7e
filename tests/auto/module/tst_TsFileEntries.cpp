#include <tests/support/ConnectorTest.h>
#include <tests/support/Fixture.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

const QByteArray c_bytes("\0model\r\n\xff", 9);

QByteArray ModelElement(const QByteArray& fileId, const QByteArray& name)
{
    return R"({"type": "tessra", "attributes": {"name": ")" + name
        + R"("}, "relationships": {"file": {"data": {"id": ")" + fileId + R"("}}}})";
}

QByteArray FileElement(const QByteArray& id)
{
    return R"({"type": "file", "id": ")" + id + R"(", "attributes": {"url": "/files/)" + id + R"("}})";
}

} // namespace

class tst_TsFileEntries : public ConnectorTest
{
    Q_OBJECT

private Q_SLOTS:
    // The list query.

    // Other ids and other replies without files stand in tst_PictureEntries: both queries are made and read
    // in one way.
    void QueryThatFindsPicturesAloneIsNoFailure()
    {
        m_server->AnswerJsonApi(u"/api/venue"_s,
                                R"({"included": [{"type": "picture", "attributes": {"name": "x"}}]})");
        QCOMPARE(m_connector->GetTSFileEntries(4711).size(), 0);
        QCOMPARE(m_server->Targets(),
                 QStringList{u"/api/venue?include=tessra.file&filter[entity_id]=4711"_s});
    }

    void WholeQueryOverTheNetwork()
    {
        m_server->AnswerJsonApi(u"/api/venue"_s, Fixture(u"model-files.json"_s));
        m_server->Answer(u"/files/hall.tessra"_s, c_bytes, "application/octet-stream");
        m_server->Answer(u"/files/stage.tessra"_s, "stage", "text/html");
        m_connector->SetServerAddress(u"https://second.example"_s);
        const QList<TsFile> files = m_connector->GetTSFileEntries(7);
        QCOMPARE(NamesOf(files), QStringList({u"stage.tessra"_s, u"hall.tessra"_s}));

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
        QCOMPARE(ReplyCount(), 0);
    }

    // What else can go wrong with the query stands in the matrix.
    void OtherMediaTypeIsLoggedOnce()
    {
        m_server->Answer(u"/api/venue"_s, R"({"included": [{"type": "file"}]})", "application/json");
        QCOMPARE(m_connector->GetTSFileEntries(7).size(), 0);
        VdbMessages::Verify(
            {u"Model file query failed: "_s + m_host
             + u"/api/venue - HTTP status 200 - the reply is not JSON:API but \"application/json\""_s});
        QCOMPARE(m_server->Log().RequestCount(), 1);
    }

    // The "included" array.

    // More ways to meet and to miss stand in tst_PictureEntries: both kinds are joined in one way.
    void ModelsMeetTheirFiles_data()
    {
        const Rows<QByteArray, QStringList, QList<qint64>> joined("elements", "names", "ids");
        const QByteArray fileA = FileElement("a");
        const QByteArray fileB = FileElement("b");
        const auto row
            = [&joined](const char* name, const QByteArrayList& elements, const QStringList& names,
                        const QList<qint64>& ids) { joined(name, elements.join(','), names, ids); };
        row("order of the files", {ModelElement("b", "B"), ModelElement("a", "A"), fileA, fileB},
            {u"A"_s, u"B"_s}, {7, 7});
        row("file without model", {fileA}, {QString()}, {-1});
        row("model without file", {ModelElement("a", "A")}, {}, {});
        row("other types are skipped",
            {R"({"type": "picture", "relationships": {"file": {"data": {"id": "a"}}}, "attributes": {"name": "x"}})",
             R"({"type": "venue", "id": "a"})", ModelElement("a", "A"), fileA},
            {u"A"_s}, {7});
        row("types are case-sensitive",
            {R"({"type": "File", "id": "a"})",
             R"({"type": "Tessra", "attributes": {"name": "x"}, "relationships": {"file": {"data": {"id": "a"}}}})",
             fileA},
            {QString()}, {-1});
    }
    void ModelsMeetTheirFiles()
    {
        QFETCH(QByteArray, elements);
        QFETCH(QStringList, names);
        m_server->Answer(u"/files/"_s, "model", "application/octet-stream");
        const QList<TsFile> files = m_connector->ProcessTSFileEntriesReply(Included(elements), 7);
        QCOMPARE(NamesOf(files), names);
        QList<qint64> foundIds;
        for (const TsFile& file : files) {
            foundIds.append(file.GetId());
            QCOMPARE(file.GetFileData(), QByteArray("model"));
        }
        QTEST(foundIds, "ids");
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

    // The contents.

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
        const Rows<QString> row("withheld");
        row("list query", u"/api/venue"_s);
        row("first file", u"/files/stage.tessra"_s);
        row("second file", u"/files/hall.tessra"_s);
    }
    void ConnectorMayBeDeletedDuringTheWait()
    {
        QFETCH(QString, withheld);
        WithholdAndAnswerTheRest(withheld);
        OnRequest(withheld, [this]() { m_connector.reset(); });
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
        QVERIFY(QuittingEnds(withheld, [this]() { m_connector->GetTSFileEntries(7); }));
    }

private:
    void WithholdAndAnswerTheRest(const QString& withheld)
    {
        m_server->Withhold(withheld);
        m_server->AnswerJsonApi(u"/api/venue"_s, Fixture(u"model-files.json"_s));
        m_server->Answer(u"/files/"_s, c_bytes, "application/octet-stream");
    }
};

QTEST_GUILESS_MAIN(tst_TsFileEntries)
#include "tst_TsFileEntries.moc"
