#include <tests/support/StrictTest.h>

#include <QApplication>
#include <QRegularExpression>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Test {

void FailOnUnexpectedWarnings()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
}

void ExpectWarnings(const QStringList& warnings)
{
    for (const QString& warning : warnings)
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
}

bool NoWindowIsLeft()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    return std::none_of(widgets.cbegin(), widgets.cend(),
                        [](const QWidget* widget) { return widget->isVisible(); });
}

void StrictTest::init()
{
    FailOnUnexpectedWarnings();
}

void StrictTest::cleanup()
{
    QVERIFY(NoWindowIsLeft());
    const bool hasCursors = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    QVERIFY(!hasCursors || !QGuiApplication::overrideCursor());
}

} // namespace korvel::Test
