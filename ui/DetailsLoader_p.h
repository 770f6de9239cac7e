#pragma once

#include <QPointer>

#include <functional>

namespace korvel::Ui::VenueDatabase {

/// Sees to it that the details of one row load at a time, and that those of the row selected last are shown.
///
/// A load runs nested event loops below Qt's own view code, which has just reported a selection. Meanwhile
/// other rows may be selected, a search may replace all rows, and somebody may want to delete the window: all
/// of that is kept until the load has ended.
class DetailsLoader
{
public:
    /// Calls \p load, once more after each change of the selection that came while it ran. Called again while
    /// it runs, this function notes such a change and returns at once. Ends where \p panel, whose member this
    /// is, dies meanwhile.
    void Run(QObject* panel, const std::function<void()>& load);
    /// True while \p load of Run() is on the stack.
    bool IsLoading() const;

    /// The rows were replaced: what is being loaded must not be shown any more.
    void Discard();
    /// What the present load brings may be shown.
    bool IsWanted() const;

    /// Deletes \p object, which may own the panel, when the load has ended and Qt's view code has returned.
    void DeleteAfterLoading(QObject* object);

private:
    bool m_isLoading = false;
    bool m_isWanted = false;
    bool m_hasSelectionChanged = false;
    QPointer<QObject> m_objectToDelete;
};

} // namespace korvel::Ui::VenueDatabase
