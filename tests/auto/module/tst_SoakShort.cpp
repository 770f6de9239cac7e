#include <tests/soak/SoakSample.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QProcess>

using namespace Qt::StringLiterals;

using namespace korvel::Soak;
using namespace korvel::Test;

/// The short form of the long run: the same program with fewer rounds, its promises one by one.
class tst_SoakShort : public StrictTest
{
    Q_OBJECT

private:
    static constexpr qint64 c_searches = 300;
    static constexpr qint64 c_selections = 100;
    static constexpr qint64 c_viewerSteps = 300;
    static constexpr qint64 c_imports = 60;

    QList<QList<Sample>> m_phases;
    int m_exitCode = -1;
    QByteArray m_messages;

    const QList<Sample>& Phase(const QString& name) const
    {
        static const QList<Sample> none{Sample(), Sample()};
        for (const QList<Sample>& phase : m_phases)
            if (phase.constFirst().phase == name)
                return phase;
        return none;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QProcess soak;
        soak.start(QStringLiteral(VDB_SOAK_PROGRAM),
                   {u"--warm-up"_s, u"40"_s, u"--searches"_s, QString::number(c_searches), u"--selections"_s,
                    QString::number(c_selections), u"--steps"_s, QString::number(c_viewerSteps),
                    u"--imports"_s, QString::number(c_imports)});
        constexpr int c_patience = 200000;
        QVERIFY(soak.waitForFinished(c_patience));
        QCOMPARE(soak.exitStatus(), QProcess::NormalExit);
        m_exitCode = soak.exitCode();
        m_messages = soak.readAllStandardError();
        m_phases = ByPhase(FromCsv(soak.readAllStandardOutput()));
        QVERIFY2(!m_phases.isEmpty(), m_messages.constData());
    }

    void EveryRoundRan_data()
    {
        const Rows<QString, qint64> row("phase", "rounds");
        row("searches", u"searches"_s, c_searches);
        row("selections", u"selections"_s, c_selections);
        row("large downloads", u"downloads"_s, c_viewerSteps / 2);
        row("viewer steps", u"viewer steps"_s, c_viewerSteps / 2);
        row("imports of one record", u"imports"_s, c_imports / 2);
        row("imports of new records", u"new imports"_s, c_imports / 2);
    }
    void EveryRoundRan()
    {
        const auto [phase, rounds] = Fetch<QString, qint64>();
        QCOMPARE(Phase(phase).constFirst().round, 0);
        QCOMPARE(Phase(phase).constLast().round, rounds);
    }

    void HeapDoesNotGrow_data()
    {
        const Rows<QString, qint64> row("phase", "limit");
        constexpr qint64 c_megabyte = 1024 * 1024;
        row("searches", u"searches"_s, 2 * c_megabyte);
        row("selections", u"selections"_s, 2 * c_megabyte);
        row("16 KB for a large download", u"downloads"_s, 16 * 1024 * c_viewerSteps / 2);
        row("viewer steps", u"viewer steps"_s, c_megabyte / 2);
        row("imports of one record", u"imports"_s, c_megabyte / 2);
        // The name, not the buffer that the file was written through.
        row("4 KB for a new import", u"new imports"_s, 4 * 1024 * c_imports / 2);
    }
    void HeapDoesNotGrow()
    {
        const auto [phase, limit] = Fetch<QString, qint64>();
        const QList<Sample>& samples = Phase(phase);
        const qint64 growth = samples.constLast().heap - samples.constFirst().heap;
        QVERIFY2(growth < limit, qPrintable(u"%1 bytes"_s.arg(growth)));
    }

    void NoReplyIsLeft()
    {
        for (const QList<Sample>& phase : std::as_const(m_phases))
            for (const Sample& sample : phase)
                QCOMPARE(sample.replies, 0);
    }

    void FilesAndDescriptorsStay_data()
    {
        const Rows<QString, qint64> row("phase", "perRound");
        for (const char* phase : {"searches", "selections", "downloads", "viewer steps", "imports"})
            row(phase, QString::fromLatin1(phase), 0);
        row("one for each new import", u"new imports"_s, 1);
    }
    void FilesAndDescriptorsStay()
    {
        const auto [phase, perRound] = Fetch<QString, qint64>();
        const Sample& first = Phase(phase).constFirst();
        const Sample& last = Phase(phase).constLast();
        // A connection may be made anew at the moment of a sample, with two ends and a tunnel between.
        constexpr qint64 c_connection = 4;
        QVERIFY(last.descriptors - first.descriptors <= perRound * last.round + c_connection);
        QCOMPARE(last.tempFiles - first.tempFiles, perRound * last.round);
    }

    void NothingIsLeftAfterTheProcess()
    {
        // The program looks into the temporary folder when its worker has ended, and applies the limits too.
        QVERIFY2(m_exitCode == 0, m_messages.constData());
        QVERIFY(!m_messages.contains("TOO MUCH"));
    }

    void TooMuchIsReported_data()
    {
        const Rows<Sample, bool> row("last", "isFine");
        const QString searches = u"searches"_s;
        const QString downloads = u"downloads"_s;
        constexpr qint64 c_megabyte = 1024 * 1024;
        row("nothing more", Sample{searches, 100, 0, 0, 0, 0}, true);
        row("2 MB", Sample{searches, 100, 2 * c_megabyte, 0, 0, 0}, true);
        row("over 2 MB", Sample{searches, 100, 2 * c_megabyte + 1, 0, 0, 0}, false);
        row("16 KB a download", Sample{downloads, 1000, 16000 * 1024, 0, 0, 0}, true);
        row("17 KB a download", Sample{downloads, 1000, 17000 * 1024, 0, 0, 0}, false);
        row("a reply", Sample{searches, 100, 0, 0, 1, 0}, false);
        row("descriptors", Sample{searches, 100, 0, 100, 0, 0}, false);
        row("a descriptor a new import", Sample{u"new imports"_s, 100, 0, 100, 0, 100}, true);
    }
    void TooMuchIsReported()
    {
        const auto [last, isFine] = Fetch<Sample, bool>();
        QCOMPARE(Complaints(FromCsv(ToCsv({Sample{last.phase, 0, 0, 0, 0, 0}, last}))).isEmpty(), isFine);
    }
};

QTEST_GUILESS_MAIN(tst_SoakShort)

#include "tst_SoakShort.moc"
