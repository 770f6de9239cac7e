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

    void NothingIsTooMuch()
    {
        // The program applies the limits, and looks into the temporary folder when its worker has ended.
        QVERIFY2(m_exitCode == 0, m_messages.constData());
        QVERIFY(!m_messages.contains("TOO MUCH"));
    }

    void TooMuchIsReported_data()
    {
        const Rows<Sample, bool> row("last", "isFine");
        const QString searches = u"searches"_s;
        row("nothing more", Sample{searches, 100, 0, 0, 0, 0}, true);
        constexpr qint64 c_kilobyte = 1024;
        const auto heap = [&row](const QString& phase, qint64 kilobytes, qint64 files = 0) {
            const qint64 bytes = kilobytes * c_kilobyte;
            const QByteArray name = QByteArray::number(kilobytes) + " KB of " + phase.toLatin1();
            row(name, Sample{phase, 100, bytes, files, 0, files}, true);
            row("more than " + name, Sample{phase, 100, bytes + 1, files, 0, files}, false);
        };
        heap(searches, 2048);
        heap(u"selections"_s, 2048);
        heap(u"downloads"_s, 16 * 100);
        heap(u"viewer steps"_s, 512);
        heap(u"imports"_s, 512);
        heap(u"new imports"_s, 4 * 100, 100);
        row("a reply", Sample{searches, 100, 0, 0, 1, 0}, false);
        row("four descriptors", Sample{searches, 100, 0, 4, 0, 0}, true);
        row("five descriptors", Sample{searches, 100, 0, 5, 0, 0}, false);
        row("a temporary file", Sample{searches, 100, 0, 0, 0, 1}, false);
        row("an import whose file is gone", Sample{u"new imports"_s, 100, 0, 100, 0, 99}, false);
    }
    void TooMuchIsReported()
    {
        const auto [last, isFine] = Fetch<Sample, bool>();
        QCOMPARE(Complaints(FromCsv(ToCsv({Sample{last.phase, 0, 0, 0, 0, 0}, last}))).isEmpty(), isFine);
    }
};

QTEST_GUILESS_MAIN(tst_SoakShort)

#include "tst_SoakShort.moc"
