#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDbSignalHandler.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/Files.h>
#include <tests/support/HangGuard.h>
#include <tests/support/HostileData.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/StrictTest.h>
#include <tests/support/TurnCounter.h>
#include <tests/support/VdbMessages.h>
#include <tests/support/Widgets.h>

#include <server/VenueServer.h>
#include <server/catalogue/CatalogueGenerator.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMetaEnum>
#include <QNetworkReply>
#include <QProcess>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// What a scenario that came to its end leaves exec() with.
constexpr int c_scenarioEnded = 77;
/// What one that stands still leaves it with.
constexpr int c_scenarioHangs = 99;
constexpr int c_hostsExitCode = 7;
constexpr int c_venueCount = 6;
/// How long a whole scenario may take before it counts as standing still. Far less than the 30 s that a query
/// may wait, far more than any takes on a busy machine.
constexpr int c_scenarioLimit = 15000;
constexpr int c_limitSlices = 10;
/// How soon the application is to end after exit() or quit().
constexpr int c_exitLimit = 2000;
/// How soon a wait is to end once its end was asked for.
constexpr int c_waitLimit = 5000;

bool IsFull()
{
    return qEnvironmentVariable("VDB_TORTURE") == u"full"_s;
}

QByteArray PictureBytes(const VenueRecord& /*venue*/, const PictureRecord& /*picture*/, QSize size)
{
    // Noise does not compress, so that a large rendition arrives in many pieces.
    static const QByteArray small = NoisePicture({24, 16});
    static const QByteArray large = NoisePicture({360, 240});
    return size.width() > 1000 ? large : small;
}

VenueServer::Options ServerOptions()
{
    VenueServer::Options options;
    options.pictureSource = PictureBytes;
    return options;
}

QtMessageHandler g_previousHandler = nullptr;

/// Lets the remarks of the offscreen platform go: thousands of them would use up what a test may write.
void DropPlatformRemarks(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(u"This plugin does not support"_s))
        g_previousHandler(type, context, message);
}

/// As QTest::mouseClick(), for a widget that may not outlive the press.
void Click(QWidget* widget, QPoint position = {})
{
    const QPointer<QWidget> guard(widget);
    QTest::mousePress(widget, Qt::LeftButton, {}, position);
    if (guard)
        QTest::mouseRelease(guard, Qt::LeftButton, {}, position);
}

bool CanBeClicked(const QWidget* widget)
{
    return widget && widget->isVisible() && widget->isEnabled();
}

/// Answers every box, file dialog and menu that opens, some turns after it did, and notes those that open
/// or stay although the dialog that they belong to is gone.
class BoxAnswerer : public QObject
{
    Q_OBJECT

public:
    explicit BoxAnswerer(const QPointer<VenueDbDialog>& dialog)
        : m_dialog(dialog)
    {
        qApp->installEventFilter(this);
    }

    void Start(const QString& fileToSave, bool retriesOnce)
    {
        m_fileToSave = fileToSave;
        m_mayRetry = retriesOnce;
        m_orphans.clear();
        m_boxes = 0;
    }
    QStringList Orphans() const
    {
        return m_orphans;
    }
    int Boxes() const
    {
        return m_boxes;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && watched->isWidgetType()
            && (qobject_cast<QMessageBox*>(watched) || qobject_cast<QFileDialog*>(watched)
                || qobject_cast<QMenu*>(watched))) {
            ++m_boxes;
            if (!m_dialog)
                NoteOrphan(*watched);
            AnswerLater(static_cast<QWidget*>(watched), 6);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void AnswerLater(const QPointer<QWidget>& window, int turns)
    {
        // A window that is disabled for as long as something loads is asked again.
        QTimer::singleShot(turns < 0 ? 5 : 0, this, [this, window, turns]() {
            if (!window || !window->isVisible())
                return;
            if (!m_dialog)
                NoteOrphan(*window);
            if (turns > 0 || !window->isEnabled())
                AnswerLater(window, turns - 1);
            else
                Answer(window);
        });
    }

    void NoteOrphan(const QObject& window)
    {
        m_orphans.append(QString::fromLatin1(window.metaObject()->className()));
    }

    void Answer(QWidget* window)
    {
        if (auto* box = qobject_cast<QMessageBox*>(window)) {
            QAbstractButton* retry = m_mayRetry ? box->button(QMessageBox::Retry) : nullptr;
            m_mayRetry = false;
            QAbstractButton* button = retry ? retry : box->button(QMessageBox::Close);
            Click(button ? button : box->buttons().constFirst());
        } else if (auto* fileDialog = qobject_cast<QFileDialog*>(window)) {
            fileDialog->findChild<QLineEdit*>()->setText(m_fileToSave);
            QTest::keyClick(fileDialog->findChild<QLineEdit*>(), Qt::Key_Return);
        } else if (auto* menu = qobject_cast<QMenu*>(window)) {
            menu->setActiveAction(menu->actions().constFirst());
            QTest::keyClick(menu, Qt::Key_Return);
        }
    }

    const QPointer<VenueDbDialog>& m_dialog;
    QString m_fileToSave;
    QStringList m_orphans;
    int m_boxes = 0;
    bool m_mayRetry = false;
};

} // namespace

