#include <ui/PictureNavigationButton.h>

#include <tests/support/PictureFixtures.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QHoverEvent>
#include <QImage>
#include <QPointer>
#include <QSignalSpy>

using namespace korvel::Test;
using korvel::Ui::VenueDatabase::PictureNavigationButton;

namespace {

constexpr QRgb c_background = qRgb(0, 200, 0);

/// A green parent of the slider's size, so that translucent drawing can be told by its colours.
class GreenParent : public QWidget
{
public:
    explicit GreenParent(const QSize& size = QSize(500, 240))
    {
        QPalette green = palette();
        green.setColor(QPalette::Window, QColor(c_background));
        setPalette(green);
        resize(size);
    }
};

void Hover(QWidget* widget, QEvent::Type type)
{
    QHoverEvent event(type, QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5)), QPointF(-1, -1));
    QCoreApplication::sendEvent(widget, &event);
}

int CountNear(const QImage& image, const QRect& area, QRgb color)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            count += IsNear(image.pixel(x, y), color) ? 1 : 0;
    return count;
}

} // namespace

class tst_PictureNavigationButton : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void IsAFlatHandButtonWithoutTextAndIcon()
    {
        QWidget parent;
        const PictureNavigationButton button(1, &parent);
        QVERIFY(button.isFlat());
        QVERIFY(button.testAttribute(Qt::WA_Hover));
        QVERIFY(button.testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(button.cursor().shape(), Qt::PointingHandCursor);
        QVERIFY(button.text().isEmpty());
        QVERIFY(button.icon().isNull());
    }

    void PressAsksForItsDirectionAtOnce_data()
    {
        const Rows<int> row("direction");
        row("previous", -1);
        row("next", 1);
        row("any other", 7);
    }
    void PressAsksForItsDirectionAtOnce()
    {
        QFETCH(int, direction);
        GreenParent parent;
        PictureNavigationButton button(direction, &parent);
        parent.show();
        QSignalSpy requests(&button, &PictureNavigationButton::PictureNavigationClicked);
        QSignalSpy presses(&button, &QPushButton::pressed);
        QSignalSpy releases(&button, &QPushButton::released);
        QSignalSpy clicks(&button, &QPushButton::clicked);

        QTest::mousePress(&button, Qt::LeftButton);
        QCOMPARE(requests.count(), 1);
        QCOMPARE(requests.first().first().toInt(), direction);
        QVERIFY(!button.isDown());

        QTest::mouseRelease(&button, Qt::LeftButton);
        QCOMPARE(requests.count(), 1);
        QCOMPARE(presses.count(), 0);
        QCOMPARE(releases.count(), 0);
        QCOMPARE(clicks.count(), 0);
    }

    void SecondPressOfADoubleClickCountsToo()
    {
        GreenParent parent;
        PictureNavigationButton button(1, &parent);
        parent.show();
        QSignalSpy requests(&button, &PictureNavigationButton::PictureNavigationClicked);
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseDClick(&button, Qt::LeftButton);
        QCOMPARE(requests.count(), 2);
    }

    void ReceiverMayDeleteTheButton()
    {
        GreenParent parent;
        auto* button = new PictureNavigationButton(-1, &parent);
        parent.show();
        const QPointer<PictureNavigationButton> guard(button);
        connect(button, &PictureNavigationButton::PictureNavigationClicked, &parent,
                [button] { delete button; });
        QTest::mousePress(button, Qt::LeftButton);
        QVERIFY(!guard);
    }

    void StandsOnItsEdgeAsSoonAsItIsShown_data()
    {
        const Rows<int, QSize, QRect> row("direction", "parentSize", "geometry");
        row("slider, previous", -1, QSize(500, 240), QRect(0, 0, 41, 240));
        row("slider, next", 1, QSize(500, 240), QRect(459, 0, 41, 240));
        row("at least 32 wide", 1, QSize(383, 50), QRect(351, 0, 32, 50));
        row("32 is a twelfth of 384", 1, QSize(384, 50), QRect(352, 0, 32, 50));
        row("33 is a twelfth of 396", 1, QSize(396, 50), QRect(363, 0, 33, 50));
        row("79 is a twelfth of 959", -1, QSize(959, 700), QRect(0, 0, 79, 700));
        row("at most 80 wide", 1, QSize(1600, 900), QRect(1520, 0, 80, 900));
    }
    void StandsOnItsEdgeAsSoonAsItIsShown()
    {
        const auto [direction, parentSize, geometry] = Fetch<int, QSize, QRect>();
        GreenParent parent(parentSize);
        const PictureNavigationButton button(direction, &parent);
        parent.show();
        QCOMPARE(button.geometry(), geometry);
        QCOMPARE(button.minimumSize(), geometry.size());
        QCOMPARE(button.maximumSize(), geometry.size());
    }

    void OtherDirectionIsSizedButNotMoved()
    {
        GreenParent parent;
        PictureNavigationButton button(0, &parent);
        button.move(17, 5);
        parent.show();
        QCOMPARE(button.geometry(), QRect(17, 5, 41, 240));
        button.AdjustToParent(3);
        QCOMPARE(button.geometry(), QRect(17, 5, 41, 240));
    }

    void OffsetMovesItFromItsEdge_data()
    {
        const Rows<int, int, QRect> row("direction", "offset", "geometry");
        row("previous, none", -1, 0, QRect(0, 0, 50, 300));
        row("previous, right", -1, 10, QRect(10, 0, 50, 300));
        row("next, none", 1, 0, QRect(550, 0, 50, 300));
        row("next, left of a scroll bar", 1, -14, QRect(536, 0, 50, 300));
    }
    void OffsetMovesItFromItsEdge()
    {
        const auto [direction, offset, geometry] = Fetch<int, int, QRect>();
        GreenParent parent;
        PictureNavigationButton button(direction, &parent);
        parent.show();
        parent.resize(600, 300);
        button.AdjustToParent(offset);
        QCOMPARE(button.geometry(), geometry);
    }

    void WithoutParentItKeepsItsPlace()
    {
        PictureNavigationButton button(1);
        button.setGeometry(10, 20, 60, 70);
        button.AdjustToParent(5);
        QCOMPARE(button.geometry(), QRect(10, 20, 60, 70));
    }

    void DiscTellsThemeAndHover_data()
    {
        const Rows<bool, bool, QRgb> row("dayMode", "hovered", "disc");
        // The background (0, 200, 0) under black or white at alpha 0.5 or 1.0.
        row("dark theme", false, false, qRgb(127, 227, 127));
        row("dark theme, hovered", false, true, qRgb(255, 255, 255));
        row("light theme", true, false, qRgb(0, 100, 0));
        row("light theme, hovered", true, true, qRgb(0, 0, 0));
    }
    void DiscTellsThemeAndHover()
    {
        const auto [dayMode, hovered, disc] = Fetch<bool, bool, QRgb>();
        GreenParent parent;
        PictureNavigationButton button(-1, &parent);
        button.SetDayMode(dayMode);
        parent.show();
        if (hovered)
            Hover(&button, QEvent::HoverEnter);
        const QImage image = parent.grab().toImage();
        const QPoint center(20, 120);
        // Ten pixels off the centre is inside the disc of radius 12 and beside the chevron; 13 is outside.
        for (const QPoint& beside : {QPoint(10, 0), QPoint(-10, 0), QPoint(0, 10), QPoint(0, -11)}) {
            const QRgb shown = image.pixel(center + beside);
            QVERIFY2(IsNear(shown, disc), qPrintable(QColor(shown).name()));
        }
        for (const QPoint& outside : {QPoint(13, 0), QPoint(-14, 0), QPoint(0, 13), QPoint(0, -14)})
            QCOMPARE(QColor(image.pixel(center + outside)).name(), QColor(c_background).name());
    }

    void LeavingTakesTheHoverBack()
    {
        GreenParent parent;
        PictureNavigationButton button(1, &parent);
        parent.show();
        const QImage before = parent.grab().toImage();
        Hover(&button, QEvent::HoverEnter);
        QVERIFY(parent.grab().toImage() != before);
        Hover(&button, QEvent::HoverLeave);
        QCOMPARE(parent.grab().toImage(), before);
    }

    void ChevronPointsItsWay_data()
    {
        const Rows<int, bool, bool> row("direction", "leftOfCenter", "rightOfCenter");
        row("previous", -1, true, false);
        row("next", 1, false, true);
        row("none", 0, false, false);
        row("two is none", 2, false, false);
    }
    void ChevronPointsItsWay()
    {
        QFETCH(int, direction);
        QFETCH(bool, leftOfCenter);
        QFETCH(bool, rightOfCenter);
        GreenParent parent;
        PictureNavigationButton button(direction, &parent);
        button.SetDayMode(true);
        parent.show();
        Hover(&button, QEvent::HoverEnter);
        const QImage image = button.grab().toImage();
        const QPoint center(20, 120);
        // The tip stands 4 pixels from the centre on its side, on the black disc in white.
        const auto isBright = [&image](const QRect& area) {
            for (int y = area.top(); y <= area.bottom(); ++y) {
                for (int x = area.left(); x <= area.right(); ++x)
                    if (qGray(image.pixel(x, y)) > 128)
                        return true;
            }
            return false;
        };
        QCOMPARE(isBright(QRect(center + QPoint(-5, -1), QSize(3, 3))), leftOfCenter);
        QCOMPARE(isBright(QRect(center + QPoint(2, -1), QSize(3, 3))), rightOfCenter);
        // It is an open line: nothing joins its two ends.
        QVERIFY(!isBright(QRect(center + QPoint(direction < 0 ? 1 : -3, -1), QSize(2, 3))));
        const QRect ends(center + QPoint(-4, -8), QSize(8, 4));
        QCOMPARE(isBright(ends), leftOfCenter || rightOfCenter);
    }

    void ChevronIsTheInverseOfTheDisc_data()
    {
        const Rows<bool, QRgb> row("dayMode", "chevron");
        row("light theme", true, qRgb(255, 255, 255));
        row("dark theme", false, qRgb(0, 0, 0));
    }
    void ChevronIsTheInverseOfTheDisc()
    {
        const auto [dayMode, chevron] = Fetch<bool, QRgb>();
        GreenParent parent;
        PictureNavigationButton button(-1, &parent);
        button.SetDayMode(dayMode);
        parent.show();
        Hover(&button, QEvent::HoverEnter);
        // Pixels of the full colour, within the disc.
        QVERIFY(CountNear(parent.grab().toImage(), QRect(13, 112, 14, 16), chevron) > 0);
    }
};

QTEST_MAIN(tst_PictureNavigationButton)
#include "tst_PictureNavigationButton.moc"
