#pragma once

#include <demo/Theme.h>
#include <demo/VenueDatabaseEmbedding.h>

#include <QMainWindow>
#include <QPointer>

class QAction;
class QLabel;

namespace korvel::Demo {

class HelpWindow;
class PlanView;

/// Tessra's main window: the stage plan, the way to the venue database, theme, help, quit.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// \p dayMode: the theme to start with, true for the light one.
    explicit MainWindow(bool dayMode);
    ~MainWindow() override;

private:
    void SetupUi();
    void SetupToolBar();
    void SetupMenus();
    void ConnectSignals();

    void ToggleTheme();
    void ApplyTheme(bool dayMode);
    void ShowVenue(const VenueModel& venue);
    void ShowHelp();

    PlanView* m_planView = nullptr;
    QLabel* m_status = nullptr;
    QPointer<HelpWindow> m_help;
    QAction* m_venueDatabaseAction = nullptr;
    QAction* m_themeAction = nullptr;
    QAction* m_helpAction = nullptr;
    Theme m_theme;
    VenueDatabaseEmbedding m_venueDatabase;
};

} // namespace korvel::Demo
