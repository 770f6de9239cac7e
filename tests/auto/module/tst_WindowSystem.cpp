#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureView.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/EventCounter.h>
#include <tests/support/GeneratedServer.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Demo;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// Plays a user at mouse and keyboard. Unlike the events of QTest these come from the window system.
bool XdoTool(const QStringList& arguments)
{
    QProcess process;
    process.start(u"xdotool"_s, arguments);
    // Without an event loop: one of ours would let in the input that a wait holds back.
    return process.waitForFinished(10000) && process.exitCode() == 0;
}

QStringList ClickAt(const QWidget* widget)
{
    const QPoint center = widget->mapToGlobal(widget->rect().center());
    return {u"mousemove"_s, QString::number(center.x()), QString::number(center.y()), u"click"_s, u"1"_s};
}

/// The dialog that asks the stub, opened and filled.
struct FilledDialog : VenueDbDialog
{
    explicit FilledDialog(ConnectorStub& stub)
    {
        SearchPanel(*this)->SetConnector(&stub);
        Open(nullptr);
        QVERIFY(QTest::qWaitForWindowActive(this));
        QTRY_COMPARE(stub.searches.size(), 2);
    }
};

/// Clicks and moves go by whole pixels, and the window manager may add its frame.
void VerifyNear(const QPoint& shown, const QPoint& expected, int tolerance)
{
    const QPoint distance = shown - expected;
    QVERIFY2(qAbs(distance.x()) <= tolerance && qAbs(distance.y()) <= tolerance,
             qPrintable(u"%1, %2"_s.arg(distance.x()).arg(distance.y())));
}

} // namespace

/// What only a real window system with a window manager shows.
class tst_WindowSystem : public StrictTest
{
    Q_OBJECT

private:
    ConnectorStub m_stub;

private Q_SLOTS:
    void initTestCase()
    {
        QCOMPARE(QGuiApplication::platformName(), u"xcb"_s);
    }

    void init()
    {
        StrictTest::init();
        m_stub.Reset();
    }

    void ClicksDuringAWaitAreHeldBackAndReplayed()
    {
        const auto server = GeneratedServer({.venueCount = 3});
        const auto network = server->InstallInApplication();
        VenueDbDialog dialog;
        dialog.ConnectVdb(u"JSONREST"_s);
        dialog.Open(nullptr);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(dialog.findChild<QTableView*>()->model());
        server->Log().Clear();

        // The answer waits until the click has long been made.
        server->AddFault(Fault::On(u"filter[title]"_s).WithDelay(2000));
        dialog.findChildren<QLineEdit*>().first()->setText(u"a"_s);
        QPushButton* close = Button(dialog, u"Close"_s);
        const auto isAnswered = [&server]() {
            const auto requests = server->Log().Requests(u"filter[title]"_s);
            return !requests.isEmpty() && requests.first().status != 0;
        };
        QList<bool> pressesAfterTheAnswer;
        const EventCounter presses(close, QEvent::MouseButtonPress,
                                   [&] { pressesAfterTheAnswer.append(isAnswered()); });
        bool isClickMade = false;
        QTimer::singleShot(200, &dialog, [&]() { isClickMade = XdoTool(ClickAt(close)) && !isAnswered(); });
        SearchPanel(dialog)->PerformQuery();
        QVERIFY2(isClickMade, "the click came too late to show anything");
        QTRY_COMPARE(pressesAfterTheAnswer, QList<bool>{true});
        QTRY_VERIFY(dialog.isHidden());
    }

    void ReturnTypedInAFieldSearches()
    {
        FilledDialog dialog(m_stub);
        for (int field = 0; field < 3; ++field) {
            m_stub.searches.clear();
            QLineEdit* lineEdit = dialog.findChildren<QLineEdit*>().at(field);
            QVERIFY(XdoTool(ClickAt(lineEdit)));
            QTRY_VERIFY(lineEdit->hasFocus());
            QVERIFY(XdoTool({u"type"_s, u"x"_s}));
            QVERIFY(XdoTool({u"key"_s, u"Return"_s}));
            QTRY_COMPARE(m_stub.searches.size(), 2);
            QCOMPARE(m_stub.searches.first().size(), field + 1);
        }
    }

