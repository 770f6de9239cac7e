#include <server/api/VenueStageBuilder_p.h>

#include <cmath>
#include <numbers>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;
using Part = VenueHallPlan::Part;
using Mood = VenueHallPlan::Mood;
constexpr float c_pi = std::numbers::pi_v<float>;

} // namespace

void VenueStageBuilder::BuildCurtain()
{
    // Open house curtain: folds at both sides and a valance.
    const float high = m_plan.stageHeight + m_plan.openingHeight;
    for (int side = -1; side <= 1; side += 2) {
        for (int fold = 0; fold < 14; ++fold) {
            const float a = m_plan.openingHalf - 0.16F * static_cast<float>(fold);
            const float b = a - 0.16F;
            const float deepA = -0.5F + (fold % 2 == 0 ? 0.0F : 0.22F);
            const float deepB = -0.5F + (fold % 2 == 0 ? 0.22F : 0.0F);
            const auto s = static_cast<float>(side);
            m_scene.AddPanel({s * a, m_plan.stageHeight, deepA}, {s * b, m_plan.stageHeight, deepB},
                             {s * b, high, deepB}, {s * a, high, deepA},
                             m_plan.style.curtain * (fold % 2 == 0 ? 1.15F : 0.7F), 1, 4, 0.04F);
        }
    }
    const int swags = 44;
    for (int part = 0; part < swags; ++part) {
        const float a = -m_plan.openingHalf + 2 * m_plan.openingHalf * static_cast<float>(part) / swags;
        const float b = -m_plan.openingHalf + 2 * m_plan.openingHalf * static_cast<float>(part + 1) / swags;
        const auto drop = [&](float x) {
            return 1.5F + 0.45F * std::abs(std::sin((x / m_plan.openingHalf + 1) * c_pi * 2.5F));
        };
        m_scene.AddFace(
            {{a, high - drop(a), -0.2F}, {b, high - drop(b), -0.2F}, {b, high, -0.2F}, {a, high, -0.2F}},
            m_plan.style.curtain * (part % 2 == 0 ? 1.1F : 0.75F), 0.05F);
        m_scene.AddFace({{a, high - drop(a), -0.18F},
                         {b, high - drop(b), -0.18F},
                         {b, high - drop(b) + 0.14F, -0.18F},
                         {a, high - drop(a) + 0.14F, -0.18F}},
                        m_plan.style.trim, 0.25F);
    }
}

