#pragma once

#include <server/api/VenueHallPlan_p.h>

namespace korvel::Demo {

/// Builds the whole hall of a venue: house, seats, ceiling, stage and light.
class VenueHallBuilder
{
public:
    /// Builds into \p scene what \p plan says; both must outlive the builder.
    VenueHallBuilder(Scene& scene, VenueHallPlan& plan);

    void Build();

private:
    Scene& m_scene;
    VenueHallPlan& m_plan;
};

} // namespace korvel::Demo
