#include <ui/VenueDbCentralWidget.h>

#include <ui/CountryList_p.h>
#include <ui/CustomStyle_p.h>
#include <ui/DetailsLoader_p.h>
#include <ui/FocusKeeper_p.h>
#include <ui/ModalWindow_p.h>
#include <ui/SearchRow_p.h>
#include <ui/VenueDetailsWidget.h>
#include <ui/accessible/ScreenReader_p.h>
#include <ui/table/SpokenProxyModel_p.h>
#include <ui/table/VenueTableView_p.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

using namespace Data::VenueDatabase;

VenueDbCentralWidget::VenueDbCentralWidget(QWidget* parent, QLabel* statusLabel)
    : QWidget(parent)
    , m_statusLabel(statusLabel)
    , m_proxyModel(std::make_unique<SpokenProxyModel>())
    , m_detailsLoader(std::make_unique<DetailsLoader>())
    , m_focusKeeper(std::make_unique<FocusKeeper>())
{
    ServeScreenReaders();
    SetupUi();
    PopulateUi();
    m_searchRow->KeepListWide();
    ConnectSignals();
    FocusFirstField();
}

VenueDbCentralWidget::~VenueDbCentralWidget() = default;

bool VenueDbCentralWidget::SetConnector(Connector_Interface* connector)
{
    if (!connector)
        return false;
    m_connector = connector;
    m_connectorObject = dynamic_cast<QObject*>(connector);
    m_isConnectorObject = !m_connectorObject.isNull();
    return true;
}

Connector_Interface* VenueDbCentralWidget::LivingConnector() const
{
    return m_isConnectorObject && !m_connectorObject ? nullptr : m_connector;
}

void VenueDbCentralWidget::SetDayMode(bool dayMode)
{
    if (m_detailsWidget)
        m_detailsWidget->SetDayMode(dayMode);
}

void VenueDbCentralWidget::FocusFirstField()
{
    m_searchRow->FocusFirstField();
}

void VenueDbCentralWidget::SetupUi()
{
    m_mainLayout = new QVBoxLayout;

    auto* searchArea = new QWidget(this);
    auto* searchAreaLayout = new QVBoxLayout(searchArea);
    searchAreaLayout->setContentsMargins(4, 4, 4, 4);
    QLabel* hintLabel = CreateLabel(
        tr("To conduct a targeted search, please enter search terms or single letters in the fields below "
           "and click Search. To view the complete result list, click Reset."),
        "labelKorvelDefault"_L1, this);
    hintLabel->setMargin(4);
    // On one line where it fits, as in English; other languages say it with more letters.
    hintLabel->setWordWrap(true);
    searchAreaLayout->addWidget(hintLabel);
    searchAreaLayout->addLayout(SetupSearchUi());
    searchAreaLayout->addWidget(CreateSeparator(this));
    m_mainLayout->addWidget(searchArea);

    m_tableView = new VenueTableView(this);
    m_tableView->setAccessibleName(tr("Venues"));
    m_tableView->setAccessibleDescription(tr("The venues that were found. Select one to see its details."));

    m_detailsWidget = new VenueDetailsWidget(this);
    m_detailsWidget->hide();

    auto* splitter = new QSplitter;
    SetCustomStyle(splitter, "splitterKorvelDefault"_L1);
    splitter->addWidget(m_tableView);
    splitter->addWidget(m_detailsWidget);
    splitter->setOrientation(Qt::Vertical);
    splitter->setContentsMargins(0, 0, 0, 0);
    // Details that were dragged away would never come back.
    splitter->setChildrenCollapsible(false);
    // The splitter has put the details before the table, and so they would be read.
    m_tableView->lower();
    m_mainLayout->addWidget(splitter);

    m_mainLayout->setContentsMargins(0, 0, 0, 0);
    m_mainLayout->setSpacing(0);
    SetCustomStyle(m_mainLayout, "dialogKorvelDefault"_L1);
    SetCustomStyle(this, "widgetKorvelDefault"_L1);
    setLayout(m_mainLayout);
    // The headers stand above the rows. Qt keeps the order only of widgets that have come to their window.
    setTabOrder(m_tableView->horizontalHeader(), m_tableView);
    // Not earlier: a handle with a name is known to screen readers, and it must be known as ours.
    splitter->handle(1)->setAccessibleName(tr("Height of the venue table"));
}

