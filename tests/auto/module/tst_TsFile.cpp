#include <data/TsFile.h>

#include <tests/support/Files.h>
#include <tests/support/FullDisk.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTimer>

#include <cstdlib>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Test;
using korvel::Data::VenueDatabase::TsFile;

namespace {

TsFile FilledFile(const QString& name = u"hall.tessra"_s, const QByteArray& data = "model")
{
    QString uploadDate = u"2024-03-01"_s;
    TsFile file = MakeFile(name, u"2.1"_s, data);
    file.SetUploadDate(uploadDate);
    return file;
}

bool SeparatesAs(char separator)
{
    return QDir::separator() == QLatin1Char(separator);
}

/// The other half of LeftOverIsRemovedWhenTheApplicationEnds(): leaves a temporary file behind and ends as \p
/// way says.
int LeaveFileAndEnd(int argc, char* argv[], const QByteArray& way)
{
    QString path;
    const auto leaveFile = [&path]() {
        TsFile file = FilledFile();
        path = file.CopyToTempFolder() ? file.GetTempPath() : QString();
    };
    const auto report = [&path]() {
        std::fputs(qPrintable(path + (QFile::exists(path) ? u" exists"_s : u" is missing"_s)), stdout);
        std::fflush(stdout);
    };
    if (way == "after the application") {
        {
            const QCoreApplication application(argc, argv);
            leaveFile();
        }
        report();
        return 0;
    }
    QCoreApplication application(argc, argv);
    leaveFile();
    if (way == "quit") {
        QTimer::singleShot(0, &application, &QCoreApplication::quit);
        QCoreApplication::exec();
    }
    report();
    if (way == "exit")
        std::exit(0);
    return 0;
}

} // namespace

