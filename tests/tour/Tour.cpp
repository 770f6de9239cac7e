#include <tests/tour/Tour.h>

#include <demo/MainWindow.h>
#include <tests/tour/Hands.h>
#include <tests/tour/TourSteps.h>

#include <server/VenueServer.h>

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

/// How long a step may take, in milliseconds.
constexpr int c_stepLimit = 120'000;

/// There a program may neither look at the screen nor move the mouse.
bool IsUnderWayland()
{
    return QGuiApplication::platformName().startsWith("wayland"_L1);
}

int Depth(const QWidget* widget)
{
    return widget->parentWidget() ? 1 + Depth(widget->parentWidget()) : 0;
}

/// The windows without their frames, where they believe to be, as they lie on one another.
QPixmap WindowsAlone()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
    std::stable_sort(windows.begin(), windows.end(),
                     [](const QWidget* a, const QWidget* b) { return Depth(a) < Depth(b); });
    const QScreen* screen = QApplication::primaryScreen();
    QPixmap picture(screen->size() * screen->devicePixelRatio());
    picture.setDevicePixelRatio(screen->devicePixelRatio());
    picture.fill(Qt::darkGray);
    QPainter painter(&picture);
    for (QWidget* window : std::as_const(windows))
        painter.drawPixmap(window->geometry().topLeft(), window->grab());
    return picture;
}

void PrintLine(const QString& line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace

Tour::Tour(VenueServer& server, const QString& folder, const QList<bool>& dayModes)
    : m_server(server)
    , m_folder(folder)
    , m_dayModes(dayModes)
    , m_hangGuard(c_stepLimit)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // No step is a double click, and each click waits until it cannot become one.
    QApplication::setDoubleClickInterval(50);
    // The two runs close their main windows; the tour ends the application, not they.
    QApplication::setQuitOnLastWindowClosed(false);
}

bool Tour::Run()
{
    if (!QDir().mkpath(m_folder)) {
        PrintLine(u"FAIL  cannot make the folder %1"_s.arg(m_folder));
        return false;
    }
    // Away from everything that changes its look under the mouse.
    if (!IsUnderWayland())
        QCursor::setPos(QApplication::primaryScreen()->geometry().bottomRight());
    for (const bool dayMode : m_dayModes)
        if (!RunInTheme(dayMode))
            return false;
    PrintLine(u"%1 steps, all as they should be; pictures in %2"_s.arg(m_number).arg(
        QDir::toNativeSeparators(m_folder)));
    return true;
}

bool Tour::RunInTheme(bool dayMode)
{
    // Begins in the other theme: the first step changes it at run time, which shows what would keep its
    // colours.
    TourContext context{
        m_server, m_server.Catalogue(), dayMode, m_folder, std::make_unique<MainWindow>(!dayMode), {}};
    context.window->show();
    for (const auto& part : {SearchSteps(), DetailSteps(), ViewerSteps(), ImportSteps(), ServiceSteps()}) {
        for (const TourStep& step : part)
            if (!RunStep(step, context))
                return false;
    }
    return true;
}

bool Tour::RunStep(const TourStep& step, TourContext& context)
{
    const QString name = QLatin1String(step.name);
    const QString theme = context.dayMode ? u"day"_s : u"night"_s;
    const QString number = u"%1"_s.arg(++m_number, 2, 10, QLatin1Char('0'));
    const QString heading = u"%1 %2, %3"_s.arg(number, name, theme);
    QString file = u"%1-%2-%3"_s.arg(number, theme, name);
    file.replace(QLatin1Char(' '), QLatin1Char('-'));
    bool isTaken = false;
    context.takePicture = [&] {
        isTaken = true;
        Hands::Settle();
        Require(TakePicture(file), u"the picture can be written"_s);
    };
    const Test::HangGuard::Watch watch(m_hangGuard, heading);
    try {
        Hands::WaitUntil([] { return QApplication::activeWindow() != nullptr; }, u"a window is active"_s);
        const QString result = step.run(context);
        if (!isTaken)
            context.takePicture();
        PrintLine(u"ok    %1: %2"_s.arg(heading, result));
        return true;
    } catch (const TourFailure& failure) {
        TakePicture(file + u"-FAILED"_s);
        PrintLine(u"FAIL  %1: %2"_s.arg(heading, failure.reason));
        return false;
    }
}

bool Tour::TakePicture(const QString& name)
{
    // From the screen, with frames, menus and everything that other windows cover.
    const QPixmap picture = IsUnderWayland() ? WindowsAlone() : QApplication::primaryScreen()->grabWindow(0);
    return picture.save(QDir(m_folder).filePath(name + u".png"_s));
}

} // namespace korvel::Demo
