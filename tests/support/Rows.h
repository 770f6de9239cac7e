#pragma once

#include <QByteArrayList>
#include <QTest>

#include <tuple>
#include <type_traits>

namespace korvel::Test {

/// The names of the columns of the running test's table, as Rows was told them.
inline QByteArrayList& ColumnNames()
{
    static QByteArrayList names;
    return names;
}

/// The columns of the running test's table. Called with a name and values, it adds a row.
template <typename... Values> class Rows
{
public:
    template <typename... Names> explicit Rows(Names... names)
    {
        (QTest::addColumn<Values>(names), ...);
        ColumnNames() = {QByteArray(names)...};
    }

    void operator()(const char* name, const std::type_identity_t<Values>&... values) const
    {
        QTestData& row = QTest::newRow(name);
        (void)(row << ... << values);
    }
    void operator()(const QByteArray& name, const std::type_identity_t<Values>&... values) const
    {
        operator()(name.constData(), values...);
    }
};

/// The values of the running row, from the first column on.
template <typename... Values> std::tuple<Values...> Fetch()
{
    auto name = ColumnNames().cbegin();
    return {*static_cast<const Values*>(QTest::qData(*name++, qMetaTypeId<Values>()))...};
}

} // namespace korvel::Test
