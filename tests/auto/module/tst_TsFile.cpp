#include <data/TsFile.h>

#include <tests/support/MessageGuard.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdlib>
#include <memory>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace Qt::Literals::StringLiterals;
using korvel::Data::VenueDatabase::TsFile;

namespace {

TsFile FilledFile(QString name = u"hall.tessra"_s, QByteArray data = "model")
{
    QString version = u"2.1"_s;
    QString uploadDate = u"2024-03-01"_s;
    TsFile file;
    file.SetId(7);
    file.SetFileName(name);
    file.SetFileData(data);
    file.SetTsVersion(version);
    file.SetUploadDate(uploadDate);
    return file;
}

QByteArray Contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// Everything below \p folder, hidden and special files too.
QStringList Tree(const QString& folder)
{
    QStringList paths;
    QDirIterator iterator(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
    while (iterator.hasNext())
        paths.append(iterator.next());
    paths.sort();
    return paths;
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

class tst_TsFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
        // The temporary folder lies two levels deep, so that what climbs out of it lands in a place we watch.
        m_root = std::make_unique<QTemporaryDir>();
        QVERIFY(m_root->isValid());
        m_tempFolder = QFileInfo(m_root->path()).canonicalFilePath() + u"/outer/tmp"_s;
        QVERIFY(QDir().mkpath(m_tempFolder));
        qputenv("TMPDIR", QFile::encodeName(m_tempFolder));
        QCOMPARE(QDir::tempPath(), m_tempFolder);
    }
    void cleanup()
    {
        qunsetenv("TMPDIR");
        m_root.reset();
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
        QTest::addColumn<qint64>("index");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("label");
        QTest::newRow("0: id") << 0LL << QVariant(qint64(7)) << u"ID"_s;
        QTest::newRow("1: file name") << 1LL << QVariant(u"hall.tessra"_s) << u"FileName"_s;
        QTest::newRow("2: file data") << 2LL << QVariant(QByteArray("model")) << u"FileData"_s;
        QTest::newRow("3: version") << 3LL << QVariant(u"2.1"_s) << u"TSVersion"_s;
        QTest::newRow("4: upload date as text") << 4LL << QVariant(u"2024-03-01"_s) << u"UploadDate"_s;
        QTest::newRow("5: none") << 5LL << QVariant() << QString();
        QTest::newRow("-1: none") << -1LL << QVariant() << QString();
        QTest::newRow("no 32 bit number: none") << (1LL << 32) << QVariant() << QString();
    }
    void ColumnHoldsItsValue()
    {
        QFETCH(qint64, index);
        QFETCH(QVariant, value);
        QFETCH(QString, label);
        const QVariant found = FilledFile().GetDataAt(index);
        QCOMPARE(found.metaType(), value.metaType());
        QCOMPARE(found, value);
        QCOMPARE(TsFile::GetLabelAt(index), label);
    }

    void CopyOfDataIsWritten_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("one byte") << QByteArray("x");
        QTest::newRow("NUL and line ends") << QByteArray("a\0b\r\n\x1a\xff", 7);
        QTest::newRow("larger than every buffer") << QByteArray(3'000'000, 'x');
    }
    void CopyOfDataIsWritten()
    {
        QFETCH(QByteArray, data);
        TsFile file = FilledFile(u"hall.tessra"_s, data);
        QVERIFY(file.CopyToTempFolder());
        // Read while the record still holds the file open, as the host does.
        QCOMPARE(Contents(file.GetTempPath()), data);
    }

    void FileNameInTempFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("accepted");
        const bool backslashIsPlain = !SeparatesAs('\\');

