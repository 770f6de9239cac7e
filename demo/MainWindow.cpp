#include <demo/MainWindow.h>

#include <demo/HelpWindow.h>
#include <demo/PlanView.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

/// What the window system puts above the window, roughly.
constexpr int c_titleBarHeight = 30;

} // namespace

MainWindow::MainWindow(bool dayMode)
    : m_theme(dayMode)
    , m_venueDatabase(this)
{
    SetupUi();
    ConnectSignals();
    ApplyTheme(dayMode);
}

MainWindow::~MainWindow() = default;

void MainWindow::SetupUi()
{
    setWindowTitle(tr("Tessra – untitled plan"));
    m_planView = new PlanView(m_theme, this);
    setCentralWidget(m_planView);

    m_venueDatabaseAction = new QAction(tr("Venue &database…"), this);
    m_venueDatabaseAction->setShortcut(Qt::CTRL | Qt::Key_D);
    m_themeAction = new QAction(tr("&Theme"), this);
    m_themeAction->setShortcut(Qt::CTRL | Qt::Key_B);
    m_themeAction->setToolTip(tr("Light or dark (Ctrl+B)"));
    m_helpAction = new QAction(tr("&Help"), this);
    m_helpAction->setShortcut(QKeySequence::HelpContents);

    SetupToolBar();
    SetupMenus();
    m_status = new QLabel(tr("No venue"), this);
    statusBar()->addWidget(m_status);
    statusBar()->setSizeGripEnabled(false);
    resize(QSize(1280, 800).boundedTo(screen()->availableSize() - QSize(0, c_titleBarHeight)));
}

void MainWindow::SetupToolBar()
{
    QToolBar* bar = addToolBar(tr("Plan"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setIconSize({18, 18});
    bar->addAction(m_venueDatabaseAction);
    bar->widgetForAction(m_venueDatabaseAction)->setObjectName(u"venueDatabaseButton"_s);
    auto* spacer = new QWidget(bar);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(spacer);
    bar->addAction(m_themeAction);
    bar->addAction(m_helpAction);
}

void MainWindow::SetupMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(m_venueDatabaseAction);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), qApp, &QApplication::quit);
    menuBar()->addMenu(tr("&View"))->addAction(m_themeAction);
    menuBar()->addMenu(tr("&Help"))->addAction(m_helpAction);
}

void MainWindow::ConnectSignals()
{
    connect(m_venueDatabaseAction, &QAction::triggered, &m_venueDatabase, &VenueDatabaseEmbedding::Open);
    connect(m_themeAction, &QAction::triggered, this, &MainWindow::ToggleTheme);
    connect(m_helpAction, &QAction::triggered, this, &MainWindow::ShowHelp);

    connect(&m_venueDatabase, &VenueDatabaseEmbedding::VenueImported, this, &MainWindow::ShowVenue);
    connect(&m_venueDatabase, &VenueDatabaseEmbedding::DayModeChangeRequested, this,
            &MainWindow::ToggleTheme);
    connect(&m_venueDatabase, &VenueDatabaseEmbedding::HelpRequested, this, &MainWindow::ShowHelp);
}

void MainWindow::ToggleTheme()
{
    ApplyTheme(!m_theme.IsDayMode());
}

void MainWindow::ApplyTheme(bool dayMode)
{
    m_theme = Theme(dayMode);
    m_theme.Apply(qApp);
    setStyleSheet(m_theme.WindowStyleSheet());
    m_planView->SetTheme(m_theme);
    m_venueDatabase.SetDayMode(dayMode);
    m_venueDatabaseAction->setIcon(m_theme.Icon(u"venues"_s));
    m_themeAction->setIcon(m_theme.Icon(u"theme"_s));
    m_helpAction->setIcon(m_theme.Icon(u"help"_s));
}

void MainWindow::ShowVenue(const VenueModel& venue)
{
    m_planView->SetVenue(venue);
    setWindowTitle(tr("Tessra – %1").arg(venue.name));
    m_status->setText(tr("Imported from the venue database"));
}

void MainWindow::ShowHelp()
{
    // Over the modal full-screen viewer only a window of its own can be read and closed.
    QWidget* parent = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : this;
    if (!m_help || m_help->parentWidget() != parent) {
        delete m_help;
        m_help = new HelpWindow(parent);
    }
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

} // namespace korvel::Demo
