#pragma once

#include <QByteArray>
#include <QList>

#include <utility>

namespace korvel::Demo {

/// An answer of the venue server before anything goes wrong with it.
struct Answer
{
    int status = 200;
    QByteArray mediaType;
    QByteArray body;
    QList<std::pair<QByteArray, QByteArray>> headers;

    /// The words behind \p status in the first line of an answer, for example "Not Found".
    static QByteArray StatusText(int status);
};

} // namespace korvel::Demo