void VenueStageBuilder::BuildProscenium()
{
    const bool opera = m_plan.style.architecture == Architecture::Opera;
    const float half = m_plan.halfWidth + 4.2F;
    const float high = m_plan.stageHeight + m_plan.openingHeight;
    const Rgb front = opera ? m_plan.style.wall : m_plan.style.wallDeep;
    const float top = m_plan.part == Part::CutAway ? high * 0.45F : m_plan.height + 0.4F;
    for (int side = -1; side <= 1 && m_plan.part != Part::StageHouse; side += 2) {
        const auto s = static_cast<float>(side);
        m_scene.AddPanel({s * m_plan.openingHalf, 0, 0}, {s * half, 0, opera ? 1.5F : 2.5F},
                         {s * half, top, opera ? 1.5F : 2.5F}, {s * m_plan.openingHalf, top, 0}, front, 6,
                         10);
        if (m_plan.part == Part::CutAway)
            continue;
        if (opera) {
            m_scene.AddColumn({s * (m_plan.openingHalf + 0.9F), 0, 0.7F}, 0.5F, high + 0.4F,
                              m_plan.style.trim * 0.95F, 10, 0.88F);
            m_scene.AddColumn({s * (m_plan.openingHalf + 2.5F), 0, 1.0F}, 0.5F, high + 0.4F,
                              m_plan.style.wall, 10, 0.88F);
            m_scene.AddBox({s > 0 ? m_plan.openingHalf : -m_plan.openingHalf - 3.4F, high + 0.4F, 0.1F},
                           {s > 0 ? m_plan.openingHalf + 3.4F : -m_plan.openingHalf, high + 1.3F, 1.5F},
                           m_plan.style.trim * 0.9F);
        }
        m_scene.AddBox({s > 0 ? m_plan.openingHalf : -m_plan.openingHalf - 0.45F, 0, -0.1F},
                       {s > 0 ? m_plan.openingHalf + 0.45F : -m_plan.openingHalf, high, 0.25F},
                       m_plan.style.trim, opera ? 0.12F : 0.05F);
    }
    if (m_plan.part == Part::Everything) {
        m_scene.AddPanel({-m_plan.openingHalf, high, 0}, {m_plan.openingHalf, high, 0},
                         {m_plan.openingHalf, top, 0}, {-m_plan.openingHalf, top, 0}, front, 14, 5);
        m_scene.AddBox({-m_plan.openingHalf - 0.45F, high, -0.1F},
                       {m_plan.openingHalf + 0.45F, high + 0.45F, 0.25F}, m_plan.style.trim,
                       opera ? 0.12F : 0.05F);
        if (opera) { // the coat of arms above the opening
            for (int ring = 0; ring < 3; ++ring) {
                Scene::Corners shield;
                for (int corner = 0; corner < 8; ++corner) {
                    const float angle = 2 * c_pi * static_cast<float>(corner) / 8;
                    const float reach = 1.35F - 0.4F * static_cast<float>(ring);
                    shield.append({std::cos(angle) * reach * 1.25F, high + 1.4F + std::sin(angle) * reach,
                                   0.3F + 0.05F * static_cast<float>(ring)});
                }
                m_scene.AddFace(shield, ring == 1 ? m_plan.style.curtain : m_plan.style.trim, 0.15F, 2);
            }
        }
    }
    // Stage box.
    const float deep = -m_plan.stageDepth;
    const float wide = m_plan.openingHalf + 2.5F;
    m_scene.AddPanel({-wide, m_plan.stageHeight, deep}, {wide, m_plan.stageHeight, deep},
                     {wide, m_plan.stageHeight, 1.3F}, {-wide, m_plan.stageHeight, 1.3F},
                     RgbFromHex(0x6A5140), 12, 10, 0.0F, 0);
    m_scene.AddPanel({-m_plan.openingHalf, 0, 1.3F}, {m_plan.openingHalf, 0, 1.3F},
                     {m_plan.openingHalf, m_plan.stageHeight, 1.3F},
                     {-m_plan.openingHalf, m_plan.stageHeight, 1.3F}, m_plan.style.wallDeep, 8, 1);
    if (m_plan.part == Part::Everything) {
        m_scene.AddPanel({-wide, m_plan.stageHeight, deep}, {-wide, m_plan.stageHeight, 0},
                         {-wide, high + 4, 0}, {-wide, high + 4, deep}, RgbFromHex(0x16161A), 4, 4, 0, 0);
        m_scene.AddPanel({wide, m_plan.stageHeight, deep}, {wide, m_plan.stageHeight, 0}, {wide, high + 4, 0},
                         {wide, high + 4, deep}, RgbFromHex(0x16161A), 4, 4, 0, 0);
    }
    // Orchestra pit with its desk lamps.
    if (opera) {
        m_scene.AddPanel({-7.5F, 0.02F, 1.4F}, {7.5F, 0.02F, 1.4F}, {7.5F, 0.02F, 4.0F}, {-7.5F, 0.02F, 4.0F},
                         RgbFromHex(0x0C0A0A), 6, 1, 0, 0);
        m_scene.AddPanel({-7.5F, 0, 4.1F}, {7.5F, 0, 4.1F}, {7.5F, 0.85F, 4.1F}, {-7.5F, 0.85F, 4.1F},
                         m_plan.style.wallDeep, 8, 1);
        for (int desk = 0; desk < 16 && m_plan.mood != Mood::Model; ++desk)
            m_scene.AddGlow({m_plan.dice.Between(-6.8F, 6.8F), 0.5F, m_plan.dice.Between(1.8F, 3.7F)}, 0.55F,
                            m_plan.style.lightWarm, 0.4F);
    }
}

