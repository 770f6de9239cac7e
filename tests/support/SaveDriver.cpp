#include <tests/support/SaveDriver.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace korvel::Test {

SaveDriver::SaveDriver(const QString& path)
    : m_path(path)
{
    connect(&m_poll, &QTimer::timeout, this, &SaveDriver::Look);
    m_poll.start(5);
}

void SaveDriver::Look()
{
    QWidget* window = QApplication::activeModalWidget();
    if (!window || !window->isVisible())
        return;
    if (auto* box = qobject_cast<QMessageBox*>(window)) {
        NoteAnswer();
        boxes.append(box->text());
        box->accept();
    } else if (auto* fileDialog = qobject_cast<QFileDialog*>(window)) {
        if (++dialogs > 1) {
            NoteAnswer();
            fileDialog->reject();
            return;
        }
        if (beforeSaving)
            beforeSaving();
        SaveAs(fileDialog, m_path);
    }
}

void SaveDriver::NoteAnswer()
{
    if (!m_isAnswered && afterSaving)
        afterSaving();
    m_isAnswered = true;
}

} // namespace korvel::Test
