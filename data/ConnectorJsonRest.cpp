#include <data/ConnectorJsonRest.h>

#include <data/CountryCodeTranslator.h>
#include <data/Logging_p.h>
#include <data/RequestTracer_p.h>
#include <data/RequestUrl_p.h>
#include <data/ServerDate_p.h>

#include <QEventLoop>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>
#include <QUrlQuery>
#include <QtMath>

#include <initializer_list>
#include <utility>
#include <vector>

namespace korvel::Data::VenueDatabase {

namespace {

/// How long every query waits for its reply, in milliseconds.
constexpr int c_timeout = 30000;
constexpr QLatin1String c_jsonApiMediaType("application/vnd.api+json");
constexpr QLatin1String c_venuePath("/api/venue");
constexpr QLatin1String c_serverHost(KVVENUEDATABASE_SERVER_HOST);

/// Releases the reply of one query when the query has ended; the reply may be gone before.
class ReplyReleaser
{
public:
    explicit ReplyReleaser(QNetworkReply* reply)
        : m_reply(reply)
    {
    }
    ReplyReleaser(const ReplyReleaser&) = delete;
    ReplyReleaser& operator=(const ReplyReleaser&) = delete;
    ~ReplyReleaser()
    {
        if (m_reply)
            m_reply->deleteLater();
    }

