#include <tests/support/Records.h>

namespace korvel::Test {

using namespace Data::VenueDatabase;
using namespace Qt::Literals::StringLiterals;

namespace {

template <typename Record> QStringList Texts(const QList<Record>& records, QString (Record::*getter)() const)
{
    QStringList texts;
    for (const Record& record : records)
        texts.append((record.*getter)());
    return texts;
}

} // namespace

Venue MakeVenue(qint64 id, const QString& name, const QString& country)
{
    Venue venue;
    venue.SetId(id);
    venue.SetComplexName(name);
    venue.SetCountry(country);
    return venue;
}

Venue FilledVenue(qint64 id, const QString& name)
{
    Venue venue = MakeVenue(id, name, u"Germany"_s);
    venue.SetVenueRoomName(u"room"_s);
    venue.SetGeneralComment(u"general"_s);
    venue.SetStreetAddress(u"Main St 5"_s);
    venue.SetPostalCode(u"10115"_s);
    venue.SetCity(u"Berlin"_s);
    venue.SetCountryCode(u"DE"_s);
    venue.SetLocationComment(u"location"_s);
    venue.SetLoadDockStreetAddress(u"dock street"_s);
    venue.SetLoadDockComment(u"dock comment"_s);
    venue.SetClearingOfHouseGrid(u"12.5"_s);
    venue.SetRiggingComment(u"rigging"_s);
    venue.SetUploadDate(QDate(2023, 2, 1));
    venue.SetEditor(42);
    venue.SetEditDate(QDateTime(QDate(2024, 3, 1), QTime(10, 20, 30)));
    return venue;
}

Picture MakePicture(const QByteArray& small, const QByteArray& large, const QString& description)
{
    Picture picture;
    picture.SetPictureDataSmall(small);
    picture.SetPictureDataLarge(large);
    picture.SetAlternativeDescription(description);
    return picture;
}

TsFile MakeFile(const QString& name, const QString& version, const QByteArray& data)
{
    QString fileName = name;
    QString fileVersion = version;
    QByteArray fileData = data;
    TsFile file;
    file.SetId(7);
    file.SetFileName(fileName);
    file.SetTsVersion(fileVersion);
    file.SetFileData(fileData);
    return file;
}

QStringList NamesOf(const QList<Venue>& venues)
{
    return Texts(venues, &Venue::GetComplexName);
}

QStringList NamesOf(const QList<Picture>& pictures)
{
    return Texts(pictures, &Picture::GetPictureName);
}

QStringList NamesOf(const QList<TsFile>& files)
{
    return Texts(files, &TsFile::GetFileName);
}

} // namespace korvel::Test
