#pragma once

#include <QtGlobal>

/// Marks what hosts may link against; everything else stays hidden inside the library.
#ifdef KVVENUEDATABASE_BUILD
#define KVVENUEDATABASE_API Q_DECL_EXPORT
#else
#define KVVENUEDATABASE_API Q_DECL_IMPORT
#endif
