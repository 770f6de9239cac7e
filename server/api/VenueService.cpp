#include <server/api/VenueService.h>

#include <server/api/JsonApiDocument.h>
#include <server/api/VenueQuery.h>

#include <QMutexLocker>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

Answer JsonAnswer(int status, const QByteArray& body)
{
    return {.status = status,
            .mediaType = JsonApiDocument::c_mediaType,
            .body = body,
            .headers = {{"Cache-Control", "must-revalidate, no-cache, private"}}};
}

Answer ErrorAnswer(int status, const QString& detail)
{
    return JsonAnswer(status, JsonApiDocument::Error(status, detail));
}

Answer NotFound(const QString& path)
{
    return ErrorAnswer(404, u"There is nothing at \"%1\"."_s.arg(path));
}

} // namespace

VenueService::VenueService(const QString& host, PictureSource pictures)
    : m_host(host)
    , m_pictures(std::move(pictures))
    , m_catalogue(std::make_shared<const VenueCatalogue>())
{
}

void VenueService::SetCatalogue(const VenueCatalogue& catalogue)
{
    const auto next = std::make_shared<const VenueCatalogue>(catalogue);
    const QMutexLocker lock(&m_mutex);
    m_catalogue = next;
}

std::shared_ptr<const VenueCatalogue> VenueService::Catalogue() const
{
    const QMutexLocker lock(&m_mutex);
    return m_catalogue;
}

Answer VenueService::AnswerTo(const Request& request) const
{
    if (request.method != "GET" && request.method != "HEAD") {
        Answer answer = ErrorAnswer(405, u"Only GET and HEAD are served."_s);
        answer.headers.emplaceBack("Allow", "GET, HEAD");
        return answer;
    }
    static const QString c_pictures = u"/files/pictures/"_s;
    static const QString c_models = u"/files/models/"_s;
    if (request.path == "/api/venue"_L1)
        return AnswerVenues(request);
    if (request.path.startsWith(c_pictures))
        return AnswerPicture(request.path.mid(c_pictures.size()));
    if (request.path.startsWith(c_models))
        return AnswerModelFile(request.path.mid(c_models.size()));
    return NotFound(request.path);
}

Answer VenueService::AnswerVenues(const Request& request) const
{
    const VenueQuery query(request.query);
    if (!query.Error().isEmpty())
        return ErrorAnswer(400, query.Error());
    const auto catalogue = Catalogue();
    JsonApiDocument document(m_host, request.target, query.Includes());
    for (const VenueRecord& venue : catalogue->Venues())
        if (query.Matches(venue))
            document.AddVenue(venue, catalogue->FindUser(venue.editor));
    return JsonAnswer(200, document.Finish());
}

Answer VenueService::AnswerPicture(const QString& file) const
{
    const QString stem = file.endsWith(".jpg"_L1) ? file.chopped(4) : QString();
    const QString rendition = stem.section(QLatin1Char('-'), -1);
    const auto catalogue = Catalogue();
    const VenueRecord* venue = nullptr;
    const PictureRecord* picture
        = catalogue->FindPicture(stem.chopped(qMin(stem.size(), rendition.size() + 1)), &venue);
    const QSize size = VenuePicture::RenditionSize(rendition);
    const QByteArray bytes
        = picture == nullptr || size.isEmpty() ? QByteArray() : m_pictures(*venue, *picture, size);
    if (bytes.isEmpty())
        return NotFound(u"/files/pictures/"_s + file);
    const bool isPng = bytes.startsWith("\x89PNG");
    return {.status = 200,
            .mediaType = isPng ? "image/png"_ba : "image/jpeg"_ba,
            .body = bytes,
            .headers = {{"Cache-Control", "max-age=1209600"}}};
}

Answer VenueService::AnswerModelFile(const QString& file) const
{
    const auto catalogue = Catalogue();
    const ModelFileRecord* model = catalogue->FindModelFile(file);
    if (model == nullptr || model->content.isNull())
        return NotFound(u"/files/models/"_s + file);
    return {.status = 200, .mediaType = "application/octet-stream", .body = model->content, .headers = {}};
}

} // namespace korvel::Demo
