#include <demo/HelpWindow.h>
#include <demo/MainWindow.h>
#include <demo/Theme.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>
#include <tests/tour/TourSteps.h>

#include <server/VenueServer.h>

#include <ui/PictureNavigationButton.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDetailsWidget.h>

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTextBrowser>

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
    Require(!candidates.isEmpty(), QStringLiteral("the catalogue has a venue without pictures"));
    context.SelectVenue(candidates.constFirst());
    RequireEqual(context.PictureCaption(), QStringLiteral("-/0"), QStringLiteral("caption"));
    for (const auto* button : context.Details()->findChildren<PictureNavigationButton*>())
        Require(!button->isVisible(), QStringLiteral("there is nothing to step through"));
    Require(!Hands::Button(context.Details(), ImportText())->isEnabled(),
            QStringLiteral("there is nothing to import"));
    return context.Venue(candidates.constFirst()).title + QStringLiteral(": no pictures, no model files");
}

QString ServerDownAndRetry(TourContext& context)
{
    Hands::Fill(Hands::FieldBeside<QLineEdit>(context.Dialog(), Texts::FieldLabel("City")),
                QStringLiteral("london"));
    context.server.Stop();
    Hands::Answer<QMessageBox>(
        [&] { context.ClickSearch(); },
        [&](QMessageBox* box) {
            const char* panel = "VenueDbCentralWidget";
            RequireEqual(box->windowTitle(), Texts::OfModule(panel, "Error"), QStringLiteral("title"));
            RequireEqual(box->text(),
                         Texts::OfModule(panel,
                                         "Unable to connect to server. \nPlease check your internet "
                                         "connection."),
                         QStringLiteral("text of the box"));
            context.takePicture();
            Require(context.server.Start(), context.server.ErrorText());
            Hands::Click(box->button(QMessageBox::Retry));
        });
    const auto inLondon = context.CatalogueIds([](const VenueRecord& venue) {
        return venue.locality.contains(QStringLiteral("london"), Qt::CaseInsensitive);
    });
    Hands::WaitUntil([&] { return context.ListedIds().size() == inLondon.size(); },
                     QStringLiteral("the retried search ends"));
    return QStringLiteral("error box; Retry finds %1 venues in London").arg(inLondon.size());
}

QString Help(TourContext& context)
{
    Hands::Press(Qt::Key_F1);
    auto* help = context.window->findChild<HelpWindow*>();
    Require(help && help->isVisible(), QStringLiteral("F1 opens the help"));
    Hands::WaitUntil([help] { return help->isActiveWindow(); }, QStringLiteral("the help is in front"));
    Require(help->findChild<QTextBrowser*>()->toPlainText().contains(ImportText()),
            QStringLiteral("the help explains the import"));
    Hands::Settle();
    context.takePicture();
    Hands::Click(help->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close));
    Hands::WaitUntil([&] { return !help->isVisible() && context.Dialog()->isActiveWindow(); },
                     QStringLiteral("the venue database has the keyboard again"));
    return QStringLiteral("F1 in the venue database");
}

QString ReopenedWithResults(TourContext& context)
{
    const auto listed = context.ListedIds();
    auto* dialog = context.Dialog();
    Hands::Press(Qt::Key_Escape);
    Hands::WaitUntil([dialog] { return !dialog->isVisible(); },
                     QStringLiteral("Escape closes the venue database"));
    context.window->activateWindow();
    Hands::WaitUntil([&] { return context.window->isActiveWindow(); },
                     QStringLiteral("the main window is active"));
    const qsizetype requests = context.server.Log().RequestCount();
    Hands::Press(Qt::Key_D, Qt::ControlModifier);
    Hands::WaitUntil([dialog] { return dialog->isActiveWindow(); }, QStringLiteral("Ctrl+D opens it again"));
    Hands::Settle();
    RequireEqual(context.ListedIds(), listed, QStringLiteral("listed"));
    RequireEqual(context.server.Log().RequestCount(), requests, QStringLiteral("requests"));
    return QStringLiteral("the same %1 venues without another request").arg(listed.size());
}

QString OtherTheme(TourContext& context)
{
    context.SelectVenue(
        context.CatalogueIds([](const VenueRecord& venue) { return venue.pictures.size() >= 5; })
            .constFirst());
    const auto isInTheme = [&context](bool dayMode) {
        const QImage image = context.Dialog()->grab().toImage();
        return image.pixelColor(image.width() / 2, 3) == Theme(dayMode).Colour(QStringLiteral("window"));
    };
    Require(isInTheme(context.dayMode), QStringLiteral("the dialog has the theme's colour"));
    Hands::Press(Qt::Key_B, Qt::ControlModifier);
    Require(isInTheme(!context.dayMode), QStringLiteral("Ctrl+B in the dialog changes the theme"));
    Hands::Settle();
    context.takePicture();
    Hands::Press(Qt::Key_B, Qt::ControlModifier);
    Require(isInTheme(context.dayMode), QStringLiteral("and back"));
    return QStringLiteral("Ctrl+B in the dialog, with details open, there and back");
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
