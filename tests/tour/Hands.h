#pragma once

#include <QDialog>
#include <QPoint>
#include <QString>

#include <exception>
#include <functional>

class QComboBox;
class QPushButton;
class QWidget;

namespace korvel::Demo {

/// Why a step of the tour is not what it should be.
struct TourFailure
{
    QString reason;
};

/// Throws a TourFailure unless \p isSo. Only where no event handler of Qt is on the stack above the catch.
void Require(bool isSo, const QString& what);

template <typename Value> void RequireEqual(const Value& actual, const Value& expected, const QString& what)
{
    QString text;
    QDebug(&text).nospace() << actual << ", expected " << expected;
    Require(actual == expected, what + QStringLiteral(": ") + text);
}

/// What a user has: eyes that find a widget by what it shows, and hands that click and type. Clicks go
/// through the window, so they reach whatever is on top at that place. Every wait processes events and ends
/// with a TourFailure.
namespace Hands {

/// Waits until \p isSo, for \p milliseconds at the most.
void WaitUntil(const std::function<bool()>& isSo, const QString& what, int milliseconds = 20000);
/// Lets windows be mapped and painted.
void Settle();

/// The visible button of \p root with the text \p text.
QPushButton* Button(const QWidget* root, const QString& text);
/// The visible child of type \p T that stands after the label \p label on its line, the nearest one; where
/// several labels read the same, that of the label number \p which from the top.
template <typename T> T* FieldBeside(const QWidget* root, const QString& label, int which = 0);

void Click(QWidget* widget);
void Click(QWidget* widget, QPoint position);
/// Presses a key where the keyboard focus is.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(const QString& text);
/// Chooses from the list that \p chooser opens: \p keys are pressed while it is open, Return closes it.
void Choose(QComboBox* chooser, const std::function<void()>& keys);
/// Replaces the text of an input field by hand.
void Fill(QWidget* field, const QString& text);

/// Does \p action, which opens a modal dialog of type \p Dialog, and has \p answer deal with it.
template <typename Dialog>
void Answer(const std::function<void()>& action, const std::function<void(Dialog*)>& answer);

QWidget* FindFieldBeside(const QWidget* root, const QString& text, int which,
                         const std::function<bool(QWidget*)>& isField);
void AnswerModal(const std::function<void()>& action, const std::function<bool(QDialog*)>& answer);

} // namespace Hands

template <typename T> T* Hands::FieldBeside(const QWidget* root, const QString& label, int which)
{
    return static_cast<T*>(FindFieldBeside(
        root, label, which, [](QWidget* widget) { return qobject_cast<T*>(widget) != nullptr; }));
}

template <typename Dialog>
void Hands::Answer(const std::function<void()>& action, const std::function<void(Dialog*)>& answer)
{
    AnswerModal(action, [answer](QDialog* dialog) {
        auto* expected = qobject_cast<Dialog*>(dialog);
        if (expected)
            answer(expected);
        return expected != nullptr;
    });
}

} // namespace korvel::Demo
