#pragma once

#include <server/api/VenueHallPartBuilder_p.h>

namespace korvel::Demo {

/// Builds the ceiling of a house with its lamps, or the roof of an arena.
class VenueCeilingBuilder : private VenueHallPartBuilder
{
public:
    using VenueHallPartBuilder::VenueHallPartBuilder;

    void BuildCeiling();

private:
    void BuildOperaCeiling();
    void BuildBeamCeiling();
    void BuildSailCeiling();
    void BuildArenaRoof();
    void AddChandelier(const QVector3D& centre, float radius);
};

} // namespace korvel::Demo
