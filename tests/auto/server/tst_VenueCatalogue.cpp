#include <server/catalogue/VenueCatalogue.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace korvel::Demo;
using namespace korvel::Test;

class tst_VenueCatalogue : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EveryMemberIsRead();
    void MissingTextsAreNullAndEmptyOnesEmpty();
    void MistakesAreReported_data();
    void MistakesAreReported();

    void FolderIsReadInTheOrderOfNames();
    void ModelFilesAreReadFromTheirFolder();
    void FolderWithoutVenuesIsAMistake();
    void MistakeNamesTheFile();

    void ItemsAreFound();
    void ShippedCatalogueIsSound();

private:
    static void Write(const QString& path, const QByteArray& content);
};

void tst_VenueCatalogue::Write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    file.write(content);
}

void tst_VenueCatalogue::EveryMemberIsRead()
{
    QString error;
    const VenueCatalogue catalogue = VenueCatalogue::FromJson(R"({
        "users": [ { "entity_id": 3, "id": "user-3", "name": "Zoë" } ],
        "venues": [ {
            "entity_id": 1001, "title": "T", "venue_room_name": "R", "house": "arena", "general_comment": "G",
            "address": { "address_line1": "A", "postal_code": "P", "locality": "L", "country_code": "CH" },
            "comment": "C", "loading_dock_street_address": "D", "load_in_comments": "I",
            "clearance_of_house_grid_rigging_beams_above_venue_floor": "12.5", "rigging_specialties": "S",
            "created": "2023-05-04", "changed": "2024-03-01T10:20:30+00:00", "editor": "user-3",
            "pictures": [ { "id": "pic-1", "view": "isometric", "name": "N", "alt": "Alt", "created": "PC" } ],
            "model_files": [ { "id": "tessra-1", "name": "M", "file": "m.tessra", "created": "MC",
                               "file_version": "4.2" } ] } ] })",
                                                              &error);
    QCOMPARE(error, QString());
    QCOMPARE(catalogue.Users().size(), 1);
    QCOMPARE(catalogue.Users().constFirst().name, QStringLiteral("Zoë"));
    QCOMPARE(catalogue.Users().constFirst().entityId, 3);
    QCOMPARE(catalogue.Venues().size(), 1);
    const VenueRecord& venue = catalogue.Venues().constFirst();
    QCOMPARE(venue.entityId, 1001);
    QCOMPARE(venue.title, QStringLiteral("T"));
    QCOMPARE(venue.venueRoomName, QStringLiteral("R"));
    QCOMPARE(venue.house, QStringLiteral("arena"));
    QCOMPARE(venue.generalComment, QStringLiteral("G"));
    QCOMPARE(venue.addressLine1, QStringLiteral("A"));
    QCOMPARE(venue.postalCode, QStringLiteral("P"));
    QCOMPARE(venue.locality, QStringLiteral("L"));
    QCOMPARE(venue.countryCode, QStringLiteral("CH"));
    QCOMPARE(venue.comment, QStringLiteral("C"));
    QCOMPARE(venue.loadingDockStreetAddress, QStringLiteral("D"));
    QCOMPARE(venue.loadInComments, QStringLiteral("I"));
    QCOMPARE(venue.clearance, QStringLiteral("12.5"));
    QCOMPARE(venue.riggingSpecialties, QStringLiteral("S"));
    QCOMPARE(venue.created, QStringLiteral("2023-05-04"));
    QCOMPARE(venue.changed, QStringLiteral("2024-03-01T10:20:30+00:00"));
    QCOMPARE(venue.editor, QStringLiteral("user-3"));
    QCOMPARE(venue.pictures.size(), 1);
    QCOMPARE(venue.pictures.constFirst().view, QStringLiteral("isometric"));
    QCOMPARE(venue.pictures.constFirst().alt, QStringLiteral("Alt"));
    QCOMPARE(venue.modelFiles.size(), 1);
    QCOMPARE(venue.modelFiles.constFirst().file, QStringLiteral("m.tessra"));
    QCOMPARE(venue.modelFiles.constFirst().fileVersion, QStringLiteral("4.2"));
    QVERIFY(venue.modelFiles.constFirst().content.isNull());
}

