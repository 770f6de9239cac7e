#include <bench/JsonaReader.h>

#include <QDir>

namespace korvel::Bench {

namespace {

constexpr int c_timeout = 60000;

} // namespace

JsonaReader::~JsonaReader()
{
    m_process.closeWriteChannel();
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(c_timeout))
        m_process.kill();
    m_process.waitForFinished(c_timeout);
}

bool JsonaReader::Start(const QByteArray& body)
{
    const QString folder = qEnvironmentVariable("VDB_BENCH_JSONA");
    if (folder.isEmpty()) {
        m_errorText = QStringLiteral("Node or its package jsona is missing");
        return false;
    }
    if (!m_body.open() || m_body.write(body) != body.size() || !m_body.flush()) {
        m_errorText = m_body.errorString();
        return false;
    }
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.setWorkingDirectory(folder);
    m_process.start(QStringLiteral("node"), {QStringLiteral("read-body.mjs"), m_body.fileName()});
    if (!m_process.waitForStarted(c_timeout)) {
        m_errorText = m_process.errorString();
        return false;
    }
    if (Read() < 0) {
        m_errorText = QStringLiteral("Node did not answer");
        return false;
    }
    return true;
}

double JsonaReader::Read()
{
    m_process.write("read\n");
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(c_timeout))
            return -1;
    }
    bool isNumber = false;
    const double nanoseconds = m_process.readLine().trimmed().toDouble(&isNumber);
    return isNumber ? nanoseconds : -1;
}

} // namespace korvel::Bench
