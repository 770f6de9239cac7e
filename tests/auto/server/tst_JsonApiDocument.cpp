#include <server/api/JsonApiDocument.h>
#include <tests/support/Fixture.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

QString TextAt(const QJsonValue& from, const QString& path)
{
    return At(from, path).toString(u"(no text)"_s);
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
    const QJsonArray included = At(JsonObject(DocumentOf(includes)), u"included"_s).toArray();
    for (const QJsonValue& value : included)
        ids.append(TextAt(value, u"type"_s) + QLatin1Char(' ') + TextAt(value, u"id"_s));
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
        const QJsonValue json = JsonObject(document.Finish());
        QCOMPARE(TextAt(json, u"jsonapi.version"_s), u"1.0"_s);
        QVERIFY(At(json, u"data"_s).isArray());
        QVERIFY(At(json, u"included"_s).isArray());
        QCOMPARE(At(json, u"meta.count"_s).toInt(-1), 0);
        QCOMPARE(TextAt(json, u"links.self.href"_s), u"https://h.example/api/venue?x"_s);
    }

    void TextsSurviveTheirEscaping()
    {
        const QJsonValue attributes = At(JsonObject(DocumentOf({})), u"data.0.attributes"_s);
        QCOMPARE(At(attributes, u"entity_id"_s).toInt(), 7);
        QCOMPARE(TextAt(attributes, u"address.locality"_s), Hall().locality);
        QCOMPARE(TextAt(attributes, u"comment"_s), Hall().comment);
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
        const QJsonObject attributes = At(JsonObject(DocumentOf({})), u"data.0.attributes"_s).toObject();
        QVERIFY(!attributes.contains(u"venue_room_name"_s));
        QVERIFY(!At(attributes, u"address"_s).toObject().contains(u"postal_code"_s));

        VenueRecord bare;
        bare.entityId = 1;
        JsonApiDocument document(u"h.example"_s, "/", {});
        document.AddVenue(bare, nullptr);
        const QJsonObject json = JsonObject(document.Finish());
        QVERIFY(!At(json, u"data.0.attributes"_s).toObject().contains(u"address"_s));
        QVERIFY(At(json, u"data.0.relationships.editor.data"_s).isNull());
        QVERIFY(!json.contains(u"included"_s));
    }

    void RelationshipsNameTheirResources()
    {
        const QJsonValue relationships = At(JsonObject(DocumentOf({})), u"data.0.relationships"_s);
        QCOMPARE(TextAt(relationships, u"editor.data.type"_s), u"user"_s);
        QCOMPARE(TextAt(relationships, u"editor.data.id"_s), u"user-3"_s);
        QCOMPARE(At(relationships, u"stage_left.data"_s).toArray().size(), 2);
        QCOMPARE(TextAt(relationships, u"stage_left.data.1.id"_s), u"p3"_s);
        QCOMPARE(TextAt(relationships, u"tessra.data.0.type"_s), u"tessra"_s);
        for (const QString& view : VenueCatalogue::Views())
            QVERIFY(relationships.toObject().contains(view));
    }

    void UserIsIncludedOnce()
    {
        JsonApiDocument document(u"h.example"_s, "/", {u"editor"_s});
        document.AddVenue(Hall(), &c_user);
        document.AddVenue(Hall(), &c_user);
        const QJsonValue json = JsonObject(document.Finish());
        QCOMPARE(At(json, u"data"_s).toArray().size(), 2);
        QCOMPARE(At(json, u"included"_s).toArray().size(), 1);
        QCOMPARE(TextAt(json, u"included.0.type"_s), u"user"_s);
        QCOMPARE(TextAt(json, u"included.0.id"_s), u"user-3"_s);
        QCOMPARE(At(json, u"included.0.attributes.entity_id"_s).toInt(), 3);
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

    void PicturesAndModelFilesHaveTheirMembers()
    {
        const QJsonValue included
            = At(JsonObject(DocumentOf({u"stage_left.file"_s, u"tessra.file"_s})), u"included"_s);
        QCOMPARE(At(included, u"0.attributes"_s).toObject(),
                 JsonObject(R"({"name": "Left", "created": "2023"})"));
        QCOMPARE(TextAt(included, u"0.relationships.file.data.id"_s), u"file-p1"_s);
        QCOMPARE(TextAt(included, u"0.relationships.file.data.meta.alt"_s), u"From the left"_s);
        QCOMPARE(TextAt(included, u"2.attributes.url"_s), u"/files/pictures/p1-large.jpg"_s);
        for (const QString& rendition : {u"small"_s, u"medium"_s, u"large"_s}) {
            QCOMPARE(TextAt(included, u"2.links.%1.href"_s.arg(rendition)),
                     u"https://h.example/files/pictures/p1-%1.jpg"_s.arg(rendition));
        }
        QCOMPARE(At(included, u"4.attributes"_s).toObject(),
                 JsonObject(R"({"name": "Hall.tessra", "created": "2024", "file_version": "4.2"})"));
        QCOMPARE(TextAt(included, u"4.relationships.file.data.id"_s), u"file-t1"_s);
        QCOMPARE(TextAt(included, u"5.attributes.url"_s), u"/files/models/a%20hall%231.tessra"_s);
    }

    void ErrorsAreDocuments()
    {
        const QJsonValue json = JsonObject(JsonApiDocument::Error(404, u"No /x"_s));
        QCOMPARE(TextAt(json, u"errors.0.status"_s), u"404"_s);
        QCOMPARE(TextAt(json, u"errors.0.title"_s), u"Not Found"_s);
        QCOMPARE(TextAt(json, u"errors.0.detail"_s), u"No /x"_s);
    }
};

QTEST_GUILESS_MAIN(tst_JsonApiDocument)
#include "tst_JsonApiDocument.moc"
