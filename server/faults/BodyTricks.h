#pragma once

#include <QByteArray>

/// Bodies that a client must survive.
namespace korvel::Demo::BodyTricks {

/// Starts like gzip and goes on as something else.
QByteArray BrokenGzip();
/// Valid gzip that unpacks to \p megabytes of blanks. Made once per size in a process; may be called from
/// several threads.
QByteArray GzipBomb(int megabytes);

} // namespace korvel::Demo::BodyTricks
