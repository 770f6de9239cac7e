#pragma once

#include <QObject>
#include <QTest>

namespace korvel::Test {

/// Makes every unexpected warning fail the running test. Expected messages are announced with
/// QTest::ignoreMessage(). The offscreen platform's own remarks are let through.
void FailOnUnexpectedWarnings();

/// Announces them one by one.
void ExpectWarnings(const QStringList& warnings);

/// True when no top-level widget is visible any more.
bool NoWindowIsLeft();

/// The base of the test programs: a test fails by an unexpected warning, and by a window or a waiting cursor
/// that it leaves behind. A program with an init() or a cleanup() of its own calls this one's in it.
class StrictTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();
};

} // namespace korvel::Test
