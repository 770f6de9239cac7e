#include <server/api/VenuePictureArtist.h>
#include <tests/support/MessageGuard.h>

#include <QSet>
#include <QTest>

#include <algorithm>
#include <thread>

using namespace korvel::Demo;

namespace {

const QSize c_small(480, 320);

const char* const c_views[] = {"from_the_auditorium",
                               "from_the_stage_into_the_auditorium",
                               "isometric",
                               "stage_left",
                               "stage_right",
                               "view_from_the_inside",
                               "view_from_the_outside"};
/// Names that lead to each kind of house.
const char* const c_houses[]
    = {"State Opera", "Concert House", "Philharmonie Berlin", "Sports Arena", "Town Centre"};

PictureSubject Subject(const char* view, const char* title = "State Opera", qint64 id = 7)
{
    PictureSubject subject;
    subject.venueId = id;
    subject.view = QString::fromLatin1(view);
    subject.title = QString::fromLatin1(title);
    subject.city = QStringLiteral("Exampleton");
    return subject;
}

/// The number of different colours on a coarse grid over \p area.
qsizetype Colours(const QImage& image, const QRect& area)
{
    QSet<QRgb> colours;
    for (int y = area.top(); y <= area.bottom(); y += 4) {
        for (int x = area.left(); x <= area.right(); x += 4)
            colours.insert(image.pixel(x, y));
    }
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

} // namespace

class tst_VenuePictureArtist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void EveryViewOfEveryHouseIsDrawn_data();
    void EveryViewOfEveryHouseIsDrawn();
    void SameSubjectGivesTheSamePicture();
    void VenuesAndViewsDiffer();
    void SizeOnlyScales();
    void CaptionTellsWhatIsShown_data();
    void CaptionTellsWhatIsShown();
    void AnySizeIsExact_data();
    void AnySizeIsExact();
    void ImpossibleSizesGiveNothing_data();
    void ImpossibleSizesGiveNothing();
    void AnyTextAndIdIsDrawn_data();
    void AnyTextAndIdIsDrawn();
    void JpegIsReadable();
    void LowerQualityIsSmaller();
    void ThreadsMayDrawTogether();
};

void tst_VenuePictureArtist::init()
{
    korvel::Test::FailOnUnexpectedWarnings();
}

void tst_VenuePictureArtist::cleanup()
{
    QVERIFY(korvel::Test::NoWindowIsLeft());
}

void tst_VenuePictureArtist::EveryViewOfEveryHouseIsDrawn_data()
{
    QTest::addColumn<QByteArray>("view");
    QTest::addColumn<QByteArray>("house");
    for (const char* view : c_views) {
        for (const char* house : c_houses)
            QTest::addRow("%s, %s", house, view) << QByteArray(view) << QByteArray(house);
    }
}

void tst_VenuePictureArtist::EveryViewOfEveryHouseIsDrawn()
{
    QFETCH(QByteArray, view);
    QFETCH(QByteArray, house);
    const QImage image = VenuePictureArtist::Draw(Subject(view.constData(), house.constData()), c_small);
    QCOMPARE(image.size(), c_small);
    // Something is drawn in every quarter of the picture, not only a ground.
    for (const QPoint& corner : {QPoint(0, 0), QPoint(240, 0), QPoint(0, 150), QPoint(240, 150)})
        QVERIFY(Colours(image, QRect(corner, QSize(240, 150))) > 60);
}

void tst_VenuePictureArtist::SameSubjectGivesTheSamePicture()
{
    for (const char* view : c_views)
        QCOMPARE(VenuePictureArtist::Draw(Subject(view), c_small),
                 VenuePictureArtist::Draw(Subject(view), c_small));
}

void tst_VenuePictureArtist::VenuesAndViewsDiffer()
{
    QList<QImage> pictures;
    for (const char* view : c_views) {
        for (const qint64 id : {7, 8})
            pictures.append(VenuePictureArtist::Draw(Subject(view, "State Opera", id), c_small));
    }
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        for (qsizetype j = i + 1; j < pictures.size(); ++j)
            QVERIFY2(Difference(pictures[i], pictures[j]) > 0.02,
                     qPrintable(QStringLiteral("%1 %2").arg(i).arg(j)));
    }
}

