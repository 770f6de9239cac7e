#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDbSignalHandler.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/Files.h>
#include <tests/support/GeneratedServer.h>
#include <tests/support/ModalDriver.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTextEdit>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// Far less than the 30 s that a query may wait: what ends within it was ended, not waited out.
constexpr int c_promptly = 5000;

} // namespace

/// The whole module against a real server: over TLS, through the proxy, under the built-in host name.
class tst_EndToEnd : public StrictTest
{
    Q_OBJECT

private:
    std::unique_ptr<VenueServer> m_server;
    VenueCatalogue m_catalogue;
    std::unique_ptr<ApplicationNetworkGuard> m_network;
    QPointer<VenueDbDialog> m_dialog;

    QTableView* Table() const
    {
        return m_dialog->findChild<QTableView*>();
    }
    VenueDetailsWidget* Details() const
    {
        return m_dialog->findChild<VenueDetailsWidget*>();
    }
    VenueDbCentralWidget* Panel() const
    {
        return m_dialog->findChild<VenueDbCentralWidget*>();
    }
    qint64 IdOfRow(int row) const
    {
        return Table()->model()->index(row, 0).data().toLongLong();
    }

    void OpenAndWait()
    {
        m_dialog->Open(nullptr);
        QTRY_COMPARE(RowCount(Table()), int(m_catalogue.Venues().size()));
    }

    /// Runs \p action as soon as the server has received a request whose target contains \p text.
    void OnRequest(const QString& text, std::function<void()> action)
    {
        auto* poll = new QTimer(this);
        connect(poll, &QTimer::timeout, this, [this, poll, text, action]() {
            if (m_server->Log().RequestCount(text) == 0)
                return;
            poll->deleteLater();
            poll->stop();
            action();
        });
        poll->start(2);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_server = GeneratedServer({.venueCount = 25, .picturesPerVenue = 3, .modelFilesPerVenue = 2},
                                   EncodedPicture(QSize(60, 40), Qt::darkCyan));
        m_catalogue = *m_server->Catalogue();
        m_network = m_server->InstallInApplication();
    }

    void cleanupTestCase()
    {
        m_network.reset();
    }

    void init()
    {
        StrictTest::init();
        m_server->ClearFaults();
        m_server->Log().Clear();
        m_dialog = new VenueDbDialog;
        QVERIFY(m_dialog->ConnectVdb(u"JSONREST"_s));
    }

    void cleanup()
    {
        delete m_dialog;
        StrictTest::cleanup();
        if (!m_server->IsRunning())
            QVERIFY(m_server->Start());
    }

    void NothingIsSentBeforeOpen()
    {
        QTest::qWait(0);
        QCOMPARE(m_server->Log().ConnectCount(), 0);
    }

    void OpenListsAllVenuesAndTheirCountries()
    {
        OpenAndWait();
        QCOMPARE(m_server->Log().RequestCount(), 2);
        // The reverse of the server's order.
        QCOMPARE(IdOfRow(0), m_catalogue.Venues().last().entityId);
        QCOMPARE(IdOfRow(RowCount(Table()) - 1), m_catalogue.Venues().first().entityId);
        QSet<QString> codes;
        for (const auto& venue : m_catalogue.Venues())
            codes.insert(venue.countryCode);
        QCOMPARE(Panel()->findChild<QComboBox*>()->count(), codes.size() + 1);
        QCOMPARE(m_server->Log().TlsConnectionCount(), 1);
    }

    void FilteredSearchFindsWhatContainsTheText()
    {
        OpenAndWait();
        const QString city = m_catalogue.Venues().at(3).locality;
        qsizetype expected = 0;
        for (const auto& venue : m_catalogue.Venues())
            expected += venue.locality.contains(city, Qt::CaseInsensitive) ? 1 : 0;
        auto* field = Panel()->findChildren<QLineEdit*>().at(2);
        field->setFocus();
        QTest::keyClicks(field, city.toUpper());
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(RowCount(Table()), int(expected));
        for (int row = 0; row < RowCount(Table()); ++row)
            QVERIFY(Table()->model()->index(row, 3).data().toString().contains(city, Qt::CaseInsensitive));
    }

    void SelectedVenueShowsDetailsPicturesAndFiles()
    {
        OpenAndWait();
        ClickRow(Table(), 4);
        const qint64 id = IdOfRow(4);
        QVERIFY(Details()->isVisible());
        // Both lists, then every picture and file at once.
        QCOMPARE(m_server->Log().RequestCount(u"filter[entity_id]=%1"_s.arg(id)), 2);
        QCOMPARE(m_server->Log().RequestCount(), 2 + 2 + 3 + 2);
        const auto labels = Details()->findChildren<QLabel*>();
        QVERIFY(std::any_of(labels.cbegin(), labels.cend(),
                            [](const QLabel* label) { return label->text().startsWith(u"1/3 "_s); }));
        const auto record = std::find_if(m_catalogue.Venues().cbegin(), m_catalogue.Venues().cend(),
                                         [id](const auto& venue) { return venue.entityId == id; });
        auto* opener = Details()->findChild<TsFileOpener*>();
        QCOMPARE(opener->findChild<QComboBox*>()->count(), 2);
        QCOMPARE(opener->findChild<QComboBox*>()->itemText(0), record->modelFiles.first().name);
        const auto edits = Details()->findChildren<QTextEdit*>();
        QVERIFY(std::any_of(edits.cbegin(), edits.cend(), [&record](const QTextEdit* edit) {
            return edit->toPlainText() == record->riggingSpecialties;
        }));
    }

