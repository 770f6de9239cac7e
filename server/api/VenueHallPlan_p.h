#pragma once

#include <server/api/VenuePictureScene_p.h>
#include <server/api/VenuePictureStyle_p.h>

namespace korvel::Demo {

/// The measures of a hall, in metres, and where to look at it from. The stage edge is at z = 0, the house
/// behind it.
struct VenueHallPlan
{
    enum class Part
    {
        Everything,
        CutAway, ///< without ceiling and with low walls, to look into it from above
        StageHouse ///< with the whole stage house, to look across the stage from a wing
    };
    enum class Mood
    {
        Show,
        HouseLight,
        Model
    };

    /// \p venueStyle must outlive the plan.
    VenueHallPlan(const VenueStyle& venueStyle, Part shownPart, Mood light);

    /// The cameras for a look from the audience, from the stage, from a corner and from above.
    Camera FromAuditorium() const;
    Camera FromStage() const;
    Camera FromCorner() const;
    Camera FromAbove() const;
    /// From the wing at the audience's right, which is the actor's left, or from the other one.
    Camera FromWing(bool left) const;

    /// A point of the line along which the house is built: \p share of the way around it, \p outward of it.
    QVector3D CurvePoint(float share, float outward, float height) const;

    const VenueStyle& style;
    Part part = Part::Everything;
    Mood mood = Mood::Show;
    /// Rolled by one builder after the other: their order decides what the hall looks like.
    Dice dice;
    float halfWidth = 11.0F;
    float length = 27.0F;
    float height = 18.0F;
    float corner = 11.0F; ///< radius of the rear corners of the house
    float openingHalf = 7.0F; ///< half the width of the stage opening or platform
    float openingHeight = 9.0F;
    float stageHeight = 1.1F;
    float stageDepth = 16.0F;
    bool closed = false; ///< the audience sits all around the stage
};

} // namespace korvel::Demo
