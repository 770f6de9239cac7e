#pragma once

#include <server/api/VenuePictureScene_p.h>

namespace korvel::Demo {

struct PictureSubject;

/// What a building looks like in all of its pictures.
struct VenueStyle
{
    enum class Architecture
    {
        Opera,
        Shoebox,
        Vineyard,
        Arena,
        Modern
    };

    Architecture architecture = Architecture::Opera;
    quint64 seed = 0;
    Rgb wall;
    Rgb wallDeep;
    Rgb trim;
    Rgb seat;
    Rgb curtain;
    Rgb floor;
    Rgb ceiling;
    Rgb lightWarm; ///< house light
    Rgb lightOne; ///< the two colours of the show light
    Rgb lightTwo;
    bool dusk = false;
    int tiers = 3;
    int stageSet = 0;
};

/// Chooses by the names of hall and room where they tell the kind of house, else by the venue's id.
VenueStyle ChooseStyle(const PictureSubject& subject);

} // namespace korvel::Demo
