#include <server/faults/BodyTricks.h>

#include <QMap>
#include <QMutex>
#include <QMutexLocker>

#include <zlib.h>

namespace korvel::Demo::BodyTricks {

QByteArray BrokenGzip()
{
    return QByteArray("\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03", 10) + QByteArray(500, '\xff');
}

QByteArray GzipBomb(int megabytes)
{
    static QMutex mutex;
    static QMap<int, QByteArray> bombs;
    const QMutexLocker lock(&mutex);
    QByteArray& bomb = bombs[megabytes];
    if (!bomb.isEmpty())
        return bomb;
    const QByteArray blanks(1024 * 1024, ' ');
    QByteArray packed(64 * 1024, Qt::Uninitialized);
    z_stream stream{};
    constexpr int gzipWindow = 15 + 16;
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, gzipWindow, 8, Z_DEFAULT_STRATEGY);
    for (int i = 0; i < megabytes; ++i) {
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(blanks.constData()));
        stream.avail_in = static_cast<uInt>(blanks.size());
        do {
            stream.next_out = reinterpret_cast<Bytef*>(packed.data());
            stream.avail_out = static_cast<uInt>(packed.size());
            deflate(&stream, i + 1 == megabytes ? Z_FINISH : Z_NO_FLUSH);
            bomb.append(packed.constData(), packed.size() - static_cast<qsizetype>(stream.avail_out));
        } while (stream.avail_out == 0);
    }
    deflateEnd(&stream);
    return bomb;
}

} // namespace korvel::Demo::BodyTricks