class tst_TsFile : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        StrictTest::init();
        m_folder = std::make_unique<TempFolder>();
        m_tempFolder = m_folder->Path();
        QCOMPARE(QDir::tempPath(), m_tempFolder);
    }
    void cleanup()
    {
        m_folder.reset();
        StrictTest::cleanup();
    }

    void DefaultFileIsEmpty()
    {
        const TsFile file;
        QCOMPARE(file.GetId(), -1);
        QCOMPARE(file.GetFileName(), QString());
        QCOMPARE(file.GetFileData(), QByteArray());
        QCOMPARE(file.GetTsVersion(), QString());
        QCOMPARE(file.GetUploadDate(), QString());
        QCOMPARE(file.Size(), 5);
        QCOMPARE(file.GetTempPath(), QString());
    }

    void ValuesAreKept()
    {
        const TsFile file = FilledFile();
        QCOMPARE(file.GetId(), 7);
        QCOMPARE(file.GetFileName(), u"hall.tessra"_s);
        QCOMPARE(file.GetFileData(), QByteArray("model"));
        QCOMPARE(file.GetTsVersion(), u"2.1"_s);
        QCOMPARE(file.GetUploadDate(), u"2024-03-01"_s);
    }

    void ColumnHoldsItsValue_data()
    {
        const Rows<qint64, QVariant, QString> row("index", "value", "label");
        row("0: id", 0, qint64(7), u"ID"_s);
        row("1: file name", 1, u"hall.tessra"_s, u"FileName"_s);
        row("2: file data", 2, QByteArray("model"), u"FileData"_s);
        row("3: version", 3, u"2.1"_s, u"TSVersion"_s);
        row("4: upload date as text", 4, u"2024-03-01"_s, u"UploadDate"_s);
        row("5: none", 5, {}, {});
        row("-1: none", -1, {}, {});
        row("no 32 bit number: none", (1LL << 32), {}, {});
    }
    void ColumnHoldsItsValue()
    {
        const auto [index, value] = Fetch<qint64, QVariant>();
        const QVariant found = FilledFile().GetDataAt(index);
        QCOMPARE(found.metaType(), value.metaType());
        QCOMPARE(found, value);
        QTEST(TsFile::GetLabelAt(index), "label");
    }

    void CopyOfDataIsWritten_data()
    {
        const Rows<QByteArray> row("data");
        row("empty", {});
        row("one byte", "x");
        row("NUL and line ends", QByteArray("a\0b\r\n\x1a\xff", 7));
        row("larger than every buffer", QByteArray(3'000'000, 'x'));
    }
    void CopyOfDataIsWritten()
    {
        QFETCH(QByteArray, data);
        TsFile file = FilledFile(u"hall.tessra"_s, data);
        QVERIFY(file.CopyToTempFolder());
        // Read while the record still holds the file open, as the host does.
        QCOMPARE(ContentOf(file.GetTempPath()), data);
    }

    void FileNameInTempFolder_data()
    {
        const Rows<QString, bool> row("name", "accepted");
        const bool backslashIsPlain = !SeparatesAs('\\');

        row("ordinary", u"hall.tessra"_s, true);
        row("empty", {}, true);
        row("no extension", u"hall"_s, true);
        row("hidden", u".hall"_s, true);
        row("three dots", u"..."_s, true);
        row("starts with two dots", u"..hall"_s, true);
        row("ends in a dot and a blank", u"hall. "_s, true);
        row("like an option", u"-rf"_s, true);
        row("placeholders", u"%1 %n $HOME ~ *?"_s, true);
        row("newline", u"a\nb"_s, true);
        row("markup", u"<b>\"'&"_s, true);
        row("not ASCII", u"Gr\u00f6\u00dfer \u0416 \U0001F3AD.tessra"_s, true);
        row("decomposed accent", u"e\u0301"_s, true);
        row("run of six X", u"XXXXXX"_s, true);
        row("run of six X inside", u"hall-XXXXXX.tessra"_s, true);
        row("run of twelve X", u"aXXXXXXXXXXXXb"_s, true);
        row("run of five X", u"XXXXX"_s, true);
        row("backslash", u"a\\b"_s, backslashIsPlain);
        row("climbs with backslashes", u"..\\..\\x"_s, backslashIsPlain);
        row("drive letter", u"C:x"_s, backslashIsPlain);
        row("resource path", u":x"_s, backslashIsPlain);
        row("as long as a name can be", QString(255 - c_prefixLength, u'n'), true);

        row("one byte too long", QString(256 - c_prefixLength, u'n'), false);
        row("300 characters", QString(300, u'n'), false);
        row("long only in bytes", QString(150, QChar(0x416)), false);
        row("300 characters with six X", (QString(300, u'n') + u"XXXXXX"_s), false);
        row("one dot", u"."_s, false);
        row("two dots", u".."_s, false);
        row("climbs", u"../x"_s, false);
        row("climbs through a folder", u"x/../../y"_s, false);
        row("climbs with six X", u"x/../../XXXXXX"_s, false);
        row("absolute", u"/x"_s, false);
        row("into a folder", u"a/b"_s, false);
        row("folder that exists", u"/../tmp/x"_s, false);
        row("ends in a slash", u"hall/"_s, false);
        row("NUL inside", (u"a"_s + QChar(QChar::Null) + u"b"_s), false);
        row("NUL at the end", (u"a"_s + QChar(QChar::Null)), false);
    }
    void FileNameInTempFolder()
    {
        const auto [name, accepted] = Fetch<QString, bool>();
        const QStringList before = Tree(m_folder->Root());
        TsFile file = FilledFile(name);
        QCOMPARE(file.CopyToTempFolder(), accepted);
        QCOMPARE(file.GetFileName(), name);
        if (!accepted) {
            QCOMPARE(file.GetTempPath(), QString());
            QCOMPARE(Tree(m_folder->Root()), before);
            return;
        }
        const QString path = file.GetTempPath();
        QCOMPARE(QFileInfo(path).absolutePath(), m_tempFolder);
        QCOMPARE(path.size(), m_tempFolder.size() + 1 + c_prefixLength + name.size());
        const QString fileName = path.mid(m_tempFolder.size() + 1);
        QVERIFY2(fileName.contains(QRegularExpression(u"^tst_TsFile\\.[A-Za-z0-9]{6}-"_s)),
                 qPrintable(fileName));
        QVERIFY(fileName.endsWith(u"-"_s + name));
        QCOMPARE(ContentOf(path), QByteArray("model"));
        // Nothing but that one file has come.
        QStringList after = Tree(m_folder->Root());
        QCOMPARE(after.removeAll(path), 1);
        QCOMPARE(after, before);
    }

    void SecondCopyReplacesTheFirst_data()
    {
        const Rows<QString> row("name");
        row("ordinary", u"hall.tessra"_s);
        row("six X", u"XXXXXX"_s);
    }
    void SecondCopyReplacesTheFirst()
    {
        QFETCH(QString, name);
        TsFile file = FilledFile(name);
        QVERIFY(file.CopyToTempFolder());
        const QString first = file.GetTempPath();
        QVERIFY(file.CopyToTempFolder());
        const QString second = file.GetTempPath();
        QVERIFY(first != second);
        QVERIFY(!QFile::exists(first));
        QCOMPARE(Tree(m_tempFolder), QStringList{second});
    }

    void FailedSecondCopyRemovesTheFirst()
    {
        TsFile file = FilledFile();
        QVERIFY(file.CopyToTempFolder());
        QString name = u"../x"_s;
        file.SetFileName(name);
        QVERIFY(!file.CopyToTempFolder());
        QCOMPARE(file.GetTempPath(), QString());
        QCOMPARE(Tree(m_tempFolder), QStringList());
    }

    void FileThatVanishedIsReplaced()
    {
        TsFile file = FilledFile();
        QVERIFY(file.CopyToTempFolder());
        QVERIFY(QFile::remove(file.GetTempPath()));
        QVERIFY(file.CopyToTempFolder());
        QCOMPARE(ContentOf(file.GetTempPath()), QByteArray("model"));
    }

    void CopiesShareTheTemporaryFile()
    {
        TsFile source = FilledFile();
        QVERIFY(source.CopyToTempFolder());
        TsFile copy(source);
        TsFile assigned;
        assigned = source;
        QCOMPARE(copy.GetTempPath(), source.GetTempPath());
        QCOMPARE(assigned.GetTempPath(), source.GetTempPath());

        // The copy's new file takes the shared one away from everybody, and nobody is left with a dead
        // pointer.
        const QString shared = source.GetTempPath();
        QVERIFY(copy.CopyToTempFolder());
        QVERIFY(!QFile::exists(shared));
        QCOMPARE(source.GetTempPath(), QString());
        QCOMPARE(assigned.GetTempPath(), QString());

        QVERIFY(source.CopyToTempFolder());
        QVERIFY(QFile::exists(copy.GetTempPath()));
        QVERIFY(copy.GetTempPath() != source.GetTempPath());
    }

    void CopiesKeepEverythingAndAreIndependent()
    {
        TsFile source = FilledFile();
        const TsFile copy(source);
        TsFile assigned;
        assigned = source;
        const TsFile detached(&source);
        QString text = u"changed"_s;
        QByteArray bytes("changed");
        source.SetId(8);
        source.SetFileName(text);
        source.SetFileData(bytes);
        source.SetTsVersion(text);
        source.SetUploadDate(text);
        for (const TsFile& file : {copy, assigned, detached}) {
            QCOMPARE(file.Size(), 5);
            for (qint64 index = 0; index < 5; ++index)
                QCOMPARE(file.GetDataAt(index), FilledFile().GetDataAt(index));
        }
    }

    void DetachedCopyStartsWithoutTemporaryFile()
    {
        TsFile source = FilledFile();
        QVERIFY(source.CopyToTempFolder());
        TsFile detached(&source);
        QCOMPARE(detached.GetTempPath(), QString());
        QVERIFY(detached.CopyToTempFolder());
        QVERIFY(QFile::exists(source.GetTempPath()));
        QVERIFY(detached.GetTempPath() != source.GetTempPath());
    }

    void FileOutlivesItsRecord()
    {
        QString path;
        {
            TsFile file = FilledFile();
            QVERIFY(file.CopyToTempFolder());
            path = file.GetTempPath();
        }
        QCOMPARE(ContentOf(path), QByteArray("model"));
    }

    void UnusableTempFolder_data()
    {
        const Rows<QString> row("folder");
        row("missing", u"missing"_s);
        row("a file", u"file"_s);
        // Refuses new files to everybody, the administrator included.
        row("read-only", u"/proc/self"_s);
    }
    void UnusableTempFolder()
    {
        QFETCH(QString, folder);
        WriteFile(m_folder->FilePath(u"file"_s));
        const QStringList before = Tree(m_folder->Root());
        const QStringList rootBefore = QDir::root().entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
        m_folder->Pretend(folder);

        TsFile model = FilledFile();
        QVERIFY(!model.CopyToTempFolder());
        QCOMPARE(model.GetTempPath(), QString());
        QCOMPARE(Tree(m_folder->Root()), before);
        QCOMPARE(QDir::root().entryList(QDir::AllEntries | QDir::Hidden | QDir::System), rootBefore);

        // Nothing is wrong with the record: it works again with the folder.
        m_folder->Pretend(m_tempFolder);
        QVERIFY(model.CopyToTempFolder());
        QCOMPARE(ContentOf(model.GetTempPath()), QByteArray("model"));
    }

    void LinkedTempFolderIsFine()
    {
        const QString link = m_folder->Root() + u"/link"_s;
        QVERIFY(QFile::link(m_tempFolder, link));
        m_folder->Pretend(link);
        TsFile file = FilledFile();
        QVERIFY(file.CopyToTempFolder());
        QCOMPARE(QFileInfo(file.GetTempPath()).canonicalPath(), m_tempFolder);
    }

