#include <ui/DetailsLoader_p.h>

#include <QCoreApplication>
#include <QTimer>

namespace korvel::Ui::VenueDatabase {

void DetailsLoader::Run(QObject* panel, const std::function<void()>& load)
{
    if (m_isLoading) {
        // Loading it inside the running load would let the older details arrive last.
        m_hasSelectionChanged = true;
        return;
    }

    const QPointer<QObject> guard(panel);
    m_isLoading = true;
    do {
        m_isWanted = true;
        m_hasSelectionChanged = false;
        load();
        if (!guard)
            return;
    } while (m_hasSelectionChanged && !m_objectToDelete);
    m_isLoading = false;

    if (m_objectToDelete) {
        // Not deleteLater(): newer versions of Qt take only the first call for an object, and that one was
        // used up.
        QTimer::singleShot(0, qApp, [object = m_objectToDelete]() { delete object; });
    }
}

bool DetailsLoader::IsLoading() const
{
    return m_isLoading;
}

void DetailsLoader::Discard()
{
    m_isWanted = false;
}

bool DetailsLoader::IsWanted() const
{
    return m_isWanted;
}

void DetailsLoader::DeleteAfterLoading(QObject* object)
{
    m_objectToDelete = object;
}

} // namespace korvel::Ui::VenueDatabase
