#pragma once

#include <data/VenueDatabaseExport.h>

#include <QString>

namespace korvel::Data::VenueDatabase {

/// A user account of the venue database server. Part of the connector's interface; no query of this version
/// fills one.
///
/// A plain value, copied memberwise. Dates are texts as the server delivers them. A record can be used in any
/// thread that owns it.
class KVVENUEDATABASE_API User
{
public:
    /// An empty user: id and type -1, empty texts.
    User() = default;
    /// Copies memberwise.
    User(const User& other) = default;
    /// Moves memberwise; \p other can only be assigned to or destroyed afterwards.
    User(User&& other) noexcept = default;
    /// Assigns memberwise.
    User& operator=(const User& other) = default;
    /// Moves memberwise; \p other can only be assigned to or destroyed afterwards.
    User& operator=(User&& other) noexcept = default;
    /// Holds nothing but values.
    ~User() = default;

    /// Entity id; -1 means none.
    qint64 GetId() const;
    /// The name that the user signs in with.
    QString GetUserName() const;
    /// The server's number for the kind of account; -1 means unknown.
    qint64 GetUserType() const;
    /// First and last name, as the user wrote them.
    QString GetRealName() const;
    /// The company that the user works for.
    QString GetCompany() const;
    /// Street with number, or post-office box.
    QString GetStreetAddressPoBox() const;
    /// Postal code of the user's address.
    QString GetPostalCode() const;
    /// City of the user's address.
    QString GetCity() const;
    /// Country of the user's address.
    QString GetCountry() const;
    /// When the account was made; not parsed.
    QString GetRegistrationDate() const;
    /// When the user last signed in; not parsed.
    QString GetLastLoginDate() const;

    /// See GetId().
    void SetId(qint64 id);
    /// See GetUserName(). Does not change \p userName.
    void SetUserName(QString& userName);
    /// See GetUserType().
    void SetUserType(qint64 userType);
    /// See GetRealName(). Does not change \p realName.
    void SetRealName(QString& realName);
    /// See GetCompany(). Does not change \p company.
    void SetCompany(QString& company);
    /// See GetStreetAddressPoBox(). Does not change \p streetAddressPoBox.
    void SetStreetAddressPoBox(QString& streetAddressPoBox);
    /// See GetPostalCode(). Does not change \p postalCode.
    void SetPostalCode(QString& postalCode);
    /// See GetCity(). Does not change \p city.
    void SetCity(QString& city);
    /// See GetCountry(). Does not change \p country.
    void SetCountry(QString& country);
    /// See GetRegistrationDate(). Does not change \p registrationDate.
    void SetRegistrationDate(QString& registrationDate);
    /// See GetLastLoginDate().
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
