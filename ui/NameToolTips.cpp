#include <ui/NameToolTips_p.h>

namespace korvel::Ui::VenueDatabase {

QString NameToolTips::ComplexName()
{
    return tr("Name of overall multi-venue building or campus (identical to Venue name if there is only one "
              "event venue in the building/on the campus).");
}

QString NameToolTips::VenueRoomName()
{
    return tr("Name of the specific venue/room within the multi-venue building/campus (identical to Complex "
              "name if there is only one venue in the building).");
}

} // namespace korvel::Ui::VenueDatabase