void tst_VenueCatalogue::MissingTextsAreNullAndEmptyOnesEmpty()
{
    const VenueCatalogue catalogue
        = VenueCatalogue::FromJson(R"({"venues":[{"entity_id":1,"title":"","comment":7}]})");
    const VenueRecord& venue = catalogue.Venues().constFirst();
    QVERIFY(venue.title.isEmpty() && !venue.title.isNull());
    QVERIFY(venue.venueRoomName.isNull());
    QVERIFY(venue.locality.isNull());
    QVERIFY(venue.comment.isNull());
    QVERIFY(venue.editor.isNull());
}

void tst_VenueCatalogue::MistakesAreReported_data()
{
    const Rows<QByteArray, QString> row("json", "part");
    row("no JSON", "{ nonsense", QStringLiteral("offset"));
    row("no object", "[]", QStringLiteral("no JSON object"));
    row("venue without id", R"({"venues":[{"title":"T"}]})", QStringLiteral("entity_id"));
    row("unknown view",
        R"({"venues":[{"entity_id":1,"house":"opera","pictures":[{"id":"p","view":"roof"}]}]})",
        QStringLiteral("roof"));
    row("picture without id",
        R"({"venues":[{"entity_id":1,"house":"opera","pictures":[{"view":"isometric"}]}]})",
        QStringLiteral("no id"));
    row("pictures of an unknown house",
        R"({"venues":[{"entity_id":1,"house":"castle","pictures":[{"id":"p","view":"isometric"}]}]})",
        QStringLiteral("castle"));
    row("pictures without a house",
        R"({"venues":[{"entity_id":1,"pictures":[{"id":"p","view":"isometric"}]}]})",
        QStringLiteral("unknown house"));
    row("model file outside its folder",
        R"({"venues":[{"entity_id":1,"model_files":[{"id":"t","file":"../users.json"}]}]})",
        QStringLiteral("plain file name"));
}

void tst_VenueCatalogue::MistakesAreReported()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, part);
    QString error;
    QVERIFY(VenueCatalogue::FromJson(json, &error).Venues().isEmpty());
    QVERIFY2(error.contains(part), qPrintable(error));
}

void tst_VenueCatalogue::FolderIsReadInTheOrderOfNames()
{
    const QTemporaryDir folder;
    Write(folder.filePath(QStringLiteral("venues-b.json")), R"({"venues":[{"entity_id":2}]})");
    Write(folder.filePath(QStringLiteral("venues-a.json")),
          R"({"venues":[{"entity_id":1,"editor":"user-1"}]})");
    Write(folder.filePath(QStringLiteral("users.json")), R"({"users":[{"id":"user-1","entity_id":5}]})");
    Write(folder.filePath(QStringLiteral("other.json")), "nonsense");
    QString error = QStringLiteral("before");
    const VenueCatalogue catalogue = VenueCatalogue::Load(folder.path(), &error);
    QCOMPARE(error, QString());
    QCOMPARE(catalogue.Venues().size(), 2);
    QCOMPARE(catalogue.Venues().at(0).entityId, 1);
    QCOMPARE(catalogue.Venues().at(1).entityId, 2);
    QCOMPARE(catalogue.Users().size(), 1);
}

void tst_VenueCatalogue::ModelFilesAreReadFromTheirFolder()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("models")));
    Write(folder.filePath(QStringLiteral("models/a.tessra")), "model");
    Write(folder.filePath(QStringLiteral("models/empty.tessra")), "");
    Write(
        folder.filePath(QStringLiteral("venues-a.json")),
        R"({"venues":[{"entity_id":1,"model_files":[{"id":"1","file":"a.tessra"},{"id":"2","file":"none.tessra"},
             {"id":"3","file":"empty.tessra"}]}]})");
    const VenueCatalogue catalogue = VenueCatalogue::Load(folder.path());
    const QList<ModelFileRecord>& files = catalogue.Venues().constFirst().modelFiles;
    QCOMPARE(files.at(0).content, QByteArray("model"));
    QVERIFY(files.at(1).content.isNull());
    QVERIFY(files.at(2).content.isEmpty() && !files.at(2).content.isNull());
}

