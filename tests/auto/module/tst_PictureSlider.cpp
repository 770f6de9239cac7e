#include <ui/PictureSlider.h>

#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureView.h>

#include <tests/support/EventCounter.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QFile>
#include <QHelpEvent>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTextDocumentFragment>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;
using korvel::Data::VenueDatabase::Picture;

namespace {

const QColor c_darkBackground(49, 49, 49);
const QColor c_green(0, 200, 0);

Picture SmallPicture(const QString& description, const QColor& color, const QSize& size = QSize(160, 48))
{
    // With a large rendition the viewer has nothing to fetch.
    return MakePicture(EncodedPicture(size, color), EncodedPicture(QSize(20, 10), color), description);
}

QList<Picture> SmallPictures(qsizetype count)
{
    return QList<Picture>(count, SmallPicture(u"Hall"_s, c_green));
}

/// The left half is red and the right half blue.
QByteArray TwoColored(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    painter.fillRect(size.width() / 2, 0, size.width(), size.height(), Qt::blue);
    painter.end();
    return Png(image);
}

PictureFullscreenDialog* Viewer(const PictureSlider& slider)
{
    return slider.findChild<PictureFullscreenDialog*>();
}

QString ViewerCaption(const PictureSlider& slider)
{
    return Caption(*Viewer(slider))->text();
}

/// A slider that has been given pictures, and a list that is gone since.
struct FilledSlider : PictureSlider
{
    explicit FilledSlider(const QList<Picture>& pictures)
    {
        Show(*this, pictures);
    }
};

/// The rectangle around all pixels that are neither the background nor the border's.
QRect Inked(const QImage& image, const QColor& background)
{
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (!IsNear(image.pixelColor(x, y), background))
                inked |= QRect(x, y, 1, 1);
    }
    return inked;
}

} // namespace

