#include <tools/vdbprobe/ServerCheck.h>

#include <tools/vdbprobe/JsonApiAnswer.h>
#include <tools/vdbprobe/ProbeOptions.h>
#include <tools/vdbprobe/SafeText.h>

#include <data/IncludedReader_p.h>

#include <algorithm>

namespace korvel::Tools {

using namespace Data::VenueDatabase;

namespace {

/// Most venues have neither pictures nor model files; this many are asked before that counts as the answer.
constexpr qsizetype c_venuesToTry = 10;

constexpr QLatin1String c_refusedHint("The server refuses the query: show this to whoever runs it.");

QString CountOf(qsizetype venues)
{
    return venues == 1 ? QStringLiteral("1 venue") : QStringLiteral("%1 venues").arg(venues);
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
    const QString text = QStringLiteral("status %1, %2 bytes").arg(m_answer.status).arg(m_answer.body.size());
    return Outcome::Ok(
        m_answer.WasRedirected() ? text + QStringLiteral(", redirected to ") + Address(m_answer.url) : text);
}

Outcome ServerCheck::CheckMediaType()
{
    if (m_answer.contentType == c_jsonApiMediaType)
        return Outcome::Ok(m_answer.contentType);
    const QString type = m_answer.contentType.isEmpty()
        ? QStringLiteral("no media type")
        : QStringLiteral("\"%1\"").arg(OneLine(m_answer.contentType));
    const QString words = JsonApiAnswer(m_answer.body).Words();
    const QString hint = m_answer.contentType.startsWith(QLatin1String("text/html"))
        ? QStringLiteral("A web page answers, perhaps the sign-in page of a network or a proxy's own.")
        : QStringLiteral(
            "The module takes no other type, nor one with parameters: the server must be set so.");
    return Outcome::Failed(
        QStringLiteral("%1 instead of \"%2\"%3")
            .arg(type, c_jsonApiMediaType,
                 words.isEmpty() ? QString() : QStringLiteral("; the answer says: %1").arg(words)),
        hint);
}

Outcome ServerCheck::ReadVenues()
{
    const JsonApiAnswer answer(m_answer.body);
    if (!answer.ParseError().isEmpty()) {
        return Outcome::Failed(
            QStringLiteral("the body is no JSON object: %1").arg(answer.ParseError()),
            QStringLiteral("The answer was damaged on the way, or the server is at fault."));
    }
    m_venues = m_connector.ProcessVenueEntriesReply(answer.Document());
    for (const Venue& venue : std::as_const(m_venues)) {
        if (venue.GetId() != 0)
            m_venueIds.append(venue.GetId());
    }
    return VenuesOutcome(answer);
}

Outcome ServerCheck::VenuesOutcome(const JsonApiAnswer& answer) const
{
    if (m_venues.isEmpty()) {
        if (const QString words = answer.Words(); !words.isEmpty())
            return Outcome::Failed(QStringLiteral("errors instead of venues: %1").arg(words), c_refusedHint);
        return Outcome::Failed(QStringLiteral("the server knows no venue"),
                               QStringLiteral("Is this the right server? Its data may be missing."));
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
        QStringLiteral(
            "The module reads \"entity_id\" only as a whole number. Without it a venue has neither "
            "pictures nor model files."));
    add(answer.HasNextPage() ? QStringLiteral("there is a next page (\"links\", \"next\")") : QString(),
        QStringLiteral("The module reads one answer only, so the venues of later pages are never found: the "
                       "server must send all in one."));
    add(answer.UnusableTypes({QLatin1String("user")}),
        QStringLiteral("Resources of types that the module does not know are not read: venues have no "
                       "editor."));
    add(answer.UnusableDates(),
        QStringLiteral("The module reads \"created\" only as 2026-01-31 and \"changed\" only as "
                       "2026-01-31T10:20:30+00:00; other dates stay empty."));
    const QString count = CountOf(m_venues.size());
    if (flaws.isEmpty())
        return Outcome::Ok(count);
    const QString text = QStringLiteral("%1, but %2").arg(count, flaws.join(QLatin1String("; ")));
    const QString hint = hints.join(QLatin1Char(' '));
    return m_venueIds.isEmpty() ? Outcome::Failed(text, hint) : Outcome::Flawed(text, hint);
}

Outcome ServerCheck::LoadPicture()
{
    Outcome outcome;
    const auto stored
        = FindStored(c_pictureInclude, QLatin1String("picture"), QStringLiteral("pictures"), outcome);
    if (!stored)
        return outcome;
    const QStringList urls = m_connector.PictureUrls(stored->included, stored->venueId);
    const FetchResult picture = m_connector.Fetch(QUrl(urls.first()), m_options.timeout);
    const QString found = QStringLiteral("%1 at venue %2; ").arg(urls.size()).arg(stored->venueId);
    if (picture.HasSucceeded() && !picture.contentType.startsWith(QLatin1String("image"))) {
        return Outcome::Failed(
            found
                + QStringLiteral("%1 is no image but \"%2\"")
                      .arg(Address(picture.url), OneLine(picture.contentType)),
            QStringLiteral("The server, or a filter on the way, answers with something else."));
    }
    return DownloadOutcome(picture, found);
}

Outcome ServerCheck::LoadModelFile()
{
    Outcome outcome;
    const auto stored
        = FindStored(c_modelFileInclude, QLatin1String("tessra"), QStringLiteral("model files"), outcome);
    if (!stored)
        return outcome;
    const auto files = IncludedReader(stored->included, stored->venueId).ModelFiles();
    QString path = files.first().path;
    return DownloadOutcome(
        m_connector.Fetch(m_options.Url(path.remove(QLatin1Char('\\'))), m_options.timeout),
        QStringLiteral("%1 at venue %2; ").arg(files.size()).arg(stored->venueId));
}

Outcome ServerCheck::DownloadOutcome(const FetchResult& file, const QString& found) const
{
    if (!file.HasSucceeded())
        return Outcome::Failed(found + file.Reason(m_options.timeout), file.Hint());
    if (file.body.isEmpty()) {
        return Outcome::Failed(found + QStringLiteral("%1 is empty").arg(Address(file.url)),
                               QStringLiteral("The server has lost the file."));
    }
    const QString type
        = file.contentType.isEmpty() ? QStringLiteral("no media type") : OneLine(file.contentType);
    return Outcome::Ok(
        found + QStringLiteral("%1, %2, %3 bytes").arg(Address(file.url), type).arg(file.body.size()));
}

Outcome ServerCheck::SearchTitle()
{
    const auto titled = std::find_if(m_venues.cbegin(), m_venues.cend(),
                                     [](const Venue& venue) { return !venue.GetComplexName().isEmpty(); });
    if (titled == m_venues.cend())
        return Outcome::Ok(QStringLiteral("no venue has a title: nothing to search for"));
    const QString title = titled->GetComplexName();
    const QString name = QStringLiteral("title \"%1\": ").arg(OneLine(title));
    const FetchResult result = Ask(SearchQuery({{QStringLiteral("title"), title}}));
    if (const auto failure = FailureOf(result, name))
        return *failure;

    const QList<Venue> found = m_connector.ProcessVenueEntriesReply(JsonApiAnswer(result.body).Document());
    const qsizetype right = std::count_if(found.cbegin(), found.cend(), [&title](const Venue& venue) {
        return venue.GetComplexName().contains(title, Qt::CaseInsensitive);
    });
    if (right == 0) {
        return Outcome::Failed(
            name + QStringLiteral("%1, none of that title").arg(CountOf(found.size())),
            title.contains(QLatin1Char('+'))
                ? QStringLiteral("The server reads \"+\" as a blank, as many do: users search for the part "
                                 "before or behind it.")
                : QStringLiteral("The server does not search as the module asks: it must know the operator "
                                 "CONTAINS of \"filter\", without regard to case."));
    }
    // A server may well find more, for example without regard to accents, but not everything.
    if (right < found.size() && found.size() >= m_venues.size()) {
        return Outcome::Failed(
            name
                + QStringLiteral("%1, %2 of them without it")
                      .arg(CountOf(found.size()))
                      .arg(found.size() - right),
            QStringLiteral("The server ignores \"filter\": every search of a user brings everything."));
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
        return Outcome::Failed(
            name + QStringLiteral("the media type is \"%1\"").arg(OneLine(result.contentType)),
            QStringLiteral("The server must answer with \"%1\".").arg(c_jsonApiMediaType));
    }
    const JsonApiAnswer answer(result.body);
    if (!answer.ParseError().isEmpty()) {
        return Outcome::Failed(
            name + QStringLiteral("the body is no JSON object"),
            QStringLiteral("The answer was damaged on the way, or the server is at fault."));
    }
    if (const QString words = answer.Words(); !words.isEmpty()) {
        return Outcome::Failed(name + QStringLiteral("errors instead of venues: %1").arg(words),
                               c_refusedHint);
    }
    return std::nullopt;
}

std::optional<ServerCheck::Stored> ServerCheck::FindStored(QLatin1String include, QLatin1String type,
                                                           const QString& what, Outcome& outcome) const
{
    const QList<qint64> candidates = m_venueIds.first(qMin(c_venuesToTry, m_venueIds.size()));
    const QString name = QStringLiteral("list of %1: ").arg(what);
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
                                      QStringLiteral("The module reads only resources of the types that it "
                                                     "knows: what is there is not shown, or without names."));
            return std::nullopt;
        }
        const QJsonArray included = answer.Included();
        const bool hasFile = std::any_of(included.cbegin(), included.cend(), [file](const QJsonValue& value) {
            return value.toObject().value(QLatin1String("type")) == file;
        });
        if (hasFile)
            return Stored{included, candidate};
    }
    outcome = Outcome::Ok(
        QStringLiteral("the first %1 venues have no %2: nothing to load").arg(candidates.size()).arg(what));
    return std::nullopt;
}

} // namespace korvel::Tools
