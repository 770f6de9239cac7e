#include <ui/VenueDbCentralWidget.h>

#include <ui/TsFileOpener.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/MessageGuard.h>
#include <tests/support/ModalDriver.h>

#include <QComboBox>
#include <QDialog>
#include <QEventLoop>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QTableView>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Ui::VenueDatabase;
using korvel::Test::ConnectorStub;
using korvel::Test::ModalDriver;

namespace {

using Filters = ConnectorStub::Filters;

Venue MakeVenue(qint64 id, const QString& name, const QString& country)
{
    Venue venue;
    venue.SetId(id);
    venue.SetComplexName(name);
    venue.SetCountry(country);
    venue.SetRiggingComment(QStringLiteral("rigging of ") + name);
    return venue;
}

QString StyleOf(const QObject* object)
{
    return object->property("customStyle").toString();
}

/// The panel in a dialog of its own with a status line, and what a user sees of it.
struct Panel
{
    Panel()
    {
        auto* layout = new QVBoxLayout(&dialog);
        widget = new VenueDbCentralWidget(&dialog, &statusLabel);
        layout->addWidget(widget);
        table = widget->findChild<QTableView*>();
        details = widget->findChild<VenueDetailsWidget*>();
        for (QLineEdit* lineEdit : widget->findChildren<QLineEdit*>()) {
            if (!details->isAncestorOf(lineEdit))
                fields.append(lineEdit);
        }
        for (QComboBox* comboBox : widget->findChildren<QComboBox*>()) {
            if (!details->isAncestorOf(comboBox))
                country = comboBox;
        }
        search = Button(QStringLiteral("Search"));
        reset = Button(QStringLiteral("Reset"));
    }

    QPushButton* Button(const QString& text) const
    {
        for (QPushButton* button : widget->findChildren<QPushButton*>()) {
            if (button->text() == text)
                return button;
        }
        return nullptr;
    }

    QStringList Countries() const
    {
        QStringList countries;
        for (int index = 0; index < country->count(); ++index)
            countries.append(country->itemText(index));
        return countries;
    }

    QStringList ShownNames() const
    {
        QStringList names;
        for (int row = 0; table->model() && row < table->model()->rowCount(); ++row)
            names.append(table->model()->index(row, 1).data().toString());
        return names;
    }

    QLabel* Label(const QString& text) const
    {
        for (QLabel* label : widget->findChildren<QLabel*>()) {
            if (label->text() == text && !details->isAncestorOf(label))
                return label;
        }
        return nullptr;
    }

    QLabel statusLabel;
    QDialog dialog;
    QPointer<VenueDbCentralWidget> widget;
    QTableView* table = nullptr;
    VenueDetailsWidget* details = nullptr;
    QList<QLineEdit*> fields;
    QComboBox* country = nullptr;
    QPushButton* search = nullptr;
    QPushButton* reset = nullptr;
};

/// Answers the error box with the button \p button as soon as it is open.
std::unique_ptr<ModalDriver<QMessageBox>> AnswerErrorBox(QMessageBox::StandardButton button)
{
    return std::make_unique<ModalDriver<QMessageBox>>(
        [button](QMessageBox* box) { QTest::mouseClick(box->button(button), Qt::LeftButton); });
}

} // namespace

