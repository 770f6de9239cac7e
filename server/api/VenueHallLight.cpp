#include <server/api/VenueHallLight_p.h>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;
using Mood = VenueHallPlan::Mood;

} // namespace

void VenueHallLight::BuildLights()
{
    const bool arena = m_plan.style.architecture == Architecture::Arena;
    const bool concert = m_plan.style.architecture == Architecture::Shoebox
        || m_plan.style.architecture == Architecture::Vineyard;
    const Rgb warm = m_plan.style.lightWarm;
    const Rgb white(1, 1, 1);
    switch (m_plan.mood) {
    case Mood::Model:
        m_scene.ambientAbove = Rgb(0.62F, 0.62F, 0.66F);
        m_scene.ambientBelow = Rgb(0.26F, 0.26F, 0.30F);
        m_scene.AddLight({(m_plan.style.seed % 2) == 0 ? -40.0F : 40.0F, 70, 50}, Rgb(0.95F, 0.92F, 0.84F),
                         110);
        m_scene.AddLight({0, 9, -5}, warm * 0.55F, 9);
        return;
    case Mood::HouseLight:
        m_scene.ambientAbove = warm * (arena ? 0.36F : 0.28F);
        m_scene.ambientBelow = warm * 0.34F;
        m_scene.AddLight({0, m_plan.height - 3, m_plan.length * 0.55F},
                         (arena ? Rgb(0.85F, 0.9F, 1.0F) : warm) * 0.8F, m_plan.halfWidth * 1.7F);
        m_scene.AddLight({0, m_plan.height * 0.6F, m_plan.length * 0.2F}, warm * 0.4F, m_plan.halfWidth);
        m_scene.AddLight({0, 10, -3}, (concert ? warm : Mix(white, m_plan.style.lightOne, 0.5F)) * 0.7F, 9);
        break;
    case Mood::Show:
        m_scene.ambientAbove = Rgb(0.11F, 0.11F, 0.15F) + warm * (concert ? 0.12F : 0.06F)
            + m_plan.style.lightOne * (arena ? 0.08F : 0.0F);
        m_scene.ambientBelow = Rgb(0.09F, 0.085F, 0.11F) + warm * (concert ? 0.08F : 0.06F)
            + m_plan.style.lightOne * (arena ? 0.12F : 0.0F);
        m_scene.AddLight({0, 9.5F, 1.5F},
                         concert ? warm * 1.1F : Mix(white, m_plan.style.lightTwo, 0.35F) * 0.8F,
                         arena ? 15.0F : 9.0F);
        m_scene.AddLight({-6, 8, -6}, concert ? warm * 0.7F : m_plan.style.lightOne * 0.95F,
                         arena ? 12.0F : 8.0F);
        m_scene.AddLight({6, 8, -6}, concert ? warm * 0.7F : m_plan.style.lightTwo * 0.95F,
                         arena ? 12.0F : 8.0F);
        for (const float s : {-0.75F, 0.75F})
            m_scene.AddLight({s * m_plan.halfWidth, m_plan.height * 0.5F, m_plan.length * 0.3F},
                             warm * (arena ? 0.12F : 0.3F), m_plan.halfWidth * 0.6F);
        m_scene.AddLight({0, m_plan.height - 4, m_plan.length * 0.6F},
                         warm
                             * (concert     ? 0.4F
                                    : arena ? 0.2F
                                            : 0.42F),
                         m_plan.halfWidth * 1.6F);
        break;
    }
    const float strength = m_plan.mood == Mood::Show ? (concert ? 0.10F : 0.22F) : 0.05F;
    const int beams = arena ? 12 : 7;
    const float half = m_plan.openingHalf;
    for (int beam = 0; beam < beams; ++beam) {
        const float share = static_cast<float>(beam) / static_cast<float>(beams - 1) * 2 - 1;
        const float top
            = arena ? 13.3F : m_plan.stageHeight + m_plan.openingHeight - (concert ? -1.5F : 1.2F);
        const QVector3D lamp(share * half * 0.92F, top, arena ? 0.4F : -2.0F);
        const bool fan = arena && beam % 2 == 0;
        const QVector3D target = fan
            ? QVector3D(share * half * 2.6F, 4.0F, 10.0F)
            : QVector3D(share * half * (concert ? 0.7F : 0.25F), m_plan.stageHeight, -4.5F);
        m_scene.AddBeam(lamp, target, fan ? 1.3F : 1.7F,
                        concert             ? warm
                            : beam % 2 == 0 ? m_plan.style.lightOne
                                            : m_plan.style.lightTwo,
                        strength);
        m_scene.AddGlow(lamp, arena ? 1.3F : 0.7F,
                        concert             ? warm
                            : beam % 2 == 0 ? m_plan.style.lightOne
                                            : m_plan.style.lightTwo,
                        m_plan.mood == Mood::Show ? 0.7F : 0.35F);
    }
    m_scene.fog = m_plan.mood == Mood::Show ? Rgb(0.05F, 0.05F, 0.07F) : warm * 0.5F;
    m_scene.fogDistance = arena ? 160.0F : m_plan.mood == Mood::Show ? 140.0F : 190.0F;
}

} // namespace korvel::Demo
