#include <demo/server/VenuePictureHall_p.h>

#include <demo/server/VenuePictureStage_p.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;
constexpr float c_pi = std::numbers::pi_v<float>;

} // namespace

VenueHallBuilder::VenueHallBuilder(Scene& scene, const VenueStyle& style, Part part, Mood mood)
    : m_scene(scene)
    , m_style(style)
    , m_part(part)
    , m_mood(mood)
    , m_dice(style.seed * 31 + 7)
{
    switch (style.architecture) {
    case Architecture::Opera:
        m_length = m_dice.Between(26, 29);
        m_height = 5.4F + 3.1F * static_cast<float>(style.tiers);
        m_openingHeight = 9.5F;
        break;
    case Architecture::Shoebox:
        m_halfWidth = 11.5F;
        m_length = 36;
        m_height = 15.5F;
        m_corner = 0.6F;
        m_openingHalf = 10;
        m_stageDepth = 11;
        break;
    case Architecture::Vineyard:
        m_halfWidth = 13;
        m_length = 16;
        m_height = 17;
        m_openingHalf = 9;
        m_stageDepth = 12;
        m_closed = true;
        break;
    case Architecture::Arena:
        m_halfWidth = 20;
        m_length = 34;
        m_height = 25;
        m_openingHalf = 11;
        m_stageDepth = 13;
        m_stageHeight = 1.8F;
        m_closed = true;
        break;
    case Architecture::Modern:
        m_halfWidth = 15;
        m_length = 32;
        m_height = 15;
        m_corner = 5;
        m_openingHalf = 9;
        m_openingHeight = 8.5F;
        break;
    }
}

Camera VenueHallBuilder::FromAuditorium() const
{
    const float side = m_halfWidth
        * ((m_style.seed % 3) == 0       ? -0.14F
               : (m_style.seed % 3) == 1 ? 0.1F
                                         : 0.02F);
    switch (m_style.architecture) {
    case Architecture::Arena:
        return {{side * 2, 11.5F, m_length * 1.02F}, {0, 4.6F, -8}, 1.02F};
    case Architecture::Vineyard:
        return {{side, 9.2F, m_length * 1.12F}, {0, 3.0F, -8}, 0.86F};
    case Architecture::Shoebox:
        return {{side, 6.2F, m_length * 0.86F}, {0, 5.0F, -6}, 1.1F};
    default:
        return {{side, 5.4F, m_length * 0.84F}, {0, 4.7F, -6}, 0.98F};
    }
}

Camera VenueHallBuilder::FromStage() const
{
    const float side = (m_style.seed % 2) == 0 ? -1.6F : 1.2F;
    switch (m_style.architecture) {
    case Architecture::Arena:
        return {{side * 2, 5.2F, -9}, {0, 6.2F, m_length}, 0.66F};
    case Architecture::Vineyard:
        return {{side, 3.6F, -8.5F}, {0, 4.8F, m_length}, 0.62F};
    default:
        return {{side, 3.0F, -4.6F}, {0, 6.1F, m_length}, 0.74F};
    }
}

Camera VenueHallBuilder::FromCorner() const
{
    const float side = (m_style.seed % 2) == 0 ? 1.0F : -1.0F;
    switch (m_style.architecture) {
    case Architecture::Arena:
        return {{side * 25, 17, 24}, {-side * 8, 6.5F, -9}, 0.68F};
    case Architecture::Vineyard:
        return {{side * 15, 10.5F, 15}, {-side * 5, 6.0F, -7}, 0.62F};
    case Architecture::Opera:
        return {{side * 8.2F, 9.2F, m_length - 6.5F}, {-side * 4.5F, 8.1F, -2}, 0.62F};
    default:
        return {{side * m_halfWidth * 0.72F, 7.8F, m_length * 0.86F}, {-side * 4.0F, 6.9F, -4}, 0.68F};
    }
}

Camera VenueHallBuilder::FromAbove() const
{
    const bool arena = m_style.architecture == Architecture::Arena;
    const float side = (m_style.seed % 2) == 0 ? 1.0F : -1.0F;
    const QVector3D centre(0, 1.5F, m_closed ? 2.0F : m_length * 0.5F - m_stageDepth * 0.45F);
    const float extent = arena ? 92.0F : m_closed ? 59.0F : (m_length + m_stageDepth) * 0.88F;
    return {centre + QVector3D(side * 60, 64, 74), centre, 1.0F / extent, true};
}

Camera VenueHallBuilder::FromWing(bool left) const
{
    const float side = left ? 1.0F : -1.0F;
    switch (m_style.architecture) {
    case Architecture::Arena:
        return {{side * 15.5F, 4.6F, -10.5F}, {-side * 7, 5.2F, 3.0F}, 0.68F};
    case Architecture::Vineyard:
        return {{side * 11.5F, 4.4F, -10.0F}, {-side * 6, 4.0F, 1.0F}, 0.62F};
    case Architecture::Shoebox:
        return {{side * 10.2F, 4.0F, -9.6F}, {-side * 7, 4.2F, 2.0F}, 0.62F};
    default:
        return {{side * (m_openingHalf + 2.3F), 3.1F, -5.6F}, {-side * 6, 4.8F, -4.6F}, 0.6F};
    }
}

QVector3D VenueHallBuilder::CurvePoint(float share, float outward, float height) const
{
    if (m_closed) {
        const float angle = 2.0F * c_pi * share;
        const float middle = m_style.architecture == Architecture::Arena ? m_length * 0.34F : -3.0F;
        const float depth = m_style.architecture == Architecture::Arena ? m_length * 0.86F : m_length * 0.86F;
        return {std::sin(angle) * (m_halfWidth + outward), height,
                middle + std::cos(angle) * (depth + outward)};
    }
    const float side = m_length - m_corner - 1.5F;
    const float arc = c_pi * 0.5F * m_corner;
    const float back = 2.0F * (m_halfWidth - m_corner);
    float way = share * (2.0F * side + 2.0F * arc + back);
    QVector3D point;
    if (way <= side) {
        point = {-(m_halfWidth + outward), height, 1.5F + way};
    } else if ((way -= side) <= arc) {
        const float angle = way / m_corner;
        point = {-(m_halfWidth - m_corner) - std::cos(angle) * (m_corner + outward), height,
                 m_length - m_corner + std::sin(angle) * (m_corner + outward)};
    } else if ((way -= arc) <= back) {
        point = {-(m_halfWidth - m_corner) + way, height, m_length + outward};
    } else if ((way -= back) <= arc) {
        const float angle = way / m_corner;
        point = {(m_halfWidth - m_corner) + std::sin(angle) * (m_corner + outward), height,
                 m_length - m_corner + std::cos(angle) * (m_corner + outward)};
    } else {
        point = {m_halfWidth + outward, height, 1.5F + side - (way - arc)};
    }
    if (m_style.architecture == Architecture::Modern)
        point.setX(point.x() * (0.74F + 0.28F * point.z() / m_length));
    return point;
}

