#include <ui/VenueDbDialog.h>

#include <data/ConnectorJsonRest.h>
#include <ui/CustomStyle_p.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbSignalHandler.h>

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QStyle>

#include <utility>

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::ConnectorJsonRest;

namespace {

constexpr QSize c_openedSize(1062, 768);

} // namespace

VenueDbDialog::VenueDbDialog(QWidget* parent)
    : VenueDbDialogBase(parent)
    , m_connectionParameters(QLatin1String(""))
{
    setModal(false);
    SetCustomStyle(this, QLatin1String("dialogKorvelDefault"));
    setWindowTitle(tr("Venue database"));
    setWindowFlags(Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    m_centralWidget = new VenueDbCentralWidget(this, GetStatusLabel());
    SetContentWidget(m_centralWidget);
    ConnectSignals();
    qApp->installEventFilter(this);
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

    if (connectionType != QLatin1String("JSONREST")) {
        m_connectionInfo = QStringLiteral("no connection specified");
        return false;
    }
    m_connector = new ConnectorJsonRest(nullptr);
    m_connectionInfo = QStringLiteral("JsonRest connection ");
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
    if (isMinimized() || isMaximized())
        setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
    resize(c_openedSize);
    if (const QScreen* target = screen ? screen : QGuiApplication::primaryScreen()) {
        setGeometry(
            QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size(), target->availableGeometry()));
    }
    show();
    raise();
    showNormal();
    activateWindow();
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
    hide();
    event->ignore();
}

bool VenueDbDialog::event(QEvent* event)
{
    if (event->type() == QEvent::DeferredDelete && m_centralWidget->IsLoadingDetails()) {
        // Qt's view code is on the stack and would return into what is gone. End the load and go after it.
        hide();
        m_centralWidget->DeleteAfterLoading(this);
        DisconnectVdb();
        return true;
    }
    return VenueDbDialogBase::event(event);
}

bool VenueDbDialog::eventFilter(QObject* watched, QEvent* event)
{
    // Quitting closes the windows first, and one that ignores its close event calls it off.
    if (watched == qApp && event->type() == QEvent::Quit)
        HideAllWindows();
    return VenueDbDialogBase::eventFilter(watched, event);
}

void VenueDbDialog::HideAllWindows()
{
    const QList<QDialog*> dialogs = findChildren<QDialog*>();
    for (QDialog* dialog : dialogs)
        dialog->hide();
    hide();
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_VenueDbDialog.cpp"
