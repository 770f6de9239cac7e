#include <ui/PictureSlider.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/Files.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;
using korvel::Data::VenueDatabase::Picture;

namespace {

/// Two screens side by side; Qt's offscreen platform reads them from a file. The scale comes from
/// "logicalDpi": windows of Qt 6.8 know nothing of "dpr".
constexpr const char* c_screens = R"({"screens": [
    {"name": "plain", "x": 0, "y": 0, "width": 1200, "height": 1000,
     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
    {"name": "fine", "x": 1200, "y": 0, "width": 2400, "height": 2000,
     "logicalDpi": 192, "logicalBaseDpi": 96, "dpr": 1}]})";

/// The screen with \p scale; the platform lists them in an order of its own.
QScreen* ScreenOf(int scale)
{
    for (QScreen* screen : QGuiApplication::screens())
        if (qFuzzyCompare(screen->devicePixelRatio(), scale))
            return screen;
    return nullptr;
}

/// Moves \p window to the screen with \p scale. Its size remains, as desktops keep it; the platform itself
/// keeps the number of its pixels.
void MoveTo(QWidget& window, int scale)
{
    const QSize size = window.size();
    window.move(ScreenOf(scale)->geometry().topLeft() + QPoint(10, 10));
    QTRY_COMPARE(window.screen(), ScreenOf(scale));
    QTRY_COMPARE(window.devicePixelRatio(), qreal(scale));
    window.resize(size);
    QTRY_COMPARE(window.size(), size);
}

} // namespace

/// What is shown stays sharp when the window moves to a screen of another scale.
class tst_ScreenChange : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void ThereAreTwoScreens()
    {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        QVERIFY(ScreenOf(1));
        QVERIFY(ScreenOf(2));
    }

    void TheFoldIconFollowsTheScreen()
    {
        VenueDetailsWidget panel;
        panel.SetDayMode(true);
        panel.setGeometry(10, 10, 1062, 516);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        panel.grab();
        QCOMPARE(FoldIcon(panel)->pixmap(Qt::ReturnByValue).size(), QSize(16, 16));
        for (const int screen : {1, 0}) {
            MoveTo(panel, 1 + screen);
            panel.grab();
            const QPixmap shown = FoldIcon(panel)->pixmap(Qt::ReturnByValue);
            QCOMPARE(shown.size(), QSize(16, 16) * (1 + screen));
            QCOMPARE(shown.deviceIndependentSize(), QSizeF(16, 16));
        }
    }

    void TheSlidersPictureFollowsTheScreen()
    {
        PictureSlider slider;
        // Stripes one pixel wide, to be seen one by one only where the screen has as many pixels.
        QImage stripes(1000, 480, QImage::Format_RGB32);
        for (int x = 0; x < stripes.width(); ++x)
            for (int y = 0; y < stripes.height(); ++y)
                stripes.setPixel(x, y, x % 2 == 0 ? qRgb(250, 250, 250) : qRgb(10, 10, 10));
        Show(slider, {MakePicture(Png(stripes))});
        slider.move(10, 10);
        slider.show();
        QVERIFY(QTest::qWaitForWindowExposed(&slider));
        QCOMPARE(slider.grab().toImage().size(), QSize(500, 240));

        MoveTo(slider, 2);
        const QImage fine = slider.grab().toImage();
        QCOMPARE(fine.size(), QSize(1000, 480));
        QCOMPARE(fine.pixelColor(200, 40), QColor(250, 250, 250));
        QCOMPARE(fine.pixelColor(201, 40), QColor(10, 10, 10));

        MoveTo(slider, 1);
        QCOMPARE(
            slider.grab().toImage().copy(60, 10, 160, 80),
            stripes.scaled(500, 240, Qt::KeepAspectRatio, Qt::SmoothTransformation).copy(60, 10, 160, 80));
    }
};

int main(int argc, char* argv[])
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"screens.json"_s);
    WriteFile(file, c_screens);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file));

    QApplication application(argc, argv);
    tst_ScreenChange test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ScreenChange.moc"