void VenueHallBuilder::AddSeat(const QVector3D& foot, const QVector3D& towardsStage, float shadeJitter)
{
    const QVector3D right = QVector3D::crossProduct(towardsStage, {0, 1, 0}).normalized() * 0.25F;
    const QVector3D up(0, 1, 0);
    const QVector3D back = foot - towardsStage * 0.22F;
    const Rgb cloth = m_style.seed % 7 == 3 && m_dice.Below(4) == 0
        ? Mix(m_style.seat, m_style.trim, 0.4F)
        : m_style.seat * (0.88F + 0.24F * shadeJitter);
    const QVector3D tilt = -towardsStage * 0.1F;
    m_scene.AddFace({back - right + up * 0.12F, back + right + up * 0.12F, back + right + up * 0.82F + tilt,
                     back + right * 0.62F + up * 0.97F + tilt, back - right * 0.62F + up * 0.97F + tilt,
                     back - right + up * 0.82F + tilt},
                    cloth);
    const QVector3D front = foot + towardsStage * 0.24F;
    m_scene.AddFace({back - right + up * 0.46F, back + right + up * 0.46F, front + right + up * 0.5F,
                     front - right + up * 0.5F},
                    cloth * 1.12F);
    m_scene.AddFace({front - right + up * 0.5F, front + right + up * 0.5F, front + right + up * 0.3F,
                     front - right + up * 0.3F},
                    cloth * 0.7F);
}

void VenueHallBuilder::BuildFloor()
{
    const bool arena = m_style.architecture == Architecture::Arena;
    if (m_closed) {
        const float reach = 0.0F;
        for (int part = 0; part < 48; ++part) {
            const float from = static_cast<float>(part) / 48.0F;
            const float to = static_cast<float>(part + 1) / 48.0F;
            const QVector3D centre(0, 0, arena ? m_length * 0.34F : -3.0F);
            const QVector3D a = CurvePoint(from, reach, 0);
            const QVector3D b = CurvePoint(to, reach, 0);
            for (int ring = 0; ring < 5; ++ring) {
                const float in = static_cast<float>(ring) / 5.0F;
                const float out = static_cast<float>(ring + 1) / 5.0F;
                m_scene.AddFace(
                    {Mix(centre, a, in), Mix(centre, a, out), Mix(centre, b, out), Mix(centre, b, in)},
                    m_style.floor, 0.0F, 0);
            }
        }
        return;
    }
    const float reach = m_style.architecture == Architecture::Opera ? 2.9F
        : m_style.architecture == Architecture::Modern              ? 4.0F
                                                                    : 2.0F;
    for (int part = 0; part < 60; ++part) {
        const QVector3D a = CurvePoint(static_cast<float>(part) / 60.0F, reach, 0);
        const QVector3D b = CurvePoint(static_cast<float>(part + 1) / 60.0F, reach, 0);
        for (int ring = 0; ring < 4; ++ring) {
            const auto inward = [&](const QVector3D& edge, int step) {
                return QVector3D(edge.x() * static_cast<float>(step) / 4.0F, 0, edge.z());
            };
            m_scene.AddFace({inward(a, ring), inward(a, ring + 1), inward(b, ring + 1), inward(b, ring)},
                            m_style.floor, 0.0F, 0);
        }
    }
    const float front = m_halfWidth + reach;
    if (m_style.architecture == Architecture::Shoebox)
        m_scene.AddPanel({-front, 0, -m_stageDepth}, {front, 0, -m_stageDepth}, {front, 0, 0}, {-front, 0, 0},
                         m_style.floor, 8, 3, 0.0F, 0);
    m_scene.AddPanel({-front, 0, 0}, {front, 0, 0}, {front, 0, 1.6F}, {-front, 0, 1.6F}, m_style.floor, 8, 1,
                     0.0F, 0);
}

void VenueHallBuilder::BuildStalls()
{
    if (m_style.architecture == Architecture::Vineyard) {
        for (float radius = 5.6F; radius < 12.6F; radius += 0.95F) {
            for (float angle = -1.15F; angle < 1.15F; angle += 0.6F / radius) {
                const QVector3D foot(std::sin(angle) * radius, 0.05F * (radius - 5.6F),
                                     -2.6F + std::cos(angle) * radius);
                if (foot.z() > 2.4F && std::abs(angle) > 0.06F && std::abs(std::abs(angle) - 0.55F) > 0.05F)
                    AddSeat(foot, QVector3D(-std::sin(angle), 0, -std::cos(angle)), m_dice.Between(0, 1));
            }
        }
        return;
    }
    const bool arena = m_style.architecture == Architecture::Arena;
    const float first = arena ? 7.0F : m_style.architecture == Architecture::Opera ? 5.0F : 3.5F;
    const float last = arena ? m_length * 0.98F : m_length - 3.0F;
    const float rake = arena ? 0.0F : m_style.architecture == Architecture::Modern ? 0.13F : 0.055F;
    const float pitch = 1.0F;
    for (float z = first; z < last; z += pitch) {
        // In the show picture the rows right under the camera would only hide what it is about.
        const float curve = arena ? 0.0F : 0.008F;
        const float half = arena ? 14.0F : m_halfWidth - 1.4F;
        const float rise = (z - first) * rake;
        if (!arena) {
            m_scene.AddPanel({-half, rise, z - 0.5F}, {half, rise, z - 0.5F}, {half, rise, z + 0.5F},
                             {-half, rise, z + 0.5F}, Mix(m_style.floor, m_style.seat, 0.25F), 6, 1, 0.0F, 0);
        }
        for (float x = -half + 0.35F; x <= half - 0.2F; x += 0.56F) {
            const bool aisle
                = std::abs(x) < 0.7F || (half > 12 && std::abs(std::abs(x) - half * 0.58F) < 0.6F);
            const float rowZ = z - curve * x * x;
            const bool beside = m_corner > 3 && z > m_length - m_corner
                && std::abs(x) > half
                        * std::sqrt(std::max(0.0F,
                                             1.0F - std::pow((z - m_length + m_corner) / m_corner, 2.0F)));
            if (aisle || beside || (arena && std::fmod(z - first, 9.0F) < 1.0F))
                continue;
            const QVector3D direction = QVector3D(-x * 0.02F, 0, -1).normalized();
            AddSeat({x, rise, rowZ}, direction, m_dice.Between(0, 1));
        }
    }
}

