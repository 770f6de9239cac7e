#include <ui/VenueDbCentralWidget.h>

#include <ui/TsFileOpener.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/ErrorBoxes.h>
#include <tests/support/EventCounter.h>
#include <tests/support/ModalDriver.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSplitter>
#include <QTableView>
#include <QTextEdit>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

using Filters = ConnectorStub::Filters;

/// The panel in a dialog of its own with a status line, and what a user sees of it.
struct Panel
{
    explicit Panel(ConnectorStub* connector = nullptr)
    {
        auto* layout = new QVBoxLayout(&dialog);
        widget = new VenueDbCentralWidget(&dialog, &statusLabel);
        layout->addWidget(widget);
        table = widget->findChild<QTableView*>();
        details = widget->findChild<VenueDetailsWidget*>();
        fields = widget->findChildren<QLineEdit*>();
        fields.removeIf([this](const QLineEdit* field) { return details->isAncestorOf(field); });
        auto comboBoxes = widget->findChildren<QComboBox*>();
        comboBoxes.removeIf([this](const QComboBox* box) { return details->isAncestorOf(box); });
        country = comboBoxes.first();
        search = Button(*widget, u"Search"_s);
        reset = Button(*widget, u"Reset"_s);
        widget->SetConnector(connector);
    }

    void Show()
    {
        dialog.resize(1062, 768);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }

    QStringList ShownNames() const
    {
        return ColumnTexts(table, 1);
    }

    void VerifyLoading() const
    {
        QCOMPARE(statusLabel.text(), u"Loading..."_s);
        QCOMPARE(widget->cursor().shape(), Qt::WaitCursor);
        QVERIFY(!details->isEnabled());
    }

    QLabel* Label(const QString& text) const
    {
        auto labels = widget->findChildren<QLabel*>();
        labels.removeIf(
            [&](const QLabel* label) { return label->text() != text || details->isAncestorOf(label); });
        return labels.value(0);
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

/// The panel after its first search.
struct FilledPanel : Panel
{
    explicit FilledPanel(ConnectorStub* connector)
        : Panel(connector)
    {
        widget->PerformQuery();
        connector->searches.clear();
        connector->calls.clear();
    }
};

/// The same on the screen, with a row selected or none.
struct ShownPanel : FilledPanel
{
    explicit ShownPanel(ConnectorStub* connector, int row = -1)
        : FilledPanel(connector)
    {
        Show();
        if (row >= 0)
            table->selectRow(row);
    }
};

/// The row that is selected; -1 for none.
int SelectedRow(const Panel& panel)
{
    return panel.table->selectionModel()->selectedRows(1).value(0).row();
}

} // namespace

class tst_VenueDbCentralWidget : public StrictTest
{
    Q_OBJECT

private:
    ConnectorStub m_stub;

private Q_SLOTS:
    void init()
    {
        StrictTest::init();
        m_stub.Reset();
        m_stub.venues
            = {MakeVenue(11, u"Alpha Hall"_s, u"Germany"_s), MakeVenue(12, u"Beta Arena"_s, u"austria"_s),
               MakeVenue(13, u"Gamma Theatre"_s, u"Germany"_s)};
    }

    // Construction.

    void ConstructionBuildsEverythingAndAsksNobody()
    {
        const Panel panel(&m_stub);
        QCOMPARE(panel.fields.size(), 3);
        QCOMPARE(panel.country->count(), 246);
        QCOMPARE(panel.country->itemText(0), u"--"_s);
        QCOMPARE(panel.country->itemText(1), u"Afghanistan"_s);
        QCOMPARE(panel.country->currentText(), u"--"_s);
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
        QLabel* hint = panel.Label(
            u"To conduct a targeted search, please enter search terms or single letters in the fields "
            "below and click Search. To view the complete result list, click Reset."_s);
        QVERIFY(hint);
        QCOMPARE(hint->margin(), 4);
        QCOMPARE(StyleOf(hint), u"labelKorvelDefault"_s);
    }

    void SearchRowLabels_data()
    {
        const Rows<QString, int, QString, int> row("text", "indent", "toolTip", "field");
        const QString complexToolTip = u"Name of overall multi-venue building or campus "
                                       "(identical to Venue name if there is only one event "
                                       "venue in the building/on the campus)."_s;
        const QString roomToolTip = u"Name of the specific venue/room within the multi-venue "
                                    "building/campus (identical to Complex name if "
                                    "there is only one venue in the building)."_s;
        row("complex name", u"Complex name:"_s, -1, complexToolTip, 0);
        row("venue/room name", u"Venue/room name:"_s, 10, roomToolTip, 1);
        row("city", u"City:"_s, 10, {}, 2);
        row("country", u"Country:"_s, 10, {}, -1);
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
        QCOMPARE(StyleOf(label), u"labelKorvelDefault"_s);
        if (field >= 0) {
            QTEST(panel.fields.at(field)->toolTip(), "toolTip");
            QCOMPARE(StyleOf(panel.fields.at(field)), u"lineEditKorvelDefault"_s);
        }
    }

