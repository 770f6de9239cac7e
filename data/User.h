#pragma once

#include <data/VenueDatabaseExport.h>

#include <QString>

namespace korvel::Data::VenueDatabase {

/// A user account of the venue database server. Part of the connector's interface; no query of this version
/// fills one.
///
/// A plain value, copied memberwise. Dates are texts as the server delivers them.
class KVVENUEDATABASE_API User
{
public:
    /// An empty user: id and type -1, empty texts.
    User() = default;
    User(const User& other) = default;
    User(User&& other) noexcept = default;
    User& operator=(const User& other) = default;
    User& operator=(User&& other) noexcept = default;
    ~User() = default;

    /// Entity id; -1 means none.
    qint64 GetId() const;
    QString GetUserName() const;
    /// The server's number for the kind of account; -1 means unknown.
    qint64 GetUserType() const;
    QString GetRealName() const;
    QString GetCompany() const;
    QString GetStreetAddressPoBox() const;
    QString GetPostalCode() const;
    QString GetCity() const;
    QString GetCountry() const;
    QString GetRegistrationDate() const;
    QString GetLastLoginDate() const;

    void SetId(qint64 id);
    void SetUserName(QString& userName);
    void SetUserType(qint64 userType);
    void SetRealName(QString& realName);
    void SetCompany(QString& company);
    void SetStreetAddressPoBox(QString& streetAddressPoBox);
    void SetPostalCode(QString& postalCode);
    void SetCity(QString& city);
    void SetCountry(QString& country);
    void SetRegistrationDate(QString& registrationDate);
    void SetLastLoginDate(QString lastLoginDate);

private:
    qint64 m_id = -1;
    QString m_userName;
    qint64 m_userType = -1;
    QString m_realName;
    QString m_company;
    QString m_streetAddressPoBox;
    QString m_postalCode;
    QString m_city;
    QString m_country;
    QString m_registrationDate;
    QString m_lastLoginDate;
};

} // namespace korvel::Data::VenueDatabase
