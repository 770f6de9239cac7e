#include <server/api/VenueHouseBuilder_p.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;
using Part = VenueHallPlan::Part;
using Mood = VenueHallPlan::Mood;

} // namespace

void VenueHouseBuilder::BuildFloor()
{
    const bool arena = m_plan.style.architecture == Architecture::Arena;
    if (m_plan.closed) {
        const float reach = 0.0F;
        for (int part = 0; part < 48; ++part) {
            const float from = static_cast<float>(part) / 48.0F;
            const float to = static_cast<float>(part + 1) / 48.0F;
            const QVector3D centre(0, 0, arena ? m_plan.length * 0.34F : -3.0F);
            const QVector3D a = m_plan.CurvePoint(from, reach, 0);
            const QVector3D b = m_plan.CurvePoint(to, reach, 0);
            for (int ring = 0; ring < 5; ++ring) {
                const float in = static_cast<float>(ring) / 5.0F;
                const float out = static_cast<float>(ring + 1) / 5.0F;
                m_scene.AddFace(
                    {Mix(centre, a, in), Mix(centre, a, out), Mix(centre, b, out), Mix(centre, b, in)},
                    m_plan.style.floor, 0.0F, 0);
            }
        }
        return;
    }
    const float reach = m_plan.style.architecture == Architecture::Opera ? 2.9F
        : m_plan.style.architecture == Architecture::Modern              ? 4.0F
                                                                         : 2.0F;
    for (int part = 0; part < 60; ++part) {
        const QVector3D a = m_plan.CurvePoint(static_cast<float>(part) / 60.0F, reach, 0);
        const QVector3D b = m_plan.CurvePoint(static_cast<float>(part + 1) / 60.0F, reach, 0);
        for (int ring = 0; ring < 4; ++ring) {
            const auto inward = [&](const QVector3D& edge, int step) {
                return QVector3D(edge.x() * static_cast<float>(step) / 4.0F, 0, edge.z());
            };
            m_scene.AddFace({inward(a, ring), inward(a, ring + 1), inward(b, ring + 1), inward(b, ring)},
                            m_plan.style.floor, 0.0F, 0);
        }
    }
    const float front = m_plan.halfWidth + reach;
    if (m_plan.style.architecture == Architecture::Shoebox)
        m_scene.AddPanel({-front, 0, -m_plan.stageDepth}, {front, 0, -m_plan.stageDepth}, {front, 0, 0},
                         {-front, 0, 0}, m_plan.style.floor, 8, 3, 0.0F, 0);
    m_scene.AddPanel({-front, 0, 0}, {front, 0, 0}, {front, 0, 1.6F}, {-front, 0, 1.6F}, m_plan.style.floor,
                     8, 1, 0.0F, 0);
}

void VenueHouseBuilder::BuildStalls()
{
    if (m_plan.style.architecture == Architecture::Vineyard) {
        for (const float radius : Steps(5.6F, 12.6F, 0.95F)) {
            for (const float angle : Steps(-1.15F, 1.15F, 0.6F / radius)) {
                const QVector3D foot(std::sin(angle) * radius, 0.05F * (radius - 5.6F),
                                     -2.6F + std::cos(angle) * radius);
                if (foot.z() > 2.4F && std::abs(angle) > 0.06F && std::abs(std::abs(angle) - 0.55F) > 0.05F)
                    AddSeat(foot, QVector3D(-std::sin(angle), 0, -std::cos(angle)),
                            m_plan.dice.Between(0, 1));
            }
        }
        return;
    }
    const bool arena = m_plan.style.architecture == Architecture::Arena;
    const float first = arena ? 7.0F : m_plan.style.architecture == Architecture::Opera ? 5.0F : 3.5F;
    const float last = arena ? m_plan.length * 0.98F : m_plan.length - 3.0F;
    const float rake = arena ? 0.0F : m_plan.style.architecture == Architecture::Modern ? 0.13F : 0.055F;
    const float pitch = 1.0F;
    for (const float z : Steps(first, last, pitch)) {
        // In the show picture the rows right under the camera would only hide what it is about.
        const float curve = arena ? 0.0F : 0.008F;
        const float half = arena ? 14.0F : m_plan.halfWidth - 1.4F;
        const float rise = (z - first) * rake;
        if (!arena) {
            m_scene.AddPanel({-half, rise, z - 0.5F}, {half, rise, z - 0.5F}, {half, rise, z + 0.5F},
                             {-half, rise, z + 0.5F}, Mix(m_plan.style.floor, m_plan.style.seat, 0.25F), 6, 1,
                             0.0F, 0);
        }
        for (const float x : Steps(-half + 0.35F, half - 0.2F, 0.56F)) {
            const bool aisle
                = std::abs(x) < 0.7F || (half > 12 && std::abs(std::abs(x) - half * 0.58F) < 0.6F);
            const float rowZ = z - curve * x * x;
            const bool beside = m_plan.corner > 3 && z > m_plan.length - m_plan.corner
                && std::abs(x) > half
                        * std::sqrt(std::max(
                            0.0F,
                            1.0F - std::pow((z - m_plan.length + m_plan.corner) / m_plan.corner, 2.0F)));
            if (aisle || beside || (arena && std::fmod(z - first, 9.0F) < 1.0F))
                continue;
            const QVector3D direction = QVector3D(-x * 0.02F, 0, -1).normalized();
            AddSeat({x, rise, rowZ}, direction, m_plan.dice.Between(0, 1));
        }
    }
}