void VenueHallBuilder::BuildTierSegment(int tier, int segment, float base, float ceilingHeight)
{
    const bool opera = m_style.architecture == Architecture::Opera;
    const int segments = opera ? 44 : 40;
    const float from = static_cast<float>(segment) / static_cast<float>(segments);
    const float to = static_cast<float>(segment + 1) / static_cast<float>(segments);
    const float depth = opera ? 2.9F : m_style.architecture == Architecture::Modern ? 4.0F : 2.0F;
    const Rgb back = opera ? m_style.wallDeep : Mix(m_style.wall, m_style.wallDeep, 0.3F);
    const bool cut = m_part == Part::CutAway;
    const float top = cut ? std::min(ceilingHeight, base + 1.4F) : ceilingHeight;
    m_scene.AddFace({CurvePoint(from, depth, base), CurvePoint(to, depth, base), CurvePoint(to, depth, top),
                     CurvePoint(from, depth, top)},
                    back, 0.0F, 0);
    if (tier == 0)
        return;
    const int rows = m_style.architecture == Architecture::Modern ? 4 : 2;
    for (int row = 0; row < rows; ++row) {
        const float near = depth * static_cast<float>(row) / static_cast<float>(rows);
        const float far = depth * static_cast<float>(row + 1) / static_cast<float>(rows);
        const float level = base + 0.42F * static_cast<float>(row);
        m_scene.AddFace({CurvePoint(from, near, level), CurvePoint(to, near, level),
                         CurvePoint(to, far, level), CurvePoint(from, far, level)},
                        m_style.floor * 0.8F);
        const QVector3D along = CurvePoint(to, near, 0) - CurvePoint(from, near, 0);
        const QVector3D inward = QVector3D::crossProduct(along, {0, 1, 0}).normalized();
        const int seats = std::max(1, static_cast<int>(along.length() / 0.62F));
        for (int seat = 0; seat < seats; ++seat) {
            const float share
                = from + (to - from) * (static_cast<float>(seat) + 0.5F) / static_cast<float>(seats);
            const QVector3D foot = CurvePoint(share, near + 0.62F, level);
            const QVector3D stage = (QVector3D(0, level, -3) - foot).normalized();
            const QVector3D facing
                = (inward * (QVector3D::dotProduct(inward, stage) >= 0 ? 1.0F : -1.0F) + stage * 0.8F);
            AddSeat(foot, QVector3D(facing.x(), 0, facing.z()).normalized(), m_dice.Between(0, 1));
        }
    }
    // Underside, front and rails.
    m_scene.AddFace({CurvePoint(from, 0, base - 0.35F), CurvePoint(to, 0, base - 0.35F),
                     CurvePoint(to, depth, base - 0.2F), CurvePoint(from, depth, base - 0.2F)},
                    Mix(m_style.wall, m_style.wallDeep, 0.35F));
    const auto band = [&](float low, float high, float outward, const Rgb& colour, float emission) {
        m_scene.AddFace({CurvePoint(from, outward, base + low), CurvePoint(to, outward, base + low),
                         CurvePoint(to, outward, base + high), CurvePoint(from, outward, base + high)},
                        colour, emission);
    };
    band(-0.4F, 0.82F, 0.0F, m_style.wall, 0.0F);
    band(-0.42F, -0.28F, -0.06F, m_style.trim, 0.12F);
    band(0.74F, 0.86F, -0.06F, m_style.trim * (opera ? 1.0F : 0.9F), 0.15F);
    m_scene.AddFace({CurvePoint(from, -0.1F, base + 0.86F), CurvePoint(to, -0.1F, base + 0.86F),
                     CurvePoint(to, 0.25F, base + 0.86F), CurvePoint(from, 0.25F, base + 0.86F)},
                    opera ? m_style.curtain : m_style.trim);
    if (opera) {
        // A cartouche on every front, a curtain and a partition at every box.
        const float mid = (from + to) / 2.0F;
        const float quarter = (to - from) * 0.28F;
        m_scene.AddFace({CurvePoint(mid - quarter, -0.05F, base + 0.2F), CurvePoint(mid, -0.05F, base - 0.1F),
                         CurvePoint(mid + quarter, -0.05F, base + 0.2F),
                         CurvePoint(mid, -0.05F, base + 0.52F)},
                        m_style.trim, 0.1F);
        if (!cut) {
            const float high = std::min(ceilingHeight - 0.35F, base + 2.75F);
            if (ceilingHeight - base > 3.4F)
                band(2.7F, ceilingHeight - base, 0.1F, m_style.wall, 0.0F);
            m_scene.AddFace({CurvePoint(from, 0.1F, base + 0.8F), CurvePoint(from, depth, base + 0.5F),
                             CurvePoint(from, depth, high), CurvePoint(from, 0.25F, high)},
                            m_style.wallDeep);
            const float width = (to - from) * 0.3F;
            m_scene.AddFace({CurvePoint(from, 0.15F, high), CurvePoint(from + width, 0.15F, high),
                             CurvePoint(from + width * 0.25F, 0.15F, base + 1.25F),
                             CurvePoint(from, 0.15F, base + 0.9F)},
                            m_style.curtain);
            m_scene.AddFace({CurvePoint(to, 0.15F, high), CurvePoint(to - width, 0.15F, high),
                             CurvePoint(to - width * 0.25F, 0.15F, base + 1.25F),
                             CurvePoint(to, 0.15F, base + 0.9F)},
                            m_style.curtain);
            m_scene.AddFace({CurvePoint(from, 0.12F, high - 0.45F), CurvePoint(mid, 0.12F, high - 0.2F),
                             CurvePoint(to, 0.12F, high - 0.45F), CurvePoint(to, 0.12F, high + 0.1F),
                             CurvePoint(from, 0.12F, high + 0.1F)},
                            m_style.curtain * 0.9F);
        }
    }
    if (!cut && segment % (opera ? 4 : 6) == 2)
        m_scene.AddGlow(CurvePoint(from, -0.25F, base + 0.45F), 1.1F, m_style.lightWarm,
                        m_mood == Mood::Show ? 0.28F : 0.6F);
}

void VenueHallBuilder::BuildTiers()
{
    const bool opera = m_style.architecture == Architecture::Opera;
    const int segments = opera ? 44 : 40;
    const int tiers = opera                            ? m_style.tiers
        : m_style.architecture == Architecture::Modern ? 1
                                                       : 1 + (m_style.tiers > 3 ? 1 : 0);
    const float lowest = opera ? 3.2F : 5.0F;
    const float step = opera ? 3.1F : 4.6F;
    for (int segment = 0; segment < segments; ++segment) {
        const QVector3D there
            = CurvePoint((static_cast<float>(segment) + 0.5F) / static_cast<float>(segments), 0, 0);
        // Cut away what stands between the viewer above and the house.
        const bool near = m_part == Part::CutAway
            && (there.x() * ((m_style.seed % 2) == 0 ? 1.0F : -1.0F) * 0.8F + (there.z() - m_length * 0.5F)
                > 2.0F);
        for (int tier = 0; tier <= tiers; ++tier) {
            if (near && tier > 1)
                continue;
            if (m_part == Part::CutAway && tier == 1 && segment % 4 == 1)
                m_scene.AddColumn(
                    CurvePoint(static_cast<float>(segment) / static_cast<float>(segments), 0.3F, 0), 0.16F,
                    lowest - 0.4F, m_style.wall, 8);
            const float base = tier == 0 ? 0.0F : lowest + step * static_cast<float>(tier - 1);
            const float top = tier == tiers ? m_height : lowest + step * static_cast<float>(tier) - 0.2F;
            if (m_style.architecture == Architecture::Modern && tier > 0 && there.z() < m_length * 0.55F) {
                BuildTierSegment(0, segment, base, top);
                continue;
            }
            BuildTierSegment(tier, segment, base, tier == 0 && near ? 1.0F : top);
        }
    }
}

