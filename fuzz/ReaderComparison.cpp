#include <fuzz/ReaderComparison.h>

#include <data/CountryCodeTranslator.h>
#include <data/QuickVenueReader_p.h>
#include <data/VenueReader_p.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <optional>

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
    return text.isNull() ? QStringLiteral("null") : QLatin1Char('"') + text + QLatin1Char('"');
}

QString Exactly(qint64 number)
{
    return QString::number(number);
}

/// Two equal dates may differ in what they are of, and in the repeated hour of a time zone "==" may say no.
QString Exactly(const QDateTime& dateTime)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(dateTime.isValid())
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
        QStringLiteral("id ") + Exactly(venue.GetId()),
        QStringLiteral("complex name ") + Exactly(venue.GetComplexName()),
        QStringLiteral("room name ") + Exactly(venue.GetVenueRoomName()),
        QStringLiteral("general comment ") + Exactly(venue.GetGeneralComment()),
        QStringLiteral("street ") + Exactly(address.street()),
        QStringLiteral("postal code ") + Exactly(address.postalCode()),
        QStringLiteral("city ") + Exactly(address.city()),
        QStringLiteral("country code ") + Exactly(address.countryCode()),
        QStringLiteral("country ") + Exactly(address.country()),
        QStringLiteral("location comment ") + Exactly(venue.GetLocationComment()),
        QStringLiteral("loading dock ") + Exactly(venue.GetLoadDockStreetAddress()),
        QStringLiteral("loading dock comment ") + Exactly(venue.GetLoadDockComment()),
        QStringLiteral("clearance ") + Exactly(venue.GetClearingOfHouseGrid()),
        QStringLiteral("rigging ") + Exactly(venue.GetRiggingComment()),
        QStringLiteral("upload date ") + Exactly(venue.GetUploadDate()),
        QStringLiteral("editor ") + Exactly(venue.GetEditor()),
        QStringLiteral("edit date ") + Exactly(venue.GetEditDate()),
        QStringLiteral("columns ") + Exactly(venue.GetDataAt(10).isNull()),
    };
}

/// The definition: what QJsonDocument makes of \p body; nothing where that has no list of venues.
std::optional<QList<Venue>> ReadByQt(const QByteArray& body)
{
    const QJsonObject document = QJsonDocument::fromJson(body).object();
    if (!document.value(QLatin1String("data")).isArray())
        return std::nullopt;
    return VenueReader(Countries()).Read(document);
}

} // namespace

QString ReaderDifference(const QByteArray& body)
{
    const std::optional<QList<Venue>> expected = ReadByQt(body);
    const std::optional<QList<Venue>> present = VenueReader(Countries()).ReadBody(body);
    if (expected.has_value() != present.has_value())
        return QStringLiteral("only one finds a list");
    if (!expected)
        return {};
    if (expected->size() != present->size())
        return QStringLiteral("%1 venues instead of %2").arg(present->size()).arg(expected->size());
    for (qsizetype index = 0; index < expected->size(); ++index) {
        const QStringList expectedLines = Lines(expected->at(index));
        const QStringList presentLines = Lines(present->at(index));
        for (qsizetype line = 0; line < expectedLines.size(); ++line) {
            if (expectedLines.at(line) != presentLines.at(line))
                return QStringLiteral("venue %1: %2 instead of %3")
                    .arg(QString::number(index), presentLines.at(line), expectedLines.at(line));
        }
    }
    return {};
}

bool IsReadQuickly(const QByteArray& body)
{
    return QuickVenueReader(body, Countries()).Read().has_value();
}

} // namespace korvel::Fuzz
