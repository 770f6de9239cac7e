#include <server/api/VenuePictureOutside_p.h>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;
constexpr float c_pi = std::numbers::pi_v<float>;

/// Builds the house as seen from the square; its front stands at z = 0, the square reaches to positive z.
class FacadeBuilder
{
public:
    FacadeBuilder(Scene& scene, const VenueStyle& style)
        : m_scene(scene)
        , m_style(style)
        , m_dice(style.seed * 13 + 5)
    {
    }

    void Build()
    {
        BuildLights();
        switch (m_style.architecture) {
        case Architecture::Opera:
            BuildOperaHouse();
            break;
        case Architecture::Shoebox:
            BuildConcertHall();
            break;
        case Architecture::Vineyard:
            BuildTentHall();
            break;
        case Architecture::Arena:
            BuildArena();
            break;
        case Architecture::Modern:
            BuildGlassHouse();
            break;
        }
    }

    void BuildPeople()
    {
        static constexpr QRgb c_coats[]
            = {0x2A3040, 0x5A2430, 0x3A4A3A, 0x6A5A40, 0x202024, 0x7A4030, 0x44506A};
        for (int person = 0; person < 26; ++person) {
            const float z = m_dice.Between(3.5F, 24.0F);
            const float x = m_dice.Between(-24.0F, 24.0F);
            const QVector3D foot(x, 0, z);
            m_scene.AddFace({foot + QVector3D(-0.35F, 0.01F, 0), foot + QVector3D(0, 0.01F, -0.2F),
                             foot + QVector3D(0.35F, 0.01F, 0), foot + QVector3D(0, 0.01F, 0.2F)},
                            RgbFromHex(0x15171C), 0.0F, 1);
            m_scene.AddFigure(foot, {1, 0, 0}, m_dice.Between(1.6F, 1.86F),
                              RgbFromHex(c_coats[m_dice.Below(7)]));
        }
    }

    void BuildLamps()
    {
        for (const float x : {-21.0F, -11.0F, 11.0F, 21.0F}) {
            const QVector3D foot(x, 0, 11);
            m_scene.AddColumn(foot, 0.08F, 4.6F, RgbFromHex(0x30343A), 6);
            m_scene.AddColumn(foot + QVector3D(0, 4.6F, 0), 0.26F, 0.5F, RgbFromHex(0xFFF0D0), 8);
            if (m_style.dusk) {
                m_scene.AddGlow(foot + QVector3D(0, 4.85F, 0), 3.4F, m_style.lightWarm, 0.7F, 9);
                m_scene.AddLight(foot + QVector3D(0, 4.6F, 0), m_style.lightWarm * 0.4F, 4.0F);
            }
        }
    }

private:
    void BuildLights()
    {
        if (m_style.dusk) {
            m_scene.ambientAbove = Rgb(0.22F, 0.25F, 0.40F);
            m_scene.ambientBelow = Rgb(0.15F, 0.14F, 0.20F);
            m_scene.AddLight({0, 1.5F, 7}, m_style.lightWarm * 0.75F, 9.0F);
            m_scene.AddLight({-16, 1.5F, 7}, m_style.lightWarm * 0.55F, 7.0F);
            m_scene.AddLight({0, 11, 20}, m_style.lightWarm * 0.42F, 18.0F);
            m_scene.AddLight({16, 1.5F, 7}, m_style.lightWarm * 0.55F, 7.0F);
        } else {
            m_scene.ambientAbove = Rgb(0.58F, 0.63F, 0.72F);
            m_scene.ambientBelow = Rgb(0.42F, 0.40F, 0.38F);
            m_scene.AddLight({m_style.seed % 2 == 0 ? -60.0F : 60.0F, 55, 60}, Rgb(0.85F, 0.78F, 0.64F),
                             140.0F);
        }
    }

    Rgb Pane()
    {
        if (m_style.dusk)
            return Mix(RgbFromHex(0xFFC878), RgbFromHex(0xFFE8C0), m_dice.Between(0, 1))
                * m_dice.Between(0.72F, 1.0F);
        return Mix(RgbFromHex(0x6E8CA8), RgbFromHex(0xA9C2D6), m_dice.Between(0, 1));
    }

    float PaneEmission() const
    {
        return m_style.dusk ? 0.95F : 0.18F;
    }

