#include <tests/tour/Tour.h>

#include <demo/MainWindow.h>
#include <tests/tour/Hands.h>
#include <tests/tour/TourSteps.h>

#include <server/VenueServer.h>

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QScreen>

#include <cstdio>

namespace korvel::Demo {

namespace {

/// How long a step may take, in milliseconds.
constexpr int c_stepLimit = 120'000;

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
    // The two runs close their main windows; the tour ends the application, not they.
    QApplication::setQuitOnLastWindowClosed(false);
}

bool Tour::Run()
{
    if (!QDir().mkpath(m_folder)) {
        PrintLine(QStringLiteral("FAIL  cannot make the folder %1").arg(m_folder));
        return false;
    }
    // Away from everything that changes its look under the mouse.
    QCursor::setPos(QApplication::primaryScreen()->geometry().bottomRight());
    for (const bool dayMode : m_dayModes) {
        if (!RunInTheme(dayMode))
            return false;
    }
    PrintLine(QStringLiteral("%1 steps, all as they should be; pictures in %2")
                  .arg(m_number)
                  .arg(QDir::toNativeSeparators(m_folder)));
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
        for (const TourStep& step : part) {
            if (!RunStep(step, context))
                return false;
        }
    }
    return true;
}

bool Tour::RunStep(const TourStep& step, TourContext& context)
{
    const QString name = QLatin1String(step.name);
    const QString theme = context.dayMode ? QStringLiteral("day") : QStringLiteral("night");
    const QString number = QStringLiteral("%1").arg(++m_number, 2, 10, QLatin1Char('0'));
    const QString heading = QStringLiteral("%1 %2, %3").arg(number, name, theme);
    QString file = QStringLiteral("%1-%2-%3").arg(number, theme, name);
    file.replace(QLatin1Char(' '), QLatin1Char('-'));
    bool isTaken = false;
    context.takePicture = [&] {
        isTaken = true;
        Require(TakePicture(file), QStringLiteral("the picture can be written"));
    };
    const Test::HangGuard::Watch watch(m_hangGuard, heading);
    try {
        Hands::WaitUntil([] { return QApplication::activeWindow() != nullptr; },
                         QStringLiteral("a window is active"));
        const QString result = step.run(context);
        if (!isTaken) {
            Hands::Settle();
            context.takePicture();
        }
        PrintLine(QStringLiteral("ok    %1: %2").arg(heading, result));
        return true;
    } catch (const TourFailure& failure) {
        TakePicture(file + QStringLiteral("-FAILED"));
        PrintLine(QStringLiteral("FAIL  %1: %2").arg(heading, failure.reason));
        return false;
    }
}

bool Tour::TakePicture(const QString& name)
{
    // From the screen, with frames, menus and everything that other windows cover.
    const QPixmap picture = QApplication::primaryScreen()->grabWindow(0);
    return picture.save(QDir(m_folder).filePath(name + QStringLiteral(".png")));
}

} // namespace korvel::Demo
