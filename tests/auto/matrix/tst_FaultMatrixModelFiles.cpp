#include <ui/TsFileOpener.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/FaultDialog.h>
#include <tests/support/FaultRows.h>
#include <tests/support/Files.h>
#include <tests/support/FullDisk.h>
#include <tests/support/HostileData.h>
#include <tests/support/QtVersion.h>
#include <tests/support/Replies.h>
#include <tests/support/Rows.h>
#include <tests/support/ServerTest.h>
#include <tests/support/Widgets.h>

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

const QString c_writeFailed = u"An error occurred while writing TSFile to disk."_s;

QByteArray Model()
{
    return QByteArray("model\0\r\n", 8) + QByteArray(12'000, 'm') + "end";
}

FaultTarget ListTarget()
{
    return {.request = QRegularExpression(u"^/api/venue\\?include=tessra"_s),
            .body = ModelFileList("hall.tessra"),
            .mediaType = c_jsonApi};
}

} // namespace

/// What becomes of a venue's model files, from the list to the file that the host is handed, when server,
/// network or disk fail.
class tst_FaultMatrixModelFiles : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ServerTest::init();
        m_folder = std::make_unique<TempFolder>();
        m_dialog = std::make_unique<FaultDialog>();
        m_dialog->connector.asksForFiles = true;
        m_requests = std::make_unique<QSignalSpy>(VenueDbSignalHandler::GetInstance(),
                                                  &VenueDbSignalHandler::ImportVenueFromTempFileRequest);
    }
    void cleanup()
    {
        QCOMPARE(m_dialog->Complaint(), QString());
        m_dialog.reset();
        m_requests.reset();
        m_folder.reset();
        ServerTest::cleanup();
    }

    void List_data()
    {
        AddFaultRows(FaultRows());
    }
    void List()
    {
        QFETCH(FaultRow, fault);
        fault.make(*m_server, ListTarget());
        m_server->Answer(u"/files/hall.tessra"_s, Model(), "application/octet-stream");

        m_dialog->SelectVenue();

        if (fault.search == Ok) {
            VerifyOneFile(u"hall.tessra"_s);
            VerifyImport(Model());
        } else {
            VerifyNoFile();
            VdbMessages::Verify({FailureMessage(fault, u"Model file query"_s, m_host + u"/api/venue"_s)});
        }
        VerifyNothingLeft(fault, *m_server, 0);
    }

    void Bytes_data()
    {
        AddFaultRows(FaultRows());
    }
    void Bytes()
    {
        QFETCH(FaultRow, fault);
        const FaultTarget target{.request = QRegularExpression(u"^/files/hall\\.tessra$"_s),
                                 .body = Model(),
                                 .mediaType = "application/octet-stream",
                                 .requestsBefore = 1,
                                 .manager = m_dialog->connector.Manager()};
        fault.make(*m_server, target);
        m_server->AddFault(Honest(ListTarget()).WithHeader("Connection", "close"));

        m_dialog->SelectVenue();

        // The file is listed and can be imported, whatever came.
        VerifyOneFile(u"hall.tessra"_s);
        const QByteArray bytes = m_dialog->connector.files.first().GetFileData();
        QCOMPARE(ReceivedComplaint(fault.file, fault, target, bytes), QString());
        if (fault.isError)
            VdbMessages::Verify(
                {FailureMessage(fault, u"Model file download"_s, m_host + u"/files/hall.tessra"_s)});
        VerifyImport(bytes);
        VerifyNothingLeft(fault, *m_server, 1);
    }

    void BodyThatIsNoList_data()
    {
        QTest::addColumn<QByteArray>("body");
        for (const auto& [name, bytes] : BrokenDocuments(ModelFileList("hall.tessra")))
            QTest::newRow(name.constData()) << bytes;
    }
    void BodyThatIsNoList()
    {
        QFETCH(QByteArray, body);
        m_server->AnswerJsonApi(u"/api/venue"_s, body);
        m_dialog->SelectVenue();
        VerifyNoFile();
        VdbMessages::Verify({u"^Model file query failed: "_s + m_host
                             + u"/api/venue - HTTP status 200 - the reply is not a JSON object$"_s});
    }

    void ListOfWrongTypes_data()
    {
        const Rows<QByteArray, int> row("included", "count");
        row("null", "null", 0);
        row("object", R"({"type": "file"})", 0);
        row("number", "2", 0);
        row("elements of other types", R"([null, 1, "file", [{"type": "file"}], true])", 0);
        row("type number", R"([{"type": 1}])", 0);
        row("file and no more", R"([{"type": "file"}])", 1);
        row("address number", R"([{"type": "file", "attributes": {"url": 7}}])", 1);
        row("address array", R"([{"type": "file", "attributes": {"url": ["/x"]}}])", 1);
        row("attributes text", R"([{"type": "file", "attributes": "/x"}])", 1);
        row("name number",
            R"([{"type": "tessra", "attributes": {"name": 7, "file_version": 2.1}}, {"type": "file"}])", 1);
        row("name object",
            R"([{"type": "tessra", "attributes": {"name": {"value": "x"}}}, {"type": "file"}])", 1);
        row("model file without its file", R"([{"type": "tessra", "attributes": {"name": "x"}}])", 0);
        row("duplicate keys", R"([{"type": "venue", "type": "file"}])", 1);
    }
    void ListOfWrongTypes()
    {
        const auto [included, count] = Fetch<QByteArray, int>();
        m_server->AnswerJsonApi(u"/api/venue"_s, R"({"included": )" + included + "}");
        // An empty path is the host's root.
        m_server->Answer(QString(), Model(), "text/html");
        m_dialog->SelectVenue();
        QCOMPARE(m_dialog->connector.files.size(), count);
        if (count == 0) {
            VerifyNoFile();
        } else {
            QCOMPARE(m_dialog->FileBox()->itemText(0), QString());
            QCOMPARE(m_dialog->VersionLabel()->text(), QString());
            VerifyImport(Model());
        }
    }

    void Path_data()
    {
        const Rows<QByteArray, QByteArray> row("path", "target"); // what is asked for; empty: nothing
        row("ordinary", "/files/a.tessra", "/files/a.tessra");
        row("escaped slashes", R"(\/files\/a.tessra)", "/files/a.tessra");
        row("backslashes", R"(\\/files\\/a.tessra)", "/files/a.tessra");
        row("question mark", "/files/a?b=c", "/files/a%3Fb=c");
        row("hash", "/files/a#b", "/files/a%23b");
        row("blank", "/files/a b", "/files/a%20b");
        row("not ASCII", "/files/\xc3\xa4", "/files/%C3%A4");
        row("triplet", "/files/a%20b", "/files/a%20b");
        // What counts is that it remains a path.
        row("host in the path", "//second.example/a",
            c_keepsLeadingSlashes ? "//second.example/a" : "/second.example/a");
        row("empty", "", "/");
        row("climbs", "/files/../../etc/passwd", "/etc/passwd");
        row("relative", "files/a.tessra", "");
        row("drive", "C:/a.tessra", "");
        row("other host", "https://second.example/a.tessra", "");
        row("file", "file:///etc/passwd", "");
        row("script", "javascript:alert(1)", "");
        row("user in front", "@second.example/a.tessra", "");
        row("port in front", ":8443/a.tessra", "");
        row("port and user in front", ":8080@second.example/a", "");
    }
    void Path()
    {
        const auto [path, target] = Fetch<QByteArray, QByteArray>();
        m_server->AnswerJsonApi(u"/api/venue"_s, ModelFileList("hall.tessra", path));
        m_server->Answer(QString(), Model(), "application/octet-stream");
        m_dialog->SelectVenue();
        VerifyOneFile(u"hall.tessra"_s);
        // Whatever the path says, it is asked of the built-in host.
        for (const auto& connection : m_server->Log().Connects())
            QCOMPARE(connection.host, m_host);
        if (target.isEmpty()) {
            QCOMPARE(m_server->Log().RequestCount(), 1);
            QCOMPARE(m_dialog->connector.files.first().GetFileData(), QByteArray());
            // A drive is taken for a scheme, and schemes are told in lower case.
            VdbMessages::Verify({u"Model file download failed: "_s + m_host + u" \"(?i:"_s
                                 + QRegularExpression::escape(QString::fromUtf8(path))
                                 + u")\" - no HTTP status - .+"_s});
        } else {
            QCOMPARE(m_server->Log().RequestCount(), 2);
            QCOMPARE(m_server->Log().LastRequest().target, target);
            QCOMPARE(m_server->Log().LastRequest().host, m_host);
            QCOMPARE(m_dialog->connector.files.first().GetFileData(), Model());
        }
    }

    void FileName_data()
    {
        const Rows<QByteArray, QString, bool> row("json", "name", "isPlain");
        const bool backslashIsPlain = QDir::separator() == u'/';
        const auto plain = [&row](const char* title, const QString& name, bool isPlain = true) {
            row(title, JsonText(name), name, isPlain);
        };
        plain("ordinary", u"hall.tessra"_s);
        plain("empty", QString());
        plain("climbs", u"../x"_s, false);
        plain("climbs far", u"../../../../../../tmp/x"_s, false);
        plain("climbs through a folder", u"x/../../y"_s, false);
        plain("absolute", u"/x"_s, false);
        plain("absolute, into a real folder", QDir::tempPath() + u"/x"_s, false);
        plain("into a folder", u"a/b"_s, false);
        plain("ends in a slash", u"hall/"_s, false);
        plain("one dot", u"."_s, false);
        plain("two dots", u".."_s, false);
        plain("backslash", u"a\\b"_s, backslashIsPlain);
        plain("climbs with backslashes", u"..\\..\\x"_s, backslashIsPlain);
        plain("drive", u"C:x"_s, backslashIsPlain);
        plain("stream", u"x:stream"_s, backslashIsPlain);
        plain("resource", u":x"_s, backslashIsPlain);
        plain("300 characters", QString(300, u'n'), false);
        plain("300 characters of two bytes", QString(300, QChar(0xe4)), false);
        plain("100,000 characters", QString(100'000, u'n'), false);
        plain("six X", u"XXXXXX"_s);
        plain("six X inside", u"hall-XXXXXX.tessra"_s);
        plain("not ASCII", u"Gr\u00f6\u00dfer \u0416 \U0001F3AD.tessra"_s);
        plain("like an option", u"-rf *"_s);
        plain("shell", u"$(touch x) `id` ; x | y & z"_s);
        plain("markup", u"<b>\"'&amp;"_s);
        plain("right-to-left mark", u"a\u202eexe.tessra"_s);
        plain("device of another system", u"CON"_s);
        plain("ends in a dot and a blank", u"hall. "_s);
        row("newline", R"(a\nb)", u"a\nb"_s, true);
        row("control characters", R"(a\u001b[31mb)", u"a\u001b[31mb"_s, true);
        const QString nul = QChar(QChar::Null);
        row("NUL inside", R"(a\u0000b)", u"a"_s + nul + u"b"_s, false);
        row("NUL and a climb", R"(a\u0000/../../b)", u"a"_s + nul + u"/../../b"_s, false);
    }
    void FileName()
    {
        const auto [json, name, isPlain] = Fetch<QByteArray, QString, bool>();
        m_server->AnswerJsonApi(u"/api/venue"_s, ModelFileList(json));
        m_server->Answer(u"/files/hall.tessra"_s, Model(), "application/octet-stream");
        m_dialog->SelectVenue();
        VerifyOneFile(name);
        if (isPlain) {
            VerifyImport(Model());
            QVERIFY(m_requests->first().first().toString().endsWith(u"-"_s + name));
        } else {
            VerifyRefusedImport();
        }
    }

    void LoneSurrogatesInAFileName()
    {
        // No file system takes such a name; the file that is made is handed over, or none.
        m_server->AnswerJsonApi(u"/api/venue"_s, ModelFileList(R"(a\ud800b)"));
        m_server->Answer(u"/files/hall.tessra"_s, Model(), "application/octet-stream");
        m_dialog->SelectVenue();
        m_dialog->ImportButton()->click();
        if (m_requests->isEmpty()) {
            QCOMPARE(m_messages->Take(), QStringList{c_writeFailed});
            QVERIFY(m_dialog->Opener()->isEnabled());
        } else {
            const QString path = m_requests->first().first().toString();
            QCOMPARE(QFileInfo(path).path(), m_folder->Path());
            QCOMPARE(ContentOf(path), Model());
        }
    }

    void TemporaryFolder_data()
    {
        // The folder is one below the test's own, or absolute.
        const Rows<QString, int, bool> row("folder", "size", "isFull");
        for (const int size : {0, 5'000, 3'000'000}) {
            const bool isEmpty = size == 0;
            QTest::addRow("missing, %d bytes", size) << u"missing"_s << size << false;
            QTest::addRow("a file, %d bytes", size) << u"file"_s << size << false;
            // Not even root creates files there.
            QTest::addRow("read-only, %d bytes", size) << u"/proc/self"_s << size << false;
            if (!isEmpty)
                QTest::addRow("full, %d bytes", size) << u"."_s << size << true;
        }
    }
    void TemporaryFolder()
    {
        const auto [folder, size, isFull] = Fetch<QString, int, bool>();
        m_server->AnswerJsonApi(u"/api/venue"_s, ModelFileList("hall.tessra"));
        m_server->Answer(u"/files/hall.tessra"_s, QByteArray(size, 'm'), "application/octet-stream");
        WriteFile(m_folder->FilePath(u"file"_s));
        m_dialog->SelectVenue();
        QCOMPARE(m_dialog->connector.files.first().GetFileData().size(), size);
        m_folder->Pretend(folder);

        if (isFull) {
            const FullDisk fullDisk;
            m_dialog->ImportButton()->click();
        } else {
            m_dialog->ImportButton()->click();
        }
        VerifyWriteFailed();
        QCOMPARE(Tree(m_folder->Path()), QStringList{m_folder->FilePath(u"file"_s)});

        // There is room again.
        QVERIFY(QFile::remove(m_folder->FilePath(u"file"_s)));
        m_folder->Pretend(m_folder->Path());
        VerifyImport(QByteArray(size, 'm'));
    }

private:
    void VerifyNoFile() const
    {
        QCOMPARE(m_dialog->connector.files.size(), 0);
        QCOMPARE(m_dialog->FileBox()->count(), 0);
        QCOMPARE(m_dialog->VersionLabel()->text(), QString());
        QVERIFY(!m_dialog->ImportButton()->isEnabled());
    }
    void VerifyOneFile(const QString& name) const
    {
        QCOMPARE(m_dialog->connector.files.size(), 1);
        QCOMPARE(m_dialog->FileBox()->count(), 1);
        QCOMPARE(m_dialog->FileBox()->itemText(0), name);
        QCOMPARE(m_dialog->VersionLabel()->text(), u"2.1"_s);
        QVERIFY(m_dialog->ImportButton()->isEnabled());
    }
    /// The import hands one file with \p content over, directly in the temporary folder.
    void VerifyImport(const QByteArray& content)
    {
        m_dialog->ImportButton()->click();
        QCOMPARE(m_requests->count(), 1);
        const QString path = m_requests->first().first().toString();
        QCOMPARE(QFileInfo(path).path(), m_folder->Path());
        QCOMPARE(ContentOf(path), content);
        QCOMPARE(
            QDir(m_folder->Path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
            1);
        QVERIFY(!m_dialog->Opener()->isEnabled());
        m_dialog->dialog.SetVenueLoaded(true);
        QVERIFY(m_dialog->Opener()->isEnabled());
    }
    void VerifyWriteFailed()
    {
        QCOMPARE(m_requests->count(), 0);
        QCOMPARE(m_messages->Take(), QStringList{c_writeFailed});
        QVERIFY(m_dialog->Opener()->isEnabled());
        QVERIFY(m_dialog->ImportButton()->isEnabled());
    }
    /// The import fails and leaves nothing, in the temporary folder or near it.
    void VerifyRefusedImport()
    {
        const QStringList before = Tree(m_folder->Root());
        m_dialog->ImportButton()->click();
        VerifyWriteFailed();
        QCOMPARE(Tree(m_folder->Root()), before);
    }

    std::unique_ptr<TempFolder> m_folder;
    std::unique_ptr<FaultDialog> m_dialog;
    std::unique_ptr<QSignalSpy> m_requests;
};

QTEST_MAIN(tst_FaultMatrixModelFiles)
#include "tst_FaultMatrixModelFiles.moc"