    /// A round-headed window or door, its frame a little in front of the wall at \p z.
    void AddArch(float x, float foot, float width, float height, float z, const Rgb& frame)
    {
        const auto arch = [&](float half, float low, float high, float depth, const Rgb& colour,
                              float emission, int layer) {
            const float spring = high - half;
            m_scene.AddFace({{x - half, low, depth},
                             {x + half, low, depth},
                             {x + half, spring, depth},
                             {x + half * 0.75F, spring + half * 0.66F, depth},
                             {x, high, depth},
                             {x - half * 0.75F, spring + half * 0.66F, depth},
                             {x - half, spring, depth}},
                            colour, emission, layer);
        };
        arch(width / 2 + 0.22F, foot, foot + height + 0.22F, z + 0.04F, frame, 0.0F, 1);
        arch(width / 2, foot, foot + height, z + 0.08F, Pane(), PaneEmission(), 2);
        const Rgb bar = frame * 0.6F;
        m_scene.AddFace({{x - 0.05F, foot, z + 0.12F},
                         {x + 0.05F, foot, z + 0.12F},
                         {x + 0.05F, foot + height, z + 0.12F},
                         {x - 0.05F, foot + height, z + 0.12F}},
                        bar, 0, 3);
        for (const float y : Steps(foot + 1.2F, foot + height - width / 2 - 0.01F, 1.2F))
            m_scene.AddFace({{x - width / 2, y, z + 0.12F},
                             {x + width / 2, y, z + 0.12F},
                             {x + width / 2, y + 0.08F, z + 0.12F},
                             {x - width / 2, y + 0.08F, z + 0.12F}},
                            bar, 0, 3);
    }

    void AddBlock(const QVector3D& low, const QVector3D& high, const Rgb& colour, int columns, int rows)
    {
        m_scene.AddPanel({low.x(), low.y(), high.z()}, {high.x(), low.y(), high.z()}, high,
                         {low.x(), high.y(), high.z()}, colour, columns, rows, 0.0F, 0);
        for (const float x : {low.x(), high.x()})
            m_scene.AddPanel({x, low.y(), low.z()}, {x, low.y(), high.z()}, {x, high.y(), high.z()},
                             {x, high.y(), low.z()}, colour * 0.94F, 3, rows, 0.0F, 0);
        m_scene.AddPanel({low.x(), high.y(), low.z()}, {high.x(), high.y(), low.z()}, high,
                         {low.x(), high.y(), high.z()}, colour * 0.9F, columns, 2, 0.0F, 0);
    }