QHBoxLayout* VenueDbCentralWidget::SetupSearchUi()
{
    m_searchRow = std::make_unique<SearchRow>(this);
    m_countryComboBox = m_searchRow->CountryComboBox();
    return m_searchRow->Layout();
}

void VenueDbCentralWidget::PopulateUi()
{
    m_countryComboBox->addItem(SearchRow::AnyCountry());
    m_countryComboBox->addItems(m_countryCodeTranslator.GetCountryList());
}

void VenueDbCentralWidget::ConnectSignals()
{
    connect(m_searchRow->SearchButton(), &QPushButton::clicked, this,
            &VenueDbCentralWidget::OnQueryButtonClicked);
    connect(m_searchRow->ResetButton(), &QPushButton::clicked, this,
            &VenueDbCentralWidget::OnResetFilterButtonClicked);
    // Queued: the first search starts when the dialog is on the screen.
    connect(this, &VenueDbCentralWidget::WindowOpened, this, &VenueDbCentralWidget::OnWindowOpened,
            Qt::QueuedConnection);
}

void VenueDbCentralWidget::OnQueryButtonClicked()
{
    if (!IsPutOff(m_searchRow->SearchButton()))
        PerformQuery();
}

void VenueDbCentralWidget::OnWindowOpened()
{
    if (!m_isQueryDone)
        PerformQuery();
}

void VenueDbCentralWidget::OnResetFilterButtonClicked()
{
    if (IsPutOff(m_searchRow->ResetButton()))
        return;
    m_searchRow->Clear();
    PopulateUi();
    PerformQuery();
}

bool VenueDbCentralWidget::IsPutOff(QPushButton* button)
{
    // Not while the user is asked: then a click would find the panel blocked.
    if (!m_isSearching || !m_isBusy)
        return false;
    // Reset searches too, so that whatever else was pressed does not matter.
    if (m_pressedMeanwhile != m_searchRow->ResetButton())
        m_pressedMeanwhile = button;
    return true;
}

void VenueDbCentralWidget::PerformQuery()
{
    if (m_isSearching || !LivingConnector())
        return;

    const QPointer<VenueDbCentralWidget> self(this);
    m_isSearching = true;
    m_isQueryDone = false;
    const SearchRow::Filters filters = m_searchRow->CurrentFilters(m_countryCodeTranslator);
    QList<Venue> venues;
    while (!m_isQueryDone) {
        SetBusyState(true);
        Connector_Interface* connector = LivingConnector();
        const ResultStatus status
            = connector ? connector->FindVenueEntries(filters, venues) : WrongContentType;
        if (!self)
            return;
        SetBusyState(false);

        const bool isCountryListRefreshed = status == Ok && UpdateCountryComboBox() == Ok;
        if (!self)
            return;
        m_isQueryDone = isCountryListRefreshed;
        if (m_isQueryDone)
            break;

        const bool retry = AskForRetry();
        if (!self)
            return;
        if (!retry) {
            m_pressedMeanwhile = nullptr;
            Q_EMIT CloseWindowRequested();
            if (!self)
                return;
            break;
        }
    }
    m_isSearching = false;
    ShowResults(venues);
    if (QPushButton* button = std::exchange(m_pressedMeanwhile, nullptr))
        QTimer::singleShot(0, button, &QPushButton::click);
}

bool VenueDbCentralWidget::AskForRetry()
{
    const ModalWindow<QMessageBox> box(
        QMessageBox::Warning, tr("Error"),
        tr("Unable to connect to server. \nPlease check your internet connection."),
        QMessageBox::Retry | QMessageBox::Close, this);
    box->setDefaultButton(QMessageBox::Retry);
    return box->exec() == QMessageBox::Retry;
}

void VenueDbCentralWidget::ShowResults(const QList<Venue>& venues)
{
    if (m_tableView->selectionModel()) {
        disconnect(m_tableView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                   &VenueDbCentralWidget::OnTableSelectionChanged);
    }
    m_tableModel.SetVenueData(venues);
    m_proxyModel->setSourceModel(&m_tableModel);
    m_tableView->setModel(m_proxyModel.get());
    m_tableView->horizontalHeader()->setStretchLastSection(true);
    connect(m_tableView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &VenueDbCentralWidget::OnTableSelectionChanged);
    ResizeColumns();

    HideDetails();
}

