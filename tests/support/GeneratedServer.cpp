#include <tests/support/GeneratedServer.h>

namespace korvel::Test {

std::unique_ptr<Demo::VenueServer> GeneratedServer(const Demo::CatalogueGenerator::Settings& settings,
                                                   const QByteArray& picture)
{
    Demo::VenueServer::Options options;
    options.pictureSource = [picture](const auto&, const auto&, const auto&) { return picture; };
    auto server = std::make_unique<Demo::VenueServer>(options);
    server->SetCatalogue(Demo::CatalogueGenerator(settings).Catalogue());
    if (!server->Start())
        qFatal("The venue server does not start: %s", qPrintable(server->ErrorText()));
    return server;
}

} // namespace korvel::Test
