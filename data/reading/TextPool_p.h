#pragma once

#include <QHashFunctions>
#include <QString>
#include <QtMath>

#include <vector>

namespace korvel::Data::VenueDatabase {

/// Lets equal texts of one reply share their memory. Rooms of one building have name and address in common,
/// other venues their city or a number, and each stands in the reply for itself.
///
/// Key is what texts are known by: what was not seen lately is made, and nothing else. Remembers only the
/// last text of each slot: a look-up costs the same in every reply.
template <typename Key> class TextPool
{
public:
    /// A pool of a suitable size for a reply of \p venueCount venues; an estimate will do.
    explicit TextPool(qsizetype venueCount)
        : m_slots(qNextPowerOfTwo(static_cast<quint32>(qBound(c_fewest, venueCount, c_most))))
    {
    }

    /// The text that make() returns for \p key, in the memory of an earlier one where the pool remembers it.
    template <typename Make> QString Shared(const Key& key, Make&& make)
    {
        Slot& slot = m_slots[qHash(key, 0) & (m_slots.size() - 1)];
        if (slot.text.isNull() || slot.key != key)
            slot = {key, make()};
        return slot.text;
    }

private:
    static constexpr qsizetype c_fewest = 1000;
    static constexpr qsizetype c_most = 65535;

    struct Slot
    {
        Key key{};
        QString text;
    };

    std::vector<Slot> m_slots;
};

} // namespace korvel::Data::VenueDatabase
