#include <ui/VenueDbDialogBase.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

QWidget* Footer(const VenueDbDialogBase& dialog)
{
    return dialog.GetStatusLabel()->parentWidget();
}

} // namespace

class tst_VenueDbDialogBase : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void FooterHoldsStatusCloseAndHelpInThisOrder()
    {
        const VenueDbDialogBase dialog;
        QLayout* layout = Footer(dialog)->layout();
        QVERIFY(layout);
        QCOMPARE(layout->count(), 3);
        QCOMPARE(layout->itemAt(0)->widget(), dialog.GetStatusLabel());
        QCOMPARE(layout->itemAt(1)->widget(), Button(dialog, u"Close"_s));
        QCOMPARE(layout->itemAt(2)->widget(), Button(dialog, u"Help"_s));
    }

    void FooterSizes()
    {
        const VenueDbDialogBase dialog;
        QCOMPARE(Footer(dialog)->contentsMargins(), QMargins(8, 8, 8, 8));
        QCOMPARE(Footer(dialog)->layout()->contentsMargins(), QMargins());
        for (const QString& text : {u"Close"_s, u"Help"_s}) {
            const QPushButton* button = Button(dialog, text);
            QVERIFY(button);
            QCOMPARE(button->minimumWidth(), 90);
            QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum));
        }
    }

    void BaseLayoutIsTight()
    {
        const VenueDbDialogBase dialog;
        QCOMPARE(dialog.layout(), dialog.GetBaseLayout());
        QCOMPARE(dialog.GetBaseLayout()->contentsMargins(), QMargins());
        QCOMPARE(dialog.GetBaseLayout()->spacing(), 0);
        QCOMPARE(dialog.GetBaseLayout()->alignment(), Qt::AlignHCenter);
    }

    void StyleClasses()
    {
        const VenueDbDialogBase dialog;
        QCOMPARE(StyleOf(&dialog), u"widgetKorvelDefault"_s);
        QCOMPARE(StyleOf(dialog.GetBaseLayout()), u"dialogKorvelDefault"_s);
        QCOMPARE(StyleOf(dialog.GetStatusLabel()), u"labelKorvelDefault"_s);
        QCOMPARE(StyleOf(Button(dialog, u"Close"_s)), u"buttonKorvelDefault"_s);
        QCOMPARE(StyleOf(Button(dialog, u"Help"_s)), u"buttonKorvelDefault"_s);
        QCOMPARE(StyleOf(Footer(dialog)), u"frameKorvelButtonBox"_s);
        QVERIFY(qobject_cast<QFrame*>(Footer(dialog)));
    }

    void HasTheWindowFlagsOfAPlainDialogAndNoParent()
    {
        const VenueDbDialogBase dialog;
        QCOMPARE(dialog.windowFlags(), QDialog().windowFlags());
        QCOMPARE(dialog.parentWidget(), nullptr);
        QWidget host;
        const auto* owned = new VenueDbDialogBase(&host);
        QCOMPARE(owned->parentWidget(), &host);
        QVERIFY(owned->isWindow());
    }

    void ContentStandsAboveTheFooter()
    {
        VenueDbDialogBase dialog;
        auto* content = new QWidget;
        content->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        dialog.SetContentWidget(content);
        QCOMPARE(content->parentWidget(), &dialog);
        QCOMPARE(dialog.GetBaseLayout()->count(), 2);
        QCOMPARE(dialog.GetBaseLayout()->itemAt(0)->widget(), content);
        QCOMPARE(dialog.GetBaseLayout()->itemAt(0)->alignment(), Qt::Alignment());
        QCOMPARE(dialog.GetBaseLayout()->stretch(0), 0);
        QCOMPARE(dialog.GetBaseLayout()->itemAt(1)->widget(), Footer(dialog));

        dialog.resize(700, 400);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(content->geometry().topLeft(), QPoint(0, 0));
        QCOMPARE(content->width(), 700);
        QCOMPARE(Footer(dialog)->geometry().top(), content->geometry().bottom() + 1);
        QCOMPARE(Footer(dialog)->width(), 700);
        QCOMPARE(Footer(dialog)->geometry().bottom(), 399);
        QVERIFY(dialog.GetStatusLabel()->width() > 400);
        QCOMPARE(Button(dialog, u"Help"_s)->geometry().right(), 699 - 8);
    }

    void StatusTextIsShownLiterally_data()
    {
        const Rows<QString> row("text");
        row("plain", u"Loading..."_s);
        row("empty", {});
        row("markup", u"<h1>Hall</h1><img src=\"/etc/x.png\" width=30000>"_s);
    }
    void StatusTextIsShownLiterally()
    {
        QFETCH(QString, text);
        VenueDbDialogBase dialog;
        dialog.SetStatusLabelText(text);
        QCOMPARE(dialog.GetStatusLabel()->text(), text);
        QCOMPARE(dialog.GetStatusLabel()->textFormat(), Qt::PlainText);
    }

    void CloseHidesAndKeepsTheContent()
    {
        VenueDbDialogBase dialog;
        auto* field = new QLineEdit;
        dialog.SetContentWidget(field);
        dialog.show();
        field->setText(u"kept"_s);
        QSignalSpy closeRequests(&dialog, &VenueDbDialogBase::CloseWindowRequested);
        QTest::mouseClick(Button(dialog, u"Close"_s), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(closeRequests.count(), 0);

        dialog.show();
        QCOMPARE(field->text(), u"kept"_s);
        dialog.OnCloseWindowRequested();
        QVERIFY(!dialog.isVisible());
    }

    void HelpButtonAsksTheHostOncePerPress()
    {
        VenueDbDialogBase dialog;
        QSignalSpy help(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::HelpRequested);
        QTest::mouseClick(Button(dialog, u"Help"_s), Qt::LeftButton);
        QCOMPARE(help.count(), 1);
        QTest::mouseClick(Button(dialog, u"Help"_s), Qt::LeftButton);
        QCOMPARE(help.count(), 2);
    }

    void F1AsksTheHostAlsoFromAChild()
    {
        VenueDbDialogBase dialog;
        auto* field = new QLineEdit;
        dialog.SetContentWidget(field);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        field->setFocus();
        QTRY_VERIFY(field->hasFocus());
        QSignalSpy help(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::HelpRequested);
        QTest::keyClick(field, Qt::Key_F1);
        QCOMPARE(help.count(), 1);
        QTest::keyClick(&dialog, Qt::Key_F1);
        QCOMPARE(help.count(), 2);
    }

    void HelpShortcutBelongsToTheWindow()
    {
        const VenueDbDialogBase dialog;
        const QList<QShortcut*> shortcuts = dialog.findChildren<QShortcut*>();
        QCOMPARE(shortcuts.size(), 1);
        QCOMPARE(shortcuts.first()->parent(), &dialog);
        QCOMPARE(shortcuts.first()->keys(), QKeySequence::keyBindings(QKeySequence::HelpContents));
        QCOMPARE(shortcuts.first()->context(), Qt::WindowShortcut);
    }

    void CtrlBAsksForTheOtherAppearance_data()
    {
        const Rows<int, Qt::KeyboardModifiers, int> row("key", "modifiers", "requests");
        const Qt::KeyboardModifiers none;
        row("Ctrl+B", Qt::Key_B, Qt::ControlModifier, 1);
        row("Ctrl+Shift+B", Qt::Key_B, (Qt::ControlModifier | Qt::ShiftModifier), 1);
        row("Ctrl+Alt+B", Qt::Key_B, (Qt::ControlModifier | Qt::AltModifier), 1);
        row("B goes on", Qt::Key_B, none, 0);
        row("Shift+B goes on", Qt::Key_B, Qt::ShiftModifier, 0);
        row("Ctrl+N goes on", Qt::Key_N, Qt::ControlModifier, 0);
    }
    void CtrlBAsksForTheOtherAppearance()
    {
        const auto [key, modifiers, requests] = Fetch<int, Qt::KeyboardModifiers, int>();
        VenueDbDialogBase dialog;
        QSignalSpy own(&dialog, &VenueDbDialogBase::DayModeChangeRequested);
        QSignalSpy hub(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::DayModeChangeRequested);
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&dialog, &event);
        QCOMPARE(own.count(), requests);
        QCOMPARE(hub.count(), requests);
        // The standard dialog ignores keys that it has no use for; ours are used up.
        QCOMPARE(event.isAccepted(), requests == 1);
    }

    void EscapeHidesAndRejects()
    {
        VenueDbDialogBase dialog;
        QSignalSpy rejections(&dialog, &QDialog::rejected);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(rejections.count(), 1);
    }

    void HostMayDeleteTheDialogInItsHandler()
    {
        auto* dialog = new VenueDbDialogBase;
        const QPointer<VenueDbDialogBase> guard(dialog);
        const QObject host;
        connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::DayModeChangeRequested, &host,
                [dialog] { delete dialog; });
        QKeyEvent event(QEvent::KeyPress, Qt::Key_B, Qt::ControlModifier);
        QCoreApplication::sendEvent(dialog, &event);
        QVERIFY(!guard);
    }
};

QTEST_MAIN(tst_VenueDbDialogBase)
#include "tst_VenueDbDialogBase.moc"