class tst_VenueDbCentralWidget : public QObject
{
    Q_OBJECT

private:
    ConnectorStub m_stub;

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
        m_stub.onFindVenues = nullptr;
        m_stub.onGetPictures = nullptr;
        m_stub.onGetFiles = nullptr;
        m_stub.searches.clear();
        m_stub.calls.clear();
        m_stub.venues = {MakeVenue(11, QStringLiteral("Alpha Hall"), QStringLiteral("Germany")),
                         MakeVenue(12, QStringLiteral("Beta Arena"), QStringLiteral("austria")),
                         MakeVenue(13, QStringLiteral("Gamma Theatre"), QStringLiteral("Germany"))};
    }

    void cleanup()
    {
        QVERIFY(korvel::Test::NoWindowIsLeft());
    }

    // --- construction
    // ---------------------------------------------------------------------------------------

    void ConstructionBuildsEverythingAndAsksNobody()
    {
        const Panel panel;
        QCOMPARE(panel.fields.size(), 3);
        QCOMPARE(panel.country->count(), 246);
        QCOMPARE(panel.country->itemText(0), QStringLiteral("--"));
        QCOMPARE(panel.country->itemText(1), QStringLiteral("Afghanistan"));
        QCOMPARE(panel.country->currentText(), QStringLiteral("--"));
        QVERIFY(!panel.country->itemData(0).isValid());
        QVERIFY(panel.details->isHidden());
        QVERIFY(m_stub.calls.isEmpty());
    }

    void FocusStartsInTheComplexName()
    {
        Panel panel;
        QCOMPARE(panel.dialog.focusWidget(), panel.fields.at(0));
    }

    void HintLabelExplainsTheSearch()
    {
        const Panel panel;
        QLabel* hint = panel.Label(QStringLiteral(
            "To conduct a targeted search, please enter search terms or single letters in the fields "
            "below and click Search. To view the complete result list, click Reset."));
        QVERIFY(hint);
        QCOMPARE(hint->margin(), 4);
        QCOMPARE(StyleOf(hint), QStringLiteral("labelKorvelDefault"));
    }

    void SearchRowLabels_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("indent");
        QTest::addColumn<QString>("toolTip");
        QTest::addColumn<int>("field");
        const QString complexToolTip = QStringLiteral("Name of overall multi-venue building or campus "
                                                      "(identical to Venue name if there is only one event "
                                                      "venue in the building/on the campus).");
        const QString roomToolTip = QStringLiteral("Name of the specific venue/room within the multi-venue "
                                                   "building/campus (identical to Complex name if "
                                                   "there is only one venue in the building).");
        QTest::newRow("complex name") << QStringLiteral("Complex name:") << -1 << complexToolTip << 0;
        QTest::newRow("venue/room name") << QStringLiteral("Venue/room name:") << 10 << roomToolTip << 1;
        QTest::newRow("city") << QStringLiteral("City:") << 10 << QString() << 2;
        QTest::newRow("country") << QStringLiteral("Country:") << 10 << QString() << -1;
    }
    void SearchRowLabels()
    {
        QFETCH(QString, text);
        QFETCH(int, field);
        const Panel panel;
        QLabel* label = panel.Label(text);
        QVERIFY(label);
        QTEST(label->indent(), "indent");
        QTEST(label->toolTip(), "toolTip");
        QCOMPARE(StyleOf(label), QStringLiteral("labelKorvelDefault"));
        if (field >= 0) {
            QTEST(panel.fields.at(field)->toolTip(), "toolTip");
            QCOMPARE(StyleOf(panel.fields.at(field)), QStringLiteral("lineEditKorvelDefault"));
        }
    }

    void SearchRowRunsFromLeftToRight()
    {
        Panel panel;
        panel.dialog.resize(1062, 768);
        panel.dialog.show();
        const QList<QWidget*> row{panel.Label(QStringLiteral("Complex name:")),
                                  panel.fields.at(0),
                                  panel.Label(QStringLiteral("Venue/room name:")),
                                  panel.fields.at(1),
                                  panel.Label(QStringLiteral("City:")),
                                  panel.fields.at(2),
                                  panel.Label(QStringLiteral("Country:")),
                                  panel.country,
                                  panel.search,
                                  panel.reset};
        for (qsizetype index = 1; index < row.size(); ++index)
            QVERIFY(row.at(index - 1)->geometry().right() < row.at(index)->geometry().left());
        QCOMPARE(StyleOf(panel.country), QStringLiteral("comboBoxKorvelDefault"));
        QCOMPARE(StyleOf(panel.search), QStringLiteral("buttonKorvelDefault"));
        QCOMPARE(StyleOf(panel.reset), QStringLiteral("buttonKorvelDefault"));
        QCOMPARE(panel.search->minimumWidth(), 90);
        QCOMPARE(panel.reset->minimumWidth(), 0);
    }

    void TableIsSetUpForRowsWithoutGrid()
    {
        const Panel panel;
        QVERIFY(!panel.table->showGrid());
        QCOMPARE(panel.table->frameShape(), QFrame::NoFrame);
        QCOMPARE(panel.table->frameShadow(), QFrame::Plain);
        QCOMPARE(StyleOf(panel.table), QStringLiteral("tableViewKorvelAudioNetworkDevices"));
        QCOMPARE(panel.table->minimumHeight(), 45);
        QVERIFY(panel.table->verticalHeader()->isHidden());
        QVERIFY(panel.table->isSortingEnabled());
        QCOMPARE(panel.table->selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(panel.table->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(panel.table->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(panel.table->horizontalHeader()->defaultAlignment(), Qt::AlignLeft | Qt::AlignVCenter);
    }

    void SplitterHoldsTableAboveDetails()
    {
        const Panel panel;
        auto* splitter = panel.widget->findChild<QSplitter*>();
        QVERIFY(splitter);
        QCOMPARE(splitter->orientation(), Qt::Vertical);
        QCOMPARE(splitter->contentsMargins(), QMargins());
        QCOMPARE(StyleOf(splitter), QStringLiteral("splitterKorvelDefault"));
        QCOMPARE(splitter->indexOf(panel.table), 0);
        QCOMPARE(splitter->indexOf(panel.details), 1);
        QCOMPARE(panel.widget->layout()->contentsMargins(), QMargins());
        QCOMPARE(panel.widget->layout()->spacing(), 0);
        QCOMPARE(StyleOf(panel.widget->layout()), QStringLiteral("dialogKorvelDefault"));
        QCOMPARE(StyleOf(panel.widget), QStringLiteral("widgetKorvelDefault"));
        auto* searchLayout = panel.widget->layout()->itemAt(0)->widget()->layout();
        QCOMPARE(searchLayout->contentsMargins(), QMargins(4, 4, 4, 4));
        auto* line = qobject_cast<QFrame*>(searchLayout->itemAt(2)->widget());
        QVERIFY(line);
        QCOMPARE(line->height(), 1);
        QCOMPARE(line->frameShape(), QFrame::HLine);
        QCOMPARE(line->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
        QCOMPARE(StyleOf(line), QStringLiteral("lineKorvelDark"));
    }

    void StyleSheetBackgroundIsPainted()
    {
        Panel panel;
        panel.widget->setStyleSheet(
            QStringLiteral("*[customStyle=\"widgetKorvelDefault\"] { background: #123456; }"));
        panel.dialog.resize(1062, 768);
        panel.dialog.show();
        const QPoint emptyCorner = panel.widget->findChild<QSplitter*>()->geometry().topLeft() - QPoint(0, 3);
        QCOMPARE(panel.widget->grab().toImage().pixelColor(emptyCorner), QColor(0x12, 0x34, 0x56));
    }

    // --- connector
    // ------------------------------------------------------------------------------------------

    void NullConnectorIsRefusedAndThePreviousOneStays()
    {
        const Panel panel;
        QVERIFY(panel.widget->SetConnector(&m_stub));
        QVERIFY(!panel.widget->SetConnector(nullptr));
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 2);
    }

    void WithoutConnectorNothingHappens()
    {
        const Panel panel;
        panel.widget->PerformQuery();
        QVERIFY(!panel.table->model());
        QCOMPARE(panel.widget->UpdateCountryComboBox(), WrongContentType);
        QCOMPARE(panel.country->count(), 246);
    }

    void DeadConnectorCountsAsNone()
    {
        const Panel panel;
        {
            ConnectorStub shortLived;
            panel.widget->SetConnector(&shortLived);
        }
        panel.widget->PerformQuery();
        QVERIFY(!panel.table->model());
        QCOMPARE(panel.widget->UpdateCountryComboBox(), WrongContentType);
    }

    void SelectionWithDeadConnectorShowsTheVenueWithoutPictures()
    {
        const Panel panel;
        auto shortLived = std::make_unique<ConnectorStub>();
        shortLived->venues = m_stub.venues;
        panel.widget->SetConnector(shortLived.get());
        panel.widget->PerformQuery();
        shortLived.reset();
        panel.table->selectRow(1);
        QVERIFY(!panel.details->isHidden());
        QVERIFY(panel.details->isEnabled());
    }

    // --- search
    // ---------------------------------------------------------------------------------------------

    void FiltersFollowTheFields_data()
    {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QString>("country");
        QTest::addColumn<Filters>("filters");
        const QStringList none{QString(), QString(), QString()};
        QTest::newRow("nothing entered") << none << QStringLiteral("--") << Filters();
        QTest::newRow("complex name")
            << QStringList{QStringLiteral("Hall"), QString(), QString()} << QStringLiteral("--")
            << Filters{{QStringLiteral("title"), QStringLiteral("Hall")}};
        QTest::newRow("venue/room name")
            << QStringList{QString(), QStringLiteral("Hall"), QString()} << QStringLiteral("--")
            << Filters{{QStringLiteral("venue_room_name"), QStringLiteral("Hall")}};
        QTest::newRow("blanks are sent as typed")
            << QStringList{QString(), QString(), QStringLiteral("  ")} << QStringLiteral("--")
            << Filters{{QStringLiteral("address.locality"), QStringLiteral("  ")}};
        QTest::newRow("country as code")
            << none << QStringLiteral("Germany")
            << Filters{{QStringLiteral("address.country_code"), QStringLiteral("DE")}};
        QTest::newRow("all in order")
            << QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}
            << QStringLiteral("Viet Nam")
            << Filters{{QStringLiteral("title"), QStringLiteral("a")},
                       {QStringLiteral("venue_room_name"), QStringLiteral("b")},
                       {QStringLiteral("address.locality"), QStringLiteral("c")},
                       {QStringLiteral("address.country_code"), QStringLiteral("VN")}};
    }
    void FiltersFollowTheFields()
    {
        QFETCH(QStringList, texts);
        QFETCH(QString, country);
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        for (qsizetype index = 0; index < texts.size(); ++index)
            panel.fields.at(index)->setText(texts.at(index));
        panel.country->setCurrentText(country);
        panel.search->click();
        QCOMPARE(m_stub.searches.size(), 2);
        QTEST(m_stub.searches.at(0), "filters");
        QCOMPARE(m_stub.searches.at(1), Filters());
    }

    void UnknownCountryIsSentAsDash()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.venues = {MakeVenue(1, QStringLiteral("A"), QStringLiteral("unknown"))};
        panel.widget->PerformQuery();
        panel.country->setCurrentText(QStringLiteral("unknown"));
        m_stub.searches.clear();
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.searches.at(0),
                 (Filters{{QStringLiteral("address.country_code"), QStringLiteral("-")}}));
    }

    void ResultsAreShownInTheConnectorsOrder()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        QCOMPARE(panel.ShownNames(),
                 (QStringList{QStringLiteral("Alpha Hall"), QStringLiteral("Beta Arena"),
                              QStringLiteral("Gamma Theatre")}));
        QVERIFY(panel.table->isColumnHidden(0));
        QVERIFY(panel.table->horizontalHeader()->stretchLastSection());
        QVERIFY(panel.details->isHidden());
    }

    void UserSeesThatTheSearchRuns()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        int searches = 0;
        m_stub.onFindVenues = [&](const Filters&, QList<Venue>&) {
            ++searches;
            [&]() {
                QCOMPARE(panel.widget->cursor().shape(), Qt::WaitCursor);
                QCOMPARE(panel.statusLabel.text(), QStringLiteral("Loading..."));
                QVERIFY(!panel.details->isEnabled());
            }();
            return Ok;
        };
        panel.widget->PerformQuery();
        QCOMPARE(searches, 2);
        QCOMPARE(panel.widget->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(panel.statusLabel.text(), QString());
        QVERIFY(panel.details->isEnabled());
    }

    void StatusLabelIsRepaintedAtOnce()
    {
        class PaintCounter : public QLabel
        {
        public:
            int paints = 0;

        protected:
            void paintEvent(QPaintEvent* event) override
            {
                ++paints;
                QLabel::paintEvent(event);
            }
        };
        PaintCounter label;
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        VenueDbCentralWidget widget(nullptr, &label);
        widget.SetConnector(&m_stub);
        const int before = label.paints;
        int duringSearch = before;
        m_stub.onFindVenues = [&](const Filters&, QList<Venue>&) {
            duringSearch = qMax(duringSearch, label.paints);
            return Ok;
        };
        widget.PerformQuery();
        QVERIFY(duringSearch > before);
    }

    void MissingStatusLabelIsNoProblem()
    {
        VenueDbCentralWidget widget(nullptr, nullptr);
        widget.SetConnector(&m_stub);
        widget.PerformQuery();
        QCOMPARE(m_stub.calls.size(), 2);
    }

    void CountriesAreReducedToThoseFound()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.venues.append(MakeVenue(14, QStringLiteral("D"), QStringLiteral("Zambia")));
        m_stub.venues.append(MakeVenue(15, QStringLiteral("E"), QString()));
        m_stub.venues.append(MakeVenue(16, QStringLiteral("F"), QLatin1String("")));
        QCOMPARE(panel.widget->UpdateCountryComboBox(), Ok);
        // A null country is left out, an empty one is not; upper and lower case sort alike.
        QCOMPARE(panel.Countries(),
                 (QStringList{QStringLiteral("--"), QLatin1String(""), QStringLiteral("austria"),
                              QStringLiteral("Germany"), QStringLiteral("Zambia")}));
    }

    void CountriesThatBeginInTheSameMemoryAreDifferent()
    {
        const QString longer = QStringLiteral("Guinea-Bissau");
        const QString shorter = QString::fromRawData(longer.constData(), 6);
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.venues = {MakeVenue(1, {}, shorter), MakeVenue(2, {}, longer), MakeVenue(3, {}, shorter)};
        panel.widget->UpdateCountryComboBox();
        QCOMPARE(
            panel.Countries(),
            (QStringList{QStringLiteral("--"), QStringLiteral("Guinea"), QStringLiteral("Guinea-Bissau")}));
        m_stub.venues.clear();
    }

    void ManyCountriesAreListedOnceEach()
    {
        constexpr int c_count = 3000;
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.venues.clear();
        QStringList expected{QStringLiteral("--")};
        for (int round = 0; round < 2; ++round) {
            for (int i = 0; i < c_count; ++i) {
                // The second time the same text lies elsewhere in memory.
                const QString country = QStringLiteral("Country %1").arg(i, 4, 10, QLatin1Char('0'));
                m_stub.venues.append(MakeVenue(i, {}, country));
                if (round == 0)
                    expected.append(country);
            }
        }
        panel.widget->UpdateCountryComboBox();
        QCOMPARE(panel.Countries(), expected);
    }

    void CountriesDifferingInCaseAreDifferent()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.venues
            = {MakeVenue(1, {}, QStringLiteral("Germany")), MakeVenue(2, {}, QStringLiteral("germany")),
               MakeVenue(3, {}, QStringLiteral("Austria"))};
        panel.widget->UpdateCountryComboBox();
        QCOMPARE(panel.country->count(), 4);
    }

    void ChosenCountryStaysWhileItOccurs_data()
    {
        QTest::addColumn<QString>("country");
        QTest::addColumn<QString>("after");
        QTest::newRow("still occurs") << QStringLiteral("Germany") << QStringLiteral("Germany");
        QTest::newRow("occurs no longer") << QStringLiteral("France") << QStringLiteral("--");
        QTest::newRow("occurs in another case") << QStringLiteral("Austria") << QStringLiteral("--");
        QTest::newRow("none chosen") << QStringLiteral("--") << QStringLiteral("--");
    }
    void ChosenCountryStaysWhileItOccurs()
    {
        QFETCH(QString, country);
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.country->setCurrentText(country);
        panel.search->click();
        QTEST(panel.country->currentText(), "after");
    }

    void FailedRefreshLeavesOnlyWhatCameBack()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.onFindVenues = [](const Filters&, QList<Venue>& venues) {
            venues = {MakeVenue(1, {}, QStringLiteral("Chad"))};
            return Timeout;
        };
        QCOMPARE(panel.widget->UpdateCountryComboBox(), Timeout);
        QCOMPARE(panel.Countries(), (QStringList{QStringLiteral("--"), QStringLiteral("Chad")}));
    }

    void ResetClearsTheFieldsAndListsEverything()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        for (QLineEdit* field : panel.fields)
            field->setText(QStringLiteral("x"));
        panel.country->setCurrentText(QStringLiteral("Germany"));
        panel.reset->click();
        for (const QLineEdit* field : panel.fields)
            QCOMPARE(field->text(), QString());
        QCOMPARE(panel.country->currentText(), QStringLiteral("--"));
        QCOMPARE(m_stub.searches, (QList<Filters>{Filters(), Filters()}));
    }

    void ResetOffersEveryCountryWhenTheServerIsAway()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        QCOMPARE(panel.country->count(), 3);
        m_stub.onFindVenues = [](const Filters&, QList<Venue>&) { return Timeout; };
        const auto driver = AnswerErrorBox(QMessageBox::Close);
        panel.reset->click();
        QCOMPARE(panel.country->count(), 246);
    }

    // --- failures
    // -------------------------------------------------------------------------------------------

    void FailureShowsTheErrorBox_data()
    {
        QTest::addColumn<QList<int>>("results");
        QTest::newRow("search has the wrong type") << QList<int>{WrongContentType};
        QTest::newRow("search times out") << QList<int>{Timeout};
        QTest::newRow("refresh has the wrong type") << QList<int>{Ok, WrongContentType};
        QTest::newRow("refresh times out") << QList<int>{Ok, Timeout};
    }
    void FailureShowsTheErrorBox()
    {
        QFETCH(QList<int>, results);
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.onFindVenues = [&results](const Filters&, QList<Venue>&) {
            return static_cast<ResultStatus>(results.takeFirst());
        };
        QString title;
        QString text;
        QMessageBox::StandardButtons buttons;
        bool isRetryDefault = false;
        bool isModal = false;
        QWidget* parent = nullptr;
        const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
            title = box->windowTitle();
            text = box->text();
            buttons = box->standardButtons();
            isRetryDefault = box->defaultButton() == box->button(QMessageBox::Retry);
            isModal = box->isModal();
            parent = box->parentWidget();
            QTest::mouseClick(box->button(QMessageBox::Close), Qt::LeftButton);
        });
        const QSignalSpy closeRequests(panel.widget, &VenueDbCentralWidget::CloseWindowRequested);
        panel.widget->PerformQuery();
        QCOMPARE(driver.Count(), 1);
        QCOMPARE(title, QStringLiteral("Error"));
        QCOMPARE(text,
                 QStringLiteral("Unable to connect to server. \nPlease check your internet connection."));
        QCOMPARE(buttons, QMessageBox::Retry | QMessageBox::Close);
        QVERIFY(isRetryDefault);
        QVERIFY(isModal);
        QCOMPARE(parent, panel.widget.data());
        QCOMPARE(closeRequests.count(), 1);
        QVERIFY(results.isEmpty());
    }

    void EscapeInTheErrorBoxGivesUp()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.onFindVenues = [](const Filters&, QList<Venue>&) { return Timeout; };
        const ModalDriver<QMessageBox> driver([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); });
        const QSignalSpy closeRequests(panel.widget, &VenueDbCentralWidget::CloseWindowRequested);
        panel.widget->PerformQuery();
        QCOMPARE(closeRequests.count(), 1);
    }

    void GivingUpShowsWhatCameBack()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        QCOMPARE(panel.ShownNames().size(), 3);
        m_stub.onFindVenues = [](const Filters&, QList<Venue>&) { return Timeout; };
        const auto driver = AnswerErrorBox(QMessageBox::Close);
        panel.widget->PerformQuery();
        QVERIFY(panel.ShownNames().isEmpty());
        QCOMPARE(panel.table->model()->columnCount(), 6);
    }

    void RetryRepeatsTheSameFiltersUntilItWorks()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.fields.at(0)->setText(QStringLiteral("Hall"));
        int failures = 2;
        m_stub.onFindVenues = [&](const Filters&, QList<Venue>& venues) {
            panel.fields.at(0)->setText(QStringLiteral("changed meanwhile"));
            if (failures-- > 0)
                return Timeout;
            venues = m_stub.venues;
            return Ok;
        };
        const auto first = AnswerErrorBox(QMessageBox::Retry);
        std::unique_ptr<ModalDriver<QMessageBox>> second;
        m_stub.onGetPictures = nullptr;
        QTimer startSecond;
        connect(&startSecond, &QTimer::timeout, &startSecond, [&]() {
            if (first->Count() == 1 && !second)
                second = AnswerErrorBox(QMessageBox::Retry);
        });
        startSecond.start(1);
        const QSignalSpy closeRequests(panel.widget, &VenueDbCentralWidget::CloseWindowRequested);
        panel.widget->PerformQuery();
        const Filters hall{{QStringLiteral("title"), QStringLiteral("Hall")}};
        QCOMPARE(m_stub.searches, (QList<Filters>{hall, hall, hall, Filters()}));
        QCOMPARE(panel.ShownNames().size(), 3);
        QCOMPARE(closeRequests.count(), 0);
    }

    // --- opening
    // --------------------------------------------------------------------------------------------

    void OpeningSearchesOnceUntilASearchFailed()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        Q_EMIT panel.widget->WindowOpened();
        // Queued: nothing is asked before control has returned to the event loop.
        QVERIFY(m_stub.calls.isEmpty());
        QTRY_COMPARE(m_stub.calls.size(), 2);

        Q_EMIT panel.widget->WindowOpened();
        QCoreApplication::processEvents();
        QCOMPARE(m_stub.calls.size(), 2);

        m_stub.onFindVenues = [](const Filters&, QList<Venue>&) { return Timeout; };
        const auto driver = AnswerErrorBox(QMessageBox::Close);
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 3);

        m_stub.onFindVenues = nullptr;
        Q_EMIT panel.widget->WindowOpened();
        QTRY_COMPARE(m_stub.calls.size(), 5);
        QCOMPARE(panel.ShownNames().size(), 3);
    }

    // --- details
    // --------------------------------------------------------------------------------------------

    void SelectedRowShowsItsDetails()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        m_stub.calls.clear();
        m_stub.onGetPictures = [&](qint64) {
            [&]() {
                QCOMPARE(panel.statusLabel.text(), QStringLiteral("Loading..."));
                QCOMPARE(panel.widget->cursor().shape(), Qt::WaitCursor);
                QVERIFY(!panel.details->isEnabled());
            }();
            return QList<Picture>();
        };
        m_stub.onGetFiles = [](qint64) {
            TsFile file;
            QString name = QStringLiteral("plan.tessra");
            file.SetFileName(name);
            return QList<TsFile>{file};
        };
        panel.details->SetCollapsed(true);
        panel.table->selectRow(2);
        QCOMPARE(m_stub.calls, (QStringList{QStringLiteral("pictures 13"), QStringLiteral("files 13")}));
        QVERIFY(!panel.details->isHidden());
        // The full record, not only what the table shows.
        const auto texts = panel.details->findChildren<QTextEdit*>();
        QVERIFY(std::any_of(texts.cbegin(), texts.cend(), [](const QTextEdit* edit) {
            return edit->toPlainText() == QStringLiteral("rigging of Gamma Theatre");
        }));
        QCOMPARE(panel.details->findChild<TsFileOpener*>()->findChild<QComboBox*>()->currentText(),
                 QStringLiteral("plan.tessra"));
        // Expanded again.
        QCOMPARE(panel.details->maximumHeight(), 516);
        QCOMPARE(panel.statusLabel.text(), QString());
        QVERIFY(panel.details->isEnabled());
    }

    void SortedTableLoadsTheVenueOfTheRow()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.venues[0].SetEditDate(QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
        m_stub.venues[1].SetEditDate(QDateTime(QDate(2022, 1, 1), QTime(0, 0)));
        m_stub.venues[2].SetEditDate(QDateTime(QDate(2024, 1, 1), QTime(0, 0)));
        panel.widget->PerformQuery();
        panel.table->sortByColumn(5, Qt::AscendingOrder);
        m_stub.calls.clear();
        panel.table->selectRow(0);
        QCOMPARE(m_stub.calls.first(), QStringLiteral("pictures 13"));
    }

    void SortSurvivesTheNextSearch()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.venues[1].SetEditDate(QDateTime(QDate(2022, 1, 1), QTime(0, 0)));
        panel.widget->PerformQuery();
        panel.table->sortByColumn(5, Qt::AscendingOrder);
        QCOMPARE(panel.ShownNames().first(), QStringLiteral("Beta Arena"));
        panel.widget->PerformQuery();
        QCOMPARE(panel.ShownNames().first(), QStringLiteral("Beta Arena"));
    }

    void ClearedSelectionHidesTheDetails()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        panel.table->selectRow(0);
        QVERIFY(!panel.details->isHidden());
        panel.table->clearSelection();
        QVERIFY(panel.details->isHidden());
        QVERIFY(panel.details->isEnabled());
        QCOMPARE(panel.statusLabel.text(), QString());
    }

    void NewSearchHidesTheDetails()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        panel.table->selectRow(0);
        panel.widget->PerformQuery();
        QVERIFY(panel.details->isHidden());
    }

    void EachSelectionLoadsOnceAlsoAfterSeveralSearches()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        for (int round = 0; round < 3; ++round)
            panel.widget->PerformQuery();
        m_stub.calls.clear();
        panel.table->selectRow(1);
        QCOMPARE(m_stub.calls, (QStringList{QStringLiteral("pictures 12"), QStringLiteral("files 12")}));
    }

    // --- things that happen during a wait
    // -------------------------------------------------------------------

    void SearchDuringASearchReturnsAtOnce()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        int searches = 0;
        m_stub.onFindVenues = [&](const Filters&, QList<Venue>& venues) {
            if (++searches < 10)
                panel.widget->PerformQuery();
            venues = m_stub.venues;
            return Ok;
        };
        panel.widget->PerformQuery();
        QCOMPARE(searches, 2);
        QCOMPARE(panel.ShownNames().size(), 3);
    }

    void SearchWhileTheErrorBoxIsOpenReturnsAtOnce()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.onFindVenues = [](const Filters&, QList<Venue>&) { return Timeout; };
        const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
            panel.widget->PerformQuery();
            QTest::mouseClick(box->button(QMessageBox::Close), Qt::LeftButton);
        });
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 1);
    }

    void SelectionChangedWhileLoadingIsLoadedAfterwards()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        m_stub.calls.clear();
        m_stub.onGetPictures = [&](qint64 venueId) {
            if (venueId == 11)
                panel.table->selectRow(2);
            return QList<Picture>();
        };
        panel.table->selectRow(0);
        // Not inside: the first load asks for its files before the second begins.
        QCOMPARE(m_stub.calls,
                 (QStringList{QStringLiteral("pictures 11"), QStringLiteral("files 11"),
                              QStringLiteral("pictures 13"), QStringLiteral("files 13")}));
        const auto lines = panel.details->findChildren<QLineEdit*>();
        QVERIFY(std::any_of(lines.cbegin(), lines.cend(),
                            [](const QLineEdit* edit) { return edit->text() == QStringLiteral("13"); }));
    }

    void DetailsThatArriveAfterAResetAreDropped()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        m_stub.onGetFiles = [&](qint64) {
            panel.widget->PerformQuery();
            return QList<TsFile>();
        };
        panel.table->selectRow(0);
        QVERIFY(panel.details->isHidden());
        QVERIFY(panel.details->isEnabled());
        const auto lines = panel.details->findChildren<QLineEdit*>();
        QVERIFY(std::all_of(lines.cbegin(), lines.cend(),
                            [](const QLineEdit* edit) { return edit->text().isEmpty(); }));
    }

    void SelectionDuringASearchIsLeftToItsResults()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        m_stub.onFindVenues = [&](const Filters&, QList<Venue>& venues) {
            panel.table->selectRow(0);
            venues = m_stub.venues;
            return Ok;
        };
        m_stub.calls.clear();
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls, (QStringList{QStringLiteral("find"), QStringLiteral("find")}));
        QVERIFY(panel.details->isHidden());
    }

    void WidgetMayBeDeletedDuringTheSearch_data()
    {
        QTest::addColumn<int>("atCall");
        QTest::newRow("during the search") << 1;
        QTest::newRow("during the country refresh") << 2;
    }
    void WidgetMayBeDeletedDuringTheSearch()
    {
        QFETCH(int, atCall);
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        int call = 0;
        m_stub.onFindVenues = [&](const Filters&, QList<Venue>&) {
            if (++call == atCall)
                delete panel.widget.data();
            return Ok;
        };
        panel.search->click();
        QVERIFY(!panel.widget);
        QCOMPARE(call, atCall);
    }

    void WidgetMayBeDeletedWhileTheErrorBoxIsOpen()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.onFindVenues = [](const Filters&, QList<Venue>&) { return Timeout; };
        const ModalDriver<QMessageBox> driver([&](QMessageBox*) { delete panel.widget.data(); });
        panel.widget->PerformQuery();
        QVERIFY(!panel.widget);
        QCOMPARE(m_stub.calls.size(), 1);
    }

    void WidgetMayBeDeletedByWhoHearsThatTheUserGaveUp()
    {
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        m_stub.onFindVenues = [](const Filters&, QList<Venue>&) { return Timeout; };
        connect(panel.widget, &VenueDbCentralWidget::CloseWindowRequested, this,
                [&panel]() { delete panel.widget.data(); });
        const auto driver = AnswerErrorBox(QMessageBox::Close);
        panel.widget->PerformQuery();
        QVERIFY(!panel.widget);
    }

    void ConnectorMayDieDuringTheSearch()
    {
        const Panel panel;
        QPointer<ConnectorStub> shortLived = new ConnectorStub;
        panel.widget->SetConnector(shortLived);
        shortLived->onFindVenues = [&](const Filters&, QList<Venue>&) {
            delete shortLived.data();
            return Timeout;
        };
        const auto driver = AnswerErrorBox(QMessageBox::Close);
        panel.widget->PerformQuery();
        QCOMPARE(driver->Count(), 1);
        QVERIFY(panel.ShownNames().isEmpty());
    }

    void ConnectorMayDieBetweenSearchAndRefresh()
    {
        const Panel panel;
        QPointer<ConnectorStub> shortLived = new ConnectorStub;
        panel.widget->SetConnector(shortLived);
        shortLived->onFindVenues = [&](const Filters&, QList<Venue>&) {
            delete shortLived.data();
            return Ok;
        };
        const auto driver = AnswerErrorBox(QMessageBox::Close);
        panel.widget->PerformQuery();
        QCOMPARE(driver->Count(), 1);
    }

    void RetryUsesTheConnectorOfThatMoment()
    {
        const Panel panel;
        auto shortLived = std::make_unique<ConnectorStub>();
        shortLived->onFindVenues = [](const Filters&, QList<Venue>&) { return Timeout; };
        panel.widget->SetConnector(shortLived.get());
        const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
            shortLived.reset();
            panel.widget->SetConnector(&m_stub);
            QTest::mouseClick(box->button(QMessageBox::Retry), Qt::LeftButton);
        });
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 2);
        QCOMPARE(panel.ShownNames().size(), 3);
    }

    void LoadingStopsWhenTheWidgetIsDeleted_data()
    {
        QTest::addColumn<bool>("duringFiles");
        QTest::newRow("while the pictures come") << false;
        QTest::newRow("while the model files come") << true;
    }
    void LoadingStopsWhenTheWidgetIsDeleted()
    {
        QFETCH(bool, duringFiles);
        const Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.widget->PerformQuery();
        panel.table->selectRow(0);
        m_stub.calls.clear();
        m_stub.onGetPictures = [&](qint64) {
            if (!duringFiles)
                delete panel.widget.data();
            return QList<Picture>();
        };
        m_stub.onGetFiles = [&](qint64) {
            delete panel.widget.data();
            return QList<TsFile>();
        };
        // By its name: within a click the table itself would not survive, which is why hosts are told to
        // wait.
        QVERIFY(QMetaObject::invokeMethod(panel.widget, "OnTableSelectionChanged"));
        QVERIFY(!panel.widget);
        QCOMPARE(m_stub.calls.size(), duringFiles ? 2 : 1);
    }

    void ConnectorMayDieWhileDetailsLoad()
    {
        const Panel panel;
        QPointer<ConnectorStub> shortLived = new ConnectorStub;
        shortLived->venues = m_stub.venues;
        panel.widget->SetConnector(shortLived);
        panel.widget->PerformQuery();
        shortLived->onGetPictures = [&](qint64) {
            delete shortLived.data();
            return QList<Picture>();
        };
        panel.table->selectRow(0);
        QVERIFY(!panel.details->isHidden());
        QVERIFY(panel.details->isEnabled());
    }

    // --- layout
    // ---------------------------------------------------------------------------------------------

    void ColumnsAlignWithTheSearchRow()
    {
        Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.dialog.resize(1062, 768);
        panel.dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel.dialog));
        panel.widget->PerformQuery();
        const auto width
            = [&panel](const char* label) { return panel.Label(QString::fromLatin1(label))->width(); };
        QCOMPARE(panel.table->columnWidth(1), width("Complex name:") + 22 + panel.fields.at(0)->width());
        QCOMPARE(panel.table->columnWidth(2), width("Venue/room name:") + 12 + panel.fields.at(1)->width());
        QCOMPARE(panel.table->columnWidth(3), panel.fields.at(2)->width() + 12 + width("City:"));
        QCOMPARE(panel.table->columnWidth(4), width("Country:") + 8 + panel.country->width());
        QVERIFY(panel.table->isColumnHidden(0));
    }

    void ColumnsFollowTheWindowWidth()
    {
        Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.dialog.resize(1062, 768);
        panel.dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel.dialog));
        panel.widget->PerformQuery();
        const int before = panel.table->columnWidth(1);
        panel.dialog.resize(1400, 768);
        QTRY_VERIFY(panel.table->columnWidth(1) > before);
    }

    void TabWalksFromTheFieldsToTheDetails()
    {
        Panel panel;
        const QList<QWidget*> expected{panel.fields.at(0), panel.fields.at(1), panel.fields.at(2),
                                       panel.country,      panel.search,       panel.reset,
                                       panel.table};
        QWidget* widget = panel.fields.at(0);
        QList<QWidget*> walked;
        do {
            if (expected.contains(widget)
                || (panel.details->isAncestorOf(widget) && walked.size() == expected.size()))
                walked.append(widget);
            widget = widget->nextInFocusChain();
        } while (widget != panel.fields.at(0) && walked.size() <= expected.size());
        QCOMPARE(walked.mid(0, expected.size()), expected);
        QVERIFY(walked.size() > expected.size());
    }

    void ReturnInAFieldSearches_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<Qt::Key>("key");
        for (int field = 0; field < 3; ++field) {
            QTest::addRow("Return in field %d", field) << field << Qt::Key_Return;
            QTest::addRow("Enter in field %d", field) << field << Qt::Key_Enter;
        }
    }
    void ReturnInAFieldSearches()
    {
        QFETCH(int, field);
        QFETCH(Qt::Key, key);
        Panel panel;
        panel.widget->SetConnector(&m_stub);
        panel.dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&panel.dialog));
        panel.fields.at(field)->setFocus();
        panel.fields.at(field)->setText(QStringLiteral("x"));
        QTest::keyClick(panel.fields.at(field), key);
        QCOMPARE(m_stub.searches.size(), 2);
        // A search with the text, not a reset.
        QCOMPARE(m_stub.searches.first().size(), 1);
    }
};

QTEST_MAIN(tst_VenueDbCentralWidget)
#include "tst_VenueDbCentralWidget.moc"
