#include <tests/host_guide/snippets/Embedding.h>
#include <tests/host_guide/snippets/Network.h>
#include <tests/host_guide/snippets/Texts.h>
#include <tests/host_guide/snippets/VenuePlace.h>

#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbSignalHandler.h>

#include <server/network/CertificateAuthority.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/Files.h>
#include <tests/support/ModalDriver.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSslCertificate>
#include <QStandardPaths>
#include <QTableView>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// What the user does in the dialog's model-file row, without a venue.
void RequestImport(const QString& path)
{
    Q_EMIT VenueDbSignalHandler::GetInstance()->ImportVenueFromTempFileRequest(path);
}

QList<bool> Answers(const QSignalSpy& spy)
{
    QList<bool> answers;
    for (const QList<QVariant>& arguments : spy)
        answers.append(arguments.first().toBool());
    return answers;
}

/// The application's proxy, which takes connections and never says a word: every query waits.
class SilentProxy : public QTcpServer
{
public:
    SilentProxy()
    {
        listen(QHostAddress::LocalHost);
        QNetworkProxy::setApplicationProxy(
            QNetworkProxy(QNetworkProxy::HttpProxy, u"127.0.0.1"_s, serverPort()));
        connect(this, &QTcpServer::newConnection, this, [this] {
            ++m_connectionCount;
            nextPendingConnection();
        });
    }

    int ConnectionCount() const
    {
        return m_connectionCount;
    }

private:
    int m_connectionCount = 0;
};

} // namespace

