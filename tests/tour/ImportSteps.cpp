#include <demo/MainWindow.h>
#include <demo/PlanView.h>
#include <demo/Theme.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>
#include <tests/tour/TourSteps.h>

#include <ui/TsFileOpener.h>
#include <ui/VenueDbDialog.h>

#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>

#include <algorithm>

namespace korvel::Demo {

namespace {

using namespace Ui::VenueDatabase;

constexpr qint64 c_withThreeModels = 1010;
constexpr qint64 c_withBrokenModel = 5006;

QPushButton* ImportButton(const TourContext& context)
{
    return Hands::Button(context.Details(), Texts::OfModule("TsFileOpener", "Import to Tessra"));
}

QComboBox* FileChooser(const TourContext& context)
{
    return Hands::FieldBeside<QComboBox>(context.Details(),
                                         Texts::OfModule("TsFileOpener", "File selector: "));
}

/// Chooses the model file number \p index with the keyboard.
void ChooseFile(const TourContext& context, int index)
{
    QComboBox* files = FileChooser(context);
    Hands::Choose(files, [index] {
        Hands::Press(Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            Hands::Press(Qt::Key_Down);
    });
    RequireEqual(files->currentIndex(), index, QStringLiteral("chosen file"));
}

/// Whether the plan shows a stage: a good number of its pixels have the stage's colour.
bool PlanShowsAStage(const TourContext& context)
{
    const QRgb stage = Theme(context.dayMode).Colour(QStringLiteral("plan-stage")).rgb();
    const QImage image = context.window->findChild<PlanView*>()->grab().toImage();
    int pixels = 0;
    for (int y = 80; y < image.height() - 60; ++y) {
        for (int x = 0; x < image.width(); ++x)
            pixels += image.pixel(x, y) == stage ? 1 : 0;
    }
    return pixels > 500;
}

void CloseDialog(const TourContext& context)
{
    auto* dialog = context.Dialog();
    Hands::Click(Hands::Button(dialog, Texts::OfModule("VenueDbDialogBase", "Close")));
    Hands::WaitUntil([dialog] { return !dialog->isVisible(); }, QStringLiteral("\"Close\" closes"));
}

void ReopenDialog(const TourContext& context)
{
    context.window->activateWindow();
    Hands::WaitUntil([&] { return context.window->isActiveWindow(); },
                     QStringLiteral("the main window is active"));
    Hands::Press(Qt::Key_D, Qt::ControlModifier);
    const auto* dialog = context.Dialog();
    Hands::WaitUntil([dialog] { return dialog->isActiveWindow(); }, QStringLiteral("Ctrl+D opens again"));
    // On a small screen the host maximises it, which the window manager does a little later.
    if (dialog->isMaximized())
        Hands::WaitUntil(
            [dialog] { return dialog->width() >= dialog->screen()->availableGeometry().width(); },
            QStringLiteral("the dialog fills the screen"));
}

QString Import(TourContext& context)
{
    Hands::Click(ImportButton(context));
    Require(ImportButton(context)->isEnabled(), QStringLiteral("the next import is possible"));
    const QString title = context.window->windowTitle();
    Require(title.contains(QStringLiteral("Palais Garnier")),
            QStringLiteral("the plan is named after the hall: ") + title);
    Require(PlanShowsAStage(context), QStringLiteral("the plan shows the stage"));
    CloseDialog(context);
    Hands::Settle();
    context.takePicture();
    ReopenDialog(context);
    return QStringLiteral("the plan shows %1").arg(title.section(QStringLiteral("– "), 1));
}

QString ChosenModel(TourContext& context)
{
    context.SelectVenue(c_withThreeModels);
    const VenueRecord& venue = context.Venue(c_withThreeModels);
    QStringList names;
    for (const ModelFileRecord& file : venue.modelFiles)
        names.append(file.name);
    QStringList offered;
    for (int i = 0; i < FileChooser(context)->count(); ++i)
        offered.append(FileChooser(context)->itemText(i));
    RequireEqual(offered, names, QStringLiteral("model files"));
    ChooseFile(context, int(names.size()) - 1);
    Hands::Click(ImportButton(context));
    Require(context.window->windowTitle().contains(venue.title),
            QStringLiteral("the plan is of ") + venue.title);
    CloseDialog(context);
    Hands::Settle();
    context.takePicture();
    ReopenDialog(context);
    return QStringLiteral("%1, the last of %2 files").arg(names.constLast()).arg(names.size());
}

QString BrokenModel(TourContext& context)
{
    context.SelectVenue(c_withBrokenModel);
    const QList<ModelFileRecord>& files = context.Venue(c_withBrokenModel).modelFiles;
    const auto draft = std::find_if(files.begin(), files.end(), [](const ModelFileRecord& file) {
        return file.file.contains(QStringLiteral("draft"));
    });
    Require(draft != files.end(), QStringLiteral("the catalogue has a broken model"));
    ChooseFile(context, int(draft - files.begin()));
    const QString plan = context.window->windowTitle();
    QString said;
    Hands::Answer<QMessageBox>(
        [&] { Hands::Click(ImportButton(context)); },
        [&](QMessageBox* box) {
            said = box->informativeText();
            RequireEqual(box->text(),
                         Texts::OfHost("VenueDatabaseEmbedding",
                                       "This model file cannot be read, so the plan stays as it is."),
                         QStringLiteral("text of the box"));
            Require(!said.isEmpty(), QStringLiteral("the box says what is wrong"));
            Require(!ImportButton(context)->isEnabled(),
                    QStringLiteral("no import as long as the box is open"));
            context.takePicture();
            Hands::Click(box->button(QMessageBox::Ok));
        });
    RequireEqual(context.window->windowTitle(), plan, QStringLiteral("the plan stays"));
    Require(ImportButton(context)->isEnabled(), QStringLiteral("another import is possible"));
    return said;
}

} // namespace

std::span<const TourStep> ImportSteps()
{
    static const TourStep steps[] = {
        {"import", Import},
        {"import of a chosen file", ChosenModel},
        {"broken model file", BrokenModel},
    };
    return steps;
}

} // namespace korvel::Demo