#ifdef Q_OS_UNIX
    void CopyToAFullDisk_data()
    {
        const Rows<qsizetype, QString> row("size", "name");
        // Up to 16 KiB stay in a buffer until the flush; more is refused by the write itself.
        row("noticed by the flush", 5'000, u"hall.tessra"_s);
        row("noticed by the write", 1'000'000, u"hall.tessra"_s);
        row("noticed by the flush, six X", 5'000, u"XXXXXX"_s);
    }
    void CopyToAFullDisk()
    {
        const auto [size, name] = Fetch<qsizetype, QString>();
        TsFile file = FilledFile(name, QByteArray(size, 'x'));
        bool copied = true;
        {
            const FullDisk fullDisk;
            copied = file.CopyToTempFolder();
        }
        QVERIFY(!copied);
        QCOMPARE(file.GetTempPath(), QString());
        QCOMPARE(Tree(m_tempFolder), QStringList());
        QVERIFY(file.CopyToTempFolder());
    }
#endif

    void LeftOverIsRemovedWhenTheApplicationEnds_data()
    {
        const Rows<QString> row("way");
        row("returns from main", u"return"_s);
        row("quits its event loop", u"quit"_s);
        row("calls exit", u"exit"_s);
        row("ends after its application object", u"after the application"_s);
    }
    void LeftOverIsRemovedWhenTheApplicationEnds()
    {
        QFETCH(QString, way);
        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(QCoreApplication::applicationFilePath(), {u"--leave-file"_s, way});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
        const QString report = QString::fromLocal8Bit(child.readAllStandardOutput());
        QVERIFY2(report.startsWith(m_tempFolder) && report.endsWith(u" exists"_s), qPrintable(report));
        QCOMPARE(Tree(m_tempFolder), QStringList());
    }

private:
    /// "tst_TsFile." + six random characters + "-"
    static constexpr qsizetype c_prefixLength = 18;

    std::unique_ptr<TempFolder> m_folder;
    QString m_tempFolder;
};

int main(int argc, char* argv[])
{
    if (argc == 3 && qstrcmp(argv[1], "--leave-file") == 0)
        return LeaveFileAndEnd(argc, argv, argv[2]);
    QCoreApplication application(argc, argv);
    tst_TsFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_TsFile.moc"
