#pragma once

#include <QNetworkAccessManager>

namespace korvel::Data::VenueDatabase {

/// A network access manager that gives up its connections as soon as one of them would harm what comes later,
/// and goes on with new ones.
///
/// Qt keeps connections for later requests, also these:
/// - A proxy dropped it before it answered CONNECT: every later request waits there for ever.
/// - The server sent a provisional answer (status 1xx) first: Qt 6.4 takes that for the answer, and the real
///   one for that to the next request.
/// - The proxy refuses NTLM: Qt 6.4 repeats CONNECT without end, even when nobody waits for the reply any
///   more.
///
/// So a reply that ends without an answer, also because it was aborted or deleted, is the last one of its
/// connections: the next request goes out on new ones. Replies that still wait go on with the old ones, which
/// end after the last of them. clearConnectionCache() would lose those replies, and it waits for Qt's network
/// thread; nothing here waits.
///
/// Replies are children of this manager, as always. Its proxy, its cookies and the cache that it had when
/// new connections began count for them too.
class RenewingNetworkManager : public QNetworkAccessManager
{
    Q_OBJECT

public:
    explicit RenewingNetworkManager(QObject* parent = nullptr);
    /// Ends the replies that still wait without a signal.
    ~RenewingNetworkManager() override;

    /// Whether \p reply, which has finished, holds the answer to its own request and to no other. Where this
    /// is false its bytes must not be used, although error() may tell of no error. Replies that came over no
    /// network ("data:") are answers.
    static bool IsAnswer(const QNetworkReply& reply);

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request,
                                 QIODevice* outgoingData) override;

private:
    class Connections;

    void Watch(QNetworkReply* reply, Connections* connections);
    /// Nothing that comes through \p connections from now on can be told from another request's answer.
    void Distrust(Connections* connections);
    void NoteEnd(QObject* reply, Connections* connections, bool hasAnswer);

    /// Those of the next request; null: new ones.
    Connections* m_connections = nullptr;
};

} // namespace korvel::Data::VenueDatabase
