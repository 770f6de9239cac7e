#pragma once

#include <data/VenueDatabaseExport.h>

#include <QDialog>
#include <QString>

class QCloseEvent;
class QFrame;
class QKeyEvent;
class QLabel;
class QPushButton;
class QScreen;
class QShortcut;
class QVBoxLayout;

namespace korvel::Ui::VenueDatabase {

/// The common frame of the module's dialogs: a content widget above a footer with the status line and the
/// buttons "Close" and "Help".
///
/// F1 and "Help" ask the host for help, Ctrl+B asks it for the other appearance, both through
/// VenueDbSignalHandler; F1 works wherever in the dialog the focus is. Closing only hides the dialog: it
/// keeps its state and can be shown again. User-interface thread only.
///
/// @code{.cpp}
/// VenueDbDialogBase dialog;
/// dialog.SetContentWidget(new QTextEdit(&dialog));
/// dialog.SetStatusLabelText(QStringLiteral("Ready"));
/// dialog.show();
/// @endcode
class KVVENUEDATABASE_API VenueDbDialogBase : public QDialog
{
    Q_OBJECT

public:
    /// Builds the whole frame, without content. \p parent owns the dialog; without one its creator does.
    explicit VenueDbDialogBase(QWidget* parent = nullptr);
    /// The content goes with the dialog.
    ~VenueDbDialogBase() override;

    /// The top-level layout: the content, if there is any, then the footer. Owned by the dialog.
    ///
    /// It is centred horizontally: only a content that expands in that direction spans the dialog's width.
    QVBoxLayout* GetBaseLayout() const;
    /// The status line, for a content that reports there itself. Shows plain text. Owned by the dialog.
    QLabel* GetStatusLabel() const;

    /// Puts \p widget above everything that stands in the base layout; the dialog takes ownership. To be
    /// called once: an earlier content stays below.
    void SetContentWidget(QWidget* widget);
    /// Shows \p text in the status line, as it is and without markup.
    void SetStatusLabelText(QString text);

public Q_SLOTS:
    /// Hides the dialog.
    void OnCloseWindowRequested();

Q_SIGNALS:
    /// For derived dialogs; the frame itself never emits it.
    void CloseWindowRequested();
    /// The user asked for the other appearance by Ctrl+B. Forwarded to the signal hub.
    void DayModeChangeRequested();

protected:
    /// Emits DayModeChangeRequested() for Ctrl+B, whatever other modifier is held; every other key is
    /// QDialog's. The dialog may be deleted in answer to the signal.
    void keyPressEvent(QKeyEvent* event) override;

    /// Watches the application: the dialog and all dialogs below it hide before it quits, so that none that
    /// only hides when it is closed calls the quit off.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Wires buttons, shortcut and signal hub; called once, by the constructor.
    void ConnectBaseSignals();

    /// Shows the dialog as a normal window of 1062 x 768 in the middle of the work area of \p screen (null:
    /// the primary one), whatever size and state it had.
    void ShowInTheMiddleOf(const QScreen* screen);
    /// What the module's windows do when they are closed: hides the dialog and ignores \p event.
    void HideInsteadOfClosing(QCloseEvent* event);

private:
    void SetupBaseUi();
    QFrame* SetupFooterUi();

    QPushButton* m_closeButton = nullptr;
    QPushButton* m_helpButton = nullptr;
    QLabel* m_statusLabel = nullptr;
    QVBoxLayout* m_baseLayout = nullptr;
    QShortcut* m_helpShortcut = nullptr;
};

} // namespace korvel::Ui::VenueDatabase