/// What hosts do at the worst moment: every scenario is run again and again, each time with one thing done to
/// the dialog in another turn of the event loop, until the scenario ends before that turn.
///
/// By default a part of the turns is tried; all of them with VDB_TORTURE=full in the environment.
class tst_Torture : public StrictTest
{
    Q_OBJECT

public:
    enum class Deed
    {
        Delete,
        DeleteLater,
        Disconnect,
        ConnectAnew,
        Open,
        Hide,
        SetDayMode,
        SearchAgain,
        SelectAnotherRow,
        SayLoaded,
        SayNotLoaded,
        Quit,
        Exit
    };
    Q_ENUM(Deed)

    /// Runs one scenario with one deed in a process of its own, whose exit code this returns.
    int RunAsChild(const QStringList& arguments)
    {
        const Scenario& scenario = Scenarios().at(arguments.at(2).toInt());
        const Deed deed = Deed(arguments.at(3).toInt());
        QFile authority(arguments.at(6));
        if (!authority.open(QIODevice::ReadOnly))
            return c_scenarioHangs;
        const QNetworkProxy proxy(QNetworkProxy::HttpProxy, u"127.0.0.1"_s, arguments.at(5).toUShort());
        m_network = std::make_unique<ApplicationNetworkGuard>(proxy, QSslCertificate(&authority));
        m_reportsDeed = true;
        const Outcome outcome = Run(scenario, {{arguments.at(4).toInt(), deed}}, u"child"_s);
        delete m_dialog;
        return outcome.code;
    }

private:
    using Step = void (tst_Torture::*)();

    struct Scenario
    {
        const char* name;
        /// What is done before it begins, one after the other, each when everything is at rest.
        QList<Step> prelude;
        QList<Step> steps;
        /// Whether it did what its name says, when nothing interfered.
        bool (tst_Torture::*hasSucceeded)();
        bool asksServer = false;
        bool needsRetry = false;
    };

    struct Injection
    {
        int turn = 0;
        Deed deed = Deed::Delete;
    };

    /// How one run went.
    struct Outcome
    {
        int code = 0;
        int turns = 0;
        /// From the last deed to the end.
        qint64 elapsed = 0;
        /// The deeds that were done; one that the dialog's contract forbids at its moment is not.
        int done = 0;
        /// Those whose turn came.
        int reached = 0;
        bool diedByDeed = false;
        bool hasSucceeded = false;
    };

    VenueServer m_server{ServerOptions()};
    VenueCatalogue m_catalogue;
    std::unique_ptr<ApplicationNetworkGuard> m_network;
    QPointer<VenueDbDialog> m_dialog;
    TurnCounter m_turns;
    BoxAnswerer m_answerer{m_dialog};
    HangGuard m_hangGuard{4 * c_scenarioLimit};
    /// How many selections of rows are on the stack.
    int m_selections = 0;
    QTemporaryDir m_folder;