    void BuildOperaHouse()
    {
        const Rgb stone = Mix(RgbFromHex(0xD8C8A8), m_style.wall, 0.4F);
        const Rgb roof = m_style.seed % 3 == 0 ? RgbFromHex(0x6FA08E) : RgbFromHex(0x6A7078);
        const float wing = 21.0F;
        AddBlock({-wing, 0, -26}, {wing, 13.0F, -1.5F}, stone * 0.95F, 12, 5);
        AddBlock({-11, 13.0F, -26}, {11, 20.5F, -9}, stone * 0.92F, 6, 3);
        // Roof of the house and the dome or fly tower behind it.
        m_scene.AddFace({{-11.5F, 20.5F, -8.5F}, {11.5F, 20.5F, -8.5F}, {7, 23.5F, -13}, {-7, 23.5F, -13}},
                        roof);
        for (int part = 0; part < 16; ++part) {
            const auto ring = [&](int step, float radius, float y) {
                const float angle = 2 * c_pi * static_cast<float>(step) / 16;
                return QVector3D(std::cos(angle) * radius, y, -15 + std::sin(angle) * radius);
            };
            for (int level = 0; level < 4; ++level) {
                const float r0 = 7.5F * std::cos(static_cast<float>(level) * 0.36F);
                const float r1 = 7.5F * std::cos(static_cast<float>(level + 1) * 0.36F);
                m_scene.AddFace(
                    {ring(part, r0, 23.0F + 4.6F * std::sin(static_cast<float>(level) * 0.36F)),
                     ring(part + 1, r0, 23.0F + 4.6F * std::sin(static_cast<float>(level) * 0.36F)),
                     ring(part + 1, r1, 23.0F + 4.6F * std::sin(static_cast<float>(level + 1) * 0.36F)),
                     ring(part, r1, 23.0F + 4.6F * std::sin(static_cast<float>(level + 1) * 0.36F))},
                    roof * (part % 2 == 0 ? 1.0F : 0.93F));
            }
        }
        m_scene.AddColumn({0, 27.2F, -15}, 0.9F, 2.4F, m_style.trim, 8, 0.4F);
        // Cornices and plinth.
        for (const float y : {0.0F, 6.2F, 12.4F})
            m_scene.AddBox({-wing - 0.3F, y, -1.7F}, {wing + 0.3F, y + (y > 1 ? 0.6F : 1.1F), -1.1F},
                           stone * 1.05F);
        m_scene.AddBox({-wing, 13.0F, -1.5F}, {wing, 14.0F, -1.2F}, stone);
        for (const float x : Steps(-wing + 0.5F, wing - 0.01F, 0.8F))
            m_scene.AddBox({x, 13.2F, -1.3F}, {x + 0.3F, 13.9F, -1.05F}, stone * 1.08F);
        for (const float side : {-1.0F, 1.0F}) {
            for (int bay = 0; bay < 3; ++bay) {
                const float x = side * (12.0F + 3.2F * static_cast<float>(bay));
                AddArch(x, 1.2F, 1.7F, 4.2F, -1.5F, stone * 1.1F);
                AddArch(x, 7.2F, 1.5F, 4.2F, -1.5F, stone * 1.1F);
                m_scene.AddBox({x + side * 1.6F - 0.25F, 1.1F, -1.5F},
                               {x + side * 1.6F + 0.25F, 12.4F, -1.2F}, stone * 1.06F);
            }
        }
        // Stairs, portico and pediment.
        for (int step = 0; step < 6; ++step)
            m_scene.AddBox(
                {-11.0F - 0.4F * static_cast<float>(5 - step), 0.22F * static_cast<float>(step), -1.5F},
                {11.0F + 0.4F * static_cast<float>(5 - step), 0.22F * static_cast<float>(step + 1),
                 4.4F - 0.5F * static_cast<float>(step)},
                stone * 1.02F);
        for (int bay = 0; bay < 5; ++bay)
            AddArch(-7.2F + 3.6F * static_cast<float>(bay), 1.3F, 2.1F, 5.2F, -1.5F, stone * 1.1F);
        for (int bay = 0; bay < 5; ++bay)
            AddArch(-7.2F + 3.6F * static_cast<float>(bay), 8.0F, 1.6F, 3.4F, -1.5F, stone * 1.1F);
        for (int column = 0; column < 6; ++column) {
            const float x = -9.0F + 3.6F * static_cast<float>(column);
            m_scene.AddBox({x - 0.75F, 1.3F, 0.1F}, {x + 0.75F, 1.75F, 1.6F}, stone, 0, 4);
            m_scene.AddColumn({x, 1.75F, 0.85F}, 0.55F, 9.6F, stone * 1.06F, 12, 0.84F, 4);
            m_scene.AddBox({x - 0.7F, 11.3F, 0.15F}, {x + 0.7F, 11.8F, 1.55F}, stone * 1.05F, 0, 4);
        }
        m_scene.AddBox({-10.6F, 11.8F, -1.5F}, {10.6F, 13.2F, 1.8F}, stone, 0, 4);
        m_scene.AddBox({-11.0F, 13.2F, -1.5F}, {11.0F, 13.7F, 2.2F}, stone * 1.06F, 0, 5);
        m_scene.AddFace({{-11, 13.7F, 1.9F}, {11, 13.7F, 1.9F}, {0, 18.0F, 1.9F}}, stone * 1.06F, 0, 6);
        m_scene.AddFace({{-9.2F, 14.1F, 1.95F}, {9.2F, 14.1F, 1.95F}, {0, 17.4F, 1.95F}},
                        Mix(stone, m_style.wallDeep, 0.35F), 0, 7);
        m_scene.AddColumn({0, 18.0F, 1.2F}, 0.35F, 1.9F, m_style.trim, 8, 0.5F, 6);
        if (m_style.dusk) {
            for (int column = 0; column < 5; ++column)
                m_scene.AddGlow({-7.2F + 3.6F * static_cast<float>(column), 5.5F, -0.5F}, 3.2F,
                                m_style.lightWarm, 0.28F, 9);
        }
    }

