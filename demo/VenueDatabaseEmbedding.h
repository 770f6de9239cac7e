#pragma once

#include <demo/VenueModelFile.h>

#include <QObject>
#include <QPointer>

class QWidget;

namespace korvel::Ui::VenueDatabase {
class VenueDbDialog;
}

namespace korvel::Demo {

/// Everything that a host application does to have the venue database: this class is the example to copy.
///
/// It owns the dialog, opens it, keeps it in the host's appearance, imports what the user chose and answers.
/// What the module asks of the rest of the host comes out as signals.
class VenueDatabaseEmbedding : public QObject
{
    Q_OBJECT

public:
    /// \p window is the host's main window and must outlive this object; the dialog stays in front of it.
    explicit VenueDatabaseEmbedding(QWidget* window);
    ~VenueDatabaseEmbedding() override;

    /// Shows the dialog on the screen of the main window. The first time it searches all venues, in a nested
    /// event loop that starts after this call.
    void Open();
    /// To be called once at the start and whenever the host has changed its appearance; true is the light
    /// theme.
    void SetDayMode(bool dayMode);

Q_SIGNALS:
    /// The user imported a venue; the host shows it.
    void VenueImported(const korvel::Demo::VenueModel& venue);
    /// The user asked for help, in the dialog.
    void HelpRequested();
    /// The user asked for the other theme, in the dialog.
    void DayModeChangeRequested();

private:
    void OnImportRequested(const QString& path);
    void ShowImportError(const QString& reason);

    QWidget* m_window = nullptr;
    QPointer<Ui::VenueDatabase::VenueDbDialog> m_dialog;
};

} // namespace korvel::Demo
