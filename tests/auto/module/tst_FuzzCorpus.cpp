#include <fuzz/FuzzTargets.h>

#include <tests/support/StrictTest.h>

#include <QApplication>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

using namespace korvel::Test;
using korvel::Fuzz::Target;

namespace {

QString CorpusFolder(const Target& target)
{
    return QStringLiteral(VDB_SOURCE_DIR "/fuzz/corpus/") + QLatin1String(target.name);
}

} // namespace

/// Feeds every input of the fuzzers' corpus, findings of the past among them, to its target once. A broken
/// promise ends the program.
class tst_FuzzCorpus : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        korvel::Fuzz::PrepareApplication();
    }
    void cleanupTestCase()
    {
        korvel::Fuzz::ReleaseKept();
    }
    // Deliberate: warnings do not fail. Qt's decoders report broken pictures, and the corpus is full of them.
    void EveryTargetHasCorpusAndDictionary_data()
    {
        QTest::addColumn<QString>("name");
        for (const Target& target : korvel::Fuzz::Targets())
            QTest::newRow(target.name) << QString::fromLatin1(target.name);
    }
    void EveryTargetHasCorpusAndDictionary()
    {
        QFETCH(QString, name);
        const QString folder = QStringLiteral(VDB_SOURCE_DIR "/fuzz/");
        QVERIFY(QDir(folder + u"corpus/"_s + name).entryList(QDir::Files).size() >= 10);
        QVERIFY(QFile::exists(folder + u"dictionary/%1.dict"_s.arg(name)));
    }

    void NoInputBreaksAPromise_data()
    {
        QTest::addColumn<const Target*>("target");
        QTest::addColumn<QString>("path");
        for (const Target& target : korvel::Fuzz::Targets()) {
            const QDir folder(CorpusFolder(target));
            for (const QString& file : folder.entryList(QDir::Files, QDir::Name))
                QTest::addRow("%s/%s", target.name, qPrintable(file)) << &target << folder.filePath(file);
        }
    }
    void NoInputBreaksAPromise()
    {
        QFETCH(const Target*, target);
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray input = file.readAll();
        // Twice: the second time meets what the first one left in the widgets.
        target->run(input);
        target->run(input);
    }
};

QTEST_MAIN(tst_FuzzCorpus)

#include "tst_FuzzCorpus.moc"
