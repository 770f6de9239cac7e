#include <tests/support/ServerTest.h>

#include <QElapsedTimer>
#include <QTimer>

namespace korvel::Test {

void ServerTest::OnRequest(const QString& target, const std::function<void()>& action)
{
    m_context = std::make_unique<QObject>();
    connect(&m_server->Log(), &Demo::RequestLog::RequestReceived, m_context.get(), [this, target, action]() {
        if (m_server->Log().RequestCount(target) > 0)
            action();
    });
}

bool ServerTest::QuittingEnds(const QString& target, const std::function<void()>& ask)
{
    OnRequest(target, &QCoreApplication::quit);
    bool hasReturned = false;
    QTimer::singleShot(0, m_context.get(), [&]() {
        ask();
        hasReturned = true;
    });
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::exec();
    return hasReturned && timer.elapsed() < 15'000;
}

void ServerTest::initTestCase()
{
    m_server = std::make_unique<ScriptedServer>();
    m_host = m_server->Server().Host();
}

void ServerTest::init()
{
    StrictTest::init();
    // A test that failed may have left its own.
    m_messages.reset();
    m_messages = std::make_unique<VdbMessages>();
    m_server->Reset();
}

void ServerTest::cleanup()
{
    m_context.reset();
    // Tests that expect messages take them.
    QCOMPARE(VdbMessages::Take(), QStringList());
    m_messages.reset();
    StrictTest::cleanup();
}

void ServerTest::cleanupTestCase()
{
    m_server.reset();
}

void DeleteWhatIsDue()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace korvel::Test
