#include <server/api/VenuePictureScene_p.h>

#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvel::Demo {

namespace {

/// Spreads every bit of \p value over all of the result.
quint64 Stirred(quint64 value)
{
    value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ (value >> 27U)) * 0x94D049BB133111EBULL;
    return value ^ (value >> 31U);
}

} // namespace

Rgb RgbFromHex(QRgb hex)
{
    return {static_cast<float>(qRed(hex)) / 255.0F, static_cast<float>(qGreen(hex)) / 255.0F,
            static_cast<float>(qBlue(hex)) / 255.0F};
}

QColor ToColor(const Rgb& rgb, float alpha)
{
    return QColor::fromRgbF(std::clamp(rgb.x(), 0.0F, 1.0F), std::clamp(rgb.y(), 0.0F, 1.0F),
                            std::clamp(rgb.z(), 0.0F, 1.0F), std::clamp(alpha, 0.0F, 1.0F));
}

Rgb Mix(const Rgb& from, const Rgb& to, float share)
{
    return from + (to - from) * share;
}

std::vector<float> Steps(float first, float last, float step)
{
    std::vector<float> steps;
    float value = first;
    while (step > 0 ? value <= last : value >= last) {
        steps.push_back(value);
        value += step;
    }
    return steps;
}

Dice::Dice(quint64 seed)
    : m_state(Stirred(seed + 0x1234567ULL))
{
}

float Dice::Between(float low, float high)
{
    m_state += 0x9E3779B97F4A7C15ULL;
    const quint64 mixed = Stirred(m_state);
    return low + (high - low) * static_cast<float>(mixed >> 40U) / static_cast<float>(1U << 24U);
}

int Dice::Below(int count)
{
    return std::min(count - 1, static_cast<int>(Between(0.0F, static_cast<float>(count))));
}

Projection::Projection(const Camera& camera, QSizeF size, bool mirrored)
    : m_camera(camera)
    , m_size(size)
    , m_mirrored(mirrored)
{
    m_forward = (camera.target - camera.eye).normalized();
    m_right = QVector3D::crossProduct(m_forward, {0, 1, 0}).normalized();
    m_up = QVector3D::crossProduct(m_right, m_forward);
}

QVector3D Projection::ToEye(const QVector3D& point) const
{
    QVector3D delta = point;
    if (m_mirrored)
        delta.setY(-delta.y());
    delta -= m_camera.eye;
    return {QVector3D::dotProduct(delta, m_right), QVector3D::dotProduct(delta, m_up),
            QVector3D::dotProduct(delta, m_forward)};
}

float Projection::Scale(const QVector3D& seen) const
{
    const auto height = static_cast<float>(m_size.height());
    return m_camera.parallel ? m_camera.zoom * height : m_camera.zoom * height / seen.z();
}

QPointF Projection::ToPicture(const QVector3D& seen) const
{
    const float scale = Scale(seen);
    return {m_size.width() / 2 + seen.x() * scale,
            m_size.height() * (0.5 - m_camera.horizonShift) - seen.y() * scale};
}

bool Projection::IsParallel() const
{
    return m_camera.parallel;
}

const QVector3D& Projection::Eye() const
{
    return m_camera.eye;
}

void Scene::AddLight(const QVector3D& position, const Rgb& colour, float range)
{
    m_lights.push_back({position, colour, range});
}

void Scene::AddFace(const Corners& corners, const Rgb& colour, float emission, int layer)
{
    m_faces.push_back({corners, colour, emission, layer});
}

void Scene::AddPanel(const QVector3D& a, const QVector3D& b, const QVector3D& c, const QVector3D& d,
                     const Rgb& colour, int columns, int rows, float emission, int layer)
{
    const auto at = [&](int column, int row) {
        const float u = static_cast<float>(column) / static_cast<float>(columns);
        const float v = static_cast<float>(row) / static_cast<float>(rows);
        return Mix(Mix(a, b, u), Mix(d, c, u), v);
    };
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            AddFace({at(column, row), at(column + 1, row), at(column + 1, row + 1), at(column, row + 1)},
                    colour, emission, layer);
        }
    }
}

