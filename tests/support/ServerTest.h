#pragma once

#include <tests/support/ScriptedServer.h>
#include <tests/support/StrictTest.h>
#include <tests/support/VdbMessages.h>

#include <functional>
#include <memory>

namespace korvel::Test {

/// The base of the programs that ask a scripted server. Every test finds it without answers, faults and log,
/// and fails when the module logs something that the test does not take.
class ServerTest : public StrictTest
{
    Q_OBJECT

protected:
    /// Runs \p action when a request has arrived whose path and query contain \p target. One at a time, until
    /// the test ends.
    void OnRequest(const QString& target, const std::function<void()>& action);
    /// Runs \p ask in the event loop and quits the application when a request for \p target has arrived: true
    /// when \p ask returns then, long before any wait is over.
    bool QuittingEnds(const QString& target, const std::function<void()>& ask);

    std::unique_ptr<ScriptedServer> m_server;
    QString m_host; ///< the server's name
    std::unique_ptr<VdbMessages> m_messages;

protected Q_SLOTS:
    void initTestCase();
    void init();
    /// To be called when everything that asked is gone.
    void cleanup();
    void cleanupTestCase();

private:
    std::unique_ptr<QObject> m_context;
};

/// Serves every deleteLater().
void DeleteWhatIsDue();

} // namespace korvel::Test
