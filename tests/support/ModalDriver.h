#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

namespace korvel::Test {

/// Acts on the next modal window or menu of the type \p Window as soon as it is visible: the code that opens
/// it is stuck in its exec() meanwhile. Gives up, and hides whatever is open, after ten seconds.
template <typename Window> class ModalDriver : public QObject
{
public:
    explicit ModalDriver(std::function<void(Window*)> action)
        : m_action(std::move(action))
    {
        connect(&m_poll, &QTimer::timeout, this, &ModalDriver::Look);
        m_poll.start(5);
    }

    /// How many windows were acted on: 0 or 1.
    int Count() const
    {
        return m_count;
    }

private:
    void Look()
    {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* current = popup ? popup : QApplication::activeModalWidget();
        auto* window = qobject_cast<Window*>(current);
        if (window && window->isVisible()) {
            m_poll.stop();
            ++m_count;
            // A copy: the action may destroy what holds this driver.
            const auto action = m_action;
            action(window);
        } else if (++m_looks > 2000 && current) {
            m_poll.stop();
            current->hide();
        }
    }

    std::function<void(Window*)> m_action;
    QTimer m_poll;
    int m_count = 0;
    int m_looks = 0;
};

using BoxDriver = ModalDriver<QMessageBox>;

/// Clicks a button of the next message box.
std::unique_ptr<BoxDriver> AnswerBox(QMessageBox::StandardButton button);

} // namespace korvel::Test
