#include <ui/PictureSlider.h>

#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureView.h>

#include <tests/support/MessageGuard.h>
#include <tests/support/PictureFixtures.h>

#include <QBuffer>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using korvel::Data::VenueDatabase::Picture;
using korvel::Test::EncodedPicture;
using korvel::Test::IsNear;
using korvel::Ui::VenueDatabase::PictureFullscreenDialog;
using korvel::Ui::VenueDatabase::PictureNavigationButton;
using korvel::Ui::VenueDatabase::PictureSlider;
using korvel::Ui::VenueDatabase::PictureView;

namespace {

const QColor c_darkBackground(49, 49, 49);
const QColor c_green(0, 200, 0);

Picture SmallPicture(const QString& description, const QColor& color, const QSize& size = QSize(160, 48))
{
    Picture picture;
    picture.SetAlternativeDescription(description);
    picture.SetPictureDataSmall(EncodedPicture(size, color));
    // The viewer has nothing to fetch.
    picture.SetPictureDataLarge(EncodedPicture(QSize(20, 10), color));
    return picture;
}

QList<Picture> SmallPictures(qsizetype count)
{
    return QList<Picture>(count, SmallPicture(QStringLiteral("Hall"), c_green));
}

/// The left half is red and the right half blue.
QByteArray TwoColored(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    painter.fillRect(size.width() / 2, 0, size.width(), size.height(), Qt::blue);
    painter.end();
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return data;
}

QLabel* Caption(const PictureSlider& slider)
{
    return slider.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
}

PictureNavigationButton* Button(const PictureSlider& slider, int which)
{
    return slider.findChildren<PictureNavigationButton*>(QString(), Qt::FindDirectChildrenOnly).value(which);
}

QPushButton* FullscreenButton(const PictureSlider& slider)
{
    const auto buttons = slider.findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QPushButton* button : buttons) {
        if (!qobject_cast<PictureNavigationButton*>(button))
            return button;
    }
    return nullptr;
}

PictureFullscreenDialog* Viewer(const PictureSlider& slider)
{
    return slider.findChild<PictureFullscreenDialog*>();
}

QString ViewerCaption(const PictureSlider& slider)
{
    return Viewer(slider)->findChild<PictureView*>()->findChild<QLabel*>()->text();
}

/// What the slider itself paints, without its children.
QImage Painted(PictureSlider& slider)
{
    QImage image(slider.size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    slider.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

/// The rectangle around all pixels that are neither the background nor the border's.
QRect Inked(const QImage& image, const QColor& background)
{
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!IsNear(image.pixelColor(x, y), background))
                inked |= QRect(x, y, 1, 1);
        }
    }
    return inked;
}

