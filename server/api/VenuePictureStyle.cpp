#include <server/api/VenuePictureStyle_p.h>

#include <server/api/VenuePictureArtist.h>

#include <QStringList>

namespace korvel::Demo {

namespace {

using Architecture = VenueStyle::Architecture;

bool HoldsOneOf(const QString& text, const QStringList& words)
{
    for (const QString& word : words) {
        if (text.contains(word, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

Architecture ChooseArchitecture(const PictureSubject& subject, Dice& dice)
{
    const QString names = subject.title + QLatin1Char(' ') + subject.room;
    const bool even = dice.Below(2) == 0;
    if (HoldsOneOf(names,
                   {QStringLiteral("arena"), QStringLiteral("dome"), QStringLiteral("stadi"),
                    QStringLiteral("sant jordi"), QStringLiteral("spodek"), QStringLiteral("square garden"),
                    QStringLiteral("amphitheat"), QStringLiteral("bowl"), QStringLiteral("武道館"),
                    QStringLiteral("アリーナ"), QStringLiteral("royal albert")}))
        return Architecture::Arena;
    if (HoldsOneOf(subject.room,
                   {QStringLiteral("concert"), QStringLiteral("chamber"), QStringLiteral("recital"),
                    QStringLiteral("kammer"), QStringLiteral("konzert"), QStringLiteral("konsert"),
                    QStringLiteral("kleiner"), QStringLiteral("kleine zaal"), QStringLiteral("コンサート"),
                    QStringLiteral("콘서트"), QStringLiteral("音乐厅"), QStringLiteral("音樂廳")}))
        return even ? Architecture::Shoebox : Architecture::Vineyard;
    if (HoldsOneOf(names,
                   {QStringLiteral("berlin"), QStringLiteral("elbphil"), QStringLiteral("disney"),
                    QStringLiteral("de paris"), QStringLiteral("サントリー"), QStringLiteral("koncerthuset"),
                    QStringLiteral("musiikki"), QStringLiteral("롯데"), QStringLiteral("gewandhaus")}))
        return Architecture::Vineyard;
    if (HoldsOneOf(names,
                   {QStringLiteral("concert"), QStringLiteral("konzert"), QStringLiteral("konsert"),
                    QStringLiteral("philharm"), QStringLiteral("musik"), QStringLiteral("symphony"),
                    QStringLiteral("festival hall"), QStringLiteral("carnegie"), QStringLiteral("harpa"),
                    QStringLiteral("ateneul"), QStringLiteral("rudolf"), QStringLiteral("ホール")}))
        return Architecture::Shoebox;
    if (HoldsOneOf(names,
                   {QStringLiteral("scala"), QStringLiteral("oper"), QStringLiteral("opér"),
                    QStringLiteral("teatr"), QStringLiteral("garnier"), QStringLiteral("liceu"),
                    QStringLiteral("fenice"), QStringLiteral("solís"), QStringLiteral("colón"),
                    QStringLiteral("kazalište"), QStringLiteral("monnaie"), QStringLiteral("divadlo"),
                    QStringLiteral("опера"), QStringLiteral("nationaltheater"), QStringLiteral("theatro")}))
        return HoldsOneOf(names,
                          {QStringLiteral("bastille"), QStringLiteral("sydney"), QStringLiteral("operaen"),
                           QStringLiteral("operahuset"), QStringLiteral("guangzhou")})
            ? Architecture::Modern
            : Architecture::Opera;
    if (HoldsOneOf(names,
                   {QStringLiteral("theat"), QStringLiteral("歌剧"), QStringLiteral("歌劇"),
                    QStringLiteral("centre"), QStringLiteral("center"), QStringLiteral("festspielhaus")}))
        return Architecture::Modern;
    static constexpr Architecture c_all[]
        = {Architecture::Opera, Architecture::Shoebox, Architecture::Vineyard, Architecture::Arena,
           Architecture::Modern};
    return c_all[dice.Below(5)];
}

void ChooseColours(VenueStyle& style, Dice& dice)
{
    struct Palette
    {
        QRgb wall, wallDeep, trim, seat, curtain, floor, ceiling;
    };
    static constexpr Palette c_opera[] = {
        {0xEADFC8, 0x7A1820, 0xD9B25A, 0xA31A26, 0xA01420, 0x5A3A26, 0xE9E2D2},
        {0xE6E2DA, 0x24364E, 0xD2B46A, 0x234F8C, 0x1F4380, 0x4D3A2C, 0xDDE3EA},
        {0xEFE6D4, 0x23473A, 0xCFAE60, 0x1F6A4C, 0x1B5A42, 0x5B4230, 0xE8E6D6},
        {0xD9B98A, 0x5C1A16, 0xE3BE62, 0xB5271F, 0xB02A1C, 0x54321F, 0xD8C6A4},
    };
    static constexpr Palette c_concert[] = {
        {0xC99A62, 0x7A4E2A, 0xE5C48E, 0x7C2430, 0x6B2A2A, 0x9A6B3E, 0xE2CFAE},
        {0xE3DACB, 0x8C6A4A, 0xD9B36A, 0xB5552B, 0x7A3A24, 0xA97C4C, 0xF0E9DC},
        {0xB98552, 0x5E3B22, 0xF0D3A0, 0x35506E, 0x2B3F58, 0x87582F, 0xD9BF98},
        {0xEDE7DC, 0x9A8A76, 0xCBA86A, 0x39795F, 0x2E5A4A, 0xB0875A, 0xF6F1E8},
    };
    static constexpr Palette c_arena[] = {
        {0x3A4048, 0x1D2127, 0x8FA2B5, 0x2A5C9C, 0x20242A, 0x3C3F45, 0x2B3036},
        {0x443C3E, 0x211B1E, 0xB59A92, 0xA62B34, 0x241A1C, 0x403C3C, 0x302A2C},
        {0x39434A, 0x1B2226, 0x9FB7B5, 0x3E6C74, 0x1C2426, 0x3B4144, 0x2A3236},
    };
    static constexpr Palette c_modern[] = {
        {0x6A4630, 0x2C1D16, 0xD8A868, 0x7E1F2C, 0x611722, 0x3A2A22, 0x3A3532},
        {0x8A8F94, 0x33383E, 0xE3E6E8, 0x2D4A66, 0x26384C, 0x4B4F54, 0xA9AEB2},
        {0xA8703E, 0x4A2C1A, 0xF0CF9A, 0x44474D, 0x2C2E33, 0x5A3D26, 0xD9C7AE},
    };
    const auto apply = [&style](const Palette& palette) {
        style.wall = RgbFromHex(palette.wall);
        style.wallDeep = RgbFromHex(palette.wallDeep);
        style.trim = RgbFromHex(palette.trim);
        style.seat = RgbFromHex(palette.seat);
        style.curtain = RgbFromHex(palette.curtain);
        style.floor = RgbFromHex(palette.floor);
        style.ceiling = RgbFromHex(palette.ceiling);
    };
    switch (style.architecture) {
    case Architecture::Opera:
        apply(c_opera[dice.Below(4)]);
        break;
    case Architecture::Shoebox:
    case Architecture::Vineyard:
        apply(c_concert[dice.Below(4)]);
        break;
    case Architecture::Arena:
        apply(c_arena[dice.Below(3)]);
        break;
    case Architecture::Modern:
        apply(c_modern[dice.Below(3)]);
        break;
    }
    static constexpr QRgb c_shows[][2] = {{0x4C7DFF, 0xFF9A4C}, {0xB45CFF, 0x38D0E0}, {0xFF5C7A, 0x5C7AFF},
                                          {0x30C8B0, 0xFFC860}, {0x6A8CFF, 0xE070D0}, {0xFFB050, 0x4CA0FF}};
    const auto& show = c_shows[dice.Below(6)];
    style.lightWarm = RgbFromHex(0xFFD9A0);
    style.lightOne = RgbFromHex(show[0]);
    style.lightTwo = RgbFromHex(show[1]);
}

} // namespace

VenueStyle ChooseStyle(const PictureSubject& subject)
{
    VenueStyle style;
    style.seed = static_cast<quint64>(subject.venueId);
    Dice dice(style.seed);
    style.architecture = ChooseArchitecture(subject, dice);
    ChooseColours(style, dice);
    style.dusk = dice.Below(2) == 0;
    style.tiers = 3 + dice.Below(2);
    style.stageSet = dice.Below(3);
    return style;
}

} // namespace korvel::Demo
