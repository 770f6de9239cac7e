#pragma once

#include <QString>

namespace korvel::Demo::Texts {

/// What the user reads where the class \p name of the venue database says \p english, whatever the language
/// is.
QString OfModule(const char* name, const char* english);
/// The same for a class of Tessra.
QString OfHost(const char* name, const char* english);
/// The label of the field for \p english, a property of venues.
QString FieldLabel(const char* english);

} // namespace korvel::Demo::Texts
