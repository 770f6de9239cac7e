#include <server/api/VenuePictureStage_p.h>

namespace korvel::Demo {

namespace {

constexpr float c_halfWidth = 17.0F;
constexpr float c_depth = 17.5F;
constexpr float c_gridHeight = 22.0F;

void AddShell(Scene& scene, float openingHalf, float openingHeight, float ground)
{
    const Rgb brick = RgbFromHex(0x6A5A50);
    const Rgb concrete = RgbFromHex(0x5A5E66);
    const Rgb boards = RgbFromHex(0x5B473A);
    scene.AddPanel({-c_halfWidth, ground, -c_depth}, {c_halfWidth, ground, -c_depth},
                   {c_halfWidth, ground, 0}, {-c_halfWidth, ground, 0}, boards, 34, 8, 0.0F, 0);
    scene.AddPanel({-c_halfWidth, ground, -c_depth}, {c_halfWidth, ground, -c_depth},
                   {c_halfWidth, c_gridHeight, -c_depth}, {-c_halfWidth, c_gridHeight, -c_depth}, brick, 12,
                   16, 0.0F, 0);
    const float high = ground + openingHeight;
    for (const float side : {-1.0F, 1.0F}) {
        const float wall = side * c_halfWidth;
        scene.AddPanel({wall, ground, -c_depth}, {wall, ground, 0}, {wall, c_gridHeight, 0},
                       {wall, c_gridHeight, -c_depth}, concrete, 10, 12, 0.0F, 0);
        // Fly galleries with rails.
        for (const float level : {7.5F, 12.0F}) {
            const float inner = wall - side * 2.2F;
            scene.AddPanel({inner, level, -c_depth}, {inner, level, -0.5F}, {wall, level, -0.5F},
                           {wall, level, -c_depth}, concrete * 0.8F, 6, 1);
            scene.AddPanel({inner, level, -c_depth}, {inner, level, -0.5F}, {inner, level + 0.35F, -0.5F},
                           {inner, level + 0.35F, -c_depth}, concrete, 10, 1);
            scene.AddPanel({inner, level + 1.05F, -c_depth}, {inner, level + 1.05F, -0.5F},
                           {inner, level + 1.15F, -0.5F}, {inner, level + 1.15F, -c_depth},
                           RgbFromHex(0xC8A43A), 10, 1);
            for (const float z : Steps(-c_depth, -0.5F, 1.5F))
                scene.AddPanel({inner, level, z}, {inner, level, z + 0.07F}, {inner, level + 1.1F, z + 0.07F},
                               {inner, level + 1.1F, z}, RgbFromHex(0xC8A43A), 1, 1);
        }
        // The back of the wall around the stage opening.
        scene.AddPanel({side * openingHalf, ground, -0.35F}, {wall, ground, -0.35F},
                       {wall, c_gridHeight, -0.35F}, {side * openingHalf, c_gridHeight, -0.35F},
                       RgbFromHex(0x2A2B30), 5, 10);
    }
    scene.AddPanel({-openingHalf, high, -0.35F}, {openingHalf, high, -0.35F},
                   {openingHalf, c_gridHeight, -0.35F}, {-openingHalf, c_gridHeight, -0.35F},
                   RgbFromHex(0x2A2B30), 10, 5);
}

void AddDockDoor(Scene& scene, float side, float ground, bool open)
{
    const float wall = side * (c_halfWidth - 0.05F);
    const float from = -13.5F;
    const float to = -9.0F;
    const float top = ground + 5.0F;
    scene.AddBox({wall - 0.15F, ground, from - 0.3F}, {wall + 0.15F, top + 0.4F, from}, RgbFromHex(0xC9A227));
    scene.AddBox({wall - 0.15F, ground, to}, {wall + 0.15F, top + 0.4F, to + 0.3F}, RgbFromHex(0xC9A227));
    scene.AddBox({wall - 0.15F, top, from}, {wall + 0.15F, top + 0.4F, to}, RgbFromHex(0xC9A227));
    const float lintel = open ? top - 1.4F : ground;
    if (open) {
        scene.AddFace({{wall, ground, from}, {wall, ground, to}, {wall, lintel, to}, {wall, lintel, from}},
                      RgbFromHex(0xDDEBFA), 1.3F);
        scene.AddGlow({wall, ground + 1.8F, (from + to) / 2}, 6.0F, RgbFromHex(0xCFE2FF), 0.35F);
        scene.AddLight({wall - side * 1.0F, ground + 2.0F, (from + to) / 2}, RgbFromHex(0xBFD6FF) * 0.8F,
                       4.0F);
    }
    for (const float y : Steps(lintel, top, 0.32F))
        scene.AddFace({{wall, y, from}, {wall, y, to}, {wall, y + 0.3F, to}, {wall, y + 0.3F, from}},
                      RgbFromHex(0x9AA2AA), 0.06F);
}

void AddFlying(Scene& scene, const VenueStyle& style, Dice& dice, float openingHalf, float openingHeight,
               float ground)
{
    const Rgb steel = RgbFromHex(0x8A9098);
    const float reach = openingHalf + 2.6F;
    const float high = ground + openingHeight;
    scene.AddPanel({-c_halfWidth, c_gridHeight, -c_depth}, {c_halfWidth, c_gridHeight, -c_depth},
                   {c_halfWidth, c_gridHeight, 0}, {-c_halfWidth, c_gridHeight, 0}, RgbFromHex(0x3A3C42), 10,
                   10, 0.0F, 0);
    int index = 0;
    for (const float z : Steps(-1.3F, -15.5F, -0.95F)) {
        const float level = high + dice.Between(1.6F, 7.5F);
        scene.AddBox({-reach, level, z - 0.04F}, {reach, level + 0.09F, z + 0.04F}, steel);
        for (const float x : Steps(-reach + 0.6F, reach, 3.4F))
            scene.AddFace(
                {{x, level, z}, {x + 0.03F, level, z}, {x + 0.03F, c_gridHeight, z}, {x, c_gridHeight, z}},
                steel * 0.7F);
        if (index++ % 4 == 2) // a cloth that is flown out
            scene.AddPanel({-reach + 0.5F, level - 1.7F, z}, {reach - 0.5F, level - 1.7F, z},
                           {reach - 0.5F, level, z}, {-reach + 0.5F, level, z},
                           Mix(style.curtain, style.lightOne, dice.Between(0.1F, 0.6F)) * 0.8F, 8, 2);
    }
    for (const float z : {-3.6F, -7.6F, -11.6F}) { // lighting bars and the borders before them
        scene.AddPanel({-reach, high - 0.9F, z + 0.7F}, {reach, high - 0.9F, z + 0.7F},
                       {reach, high + 2.2F, z + 0.7F}, {-reach, high + 2.2F, z + 0.7F}, RgbFromHex(0x1A1A20),
                       12, 2);
        scene.AddBox({-reach, high - 0.2F, z - 0.05F}, {reach, high - 0.1F, z + 0.05F}, steel);
        for (const float x : Steps(-openingHalf + 0.6F, openingHalf, 1.5F)) {
            scene.AddBox({x - 0.16F, high - 0.75F, z - 0.2F}, {x + 0.16F, high - 0.2F, z + 0.2F},
                         RgbFromHex(0x24262C));
            const Rgb colour = dice.Below(2) == 0 ? style.lightOne : style.lightTwo;
            scene.AddGlow({x, high - 0.8F, z}, 0.55F, colour, 0.8F);
            scene.AddBeam({x, high - 0.8F, z}, {x * 0.8F, ground, z + 0.5F}, 1.0F, colour, 0.1F);
        }
    }
}

void AddWing(Scene& scene, const VenueStyle& style, float side, float openingHalf, float ground)
{
    const float x = side * (openingHalf + 1.1F);
    for (const float z : {-2.4F, -6.7F, -10.6F}) { // booms with side light
        scene.AddColumn({x, ground, z}, 0.05F, 4.6F, RgbFromHex(0x9AA0A8), 6);
        scene.AddBox({x - 0.4F, ground, z - 0.4F}, {x + 0.4F, ground + 0.08F, z + 0.4F},
                     RgbFromHex(0x24262C));
        for (const float level : {0.9F, 2.0F, 3.1F, 4.2F}) {
            scene.AddBox({x - 0.28F, ground + level - 0.16F, z - 0.16F},
                         {x + 0.28F, ground + level + 0.16F, z + 0.16F}, RgbFromHex(0x1E2026));
            const Rgb colour = level > 2.5F ? style.lightOne : style.lightTwo;
            const QVector3D lamp(x - side * 0.3F, ground + level, z);
            scene.AddGlow(lamp, 0.8F, colour, 0.7F);
            scene.AddBeam(lamp, {-side * 2.0F, ground + level * 0.45F, z}, 1.2F, colour, 0.07F);
        }
    }
    // Flight cases.
    for (int box = 0; box < 3; ++box) {
        const float z = -13.6F + 1.35F * static_cast<float>(box);
        const float left = side * (openingHalf + 2.8F);
        scene.AddBox({left - 0.5F, ground, z}, {left + 0.5F, ground + (box == 1 ? 1.5F : 0.9F), z + 1.15F},
                     RgbFromHex(0x2E3138));
        scene.AddBox({left - 0.52F, ground + 0.84F, z - 0.01F}, {left + 0.52F, ground + 0.9F, z + 1.16F},
                     RgbFromHex(0xA8AEB6));
    }
}

} // namespace

void AddStageHouse(Scene& scene, const VenueStyle& style, float openingHalf, float openingHeight,
                   float stageHeight)
{
    Dice dice(style.seed * 17 + 3);
    AddShell(scene, openingHalf, openingHeight, stageHeight);
    AddDockDoor(scene, -1.0F, stageHeight, true);
    AddDockDoor(scene, 1.0F, stageHeight, false);
    AddFlying(scene, style, dice, openingHalf, openingHeight, stageHeight);
    for (const float side : {-1.0F, 1.0F})
        AddWing(scene, style, side, openingHalf, stageHeight);
    scene.AddLight({0, 15, -8}, RgbFromHex(0x8FA8FF) * 0.35F, 10);
    for (int person = 0; person < 4; ++person) {
        const float x = dice.Between(-openingHalf * 0.7F, openingHalf * 0.7F);
        scene.AddFigure({x, stageHeight, dice.Between(-6.5F, -2.0F)}, QVector3D(0.45F, 0, 0.89F),
                        dice.Between(1.66F, 1.84F), person % 2 == 0 ? RgbFromHex(0x22242A) : style.curtain);
    }
}

} // namespace korvel::Demo