/// The pieces of code in the host guide do what it says of them.
class tst_HostGuideSnippets : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        QCoreApplication::setOrganizationName(u"korvel.example"_s);
        QCoreApplication::setApplicationName(u"tst_HostGuideSnippets"_s);
    }
    void init()
    {
        StrictTest::init();
        QSettings().clear();
    }
    void cleanup()
    {
        qApp->setStyleSheet(QString());
        QNetworkProxyFactory::setUseSystemConfiguration(false);
        QNetworkProxy::setApplicationProxy(QNetworkProxy::DefaultProxy);
        StrictTest::cleanup();
    }

    void ExplicitProxyCountsForTheApplication()
    {
        Network::UseProxy(u"me"_s, u"secret"_s);
        const QNetworkProxy proxy = QNetworkProxy::applicationProxy();
        QCOMPARE(proxy.type(), QNetworkProxy::HttpProxy);
        QCOMPARE(proxy.hostName(), u"proxy.company.example"_s);
        QCOMPARE(proxy.port(), quint16(3128));
        QCOMPARE(proxy.user(), u"me"_s);
        QCOMPARE(proxy.password(), u"secret"_s);
        Network::UseNoProxy();
        QCOMPARE(QNetworkProxy::applicationProxy().type(), QNetworkProxy::NoProxy);
    }

    void SystemProxyComesFromTheEnvironment()
    {
        Network::UseSystemProxy();
        QVERIFY(QNetworkProxyFactory::usesSystemConfiguration());
    }

    void AuthorityOfAFileIsTrusted()
    {
        const korvel::Demo::CertificateAuthority authority;
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"company.pem"_s);
        WriteFile(path, authority.Pem());

        const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
        QVERIFY(Network::TrustAuthority(path));
        const QList<QSslCertificate> trusted = QSslConfiguration::defaultConfiguration().caCertificates();
        QSslConfiguration::setDefaultConfiguration(before);
        QVERIFY(trusted.contains(authority.Certificate()));
    }

    void FileWithoutCertificateIsRefused()
    {
        const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
        QVERIFY(!Network::TrustAuthority(QStringLiteral(VDB_SOURCE_DIR "/README.md")));
        QVERIFY(!Network::TrustAuthority(u"/no/such/file.pem"_s));
        QCOMPARE(QSslConfiguration::defaultConfiguration(), before);
    }

    void DialogOpensWhereItWasLeft()
    {
        // A dialog that may be narrow stands for a screen that has room for it.
        const QSize narrow(600, 400);
        QRect left;
        {
            VenueDbDialog dialog;
            dialog.setMinimumSize(narrow);
            VenuePlace place(&dialog);
            place.Open(nullptr);
            dialog.setGeometry(40, 60, 700, 500);
            left = dialog.geometry();
            QVERIFY(left.size() != QSize(1062, 768));
            dialog.close();
            QVERIFY(!dialog.isVisible());
        }
        VenueDbDialog dialog;
        dialog.setMinimumSize(narrow);
        VenuePlace place(&dialog);
        place.Open(nullptr);
        QCOMPARE(dialog.geometry(), left);
        dialog.hide();
    }

    void FirstOpeningHasTheModulesSize()
    {
        VenueDbDialog dialog;
        VenuePlace place(&dialog);
        place.Open(nullptr);
        QCOMPARE(dialog.size(), QSize(1062, 768));
        dialog.hide();
    }

    void DialogIsMaximisedOnASmallScreen_data()
    {
        const Rows<bool> row("fits");
        row("the screen has room", true);
        row("the title bar would push it out", false);
    }
    void DialogIsMaximisedOnASmallScreen()
    {
        QFETCH(bool, fits);
        QScreen* screen = QGuiApplication::primaryScreen();
        QWidget window;
        Embedding embedding(&window);
        // A dialog as high as the screen stands for a screen as low as the dialog.
        if (!fits)
            embedding.Dialog()->setMinimumHeight(screen->availableGeometry().height());
        embedding.Open(screen);
        QCOMPARE(embedding.Dialog()->isMaximized(), !fits);
    }

    void HubLeadsDayModeAndHelpToTheHost()
    {
        QWidget mainWindow;
        Embedding embedding(&mainWindow);
        QVERIFY(embedding.IsDayMode());
        Q_EMIT VenueDbSignalHandler::GetInstance()->DayModeChangeRequested();
        QVERIFY(!embedding.IsDayMode());
        QVERIFY(qApp->styleSheet().contains(u"/dark/"_s));
        Q_EMIT VenueDbSignalHandler::GetInstance()->HelpRequested();
        int helpWindows = 0;
        for (QDialog* dialog : mainWindow.findChildren<QDialog*>()) {
            if (dialog->isVisible()) {
                ++helpWindows;
                dialog->close();
            }
        }
        QCOMPARE(helpWindows, 1);
    }

    void ImportedModelIsAnsweredOnce()
    {
        QWidget mainWindow;
        Embedding embedding(&mainWindow);
        const QSignalSpy answers(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded);
        RequestImport(QStringLiteral(VDB_SOURCE_DIR "/README.md"));
        QCOMPARE(Answers(answers), QList<bool>({true}));
    }

    void RefusedImportIsAnsweredTwice()
    {
        QWidget mainWindow;
        Embedding embedding(&mainWindow);
        const QSignalSpy answers(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded);
        RequestImport(u"/no/such/model"_s);
        QCOMPARE(Answers(answers), QList<bool>({false}));
        auto* box = embedding.Dialog()->findChild<QMessageBox*>();
        QVERIFY(box && box->isVisible());
        box->close();
        QCOMPARE(Answers(answers), QList<bool>({false, true}));
    }

    void BackgroundImportIsAnsweredInTheUiThread_data()
    {
        const Rows<QString, bool> row("path", "answer");
        row("readable", QStringLiteral(VDB_SOURCE_DIR "/README.md"), true);
        row("missing", u"/no/such/model"_s, false);
    }
    void BackgroundImportIsAnsweredInTheUiThread()
    {
        QFETCH(QString, path);
        QFETCH(bool, answer);
        QWidget mainWindow;
        Embedding embedding(&mainWindow);
        const QThread* thread = nullptr;
        connect(
            VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded, this,
            [&thread] { thread = QThread::currentThread(); }, Qt::DirectConnection);
        const QSignalSpy answers(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded);
        embedding.ImportInBackground(path);
        QTRY_COMPARE(answers.size(), 1);
        QCOMPARE(Answers(answers), QList<bool>({answer}));
        QCOMPARE(thread, this->thread());
        disconnect(VenueDbSignalHandler::GetInstance(), nullptr, this, nullptr);
        if (auto* box = embedding.Dialog()->findChild<QMessageBox*>())
            box->close();
    }

    void BackgroundImportOutlivesItsHost()
    {
        const QSignalSpy answers(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded);
        {
            QWidget mainWindow;
            Embedding embedding(&mainWindow);
            embedding.ImportInBackground(QStringLiteral(VDB_SOURCE_DIR "/README.md"));
            QVERIFY(QThreadPool::globalInstance()->waitForDone());
        }
        QCoreApplication::processEvents();
        QCOMPARE(answers.size(), 0);
    }

    void DialogIsRemovedWhileDetailsLoad()
    {
        QWidget mainWindow;
        Embedding embedding(&mainWindow);
        const QPointer<VenueDbDialog> dialog = embedding.Dialog();
        ConnectorStub connector;
        connector.venues = {MakeVenue(7)};
        bool wasAliveInTheWait = false;
        connector.onGetPictures = [&](qint64) {
            embedding.RemoveVenueDatabase();
            // A nested event loop, as the real connector's.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            wasAliveInTheWait = !dialog.isNull();
            return QList<korvel::Data::VenueDatabase::Picture>();
        };
        auto* panel = dialog->findChild<VenueDbCentralWidget*>();
        panel->SetConnector(&connector);
        panel->PerformQuery();
        dialog->findChild<QTableView*>()->selectRow(0);
        QVERIFY(wasAliveInTheWait);
        QTRY_VERIFY(dialog.isNull());
    }

    void DisconnectInASearchLeadsToTheErrorBox()
    {
        SilentProxy proxy;
        VenueDbDialog dialog;
        connect(&proxy, &QTcpServer::newConnection, &dialog, &VenueDbDialog::DisconnectVdb);
        const auto driver = AnswerBox(QMessageBox::Close);
        dialog.ConnectVdb(u"JSONREST"_s);
        dialog.Open(nullptr);
        QTRY_COMPARE(driver->Count(), 1);
        QTRY_VERIFY(!dialog.isVisible());
    }

    void RetryUsesTheNewConnector()
    {
        SilentProxy proxy;
        VenueDbDialog dialog;
        connect(&proxy, &QTcpServer::newConnection, &dialog, &VenueDbDialog::DisconnectVdb);
        int boxes = 0;
        std::unique_ptr<ModalDriver<QMessageBox>> secondDriver;
        const ModalDriver<QMessageBox> firstDriver([&](QMessageBox* box) {
            dialog.ConnectVdb(u"JSONREST"_s);
            secondDriver = std::make_unique<ModalDriver<QMessageBox>>([&boxes](QMessageBox* secondBox) {
                ++boxes;
                secondBox->button(QMessageBox::Close)->click();
            });
            ++boxes;
            box->button(QMessageBox::Retry)->click();
        });
        dialog.ConnectVdb(u"JSONREST"_s);
        dialog.Open(nullptr);
        QTRY_COMPARE(boxes, 2);
        // Only a connector can reach the proxy.
        QCOMPARE(proxy.ConnectionCount(), 2);
        QTRY_VERIFY(!dialog.isVisible());
    }

    void DialogMayBeDeletedInASearch_data()
    {
        const Rows<bool> row("isLater");
        row("deleteLater", true);
        row("delete", false);
    }
    void DialogMayBeDeletedInASearch()
    {
        QFETCH(bool, isLater);
        SilentProxy proxy;
        const QPointer<VenueDbDialog> dialog(new VenueDbDialog);
        connect(&proxy, &QTcpServer::newConnection, this, [dialog, isLater] {
            if (isLater)
                dialog->deleteLater();
            else
                delete dialog;
        });
        dialog->ConnectVdb(u"JSONREST"_s);
        dialog->Open(nullptr);
        QTRY_VERIFY(dialog.isNull());
    }

    void MainWindowEndsTheApplicationPastItsOpenDialog_data()
    {
        const Rows<bool> row("isChild");
        row("child of the main window", true);
        row("without a parent", false);
    }
    void MainWindowEndsTheApplicationPastItsOpenDialog()
    {
        QFETCH(bool, isChild);
        QWidget mainWindow;
        mainWindow.show();
        VenueDbDialog dialog(isChild ? &mainWindow : nullptr);
        dialog.Open(nullptr);
        constexpr int c_stillRunning = 7;
        QTimer::singleShot(0, &mainWindow, &QWidget::close);
        QTimer::singleShot(500, &mainWindow, [] { QCoreApplication::exit(c_stillRunning); });
        QCOMPARE(QCoreApplication::exec(), isChild ? 0 : c_stillRunning);
        dialog.hide();
    }

    void GermanTextsAreInstalled()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        QTranslator translator;
        QVERIFY(Texts::InstallTranslations(translator));
        const VenueDbDialog dialog;
        QStringList texts;
        for (const QPushButton* button : dialog.findChildren<QPushButton*>())
            texts.append(button->text());
        QVERIFY2(texts.contains(u"Suchen"_s), qPrintable(texts.join(QLatin1Char('|'))));
        QCoreApplication::removeTranslator(&translator);
        // Where Qt's own translations are installed; if not, nothing is installed and nothing is said.
        QTranslator qtTranslator;
        const bool hasQtTexts
            = QFileInfo::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + u"/qtbase_de.qm"_s);
        QCOMPARE(Texts::InstallQtTranslations(qtTranslator), hasQtTexts);
        QCoreApplication::removeTranslator(&qtTranslator);
        QLocale::setDefault(before);
    }

    void EnglishUserKeepsEnglish()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::English));
        QTranslator translator;
        QVERIFY(Texts::InstallTranslations(translator));
        QCOMPARE(VenueDbDialog::tr("Venue database"), u"Venue database"_s);
        QCoreApplication::removeTranslator(&translator);
        QLocale::setDefault(before);
    }

    void TraceCategoryIsSwitchedOn()
    {
        const QLoggingCategory trace("vdb.trace", QtWarningMsg);
        QVERIFY(!trace.isDebugEnabled());
        Texts::TraceRequests();
        QVERIFY(trace.isDebugEnabled());
        QLoggingCategory::setFilterRules(QString());
    }
};

QTEST_MAIN(tst_HostGuideSnippets)
#include "tst_HostGuideSnippets.moc"
