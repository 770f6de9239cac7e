#include <tests/support/VdbMessages.h>

#include <QByteArrayView>
#include <QMutex>
#include <QRegularExpression>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Test {

namespace {

QMutex g_mutex;
QStringList g_messages;
QtMessageHandler g_previousHandler = nullptr;

QString Severity(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return u"debug: "_s;
    case QtInfoMsg:
        return u"info: "_s;
    case QtWarningMsg:
        return u"warning: "_s;
    case QtCriticalMsg:
        return {};
    case QtFatalMsg:
        break;
    }
    return u"fatal: "_s;
}

void Collect(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const QByteArrayView category(context.category);
    if (category != "vdb" && !category.startsWith("vdb.")) {
        g_previousHandler(type, context, message);
        return;
    }
    const QMutexLocker lock(&g_mutex);
    g_messages.append(Severity(type) + message);
}

} // namespace

VdbMessages::VdbMessages()
{
    Take();
    g_previousHandler = qInstallMessageHandler(Collect);
}

VdbMessages::~VdbMessages()
{
    qInstallMessageHandler(g_previousHandler);
}

QStringList VdbMessages::Take()
{
    const QMutexLocker lock(&g_mutex);
    return std::exchange(g_messages, {});
}

void VdbMessages::Verify(const QStringList& patterns)
{
    const QStringList messages = Take();
    QVERIFY2(messages.size() == patterns.size(), qPrintable(messages.join(QLatin1Char('\n'))));
    for (qsizetype index = 0; index < messages.size(); ++index) {
        const QRegularExpression pattern(QRegularExpression::anchoredPattern(patterns.at(index)));
        QVERIFY2(pattern.match(messages.at(index)).hasMatch(), qPrintable(messages.at(index)));
    }
}

} // namespace korvel::Test
