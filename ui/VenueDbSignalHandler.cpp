#include <ui/VenueDbSignalHandler.h>

#include <QMutexLocker>

namespace korvel::Ui::VenueDatabase {

VenueDbSignalHandler* VenueDbSignalHandler::m_instance = nullptr;
QMutex VenueDbSignalHandler::m_mutex;

VenueDbSignalHandler::VenueDbSignalHandler() = default;

VenueDbSignalHandler::~VenueDbSignalHandler() = default;

VenueDbSignalHandler* VenueDbSignalHandler::GetInstance()
{
    const QMutexLocker locker(&m_mutex);
    // Deliberate: no parent and never deleted. It must outlive every widget and every host object.
    if (!m_instance)
        m_instance = new VenueDbSignalHandler;
    return m_instance;
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_VenueDbSignalHandler.cpp"
