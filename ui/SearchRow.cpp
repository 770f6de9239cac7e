#include <ui/SearchRow_p.h>

#include <data/CountryCodeTranslator.h>
#include <data/Venue.h>
#include <ui/CustomStyle_p.h>
#include <ui/NameToolTips_p.h>
#include <ui/WindowSize_p.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <initializer_list>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::CountryCodeTranslator;
using Data::VenueDatabase::Venue;

namespace {

constexpr int c_buttonMinimumWidth = 90;
constexpr int c_labelIndent = 10;
constexpr int c_narrowCountryWidth = 120;
/// What the dialog's stated width leaves for the row.
constexpr int c_rowWidth = c_windowSize.width() - 2 * 4;

/// A field that gets as much room as the row can give it.
class SearchField : public QLineEdit
{
public:
    SearchField(const SearchRow* row, QWidget* parent)
        : QLineEdit(parent)
        , m_row(row)
    {
    }

    QSize minimumSizeHint() const override
    {
        return {m_row->LeastFieldWidth(sizeHint().width()), QLineEdit::minimumSizeHint().height()};
    }

private:
    const SearchRow* m_row = nullptr;
};

} // namespace

QString SearchRow::AnyCountry()
{
    return u"--"_s;
}

SearchRow::SearchRow(QWidget* panel)
    : m_panel(panel)
{
    const QString complexNameToolTip = NameToolTips::ComplexName();
    const QString venueRoomNameToolTip = NameToolTips::VenueRoomName();

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
    m_countryComboBox = new QComboBox(panel);
    m_countryComboBox->setMinimumWidth(c_narrowCountryWidth);
    SetCustomStyle(m_countryComboBox, "comboBoxKorvelDefault"_L1);
    m_searchButton = CreateButton(tr("Search"), panel);
    m_searchButton->setMinimumWidth(c_buttonMinimumWidth);
    m_resetButton = CreateButton(tr("Reset"), panel);

    m_complexNameLabel->setBuddy(m_complexNameLineEdit);
    m_venueRoomNameLabel->setBuddy(m_venueRoomNameLineEdit);
    m_cityLabel->setBuddy(m_cityLineEdit);
    m_countryLabel->setBuddy(m_countryComboBox);

    m_layout = new QHBoxLayout;
    m_layout->setContentsMargins(4, 4, 4, 4);
    for (QWidget* widget : std::initializer_list<QWidget*>{
             m_complexNameLabel, m_complexNameLineEdit, m_venueRoomNameLabel, m_venueRoomNameLineEdit,
             m_cityLabel, m_cityLineEdit, m_countryLabel, m_countryComboBox, m_searchButton, m_resetButton})
        m_layout->addWidget(widget);
}

QHBoxLayout* SearchRow::Layout() const
{
    return m_layout;
}

QComboBox* SearchRow::CountryComboBox() const
{
    return m_countryComboBox;
}

QPushButton* SearchRow::SearchButton() const
{
    return m_searchButton;
}

QPushButton* SearchRow::ResetButton() const
{
    return m_resetButton;
}

void SearchRow::FocusFirstField()
{
    m_complexNameLineEdit->setFocus(Qt::OtherFocusReason);
}

void SearchRow::Clear()
{
    m_complexNameLineEdit->clear();
    m_venueRoomNameLineEdit->clear();
    m_cityLineEdit->clear();
    m_countryComboBox->clear();
}

void SearchRow::KeepListWide()
{
    m_countryComboBox->view()->setMinimumWidth(m_countryComboBox->sizeHint().width());
}

int SearchRow::LeastFieldWidth(int usualWidth) const
{
    int fixedWidth = m_layout->contentsMargins().left() + m_layout->contentsMargins().right()
        + (m_layout->count() - 1) * m_layout->spacing();
    for (const QWidget* widget :
         std::initializer_list<const QWidget*>{m_complexNameLabel, m_venueRoomNameLabel, m_cityLabel,
                                               m_countryLabel, m_searchButton, m_resetButton})
        fixedWidth += qMax(widget->sizeHint().width(), widget->minimumWidth());
    constexpr int c_fields = 3;
    return qBound(usualWidth / 3, (c_rowWidth - fixedWidth - c_narrowCountryWidth) / c_fields,
                  usualWidth * 4 / 5);
}

SearchRow::Filters SearchRow::CurrentFilters(const CountryCodeTranslator& countries) const
{
    Filters filters;
    const auto append = [&filters](QLatin1String path, const QString& text) {
        if (!text.isEmpty())
            filters.append({path, text});
    };
    append("title"_L1, m_complexNameLineEdit->text());
    append("venue_room_name"_L1, m_venueRoomNameLineEdit->text());
    append("address.locality"_L1, m_cityLineEdit->text());
    const QString country = m_countryComboBox->currentText();
    if (country != AnyCountry())
        append("address.country_code"_L1, countries.GetCountryCode(country));
    return filters;
}

int SearchRow::ColumnWidth(int column) const
{
    switch (column) {
    case 1:
        return m_complexNameLabel->width() + 22 + m_complexNameLineEdit->width();
    case 2:
        return m_venueRoomNameLabel->width() + 12 + m_venueRoomNameLineEdit->width();
    case 3:
        return m_cityLineEdit->width() + 12 + m_cityLabel->width();
    case 4:
        return m_countryLabel->width() + 8 + m_countryComboBox->width();
    default:
        return m_searchButton->width() + m_resetButton->width();
    }
}

QLabel* SearchRow::CreateFieldLabel(const QString& text, const QString& toolTip)
{
    QLabel* label = CreateLabel(text + QLatin1Char(':'), "labelKorvelDefault"_L1, m_panel);
    label->setToolTip(toolTip);
    return label;
}

QLineEdit* SearchRow::CreateLineEdit(const QString& toolTip)
{
    auto* lineEdit = new SearchField(this, m_panel);
    lineEdit->setToolTip(toolTip);
    SetCustomStyle(lineEdit, "lineEditKorvelDefault"_L1);
    return lineEdit;
}

} // namespace korvel::Ui::VenueDatabase
