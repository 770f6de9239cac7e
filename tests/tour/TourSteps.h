#pragma once

#include <server/catalogue/VenueCatalogue.h>

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <span>

class QTableView;
class QWidget;

namespace korvel::Ui::VenueDatabase {
class VenueDbDialog;
}

namespace korvel::Demo {

class MainWindow;
class VenueServer;

/// What the steps of one run share.
struct TourContext
{
    VenueServer& server;
    std::shared_ptr<const VenueCatalogue> catalogue;
    bool dayMode = true;
    /// Where a step puts the files that it saves.
    QString folder;
    std::unique_ptr<MainWindow> window;
    /// Takes the step's picture, once the windows are drawn, for steps that show something only in between.
    std::function<void()> takePicture;

    /// The venue database, once it was opened.
    Ui::VenueDatabase::VenueDbDialog* Dialog() const;
    QWidget* Details() const;
    QTableView* Table() const;
    /// The ids of the listed venues in the order on screen.
    QList<qint64> ListedIds() const;
    /// The ids of the catalogue's venues that \p matches.
    QList<qint64> CatalogueIds(const std::function<bool(const VenueRecord&)>& matches) const;
    const VenueRecord& Venue(qint64 id) const;
    /// Searches the venue by its name and its city with the fields, and clicks its row.
    void SelectVenue(qint64 id) const;
    void ClickSearch() const;
    void ClickReset() const;
    /// Opens the venue database again, by its key in the main window.
    void Reopen() const;
    /// Waits until the open dialog has its own size, or that of a screen which is too small for it.
    void WaitForItsSize() const;
    /// The picture slider's caption.
    QString PictureCaption() const;
};

/// One step: does something, checks what is then to be seen and says it in one line; throws a TourFailure
/// otherwise.
struct TourStep
{
    const char* name;
    QString (*run)(TourContext& context);
};

std::span<const TourStep> SearchSteps();
std::span<const TourStep> DetailSteps();
std::span<const TourStep> ViewerSteps();
std::span<const TourStep> ImportSteps();
std::span<const TourStep> ServiceSteps();

} // namespace korvel::Demo