    QString m_fileToSave;
    int m_importCount = 0;
    int m_injections = 0;
    QHash<int, int> m_undisturbedTurns;

    // Of the running scenario.
    QElapsedTimer m_sinceDeed;
    bool m_isServerSilent = false;
    bool m_hasActed = false;
    bool m_isQuitting = false;
    /// Whether a line on the standard output is to tell the parent process when the deed is done.
    bool m_reportsDeed = false;

    static const QList<Scenario>& Scenarios()
    {
        using T = tst_Torture;
        static const QList<Scenario> c_scenarios{
            {"open and search", {}, {&T::StepOpen, &T::StepSearch}, &T::ListsAllVenues, true},
            {"search with Retry", {}, {&T::StepOpen}, &T::ListsAllVenuesAfterRetry, true, true},
            {"select a venue", {&T::StepOpen}, {&T::StepClickRow}, &T::ShowsDetails, true},
            {"full screen",
             {&T::StepOpen, &T::StepClickRow},
             {&T::StepFullScreen, &T::StepNextPicture, &T::StepLeaveFullScreen},
             &T::HasFetchedTwoLargePictures,
             true},
            {"save by key",
             {&T::StepOpen, &T::StepClickRow, &T::StepFullScreen},
             {&T::StepSaveByKey},
             &T::HasSaved},
            {"save by menu",
             {&T::StepOpen, &T::StepClickRow, &T::StepFullScreen},
             {&T::StepSaveByMenu},
             &T::HasSaved},
            {"import", {&T::StepOpen, &T::StepClickRow}, {&T::StepImport}, &T::HasImported},
        };
        return c_scenarios;
    }

    static QList<Deed> Deeds()
    {
        QList<Deed> deeds;
        const QMetaEnum names = QMetaEnum::fromType<Deed>();
        for (int index = 0; index < names.keyCount(); ++index)
            deeds.append(Deed(names.value(index)));
        return deeds;
    }

    static QString Name(Deed deed)
    {
        return QString::fromLatin1(QMetaEnum::fromType<Deed>().valueToKey(int(deed)));
    }

    /// A row for each of \p deeds in each scenario that is meant.
    static void AddRows(const QList<Deed>& deeds, const std::function<bool(const Scenario&)>& isMeant)
    {
        QTest::addColumn<int>("scenario");
        QTest::addColumn<Deed>("deed");
        for (int index = 0; index < Scenarios().size(); ++index)
            for (const Deed deed : deeds)
                if (isMeant(Scenarios().at(index)))
                    QTest::addRow("%s, %s", Scenarios().at(index).name, qPrintable(Name(deed)))
                        << index << deed;
    }

    QTableView* Table() const
    {
        return m_dialog ? m_dialog->findChild<QTableView*>() : nullptr;
    }
    VenueDetailsWidget* Details() const
    {
        return m_dialog ? m_dialog->findChild<VenueDetailsWidget*>() : nullptr;
    }
    VenueDbCentralWidget* Panel() const
    {
        return m_dialog ? m_dialog->findChild<VenueDbCentralWidget*>() : nullptr;
    }
    PictureFullscreenDialog* Viewer() const
    {
        return m_dialog ? m_dialog->findChild<PictureFullscreenDialog*>() : nullptr;
    }
    int Rows() const
    {
        return m_dialog ? std::max(RowCount(Table()), 0) : 0;
    }
    QPushButton* ButtonOf(const QString& text) const
    {
        return m_dialog ? Button(*m_dialog, text) : nullptr;
    }

    // --- the steps of the scenarios; where a deed has taken away what a step needs, it does nothing