    void SearchRowRunsFromLeftToRight()
    {
        Panel panel;
        panel.Show();
        const QStringList captions{u"Complex name:"_s, u"Venue/room name:"_s, u"City:"_s};
        QWidgetList row;
        for (int field = 0; field < 3; ++field)
            row << panel.Label(captions.at(field)) << panel.fields.at(field);
        row << panel.Label(u"Country:"_s) << panel.country << panel.search << panel.reset;
        for (qsizetype index = 1; index < row.size(); ++index)
            QVERIFY(row.at(index - 1)->geometry().right() < row.at(index)->geometry().left());
        QCOMPARE(StyleOf(panel.country), u"comboBoxKorvelDefault"_s);
        QCOMPARE(StyleOf(panel.search), u"buttonKorvelDefault"_s);
        QCOMPARE(StyleOf(panel.reset), u"buttonKorvelDefault"_s);
        QCOMPARE(panel.search->minimumWidth(), 90);
        QCOMPARE(panel.reset->minimumWidth(), 0);
    }

    void TableIsSetUpForRowsWithoutGrid()
    {
        const Panel panel;
        QVERIFY(!panel.table->showGrid());
        QCOMPARE(panel.table->frameShape(), QFrame::NoFrame);
        QCOMPARE(panel.table->frameShadow(), QFrame::Plain);
        QCOMPARE(StyleOf(panel.table), u"tableViewKorvelAudioNetworkDevices"_s);
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
        QCOMPARE(StyleOf(splitter), u"splitterKorvelDefault"_s);
        QCOMPARE(splitter->indexOf(panel.table), 0);
        QCOMPARE(splitter->indexOf(panel.details), 1);
        QCOMPARE(panel.widget->layout()->contentsMargins(), QMargins());
        QCOMPARE(panel.widget->layout()->spacing(), 0);
        QCOMPARE(StyleOf(panel.widget->layout()), u"dialogKorvelDefault"_s);
        QCOMPARE(StyleOf(panel.widget), u"widgetKorvelDefault"_s);
        auto* searchLayout = panel.widget->layout()->itemAt(0)->widget()->layout();
        QCOMPARE(searchLayout->contentsMargins(), QMargins(4, 4, 4, 4));
        auto* line = qobject_cast<QFrame*>(searchLayout->itemAt(2)->widget());
        QVERIFY(line);
        QCOMPARE(line->height(), 1);
        QCOMPARE(line->frameShape(), QFrame::HLine);
        QCOMPARE(line->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
        QCOMPARE(StyleOf(line), u"lineKorvelDark"_s);
    }

    void StyleSheetBackgroundIsPainted()
    {
        Panel panel;
        panel.widget->setStyleSheet(u"*[customStyle=\"widgetKorvelDefault\"] { background: #123456; }"_s);
        panel.Show();
        const QPoint emptyCorner = panel.widget->findChild<QSplitter*>()->geometry().topLeft() - QPoint(0, 3);
        QCOMPARE(panel.widget->grab().toImage().pixelColor(emptyCorner), QColor(0x12, 0x34, 0x56));
    }

    void DetailsCannotBeDraggedAway()
    {
        ShownPanel panel(&m_stub, 0);
        auto* splitter = panel.widget->findChild<QSplitter*>();
        QTRY_COMPARE(panel.details->height(), 516);
        QWidget* handle = splitter->handle(1);
        const QPoint grip = handle->rect().center();
        const auto dragTo = [&](int y) {
            QTest::mousePress(handle, Qt::LeftButton, {}, grip);
            MoveMouse(handle, handle->mapFrom(splitter, QPoint(grip.x(), y)), Qt::LeftButton);
            QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->mapFrom(splitter, QPoint(grip.x(), y)));
        };
        dragTo(splitter->height() - 1);
        QVERIFY(splitter->sizes().value(1) >= 34);
        // Neither is what the bar belongs to: a part of it can be read and scrolled.
        const auto* body = panel.details->findChild<QScrollArea*>();
        QVERIFY2(body->height() >= 60, qPrintable(QString::number(body->height())));
        dragTo(0);
        QVERIFY(panel.table->height() >= 45);
        QCOMPARE(panel.details->height(), 516);
    }

    // Connector.

    void NullConnectorIsRefusedAndThePreviousOneStays()
    {
        const Panel panel;
        QVERIFY(panel.widget->SetConnector(&m_stub));
        QVERIFY(!panel.widget->SetConnector(nullptr));
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 2);
    }

    void WithoutConnectorNothingHappens_data()
    {
        const Rows<bool> row("isDead");
        row("none was given", false);
        row("the given one is dead", true);
    }
    void WithoutConnectorNothingHappens()
    {
        QFETCH(bool, isDead);
        const Panel panel;
        if (isDead)
            panel.widget->SetConnector(std::make_unique<ConnectorStub>().get());
        panel.widget->PerformQuery();
        QVERIFY(!panel.table->model());
        QCOMPARE(panel.widget->UpdateCountryComboBox(), WrongContentType);
        QCOMPARE(panel.country->count(), 246);
    }

    // Search.