class tst_PictureSlider : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void IsBuiltAtItsFixedPlaces()
    {
        PictureSlider slider;
        QCOMPARE(slider.minimumSize(), QSize(500, 240));
        QCOMPARE(slider.maximumSize(), QSize(500, 240));
        QVERIFY(slider.testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(Caption(slider)->text(), u"-/0"_s);
        QCOMPARE(StyleOf(Caption(slider)), u"labelKorvelCaptionSmall"_s);
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
        QCOMPARE(NavigationButton(slider, 0)->geometry(), QRect(0, 0, 41, 240));
        QCOMPARE(NavigationButton(slider, 1)->geometry(), QRect(459, 0, 41, 240));
        // Nothing of the caption is cut off.
        QVERIFY(Caption(slider)->height() >= Caption(slider)->fontMetrics().height());
        QVERIFY(Caption(slider)->geometry().top() >= 200);
        QVERIFY(Caption(slider)->geometry().bottom() < 240);
    }

    void CaptionAndButtonsFollowTheList_data()
    {
        const Rows<int, QString, bool> row("count", "caption", "buttonsHidden");
        row("none", 0, u"-/0"_s, true);
        row("one", 1, u"1/1 Hall"_s, true);
        row("two", 2, u"1/2 Hall"_s, false);
        row("twelve", 12, u"1/12 Hall"_s, false);
    }
    void CaptionAndButtonsFollowTheList()
    {
        const auto [count, caption, buttonsHidden] = Fetch<int, QString, bool>();
        FilledSlider slider(SmallPictures(count > 1 ? 1 : 3));
        Show(slider, SmallPictures(count));
        QCOMPARE(Caption(slider)->text(), caption);
        QCOMPARE(NavigationButton(slider, 0)->isHidden(), buttonsHidden);
        QCOMPARE(NavigationButton(slider, 1)->isHidden(), buttonsHidden);
    }

    void CaptionThatDoesNotFitEndsInDotsAndStandsInTheToolTip_data()
    {
        const Rows<QString, bool> row("description", "fits");
        const QString long_ = u"Seen from the last row of the balcony, "_s.repeated(10) + u"end"_s;
        row("short", u"Hall"_s, true);
        row("long", long_, false);
        row("long markup", u"<b>bold</b> & %1 <img src='/etc/x.png'> "_s + long_, false);
        row("two lines", u"Hall\nwith its balcony"_s, false);
        row("right to left",
            u"\u05d0\u05d5\u05dc\u05dd \u05d4\u05de\u05d5\u05e4\u05e2\u05d9\u05dd "_s.repeated(20) + u"x"_s,
            false);
    }
    void CaptionThatDoesNotFitEndsInDotsAndStandsInTheToolTip()
    {
        const auto [description, fits] = Fetch<QString, bool>();
        FilledSlider slider({SmallPicture(description, c_green)});
        slider.show();
        QLabel* caption = Caption(slider);
        const QString whole = u"1/1 "_s + description;
        QCOMPARE(caption->text(), whole);

        // The same place, filled by Qt with what is expected.
        const QImage shown = caption->grab().toImage();
        const QString line = QString(whole).replace(u'\n', u' ');
        const QString expected
            = caption->fontMetrics().elidedText(line, Qt::ElideRight, caption->contentsRect().width());
        QCOMPARE(expected.endsWith(QChar(0x2026)), !fits && !description.contains(u'\n'));
        QLabel reference(&slider);
        reference.setTextFormat(Qt::PlainText);
        reference.setText(expected);
        reference.setGeometry(caption->geometry());
        caption->hide();
        reference.show();
        QCOMPARE(shown, reference.grab().toImage());
        reference.hide();
        caption->show();

        const QPoint position = caption->rect().center();
        QHelpEvent ask(QEvent::ToolTip, position, caption->mapToGlobal(position));
        QCoreApplication::sendEvent(caption, &ask);
        QCOMPARE(QToolTip::isVisible(), !fits);
        if (!fits)
            QCOMPARE(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(), whole);
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void StepsGoRoundTheEnds_data()
    {
        const Rows<QList<int>, QString> row("directions", "caption");
        row("next", {1}, u"2/3 b"_s);
        row("previous of the first is the last", {-1}, u"3/3 c"_s);
        row("next of the last is the first", {1, 1, 1}, u"1/3 a"_s);
        row("back", {1, 1, -1}, u"2/3 b"_s);
        row("0 is the first", {1, 1, 0}, u"1/3 a"_s);
        row("2 is none", {1, 2}, u"2/3 b"_s);
        row("-2 is none", {1, -2}, u"2/3 b"_s);
        row("narrowed to a short", {1, 65537}, u"3/3 c"_s);
    }
    void StepsGoRoundTheEnds()
    {
        const auto [directions, caption] = Fetch<QList<int>, QString>();
        FilledSlider slider(
            {SmallPicture(u"a"_s, Qt::red), SmallPicture(u"b"_s, Qt::green), SmallPicture(u"c"_s, Qt::blue)});
        for (const int direction : std::as_const(directions))
            slider.OnPictureNavigationRequested(direction);
        QCOMPARE(Caption(slider)->text(), caption);
        QCOMPARE(slider.cursor().shape(), Qt::ArrowCursor);
        const QHash<QChar, QColor> colors = {{u'a', Qt::red}, {u'b', Qt::green}, {u'c', Qt::blue}};
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), colors.value(caption.back())));
    }

    void FortyThousandPicturesDoNotOverflow()
    {
        FilledSlider slider(SmallPictures(40000));
        slider.ShowVenuePic(-1);
        QCOMPARE(Caption(slider)->text(), u"40000/40000 Hall"_s);
        slider.ShowVenuePic(-1);
        QCOMPARE(Caption(slider)->text(), u"39999/40000 Hall"_s);
        slider.ShowFullScreen();
        QCOMPARE(ViewerCaption(slider), u"39999/40000 Hall"_s);
        Viewer(slider)->hide();
        slider.ShowVenuePic(1);
        slider.ShowVenuePic(1);
        QCOMPARE(Caption(slider)->text(), u"1/40000 Hall"_s);
    }

    void ButtonsStep()
    {
        FilledSlider slider(SmallPictures(3));
        slider.show();
        QTest::mousePress(NavigationButton(slider, 1), Qt::LeftButton);
        QCOMPARE(Caption(slider)->text(), u"2/3 Hall"_s);
        QTest::mousePress(NavigationButton(slider, 0), Qt::LeftButton);
        QTest::mousePress(NavigationButton(slider, 0), Qt::LeftButton);
        QCOMPARE(Caption(slider)->text(), u"3/3 Hall"_s);
    }

    void UnknownDirectionDoesNotRepaint()
    {
        FilledSlider slider(SmallPictures(3));
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
        QList<Picture> pictures{SmallPicture(u"Green"_s, c_green),
                                SmallPicture(u"Red"_s, Qt::red, QSize(300, 300)), Picture(),
                                SmallPicture(u"Blue"_s, Qt::blue)};
        FilledSlider slider(pictures);
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
        FilledSlider slider(SmallPictures(2));
        slider.ShowVenuePic(1);
        Show(slider, QList<Picture>(2, SmallPicture(u"Red"_s, Qt::red)));
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), Qt::red));
        slider.ShowVenuePic(1);
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), Qt::red));
    }

    void NullListKeepsListAndPicture()
    {
        FilledSlider slider(SmallPictures(3));
        slider.ShowVenuePic(1);
        slider.ResetUi();
        const QImage before = Painted(slider);
        slider.UpdateUi(nullptr);
        QCOMPARE(Caption(slider)->text(), u"2/3 Hall"_s);
        QVERIFY(!NavigationButton(slider, 0)->isHidden());
        // The viewer keeps its list as well.
        slider.ShowFullScreen();
        QCOMPARE(ViewerCaption(slider), u"2/3 Hall"_s);
        Viewer(slider)->hide();
        QVERIFY(IsNear(before.pixelColor(250, 60), c_green));
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), c_green));
    }

    void NullListBeforeAnyOther()
    {
        PictureSlider slider;
        slider.UpdateUi(nullptr);
        QCOMPARE(Caption(slider)->text(), u"-/0"_s);
        // Index -1: the viewer opens and shows nothing.
        slider.ShowFullScreen();
        QVERIFY(Viewer(slider)->isVisible());
        QCOMPARE(ViewerCaption(slider), u"-/0"_s);
    }

    void ResetOnlyClearsTheCaption()
    {
        FilledSlider slider(SmallPictures(3));
        slider.ShowVenuePic(1);
        slider.ResetUi();
        QCOMPARE(Caption(slider)->text(), u"-/0"_s);
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), c_green));
        slider.SetVenuePicButtonsStatus();
        QCOMPARE(Caption(slider)->text(), u"2/3 Hall"_s);
    }

    void EmptyListKeepsTheIndexOutOfTheWay()
    {
        FilledSlider slider(SmallPictures(3));
        slider.ShowVenuePic(-1);
        Show(slider, {});
        slider.ShowVenuePic(1);
        QCOMPARE(Caption(slider)->text(), u"-/0"_s);
        slider.ShowFullScreen();
        QCOMPARE(ViewerCaption(slider), u"-/0"_s);
        Viewer(slider)->hide();
        Show(slider, SmallPictures(1));
        QCOMPARE(Caption(slider)->text(), u"1/1 Hall"_s);
    }

    void PictureIsDrawnInTheMiddle_data()
    {
        const Rows<QSize, QRect> row("size", "drawn");
        row("wide: 800 x 200 at -150, 20", QSize(1600, 400), QRect(0, 20, 500, 200));
        row("enlarged to the height", QSize(40, 24), QRect(50, 0, 400, 240));
        row("high: 60 x 240 at 220, 0", QSize(250, 1000), QRect(220, 0, 60, 240));
        row("half pixels round away from zero", QSize(61, 240), QRect(220, 0, 61, 240));
    }
    void PictureIsDrawnInTheMiddle()
    {
        const auto [size, drawn] = Fetch<QSize, QRect>();
        FilledSlider slider({SmallPicture(u"Hall"_s, c_green, size)});
        QImage image = Painted(slider);
        // Above the caption band; below it the same picture goes on, darker.
        const QRect above = drawn.intersected(QRect(0, 0, 500, 213));
        const QRect inked = Inked(image.copy(0, 0, 500, 213), c_darkBackground);
        QCOMPARE(inked, above);
        QVERIFY(IsNear(image.pixelColor(above.center()), c_green));
    }

    void WidePictureIsCutOffOnBothSides()
    {
        FilledSlider slider({MakePicture(TwoColored(QSize(1600, 400)), TwoColored(QSize(16, 4)))});
        const QImage image = Painted(slider);
        // The middle of the picture is the middle of the slider.
        QVERIFY(IsNear(image.pixelColor(0, 60), Qt::red));
        QVERIFY(IsNear(image.pixelColor(247, 60), Qt::red));
        QVERIFY(IsNear(image.pixelColor(253, 60), Qt::blue));
        QVERIFY(IsNear(image.pixelColor(499, 60), Qt::blue));
    }

    void CaptionBandAndBackgroundTellTheTheme_data()
    {
        const Rows<bool, QColor, QColor> row("dayMode", "background", "band");
        // (0, 200, 0) under white at 0.75 or black at 0.5.
        row("light", true, QColor(Qt::white), QColor(191, 241, 191));
        row("dark", false, c_darkBackground, QColor(0, 100, 0));
    }
    void CaptionBandAndBackgroundTellTheTheme()
    {
        const auto [dayMode, background, band] = Fetch<bool, QColor, QColor>();
        FilledSlider slider({SmallPicture(u"Hall"_s, c_green, QSize(400, 240))});
        slider.SetDayMode(dayMode);
        const QImage image = Painted(slider);
        QCOMPARE(image.pixelColor(10, 10), background);
        QCOMPARE(image.pixelColor(495, 100), background);
        QVERIFY(IsNear(image.pixelColor(250, 212), c_green));
        QVERIFY(IsNear(image.pixelColor(250, 213), band));
        QVERIFY(IsNear(image.pixelColor(250, 235), band));
        QVERIFY(IsNear(image.pixelColor(250, 236), c_green));
    }

    void ThemeReachesBothArrowsAndTheViewer_data()
    {
        const Rows<bool, QColor, QColor> row("dayMode", "disc", "background");
        // (0, 200, 0) under black or white at 0.5.
        row("light", true, QColor(0, 100, 0), Qt::white);
        row("dark", false, QColor(127, 227, 127), c_darkBackground);
    }
    void ThemeReachesBothArrowsAndTheViewer()
    {
        const auto [dayMode, disc, background] = Fetch<bool, QColor, QColor>();
        FilledSlider slider(QList<Picture>(2, SmallPicture(u"Hall"_s, c_green, QSize(500, 240))));
        slider.SetDayMode(!dayMode);
        slider.SetDayMode(dayMode);
        const QImage image = slider.grab().toImage();
        for (const int which : {0, 1}) {
            const QPoint onDisc = NavigationButton(slider, which)->geometry().center() + QPoint(0, 9);
            QVERIFY(IsNear(image.pixelColor(onDisc), disc));
        }
        QCOMPARE(Viewer(slider)->findChild<PictureView*>()->backgroundBrush().color(), background);
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
        const Rows<QByteArray, bool, QString> row("small", "isListed", "text");
        row("empty list", {}, false, u"No Image"_s);
        row("no small rendition", {}, true, u"Image failure"_s);
        row("undecodable", "hello", true, u"Image failure"_s);
    }
    void MissingPictureIsSaidInGrey()
    {
        const auto [small, isListed, text] = Fetch<QByteArray, bool, QString>();
        FilledSlider slider(SmallPictures(1));
        QList<Picture> pictures;
        if (isListed) {
            // Its other renditions do not help.
            Picture picture = SmallPicture(u"Hall"_s, c_green);
            picture.SetPictureDataMedium(picture.GetPictureDataSmall());
            picture.SetPictureDataSmall(small);
            pictures.append(picture);
        }
        Show(slider, pictures);
        const QImage image = Painted(slider);
        QCOMPARE(image, PaintedText(text));
        // Centred on (400, 150), so that all ink stands in the lower right and the end is cut off.
        const QRect inked = Inked(image, c_darkBackground);
        QVERIFY(!inked.isNull());
        QVERIFY(inked.left() > 150);
        QVERIFY(inked.right() > 480);
        QVERIFY(qAbs(inked.center().y() - 150) < 12);

        // A picture that decodes takes the text away.
        Show(slider, SmallPictures(1));
        QVERIFY(IsNear(Painted(slider).pixelColor(250, 60), c_green));
        QVERIFY(IsNear(Painted(slider).pixelColor(450, 150), c_green));
    }

    void DiscChangesExactlyAtItsEdges_data()
    {
        const Rows<bool, QString, QString> row("dayMode", "plain", "hovered");
        row("light", true, u"background: hsla( 0, 0, 0, 0.50); border-radius: 12px;"_s,
            u"background: hsla( 0, 0, 0, 1.00); border-radius: 12px;"_s);
        row("dark", false, u"background: hsla( 0, 0, 255, 0.50); border-radius: 12px;"_s,
            u"background: hsla( 0, 0, 255, 1.00); border-radius: 12px;"_s);
    }
    void DiscChangesExactlyAtItsEdges()
    {
        const auto [dayMode, plain, hovered] = Fetch<bool, QString, QString>();
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
        QVERIFY(button->styleSheet().contains(u"1.00"_s));
        // Gone without another move.
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&slider, &leave);
        QVERIFY(button->styleSheet().contains(u"0.50"_s));
    }

    void DiscCarriesTheOppositeGlyph_data()
    {
        const Rows<bool, bool> row("dayMode", "isGlyphLight");
        row("light theme: light glyph on a dark disc", true, true);
        row("dark theme: dark glyph on a light disc", false, false);
    }
    void DiscCarriesTheOppositeGlyph()
    {
        const auto [dayMode, isGlyphLight] = Fetch<bool, bool>();
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
        const Rows<QString> row("name");
        for (const char* name :
             {"korvelFullscreen.svg", "korvelFullscreen_day.svg", "korvelFullscreenCircle.svg",
              "korvelFullscreenCircle_day.svg", "ic_EQ_scale_16x16.svg", "ic_EQ_scale_16x16_day.svg"})
            row(name, QString::fromLatin1(name));
    }
    void IconsAreInTheModule()
    {
        QFETCH(QString, name);
        const QString path = u":/Resources/"_s + name;
        QVERIFY(QFile::exists(path));
        const QImage drawn = QIcon(path).pixmap(24, 24).toImage();
        QVERIFY(!drawn.isNull());
        QVERIFY(!Inked(drawn.convertToFormat(QImage::Format_RGB32), Qt::black).isNull()
                || !Inked(drawn.convertToFormat(QImage::Format_RGB32), Qt::white).isNull());
    }

    void FullscreenButtonOpensTheViewerOnTheCurrentPicture()
    {
        FilledSlider slider({SmallPicture(u"a"_s, Qt::red), SmallPicture(u"b"_s, Qt::green)});
        slider.ShowVenuePic(1);
        slider.show();
        QTest::mouseClick(FullscreenButton(slider), Qt::LeftButton);
        QVERIFY(Viewer(slider)->isVisible());
        QVERIFY(Viewer(slider)->isMaximized());
        QCOMPARE(ViewerCaption(slider), u"2/2 b"_s);
        // Steps there leave the slider where it is.
        Viewer(slider)->ModifyPicturesIndex(1);
        QCOMPARE(Caption(slider)->text(), u"2/2 b"_s);
    }

    void ViewerMayBeGone()
    {
        PictureSlider slider;
        delete Viewer(slider);
        Show(slider, SmallPictures(2));
        slider.SetDayMode(true);
        slider.ShowFullScreen();
        QCOMPARE(Caption(slider)->text(), u"1/2 Hall"_s);
    }
};

QTEST_MAIN(tst_PictureSlider)
#include "tst_PictureSlider.moc"
