#pragma once

#include <QString>

#include <vector>

namespace korvel::Data::VenueDatabase {

/// Lets equal texts of one reply share their memory. Rooms of one building have name and address in common,
/// other venues their city or a number, and the JSON parser gives each its own copy.
///
/// Remembers only the last text of each slot: a look-up costs the same in every reply.
class TextPool
{
public:
    /// A pool of a suitable size for a reply of \p venueCount venues.
    explicit TextPool(qsizetype venueCount);

    /// A text equal to \p text, in the memory of an earlier one where the pool remembers one.
    QString Shared(const QString& text);

private:
    std::vector<QString> m_slots;
};

} // namespace korvel::Data::VenueDatabase
