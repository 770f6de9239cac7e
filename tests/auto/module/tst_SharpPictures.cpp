#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QImage>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;
using korvel::Data::VenueDatabase::Picture;

namespace {

/// What the environment asks for: the program runs once for each scale.
double ExpectedScale()
{
    const QByteArray scale = qgetenv("QT_SCALE_FACTOR");
    return scale.isEmpty() ? 1.0 : scale.toDouble();
}

/// Stripes one pixel wide: whatever is scaled down and up again loses them.
QImage FinePicture()
{
    QImage image(1000, 480, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, (x + y / 7) % 2 == 0 ? qRgb(250, 200, 40) : qRgb(20, 60, 120));
    return image;
}

/// The largest difference of any colour channel; 255 for images of different size.
int Difference(const QImage& left, const QImage& right)
{
    if (left.size() != right.size())
        return 255;
    const QImage a = left.convertToFormat(QImage::Format_RGB32);
    const QImage b = right.convertToFormat(QImage::Format_RGB32);
    int difference = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            difference = std::max({difference, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                   std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return difference;
}

QRect Scaled(const QRect& rect, double scale)
{
    return {static_cast<int>(rect.x() * scale), static_cast<int>(rect.y() * scale),
            static_cast<int>(rect.width() * scale), static_cast<int>(rect.height() * scale)};
}

/// The drawing in \p path in \p size pixels, as its decoder renders it there.
QImage RenderedSvg(const QString& path, const QSize& size)
{
    QImageReader reader(path);
    reader.setScaledSize(size);
    return reader.read();
}

} // namespace

/// Pictures and icons have as many pixels as the screen shows, and at scale 1 exactly those of their files.
class tst_SharpPictures : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void TheScreenHasTheScaleUnderTest()
    {
        QCOMPARE(qApp->devicePixelRatio(), ExpectedScale());
    }

    void TheFoldIconIsRenderedForTheScreen_data()
    {
        const Rows<bool, bool, QString> row("collapsed", "dayMode", "file");
        row("open", false, false, u"korvelFoldingWidgetOpen.svg"_s);
        row("open, day", false, true, u"korvelFoldingWidgetOpen_day.svg"_s);
        row("closed", true, false, u"korvelFoldingWidgetClosed.svg"_s);
        row("closed, day", true, true, u"korvelFoldingWidgetClosed_day.svg"_s);
    }
    void TheFoldIconIsRenderedForTheScreen()
    {
        const auto [collapsed, dayMode, file] = Fetch<bool, bool, QString>();
        const double scale = ExpectedScale();
        VenueDetailsWidget panel;
        panel.SetDayMode(dayMode);
        panel.SetCollapsed(collapsed);
        panel.show();

        const QString path = u":/Resources/"_s + file;
        const QPixmap shown = FoldIcon(panel)->pixmap(Qt::ReturnByValue);
        QCOMPARE(shown.devicePixelRatio(), scale);
        QCOMPARE(shown.deviceIndependentSize(), QSizeF(16, 16));
        QCOMPARE(shown.size(), QSize(16, 16) * scale);
        QCOMPARE(FoldIcon(panel)->sizeHint(), QSize(16, 16));
        if (qFuzzyCompare(scale, 1.0))
            QCOMPARE(shown.toImage(), QPixmap(path).toImage());
        else
            QVERIFY(Difference(shown.toImage(), RenderedSvg(path, shown.size())) <= 2);
    }

    void TheSlidersPictureIsScaledForTheScreen()
    {
        const double scale = ExpectedScale();
        PictureSlider slider;
        Show(slider, {MakePicture(Png(FinePicture()))});
        slider.show();

        // 500 x 240 on the slider, whatever the scale; right of the left button, above the full-screen one.
        const QRect part(60, 10, 160, 80);
        const QImage expected
            = FinePicture().scaled(QSize(800, 240) * scale, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QCOMPARE(expected.size(), QSize(500, 240) * scale);
        const QImage shown = slider.grab().toImage();
        QCOMPARE(shown.size(), QSize(500, 240) * scale);
        QVERIFY(Difference(shown.copy(Scaled(part, scale)), expected.copy(Scaled(part, scale))) <= 1);
    }

    void TheFullscreenIconIsRenderedForTheScreen_data()
    {
        const Rows<bool, QString> row("dayMode", "file");
        row("night", false, u"ic_EQ_scale_16x16_day.svg"_s);
        row("day", true, u"ic_EQ_scale_16x16.svg"_s);
    }
    void TheFullscreenIconIsRenderedForTheScreen()
    {
        const auto [dayMode, file] = Fetch<bool, QString>();
        const double scale = ExpectedScale();
        PictureSlider slider;
        slider.SetDayMode(dayMode);
        slider.show();
        QPushButton* button = FullscreenButton(slider);
        const QRect disc = Scaled(button->geometry(), scale);
        const QImage shown = slider.grab().toImage().copy(disc);

        // The same without the icon, with the drawing of the file laid over it.
        button->setIcon(QIcon());
        QImage expected = slider.grab().toImage().copy(disc);
        QVERIFY(Difference(shown, expected) > 50);
        expected.setDevicePixelRatio(1.0);
        QPainter painter(&expected);
        painter.drawImage(QPointF(4, 4) * scale,
                          RenderedSvg(u":/Resources/"_s + file, QSize(16, 16) * scale));
        painter.end();
        QVERIFY2(Difference(shown, expected) <= 2, qPrintable(QString::number(Difference(shown, expected))));
    }
};

QTEST_MAIN(tst_SharpPictures)

#include "tst_SharpPictures.moc"
