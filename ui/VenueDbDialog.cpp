#include <ui/VenueDbDialog.h>

#include <data/ConnectorJsonRest.h>
#include <ui/CustomStyle_p.h>
#include <ui/DetailsLoader_p.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbSignalHandler.h>

#include <QCloseEvent>
#include <QEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::ConnectorJsonRest;

VenueDbDialog::VenueDbDialog(QWidget* parent)
    : VenueDbDialogBase(parent)
    , m_connectionParameters(""_L1)
{
    setModal(false);
    SetCustomStyle(this, "dialogKorvelDefault"_L1);
    setWindowTitle(tr("Venue database"));
    setWindowFlags(Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    m_centralWidget = new VenueDbCentralWidget(this, GetStatusLabel());
    SetContentWidget(m_centralWidget);
    ConnectSignals();
}

VenueDbDialog::~VenueDbDialog()
{
    delete m_connector;
}

void VenueDbDialog::ConnectSignals()
{
    connect(m_centralWidget, &VenueDbCentralWidget::CloseWindowRequested, this,
            &VenueDbDialog::OnCloseWindowRequested);
    connect(this, &VenueDbDialog::VenueLoaded, VenueDbSignalHandler::GetInstance(),
            &VenueDbSignalHandler::VenueLoaded);
}

bool VenueDbDialog::ConnectVdb(QString connectionType)
{
    delete std::exchange(m_connector, nullptr);
    m_connectionParameters.clear();

    if (connectionType != "JSONREST"_L1) {
        m_connectionInfo = u"no connection specified"_s;
        return false;
    }
    m_connector = new ConnectorJsonRest(nullptr);
    m_connectionInfo = u"JsonRest connection "_s;
    return m_centralWidget->SetConnector(m_connector);
}

void VenueDbDialog::DisconnectVdb()
{
    delete std::exchange(m_connector, nullptr);
    m_connectionParameters.clear();
}

QString VenueDbDialog::GetVdbConnectionInfo() const
{
    return m_connectionInfo;
}

void VenueDbDialog::Open(QScreen* screen)
{
    // The button "Close", which hid the dialog, is not to close it again by the next Return.
    if (isHidden())
        m_centralWidget->FocusFirstField();
    ShowInTheMiddleOf(screen);
    Q_EMIT m_centralWidget->WindowOpened();
}

void VenueDbDialog::SetDayMode(bool dayMode)
{
    if (m_centralWidget)
        m_centralWidget->SetDayMode(dayMode);
}

void VenueDbDialog::SetVenueLoaded(bool loaded)
{
    Q_EMIT VenueLoaded(loaded);
}

void VenueDbDialog::closeEvent(QCloseEvent* event)
{
    HideInsteadOfClosing(event);
}

bool VenueDbDialog::event(QEvent* event)
{
    if (event->type() == QEvent::DeferredDelete && m_centralWidget->m_detailsLoader->IsLoading()) {
        // The load was started by Qt's view code, which goes on when it returns: the table must still be
        // there then. So end the load, and delete the dialog after it.
        hide();
        m_centralWidget->m_detailsLoader->DeleteAfterLoading(this);
        DisconnectVdb();
        return true;
    }
    return VenueDbDialogBase::event(event);
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_VenueDbDialog.cpp"