    void BuildConcertHall()
    {
        const Rgb brick = m_style.seed % 2 == 0 ? RgbFromHex(0xA8563C) : RgbFromHex(0xC8B08C);
        const Rgb stone = RgbFromHex(0xE0D6C4);
        AddBlock({-13, 0, -34}, {13, 15.5F, -3}, brick, 10, 6);
        AddBlock({-19, 0, -30}, {19, 8.0F, -2}, brick * 1.02F, 14, 4);
        // Gable roof with a lyre on top.
        m_scene.AddFace({{-13.6F, 15.5F, -2.6F}, {13.6F, 15.5F, -2.6F}, {0, 21.5F, -2.6F}}, stone, 0, 2);
        m_scene.AddFace({{-11.4F, 15.9F, -2.5F}, {11.4F, 15.9F, -2.5F}, {0, 20.8F, -2.5F}}, brick, 0, 2);
        for (const float side : {-1.0F, 1.0F})
            m_scene.AddPanel({side * 13.6F, 15.5F, -2.6F}, {side * 13.6F, 15.5F, -34}, {0, 21.5F, -34},
                             {0, 21.5F, -2.6F}, RgbFromHex(0x5A6068), 6, 3, 0.0F, 0);
        m_scene.AddColumn({0, 21.3F, -2.8F}, 0.5F, 1.6F, m_style.trim, 8, 0.6F);
        Scene::Corners rose;
        for (int corner = 0; corner < 8; ++corner)
            rose.append({std::cos(static_cast<float>(corner) * c_pi / 4) * 1.4F,
                         17.8F + std::sin(static_cast<float>(corner) * c_pi / 4) * 1.4F, -2.4F});
        m_scene.AddFace(rose, m_style.trim, 0.1F, 2);
        for (float y : {7.4F, 14.9F})
            m_scene.AddBox({y > 8 ? -13.4F : -19.4F, y, -3.2F},
                           {y > 8 ? 13.4F : 19.4F, y + 0.7F, y > 8 ? -2.5F : -1.6F}, stone);
        for (int bay = 0; bay < 7; ++bay) {
            const float x = -10.5F + 3.5F * static_cast<float>(bay);
            AddArch(x, 8.6F, 1.9F, 5.4F, -3.0F, stone);
            m_scene.AddBox({x - 1.9F, 8.1F, -3.0F}, {x - 1.6F, 14.9F, -2.6F}, stone);
        }
        for (const float side : {-1.0F, 1.0F})
            AddArch(side * 16.0F, 1.6F, 2.0F, 4.6F, -2.0F, stone);
        // A glass foyer in front.
        const float left = -12.5F;
        for (int column = 0; column < 20; ++column) {
            for (int row = 0; row < 3; ++row) {
                const float x = left + 1.25F * static_cast<float>(column);
                const float y = 0.3F + 1.7F * static_cast<float>(row);
                m_scene.AddFace({{x + 0.05F, y, 2},
                                 {x + 1.2F, y, 2},
                                 {x + 1.2F, y + 1.62F, 2},
                                 {x + 0.05F, y + 1.62F, 2}},
                                Pane(), PaneEmission(), 4);
            }
        }
        AddBlock({-12.6F, 0, -2}, {12.6F, 0.3F, 2.05F}, stone * 0.8F, 8, 1);
        m_scene.AddBox({-13.6F, 5.4F, -2}, {13.6F, 5.9F, 3.6F}, RgbFromHex(0x3A3E44), 0, 5);
        for (const float x : Steps(left, 12.6F, 2.5F))
            m_scene.AddColumn({x, 0, 2.9F}, 0.12F, 5.4F, RgbFromHex(0x4A4E54), 8, 1.0F, 5);
        if (m_style.dusk)
            m_scene.AddGlow({0, 3, 3}, 14, m_style.lightWarm, 0.25F, 9);
    }

    void BuildTentHall()
    {
        const Rgb skin = m_style.seed % 2 == 0 ? RgbFromHex(0xD8B860) : RgbFromHex(0xDDE0E2);
        // A folded tent: a jagged ridge over a many-sided plan.
        QVarLengthArray<QVector3D, 16> foot;
        QVarLengthArray<QVector3D, 16> eaves;
        const int sides = 14;
        for (int side = 0; side < sides; ++side) {
            const float angle = 2 * c_pi * static_cast<float>(side) / sides + 0.1F;
            const float reach = side % 2 == 0 ? 1.0F : 0.86F;
            foot.append({std::cos(angle) * 24 * reach, 0, -16 + std::sin(angle) * 15 * reach});
            eaves.append({std::cos(angle) * 25 * reach,
                          (side % 2 == 0 ? 16.0F : 9.5F) + m_dice.Between(-1.5F, 1.5F),
                          -16 + std::sin(angle) * 16 * reach});
        }
        const QVector3D peaks[] = {{-9, 24, -18}, {1, 28, -16}, {10, 22, -17}};
        for (int side = 0; side < sides; ++side) {
            const int next = (side + 1) % sides;
            m_scene.AddPanel(foot[side], foot[next], eaves[next], eaves[side],
                             skin * (side % 2 == 0 ? 1.0F : 0.86F), 4, 6);
            const QVector3D middle = (eaves[side] + eaves[next]) / 2.0F;
            const QVector3D& peak = peaks[middle.x() < -5 ? 0 : middle.x() > 5 ? 2 : 1];
            m_scene.AddFace({eaves[side], eaves[next], peak}, skin * (side % 2 == 0 ? 1.06F : 0.92F));
            const QVector3D after = (eaves[next] + eaves[(side + 2) % sides]) / 2.0F;
            const QVector3D& nextPeak = peaks[after.x() < -5 ? 0 : after.x() > 5 ? 2 : 1];
            if (nextPeak != peak)
                m_scene.AddFace({eaves[next], peak, nextPeak}, skin * 0.98F);
        }
        // Round windows and the entrance under a slanted roof.
        for (int window = 0; window < 9; ++window) {
            Scene::Corners round;
            const float x = m_dice.Between(-13, 13);
            const float y = m_dice.Between(8.4F, 11.5F);
            for (int corner = 0; corner < 8; ++corner)
                round.append({x + std::cos(static_cast<float>(corner) * c_pi / 4) * 0.6F,
                              y + std::sin(static_cast<float>(corner) * c_pi / 4) * 0.6F, 0.4F});
            m_scene.AddFace(round, Pane(), PaneEmission(), 2);
        }
        for (int column = 0; column < 22; ++column) {
            for (int row = 0; row < 3; ++row) {
                const float x = -15.4F + 1.4F * static_cast<float>(column);
                const float y = 0.2F + 1.75F * static_cast<float>(row);
                m_scene.AddFace({{x + 0.06F, y, 2},
                                 {x + 1.34F, y, 2},
                                 {x + 1.34F, y + 1.66F, 2},
                                 {x + 0.06F, y + 1.66F, 2}},
                                Pane(), PaneEmission(), 2);
            }
        }
        m_scene.AddFace({{-17, 5.5F, 1}, {17, 5.5F, 1}, {18.5F, 6.6F, 5.5F}, {-18.5F, 6.0F, 5.5F}},
                        skin * 0.8F, 0, 3);
        m_scene.AddFace(
            {{-18.5F, 6.0F, 5.5F}, {18.5F, 6.6F, 5.5F}, {18.5F, 7.1F, 5.5F}, {-18.5F, 6.5F, 5.5F}},
            skin * 1.1F, 0, 3);
        for (const float x : {-14.0F, -5.0F, 5.0F, 14.0F})
            m_scene.AddColumn({x, 0, 4.8F}, 0.14F, 6.0F, RgbFromHex(0xB0B4B8), 8, 1.0F, 2);
        if (m_style.dusk)
            m_scene.AddGlow({0, 3, 3}, 15, m_style.lightWarm, 0.25F, 9);
    }

