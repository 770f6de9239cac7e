#pragma once

namespace korvel::Test {

/// Makes every unexpected warning fail the running test; to be called from a test's init(). Expected messages
/// are announced with QTest::ignoreMessage(). The offscreen platform's own remarks are let through.
void FailOnUnexpectedWarnings();

/// True when no top-level widget is visible any more; to be verified in a test's cleanup().
bool NoWindowIsLeft();

} // namespace korvel::Test
