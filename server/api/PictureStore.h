#pragma once

#include <server/catalogue/VenueCatalogue.h>

#include <QByteArray>
#include <QHash>
#include <QMutex>
#include <QSet>
#include <QSize>
#include <QString>
#include <QWaitCondition>

#include <functional>

namespace korvel::Demo {

/// Makes the encoded bytes of a picture in a size. Called in threads of the server.
using PictureSource
    = std::function<QByteArray(const VenueRecord& venue, const PictureRecord& picture, QSize size)>;

/// Makes picture files when they are first asked for and keeps them: in memory, and in a folder where one is
/// given.
///
/// All members may be used from every thread; one file is never made twice at a time.
class PictureStore
{
public:
    /// An empty \p folder: files are kept in memory only.
    PictureStore(PictureSource source, const QString& folder);

    /// The size of the rendition "small", "medium" or "large"; empty for any other name.
    static QSize RenditionSize(const QString& rendition);

    QByteArray File(const VenueRecord& venue, const PictureRecord& picture, const QString& rendition);

private:
    QByteArray Make(const QString& name, const VenueRecord& venue, const PictureRecord& picture, QSize size);

    PictureSource m_source;
    QString m_folder;
    QMutex m_mutex;
    QWaitCondition m_finished;
    QSet<QString> m_underWay;
    QHash<QString, QByteArray> m_files;
};

} // namespace korvel::Demo
