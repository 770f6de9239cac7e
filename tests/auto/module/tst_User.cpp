#include <data/User.h>

#include <tests/support/StrictTest.h>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Test;
using korvel::Data::VenueDatabase::User;

namespace {

using TextGetter = QString (User::*)() const;

} // namespace

class tst_User : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void DefaultUserIsEmpty()
    {
        const User user;
        QCOMPARE(user.GetId(), -1);
        QCOMPARE(user.GetUserType(), -1);
        for (const TextField& field : c_textFields)
            QCOMPARE((user.*field.getter)(), QString());
    }

    void EverythingIsKeptAndACopyIsIndependent()
    {
        User source = FilledUser();
        const User copy(source);
        User assigned;
        assigned = source;
        QString changed = u"changed"_s;
        source.SetId(1);
        source.SetUserType(1);
        source.SetUserName(changed);
        source.SetLastLoginDate(changed);

        for (const User& user : {copy, assigned}) {
            QCOMPARE(user.GetId(), 12);
            QCOMPARE(user.GetUserType(), 3);
            for (const TextField& field : c_textFields)
                QCOMPARE((user.*field.getter)(), QString::fromLatin1(field.text));
        }
    }

private:
    struct TextField
    {
        TextGetter getter;
        const char* text;
    };
    static constexpr TextField c_textFields[] = {
        {&User::GetUserName, "user name"},
        {&User::GetRealName, "real name"},
        {&User::GetCompany, "company"},
        {&User::GetStreetAddressPoBox, "street or box"},
        {&User::GetPostalCode, "postal code"},
        {&User::GetCity, "city"},
        {&User::GetCountry, "country"},
        {&User::GetRegistrationDate, "registration date"},
        {&User::GetLastLoginDate, "last login date"},
    };

    /// Every field set to the name that c_textFields gives it.
    static User FilledUser()
    {
        User user;
        user.SetId(12);
        user.SetUserType(3);
        user.SetLastLoginDate(u"last login date"_s);
        using TextSetter = void (User::*)(QString&);
        const std::pair<TextSetter, QString> texts[] = {
            {&User::SetUserName, u"user name"_s},     {&User::SetRealName, u"real name"_s},
            {&User::SetCompany, u"company"_s},        {&User::SetStreetAddressPoBox, u"street or box"_s},
            {&User::SetPostalCode, u"postal code"_s}, {&User::SetCity, u"city"_s},
            {&User::SetCountry, u"country"_s},        {&User::SetRegistrationDate, u"registration date"_s},
        };
        for (auto [setter, text] : texts)
            (user.*setter)(text);
        return user;
    }
};

QTEST_GUILESS_MAIN(tst_User)
#include "tst_User.moc"