void Scene::AddBox(const QVector3D& low, const QVector3D& high, const Rgb& colour, float emission, int layer)
{
    const auto corner = [&](int index) {
        return QVector3D((index & 1) != 0 ? high.x() : low.x(), (index & 2) != 0 ? high.y() : low.y(),
                         (index & 4) != 0 ? high.z() : low.z());
    };
    static constexpr int c_sides[6][4]
        = {{0, 1, 3, 2}, {4, 5, 7, 6}, {0, 2, 6, 4}, {1, 3, 7, 5}, {2, 3, 7, 6}, {0, 1, 5, 4}};
    for (const auto& side : c_sides)
        AddFace({corner(side[0]), corner(side[1]), corner(side[2]), corner(side[3])}, colour, emission,
                layer);
}

void Scene::AddColumn(const QVector3D& foot, float radius, float height, const Rgb& colour, int sides,
                      float taper, int layer)
{
    Corners top;
    for (int side = 0; side < sides; ++side) {
        const float angle0
            = 2.0F * std::numbers::pi_v<float> * static_cast<float>(side) / static_cast<float>(sides);
        const float angle1
            = 2.0F * std::numbers::pi_v<float> * static_cast<float>(side + 1) / static_cast<float>(sides);
        const QVector3D low0(std::cos(angle0) * radius, 0, std::sin(angle0) * radius);
        const QVector3D low1(std::cos(angle1) * radius, 0, std::sin(angle1) * radius);
        const QVector3D rise(0, height, 0);
        AddFace({foot + low0, foot + low1, foot + low1 * taper + rise, foot + low0 * taper + rise}, colour,
                0.0F, layer);
        top.append(foot + low0 * taper + rise);
    }
    AddFace(top, colour, 0.0F, layer);
}

void Scene::AddFigure(const QVector3D& foot, const QVector3D& across, float height, const Rgb& colour)
{
    const auto at
        = [&](float x, float y) { return foot + across * (x * height) + QVector3D(0, y * height, 0); };
    AddFace({at(-0.11F, 0.0F), at(-0.03F, 0.0F), at(0.0F, 0.46F), at(-0.02F, 0.52F), at(-0.1F, 0.5F)},
            colour * 0.7F);
    AddFace({at(0.03F, 0.0F), at(0.12F, 0.0F), at(0.1F, 0.5F), at(0.02F, 0.52F), at(0.0F, 0.46F)},
            colour * 0.7F);
    AddFace({at(-0.11F, 0.46F), at(0.11F, 0.46F), at(0.15F, 0.78F), at(0.07F, 0.84F), at(-0.07F, 0.84F),
             at(-0.15F, 0.78F)},
            colour);
    AddFace({at(-0.05F, 0.86F), at(0.05F, 0.86F), at(0.07F, 0.92F), at(0.05F, 0.99F), at(0.0F, 1.01F),
             at(-0.05F, 0.99F), at(-0.07F, 0.92F)},
            Mix(colour, RgbFromHex(0xC89878), 0.6F));
}

void Scene::AddBeam(const QVector3D& from, const QVector3D& to, float radius, const Rgb& colour,
                    float strength)
{
    m_beams.push_back({from, to, radius, colour, strength});
}

void Scene::AddGlow(const QVector3D& centre, float radius, const Rgb& colour, float strength, int layer)
{
    m_glows.push_back({centre, radius, colour, strength, layer});
}

std::vector<Scene::Item> Scene::InPaintingOrder(const Projection& projection, bool withLight) const
{
    // Light hangs in the air: what stands close behind it must be painted before it.
    constexpr float c_lightAhead = 1.5F;
    const auto depthOf = [&projection](const QVector3D& point) {
        const QVector3D seen = projection.ToEye(point);
        return projection.IsParallel() ? seen.z() : seen.length();
    };
    std::vector<Item> items;
    items.reserve(m_faces.size() + m_beams.size() + m_glows.size());
    for (const Face& face : m_faces) {
        QVector3D centre;
        for (const QVector3D& corner : face.corners)
            centre += corner;
        items.push_back(
            {face.layer, depthOf(centre / static_cast<float>(face.corners.size())), &face, nullptr, nullptr});
    }
    if (withLight) {
        for (const Beam& beam : m_beams)
            items.push_back(
                {1, depthOf((beam.from + beam.to) / 2.0F) - c_lightAhead, nullptr, &beam, nullptr});
        for (const Glow& glow : m_glows)
            items.push_back({glow.layer, depthOf(glow.centre) - c_lightAhead, nullptr, nullptr, &glow});
    }
    std::stable_sort(items.begin(), items.end(), [](const Item& left, const Item& right) {
        return left.layer != right.layer ? left.layer < right.layer : left.depth > right.depth;
    });
    return items;
}