void MoveMouse(QWidget* widget, const QPoint& position)
{
    QMouseEvent event(QEvent::MouseMove, position, widget->mapToGlobal(position), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

/// Counts the paint events and style changes of a widget.
class EventCounter : public QObject
{
public:
    EventCounter(QObject* watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }
    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

private:
    QEvent::Type m_type;
};

} // namespace

class tst_PictureSlider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
    }
    void cleanup()
    {
        QVERIFY(korvel::Test::NoWindowIsLeft());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void IsBuiltAtItsFixedPlaces()
    {
        PictureSlider slider;
        QCOMPARE(slider.minimumSize(), QSize(500, 240));
        QCOMPARE(slider.maximumSize(), QSize(500, 240));
        QVERIFY(slider.testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(Caption(slider)->text(), QStringLiteral("-/0"));
        QCOMPARE(Caption(slider)->property("customStyle").toString(),
                 QStringLiteral("labelKorvelCaptionSmall"));
        const QPushButton* fullscreen = FullscreenButton(slider);
        QVERIFY(fullscreen->isFlat());
        QVERIFY(fullscreen->testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(fullscreen->geometry(), QRect(238, 108, 24, 24));
        QCOMPARE(fullscreen->iconSize(), QSize(16, 16));
        QCOMPARE(fullscreen->cursor().shape(), Qt::PointingHandCursor);
        QVERIFY(fullscreen->icon().isNull());
        QVERIFY(Viewer(slider));
        QVERIFY(!Viewer(slider)->isVisible());

        slider.show();
        QCOMPARE(Button(slider, 0)->geometry(), QRect(0, 0, 41, 240));
        QCOMPARE(Button(slider, 1)->geometry(), QRect(459, 0, 41, 240));
        // Nothing of the caption is cut off.
        QVERIFY(Caption(slider)->height() >= Caption(slider)->fontMetrics().height());
        QVERIFY(Caption(slider)->geometry().top() >= 200);
        QVERIFY(Caption(slider)->geometry().bottom() < 240);
    }

    void CaptionAndButtonsFollowTheList_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<bool>("buttonsHidden");
        QTest::newRow("none") << 0 << QStringLiteral("-/0") << true;
        QTest::newRow("one") << 1 << QStringLiteral("1/1 Hall") << true;
        QTest::newRow("two") << 2 << QStringLiteral("1/2 Hall") << false;
        QTest::newRow("twelve") << 12 << QStringLiteral("1/12 Hall") << false;
    }
    void CaptionAndButtonsFollowTheList()
    {
        QFETCH(int, count);
        QFETCH(QString, caption);
        QFETCH(bool, buttonsHidden);
        PictureSlider slider;
        QList<Picture> others = SmallPictures(count > 1 ? 1 : 3);
        slider.UpdateUi(&others);
        QList<Picture> pictures = SmallPictures(count);
        slider.UpdateUi(&pictures);
        QCOMPARE(Caption(slider)->text(), caption);
        QCOMPARE(Button(slider, 0)->isHidden(), buttonsHidden);
        QCOMPARE(Button(slider, 1)->isHidden(), buttonsHidden);
    }

    void CaptionShowsMarkupLiterally()
    {
        PictureSlider slider;
        const QString markup = QStringLiteral("<img src='/etc/x.png' width=30000> & %1");
        QList<Picture> pictures = {SmallPicture(markup, c_green)};
        slider.UpdateUi(&pictures);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("1/1 ") + markup);
        QCOMPARE(Caption(slider)->textFormat(), Qt::PlainText);
    }

    void StepsGoRoundTheEnds_data()
    {
        QTest::addColumn<QList<int>>("directions");
        QTest::addColumn<QString>("caption");
        QTest::newRow("next") << QList<int>{1} << QStringLiteral("2/3 b");
        QTest::newRow("previous of the first is the last") << QList<int>{-1} << QStringLiteral("3/3 c");
        QTest::newRow("next of the last is the first") << QList<int>{1, 1, 1} << QStringLiteral("1/3 a");
        QTest::newRow("back") << QList<int>{1, 1, -1} << QStringLiteral("2/3 b");
        QTest::newRow("0 is the first") << QList<int>{1, 1, 0} << QStringLiteral("1/3 a");
        QTest::newRow("2 is none") << QList<int>{1, 2} << QStringLiteral("2/3 b");
        QTest::newRow("-2 is none") << QList<int>{1, -2} << QStringLiteral("2/3 b");
        QTest::newRow("narrowed to a short") << QList<int>{1, 65537} << QStringLiteral("3/3 c");
    }
    void StepsGoRoundTheEnds()
    {
        QFETCH(QList<int>, directions);
        QFETCH(QString, caption);
        PictureSlider slider;
        QList<Picture> pictures
            = {SmallPicture(QStringLiteral("a"), Qt::red), SmallPicture(QStringLiteral("b"), Qt::green),
               SmallPicture(QStringLiteral("c"), Qt::blue)};
        slider.UpdateUi(&pictures);
        for (const int direction : std::as_const(directions))
            slider.OnPictureNavigationRequested(direction);
        QCOMPARE(Caption(slider)->text(), caption);
        QCOMPARE(slider.cursor().shape(), Qt::ArrowCursor);
        const QHash<QChar, QColor> colors = {{u'a', Qt::red}, {u'b', Qt::green}, {u'c', Qt::blue}};
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), colors.value(caption.back())));
    }

    void FortyThousandPicturesDoNotOverflow()
    {
        PictureSlider slider;
        QList<Picture> pictures = SmallPictures(40000);
        slider.UpdateUi(&pictures);
        slider.ShowVenuePic(-1);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("40000/40000 Hall"));
        slider.ShowVenuePic(-1);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("39999/40000 Hall"));
        slider.ShowFullScreen();
        QCOMPARE(ViewerCaption(slider), QStringLiteral("39999/40000 Hall"));
        Viewer(slider)->hide();
        slider.ShowVenuePic(1);
        slider.ShowVenuePic(1);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("1/40000 Hall"));
    }

    void ButtonsStep()
    {
        PictureSlider slider;
        QList<Picture> pictures = SmallPictures(3);
        slider.UpdateUi(&pictures);
        slider.show();
        QTest::mousePress(Button(slider, 1), Qt::LeftButton);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("2/3 Hall"));
        QTest::mousePress(Button(slider, 0), Qt::LeftButton);
        QTest::mousePress(Button(slider, 0), Qt::LeftButton);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("3/3 Hall"));
    }

    void UnknownDirectionDoesNotRepaint()
    {
        PictureSlider slider;
        QList<Picture> pictures = SmallPictures(3);
        slider.UpdateUi(&pictures);
        slider.show();
        QVERIFY(QTest::qWaitForWindowExposed(&slider));
        QCoreApplication::processEvents();
        EventCounter requests(&slider, QEvent::UpdateRequest);
        slider.ShowVenuePic(2);
        slider.ShowVenuePic(-2);
        QCoreApplication::processEvents();
        QCOMPARE(requests.count, 0);
        slider.ShowVenuePic(1);
        QTRY_VERIFY(requests.count > 0);
    }

    // Pictures that were shown before are kept, which must not be seen.
    void PicturesLookTheSameTheSecondTime()
    {
        QList<Picture> pictures{SmallPicture(QStringLiteral("Green"), c_green),
                                SmallPicture(QStringLiteral("Red"), Qt::red, QSize(300, 300)), Picture(),
                                SmallPicture(QStringLiteral("Blue"), Qt::blue)};
        PictureSlider slider(nullptr);
        slider.UpdateUi(&pictures);
        QList<QImage> firstTime;
        for (qsizetype i = 0; i < pictures.size(); ++i) {
            firstTime.append(Painted(slider));
            slider.ShowVenuePic(1);
        }
        QVERIFY(firstTime.at(0) != firstTime.at(1));
        QVERIFY(firstTime.at(1) != firstTime.at(2));
        QVERIFY(firstTime.at(2) != firstTime.at(3));
        for (qsizetype i = 0; i < pictures.size(); ++i) {
            QCOMPARE(Painted(slider), firstTime.at(i));
            slider.ShowVenuePic(1);
        }
        for (qsizetype i = pictures.size() - 1; i >= 0; --i) {
            slider.ShowVenuePic(-1);
            QCOMPARE(Painted(slider), firstTime.at(i));
        }
    }

    void PicturesOfTheListBeforeAreForgotten()
    {
        QList<Picture> greens = SmallPictures(2);
        QList<Picture> reds(2, SmallPicture(QStringLiteral("Red"), Qt::red));
        PictureSlider slider(nullptr);
        slider.UpdateUi(&greens);
        slider.ShowVenuePic(1);
        slider.UpdateUi(&reds);
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), Qt::red));
        slider.ShowVenuePic(1);
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), Qt::red));
    }

    void NullListKeepsListAndPicture()
    {
        PictureSlider slider;
        QList<Picture> pictures = SmallPictures(3);
        slider.UpdateUi(&pictures);
        slider.ShowVenuePic(1);
        slider.ResetUi();
        const QImage before = Painted(slider);
        slider.UpdateUi(nullptr);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("2/3 Hall"));
        QVERIFY(!Button(slider, 0)->isHidden());
        // The viewer keeps its list as well.
        slider.ShowFullScreen();
        QCOMPARE(ViewerCaption(slider), QStringLiteral("2/3 Hall"));
        Viewer(slider)->hide();
        QVERIFY(IsNear(before.pixelColor(250, 60), c_green));
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), c_green));
    }

    void NullListBeforeAnyOther()
    {
        PictureSlider slider;
        slider.UpdateUi(nullptr);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("-/0"));
        // Index -1: the viewer opens and shows nothing.
        slider.ShowFullScreen();
        QVERIFY(Viewer(slider)->isVisible());
        QCOMPARE(ViewerCaption(slider), QStringLiteral("-/0"));
        Viewer(slider)->hide();
    }

    void ResetOnlyClearsTheCaption()
    {
        PictureSlider slider;
        QList<Picture> pictures = SmallPictures(3);
        slider.UpdateUi(&pictures);
        slider.ShowVenuePic(1);
        slider.ResetUi();
        QCOMPARE(Caption(slider)->text(), QStringLiteral("-/0"));
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), c_green));
        slider.SetVenuePicButtonsStatus();
        QCOMPARE(Caption(slider)->text(), QStringLiteral("2/3 Hall"));
    }

    void EmptyListKeepsTheIndexOutOfTheWay()
    {
        PictureSlider slider;
        QList<Picture> pictures = SmallPictures(3);
        slider.UpdateUi(&pictures);
        slider.ShowVenuePic(-1);
        QList<Picture> none;
        slider.UpdateUi(&none);
        slider.ShowVenuePic(1);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("-/0"));
        slider.ShowFullScreen();
        QCOMPARE(ViewerCaption(slider), QStringLiteral("-/0"));
        Viewer(slider)->hide();
        QList<Picture> one = SmallPictures(1);
        slider.UpdateUi(&one);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("1/1 Hall"));
    }

    void PictureIsDrawnInTheMiddle_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QRect>("drawn");
        QTest::newRow("wide: 800 x 200 at -150, 20") << QSize(1600, 400) << QRect(0, 20, 500, 200);
        QTest::newRow("enlarged to the height") << QSize(40, 24) << QRect(50, 0, 400, 240);
        QTest::newRow("high: 60 x 240 at 220, 0") << QSize(250, 1000) << QRect(220, 0, 60, 240);
        QTest::newRow("half pixels round away from zero") << QSize(61, 240) << QRect(220, 0, 61, 240);
    }
    void PictureIsDrawnInTheMiddle()
    {
        QFETCH(QSize, size);
        QFETCH(QRect, drawn);
        PictureSlider slider;
        QList<Picture> pictures = {SmallPicture(QStringLiteral("Hall"), c_green, size)};
        slider.UpdateUi(&pictures);
        QImage image = Painted(slider);
        // Above the caption band; below it the same picture goes on, darker.
        const QRect above = drawn.intersected(QRect(0, 0, 500, 213));
        const QRect inked = Inked(image.copy(0, 0, 500, 213), c_darkBackground);
        QCOMPARE(inked, above);
        QVERIFY(IsNear(image.pixelColor(above.center()), c_green));
    }

    void WidePictureIsCutOffOnBothSides()
    {
        PictureSlider slider;
        Picture picture;
        picture.SetPictureDataSmall(TwoColored(QSize(1600, 400)));
        picture.SetPictureDataLarge(TwoColored(QSize(16, 4)));
        QList<Picture> pictures = {picture};
        slider.UpdateUi(&pictures);
        const QImage image = Painted(slider);
        // The middle of the picture is the middle of the slider.
        QVERIFY(IsNear(image.pixelColor(0, 60), Qt::red));
        QVERIFY(IsNear(image.pixelColor(247, 60), Qt::red));
        QVERIFY(IsNear(image.pixelColor(253, 60), Qt::blue));
        QVERIFY(IsNear(image.pixelColor(499, 60), Qt::blue));
    }

    void CaptionBandAndBackgroundTellTheTheme_data()
    {
        QTest::addColumn<bool>("dayMode");
        QTest::addColumn<QColor>("background");
        QTest::addColumn<QColor>("band");
        // (0, 200, 0) under white at 0.75 or black at 0.5.
        QTest::newRow("light") << true << QColor(Qt::white) << QColor(191, 241, 191);
        QTest::newRow("dark") << false << c_darkBackground << QColor(0, 100, 0);
    }
    void CaptionBandAndBackgroundTellTheTheme()
    {
        QFETCH(bool, dayMode);
        QFETCH(QColor, background);
        QFETCH(QColor, band);
        PictureSlider slider;
        slider.SetDayMode(dayMode);
        QList<Picture> pictures = {SmallPicture(QStringLiteral("Hall"), c_green, QSize(400, 240))};
        slider.UpdateUi(&pictures);
        const QImage image = Painted(slider);
        QCOMPARE(image.pixelColor(10, 10), background);
        QCOMPARE(image.pixelColor(495, 100), background);
        QVERIFY(IsNear(image.pixelColor(250, 212), c_green));
        QVERIFY(IsNear(image.pixelColor(250, 213), band));
        QVERIFY(IsNear(image.pixelColor(250, 235), band));
        QVERIFY(IsNear(image.pixelColor(250, 236), c_green));
    }

    void WithoutPictureThereIsNoBand()
    {
        PictureSlider slider;
        slider.SetDayMode(true);
        const QImage image = Painted(slider);
        QVERIFY(Inked(image, Qt::white).isNull());
    }

    void MissingPictureIsSaidInGrey_data()
    {
        QTest::addColumn<QByteArray>("small");
        QTest::addColumn<bool>("isListed");
        QTest::addColumn<QString>("text");
        QTest::newRow("empty list") << QByteArray() << false << QStringLiteral("No Image");
        QTest::newRow("no small rendition") << QByteArray() << true << QStringLiteral("Image failure");
        QTest::newRow("undecodable") << QByteArray("hello") << true << QStringLiteral("Image failure");
        QTest::newRow("a drawing, which could name local files")
            << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"></svg>") << true
            << QStringLiteral("Image failure");
    }
    void MissingPictureIsSaidInGrey()
    {
        QFETCH(QByteArray, small);
        QFETCH(bool, isListed);
        QFETCH(QString, text);
        PictureSlider slider;
        QList<Picture> before = SmallPictures(1);
        slider.UpdateUi(&before);
        QList<Picture> pictures;
        if (isListed) {
            // Its other renditions do not help.
            Picture picture = SmallPicture(QStringLiteral("Hall"), c_green);
            picture.SetPictureDataMedium(picture.GetPictureDataSmall());
            picture.SetPictureDataSmall(small);
            pictures.append(picture);
        }
        slider.UpdateUi(&pictures);

        QImage expected(500, 240, QImage::Format_RGB32);
        expected.fill(c_darkBackground);
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QColor(128, 128, 128));
        painter.setFont(QFont(QStringLiteral("Verdana"), 40));
        painter.drawText(QRect(0, 0, 800, 300), Qt::AlignCenter, text);
        painter.end();
        const QImage image = Painted(slider);
        QCOMPARE(image, expected);
        // Centred on (400, 150), so that all ink stands in the lower right and the end is cut off.
        const QRect inked = Inked(image, c_darkBackground);
        QVERIFY(!inked.isNull());
        QVERIFY(inked.left() > 150);
        QVERIFY(inked.right() > 480);
        QVERIFY(qAbs(inked.center().y() - 150) < 12);

        // A picture that decodes takes the text away.
        slider.UpdateUi(&before);
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), c_green));
        QVERIFY(IsNear(Painted(slider).pixelColor(450, 150), c_green));
    }

    void DiscChangesExactlyAtItsEdges_data()
    {
        QTest::addColumn<bool>("dayMode");
        QTest::addColumn<QString>("plain");
        QTest::addColumn<QString>("hovered");
        QTest::newRow("light") << true
                               << QStringLiteral("background: hsla( 0, 0, 0, 0.50); border-radius: 12px;")
                               << QStringLiteral("background: hsla( 0, 0, 0, 1.00); border-radius: 12px;");
        QTest::newRow("dark") << false
                              << QStringLiteral("background: hsla( 0, 0, 255, 0.50); border-radius: 12px;")
                              << QStringLiteral("background: hsla( 0, 0, 255, 1.00); border-radius: 12px;");
    }
    void DiscChangesExactlyAtItsEdges()
    {
        QFETCH(bool, dayMode);
        QFETCH(QString, plain);
        QFETCH(QString, hovered);
        PictureSlider slider;
        slider.SetDayMode(dayMode);
        const QPushButton* button = FullscreenButton(slider);
        QCOMPARE(button->styleSheet(), plain);
        slider.show();
        const EventCounter restylings(FullscreenButton(slider), QEvent::StyleChange);
        const QList<std::pair<QPoint, bool>> moves
            = {{QPoint(237, 120), false}, {QPoint(238, 108), true},  {QPoint(250, 120), true},
               {QPoint(261, 131), true},  {QPoint(262, 131), false}, {QPoint(261, 132), false},
               {QPoint(238, 107), false}, {QPoint(261, 108), true},  {QPoint(100, 100), false}};
        int crossings = 0;
        bool isInside = false;
        for (const auto& [position, inside] : moves) {
            MoveMouse(&slider, position);
            QCOMPARE(button->styleSheet(), inside ? hovered : plain);
            crossings += inside != isInside ? 1 : 0;
            isInside = inside;
            QCOMPARE(restylings.count, crossings);
        }
        QCOMPARE(crossings, 4);
    }

    void MouseOverTheDiscItselfCounts()
    {
        PictureSlider slider;
        slider.show();
        QPushButton* button = FullscreenButton(slider);
        MoveMouse(button, QPoint(3, 3));
        QVERIFY(button->styleSheet().contains(QStringLiteral("1.00")));
        // Gone without another move.
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&slider, &leave);
        QVERIFY(button->styleSheet().contains(QStringLiteral("0.50")));
    }

    void ThemeReachesButtonsAndViewer()
    {
        PictureSlider slider;
        QList<Picture> pictures = SmallPictures(2);
        slider.UpdateUi(&pictures);
        const auto viewBackground
            = [&slider] { return Viewer(slider)->findChild<PictureView*>()->backgroundBrush().color(); };
        slider.SetDayMode(true);
        QCOMPARE(viewBackground(), QColor(Qt::white));
        slider.show();
        // On the left button's disc, below its chevron: half transparent black over the green.
        QVERIFY(IsNear(slider.grab().toImage().pixelColor(20, 129), QColor(0, 100, 0)));
        slider.SetDayMode(false);
        QCOMPARE(viewBackground(), c_darkBackground);
        QVERIFY(IsNear(slider.grab().toImage().pixelColor(20, 129), QColor(127, 227, 127)));
    }

    void DiscCarriesTheOppositeGlyph_data()
    {
        QTest::addColumn<bool>("dayMode");
        QTest::addColumn<bool>("isGlyphLight");
        QTest::newRow("light theme: light glyph on a dark disc") << true << true;
        QTest::newRow("dark theme: dark glyph on a light disc") << false << false;
    }
    void DiscCarriesTheOppositeGlyph()
    {
        QFETCH(bool, dayMode);
        QFETCH(bool, isGlyphLight);
        PictureSlider slider;
        slider.SetDayMode(dayMode);
        const QImage glyph = FullscreenButton(slider)->icon().pixmap(16, 16).toImage();
        QCOMPARE(glyph.size(), QSize(16, 16));
        int light = 0;
        int dark = 0;
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x) {
                const QColor color = glyph.pixelColor(x, y);
                if (color.alpha() < 200)
                    continue;
                light += color.lightness() > 200 ? 1 : 0;
                dark += color.lightness() < 55 ? 1 : 0;
            }
        }
        QVERIFY(isGlyphLight ? light > 5 && dark == 0 : dark > 5 && light == 0);
    }

    void IconsAreInTheModule_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"korvelFullscreen.svg", "korvelFullscreen_day.svg", "korvelFullscreenCircle.svg",
              "korvelFullscreenCircle_day.svg", "ic_EQ_scale_16x16.svg", "ic_EQ_scale_16x16_day.svg"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }
    void IconsAreInTheModule()
    {
        QFETCH(QString, name);
        const QString path = QStringLiteral(":/Resources/") + name;
        QVERIFY(QFile::exists(path));
        const QImage drawn = QIcon(path).pixmap(24, 24).toImage();
        QVERIFY(!drawn.isNull());
        QVERIFY(!Inked(drawn.convertToFormat(QImage::Format_RGB32), Qt::black).isNull()
                || !Inked(drawn.convertToFormat(QImage::Format_RGB32), Qt::white).isNull());
    }

    void FullscreenButtonOpensTheViewerOnTheCurrentPicture()
    {
        PictureSlider slider;
        QList<Picture> pictures
            = {SmallPicture(QStringLiteral("a"), Qt::red), SmallPicture(QStringLiteral("b"), Qt::green)};
        slider.UpdateUi(&pictures);
        slider.ShowVenuePic(1);
        slider.show();
        QTest::mouseClick(FullscreenButton(slider), Qt::LeftButton);
        QVERIFY(Viewer(slider)->isVisible());
        QVERIFY(Viewer(slider)->isMaximized());
        QCOMPARE(ViewerCaption(slider), QStringLiteral("2/2 b"));
        // Steps there leave the slider where it is.
        Viewer(slider)->ModifyPicturesIndex(1);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("2/2 b"));
        Viewer(slider)->hide();
    }

    void ViewerMayBeGone()
    {
        PictureSlider slider;
        QList<Picture> pictures = SmallPictures(2);
        delete Viewer(slider);
        slider.UpdateUi(&pictures);
        slider.SetDayMode(true);
        slider.ShowFullScreen();
        QCOMPARE(Caption(slider)->text(), QStringLiteral("1/2 Hall"));
    }

    void ListOfTheCallerStaysAsItIs()
    {
        auto pictures = std::make_unique<QList<Picture>>(SmallPictures(2));
        PictureSlider slider;
        slider.UpdateUi(pictures.get());
        // Shared, not referred to.
        pictures.reset();
        slider.ShowVenuePic(1);
        QCOMPARE(Caption(slider)->text(), QStringLiteral("2/2 Hall"));
    }
};

QTEST_MAIN(tst_PictureSlider)
#include "tst_PictureSlider.moc"
