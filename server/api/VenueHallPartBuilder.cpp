#include <server/api/VenueHallPartBuilder_p.h>

#include <algorithm>

namespace korvel::Demo {

VenueHallPartBuilder::VenueHallPartBuilder(Scene& scene, VenueHallPlan& plan)
    : m_scene(scene)
    , m_plan(plan)
{
}

void VenueHallPartBuilder::AddSeat(const QVector3D& foot, const QVector3D& towardsStage, float shadeJitter)
{
    const QVector3D right = QVector3D::crossProduct(towardsStage, {0, 1, 0}).normalized() * 0.25F;
    const QVector3D up(0, 1, 0);
    const QVector3D back = foot - towardsStage * 0.22F;
    const Rgb cloth = m_plan.style.seed % 7 == 3 && m_plan.dice.Below(4) == 0
        ? Mix(m_plan.style.seat, m_plan.style.trim, 0.4F)
        : m_plan.style.seat * (0.88F + 0.24F * shadeJitter);
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

void VenueHallPartBuilder::BuildTruss(const QVector3D& from, const QVector3D& to, float size,
                                      const Rgb& colour)
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

} // namespace korvel::Demo