void Scene::Render(QPainter& painter, const Camera& camera, QSizeF size, bool mirrored) const
{
    const Projection projection(camera, size, mirrored);
    painter.save();
    painter.setPen(Qt::NoPen);
    for (const Item& item : InPaintingOrder(projection, !mirrored)) {
        painter.setCompositionMode(item.face ? QPainter::CompositionMode_SourceOver
                                             : QPainter::CompositionMode_Plus);
        if (item.face)
            PaintFace(painter, *item.face, projection);
        else if (item.beam)
            PaintBeam(painter, *item.beam, projection);
        else
            PaintGlow(painter, *item.glow, projection);
    }
    painter.restore();
}

Rgb Scene::Shade(const Face& face, const QVector3D& point, const QVector3D& normal, float distance) const
{
    Rgb light = Mix(ambientBelow, ambientAbove, 0.5F + 0.5F * normal.y());
    for (const Light& lamp : m_lights) {
        const QVector3D toLamp = lamp.position - point;
        const float length = std::max(0.01F, toLamp.length());
        const float facing = std::max(0.0F, QVector3D::dotProduct(toLamp, normal) / length);
        const float ratio = length / lamp.range;
        light += lamp.colour * ((0.22F + 0.78F * facing) / (1.0F + ratio * ratio));
    }
    const Rgb lit = face.colour * light + face.colour * face.emission;
    // Bright light bends towards white instead of being cut off.
    Rgb shown(1.0F - std::exp(-1.35F * lit.x()), 1.0F - std::exp(-1.35F * lit.y()),
              1.0F - std::exp(-1.35F * lit.z()));
    if (fogDistance > 0.0F)
        shown = Mix(fog, shown,
                    std::exp(-distance / fogDistance * (1.0F - 0.7F * std::min(1.0F, face.emission))));
    return shown;
}

