#pragma once

#include <server/VenueServer.h>
#include <server/catalogue/CatalogueGenerator.h>

#include <memory>

namespace korvel::Test {

/// A venue server that runs, with a generated catalogue and \p picture as the file of every picture. Aborts
/// the program when it cannot start.
std::unique_ptr<Demo::VenueServer> GeneratedServer(const Demo::CatalogueGenerator::Settings& settings,
                                                   const QByteArray& picture = "picture");

} // namespace korvel::Test
