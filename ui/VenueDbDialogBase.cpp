#include <ui/VenueDbDialogBase.h>

#include <ui/CustomStyle_p.h>
#include <ui/VenueDbSignalHandler.h>
#include <ui/WindowSize_p.h>

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSizePolicy>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

namespace {

QPushButton* CreateFooterButton(const QString& text, QWidget* parent)
{
    QPushButton* button = CreateButton(text, parent);
    button->setMinimumWidth(90);
    button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    return button;
}

} // namespace

VenueDbDialogBase::VenueDbDialogBase(QWidget* parent)
    : QDialog(parent)
    , m_helpShortcut(new QShortcut(QKeySequence::HelpContents, this))
{
    SetupBaseUi();
    ConnectBaseSignals();
    qApp->installEventFilter(this);
}

VenueDbDialogBase::~VenueDbDialogBase() = default;

QVBoxLayout* VenueDbDialogBase::GetBaseLayout() const
{
    return m_baseLayout;
}

QLabel* VenueDbDialogBase::GetStatusLabel() const
{
    return m_statusLabel;
}

void VenueDbDialogBase::SetContentWidget(QWidget* widget)
{
    m_baseLayout->insertWidget(0, widget);
}

void VenueDbDialogBase::SetStatusLabelText(QString text)
{
    m_statusLabel->setText(text);
}

void VenueDbDialogBase::OnCloseWindowRequested()
{
    hide();
}

void VenueDbDialogBase::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_B && event->modifiers().testFlag(Qt::ControlModifier)) {
        // The last act: the host's handler may delete the dialog.
        Q_EMIT DayModeChangeRequested();
        return;
    }
    QDialog::keyPressEvent(event);
}

bool VenueDbDialogBase::eventFilter(QObject* watched, QEvent* event)
{
    // Quitting closes the windows first, and a window that ignores its close event calls it off.
    if (watched == qApp && event->type() == QEvent::Quit) {
        const QList<QDialog*> dialogs = findChildren<QDialog*>();
        for (QDialog* dialog : dialogs)
            dialog->hide();
        hide();
    }
    return QDialog::eventFilter(watched, event);
}

void VenueDbDialogBase::ShowInTheMiddleOf(const QScreen* screen)
{
    if (isMinimized() || isMaximized())
        setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
    resize(c_windowSize);
    if (const QScreen* target = screen ? screen : QGuiApplication::primaryScreen()) {
        setGeometry(
            QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size(), target->availableGeometry()));
    }
    show();
    raise();
    showNormal();
    activateWindow();
}

void VenueDbDialogBase::HideInsteadOfClosing(QCloseEvent* event)
{
    hide();
    event->ignore();
}

void VenueDbDialogBase::ConnectBaseSignals()
{
    connect(m_closeButton, &QPushButton::clicked, this, &VenueDbDialogBase::OnCloseWindowRequested);
    connect(m_helpButton, &QPushButton::clicked, VenueDbSignalHandler::GetInstance(),
            &VenueDbSignalHandler::HelpRequested);
    connect(m_helpShortcut, &QShortcut::activated, VenueDbSignalHandler::GetInstance(),
            &VenueDbSignalHandler::HelpRequested);
    connect(this, &VenueDbDialogBase::DayModeChangeRequested, VenueDbSignalHandler::GetInstance(),
            &VenueDbSignalHandler::DayModeChangeRequested);
}

void VenueDbDialogBase::SetupBaseUi()
{
    m_baseLayout = new QVBoxLayout;
    m_baseLayout->setContentsMargins(0, 0, 0, 0);
    m_baseLayout->setAlignment(Qt::AlignHCenter);
    m_baseLayout->setSpacing(0);
    // Deliberate: no style sheet reaches a layout, but the value belongs to the module's styling interface.
    SetCustomStyle(m_baseLayout, "dialogKorvelDefault"_L1);
    SetCustomStyle(this, "widgetKorvelDefault"_L1);

    m_baseLayout->addWidget(SetupFooterUi());
    setLayout(m_baseLayout);
}

QFrame* VenueDbDialogBase::SetupFooterUi()
{
    auto* footer = new QFrame(this);
    auto* layout = new QHBoxLayout;

    m_statusLabel = new QLabel(this);
    m_statusLabel->setTextFormat(Qt::PlainText);
    SetCustomStyle(m_statusLabel, "labelKorvelDefault"_L1);
    layout->addWidget(m_statusLabel);

    m_closeButton = CreateFooterButton(tr("Close"), this);
    m_helpButton = CreateFooterButton(tr("Help"), this);
    layout->addWidget(m_closeButton);
    layout->addWidget(m_helpButton);

    layout->setContentsMargins(0, 0, 0, 0);
    footer->setLayout(layout);
    footer->setContentsMargins(8, 8, 8, 8);
    SetCustomStyle(footer, "frameKorvelButtonBox"_L1);
    return footer;
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_VenueDbDialogBase.cpp"
