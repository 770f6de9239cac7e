#include <tests/support/Fixture.h>

#include <QFile>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace korvel::Test {

QByteArray Fixture(const QString& name)
{
    QFile file(QStringLiteral(VDB_FIXTURES_DIR "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The fixture %s cannot be read", qPrintable(name));
    return file.readAll();
}

QJsonObject FixtureObject(const QString& name)
{
    return JsonObject(Fixture(name));
}

QJsonObject JsonObject(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject())
        qFatal("%s: %s", qPrintable(error.errorString()), text.left(200).constData());
    return document.object();
}

QJsonValue At(const QJsonValue& from, const QString& path)
{
    QJsonValue value = from;
    for (const QString& name : path.split(QLatin1Char('.')))
        value = value.isArray() ? value.toArray().at(name.toInt()) : value.toObject().value(name);
    return value;
}

QJsonArray Included(const QByteArray& elements)
{
    return JsonObject(R"({"included": [)" + elements + "]}").value("included"_L1).toArray();
}

} // namespace korvel::Test
