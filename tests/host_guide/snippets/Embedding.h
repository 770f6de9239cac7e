#pragma once

#include <ui/VenueDbDialog.h>

#include <QObject>
#include <QPointer>

class QScreen;
class QWidget;

/// A host's side of the venue database, in pieces.
class Embedding : public QObject
{
    Q_OBJECT

public:
    explicit Embedding(QWidget* mainWindow);

    korvel::Ui::VenueDatabase::VenueDbDialog* Dialog() const
    {
        return m_dialog;
    }
    void SetTheme(bool dayMode);
    void ShowHelp();
    void Open(QScreen* screen);
    void ImportInBackground(const QString& path);
    void RemoveVenueDatabase();

    /// Stands for the host's reader of model files.
    static bool ReadModel(const QString& path, QString* reason);

    bool IsDayMode() const
    {
        return m_dayMode;
    }

private:
    void ConnectHub();
    void OnImportRequested(const QString& path);
    void FinishImport(bool isRead, const QString& reason);

    QWidget* m_mainWindow = nullptr;
    QPointer<korvel::Ui::VenueDatabase::VenueDbDialog> m_dialog;
    bool m_dayMode = true;
};
