#include <demo/HelpWindow.h>
#include <demo/MainWindow.h>
#include <demo/Theme.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>
#include <tests/tour/TourSteps.h>

#include <server/VenueServer.h>

#include <ui/PictureNavigationButton.h>
#include <ui/VenueDbDialog.h>

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

using namespace Ui::VenueDatabase;

QString ImportText()
{
    return Texts::OfModule("TsFileOpener", "Import to Tessra");
}

QString VenueWithoutPictures(TourContext& context)
{
    const auto candidates = context.CatalogueIds([](const VenueRecord& venue) {
        return venue.pictures.isEmpty() && venue.modelFiles.isEmpty() && !venue.locality.isEmpty();
    });
    Require(!candidates.isEmpty(), u"the catalogue has a venue without pictures"_s);
    context.SelectVenue(candidates.constFirst());
    RequireEqual(context.PictureCaption(), u"-/0"_s, u"caption"_s);
    for (const auto* button : context.Details()->findChildren<PictureNavigationButton*>())
        Require(!button->isVisible(), u"there is nothing to step through"_s);
    Require(!Hands::Button(context.Details(), ImportText())->isEnabled(), u"there is nothing to import"_s);
    return context.Venue(candidates.constFirst()).title + u": no pictures, no model files"_s;
}

QString ServerDownAndRetry(TourContext& context)
{
    Hands::Fill(Hands::FieldBeside<QLineEdit>(context.Dialog(), Texts::FieldLabel("City")), u"london"_s);
    context.server.Stop();
    Hands::Answer<QMessageBox>(
        [&] { context.ClickSearch(); },
        [&](QMessageBox* box) {
            const char* panel = "VenueDbCentralWidget";
            RequireEqual(box->windowTitle(), Texts::OfModule(panel, "Error"), u"title"_s);
            RequireEqual(box->text(),
                         Texts::OfModule(panel,
                                         "Unable to connect to server. \nPlease check your internet "
                                         "connection."),
                         u"text of the box"_s);
            context.takePicture();
            Require(context.server.Start(), context.server.ErrorText());
            Hands::Click(box->button(QMessageBox::Retry));
        });
    const auto inLondon = context.CatalogueIds(
        [](const VenueRecord& venue) { return venue.locality.contains(u"london"_s, Qt::CaseInsensitive); });
    Hands::WaitUntil([&] { return context.ListedIds().size() == inLondon.size(); },
                     u"the retried search ends"_s);
    return u"error box; Retry finds %1 venues in London"_s.arg(inLondon.size());
}

QString Help(TourContext& context)
{
    Hands::Press(Qt::Key_F1);
    auto* help = context.window->findChild<HelpWindow*>();
    Require(help && help->isVisible(), u"F1 opens the help"_s);
    Hands::WaitUntil([help] { return help->isActiveWindow(); }, u"the help is in front"_s);
    Require(help->findChild<QTextBrowser*>()->toPlainText().contains(ImportText()),
            u"the help explains the import"_s);
    context.takePicture();
    Hands::Click(help->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close));
    Hands::WaitUntil([&] { return !help->isVisible() && context.Dialog()->isActiveWindow(); },
                     u"the venue database has the keyboard again"_s);
    return u"F1 in the venue database"_s;
}

QString ReopenedWithResults(TourContext& context)
{
    const auto listed = context.ListedIds();
    auto* dialog = context.Dialog();
    Hands::Press(Qt::Key_Escape);
    Hands::WaitUntil([dialog] { return !dialog->isVisible(); }, u"Escape closes the venue database"_s);
    const qsizetype requests = context.server.Log().RequestCount();
    context.Reopen();
    Hands::Settle();
    RequireEqual(context.ListedIds(), listed, u"listed"_s);
    RequireEqual(context.server.Log().RequestCount(), requests, u"requests"_s);
    return u"the same %1 venues without another request"_s.arg(listed.size());
}

QString OtherTheme(TourContext& context)
{
    context.SelectVenue(
        context.CatalogueIds([](const VenueRecord& venue) { return venue.pictures.size() >= 5; })
            .constFirst());
    const auto isInTheme = [&context](bool dayMode) {
        const QImage image = context.Dialog()->grab().toImage();
        return image.pixelColor(image.width() / 2, 3) == Theme(dayMode).Colour(u"window"_s);
    };
    Require(isInTheme(context.dayMode), u"the dialog has the theme's colour"_s);
    Hands::Press(Qt::Key_B, Qt::ControlModifier);
    Require(isInTheme(!context.dayMode), u"Ctrl+B in the dialog changes the theme"_s);
    context.takePicture();
    Hands::Press(Qt::Key_B, Qt::ControlModifier);
    Require(isInTheme(context.dayMode), u"and back"_s);
    return u"Ctrl+B in the dialog, with details open, there and back"_s;
}

} // namespace

std::span<const TourStep> ServiceSteps()
{
    static const TourStep steps[] = {
        {"venue without pictures", VenueWithoutPictures},
        {"server down and retry", ServerDownAndRetry},
        {"help", Help},
        {"reopened", ReopenedWithResults},
        {"the other theme", OtherTheme},
    };
    return steps;
}

} // namespace korvel::Demo
