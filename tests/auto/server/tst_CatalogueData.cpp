#include <data/CountryCodeTranslator.h>
#include <demo/VenueModelFile.h>
#include <server/catalogue/VenueCatalogue.h>
#include <tests/support/Files.h>
#include <tests/support/Fixture.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QDateTime>
#include <QDir>
#include <QHash>
#include <QImage>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

const QString c_folder = QStringLiteral(VDB_SOURCE_DIR "/server/catalogue");

} // namespace

/// Checks the data files themselves, as a server or a test would otherwise stumble over them late.
class tst_CatalogueData : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString& name : QDir(c_folder).entryList({u"venues-*.json"_s})) {
            const QJsonObject file = JsonObject(ContentOf(c_folder + QLatin1Char('/') + name));
            QCOMPARE(file.keys(), QStringList({u"venues"_s}));
            for (const QJsonValue venue : file.value("venues"_L1).toArray())
                m_objects.append(venue.toObject());
        }
        // The server takes the folder as it is.
        QString error;
        m_catalogue = VenueCatalogue::Load(c_folder, &error);
        QCOMPARE(error, QString());
        QCOMPARE(Venues().size(), m_objects.size());
    }

    void ThereAreEnoughHallsAndCountries()
    {
        QSet<QString> countries;
        int withPictures = 0;
        int withModels = 0;
        for (const VenueRecord& venue : Venues()) {
            countries.insert(venue.countryCode);
            withPictures += venue.pictures.isEmpty() ? 0 : 1;
            withModels += venue.modelFiles.isEmpty() ? 0 : 1;
        }
        QVERIFY(Venues().size() >= 66);
        QVERIFY(countries.size() >= 24);
        QVERIFY(withPictures >= 27);
        QVERIFY(withPictures < Venues().size());
        QVERIFY(withModels >= 16);
        QVERIFY(m_catalogue.Users().size() >= Venues().size() / 12);
    }

    void IdentifiersAreUnique()
    {
        QStringList ids;
        for (const VenueRecord& venue : Venues()) {
            QVERIFY(venue.entityId > 0);
            ids.append(QString::number(venue.entityId));
            for (const PictureRecord& picture : venue.pictures)
                ids.append(picture.id);
            for (const ModelFileRecord& file : venue.modelFiles)
                ids.append(file.id);
        }
        for (const UserRecord& user : m_catalogue.Users())
            ids.append(user.id);
        QVERIFY(!ids.contains(QString()));
        QCOMPARE(ids.removeDuplicates(), 0);
    }

    void OnlyKnownMembersAreUsedAndNoneIsEmpty()
    {
        static const QHash<QString, QString> c_known{
            {u"venue"_s,
             u"entity_id title venue_room_name house general_comment address comment "
             "loading_dock_street_address "
             "load_in_comments clearance_of_house_grid_rigging_beams_above_venue_floor rigging_specialties "
             "created changed editor pictures model_files"_s},
            {u"address"_s, u"address_line1 postal_code locality country_code"_s},
            {u"pictures"_s, u"id view name alt created"_s},
            {u"model_files"_s, u"id name file created file_version"_s}};
        const auto check = [](const QString& kind, const QJsonObject& object) {
            const QStringList known = c_known.value(kind).split(QLatin1Char(' '));
            for (auto member = object.begin(); member != object.end(); ++member)
                if (!known.contains(member.key())
                    || (member->isString() && member->toString().trimmed().isEmpty())
                    || (member->isArray() && member->toArray().isEmpty()))
                    return false;
            return true;
        };
        for (const QJsonObject& venue : std::as_const(m_objects)) {
            const QString title = venue.value("title"_L1).toString();
            QVERIFY(!title.isEmpty());
            QVERIFY2(check(u"venue"_s, venue), qPrintable(title));
            const QJsonObject address = venue.value("address"_L1).toObject();
            QVERIFY2(check(u"address"_s, address), qPrintable(title));
            QVERIFY2(address.contains("locality"_L1), qPrintable(title));
            QCOMPARE(address.value("country_code"_L1).toString().size(), 2);
            for (const QString& list : {u"pictures"_s, u"model_files"_s})
                for (const QJsonValue item : venue.value(list).toArray())
                    QVERIFY2(check(list, item.toObject()), qPrintable(title));
        }
    }

    void DatesHaveTheFormOfTheServer()
    {
        const QString moment = u"yyyy-MM-ddThh:mm:ss+00:00"_s;
        const QDate first(2021, 1, 1);
        const QDate last(2026, 12, 31);
        int otherForms = 0;
        const auto isMoment
            = [&moment](const auto& item) { return QDateTime::fromString(item.created, moment).isValid(); };
        for (const VenueRecord& venue : Venues()) {
            const QDate created = QDate::fromString(venue.created, u"yyyy-MM-dd"_s);
            QVERIFY2(created >= first && created <= last, qPrintable(venue.title));
            const QDateTime changed = QDateTime::fromString(venue.changed, moment);
            if (changed.isValid())
                QVERIFY2(changed.date() >= created && changed.date() <= last, qPrintable(venue.changed));
            else
                otherForms += venue.changed.endsWith(QLatin1Char('Z')) ? 1 : 100;
            QVERIFY(std::all_of(venue.pictures.cbegin(), venue.pictures.cend(), isMoment));
            QVERIFY(std::all_of(venue.modelFiles.cbegin(), venue.modelFiles.cend(), isMoment));
        }
        QVERIFY(otherForms >= 1 && otherForms <= 2);
    }

    void EditorsAreUsers()
    {
        for (const UserRecord& user : m_catalogue.Users()) {
            QVERIFY(user.entityId > 0);
            QVERIFY(!user.name.isEmpty());
        }
        int withoutEditor = 0;
        for (const VenueRecord& venue : Venues())
            if (venue.editor.isNull())
                ++withoutEditor;
            else
                QVERIFY2(m_catalogue.FindUser(venue.editor), qPrintable(venue.title));
        QCOMPARE(withoutEditor, 1);
    }

    void ExactlyOneCountryIsUnknown()
    {
        const korvel::Data::VenueDatabase::CountryCodeTranslator translator;
        QStringList unknown;
        for (const VenueRecord& venue : Venues())
            if (translator.GetCountry(venue.countryCode) == u"unknown"_s)
                unknown.append(venue.countryCode);
        QCOMPARE(unknown, QStringList({u"UA"_s}));
    }

    void EveryScriptIsThere_data()
    {
        const Rows<int> row("script");
        row("Greek", QChar::Script_Greek);
        row("Cyrillic", QChar::Script_Cyrillic);
        row("Arabic", QChar::Script_Arabic);
        row("Korean", QChar::Script_Hangul);
        row("Japanese", QChar::Script_Katakana);
        row("Chinese", QChar::Script_Han);
    }
    void EveryScriptIsThere()
    {
        QFETCH(int, script);
        const auto isOfScript = [script](QChar character) { return character.script() == script; };
        bool found = false;
        for (const VenueRecord& venue : Venues())
            for (const QString& text :
                 {venue.title, venue.venueRoomName, venue.generalComment, venue.comment})
                found = found || std::any_of(text.cbegin(), text.cend(), isOfScript);
        QVERIFY(found);
    }

    void RoomsShareTheTitleOfTheirComplex()
    {
        QHash<QString, QSet<QString>> roomsByTitle;
        for (const VenueRecord& venue : Venues())
            roomsByTitle[venue.title + QLatin1Char('/') + venue.locality].insert(venue.venueRoomName);
        qsizetype rooms = 0;
        qsizetype complexes = 0;
        for (const QSet<QString>& names : std::as_const(roomsByTitle)) {
            rooms += names.size();
            complexes += names.size() > 1 ? 1 : 0;
            QVERIFY(names.size() == 1 || !names.contains(QString()));
        }
        QCOMPARE(rooms, Venues().size());
        QVERIFY(complexes >= 5);
    }

    void PicturesShowTheSevenViews()
    {
        const QSet<QString> views{u"from_the_auditorium"_s,
                                  u"from_the_stage_into_the_auditorium"_s,
                                  u"isometric"_s,
                                  u"stage_left"_s,
                                  u"stage_right"_s,
                                  u"view_from_the_inside"_s,
                                  u"view_from_the_outside"_s};
        QSet<QString> used;
        for (const VenueRecord& venue : Venues()) {
            if (venue.pictures.isEmpty())
                continue;
            QVERIFY(venue.pictures.size() >= 2 && venue.pictures.size() <= 7);
            QSet<QString> here;
            for (const PictureRecord& picture : venue.pictures) {
                here.insert(picture.view);
                QVERIFY(!picture.alt.isEmpty());
            }
            QCOMPARE(here.size(), venue.pictures.size());
            used += here;
        }
        QCOMPARE(used, views);
    }

    void EveryHallNamesItsKindOfHouse()
    {
        QSet<QString> shown;
        for (const VenueRecord& venue : Venues()) {
            QVERIFY2(VenueCatalogue::Houses().contains(venue.house), qPrintable(venue.title));
            if (!venue.pictures.isEmpty())
                shown.insert(venue.house);
        }
        QCOMPARE(shown.size(), VenueCatalogue::Houses().size());
    }

    void StoredPicturesAreThoseOfTheHousesAndFewBytes()
    {
        QStringList expected;
        for (const QString& house : VenueCatalogue::Houses())
            for (const QString& view : VenueCatalogue::Views())
                expected.append(house + QLatin1Char('-') + view + u".jpg"_s);
        expected.sort();
        const QDir folder(c_folder + u"/pictures"_s);
        const QFileInfoList files = folder.entryInfoList(QDir::Files, QDir::Name);
        QStringList names;
        qint64 bytes = 0;
        for (const QFileInfo& file : files) {
            names.append(file.fileName());
            bytes += file.size();
            const QImage image(file.filePath());
            QVERIFY2(image.size() == QSize(1500, 1000), qPrintable(file.fileName()));
        }
        QCOMPARE(names, expected);
        QVERIFY2(bytes <= 4'000'000, qPrintable(QString::number(bytes)));
    }

    void ModelFilesAreThereAndOnlyOneIsBroken()
    {
        const QDir folder(c_folder + u"/models"_s);
        QStringList listed;
        QStringList broken;
        bool several = false;
        for (const VenueRecord& venue : Venues()) {
            several = several || venue.modelFiles.size() == 3;
            for (const ModelFileRecord& record : venue.modelFiles) {
                const QString& file = record.file;
                listed.append(file);
                QVERIFY(record.name.endsWith(u".tessra"_s));
                QString error;
                const std::optional<VenueModel> model = VenueModelFile::Read(folder.filePath(file), &error);
                if (!model) {
                    broken.append(file + u": "_s + error);
                    continue;
                }
                QVERIFY2(!model->riggingPoints.isEmpty(), qPrintable(file));
                const QRectF hall = model->outline.boundingRect();
                QVERIFY2(hall.width() > 10 && hall.width() < 150, qPrintable(file));
                QVERIFY2(hall.contains(model->stage.boundingRect()), qPrintable(file));
                for (const RiggingPoint& point : model->riggingPoints)
                    QVERIFY2(model->outline.containsPoint(point.position, Qt::OddEvenFill), qPrintable(file));
            }
        }
        listed.sort();
        QCOMPARE(listed, folder.entryList({u"*"_s}, QDir::Files, QDir::Name));
        QCOMPARE(broken, QStringList({u"5006-draft.tessra: Line 7: \"-2x\" is not a number."_s}));
        QVERIFY(several);
    }

    void SomeMembersAreMissingOnPurpose()
    {
        for (const char* member :
             {"venue_room_name", "comment", "loading_dock_street_address", "load_in_comments",
              "clearance_of_house_grid_rigging_beams_above_venue_floor", "rigging_specialties"}) {
            const auto without
                = std::count_if(m_objects.cbegin(), m_objects.cend(), [member](const QJsonObject& venue) {
                      return !venue.contains(QLatin1String(member));
                  });
            QVERIFY2(without > 0, member);
            QVERIFY2(without < m_objects.size(), member);
        }
    }

private:
    const QList<VenueRecord>& Venues() const
    {
        return m_catalogue.Venues();
    }

    VenueCatalogue m_catalogue;
    QList<QJsonObject> m_objects; ///< its venues as the files spell them
};

QTEST_MAIN(tst_CatalogueData)
#include "tst_CatalogueData.moc"
