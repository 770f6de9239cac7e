#include <server/api/JsonApiDocument.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

/// The member at the end of \p path, names and array indexes joined by dots.
QJsonValue At(const QJsonValue& from, const char* path)
{
    QJsonValue value = from;
    const QList<QByteArray> names = QByteArray(path).split('.');
    for (const QByteArray& name : names) {
        value = value.isArray() ? value.toArray().at(name.toInt())
                                : value.toObject().value(QString::fromUtf8(name));
    }
    return value;
}

QString TextAt(const QJsonValue& from, const char* path)
{
    return At(from, path).toString(QStringLiteral("(no text)"));
}

QJsonValue Parse(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    return error.error == QJsonParseError::NoError ? QJsonValue(document.object()) : QJsonValue();
}

VenueRecord Hall()
{
    VenueRecord venue;
    venue.entityId = 7;
    venue.title = QStringLiteral("T");
    venue.locality = QStringLiteral("Zürich / ZH");
    venue.countryCode = QStringLiteral("CH");
    venue.comment = QStringLiteral("<b>\"quoted\" \\ 'it' & \n\x01</b>");
    venue.editor = QStringLiteral("user-3");
    venue.pictures = {{QStringLiteral("p1"), QStringLiteral("stage_left"), QStringLiteral("Left"),
                       QStringLiteral("From the left"), QStringLiteral("2023")},
                      {QStringLiteral("p2"), QStringLiteral("isometric"), {}, {}, {}},
                      {QStringLiteral("p3"), QStringLiteral("stage_left"), {}, {}, {}}};
    venue.modelFiles
        = {{QStringLiteral("t1"), QStringLiteral("Hall.tessra"), QStringLiteral("a hall#1.tessra"),
            QStringLiteral("2024"), QStringLiteral("4.2"), "content"}};
    return venue;
}

const UserRecord c_user{QStringLiteral("user-3"), 3, QStringLiteral("Zoë")};

QByteArray DocumentOf(const QStringList& includes)
{
    JsonApiDocument document(QStringLiteral("h.example"), "/api/venue?x", includes);
    document.AddVenue(Hall(), &c_user);
    return document.Finish();
}

QStringList IncludedIds(const QStringList& includes)
{
    QStringList ids;
    const QJsonArray included = At(Parse(DocumentOf(includes)), "included").toArray();
    for (const QJsonValue& value : included) {
        ids.append(TextAt(value, "type") + QLatin1Char(' ') + TextAt(value, "id"));
    }
    return ids;
}

} // namespace

class tst_JsonApiDocument : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EmptyDocumentIsComplete();
    void TextsSurviveTheirEscaping();
    void SlashesAndMarkupAreEscaped();
    void MissingTextsAreLeftOut();
    void RelationshipsNameTheirResources();
    void UserIsIncludedOnce();
    void ResourcesAreIncluded_data();
    void ResourcesAreIncluded();
    void PictureFileHasItsLinks();
    void ModelFileHasItsPath();
    void ErrorsAreDocuments();
};

void tst_JsonApiDocument::EmptyDocumentIsComplete()
{
    JsonApiDocument document(QStringLiteral("h.example"), "/api/venue?x", {QStringLiteral("editor")});
    const QJsonValue json = Parse(document.Finish());
    QCOMPARE(TextAt(json, "jsonapi.version"), QStringLiteral("1.0"));
    QVERIFY(At(json, "data").isArray());
    QVERIFY(At(json, "included").isArray());
    QCOMPARE(At(json, "meta.count").toInt(-1), 0);
    QCOMPARE(TextAt(json, "links.self.href"), QStringLiteral("https://h.example/api/venue?x"));
}

void tst_JsonApiDocument::TextsSurviveTheirEscaping()
{
    const QJsonValue attributes = At(Parse(DocumentOf({})), "data.0.attributes");
    QCOMPARE(At(attributes, "entity_id").toInt(), 7);
    QCOMPARE(TextAt(attributes, "address.locality"), Hall().locality);
    QCOMPARE(TextAt(attributes, "comment"), Hall().comment);
}

void tst_JsonApiDocument::SlashesAndMarkupAreEscaped()
{
    const QByteArray json = DocumentOf({});
    QVERIFY(json.contains("Zürich \\/ ZH"));
    QVERIFY(json.contains("\\u003Cb\\u003E"));
    QVERIFY(!json.contains('<'));
    QCOMPARE(json.count('/'), json.count("\\/"));
}

void tst_JsonApiDocument::MissingTextsAreLeftOut()
{
    const QJsonObject attributes = At(Parse(DocumentOf({})), "data.0.attributes").toObject();
    QVERIFY(!attributes.contains(QStringLiteral("venue_room_name")));
    QVERIFY(!At(attributes, "address").toObject().contains(QStringLiteral("postal_code")));

    VenueRecord bare;
    bare.entityId = 1;
    JsonApiDocument document(QStringLiteral("h.example"), "/", {});
    document.AddVenue(bare, nullptr);
    const QJsonValue json = Parse(document.Finish());
    QVERIFY(!At(json, "data.0.attributes").toObject().contains(QStringLiteral("address")));
    QVERIFY(At(json, "data.0.relationships.editor.data").isNull());
    QVERIFY(!json.toObject().contains(QStringLiteral("included")));
}

