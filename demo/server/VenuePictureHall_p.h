#pragma once

#include <demo/server/VenuePictureScene_p.h>
#include <demo/server/VenuePictureStyle_p.h>

namespace korvel::Demo {

/// Builds the hall of a venue: house, seats, ceiling and stage; the stage edge is at z = 0, the house behind
/// it.
class VenueHallBuilder
{
public:
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

    VenueHallBuilder(Scene& scene, const VenueStyle& style, Part part, Mood mood);

    void Build();
    /// The cameras for a look from the audience, from the stage, from a corner and from above.
    Camera FromAuditorium() const;
    Camera FromStage() const;
    Camera FromCorner() const;
    Camera FromAbove() const;
    /// From the wing at the audience's right, which is the actor's left, or from the other one.
    Camera FromWing(bool left) const;

private:
    QVector3D CurvePoint(float share, float outward, float height) const;
    void BuildFloor();
    void BuildStalls();
    void BuildTiers();
    void BuildTierSegment(int tier, int segment, float base, float ceilingHeight);
    void BuildBowl();
    void BuildWallDetails();
    void BuildCeiling();
    void BuildOperaCeiling();
    void BuildBeamCeiling();
    void BuildSailCeiling();
    void BuildArenaRoof();
    void BuildProscenium();
    void BuildCurtain();
    void BuildStageSet();
    void BuildPlatform();
    void BuildArenaStage();
    void BuildTruss(const QVector3D& from, const QVector3D& to, float size, const Rgb& colour);
    void BuildLights();
    void AddSeat(const QVector3D& foot, const QVector3D& towardsStage, float shadeJitter);
    void AddChandelier(const QVector3D& centre, float radius);

    Scene& m_scene;
    const VenueStyle& m_style;
    Part m_part = Part::Everything;
    Mood m_mood = Mood::Show;
    Dice m_dice;
    float m_halfWidth = 11.0F;
    float m_length = 27.0F;
    float m_height = 18.0F;
    float m_corner = 11.0F; ///< radius of the rear corners of the house
    float m_openingHalf = 7.0F; ///< half the width of the stage opening or platform
    float m_openingHeight = 9.0F;
    float m_stageHeight = 1.1F;
    float m_stageDepth = 16.0F;
    bool m_closed = false; ///< the audience sits all around the stage
};

} // namespace korvel::Demo
