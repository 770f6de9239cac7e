#include <server/log/RequestLog.h>

#include <QMutexLocker>

#include <algorithm>

namespace korvel::Demo {

RequestLog::RequestLog(QObject* parent)
    : QObject(parent)
{
}

QList<Request> RequestLog::Requests() const
{
    const QMutexLocker lock(&m_mutex);
    return m_requests;
}

QList<Request> RequestLog::Requests(const QString& text) const
{
    QList<Request> found = Requests();
    found.removeIf([&text](const Request& request) { return !TargetContains(request.target, text); });
    return found;
}

Request RequestLog::LastRequest() const
{
    const QMutexLocker lock(&m_mutex);
    return m_requests.isEmpty() ? Request() : m_requests.constLast();
}

qsizetype RequestLog::RequestCount() const
{
    const QMutexLocker lock(&m_mutex);
    return m_requests.size();
}

qsizetype RequestLog::RequestCount(const QString& text) const
{
    return Requests(text).size();
}

QList<ConnectRecord> RequestLog::Connects() const
{
    const QMutexLocker lock(&m_mutex);
    return m_connects;
}

qsizetype RequestLog::ConnectCount() const
{
    const QMutexLocker lock(&m_mutex);
    return m_connects.size();
}

qsizetype RequestLog::TlsConnectionCount() const
{
    const QMutexLocker lock(&m_mutex);
    return m_tlsConnections;
}

void RequestLog::Clear()
{
    const QMutexLocker lock(&m_mutex);
    m_requests.clear();
    m_connects.clear();
    m_tlsConnections = 0;
}

qint64 RequestLog::AddRequest(Request request)
{
    qint64 id = 0;
    {
        const QMutexLocker lock(&m_mutex);
        id = ++m_requestIds;
        request.id = id;
        request.time = QDateTime::currentDateTimeUtc();
        m_requests.append(std::move(request));
    }
    Q_EMIT RequestReceived(id);
    return id;
}

void RequestLog::SetStatus(qint64 id, int status)
{
    {
        const QMutexLocker lock(&m_mutex);
        const auto found = std::find_if(m_requests.begin(), m_requests.end(),
                                        [id](const Request& request) { return request.id == id; });
        if (found == m_requests.end())
            return;
        found->status = status;
    }
    Q_EMIT RequestAnswered(id, status);
}

qint64 RequestLog::AddConnect(ConnectRecord connect)
{
    qint64 id = 0;
    {
        const QMutexLocker lock(&m_mutex);
        id = ++m_connectIds;
        connect.connectionId = id;
        connect.time = QDateTime::currentDateTimeUtc();
        m_connects.append(std::move(connect));
    }
    Q_EMIT ConnectReceived(id);
    return id;
}

void RequestLog::SetConnectStatus(qint64 connectionId, int status)
{
    ChangeConnect(connectionId, [status](ConnectRecord& connect) { connect.status = status; });
}

void RequestLog::AddReceivedBytes(qint64 connectionId, qint64 count)
{
    ChangeConnect(connectionId, [count](ConnectRecord& connect) { connect.receivedBytes += count; });
}

void RequestLog::ChangeConnect(qint64 connectionId, const std::function<void(ConnectRecord&)>& change)
{
    const QMutexLocker lock(&m_mutex);
    for (ConnectRecord& connect : m_connects)
        if (connect.connectionId == connectionId)
            change(connect);
}

void RequestLog::AddTlsConnection()
{
    const QMutexLocker lock(&m_mutex);
    ++m_tlsConnections;
}

bool TargetContains(const QByteArray& target, const QString& text)
{
    return QString::fromUtf8(target).contains(text)
        || QString::fromUtf8(QByteArray::fromPercentEncoding(target)).contains(text);
}

} // namespace korvel::Demo
