#include <tests/support/ScriptedServer.h>

using namespace Qt::StringLiterals;

namespace korvel::Test {

using Demo::Fault;

ScriptedServer::ScriptedServer()
{
    m_server.AddHost(u"second.example"_s);
    if (!m_server.Start())
        qFatal("The venue server does not start: %s", qPrintable(m_server.ErrorText()));
    m_network = m_server.InstallInApplication();
}

void ScriptedServer::Reset()
{
    m_server.ClearFaults();
    if (!m_server.IsRunning() && !m_server.Start())
        qFatal("The venue server does not start again: %s", qPrintable(m_server.ErrorText()));
    if (m_isProxyHidden)
        QNetworkProxy::setApplicationProxy(m_server.Proxy());
    m_isProxyHidden = false;
    m_server.Log().Clear();
}

void ScriptedServer::Answer(const QString& target, const QByteArray& body, const QByteArray& mediaType,
                            int status)
{
    AddFault(Fault::On(target).WithStatus(status).WithBody(body).WithMediaType(mediaType));
}

void ScriptedServer::AnswerJsonApi(const QString& target, const QByteArray& body)
{
    Answer(target, body, "application/vnd.api+json");
}

void ScriptedServer::Withhold(const QString& target)
{
    AddFault(Fault::On(target).WithoutAnswer());
}

void ScriptedServer::AddFault(const Demo::Fault& fault)
{
    m_server.AddFault(fault);
}

void ScriptedServer::AddFault(const Demo::NetworkFault& fault)
{
    m_server.AddFault(fault);
}

QStringList ScriptedServer::Targets()
{
    QStringList targets;
    for (const Demo::Request& request : m_server.Log().Requests())
        targets.append(QString::fromLatin1(request.target));
    return targets;
}

Demo::RequestLog& ScriptedServer::Log()
{
    return m_server.Log();
}

qint64 ScriptedServer::ReceivedBytesAfter(int count)
{
    qint64 bytes = 0;
    for (const Demo::ConnectRecord& connect : m_server.Log().Connects().mid(count))
        bytes += connect.receivedBytes;
    return bytes;
}

void ScriptedServer::HideProxy()
{
    QNetworkProxy proxy = m_server.Proxy();
    // No name has a part of more than 63 characters: that it is unknown is found out without asking anybody.
    proxy.setHostName(QString(64, QLatin1Char('x')) + u".example"_s);
    QNetworkProxy::setApplicationProxy(proxy);
    m_isProxyHidden = true;
}

Demo::VenueServer& ScriptedServer::Server()
{
    return m_server;
}

QString ScriptedServer::Url(const QString& path)
{
    return QStringLiteral("https://" KVVENUEDATABASE_SERVER_HOST) + path;
}

} // namespace korvel::Test