    void ImportHandsTheFileToTheHost()
    {
        OpenAndWait();
        ClickRow(Table(), 0);
        QSignalSpy requests(VenueDbSignalHandler::GetInstance(),
                            &VenueDbSignalHandler::ImportVenueFromTempFileRequest);
        auto* opener = Details()->findChild<TsFileOpener*>();
        QTest::mouseClick(Button(*m_dialog, u"Import to Tessra"_s), Qt::LeftButton);
        QCOMPARE(requests.count(), 1);
        QCOMPARE(ContentOf(requests.first().first().toString()),
                 m_catalogue.Venues().last().modelFiles.first().content);
        QVERIFY(!opener->isEnabled());
        m_dialog->SetVenueLoaded(false);
        QVERIFY(!opener->isEnabled());
        m_dialog->SetVenueLoaded(true);
        QVERIFY(opener->isEnabled());
    }

    void RetryWorksWhenTheServerIsBack()
    {
        m_server->Stop();
        const BoxDriver driver([this](QMessageBox* box) {
            QCOMPARE(box->text(), u"Unable to connect to server. \nPlease check your internet connection."_s);
            QVERIFY(m_server->Start());
            QTest::mouseClick(box->button(QMessageBox::Retry), Qt::LeftButton);
        });
        m_dialog->Open(nullptr);
        QTRY_COMPARE(RowCount(Table()), int(m_catalogue.Venues().size()));
        QCOMPARE(driver.Count(), 1);
        QVERIFY(m_dialog->isVisible());
    }

    // What may happen at any moment of a wait.

    void SearchEndsWhenTheHostInterferes_data()
    {
        const Rows<QString, bool> row("action", "survives");
        row("disconnect", u"disconnect"_s, true);
        row("connect anew", u"connect"_s, true);
        row("delete", u"delete"_s, false);
        row("delete later", u"deleteLater"_s, false);
    }
    void SearchEndsWhenTheHostInterferes()
    {
        QFETCH(QString, action);
        QFETCH(bool, survives);
        m_server->AddFault(Fault::On(u"/api/venue"_s).WithoutAnswer());
        OnRequest(u"/api/venue"_s, [this, action]() { Interfere(action); });
        const auto driver = AnswerBox(QMessageBox::Close);
        m_dialog->Open(nullptr);
        if (survives)
            QTRY_VERIFY_WITH_TIMEOUT(m_dialog->isHidden(), c_promptly);
        else
            QTRY_VERIFY_WITH_TIMEOUT(!m_dialog, c_promptly);
        QCOMPARE(driver->Count(), survives ? 1 : 0);
    }

    void DetailsEndWhenTheHostInterferes_data()
    {
        const Rows<QString, QString> row("request", "action");
        for (const QString& request :
             {u"from_the_auditorium"_s, u"-small."_s, u"tessra.file"_s, u"/files/models"_s})
            for (const QString& action :
                 {u"disconnect"_s, u"connect"_s, u"deleteLater"_s, u"open"_s, u"hide"_s})
                row((action + u" during "_s + request).toLatin1(), request, action);
    }
    void DetailsEndWhenTheHostInterferes()
    {
        QFETCH(QString, request);
        QFETCH(QString, action);
        OpenAndWait();
        // What does not end the wait itself is answered a little later.
        const bool endsTheWait = action != u"open"_s && action != u"hide"_s;
        Fault fault = Fault::On(request);
        m_server->AddFault(endsTheWait ? fault.WithoutAnswer() : fault.WithDelay(200));
        OnRequest(request, [this, action]() { Interfere(action); });
        QElapsedTimer elapsed;
        elapsed.start();
        ClickRow(Table(), 2);
        QVERIFY(elapsed.elapsed() < c_promptly);
        if (action == u"deleteLater"_s)
            QTRY_VERIFY_WITH_TIMEOUT(!m_dialog, c_promptly);
        else
            QVERIFY(Details()->isEnabled());
    }

private:
    void Interfere(const QString& action)
    {
        if (action == u"disconnect"_s)
            m_dialog->DisconnectVdb();
        else if (action == u"connect"_s)
            m_dialog->ConnectVdb(u"JSONREST"_s);
        else if (action == u"delete"_s)
            delete m_dialog;
        else if (action == u"deleteLater"_s)
            m_dialog->deleteLater();
        else if (action == u"open"_s)
            m_dialog->Open(nullptr);
        else if (action == u"hide"_s)
            m_dialog->hide();
        else
            QFAIL("unknown action");
    }
};

QTEST_MAIN(tst_EndToEnd)
#include "tst_EndToEnd.moc"
