#include <tests/tour/Hands.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QMap>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

void Require(bool isSo, const QString& what)
{
    if (!isSo)
        throw TourFailure{what};
}

namespace Hands {

void WaitUntil(const std::function<bool()>& isSo, const QString& what, int milliseconds)
{
    Require(QTest::qWaitFor(isSo, milliseconds), u"waited in vain: "_s + what);
}

void Settle()
{
    // A picture is taken from the screen, and no event says that the window system has drawn the last frame.
    QTest::qWait(150);
}

QPushButton* Button(const QWidget* root, const QString& text)
{
    for (QPushButton* button : root->findChildren<QPushButton*>())
        if (button->isVisible() && button->text().remove(QLatin1Char('&')) == text)
            return button;
    throw TourFailure{u"there is no button \"%1\""_s.arg(text)};
}

QWidget* FindFieldBeside(const QWidget* root, const QString& text, int which,
                         const std::function<bool(QWidget*)>& isField)
{
    const auto place
        = [root](const QWidget* widget) { return QRect(widget->mapTo(root, QPoint()), widget->size()); };
    // How far \p field begins after \p label in the direction of reading.
    const auto distance = [root](const QRect& label, const QRect& field) {
        return root->isRightToLeft() ? label.right() - field.right() : field.left() - label.left();
    };
    const auto nearestTo = [&](const QRect& label) {
        QWidget* nearest = nullptr;
        for (QWidget* widget : root->findChildren<QWidget*>()) {
            if (!widget->isVisible() || !isField(widget))
                continue;
            const QRect field = place(widget);
            const bool isBeside = distance(label, field) > 0 && field.top() <= label.center().y()
                && field.bottom() >= label.top();
            if (isBeside && (!nearest || distance(label, field) < distance(label, place(nearest))))
                nearest = widget;
        }
        return nearest;
    };

    QMap<int, QWidget*> fields; // by the height at which they stand
    for (const QLabel* label : root->findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text() != text)
            continue;
        if (QWidget* field = nearestTo(place(label)))
            fields.insert(place(label).top(), field);
    }
    Require(which < fields.size(), u"there is no field beside \"%1\""_s.arg(text));
    return fields.values().at(which);
}

void Click(QWidget* widget)
{
    Click(widget, widget->rect().center());
}

void Click(QWidget* widget, QPoint position)
{
    QWidget* window = widget->window();
    const QPoint place = widget->mapTo(window, position);
    const QWidget* top = window->childAt(place);
    Require(widget->isEnabled() && (top == widget || widget->isAncestorOf(top) || widget == window),
            u"%1 cannot be clicked"_s.arg(QLatin1String(widget->metaObject()->className())));
    // A second click at once would be a double click, which means nothing to most widgets.
    static QElapsedTimer sinceLastClick;
    if (sinceLastClick.isValid() && !sinceLastClick.hasExpired(QApplication::doubleClickInterval() + 50))
        QTest::qWait(int(QApplication::doubleClickInterval() + 50 - sinceLastClick.elapsed()));
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    // The window system's events are queued.
    QTest::qWait(10);
    sinceLastClick.start();
}

namespace {

QWidget* KeyTarget()
{
    // Some window systems take the keyboard from the window that closes before they give it to the next.
    WaitUntil([] { return QApplication::activePopupWidget() || QApplication::activeWindow(); },
              u"a window has the keyboard"_s);
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup->focusWidget() ? popup->focusWidget() : popup;
    return QApplication::focusWidget() ? QApplication::focusWidget() : QApplication::activeWindow();
}

} // namespace

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(KeyTarget(), key, modifiers);
}

void Type(const QString& text)
{
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, KeyTarget(), Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

void Choose(QComboBox* chooser, const std::function<void()>& keys)
{
    Click(chooser);
    WaitUntil([] { return QApplication::activePopupWidget() != nullptr; }, u"the list drops down"_s);
    keys();
    Press(Qt::Key_Return);
    // The mouse of this tour is none that could be seen leaving while the list is open.
    chooser->setAttribute(Qt::WA_UnderMouse, false);
    chooser->update();
}

void Fill(QWidget* field, const QString& text)
{
    Click(field);
    WaitUntil([field] { return field->hasFocus(); }, u"the field has the focus"_s);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    Type(text);
}

void AnswerModal(const std::function<void()>& action, const std::function<bool(QDialog*)>& answer)
{
    bool isAnswered = false;
    std::exception_ptr failure;
    QTimer poll;
    const QPointer<QWidget> before = QApplication::activeModalWidget();
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog == before || !dialog->isActiveWindow())
            return;
        poll.stop();
        // No exception may cross Qt's event handling: it waits here until the action has returned.
        try {
            Settle();
            Require(answer(dialog), u"a dialog of another kind appeared"_s);
        } catch (const TourFailure&) {
            failure = std::current_exception();
            if (dialog)
                dialog->reject();
        }
        isAnswered = true;
    });
    poll.start(50);
    action();
    WaitUntil([&] { return isAnswered; }, u"a dialog appears"_s);
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace Hands

} // namespace korvel::Demo
