#pragma once

#include <server/api/VenueHallPartBuilder_p.h>

namespace korvel::Demo {

/// Builds what is played on where there is no stage house: a concert platform or the stage of an arena.
class VenuePlatformBuilder : private VenueHallPartBuilder
{
public:
    using VenueHallPartBuilder::VenueHallPartBuilder;

    void BuildPlatform();
    void BuildArenaStage();
};

} // namespace korvel::Demo
