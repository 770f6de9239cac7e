#include <data/Picture.h>
#include <ui/PictureSlider.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/MessageGuard.h>

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

using namespace korvel::Ui::VenueDatabase;
using korvel::Data::VenueDatabase::Picture;

namespace {

/// Two screens side by side; Qt's offscreen platform reads them from a file.
constexpr const char* c_screens = R"({"screens": [
    {"name": "plain", "x": 0, "y": 0, "width": 1200, "height": 1000,
     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
    {"name": "fine", "x": 1200, "y": 0, "width": 1200, "height": 1000,
     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}]})";

/// The screen with \p scale; the platform lists them in an order of its own.
QScreen* ScreenOf(int scale)
{
    for (QScreen* screen : QGuiApplication::screens()) {
        if (qFuzzyCompare(screen->devicePixelRatio(), scale))
            return screen;
    }
    return nullptr;
}

QLabel* FoldIcon(const QWidget& panel)
{
    for (QLabel* label : panel.findChildren<QLabel*>()) {
        if (!label->pixmap(Qt::ReturnByValue).isNull())
            return label;
    }
    return nullptr;
}

} // namespace

/// What is shown stays sharp when the window moves to a screen of another scale.
class tst_ScreenChange : public QObject
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
    }

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
            panel.move(10 + screen * 1200, 10);
            QTRY_COMPARE(panel.screen(), ScreenOf(1 + screen));
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
        for (int x = 0; x < stripes.width(); ++x) {
            for (int y = 0; y < stripes.height(); ++y)
                stripes.setPixel(x, y, x % 2 == 0 ? qRgb(250, 250, 250) : qRgb(10, 10, 10));
        }
        QByteArray data;
        QBuffer buffer(&data);
        buffer.open(QIODevice::WriteOnly);
        stripes.save(&buffer, "PNG");
        Picture picture;
        picture.SetPictureDataSmall(data);
        QList<Picture> pictures = {picture};
        slider.UpdateUi(&pictures);
        slider.move(10, 10);
        slider.show();
        QVERIFY(QTest::qWaitForWindowExposed(&slider));
        QCOMPARE(slider.grab().toImage().size(), QSize(500, 240));

        slider.move(1210, 10);
        QTRY_COMPARE(slider.screen(), ScreenOf(2));
        const QImage fine = slider.grab().toImage();
        QCOMPARE(fine.size(), QSize(1000, 480));
        QCOMPARE(fine.pixelColor(200, 40), QColor(250, 250, 250));
        QCOMPARE(fine.pixelColor(201, 40), QColor(10, 10, 10));

        slider.move(10, 10);
        QTRY_COMPARE(slider.screen(), ScreenOf(1));
        QCOMPARE(
            slider.grab().toImage().copy(60, 10, 160, 80),
            stripes.scaled(500, 240, Qt::KeepAspectRatio, Qt::SmoothTransformation).copy(60, 10, 160, 80));
    }
};

int main(int argc, char* argv[])
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("screens.json")));
    if (!file.open(QIODevice::WriteOnly) || file.write(c_screens) < 0)
        return 1;
    file.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file.fileName()));

    QApplication application(argc, argv);
    tst_ScreenChange test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ScreenChange.moc"
