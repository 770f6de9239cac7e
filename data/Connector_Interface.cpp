#include <data/Connector_Interface.h>

namespace korvel::Data::VenueDatabase {

// Out of line, so that the type information stands in this library alone and casts work across its border.
Connector_Interface::~Connector_Interface() = default;

} // namespace korvel::Data::VenueDatabase