    void StepOpen()
    {
        if (m_dialog)
            m_dialog->Open(nullptr);
    }
    void StepSearch()
    {
        if (CanBeClicked(ButtonOf(u"Search"_s)))
            Click(ButtonOf(u"Search"_s));
    }
    /// Details load while Qt's view code selects a row, and at no other time.
    template <typename Select> void Selecting(Select select)
    {
        ++m_selections;
        select();
        --m_selections;
    }
    void StepClickRow()
    {
        if (Rows() > 2 && CanBeClicked(Table()))
            Selecting([this] {
                Click(Table()->viewport(), Table()->visualRect(Table()->model()->index(2, 1)).center());
            });
    }
    void StepFullScreen()
    {
        auto* slider = m_dialog ? m_dialog->findChild<PictureSlider*>() : nullptr;
        if (!CanBeClicked(slider))
            return;
        QPushButton* button = FullscreenButton(*slider);
        if (button->isVisible())
            Click(button);
    }
    void StepNextPicture()
    {
        if (CanBeClicked(Viewer()))
            QTest::keyClick(Viewer(), Qt::Key_D);
    }
    void StepLeaveFullScreen()
    {
        if (CanBeClicked(Viewer()))
            QTest::keyClick(Viewer(), Qt::Key_Escape);
    }
    void StepSaveByKey()
    {
        if (CanBeClicked(Viewer()))
            QTest::keyClick(Viewer(), Qt::Key_S, Qt::ControlModifier);
    }
    void StepSaveByMenu()
    {
        if (!CanBeClicked(Viewer()))
            return;
        QWidget* viewport = Viewer()->findChild<PictureView*>()->viewport();
        const QPoint center = viewport->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, center, viewport->mapToGlobal(center));
        QApplication::sendEvent(viewport, &event);
    }
    void StepImport()
    {
        QPushButton* button = ButtonOf(u"Import to Tessra"_s);
        if (CanBeClicked(button))
            Click(button);
    }

    // --- what the scenarios lead to when nobody interferes

    bool ListsAllVenues()
    {
        return Rows() == c_venueCount && m_answerer.Boxes() == 0;
    }
    bool ListsAllVenuesAfterRetry()
    {
        return Rows() == c_venueCount && m_answerer.Boxes() == 1;
    }
    bool ShowsDetails()
    {
        const auto labels = m_dialog->findChildren<QLabel*>();
        const bool hasPictures = std::any_of(labels.cbegin(), labels.cend(), [](const QLabel* label) {
            return label->text().startsWith(u"1/5 "_s);
        });
        return hasPictures && Details()->isVisible()
            && Details()->findChild<TsFileOpener*>()->findChild<QComboBox*>()->count() == 2;
    }
    bool HasFetchedTwoLargePictures()
    {
        return m_server.Log().RequestCount(u"-large."_s) == 2 && Viewer()->isHidden();
    }
    bool HasSaved()
    {
        return QImage(m_fileToSave).size() == QSize(360, 240) && m_answerer.Boxes() >= 1;
    }
    bool HasImported()
    {
        return m_importCount == 1 && Details()->findChild<TsFileOpener*>()->isEnabled();
    }

    bool Do(Deed deed)
    {
        if (!m_dialog)
            return false;
        // The one moment at which hosts are told not to.
        if (deed == Deed::Delete && m_selections > 0)
            return false;

        m_hasActed = true;
        m_isQuitting = m_isQuitting || deed == Deed::Quit || deed == Deed::Exit;
        m_sinceDeed.start();
        if (m_reportsDeed) {
            std::fputs("deed\n", stdout);
            std::fflush(stdout);
        }
        switch (deed) {
        case Deed::Delete:
            delete m_dialog;
            break;
        case Deed::DeleteLater:
            m_dialog->deleteLater();
            break;
        case Deed::Disconnect:
            m_dialog->DisconnectVdb();
            break;
        case Deed::ConnectAnew:
            m_dialog->ConnectVdb(u"JSONREST"_s);
            break;
        case Deed::Open:
            m_dialog->Open(nullptr);
            break;
        case Deed::Hide:
            m_dialog->hide();
            break;
        case Deed::SetDayMode:
            m_dialog->SetDayMode(true);
            break;
        case Deed::SearchAgain:
            Panel()->PerformQuery();
            break;
        case Deed::SelectAnotherRow:
            if (Rows() == 0)
                return false;
            Selecting([this] { Table()->selectRow((Table()->currentIndex().row() + 1) % Rows()); });
            break;
        case Deed::SayLoaded:
            m_dialog->SetVenueLoaded(true);
            break;
        case Deed::SayNotLoaded:
            m_dialog->SetVenueLoaded(false);
            break;
        case Deed::Quit:
            QCoreApplication::quit();
            break;
        case Deed::Exit:
            QCoreApplication::exit(c_hostsExitCode);
            break;
        }
        return true;
    }

    /// Runs \p scenario with \p injections; \p begin is called between its prelude and itself.
    Outcome Run(const Scenario& scenario, const QList<Injection>& injections, const QString& what,
                const std::function<void()>& begin = {})
    {
        const HangGuard::Watch watch(m_hangGuard, what);
        Outcome outcome;
        m_hasActed = false;
        m_isQuitting = false;
        m_importCount = 0;
        m_server.Log().Clear();
        if (scenario.needsRetry)
            m_server.AddFault(Fault::On(u"/api/venue"_s).WithStatus(503).Times(1));
        m_fileToSave = m_folder.filePath(u"saved.jpg"_s);
        QFile::remove(m_fileToSave);
        m_answerer.Start(m_fileToSave, scenario.needsRetry);
        m_dialog = new VenueDbDialog;
        m_dialog->ConnectVdb(u"JSONREST"_s);

        QList<std::pair<int, TurnCounter::Action>> actions;
        for (const Injection& injection : injections) {
            actions.append({injection.turn, [this, &outcome, deed = injection.deed]() {
                                ++outcome.reached;
                                // Counted before: exec() may end within it.
                                ++outcome.done;
                                if (!Do(deed))
                                    --outcome.done;
                            }});
        }

        QList<Step> steps = scenario.prelude + scenario.steps;
        m_turns.OnRest([this]() { return IsAtRest(); },
                       [&]() {
                           // The host's own exit code is not to be replaced in the same turn.
                           if (m_isQuitting)
                               return;
                           if (steps.size() == scenario.steps.size()) {
                               m_turns.Start(actions);
                               if (begin)
                                   begin();
                           }
                           if (steps.isEmpty()) {
                               m_turns.Stop();
                               QCoreApplication::exit(c_scenarioEnded);
                               return;
                           }
                           (this->*steps.takeFirst())();
                       });
        QTimer limit;
        // In slices: a machine that stood still meanwhile has used up one of them, not all.
        int slices = c_limitSlices;
        connect(&limit, &QTimer::timeout, this, [&slices]() {
            if (--slices == 0)
                QCoreApplication::exit(c_scenarioHangs);
        });
        limit.start(c_scenarioLimit / c_limitSlices);
        outcome.code = QCoreApplication::exec();
        limit.stop();
        outcome.elapsed = m_hasActed ? m_sinceDeed.elapsed() : 0;
        outcome.turns = m_turns.Turns();
        m_turns.Stop();
        outcome.diedByDeed = !m_dialog;
        outcome.hasSucceeded = m_dialog && (this->*scenario.hasSucceeded)();
        return outcome;
    }

    /// Runs \p scenario with \p injections and verifies the aftermath. Null when that failed.
    std::optional<Outcome> Torment(const Scenario& scenario, const QList<Injection>& injections)
    {
        QString what = QLatin1String(scenario.name);
        for (const Injection& injection : injections)
            what += u", %1 in turn %2"_s.arg(Name(injection.deed)).arg(injection.turn);
        const Outcome outcome = Run(scenario, injections, what);
        m_injections += outcome.done;
        m_server.ClearFaults();
        VerifyAftermath(outcome, injections);
        if (!QTest::currentTestFailed())
            return outcome;
        qInfo("torture: failed at %s", qPrintable(what));
        return {};
    }

    /// Verifies what must hold after every run, whatever was done.
    void VerifyAftermath(const Outcome& outcome, const QList<Injection>& injections)
    {
        const auto did = [&](Deed deed) {
            return outcome.done == injections.size()
                && std::any_of(injections.cbegin(), injections.cend(),
                               [deed](const Injection& injection) { return injection.deed == deed; });
        };
        QVERIFY2(outcome.code != c_scenarioHangs, "a wait does not end");
        if (injections.size() == 1 && (did(Deed::Quit) || did(Deed::Exit))) {
            QCOMPARE(outcome.code, did(Deed::Quit) ? 0 : c_hostsExitCode);
            QVERIFY2(outcome.elapsed < c_exitLimit, qPrintable(QString::number(outcome.elapsed)));
        }
        if (injections.size() == 1) {
            QCOMPARE(outcome.diedByDeed, did(Deed::Delete) || did(Deed::DeleteLater));
            if (!did(Deed::Quit) && !did(Deed::Exit))
                QCOMPARE(outcome.code, c_scenarioEnded);
        }
        QVERIFY2(m_answerer.Orphans().isEmpty(), qPrintable(m_answerer.Orphans().join(QLatin1Char(' '))));
        QVERIFY(!QApplication::activePopupWidget());

        if (m_dialog) {
            // Nothing is locked or says that it is busy.
            QVERIFY(Details()->isEnabled());
            QVERIFY(Panel()->cursor().shape() != Qt::WaitCursor);
            const auto labels = m_dialog->findChildren<QLabel*>();
            QVERIFY(std::none_of(labels.cbegin(), labels.cend(),
                                 [](const QLabel* label) { return label->text() == u"Loading..."_s; }));
            delete m_dialog;
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        QVERIFY2(QApplication::topLevelWidgets().isEmpty(), "a window is left");
        QVERIFY(!QApplication::activeModalWidget());

        // The host's own, and nothing on top of it or instead of it.
        QVERIFY(QApplication::overrideCursor());
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::CrossCursor);
        QApplication::restoreOverrideCursor();
        QVERIFY(!QApplication::overrideCursor());
        QApplication::setOverrideCursor(Qt::CrossCursor);
    }

    /// The turns of a scenario when nothing interferes.
    int UndisturbedTurns(int scenario)
    {
        int& turns = m_undisturbedTurns[scenario];
        if (turns == 0) {
            const auto outcome = Torment(Scenarios().at(scenario), {});
            turns = outcome ? outcome->turns : 1;
        }
        return turns;
    }

    bool IsAtRest() const
    {
        if (!m_dialog || (m_isServerSilent && m_hasActed))
            return true;
        const auto replies = m_dialog->findChildren<QNetworkReply*>();
        return std::none_of(replies.cbegin(), replies.cend(),
                            [](const QNetworkReply* reply) { return reply->isRunning(); });
    }

