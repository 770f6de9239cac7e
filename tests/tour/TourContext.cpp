#include <tests/tour/TourSteps.h>

#include <demo/MainWindow.h>
#include <tests/support/Widgets.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>

#include <ui/PictureSlider.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDetailsWidget.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

using namespace Ui::VenueDatabase;

VenueDbDialog* TourContext::Dialog() const
{
    auto* dialog = window->findChild<VenueDbDialog*>();
    Require(dialog && dialog->isVisible(), u"the venue database is open"_s);
    return dialog;
}

QWidget* TourContext::Details() const
{
    auto* details = Dialog()->findChild<VenueDetailsWidget*>();
    Require(details && details->isVisible(), u"the details are shown"_s);
    return details;
}

QTableView* TourContext::Table() const
{
    auto* table = Dialog()->findChild<QTableView*>();
    Require(table && table->isVisible(), u"the table is shown"_s);
    return table;
}

QList<qint64> TourContext::ListedIds() const
{
    QList<qint64> ids;
    for (const QString& id : Test::ColumnTexts(Table(), 0))
        ids.append(id.toLongLong());
    return ids;
}

QList<qint64> TourContext::CatalogueIds(const std::function<bool(const VenueRecord&)>& matches) const
{
    QList<qint64> ids;
    for (const VenueRecord& venue : catalogue->Venues())
        if (matches(venue))
            ids.append(venue.entityId);
    return ids;
}

const VenueRecord& TourContext::Venue(qint64 id) const
{
    const QList<VenueRecord>& venues = catalogue->Venues();
    const auto found = std::find_if(venues.begin(), venues.end(),
                                    [id](const VenueRecord& venue) { return venue.entityId == id; });
    Require(found != venues.end(), u"the catalogue has venue %1"_s.arg(id));
    return *found;
}

void TourContext::SelectVenue(qint64 id) const
{
    ClickReset();
    Hands::Fill(Hands::FieldBeside<QLineEdit>(Dialog(), Texts::FieldLabel("City")), Venue(id).locality);
    ClickSearch();
    const qsizetype row = ListedIds().indexOf(id);
    Require(row >= 0, u"%1 is listed"_s.arg(Venue(id).title));
    QTableView* table = Table();
    const QModelIndex cell = table->model()->index(int(row), 1);
    table->scrollTo(cell);
    Hands::Click(table->viewport(), table->visualRect(cell).center());
    const auto idField = [this] { return Hands::FieldBeside<QLineEdit>(Details(), Texts::FieldLabel("ID")); };
    RequireEqual(idField()->text(), QString::number(id), u"ID"_s);
    // The details took most of the table's height.
    table->scrollTo(cell);
}

void TourContext::ClickSearch() const
{
    Hands::Click(Hands::Button(Dialog(), Texts::OfModule("VenueDbCentralWidget", "Search")));
}

void TourContext::ClickReset() const
{
    Hands::Click(Hands::Button(Dialog(), Texts::OfModule("VenueDbCentralWidget", "Reset")));
}

void TourContext::Reopen() const
{
    window->activateWindow();
    Hands::WaitUntil([this] { return window->isActiveWindow(); }, u"the main window is active"_s);
    Hands::Press(Qt::Key_D, Qt::ControlModifier);
    Hands::WaitUntil([this] { return Dialog()->isActiveWindow(); }, u"Ctrl+D opens the dialog again"_s);
    WaitForItsSize();
}

void TourContext::WaitForItsSize() const
{
    const VenueDbDialog* dialog = Dialog();
    const QSize room = dialog->screen()->availableGeometry().size();
    const QSize own(1062, 768);
    // A busy window system takes its time, and tells of a normal window first.
    Hands::WaitUntil(
        [&] {
            return room.height() > 800 ? dialog->size() == own
                                       : dialog->isMaximized() && dialog->width() == room.width();
        },
        u"the dialog has its size"_s);
}

QString TourContext::PictureCaption() const
{
    return Test::Caption(*Details()->findChild<PictureSlider*>())->text();
}

} // namespace korvel::Demo
