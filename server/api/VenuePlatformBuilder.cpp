#include <server/api/VenuePlatformBuilder_p.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;
using Part = VenueHallPlan::Part;
constexpr float c_pi = std::numbers::pi_v<float>;

} // namespace

void VenuePlatformBuilder::BuildPlatform()
{
    const bool vineyard = m_plan.style.architecture == Architecture::Vineyard;
    const float deep = -m_plan.stageDepth;
    const float half = m_plan.openingHalf;
    const Rgb wood = RgbFromHex(0xC48F56);
    const float ground = m_plan.stageHeight;
    m_scene.AddPanel({-half, ground, deep}, {half, ground, deep}, {half, ground, 1.2F}, {-half, ground, 1.2F},
                     wood, 14, 10, 0.0F, 0);
    m_scene.AddPanel({-half, 0, 1.2F}, {half, 0, 1.2F}, {half, ground, 1.2F}, {-half, ground, 1.2F},
                     wood * 0.7F, 8, 1);
    for (int riser = 0; riser < 3; ++riser) {
        const float z = -5.2F - 1.9F * static_cast<float>(riser);
        m_scene.AddBox({-half * 0.82F, ground, std::max(deep + 0.4F, z - 1.9F)},
                       {half * 0.82F, ground + 0.28F * static_cast<float>(riser + 1), z}, wood * 0.95F);
    }
    for (int row = 0; row < 5; ++row) { // chairs and desks in arcs around the conductor
        const float radius = 2.6F + 1.45F * static_cast<float>(row);
        const int chairs = 7 + row * 4;
        for (int chair = 0; chair < chairs; ++chair) {
            const float angle
                = c_pi * (0.08F + 0.84F * static_cast<float>(chair) / static_cast<float>(chairs - 1));
            const float x = std::cos(angle) * radius * 1.1F;
            const float z = 0.2F - std::sin(angle) * radius;
            if (std::abs(x) > half - 0.6F || z < deep + 0.7F)
                continue;
            const float level = ground
                + 0.28F * static_cast<float>(std::clamp(static_cast<int>((-5.2F - z) / 1.9F + 1.0F), 0, 3));
            m_scene.AddBox({x - 0.2F, level + 0.4F, z - 0.2F}, {x + 0.2F, level + 0.47F, z + 0.2F},
                           RgbFromHex(0x1C1C20));
            m_scene.AddBox({x - 0.2F, level + 0.47F, z - 0.24F}, {x + 0.2F, level + 0.92F, z - 0.2F},
                           RgbFromHex(0x242428));
            if (chair % 2 == 0)
                m_scene.AddFace({{x - 0.22F, level + 0.95F, z + 0.55F},
                                 {x + 0.22F, level + 0.95F, z + 0.55F},
                                 {x + 0.22F, level + 1.25F, z + 0.7F},
                                 {x - 0.22F, level + 1.25F, z + 0.7F}},
                                RgbFromHex(0x38342E));
        }
    }
    m_scene.AddBox({-0.6F, ground, -0.6F}, {0.6F, ground + 0.3F, 0.6F}, m_plan.style.wallDeep);
    // Organ above the choir, behind the platform.
    const float organZ = vineyard ? -m_plan.length * 0.86F - 13.5F : deep + 0.3F;
    const float low = vineyard ? 9.5F : ground + 4.4F;
    const float high = m_plan.part == Part::CutAway ? low + 1.5F
        : vineyard                                  ? m_plan.height + 0.5F
                                                    : m_plan.height - 1.2F;
    if (!vineyard) {
        const float wallTop = m_plan.part == Part::CutAway ? 5.0F : m_plan.height;
        m_scene.AddPanel({-m_plan.halfWidth - 2, 0, deep}, {m_plan.halfWidth + 2, 0, deep},
                         {m_plan.halfWidth + 2, wallTop, deep}, {-m_plan.halfWidth - 2, wallTop, deep},
                         m_plan.style.wall, 10, 6, 0, 0);
        m_scene.AddPanel({-half, ground, deep + 0.1F}, {half, ground, deep + 0.1F},
                         {half, low - 0.5F, deep + 0.1F}, {-half, low - 0.5F, deep + 0.1F},
                         m_plan.style.wallDeep, 12, 3, 0, 0);
        for (const float s : {-1.0F, 1.0F})
            m_scene.AddPanel({s * (m_plan.halfWidth + 2), 0, deep}, {s * (m_plan.halfWidth + 2), 0, 1.6F},
                             {s * (m_plan.halfWidth + 2), wallTop, 1.6F},
                             {s * (m_plan.halfWidth + 2), wallTop, deep}, m_plan.style.wall, 4, 6, 0, 0);
    }
    const float reach = vineyard ? 7.0F : 7.6F;
    for (const float x : Steps(-reach, reach, 0.34F)) {
        const float crest = std::abs(std::cos(x / reach * c_pi * 1.5F));
        const float tall = (high - low) * (0.55F + 0.42F * crest);
        m_scene.AddColumn({x, low + 0.4F * (1 - crest), organZ + 0.5F}, 0.13F, tall - 0.4F,
                          RgbFromHex(0xC8CCD0), 6, 1.0F, 1);
    }
    m_scene.AddBox({-reach - 0.6F, low - 0.7F, organZ - 0.1F}, {reach + 0.6F, low + 0.25F, organZ + 0.9F},
                   m_plan.style.trim * 0.75F);
    if (m_plan.part != Part::CutAway) {
        for (const float x : {-reach - 0.5F, -reach / 3, reach / 3, reach + 0.5F})
            m_scene.AddBox({x - 0.22F, low, organZ}, {x + 0.22F, high, organZ + 0.8F},
                           m_plan.style.trim * 0.8F);
    }
}

