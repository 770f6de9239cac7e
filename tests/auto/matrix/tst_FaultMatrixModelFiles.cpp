#include <ui/TsFileOpener.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/FaultDialog.h>
#include <tests/support/FaultRows.h>
#include <tests/support/FullDisk.h>
#include <tests/support/HostileData.h>
#include <tests/support/MessageGuard.h>
#include <tests/support/VdbMessages.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Ui::VenueDatabase;
using namespace Qt::Literals::StringLiterals;
using korvel::Test::FaultDialog;
using korvel::Test::FaultRow;
using korvel::Test::FaultTarget;
using korvel::Test::Received;
using korvel::Test::ScriptedServer;
using korvel::Test::VdbMessages;

namespace {

constexpr const char* c_jsonApi = "application/vnd.api+json";
const QString c_listPattern = u"^/api/venue\\?include=tessra"_s;
const QString c_writeFailed = u"An error occurred while writing TSFile to disk."_s;

/// A reply that lists one model file of that name, as it stands between quotation marks, behind \p path.
/// Longer than what is cut off.
QByteArray ListOf(const QByteArray& name, const QByteArray& path = "/files/hall.tessra")
{
    return QByteArray(
               R"({"included": [{"type": "tessra", "attributes": {"name": "NAME", "file_version": "2.1"},)"
               R"("relationships": {"file": {"data": {"id": "f"}}}},)"
               R"({"type": "file", "id": "f", "attributes": {"url": "PATH"}}]})")
               .replace("NAME", name)
               .replace("PATH", path)
        + QByteArray(12'000, ' ');
}

QByteArray Model()
{
    return QByteArray("model\0\r\n", 8) + QByteArray(12'000, 'm') + "end";
}

QByteArray ContentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// Everything below \p folder.
QStringList Tree(const QString& folder)
{
    QStringList entries;
    const QDir dir(folder);
    const auto filters = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo& entry : dir.entryInfoList(filters, QDir::Name)) {
        entries.append(entry.filePath());
        if (entry.isDir())
            entries.append(Tree(entry.filePath()));
    }
    return entries;
}

} // namespace

/// What becomes of a venue's model files, from the list to the file that the host is handed, when server,
/// network or disk fail.
class tst_FaultMatrixModelFiles : public QObject
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
        qunsetenv("TMPDIR");
        // A folder in a folder, so that a name that climbs out is seen.
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_folder->path()).mkdir(u"temp"_s));
        qputenv("TMPDIR", QFile::encodeName(TempFolder()));
        m_messages.reset();
        m_messages = std::make_unique<VdbMessages>();
        m_server->Reset();
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
        QCOMPARE(m_messages->Take(), QStringList());
        m_messages.reset();
        qunsetenv("TMPDIR");
        QVERIFY(korvel::Test::NoWindowIsLeft());
        QVERIFY(!QApplication::overrideCursor());
    }
    void cleanupTestCase()
    {
        m_server.reset();
    }

    void List_data()
    {
        AddFaultRows(korvel::Test::FaultRows());
    }
    void List()
    {
        QFETCH(FaultRow, fault);
        FaultTarget target;
        target.request = QRegularExpression(c_listPattern);
        target.body = ListOf("hall.tessra");
        target.mediaType = c_jsonApi;
        fault.make(*m_server, target);
        m_server->Answer(u"/files/hall.tessra"_s, Model(), "application/octet-stream");

        m_dialog->SelectVenue();

        if (fault.search == Ok) {
            VerifyOneFile(u"hall.tessra"_s);
            VerifyImport(Model());
        } else {
            VerifyNoFile();
            VerifyMessage(FailureMessage(fault, u"Model file query"_s, m_host + u"/api/venue"_s));
        }
        if (!fault.isRequestSent) {
            QCOMPARE(m_server->Log().RequestCount(), 0);
            QCOMPARE(m_server->ReceivedBytesAfter(0), 0);
        }
    }

    void Bytes_data()
    {
        AddFaultRows(korvel::Test::FaultRows());
    }
    void Bytes()
    {
        QFETCH(FaultRow, fault);
        FaultTarget target;
        target.request = QRegularExpression(u"^/files/hall\\.tessra$"_s);
        target.body = Model();
        target.mediaType = "application/octet-stream";
        target.requestsBefore = 1;
        target.manager = m_dialog->connector.Manager();
        fault.make(*m_server, target);
        FaultTarget list;
        list.request = QRegularExpression(c_listPattern);
        list.body = ListOf("hall.tessra");
        list.mediaType = c_jsonApi;
        m_server->AddFault(korvel::Test::Honest(list).WithHeader("Connection", "close"));

        m_dialog->SelectVenue();

        // The file is listed and can be imported, whatever came.
        VerifyOneFile(u"hall.tessra"_s);
        const QByteArray bytes = m_dialog->connector.files.first().GetFileData();
        QCOMPARE(korvel::Test::ReceivedComplaint(fault.file, fault, target, bytes), QString());
        if (fault.isError)
            VerifyMessage(FailureMessage(fault, u"Model file download"_s, m_host + u"/files/hall.tessra"_s));
        VerifyImport(bytes);
        if (!fault.isRequestSent) {
            QCOMPARE(m_server->Log().RequestCount(), 1);
            QCOMPARE(m_server->ReceivedBytesAfter(1), 0);
        }
    }

    void BodyThatIsNoList_data()
    {
        QTest::addColumn<QByteArray>("body");
        for (const auto& [name, bytes] : korvel::Test::BrokenDocuments(ListOf("hall.tessra")))
            QTest::newRow(name.constData()) << bytes;
    }
    void BodyThatIsNoList()
    {
        QFETCH(QByteArray, body);
        m_server->AnswerJsonApi(u"/api/venue"_s, body);
        m_dialog->SelectVenue();
        VerifyNoFile();
        VerifyMessage(u"^Model file query failed: "_s + m_host
                      + u"/api/venue - HTTP status 200 - the reply is no JSON object$"_s);
    }

    void ListOfWrongTypes_data()
    {
        QTest::addColumn<QByteArray>("included");
        QTest::addColumn<int>("count");
        const auto row = [](const char* name, const char* included, int count) {
            QTest::newRow(name) << QByteArray(included) << count;
        };
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
        QFETCH(QByteArray, included);
        QFETCH(int, count);
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
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("target"); // what the server is asked for; empty: nothing
        const auto row = [](const char* name, const char* path, const char* target) {
            QTest::newRow(name) << QByteArray(path) << QByteArray(target);
        };
        row("ordinary", "/files/a.tessra", "/files/a.tessra");
        row("escaped slashes", R"(\/files\/a.tessra)", "/files/a.tessra");
        row("backslashes", R"(\\/files\\/a.tessra)", "/files/a.tessra");
        row("question mark", "/files/a?b=c", "/files/a%3Fb=c");
        row("hash", "/files/a#b", "/files/a%23b");
        row("blank", "/files/a b", "/files/a%20b");
        row("not ASCII", "/files/\xc3\xa4", "/files/%C3%A4");
        row("climbs", "/files/../../etc/passwd", "/etc/passwd");
        row("relative", "files/a.tessra", "");
        row("drive", "C:/a.tessra", "");
        row("other host", "https://second.example/a.tessra", "");
        row("file", "file:///etc/passwd", "");
        row("script", "javascript:alert(1)", "");
        row("user in front", "@second.example/a.tessra", "");
        row("port in front", ":8443/a.tessra", "");
    }
    void Path()
    {
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, target);
        m_server->AnswerJsonApi(u"/api/venue"_s, ListOf("hall.tessra", path));
        m_server->Answer(QString(), Model(), "application/octet-stream");
        m_dialog->SelectVenue();
        VerifyOneFile(u"hall.tessra"_s);
        if (target.isEmpty()) {
            QCOMPARE(m_server->Log().RequestCount(), 1);
            QCOMPARE(m_dialog->connector.files.first().GetFileData(), QByteArray());
            // A drive is taken for a scheme, and schemes are told in lower case.
            VerifyMessage(u"^Model file download failed: "_s + m_host + u" \"(?i:"_s
                          + QRegularExpression::escape(QString::fromUtf8(path))
                          + u")\" - no HTTP status - .+$"_s);
        } else {
            QCOMPARE(m_server->Log().RequestCount(), 2);
            QCOMPARE(m_server->Log().LastRequest().target, target);
            // Whatever the path says, it is asked of the built-in host.
            QCOMPARE(m_server->Log().LastRequest().host, m_host);
            QCOMPARE(m_dialog->connector.files.first().GetFileData(), Model());
        }
    }

    void FileName_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isPlain");
        const bool backslashIsPlain = QDir::separator() == u'/';
        const auto plain = [](const char* row, const QString& name, bool isPlain = true) {
            QTest::newRow(row) << name.toUtf8().replace('\\', "\\\\").replace('"', "\\\"") << name << isPlain;
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
        QTest::newRow("newline") << QByteArray(R"(a\nb)") << u"a\nb"_s << true;
        QTest::newRow("control characters") << QByteArray(R"(a\u001b[31mb)") << u"a\u001b[31mb"_s << true;
        QTest::newRow("NUL inside") << QByteArray(R"(a\u0000b)") << u"a"_s + QChar(QChar::Null) + u"b"_s
                                    << false;
        QTest::newRow("NUL and a climb")
            << QByteArray(R"(a\u0000/../../b)") << u"a"_s + QChar(QChar::Null) + u"/../../b"_s << false;
    }
    void FileName()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, name);
        QFETCH(bool, isPlain);
        m_server->AnswerJsonApi(u"/api/venue"_s, ListOf(json));
        m_server->Answer(u"/files/hall.tessra"_s, Model(), "application/octet-stream");
        m_dialog->SelectVenue();
        VerifyOneFile(name);
        if (isPlain) {
            VerifyImport(Model());
            QVERIFY(m_requests->first().first().toString().endsWith(u"-"_s + name));
        } else {
            VerifyRefusedImport({TempFolder()});
        }
    }

    void LoneSurrogatesInAFileName()
    {
        // No file system takes such a name; the file that is made is handed over, or none.
        m_server->AnswerJsonApi(u"/api/venue"_s, ListOf(R"(a\ud800b)"));
        m_server->Answer(u"/files/hall.tessra"_s, Model(), "application/octet-stream");
        m_dialog->SelectVenue();
        m_dialog->ImportButton()->click();
        if (m_requests->isEmpty()) {
            QCOMPARE(m_messages->Take(), QStringList{c_writeFailed});
            QVERIFY(m_dialog->Opener()->isEnabled());
        } else {
            const QString path = m_requests->first().first().toString();
            QCOMPARE(QFileInfo(path).path(), TempFolder());
            QCOMPARE(ContentOf(path), Model());
        }
    }

    void TemporaryFolder_data()
    {
        QTest::addColumn<QString>("folder"); // below the test's own, or absolute
        QTest::addColumn<int>("size");
        QTest::addColumn<bool>("isFull");
        for (const int size : {0, 5'000, 3'000'000}) {
            const bool isEmpty = size == 0;
            QTest::addRow("missing, %d bytes", size) << u"missing"_s << size << false;
            QTest::addRow("a file, %d bytes", size) << u"file"_s << size << false;
            // Not even root creates files there.
            QTest::addRow("read-only, %d bytes", size) << u"/proc/self"_s << size << false;
            if (!isEmpty)
                QTest::addRow("full, %d bytes", size) << u"temp"_s << size << true;
        }
    }
    void TemporaryFolder()
    {
        QFETCH(QString, folder);
        QFETCH(int, size);
        QFETCH(bool, isFull);
        m_server->AnswerJsonApi(u"/api/venue"_s, ListOf("hall.tessra"));
        m_server->Answer(u"/files/hall.tessra"_s, QByteArray(size, 'm'), "application/octet-stream");
        QFile file(m_folder->filePath(u"file"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        m_dialog->SelectVenue();
        QCOMPARE(m_dialog->connector.files.first().GetFileData().size(), size);
        qputenv("TMPDIR", QFile::encodeName(QDir(m_folder->path()).absoluteFilePath(folder)));

        if (isFull) {
            const korvel::Test::FullDisk fullDisk;
            m_dialog->ImportButton()->click();
        } else {
            m_dialog->ImportButton()->click();
        }
        VerifyWriteFailed();
        QCOMPARE(Tree(m_folder->path()), QStringList({file.fileName(), TempFolder()}));

        // There is room again.
        qputenv("TMPDIR", QFile::encodeName(TempFolder()));
        VerifyImport(QByteArray(size, 'm'));
    }

private:
    QString TempFolder() const
    {
        return m_folder->filePath(u"temp"_s);
    }

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
        QCOMPARE(QFileInfo(path).path(), TempFolder());
        QCOMPARE(ContentOf(path), content);
        QCOMPARE(QDir(TempFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
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
    /// The import fails, and below the test's folder there is \p tree and no more.
    void VerifyRefusedImport(const QStringList& tree)
    {
        m_dialog->ImportButton()->click();
        VerifyWriteFailed();
        QCOMPARE(Tree(m_folder->path()), tree);
    }
    void VerifyMessage(const QString& pattern)
    {
        const QStringList messages = m_messages->Take();
        QCOMPARE(messages.size(), 1);
        QVERIFY2(QRegularExpression(pattern).match(messages.first()).hasMatch(),
                 qPrintable(messages.first() + u"\nis not like\n"_s + pattern));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_host;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<VdbMessages> m_messages;
    std::unique_ptr<FaultDialog> m_dialog;
    std::unique_ptr<QSignalSpy> m_requests;
};

QTEST_MAIN(tst_FaultMatrixModelFiles)
#include "tst_FaultMatrixModelFiles.moc"