void VenueHallBuilder::BuildBowl()
{
    const bool arena = m_style.architecture == Architecture::Arena;
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
    for (int block = 0; block < 10 * ringCount; ++block)
        jitter.push_back(arena ? 0.0F : m_dice.Between(-0.75F, 0.75F));
    for (int ring = 0; ring < ringCount; ++ring) {
        const Ring& it = rings[ring];
        for (int segment = 0; segment < segments; ++segment) {
            const float from = static_cast<float>(segment) / static_cast<float>(segments);
            const float to = static_cast<float>(segment + 1) / static_cast<float>(segments);
            const QVector3D middle = CurvePoint((from + to) / 2, 0, 0);
            const bool behindStage = middle.z() < -8.0F && std::abs(middle.x()) < 16.0F;
            if (arena && behindStage)
                continue;
            const float lift = jitter[ring * 10 + segment * 10 / segments];
            const float base = it.base + lift;
            const bool blockEdge
                = segment * 10 / segments != (segment + 1) * 10 / segments || (arena && segment % 6 == 5);
            const auto face = [&](float outA, float highA, float outB, float highB, const Rgb& colour,
                                  float emission = 0.0F) {
                m_scene.AddFace({CurvePoint(from, outA, highA), CurvePoint(to, outA, highA),
                                 CurvePoint(to, outB, highB), CurvePoint(from, outB, highB)},
                                colour, emission);
            };
            const float below = ring == 0 ? 0.0F : base - (arena ? 1.2F : 2.4F);
            face(it.offset, below, it.offset, base + 0.75F, m_style.wall);
            face(it.offset - 0.05F, base + 0.66F, it.offset - 0.05F, base + 0.8F, m_style.trim, 0.15F);
            if (arena && ring == 1) // the ribbon display and the boxes below it
                face(it.offset - 0.08F, base - 0.9F, it.offset - 0.08F, base - 0.2F, m_style.lightOne, 1.1F);
            if (arena && ring == 0) {
                const float back = it.offset + it.pitch * static_cast<float>(it.rows);
                face(back, base + it.rise * static_cast<float>(it.rows), back + 1.5F, rings[1].base - 1.2F,
                     segment % 2 == 0 ? RgbFromHex(0xFFCF8A) : RgbFromHex(0x8A6A48),
                     segment % 2 == 0 ? 0.55F : 0.15F);
            }
            for (int row = 0; row < it.rows; ++row) {
                const float near = it.offset + it.pitch * static_cast<float>(row);
                const float level = base + it.rise * static_cast<float>(row);
                face(near, level, near + it.pitch, level, Mix(m_style.floor, m_style.wall, 0.3F));
                face(near + it.pitch, level, near + it.pitch, level + it.rise, m_style.floor * 0.7F);
                const float width = (CurvePoint(to, near, 0) - CurvePoint(from, near, 0)).length();
                const int seats = std::max(1, static_cast<int>(width / 0.6F)) - (blockEdge ? 2 : 0);
                for (int seat = 0; seat < seats; ++seat) {
                    const float share = from + (to - from) * (static_cast<float>(seat) + 0.5F) * 0.6F / width;
                    const QVector3D foot = CurvePoint(share, near + 0.5F, level);
                    const QVector3D towards
                        = CurvePoint(share, near - 1.0F, level) - CurvePoint(share, near, level);
                    AddSeat(foot, towards.normalized(), m_dice.Between(0, 1));
                }
            }
            const float back = it.offset + it.pitch * static_cast<float>(it.rows);
            const float high = base + it.rise * static_cast<float>(it.rows);
            const bool outer = ring + 1 == ringCount;
            const float top
                = m_part == Part::CutAway || !outer ? high + 1.2F : m_height + (arena ? 5.0F : 2.0F);
            if (outer || !arena)
                face(back, outer && m_part == Part::CutAway ? 0.0F : high - it.rise, back, top,
                     outer ? m_style.wall * 0.8F : m_style.wall);
            if (blockEdge && !arena) { // the side of a terrace
                m_scene.AddFace({CurvePoint(to, it.offset, below), CurvePoint(to, back, below),
                                 CurvePoint(to, back, high + 0.7F), CurvePoint(to, it.offset, base + 0.75F)},
                                m_style.wall);
            }
        }
    }
}

void VenueHallBuilder::BuildWallDetails()
{
    if (m_part == Part::CutAway || m_closed || m_style.architecture == Architecture::Opera)
        return;
    const bool slats = m_style.architecture == Architecture::Modern;
    const int count = slats ? 60 : 15;
    for (int side = -1; side <= 1; side += 2) {
        for (int index = 0; index < count; ++index) {
            const float share
                = (static_cast<float>(index) + 0.5F) / static_cast<float>(count) * (slats ? 0.34F : 0.405F);
            const float at = side < 0 ? share : 1.0F - share;
            const float depth = slats ? 3.7F : 1.75F;
            const QVector3D foot = CurvePoint(at, depth, slats ? 2.4F : 0.0F);
            const float half = slats ? 0.09F : 0.35F;
            const float top = slats
                ? m_height - 1.0F - 1.6F * std::abs(std::sin(static_cast<float>(index) * 0.35F))
                : m_height - 0.8F;
            m_scene.AddBox({foot.x() - 0.16F, foot.y(), foot.z() - half},
                           {foot.x() + 0.16F, top, foot.z() + half},
                           slats ? m_style.trim * 0.8F : Mix(m_style.wall, m_style.trim, 0.45F));
            if (!slats && index % 1 == 0) {
                // A tall niche with a soft lamp between two pilasters.
                const QVector3D next
                    = CurvePoint(side < 0 ? share + 0.0135F : 1.0F - share - 0.0135F, depth + 0.2F, 0);
                const float x = next.x() - static_cast<float>(side) * 0.16F;
                const float low = m_height - 4.9F;
                m_scene.AddFace({{x, low, next.z() - 0.7F},
                                 {x, low, next.z() + 0.7F},
                                 {x, m_height - 1.9F, next.z() + 0.7F},
                                 {x, m_height - 1.25F, next.z() + 0.35F},
                                 {x, m_height - 1.1F, next.z()},
                                 {x, m_height - 1.25F, next.z() - 0.35F},
                                 {x, m_height - 1.9F, next.z() - 0.7F}},
                                m_mood == Mood::Show ? RgbFromHex(0x51627A) : RgbFromHex(0xBFD4E6), 0.6F);
            }
        }
    }
}

