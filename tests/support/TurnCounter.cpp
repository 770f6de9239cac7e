#include <tests/support/TurnCounter.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QTimer>

namespace korvel::Test {

namespace {

/// How many turns in a row must find nothing to do: timers that are due at once count as nothing.
constexpr int c_restingTurns = 3;

const QEvent::Type c_turnEvent = static_cast<QEvent::Type>(QEvent::registerEventType());
const QEvent::Type c_restEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

} // namespace

TurnCounter::TurnCounter(QObject* parent)
    : QObject(parent)
{
    const QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, &TurnCounter::OnTurn, Qt::DirectConnection);
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &TurnCounter::OnAboutToBlock,
            Qt::DirectConnection);
}

void TurnCounter::Start(const QList<std::pair<int, Action>>& actions)
{
    m_actions = actions;
    m_turns = 0;
    m_isCounting = true;
}

void TurnCounter::Stop()
{
    m_isCounting = false;
    m_actions.clear();
    m_restAction = nullptr;
    m_restingTurns = 0;
    QCoreApplication::removePostedEvents(this);
}

void TurnCounter::OnRest(const std::function<bool()>& isAtRest, const Action& action)
{
    m_isAtRest = isAtRest;
    m_restAction = action;
    m_restingTurns = 0;
}

bool TurnCounter::event(QEvent* event)
{
    if (event->type() == c_turnEvent) {
        if (!m_actions.isEmpty())
            m_actions.takeFirst().second();
        return true;
    }
    if (event->type() == c_restEvent) {
        if (const Action action = m_restAction)
            action();
        return true;
    }
    return QObject::event(event);
}

void TurnCounter::OnTurn()
{
    if (!m_isCounting)
        return;
    ++m_turns;
    for (const auto& [turn, action] : std::as_const(m_actions))
        if (turn == m_turns)
            QCoreApplication::postEvent(this, new QEvent(c_turnEvent), Qt::HighEventPriority);
}

void TurnCounter::OnAboutToBlock()
{
    if (!m_restAction)
        return;
    if (QThread::currentThread()->loopLevel() != 1 || !m_isAtRest()) {
        m_restingTurns = 0;
        return;
    }
    if (++m_restingTurns < c_restingTurns) {
        // Another turn.
        QTimer::singleShot(0, this, []() { });
        return;
    }
    m_restingTurns = 0;
    QCoreApplication::postEvent(this, new QEvent(c_restEvent));
}

} // namespace korvel::Test
