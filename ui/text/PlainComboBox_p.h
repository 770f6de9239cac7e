#pragma once

#include <QComboBox>

namespace korvel::Ui::VenueDatabase {

/// A combo box for texts of the server: however long they are, it keeps its width, and the closed box draws
/// no more of one than a screen can show.
///
/// No class of its own for style sheets: they reach it as a QComboBox.
class PlainComboBox : public QComboBox
{
public:
    explicit PlainComboBox(QWidget* parent);

protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
};

} // namespace korvel::Ui::VenueDatabase
