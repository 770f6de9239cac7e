#include <data/ConnectorJsonRest.h>

#include <data/CountryCodeTranslator.h>
#include <data/network/ArrivingBody_p.h>
#include <data/network/Logging_p.h>
#include <data/network/RenewingNetworkManager_p.h>
#include <data/network/ReplyReleaser_p.h>
#include <data/network/RequestTracer_p.h>
#include <data/network/ServerQuery_p.h>
#include <data/reading/IncludedReader_p.h>
#include <data/reading/VenueReader_p.h>

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

namespace {

/// How long every query waits for its reply, in milliseconds.
constexpr int c_timeout = 30000;

QString ContentType(const QNetworkReply& reply)
{
    return reply.header(QNetworkRequest::ContentTypeHeader).toString();
}

bool IsJsonApi(const QNetworkReply& reply)
{
    return ContentType(reply) == c_jsonApiMediaType;
}

QNetworkReply* SendUrlRequest(QNetworkAccessManager& manager, const QUrl& wanted)
{
    QNetworkReply* const reply = manager.get(ServerRequest(wanted));
    RequestTracer::Follow("Request"_L1, wanted, reply);
    return reply;
}

QString SmallestUrl(const Picture& picture)
{
    for (const QString& url :
         {picture.GetPictureUrlSmall(), picture.GetPictureUrlMedium(), picture.GetPictureUrlLarge()}) {
        if (!url.isEmpty())
            return url;
    }
    return picture.GetPictureUrl();
}

QString WithoutBackslashes(QString text)
{
    return text.remove(QLatin1Char('\\'));
}

} // namespace

ConnectorJsonRest::ConnectorJsonRest(QObject* parent)
    : QObject(parent)
    // Deliberate: nobody ever deletes it. It is small, and a connector has only one.
    , m_countryCodeTranslator(new CountryCodeTranslator)
    , m_networkAccessManager(new RenewingNetworkManager(this))
{
}

ConnectorJsonRest::~ConnectorJsonRest()
{
    QObject::disconnect(m_networkAccessManager, nullptr, this, nullptr);
    m_networkAccessManager->deleteLater();
}

void ConnectorJsonRest::SetServerAddress(const QString& serverAddress)
{
    m_serverAddress = serverAddress;
}

QString ConnectorJsonRest::GetServerAddress() const
{
    return m_serverAddress;
}

QNetworkReply* ConnectorJsonRest::SendGetJsonRequest(const QString& path,
                                                     const QList<std::pair<QString, QString>>& query) const
{
    const QUrl wanted = ServerUrl(path, query);
    QNetworkReply* const reply = m_networkAccessManager->get(ServerRequest(wanted));
    // Which of the queries it is; their other values may be what the user typed.
    RequestTracer::Follow("Server request"_L1, wanted, reply, {"include"_L1, "filter[entity_id]"_L1});
    return reply;
}

QNetworkReply* ConnectorJsonRest::SendGetUrlRequest(const QString& url) const
{
    return SendUrlRequest(*m_networkAccessManager, QUrl(url, QUrl::TolerantMode));
}

bool ConnectorJsonRest::waitForFinished(QNetworkReply* reply, int timeout) const
{
    if (!reply)
        return false;
    if (reply->isFinished())
        return true;

    const QPointer<QNetworkReply> guardedReply(reply);
    bool hasTimedOut = false;
    bool hasFinished = false;
    QTimer timer;
    QEventLoop loop;
    timer.setSingleShot(true);
    // The default type may fire a twentieth early.
    timer.setTimerType(Qt::PreciseTimer);
    // The connection ends with the loop, before what it refers to does.
    connect(reply, &QNetworkReply::finished, &loop, [&]() {
        hasFinished = !hasTimedOut; // clazy:exclude=lambda-in-connect
        loop.quit();
    });
    // A reply that dies with its manager or connector never finishes.
    connect(reply, &QObject::destroyed, &loop, &QEventLoop::quit);
    connect(&timer, &QTimer::timeout, reply, [&hasTimedOut, reply]() {
        hasTimedOut = true;
        reply->abort();
    });
    timer.start(timeout);
    loop.exec(QEventLoop::ExcludeUserInputEvents);

    // Nothing of this object may be touched here: it may be gone. The reply may have died after it finished.
    return hasFinished && guardedReply;
}

ResultStatus ConnectorJsonRest::FindVenueEntries(QList<std::pair<QString, QString>> filters,
                                                 QList<Venue>& venues)
{
    const ReplyReleaser reply(SendGetJsonRequest(c_venuePath, SearchQuery(filters)));
    ArrivingBody body(reply.Get());
    if (!waitForFinished(reply.Get(), c_timeout))
        return Timeout;
    // A body that was cut short or an error page can carry the right media type; only the error tells.
    if (reply->error() != QNetworkReply::NoError)
        return WrongContentType;
    if (!RenewingNetworkManager::IsAnswer(*reply)) {
        RequestTracer::NoteUnusable(*reply, NotAnAnswerReason());
        return WrongContentType;
    }
    if (!IsJsonApi(*reply)) {
        RequestTracer::NoteUnusable(*reply, NotJsonApiReason(ContentType(*reply)));
        return WrongContentType;
    }
    std::optional<QList<Venue>> found = VenueReader(*m_countryCodeTranslator).ReadBody(body.Take());
    if (!found)
        RequestTracer::NoteUnusable(*reply, u"the reply is not a JSON object with a list \"data\""_s);
    venues = std::move(found).value_or(QList<Venue>());
    return Ok;
}

QList<Venue> ConnectorJsonRest::ProcessVenueEntriesReply(const QJsonObject& reply) const
{
    return VenueReader(*m_countryCodeTranslator).Read(reply);
}

