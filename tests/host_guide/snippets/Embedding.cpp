#include <tests/host_guide/snippets/Embedding.h>

#include <ui/VenueDbSignalHandler.h>

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QThreadPool>

using korvel::Ui::VenueDatabase::VenueDbDialog;
using korvel::Ui::VenueDatabase::VenueDbSignalHandler;

Embedding::Embedding(QWidget* mainWindow)
    : m_mainWindow(mainWindow)
{
    ConnectHub();
    //! [create]
    m_dialog = new VenueDbDialog(m_mainWindow); // QPointer<VenueDbDialog> m_dialog;
    m_dialog->ConnectVdb(QStringLiteral("JSONREST"));
    SetTheme(m_dayMode);
    //! [create]
}

void Embedding::ConnectHub()
{
    //! [hub]
    const VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
    connect(hub, &VenueDbSignalHandler::HelpRequested, this, &Embedding::ShowHelp);
    connect(hub, &VenueDbSignalHandler::DayModeChangeRequested, this, [this] { SetTheme(!m_dayMode); });
    connect(hub, &VenueDbSignalHandler::ImportVenueFromTempFileRequest, this, &Embedding::OnImportRequested);
    //! [hub]
}

//! [day mode]
void Embedding::SetTheme(bool dayMode)
{
    m_dayMode = dayMode;
    // As a file, also from a resource: the sheet names its pictures by where they lie beside it.
    qApp->setStyleSheet(dayMode ? QStringLiteral("file:///:/kvVenueDatabase/styles/light/venue-database.qss")
                                : QStringLiteral("file:///:/kvVenueDatabase/styles/dark/venue-database.qss"));
    m_dialog->SetDayMode(dayMode);
}
//! [day mode]

//! [help]
void Embedding::ShowHelp()
{
    // Over the full-screen viewer, which is modal, only a window of its own can be read and closed.
    QWidget* modal = QApplication::activeModalWidget();
    auto* help = new QDialog(modal ? modal : m_mainWindow);
    help->setAttribute(Qt::WA_DeleteOnClose);
    help->show();
}
//! [help]

//! [import]
void Embedding::OnImportRequested(const QString& path)
{
    QString reason;
    const bool isRead = ReadModel(path, &reason);
    FinishImport(isRead, reason);
}

void Embedding::FinishImport(bool isRead, const QString& reason)
{
    if (isRead) {
        m_dialog->SetVenueLoaded(true);
        return;
    }
    m_dialog->SetVenueLoaded(false);
    auto* box = new QMessageBox(QMessageBox::Warning, tr("Import"), tr("This model file cannot be read."),
                                QMessageBox::Ok, m_dialog);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText); // the reason may quote the file
    box->setInformativeText(reason);
    // "Import to Tessra" stays off until it hears true: the user may try again once this is read.
    connect(box, &QDialog::finished, m_dialog, [dialog = m_dialog.get()] { dialog->SetVenueLoaded(true); });
    box->open();
}
//! [import]

//! [import in a thread]
void Embedding::ImportInBackground(const QString& path)
{
    const QPointer<Embedding> self(this);
    QThreadPool::globalInstance()->start([self, path] {
        QString reason;
        const bool isRead = ReadModel(path, &reason);
        // Back to the user-interface thread; the dialog may be gone by then.
        QMetaObject::invokeMethod(qApp, [self, isRead, reason] {
            if (self && self->m_dialog)
                self->FinishImport(isRead, reason);
        });
    });
}
//! [import in a thread]

void Embedding::Open(QScreen* screen)
{
    //! [small screen]
    m_dialog->Open(screen);
    const int titleBar = m_dialog->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    if (m_dialog->height() + titleBar > screen->availableGeometry().height())
        m_dialog->showMaximized();
    //! [small screen]
}

void Embedding::RemoveVenueDatabase()
{
    //! [remove]
    m_dialog->DisconnectVdb();
    m_dialog->deleteLater(); // never delete, see the table
    //! [remove]
}

bool Embedding::ReadModel(const QString& path, QString* reason)
{
    QFile model(path);
    if (model.open(QIODevice::ReadOnly) && model.size() > 0)
        return true;
    *reason = QStringLiteral("The file is empty or missing.");
    return false;
}
