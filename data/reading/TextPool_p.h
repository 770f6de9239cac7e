#pragma once

#include <QHashFunctions>
#include <QString>

#include <vector>

namespace korvel::Data::VenueDatabase {

/// Lets equal texts of one reply share their memory. Rooms of one building have name and address in common,
/// other venues their city or a number, and each stands in the reply for itself.
///
/// Key is what texts are known by: what was not seen lately is made, and nothing else. Remembers only the
/// last text of each slot, and so few of them that they stay in the processor's cache: a text that was never
/// seen before costs hardly more than without a pool, in a reply of any size.
template <typename Key> class TextPool
{
public:
    /// The text that make() returns for \p key, in the memory of an earlier one where the pool remembers it.
    template <typename Make> QString Shared(const Key& key, Make&& make)
    {
        const std::size_t hash = qHash(key, 0);
        Slot& slot = m_slots[hash % c_slotCount];
        // The hash first: the key's characters may be far away.
        if (slot.hash != hash || slot.text.isNull() || slot.key != key)
            slot = {hash, key, make()};
        return slot.text;
    }

private:
    static constexpr std::size_t c_slotCount = 4096;

    struct Slot
    {
        std::size_t hash = 0;
        Key key{};
        QString text;
    };

    std::vector<Slot> m_slots = std::vector<Slot>(c_slotCount);
};

} // namespace korvel::Data::VenueDatabase
