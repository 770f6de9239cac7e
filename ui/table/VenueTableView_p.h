#pragma once

#include <QTableView>

namespace korvel::Ui::VenueDatabase {

/// The table of the venues that were found: whole rows, one selected at a time, sorted by its headers.
///
/// Where no row is selected the first arrow key selects the current one. A selected row that is in view stays
/// in view when the table gets lower. No class of its own for style sheets: they reach it as a QTableView.
class VenueTableView : public QTableView
{
public:
    explicit VenueTableView(QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool SelectCurrentRow();
};

} // namespace korvel::Ui::VenueDatabase
