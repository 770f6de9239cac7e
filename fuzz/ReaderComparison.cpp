#include <fuzz/ReaderComparison.h>

#include <data/CountryCodeTranslator.h>
#include <data/reading/QuickVenueReader_p.h>
#include <data/reading/VenueReader_p.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <optional>

using namespace Qt::StringLiterals;

using namespace korvel::Data::VenueDatabase;

namespace korvel::Fuzz {

namespace {

const CountryCodeTranslator& Countries()
{
    static const CountryCodeTranslator countries;
    return countries;
}

/// \p text with what "==" does not see: a null text equals an empty one.
QString Exactly(const QString& text)
{
    return text.isNull() ? u"null"_s : QLatin1Char('"') + text + QLatin1Char('"');
}

QString Exactly(qint64 number)
{
    return QString::number(number);
}

/// Two equal dates may differ in what they are of, and in the repeated hour of a time zone "==" may say no.
QString Exactly(const QDateTime& dateTime)
{
    return u"%1 %2 %3 %4"_s.arg(dateTime.isValid())
        .arg(dateTime.isNull())
        .arg(dateTime.timeSpec())
        .arg(dateTime.toString(Qt::ISODateWithMs));
}

QString Exactly(const QDate& date)
{
    return QString::number(date.toJulianDay());
}

/// All that can be told of a venue, one member a line.
QStringList Lines(const Venue& venue)
{
    const QGeoAddress address = venue.GetAddress();
    return {
        u"id "_s + Exactly(venue.GetId()),
        u"complex name "_s + Exactly(venue.GetComplexName()),
        u"room name "_s + Exactly(venue.GetVenueRoomName()),
        u"general comment "_s + Exactly(venue.GetGeneralComment()),
        u"street "_s + Exactly(address.street()),
        u"postal code "_s + Exactly(address.postalCode()),
        u"city "_s + Exactly(address.city()),
        u"country code "_s + Exactly(address.countryCode()),
        u"country "_s + Exactly(address.country()),
        u"location comment "_s + Exactly(venue.GetLocationComment()),
        u"loading dock "_s + Exactly(venue.GetLoadDockStreetAddress()),
        u"loading dock comment "_s + Exactly(venue.GetLoadDockComment()),
        u"clearance "_s + Exactly(venue.GetClearingOfHouseGrid()),
        u"rigging "_s + Exactly(venue.GetRiggingComment()),
        u"upload date "_s + Exactly(venue.GetUploadDate()),
        u"editor "_s + Exactly(venue.GetEditor()),
        u"edit date "_s + Exactly(venue.GetEditDate()),
        u"columns "_s + Exactly(venue.GetDataAt(10).isNull()),
    };
}

/// The definition: what QJsonDocument makes of \p body; nothing where that has no list of venues.
std::optional<QList<Venue>> ReadByQt(const QByteArray& body)
{
    const QJsonObject document = QJsonDocument::fromJson(body).object();
    if (!document.value("data"_L1).isArray())
        return std::nullopt;
    return VenueReader(Countries()).Read(document);
}

} // namespace

QString ReaderDifference(const QByteArray& body)
{
    const std::optional<QList<Venue>> expected = ReadByQt(body);
    const std::optional<QList<Venue>> present = VenueReader(Countries()).ReadBody(body);
    if (expected.has_value() != present.has_value())
        return u"only one finds a list"_s;
    if (!expected)
        return {};
    if (expected->size() != present->size())
        return u"%1 venues instead of %2"_s.arg(present->size()).arg(expected->size());
    for (qsizetype index = 0; index < expected->size(); ++index) {
        const QStringList expectedLines = Lines(expected->at(index));
        const QStringList presentLines = Lines(present->at(index));
        for (qsizetype line = 0; line < expectedLines.size(); ++line)
            if (expectedLines.at(line) != presentLines.at(line))
                return u"venue %1: %2 instead of %3"_s.arg(QString::number(index), presentLines.at(line),
                                                           expectedLines.at(line));
    }
    return {};
}

bool IsReadQuickly(const QByteArray& body)
{
    return QuickVenueReader(body, Countries()).Read().has_value();
}

} // namespace korvel::Fuzz