void VenueHallBuilder::AddChandelier(const QVector3D& centre, float radius)
{
    const float glow = m_mood == Mood::Show ? 0.35F : 0.8F;
    for (int ring = 0; ring < 3; ++ring) {
        const float reach = radius * (1.0F - 0.28F * static_cast<float>(ring));
        const float height = centre.y() + static_cast<float>(ring) * radius * 0.42F;
        const int lamps = 14 - ring * 3;
        for (int lamp = 0; lamp < lamps; ++lamp) {
            const float angle = 2.0F * c_pi * static_cast<float>(lamp) / static_cast<float>(lamps);
            const QVector3D at(centre.x() + std::cos(angle) * reach, height,
                               centre.z() + std::sin(angle) * reach);
            m_scene.AddColumn(at, radius * 0.06F, radius * 0.16F, m_style.lightWarm, 5);
            m_scene.AddGlow(at, radius * 0.32F, m_style.lightWarm, glow * 0.55F);
        }
        m_scene.AddColumn({centre.x(), height - 0.04F * radius, centre.z()}, reach, radius * 0.04F,
                          m_style.trim, 18);
    }
    m_scene.AddColumn(centre, radius * 0.05F, m_height - centre.y(), m_style.trim * 0.5F, 5);
    m_scene.AddGlow(centre + QVector3D(0, radius * 0.4F, 0), radius * 3.4F, m_style.lightWarm, glow * 0.5F);
}

void VenueHallBuilder::BuildOperaCeiling()
{
    const QVector3D centre(0, m_height + 2.4F, m_length - 13.5F);
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
            const Rgb panel = ring == 3 ? Mix(m_style.ceiling, m_style.wallDeep, part % 3 == 0 ? 0.45F : 0.2F)
                : ring == 1 ? Mix(m_style.ceiling, RgbFromHex(0x7FA3C8), part % 2 == 0 ? 0.5F : 0.35F)
                            : m_style.ceiling;
            m_scene.AddFace({at(angle0, c_rings[ring], drop(c_rings[ring])),
                             at(angle1, c_rings[ring], drop(c_rings[ring])),
                             at(angle1, c_rings[ring + 1], drop(c_rings[ring + 1])),
                             at(angle0, c_rings[ring + 1], drop(c_rings[ring + 1]))},
                            trim ? m_style.trim : panel, trim ? 0.12F : 0.05F, 0);
        }
    }
    m_scene.AddPanel({-m_halfWidth - 3, m_height, 0}, {m_halfWidth + 3, m_height, 0},
                     {m_halfWidth + 3, m_height, 5.5F}, {-m_halfWidth - 3, m_height, 5.5F}, m_style.ceiling,
                     6, 2, 0.0F, 0);
    AddChandelier({0, m_height - 3.2F, m_length - 13.5F}, 1.9F);
}

void VenueHallBuilder::BuildBeamCeiling()
{
    const bool modern = m_style.architecture == Architecture::Modern;
    const float half = m_halfWidth + 4.0F;
    m_scene.AddPanel({-half, m_height, -m_stageDepth}, {half, m_height, -m_stageDepth},
                     {half, m_height, m_length + 4}, {-half, m_height, m_length + 4},
                     modern ? m_style.ceiling * 0.6F : m_style.ceiling, 10, 20, 0.0F, 0);
    if (modern) {
        for (int wave = 0; wave < 7; ++wave) {
            const float z = 1.5F + 4.3F * static_cast<float>(wave);
            const float low = m_height - 3.6F + 0.28F * static_cast<float>(wave);
            const float wide = m_halfWidth * (0.72F + 0.3F * z / m_length);
            m_scene.AddPanel({-wide, low + 0.9F, z}, {wide, low + 0.9F, z}, {wide, low, z + 3.4F},
                             {-wide, low, z + 3.4F}, m_style.ceiling, 8, 1);
            m_scene.AddBox({-wide, low + 0.05F, z + 3.45F}, {wide, low + 0.16F, z + 3.55F}, m_style.lightWarm,
                           m_mood == Mood::Show ? 0.5F : 1.2F);
        }
        return;
    }
    for (float z = -m_stageDepth + 2; z < m_length; z += 4.4F)
        m_scene.AddBox({-m_halfWidth - 2, m_height - 0.7F, z}, {m_halfWidth + 2, m_height, z + 0.6F},
                       m_style.trim * 0.85F);
    for (float x = -8; x <= 8.1F; x += 4)
        m_scene.AddBox({x - 0.2F, m_height - 0.5F, -m_stageDepth}, {x + 0.2F, m_height, m_length},
                       m_style.trim * 0.75F);
    for (float z = 3; z < m_length - 2; z += 8.8F) {
        AddChandelier({-5, m_height - 4.2F, z}, 1.0F);
        AddChandelier({5, m_height - 4.2F, z}, 1.0F);
    }
}

void VenueHallBuilder::BuildSailCeiling()
{
    m_scene.AddPanel({-36, m_height + 5, -36}, {36, m_height + 5, -36}, {36, m_height + 5, 36},
                     {-36, m_height + 5, 36}, m_style.wallDeep * 0.6F, 10, 10, 0.0F, 0);
    for (int row = -2; row <= 2; ++row) {
        for (int column = -2; column <= 2; ++column) {
            const float x = static_cast<float>(column) * 8.2F;
            const float z = -3.0F + static_cast<float>(row) * 7.6F;
            const float height = m_height + 1.2F
                - 0.45F * static_cast<float>(std::abs(column) + std::abs(row)) + m_dice.Between(-0.5F, 0.5F);
            // A convex sail: lowest in the middle.
            const auto at = [&](float u, float v) {
                return QVector3D(x + u * 3.9F, height + 0.75F * (u * u + v * v) - 0.9F, z + v * 3.6F);
            };
            for (int i = -2; i < 2; ++i) {
                for (int j = -2; j < 2; ++j) {
                    const float u = static_cast<float>(i) / 2;
                    const float v = static_cast<float>(j) / 2;
                    m_scene.AddFace({at(u, v), at(u + 0.5F, v), at(u + 0.5F, v + 0.5F), at(u, v + 0.5F)},
                                    m_style.ceiling, 0.0F, 0);
                }
            }
            m_scene.AddGlow({x + 4.1F, height - 0.4F, z + 3.8F}, 0.8F, m_style.lightWarm,
                            m_mood == Mood::Show ? 0.35F : 0.8F);
        }
    }
}

void VenueHallBuilder::BuildTruss(const QVector3D& from, const QVector3D& to, float size, const Rgb& colour)
{
    const QVector3D along = (to - from).normalized();
    const QVector3D side = QVector3D::crossProduct(along, {0, 1, 0}).normalized() * size;
    const QVector3D up = QVector3D(0, 1, 0) * size;
    const float thick = std::max(0.05F, size * 0.09F);
    const auto bar = [&](const QVector3D& a, const QVector3D& b) {
        const QVector3D across = QVector3D(0, thick, 0);
        const QVector3D flat = side.normalized() * thick;
        m_scene.AddFace({a - across, b - across, b + across, a + across}, colour);
        m_scene.AddFace({a - flat, b - flat, b + flat, a + flat}, colour);
    };
    const float length = (to - from).length();
    const int bays = std::max(1, static_cast<int>(length / (size * 2.4F)));
    for (int bay = 0; bay < bays; ++bay) {
        const QVector3D a = Mix(from, to, static_cast<float>(bay) / static_cast<float>(bays));
        const QVector3D b = Mix(from, to, static_cast<float>(bay + 1) / static_cast<float>(bays));
        for (const QVector3D& offset : {side * 0.5F, side * -0.5F, side * 0.5F + up, side * -0.5F + up})
            bar(a + offset, b + offset);
        bar(a + side * 0.5F, b + side * 0.5F + up);
        bar(a - side * 0.5F + up, b - side * 0.5F);
        bar(a + side * 0.5F, a + side * 0.5F + up);
        bar(a - side * 0.5F, a - side * 0.5F + up);
    }
}

