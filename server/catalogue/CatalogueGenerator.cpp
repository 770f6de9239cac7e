#include <server/catalogue/CatalogueGenerator.h>

#include <server/api/JsonApiDocument.h>

#include <QDateTime>
#include <QRandomGenerator>

#include <array>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

struct Place
{
    const char* city;
    const char* countryCode;
};

constexpr std::array c_places{
    Place{"Zürich", "CH"},    Place{"Wien", "AT"},   Place{"København", "DK"}, Place{"Łódź", "PL"},
    Place{"São Paulo", "BR"}, Place{"Kyoto", "JP"},  Place{"Lyon", "FR"},      Place{"Leeds", "GB"},
    Place{"Montréal", "CA"},  Place{"Athína", "GR"}, Place{"Praha", "CZ"},     Place{"Oslo", "NO"},
};
struct Kind
{
    const char* name;
    const char* house;
};

constexpr std::array c_kinds{
    Kind{"Concert House", "shoebox"},  Kind{"Opera", "opera"}, Kind{"Theatre", "modern"},
    Kind{"Congress Centre", "modern"}, Kind{"Arena", "arena"}, Kind{"Kulturhaus", "vineyard"},
};
constexpr std::array c_rooms{"Main Hall", "Grand Salle", "Studio", "Foyer", "Kammersaal", "Black Box"};
constexpr std::array c_words{"dock",  "leveller", "truck", "access", "street",  "grid",   "steel", "beam",
                             "point", "load",     "stage", "lift",   "manager", "before", "with",  "notice"};

template <typename Choices> QString Pick(QRandomGenerator& random, const Choices& choices)
{
    return QString::fromUtf8(choices[random.bounded(static_cast<quint32>(choices.size()))]);
}

QString Sentence(QRandomGenerator& random, int wordCount)
{
    QStringList words;
    for (int i = 0; i < wordCount; ++i)
        words.append(Pick(random, c_words));
    words.first().replace(0, 1, words.constFirst().at(0).toUpper());
    return words.join(QLatin1Char(' ')) + QLatin1Char('.');
}

} // namespace

VenueCatalogue CatalogueGenerator::Catalogue() const
{
    VenueCatalogue catalogue;
    for (qsizetype i = 0; i < m_settings.venueCount; ++i) {
        if (m_settings.venuesPerUser > 0 && i % m_settings.venuesPerUser == 0)
            catalogue.AddUser(Editor(i));
        catalogue.AddVenue(Venue(i));
    }
    return catalogue;
}

VenueRecord CatalogueGenerator::Venue(qsizetype index) const
{
    const qint64 id = index + 1;
    QRandomGenerator random({m_settings.seed, static_cast<quint32>(id)});
    const Place& place = c_places[random.bounded(static_cast<quint32>(c_places.size()))];
    // Whole seconds from 2015 on, at most ten years.
    const QDateTime created = QDateTime::fromSecsSinceEpoch(1420070400 + random.bounded(315360000)).toUTC();

    VenueRecord venue;
    venue.entityId = id;
    venue.locality = QString::fromUtf8(place.city);
    venue.countryCode = QString::fromLatin1(place.countryCode);
    const Kind& kind = c_kinds[random.bounded(static_cast<quint32>(c_kinds.size()))];
    venue.house = QString::fromLatin1(kind.house);
    venue.title = u"%1 %2 %3"_s.arg(QLatin1String(kind.name), venue.locality).arg(id);
    venue.venueRoomName = Pick(random, c_rooms);
    venue.generalComment = Sentence(random, 8);
    venue.addressLine1 = u"%1 Street %2"_s.arg(Sentence(random, 1).chopped(1)).arg(id % 200 + 1);
    venue.postalCode = QString::number(10000 + random.bounded(80000));
    venue.comment = Sentence(random, 6);
    venue.loadingDockStreetAddress = u"Dock %1, %2"_s.arg(id % 9 + 1).arg(venue.addressLine1);
    venue.loadInComments = Sentence(random, 10);
    venue.clearance = QString::number(4.0 + random.bounded(160) / 10.0, 'f', 1);
    venue.riggingSpecialties = Sentence(random, 8);
    venue.created = created.date().toString(Qt::ISODate);
    venue.changed = created.addSecs(random.bounded(31536000)).toString(u"yyyy-MM-ddThh:mm:ss+00:00"_s);
    if (m_settings.venuesPerUser > 0)
        venue.editor = Editor(index).id;
    for (int i = 0; i < m_settings.picturesPerVenue; ++i) {
        const QString& view = VenueCatalogue::Views().at(i % VenueCatalogue::Views().size());
        venue.pictures.append({u"pic-%1-%2"_s.arg(id).arg(i + 1), view, u"Picture %1"_s.arg(i + 1),
                               u"View %1 of %2"_s.arg(i + 1).arg(venue.title),
                               venue.created + u"T08:00:00+00:00"_s});
    }
    for (int i = 0; i < m_settings.modelFilesPerVenue; ++i) {
        const QString file = u"%1-hall-%2.tessra"_s.arg(id).arg(i + 1);
        QByteArray content = file.toLatin1() + '\n';
        content.append(m_settings.modelFileSize, '#');
        content.truncate(m_settings.modelFileSize);
        venue.modelFiles.append({u"tessra-%1-%2"_s.arg(id).arg(i + 1), u"Hall %1.tessra"_s.arg(i + 1), file,
                                 venue.created + u"T09:00:00+00:00"_s, u"4.2"_s, content});
    }
    return venue;
}

UserRecord CatalogueGenerator::Editor(qsizetype index) const
{
    const qint64 id = index / qMax(qsizetype(1), m_settings.venuesPerUser) + 1;
    return {u"user-%1"_s.arg(id), id, u"Editor %1"_s.arg(id)};
}

QByteArray CatalogueGenerator::Body(const QString& host) const
{
    JsonApiDocument document(host, "/api/venue?include=editor", {u"editor"_s});
    for (qsizetype i = 0; i < m_settings.venueCount; ++i) {
        const UserRecord editor = Editor(i);
        document.AddVenue(Venue(i), m_settings.venuesPerUser > 0 ? &editor : nullptr);
    }
    return document.Finish();
}

} // namespace korvel::Demo