void VenueHouseBuilder::BuildTierSegment(int tier, int segment, float base, float ceilingHeight)
{
    const bool opera = m_plan.style.architecture == Architecture::Opera;
    const int segments = opera ? 44 : 40;
    const float from = static_cast<float>(segment) / static_cast<float>(segments);
    const float to = static_cast<float>(segment + 1) / static_cast<float>(segments);
    const float depth = opera ? 2.9F : m_plan.style.architecture == Architecture::Modern ? 4.0F : 2.0F;
    const Rgb back = opera ? m_plan.style.wallDeep : Mix(m_plan.style.wall, m_plan.style.wallDeep, 0.3F);
    const bool cut = m_plan.part == Part::CutAway;
    const float top = cut ? std::min(ceilingHeight, base + 1.4F) : ceilingHeight;
    m_scene.AddFace({m_plan.CurvePoint(from, depth, base), m_plan.CurvePoint(to, depth, base),
                     m_plan.CurvePoint(to, depth, top), m_plan.CurvePoint(from, depth, top)},
                    back, 0.0F, 0);
    if (tier == 0)
        return;
    const int rows = m_plan.style.architecture == Architecture::Modern ? 4 : 2;
    for (int row = 0; row < rows; ++row) {
        const float near = depth * static_cast<float>(row) / static_cast<float>(rows);
        const float far = depth * static_cast<float>(row + 1) / static_cast<float>(rows);
        const float level = base + 0.42F * static_cast<float>(row);
        m_scene.AddFace({m_plan.CurvePoint(from, near, level), m_plan.CurvePoint(to, near, level),
                         m_plan.CurvePoint(to, far, level), m_plan.CurvePoint(from, far, level)},
                        m_plan.style.floor * 0.8F);
        const QVector3D along = m_plan.CurvePoint(to, near, 0) - m_plan.CurvePoint(from, near, 0);
        const QVector3D inward = QVector3D::crossProduct(along, {0, 1, 0}).normalized();
        const int seats = std::max(1, static_cast<int>(along.length() / 0.62F));
        for (int seat = 0; seat < seats; ++seat) {
            const float share
                = from + (to - from) * (static_cast<float>(seat) + 0.5F) / static_cast<float>(seats);
            const QVector3D foot = m_plan.CurvePoint(share, near + 0.62F, level);
            const QVector3D stage = (QVector3D(0, level, -3) - foot).normalized();
            const QVector3D facing
                = (inward * (QVector3D::dotProduct(inward, stage) >= 0 ? 1.0F : -1.0F) + stage * 0.8F);
            AddSeat(foot, QVector3D(facing.x(), 0, facing.z()).normalized(), m_plan.dice.Between(0, 1));
        }
    }
    // Underside, front and rails.
    m_scene.AddFace({m_plan.CurvePoint(from, 0, base - 0.35F), m_plan.CurvePoint(to, 0, base - 0.35F),
                     m_plan.CurvePoint(to, depth, base - 0.2F), m_plan.CurvePoint(from, depth, base - 0.2F)},
                    Mix(m_plan.style.wall, m_plan.style.wallDeep, 0.35F));
    const auto band = [&](float low, float high, float outward, const Rgb& colour, float emission) {
        m_scene.AddFace(
            {m_plan.CurvePoint(from, outward, base + low), m_plan.CurvePoint(to, outward, base + low),
             m_plan.CurvePoint(to, outward, base + high), m_plan.CurvePoint(from, outward, base + high)},
            colour, emission);
    };
    band(-0.4F, 0.82F, 0.0F, m_plan.style.wall, 0.0F);
    band(-0.42F, -0.28F, -0.06F, m_plan.style.trim, 0.12F);
    band(0.74F, 0.86F, -0.06F, m_plan.style.trim * (opera ? 1.0F : 0.9F), 0.15F);
    m_scene.AddFace({m_plan.CurvePoint(from, -0.1F, base + 0.86F), m_plan.CurvePoint(to, -0.1F, base + 0.86F),
                     m_plan.CurvePoint(to, 0.25F, base + 0.86F),
                     m_plan.CurvePoint(from, 0.25F, base + 0.86F)},
                    opera ? m_plan.style.curtain : m_plan.style.trim);
    if (opera) {
        // A cartouche on every front, a curtain and a partition at every box.
        const float mid = (from + to) / 2.0F;
        const float quarter = (to - from) * 0.28F;
        m_scene.AddFace({m_plan.CurvePoint(mid - quarter, -0.05F, base + 0.2F),
                         m_plan.CurvePoint(mid, -0.05F, base - 0.1F),
                         m_plan.CurvePoint(mid + quarter, -0.05F, base + 0.2F),
                         m_plan.CurvePoint(mid, -0.05F, base + 0.52F)},
                        m_plan.style.trim, 0.1F);
        if (!cut) {
            const float high = std::min(ceilingHeight - 0.35F, base + 2.75F);
            if (ceilingHeight - base > 3.4F)
                band(2.7F, ceilingHeight - base, 0.1F, m_plan.style.wall, 0.0F);
            m_scene.AddFace({m_plan.CurvePoint(from, 0.1F, base + 0.8F),
                             m_plan.CurvePoint(from, depth, base + 0.5F),
                             m_plan.CurvePoint(from, depth, high), m_plan.CurvePoint(from, 0.25F, high)},
                            m_plan.style.wallDeep);
            const float width = (to - from) * 0.3F;
            m_scene.AddFace({m_plan.CurvePoint(from, 0.15F, high),
                             m_plan.CurvePoint(from + width, 0.15F, high),
                             m_plan.CurvePoint(from + width * 0.25F, 0.15F, base + 1.25F),
                             m_plan.CurvePoint(from, 0.15F, base + 0.9F)},
                            m_plan.style.curtain);
            m_scene.AddFace({m_plan.CurvePoint(to, 0.15F, high), m_plan.CurvePoint(to - width, 0.15F, high),
                             m_plan.CurvePoint(to - width * 0.25F, 0.15F, base + 1.25F),
                             m_plan.CurvePoint(to, 0.15F, base + 0.9F)},
                            m_plan.style.curtain);
            m_scene.AddFace(
                {m_plan.CurvePoint(from, 0.12F, high - 0.45F), m_plan.CurvePoint(mid, 0.12F, high - 0.2F),
                 m_plan.CurvePoint(to, 0.12F, high - 0.45F), m_plan.CurvePoint(to, 0.12F, high + 0.1F),
                 m_plan.CurvePoint(from, 0.12F, high + 0.1F)},
                m_plan.style.curtain * 0.9F);
        }
    }
    if (!cut && segment % (opera ? 4 : 6) == 2)
        m_scene.AddGlow(m_plan.CurvePoint(from, -0.25F, base + 0.45F), 1.1F, m_plan.style.lightWarm,
                        m_plan.mood == Mood::Show ? 0.28F : 0.6F);
}