        QTest::newRow("ordinary") << u"hall.tessra"_s << true;
        QTest::newRow("empty") << QString() << true;
        QTest::newRow("no extension") << u"hall"_s << true;
        QTest::newRow("hidden") << u".hall"_s << true;
        QTest::newRow("three dots") << u"..."_s << true;
        QTest::newRow("starts with two dots") << u"..hall"_s << true;
        QTest::newRow("ends in a dot and a blank") << u"hall. "_s << true;
        QTest::newRow("like an option") << u"-rf"_s << true;
        QTest::newRow("placeholders") << u"%1 %n $HOME ~ *?"_s << true;
        QTest::newRow("newline") << u"a\nb"_s << true;
        QTest::newRow("markup") << u"<b>\"'&"_s << true;
        QTest::newRow("not ASCII") << u"Gr\u00f6\u00dfer \u0416 \U0001F3AD.tessra"_s << true;
        QTest::newRow("decomposed accent") << u"e\u0301"_s << true;
        QTest::newRow("run of six X") << u"XXXXXX"_s << true;
        QTest::newRow("run of six X inside") << u"hall-XXXXXX.tessra"_s << true;
        QTest::newRow("run of twelve X") << u"aXXXXXXXXXXXXb"_s << true;
        QTest::newRow("run of five X") << u"XXXXX"_s << true;
        QTest::newRow("backslash") << u"a\\b"_s << backslashIsPlain;
        QTest::newRow("climbs with backslashes") << u"..\\..\\x"_s << backslashIsPlain;
        QTest::newRow("drive letter") << u"C:x"_s << backslashIsPlain;
        QTest::newRow("resource path") << u":x"_s << backslashIsPlain;
        QTest::newRow("as long as a name can be") << QString(255 - c_prefixLength, u'n') << true;

