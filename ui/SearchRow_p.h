#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <utility>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace korvel::Data::VenueDatabase {
class CountryCodeTranslator;
}

namespace korvel::Ui::VenueDatabase {

/// The row of fields above the venue table in which the user says what to search for, with its two buttons.
class SearchRow
{
    Q_DECLARE_TR_FUNCTIONS(korvel::Ui::VenueDatabase::VenueDbCentralWidget)

public:
    using Filters = QList<std::pair<QString, QString>>;

    /// The entry of the country list that stands for every country.
    static QString AnyCountry();

    /// Creates the row, without countries. Its widgets are children of \p panel.
    explicit SearchRow(QWidget* panel);

    /// The row itself, which belongs to nobody until it is put into another layout.
    QHBoxLayout* Layout() const;
    QComboBox* CountryComboBox() const;
    QPushButton* SearchButton() const;
    QPushButton* ResetButton() const;

    /// Gives the keyboard focus to the first field.
    void FocusFirstField();
    /// Empties all fields and the country list.
    void Clear();
    /// Lets the country list open as wide as its longest name, however narrow it is in the row. To be called
    /// once it has its countries.
    void KeepListWide();
    /// How wide a search field must be at least that would like to have \p usualWidth. In a dialog of the
    /// stated width the country list gives way first, then the fields. What does not fit then makes the
    /// dialog wider.
    int LeastFieldWidth(int usualWidth) const;

    /// What the fields ask for; nothing for an empty field.
    Filters CurrentFilters(const Data::VenueDatabase::CountryCodeTranslator& countries) const;
    /// How wide the column \p column of the table is to be, so that it stands below its field.
    int ColumnWidth(int column) const;

private:
    QLabel* CreateFieldLabel(const QString& text, const QString& toolTip);
    QLineEdit* CreateLineEdit(const QString& toolTip);

    QWidget* m_panel = nullptr;
    QLabel* m_complexNameLabel = nullptr;
    QLabel* m_venueRoomNameLabel = nullptr;
    QLabel* m_cityLabel = nullptr;
    QLabel* m_countryLabel = nullptr;
    QLineEdit* m_complexNameLineEdit = nullptr;
    QLineEdit* m_venueRoomNameLineEdit = nullptr;
    QLineEdit* m_cityLineEdit = nullptr;
    QComboBox* m_countryComboBox = nullptr;
    QPushButton* m_searchButton = nullptr;
    QPushButton* m_resetButton = nullptr;
    QHBoxLayout* m_layout = nullptr;
};

} // namespace korvel::Ui::VenueDatabase
