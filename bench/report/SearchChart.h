#pragma once

#include <bench/report/Results.h>

#include <QImage>

namespace korvel::Bench {

/// Draws where the time of a search goes: one bar for each size of the result, divided into its phases. Needs
/// a QGuiApplication.
QImage DrawSearchChart(const Results& results);

} // namespace korvel::Bench
