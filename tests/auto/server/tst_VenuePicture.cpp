#include <server/api/VenuePicture.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QSet>

#include <algorithm>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

const QSize c_small(480, 320);

VenueRecord Venue(const QString& house = u"opera"_s)
{
    VenueRecord venue;
    venue.house = house;
    venue.title = u"State Opera"_s;
    venue.locality = u"Exampleton"_s;
    return venue;
}

PictureRecord View(const QString& view)
{
    PictureRecord picture;
    picture.view = view;
    return picture;
}

QImage Image(const QString& house, const QString& view, QSize size = c_small)
{
    return VenuePicture(Venue(house), View(view)).Image(size);
}

/// The number of different colours on a coarse grid over \p area.
qsizetype Colours(const QImage& image, const QRect& area)
{
    QSet<QRgb> colours;
    for (int y = area.top(); y <= area.bottom(); y += 4)
        for (int x = area.left(); x <= area.right(); x += 4)
            colours.insert(image.pixel(x, y));
    return colours.size();
}

/// The share of pixels of a coarse grid that differ clearly.
double Difference(const QImage& left, const QImage& right)
{
    int different = 0;
    int all = 0;
    for (int y = 0; y < left.height(); y += 4) {
        for (int x = 0; x < left.width(); x += 4, ++all) {
            const QColor a = left.pixelColor(x, y);
            const QColor b = right.pixelColor(x, y);
            const int distance = std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                                           std::abs(a.blue() - b.blue())});
            different += distance > 24 ? 1 : 0;
        }
    }
    return double(different) / all;
}

QRect CaptionStrip(const QImage& image)
{
    return {0, 0, image.width(), image.height() * 4 / 100};
}

/// The share of the pixels of \p area that are nearly white, as letters are.
double Brightness(const QImage& image, const QRect& area)
{
    int bright = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            bright += qGray(image.pixel(x, y)) > 150 ? 1 : 0;
    return double(bright) / (area.width() * area.height());
}

} // namespace

