#pragma once

#include <tests/soak/SoakSample.h>

#include <QImage>

namespace korvel::Soak {

/// Draws how heap and descriptors grow over the rounds, one panel per phase. Needs a QGuiApplication.
QImage DrawChart(const QList<Sample>& samples);

} // namespace korvel::Soak
