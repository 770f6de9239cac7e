#include <tests/support/Files.h>
#include <tests/support/GeneratedServer.h>
#include <tests/support/StrictTest.h>

#include <QProcess>

using namespace Qt::StringLiterals;
using namespace korvel::Test;

/// The host guide's first program, built as the guide says, against a venue server of its own. Without
/// VDB_PLANNER, the program's path, there is nothing to test, which fails.
class tst_HostGuide : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void FirstProgramFindsVenues()
    {
        const auto server = GeneratedServer({.venueCount = 20});
        const QTemporaryDir folder;
        const QString authority = folder.filePath(u"ca.pem"_s);
        WriteFile(authority, server->CaPem());

        QProcess planner;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_LOGGING_RULES"_s, u"vdb.trace=true"_s);
        planner.setProcessEnvironment(environment);
        planner.setProcessChannelMode(QProcess::MergedChannels);
        planner.start(qEnvironmentVariable("VDB_PLANNER"), {QString::number(server->ProxyPort()), authority});
        QVERIFY2(planner.waitForStarted(), qPrintable(planner.errorString()));

        // The first search and the list of countries, both without a condition.
        QByteArray output;
        const auto hasBothReplies = [&] {
            output += planner.readAll();
            return output.count("HTTP status 200") == 2;
        };
        QTRY_VERIFY2_WITH_TIMEOUT(hasBothReplies() || planner.state() != QProcess::Running,
                                  output.constData(), 30000);
        QCOMPARE(planner.state(), QProcess::Running);
        QCOMPARE(server->Log().RequestCount(u"/api/venue?include=editor"_s), 2);
        QVERIFY2(!output.contains("rror:") && output.count("no error") == 2, output.constData());
        planner.terminate();
        QVERIFY(planner.waitForFinished());
    }

    void FirstProgramRefusesAFileWithoutCertificate()
    {
        QProcess planner;
        planner.start(qEnvironmentVariable("VDB_PLANNER"),
                      {u"1"_s, QStringLiteral(VDB_SOURCE_DIR "/README.md")});
        QVERIFY(planner.waitForFinished());
        QVERIFY(planner.readAllStandardError().contains("README.md holds no certificate"));
    }
};

QTEST_GUILESS_MAIN(tst_HostGuide)
#include "tst_HostGuide.moc"
