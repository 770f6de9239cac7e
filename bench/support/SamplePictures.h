#pragma once

#include <data/Picture.h>

#include <QByteArray>
#include <QList>
#include <QSize>

namespace korvel::Bench {

/// A JPEG of \p size, as rich in detail as a photograph; another one for every \p seed.
QByteArray SampleJpeg(QSize size, quint32 seed);

/// \p count pictures with JPEGs of \p size in their small renditions.
QList<Data::VenueDatabase::Picture> SamplePictures(int count, QSize size);

} // namespace korvel::Bench
