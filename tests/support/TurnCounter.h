#pragma once

#include <QList>
#include <QObject>

#include <functional>
#include <utility>

namespace korvel::Test {

/// Counts the turns of the event loop in this thread, those of nested loops included, and acts in chosen
/// ones.
///
/// A turn begins when the event dispatcher starts to look for work. What is to happen in a turn runs from an
/// event of that turn, in whichever loop is the innermost: at the places where a host's own slots run.
/// Counting posts nothing and starts no timer, so it does not keep the loop busy.
class TurnCounter : public QObject
{
    Q_OBJECT

public:
    using Action = std::function<void()>;

    explicit TurnCounter(QObject* parent = nullptr);

    /// Counts from 0 on and runs each of \p actions in its turn, the first of which is 1.
    void Start(const QList<std::pair<int, Action>>& actions);
    /// Ends counting; what was not run never is.
    void Stop();
    /// The turns since Start().
    int Turns() const
    {
        return m_turns;
    }

    /// Calls \p action, as an event of the outermost loop, whenever that loop has nothing left to do for some
    /// turns and \p isAtRest agrees. Null ends it.
    void OnRest(const std::function<bool()>& isAtRest, const Action& action);

    bool event(QEvent* event) override;

private:
    void OnTurn();
    void OnAboutToBlock();

    QList<std::pair<int, Action>> m_actions;
    std::function<bool()> m_isAtRest;
    Action m_restAction;
    int m_turns = 0;
    int m_restingTurns = 0;
    bool m_isCounting = false;
};

} // namespace korvel::Test
