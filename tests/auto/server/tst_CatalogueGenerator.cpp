#include <server/catalogue/CatalogueGenerator.h>
#include <tests/support/Fixture.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QDate>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

class tst_CatalogueGenerator : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void SizeIsAsAsked_data()
    {
        const Rows<qsizetype, qsizetype, qsizetype> row("venues", "venuesPerUser", "users");
        row("none", 0, 10, 0);
        row("one", 1, 10, 1);
        row("ten venues a user", 25, 10, 3);
        row("one user a venue", 25, 1, 25);
        row("no users", 25, 0, 0);
    }
    void SizeIsAsAsked()
    {
        const auto [venues, venuesPerUser, users] = Fetch<qsizetype, qsizetype, qsizetype>();
        const VenueCatalogue catalogue
            = CatalogueGenerator({.venueCount = venues, .venuesPerUser = venuesPerUser}).Catalogue();
        QCOMPARE(catalogue.Venues().size(), venues);
        QCOMPARE(catalogue.Users().size(), users);
        for (const VenueRecord& venue : catalogue.Venues())
            QCOMPARE(catalogue.FindUser(venue.editor) != nullptr, users > 0);
    }

    void SameSeedGivesTheSameVenues()
    {
        const CatalogueGenerator first({.venueCount = 5, .seed = 7});
        const CatalogueGenerator second({.venueCount = 5000, .seed = 7});
        QCOMPARE(first.Venue(4).title, second.Catalogue().Venues().at(4).title);
        QCOMPARE(first.Venue(4).changed, second.Catalogue().Venues().at(4).changed);
    }

    void OtherSeedGivesOtherVenues()
    {
        QVERIFY(CatalogueGenerator({.seed = 1}).Venue(0).changed
                != CatalogueGenerator({.seed = 2}).Venue(0).changed);
    }

    void EveryVenueIsComplete()
    {
        const VenueCatalogue catalogue = CatalogueGenerator({.venueCount = 300}).Catalogue();
        static const QRegularExpression c_changed(u"^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\+00:00$"_s);
        QSet<qint64> ids;
        for (const VenueRecord& venue : catalogue.Venues()) {
            ids.insert(venue.entityId);
            for (const VenueText& text : VenueCatalogue::Texts())
                QVERIFY2(!(venue.*text.member).isEmpty(), text.path);
            QVERIFY(QDate::fromString(venue.created, u"yyyy-MM-dd"_s).isValid());
            QVERIFY(c_changed.match(venue.changed).hasMatch());
            QCOMPARE(venue.countryCode.size(), 2);
        }
        QCOMPARE(ids.size(), 300);
    }

    void PicturesAndFilesHaveDistinctNames()
    {
        const VenueCatalogue catalogue
            = CatalogueGenerator(
                  {.venueCount = 10, .picturesPerVenue = 9, .modelFilesPerVenue = 2, .modelFileSize = 5})
                  .Catalogue();
        QSet<QString> pictures;
        QSet<QString> files;
        for (const VenueRecord& venue : catalogue.Venues()) {
            for (const PictureRecord& picture : venue.pictures) {
                pictures.insert(picture.id);
                QVERIFY(VenueCatalogue::Views().contains(picture.view));
            }
            for (const ModelFileRecord& file : venue.modelFiles) {
                files.insert(file.file);
                QCOMPARE(file.content.size(), 5);
            }
        }
        QCOMPARE(pictures.size(), 90);
        QCOMPARE(files.size(), 20);
    }

    void BodyHoldsEveryVenueAndEditor_data()
    {
        const Rows<qsizetype, qsizetype> row("venuesPerUser", "included");
        row("ten venues a user", 10, 5);
        row("one user a venue", 1, 50);
        row("no users", 0, 0);
    }
    void BodyHoldsEveryVenueAndEditor()
    {
        const auto [venuesPerUser, included] = Fetch<qsizetype, qsizetype>();
        const CatalogueGenerator generator({.venueCount = 50, .venuesPerUser = venuesPerUser});
        const QJsonObject document = JsonObject(generator.Body(u"venues.test.example"_s));
        QCOMPARE(At(document, u"data"_s).toArray().size(), 50);
        QCOMPARE(At(document, u"data.49.attributes.title"_s).toString(), generator.Venue(49).title);
        QCOMPARE(At(document, u"included"_s).toArray().size(), included);
    }

    void VenueTakesAboutAKilobyteAndAQuarter()
    {
        const qsizetype size = CatalogueGenerator({.venueCount = 1000}).Body(u"h.example"_s).size() / 1000;
        QVERIFY2(size >= 1000 && size <= 1700, qPrintable(QString::number(size)));
    }
};

QTEST_GUILESS_MAIN(tst_CatalogueGenerator)
#include "tst_CatalogueGenerator.moc"
