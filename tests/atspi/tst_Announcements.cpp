#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QAccessible>

#include <utility>

using namespace Qt::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// Hears what screen readers are told while this lives, in place of the bus. One at a time.
class Listener
{
public:
    explicit Listener(QAccessible::Event kind)
    {
        s_kind = kind;
        s_names.clear();
        m_before = QAccessible::installUpdateHandler(&Hear);
    }
    ~Listener()
    {
        QAccessible::installUpdateHandler(m_before);
    }
    Q_DISABLE_COPY_MOVE(Listener)

    /// The accessible names of those that an event of the kind was about, since the last call.
    static QStringList TakeNames()
    {
        return std::exchange(s_names, {});
    }

private:
    static void Hear(QAccessibleEvent* event)
    {
        if (event->type() == s_kind && event->accessibleInterface())
            s_names.append(event->accessibleInterface()->text(QAccessible::Name));
    }

    static inline QAccessible::Event s_kind = QAccessible::Alert;
    static inline QStringList s_names;
    QAccessible::UpdateHandler m_before = nullptr;
};

QList<Picture> TwoPictures()
{
    const QByteArray data = EncodedPicture(QSize(30, 24), Qt::darkCyan);
    return {MakePicture(data, data, u"Stage"_s), MakePicture(data, data, u"Dock"_s)};
}

} // namespace

/// What is told without being asked. Qt tells it only while a screen reader runs, or what passes for one.
class tst_Announcements : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QTRY_VERIFY2(QAccessible::isActive(), "there is no accessibility bus");
    }

    void SteppingInTheViewerSaysWhatIsShown()
    {
        PictureFullscreenDialog viewer;
        Show(viewer, TwoPictures());
        const Listener alerts(QAccessible::Alert);
        QTest::keyClick(&viewer, Qt::Key_D);
        QCOMPARE(Listener::TakeNames(), QStringList(u"2/2 Dock"_s));
        NavigationButton(viewer, 0)->click();
        QCOMPARE(Listener::TakeNames(), QStringList(u"1/2 Stage"_s));
    }

    void SteppingInTheSliderSaysWhatIsShown()
    {
        PictureSlider slider;
        const Listener alerts(QAccessible::Alert);
        Show(slider, TwoPictures());
        // The details of a venue are many: they wait until they are asked for.
        QCOMPARE(Listener::TakeNames(), QStringList());
        NavigationButton(slider, 1)->click();
        QCOMPARE(Listener::TakeNames(), QStringList(u"2/2 Dock"_s));
    }

    void FoldingTheDetailsIsTold()
    {
        VenueDetailsWidget panel;
        const Listener changes(QAccessible::StateChanged);
        panel.SetCollapsed(true);
        QCOMPARE(Listener::TakeNames().count(u"Expand venue details"_s), 1);
        // Another look is no other state.
        panel.SetDayMode(true);
        QCOMPARE(Listener::TakeNames().count(u"Expand venue details"_s), 0);
        panel.SetCollapsed(false);
        QCOMPARE(Listener::TakeNames().count(u"Collapse venue details"_s), 1);
    }

    void ThePanelTellsWhenItIsBusy()
    {
        ConnectorStub connector;
        VenueDbCentralWidget panel;
        panel.SetConnector(&connector);
        panel.setAccessibleName(u"panel"_s);
        const Listener changes(QAccessible::StateChanged);
        panel.PerformQuery();
        // The search and the country list, each begun and ended.
        QCOMPARE(Listener::TakeNames().count(u"panel"_s), 4);
    }
};

QTEST_MAIN(tst_Announcements)

#include "tst_Announcements.moc"