void Scene::PaintFace(QPainter& painter, const Face& face, const Projection& projection) const
{
    struct Seen
    {
        QVector3D world;
        QVector3D eye;
    };
    QVarLengthArray<Seen, 12> clipped;
    const auto count = face.corners.size();
    const float near = projection.IsParallel() ? -1.0e6F : Projection::c_near;
    for (qsizetype index = 0; index < count; ++index) {
        const QVector3D& here = face.corners[index];
        const QVector3D& next = face.corners[(index + 1) % count];
        const QVector3D seenHere = projection.ToEye(here);
        const QVector3D seenNext = projection.ToEye(next);
        if (seenHere.z() >= near)
            clipped.append({here, seenHere});
        if ((seenHere.z() >= near) != (seenNext.z() >= near)) {
            const float share = (near - seenHere.z()) / (seenNext.z() - seenHere.z());
            QVector3D cut = Mix(seenHere, seenNext, share);
            cut.setZ(near);
            clipped.append({Mix(here, next, share), cut});
        }
    }
    if (clipped.size() < 3)
        return;

    QPolygonF outline;
    QPointF centre;
    for (const Seen& corner : clipped) {
        outline.append(projection.ToPicture(corner.eye));
        centre += outline.last() / static_cast<qreal>(clipped.size());
    }
    // A hair larger than it is: smoothed edges of neighbours would let the ground shine through.
    for (QPointF& corner : outline) {
        const QPointF away = corner - centre;
        const double length = std::hypot(away.x(), away.y());
        if (length > 0.0)
            corner += away * (0.45 / length);
    }
    const QRectF bounds = outline.boundingRect();
    if (bounds.right() < -50 || bounds.bottom() < -50 || bounds.left() > 4000 || bounds.top() > 2000)
        return;

    QVector3D normal
        = QVector3D::crossProduct(face.corners[1] - face.corners[0], face.corners[2] - face.corners[0])
              .normalized();
    const QVector3D toEye = projection.Eye() - face.corners[0];
    if (QVector3D::dotProduct(normal, toEye) < 0.0F)
        normal = -normal;

    const auto shadeAt = [&](const QVector3D& point) {
        return Shade(face, point, normal, (projection.Eye() - point).length());
    };
    if (clipped.size() == 4 && bounds.width() * bounds.height() > 220.0) {
        const auto middle
            = [&](int from, int to) { return (clipped[from].world + clipped[to].world) / 2.0F; };
        const auto middleSeen = [&](int from, int to) { return (outline[from] + outline[to]) / 2.0; };
        const Rgb shades[4]
            = {shadeAt(middle(0, 1)), shadeAt(middle(1, 2)), shadeAt(middle(2, 3)), shadeAt(middle(3, 0))};
        const bool across
            = (shades[0] - shades[2]).lengthSquared() >= (shades[1] - shades[3]).lengthSquared();
        const QPointF start = across ? middleSeen(0, 1) : middleSeen(1, 2);
        const QPointF end = across ? middleSeen(2, 3) : middleSeen(3, 0);
        QLinearGradient gradient(start, end);
        gradient.setColorAt(0.0, ToColor(shades[across ? 0 : 1]));
        gradient.setColorAt(1.0, ToColor(shades[across ? 2 : 3]));
        painter.setBrush(gradient);
    } else {
        QVector3D middle;
        for (const Seen& corner : clipped)
            middle += corner.world / static_cast<float>(clipped.size());
        painter.setBrush(ToColor(shadeAt(middle)));
    }
    painter.drawPolygon(outline);
}

void Scene::PaintBeam(QPainter& painter, const Beam& beam, const Projection& projection) const
{
    const QVector3D from = projection.ToEye(beam.from);
    const QVector3D to = projection.ToEye(beam.to);
    if (from.z() < Projection::c_near || to.z() < Projection::c_near)
        return;
    const QPointF start = projection.ToPicture(from);
    const QPointF end = projection.ToPicture(to);
    const QPointF along = end - start;
    const double length = std::hypot(along.x(), along.y());
    if (length < 1.0)
        return;
    const QPointF side(-along.y() / length, along.x() / length);
    QLinearGradient gradient(start, end);
    // Three nested cones make a soft edge.
    for (const double width : {1.0, 0.66, 0.33}) {
        const double half = beam.radius * projection.Scale(to) * width;
        const double tip = 0.12 * projection.Scale(from) * width;
        gradient.setColorAt(0.0, ToColor(beam.colour, beam.strength));
        gradient.setColorAt(0.25, ToColor(beam.colour, beam.strength * 0.55F));
        gradient.setColorAt(1.0, ToColor(beam.colour, 0.0F));
        painter.setBrush(gradient);
        painter.drawPolygon(
            QPolygonF({start - side * tip, start + side * tip, end + side * half, end - side * half}));
    }
}

void Scene::PaintGlow(QPainter& painter, const Glow& glow, const Projection& projection) const
{
    const QVector3D seen = projection.ToEye(glow.centre);
    if (!projection.IsParallel() && seen.z() < Projection::c_near)
        return;
    const QPointF centre = projection.ToPicture(seen);
    const double radius = std::min(700.0, static_cast<double>(glow.radius * projection.Scale(seen)));
    QRadialGradient gradient(centre, radius);
    gradient.setColorAt(0.0, ToColor(Mix(glow.colour, {1, 1, 1}, 0.6F), glow.strength));
    gradient.setColorAt(0.12, ToColor(glow.colour, glow.strength * 0.6F));
    gradient.setColorAt(0.4, ToColor(glow.colour, glow.strength * 0.16F));
    gradient.setColorAt(1.0, ToColor(glow.colour, 0.0F));
    painter.setBrush(gradient);
    painter.drawEllipse(centre, radius, radius);
}

} // namespace korvel::Demo
