#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>

#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QGraphicsScene>
#include <QImage>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// What a decoded picture may take here, in megabytes: 1024 x 1024 pixels.
constexpr int c_limit = 4;
constexpr QSize c_mediumSize(120, 80);
const QString c_largeUrl = u"none:large"_s;

/// The left half is red and the right half blue, to be shown turned as \p orientation says.
QByteArray TurnedPicture(int orientation)
{
    QImage image(80, 60, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    painter.fillRect(40, 0, 40, 60, Qt::blue);
    painter.end();
    return TurnedJpeg(image, orientation);
}

void ExpectRefusals(int count)
{
    for (int refusal = 0; refusal < count; ++refusal)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"allocation limit of 4 megabytes"_s));
}

QImage ShownPicture(const PictureFullscreenDialog& viewer)
{
    QGraphicsScene* scene = viewer.findChild<PictureView*>()->scene();
    QImage image(scene->sceneRect().size().toSize(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    scene->render(&painter);
    return image;
}

} // namespace

/// Pictures that are larger than Qt may decode, and those that lie on their side.
class tst_PictureDecoding : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        StrictTest::init();
        QImageReader::setAllocationLimit(c_limit);
    }
    void cleanup()
    {
        QImageReader::setAllocationLimit(128);
        StrictTest::cleanup();
    }

    void TooLargePictureIsShownAtHalfItsSize_data()
    {
        const Rows<QByteArray, QSize, QSize, int> row("format", "size", "shown", "refusals");
        row("all that is allowed", "JPEG", QSize(1024, 1024), QSize(1024, 1024), 0);
        row("a little more", "JPEG", QSize(1024, 1025), QSize(512, 512), 0);
        row("odd sides", "JPEG", QSize(1201, 901), QSize(600, 450), 0);
        row("one line", "JPEG", QSize(65'500, 17), QSize(32'750, 8), 0);
        row("four times as much", "JPEG", QSize(2048, 2048), QSize(1024, 1024), 0);
        row("more than four times as much", "JPEG", QSize(2048, 2049), QSize(), 1);
        row("a format that is decoded as a whole", "PPM", QSize(1200, 900), QSize(), 1);
    }
    void TooLargePictureIsShownAtHalfItsSize()
    {
        const auto [format, size, shown, refusals] = Fetch<QByteArray, QSize, QSize, int>();
        ExpectRefusals(refusals);
        PictureFullscreenDialog viewer;
        viewer.SetImage(EncodedPicture(size, Qt::blue, format));
        QCOMPARE(ShownSize(viewer), shown.isValid() ? shown : QSize(0, 0));
        if (shown.isValid())
            QVERIFY(IsNear(ShownPicture(viewer).pixelColor(shown.width() / 2, shown.height() / 2), Qt::blue));
    }

    void WithoutALimitEveryPictureKeepsItsSize()
    {
        QImageReader::setAllocationLimit(0);
        PictureFullscreenDialog viewer;
        viewer.SetImage(EncodedPicture(QSize(1200, 900), Qt::blue, "JPEG"));
        QCOMPARE(ShownSize(viewer), QSize(1200, 900));
    }

    void TooLargePictureDoesNotReplaceAGoodOne_data()
    {
        const Rows<QByteArray, QByteArray, QSize, int> row("medium", "large", "shown", "refusals");
        const QByteArray good = EncodedPicture(c_mediumSize, Qt::red);
        const QByteArray tooLarge = EncodedPicture(QSize(1200, 900), Qt::blue, "PPM");
        // With twice as many bytes a pixel.
        QImage deep(800, 700, QImage::Format_RGBA64);
        deep.fill(Qt::blue);
        row("too large: the medium one stays", good, tooLarge, c_mediumSize, 2);
        row("too many colours: the medium one stays", good, Png(deep), c_mediumSize, 2);
        row("both too large: the small one stays", tooLarge, tooLarge, QSize(40, 30), 6);
        row("at half its size: is shown", good, EncodedPicture(QSize(1200, 900), Qt::blue, "JPEG"),
            QSize(600, 450), 0);
        row("no picture: nothing is shown", good, "hello", QSize(0, 0), 0);
    }
    void TooLargePictureDoesNotReplaceAGoodOne()
    {
        const auto [medium, large, shown, refusals] = Fetch<QByteArray, QByteArray, QSize, int>();
        ExpectRefusals(refusals);
        Picture picture = MakePicture(EncodedPicture(QSize(40, 30), Qt::green));
        picture.SetPictureDataMedium(medium);
        picture.SetPictureUrlLarge(c_largeUrl);
        PictureFullscreenDialog viewer;
        Show(viewer, {picture});
        viewer.OnPictureBinaryDataFinished(QUrl(c_largeUrl), large);
        QCOMPARE(ShownSize(viewer), shown);
        QCOMPARE(viewer.GetStatusLabel()->text(), QString());

        // It is kept: coming back fetches nothing and shows the same.
        viewer.SetPicturesIndex(0);
        QCOMPARE(ShownSize(viewer), shown);
        QCOMPARE(viewer.GetStatusLabel()->text(), QString());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void TurnedPictureIsUpright_data()
    {
        const Rows<int, QSize, QColor, QColor> row("orientation", "size", "first", "last");
        const QColor red = Qt::red;
        const QColor blue = Qt::blue;
        row("not turned", 1, QSize(80, 60), red, blue);
        row("mirrored", 2, QSize(80, 60), blue, red);
        row("upside down", 3, QSize(80, 60), blue, red);
        row("turned to the left", 6, QSize(60, 80), red, blue);
        row("turned to the right", 8, QSize(60, 80), blue, red);
        row("no such turn", 9, QSize(80, 60), red, blue);
    }
    void TurnedPictureIsUpright()
    {
        const auto [orientation, size, first, last] = Fetch<int, QSize, QColor, QColor>();
        const QByteArray bytes = TurnedPicture(orientation);
        const QList<Picture> pictures = {MakePicture(bytes, bytes)};
        const auto verifyHalves = [&](const QImage& image, const QRect& place) {
            // Red and blue lie above each other or side by side.
            const QPoint step
                = size.width() > size.height() ? QPoint(place.width() / 4, 0) : QPoint(0, place.height() / 4);
            QVERIFY(IsNear(image.pixelColor(place.center() - step), first, 6));
            QVERIFY(IsNear(image.pixelColor(place.center() + step), last, 6));
        };

        PictureSlider slider;
        Show(slider, pictures);
        const int drawnWidth = 240 * size.width() / size.height();
        // Above the caption band.
        verifyHalves(Painted(slider), QRect((500 - drawnWidth) / 2, 0, drawnWidth, 240));

        PictureFullscreenDialog viewer;
        Show(viewer, pictures);
        QCOMPARE(ShownSize(viewer), size);
        verifyHalves(ShownPicture(viewer), QRect(QPoint(0, 0), size));

        // A program that knows nothing of turns shows the saved one upright too.
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"saved.jpg"_s);
        QVERIFY(viewer.SaveImage(path));
        QImageReader reader(path);
        QCOMPARE(reader.transformation(), QImageIOHandler::TransformationNone);
        const QImage saved = reader.read();
        QCOMPARE(saved.size(), size);
        verifyHalves(saved, QRect(QPoint(0, 0), size));
    }

    void TurnedPictureThatIsTooLargeIsUprightAtHalfItsSize()
    {
        QImage image(1400, 800, QImage::Format_RGB32);
        image.fill(Qt::blue);
        PictureFullscreenDialog viewer;
        viewer.SetImage(TurnedJpeg(image, 6));
        QCOMPARE(ShownSize(viewer), QSize(400, 700));
    }
};

QTEST_MAIN(tst_PictureDecoding)
#include "tst_PictureDecoding.moc"
