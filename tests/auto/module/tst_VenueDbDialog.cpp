#include <ui/VenueDbDialog.h>

#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QStyle>
#include <QTableView>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// A dialog that asks \p stub.
struct StubbedDialog : VenueDbDialog
{
    explicit StubbedDialog(ConnectorStub& stub)
    {
        SearchPanel(*this)->SetConnector(&stub);
    }
};

/// The same, open and filled.
struct FilledDialog : StubbedDialog
{
    explicit FilledDialog(ConnectorStub& stub)
        : StubbedDialog(stub)
    {
        Open(nullptr);
        QVERIFY(QTest::qWaitForWindowActive(this));
        QTRY_COMPARE(stub.calls.size(), 2);
    }
    QTableView* table = findChild<QTableView*>();
};

} // namespace

class tst_VenueDbDialog : public StrictTest
{
    Q_OBJECT

private:
    ConnectorStub m_stub;

private Q_SLOTS:
    void init()
    {
        StrictTest::init();
        m_stub.Reset();
        m_stub.venues = {MakeVenue(1), MakeVenue(2)};
    }

    void IsBuiltHiddenWithTitleAndButtons()
    {
        const VenueDbDialog dialog;
        QCOMPARE(dialog.parent(), nullptr);
        QVERIFY(!dialog.isModal());
        QVERIFY(dialog.isHidden());
        QCOMPARE(dialog.windowTitle(), u"Venue database"_s);
        QCOMPARE(StyleOf(&dialog), u"dialogKorvelDefault"_s);
        // Qt adds the title and the system menu to any frame; nothing else, no minimise or help button.
        QCOMPARE(dialog.windowFlags(),
                 Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint | Qt::WindowTitleHint
                     | Qt::WindowSystemMenuHint);
        QVERIFY(SearchPanel(dialog));
        QCOMPARE(dialog.layout()->itemAt(0)->widget(), SearchPanel(dialog));
        QCOMPARE(dialog.GetVdbConnectionInfo(), QString());
    }

    void ConnectionTypes_data()
    {
        const Rows<QString, bool, QString> row("type", "isConnected", "info");
        const QString none = u"no connection specified"_s;
        row("JSONREST", u"JSONREST"_s, true, u"JsonRest connection "_s);
        row("lower case", u"jsonrest"_s, false, none);
        row("blank behind", u"JSONREST "_s, false, none);
        row("empty", {}, false, none);
    }
    void ConnectionTypes()
    {
        QFETCH(QString, type);
        VenueDbDialog dialog;
        QTEST(dialog.ConnectVdb(type), "isConnected");
        QTEST(dialog.GetVdbConnectionInfo(), "info");
    }

    void DisconnectKeepsTheInfo()
    {
        VenueDbDialog dialog;
        dialog.ConnectVdb(u"JSONREST"_s);
        dialog.DisconnectVdb();
        QCOMPARE(dialog.GetVdbConnectionInfo(), u"JsonRest connection "_s);
        dialog.DisconnectVdb();
    }

    void AfterDisconnectOrUnknownTypeSearchesDoNothing_data()
    {
        const Rows<bool> row("disconnects");
        row("disconnected", true);
        row("unknown type", false);
    }
    void AfterDisconnectOrUnknownTypeSearchesDoNothing()
    {
        QFETCH(bool, disconnects);
        VenueDbDialog dialog;
        dialog.ConnectVdb(u"JSONREST"_s);
        if (disconnects)
            dialog.DisconnectVdb();
        else
            dialog.ConnectVdb(u"OTHER"_s);
        SearchPanel(dialog)->PerformQuery();
        QVERIFY(!dialog.findChild<QTableView*>()->model());
    }