void VenueHouseBuilder::BuildTiers()
{
    const bool opera = m_plan.style.architecture == Architecture::Opera;
    const int segments = opera ? 44 : 40;
    const int tiers = opera                                 ? m_plan.style.tiers
        : m_plan.style.architecture == Architecture::Modern ? 1
                                                            : 1 + (m_plan.style.tiers > 3 ? 1 : 0);
    const float lowest = opera ? 3.2F : 5.0F;
    const float step = opera ? 3.1F : 4.6F;
    for (int segment = 0; segment < segments; ++segment) {
        const QVector3D there
            = m_plan.CurvePoint((static_cast<float>(segment) + 0.5F) / static_cast<float>(segments), 0, 0);
        // Cut away what stands between the viewer above and the house.
        const bool near = m_plan.part == Part::CutAway
            && (there.x() * ((m_plan.style.seed % 2) == 0 ? 1.0F : -1.0F) * 0.8F
                    + (there.z() - m_plan.length * 0.5F)
                > 2.0F);
        for (int tier = 0; tier <= tiers; ++tier) {
            if (near && tier > 1)
                continue;
            if (m_plan.part == Part::CutAway && tier == 1 && segment % 4 == 1)
                m_scene.AddColumn(
                    m_plan.CurvePoint(static_cast<float>(segment) / static_cast<float>(segments), 0.3F, 0),
                    0.16F, lowest - 0.4F, m_plan.style.wall, 8);
            const float base = tier == 0 ? 0.0F : lowest + step * static_cast<float>(tier - 1);
            const float top = tier == tiers ? m_plan.height : lowest + step * static_cast<float>(tier) - 0.2F;
            if (m_plan.style.architecture == Architecture::Modern && tier > 0
                && there.z() < m_plan.length * 0.55F) {
                BuildTierSegment(0, segment, base, top);
                continue;
            }
            BuildTierSegment(tier, segment, base, tier == 0 && near ? 1.0F : top);
        }
    }
}

