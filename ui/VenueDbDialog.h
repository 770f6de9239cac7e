#pragma once

#include <data/VenueDatabaseExport.h>
#include <ui/VenueDbDialogBase.h>

#include <QString>

class QScreen;

namespace korvel::Data::VenueDatabase {
class Connector_Interface;
}

namespace korvel::Ui::VenueDatabase {

class VenueDbCentralWidget;

/// The venue database: the module's top-level window and the host application's entry point.
///
/// The host connects to VenueDbSignalHandler, creates one dialog, calls ConnectVdb("JSONREST") and
/// SetDayMode(), then Open() whenever the user asks for the venue database, and answers import requests with
/// SetVenueLoaded(). Closing only hides the dialog; the host deletes it.
///
/// @code{.cpp}
/// auto* dialog = new VenueDbDialog(&mainWindow);
/// QObject::connect(VenueDbSignalHandler::GetInstance(),
///                  &VenueDbSignalHandler::ImportVenueFromTempFileRequest, dialog,
///                  [dialog](const QString& path) { dialog->SetVenueLoaded(ImportModel(path)); });
/// dialog->ConnectVdb(QStringLiteral("JSONREST"));
/// dialog->SetDayMode(true);
/// dialog->Open(mainWindow.screen());
/// @endcode
///
/// All operations may be called at any moment in the user-interface thread, also while a query waits in its
/// nested event loop. The dialog may be destroyed then, with one exception: while the details of a selected
/// row load it must not be deleted directly. deleteLater() is always safe: it ends the load and takes effect
/// after it.
class KVVENUEDATABASE_API VenueDbDialog : public VenueDbDialogBase
{
    Q_OBJECT

public:
    /// Builds the hidden, not modal dialog, in the dark appearance. Nothing is sent to the server before
    /// Open(). \p parent owns the dialog, which stays in front of it; without one its creator does.
    explicit VenueDbDialog(QWidget* parent = nullptr);
    /// Deletes the connector as well; a running query ends.
    ~VenueDbDialog() override;

    /// Replaces the connector by one of the type \p connectionType. The only type is "JSONREST", in this
    /// spelling; false for any other, the dialog is then without a connector.
    bool ConnectVdb(QString connectionType);
    /// Deletes the connector; a running query ends with its failure result. The connection info stays.
    void DisconnectVdb();
    /// "JsonRest connection " (with the blank) once connected, "no connection specified" after an unknown
    /// type, empty before the first ConnectVdb().
    QString GetVdbConnectionInfo() const;

    /// Shows the dialog as a normal window of 1062 x 768 in the middle of the work area of \p screen (null:
    /// the primary one), whatever size and state it had, and starts a search of all venues unless the last
    /// search succeeded. The search begins when control has returned to the event loop. Opened again, the
    /// dialog has the keyboard focus in its first search field.
    void Open(QScreen* screen);
    /// Switches to the light (true) or the dark appearance, as far as it does not come from the style sheet.
    void SetDayMode(bool dayMode);
    /// The host's answer to VenueDbSignalHandler::ImportVenueFromTempFileRequest(): true when the venue was
    /// imported. The model-file opener stays disabled until it is told true.
    void SetVenueLoaded(bool loaded);

Q_SIGNALS:
    /// What SetVenueLoaded() was told; connected to VenueDbSignalHandler::VenueLoaded().
    void VenueLoaded(bool loaded);

protected:
    /// Hides the dialog and ignores the event.
    void closeEvent(QCloseEvent* event) override;
    /// Puts off deleteLater() until the details of a row have been loaded, and ends that load.
    bool event(QEvent* event) override;

private:
    void ConnectSignals();

    Data::VenueDatabase::Connector_Interface* m_connector = nullptr;
    QString m_connectionParameters;
    QString m_connectionInfo;
    VenueDbCentralWidget* m_centralWidget = nullptr;
};

} // namespace korvel::Ui::VenueDatabase
