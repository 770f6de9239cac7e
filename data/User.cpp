#include <data/User.h>

#include <utility>

namespace korvel::Data::VenueDatabase {

qint64 User::GetId() const
{
    return m_id;
}

QString User::GetUserName() const
{
    return m_userName;
}

qint64 User::GetUserType() const
{
    return m_userType;
}

QString User::GetRealName() const
{
    return m_realName;
}

QString User::GetCompany() const
{
    return m_company;
}

QString User::GetStreetAddressPoBox() const
{
    return m_streetAddressPoBox;
}

QString User::GetPostalCode() const
{
    return m_postalCode;
}

QString User::GetCity() const
{
    return m_city;
}

QString User::GetCountry() const
{
    return m_country;
}

QString User::GetRegistrationDate() const
{
    return m_registrationDate;
}

QString User::GetLastLoginDate() const
{
    return m_lastLoginDate;
}

void User::SetId(qint64 id)
{
    m_id = id;
}

void User::SetUserType(qint64 userType)
{
    m_userType = userType;
}

void User::SetLastLoginDate(QString lastLoginDate)
{
    m_lastLoginDate = std::move(lastLoginDate);
}

void User::SetUserName(QString& userName)
{
    m_userName = userName;
}

void User::SetRealName(QString& realName)
{
    m_realName = realName;
}

void User::SetCompany(QString& company)
{
    m_company = company;
}

void User::SetStreetAddressPoBox(QString& streetAddressPoBox)
{
    m_streetAddressPoBox = streetAddressPoBox;
}

void User::SetPostalCode(QString& postalCode)
{
    m_postalCode = postalCode;
}

void User::SetCity(QString& city)
{
    m_city = city;
}

void User::SetCountry(QString& country)
{
    m_country = country;
}

void User::SetRegistrationDate(QString& registrationDate)
{
    m_registrationDate = registrationDate;
}

} // namespace korvel::Data::VenueDatabase
