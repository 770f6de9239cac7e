#include <server/api/JsonApiDocument.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
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
    return At(from, path).toString(u"(no text)"_s);
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
    venue.title = u"T"_s;
    venue.locality = u"Zürich / ZH"_s;
    venue.countryCode = u"CH"_s;
    venue.comment = u"<b>\"quoted\" \\ 'it' & \n\x01</b>"_s;
    venue.editor = u"user-3"_s;
    venue.pictures = {{u"p1"_s, u"stage_left"_s, u"Left"_s, u"From the left"_s, u"2023"_s},
                      {u"p2"_s, u"isometric"_s, {}, {}, {}},
                      {u"p3"_s, u"stage_left"_s, {}, {}, {}}};
    venue.modelFiles = {{u"t1"_s, u"Hall.tessra"_s, u"a hall#1.tessra"_s, u"2024"_s, u"4.2"_s, "content"}};
    return venue;
}

const UserRecord c_user{u"user-3"_s, 3, u"Zoë"_s};

QByteArray DocumentOf(const QStringList& includes)
{
    JsonApiDocument document(u"h.example"_s, "/api/venue?x", includes);
    document.AddVenue(Hall(), &c_user);
    return document.Finish();
}

QStringList IncludedIds(const QStringList& includes)
{
    QStringList ids;
    const QJsonArray included = At(Parse(DocumentOf(includes)), "included").toArray();
    for (const QJsonValue& value : included)
        ids.append(TextAt(value, "type") + QLatin1Char(' ') + TextAt(value, "id"));
    return ids;
}

} // namespace

