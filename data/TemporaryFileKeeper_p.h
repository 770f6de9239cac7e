#pragma once

#include <QList>
#include <QPointer>
#include <QTemporaryFile>

namespace korvel::Data::VenueDatabase {

/// Owns the temporary files that outlive their records, and removes them when the application ends.
///
/// User-interface thread only, like the records' temporary files themselves.
class TemporaryFileKeeper
{
public:
    static TemporaryFileKeeper& Instance();

    TemporaryFileKeeper() = default;
    TemporaryFileKeeper(const TemporaryFileKeeper&) = delete;
    TemporaryFileKeeper& operator=(const TemporaryFileKeeper&) = delete;
    ~TemporaryFileKeeper();

    /// Takes \p file over; whoever deletes it earlier may do so.
    void Keep(QTemporaryFile* file);

private:
    QList<QPointer<QTemporaryFile>> m_files;
};

} // namespace korvel::Data::VenueDatabase
