#pragma once

#include <QString>

namespace korvel::Ui::VenueDatabase {

// Texts of the server may be a megabyte long, and some take Qt minutes to lay out: those with thousands of
// marks on one character, and those that change their script or direction with every character. These
// functions give as much of a text as Qt lays out soon enough, with "…" where something is left out.

/// For a cell of a table, of which a hundred are drawn at a time: plain text is cut where no screen is as
/// wide.
QString WithinCell(const QString& text);

/// For a label or a field of one line: plain text is cut where it would fill the largest screen.
QString WithinScreen(const QString& text);

/// For a field that shows all of a text: about half a second. What people write is complete up to a million
/// Latin characters, or a quarter of that in other scripts.
QString WithinReason(const QString& text);

} // namespace korvel::Ui::VenueDatabase
