#include <server/catalogue/VenueCatalogue.h>
#include <tests/support/Files.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QDir>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

class tst_VenueCatalogue : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EveryMemberIsRead()
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
        QCOMPARE(catalogue.Users().constFirst().name, u"Zoë"_s);
        QCOMPARE(catalogue.Users().constFirst().entityId, 3);
        QCOMPARE(catalogue.Venues().size(), 1);
        const VenueRecord& venue = catalogue.Venues().constFirst();
        QCOMPARE(venue.entityId, 1001);
        QCOMPARE(venue.title, u"T"_s);
        QCOMPARE(venue.venueRoomName, u"R"_s);
        QCOMPARE(venue.house, u"arena"_s);
        QCOMPARE(venue.generalComment, u"G"_s);
        QCOMPARE(venue.addressLine1, u"A"_s);
        QCOMPARE(venue.postalCode, u"P"_s);
        QCOMPARE(venue.locality, u"L"_s);
        QCOMPARE(venue.countryCode, u"CH"_s);
        QCOMPARE(venue.comment, u"C"_s);
        QCOMPARE(venue.loadingDockStreetAddress, u"D"_s);
        QCOMPARE(venue.loadInComments, u"I"_s);
        QCOMPARE(venue.clearance, u"12.5"_s);
        QCOMPARE(venue.riggingSpecialties, u"S"_s);
        QCOMPARE(venue.created, u"2023-05-04"_s);
        QCOMPARE(venue.changed, u"2024-03-01T10:20:30+00:00"_s);
        QCOMPARE(venue.editor, u"user-3"_s);
        QCOMPARE(venue.pictures.size(), 1);
        QCOMPARE(venue.pictures.constFirst().view, u"isometric"_s);
        QCOMPARE(venue.pictures.constFirst().alt, u"Alt"_s);
        QCOMPARE(venue.modelFiles.size(), 1);
        QCOMPARE(venue.modelFiles.constFirst().file, u"m.tessra"_s);
        QCOMPARE(venue.modelFiles.constFirst().fileVersion, u"4.2"_s);
        QVERIFY(venue.modelFiles.constFirst().content.isNull());
    }

    void MissingTextsAreNullAndEmptyOnesEmpty()
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

    void MistakesAreReported_data()
    {
        const Rows<QByteArray, QString> row("json", "part");
        row("no JSON", "{ nonsense", u"offset"_s);
        row("no object", "[]", u"no JSON object"_s);
        row("venue without id", R"({"venues":[{"title":"T"}]})", u"entity_id"_s);
        row("unknown view",
            R"({"venues":[{"entity_id":1,"house":"opera","pictures":[{"id":"p","view":"roof"}]}]})",
            u"roof"_s);
        row("picture without id",
            R"({"venues":[{"entity_id":1,"house":"opera","pictures":[{"view":"isometric"}]}]})", u"no id"_s);
        row("pictures of an unknown house",
            R"({"venues":[{"entity_id":1,"house":"castle","pictures":[{"id":"p","view":"isometric"}]}]})",
            u"castle"_s);
        row("pictures without a house",
            R"({"venues":[{"entity_id":1,"pictures":[{"id":"p","view":"isometric"}]}]})", u"unknown house"_s);
        row("model file outside its folder",
            R"({"venues":[{"entity_id":1,"model_files":[{"id":"t","file":"../users.json"}]}]})",
            u"plain file name"_s);
    }
    void MistakesAreReported()
    {
        const auto [json, part] = Fetch<QByteArray, QString>();
        QString error;
        QVERIFY(VenueCatalogue::FromJson(json, &error).Venues().isEmpty());
        QVERIFY2(error.contains(part), qPrintable(error));
    }

    void FolderIsReadInTheOrderOfNames()
    {
        const QTemporaryDir folder;
        WriteFile(folder.filePath(u"venues-b.json"_s), R"({"venues":[{"entity_id":2}]})");
        WriteFile(folder.filePath(u"venues-a.json"_s), R"({"venues":[{"entity_id":1,"editor":"user-1"}]})");
        WriteFile(folder.filePath(u"users.json"_s), R"({"users":[{"id":"user-1","entity_id":5}]})");
        WriteFile(folder.filePath(u"other.json"_s), "nonsense");
        QString error = u"before"_s;
        const VenueCatalogue catalogue = VenueCatalogue::Load(folder.path(), &error);
        QCOMPARE(error, QString());
        QCOMPARE(catalogue.Venues().size(), 2);
        QCOMPARE(catalogue.Venues().at(0).entityId, 1);
        QCOMPARE(catalogue.Venues().at(1).entityId, 2);
        QCOMPARE(catalogue.Users().size(), 1);
    }

    void ModelFilesAreReadFromTheirFolder()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(u"models"_s));
        WriteFile(folder.filePath(u"models/a.tessra"_s), "model");
        WriteFile(folder.filePath(u"models/empty.tessra"_s));
        WriteFile(
            folder.filePath(u"venues-a.json"_s),
            R"({"venues":[{"entity_id":1,"model_files":[{"id":"1","file":"a.tessra"},{"id":"2","file":"none.tessra"},
             {"id":"3","file":"empty.tessra"}]}]})");
        const VenueCatalogue catalogue = VenueCatalogue::Load(folder.path());
        const QList<ModelFileRecord>& files = catalogue.Venues().constFirst().modelFiles;
        QCOMPARE(files.at(0).content, QByteArray("model"));
        QVERIFY(files.at(1).content.isNull());
        QVERIFY(files.at(2).content.isEmpty() && !files.at(2).content.isNull());
    }

    void FolderWithoutVenuesIsAMistake()
    {
        const QTemporaryDir folder;
        QString error;
        QVERIFY(VenueCatalogue::Load(folder.path(), &error).Venues().isEmpty());
        QVERIFY(error.contains(folder.path()));
    }

    void MistakeNamesTheFile()
    {
        const QTemporaryDir folder;
        WriteFile(folder.filePath(u"venues-a.json"_s), R"({"venues":[{"entity_id":1}]})");
        WriteFile(folder.filePath(u"venues-b.json"_s), R"({"venues":[{}]})");
        QString error;
        QVERIFY(VenueCatalogue::Load(folder.path(), &error).Venues().isEmpty());
        QVERIFY2(error.startsWith(u"venues-b.json: "_s), qPrintable(error));
    }

    void ItemsAreFound()
    {
        const VenueCatalogue catalogue = VenueCatalogue::FromJson(
            R"({"users":[{"id":"u"}],"venues":[{"entity_id":1},{"entity_id":2,"house":"modern","pictures":[{"id":"p","view":"isometric"}],
           "model_files":[{"id":"t","file":"f"}]}]})");
        QCOMPARE(catalogue.FindUser(u"u"_s), &catalogue.Users().at(0));
        QCOMPARE(catalogue.FindUser(u"none"_s), nullptr);
        const VenueRecord* venue = nullptr;
        QCOMPARE(catalogue.FindPicture(u"p"_s, &venue), &catalogue.Venues().at(1).pictures.at(0));
        QCOMPARE(venue, &catalogue.Venues().at(1));
        QCOMPARE(catalogue.FindPicture(u"none"_s, &venue), nullptr);
        QCOMPARE(catalogue.FindModelFile(u"f"_s), &catalogue.Venues().at(1).modelFiles.at(0));
        QCOMPARE(catalogue.FindModelFile(u"none"_s), nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_VenueCatalogue)
#include "tst_VenueCatalogue.moc"
