#pragma once

#include <data/VenueDatabaseExport.h>

#include <QMutex>
#include <QObject>
#include <QString>

namespace korvel::Ui::VenueDatabase {

/// The one object through which the module talks to its host, apart from the dialog's own operations: a host
/// connects to it once and need not know which widget raised a request.
///
/// GetInstance() may be called from any thread. The object belongs to the thread that asked first, which
/// should be the user-interface thread, and emits there. It lives until the process ends.
///
/// Handlers are called from within the module: they may open windows, run event loops of their own, call
/// every operation of the dialog and delete it with deleteLater().
///
/// @code{.cpp}
/// const VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
/// QObject::connect(hub, &VenueDbSignalHandler::HelpRequested, &mainWindow, [] { ShowHelp(); });
/// QObject::connect(hub, &VenueDbSignalHandler::DayModeChangeRequested, &mainWindow,
///                  [dialog] { dialog->SetDayMode(SwitchTheme()); });
/// @endcode
class KVVENUEDATABASE_API VenueDbSignalHandler : public QObject
{
    Q_OBJECT

public:
    /// The single instance, created on first use. Never null, never to be deleted.
    static VenueDbSignalHandler* GetInstance();

Q_SIGNALS:
    /// The host has imported the model file (true) or not (false), as it said through
    /// VenueDbDialog::SetVenueLoaded(). The model-file opener is enabled exactly by true.
    void VenueLoaded(bool loaded);
    /// The user asked for help, by F1 or the "Help" button. The host shows its help.
    void HelpRequested();
    /// The user asked for the other appearance, by Ctrl+B. The host changes its theme and then calls
    /// VenueDbDialog::SetDayMode().
    void DayModeChangeRequested();
    /// The host is to import the venue from the temporary file with the full path \p pathToFile, and to
    /// answer through VenueDbDialog::SetVenueLoaded(). The file stays until the next import of the same
    /// record or the end of the application.
    void ImportVenueFromTempFileRequest(QString pathToFile);

private:
    VenueDbSignalHandler();
    ~VenueDbSignalHandler() override;

    static VenueDbSignalHandler* m_instance;
    static QMutex m_mutex;
};

} // namespace korvel::Ui::VenueDatabase