    QNetworkReply* operator->() const
    {
        return m_reply;
    }
    QNetworkReply& operator*() const
    {
        return *m_reply;
    }
    QNetworkReply* Get() const
    {
        return m_reply;
    }
    /// Logs a wait that ended with the time-out. Where the reply died or the application quits, nothing
    /// failed.
    void LogTimeout(QLatin1String what, const QUrl& url) const
    {
        if (m_reply && m_reply->isFinished())
            LogFailedRequest(what, url, *m_reply, QStringLiteral("no reply within %1 ms").arg(c_timeout));
    }

private:
    QPointer<QNetworkReply> m_reply;
};

QUrl ServerUrl(const QString& path, const QUrlQuery& query = {})
{
    QUrl url;
    url.setScheme(QStringLiteral("https"));
    url.setHost(c_serverHost, QUrl::DecodedMode);
    if (!query.isEmpty())
        url.setQuery(query);
    url.setPath(path, QUrl::TolerantMode);
    return url;
}

QString ContentType(const QNetworkReply& reply)
{
    return reply.header(QNetworkRequest::ContentTypeHeader).toString();
}

bool IsJsonApi(const QNetworkReply& reply)
{
    return ContentType(reply) == c_jsonApiMediaType;
}

/// The text at the end of \p path below \p object; empty where a member is missing or of another type.
QString TextAt(const QJsonObject& object, std::initializer_list<QLatin1String> path)
{
    QJsonValue value(object);
    for (const QLatin1String member : path)
        value = value.toObject().value(member);
    return value.toString();
}

bool IsResource(const QJsonObject& resource, QLatin1String type)
{
    return resource.value(QLatin1String("type")) == type;
}

/// The identifier of the stored file that a "picture" or "tessra" resource refers to.
QString FileId(const QJsonObject& resource)
{
    return TextAt(
        resource,
        {QLatin1String("relationships"), QLatin1String("file"), QLatin1String("data"), QLatin1String("id")});
}

QString RenditionUrl(const QJsonObject& file, QLatin1String rendition)
{
    return TextAt(file, {QLatin1String("links"), rendition, QLatin1String("href")});
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

/// Entity ids of the users of an "included" array by their resource ids; of several entries with one id the
/// first counts.
QHash<QString, qint64> EditorsById(const QJsonArray& included)
{
    QHash<QString, qint64> editors;
    editors.reserve(included.size());
    for (const QJsonValue value : included) {
        const QJsonObject resource = value.toObject();
        if (!IsResource(resource, QLatin1String("user")))
            continue;
        const QJsonValue id = resource.value(QLatin1String("id"));
        // A number never equals the text that a relationship names.
        if (!id.isString())
            continue;
        const qsizetype known = editors.size();
        qint64& editor = editors[id.toString()];
        // The first user of an id counts.
        if (editors.size() == known)
            continue;
        const QJsonObject attributes = resource.value(QLatin1String("attributes")).toObject();
        editor = attributes.value(QLatin1String("entity_id")).toInt(0);
    }
    return editors;
}

/// Lets equal texts of one reply share their memory. Rooms of one building have name and address in common,
/// other venues their city or a number, and the JSON parser gives each its own copy.
///
/// Remembers only the last text of each slot: a look-up costs the same in every reply.
class TextPool
{
public:
    explicit TextPool(qsizetype venueCount)
        : m_slots(qNextPowerOfTwo(static_cast<quint32>(qBound(c_fewest, venueCount, c_most))))
    {
    }

    QString Shared(const QString& text)
    {
        // Empty texts need no memory, and an empty one must not become a null one, which equals it.
        if (text.isEmpty())
            return text;
        QString& slot = m_slots[qHash(text) & (m_slots.size() - 1)];
        if (slot != text)
            slot = text;
        return slot;
    }

private:
    static constexpr qsizetype c_fewest = 1000;
    static constexpr qsizetype c_most = 65535;

    std::vector<QString> m_slots;
};

Venue ReadVenue(const QJsonObject& element, const CountryCodeTranslator& countries, TextPool& pool)
{
    const QJsonObject attributes = element.value(QLatin1String("attributes")).toObject();
    const QJsonObject address = attributes.value(QLatin1String("address")).toObject();
    const auto text = [&attributes](QLatin1String name) { return attributes.value(name).toString(); };
    const auto sharedText
        = [&attributes, &pool](QLatin1String name) { return pool.Shared(attributes.value(name).toString()); };
    const auto addressText
        = [&address, &pool](QLatin1String name) { return pool.Shared(address.value(name).toString()); };

    Venue venue;
    venue.SetId(attributes.value(QLatin1String("entity_id")).toInt(0));
    venue.SetComplexName(sharedText(QLatin1String("title")));
    venue.SetVenueRoomName(sharedText(QLatin1String("venue_room_name")));
    venue.SetGeneralComment(text(QLatin1String("general_comment")));
    venue.SetStreetAddress(addressText(QLatin1String("address_line1")));
    venue.SetPostalCode(addressText(QLatin1String("postal_code")));
    venue.SetCity(addressText(QLatin1String("locality")));
    const QString countryCode = addressText(QLatin1String("country_code"));
    venue.SetCountryCode(countryCode);
    venue.SetCountry(countries.GetCountry(countryCode));
    venue.SetLocationComment(text(QLatin1String("comment")));
    venue.SetLoadDockStreetAddress(sharedText(QLatin1String("loading_dock_street_address")));
    venue.SetLoadDockComment(text(QLatin1String("load_in_comments")));
    venue.SetClearingOfHouseGrid(
        sharedText(QLatin1String("clearance_of_house_grid_rigging_beams_above_venue_floor")));
    venue.SetRiggingComment(text(QLatin1String("rigging_specialties")));
    venue.SetUploadDate(ReadServerDate(text(QLatin1String("created"))));
    venue.SetEditDate(ReadServerDateTime(text(QLatin1String("changed"))));
    return venue;
}

} // namespace

ConnectorJsonRest::ConnectorJsonRest(QObject* parent)
    : QObject(parent)
    // Deliberate: never deleted. Copies of the connector's results never refer to it, and it is small.
    , m_countryCodeTranslator(new CountryCodeTranslator)
    , m_networkAccessManager(new QNetworkAccessManager(this))
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
    QUrlQuery urlQuery;
    for (const auto& [name, value] : query)
        urlQuery.addQueryItem(name, value);
    const QUrl wanted = ServerUrl(path, urlQuery);
    QNetworkReply* const reply = m_networkAccessManager->get(QNetworkRequest(RequestUrl(wanted)));
    // Which of the queries it is; their other values may be what the user typed.
    RequestTracer::Follow(QLatin1String("Server request"), wanted, reply,
                          {QLatin1String("include"), QLatin1String("filter[entity_id]")});
    return reply;
}

QNetworkReply* ConnectorJsonRest::SendGetUrlRequest(const QString& url) const
{
    const QUrl wanted(url, QUrl::TolerantMode);
    QNetworkReply* const reply = m_networkAccessManager->get(QNetworkRequest(RequestUrl(wanted)));
    RequestTracer::Follow(QLatin1String("Request"), wanted, reply);
    return reply;
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
    QList<std::pair<QString, QString>> query;
    query.reserve(3 * filters.size() + 1);
    for (const auto& [key, value] : std::as_const(filters)) {
        const QString path = key.toLower();
        const QString condition = QStringLiteral("filter[") + path + QStringLiteral("][condition]");
        query.append({condition + QStringLiteral("[path]"), path});
        query.append({condition + QStringLiteral("[operator]"), QStringLiteral("CONTAINS")});
        query.append({condition + QStringLiteral("[value]"), value});
    }
    query.append({QStringLiteral("include"), QStringLiteral("editor")});

    const ReplyReleaser reply(SendGetJsonRequest(c_venuePath, query));
    if (!waitForFinished(reply.Get(), c_timeout))
        return Timeout;
    const QByteArray body = reply->readAll();
    // A body that was cut short or an error page can carry the right media type; only the error tells.
    if (reply->error() != QNetworkReply::NoError || !IsJsonApi(*reply))
        return WrongContentType;
    venues = ProcessVenueEntriesReply(QJsonDocument::fromJson(body).object());
    return Ok;
}

QList<Venue> ConnectorJsonRest::ProcessVenueEntriesReply(const QJsonObject& reply) const
{
    QList<Venue> venues;
    const QJsonArray data = reply.value(QLatin1String("data")).toArray();
    if (data.isEmpty())
        return venues;

    const QHash<QString, qint64> editors = EditorsById(reply.value(QLatin1String("included")).toArray());
    venues.reserve(data.size());
    TextPool pool(data.size());
    // Deliberate: the list is in the reverse order of the server's.
    for (qsizetype index = data.size() - 1; index >= 0; --index) {
        const QJsonObject element = data.at(index).toObject();
        Venue venue = ReadVenue(element, *m_countryCodeTranslator, pool);
        const auto editor = editors.constFind(TextAt(element,
                                                     {QLatin1String("relationships"), QLatin1String("editor"),
                                                      QLatin1String("data"), QLatin1String("id")}));
        if (editor != editors.constEnd())
            venue.SetEditor(*editor);
        venues.append(std::move(venue));
    }
    return venues;
}

QList<User> ConnectorJsonRest::FindUserEntries(QList<std::pair<QString, QString>> /*filters*/)
{
    return {};
}

QList<Picture> ConnectorJsonRest::GetPictureEntries(qint64 venueId)
{
    const QString include = QStringLiteral(
        "from_the_auditorium.file,from_the_stage_into_the_auditorium.file,isometric.file,"
        "stage_left.file,stage_right.file,view_from_the_inside.file,view_from_the_outside.file");
    QJsonArray included;
    if (!QueryIncluded(QLatin1String("Picture query"), include, venueId, included))
        return {};
    return ProcessPictureEntriesReply(included, venueId);
}

QList<Picture> ConnectorJsonRest::ProcessPictureEntriesReply(const QJsonArray& included, qint64 venueId)
{
    QMap<QString, Picture> picturesByFile;
    for (const QJsonValue value : included) {
        const QJsonObject resource = value.toObject();
        if (!IsResource(resource, QLatin1String("picture")))
            continue;
        Picture picture;
        picture.SetId(venueId);
        picture.SetPictureName(TextAt(resource, {QLatin1String("attributes"), QLatin1String("name")}));
        picture.SetUploadDate(TextAt(resource, {QLatin1String("attributes"), QLatin1String("created")}));
        picture.SetAlternativeDescription(
            TextAt(resource,
                   {QLatin1String("relationships"), QLatin1String("file"), QLatin1String("data"),
                    QLatin1String("meta"), QLatin1String("alt")}));
        picturesByFile.insert(FileId(resource), picture);
    }

    const QPointer<ConnectorJsonRest> self(this);
    QList<Picture> pictures;
    for (const QJsonValue value : included) {
        const QJsonObject resource = value.toObject();
        if (!IsResource(resource, QLatin1String("file")))
            continue;
        Picture picture = picturesByFile.value(TextAt(resource, {QLatin1String("id")}));
        const QString path = TextAt(resource, {QLatin1String("attributes"), QLatin1String("url")});
        picture.SetPictureUrl(ServerUrl(path).toString());
        picture.SetPictureUrlSmall(RenditionUrl(resource, QLatin1String("small")));
        picture.SetPictureUrlMedium(RenditionUrl(resource, QLatin1String("medium")));
        picture.SetPictureUrlLarge(RenditionUrl(resource, QLatin1String("large")));
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
    const ReplyReleaser reply(SendGetUrlRequest(url));
    if (!waitForFinished(reply.Get(), c_timeout)) {
        reply.LogTimeout(what, wanted);
        return {};
    }
    const QByteArray body = reply->readAll();
    const QString contentType = ContentType(*reply);
    // Deliberate: the media type alone decides. An error page that is an image counts as one.
    const bool isImage = contentType.startsWith(QLatin1String("image"));
    if (reply->error() != QNetworkReply::NoError)
        LogFailedRequest(what, wanted, *reply);
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
        reply.LogTimeout(what, url);
        return {};
    }
    // Deliberate: whatever came is the file, an error page too. The host judges what it imports.
    if (reply->error() != QNetworkReply::NoError)
        LogFailedRequest(what, url, *reply);
    return reply->readAll();
}

QList<TsFile> ConnectorJsonRest::GetTSFileEntries(qint64 venueId)
{
    QJsonArray included;
    if (!QueryIncluded(QLatin1String("Model file query"), QStringLiteral("tessra.file"), venueId, included))
        return {};
    return ProcessTSFileEntriesReply(included, venueId);
}

QList<TsFile> ConnectorJsonRest::ProcessTSFileEntriesReply(const QJsonArray& included, qint64 venueId)
{
    QMap<QString, TsFile> filesById;
    for (const QJsonValue value : included) {
        const QJsonObject resource = value.toObject();
        if (!IsResource(resource, QLatin1String("tessra")))
            continue;
        QString name = TextAt(resource, {QLatin1String("attributes"), QLatin1String("name")});
        QString uploadDate = TextAt(resource, {QLatin1String("attributes"), QLatin1String("created")});
        QString version = TextAt(resource, {QLatin1String("attributes"), QLatin1String("file_version")});
        TsFile file;
        file.SetId(venueId);
        file.SetFileName(name);
        file.SetUploadDate(uploadDate);
        file.SetTsVersion(version);
        filesById.insert(FileId(resource), file);
    }

    const QPointer<ConnectorJsonRest> self(this);
    QList<TsFile> files;
    for (const QJsonValue value : included) {
        const QJsonObject resource = value.toObject();
        if (!IsResource(resource, QLatin1String("file")))
            continue;
        TsFile file = filesById.value(TextAt(resource, {QLatin1String("id")}));
        QByteArray data = GetBinaryData(
            WithoutBackslashes(TextAt(resource, {QLatin1String("attributes"), QLatin1String("url")})));
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
    const ReplyReleaser reply(
        SendGetJsonRequest(c_venuePath,
                           {{QStringLiteral("include"), include},
                            {QStringLiteral("filter[entity_id]"), QString::number(venueId)}}));
    const QUrl url = reply->request().url();
    if (!waitForFinished(reply.Get(), c_timeout)) {
        reply.LogTimeout(what, url);
        return false;
    }
    const QByteArray body = reply->readAll();
    if (reply->error() != QNetworkReply::NoError) {
        LogFailedRequest(what, url, *reply);
        return false;
    }
    if (!IsJsonApi(*reply)) {
        LogFailedRequest(what, url, *reply,
                         QStringLiteral("the reply is not JSON:API but \"%1\"").arg(ContentType(*reply)));
        return false;
    }
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (!document.isObject())
        LogFailedRequest(what, url, *reply, QStringLiteral("the reply is no JSON object"));
    included = document.object().value(QLatin1String("included")).toArray();
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