        QTest::newRow("one byte too long") << QString(256 - c_prefixLength, u'n') << false;
        QTest::newRow("300 characters") << QString(300, u'n') << false;
        QTest::newRow("long only in bytes") << QString(150, QChar(0x416)) << false;
        QTest::newRow("300 characters with six X") << (QString(300, u'n') + u"XXXXXX"_s) << false;
        QTest::newRow("one dot") << u"."_s << false;
        QTest::newRow("two dots") << u".."_s << false;
        QTest::newRow("climbs") << u"../x"_s << false;
        QTest::newRow("climbs through a folder") << u"x/../../y"_s << false;
        QTest::newRow("climbs with six X") << u"x/../../XXXXXX"_s << false;
        QTest::newRow("absolute") << u"/x"_s << false;
        QTest::newRow("into a folder") << u"a/b"_s << false;
        QTest::newRow("folder that exists") << u"/../tmp/x"_s << false;
        QTest::newRow("ends in a slash") << u"hall/"_s << false;
        QTest::newRow("NUL inside") << (u"a"_s + QChar(QChar::Null) + u"b"_s) << false;
        QTest::newRow("NUL at the end") << (u"a"_s + QChar(QChar::Null)) << false;
    }
    void FileNameInTempFolder()
    {
        QFETCH(QString, name);
        QFETCH(bool, accepted);
        const QStringList before = Tree(m_root->path());
        TsFile file = FilledFile(name);
        QCOMPARE(file.CopyToTempFolder(), accepted);
        QCOMPARE(file.GetFileName(), name);
        if (!accepted) {
            QCOMPARE(file.GetTempPath(), QString());
            QCOMPARE(Tree(m_root->path()), before);
            return;
        }
        const QString path = file.GetTempPath();
        QCOMPARE(QFileInfo(path).absolutePath(), m_tempFolder);
        QCOMPARE(path.size(), m_tempFolder.size() + 1 + c_prefixLength + name.size());
        const QString fileName = path.mid(m_tempFolder.size() + 1);
        QVERIFY2(fileName.contains(QRegularExpression(u"^tst_TsFile\\.[A-Za-z0-9]{6}-"_s)),
                 qPrintable(fileName));
        QVERIFY(fileName.endsWith(u"-"_s + name));
        QCOMPARE(Contents(path), QByteArray("model"));
        // Nothing but that one file has come.
        QStringList after = Tree(m_root->path());
        QCOMPARE(after.removeAll(path), 1);
        QCOMPARE(after, before);
    }

    void TempPathIsEmptyBeforeTheFirstCopy()
    {
        QCOMPARE(FilledFile().GetTempPath(), QString());
    }

    void SecondCopyReplacesTheFirst_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("ordinary") << u"hall.tessra"_s;
        QTest::newRow("six X") << u"XXXXXX"_s;
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
        QCOMPARE(Contents(file.GetTempPath()), QByteArray("model"));
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
        QCOMPARE(Contents(path), QByteArray("model"));
    }

    void UnusableTempFolder_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("missing") << u"missing"_s;
        QTest::newRow("a file") << u"file"_s;
        // Refuses new files to everybody, the administrator included.
        QTest::newRow("read-only") << u"/proc/self"_s;
    }
    void UnusableTempFolder()
    {
        QFETCH(QString, folder);
        QFile file(m_tempFolder + u"/file"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        const QStringList before = Tree(m_root->path());
        const QStringList rootBefore = QDir::root().entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
        qputenv("TMPDIR", QFile::encodeName(QDir(m_tempFolder).absoluteFilePath(folder)));

        TsFile model = FilledFile();
        QVERIFY(!model.CopyToTempFolder());
        QCOMPARE(model.GetTempPath(), QString());
        QCOMPARE(Tree(m_root->path()), before);
        QCOMPARE(QDir::root().entryList(QDir::AllEntries | QDir::Hidden | QDir::System), rootBefore);

        // The record is not spoiled: it works again with the folder.
        qputenv("TMPDIR", QFile::encodeName(m_tempFolder));
        QVERIFY(model.CopyToTempFolder());
        QCOMPARE(Contents(model.GetTempPath()), QByteArray("model"));
    }

    void LinkedTempFolderIsFine()
    {
        const QString link = m_root->path() + u"/link"_s;
        QVERIFY(QFile::link(m_tempFolder, link));
        qputenv("TMPDIR", QFile::encodeName(link));
        TsFile file = FilledFile();
        QVERIFY(file.CopyToTempFolder());
        QCOMPARE(QFileInfo(file.GetTempPath()).canonicalPath(), m_tempFolder);
    }

#ifdef Q_OS_UNIX
    void FullDisk_data()
    {
        QTest::addColumn<qsizetype>("size");
        QTest::addColumn<QString>("name");
        // Up to 16 KiB stay in a buffer until the flush; more is refused by the write itself.
        QTest::newRow("noticed by the flush") << qsizetype(5'000) << u"hall.tessra"_s;
        QTest::newRow("noticed by the write") << qsizetype(1'000'000) << u"hall.tessra"_s;
        QTest::newRow("noticed by the flush, six X") << qsizetype(5'000) << u"XXXXXX"_s;
    }
    void FullDisk()
    {
        QFETCH(qsizetype, size);
        QFETCH(QString, name);
        TsFile file = FilledFile(name, QByteArray(size, 'x'));
        bool copied = true;
        {
            // A limit on the size of files fails writes exactly where a full disk would, after some bytes.
            const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
            rlimit oldLimit{};
            QCOMPARE(getrlimit(RLIMIT_FSIZE, &oldLimit), 0);
            const auto restore = qScopeGuard([&]() {
                setrlimit(RLIMIT_FSIZE, &oldLimit);
                std::signal(SIGXFSZ, oldHandler);
            });
            rlimit limit = oldLimit;
            limit.rlim_cur = 1000;
            QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
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
        QTest::addColumn<QString>("way");
        QTest::newRow("returns from main") << u"return"_s;
        QTest::newRow("quits its event loop") << u"quit"_s;
        QTest::newRow("calls exit") << u"exit"_s;
        QTest::newRow("ends after its application object") << u"after the application"_s;
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

    std::unique_ptr<QTemporaryDir> m_root;
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
