#pragma once

#include <server/api/VenueHallPlan_p.h>

namespace korvel::Demo {

/// What the builders of a hall's parts share.
class VenueHallPartBuilder
{
public:
    /// Builds into \p scene what \p plan says; both must outlive the builder.
    VenueHallPartBuilder(Scene& scene, VenueHallPlan& plan);

protected:
    /// One seat that stands at \p foot and looks along \p towardsStage, a vector of length 1.
    void AddSeat(const QVector3D& foot, const QVector3D& towardsStage, float shadeJitter);
    /// A lattice girder of four chords, \p size apart.
    void BuildTruss(const QVector3D& from, const QVector3D& to, float size, const Rgb& colour);

    Scene& m_scene;
    VenueHallPlan& m_plan;
};

} // namespace korvel::Demo
