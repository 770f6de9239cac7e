#pragma once

#include <QCoreApplication>
#include <QString>

namespace korvel::Ui::VenueDatabase {

/// What the tool tips of the two names say, in the search row and in the details.
class NameToolTips
{
    Q_DECLARE_TR_FUNCTIONS(korvel::Ui::VenueDatabase::VenueDetailsWidget)

public:
    static QString ComplexName();
    static QString VenueRoomName();
};

} // namespace korvel::Ui::VenueDatabase
