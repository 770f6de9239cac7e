#include <tools/vdbprobe/checks/ServerCheck.h>

#include <tools/vdbprobe/JsonApiAnswer.h>
#include <tools/vdbprobe/ProbeOptions.h>
#include <tools/vdbprobe/SafeText.h>

#include <data/reading/IncludedReader_p.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Tools {

using namespace Data::VenueDatabase;

namespace {

/// Most venues have neither pictures nor model files; this many are asked before that counts as the answer.
constexpr qsizetype c_venuesToTry = 10;

constexpr QLatin1String c_refusedHint("The server refuses the query: show this to whoever runs it.");

QString CountOf(qsizetype venues)
{
    return venues == 1 ? u"1 venue"_s : u"%1 venues"_s.arg(venues);
}

} // namespace

ServerCheck::ServerCheck(const ProbeOptions& options)
    : m_options(options)
{
}

Outcome ServerCheck::AskForVenues()
{
    m_answer = Ask(SearchQuery({}));
    if (!m_answer.HasSucceeded())
        return Outcome::Failed(m_answer.Reason(m_options.timeout), m_answer.Hint());
    const QString text = u"status %1, %2 bytes"_s.arg(m_answer.status).arg(m_answer.body.size());
    return Outcome::Ok(m_answer.WasRedirected() ? text + u", redirected to "_s + Address(m_answer.url)
                                                : text);
}

Outcome ServerCheck::CheckMediaType()
{
    if (m_answer.contentType == c_jsonApiMediaType)
        return Outcome::Ok(m_answer.contentType);
    const QString type = m_answer.contentType.isEmpty() ? u"no media type"_s
                                                        : u"\"%1\""_s.arg(OneLine(m_answer.contentType));
    const QString words = JsonApiAnswer(m_answer.body).Words();
    const QString hint = m_answer.contentType.startsWith("text/html"_L1)
        ? u"A web page answers, perhaps the sign-in page of a network or a proxy's own."_s
        : u"The module takes no other type, nor one with parameters: the server must be set so."_s;
    return Outcome::Failed(
        u"%1 instead of \"%2\"%3"_s.arg(type, c_jsonApiMediaType,
                                        words.isEmpty() ? QString() : u"; the answer says: %1"_s.arg(words)),
        hint);
}

Outcome ServerCheck::ReadVenues()
{
    const JsonApiAnswer answer(m_answer.body);
    if (!answer.ParseError().isEmpty()) {
        return Outcome::Failed(u"the body is not a JSON object: %1"_s.arg(answer.ParseError()),
                               u"The answer was damaged on the way, or the server is at fault."_s);
    }
    m_venues = m_connector.ProcessVenueEntriesReply(answer.Document());
    for (const Venue& venue : std::as_const(m_venues))
        if (venue.GetId() != 0)
            m_venueIds.append(venue.GetId());
    return VenuesOutcome(answer);
}

Outcome ServerCheck::VenuesOutcome(const JsonApiAnswer& answer) const
{
    if (m_venues.isEmpty()) {
        if (const QString words = answer.Words(); !words.isEmpty())
            return Outcome::Failed(u"errors instead of venues: %1"_s.arg(words), c_refusedHint);
        return Outcome::Failed(u"the server knows no venue"_s,
                               u"Is this the right server? Its data may be missing."_s);
    }
    QStringList flaws;
    QStringList hints;
    const auto add = [&flaws, &hints](const QString& flaw, const QString& hint) {
        if (!flaw.isEmpty()) {
            flaws.append(flaw);
            hints.append(hint);
        }
    };
    add(answer.UnusableIds(),
        u"The module reads \"entity_id\" only as a whole number. Without it a venue has neither "
        "pictures nor model files."_s);
    add(answer.HasNextPage() ? u"there is a next page (\"links\", \"next\")"_s : QString(),
        u"The module reads one answer only, so the venues of later pages are never found: the "
        "server must send all in one."_s);
    add(answer.UnusableTypes({"user"_L1}),
        u"Resources of types that the module does not know are not read: venues have no "
        "editor."_s);
    add(answer.UnusableDates(),
        u"The module reads \"created\" only as 2026-01-31 and \"changed\" only as "
        "2026-01-31T10:20:30+00:00; other dates stay empty."_s);
    const QString count = CountOf(m_venues.size());
    if (flaws.isEmpty())
        return Outcome::Ok(count);
    const QString text = u"%1, but %2"_s.arg(count, flaws.join("; "_L1));
    const QString hint = hints.join(QLatin1Char(' '));
    return m_venueIds.isEmpty() ? Outcome::Failed(text, hint) : Outcome::Flawed(text, hint);
}

Outcome ServerCheck::LoadPicture()
{
    Outcome outcome;
    const auto stored = FindStored(c_pictureInclude, "picture"_L1, u"pictures"_s, outcome);
    if (!stored)
        return outcome;
    const QStringList urls = m_connector.PictureUrls(stored->included, stored->venueId);
    const FetchResult picture = m_connector.Fetch(QUrl(urls.first()), m_options.timeout);
    const QString found = u"%1 at venue %2; "_s.arg(urls.size()).arg(stored->venueId);
    if (picture.HasSucceeded() && !picture.contentType.startsWith("image"_L1)) {
        return Outcome::Failed(
            found
                + u"%1 is not an image but \"%2\""_s.arg(Address(picture.url), OneLine(picture.contentType)),
            u"The server, or a filter on the way, answers with something else."_s);
    }
    return DownloadOutcome(picture, found);
}

