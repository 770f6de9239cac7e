#include <data/network/RenewingNetworkManager_p.h>

#include <QAbstractNetworkCache>
#include <QDeadlineTimer>
#include <QHash>
#include <QNetworkCookieJar>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QThreadPool>
#include <QVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

namespace {

/// How long a reply may wait, in milliseconds, before others no longer join its connections.
constexpr int c_longestWait = 30000;
constexpr const char* c_isDoubtful = "vdbIsDoubtful";

bool IsFromNetwork(const QNetworkReply& reply)
{
    const QString scheme = reply.url().scheme();
    return scheme == "https"_L1 || scheme == "http"_L1;
}

/// The HTTP status of \p reply; 0 where there is none.
int Status(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

bool IsFinal(int status)
{
    return status >= 200;
}

/// Whether \p reply, which has finished, left its connection as a next request may find it.
bool HasSoundEnd(const QNetworkReply& reply)
{
    if (!IsFromNetwork(reply))
        return true;
    // Qt calls a status from 400 on an error too, with numbers behind those of network and proxy.
    const bool isErrorPage = Status(reply) >= 400 && reply.error() > QNetworkReply::UnknownProxyError;
    return IsFinal(Status(reply)) && (reply.error() == QNetworkReply::NoError || isErrorPage);
}

} // namespace

/// The manager that has the connections, and a network thread of Qt's for them.
class RenewingNetworkManager::Connections : public QNetworkAccessManager
{
public:
    using QNetworkAccessManager::createRequest;
    using QNetworkAccessManager::QNetworkAccessManager;

    /// Some reply waits for so long that a next one might wait with it.
    bool AreStuck() const
    {
        return std::any_of(waiting.cbegin(), waiting.cend(),
                           [](const QDeadlineTimer& deadline) { return deadline.hasExpired(); });
    }

    /// The replies that have not ended.
    QHash<QObject*, QDeadlineTimer> waiting;
};

RenewingNetworkManager::RenewingNetworkManager(QObject* parent)
    : QNetworkAccessManager(parent)
{
}

RenewingNetworkManager::~RenewingNetworkManager()
{
    // As long as what they are connected with is whole.
    qDeleteAll(findChildren<QNetworkReply*>(QString(), Qt::FindDirectChildrenOnly));
}

bool RenewingNetworkManager::IsAnswer(const QNetworkReply& reply)
{
    return !IsFromNetwork(reply) || (IsFinal(Status(reply)) && !reply.property(c_isDoubtful).toBool());
}

QNetworkReply* RenewingNetworkManager::createRequest(Operation operation, const QNetworkRequest& request,
                                                     QIODevice* outgoingData)
{
    if (m_connections && m_connections->AreStuck())
        m_connections = nullptr;
    if (!m_connections) {
        m_connections = new Connections(this);
        // Both stay this manager's: they outlive the connections.
        m_connections->setCookieJar(cookieJar());
        cookieJar()->setParent(this);
        m_connections->setCache(cache());
        if (cache())
            cache()->setParent(this);
    }
    m_connections->setProxy(proxy());
    QNetworkReply* const reply = m_connections->createRequest(operation, request, outgoingData);
    // It may outlive its connections.
    reply->setParent(this);
    Watch(reply, m_connections);
    return reply;
}

void RenewingNetworkManager::Watch(QNetworkReply* reply, Connections* connections)
{
    connections->waiting.insert(reply, QDeadlineTimer(c_longestWait));
    // Before anybody else hears of it: whoever does may send the next request at once.
    connect(reply, &QNetworkReply::metaDataChanged, connections, [this, reply, connections]() {
        if (IsFromNetwork(*reply) && !IsFinal(Status(*reply)))
            Distrust(connections);
    });
    connect(reply, &QNetworkReply::finished, connections,
            [this, reply, connections]() { NoteEnd(reply, connections, HasSoundEnd(*reply)); });
    connect(reply, &QObject::destroyed, connections,
            [this, reply, connections]() { NoteEnd(reply, connections, false); });
}

void RenewingNetworkManager::Distrust(Connections* connections)
{
    // Whether they were sent before or after the real answer was left over, nobody knows here.
    for (auto waiting = connections->waiting.keyBegin(); waiting != connections->waiting.keyEnd(); ++waiting)
        (*waiting)->setProperty(c_isDoubtful, true);
    if (connections == m_connections)
        m_connections = nullptr;
}

void RenewingNetworkManager::NoteEnd(QObject* reply, Connections* connections, bool hasAnswer)
{
    disconnect(reply, nullptr, connections, nullptr);
    connections->waiting.remove(reply);
    if (!hasAnswer && connections == m_connections)
        m_connections = nullptr;
    if (connections == m_connections || !connections->waiting.isEmpty())
        return;
    // Not at once: the reply is about to tell others of its end.
    QMetaObject::invokeMethod(
        connections,
        [connections]() {
            connections->setParent(nullptr);
            connections->moveToThread(nullptr);
            // Qt waits there for the network thread, up to five seconds if that is busy.
            QThreadPool::globalInstance()->start([connections]() { delete connections; });
        },
        Qt::QueuedConnection);
}

} // namespace korvel::Data::VenueDatabase

#include "moc_RenewingNetworkManager_p.cpp"
