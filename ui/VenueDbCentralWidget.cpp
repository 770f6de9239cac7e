#include <ui/VenueDbCentralWidget.h>

#include <ui/CustomStyle_p.h>
#include <ui/VenueDetailsWidget.h>
#include <ui/text/LineDelegate_p.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSet>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <array>

namespace korvel::Ui::VenueDatabase {

using namespace Data::VenueDatabase;

namespace {

constexpr int c_buttonMinimumWidth = 90;
constexpr int c_labelIndent = 10;
/// What the dialog's stated width leaves for the row of search fields.
constexpr int c_searchRowWidth = 1062 - 2 * 4;
constexpr int c_narrowCountryWidth = 120;

/// The entry of the country list that stands for every country.
QString AnyCountry()
{
    return QStringLiteral("--");
}

} // namespace

VenueDbCentralWidget::VenueDbCentralWidget(QWidget* parent, QLabel* statusLabel)
    : QWidget(parent)
    , m_statusLabel(statusLabel)
{
    SetupUi();
    PopulateUi();
    FitSearchRow();
    ConnectSignals();
    m_complexNameLineEdit->setFocus(Qt::OtherFocusReason);
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

void VenueDbCentralWidget::SetupUi()
{
    m_mainLayout = new QVBoxLayout;

    auto* searchArea = new QWidget(this);
    auto* searchAreaLayout = new QVBoxLayout(searchArea);
    searchAreaLayout->setContentsMargins(4, 4, 4, 4);
    auto* hintLabel
        = new QLabel(tr("To conduct a targeted search, please enter search terms or single letters in the "
                        "fields below and click Search. To view the complete result list, click Reset."),
                     this);
    hintLabel->setMargin(4);
    // On one line where it fits, as in English; other languages say it with more letters.
    hintLabel->setWordWrap(true);
    SetCustomStyle(hintLabel, QLatin1String("labelKorvelDefault"));
    searchAreaLayout->addWidget(hintLabel);
    m_searchLayout = SetupSearchUi();
    searchAreaLayout->addLayout(m_searchLayout);
    auto* separator = new QFrame(this);
    separator->setFixedHeight(1);
    separator->setFrameShape(QFrame::HLine);
    separator->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    SetCustomStyle(separator, QLatin1String("lineKorvelDark"));
    searchAreaLayout->addWidget(separator);
    m_mainLayout->addWidget(searchArea);

    SetupTable();

    m_detailsWidget = new VenueDetailsWidget(this);
    m_detailsWidget->hide();

    auto* splitter = new QSplitter;
    SetCustomStyle(splitter, QLatin1String("splitterKorvelDefault"));
    splitter->addWidget(m_tableView);
    splitter->addWidget(m_detailsWidget);
    splitter->setOrientation(Qt::Vertical);
    splitter->setContentsMargins(0, 0, 0, 0);
    m_mainLayout->addWidget(splitter);

    m_mainLayout->setContentsMargins(0, 0, 0, 0);
    m_mainLayout->setSpacing(0);
    SetCustomStyle(m_mainLayout, QLatin1String("dialogKorvelDefault"));
    SetCustomStyle(this, QLatin1String("widgetKorvelDefault"));
    setLayout(m_mainLayout);
}

QHBoxLayout* VenueDbCentralWidget::SetupSearchUi()
{
    const QString complexNameToolTip = tr(
        "Name of overall multi-venue building or campus (identical to Venue name if there is only one event "
        "venue in the building/on the campus).");
    const QString venueRoomNameToolTip = tr("Name of the specific venue/room within the multi-venue "
                                            "building/campus (identical to Complex name if "
                                            "there is only one venue in the building).");

    // Fields before buttons: the dialog's default button is the next one after the focused field in the order
    // of creation, and Return in a field is to search.
    m_complexNameLabel = CreateFieldLabel(Venue::GetLabelAt(1, false), complexNameToolTip);
    m_complexNameLineEdit = CreateLineEdit(complexNameToolTip);
    m_venueRoomNameLabel = CreateFieldLabel(Venue::GetLabelAt(2, false), venueRoomNameToolTip);
    m_venueRoomNameLabel->setIndent(c_labelIndent);
    m_venueRoomNameLineEdit = CreateLineEdit(venueRoomNameToolTip);
    // Deliberate: only the minimised set has labels for city and country.
    m_cityLabel = CreateFieldLabel(Venue::GetLabelAt(3, true), {});
    m_cityLabel->setIndent(c_labelIndent);
    m_cityLineEdit = CreateLineEdit({});
    m_countryLabel = CreateFieldLabel(Venue::GetLabelAt(4, true), {});
    m_countryLabel->setIndent(c_labelIndent);
    m_countryComboBox = new QComboBox(this);
    SetCustomStyle(m_countryComboBox, QLatin1String("comboBoxKorvelDefault"));
    m_queryButton = CreateButton(tr("Search"));
    m_queryButton->setMinimumWidth(c_buttonMinimumWidth);
    m_resetFilterButton = CreateButton(tr("Reset"));

    m_complexNameLabel->setBuddy(m_complexNameLineEdit);
    m_venueRoomNameLabel->setBuddy(m_venueRoomNameLineEdit);
    m_cityLabel->setBuddy(m_cityLineEdit);
    m_countryLabel->setBuddy(m_countryComboBox);

    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(4, 4, 4, 4);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{m_complexNameLabel, m_complexNameLineEdit, m_venueRoomNameLabel,
                                         m_venueRoomNameLineEdit, m_cityLabel, m_cityLineEdit, m_countryLabel,
                                         m_countryComboBox, m_queryButton, m_resetFilterButton})
        layout->addWidget(widget);
    return layout;
}

QLabel* VenueDbCentralWidget::CreateFieldLabel(const QString& text, const QString& toolTip)
{
    auto* label = new QLabel(text + QLatin1Char(':'), this);
    label->setToolTip(toolTip);
    SetCustomStyle(label, QLatin1String("labelKorvelDefault"));
    return label;
}

QLineEdit* VenueDbCentralWidget::CreateLineEdit(const QString& toolTip)
{
    auto* lineEdit = new QLineEdit(this);
    lineEdit->setToolTip(toolTip);
    SetCustomStyle(lineEdit, QLatin1String("lineEditKorvelDefault"));
    return lineEdit;
}

QPushButton* VenueDbCentralWidget::CreateButton(const QString& text)
{
    auto* button = new QPushButton(text, this);
    SetCustomStyle(button, QLatin1String("buttonKorvelDefault"));
    return button;
}

void VenueDbCentralWidget::SetupTable()
{
    m_tableView = new QTableView(this);
    m_tableView->setItemDelegate(new LineDelegate(m_tableView));
    m_tableView->setShowGrid(false);
    m_tableView->setFrameShape(QFrame::NoFrame);
    m_tableView->setFrameShadow(QFrame::Plain);
    SetCustomStyle(m_tableView, QLatin1String("tableViewKorvelAudioNetworkDevices"));
    m_tableView->setMinimumHeight(45);
    m_tableView->setAccessibleName(tr("Venues"));
    m_tableView->setAccessibleDescription(tr("The venues that were found. Select one to see its details."));
    // Tab leads on to the details: the cells of a row are not chosen one by one.
    m_tableView->setTabKeyNavigation(false);
    m_tableView->verticalHeader()->setVisible(false);
    m_tableView->setSortingEnabled(true);
    m_tableView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tableView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tableView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tableView->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void VenueDbCentralWidget::PopulateUi()
{
    m_countryComboBox->addItem(AnyCountry());
    m_countryComboBox->addItems(m_countryCodeTranslator.GetCountryList());
}

void VenueDbCentralWidget::FitSearchRow()
{
    if (m_searchLayout->minimumSize().width() <= c_searchRowWidth)
        return;
    // Longer words than the English ones, or a larger font: the dialog keeps its width, the country list
    // gives way.
    m_countryComboBox->view()->setMinimumWidth(m_countryComboBox->sizeHint().width());
    m_countryComboBox->setMinimumWidth(c_narrowCountryWidth);
    // Nobody has been shown yet, so nothing else would make it ask again.
    m_searchLayout->invalidate();
}

void VenueDbCentralWidget::ConnectSignals()
{
    connect(m_queryButton, &QPushButton::clicked, this, &VenueDbCentralWidget::OnQueryButtonClicked);
    connect(m_resetFilterButton, &QPushButton::clicked, this,
            &VenueDbCentralWidget::OnResetFilterButtonClicked);
    // Queued: the first search starts when the dialog is on the screen.
    connect(this, &VenueDbCentralWidget::WindowOpened, this, &VenueDbCentralWidget::OnWindowOpened,
            Qt::QueuedConnection);
}

void VenueDbCentralWidget::OnQueryButtonClicked()
{
    PerformQuery();
}

void VenueDbCentralWidget::OnWindowOpened()
{
    if (!m_isQueryDone)
        PerformQuery();
}

void VenueDbCentralWidget::OnResetFilterButtonClicked()
{
    m_complexNameLineEdit->clear();
    m_venueRoomNameLineEdit->clear();
    m_cityLineEdit->clear();
    m_countryComboBox->clear();
    PopulateUi();
    PerformQuery();
}

VenueDbCentralWidget::Filters VenueDbCentralWidget::CurrentFilters() const
{
    Filters filters;
    const auto append = [&filters](QLatin1String path, const QString& text) {
        if (!text.isEmpty())
            filters.append({path, text});
    };
    append(QLatin1String("title"), m_complexNameLineEdit->text());
    append(QLatin1String("venue_room_name"), m_venueRoomNameLineEdit->text());
    append(QLatin1String("address.locality"), m_cityLineEdit->text());
    const QString country = m_countryComboBox->currentText();
    if (country != AnyCountry())
        append(QLatin1String("address.country_code"), m_countryCodeTranslator.GetCountryCode(country));
    return filters;
}

void VenueDbCentralWidget::PerformQuery()
{
    if (m_isSearching || !LivingConnector())
        return;

    const QPointer<VenueDbCentralWidget> self(this);
    m_isSearching = true;
    m_isQueryDone = false;
    const Filters filters = CurrentFilters();
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
            Q_EMIT CloseWindowRequested();
            if (!self)
                return;
            break;
        }
    }
    m_isSearching = false;
    ShowResults(venues);
}

