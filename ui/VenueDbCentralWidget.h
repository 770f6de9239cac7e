#pragma once

#include <data/Connector_Interface.h>
#include <data/CountryCodeTranslator.h>
#include <data/VenueDatabaseExport.h>
#include <ui/VenueTableModel.h>

#include <QPointer>
#include <QSortFilterProxyModel>
#include <QWidget>

#include <memory>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QTableView;
class QVBoxLayout;

namespace korvel::Ui::VenueDatabase {

class DetailsLoader;
class FocusKeeper;
class SearchRow;
class SpokenProxyModel;
class VenueDetailsWidget;

/// The content of the venue database dialog: search row, venue table and details panel.
///
/// Searching and loading details run the connector's nested event loops. Meanwhile everything may happen, the
/// destruction of this widget included, with one exception: while the details of a row load, Qt's own view
/// code is on the stack, so the widget must not be deleted directly then. VenueDbDialog puts off its
/// deleteLater() until that load has ended. User-interface thread only.
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
    friend class VenueDbDialog;

    void paintEvent(QPaintEvent* event) override;

    void FocusFirstField();
    Data::VenueDatabase::Connector_Interface* LivingConnector() const;
    void FillCountryComboBox(const QList<Data::VenueDatabase::Venue>& venues, const QString& chosenCountry);
    bool AskForRetry();
    /// True while a search waits for the server: \p button will be pressed again when it has ended. The event
    /// loop holds the user's clicks back by itself, but not the presses of a screen reader.
    bool IsPutOff(QPushButton* button);
    void ShowResults(const QList<Data::VenueDatabase::Venue>& venues);
    void LoadSelectedDetails();
    void HideDetails();
    void SetBusyState(bool busy);

    bool m_isQueryDone = false;
    QComboBox* m_countryComboBox = nullptr;
    QPointer<QLabel> m_statusLabel;
    std::unique_ptr<SearchRow> m_searchRow;
    std::unique_ptr<SpokenProxyModel> m_proxyModel;
    QTableView* m_tableView = nullptr;
    QVBoxLayout* m_mainLayout = nullptr;
    VenueDetailsWidget* m_detailsWidget = nullptr;
    VenueTableModel m_tableModel;
    Data::VenueDatabase::Connector_Interface* m_connector = nullptr;
    Data::VenueDatabase::CountryCodeTranslator m_countryCodeTranslator;

    /// The connector as a QObject, so that its death is noticed; null for connectors of another kind.
    QPointer<QObject> m_connectorObject;
    bool m_isConnectorObject = false;

    bool m_isSearching = false;
    bool m_isBusy = false;
    QPushButton* m_pressedMeanwhile = nullptr;
    std::unique_ptr<DetailsLoader> m_detailsLoader;
    std::unique_ptr<FocusKeeper> m_focusKeeper;
};

} // namespace korvel::Ui::VenueDatabase
