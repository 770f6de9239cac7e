#include <demo/MainWindow.h>
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

namespace korvel::Demo {

namespace {

using namespace Ui::VenueDatabase;

constexpr const char* c_viewer = "PictureFullscreenDialog";

PictureFullscreenDialog* Viewer(const TourContext& context)
{
    auto* viewer = context.window->findChild<PictureFullscreenDialog*>();
    Require(viewer && viewer->isVisible(), QStringLiteral("the viewer is open"));
    return viewer;
}

QGraphicsView* View(const TourContext& context)
{
    return Viewer(context)->findChild<QGraphicsView*>();
}

QString SavedFile(const TourContext& context)
{
    return QDir(context.folder)
        .absoluteFilePath(context.dayMode ? QStringLiteral("saved-day.jpg")
                                          : QStringLiteral("saved-night.jpg"));
}

QString ViewerBeforeTheLargePicture(TourContext& context)
{
    // Long enough to look at the small picture, short enough to wait for.
    context.server.AddFault(Fault::On(QStringLiteral("-large.jpg")).WithDelay(3500));
    auto* slider = context.Details()->findChild<PictureSlider*>();
    for (auto* button : slider->findChildren<QPushButton*>()) {
        if (button->size() == QSize(24, 24))
            Hands::Click(button);
    }
    auto* viewer = Viewer(context);
    RequireEqual(viewer->GetStatusLabel()->text(), Texts::OfModule(c_viewer, "Loading large image..."),
                 QStringLiteral("status"));
    const double width = View(context)->sceneRect().width();
    Require(width > 100 && width < 1000, QStringLiteral("a small picture is shown, %1 wide").arg(width));
    RequireEqual(QApplication::overrideCursor() != nullptr, true, QStringLiteral("wait cursor"));
    Hands::WaitUntil([viewer] { return viewer->isMaximized() && viewer->isActiveWindow(); },
                     QStringLiteral("the viewer fills the screen"));
    Hands::Settle();
    context.takePicture();
    return QStringLiteral("the small picture, %1 wide, while the large one loads").arg(width);
}

QString ViewerWithTheLargePicture(TourContext& context)
{
    Hands::WaitUntil([&] { return View(context)->sceneRect().width() > 2000; },
                     QStringLiteral("the large picture arrives"));
    context.server.ClearFaults();
    RequireEqual(Viewer(context)->GetStatusLabel()->text(), QString(), QStringLiteral("status"));
    RequireEqual(QApplication::overrideCursor() == nullptr, true, QStringLiteral("ordinary cursor"));
    const QSizeF shown = View(context)->transform().mapRect(View(context)->sceneRect()).size();
    const QSize room = View(context)->viewport()->size();
    Require(shown.width() <= room.width() + 1 && shown.height() <= room.height() + 1,
            QStringLiteral("the whole picture is seen"));
    return QStringLiteral("%1 pixels wide, fitted").arg(View(context)->sceneRect().width());
}

QString Zoomed(TourContext& context)
{
    const double fitted = View(context)->transform().m11();
    constexpr int c_steps = 5;
    for (int i = 0; i < c_steps; ++i)
        Hands::Press(Qt::Key_Plus);
    const double zoomed = View(context)->transform().m11();
    const double factor = zoomed / fitted;
    Require(factor > 2.4 && factor < 2.6, QStringLiteral("five steps of 1.2 zoom by %1").arg(factor));
    Hands::Settle();
    context.takePicture();
    for (int i = 0; i < c_steps + 2; ++i)
        Hands::Press(Qt::Key_Minus);
    Require(qAbs(View(context)->transform().m11() / fitted - 1) < 0.01,
            QStringLiteral("zoomed out to the fitted size"));
    return QStringLiteral("%1 times and back").arg(factor, 0, 'f', 2);
}

QString SaveDialog(TourContext& context)
{
    QFile::remove(SavedFile(context));
    Hands::Answer<QFileDialog>(
        [] { Hands::Press(Qt::Key_S, Qt::ControlModifier); },
        [&](QFileDialog* dialog) {
            RequireEqual(dialog->windowTitle(), Texts::OfModule(c_viewer, "Save Image As"),
                         QStringLiteral("title"));
            auto* name = dialog->findChild<QLineEdit*>();
            Require(!name->text().isEmpty(), QStringLiteral("a file name is suggested"));
            context.takePicture();
            Hands::Fill(name, SavedFile(context));
            Hands::Press(Qt::Key_Return);
        });
    return QStringLiteral("asks for a file name");
}

QString SavedPicture(TourContext& context)
{
    const QString path = SavedFile(context);
    RequireEqual(Viewer(context)->GetStatusLabel()->text(),
                 Texts::OfModule(c_viewer, "Saved \"%1\"").arg(QDir::toNativeSeparators(path)),
                 QStringLiteral("status"));
    QImageReader reader(path);
    RequireEqual(reader.format(), QByteArrayLiteral("jpeg"), QStringLiteral("format of the file"));
    const QImage image = reader.read();
    RequireEqual(QSizeF(image.size()), View(context)->sceneRect().size(),
                 QStringLiteral("size of the saved picture"));
    return QStringLiteral("a JPEG file of %1 × %2 pixels").arg(image.width()).arg(image.height());
}

QString NextPictureAndBack(TourContext& context)
{
    Hands::Click(View(context)->viewport(), QPoint(View(context)->viewport()->width() / 2, 40));
    const auto caption = [&] { return View(context)->findChild<QLabel*>()->text(); };
    const QString first = caption();
    Hands::Press(Qt::Key_D);
    Hands::WaitUntil([&] { return View(context)->sceneRect().width() > 2000; },
                     QStringLiteral("the next picture arrives"));
    Require(caption().startsWith(QStringLiteral("2/")) && caption() != first,
            QStringLiteral("the next picture: ") + caption());
    Hands::Settle();
    context.takePicture();
    const QString shown = caption();
    auto* viewer = Viewer(context);
    Hands::Press(Qt::Key_Escape);
    Hands::WaitUntil([&] { return !viewer->isVisible() && context.window->isVisible(); },
                     QStringLiteral("Escape closes the viewer"));
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
