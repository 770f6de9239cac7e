#include <server/api/PictureStore.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QMutexLocker>
#include <QSaveFile>

namespace korvel::Demo {

namespace {

/// To be raised when the drawing program changes what it draws.
constexpr char c_drawingVersion[] = "2";

/// A name that changes with everything that a picture shows, so that a folder never serves an outdated one.
QString CacheName(const VenueRecord& venue, const PictureRecord& picture, QSize size)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArrayView(c_drawingVersion));
    for (const QString& text :
         {picture.id, picture.view, venue.title, venue.venueRoomName, venue.locality, venue.countryCode}) {
        hash.addData(text.toUtf8());
        hash.addData(QByteArrayView("\0", 1));
    }
    return QStringLiteral("%1-%2-%3.jpg")
        .arg(venue.entityId)
        .arg(QString::fromLatin1(hash.result().toHex().left(16)))
        .arg(size.width());
}

} // namespace

PictureStore::PictureStore(PictureSource source, const QString& folder)
    : m_source(std::move(source))
    , m_folder(folder)
{
}

QSize PictureStore::RenditionSize(const QString& rendition)
{
    if (rendition == QLatin1String("small")) {
        return {480, 320};
    }
    if (rendition == QLatin1String("medium")) {
        return {1200, 800};
    }
    return rendition == QLatin1String("large") ? QSize(3000, 2000) : QSize();
}

QByteArray PictureStore::File(const VenueRecord& venue, const PictureRecord& picture,
                              const QString& rendition)
{
    const QSize size = RenditionSize(rendition);
    const QString name = CacheName(venue, picture, size);
    {
        const QMutexLocker lock(&m_mutex);
        while (m_underWay.contains(name)) {
            m_finished.wait(&m_mutex);
        }
        if (const auto found = m_files.constFind(name); found != m_files.cend()) {
            return *found;
        }
        m_underWay.insert(name);
    }
    const QByteArray bytes = Make(name, venue, picture, size);
    const QMutexLocker lock(&m_mutex);
    m_files.insert(name, bytes);
    m_underWay.remove(name);
    m_finished.wakeAll();
    return bytes;
}

QByteArray PictureStore::Make(const QString& name, const VenueRecord& venue, const PictureRecord& picture,
                              QSize size)
{
    if (m_folder.isEmpty()) {
        return m_source(venue, picture, size);
    }
    if (QFile file(QDir(m_folder).filePath(name)); file.open(QIODevice::ReadOnly)) {
        if (const QByteArray bytes = file.readAll(); !bytes.isEmpty()) {
            return bytes;
        }
    }
    const QByteArray bytes = m_source(venue, picture, size);
    QDir().mkpath(m_folder);
    // Written under another name and renamed: a second server never reads half a picture.
    if (QSaveFile file(QDir(m_folder).filePath(name)); file.open(QIODevice::WriteOnly)) {
        file.write(bytes);
        file.commit();
    }
    return bytes;
}

} // namespace korvel::Demo