class tst_JsonApiDocument : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EmptyDocumentIsComplete()
    {
        JsonApiDocument document(u"h.example"_s, "/api/venue?x", {u"editor"_s});
        const QJsonValue json = Parse(document.Finish());
        QCOMPARE(TextAt(json, "jsonapi.version"), u"1.0"_s);
        QVERIFY(At(json, "data").isArray());
        QVERIFY(At(json, "included").isArray());
        QCOMPARE(At(json, "meta.count").toInt(-1), 0);
        QCOMPARE(TextAt(json, "links.self.href"), u"https://h.example/api/venue?x"_s);
    }

    void TextsSurviveTheirEscaping()
    {
        const QJsonValue attributes = At(Parse(DocumentOf({})), "data.0.attributes");
        QCOMPARE(At(attributes, "entity_id").toInt(), 7);
        QCOMPARE(TextAt(attributes, "address.locality"), Hall().locality);
        QCOMPARE(TextAt(attributes, "comment"), Hall().comment);
    }

    void SlashesAndMarkupAreEscaped()
    {
        const QByteArray json = DocumentOf({});
        QVERIFY(json.contains("Zürich \\/ ZH"));
        QVERIFY(json.contains("\\u003Cb\\u003E"));
        QVERIFY(!json.contains('<'));
        QCOMPARE(json.count('/'), json.count("\\/"));
    }

    void MissingTextsAreLeftOut()
    {
        const QJsonObject attributes = At(Parse(DocumentOf({})), "data.0.attributes").toObject();
        QVERIFY(!attributes.contains(u"venue_room_name"_s));
        QVERIFY(!At(attributes, "address").toObject().contains(u"postal_code"_s));

        VenueRecord bare;
        bare.entityId = 1;
        JsonApiDocument document(u"h.example"_s, "/", {});
        document.AddVenue(bare, nullptr);
        const QJsonValue json = Parse(document.Finish());
        QVERIFY(!At(json, "data.0.attributes").toObject().contains(u"address"_s));
        QVERIFY(At(json, "data.0.relationships.editor.data").isNull());
        QVERIFY(!json.toObject().contains(u"included"_s));
    }

    void RelationshipsNameTheirResources()
    {
        const QJsonValue relationships = At(Parse(DocumentOf({})), "data.0.relationships");
        QCOMPARE(TextAt(relationships, "editor.data.type"), u"user"_s);
        QCOMPARE(TextAt(relationships, "editor.data.id"), u"user-3"_s);
        QCOMPARE(At(relationships, "stage_left.data").toArray().size(), 2);
        QCOMPARE(TextAt(relationships, "stage_left.data.1.id"), u"p3"_s);
        QCOMPARE(TextAt(relationships, "tessra.data.0.type"), u"tessra"_s);
        for (const QString& view : VenueCatalogue::Views())
            QVERIFY(relationships.toObject().contains(view));
    }

    void UserIsIncludedOnce()
    {
        JsonApiDocument document(u"h.example"_s, "/", {u"editor"_s});
        document.AddVenue(Hall(), &c_user);
        document.AddVenue(Hall(), &c_user);
        const QJsonValue json = Parse(document.Finish());
        QCOMPARE(At(json, "data").toArray().size(), 2);
        QCOMPARE(At(json, "included").toArray().size(), 1);
        QCOMPARE(TextAt(json, "included.0.type"), u"user"_s);
        QCOMPARE(TextAt(json, "included.0.id"), u"user-3"_s);
        QCOMPARE(At(json, "included.0.attributes.entity_id").toInt(), 3);
    }

    void ResourcesAreIncluded_data()
    {
        const Rows<QStringList, QStringList> row("includes", "ids");
        row("nothing", {}, {});
        row("editor", {u"editor"_s}, {u"user user-3"_s});
        row("view without pictures", {u"stage_right.file"_s}, {});
        row("pictures without files", {u"stage_left"_s}, {u"picture p1"_s, u"picture p3"_s});
        row("views in the order asked for", {u"stage_left.file"_s, u"isometric.file"_s},
            {u"picture p1"_s, u"picture p3"_s, u"file file-p1"_s, u"file file-p3"_s, u"picture p2"_s,
             u"file file-p2"_s});
        row("model files", {u"tessra.file"_s}, {u"tessra t1"_s, u"file file-t1"_s});
    }
    void ResourcesAreIncluded()
    {
        QFETCH(QStringList, includes);
        QTEST(IncludedIds(includes), "ids");
    }

    void PictureFileHasItsLinks()
    {
        const QJsonValue json = Parse(DocumentOf({u"stage_left.file"_s}));
        QCOMPARE(TextAt(json, "included.0.attributes.name"), u"Left"_s);
        QCOMPARE(TextAt(json, "included.0.attributes.created"), u"2023"_s);
        QCOMPARE(TextAt(json, "included.0.relationships.file.data.id"), u"file-p1"_s);
        QCOMPARE(TextAt(json, "included.0.relationships.file.data.meta.alt"), u"From the left"_s);
        QCOMPARE(TextAt(json, "included.2.attributes.url"), u"/files/pictures/p1-large.jpg"_s);
        QCOMPARE(TextAt(json, "included.2.links.small.href"),
                 u"https://h.example/files/pictures/p1-small.jpg"_s);
        QCOMPARE(TextAt(json, "included.2.links.medium.href"),
                 u"https://h.example/files/pictures/p1-medium.jpg"_s);
        QCOMPARE(TextAt(json, "included.2.links.large.href"),
                 u"https://h.example/files/pictures/p1-large.jpg"_s);
    }

    void ModelFileHasItsPath()
    {
        const QJsonValue json = Parse(DocumentOf({u"tessra.file"_s}));
        QCOMPARE(TextAt(json, "included.0.attributes.name"), u"Hall.tessra"_s);
        QCOMPARE(TextAt(json, "included.0.attributes.created"), u"2024"_s);
        QCOMPARE(TextAt(json, "included.0.attributes.file_version"), u"4.2"_s);
        QCOMPARE(TextAt(json, "included.0.relationships.file.data.id"), u"file-t1"_s);
        QCOMPARE(TextAt(json, "included.1.attributes.url"), u"/files/models/a%20hall%231.tessra"_s);
    }

    void ErrorsAreDocuments()
    {
        const QJsonValue json = Parse(JsonApiDocument::Error(404, u"No /x"_s));
        QCOMPARE(TextAt(json, "errors.0.status"), u"404"_s);
        QCOMPARE(TextAt(json, "errors.0.title"), u"Not Found"_s);
        QCOMPARE(TextAt(json, "errors.0.detail"), u"No /x"_s);
    }
};

QTEST_GUILESS_MAIN(tst_JsonApiDocument)
#include "tst_JsonApiDocument.moc"