void VenuePlatformBuilder::BuildArenaStage()
{
    const float half = m_plan.openingHalf;
    const float deep = -m_plan.stageDepth;
    const float ground = m_plan.stageHeight;
    const bool model = m_plan.part == Part::CutAway;
    const Rgb black = RgbFromHex(0x1A1B1F);
    m_scene.AddPanel({-half, ground, deep}, {half, ground, deep}, {half, ground, 1}, {-half, ground, 1},
                     RgbFromHex(0x2C2E34), 12, 8, 0, 0);
    m_scene.AddPanel({-half, 0, 1}, {half, 0, 1}, {half, ground, 1}, {-half, ground, 1}, black, 8, 1);
    m_scene.AddBox({-1.6F, 0, 1}, {1.6F, ground, 8}, RgbFromHex(0x34363C));
    // The screen: a pattern of light that differs from house to house.
    const float screenHigh = model ? 4.5F : 9.0F;
    const int columns = 26;
    const int rows = 12;
    const float phase = m_plan.dice.Between(0, 6);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const float u = static_cast<float>(column) / columns;
            const float v = static_cast<float>(row) / rows;
            const float wave = 0.5F + 0.5F * std::sin(9 * u + phase + 4 * std::sin(4 * v + phase));
            const float x0 = -half + 1 + u * (2 * half - 2);
            const float x1 = x0 + (2 * half - 2) / columns;
            const float y0 = ground + 1.2F + v * screenHigh;
            m_scene.AddFace({{x0, y0, deep + 0.6F},
                             {x1, y0, deep + 0.6F},
                             {x1, y0 + screenHigh / rows, deep + 0.6F},
                             {x0, y0 + screenHigh / rows, deep + 0.6F}},
                            Mix(m_plan.style.lightOne, m_plan.style.lightTwo, wave),
                            0.25F + 0.9F * wave * wave, 0);
        }
    }
    for (const float s : {-1.0F, 1.0F}) {
        if (model) {
            m_scene.AddBox({s * (half + 1.5F) - 0.6F, 0, -2}, {s * (half + 1.5F) + 0.6F, 5, -0.8F}, black);
            continue;
        }
        for (int box = 0; box < 11; ++box) { // line arrays
            const float y = 13.5F - 0.62F * static_cast<float>(box);
            const float lean = 0.012F * static_cast<float>(box * box);
            m_scene.AddBox({s * (half + 1.4F) - 0.7F, y, -1.0F - lean},
                           {s * (half + 1.4F) + 0.7F, y + 0.58F, 0.1F - lean}, RgbFromHex(0x2A2C32));
        }
        m_scene.AddBox({s * (half + 1.8F) - 1.4F, 0, -2}, {s * (half + 1.8F) + 1.4F, 2.2F, 0}, black);
        for (int column = 0; column < 6; ++column) {
            for (int row = 0; row < 9; ++row) {
                const float x0 = s * (half + 4.2F) - 2 + static_cast<float>(column) * 0.67F;
                const float y0 = 4.2F + static_cast<float>(row) * 0.6F;
                m_scene.AddFace(
                    {{x0, y0, -3}, {x0 + 0.67F, y0, -3}, {x0 + 0.67F, y0 + 0.6F, -3}, {x0, y0 + 0.6F, -3}},
                    Mix(m_plan.style.lightTwo, m_plan.style.lightOne,
                        0.1F * static_cast<float>(row + column % 2)),
                    0.8F, 0);
            }
        }
    }
    if (!model) { // drapes that hide the seats behind the stage
        for (int fold = 0; fold < 60; ++fold) {
            const float x = -30.0F + static_cast<float>(fold);
            m_scene.AddPanel({x, 0, deep - 1.0F - 0.3F * static_cast<float>(fold % 2)},
                             {x + 1, 0, deep - 1.3F + 0.3F * static_cast<float>(fold % 2)},
                             {x + 1, 19, deep - 1.3F + 0.3F * static_cast<float>(fold % 2)},
                             {x, 19, deep - 1.0F - 0.3F * static_cast<float>(fold % 2)},
                             Mix(RgbFromHex(0x2A2E3C), m_plan.style.lightOne, 0.12F)
                                 * (fold % 2 == 0 ? 1.0F : 0.75F),
                             1, 6, 0.12F, 0);
        }
    }
    // Drum riser, amplifiers and a microphone.
    m_scene.AddBox({-2, ground, -9}, {2, ground + 0.6F, -6}, black * 1.4F);
    for (const float x : {-1.0F, 0.0F, 1.0F})
        m_scene.AddColumn({x, ground + 0.6F, -7.5F}, 0.42F, 0.6F, m_plan.style.trim, 10);
    for (const float x : {-7.0F, -5.6F, 5.0F, 6.4F})
        m_scene.AddBox({x, ground, -7}, {x + 1.2F, ground + 1.6F, -6.2F}, RgbFromHex(0x24262B));
    m_scene.AddColumn({0, ground, -1.5F}, 0.04F, 1.55F, RgbFromHex(0xB0B4BA), 5);
    const float rig = model ? 6.5F : 13.5F;
    const Rgb alu = RgbFromHex(0xB8BEC6);
    for (const float z : {0.0F, -5.5F, -11.0F})
        BuildTruss({-half - 1, rig, z}, {half + 1, rig, z}, 0.7F, alu);
    for (const float x : {-half, half})
        BuildTruss({x, rig, 0.3F}, {x, rig, -11}, 0.7F, alu);
    if (model) {
        for (const float s : {-1.0F, 1.0F}) {
            m_scene.AddBox({s * (half + 1) - 0.3F, 0, -0.3F}, {s * (half + 1) + 0.3F, rig, 0.3F}, alu * 0.8F);
            m_scene.AddBox({s * (half + 1) - 0.3F, 0, -11.3F}, {s * (half + 1) + 0.3F, rig, -10.7F},
                           alu * 0.8F);
        }
    }
}

} // namespace korvel::Demo
