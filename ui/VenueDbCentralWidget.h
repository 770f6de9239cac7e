#pragma once

#include <data/Connector_Interface.h>
#include <data/CountryCodeTranslator.h>
#include <data/VenueDatabaseExport.h>
#include <ui/VenueTableModel.h>

#include <QPointer>
#include <QSortFilterProxyModel>
#include <QWidget>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class QVBoxLayout;

namespace korvel::Ui::VenueDatabase {

class VenueDetailsWidget;

/// The content of the venue database dialog: search row, venue table and details panel.
///
/// Searching and loading details run the connector's nested event loops. Meanwhile everything may happen, the
/// destruction of this widget included, with one exception: while the details of a row load, Qt's own view
/// code is on the stack, so the widget must not be deleted directly then; see IsLoadingDetails().
/// User-interface thread only.
///
/// @code{.cpp}
/// VenueDbCentralWidget panel;
/// panel.SetConnector(&connector); // stays the caller's
/// panel.show();
/// panel.PerformQuery();
/// @endcode
class KVVENUEDATABASE_API VenueDbCentralWidget : public QWidget
{
    Q_OBJECT

public:
    /// Sorts the venue table: date-times newest first in ascending order, everything else as text in the
    /// order of the locale. Texts that can be read as variants of date-times by Qt count as such, so text
    /// columns keep their order.
    class KVVENUEDATABASE_API VenueSortFilterProxyModel : public QSortFilterProxyModel
    {
    public:
        /// A proxy without a source model.
        explicit VenueSortFilterProxyModel(QObject* parent = nullptr);
        /// The source model stays.
        ~VenueSortFilterProxyModel() override;

        /// Whether \p left stands above \p right in ascending order.
        bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    };

    /// Builds the complete widget. Progress is written into \p statusLabel, which stays the caller's and may
    /// be null.
    explicit VenueDbCentralWidget(QWidget* parent = nullptr, QLabel* statusLabel = nullptr);
    /// Ends nothing by itself: a query that runs goes on with its connector, and its result is dropped.
    ~VenueDbCentralWidget() override;

    /// Uses \p connector for all further queries; it stays the caller's. Null is refused with false and
    /// changes nothing. A connector that is a QObject may be deleted at any time and then counts as none; any
    /// other must be replaced before it is deleted.
    bool SetConnector(Data::VenueDatabase::Connector_Interface* connector);
    /// Switches the details panel to the light (true) or the dark appearance.
    void SetDayMode(bool dayMode);

    /// Searches with the contents of the fields, refreshes the country list and shows the results; asks the
    /// user in a modal box whether to retry after a failure. Runs nested event loops. Does nothing without a
    /// connector or while a search is running.
    void PerformQuery();
    /// Fills the country list with the countries of all venues on the server and keeps the chosen one if it
    /// still occurs. Runs a nested event loop. WrongContentType without a connector.
    Data::VenueDatabase::ResultStatus UpdateCountryComboBox();

    /// True while a row's pictures and model files are fetched.
    bool IsLoadingDetails() const;
    /// Deletes \p object, which may own this widget, as soon as the running load has ended and Qt's view code
    /// has returned.
    void DeleteAfterLoading(QObject* object);

    /// Builds search row, table and details panel; called once, by the constructor.
    void SetupUi();
    /// Builds the row of search fields and returns its layout, which the caller owns; called once, by
    /// SetupUi().
    QHBoxLayout* SetupSearchUi();
    /// Wires buttons and the first search; called once, by the constructor.
    void ConnectSignals();
    /// Appends "--" and every known country to the country list.
    void PopulateUi();

Q_SIGNALS:
    /// The window was shown; the first search starts when control has returned to the event loop.
    void WindowOpened();
    /// The user gave up after a failed search.
    void CloseWindowRequested();

protected:
    /// Aligns the table's columns with the search row above them.
    void ResizeColumns();
    /// The same as ResizeColumns().
    void resizeEvent(QResizeEvent* event) override;

private Q_SLOTS:
    void OnQueryButtonClicked();
    void OnWindowOpened();
    void OnResetFilterButtonClicked();
    void OnTableSelectionChanged();

private:
    using Filters = QList<std::pair<QString, QString>>;

    void paintEvent(QPaintEvent* event) override;

    void SetupTable();
    /// Keeps the row of search fields within the dialog's stated width.
    void FitSearchRow();
    QLabel* CreateFieldLabel(const QString& text, const QString& toolTip);
    QLineEdit* CreateLineEdit(const QString& toolTip);
    QPushButton* CreateButton(const QString& text);

    Data::VenueDatabase::Connector_Interface* LivingConnector() const;
    Filters CurrentFilters() const;
    void FillCountryComboBox(const QList<Data::VenueDatabase::Venue>& venues, const QString& chosenCountry);
    bool AskForRetry();
    void ShowResults(const QList<Data::VenueDatabase::Venue>& venues);
    void LoadSelectedDetails();
    void SetBusyState(bool busy);

    bool m_isQueryDone = false;
    QComboBox* m_countryComboBox = nullptr;
    QPointer<QLabel> m_statusLabel;
    QLabel* m_complexNameLabel = nullptr;
    QLabel* m_venueRoomNameLabel = nullptr;
    QLabel* m_cityLabel = nullptr;
    QLabel* m_countryLabel = nullptr;
    QLineEdit* m_complexNameLineEdit = nullptr;
    QLineEdit* m_venueRoomNameLineEdit = nullptr;
    QLineEdit* m_cityLineEdit = nullptr;
    QPushButton* m_queryButton = nullptr;
    QPushButton* m_resetFilterButton = nullptr;
    VenueSortFilterProxyModel m_proxyModel;
    QTableView* m_tableView = nullptr;
    QVBoxLayout* m_mainLayout = nullptr;
    QHBoxLayout* m_searchLayout = nullptr;
    VenueDetailsWidget* m_detailsWidget = nullptr;
    VenueTableModel m_tableModel;
    Data::VenueDatabase::Connector_Interface* m_connector = nullptr;
    Data::VenueDatabase::CountryCodeTranslator m_countryCodeTranslator;

    /// The connector as a QObject, so that its death is noticed; null for connectors of another kind.
    QPointer<QObject> m_connectorObject;
    bool m_isConnectorObject = false;

    bool m_isSearching = false;
    bool m_isLoadingDetails = false;
    bool m_hasSelectionChanged = false;
    /// How often the details panel was reset: details that were asked for before the last time are out of
    /// date.
    int m_detailsResets = 0;
    QPointer<QObject> m_objectToDelete;
};

} // namespace korvel::Ui::VenueDatabase