void VenueHallBuilder::BuildArenaRoof()
{
    const float height = m_height + 3;
    m_scene.AddPanel({-44, height + 2, -36}, {44, height + 2, -36}, {44, height + 2, 62},
                     {-44, height + 2, 62}, m_style.ceiling * 0.7F, 12, 12, 0.0F, 0);
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
                m_mood == Mood::Show ? 0.8F : 1.9F, RgbFromHex(0xE8F0FF),
                m_mood == Mood::Show ? 0.25F : 0.85F);
    }
}

void VenueHallBuilder::BuildCeiling()
{
    if (m_part == Part::CutAway)
        return;
    switch (m_style.architecture) {
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

void VenueHallBuilder::BuildCurtain()
{
    // Open house curtain: folds at both sides and a valance.
    const float high = m_stageHeight + m_openingHeight;
    for (int side = -1; side <= 1; side += 2) {
        for (int fold = 0; fold < 14; ++fold) {
            const float a = m_openingHalf - 0.16F * static_cast<float>(fold);
            const float b = a - 0.16F;
            const float deepA = -0.5F + (fold % 2 == 0 ? 0.0F : 0.22F);
            const float deepB = -0.5F + (fold % 2 == 0 ? 0.22F : 0.0F);
            const auto s = static_cast<float>(side);
            m_scene.AddPanel({s * a, m_stageHeight, deepA}, {s * b, m_stageHeight, deepB},
                             {s * b, high, deepB}, {s * a, high, deepA},
                             m_style.curtain * (fold % 2 == 0 ? 1.15F : 0.7F), 1, 4, 0.04F);
        }
    }
    const int swags = 44;
    for (int part = 0; part < swags; ++part) {
        const float a = -m_openingHalf + 2 * m_openingHalf * static_cast<float>(part) / swags;
        const float b = -m_openingHalf + 2 * m_openingHalf * static_cast<float>(part + 1) / swags;
        const auto drop = [&](float x) {
            return 1.5F + 0.45F * std::abs(std::sin((x / m_openingHalf + 1) * c_pi * 2.5F));
        };
        m_scene.AddFace(
            {{a, high - drop(a), -0.2F}, {b, high - drop(b), -0.2F}, {b, high, -0.2F}, {a, high, -0.2F}},
            m_style.curtain * (part % 2 == 0 ? 1.1F : 0.75F), 0.05F);
        m_scene.AddFace({{a, high - drop(a), -0.18F},
                         {b, high - drop(b), -0.18F},
                         {b, high - drop(b) + 0.14F, -0.18F},
                         {a, high - drop(a) + 0.14F, -0.18F}},
                        m_style.trim, 0.25F);
    }
}

void VenueHallBuilder::BuildProscenium()
{
    const bool opera = m_style.architecture == Architecture::Opera;
    const float half = m_halfWidth + 4.2F;
    const float high = m_stageHeight + m_openingHeight;
    const Rgb front = opera ? m_style.wall : m_style.wallDeep;
    const float top = m_part == Part::CutAway ? high * 0.45F : m_height + 0.4F;
    for (int side = -1; side <= 1 && m_part != Part::StageHouse; side += 2) {
        const auto s = static_cast<float>(side);
        m_scene.AddPanel({s * m_openingHalf, 0, 0}, {s * half, 0, opera ? 1.5F : 2.5F},
                         {s * half, top, opera ? 1.5F : 2.5F}, {s * m_openingHalf, top, 0}, front, 6, 10);
        if (m_part == Part::CutAway)
            continue;
        if (opera) {
            m_scene.AddColumn({s * (m_openingHalf + 0.9F), 0, 0.7F}, 0.5F, high + 0.4F, m_style.trim * 0.95F,
                              10, 0.88F);
            m_scene.AddColumn({s * (m_openingHalf + 2.5F), 0, 1.0F}, 0.5F, high + 0.4F, m_style.wall, 10,
                              0.88F);
            m_scene.AddBox({s > 0 ? m_openingHalf : -m_openingHalf - 3.4F, high + 0.4F, 0.1F},
                           {s > 0 ? m_openingHalf + 3.4F : -m_openingHalf, high + 1.3F, 1.5F},
                           m_style.trim * 0.9F);
        }
        m_scene.AddBox({s > 0 ? m_openingHalf : -m_openingHalf - 0.45F, 0, -0.1F},
                       {s > 0 ? m_openingHalf + 0.45F : -m_openingHalf, high, 0.25F}, m_style.trim,
                       opera ? 0.12F : 0.05F);
    }
    if (m_part == Part::Everything) {
        m_scene.AddPanel({-m_openingHalf, high, 0}, {m_openingHalf, high, 0}, {m_openingHalf, top, 0},
                         {-m_openingHalf, top, 0}, front, 14, 5);
        m_scene.AddBox({-m_openingHalf - 0.45F, high, -0.1F}, {m_openingHalf + 0.45F, high + 0.45F, 0.25F},
                       m_style.trim, opera ? 0.12F : 0.05F);
        if (opera) { // the coat of arms above the opening
            for (int ring = 0; ring < 3; ++ring) {
                Scene::Corners shield;
                for (int corner = 0; corner < 8; ++corner) {
                    const float angle = 2 * c_pi * static_cast<float>(corner) / 8;
                    const float reach = 1.35F - 0.4F * static_cast<float>(ring);
                    shield.append({std::cos(angle) * reach * 1.25F, high + 1.4F + std::sin(angle) * reach,
                                   0.3F + 0.05F * static_cast<float>(ring)});
                }
                m_scene.AddFace(shield, ring == 1 ? m_style.curtain : m_style.trim, 0.15F, 2);
            }
        }
    }
    // Stage box.
    const float deep = -m_stageDepth;
    const float wide = m_openingHalf + 2.5F;
    m_scene.AddPanel({-wide, m_stageHeight, deep}, {wide, m_stageHeight, deep}, {wide, m_stageHeight, 1.3F},
                     {-wide, m_stageHeight, 1.3F}, RgbFromHex(0x6A5140), 12, 10, 0.0F, 0);
    m_scene.AddPanel({-m_openingHalf, 0, 1.3F}, {m_openingHalf, 0, 1.3F},
                     {m_openingHalf, m_stageHeight, 1.3F}, {-m_openingHalf, m_stageHeight, 1.3F},
                     m_style.wallDeep, 8, 1);
    if (m_part == Part::Everything) {
        m_scene.AddPanel({-wide, m_stageHeight, deep}, {-wide, m_stageHeight, 0}, {-wide, high + 4, 0},
                         {-wide, high + 4, deep}, RgbFromHex(0x16161A), 4, 4, 0, 0);
        m_scene.AddPanel({wide, m_stageHeight, deep}, {wide, m_stageHeight, 0}, {wide, high + 4, 0},
                         {wide, high + 4, deep}, RgbFromHex(0x16161A), 4, 4, 0, 0);
    }
    // Orchestra pit with its desk lamps.
    if (opera) {
        m_scene.AddPanel({-7.5F, 0.02F, 1.4F}, {7.5F, 0.02F, 1.4F}, {7.5F, 0.02F, 4.0F}, {-7.5F, 0.02F, 4.0F},
                         RgbFromHex(0x0C0A0A), 6, 1, 0, 0);
        m_scene.AddPanel({-7.5F, 0, 4.1F}, {7.5F, 0, 4.1F}, {7.5F, 0.85F, 4.1F}, {-7.5F, 0.85F, 4.1F},
                         m_style.wallDeep, 8, 1);
        for (int desk = 0; desk < 16 && m_mood != Mood::Model; ++desk)
            m_scene.AddGlow({m_dice.Between(-6.8F, 6.8F), 0.5F, m_dice.Between(1.8F, 3.7F)}, 0.55F,
                            m_style.lightWarm, 0.4F);
    }
}

void VenueHallBuilder::BuildStageSet()
{
    const float ground = m_stageHeight;
    const float deep = -m_stageDepth + 1;
    const float wide = m_openingHalf + 1.5F;
    const bool model = m_part == Part::CutAway;
    if (!model) {
        // Cyclorama: glows from the bottom in one colour, to the top in the other.
        const int bands = 16;
        for (int band = 0; band < bands; ++band) {
            const float low = ground + 11.5F * static_cast<float>(band) / bands;
            const float high = ground + 11.5F * static_cast<float>(band + 1) / bands;
            const float share = static_cast<float>(band) / bands;
            m_scene.AddPanel({-wide, low, deep}, {wide, low, deep}, {wide, high, deep}, {-wide, high, deep},
                             Mix(m_style.lightTwo, m_style.lightOne * 0.6F, std::sqrt(share)), 6, 1,
                             0.75F - 0.45F * share, 0);
        }
    }
    const Rgb stone = RgbFromHex(0xB8AC9C);
    if (m_style.stageSet == 0) { // arcades that grow smaller towards the back
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
    } else if (m_style.stageSet == 1) { // a large stair and a moon
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
            const float z = m_dice.Between(deep + 1.5F, -3.0F);
            const float x = m_dice.Between(-m_openingHalf + 0.5F, m_openingHalf - 0.5F);
            if (std::abs(x) > 2.4F || z < -11)
                m_scene.AddColumn({x, ground, z}, m_dice.Between(0.10F, 0.24F), model ? 4.0F : 11,
                                  RgbFromHex(0xCFC6B6), 7, 0.75F);
        }
        m_scene.AddColumn({0, ground, -7}, 1.9F, 0.35F, RgbFromHex(0x5A6A4A), 18);
    }
    if (!model) {
        for (const float s : {-1.0F, 1.0F}) { // black legs
            for (int leg = 0; leg < 3; ++leg) {
                const float z = -3.0F - 4.0F * static_cast<float>(leg);
                m_scene.AddPanel({s * (m_openingHalf - 0.4F), ground, z},
                                 {s * (m_openingHalf + 2.4F), ground, z},
                                 {s * (m_openingHalf + 2.4F), ground + 11, z},
                                 {s * (m_openingHalf - 0.4F), ground + 11, z}, RgbFromHex(0x101014), 3, 3);
            }
        }
        BuildCurtain();
    }
}

void VenueHallBuilder::BuildPlatform()
{
    const bool vineyard = m_style.architecture == Architecture::Vineyard;
    const float deep = -m_stageDepth;
    const float half = m_openingHalf;
    const Rgb wood = RgbFromHex(0xC48F56);
    const float ground = m_stageHeight;
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
    m_scene.AddBox({-0.6F, ground, -0.6F}, {0.6F, ground + 0.3F, 0.6F}, m_style.wallDeep);
    // Organ above the choir, behind the platform.
    const float organZ = vineyard ? -m_length * 0.86F - 13.5F : deep + 0.3F;
    const float low = vineyard ? 9.5F : ground + 4.4F;
    const float high = m_part == Part::CutAway ? low + 1.5F : vineyard ? m_height + 0.5F : m_height - 1.2F;
    if (!vineyard) {
        const float wallTop = m_part == Part::CutAway ? 5.0F : m_height;
        m_scene.AddPanel({-m_halfWidth - 2, 0, deep}, {m_halfWidth + 2, 0, deep},
                         {m_halfWidth + 2, wallTop, deep}, {-m_halfWidth - 2, wallTop, deep}, m_style.wall,
                         10, 6, 0, 0);
        m_scene.AddPanel({-half, ground, deep + 0.1F}, {half, ground, deep + 0.1F},
                         {half, low - 0.5F, deep + 0.1F}, {-half, low - 0.5F, deep + 0.1F}, m_style.wallDeep,
                         12, 3, 0, 0);
        for (const float s : {-1.0F, 1.0F})
            m_scene.AddPanel({s * (m_halfWidth + 2), 0, deep}, {s * (m_halfWidth + 2), 0, 1.6F},
                             {s * (m_halfWidth + 2), wallTop, 1.6F}, {s * (m_halfWidth + 2), wallTop, deep},
                             m_style.wall, 4, 6, 0, 0);
    }
    const float reach = vineyard ? 7.0F : 7.6F;
    for (float x = -reach; x <= reach; x += 0.34F) {
        const float crest = std::abs(std::cos(x / reach * c_pi * 1.5F));
        const float tall = (high - low) * (0.55F + 0.42F * crest);
        m_scene.AddColumn({x, low + 0.4F * (1 - crest), organZ + 0.5F}, 0.13F, tall - 0.4F,
                          RgbFromHex(0xC8CCD0), 6, 1.0F, 1);
    }
    m_scene.AddBox({-reach - 0.6F, low - 0.7F, organZ - 0.1F}, {reach + 0.6F, low + 0.25F, organZ + 0.9F},
                   m_style.trim * 0.75F);
    if (m_part != Part::CutAway) {
        for (const float x : {-reach - 0.5F, -reach / 3, reach / 3, reach + 0.5F})
            m_scene.AddBox({x - 0.22F, low, organZ}, {x + 0.22F, high, organZ + 0.8F}, m_style.trim * 0.8F);
    }
}

void VenueHallBuilder::BuildArenaStage()
{
    const float half = m_openingHalf;
    const float deep = -m_stageDepth;
    const float ground = m_stageHeight;
    const bool model = m_part == Part::CutAway;
    const Rgb black = RgbFromHex(0x1A1B1F);
    m_scene.AddPanel({-half, ground, deep}, {half, ground, deep}, {half, ground, 1}, {-half, ground, 1},
                     RgbFromHex(0x2C2E34), 12, 8, 0, 0);
    m_scene.AddPanel({-half, 0, 1}, {half, 0, 1}, {half, ground, 1}, {-half, ground, 1}, black, 8, 1);
    m_scene.AddBox({-1.6F, 0, 1}, {1.6F, ground, 8}, RgbFromHex(0x34363C));
    // The screen: a pattern of light that differs from house to house.
    const float screenHigh = model ? 4.5F : 9.0F;
    const int columns = 26;
    const int rows = 12;
    const float phase = m_dice.Between(0, 6);
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
                            Mix(m_style.lightOne, m_style.lightTwo, wave), 0.25F + 0.9F * wave * wave, 0);
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
                    Mix(m_style.lightTwo, m_style.lightOne, 0.1F * static_cast<float>(row + column % 2)),
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
                             Mix(RgbFromHex(0x2A2E3C), m_style.lightOne, 0.12F)
                                 * (fold % 2 == 0 ? 1.0F : 0.75F),
                             1, 6, 0.12F, 0);
        }
    }
    // Drum riser, amplifiers and a microphone.
    m_scene.AddBox({-2, ground, -9}, {2, ground + 0.6F, -6}, black * 1.4F);
    for (const float x : {-1.0F, 0.0F, 1.0F})
        m_scene.AddColumn({x, ground + 0.6F, -7.5F}, 0.42F, 0.6F, m_style.trim, 10);
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