ResultStatus VenueDbCentralWidget::UpdateCountryComboBox()
{
    Connector_Interface* connector = LivingConnector();
    if (!connector)
        return WrongContentType;

    const QString chosenCountry = m_countryComboBox->currentText();
    m_countryComboBox->clear();
    m_countryComboBox->addItem(SearchRow::AnyCountry());

    const QPointer<VenueDbCentralWidget> self(this);
    SetBusyState(true);
    QList<Venue> venues;
    const ResultStatus status = connector->FindVenueEntries({}, venues);
    if (!self)
        return status;
    SetBusyState(false);
    FillCountryComboBox(venues, chosenCountry);
    return status;
}

void VenueDbCentralWidget::FillCountryComboBox(const QList<Venue>& venues, const QString& chosenCountry)
{
    m_countryComboBox->addItems(CountryList(venues));

    const int index = m_countryComboBox->findText(chosenCountry, Qt::MatchCaseSensitive);
    if (index >= 0)
        m_countryComboBox->setCurrentIndex(index);
}

void VenueDbCentralWidget::OnTableSelectionChanged()
{
    // The results of the running search replace the rows anyway.
    if (m_isSearching && !m_detailsLoader->IsLoading())
        return;
    m_detailsLoader->Run(this, [this] { LoadSelectedDetails(); });
}

void VenueDbCentralWidget::LoadSelectedDetails()
{
    const QPointer<VenueDbCentralWidget> self(this);
    SetBusyState(true);

    const QModelIndexList selectedIndexes = m_tableView->selectionModel()->selectedIndexes();
    if (selectedIndexes.isEmpty() || !selectedIndexes.first().isValid()) {
        HideDetails();
        SetBusyState(false);
        return;
    }

    Venue venue;
    m_tableModel.GetSingleVenueData(m_proxyModel->mapToSource(selectedIndexes.first()), &venue);

    QList<Picture> pictures;
    if (Connector_Interface* connector = LivingConnector())
        pictures = connector->GetPictureEntries(venue.GetId());
    if (!self)
        return;
    QList<TsFile> files;
    if (Connector_Interface* connector = LivingConnector())
        files = connector->GetTSFileEntries(venue.GetId());
    if (!self)
        return;

    if (m_detailsLoader->IsWanted()) {
        m_detailsWidget->UpdateUi(&venue, &pictures, &files);
        m_detailsWidget->show();
        m_detailsWidget->SetCollapsed(false);
    }
    SetBusyState(false);
}

void VenueDbCentralWidget::HideDetails()
{
    m_detailsLoader->Discard();
    m_detailsWidget->ResetUi();
    m_detailsWidget->hide();
    m_focusKeeper->GiveBack(m_tableView);
}

void VenueDbCentralWidget::SetBusyState(bool busy)
{
    m_isBusy = busy;
    setCursor(busy ? Qt::WaitCursor : Qt::ArrowCursor);
    TellBusyChange(this);
    if (m_statusLabel) {
        m_statusLabel->setText(busy ? tr("Loading...") : QString());
        // The wait may begin before the event loop paints again.
        if (busy)
            m_statusLabel->repaint();
    }
    if (busy)
        m_focusKeeper->Park(m_detailsWidget, this);
    m_detailsWidget->setEnabled(!busy);
    // At the end of a search the details are hidden: the table has the focus then.
    if (!busy && !m_isSearching)
        m_focusKeeper->GiveBack(m_tableView);
}

void VenueDbCentralWidget::ResizeColumns()
{
    m_tableView->setColumnHidden(0, true);
    for (int column = 1; column < Venue::Size(true); ++column)
        m_tableView->setColumnWidth(column, m_searchRow->ColumnWidth(column));
}

void VenueDbCentralWidget::resizeEvent(QResizeEvent* event)
{
    ResizeColumns();
    QWidget::resizeEvent(event);
}

void VenueDbCentralWidget::paintEvent(QPaintEvent* event)
{
    PaintStyledBackground(this);
    QWidget::paintEvent(event);
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_VenueDbCentralWidget.cpp"
