#pragma once

#include <data/Picture.h>
#include <data/TsFile.h>
#include <data/Venue.h>

#include <QStringList>

namespace korvel::Test {

/// A venue of which nothing else is known.
Data::VenueDatabase::Venue MakeVenue(qint64 id, const QString& name = {}, const QString& country = {});
/// A venue whose every field has a value of its own.
Data::VenueDatabase::Venue FilledVenue(qint64 id = 4711, const QString& name = QStringLiteral("complex"));

/// A picture with these renditions, encoded, and with that description.
Data::VenueDatabase::Picture MakePicture(const QByteArray& small, const QByteArray& large = {},
                                         const QString& description = {});

Data::VenueDatabase::TsFile MakeFile(const QString& name, const QString& version = {},
                                     const QByteArray& data = "model");

QStringList NamesOf(const QList<Data::VenueDatabase::Venue>& venues);
QStringList NamesOf(const QList<Data::VenueDatabase::Picture>& pictures);
QStringList NamesOf(const QList<Data::VenueDatabase::TsFile>& files);

} // namespace korvel::Test
