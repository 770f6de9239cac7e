#pragma once

#include <server/api/VenuePictureStyle_p.h>

namespace korvel::Demo {

/// Adds what only those see who stand in a wing: walls, galleries, dock door, fly bars, booms and people.
void AddStageHouse(Scene& scene, const VenueStyle& style, float openingHalf, float openingHeight,
                   float stageHeight);

} // namespace korvel::Demo