void VenueHouseBuilder::BuildBowl()
{
    const bool arena = m_plan.style.architecture == Architecture::Arena;
    const int segments = arena ? 72 : 40;
    struct Ring
    {
        float offset, base, rise, pitch;
        int rows;
    };
    static constexpr Ring c_arena[] = {{0, 2.2F, 0.46F, 0.95F, 11}, {13.2F, 10.2F, 0.62F, 0.95F, 11}};
    static constexpr Ring c_vineyard[]
        = {{0, 1.3F, 0.34F, 0.95F, 5}, {5.6F, 4.0F, 0.42F, 0.95F, 6}, {12.0F, 8.0F, 0.46F, 0.95F, 4}};
    const Ring* rings = arena ? c_arena : c_vineyard;
    const int ringCount = arena ? 2 : 3;
    std::vector<float> jitter;
    jitter.reserve(10 * static_cast<std::size_t>(ringCount));
    for (int block = 0; block < 10 * ringCount; ++block)
        jitter.push_back(arena ? 0.0F : m_plan.dice.Between(-0.75F, 0.75F));
    for (int ring = 0; ring < ringCount; ++ring) {
        const Ring& it = rings[ring];
        for (int segment = 0; segment < segments; ++segment) {
            const float from = static_cast<float>(segment) / static_cast<float>(segments);
            const float to = static_cast<float>(segment + 1) / static_cast<float>(segments);
            const QVector3D middle = m_plan.CurvePoint((from + to) / 2, 0, 0);
            const bool behindStage = middle.z() < -8.0F && std::abs(middle.x()) < 16.0F;
            if (arena && behindStage)
                continue;
            const float lift = jitter[ring * 10 + segment * 10 / segments];
            const float base = it.base + lift;
            const bool blockEdge
                = segment * 10 / segments != (segment + 1) * 10 / segments || (arena && segment % 6 == 5);
            const auto face = [&](float outA, float highA, float outB, float highB, const Rgb& colour,
                                  float emission = 0.0F) {
                m_scene.AddFace({m_plan.CurvePoint(from, outA, highA), m_plan.CurvePoint(to, outA, highA),
                                 m_plan.CurvePoint(to, outB, highB), m_plan.CurvePoint(from, outB, highB)},
                                colour, emission);
            };
            const float below = ring == 0 ? 0.0F : base - (arena ? 1.2F : 2.4F);
            face(it.offset, below, it.offset, base + 0.75F, m_plan.style.wall);
            face(it.offset - 0.05F, base + 0.66F, it.offset - 0.05F, base + 0.8F, m_plan.style.trim, 0.15F);
            if (arena && ring == 1) // the ribbon display and the boxes below it
                face(it.offset - 0.08F, base - 0.9F, it.offset - 0.08F, base - 0.2F, m_plan.style.lightOne,
                     1.1F);
            if (arena && ring == 0) {
                const float back = it.offset + it.pitch * static_cast<float>(it.rows);
                face(back, base + it.rise * static_cast<float>(it.rows), back + 1.5F, rings[1].base - 1.2F,
                     segment % 2 == 0 ? RgbFromHex(0xFFCF8A) : RgbFromHex(0x8A6A48),
                     segment % 2 == 0 ? 0.55F : 0.15F);
            }
            for (int row = 0; row < it.rows; ++row) {
                const float near = it.offset + it.pitch * static_cast<float>(row);
                const float level = base + it.rise * static_cast<float>(row);
                face(near, level, near + it.pitch, level, Mix(m_plan.style.floor, m_plan.style.wall, 0.3F));
                face(near + it.pitch, level, near + it.pitch, level + it.rise, m_plan.style.floor * 0.7F);
                const float width
                    = (m_plan.CurvePoint(to, near, 0) - m_plan.CurvePoint(from, near, 0)).length();
                const int seats = std::max(1, static_cast<int>(width / 0.6F)) - (blockEdge ? 2 : 0);
                for (int seat = 0; seat < seats; ++seat) {
                    const float share = from + (to - from) * (static_cast<float>(seat) + 0.5F) * 0.6F / width;
                    const QVector3D foot = m_plan.CurvePoint(share, near + 0.5F, level);
                    const QVector3D towards = m_plan.CurvePoint(share, near - 1.0F, level)
                        - m_plan.CurvePoint(share, near, level);
                    AddSeat(foot, towards.normalized(), m_plan.dice.Between(0, 1));
                }
            }
            const float back = it.offset + it.pitch * static_cast<float>(it.rows);
            const float high = base + it.rise * static_cast<float>(it.rows);
            const bool outer = ring + 1 == ringCount;
            const float top = m_plan.part == Part::CutAway || !outer ? high + 1.2F
                                                                     : m_plan.height + (arena ? 5.0F : 2.0F);
            if (outer || !arena)
                face(back, outer && m_plan.part == Part::CutAway ? 0.0F : high - it.rise, back, top,
                     outer ? m_plan.style.wall * 0.8F : m_plan.style.wall);
            if (blockEdge && !arena) { // the side of a terrace
                m_scene.AddFace({m_plan.CurvePoint(to, it.offset, below), m_plan.CurvePoint(to, back, below),
                                 m_plan.CurvePoint(to, back, high + 0.7F),
                                 m_plan.CurvePoint(to, it.offset, base + 0.75F)},
                                m_plan.style.wall);
            }
        }
    }
}