QList<User> ConnectorJsonRest::FindUserEntries(QList<std::pair<QString, QString>> /*filters*/)
{
    return {};
}

QList<Picture> ConnectorJsonRest::GetPictureEntries(qint64 venueId)
{
    QJsonArray included;
    if (!QueryIncluded("Picture query"_L1, c_pictureInclude, venueId, included))
        return {};
    return ProcessPictureEntriesReply(included, venueId);
}

QList<Picture> ConnectorJsonRest::ProcessPictureEntriesReply(const QJsonArray& included, qint64 venueId)
{
    const QPointer<ConnectorJsonRest> self(this);
    QList<Picture> pictures;
    QList<StoredFile<Picture>> stored = IncludedReader(included, venueId).Pictures();
    for (auto& [picture, path] : stored) {
        picture.SetPictureUrl(ServerUrl(path).toString());
        // Whichever rendition it is, its bytes are kept as the small ones, the ones that the slider shows.
        picture.SetPictureDataSmall(GetPictureBinaryData(WithoutBackslashes(SmallestUrl(picture))));
        if (!self)
            return {};
        pictures.append(std::move(picture));
    }
    return pictures;
}

QByteArray ConnectorJsonRest::GetPictureBinaryData(const QString& url)
{
    constexpr QLatin1String what("Picture download");
    const QUrl wanted(url, QUrl::TolerantMode);
    const ReplyReleaser reply(SendUrlRequest(*m_networkAccessManager, wanted));
    if (!waitForFinished(reply.Get(), c_timeout)) {
        reply.LogTimeout(what, wanted, c_timeout);
        return {};
    }
    const QByteArray body = reply->readAll();
    const QString contentType = ContentType(*reply);
    const bool isAnswer = RenewingNetworkManager::IsAnswer(*reply);
    // Deliberate: the media type alone decides. An error page that is an image counts as one.
    const bool isImage = isAnswer && contentType.startsWith("image"_L1);
    if (reply->error() != QNetworkReply::NoError)
        LogFailedRequest(what, wanted, *reply);
    else if (!isAnswer)
        LogFailedRequest(what, wanted, *reply, NotAnAnswerReason());
    else if (!isImage)
        LogFailedRequest(what, wanted, *reply, NotAnImageReason(contentType));
    return isImage ? body : QByteArray();
}

QByteArray ConnectorJsonRest::GetBinaryData(const QString& path)
{
    constexpr QLatin1String what("Model file download");
    const QUrl url = ServerUrl(path);
    const ReplyReleaser reply(SendGetJsonRequest(path, {}));
    if (!waitForFinished(reply.Get(), c_timeout)) {
        reply.LogTimeout(what, url, c_timeout);
        return {};
    }
    const bool isAnswer = RenewingNetworkManager::IsAnswer(*reply);
    if (reply->error() != QNetworkReply::NoError)
        LogFailedRequest(what, url, *reply);
    else if (!isAnswer)
        LogFailedRequest(what, url, *reply, NotAnAnswerReason());
    // Deliberate: whatever came is the file, an error page too. The host judges what it imports.
    return isAnswer ? reply->readAll() : QByteArray();
}

QList<TsFile> ConnectorJsonRest::GetTSFileEntries(qint64 venueId)
{
    QJsonArray included;
    if (!QueryIncluded("Model file query"_L1, c_modelFileInclude, venueId, included))
        return {};
    return ProcessTSFileEntriesReply(included, venueId);
}

QList<TsFile> ConnectorJsonRest::ProcessTSFileEntriesReply(const QJsonArray& included, qint64 venueId)
{
    const QPointer<ConnectorJsonRest> self(this);
    QList<TsFile> files;
    QList<StoredFile<TsFile>> stored = IncludedReader(included, venueId).ModelFiles();
    for (auto& [file, path] : stored) {
        QByteArray data = GetBinaryData(WithoutBackslashes(path));
        if (!self)
            return {};
        file.SetFileData(data);
        files.append(std::move(file));
    }
    return files;
}

bool ConnectorJsonRest::QueryIncluded(QLatin1String what, const QString& include, qint64 venueId,
                                      QJsonArray& included) const
{
    const ReplyReleaser reply(SendGetJsonRequest(c_venuePath, IncludedQuery(include, venueId)));
    const QUrl url = reply->request().url();
    if (!waitForFinished(reply.Get(), c_timeout)) {
        reply.LogTimeout(what, url, c_timeout);
        return false;
    }
    const QByteArray body = reply->readAll();
    if (reply->error() != QNetworkReply::NoError) {
        LogFailedRequest(what, url, *reply);
        return false;
    }
    if (!RenewingNetworkManager::IsAnswer(*reply)) {
        LogFailedRequest(what, url, *reply, NotAnAnswerReason());
        return false;
    }
    if (!IsJsonApi(*reply)) {
        LogFailedRequest(what, url, *reply, NotJsonApiReason(ContentType(*reply)));
        return false;
    }
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (!document.isObject())
        LogFailedRequest(what, url, *reply, u"the reply is not a JSON object"_s);
    included = document.object().value("included"_L1).toArray();
    return true;
}

QList<Venue> ConnectorJsonRest::GetAllVenueEntries()
{
    return {};
}

QList<Venue> ConnectorJsonRest::GetVenueEntries()
{
    return {};
}

QList<User> ConnectorJsonRest::GetAllUserEntries()
{
    return {};
}

QList<User> ConnectorJsonRest::GetUserEntries()
{
    return {};
}

} // namespace korvel::Data::VenueDatabase

#include "moc_ConnectorJsonRest.cpp"
