#include <tests/support/MessageGuard.h>

#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <QWidget>

#include <algorithm>

namespace korvel::Test {

void FailOnUnexpectedWarnings()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
}

bool NoWindowIsLeft()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    return std::none_of(widgets.cbegin(), widgets.cend(),
                        [](const QWidget* widget) { return widget->isVisible(); });
}

} // namespace korvel::Test
