#include <data/TemporaryFileKeeper_p.h>

namespace korvel::Data::VenueDatabase {

TemporaryFileKeeper& TemporaryFileKeeper::Instance()
{
    // A static object, not aboutToQuit(): hosts that leave by exit() never emit that.
    static TemporaryFileKeeper keeper;
    return keeper;
}

TemporaryFileKeeper::~TemporaryFileKeeper()
{
    for (const QPointer<QTemporaryFile>& file : std::as_const(m_files))
        delete file.data();
}

void TemporaryFileKeeper::Keep(QTemporaryFile* file)
{
    m_files.removeIf([](const QPointer<QTemporaryFile>& kept) { return kept.isNull(); });
    m_files.append(file);
}

} // namespace korvel::Data::VenueDatabase
