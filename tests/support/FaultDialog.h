#pragma once

#include <tests/support/ErrorBoxes.h>
#include <tests/support/FaultConnector.h>

#include <ui/VenueDbDialog.h>

class QComboBox;
class QLabel;
class QPushButton;

namespace korvel::Ui::VenueDatabase {
class PictureSlider;
class TsFileOpener;
class VenueDetailsWidget;
} // namespace korvel::Ui::VenueDatabase

namespace korvel::Test {

/// The whole dialog on the screen with one venue in its table, whose details come from the connector.
class FaultDialog
{
public:
    static constexpr qint64 c_venueId = 7;

    FaultDialog();
    ~FaultDialog();
    Q_DISABLE_COPY_MOVE(FaultDialog)

    FaultConnector connector;
    Ui::VenueDatabase::VenueDbDialog dialog;
    ErrorBoxes boxes;

    /// Selects the venue; its details are loaded when this returns.
    void SelectVenue();

    Ui::VenueDatabase::VenueDetailsWidget* Details() const;
    Ui::VenueDatabase::PictureSlider* Slider() const;
    Ui::VenueDatabase::TsFileOpener* Opener() const;
    QLabel* Caption() const;
    QComboBox* FileBox() const;
    QLabel* VersionLabel() const;
    QPushButton* ImportButton() const;

    /// What the slider paints: "No Image", "Image failure", or "picture" for anything else but nothing.
    QString Painted() const;
    /// What is wrong with a dialog that has loaded details, has nothing more to do and has bothered nobody:
    /// empty where all is well.
    QString Complaint() const;
};

} // namespace korvel::Test