void tst_JsonApiDocument::RelationshipsNameTheirResources()
{
    const QJsonValue relationships = At(Parse(DocumentOf({})), "data.0.relationships");
    QCOMPARE(TextAt(relationships, "editor.data.type"), QStringLiteral("user"));
    QCOMPARE(TextAt(relationships, "editor.data.id"), QStringLiteral("user-3"));
    QCOMPARE(At(relationships, "stage_left.data").toArray().size(), 2);
    QCOMPARE(TextAt(relationships, "stage_left.data.1.id"), QStringLiteral("p3"));
    QCOMPARE(TextAt(relationships, "tessra.data.0.type"), QStringLiteral("tessra"));
    for (const QString& view : VenueCatalogue::Views()) {
        QVERIFY(relationships.toObject().contains(view));
    }
}

void tst_JsonApiDocument::UserIsIncludedOnce()
{
    JsonApiDocument document(QStringLiteral("h.example"), "/", {QStringLiteral("editor")});
    document.AddVenue(Hall(), &c_user);
    document.AddVenue(Hall(), &c_user);
    const QJsonValue json = Parse(document.Finish());
    QCOMPARE(At(json, "data").toArray().size(), 2);
    QCOMPARE(At(json, "included").toArray().size(), 1);
    QCOMPARE(TextAt(json, "included.0.type"), QStringLiteral("user"));
    QCOMPARE(TextAt(json, "included.0.id"), QStringLiteral("user-3"));
    QCOMPARE(At(json, "included.0.attributes.entity_id").toInt(), 3);
}

void tst_JsonApiDocument::ResourcesAreIncluded_data()
{
    const Rows<QStringList, QStringList> row("includes", "ids");
    row("nothing", {}, {});
    row("editor", {QStringLiteral("editor")}, {QStringLiteral("user user-3")});
    row("view without pictures", {QStringLiteral("stage_right.file")}, {});
    row("pictures without files", {QStringLiteral("stage_left")},
        {QStringLiteral("picture p1"), QStringLiteral("picture p3")});
    row("views in the order asked for", {QStringLiteral("stage_left.file"), QStringLiteral("isometric.file")},
        {QStringLiteral("picture p1"), QStringLiteral("picture p3"), QStringLiteral("file file-p1"),
         QStringLiteral("file file-p3"), QStringLiteral("picture p2"), QStringLiteral("file file-p2")});
    row("model files", {QStringLiteral("tessra.file")},
        {QStringLiteral("tessra t1"), QStringLiteral("file file-t1")});
}

void tst_JsonApiDocument::ResourcesAreIncluded()
{
    QFETCH(QStringList, includes);
    QFETCH(QStringList, ids);
    QCOMPARE(IncludedIds(includes), ids);
}

void tst_JsonApiDocument::PictureFileHasItsLinks()
{
    const QJsonValue json = Parse(DocumentOf({QStringLiteral("stage_left.file")}));
    QCOMPARE(TextAt(json, "included.0.attributes.name"), QStringLiteral("Left"));
    QCOMPARE(TextAt(json, "included.0.attributes.created"), QStringLiteral("2023"));
    QCOMPARE(TextAt(json, "included.0.relationships.file.data.id"), QStringLiteral("file-p1"));
    QCOMPARE(TextAt(json, "included.0.relationships.file.data.meta.alt"), QStringLiteral("From the left"));
    QCOMPARE(TextAt(json, "included.2.attributes.url"), QStringLiteral("/files/pictures/p1-large.jpg"));
    QCOMPARE(TextAt(json, "included.2.links.small.href"),
             QStringLiteral("https://h.example/files/pictures/p1-small.jpg"));
    QCOMPARE(TextAt(json, "included.2.links.medium.href"),
             QStringLiteral("https://h.example/files/pictures/p1-medium.jpg"));
    QCOMPARE(TextAt(json, "included.2.links.large.href"),
             QStringLiteral("https://h.example/files/pictures/p1-large.jpg"));
}

void tst_JsonApiDocument::ModelFileHasItsPath()
{
    const QJsonValue json = Parse(DocumentOf({QStringLiteral("tessra.file")}));
    QCOMPARE(TextAt(json, "included.0.attributes.name"), QStringLiteral("Hall.tessra"));
    QCOMPARE(TextAt(json, "included.0.attributes.created"), QStringLiteral("2024"));
    QCOMPARE(TextAt(json, "included.0.attributes.file_version"), QStringLiteral("4.2"));
    QCOMPARE(TextAt(json, "included.0.relationships.file.data.id"), QStringLiteral("file-t1"));
    QCOMPARE(TextAt(json, "included.1.attributes.url"), QStringLiteral("/files/models/a%20hall%231.tessra"));
}

void tst_JsonApiDocument::ErrorsAreDocuments()
{
    const QJsonValue json = Parse(JsonApiDocument::Error(404, QStringLiteral("No /x")));
    QCOMPARE(TextAt(json, "errors.0.status"), QStringLiteral("404"));
    QCOMPARE(TextAt(json, "errors.0.title"), QStringLiteral("Not Found"));
    QCOMPARE(TextAt(json, "errors.0.detail"), QStringLiteral("No /x"));
}

QTEST_GUILESS_MAIN(tst_JsonApiDocument)
#include "tst_JsonApiDocument.moc"