void tst_VenueCatalogue::FolderWithoutVenuesIsAMistake()
{
    const QTemporaryDir folder;
    QString error;
    QVERIFY(VenueCatalogue::Load(folder.path(), &error).Venues().isEmpty());
    QVERIFY(error.contains(folder.path()));
}

void tst_VenueCatalogue::MistakeNamesTheFile()
{
    const QTemporaryDir folder;
    Write(folder.filePath(QStringLiteral("venues-a.json")), R"({"venues":[{"entity_id":1}]})");
    Write(folder.filePath(QStringLiteral("venues-b.json")), R"({"venues":[{}]})");
    QString error;
    QVERIFY(VenueCatalogue::Load(folder.path(), &error).Venues().isEmpty());
    QVERIFY2(error.startsWith(QStringLiteral("venues-b.json: ")), qPrintable(error));
}

void tst_VenueCatalogue::ItemsAreFound()
{
    const VenueCatalogue catalogue = VenueCatalogue::FromJson(
        R"({"users":[{"id":"u"}],"venues":[{"entity_id":1},{"entity_id":2,"house":"modern","pictures":[{"id":"p","view":"isometric"}],
           "model_files":[{"id":"t","file":"f"}]}]})");
    QCOMPARE(catalogue.FindUser(QStringLiteral("u")), &catalogue.Users().at(0));
    QCOMPARE(catalogue.FindUser(QStringLiteral("none")), nullptr);
    const VenueRecord* venue = nullptr;
    QCOMPARE(catalogue.FindPicture(QStringLiteral("p"), &venue), &catalogue.Venues().at(1).pictures.at(0));
    QCOMPARE(venue, &catalogue.Venues().at(1));
    QCOMPARE(catalogue.FindPicture(QStringLiteral("none"), &venue), nullptr);
    QCOMPARE(catalogue.FindModelFile(QStringLiteral("f")), &catalogue.Venues().at(1).modelFiles.at(0));
    QCOMPARE(catalogue.FindModelFile(QStringLiteral("none")), nullptr);
}

void tst_VenueCatalogue::ShippedCatalogueIsSound()
{
    QString error;
    const VenueCatalogue catalogue
        = VenueCatalogue::Load(QStringLiteral(VDB_SOURCE_DIR "/server/catalogue"), &error);
    QCOMPARE(error, QString());
    QVERIFY(catalogue.Venues().size() >= 60);
    QSet<qint64> ids;
    QSet<QString> countries;
    qsizetype withPictures = 0;
    qsizetype withModels = 0;
    for (const VenueRecord& venue : catalogue.Venues()) {
        QVERIFY2(!ids.contains(venue.entityId), qPrintable(QString::number(venue.entityId)));
        ids.insert(venue.entityId);
        countries.insert(venue.countryCode);
        withPictures += venue.pictures.size() >= 2 ? 1 : 0;
        withModels += venue.modelFiles.isEmpty() ? 0 : 1;
        if (!venue.editor.isNull()) {
            QVERIFY2(catalogue.FindUser(venue.editor) != nullptr, qPrintable(venue.editor));
        }
        for (const PictureRecord& picture : venue.pictures) {
            // Another venue with the same picture id would hide it.
            const VenueRecord* found = nullptr;
            QVERIFY(catalogue.FindPicture(picture.id, &found) != nullptr);
            QCOMPARE(found->entityId, venue.entityId);
        }
        for (const ModelFileRecord& file : venue.modelFiles) {
            QVERIFY2(!file.content.isEmpty(), qPrintable(file.file));
        }
    }
    QVERIFY(countries.size() >= 20);
    QVERIFY(withPictures >= 25);
    QVERIFY(withModels >= 15);
}

QTEST_GUILESS_MAIN(tst_VenueCatalogue)
#include "tst_VenueCatalogue.moc"