void VenueHallBuilder::BuildLights()
{
    const bool arena = m_style.architecture == Architecture::Arena;
    const bool concert
        = m_style.architecture == Architecture::Shoebox || m_style.architecture == Architecture::Vineyard;
    const Rgb warm = m_style.lightWarm;
    const Rgb white(1, 1, 1);
    switch (m_mood) {
    case Mood::Model:
        m_scene.ambientAbove = Rgb(0.62F, 0.62F, 0.66F);
        m_scene.ambientBelow = Rgb(0.26F, 0.26F, 0.30F);
        m_scene.AddLight({(m_style.seed % 2) == 0 ? -40.0F : 40.0F, 70, 50}, Rgb(0.95F, 0.92F, 0.84F), 110);
        m_scene.AddLight({0, 9, -5}, warm * 0.55F, 9);
        return;
    case Mood::HouseLight:
        m_scene.ambientAbove = warm * (arena ? 0.36F : 0.28F);
        m_scene.ambientBelow = warm * 0.34F;
        m_scene.AddLight({0, m_height - 3, m_length * 0.55F}, (arena ? Rgb(0.85F, 0.9F, 1.0F) : warm) * 0.8F,
                         m_halfWidth * 1.7F);
        m_scene.AddLight({0, m_height * 0.6F, m_length * 0.2F}, warm * 0.4F, m_halfWidth);
        m_scene.AddLight({0, 10, -3}, (concert ? warm : Mix(white, m_style.lightOne, 0.5F)) * 0.7F, 9);
        break;
    case Mood::Show:
        m_scene.ambientAbove = Rgb(0.11F, 0.11F, 0.15F) + warm * (concert ? 0.12F : 0.06F)
            + m_style.lightOne * (arena ? 0.08F : 0.0F);
        m_scene.ambientBelow = Rgb(0.09F, 0.085F, 0.11F) + warm * (concert ? 0.08F : 0.06F)
            + m_style.lightOne * (arena ? 0.12F : 0.0F);
        m_scene.AddLight({0, 9.5F, 1.5F}, concert ? warm * 1.1F : Mix(white, m_style.lightTwo, 0.35F) * 0.8F,
                         arena ? 15.0F : 9.0F);
        m_scene.AddLight({-6, 8, -6}, concert ? warm * 0.7F : m_style.lightOne * 0.95F, arena ? 12.0F : 8.0F);
        m_scene.AddLight({6, 8, -6}, concert ? warm * 0.7F : m_style.lightTwo * 0.95F, arena ? 12.0F : 8.0F);
        for (const float s : {-0.75F, 0.75F})
            m_scene.AddLight({s * m_halfWidth, m_height * 0.5F, m_length * 0.3F},
                             warm * (arena ? 0.12F : 0.3F), m_halfWidth * 0.6F);
        m_scene.AddLight({0, m_height - 4, m_length * 0.6F},
                         warm
                             * (concert     ? 0.4F
                                    : arena ? 0.2F
                                            : 0.42F),
                         m_halfWidth * 1.6F);
        break;
    }
    const float strength = m_mood == Mood::Show ? (concert ? 0.10F : 0.22F) : 0.05F;
    const int beams = arena ? 12 : 7;
    const float half = m_openingHalf;
    for (int beam = 0; beam < beams; ++beam) {
        const float share = static_cast<float>(beam) / static_cast<float>(beams - 1) * 2 - 1;
        const float top = arena ? 13.3F : m_stageHeight + m_openingHeight - (concert ? -1.5F : 1.2F);
        const QVector3D lamp(share * half * 0.92F, top, arena ? 0.4F : -2.0F);
        const bool fan = arena && beam % 2 == 0;
        const QVector3D target = fan
            ? QVector3D(share * half * 2.6F, 4.0F, 10.0F)
            : QVector3D(share * half * (concert ? 0.7F : 0.25F), m_stageHeight, -4.5F);
        m_scene.AddBeam(lamp, target, fan ? 1.3F : 1.7F,
                        concert             ? warm
                            : beam % 2 == 0 ? m_style.lightOne
                                            : m_style.lightTwo,
                        strength);
        m_scene.AddGlow(lamp, arena ? 1.3F : 0.7F,
                        concert             ? warm
                            : beam % 2 == 0 ? m_style.lightOne
                                            : m_style.lightTwo,
                        m_mood == Mood::Show ? 0.7F : 0.35F);
    }
    m_scene.fog = m_mood == Mood::Show ? Rgb(0.05F, 0.05F, 0.07F) : warm * 0.5F;
    m_scene.fogDistance = arena ? 160.0F : m_mood == Mood::Show ? 140.0F : 190.0F;
}

