#include <ui/VenueDbDialogBase.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/MessageGuard.h>

#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using korvel::Ui::VenueDatabase::VenueDbDialogBase;
using korvel::Ui::VenueDatabase::VenueDbSignalHandler;

namespace {

QString StyleOf(const QObject* object)
{
    return object->property("customStyle").toString();
}

QPushButton* Button(const QWidget& dialog, const QString& text)
{
    const QList<QPushButton*> buttons = dialog.findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

QWidget* Footer(const VenueDbDialogBase& dialog)
{
    return dialog.GetStatusLabel()->parentWidget();
}

} // namespace

class tst_VenueDbDialogBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
    }
    void cleanup()
    {
        QVERIFY(korvel::Test::NoWindowIsLeft());
    }

    void FooterHoldsStatusCloseAndHelpInThisOrder()
    {
        const VenueDbDialogBase dialog;
        QLayout* layout = Footer(dialog)->layout();
        QVERIFY(layout);
        QCOMPARE(layout->count(), 3);
        QCOMPARE(layout->itemAt(0)->widget(), dialog.GetStatusLabel());
        QCOMPARE(layout->itemAt(1)->widget(), Button(dialog, QStringLiteral("Close")));
        QCOMPARE(layout->itemAt(2)->widget(), Button(dialog, QStringLiteral("Help")));
    }

    void FooterSizes()
    {
        const VenueDbDialogBase dialog;
        QCOMPARE(Footer(dialog)->contentsMargins(), QMargins(8, 8, 8, 8));
        QCOMPARE(Footer(dialog)->layout()->contentsMargins(), QMargins());
        for (const QString& text : {QStringLiteral("Close"), QStringLiteral("Help")}) {
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
        QCOMPARE(StyleOf(&dialog), QStringLiteral("widgetKorvelDefault"));
        QCOMPARE(StyleOf(dialog.GetBaseLayout()), QStringLiteral("dialogKorvelDefault"));
        QCOMPARE(StyleOf(dialog.GetStatusLabel()), QStringLiteral("labelKorvelDefault"));
        QCOMPARE(StyleOf(Button(dialog, QStringLiteral("Close"))), QStringLiteral("buttonKorvelDefault"));
        QCOMPARE(StyleOf(Button(dialog, QStringLiteral("Help"))), QStringLiteral("buttonKorvelDefault"));
        QCOMPARE(StyleOf(Footer(dialog)), QStringLiteral("frameKorvelButtonBox"));
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
        QCOMPARE(Button(dialog, QStringLiteral("Help"))->geometry().right(), 699 - 8);
    }

    void StatusTextIsShownLiterally_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QStringLiteral("Loading...");
        QTest::newRow("empty") << QString();
        QTest::newRow("markup") << QStringLiteral("<h1>Hall</h1><img src=\"/etc/x.png\" width=30000>");
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
        field->setText(QStringLiteral("kept"));
        QSignalSpy closeRequests(&dialog, &VenueDbDialogBase::CloseWindowRequested);
        QTest::mouseClick(Button(dialog, QStringLiteral("Close")), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(closeRequests.count(), 0);

        dialog.show();
        QCOMPARE(field->text(), QStringLiteral("kept"));
        dialog.OnCloseWindowRequested();
        QVERIFY(!dialog.isVisible());
    }

    void HelpButtonAsksTheHostOncePerPress()
    {
        VenueDbDialogBase dialog;
        QSignalSpy help(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::HelpRequested);
        QTest::mouseClick(Button(dialog, QStringLiteral("Help")), Qt::LeftButton);
        QCOMPARE(help.count(), 1);
        QTest::mouseClick(Button(dialog, QStringLiteral("Help")), Qt::LeftButton);
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
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<int>("requests");
        const Qt::KeyboardModifiers none;
        QTest::newRow("Ctrl+B") << int(Qt::Key_B) << Qt::KeyboardModifiers(Qt::ControlModifier) << 1;
        QTest::newRow("Ctrl+Shift+B") << int(Qt::Key_B) << (Qt::ControlModifier | Qt::ShiftModifier) << 1;
        QTest::newRow("Ctrl+Alt+B") << int(Qt::Key_B) << (Qt::ControlModifier | Qt::AltModifier) << 1;
        QTest::newRow("B goes on") << int(Qt::Key_B) << none << 0;
        QTest::newRow("Shift+B goes on") << int(Qt::Key_B) << Qt::KeyboardModifiers(Qt::ShiftModifier) << 0;
        QTest::newRow("Ctrl+N goes on") << int(Qt::Key_N) << Qt::KeyboardModifiers(Qt::ControlModifier) << 0;
    }
    void CtrlBAsksForTheOtherAppearance()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(int, requests);
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

    void ReturnPressesTheDefaultButton()
    {
        VenueDbDialogBase dialog;
        auto* button = new QPushButton;
        dialog.SetContentWidget(button);
        button->setDefault(true);
        QSignalSpy clicks(button, &QPushButton::clicked);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(clicks.count(), 1);
        dialog.hide();
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
