#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <utility>

namespace korvel::Demo {

/// One request as the server received it.
struct Request
{
    qint64 id = 0; ///< counts from 1
    qint64 connectionId = 0; ///< the tunnel or direct connection it came through, see ConnectRecord
    QDateTime time; ///< UTC, when the header was read
    QByteArray method;
    QString host; ///< without port
    QByteArray target; ///< path and query as sent
    QString path; ///< decoded
    QList<std::pair<QString, QString>> query; ///< decoded, in the order sent
    QList<std::pair<QByteArray, QByteArray>> headers; ///< sorted by name
    int status = 0; ///< of the answer; 0 while there is none and when none was ever sent
};

} // namespace korvel::Demo
