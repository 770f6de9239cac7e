#include <demo/MainWindow.h>
#include <tests/support/Widgets.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>
#include <tests/tour/TourSteps.h>

#include <server/VenueServer.h>
#include <server/faults/Fault.h>

#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QGraphicsView>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

using namespace Ui::VenueDatabase;

constexpr const char* c_viewer = "PictureFullscreenDialog";

PictureFullscreenDialog* Viewer(const TourContext& context)
{
    auto* viewer = context.window->findChild<PictureFullscreenDialog*>();
    Require(viewer && viewer->isVisible(), u"the viewer is open"_s);
    return viewer;
}

QGraphicsView* View(const TourContext& context)
{
    return Viewer(context)->findChild<QGraphicsView*>();
}

QString SavedFile(const TourContext& context)
{
    return QDir(context.folder).absoluteFilePath(context.dayMode ? u"saved-day.jpg"_s : u"saved-night.jpg"_s);
}

QString ViewerBeforeTheLargePicture(TourContext& context)
{
    // Long enough to look at the small picture, short enough to wait for.
    context.server.AddFault(Fault::On(u"-large.jpg"_s).WithDelay(3500));
    Hands::Click(Test::FullscreenButton(*context.Details()->findChild<PictureSlider*>()));
    auto* viewer = Viewer(context);
    RequireEqual(viewer->GetStatusLabel()->text(), Texts::OfModule(c_viewer, "Loading large image..."),
                 u"status"_s);
    const double width = View(context)->sceneRect().width();
    Require(width > 100 && width < 1000, u"a small picture is shown, %1 wide"_s.arg(width));
    RequireEqual(QApplication::overrideCursor() != nullptr, true, u"wait cursor"_s);
    Hands::WaitUntil([viewer] { return viewer->isMaximized() && viewer->isActiveWindow(); },
                     u"the viewer fills the screen"_s);
    context.takePicture();
    return u"the small picture, %1 wide, while the large one loads"_s.arg(width);
}

QString ViewerWithTheLargePicture(TourContext& context)
{
    Hands::WaitUntil([&] { return View(context)->sceneRect().width() > 2000; },
                     u"the large picture arrives"_s);
    context.server.ClearFaults();
    RequireEqual(Viewer(context)->GetStatusLabel()->text(), QString(), u"status"_s);
    RequireEqual(QApplication::overrideCursor() == nullptr, true, u"ordinary cursor"_s);
    const QSizeF shown = View(context)->transform().mapRect(View(context)->sceneRect()).size();
    const QSize room = View(context)->viewport()->size();
    Require(shown.width() <= room.width() + 1 && shown.height() <= room.height() + 1,
            u"the whole picture is seen"_s);
    return u"%1 pixels wide, fitted"_s.arg(View(context)->sceneRect().width());
}

QString Zoomed(TourContext& context)
{
    const double fitted = View(context)->transform().m11();
    constexpr int c_steps = 5;
    for (int i = 0; i < c_steps; ++i)
        Hands::Press(Qt::Key_Plus);
    const double zoomed = View(context)->transform().m11();
    const double factor = zoomed / fitted;
    Require(factor > 2.4 && factor < 2.6, u"five steps of 1.2 zoom by %1"_s.arg(factor));
    context.takePicture();
    for (int i = 0; i < c_steps + 2; ++i)
        Hands::Press(Qt::Key_Minus);
    Require(qAbs(View(context)->transform().m11() / fitted - 1) < 0.01, u"zoomed out to the fitted size"_s);
    return u"%1 times and back"_s.arg(factor, 0, 'f', 2);
}

QString SaveDialog(TourContext& context)
{
    QFile::remove(SavedFile(context));
    Hands::Answer<QFileDialog>([] { Hands::Press(Qt::Key_S, Qt::ControlModifier); },
                               [&](QFileDialog* dialog) {
                                   RequireEqual(dialog->windowTitle(),
                                                Texts::OfModule(c_viewer, "Save Image As"), u"title"_s);
                                   auto* name = dialog->findChild<QLineEdit*>();
                                   Require(!name->text().isEmpty(), u"a file name is suggested"_s);
                                   context.takePicture();
                                   Hands::Fill(name, SavedFile(context));
                                   Hands::Press(Qt::Key_Return);
                               });
    return u"asks for a file name"_s;
}

QString SavedPicture(TourContext& context)
{
    const QString path = SavedFile(context);
    RequireEqual(Viewer(context)->GetStatusLabel()->text(),
                 Texts::OfModule(c_viewer, "Saved \"%1\"").arg(QDir::toNativeSeparators(path)), u"status"_s);
    QImageReader reader(path);
    RequireEqual(reader.format(), "jpeg"_ba, u"format of the file"_s);
    const QImage image = reader.read();
    RequireEqual(QSizeF(image.size()), View(context)->sceneRect().size(), u"size of the saved picture"_s);
    return u"a JPEG file of %1 × %2 pixels"_s.arg(image.width()).arg(image.height());
}

QString NextPictureAndBack(TourContext& context)
{
    Hands::Click(View(context)->viewport(), QPoint(View(context)->viewport()->width() / 2, 40));
    const auto caption = [&] { return View(context)->findChild<QLabel*>()->text(); };
    const QString first = caption();
    Hands::Press(Qt::Key_D);
    Hands::WaitUntil([&] { return View(context)->sceneRect().width() > 2000; },
                     u"the next picture arrives"_s);
    Require(caption().startsWith(u"2/"_s) && caption() != first, u"the next picture: "_s + caption());
    context.takePicture();
    const QString shown = caption();
    auto* viewer = Viewer(context);
    Hands::Press(Qt::Key_Escape);
    Hands::WaitUntil([&] { return !viewer->isVisible() && context.window->isVisible(); },
                     u"Escape closes the viewer"_s);
    Hands::Settle();
    return shown;
}

} // namespace

std::span<const TourStep> ViewerSteps()
{
    static const TourStep steps[] = {
        {"viewer before the large picture", ViewerBeforeTheLargePicture},
        {"viewer with the large picture", ViewerWithTheLargePicture},
        {"zoomed", Zoomed},
        {"save dialog", SaveDialog},
        {"saved as JPEG", SavedPicture},
        {"next picture", NextPictureAndBack},
    };
    return steps;
}

} // namespace korvel::Demo
