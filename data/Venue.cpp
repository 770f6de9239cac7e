#include <data/Venue.h>

#include <QLocale>
#include <QObject>

namespace korvel::Data::VenueDatabase {

// Definitions, so that callers can bind references to the constants.
const int Venue::c_elementCount;
const int Venue::c_elementCountMinimized;

qint64 Venue::GetId() const
{
    return m_id;
}

QString Venue::GetComplexName() const
{
    return m_complexName;
}

QString Venue::GetVenueRoomName() const
{
    return m_venueRoomName;
}

QString Venue::GetGeneralComment() const
{
    return m_generalComment;
}

QGeoAddress Venue::GetAddress() const
{
    return m_address;
}

QString Venue::GetAddressText() const
{
    return m_address.text();
}

QString Venue::GetCity() const
{
    return m_address.city();
}

QString Venue::GetCountry() const
{
    return m_address.country();
}

QString Venue::GetLocationComment() const
{
    return m_locationComment;
}

QString Venue::GetLoadDockStreetAddress() const
{
    return m_loadDockStreetAddress;
}

QString Venue::GetLoadDockComment() const
{
    return m_loadDockComment;
}

QString Venue::GetClearingOfHouseGrid() const
{
    return m_clearingOfHouseGrid;
}

QString Venue::GetRiggingComment() const
{
    return m_riggingComment;
}

QDate Venue::GetUploadDate() const
{
    return m_uploadDate;
}

QString Venue::GetUploadDateAsString() const
{
    return QLocale::system().toString(m_uploadDate, QLocale::ShortFormat);
}

qint64 Venue::GetEditor() const
{
    return m_editor;
}

QDateTime Venue::GetEditDate() const
{
    return m_editDate;
}

QString Venue::GetEditDateAsString() const
{
    return QLocale::system().toString(m_editDate, QLocale::ShortFormat);
}

void Venue::SetId(qint64 id)
{
    m_id = id;
}

void Venue::SetComplexName(const QString& complexName)
{
    m_complexName = complexName;
}

void Venue::SetVenueRoomName(const QString& venueRoomName)
{
    m_venueRoomName = venueRoomName;
}

void Venue::SetGeneralComment(const QString& generalComment)
{
    m_generalComment = generalComment;
}

void Venue::SetAddress(const QGeoAddress& address)
{
    m_address = address;
}

void Venue::SetStreetAddress(const QString& streetAddress)
{
    m_address.setStreet(streetAddress);
}

void Venue::SetPostalCode(const QString& postalCode)
{
    m_address.setPostalCode(postalCode);
}

void Venue::SetCity(const QString& city)
{
    m_address.setCity(city);
}

void Venue::SetCountryCode(const QString& countryCode)
{
    m_address.setCountryCode(countryCode);
}

void Venue::SetCountry(const QString& country)
{
    m_address.setCountry(country);
}

void Venue::SetLocationComment(const QString& locationComment)
{
    m_locationComment = locationComment;
}

void Venue::SetLoadDockStreetAddress(const QString& streetAddress)
{
    m_loadDockStreetAddress = streetAddress;
}

void Venue::SetLoadDockComment(const QString& comment)
{
    m_loadDockComment = comment;
}

void Venue::SetClearingOfHouseGrid(const QString& clearance)
{
    m_clearingOfHouseGrid = clearance;
}

void Venue::SetRiggingComment(const QString& comment)
{
    m_riggingComment = comment;
}

void Venue::SetUploadDate(const QDate& uploadDate)
{
    m_uploadDate = uploadDate;
}

void Venue::SetEditor(qint64 editor)
{
    m_editor = editor;
}

void Venue::SetEditDate(const QDateTime& editDate)
{
    m_editDate = editDate;
}

void Venue::SetMinimizedElementCount(bool minimized)
{
    m_minimized = minimized;
}

QVariant Venue::GetDataAt(qint64 index) const
{
    if (m_minimized)
        return GetMinimizedDataAt(index);

    switch (index) {
    case 0:
        return m_id;
    case 1:
        return m_complexName;
    case 2:
        return m_venueRoomName;
    case 3:
        return m_generalComment;
    case 4:
        return GetAddressText();
    case 5:
        return m_locationComment;
    case 6:
        return m_loadDockStreetAddress;
    case 7:
        return m_loadDockComment;
    case 8:
        return m_uploadDate;
    case 9:
        return m_editDate;
    default:
        return {};
    }
}

QVariant Venue::GetMinimizedDataAt(qint64 index) const
{
    switch (index) {
    case 0:
        return m_id;
    case 1:
        return m_complexName;
    case 2:
        return m_venueRoomName;
    case 3:
        return GetCity();
    case 4:
        return GetCountry();
    case 5:
        return m_editDate;
    default:
        return {};
    }
}

QString Venue::GetLabelAt(qint64 index, bool minimized)
{
    switch (index) {
    case 0:
        return QObject::tr("ID");
    case 1:
        return QObject::tr("Complex name");
    case 2:
        return QObject::tr("Venue/room name");
    case 3:
        return minimized ? QObject::tr("City") : QObject::tr("General comment");
    case 4:
        return minimized ? QObject::tr("Country") : QObject::tr("Address");
    case 5:
        return minimized ? QObject::tr("Editing date (UTC)") : QObject::tr("Location comment");
    default:
        break;
    }
    if (minimized)
        return {};

    // Deliberate: thirteen labels for eleven columns, in the order of the details panel's sections.
    switch (index) {
    case 6:
        return QObject::tr("Address");
    case 7:
        return QObject::tr("Comment");
    case 8:
        return QObject::tr("Clearance of house grid (m)");
    case 9:
        return QObject::tr("Comment");
    case 10:
        return QObject::tr("Upload date");
    case 11:
        return QObject::tr("Editor");
    case 12:
        return QObject::tr("Editing date (UTC)");
    default:
        return {};
    }
}

int Venue::Size(bool minimized)
{
    return minimized ? c_elementCountMinimized : c_elementCount;
}

} // namespace korvel::Data::VenueDatabase