void VenueHouseBuilder::BuildWallDetails()
{
    if (m_plan.part == Part::CutAway || m_plan.closed || m_plan.style.architecture == Architecture::Opera)
        return;
    const bool slats = m_plan.style.architecture == Architecture::Modern;
    const int count = slats ? 60 : 15;
    for (int side = -1; side <= 1; side += 2) {
        for (int index = 0; index < count; ++index) {
            const float share
                = (static_cast<float>(index) + 0.5F) / static_cast<float>(count) * (slats ? 0.34F : 0.405F);
            const float at = side < 0 ? share : 1.0F - share;
            const float depth = slats ? 3.7F : 1.75F;
            const QVector3D foot = m_plan.CurvePoint(at, depth, slats ? 2.4F : 0.0F);
            const float half = slats ? 0.09F : 0.35F;
            const float top = slats
                ? m_plan.height - 1.0F - 1.6F * std::abs(std::sin(static_cast<float>(index) * 0.35F))
                : m_plan.height - 0.8F;
            m_scene.AddBox(
                {foot.x() - 0.16F, foot.y(), foot.z() - half}, {foot.x() + 0.16F, top, foot.z() + half},
                slats ? m_plan.style.trim * 0.8F : Mix(m_plan.style.wall, m_plan.style.trim, 0.45F));
            if (!slats && index % 1 == 0) {
                // A tall niche with a soft lamp between two pilasters.
                const QVector3D next
                    = m_plan.CurvePoint(side < 0 ? share + 0.0135F : 1.0F - share - 0.0135F, depth + 0.2F, 0);
                const float x = next.x() - static_cast<float>(side) * 0.16F;
                const float low = m_plan.height - 4.9F;
                m_scene.AddFace({{x, low, next.z() - 0.7F},
                                 {x, low, next.z() + 0.7F},
                                 {x, m_plan.height - 1.9F, next.z() + 0.7F},
                                 {x, m_plan.height - 1.25F, next.z() + 0.35F},
                                 {x, m_plan.height - 1.1F, next.z()},
                                 {x, m_plan.height - 1.25F, next.z() - 0.35F},
                                 {x, m_plan.height - 1.9F, next.z() - 0.7F}},
                                m_plan.mood == Mood::Show ? RgbFromHex(0x51627A) : RgbFromHex(0xBFD4E6),
                                0.6F);
            }
        }
    }
}

} // namespace korvel::Demo
