#pragma once

#include <server/api/VenueHallPartBuilder_p.h>

namespace korvel::Demo {

/// Lights a hall: for a show, for the break, or as a model on a table.
class VenueHallLight : private VenueHallPartBuilder
{
public:
    using VenueHallPartBuilder::VenueHallPartBuilder;

    void BuildLights();
};

} // namespace korvel::Demo
