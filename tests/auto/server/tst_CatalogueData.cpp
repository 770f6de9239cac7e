#include <data/CountryCodeTranslator.h>
#include <demo/VenueModelFile.h>
#include <server/catalogue/VenueCatalogue.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QDateTime>
#include <QDir>
#include <QHash>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

QString Folder()
{
    return QStringLiteral(VDB_SOURCE_DIR "/server/catalogue");
}

QJsonObject ReadJson(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return {};
    }
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &problem);
    *error = problem.error == QJsonParseError::NoError ? QString() : problem.errorString();
    return document.object();
}

QString Text(const QJsonObject& object, const char* member)
{
    return object.value(QLatin1String(member)).toString();
}

/// Writing systems beyond Latin, one letter of each.
bool HoldsScript(const QString& text, QChar::Script script)
{
    for (const QChar character : text)
        if (character.script() == script)
            return true;
    return false;
}

} // namespace

/// Checks the data files themselves, as a server or a test would otherwise stumble over them late.
class tst_CatalogueData : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QDir folder(Folder());
        QString error;
        for (const QString& name : folder.entryList({u"venues-*.json"_s})) {
            const QJsonObject file = ReadJson(folder.filePath(name), &error);
            QVERIFY2(error.isEmpty(), qPrintable(name + error));
            QCOMPARE(file.keys(), QStringList({u"venues"_s}));
            for (const QJsonValue venue : file.value("venues"_L1).toArray())
                m_venues.append(venue.toObject());
        }
        const QJsonObject users = ReadJson(folder.filePath(u"users.json"_s), &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        for (const QJsonValue user : users.value("users"_L1).toArray())
            m_users.append(user.toObject());
        // The server takes the folder as it is.
        QCOMPARE(VenueCatalogue::Load(Folder(), &error).Venues().size(), m_venues.size());
        QCOMPARE(error, QString());
    }

    void ThereAreEnoughHallsAndCountries()
    {
        QSet<QString> countries;
        int withPictures = 0;
        int withModels = 0;
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            countries.insert(Text(venue.value("address"_L1).toObject(), "country_code"));
            withPictures += venue.contains("pictures"_L1) ? 1 : 0;
            withModels += venue.contains("model_files"_L1) ? 1 : 0;
        }
        QVERIFY(m_venues.size() >= 66);
        QVERIFY(countries.size() >= 24);
        QVERIFY(withPictures >= 27);
        QVERIFY(withPictures < m_venues.size());
        QVERIFY(withModels >= 16);
        QVERIFY(m_users.size() >= m_venues.size() / 12);
    }

    void IdentifiersAreUnique()
    {
        QSet<qint64> venueIds;
        QSet<QString> ids;
        const auto isNew = [&ids](const QString& id) {
            const auto before = ids.size();
            ids.insert(id);
            return !id.isEmpty() && ids.size() == before + 1;
        };
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            const qint64 id = venue.value("entity_id"_L1).toInteger();
            QVERIFY(id > 0 && !venueIds.contains(id));
            venueIds.insert(id);
            for (const char* list : {"pictures", "model_files"})
                for (const QJsonValue item : venue.value(QLatin1String(list)).toArray())
                    QVERIFY(isNew(Text(item.toObject(), "id")));
        }
        for (const QJsonObject& user : std::as_const(m_users))
            QVERIFY(isNew(Text(user, "id")));
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
                    || (member->isString() && member->toString().trimmed().isEmpty()))
                    return false;
            return true;
        };
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            const QString title = Text(venue, "title");
            QVERIFY(!title.isEmpty());
            QVERIFY2(check(u"venue"_s, venue), qPrintable(title));
            const QJsonObject address = venue.value("address"_L1).toObject();
            QVERIFY2(check(u"address"_s, address), qPrintable(title));
            QVERIFY2(address.contains("locality"_L1), qPrintable(title));
            QCOMPARE(Text(address, "country_code").size(), 2);
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
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            const QDate created = QDate::fromString(Text(venue, "created"), u"yyyy-MM-dd"_s);
            QVERIFY2(created >= first && created <= last, qPrintable(Text(venue, "title")));
            const QString text = Text(venue, "changed");
            const QDateTime changed = QDateTime::fromString(text, moment);
            if (changed.isValid())
                QVERIFY2(changed.date() >= created && changed.date() <= last, qPrintable(text));
            else
                otherForms += text.endsWith(QLatin1Char('Z')) ? 1 : 100;
            for (const char* list : {"pictures", "model_files"})
                for (const QJsonValue item : venue.value(QLatin1String(list)).toArray())
                    QVERIFY(QDateTime::fromString(Text(item.toObject(), "created"), moment).isValid());
        }
        QVERIFY(otherForms >= 1 && otherForms <= 2);
    }

    void EditorsAreUsers()
    {
        QSet<QString> ids;
        for (const QJsonObject& user : std::as_const(m_users)) {
            QVERIFY(user.value("entity_id"_L1).toInteger() > 0);
            QVERIFY(!Text(user, "name").isEmpty());
            ids.insert(Text(user, "id"));
        }
        int withoutEditor = 0;
        for (const QJsonObject& venue : std::as_const(m_venues))
            if (venue.contains("editor"_L1))
                QVERIFY2(ids.contains(Text(venue, "editor")), qPrintable(Text(venue, "title")));
            else
                ++withoutEditor;
        QCOMPARE(withoutEditor, 1);
    }

    void ExactlyOneCountryIsUnknown()
    {
        korvel::Data::VenueDatabase::CountryCodeTranslator translator;
        QStringList unknown;
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            const QString code = Text(venue.value("address"_L1).toObject(), "country_code");
            if (translator.GetCountry(code) == u"unknown"_s)
                unknown.append(code);
        }
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
        bool found = false;
        for (const QJsonObject& venue : std::as_const(m_venues))
            for (const char* member : {"title", "venue_room_name", "general_comment", "comment"})
                found = found || HoldsScript(Text(venue, member), QChar::Script(script));
        QVERIFY(found);
    }

    void RoomsShareTheTitleOfTheirComplex()
    {
        QHash<QString, QSet<QString>> roomsByTitle;
        qsizetype entries = 0;
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            const QString house = Text(venue, "title") + QLatin1Char('/')
                + Text(venue.value("address"_L1).toObject(), "locality");
            roomsByTitle[house].insert(Text(venue, "venue_room_name"));
            ++entries;
        }
        qsizetype rooms = 0;
        qsizetype complexes = 0;
        for (const QSet<QString>& names : std::as_const(roomsByTitle)) {
            rooms += names.size();
            complexes += names.size() > 1 ? 1 : 0;
            QVERIFY(names.size() == 1 || !names.contains(QString()));
        }
        QCOMPARE(rooms, entries);
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
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            if (!venue.contains("pictures"_L1))
                continue;
            const QJsonArray pictures = venue.value("pictures"_L1).toArray();
            QVERIFY(pictures.size() >= 2 && pictures.size() <= 7);
            QSet<QString> here;
            for (const QJsonValue picture : pictures) {
                here.insert(Text(picture.toObject(), "view"));
                QVERIFY(!Text(picture.toObject(), "alt").isEmpty());
            }
            QCOMPARE(here.size(), pictures.size());
            used += here;
        }
        QCOMPARE(used, views);
    }

    void EveryHallNamesItsKindOfHouse()
    {
        QSet<QString> shown;
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            const QString house = Text(venue, "house");
            QVERIFY2(VenueCatalogue::Houses().contains(house), qPrintable(Text(venue, "title")));
            if (venue.contains("pictures"_L1))
                shown.insert(house);
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
        const QDir folder(Folder() + u"/pictures"_s);
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
        const QDir folder(Folder() + u"/models"_s);
        QStringList listed;
        QStringList broken;
        bool several = false;
        for (const QJsonObject& venue : std::as_const(m_venues)) {
            const QJsonArray files = venue.value("model_files"_L1).toArray();
            several = several || files.size() == 3;
            for (const QJsonValue value : files) {
                const QString file = Text(value.toObject(), "file");
                listed.append(file);
                QVERIFY(Text(value.toObject(), "name").endsWith(u".tessra"_s));
                QString error;
                const std::optional<VenueModel> model = VenueModelFile::Read(folder.filePath(file), &error);
                if (!model) {
                    broken.append(file);
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
        QCOMPARE(broken, QStringList({u"5006-draft.tessra"_s}));
        QVERIFY(several);
    }

    void BrokenModelFileSaysWhere()
    {
        QString error;
        QVERIFY(!VenueModelFile::Read(Folder() + u"/models/5006-draft.tessra"_s, &error));
        QCOMPARE(error, u"Line 7: \"-2x\" is not a number."_s);
    }

    void SomeMembersAreMissingOnPurpose()
    {
        for (const char* member :
             {"venue_room_name", "comment", "loading_dock_street_address", "load_in_comments",
              "clearance_of_house_grid_rigging_beams_above_venue_floor", "rigging_specialties"}) {
            const auto without
                = std::count_if(m_venues.cbegin(), m_venues.cend(), [member](const QJsonObject& venue) {
                      return !venue.contains(QLatin1String(member));
                  });
            QVERIFY2(without > 0, member);
            QVERIFY2(without < m_venues.size(), member);
        }
    }

private:
    QList<QJsonObject> m_venues;
    QList<QJsonObject> m_users;
};

QTEST_MAIN(tst_CatalogueData)
#include "tst_CatalogueData.moc"