class tst_VenuePicture : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void RenditionsHaveTheirSizes_data()
    {
        const Rows<QString, QSize> row("rendition", "size");
        row("small", u"small"_s, QSize(480, 320));
        row("medium", u"medium"_s, QSize(1200, 800));
        row("large", u"large"_s, QSize(3000, 2000));
        row("unknown", u"huge"_s, {});
    }
    void RenditionsHaveTheirSizes()
    {
        QFETCH(QString, rendition);
        QTEST(VenuePicture::RenditionSize(rendition), "size");
    }

    void EveryViewOfEveryHouseIsShown_data()
    {
        QTest::addColumn<QString>("house");
        QTest::addColumn<QString>("view");
        for (const QString& house : VenueCatalogue::Houses())
            for (const QString& view : VenueCatalogue::Views())
                QTest::addRow("%s, %s", qPrintable(house), qPrintable(view)) << house << view;
    }
    void EveryViewOfEveryHouseIsShown()
    {
        QFETCH(QString, house);
        QFETCH(QString, view);
        const QImage image = Image(house, view);
        QCOMPARE(image.size(), c_small);
        // There is something in every quarter of the picture, not only a ground.
        for (const QPoint& corner : {QPoint(0, 0), QPoint(240, 0), QPoint(0, 150), QPoint(240, 150)})
            QVERIFY(Colours(image, QRect(corner, QSize(240, 150))) > 60);
        // The caption's light letters on a dark ground: where the text stands, and not behind its end.
        const QImage larger = Image(house, view, QSize(1200, 800));
        QVERIFY(Brightness(larger, QRect(60, 6, 300, 24)) > 0.1);
        QVERIFY(Brightness(larger, QRect(900, 2, 290, 30)) < 0.01);
    }

    void HousesAndViewsDiffer()
    {
        QList<QImage> pictures;
        for (const QString& house : VenueCatalogue::Houses())
            for (const QString& view : VenueCatalogue::Views())
                pictures.append(Image(house, view));
        for (qsizetype i = 0; i < pictures.size(); ++i)
            for (qsizetype j = i + 1; j < pictures.size(); ++j)
                QVERIFY2(Difference(pictures[i], pictures[j]) > 0.02, qPrintable(u"%1 %2"_s.arg(i).arg(j)));
    }

    void SizeOnlyScales()
    {
        for (const QString& view : VenueCatalogue::Views()) {
            const QImage small = Image(u"opera"_s, view);
            const QImage medium = Image(u"opera"_s, view, QSize(1200, 800));
            const QImage shrunk = medium.scaled(c_small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            QVERIFY2(Difference(small, shrunk) < 0.12, qPrintable(view));
        }
    }

    void CaptionTellsWhatIsShown_data()
    {
        const Rows<QString, QString, QString, QString, QString> row("title", "room", "city", "view",
                                                                    "caption");
        const QString title = u"State Opera"_s;
        const QString room = u"Studio"_s;
        const QString city = u"Exampleton"_s;
        const QString left = u"stage_left"_s;
        row("everything", title, room, city, left,
            u"Exampleton, State Opera, Studio — stage left (drawing)"_s);
        row("title", title, {}, {}, left, u"State Opera — stage left (drawing)"_s);
        row("room", {}, room, {}, left, u"Studio — stage left (drawing)"_s);
        row("city", {}, {}, city, left, u"Exampleton — stage left (drawing)"_s);
        row("view", {}, {}, {}, u"from_the_stage_into_the_auditorium"_s,
            u"from the stage into the auditorium (drawing)"_s);
        row("title that names the city", city, {}, city, left, u"Exampleton — stage left (drawing)"_s);
    }
    void CaptionTellsWhatIsShown()
    {
        const auto [title, room, city, view] = Fetch<QString, QString, QString, QString>();
        VenueRecord venue = Venue();
        venue.title = title;
        venue.venueRoomName = room;
        venue.locality = city;
        const VenuePicture picture(venue, View(view));
        QTEST(picture.Caption(), "caption");
        // It is also in the picture.
        venue.title = u"Another"_s;
        const QImage image = picture.Image(c_small);
        const QImage changed = VenuePicture(venue, View(view)).Image(c_small);
        const QRect strip = CaptionStrip(image);
        QVERIFY(image.copy(strip) != changed.copy(strip));
    }

    void AnySizeIsExact_data()
    {
        const Rows<QSize> row("size");
        row("one pixel", QSize(1, 1));
        row("narrow", QSize(3, 300));
        row("flat", QSize(900, 9));
        row("upright", QSize(200, 500));
        row("large rendition", QSize(3000, 2000));
    }
    void AnySizeIsExact()
    {
        QFETCH(QSize, size);
        QCOMPARE(Image(u"modern"_s, u"view_from_the_outside"_s, size).size(), size);
    }

    void ImpossiblePicturesAreNothing_data()
    {
        const Rows<QString, QString, QSize> row("house", "view", "size");
        row("null size", u"opera"_s, u"isometric"_s, {});
        row("no width", u"opera"_s, u"isometric"_s, QSize(0, 100));
        row("negative height", u"opera"_s, u"isometric"_s, QSize(100, -5));
        row("no house", {}, u"isometric"_s, c_small);
        row("unknown view", u"opera"_s, u"from_the_moon"_s, c_small);
        row("way out of the folder", u"../pictures/opera"_s, u"isometric"_s, c_small);
    }
    void ImpossiblePicturesAreNothing()
    {
        const auto [house, view, size] = Fetch<QString, QString, QSize>();
        const VenuePicture picture(Venue(house), View(view));
        QVERIFY(picture.Image(size).isNull());
        QVERIFY(picture.Jpeg(size).isEmpty());
    }

    void AnyTextIsWritten_data()
    {
        const Rows<QString> row("title");
        row("none", {});
        row("endless", QString(100000, QLatin1Char('W')));
        row("other scripts, markup, line breaks", u"サントリーホール\n<b>دار الأوبرا</b>\t&amp;"_s);
    }
    void AnyTextIsWritten()
    {
        QFETCH(QString, title);
        VenueRecord venue = Venue();
        venue.title = title;
        const QImage image = VenuePicture(venue, View(u"isometric"_s)).Image(c_small);
        QCOMPARE(image.size(), c_small);
        QVERIFY(Colours(image, image.rect()) > 200);
        QVERIFY(Brightness(image, QRect(24, 2, 60, 11)) > 0.05);
    }

    void JpegIsReadable()
    {
        const VenuePicture picture(Venue(), View(u"from_the_auditorium"_s));
        const QByteArray bytes = picture.Jpeg(c_small);
        QVERIFY(bytes.startsWith("\xFF\xD8\xFF"));
        const QImage image = QImage::fromData(bytes, "JPEG");
        QCOMPARE(image.size(), c_small);
        QVERIFY(Difference(image, picture.Image(c_small)) < 0.05);
        QCOMPARE(VenuePicture::Make(Venue(), View(u"from_the_auditorium"_s), c_small), bytes);
    }

    void ThreadsMayMakePicturesTogether()
    {
        const QStringList& views = VenueCatalogue::Views();
        QList<QImage> pictures(views.size());
        std::vector<std::thread> threads;
        for (qsizetype index = 0; index < views.size(); ++index) {
            threads.emplace_back(
                [image = &pictures[index], view = views.at(index)] { *image = Image(u"opera"_s, view); });
        }
        for (std::thread& thread : threads)
            thread.join();
        for (qsizetype index = 0; index < views.size(); ++index)
            QCOMPARE(pictures.at(index), Image(u"opera"_s, views.at(index)));
    }
};

QTEST_MAIN(tst_VenuePicture)
#include "tst_VenuePicture.moc"
