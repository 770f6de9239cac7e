#pragma once

#include <QTest>

#include <type_traits>

namespace korvel::Test {

/// The columns of the running test's table. Called with a name and values, it adds a row.
template <typename... Values> class Rows
{
public:
    template <typename... Names> explicit Rows(Names... names)
    {
        (QTest::addColumn<Values>(names), ...);
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

} // namespace korvel::Test
