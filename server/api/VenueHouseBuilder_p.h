#pragma once

#include <server/api/VenueHallPartBuilder_p.h>

namespace korvel::Demo {

/// Builds the house: floor, seats, tiers or terraces, and what decorates the walls.
class VenueHouseBuilder : private VenueHallPartBuilder
{
public:
    using VenueHallPartBuilder::VenueHallPartBuilder;

    void BuildFloor();
    void BuildStalls();
    /// The balconies of a house in front of its stage.
    void BuildTiers();
    /// The rings of seats around a stage.
    void BuildBowl();
    void BuildWallDetails();

private:
    void BuildTierSegment(int tier, int segment, float base, float ceilingHeight);
};

} // namespace korvel::Demo