Outcome ServerCheck::LoadModelFile()
{
    Outcome outcome;
    const auto stored = FindStored(c_modelFileInclude, "tessra"_L1, u"model files"_s, outcome);
    if (!stored)
        return outcome;
    const auto files = IncludedReader(stored->included, stored->venueId).ModelFiles();
    QString path = files.first().path;
    return DownloadOutcome(
        m_connector.Fetch(m_options.Url(path.remove(QLatin1Char('\\'))), m_options.timeout),
        u"%1 at venue %2; "_s.arg(files.size()).arg(stored->venueId));
}

Outcome ServerCheck::DownloadOutcome(const FetchResult& file, const QString& found) const
{
    if (!file.HasSucceeded())
        return Outcome::Failed(found + file.Reason(m_options.timeout), file.Hint());
    if (file.body.isEmpty()) {
        return Outcome::Failed(found + u"%1 is empty"_s.arg(Address(file.url)),
                               u"The server has lost the file."_s);
    }
    const QString type = file.contentType.isEmpty() ? u"no media type"_s : OneLine(file.contentType);
    return Outcome::Ok(found + u"%1, %2, %3 bytes"_s.arg(Address(file.url), type).arg(file.body.size()));
}

Outcome ServerCheck::SearchTitle()
{
    const auto titled = std::find_if(m_venues.cbegin(), m_venues.cend(),
                                     [](const Venue& venue) { return !venue.GetComplexName().isEmpty(); });
    if (titled == m_venues.cend())
        return Outcome::Ok(u"no venue has a title: nothing to search for"_s);
    const QString title = titled->GetComplexName();
    const QString name = u"title \"%1\": "_s.arg(OneLine(title));
    const FetchResult result = Ask(SearchQuery({{u"title"_s, title}}));
    if (const auto failure = FailureOf(result, name))
        return *failure;

    const QList<Venue> found = m_connector.ProcessVenueEntriesReply(JsonApiAnswer(result.body).Document());
    const qsizetype right = std::count_if(found.cbegin(), found.cend(), [&title](const Venue& venue) {
        return venue.GetComplexName().contains(title, Qt::CaseInsensitive);
    });
    if (right == 0) {
        return Outcome::Failed(
            name + u"%1, none of that title"_s.arg(CountOf(found.size())),
            title.contains(QLatin1Char('+'))
                ? u"The server reads \"+\" as a blank, as many do: users search for the part "
                  "before or behind it."_s
                : u"The server does not search as the module asks: it must know the operator "
                  "CONTAINS of \"filter\", without regard to case."_s);
    }
    // A server may well find more, for example without regard to accents, but not everything.
    if (right < found.size() && found.size() >= m_venues.size()) {
        return Outcome::Failed(
            name + u"%1, %2 of them without it"_s.arg(CountOf(found.size())).arg(found.size() - right),
            u"The server ignores \"filter\": every search of a user brings everything."_s);
    }
    return Outcome::Ok(name + CountOf(found.size()));
}

FetchResult ServerCheck::Ask(const QueryPairs& query) const
{
    return m_connector.Fetch(m_options.Url(c_venuePath, query), m_options.timeout);
}

std::optional<Outcome> ServerCheck::FailureOf(const FetchResult& result, const QString& name) const
{
    if (!result.HasSucceeded())
        return Outcome::Failed(name + result.Reason(m_options.timeout), result.Hint());
    if (result.contentType != c_jsonApiMediaType) {
        return Outcome::Failed(name + u"the media type is \"%1\""_s.arg(OneLine(result.contentType)),
                               u"The server must answer with \"%1\"."_s.arg(c_jsonApiMediaType));
    }
    const JsonApiAnswer answer(result.body);
    if (!answer.ParseError().isEmpty()) {
        return Outcome::Failed(name + u"the body is not a JSON object"_s,
                               u"The answer was damaged on the way, or the server is at fault."_s);
    }
    if (const QString words = answer.Words(); !words.isEmpty())
        return Outcome::Failed(name + u"errors instead of venues: %1"_s.arg(words), c_refusedHint);
    return std::nullopt;
}

std::optional<ServerCheck::Stored> ServerCheck::FindStored(QLatin1String include, QLatin1String type,
                                                           const QString& what, Outcome& outcome) const
{
    const QList<qint64> candidates = m_venueIds.first(qMin(c_venuesToTry, m_venueIds.size()));
    const QString name = u"list of %1: "_s.arg(what);
    const QLatin1String file("file");
    for (const qint64 candidate : candidates) {
        const FetchResult list = Ask(IncludedQuery(include, candidate));
        if (const auto failure = FailureOf(list, name)) {
            outcome = *failure;
            return std::nullopt;
        }
        const JsonApiAnswer answer(list.body);
        if (const QString types = answer.UnusableTypes({type, file}); !types.isEmpty()) {
            outcome = Outcome::Failed(name + types,
                                      u"The module reads only resources of the types that it "
                                      "knows: what is there is not shown, or without names."_s);
            return std::nullopt;
        }
        const QJsonArray included = answer.Included();
        const bool hasFile = std::any_of(included.cbegin(), included.cend(), [file](const QJsonValue& value) {
            return value.toObject().value("type"_L1) == file;
        });
        if (hasFile)
            return Stored{included, candidate};
    }
    outcome
        = Outcome::Ok(u"the first %1 venues have no %2: nothing to load"_s.arg(candidates.size()).arg(what));
    return std::nullopt;
}

} // namespace korvel::Tools
