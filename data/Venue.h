#pragma once

#include <data/VenueDatabaseExport.h>

#include <QDate>
#include <QDateTime>
#include <QGeoAddress>
#include <QString>
#include <QVariant>

namespace korvel::Data::VenueDatabase {

/// One venue (a hall, theatre or room) as the venue database server describes it.
///
/// A plain value: copied memberwise, its texts implicitly shared. Texts come from the server as they are and
/// may hold anything, markup included; show them as plain text. A record can be used in any thread that owns
/// it.
///
/// @code{.cpp}
/// QStringList lines;
/// for (int column = 0; column < Venue::Size(true); ++column)
///     lines.append(Venue::GetLabelAt(column, true) + QStringLiteral(": ")
///                  + venue.GetMinimizedDataAt(column).toString());
/// @endcode
class KVVENUEDATABASE_API Venue
{
public:
    /// Number of columns of the full set.
    static const int c_elementCount = 11;
    /// Number of columns of the minimised set, the one that the venue table shows.
    static const int c_elementCountMinimized = 6;

    /// An empty venue: id and editor -1, empty texts, null dates, full column set.
    Venue() = default;
    /// Copies memberwise.
    Venue(const Venue& other) = default;
    /// Moves memberwise; \p other can only be assigned to or destroyed afterwards.
    Venue(Venue&& other) noexcept = default;
    /// Assigns memberwise.
    Venue& operator=(const Venue& other) = default;
    /// Moves memberwise; \p other can only be assigned to or destroyed afterwards.
    Venue& operator=(Venue&& other) noexcept = default;
    /// Holds nothing but values.
    ~Venue() = default;

    /// The venue's entity id on the server; -1 means none.
    qint64 GetId() const;
    /// Name of the building or complex.
    QString GetComplexName() const;
    /// Name of the hall or room inside the complex.
    QString GetVenueRoomName() const;
    /// What the editors say of the venue as a whole.
    QString GetGeneralComment() const;
    /// Street, postal code, city, country code and country name.
    QGeoAddress GetAddress() const;
    /// The whole address as QGeoAddress::text() formats it for its country: lines joined by the literal text
    /// "<br/>", nothing escaped.
    QString GetAddressText() const;
    /// The city of the address.
    QString GetCity() const;
    /// The country's name, not its code; empty until SetCountry().
    QString GetCountry() const;
    /// What to know on the way to the venue.
    QString GetLocationComment() const;
    /// Address of the loading dock where it differs from that of the venue.
    QString GetLoadDockStreetAddress() const;
    /// What to know at the loading dock.
    QString GetLoadDockComment() const;
    /// Clearance of the house rigging grid or beams above the venue floor in metres, as the text that was
    /// entered.
    QString GetClearingOfHouseGrid() const;
    /// Specialties and restrictions of the rigging.
    QString GetRiggingComment() const;
    /// Date on which the venue was created on the server; null when unknown.
    QDate GetUploadDate() const;
    /// The upload date in the system locale's short format; empty for a null date.
    QString GetUploadDateAsString() const;
    /// Entity id of the user who last edited the venue; -1 means unknown.
    qint64 GetEditor() const;
    /// When the venue was last changed: UTC by meaning, but without time-zone information; null when unknown.
    QDateTime GetEditDate() const;
    /// The edit date in the system locale's short format; empty for a null date.
    QString GetEditDateAsString() const;

    /// See GetId().
    void SetId(qint64 id);
    /// See GetComplexName().
    void SetComplexName(const QString& complexName);
    /// See GetVenueRoomName().
    void SetVenueRoomName(const QString& venueRoomName);
    /// See GetGeneralComment().
    void SetGeneralComment(const QString& generalComment);
    /// Replaces the whole address.
    void SetAddress(const QGeoAddress& address);
    /// Sets the street of the address; its other parts stay.
    void SetStreetAddress(const QString& streetAddress);
    /// Sets the postal code of the address; its other parts stay.
    void SetPostalCode(const QString& postalCode);
    /// Sets the city of the address; its other parts stay.
    void SetCity(const QString& city);
    /// Sets the code only; the country name stays as it is.
    void SetCountryCode(const QString& countryCode);
    /// Sets the country's name only.
    void SetCountry(const QString& country);
    /// See GetLocationComment().
    void SetLocationComment(const QString& locationComment);
    /// See GetLoadDockStreetAddress().
    void SetLoadDockStreetAddress(const QString& streetAddress);
    /// See GetLoadDockComment().
    void SetLoadDockComment(const QString& comment);
    /// See GetClearingOfHouseGrid(); any text, metres by meaning.
    void SetClearingOfHouseGrid(const QString& clearance);
    /// See GetRiggingComment().
    void SetRiggingComment(const QString& comment);
    /// See GetUploadDate(); a null date means unknown.
    void SetUploadDate(const QDate& uploadDate);
    /// See GetEditor().
    void SetEditor(qint64 editor);
    /// See GetEditDate(); a null date means unknown.
    void SetEditDate(const QDateTime& editDate);
    /// True makes GetDataAt() answer with the minimised column set, false (the default) with the full one.
    void SetMinimizedElementCount(bool minimized);

    /// The value of column \p index of this record's column set: qint64, QString, QDate or QDateTime, dates
    /// unformatted. Any other index, and column 10 of the full set, gives an invalid variant.
    QVariant GetDataAt(qint64 index) const;

    /// What GetDataAt() answers for the minimised column set, whatever the record's own set: a table asks for
    /// every cell many times and need not copy the record to set the flag.
    QVariant GetMinimizedDataAt(qint64 index) const;

    /// The translated header label of column \p index, empty where there is none.
    ///
    /// From index 6 on the labels of the full set follow the sections of the details panel and do not match
    /// GetDataAt(): label 8 is the clearance, data column 8 the upload date. The minimised set is consistent.
    static QString GetLabelAt(qint64 index, bool minimized);
    /// Number of columns: 6 for the minimised set, 11 for the full one.
    static int Size(bool minimized);

private:
    bool m_minimized = false;
    qint64 m_id = -1;
    QString m_complexName;
    QString m_venueRoomName;
    QString m_generalComment;
    QGeoAddress m_address;
    QString m_locationComment;
    QString m_loadDockStreetAddress;
    QString m_loadDockComment;
    QString m_clearingOfHouseGrid;
    QString m_riggingComment;
    QDate m_uploadDate;
    qint64 m_editor = -1;
    QDateTime m_editDate;
};

} // namespace korvel::Data::VenueDatabase
