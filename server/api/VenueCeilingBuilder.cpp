#include <server/api/VenueCeilingBuilder_p.h>

#include <cmath>
#include <numbers>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;
using Part = VenueHallPlan::Part;
using Mood = VenueHallPlan::Mood;
constexpr float c_pi = std::numbers::pi_v<float>;

} // namespace

void VenueCeilingBuilder::AddChandelier(const QVector3D& centre, float radius)
{
    const float glow = m_plan.mood == Mood::Show ? 0.35F : 0.8F;
    for (int ring = 0; ring < 3; ++ring) {
        const float reach = radius * (1.0F - 0.28F * static_cast<float>(ring));
        const float height = centre.y() + static_cast<float>(ring) * radius * 0.42F;
        const int lamps = 14 - ring * 3;
        for (int lamp = 0; lamp < lamps; ++lamp) {
            const float angle = 2.0F * c_pi * static_cast<float>(lamp) / static_cast<float>(lamps);
            const QVector3D at(centre.x() + std::cos(angle) * reach, height,
                               centre.z() + std::sin(angle) * reach);
            m_scene.AddColumn(at, radius * 0.06F, radius * 0.16F, m_plan.style.lightWarm, 5);
            m_scene.AddGlow(at, radius * 0.32F, m_plan.style.lightWarm, glow * 0.55F);
        }
        m_scene.AddColumn({centre.x(), height - 0.04F * radius, centre.z()}, reach, radius * 0.04F,
                          m_plan.style.trim, 18);
    }
    m_scene.AddColumn(centre, radius * 0.05F, m_plan.height - centre.y(), m_plan.style.trim * 0.5F, 5);
    m_scene.AddGlow(centre + QVector3D(0, radius * 0.4F, 0), radius * 3.4F, m_plan.style.lightWarm,
                    glow * 0.5F);
}

void VenueCeilingBuilder::BuildOperaCeiling()
{
    const QVector3D centre(0, m_plan.height + 2.4F, m_plan.length - 13.5F);
    const int segments = 36;
    for (int part = 0; part < segments; ++part) {
        const float angle0 = 2.0F * c_pi * static_cast<float>(part) / segments;
        const float angle1 = 2.0F * c_pi * static_cast<float>(part + 1) / segments;
        const auto at = [&](float angle, float radius, float drop) {
            return QVector3D(centre.x() + std::cos(angle) * radius, centre.y() - drop,
                             centre.z() + std::sin(angle) * radius);
        };
        static constexpr float c_rings[] = {0.6F, 2.2F, 4.6F, 5.0F, 8.4F, 8.9F, 16.0F};
        for (int ring = 0; ring < 6; ++ring) {
            const bool trim = ring == 2 || ring == 4 || ring == 0;
            const auto drop
                = [](float radius) { return radius > 8.9F ? 2.3F : 2.2F * std::pow(radius / 8.9F, 2.0F); };
            const Rgb panel = ring == 3
                ? Mix(m_plan.style.ceiling, m_plan.style.wallDeep, part % 3 == 0 ? 0.45F : 0.2F)
                : ring == 1 ? Mix(m_plan.style.ceiling, RgbFromHex(0x7FA3C8), part % 2 == 0 ? 0.5F : 0.35F)
                            : m_plan.style.ceiling;
            m_scene.AddFace({at(angle0, c_rings[ring], drop(c_rings[ring])),
                             at(angle1, c_rings[ring], drop(c_rings[ring])),
                             at(angle1, c_rings[ring + 1], drop(c_rings[ring + 1])),
                             at(angle0, c_rings[ring + 1], drop(c_rings[ring + 1]))},
                            trim ? m_plan.style.trim : panel, trim ? 0.12F : 0.05F, 0);
        }
    }
    m_scene.AddPanel({-m_plan.halfWidth - 3, m_plan.height, 0}, {m_plan.halfWidth + 3, m_plan.height, 0},
                     {m_plan.halfWidth + 3, m_plan.height, 5.5F},
                     {-m_plan.halfWidth - 3, m_plan.height, 5.5F}, m_plan.style.ceiling, 6, 2, 0.0F, 0);
    AddChandelier({0, m_plan.height - 3.2F, m_plan.length - 13.5F}, 1.9F);
}

