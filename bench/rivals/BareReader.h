#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <vector>

namespace korvel::Bench {

/// What a venue is made of, without anything around it.
struct BareVenue
{
    static constexpr std::size_t c_textCount = 12;

    qint64 id = 0;
    qint64 editor = -1;
    std::array<QString, c_textCount> texts;
    std::array<int, 3> uploadDate{};
    std::array<int, 6> editDate{};
};

/// The venues in \p body as the shortest program that simdjson allows reads them: no malformed replies, no
/// duplicates, no country names, no addresses, no time zones.
std::vector<BareVenue> ReadBare(const QByteArray& body);

} // namespace korvel::Bench