private Q_SLOTS:
    void initTestCase()
    {
        g_previousHandler = qInstallMessageHandler(DropPlatformRemarks);
        m_catalogue
            = CatalogueGenerator({.venueCount = c_venueCount, .picturesPerVenue = 5, .modelFilesPerVenue = 2})
                  .Catalogue();
        m_server.SetCatalogue(m_catalogue);
        QVERIFY2(m_server.Start(), qPrintable(m_server.ErrorText()));
        m_network = m_server.InstallInApplication();
        connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::ImportVenueFromTempFileRequest,
                this, &tst_Torture::OnImportRequest);
        QVERIFY(m_folder.isValid());
    }

    void init()
    {
        StrictTest::init();
        QApplication::setOverrideCursor(Qt::CrossCursor);
    }

    void cleanup()
    {
        m_server.ClearFaults();
        m_isServerSilent = false;
        delete m_dialog;
        QApplication::restoreOverrideCursor();
        const bool isCursorLeft = QApplication::overrideCursor();
        // The next row is to begin without what this one left.
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        QVERIFY(!isCursorLeft);
        StrictTest::cleanup();
    }

    void cleanupTestCase()
    {
        qInfo("torture: %d injections", m_injections);
        qInstallMessageHandler(g_previousHandler);
        m_network.reset();
    }

    void UndisturbedScenariosSucceed_data()
    {
        QTest::addColumn<int>("scenario");
        for (int index = 0; index < Scenarios().size(); ++index)
            QTest::newRow(Scenarios().at(index).name) << index;
    }
    void UndisturbedScenariosSucceed()
    {
        QFETCH(int, scenario);
        const VdbMessages messages;
        QElapsedTimer elapsed;
        elapsed.start();
        const Outcome outcome = Run(Scenarios().at(scenario), {}, u"undisturbed"_s);
        qInfo("torture: %s, %d turns, %lld ms", Scenarios().at(scenario).name, outcome.turns,
              elapsed.elapsed());
        QCOMPARE(outcome.code, c_scenarioEnded);
        QVERIFY(outcome.hasSucceeded);
        QVERIFY(outcome.turns > 3);
        VerifyAftermath(outcome, {});
    }

    void OneDeedInAnyTurn_data()
    {
        AddRows(Deeds(), [](const Scenario&) { return true; });
    }
    void OneDeedInAnyTurn()
    {
        QFETCH(int, scenario);
        QFETCH(Deed, deed);
        const VdbMessages messages;
        // A part of the turns for every deed, and others for each of them.
        const int step = IsFull() ? 1 : std::max(3, UndisturbedTurns(scenario) / 4);
        int turn = IsFull() ? 1 : 1 + (int(deed) * 5 + scenario) % step;
        int count = 0;
        for (bool isReached = true; isReached && (IsFull() || turn <= UndisturbedTurns(scenario));
             turn += step) {
            const auto outcome = Torment(Scenarios().at(scenario), {{turn, deed}});
            if (!outcome)
                return;
            isReached = outcome->reached > 0;
            count += outcome->done;
        }
        qInfo("torture: %s: %s, %d injections", Scenarios().at(scenario).name, qPrintable(Name(deed)), count);
    }

    void TwoDeedsInAnyTurns_data()
    {
        UndisturbedScenariosSucceed_data();
    }
    void TwoDeedsInAnyTurns()
    {
        QFETCH(int, scenario);
        const VdbMessages messages;
        // Drawn, but the same ones every time.
        QRandomGenerator random(quint32(scenario) + 1);
        const int runs = IsFull() ? 40 : 8;
        const int turns = UndisturbedTurns(scenario);
        const QList<Deed> deeds = Deeds();
        int count = 0;
        for (int run = 0; run < runs; ++run) {
            const int first = random.bounded(1, turns + 1);
            const int second = first + random.bounded(1, turns / 2 + 2);
            const auto outcome = Torment(Scenarios().at(scenario),
                                         {{first, deeds.at(random.bounded(deeds.size()))},
                                          {second, deeds.at(random.bounded(deeds.size()))}});
            if (!outcome)
                return;
            count += outcome->done;
        }
        qInfo("torture: %s: two deeds, %d injections", Scenarios().at(scenario).name, count);
    }

    void EveryWaitForASilentServerEnds_data()
    {
        AddRows(
            {Deed::Delete, Deed::DeleteLater, Deed::Disconnect, Deed::ConnectAnew, Deed::Quit, Deed::Exit},
            [](const Scenario& scenario) { return scenario.asksServer; });
    }
    void EveryWaitForASilentServerEnds()
    {
        QFETCH(int, scenario);
        QFETCH(Deed, deed);
        const VdbMessages messages;
        int count = 0;
        bool isReached = true;
        // The request that is never answered; -1 for the connection that is never made.
        for (int request = -1; isReached; ++request) {
            // By default every second one.
            if (!IsFull() && (request + int(deed)) % 2 != 0)
                continue;
            const QString what = u"%1: %2 while request %3 waits"_s
                                     .arg(QLatin1String(Scenarios().at(scenario).name), Name(deed))
                                     .arg(request);
            int arrived = request < 0 ? 0 : -1;
            bool isDone = false;
            QObject context;
            m_isServerSilent = true;
            const auto onArrival = [&]() {
                if (arrived++ != request + (request < 0 ? 1 : 0) || isDone)
                    return;
                isDone = true;
                // What is asked from now on is answered again.
                m_server.ClearFaults();
                const bool isForbidden = deed == Deed::Delete && m_selections > 0;
                Do(isForbidden ? Deed::DeleteLater : deed);
            };
            const Outcome outcome = Run(Scenarios().at(scenario), {}, what, [&]() {
                if (request < 0) {
                    m_server.AddFault(NetworkFault{.kind = NetworkFault::Kind::NeverAnswer, .host = {}});
                    connect(&m_server.Log(), &RequestLog::ConnectReceived, &context, onArrival);
                } else {
                    arrived = 0;
                    m_server.AddFault(Fault::On(QString()).Skip(request).WithoutAnswer());
                    connect(&m_server.Log(), &RequestLog::RequestReceived, &context, onArrival);
                }
            });
            m_server.ClearFaults();
            m_isServerSilent = false;
            isReached = isDone || request < 0;
            count += isDone ? 1 : 0;
            VerifyAftermath(outcome, {});
            QVERIFY2(outcome.elapsed < c_waitLimit, qPrintable(what));
            if (QTest::currentTestFailed()) {
                qInfo("torture: failed at %s", qPrintable(what));
                return;
            }
        }
        m_injections += count;
        qInfo("torture: %s: %s while the server is silent, %d injections", Scenarios().at(scenario).name,
              qPrintable(Name(deed)), count);
    }

    void ProcessEndsSoonAfterExit_data()
    {
        AddRows({Deed::Quit, Deed::Exit}, [](const Scenario& scenario) { return !scenario.needsRetry; });
    }
    void ProcessEndsSoonAfterExit()
    {
        QFETCH(int, scenario);
        QFETCH(Deed, deed);
        const QString authority = m_folder.filePath(u"authority.pem"_s);
        WriteFile(authority, m_server.CaPem());

        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // The search for leaks takes seconds of its own.
        environment.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        // In the middle of it. A process of its own may need fewer turns, and then ends before the deed: try
        // an earlier one.
        QByteArray output;
        for (int turn = UndisturbedTurns(scenario) / 2; turn > 0 && !output.contains("deed\n"); turn /= 2) {
            process.waitForFinished(c_exitLimit);
            process.start(QCoreApplication::applicationFilePath(),
                          {u"--child"_s, QString::number(scenario), QString::number(int(deed)),
                           QString::number(turn), QString::number(m_server.ProxyPort()), authority});
            while (!output.contains("deed\n") && process.waitForReadyRead(2 * c_scenarioLimit))
                output += process.readAll();
        }
        QElapsedTimer elapsed;
        elapsed.start();
        QVERIFY2(output.contains("deed\n"), output.constData());
        QVERIFY2(process.waitForFinished(c_exitLimit), "the process goes on");
        QVERIFY(elapsed.elapsed() < c_exitLimit);
        output += process.readAll();
        QVERIFY2(process.exitStatus() == QProcess::NormalExit, output.constData());
        QVERIFY2(process.exitCode() == (deed == Deed::Quit ? 0 : c_hostsExitCode), output.constData());
        ++m_injections;
    }

public:
    /// The host's side of an import: it reads the file and lets the event loop turn meanwhile.
    void OnImportRequest(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly) || file.readAll().isEmpty())
            return;
        ++m_importCount;
        const QPointer<VenueDbDialog> dialog = m_dialog;
        for (int turn = 0; turn < 4; ++turn) {
            QEventLoop loop;
            QTimer::singleShot(0, &loop, &QEventLoop::quit);
            loop.exec();
        }
        if (dialog)
            dialog->SetVenueLoaded(true);
    }
};

int main(int argc, char** argv)
{
    // The one dispatcher says what a turn is; with the other the turns would not be the same everywhere.
    qputenv("QT_NO_GLIB", "1");
    // Every run has a limit of its own; a row of them may take as long as it needs.
    qputenv("QTEST_FUNCTION_TIMEOUT", "3600000");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    // Hosts have a window of their own that stays.
    QApplication::setQuitOnLastWindowClosed(false);
    tst_Torture torture;
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == u"--child"_s)
        return torture.RunAsChild(arguments);
    return QTest::qExec(&torture, argc, argv);
}

#include "tst_Torture.moc"
