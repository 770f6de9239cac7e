#pragma once

#include <data/Connector_Interface.h>
#include <data/VenueDatabaseExport.h>

#include <QObject>

class QJsonArray;
class QJsonObject;
class QNetworkAccessManager;
class QNetworkReply;

namespace korvel::Data::VenueDatabase {

class CountryCodeTranslator;

/// The venue database server as a JSON:API service over HTTPS: every request is a GET to the host that was
/// fixed when the module was built, waits at most 30000 ms, and JSON replies must be
/// "application/vnd.api+json" to the letter.
///
/// Each query runs a nested event loop that holds back user input. It ends early, with its failure result,
/// when the application quits or when the connector is deleted meanwhile, which is allowed. Texts and bytes
/// of the server are handed on unchecked, but never those of another request. Whatever happens to a query,
/// the next one does not suffer from it. User-interface thread only.
///
/// @code{.cpp}
/// ConnectorJsonRest connector;
/// QList<Venue> venues;
/// if (connector.FindVenueEntries({{QStringLiteral("address.locality"), QStringLiteral("paris")}}, venues)
///     == Ok) {
///     for (const Venue& venue : std::as_const(venues))
///         qInfo() << venue.GetId() << venue.GetComplexName() << venue.GetCountry();
/// }
/// @endcode
class KVVENUEDATABASE_API ConnectorJsonRest : public QObject, public Connector_Interface
{
    Q_OBJECT
    /// Stored and reported, never applied: requests go to the built-in host.
    Q_PROPERTY(QString serverAddress READ GetServerAddress WRITE SetServerAddress)

public:
    /// A connector with a network access manager of its own. Nothing is sent before the first query.
    explicit ConnectorJsonRest(QObject* parent = nullptr);
    /// Ends a running query with its failure result. Replies that callers still hold go with the manager.
    ~ConnectorJsonRest() override;

    /// Stores \p serverAddress for GetServerAddress() and does nothing else.
    void SetServerAddress(const QString& serverAddress);
    /// What SetServerAddress() stored; empty at first.
    QString GetServerAddress() const;

    /// One GET with a CONTAINS condition for each of \p filters, the paths in lower case. The server
    /// compares, without regard to case. The venues come in the reverse order of the reply, editors included.
    ResultStatus FindVenueEntries(QList<std::pair<QString, QString>> filters, QList<Venue>& venues) override;
    /// Answers with an empty list at once; this server tells nothing of its users.
    QList<User> FindUserEntries(QList<std::pair<QString, QString>> filters) override;
    /// One GET for the list, then one for each picture, one after another. Waits up to 30000 ms for each.
    QList<Picture> GetPictureEntries(qint64 venueId) override;
    /// One GET for the list, then one for each file, one after another. Waits up to 30000 ms for each.
    QList<TsFile> GetTSFileEntries(qint64 venueId) override;
    /// One GET; the media type decides whether it is an image, not the status.
    QByteArray GetPictureBinaryData(const QString& url) override;

    /// Sends a GET for \p path on the built-in host with the pairs of \p query in their order. The reply is a
    /// child of the connector's network access manager; whoever asked for it may delete it when it is read.
    QNetworkReply* SendGetJsonRequest(const QString& path,
                                      const QList<std::pair<QString, QString>>& query) const;
    /// Sends a GET for the full URL \p url; ownership as above. Schemes other than http, https and data fail
    /// like an unreachable host.
    QNetworkReply* SendGetUrlRequest(const QString& url) const;
    /// Waits in a nested event loop, user input held back, until \p reply finishes or \p timeout milliseconds
    /// are over; then the reply is aborted. True exactly when the reply finished in time and still lives.
    /// Also ends, with false, when the reply is destroyed or the application quits.
    bool waitForFinished(QNetworkReply* reply, int timeout) const;

    /// The venues of a whole JSON:API document, in the reverse order of its "data" array.
    QList<Venue> ProcessVenueEntriesReply(const QJsonObject& reply) const;
    /// One picture per "file" resource of \p included, with its bytes downloaded one after another (nested
    /// event loops). Empty when the connector was deleted meanwhile.
    QList<Picture> ProcessPictureEntriesReply(const QJsonArray& included, qint64 venueId);
    /// One model file per "file" resource of \p included, its contents downloaded likewise.
    QList<TsFile> ProcessTSFileEntriesReply(const QJsonArray& included, qint64 venueId);
    /// The body behind \p path on the built-in host, whatever its status or type; empty after 30000 ms
    /// without an answer. Runs a nested event loop.
    QByteArray GetBinaryData(const QString& path);

private:
    QList<Venue> GetAllVenueEntries() override;
    QList<Venue> GetVenueEntries() override;
    QList<User> GetAllUserEntries() override;
    QList<User> GetUserEntries() override;

    /// Asks for the resources \p include of one venue and reads their "included" array; false on any failure,
    /// logged as \p what.
    bool QueryIncluded(QLatin1String what, const QString& include, qint64 venueId,
                       QJsonArray& included) const;

    CountryCodeTranslator* m_countryCodeTranslator = nullptr;
    QNetworkAccessManager* m_networkAccessManager = nullptr;
    QString m_serverAddress;
};

} // namespace korvel::Data::VenueDatabase
