#include <bench/rivals/JsonaReader.h>

#include <QDir>

using namespace Qt::StringLiterals;

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
        m_errorText = u"Node or its package jsona is missing"_s;
        return false;
    }
    if (!m_body.open() || m_body.write(body) != body.size() || !m_body.flush()) {
        m_errorText = m_body.errorString();
        return false;
    }
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.setWorkingDirectory(folder);
    m_process.start(u"node"_s, {u"read-body.mjs"_s, m_body.fileName()});
    if (!m_process.waitForStarted(c_timeout)) {
        m_errorText = m_process.errorString();
        return false;
    }
    if (Read() < 0) {
        m_errorText = u"Node did not answer"_s;
        return false;
    }
    return true;
}

double JsonaReader::Read()
{
    m_process.write("read\n");
    while (!m_process.canReadLine())
        if (!m_process.waitForReadyRead(c_timeout))
            return -1;
    bool isNumber = false;
    const double nanoseconds = m_process.readLine().trimmed().toDouble(&isNumber);
    return isNumber ? nanoseconds : -1;
}

} // namespace korvel::Bench
