#pragma once

#include <server/api/VenueHallPartBuilder_p.h>

namespace korvel::Demo {

/// Builds the stage of a theatre: proscenium, pit, set and curtain.
class VenueStageBuilder : private VenueHallPartBuilder
{
public:
    using VenueHallPartBuilder::VenueHallPartBuilder;

    void BuildProscenium();
    void BuildStageSet();

private:
    void BuildCurtain();
};

} // namespace korvel::Demo