void VenueStageBuilder::BuildStageSet()
{
    const float ground = m_plan.stageHeight;
    const float deep = -m_plan.stageDepth + 1;
    const float wide = m_plan.openingHalf + 1.5F;
    const bool model = m_plan.part == Part::CutAway;
    if (!model) {
        // Cyclorama: glows from the bottom in one colour, to the top in the other.
        const int bands = 16;
        for (int band = 0; band < bands; ++band) {
            const float low = ground + 11.5F * static_cast<float>(band) / bands;
            const float high = ground + 11.5F * static_cast<float>(band + 1) / bands;
            const float share = static_cast<float>(band) / bands;
            m_scene.AddPanel({-wide, low, deep}, {wide, low, deep}, {wide, high, deep}, {-wide, high, deep},
                             Mix(m_plan.style.lightTwo, m_plan.style.lightOne * 0.6F, std::sqrt(share)), 6, 1,
                             0.75F - 0.45F * share, 0);
        }
    }
    const Rgb stone = RgbFromHex(0xB8AC9C);
    if (m_plan.style.stageSet == 0) { // arcades that grow smaller towards the back
        for (int arch = 0; arch < 3; ++arch) {
            const float z = -4.0F - 3.6F * static_cast<float>(arch);
            const float inner = 4.6F - 0.7F * static_cast<float>(arch);
            const float top = model ? 3.0F : 6.6F - 0.7F * static_cast<float>(arch);
            for (const float s : {-1.0F, 1.0F}) {
                m_scene.AddColumn({s * (inner + 0.5F), ground, z}, 0.42F, top, stone, 10, 0.9F);
                m_scene.AddColumn({s * (inner + 2.4F), ground, z}, 0.42F, top, stone, 10, 0.9F);
            }
            if (!model)
                m_scene.AddBox({-inner - 3.1F, ground + top, z - 0.45F},
                               {inner + 3.1F, ground + top + 0.8F, z + 0.45F}, stone * 0.92F);
        }
        for (int step = 0; step < 4; ++step)
            m_scene.AddBox({-3.4F + 0.3F * static_cast<float>(step), ground, -12.5F},
                           {3.4F - 0.3F * static_cast<float>(step),
                            ground + 0.25F * static_cast<float>(step + 1),
                            -9.5F - 0.5F * static_cast<float>(step)},
                           stone);
    } else if (m_plan.style.stageSet == 1) { // a large stair and a moon
        for (int step = 0; step < 10; ++step) {
            const float z = -5.0F - 0.7F * static_cast<float>(step);
            m_scene.AddBox({-5.2F, ground, z - 0.7F}, {5.2F, ground + 0.3F * static_cast<float>(step + 1), z},
                           stone * 0.9F);
        }
        if (!model) {
            Scene::Corners moon;
            for (int corner = 0; corner < 28; ++corner) {
                const float angle = 2 * c_pi * static_cast<float>(corner) / 28;
                moon.append(
                    {2.2F + std::cos(angle) * 1.8F, ground + 6.2F + std::sin(angle) * 1.8F, deep + 0.1F});
            }
            m_scene.AddFace(moon, RgbFromHex(0xFFF4DC), 1.0F, 1);
            m_scene.AddGlow({2.2F, ground + 6.2F, deep + 0.3F}, 4.5F, RgbFromHex(0xFFF0D0), 0.4F);
        }
        m_scene.AddColumn({-5.9F, ground, -6}, 0.4F, model ? 3.0F : 7.5F, stone, 10, 0.9F);
        m_scene.AddColumn({5.9F, ground, -6}, 0.4F, model ? 3.0F : 7.5F, stone, 10, 0.9F);
    } else { // a wood of slender trunks
        for (int trunk = 0; trunk < 26; ++trunk) {
            const float z = m_plan.dice.Between(deep + 1.5F, -3.0F);
            const float x = m_plan.dice.Between(-m_plan.openingHalf + 0.5F, m_plan.openingHalf - 0.5F);
            if (std::abs(x) > 2.4F || z < -11)
                m_scene.AddColumn({x, ground, z}, m_plan.dice.Between(0.10F, 0.24F), model ? 4.0F : 11,
                                  RgbFromHex(0xCFC6B6), 7, 0.75F);
        }
        m_scene.AddColumn({0, ground, -7}, 1.9F, 0.35F, RgbFromHex(0x5A6A4A), 18);
    }
    if (!model) {
        for (const float s : {-1.0F, 1.0F}) { // black legs
            for (int leg = 0; leg < 3; ++leg) {
                const float z = -3.0F - 4.0F * static_cast<float>(leg);
                m_scene.AddPanel({s * (m_plan.openingHalf - 0.4F), ground, z},
                                 {s * (m_plan.openingHalf + 2.4F), ground, z},
                                 {s * (m_plan.openingHalf + 2.4F), ground + 11, z},
                                 {s * (m_plan.openingHalf - 0.4F), ground + 11, z}, RgbFromHex(0x101014), 3,
                                 3);
            }
        }
        BuildCurtain();
    }
}

} // namespace korvel::Demo
