#pragma once

#include <data/Picture.h>
#include <data/TsFile.h>

#include <QJsonArray>
#include <QList>
#include <QString>

namespace korvel::Data::VenueDatabase {

/// A record without its bytes, and where the server keeps them.
template <typename Record> struct StoredFile
{
    Record record;
    /// Path on the server, as received.
    QString path;
};

/// Reads the records of one venue's stored files out of a reply's "included" array, which holds "file"
/// resources and, in any order, resources that refer to them and say what they are.
///
/// There is one record per "file" resource, in their order. One that nothing refers to gives a record without
/// id and names; if several refer to it, the last one counts.
class IncludedReader
{
public:
    /// Reads \p included as that of the venue with the id \p venueId, which all records carry.
    IncludedReader(const QJsonArray& included, qint64 venueId);

    /// The files as pictures, with the addresses of their renditions as received.
    QList<StoredFile<Picture>> Pictures() const;
    /// The files as model files.
    QList<StoredFile<TsFile>> ModelFiles() const;

private:
    QJsonArray m_included;
    qint64 m_venueId = -1;
};

} // namespace korvel::Data::VenueDatabase
