#include <tests/support/ModalDriver.h>

#include <QAbstractButton>
#include <QTest>

namespace korvel::Test {

std::unique_ptr<BoxDriver> AnswerBox(QMessageBox::StandardButton button)
{
    return std::make_unique<BoxDriver>(
        [button](QMessageBox* box) { QTest::mouseClick(box->button(button), Qt::LeftButton); });
}

} // namespace korvel::Test
