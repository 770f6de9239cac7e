#pragma once

#include <QSize>

namespace korvel::Ui::VenueDatabase {

/// The size in which the module's windows open. Their contents must fit into it in every language.
inline constexpr QSize c_windowSize(1062, 768);

} // namespace korvel::Ui::VenueDatabase
