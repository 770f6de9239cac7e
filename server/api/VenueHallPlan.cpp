#include <server/api/VenueHallPlan_p.h>

#include <cmath>
#include <numbers>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;
constexpr float c_pi = std::numbers::pi_v<float>;

} // namespace

VenueHallPlan::VenueHallPlan(const VenueStyle& venueStyle, Part shownPart, Mood light)
    : style(venueStyle)
    , part(shownPart)
    , mood(light)
    , dice(venueStyle.seed * 31 + 7)
{
    switch (style.architecture) {
    case Architecture::Opera:
        length = dice.Between(26, 29);
        height = 5.4F + 3.1F * static_cast<float>(style.tiers);
        openingHeight = 9.5F;
        break;
    case Architecture::Shoebox:
        halfWidth = 11.5F;
        length = 36;
        height = 15.5F;
        corner = 0.6F;
        openingHalf = 10;
        stageDepth = 11;
        break;
    case Architecture::Vineyard:
        halfWidth = 13;
        length = 16;
        height = 17;
        openingHalf = 9;
        stageDepth = 12;
        closed = true;
        break;
    case Architecture::Arena:
        halfWidth = 20;
        length = 34;
        height = 25;
        openingHalf = 11;
        stageDepth = 13;
        stageHeight = 1.8F;
        closed = true;
        break;
    case Architecture::Modern:
        halfWidth = 15;
        length = 32;
        height = 15;
        corner = 5;
        openingHalf = 9;
        openingHeight = 8.5F;
        break;
    }
}

Camera VenueHallPlan::FromAuditorium() const
{
    const float side = halfWidth * ((style.seed % 3) == 0 ? -0.14F : (style.seed % 3) == 1 ? 0.1F : 0.02F);
    switch (style.architecture) {
    case Architecture::Arena:
        return {{side * 2, 11.5F, length * 1.02F}, {0, 4.6F, -8}, 1.02F};
    case Architecture::Vineyard:
        return {{side, 9.2F, length * 1.12F}, {0, 3.0F, -8}, 0.86F};
    case Architecture::Shoebox:
        return {{side, 6.2F, length * 0.86F}, {0, 5.0F, -6}, 1.1F};
    default:
        return {{side, 5.4F, length * 0.84F}, {0, 4.7F, -6}, 0.98F};
    }
}

Camera VenueHallPlan::FromStage() const
{
    const float side = (style.seed % 2) == 0 ? -1.6F : 1.2F;
    switch (style.architecture) {
    case Architecture::Arena:
        return {{side * 2, 5.2F, -9}, {0, 6.2F, length}, 0.66F};
    case Architecture::Vineyard:
        return {{side, 3.6F, -8.5F}, {0, 4.8F, length}, 0.62F};
    default:
        return {{side, 3.0F, -4.6F}, {0, 6.1F, length}, 0.74F};
    }
}

Camera VenueHallPlan::FromCorner() const
{
    const float side = (style.seed % 2) == 0 ? 1.0F : -1.0F;
    switch (style.architecture) {
    case Architecture::Arena:
        return {{side * 25, 17, 24}, {-side * 8, 6.5F, -9}, 0.68F};
    case Architecture::Vineyard:
        return {{side * 15, 10.5F, 15}, {-side * 5, 6.0F, -7}, 0.62F};
    case Architecture::Opera:
        return {{side * 8.2F, 9.2F, length - 6.5F}, {-side * 4.5F, 8.1F, -2}, 0.62F};
    default:
        return {{side * halfWidth * 0.72F, 7.8F, length * 0.86F}, {-side * 4.0F, 6.9F, -4}, 0.68F};
    }
}

Camera VenueHallPlan::FromAbove() const
{
    const bool arena = style.architecture == Architecture::Arena;
    const float side = (style.seed % 2) == 0 ? 1.0F : -1.0F;
    const QVector3D centre(0, 1.5F, closed ? 2.0F : length * 0.5F - stageDepth * 0.45F);
    const float extent = arena ? 92.0F : closed ? 59.0F : (length + stageDepth) * 0.88F;
    return {centre + QVector3D(side * 60, 64, 74), centre, 1.0F / extent, true};
}

Camera VenueHallPlan::FromWing(bool left) const
{
    const float side = left ? 1.0F : -1.0F;
    switch (style.architecture) {
    case Architecture::Arena:
        return {{side * 15.5F, 4.6F, -10.5F}, {-side * 7, 5.2F, 3.0F}, 0.68F};
    case Architecture::Vineyard:
        return {{side * 11.5F, 4.4F, -10.0F}, {-side * 6, 4.0F, 1.0F}, 0.62F};
    case Architecture::Shoebox:
        return {{side * 10.2F, 4.0F, -9.6F}, {-side * 7, 4.2F, 2.0F}, 0.62F};
    default:
        return {{side * (openingHalf + 2.3F), 3.1F, -5.6F}, {-side * 6, 4.8F, -4.6F}, 0.6F};
    }
}

QVector3D VenueHallPlan::CurvePoint(float share, float outward, float height) const
{
    if (closed) {
        const float angle = 2.0F * c_pi * share;
        const float middle = style.architecture == Architecture::Arena ? length * 0.34F : -3.0F;
        const float depth = length * 0.86F;
        return {std::sin(angle) * (halfWidth + outward), height,
                middle + std::cos(angle) * (depth + outward)};
    }
    const float side = length - corner - 1.5F;
    const float arc = c_pi * 0.5F * corner;
    const float back = 2.0F * (halfWidth - corner);
    float way = share * (2.0F * side + 2.0F * arc + back);
    QVector3D point;
    if (way <= side) {
        point = {-(halfWidth + outward), height, 1.5F + way};
    } else if ((way -= side) <= arc) {
        const float angle = way / corner;
        point = {-(halfWidth - corner) - std::cos(angle) * (corner + outward), height,
                 length - corner + std::sin(angle) * (corner + outward)};
    } else if ((way -= arc) <= back) {
        point = {-(halfWidth - corner) + way, height, length + outward};
    } else if ((way -= back) <= arc) {
        const float angle = way / corner;
        point = {(halfWidth - corner) + std::sin(angle) * (corner + outward), height,
                 length - corner + std::cos(angle) * (corner + outward)};
    } else {
        point = {halfWidth + outward, height, 1.5F + side - (way - arc)};
    }
    if (style.architecture == Architecture::Modern)
        point.setX(point.x() * (0.74F + 0.28F * point.z() / length));
    return point;
}

} // namespace korvel::Demo
