#pragma once

#include <QTableView>

namespace korvel::Ui::VenueDatabase {

/// The table of the venues that were found: whole rows, one selected at a time, sorted by its headers.
///
/// No class of its own for style sheets: they reach it as a QTableView.
class VenueTableView : public QTableView
{
public:
    explicit VenueTableView(QWidget* parent);
};

} // namespace korvel::Ui::VenueDatabase