bool VenueDbCentralWidget::AskForRetry()
{
    // On the heap behind a guard: this widget, its parent, may be destroyed while the box is open.
    const QPointer<QMessageBox> box
        = new QMessageBox(QMessageBox::Warning, tr("Error"),
                          tr("Unable to connect to server. \nPlease check your internet connection."),
                          QMessageBox::Retry | QMessageBox::Close, this);
    box->setDefaultButton(QMessageBox::Retry);
    const int answer = box->exec();
    delete box;
    return answer == QMessageBox::Retry;
}

void VenueDbCentralWidget::ShowResults(const QList<Venue>& venues)
{
    if (m_tableView->selectionModel()) {
        disconnect(m_tableView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                   &VenueDbCentralWidget::OnTableSelectionChanged);
    }
    m_tableModel.SetVenueData(venues);
    m_proxyModel.setSourceModel(&m_tableModel);
    m_tableView->setModel(&m_proxyModel);
    m_tableView->horizontalHeader()->setStretchLastSection(true);
    connect(m_tableView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &VenueDbCentralWidget::OnTableSelectionChanged);
    ResizeColumns();

    ++m_detailsResets;
    m_detailsWidget->ResetUi();
    m_detailsWidget->hide();
}

ResultStatus VenueDbCentralWidget::UpdateCountryComboBox()
{
    Connector_Interface* connector = LivingConnector();
    if (!connector)
        return WrongContentType;

    const QString chosenCountry = m_countryComboBox->currentText();
    m_countryComboBox->clear();
    m_countryComboBox->addItem(AnyCountry());

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
    // The list besides the set: names that differ only in case are sorted by where they occur first.
    QSet<QString> known;
    QStringList countries;
    // Venues of one country mostly share its text: the same place in memory needs no look at the text. It
    // stays where it is as long as `venues` does.
    std::array<QStringView, 1024> lastSeen;
    for (const Venue& venue : venues) {
        const QString country = venue.GetCountry();
        if (country.isNull())
            continue;
        const auto address = reinterpret_cast<quintptr>(country.constData());
        QStringView& seen = lastSeen[((address >> 4) ^ (address >> 14)) % lastSeen.size()];
        if (seen.data() == country.constData() && seen.size() == country.size())
            continue;
        seen = country;
        if (known.contains(country))
            continue;
        known.insert(country);
        countries.append(country);
    }
    countries.sort(Qt::CaseInsensitive);
    m_countryComboBox->addItems(countries);

    const int index = m_countryComboBox->findText(chosenCountry, Qt::MatchCaseSensitive);
    if (index >= 0)
        m_countryComboBox->setCurrentIndex(index);
}

