#pragma once

#include <QPointer>

#include <utility>

namespace korvel::Ui::VenueDatabase {

/// A box or dialog that is asked for its answer once, by exec(), and deleted afterwards.
///
/// On the heap and guarded: its parent may be destroyed while it is open, and the window with it. Look
/// whether it is still there before using it after exec().
template <typename Window> class ModalWindow
{
public:
    template <typename... Arguments>
    explicit ModalWindow(Arguments&&... arguments)
        : m_window(new Window(std::forward<Arguments>(arguments)...))
    {
    }
    ~ModalWindow()
    {
        delete m_window;
    }
    Q_DISABLE_COPY_MOVE(ModalWindow)

    explicit operator bool() const
    {
        return m_window;
    }
    Window* operator->() const
    {
        return m_window;
    }
    Window& operator*() const
    {
        return *m_window;
    }

private:
    QPointer<Window> m_window;
};

} // namespace korvel::Ui::VenueDatabase