    void BuildArena()
    {
        const int segments = 72;
        const float a = 31;
        const float b = 24;
        const float high = 17;
        const auto at = [&](float share, float out, float y) {
            const float angle = 2 * c_pi * share;
            return QVector3D(std::cos(angle) * (a + out), y, -b - 1.0F + std::sin(angle) * (b + out));
        };
        const Rgb metal = RgbFromHex(0xB4BCC6);
        for (int segment = 0; segment < segments; ++segment) {
            const float from = static_cast<float>(segment) / segments;
            const float to = static_cast<float>(segment + 1) / segments;
            const auto band = [&](float out0, float y0, float out1, float y1, const Rgb& colour,
                                  float emission) {
                m_scene.AddFace({at(from, out0, y0), at(to, out0, y0), at(to, out1, y1), at(from, out1, y1)},
                                colour, emission);
            };
            for (int row = 0; row < 2; ++row) // glazed foyer
                band(-1.5F, 0.2F + 2.2F * static_cast<float>(row), -1.5F,
                     2.3F + 2.2F * static_cast<float>(row), Pane(), PaneEmission());
            for (int row = 0; row < 6; ++row) {
                const float y = 4.8F + 2.0F * static_cast<float>(row);
                const float wave = 0.5F
                    + 0.5F
                        * std::sin(from * 40.0F + static_cast<float>(row) * 0.9F
                                   + static_cast<float>(m_style.seed % 6));
                const float lean = 0.55F * static_cast<float>(row);
                const Rgb shine = Mix(m_style.lightOne, m_style.lightTwo, wave);
                band(lean, y, lean + 0.55F, y + 1.9F,
                     m_style.dusk ? Mix(metal * 0.5F, shine, 0.35F + 0.5F * wave)
                                  : Mix(metal, RgbFromHex(0x6A7888), 0.5F * wave),
                     m_style.dusk ? 0.5F * wave : 0.0F);
            }
            band(3.6F, high, 3.6F, high + 1.3F, metal * 1.1F, 0.0F);
            // A shallow dome.
            for (int ring = 0; ring < 4; ++ring) {
                const float s0 = 1.0F - static_cast<float>(ring) * 0.25F;
                const float s1 = s0 - 0.25F;
                const auto dome = [&](float share, float scale) {
                    const QVector3D rim = at(share, 3.4F, 0);
                    return QVector3D(rim.x() * scale, high + 1.3F + 6.5F * (1 - scale * scale),
                                     (rim.z() + b + 1) * scale - b - 1);
                };
                m_scene.AddFace({dome(from, s0), dome(to, s0), dome(to, s1), dome(from, s1)},
                                metal * (segment % 2 == 0 ? 0.95F : 0.86F));
            }
            if (segment % 4 == 0) { // masts
                const QVector3D foot = at(from, 4.6F, 0);
                m_scene.AddColumn(foot, 0.22F, high + 5.0F, RgbFromHex(0xE4E8EC), 6, 0.5F);
            }
        }
        // The entrance with a screen above it.
        m_scene.AddBox({-9, 4.6F, -1}, {9, 5.3F, 6}, RgbFromHex(0x2E3238), 0, 2);
        for (const float x : {-8.0F, -3.0F, 3.0F, 8.0F})
            m_scene.AddColumn({x, 0, 5.2F}, 0.2F, 4.6F, RgbFromHex(0xD0D4D8), 8, 1.0F, 2);
        for (int column = 0; column < 16; ++column) {
            for (int row = 0; row < 5; ++row) {
                const float x = -7.2F + 0.9F * static_cast<float>(column);
                const float y = 5.9F + 0.9F * static_cast<float>(row);
                const float wave = 0.5F
                    + 0.5F
                        * std::sin(
                            static_cast<float>(column) * 0.7F
                            + std::sin(static_cast<float>(row) * 1.3F + static_cast<float>(m_style.seed % 7))
                                * 2);
                m_scene.AddFace(
                    {{x, y, 3.9F}, {x + 0.9F, y, 3.9F}, {x + 0.9F, y + 0.9F, 3.9F}, {x, y + 0.9F, 3.9F}},
                    Mix(m_style.lightOne, m_style.lightTwo, wave), 0.4F + 0.6F * wave, 2);
            }
        }
        if (m_style.dusk)
            m_scene.AddGlow({0, 7, 5}, 16, m_style.lightOne, 0.22F, 9);
    }