    void RefusedImportGivesTheFocusBack()
    {
        m_stub.venues = {MakeVenue(7, u"Hall"_s)};
        m_stub.onGetFiles = [](qint64) { return QList<TsFile>{MakeFile(u"hall.tessra"_s)}; };
        FilledDialog dialog(m_stub);
        // As a host answers that could not read the file.
        QPointer<QMessageBox> box;
        int requests = 0;
        connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::ImportVenueFromTempFileRequest,
                &dialog, [&] {
                    ++requests;
                    dialog.SetVenueLoaded(false);
                    box = new QMessageBox(QMessageBox::Warning, u"Import"_s, u"Cannot read it."_s,
                                          QMessageBox::Ok, &dialog);
                    box->setAttribute(Qt::WA_DeleteOnClose);
                    connect(box, &QDialog::finished, &dialog, [&] { dialog.SetVenueLoaded(true); });
                    box->open();
                });
        dialog.findChild<QTableView*>()->selectRow(0);
        QPushButton* import = Button(dialog, u"Import to Tessra"_s);
        import->setFocus(Qt::TabFocusReason);
        // Twice: one Return too many asks again, and closes nothing.
        for (int round = 1; round <= 2; ++round) {
            QVERIFY(XdoTool({u"key"_s, u"Return"_s}));
            QTRY_COMPARE(requests, round);
            QTRY_VERIFY(box && box->isActiveWindow());
            QVERIFY(XdoTool({u"key"_s, u"Return"_s}));
            QTRY_VERIFY(!box);
            QTRY_VERIFY(import->hasFocus());
            QVERIFY(dialog.isVisible());
        }
    }

    void OpenCentresTheDialogAgain_data()
    {
        const Rows<Qt::WindowState> row("state");
        row("moved and resized", Qt::WindowNoState);
        row("maximised", Qt::WindowMaximized);
        row("minimised", Qt::WindowMinimized);
    }
    void OpenCentresTheDialogAgain()
    {
        QFETCH(Qt::WindowState, state);
        VenueDbDialog dialog;
        SearchPanel(dialog)->SetConnector(&m_stub);
        dialog.Open(nullptr);
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        dialog.setGeometry(40, 60, 1200, 800);
        QTRY_COMPARE(dialog.size(), QSize(1200, 800));
        dialog.setWindowState(state);
        QTRY_COMPARE(dialog.isMaximized(), state == Qt::WindowMaximized);

        dialog.Open(nullptr);
        const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
        QTRY_COMPARE(dialog.size(), QSize(1062, 768));
        QTRY_VERIFY(!dialog.isMaximized() && !dialog.isMinimized());
        VerifyNear(dialog.geometry().center(), available.center(), 30);
    }

    void TitleBarCloseHidesTheDialog()
    {
        FilledDialog dialog(m_stub);
        QVERIFY(XdoTool({u"key"_s, u"alt+F4"_s}));
        QTRY_VERIFY(dialog.isHidden());
    }

    void ViewerOpensMaximisedAndComesBackToItsNormalSize()
    {
        PictureFullscreenDialog viewer;
        viewer.Open();
        QTRY_VERIFY(viewer.isMaximized());
        QVERIFY(QTest::qWaitForWindowActive(&viewer));
        const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
        QTRY_COMPARE(viewer.width(), available.width());
        QVERIFY(viewer.frameGeometry().height() >= available.height() - 1);
        QTRY_VERIFY(viewer.findChild<PictureView*>()->hasFocus());
        viewer.showNormal();
        QTRY_COMPARE(viewer.size(), QSize(1062, 768));
    }

    void ZoomKeepsWhatIsUnderTheMouseBeforeItMoved_data()
    {
        const Rows<QStringList> row("input");
        row("by wheel", {u"click"_s, u"4"_s});
        row("by key", {u"key"_s, u"plus"_s});
    }
    void ZoomKeepsWhatIsUnderTheMouseBeforeItMoved()
    {
        QFETCH(QStringList, input);
        // The picture fills the screen both ways, so that any point of it can stay where it is.
        const QPoint mouse(1100, 350);
        QVERIFY(XdoTool({u"mousemove"_s, QString::number(mouse.x()), QString::number(mouse.y())}));
        PictureFullscreenDialog viewer;
        OpenViewer(viewer, {MakePicture({}, EncodedPicture(QSize(3000, 1750), Qt::blue))});
        QTRY_VERIFY(viewer.isMaximized());
        QVERIFY(QTest::qWaitForWindowActive(&viewer));
        const PictureView* view = viewer.findChild<PictureView*>();
        // Its last place and size.
        QTRY_COMPARE(viewer.frameGeometry(), QGuiApplication::primaryScreen()->availableGeometry());
        QTRY_VERIFY(view->underMouse());

        const QPoint position = view->viewport()->mapFromGlobal(mouse);
        const QPointF pointed = view->mapToScene(position);
        const double fitted = view->transform().m11();
        QVERIFY(XdoTool(input));
        QTRY_COMPARE(view->transform().m11(), fitted * PictureView::c_zoomStep);
        VerifyNear(view->mapFromScene(pointed), position, 2);
    }

    void DialogAllowsQuittingWhileItIsOpen()
    {
        // Often enough to be sure: a refused close cancels a quit only now and then.
        for (int round = 0; round < 10; ++round) {
            VenueDbDialog dialog;
            SearchPanel(dialog)->SetConnector(&m_stub);
            dialog.Open(nullptr);
            QVERIFY(QTest::qWaitForWindowExposed(&dialog));
            QTimer::singleShot(10000, &dialog, []() { QCoreApplication::exit(99); });
            QTimer::singleShot(0, &dialog, []() { QCoreApplication::quit(); });
            QCOMPARE(QCoreApplication::exec(), 0);
        }
    }
};

QTEST_MAIN(tst_WindowSystem)
#include "tst_WindowSystem.moc"