bool VenueDbCentralWidget::IsLoadingDetails() const
{
    return m_isLoadingDetails;
}

void VenueDbCentralWidget::DeleteAfterLoading(QObject* object)
{
    m_objectToDelete = object;
}

void VenueDbCentralWidget::OnTableSelectionChanged()
{
    if (m_isLoadingDetails) {
        // Loading it inside the running load would let the older details arrive last.
        m_hasSelectionChanged = true;
        return;
    }
    // The results of the running search replace the rows anyway.
    if (m_isSearching)
        return;

    const QPointer<VenueDbCentralWidget> self(this);
    m_isLoadingDetails = true;
    do {
        m_hasSelectionChanged = false;
        LoadSelectedDetails();
        if (!self)
            return;
    } while (m_hasSelectionChanged && !m_objectToDelete);
    m_isLoadingDetails = false;

    if (m_objectToDelete) {
        // Not deleteLater(): newer versions of Qt take only the first call for an object, and that one was
        // used up.
        QTimer::singleShot(0, qApp, [object = m_objectToDelete]() { delete object; });
    }
}

void VenueDbCentralWidget::LoadSelectedDetails()
{
    const QPointer<VenueDbCentralWidget> self(this);
    SetBusyState(true);

    const QModelIndexList selectedIndexes = m_tableView->selectionModel()->selectedIndexes();
    if (selectedIndexes.isEmpty() || !selectedIndexes.first().isValid()) {
        ++m_detailsResets;
        m_detailsWidget->ResetUi();
        m_detailsWidget->hide();
        SetBusyState(false);
        return;
    }

    Venue venue;
    m_tableModel.GetSingleVenueData(m_proxyModel.mapToSource(selectedIndexes.first()), &venue);
    const int resetsBefore = m_detailsResets;

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

    if (resetsBefore == m_detailsResets) {
        m_detailsWidget->UpdateUi(&venue, &pictures, &files);
        m_detailsWidget->show();
        m_detailsWidget->SetCollapsed(false);
    }
    SetBusyState(false);
}

void VenueDbCentralWidget::SetBusyState(bool busy)
{
    setCursor(busy ? Qt::WaitCursor : Qt::ArrowCursor);
    if (m_statusLabel) {
        m_statusLabel->setText(busy ? tr("Loading...") : QString());
        // The wait may begin before the event loop paints again.
        if (busy)
            m_statusLabel->repaint();
    }
    m_detailsWidget->setEnabled(!busy);
}

void VenueDbCentralWidget::ResizeColumns()
{
    m_tableView->setColumnHidden(0, true);
    m_tableView->setColumnWidth(1, m_complexNameLabel->width() + 22 + m_complexNameLineEdit->width());
    m_tableView->setColumnWidth(2, m_venueRoomNameLabel->width() + 12 + m_venueRoomNameLineEdit->width());
    m_tableView->setColumnWidth(3, m_cityLineEdit->width() + 12 + m_cityLabel->width());
    m_tableView->setColumnWidth(4, m_countryLabel->width() + 8 + m_countryComboBox->width());
    m_tableView->setColumnWidth(5, m_queryButton->width() + m_resetFilterButton->width());
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