    void BuildGlassHouse()
    {
        const Rgb white = RgbFromHex(0xE8EAEC);
        const float wide = 22;
        const float high = 13.5F;
        AddBlock({-12, 0, -34}, {13, 23, -14}, Mix(white, m_style.wall, 0.45F), 10, 8);
        for (const float x : Steps(-11.5F, 13, 0.9F)) // ribs on the stage tower
            m_scene.AddBox({x, high, -14}, {x + 0.25F, 23, -13.7F}, Mix(white, m_style.wall, 0.3F));
        // What can be seen through the glass: floors, stairs, the wooden shell of the hall.
        m_scene.AddPanel({-wide, 0, -12}, {wide, 0, -12}, {wide, high, -12}, {-wide, high, -12},
                         Mix(m_style.wall, m_style.lightWarm, 0.35F), 12, 6, m_style.dusk ? 0.5F : 0.0F, 0);
        for (int part = 0; part < 24; ++part) {
            const float a0 = c_pi * static_cast<float>(part) / 24;
            const float a1 = c_pi * static_cast<float>(part + 1) / 24;
            m_scene.AddPanel({std::cos(a0) * 13, 0.2F, -12 + std::sin(a0) * 7},
                             {std::cos(a1) * 13, 0.2F, -12 + std::sin(a1) * 7},
                             {std::cos(a1) * 13, high - 0.6F, -12 + std::sin(a1) * 7},
                             {std::cos(a0) * 13, high - 0.6F, -12 + std::sin(a0) * 7},
                             RgbFromHex(0xA8703C) * (part % 2 == 0 ? 1.0F : 0.88F), 1, 4,
                             m_style.dusk ? 0.45F : 0.0F);
        }
        for (const float y : {4.4F, 8.8F}) {
            m_scene.AddBox({-wide + 0.4F, y, -7}, {wide - 0.4F, y + 0.35F, -1.2F}, white * 0.9F,
                           m_style.dusk ? 0.25F : 0.0F);
            for (int person = 0; person < 14; ++person)
                m_scene.AddFigure({m_dice.Between(-wide + 2, wide - 2), y + 0.35F, -1.6F}, {1, 0, 0}, 1.7F,
                                  RgbFromHex(0x3A3034));
        }
        for (int step = 0; step < 14; ++step) {
            const float x = 4 + 0.62F * static_cast<float>(step);
            m_scene.AddBox({x, 0.3F * static_cast<float>(step), -2.6F},
                           {x + 0.7F, 0.3F * static_cast<float>(step) + 0.35F, -1.4F}, white,
                           m_style.dusk ? 0.2F : 0.0F);
        }
        for (const float x : Steps(-19, 19, 4.75F))
            m_scene.AddColumn({x, 0, -1.0F}, 0.22F, high, white * 0.95F, 10);
        // Floating roof.
        m_scene.AddPanel({-wide - 4, high + 0.6F, 6.5F}, {wide + 4, high + 1.7F, 6.5F},
                         {wide + 4, high + 2.5F, 6.5F}, {-wide - 4, high + 1.3F, 6.5F}, white * 1.08F, 8, 1,
                         0.0F, 3);
        m_scene.AddPanel({-wide - 4, high + 0.6F, 6.5F}, {wide + 4, high + 1.7F, 6.5F},
                         {wide + 2, high + 0.4F, -13}, {-wide - 2, high + 0.1F, -13},
                         Mix(white, m_style.lightWarm, m_style.dusk ? 0.6F : 0.1F), 12, 4,
                         m_style.dusk ? 0.35F : 0.0F, 2);
        // Mullions of the glass front.
        for (const float x : Steps(-wide, wide + 0.1F, 2.2F))
            m_scene.AddBox({x - 0.06F, 0, 0}, {x + 0.06F, high + 0.6F, 0.2F}, RgbFromHex(0xA8B0B8), 0, 3);
        for (const float y : Steps(0, high, 2.25F))
            m_scene.AddBox({-wide, y, 0.02F}, {wide, y + 0.08F, 0.14F}, RgbFromHex(0xA8B0B8), 0, 3);
        if (m_style.dusk) {
            for (const float x : {-14.0F, -5.0F, 5.0F, 14.0F})
                m_scene.AddGlow({x, 6, -1}, 9, m_style.lightWarm, 0.22F, 9);
        }
    }

