#pragma once

#include <QMessageBox>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace korvel::Test {

/// Answers every message box for as long as it lives and notes what it said.
class ErrorBoxes : public QObject
{
    Q_OBJECT

public:
    explicit ErrorBoxes(QMessageBox::StandardButton answer);

    /// Title, text, and the standard buttons in hexadecimal digits, the default one first, of each box so
    /// far.
    QStringList shown;
    /// What the search panel's box says.
    static QString ServerUnreachable();

private:
    void Look();

    QMessageBox::StandardButton m_answer;
    QTimer m_poll;
};

} // namespace korvel::Test
