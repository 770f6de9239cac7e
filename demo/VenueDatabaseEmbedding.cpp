#include <demo/VenueDatabaseEmbedding.h>

#include <ui/VenueDbDialog.h>
#include <ui/VenueDbSignalHandler.h>

#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

using Ui::VenueDatabase::VenueDbDialog;
using Ui::VenueDatabase::VenueDbSignalHandler;

VenueDatabaseEmbedding::VenueDatabaseEmbedding(QWidget* window)
    : m_window(window)
{
    // First the hub, through which everything that the user asks for arrives, then the dialog.
    VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
    connect(hub, &VenueDbSignalHandler::HelpRequested, this, &VenueDatabaseEmbedding::HelpRequested);
    connect(hub, &VenueDbSignalHandler::DayModeChangeRequested, this,
            &VenueDatabaseEmbedding::DayModeChangeRequested);
    connect(hub, &VenueDbSignalHandler::ImportVenueFromTempFileRequest, this,
            &VenueDatabaseEmbedding::OnImportRequested);

    m_dialog = new VenueDbDialog(m_window);
    if (!m_dialog->ConnectVdb(u"JSONREST"_s))
        qFatal("No venue database: %s", qPrintable(m_dialog->GetVdbConnectionInfo()));
}

VenueDatabaseEmbedding::~VenueDatabaseEmbedding()
{
    if (!m_dialog)
        return;
    m_dialog->DisconnectVdb();
    delete m_dialog;
}

void VenueDatabaseEmbedding::Open()
{
    QScreen* screen = m_window->screen();
    m_dialog->Open(screen);
    // The dialog has a size of its own; on a small screen its footer would lie below the edge.
    const int titleBar = m_dialog->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    if (m_dialog->height() + titleBar > screen->availableGeometry().height())
        m_dialog->showMaximized();
}

void VenueDatabaseEmbedding::SetDayMode(bool dayMode)
{
    m_dialog->SetDayMode(dayMode);
}

void VenueDatabaseEmbedding::OnImportRequested(const QString& path)
{
    // The module waits for an answer: its import button stays disabled until SetVenueLoaded(true).
    QString reason;
    const std::optional<VenueModel> venue = VenueModelFile::Read(path, &reason);
    if (!venue) {
        ShowImportError(reason);
        return;
    }
    Q_EMIT VenueImported(*venue);
    m_dialog->SetVenueLoaded(true);
}

void VenueDatabaseEmbedding::ShowImportError(const QString& reason)
{
    auto* box = new QMessageBox(QMessageBox::Warning, tr("Import"),
                                tr("This model file cannot be read, so the plan stays as it is."),
                                QMessageBox::Ok, m_dialog);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(reason);
    // Nothing was loaded; once the user has read why, the next file may be tried.
    connect(box, &QDialog::finished, m_dialog, [this] { m_dialog->SetVenueLoaded(true); });
    box->open();
    m_dialog->SetVenueLoaded(false);
}

} // namespace korvel::Demo