    Scene& m_scene;
    const VenueStyle& m_style;
    Dice m_dice;
};

void PaintSky(QPainter& painter, QSizeF sheet, const VenueStyle& style, Dice& dice)
{
    QLinearGradient sky(0, 0, 0, sheet.height() * 0.74);
    if (style.dusk) {
        sky.setColorAt(0.0, QColor(0x14, 0x1E, 0x42));
        sky.setColorAt(0.45, QColor(0x3A, 0x4A, 0x86));
        sky.setColorAt(0.78, QColor(0xC8, 0x7A, 0x7E));
        sky.setColorAt(1.0, QColor(0xF6, 0xB6, 0x7A));
    } else {
        sky.setColorAt(0.0, QColor(0x3F, 0x7F, 0xC4));
        sky.setColorAt(0.6, QColor(0x9C, 0xC4, 0xE6));
        sky.setColorAt(1.0, QColor(0xE6, 0xEE, 0xF2));
    }
    painter.fillRect(QRectF(QPointF(), sheet), sky);
    painter.setPen(Qt::NoPen);
    if (style.dusk) {
        for (int star = 0; star < 70; ++star) {
            painter.setBrush(QColor(255, 255, 255, 40 + dice.Below(130)));
            const qreal radius = dice.Between(0.5F, 1.5F);
            painter.drawEllipse(
                QPointF(dice.Between(0, 1) * sheet.width(), dice.Between(0, 0.4F) * sheet.height()), radius,
                radius);
        }
    }
    // Clouds of many faint puffs.
    for (int cloud = 0; cloud < 7; ++cloud) {
        const qreal x = dice.Between(-0.05F, 1.05F) * sheet.width();
        const qreal y = dice.Between(0.06F, 0.42F) * sheet.height();
        const qreal wide = dice.Between(110, 260);
        for (int puff = 0; puff < 16; ++puff) {
            const qreal along = dice.Between(-1, 1);
            const qreal radius = wide * 0.34 * (1.15 - std::abs(along)) + 12;
            const QPointF centre(x + along * wide, y + dice.Between(-0.10F, 0.06F) * wide);
            QRadialGradient soft(centre, radius);
            const QColor colour = style.dusk ? QColor(0xF0, 0xA0, 0x98) : QColor(Qt::white);
            const int strength = style.dusk ? 26 : 62;
            soft.setColorAt(0, QColor(colour.red(), colour.green(), colour.blue(), strength));
            soft.setColorAt(1, QColor(colour.red(), colour.green(), colour.blue(), 0));
            painter.setBrush(soft);
            painter.drawEllipse(centre, radius, radius * 0.5);
        }
    }
}

/// A skyline far behind the house.
void PaintSkyline(QPainter& painter, QSizeF sheet, double horizon, const VenueStyle& style, Dice& dice)
{
    for (int row = 0; row < 2; ++row) {
        const double depth = row == 0 ? 0.55 : 1.0;
        const QColor colour = style.dusk
            ? QColor(row == 0 ? 0x7A : 0x46, row == 0 ? 0x60 : 0x44, row == 0 ? 0x82 : 0x66)
            : QColor(row == 0 ? 0xB4 : 0x8E, row == 0 ? 0xC8 : 0xA6, row == 0 ? 0xD8 : 0xBA);
        painter.setBrush(colour);
        double x = -20;
        while (x < sheet.width()) {
            const double wide = dice.Between(40, 120) * (0.6 + 0.4 * depth);
            const double high = dice.Between(30, 115) * (row == 0 ? 1.25 : 0.8);
            painter.drawRect(QRectF(x, horizon - high, wide + 1, high + 4));
            if (style.dusk && row == 1) {
                for (int window = 0; window < 7; ++window) {
                    painter.setBrush(QColor(0xFF, 0xD8, 0x90, 90 + dice.Below(100)));
                    painter.drawRect(QRectF(x + 6 + dice.Between(0, 0.85F) * (wide - 12),
                                            horizon - dice.Between(0.15F, 0.9F) * high, 3.2, 4.6));
                }
                painter.setBrush(colour);
            }
            x += wide;
        }
    }
}

