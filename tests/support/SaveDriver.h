#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>

namespace korvel::Test {

/// The user of a save dialog: types a path, presses "Save", confirms every message box, and gives up when
/// the dialog comes again.
class SaveDriver : public QObject
{
    Q_OBJECT

public:
    explicit SaveDriver(const QString& path);

    /// Run right before "Save" is pressed and right after the program has answered.
    std::function<void()> beforeSaving;
    std::function<void()> afterSaving;

    /// The texts of the message boxes so far.
    QStringList boxes;
    /// How often the save dialog was there.
    int dialogs = 0;

private:
    void Look();
    void NoteAnswer();

    QString m_path;
    QTimer m_poll;
    bool m_isAnswered = false;
};

} // namespace korvel::Test