    void FiltersFollowTheFields_data()
    {
        const Rows<QStringList, QString, Filters> row("texts", "country", "filters");
        const QStringList none{QString(), QString(), QString()};
        row("nothing entered", none, u"--"_s, {});
        row("complex name", {u"Hall"_s, QString(), QString()}, u"--"_s, {{u"title"_s, u"Hall"_s}});
        row("venue/room name", {QString(), u"Hall"_s, QString()}, u"--"_s,
            {{u"venue_room_name"_s, u"Hall"_s}});
        row("blanks are sent as typed", {QString(), QString(), u"  "_s}, u"--"_s,
            {{u"address.locality"_s, u"  "_s}});
        row("country as code", none, u"Germany"_s, {{u"address.country_code"_s, u"DE"_s}});
        row("all in order", {u"a"_s, u"b"_s, u"c"_s}, u"Viet Nam"_s,
            {{u"title"_s, u"a"_s},
             {u"venue_room_name"_s, u"b"_s},
             {u"address.locality"_s, u"c"_s},
             {u"address.country_code"_s, u"VN"_s}});
    }
    void FiltersFollowTheFields()
    {
        const auto [texts, country] = Fetch<QStringList, QString>();
        const Panel panel(&m_stub);
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
        const Panel panel(&m_stub);
        m_stub.venues = {MakeVenue(1, u"A"_s, u"unknown"_s)};
        panel.widget->PerformQuery();
        panel.country->setCurrentText(u"unknown"_s);
        m_stub.searches.clear();
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.searches.at(0), (Filters{{u"address.country_code"_s, u"-"_s}}));
    }

    void ResultsAreShownInTheConnectorsOrder()
    {
        const Panel panel(&m_stub);
        panel.widget->PerformQuery();
        QCOMPARE(panel.ShownNames(), (QStringList{u"Alpha Hall"_s, u"Beta Arena"_s, u"Gamma Theatre"_s}));
        QVERIFY(panel.table->isColumnHidden(0));
        QVERIFY(panel.table->horizontalHeader()->stretchLastSection());
        QVERIFY(panel.details->isHidden());
    }

    void UserSeesThatTheSearchRuns()
    {
        const Panel panel(&m_stub);
        m_stub.duringCall = [&] { panel.VerifyLoading(); };
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 2);
        QCOMPARE(panel.widget->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(panel.statusLabel.text(), QString());
        QVERIFY(panel.details->isEnabled());
    }

    void StatusLabelIsRepaintedAtOnce()
    {
        QLabel label;
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        VenueDbCentralWidget widget(nullptr, &label);
        widget.SetConnector(&m_stub);
        const EventCounter paints(&label, QEvent::Paint);
        int duringSearch = 0;
        m_stub.duringCall = [&] { duringSearch = paints.count; };
        widget.PerformQuery();
        QVERIFY(duringSearch > 0);
    }

    void MissingStatusLabelIsNoProblem()
    {
        VenueDbCentralWidget widget(nullptr, nullptr);
        widget.SetConnector(&m_stub);
        widget.PerformQuery();
        QCOMPARE(m_stub.calls.size(), 2);
    }

    void CountriesAreReducedToThoseFound_data()
    {
        const Rows<QStringList, QStringList> row("found", "listed");
        row("upper and lower case sort alike", {u"Germany"_s, u"austria"_s, u"Germany"_s, u"Zambia"_s},
            {u"austria"_s, u"Germany"_s, u"Zambia"_s});
        row("a null one is left out", {u"Chad"_s, QString()}, {u"Chad"_s});
        row("an empty one is not left out", {u"Chad"_s, ""_L1, QString()}, {""_L1, u"Chad"_s});
        const QString longer = u"Guinea-Bissau"_s;
        const QString shorter = QString::fromRawData(longer.constData(), 6);
        row("beginning in the same memory", {shorter, longer, shorter}, {u"Guinea"_s, u"Guinea-Bissau"_s});
        QStringList many;
        QStringList again;
        for (int i = 0; i < 3000; ++i) {
            many.append(u"Country %1"_s.arg(i, 4, 10, QChar(u'0')));
            // The same text elsewhere in memory.
            again.append(u"Country %1"_s.arg(i, 4, 10, QChar(u'0')));
        }
        row("many, each twice", many + again, many);
    }
    void CountriesAreReducedToThoseFound()
    {
        const auto [found, listed] = Fetch<QStringList, QStringList>();
        const Panel panel(&m_stub);
        m_stub.venues.clear();
        for (const QString& country : found)
            m_stub.venues.append(MakeVenue(1, {}, country));
        QCOMPARE(panel.widget->UpdateCountryComboBox(), Ok);
        QCOMPARE(ItemTexts(panel.country), QStringList(u"--"_s) + listed);
    }

    void ChosenCountryStaysWhileItOccurs_data()
    {
        const Rows<QString, QString> row("country", "after");
        row("still occurs", u"Germany"_s, u"Germany"_s);
        row("occurs no longer", u"France"_s, u"--"_s);
        row("occurs in another case", u"Austria"_s, u"--"_s);
        row("none chosen", u"--"_s, u"--"_s);
    }
    void ChosenCountryStaysWhileItOccurs()
    {
        QFETCH(QString, country);
        const Panel panel(&m_stub);
        panel.country->setCurrentText(country);
        panel.search->click();
        QTEST(panel.country->currentText(), "after");
    }

    void FailedRefreshLeavesOnlyWhatCameBack()
    {
        const Panel panel(&m_stub);
        m_stub.onFindVenues = [](const Filters&, QList<Venue>& venues) {
            venues = {MakeVenue(1, {}, u"Chad"_s)};
            return Timeout;
        };
        QCOMPARE(panel.widget->UpdateCountryComboBox(), Timeout);
        QCOMPARE(ItemTexts(panel.country), (QStringList{u"--"_s, u"Chad"_s}));
    }

    void ResetClearsTheFieldsAndListsEverything()
    {
        const Panel panel(&m_stub);
        for (QLineEdit* field : panel.fields)
            field->setText(u"x"_s);
        panel.country->setCurrentText(u"Germany"_s);
        panel.reset->click();
        for (const QLineEdit* field : panel.fields)
            QCOMPARE(field->text(), QString());
        QCOMPARE(panel.country->currentText(), u"--"_s);
        QCOMPARE(m_stub.searches, (QList<Filters>{Filters(), Filters()}));
    }

    void ResetOffersEveryCountryWhenTheServerIsAway()
    {
        const FilledPanel panel(&m_stub);
        QCOMPARE(panel.country->count(), 3);
        m_stub.result = Timeout;
        const auto driver = AnswerBox(QMessageBox::Close);
        panel.reset->click();
        QCOMPARE(panel.country->count(), 246);
    }

    // Failures.

    void FailureShowsTheErrorBox_data()
    {
        const Rows<QList<int>> row("results");
        row("search has the wrong type", {WrongContentType});
        row("search times out", {Timeout});
        row("refresh has the wrong type", {Ok, WrongContentType});
        row("refresh times out", {Ok, Timeout});
    }
    void FailureShowsTheErrorBox()
    {
        QFETCH(QList<int>, results);
        const Panel panel(&m_stub);
        m_stub.onFindVenues = [&results](const Filters&, QList<Venue>&) {
            return static_cast<ResultStatus>(results.takeFirst());
        };
        const BoxDriver driver([&](QMessageBox* box) {
            const auto close = qScopeGuard([box] { box->button(QMessageBox::Close)->click(); });
            QCOMPARE(box->windowTitle(), u"Error"_s);
            QCOMPARE(box->text(), u"Unable to connect to server. \nPlease check your internet connection."_s);
            QCOMPARE(box->standardButtons(), QMessageBox::Retry | QMessageBox::Close);
            QCOMPARE(box->defaultButton(), box->button(QMessageBox::Retry));
            QVERIFY(box->isModal());
            QCOMPARE(box->parentWidget(), panel.widget.data());
        });
        const QSignalSpy closeRequests(panel.widget, &VenueDbCentralWidget::CloseWindowRequested);
        panel.widget->PerformQuery();
        QCOMPARE(driver.Count(), 1);
        QCOMPARE(closeRequests.count(), 1);
        QVERIFY(results.isEmpty());
    }

    void EscapeInTheErrorBoxGivesUp()
    {
        const Panel panel(&m_stub);
        m_stub.result = Timeout;
        const BoxDriver driver([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); });
        const QSignalSpy closeRequests(panel.widget, &VenueDbCentralWidget::CloseWindowRequested);
        panel.widget->PerformQuery();
        QCOMPARE(closeRequests.count(), 1);
    }

    void GivingUpShowsWhatCameBack()
    {
        const FilledPanel panel(&m_stub);
        QCOMPARE(panel.ShownNames().size(), 3);
        m_stub.result = Timeout;
        const auto driver = AnswerBox(QMessageBox::Close);
        panel.widget->PerformQuery();
        QVERIFY(panel.ShownNames().isEmpty());
        QCOMPARE(panel.table->model()->columnCount(), 6);
    }

    void RetryRepeatsTheSameFiltersUntilItWorks()
    {
        const Panel panel(&m_stub);
        panel.fields.at(0)->setText(u"Hall"_s);
        int failures = 2;
        m_stub.onFindVenues = [&](const Filters&, QList<Venue>& venues) {
            panel.fields.at(0)->setText(u"changed meanwhile"_s);
            if (failures-- > 0)
                return Timeout;
            venues = m_stub.venues;
            return Ok;
        };
        const ErrorBoxes user(QMessageBox::Retry);
        const QSignalSpy closeRequests(panel.widget, &VenueDbCentralWidget::CloseWindowRequested);
        panel.widget->PerformQuery();
        const Filters hall{{u"title"_s, u"Hall"_s}};
        QCOMPARE(m_stub.searches, (QList<Filters>{hall, hall, hall, Filters()}));
        QCOMPARE(user.shown.size(), 2);
        QCOMPARE(panel.ShownNames().size(), 3);
        QCOMPARE(closeRequests.count(), 0);
    }

    // Opening.

    void OpeningSearchesOnceUntilASearchFailed()
    {
        const Panel panel(&m_stub);
        Q_EMIT panel.widget->WindowOpened();
        // Queued: nothing is asked before control has returned to the event loop.
        QVERIFY(m_stub.calls.isEmpty());
        QTRY_COMPARE(m_stub.calls.size(), 2);

        Q_EMIT panel.widget->WindowOpened();
        QCoreApplication::processEvents();
        QCOMPARE(m_stub.calls.size(), 2);

        m_stub.result = Timeout;
        const auto driver = AnswerBox(QMessageBox::Close);
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 3);

        m_stub.result = Ok;
        Q_EMIT panel.widget->WindowOpened();
        QTRY_COMPARE(m_stub.calls.size(), 5);
        QCOMPARE(panel.ShownNames().size(), 3);
    }

    // Details.

    void SelectedRowShowsItsDetails()
    {
        m_stub.venues[2].SetRiggingComment(u"rigging of Gamma Theatre"_s);
        const FilledPanel panel(&m_stub);
        m_stub.duringCall = [&] { panel.VerifyLoading(); };
        m_stub.onGetFiles = [](qint64) { return QList<TsFile>{MakeFile(u"plan.tessra"_s)}; };
        panel.details->SetCollapsed(true);
        panel.table->selectRow(2);
        QCOMPARE(m_stub.calls, (QStringList{u"pictures 13"_s, u"files 13"_s}));
        QVERIFY(!panel.details->isHidden());
        // The full record, not only what the table shows.
        const auto texts = panel.details->findChildren<QTextEdit*>();
        QVERIFY(std::any_of(texts.cbegin(), texts.cend(), [](const QTextEdit* edit) {
            return edit->toPlainText() == u"rigging of Gamma Theatre"_s;
        }));
        QCOMPARE(panel.details->findChild<TsFileOpener*>()->findChild<QComboBox*>()->currentText(),
                 u"plan.tessra"_s);
        // Expanded again.
        QCOMPARE(panel.details->maximumHeight(), 516);
        QCOMPARE(panel.statusLabel.text(), QString());
        QVERIFY(panel.details->isEnabled());
    }

    void SortedTableLoadsTheVenueOfTheRow()
    {
        const Panel panel(&m_stub);
        m_stub.venues[0].SetEditDate(QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
        m_stub.venues[1].SetEditDate(QDateTime(QDate(2022, 1, 1), QTime(0, 0)));
        m_stub.venues[2].SetEditDate(QDateTime(QDate(2024, 1, 1), QTime(0, 0)));
        panel.widget->PerformQuery();
        panel.table->sortByColumn(5, Qt::AscendingOrder);
        m_stub.calls.clear();
        panel.table->selectRow(0);
        QCOMPARE(m_stub.calls.first(), u"pictures 13"_s);
    }

    void SortSurvivesTheNextSearch()
    {
        const Panel panel(&m_stub);
        m_stub.venues[1].SetEditDate(QDateTime(QDate(2022, 1, 1), QTime(0, 0)));
        panel.widget->PerformQuery();
        panel.table->sortByColumn(5, Qt::AscendingOrder);
        QCOMPARE(panel.ShownNames().first(), u"Beta Arena"_s);
        panel.widget->PerformQuery();
        QCOMPARE(panel.ShownNames().first(), u"Beta Arena"_s);
    }

    void ClearedSelectionEmptiesAndHidesTheDetails()
    {
        m_stub.venues[0].SetRiggingComment(u"rigging"_s);
        const FilledPanel panel(&m_stub);
        panel.table->selectRow(0);
        QVERIFY(!panel.details->isHidden());
        panel.table->clearSelection();
        QVERIFY(panel.details->isHidden());
        for (const QTextEdit* edit : panel.details->findChildren<QTextEdit*>())
            QCOMPARE(edit->toPlainText(), QString());
        QVERIFY(panel.details->isEnabled());
        QCOMPARE(panel.statusLabel.text(), QString());
    }

    void EachSelectionLoadsOnceAlsoAfterSeveralSearches()
    {
        const Panel panel(&m_stub);
        for (int round = 0; round < 3; ++round)
            panel.widget->PerformQuery();
        m_stub.calls.clear();
        panel.table->selectRow(1);
        QCOMPARE(m_stub.calls, (QStringList{u"pictures 12"_s, u"files 12"_s}));
    }

    // Things that happen during a wait.

    void SearchDuringASearchReturnsAtOnce()
    {
        const Panel panel(&m_stub);
        m_stub.duringCall = [&] {
            if (m_stub.calls.size() < 10)
                panel.widget->PerformQuery();
        };
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 2);
        QCOMPARE(panel.ShownNames().size(), 3);
    }

    void SearchWhileTheErrorBoxIsOpenReturnsAtOnce()
    {
        const Panel panel(&m_stub);
        m_stub.result = Timeout;
        const BoxDriver driver([&](QMessageBox* box) {
            panel.widget->PerformQuery();
            QTest::mouseClick(box->button(QMessageBox::Close), Qt::LeftButton);
        });
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls.size(), 1);
    }

    void SelectionChangedWhileLoadingIsLoadedAfterwards()
    {
        const FilledPanel panel(&m_stub);
        m_stub.duringCall = [&] {
            if (m_stub.calls.last() == u"pictures 11"_s)
                panel.table->selectRow(2);
        };
        panel.table->selectRow(0);
        // Not inside: the first load asks for its files before the second begins.
        QCOMPARE(m_stub.calls,
                 (QStringList{u"pictures 11"_s, u"files 11"_s, u"pictures 13"_s, u"files 13"_s}));
        const auto lines = panel.details->findChildren<QLineEdit*>();
        QVERIFY(std::any_of(lines.cbegin(), lines.cend(),
                            [](const QLineEdit* edit) { return edit->text() == u"13"_s; }));
    }

    void DetailsThatArriveAfterAResetAreDropped()
    {
        const FilledPanel panel(&m_stub);
        m_stub.duringCall = [&] {
            if (m_stub.calls.last() == u"files 11"_s)
                panel.widget->PerformQuery();
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
        const FilledPanel panel(&m_stub);
        m_stub.duringCall = [&] { panel.table->selectRow(0); };
        panel.widget->PerformQuery();
        QCOMPARE(m_stub.calls, (QStringList{u"find"_s, u"find"_s}));
        QVERIFY(panel.details->isHidden());
    }

    void WidgetMayBeDeleted_data()
    {
        const Rows<QString, ResultStatus, int> row("moment", "result", "calls");
        row("during the search", u"call 1"_s, Ok, 1);
        row("during the country refresh", u"call 2"_s, Ok, 2);
        row("while the error box is open", u"box"_s, Timeout, 1);
        row("by who hears that the user gave up", u"given up"_s, Timeout, 1);
    }
    void WidgetMayBeDeleted()
    {
        const auto [moment, result, calls] = Fetch<QString, ResultStatus, int>();
        const Panel panel(&m_stub);
        const auto comes = [&, when = moment](const QString& now) {
            if (now == when)
                delete panel.widget.data();
        };
        m_stub.result = result;
        m_stub.duringCall = [&] { comes(u"call %1"_s.arg(m_stub.calls.size())); };
        connect(panel.widget, &VenueDbCentralWidget::CloseWindowRequested, this,
                [&] { comes(u"given up"_s); });
        const BoxDriver driver([&](QMessageBox* box) {
            const QPointer<QMessageBox> guard(box);
            comes(u"box"_s);
            if (guard)
                guard->button(QMessageBox::Close)->click();
        });
        panel.search->click();
        QVERIFY(!panel.widget);
        QCOMPARE(m_stub.calls.size(), calls);
        QCOMPARE(driver.Count(), result == Timeout ? 1 : 0);
    }

    void ConnectorMayDieDuringTheSearch_data()
    {
        const Rows<ResultStatus> row("result");
        row("the search fails", Timeout);
        row("nobody is left for the refresh", Ok);
    }
    void ConnectorMayDieDuringTheSearch()
    {
        QFETCH(ResultStatus, result);
        const Panel panel;
        QPointer<ConnectorStub> shortLived = new ConnectorStub;
        panel.widget->SetConnector(shortLived);
        shortLived->onFindVenues = [&](const Filters&, QList<Venue>&) {
            const ResultStatus answer = result;
            delete shortLived.data();
            return answer;
        };
        const auto driver = AnswerBox(QMessageBox::Close);
        panel.widget->PerformQuery();
        QCOMPARE(driver->Count(), 1);
        QVERIFY(panel.ShownNames().isEmpty());
    }

    void RetryUsesTheConnectorOfThatMoment()
    {
        const Panel panel;
        auto shortLived = std::make_unique<ConnectorStub>();
        shortLived->result = Timeout;
        panel.widget->SetConnector(shortLived.get());
        const BoxDriver driver([&](QMessageBox* box) {
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
        const Rows<int> row("atCall");
        row("while the pictures come", 1);
        row("while the model files come", 2);
    }
    void LoadingStopsWhenTheWidgetIsDeleted()
    {
        QFETCH(int, atCall);
        const FilledPanel panel(&m_stub);
        panel.table->selectRow(0);
        m_stub.calls.clear();
        m_stub.duringCall = [&] {
            if (m_stub.calls.size() == atCall)
                delete panel.widget.data();
        };
        // By its name: within a click the table itself would not survive, which is why hosts are told to
        // wait.
        QVERIFY(QMetaObject::invokeMethod(panel.widget, "OnTableSelectionChanged"));
        QVERIFY(!panel.widget);
        QCOMPARE(m_stub.calls.size(), atCall);
    }

    void VenueOfADeadConnectorIsShownWithoutPictures_data()
    {
        const Rows<bool> row("diesWhileLoading");
        row("dead before it is selected", false);
        row("dying while its details load", true);
    }
    void VenueOfADeadConnectorIsShownWithoutPictures()
    {
        QFETCH(bool, diesWhileLoading);
        const Panel panel;
        QPointer<ConnectorStub> shortLived = new ConnectorStub;
        shortLived->venues = m_stub.venues;
        panel.widget->SetConnector(shortLived);
        panel.widget->PerformQuery();
        shortLived->onGetPictures = [&](qint64) {
            delete shortLived.data();
            return QList<Picture>();
        };
        if (!diesWhileLoading)
            delete shortLived.data();
        panel.table->selectRow(1);
        QVERIFY(!shortLived);
        QVERIFY(!panel.details->isHidden());
        QVERIFY(panel.details->isEnabled());
    }

    // Layout.

    void ColumnsAlignWithTheSearchRow()
    {
        Panel panel(&m_stub);
        panel.Show();
        panel.widget->PerformQuery();
        const auto width
            = [&panel](const char* label) { return panel.Label(QString::fromLatin1(label))->width(); };
        QCOMPARE(panel.table->columnWidth(1), width("Complex name:") + 22 + panel.fields.at(0)->width());
        QCOMPARE(panel.table->columnWidth(2), width("Venue/room name:") + 12 + panel.fields.at(1)->width());
        QCOMPARE(panel.table->columnWidth(3), panel.fields.at(2)->width() + 12 + width("City:"));
        QCOMPARE(panel.table->columnWidth(4), width("Country:") + 8 + panel.country->width());
        QVERIFY(panel.table->isColumnHidden(0));
    }

    void SearchFieldsKeepTheirRoom_data()
    {
        const Rows<int, QString> row("fontSize", "text");
        row("usual font", 0, u"Philharmonie"_s);
        row("font of 16 pixels", 16, u"Philhar"_s);
        row("font of 20 pixels", 20, u"Phil"_s);
    }
    void SearchFieldsKeepTheirRoom()
    {
        const auto [fontSize, text] = Fetch<int, QString>();
        Panel panel(&m_stub);
        if (fontSize > 0) {
            QFont font = panel.dialog.font();
            font.setPixelSize(fontSize);
            panel.dialog.setFont(font);
        }
        panel.Show();
        for (const QLineEdit* field : panel.fields) {
            const int wanted = field->fontMetrics().horizontalAdvance(text) + 8;
            QVERIFY2(field->width() >= wanted, qPrintable(u"%1 < %2"_s.arg(field->width()).arg(wanted)));
        }
        // The list gives way, down to what a common name needs, and opens as wide as its names are.
        QVERIFY(panel.country->width() >= 120);
        QVERIFY(panel.country->width() < panel.country->sizeHint().width());
        panel.country->showPopup();
        QVERIFY(panel.country->view()->width() >= panel.country->view()->sizeHintForColumn(0));
        panel.country->hidePopup();
    }

    void ColumnsFollowTheWindowWidth()
    {
        Panel panel(&m_stub);
        panel.Show();
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

    // Focus.

    void FocusIsWhereTheUserGoesOnWhenTheDetailsHide_data()
    {
        using Finder = std::function<QWidget*(const Panel&)>;
        const Rows<Finder, ResultStatus, bool, Finder> row("before", "result", "searches", "after");
        const Finder comment = [](const Panel& panel) { return panel.details->findChild<QTextEdit*>(); };
        const Finder line = [](const Panel& panel) { return panel.details->findChild<QLineEdit*>(); };
        const Finder field = [](const Panel& panel) { return panel.fields.at(1); };
        const Finder table = [](const Panel& panel) { return panel.table; };
        row("search from the details leads to the table", comment, Ok, true, table);
        row("failed search from there too", line, Timeout, true, table);
        row("search from elsewhere leaves the focus", field, Ok, true, field);
        row("cleared selection leads from the details to the table", line, Ok, false, table);
    }
    void FocusIsWhereTheUserGoesOnWhenTheDetailsHide()
    {
        using Finder = std::function<QWidget*(const Panel&)>;
        const auto [before, result, searches, after] = Fetch<Finder, ResultStatus, bool, Finder>();
        ShownPanel panel(&m_stub, 0);
        before(panel)->setFocus();
        m_stub.result = result;
        const auto driver = AnswerBox(QMessageBox::Close);
        if (searches)
            panel.search->click();
        else
            panel.table->clearSelection();
        QVERIFY(panel.details->isHidden());
        QCOMPARE(panel.dialog.focusWidget(), after(panel));
    }

    void FocusInTheDetailsOutlastsALoad()
    {
        ShownPanel panel(&m_stub, 0);
        auto* field = panel.details->findChild<QLineEdit*>();
        field->setFocus();
        QWidget* meanwhile = nullptr;
        m_stub.duringCall = [&] { meanwhile = panel.dialog.focusWidget(); };
        panel.table->selectRow(1);
        QVERIFY2(meanwhile, "whatever made the window active now would send the focus to its first button");
        QCOMPARE(panel.dialog.focusWidget(), field);
    }

    // Keys in the table.

    void FirstArrowKeySelectsTheCurrentRow_data()
    {
        const Rows<Qt::Key, int> row("key", "venueCount");
        row("Down", Qt::Key_Down, 3);
        row("Up", Qt::Key_Up, 3);
        row("Left", Qt::Key_Left, 3);
        row("Right", Qt::Key_Right, 3);
        row("Down in the only row", Qt::Key_Down, 1);
    }
    void FirstArrowKeySelectsTheCurrentRow()
    {
        const auto [key, venueCount] = Fetch<Qt::Key, int>();
        m_stub.venues.resize(venueCount);
        ShownPanel panel(&m_stub);
        panel.table->setFocus(Qt::TabFocusReason);
        QTest::keyClick(panel.table, key);
        QCOMPARE(SelectedRow(panel), 0);
        QCOMPARE(m_stub.calls, (QStringList{u"pictures 11"_s, u"files 11"_s}));
        QTest::keyClick(panel.table, Qt::Key_Down);
        QCOMPARE(SelectedRow(panel), venueCount > 1 ? 1 : 0);
    }

    void SelectedRowStaysInViewBesideTheDetails_data()
    {
        const Rows<bool> row("byKey");
        row("by key", true);
        row("by mouse", false);
    }
    void SelectedRowStaysInViewBesideTheDetails()
    {
        QFETCH(bool, byKey);
        m_stub.venues.clear();
        for (int id = 0; id < 60; ++id)
            m_stub.venues.append(MakeVenue(id, u"Hall %1"_s.arg(id)));
        ShownPanel panel(&m_stub);
        panel.table->setFocus(Qt::TabFocusReason);
        if (byKey)
            QTest::keyClick(panel.table, Qt::Key_PageDown);
        else
            ClickRow(panel.table, panel.table->rowAt(panel.table->viewport()->height() - 5));
        const int before = panel.table->viewport()->height();
        QTRY_VERIFY(panel.table->viewport()->height() < before / 2);
        QVERIFY(SelectedRow(panel) > 5);
        const QRect shown = panel.table->visualRect(panel.table->currentIndex());
        QVERIFY2(panel.table->viewport()->rect().contains(shown), qPrintable(QString::number(shown.top())));
    }

    void HeadersSortByKey_data()
    {
        const Rows<QList<Qt::Key>, QStringList> row("keys", "order");
        const QStringList newestFirst{u"Beta Arena"_s, u"Gamma Theatre"_s, u"Alpha Hall"_s};
        const QStringList oldestFirst{u"Alpha Hall"_s, u"Gamma Theatre"_s, u"Beta Arena"_s};
        row("End, Space", {Qt::Key_End, Qt::Key_Space}, newestFirst);
        row("End, Return", {Qt::Key_End, Qt::Key_Return}, newestFirst);
        row("twice", {Qt::Key_End, Qt::Key_Space, Qt::Key_Space}, oldestFirst);
        row("step by step", {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Enter},
            newestFirst);
        row("no further than the last", {Qt::Key_End, Qt::Key_Right, Qt::Key_Space}, newestFirst);
        row("there and back",
            {Qt::Key_Home, Qt::Key_Left, Qt::Key_End, Qt::Key_Left, Qt::Key_Right, Qt::Key_Space},
            newestFirst);
    }
    void HeadersSortByKey()
    {
        const auto [keys, order] = Fetch<QList<Qt::Key>, QStringList>();
        m_stub.venues[0].SetEditDate(QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
        m_stub.venues[1].SetEditDate(QDateTime(QDate(2024, 1, 1), QTime(0, 0)));
        m_stub.venues[2].SetEditDate(QDateTime(QDate(2022, 1, 1), QTime(0, 0)));
        ShownPanel panel(&m_stub);
        panel.reset->setFocus();
        QTest::keyClick(panel.reset, Qt::Key_Tab);
        QHeaderView* header = panel.table->horizontalHeader();
        QCOMPARE(panel.dialog.focusWidget(), header);
        for (const Qt::Key key : keys)
            QTest::keyClick(header, key);
        QCOMPARE(panel.ShownNames(), order);
        QVERIFY2(m_stub.calls.isEmpty(), "a key for the headers searched or selected");
    }

    void HeadersRunFromRightToLeftWhereTheLayoutDoes()
    {
        FilledPanel panel(&m_stub);
        panel.dialog.setLayoutDirection(Qt::RightToLeft);
        panel.Show();
        QHeaderView* header = panel.table->horizontalHeader();
        header->setFocus(Qt::TabFocusReason);
        QTest::keyClick(header, Qt::Key_Left);
        QTest::keyClick(header, Qt::Key_Space);
        QCOMPARE(header->sortIndicatorSection(), 2);
    }

    void DownLeadsFromTheHeadersToTheRows()
    {
        ShownPanel panel(&m_stub);
        QHeaderView* header = panel.table->horizontalHeader();
        header->setFocus(Qt::TabFocusReason);
        QTest::keyClick(header, Qt::Key_Down);
        QCOMPARE(panel.dialog.focusWidget(), panel.table);
        QTest::keyClick(panel.table, Qt::Key_Down);
        QCOMPARE(SelectedRow(panel), 0);
    }

    void FocusedHeaderIsSeenAndNamed()
    {
        ShownPanel panel(&m_stub);
        QHeaderView* header = panel.table->horizontalHeader();
        const auto shown = [header] { return header->grab().toImage(); };
        const QImage without = shown();
        header->setFocus(Qt::TabFocusReason);
        const QImage first = shown();
        QVERIFY(first != without);
        QCOMPARE(header->accessibleName(), u"Sort by Complex name"_s);
        QTest::keyClick(header, Qt::Key_Right);
        QVERIFY(shown() != first);
        QVERIFY(shown() != without);
        QCOMPARE(header->accessibleName(), u"Sort by Venue/room name"_s);
        panel.table->setFocus();
        QCOMPARE(shown(), without);
    }

    void ReturnInAFieldSearches_data()
    {
        const Rows<int, Qt::Key> row("field", "key");
        for (int field = 0; field < 3; ++field) {
            row("Return in field " + QByteArray::number(field), field, Qt::Key_Return);
            row("Enter in field " + QByteArray::number(field), field, Qt::Key_Enter);
        }
    }
    void ReturnInAFieldSearches()
    {
        const auto [field, key] = Fetch<int, Qt::Key>();
        Panel panel(&m_stub);
        panel.Show();
        panel.fields.at(field)->setFocus();
        panel.fields.at(field)->setText(u"x"_s);
        QTest::keyClick(panel.fields.at(field), key);
        QCOMPARE(m_stub.searches.size(), 2);
        // A search with the text, not a reset.
        QCOMPARE(m_stub.searches.first().size(), 1);
    }
};

QTEST_MAIN(tst_VenueDbCentralWidget)
#include "tst_VenueDbCentralWidget.moc"
