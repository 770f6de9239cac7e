#include <tests/support/ErrorBoxes.h>

#include <QAbstractButton>
#include <QApplication>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace korvel::Test {

namespace {

QString Description(const QString& title, const QString& text, int defaultButton, int buttons)
{
    return u"%1|%2|%3|%4"_s.arg(title, text).arg(defaultButton, 0, 16).arg(buttons, 0, 16);
}

} // namespace

ErrorBoxes::ErrorBoxes(QMessageBox::StandardButton answer)
    : m_answer(answer)
{
    connect(&m_poll, &QTimer::timeout, this, &ErrorBoxes::Look);
    m_poll.start(5);
}

QString ErrorBoxes::ServerUnreachable()
{
    return Description(u"Error"_s, u"Unable to connect to server. \nPlease check your internet connection."_s,
                       QMessageBox::Retry, QMessageBox::Retry | QMessageBox::Close);
}

void ErrorBoxes::Look()
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    shown.append(Description(box->windowTitle(), box->text(), box->standardButton(box->defaultButton()),
                             box->standardButtons()));
    if (QAbstractButton* button = box->button(m_answer))
        button->click();
    else
        box->reject();
}

} // namespace korvel::Test
