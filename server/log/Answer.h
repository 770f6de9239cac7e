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
};

} // namespace korvel::Demo