void tst_VenuePictureArtist::SizeOnlyScales()
{
    for (const char* view : c_views) {
        const QImage small = VenuePictureArtist::Draw(Subject(view), c_small);
        const QImage medium = VenuePictureArtist::Draw(Subject(view), QSize(1200, 800));
        const QImage shrunk = medium.scaled(c_small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QVERIFY2(Difference(small, shrunk) < 0.12, view);
    }
}

void tst_VenuePictureArtist::CaptionTellsWhatIsShown_data()
{
    QTest::addColumn<PictureSubject>("other");
    const PictureSubject subject = Subject("stage_left");
    PictureSubject other = subject;
    other.title = QStringLiteral("Grand Opera");
    QTest::newRow("title") << other;
    other = subject;
    other.room = QStringLiteral("Studio");
    QTest::newRow("room") << other;
    other = subject;
    other.city = QStringLiteral("Elsewhere");
    QTest::newRow("city") << other;
    other = subject;
    other.view = QStringLiteral("stage_right");
    QTest::newRow("view") << other;
}

void tst_VenuePictureArtist::CaptionTellsWhatIsShown()
{
    QFETCH(PictureSubject, other);
    const QImage image = VenuePictureArtist::Draw(Subject("stage_left"), c_small);
    const QImage changed = VenuePictureArtist::Draw(other, c_small);
    const QRect strip = CaptionStrip(image);
    QVERIFY(image.copy(strip) != changed.copy(strip));
}

void tst_VenuePictureArtist::AnySizeIsExact_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("narrow") << QSize(3, 300);
    QTest::newRow("flat") << QSize(900, 9);
    QTest::newRow("upright") << QSize(200, 500);
    QTest::newRow("large rendition") << QSize(3000, 2000);
}

void tst_VenuePictureArtist::AnySizeIsExact()
{
    QFETCH(QSize, size);
    QCOMPARE(VenuePictureArtist::Draw(Subject("view_from_the_outside"), size).size(), size);
}

void tst_VenuePictureArtist::ImpossibleSizesGiveNothing_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("null") << QSize();
    QTest::newRow("no width") << QSize(0, 100);
    QTest::newRow("negative height") << QSize(100, -5);
}

void tst_VenuePictureArtist::ImpossibleSizesGiveNothing()
{
    QFETCH(QSize, size);
    QVERIFY(VenuePictureArtist::Draw(Subject("isometric"), size).isNull());
    QVERIFY(VenuePictureArtist::DrawJpeg(Subject("isometric"), size, 80).isEmpty());
}

void tst_VenuePictureArtist::AnyTextAndIdIsDrawn_data()
{
    QTest::addColumn<PictureSubject>("subject");
    QTest::newRow("nothing known") << PictureSubject();
    PictureSubject subject = Subject("isometric");
    subject.title = QString(100000, QLatin1Char('W'));
    QTest::newRow("endless title") << subject;
    subject = Subject("isometric");
    subject.title = QStringLiteral("サントリーホール\n<b>دار الأوبرا</b>\t&amp;");
    QTest::newRow("other scripts, markup, line breaks") << subject;
    subject = Subject("isometric");
    subject.venueId = std::numeric_limits<qint64>::min();
    QTest::newRow("smallest id") << subject;
    subject.venueId = std::numeric_limits<qint64>::max();
    QTest::newRow("largest id") << subject;
    QTest::newRow("unknown view") << Subject("from_the_moon");
}

void tst_VenuePictureArtist::AnyTextAndIdIsDrawn()
{
    QFETCH(PictureSubject, subject);
    const QImage image = VenuePictureArtist::Draw(subject, c_small);
    QCOMPARE(image.size(), c_small);
    QVERIFY(Colours(image, image.rect()) > 200);
}

void tst_VenuePictureArtist::JpegIsReadable()
{
    const QByteArray bytes = VenuePictureArtist::DrawJpeg(Subject("from_the_auditorium"), c_small, 85);
    QVERIFY(bytes.startsWith("\xFF\xD8\xFF"));
    const QImage image = QImage::fromData(bytes, "JPEG");
    QCOMPARE(image.size(), c_small);
    QVERIFY(Difference(image, VenuePictureArtist::Draw(Subject("from_the_auditorium"), c_small)) < 0.05);
}

void tst_VenuePictureArtist::LowerQualityIsSmaller()
{
    const PictureSubject subject = Subject("from_the_auditorium");
    const auto size
        = [&subject](int quality) { return VenuePictureArtist::DrawJpeg(subject, c_small, quality).size(); };
    QVERIFY(size(30) < size(90));
    // Values out of range mean the nearest one in it.
    QCOMPARE(size(-50), size(0));
    QCOMPARE(size(1000), size(100));
}

void tst_VenuePictureArtist::ThreadsMayDrawTogether()
{
    QList<QImage> pictures(std::size(c_views));
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < std::size(c_views); ++index) {
        threads.emplace_back([image = &pictures[qsizetype(index)], view = c_views[index]] {
            *image = VenuePictureArtist::Draw(Subject(view), c_small);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t index = 0; index < std::size(c_views); ++index)
        QCOMPARE(pictures[qsizetype(index)], VenuePictureArtist::Draw(Subject(c_views[index]), c_small));
}

QTEST_MAIN(tst_VenuePictureArtist)
#include "tst_VenuePictureArtist.moc"
