#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace korvel::Test {

/// The bytes of tests/fixtures/\p name. Aborts the program when there is no such file.
QByteArray Fixture(const QString& name);
/// The same as a JSON object; aborts when it is none.
QJsonObject FixtureObject(const QString& name);
/// The JSON object that \p text spells; aborts when it is none.
QJsonObject JsonObject(const QByteArray& text);
/// The member at the end of \p path, names and array indexes joined by dots.
QJsonValue At(const QJsonValue& from, const QString& path);
/// The "included" of a reply with these elements, joined by commas.
QJsonArray Included(const QByteArray& elements);

} // namespace korvel::Test
