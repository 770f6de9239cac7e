#pragma once

#include <QByteArray>
#include <QString>

namespace korvel::Fuzz {

/// Where the module's two ways to read a venue reply part on \p body: straight from its bytes, and through
/// QJsonDocument. Names the first venue and member that differ, to the letter; empty where all are equal.
QString ReaderDifference(const QByteArray& body);

/// True when \p body is read straight from its bytes, so that ReaderDifference() compares two ways.
bool IsReadQuickly(const QByteArray& body);

} // namespace korvel::Fuzz
