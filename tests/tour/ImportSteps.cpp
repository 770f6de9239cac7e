#include <demo/MainWindow.h>
#include <demo/PlanView.h>
#include <demo/Theme.h>
#include <tests/support/Widgets.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>
#include <tests/tour/TourSteps.h>

#include <ui/TsFileOpener.h>
#include <ui/VenueDbDialog.h>

#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

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
    RequireEqual(files->currentIndex(), index, u"chosen file"_s);
}

/// Whether the plan shows a stage: a good number of its pixels have the stage's colour.
bool PlanShowsAStage(const TourContext& context)
{
    const QRgb stage = Theme(context.dayMode).Colour(u"plan-stage"_s).rgb();
    const QImage image = context.window->findChild<PlanView*>()->grab().toImage();
    int pixels = 0;
    for (int y = 80; y < image.height() - 60; ++y)
        for (int x = 0; x < image.width(); ++x)
            pixels += image.pixel(x, y) == stage ? 1 : 0;
    return pixels > 500;
}

/// Takes the step's picture of the plan, without the dialog in front of it.
void TakePictureOfThePlan(const TourContext& context)
{
    auto* dialog = context.Dialog();
    Hands::Click(Hands::Button(dialog, Texts::OfModule("VenueDbDialogBase", "Close")));
    Hands::WaitUntil([dialog] { return !dialog->isVisible(); }, u"\"Close\" closes"_s);
    context.takePicture();
    context.Reopen();
}

QString Import(TourContext& context)
{
    Hands::Click(ImportButton(context));
    Require(ImportButton(context)->isEnabled(), u"the next import is possible"_s);
    const QString title = context.window->windowTitle();
    Require(title.contains(u"Palais Garnier"_s), u"the plan is named after the hall: "_s + title);
    Require(PlanShowsAStage(context), u"the plan shows the stage"_s);
    TakePictureOfThePlan(context);
    return u"the plan shows %1"_s.arg(title.section(u"– "_s, 1));
}

QString ChosenModel(TourContext& context)
{
    context.SelectVenue(c_withThreeModels);
    const VenueRecord& venue = context.Venue(c_withThreeModels);
    QStringList names;
    for (const ModelFileRecord& file : venue.modelFiles)
        names.append(file.name);
    RequireEqual(Test::ItemTexts(FileChooser(context)), names, u"model files"_s);
    ChooseFile(context, int(names.size()) - 1);
    Hands::Click(ImportButton(context));
    Require(context.window->windowTitle().contains(venue.title), u"the plan is of "_s + venue.title);
    TakePictureOfThePlan(context);
    return u"%1, the last of %2 files"_s.arg(names.constLast()).arg(names.size());
}

QString BrokenModel(TourContext& context)
{
    context.SelectVenue(c_withBrokenModel);
    const QList<ModelFileRecord>& files = context.Venue(c_withBrokenModel).modelFiles;
    const auto draft = std::find_if(files.begin(), files.end(), [](const ModelFileRecord& file) {
        return file.file.contains(u"draft"_s);
    });
    Require(draft != files.end(), u"the catalogue has a broken model"_s);
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
                         u"text of the box"_s);
            Require(!said.isEmpty(), u"the box says what is wrong"_s);
            Require(!ImportButton(context)->isEnabled(), u"no import as long as the box is open"_s);
            context.takePicture();
            Hands::Click(box->button(QMessageBox::Ok));
        });
    RequireEqual(context.window->windowTitle(), plan, u"the plan stays"_s);
    Require(ImportButton(context)->isEnabled(), u"another import is possible"_s);
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
