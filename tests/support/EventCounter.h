#pragma once

#include <QEvent>
#include <QObject>

#include <functional>

namespace korvel::Test {

/// Counts the events of one type that reach an object, and does \p action at each.
class EventCounter : public QObject
{
public:
    EventCounter(QObject* watched, QEvent::Type type, std::function<void()> action = {})
        : m_type(type)
        , m_action(std::move(action))
    {
        watched->installEventFilter(this);
    }

    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == m_type) {
            ++count;
            if (m_action)
                m_action();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_action;
};

} // namespace korvel::Test
