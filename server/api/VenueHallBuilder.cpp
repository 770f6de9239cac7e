#include <server/api/VenueHallBuilder_p.h>

#include <server/api/VenueCeilingBuilder_p.h>
#include <server/api/VenueHallLight_p.h>
#include <server/api/VenueHouseBuilder_p.h>
#include <server/api/VenuePictureStage_p.h>
#include <server/api/VenuePlatformBuilder_p.h>
#include <server/api/VenueStageBuilder_p.h>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;

} // namespace

VenueHallBuilder::VenueHallBuilder(Scene& scene, VenueHallPlan& plan)
    : m_scene(scene)
    , m_plan(plan)
{
}

void VenueHallBuilder::Build()
{
    VenueHallLight(m_scene, m_plan).BuildLights();
    VenueHouseBuilder house(m_scene, m_plan);
    house.BuildFloor();
    house.BuildStalls();
    if (m_plan.closed)
        house.BuildBowl();
    else
        house.BuildTiers();
    house.BuildWallDetails();
    VenueCeilingBuilder(m_scene, m_plan).BuildCeiling();
    switch (m_plan.style.architecture) {
    case Architecture::Opera:
    case Architecture::Modern: {
        VenueStageBuilder stage(m_scene, m_plan);
        stage.BuildProscenium();
        stage.BuildStageSet();
        if (m_plan.part == VenueHallPlan::Part::StageHouse)
            AddStageHouse(m_scene, m_plan.style, m_plan.openingHalf, m_plan.openingHeight,
                          m_plan.stageHeight);
        break;
    }
    case Architecture::Shoebox:
    case Architecture::Vineyard:
        VenuePlatformBuilder(m_scene, m_plan).BuildPlatform();
        break;
    case Architecture::Arena:
        VenuePlatformBuilder(m_scene, m_plan).BuildArenaStage();
        break;
    }
    if (m_plan.part == VenueHallPlan::Part::Everything
        && m_plan.mood == VenueHallPlan::Mood::HouseLight) { // exit signs
        for (const float share : {0.36F, 0.64F}) {
            const QVector3D at = m_plan.closed ? m_plan.CurvePoint(share - 0.5F, 1.0F, 3)
                                               : m_plan.CurvePoint(share, 1.6F, 2.7F);
            m_scene.AddBox(at - QVector3D(0.4F, 0.16F, 0.05F), at + QVector3D(0.4F, 0.16F, 0.05F),
                           RgbFromHex(0x2CE070), 1.4F, 2);
            m_scene.AddGlow(at, 1.2F, RgbFromHex(0x30E880), 0.4F);
        }
    }
}

} // namespace korvel::Demo