void PaintTree(QPainter& painter, QPointF foot, double size, const VenueStyle& style, Dice& dice)
{
    painter.setBrush(QColor(0x3A, 0x2E, 0x26));
    painter.drawPolygon(
        QPolygonF({foot + QPointF(-size * 0.035, 0), foot + QPointF(size * 0.035, 0),
                   foot + QPointF(size * 0.02, -size * 0.5), foot + QPointF(-size * 0.02, -size * 0.5)}));
    const Rgb dark = style.dusk ? RgbFromHex(0x1A2A2A) : RgbFromHex(0x2F5A34);
    const Rgb light = style.dusk ? RgbFromHex(0x4A5640) : RgbFromHex(0x86A94E);
    for (int leaf = 0; leaf < 210; ++leaf) {
        const double angle = dice.Between(0, 2 * c_pi);
        const double reach = std::sqrt(dice.Between(0, 1));
        const QPointF at = foot
            + QPointF(std::cos(angle) * reach * size * 0.36,
                      -size * 0.72 + std::sin(angle) * reach * size * 0.34);
        const auto lit = static_cast<float>(
            std::clamp(0.55 - std::sin(angle) * reach * 0.5 + dice.Between(-0.25F, 0.25F), 0.0, 1.0));
        painter.setBrush(ToColor(Mix(dark, light, lit), 0.85F));
        const double radius = size * dice.Between(0.025F, 0.06F);
        painter.drawEllipse(at, radius, radius * 0.8);
    }
}

void PaintSquare(QPainter& painter, QSizeF sheet, const Projection& projection, const VenueStyle& style,
                 double horizon)
{
    QLinearGradient ground(0, horizon, 0, sheet.height());
    if (style.dusk) {
        ground.setColorAt(0, QColor(0x6A, 0x58, 0x62, 225));
        ground.setColorAt(0.3, QColor(0x48, 0x46, 0x58, 205));
        ground.setColorAt(1, QColor(0x26, 0x28, 0x36, 235));
    } else {
        ground.setColorAt(0, QColor(0xD2, 0xCC, 0xC2, 250));
        ground.setColorAt(0.4, QColor(0xC2, 0xBA, 0xAE, 238));
        ground.setColorAt(1, QColor(0x9E, 0x97, 0x8E, 245));
    }
    painter.fillRect(QRectF(0, horizon, sheet.width(), sheet.height() - horizon), ground);
    // Joints of the paving.
    QPen pen(style.dusk ? QColor(0x10, 0x10, 0x18, 70) : QColor(0x60, 0x58, 0x50, 60));
    pen.setWidthF(1.2);
    painter.setPen(pen);
    const auto line = [&](const QVector3D& a, const QVector3D& b) {
        const QVector3D from = projection.ToEye(a);
        const QVector3D to = projection.ToEye(b);
        if (from.z() > Projection::c_near && to.z() > Projection::c_near)
            painter.drawLine(projection.ToPicture(from), projection.ToPicture(to));
    };
    for (const float x : Steps(-90, 90, 3))
        line({x, 0, 4}, {x, 0, 35});
    for (const float z : Steps(4, 36, 3))
        line({-90, 0, z}, {90, 0, z});
    painter.setPen(Qt::NoPen);
}

} // namespace

void PaintOutside(QPainter& painter, QSizeF sheet, const VenueStyle& style)
{
    Dice dice(style.seed * 11 + 1);
    const float side = style.seed % 2 == 0 ? -1.0F : 1.0F;
    const bool arena = style.architecture == Architecture::Arena;
    const bool wide = arena || style.architecture == Architecture::Modern;
    Camera camera{{side * (wide ? 13.0F : 10.5F), 2.5F, wide ? 46.0F : 38.0F},
                  {-side * 0.6F, 2.5F, 0},
                  arena ? 0.88F : 0.98F};
    camera.horizonShift = -0.25F;
    const Projection projection(camera, sheet);
    const double horizon = sheet.height() * (0.5 - camera.horizonShift);

    PaintSky(painter, sheet, style, dice);
    PaintSkyline(painter, sheet, horizon, style, dice);

    Scene scene;
    FacadeBuilder builder(scene, style);
    builder.Build();
    scene.Render(painter, camera, sheet, true);
    PaintSquare(painter, sheet, projection, style, horizon);
    scene.Render(painter, camera, sheet);

    painter.setPen(Qt::NoPen);
    for (const double x : {0.045, 0.12, 0.895, 0.965}) {
        const double size = sheet.height() * dice.Between(0.25F, 0.36F);
        PaintTree(painter,
                  QPointF(x * sheet.width(), horizon + sheet.height() * dice.Between(0.035F, 0.075F)), size,
                  style, dice);
    }
    Scene square;
    square.ambientAbove = scene.ambientAbove;
    square.ambientBelow = scene.ambientBelow;
    square.AddLight({0, 6, 20}, style.dusk ? style.lightWarm * 0.2F : Rgb(0.4F, 0.38F, 0.34F), 40);
    FacadeBuilder figures(square, style);
    figures.BuildPeople();
    figures.BuildLamps();
    square.Render(painter, camera, sheet);
}

} // namespace korvel::Demo