    void OpenCentresTheDialogOnTheScreen_data()
    {
        const Rows<bool, bool, Qt::WindowState> row("givesScreen", "isReopened", "stateBefore");
        row("given screen", true, false, Qt::WindowNoState);
        row("primary screen for null", false, false, Qt::WindowNoState);
        row("resized", false, true, Qt::WindowNoState);
        row("maximised", false, true, Qt::WindowMaximized);
        row("minimised", false, true, Qt::WindowMinimized);
    }
    void OpenCentresTheDialogOnTheScreen()
    {
        const auto [givesScreen, isReopened, stateBefore] = Fetch<bool, bool, Qt::WindowState>();
        VenueDbDialog dialog;
        if (isReopened) {
            dialog.Open(nullptr);
            dialog.setGeometry(10, 10, 1200, 790);
            dialog.setWindowState(stateBefore);
        }
        QScreen* primary = QGuiApplication::primaryScreen();
        dialog.Open(givesScreen ? primary : nullptr);
        QCOMPARE(dialog.size(), QSize(1062, 768));
        QCOMPARE(dialog.geometry(),
                 QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, QSize(1062, 768),
                                     primary->availableGeometry()));
        QVERIFY(dialog.isVisible());
        QVERIFY(!dialog.isMaximized());
        QVERIFY(!dialog.isMinimized());
    }

    void OpenSearchesWhenControlIsBackInTheEventLoop()
    {
        StubbedDialog dialog(m_stub);
        dialog.Open(nullptr);
        QVERIFY(m_stub.calls.isEmpty());
        QTRY_COMPARE(m_stub.calls.size(), 2);
    }

    void ProgressIsShownInTheFrame()
    {
        StubbedDialog dialog(m_stub);
        QString textMeanwhile;
        m_stub.duringCall = [&] { textMeanwhile = dialog.GetStatusLabel()->text(); };
        SearchPanel(dialog)->PerformQuery();
        QCOMPARE(textMeanwhile, u"Loading..."_s);
    }

    void ClosingOnlyHides()
    {
        FilledDialog dialog(m_stub);
        QCloseEvent event;
        QApplication::sendEvent(&dialog, &event);
        QVERIFY(!event.isAccepted());
        QVERIFY(dialog.isHidden());

        dialog.Open(nullptr);
        QCoreApplication::processEvents();
        QCOMPARE(RowCount(dialog.table), 2);
        QCOMPARE(m_stub.calls.size(), 2);
    }

    void ReopenedDialogStartsInTheFirstField()
    {
        FilledDialog dialog(m_stub);
        QPushButton* close = Button(dialog, u"Close"_s);
        close->setFocus();
        QTest::keyClick(close, Qt::Key_Space);
        QVERIFY(dialog.isHidden());

        dialog.Open(nullptr);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(dialog.focusWidget(), dialog.findChild<QLineEdit*>());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        QVERIFY2(dialog.isVisible(), "Return closed the dialog");
        QCOMPARE(m_stub.calls.size(), 4);
    }

    void OpeningAnOpenDialogLeavesTheFocus()
    {
        FilledDialog dialog(m_stub);
        dialog.table->setFocus();
        dialog.Open(nullptr);
        QCOMPARE(dialog.focusWidget(), dialog.table);
    }

    void VenueLoadedReachesTheHubOnce_data()
    {
        const Rows<bool> row("loaded");
        row("imported", true);
        row("refused", false);
    }
    void VenueLoadedReachesTheHubOnce()
    {
        QFETCH(bool, loaded);
        VenueDbDialog dialog;
        const QSignalSpy own(&dialog, &VenueDbDialog::VenueLoaded);
        const QSignalSpy hub(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded);
        dialog.SetVenueLoaded(loaded);
        QCOMPARE(own.count(), 1);
        QCOMPARE(hub.count(), 1);
        QCOMPARE(hub.first().first().toBool(), loaded);
    }

    void DayModeReachesTheDetails()
    {
        FilledDialog dialog(m_stub);
        dialog.table->selectRow(0);
        auto* slider = dialog.findChild<PictureSlider*>();
        const auto corner = [slider]() { return slider->grab().toImage().pixelColor(250, 2); };
        dialog.SetDayMode(true);
        QCOMPARE(corner(), QColor(Qt::white));
        dialog.SetDayMode(false);
        QCOMPARE(corner(), QColor(49, 49, 49));
    }

    void QuittingIsNotStoppedByVisibleWindows_data()
    {
        const Rows<bool> row("opensViewer");
        row("dialog", false);
        row("dialog and full-screen viewer", true);
    }
    void QuittingIsNotStoppedByVisibleWindows()
    {
        QFETCH(bool, opensViewer);
        StubbedDialog dialog(m_stub);
        dialog.Open(nullptr);
        if (opensViewer)
            dialog.findChild<PictureFullscreenDialog*>()->Open();
        constexpr int stopped = 99;
        QTimer::singleShot(10000, &dialog, []() { QCoreApplication::exit(stopped); });
        QTimer::singleShot(0, &dialog, []() { QCoreApplication::quit(); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(dialog.isHidden());
        QVERIFY(NoWindowIsLeft());
    }

    void DialogMayBeDeletedDuringTheSearch_data()
    {
        const Rows<bool> row("later");
        row("directly", false);
        row("deleteLater", true);
    }
    void DialogMayBeDeletedDuringTheSearch()
    {
        QFETCH(bool, later);
        const QPointer<VenueDbDialog> dialog = new StubbedDialog(m_stub);
        m_stub.onFindVenues = [&](const ConnectorStub::Filters&, QList<Venue>&) {
            // As inside the connector's wait.
            QEventLoop loop;
            connect(dialog, &QObject::destroyed, &loop, &QEventLoop::quit);
            QTimer::singleShot(0, dialog, [&]() {
                if (later)
                    dialog->deleteLater();
                else
                    delete dialog;
            });
            loop.exec(QEventLoop::ExcludeUserInputEvents);
            return Timeout;
        };
        dialog->Open(nullptr);
        QTRY_VERIFY(!dialog);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void DeferredDeletionWaitsForTheDetails()
    {
        const QPointer<FilledDialog> dialog = new FilledDialog(m_stub);
        bool wasAliveAfterTheEvent = false;
        m_stub.onGetPictures = [&](qint64) {
            QEventLoop loop;
            QTimer::singleShot(0, dialog, [&]() {
                dialog->deleteLater();
                // Delivered by this loop's next turn, before the second timer.
                QTimer::singleShot(50, &loop, [&]() {
                    wasAliveAfterTheEvent = !dialog.isNull();
                    loop.quit();
                });
            });
            loop.exec(QEventLoop::ExcludeUserInputEvents);
            return QList<Picture>();
        };
        // A real click: Qt's view code is on the stack while the details load.
        ClickRow(dialog->table, 0);
        QVERIFY(wasAliveAfterTheEvent);
        QTRY_VERIFY(!dialog);
    }

    void DeferredDeletionEndsTheDetailsAtOnce()
    {
        const QPointer<VenueDbDialog> dialog = new VenueDbDialog;
        // Two connectors: the dialog's own, real one ends with the dialog's decision; the stub tells when.
        dialog->ConnectVdb(u"JSONREST"_s);
        SearchPanel(*dialog)->SetConnector(&m_stub);
        dialog->Open(nullptr);
        QTRY_COMPARE(m_stub.calls.size(), 2);
        bool wasVisibleAfterTheEvent = true;
        m_stub.duringCall = [&] {
            dialog->deleteLater();
            QCoreApplication::sendPostedEvents(dialog, QEvent::DeferredDelete);
            wasVisibleAfterTheEvent = dialog && dialog->isVisible();
        };
        dialog->findChild<QTableView*>()->selectRow(1);
        QTRY_VERIFY(!dialog);
        QVERIFY(!wasVisibleAfterTheEvent);
    }
};

QTEST_MAIN(tst_VenueDbDialog)
#include "tst_VenueDbDialog.moc"