void VenueCeilingBuilder::BuildBeamCeiling()
{
    const bool modern = m_plan.style.architecture == Architecture::Modern;
    const float half = m_plan.halfWidth + 4.0F;
    m_scene.AddPanel({-half, m_plan.height, -m_plan.stageDepth}, {half, m_plan.height, -m_plan.stageDepth},
                     {half, m_plan.height, m_plan.length + 4}, {-half, m_plan.height, m_plan.length + 4},
                     modern ? m_plan.style.ceiling * 0.6F : m_plan.style.ceiling, 10, 20, 0.0F, 0);
    if (modern) {
        for (int wave = 0; wave < 7; ++wave) {
            const float z = 1.5F + 4.3F * static_cast<float>(wave);
            const float low = m_plan.height - 3.6F + 0.28F * static_cast<float>(wave);
            const float wide = m_plan.halfWidth * (0.72F + 0.3F * z / m_plan.length);
            m_scene.AddPanel({-wide, low + 0.9F, z}, {wide, low + 0.9F, z}, {wide, low, z + 3.4F},
                             {-wide, low, z + 3.4F}, m_plan.style.ceiling, 8, 1);
            m_scene.AddBox({-wide, low + 0.05F, z + 3.45F}, {wide, low + 0.16F, z + 3.55F},
                           m_plan.style.lightWarm, m_plan.mood == Mood::Show ? 0.5F : 1.2F);
        }
        return;
    }
    for (const float z : Steps(-m_plan.stageDepth + 2, m_plan.length, 4.4F))
        m_scene.AddBox({-m_plan.halfWidth - 2, m_plan.height - 0.7F, z},
                       {m_plan.halfWidth + 2, m_plan.height, z + 0.6F}, m_plan.style.trim * 0.85F);
    for (const float x : Steps(-8, 8.1F, 4))
        m_scene.AddBox({x - 0.2F, m_plan.height - 0.5F, -m_plan.stageDepth},
                       {x + 0.2F, m_plan.height, m_plan.length}, m_plan.style.trim * 0.75F);
    for (const float z : Steps(3, m_plan.length - 2, 8.8F)) {
        AddChandelier({-5, m_plan.height - 4.2F, z}, 1.0F);
        AddChandelier({5, m_plan.height - 4.2F, z}, 1.0F);
    }
}

void VenueCeilingBuilder::BuildSailCeiling()
{
    m_scene.AddPanel({-36, m_plan.height + 5, -36}, {36, m_plan.height + 5, -36}, {36, m_plan.height + 5, 36},
                     {-36, m_plan.height + 5, 36}, m_plan.style.wallDeep * 0.6F, 10, 10, 0.0F, 0);
    for (int row = -2; row <= 2; ++row) {
        for (int column = -2; column <= 2; ++column) {
            const float x = static_cast<float>(column) * 8.2F;
            const float z = -3.0F + static_cast<float>(row) * 7.6F;
            const float height = m_plan.height + 1.2F
                - 0.45F * static_cast<float>(std::abs(column) + std::abs(row))
                + m_plan.dice.Between(-0.5F, 0.5F);
            // A convex sail: lowest in the middle.
            const auto at = [&](float u, float v) {
                return QVector3D(x + u * 3.9F, height + 0.75F * (u * u + v * v) - 0.9F, z + v * 3.6F);
            };
            for (int i = -2; i < 2; ++i) {
                for (int j = -2; j < 2; ++j) {
                    const float u = static_cast<float>(i) / 2;
                    const float v = static_cast<float>(j) / 2;
                    m_scene.AddFace({at(u, v), at(u + 0.5F, v), at(u + 0.5F, v + 0.5F), at(u, v + 0.5F)},
                                    m_plan.style.ceiling, 0.0F, 0);
                }
            }
            m_scene.AddGlow({x + 4.1F, height - 0.4F, z + 3.8F}, 0.8F, m_plan.style.lightWarm,
                            m_plan.mood == Mood::Show ? 0.35F : 0.8F);
        }
    }
}

void VenueCeilingBuilder::BuildArenaRoof()
{
    const float height = m_plan.height + 3;
    m_scene.AddPanel({-44, height + 2, -36}, {44, height + 2, -36}, {44, height + 2, 62},
                     {-44, height + 2, 62}, m_plan.style.ceiling * 0.7F, 12, 12, 0.0F, 0);
    const Rgb steel = RgbFromHex(0x8A949E);
    for (int index = 0; index < 6; ++index) {
        const float z = -10.0F + 9.5F * static_cast<float>(index);
        BuildTruss({-34, height - 1.5F, z}, {34, height - 1.5F, z}, 1.9F, steel * 0.8F);
    }
    for (int index = -1; index <= 1; ++index)
        BuildTruss({static_cast<float>(index) * 14, height - 1.2F, -18},
                   {static_cast<float>(index) * 14, height - 1.2F, 46}, 1.5F, steel * 0.7F);
    for (int row = 0; row < 5; ++row) {
        for (int column = -3; column <= 3; ++column)
            m_scene.AddGlow(
                {static_cast<float>(column) * 9, height - 1.8F, -5.0F + 9.5F * static_cast<float>(row)},
                m_plan.mood == Mood::Show ? 0.8F : 1.9F, RgbFromHex(0xE8F0FF),
                m_plan.mood == Mood::Show ? 0.25F : 0.85F);
    }
}

void VenueCeilingBuilder::BuildCeiling()
{
    if (m_plan.part == Part::CutAway)
        return;
    switch (m_plan.style.architecture) {
    case Architecture::Opera:
        BuildOperaCeiling();
        break;
    case Architecture::Vineyard:
        BuildSailCeiling();
        break;
    case Architecture::Arena:
        BuildArenaRoof();
        break;
    case Architecture::Shoebox:
    case Architecture::Modern:
        BuildBeamCeiling();
        break;
    }
}

} // namespace korvel::Demo
