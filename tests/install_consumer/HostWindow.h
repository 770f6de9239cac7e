#pragma once

#include <ui/VenueDbDialog.h>
#include <ui/VenueDbSignalHandler.h>

#include <QFile>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>

/// A host's main window with the venue database in its menu.
class HostWindow : public QMainWindow
{
    using VenueDbDialog = korvel::Ui::VenueDatabase::VenueDbDialog;
    using VenueDbSignalHandler = korvel::Ui::VenueDatabase::VenueDbSignalHandler;

public:
    HostWindow()
    {
        // The module asks its host through the hub.
        const VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
        connect(hub, &VenueDbSignalHandler::HelpRequested, this,
                [this] { statusBar()->showMessage(tr("Help on the venue database")); });
        connect(hub, &VenueDbSignalHandler::DayModeChangeRequested, this, [this] { SetDayMode(!m_dayMode); });
        connect(hub, &VenueDbSignalHandler::ImportVenueFromTempFileRequest, this, &HostWindow::ImportVenue);

        // One dialog for the life of the window. Nothing reaches the server before Open().
        m_venueDatabase = new VenueDbDialog(this);
        m_venueDatabase->ConnectVdb(QStringLiteral("JSONREST"));
        SetDayMode(true);

        QMenu* menu = menuBar()->addMenu(tr("&Venue"));
        connect(menu->addAction(tr("Venue &database...")), &QAction::triggered, this,
                [this] { m_venueDatabase->Open(screen()); });
    }

    ~HostWindow() override
    {
        m_venueDatabase->DisconnectVdb();
    }

private:
    void SetDayMode(bool dayMode)
    {
        m_dayMode = dayMode;
        // Here the host also installs the style sheet of that theme, with a rule for each "customStyle"
        // value.
        m_venueDatabase->SetDayMode(dayMode);
    }

    void ImportVenue(const QString& pathToFile)
    {
        QFile model(pathToFile);
        const bool imported = model.open(QIODevice::ReadOnly) && ReadModel(model.readAll());
        m_venueDatabase->SetVenueLoaded(imported);
        if (!imported) {
            statusBar()->showMessage(tr("The model file cannot be read."));
            // The import button is off until it hears true: now the user may try again.
            m_venueDatabase->SetVenueLoaded(true);
        }
    }

    /// Stands for the host's own reader.
    static bool ReadModel(const QByteArray& model)
    {
        return !model.isEmpty();
    }

    VenueDbDialog* m_venueDatabase = nullptr;
    bool m_dayMode = true;
};