void VenueHallBuilder::Build()
{
    BuildLights();
    BuildFloor();
    BuildStalls();
    if (m_closed)
        BuildBowl();
    else
        BuildTiers();
    BuildWallDetails();
    BuildCeiling();
    switch (m_style.architecture) {
    case Architecture::Opera:
    case Architecture::Modern:
        BuildProscenium();
        BuildStageSet();
        if (m_part == Part::StageHouse)
            AddStageHouse(m_scene, m_style, m_openingHalf, m_openingHeight, m_stageHeight);
        break;
    case Architecture::Shoebox:
    case Architecture::Vineyard:
        BuildPlatform();
        break;
    case Architecture::Arena:
        BuildArenaStage();
        break;
    }
    if (m_part == Part::Everything && m_mood == Mood::HouseLight) { // exit signs
        for (const float share : {0.36F, 0.64F}) {
            const QVector3D at = m_closed ? CurvePoint(share - 0.5F, 1.0F, 3) : CurvePoint(share, 1.6F, 2.7F);
            m_scene.AddBox(at - QVector3D(0.4F, 0.16F, 0.05F), at + QVector3D(0.4F, 0.16F, 0.05F),
                           RgbFromHex(0x2CE070), 1.4F, 2);
            m_scene.AddGlow(at, 1.2F, RgbFromHex(0x30E880), 0.4F);
        }
    }
}

} // namespace korvel::Demo
