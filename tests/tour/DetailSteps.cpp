#include <tests/support/Widgets.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>
#include <tests/tour/TourSteps.h>

#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSet>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

using namespace Ui::VenueDatabase;

constexpr qint64 c_palaisGarnier = 2001;

/// Number of colours in what is seen of the picture: a drawing has many, a text on a plain background few.
qsizetype ColoursOfPicture(const TourContext& context)
{
    QSet<QRgb> colours;
    const QImage image = context.Details()->findChild<PictureSlider*>()->grab().toImage();
    for (int y = 30; y < 200; y += 3)
        for (int x = 60; x < 440; x += 3)
            colours.insert(image.pixel(x, y));
    return colours.size();
}

QString Caption(const VenueRecord& venue, qsizetype index)
{
    return u"%1/%2 %3"_s.arg(index + 1).arg(venue.pictures.size()).arg(venue.pictures.at(index).alt);
}

QString SelectedVenue(TourContext& context)
{
    context.SelectVenue(c_palaisGarnier);
    const VenueRecord& venue = context.Venue(c_palaisGarnier);
    const QWidget* details = context.Details();
    const auto line = [details](const char* label, int which = 0) {
        return Hands::FieldBeside<QLineEdit>(details, Texts::FieldLabel(label), which)->text();
    };
    const auto text = [details](const char* label, int which = 0) {
        return Hands::FieldBeside<QTextEdit>(details, Texts::FieldLabel(label), which)->toPlainText();
    };
    RequireEqual(line("Complex name"), venue.title, u"complex name"_s);
    RequireEqual(text("General comment"), venue.generalComment, u"general comment"_s);
    RequireEqual(text("Location comment"), venue.comment, u"location comment"_s);
    RequireEqual(line("Clearance of house grid (m)"), venue.clearance, u"clearance"_s);
    const QString address = text("Address");
    Require(address.startsWith(venue.addressLine1 + QLatin1Char('\n')) && address.contains(venue.locality)
                && !address.contains(QLatin1Char('<')),
            u"the address stands in lines: "_s + address);
    RequireEqual(context.PictureCaption(), Caption(venue, 0), u"caption"_s);
    Require(ColoursOfPicture(context) > 60, u"the picture is drawn"_s);
    const auto* files
        = Hands::FieldBeside<QComboBox>(details, Texts::OfModule("TsFileOpener", "File selector: "));
    RequireEqual(files->currentText(), venue.modelFiles.constFirst().name, u"model file"_s);
    return u"%1 with %2 pictures and %3 model file"_s.arg(venue.title)
        .arg(venue.pictures.size())
        .arg(venue.modelFiles.size());
}

QString CollapsedPanel(TourContext& context)
{
    QWidget* details = context.Details();
    auto* body = details->findChild<QScrollArea*>();
    QLabel* icon = Test::FoldIcon(*details);
    const QImage open = icon->pixmap().toImage();
    Hands::Click(icon);
    Require(!body->isVisible() && details->isVisible(), u"only the caption bar is left"_s);
    Require(icon->pixmap().toImage() != open, u"the icon shows the closed state"_s);
    context.takePicture();
    Hands::Click(icon);
    Require(body->isVisible(), u"the details are back"_s);
    return u"collapsed to the caption bar and back"_s;
}

QString PictureSteps(TourContext& context)
{
    const VenueRecord& venue = context.Venue(c_palaisGarnier);
    auto* slider = context.Details()->findChild<PictureSlider*>();
    const auto step
        = [slider](bool forward) { Hands::Click(Test::NavigationButton(*slider, forward ? 1 : 0)); };
    const QImage first = slider->grab().toImage();
    step(true);
    RequireEqual(context.PictureCaption(), Caption(venue, 1), u"caption"_s);
    Require(slider->grab().toImage() != first, u"another picture is shown"_s);
    step(false);
    step(false);
    RequireEqual(context.PictureCaption(), Caption(venue, venue.pictures.size() - 1), u"caption"_s);
    context.takePicture();
    step(true);
    RequireEqual(context.PictureCaption(), Caption(venue, 0), u"caption"_s);
    return u"forward, back, and round from the first to the last"_s;
}

} // namespace

std::span<const TourStep> DetailSteps()
{
    static const TourStep steps[] = {
        {"selected venue", SelectedVenue},
        {"collapsed panel", CollapsedPanel},
        {"picture steps", PictureSteps},
    };
    return steps;
}

} // namespace korvel::Demo
