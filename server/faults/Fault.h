#pragma once

#include <QByteArray>
#include <QList>
#include <QRegularExpression>
#include <QString>

#include <optional>
#include <utility>

namespace korvel::Demo {

/// One thing that goes wrong with the answers to some requests. A value, built by a chain of With… members:
/// \code
/// server.AddFault(Fault::On(QStringLiteral("/api/venue")).WithStatus(503).Times(1));
/// server.AddFault(Fault::On(QStringLiteral("filter[title]")).WithDelay(200).WithMediaType("application/json"));
/// \endcode
/// What a fault does not change stays as the honest answer has it. Effects combine as far as they make sense.
class Fault
{
public:
    /// Requests whose path and query, as sent or percent-decoded, contain \p text; empty: every request.
    static Fault On(const QString& text);
    /// Requests whose path and query, as sent, match \p pattern somewhere.
    static Fault OnPattern(const QRegularExpression& pattern);

    /// Only requests to this host name.
    Fault& ForHost(const QString& host);
    /// Only the next \p count matching requests; without it, all of them.
    Fault& Times(int count);
    /// Lets the first \p count matching requests pass unharmed.
    Fault& Skip(int count);

    /// Answers with \p status; a JSON:API error document is the body unless WithBody() says otherwise.
    Fault& WithStatus(int status);
    /// Replaces the body; with an empty one the answer has none.
    Fault& WithBody(const QByteArray& body);
    /// Replaces the media type, for example by "application/vnd.api+json; charset=utf-8".
    Fault& WithMediaType(const QByteArray& mediaType);
    /// Leaves the Content-Type header out.
    Fault& WithoutMediaType();
    /// Sends a second Content-Type header after the right one.
    Fault& WithSecondMediaType(const QByteArray& mediaType);
    Fault& WithHeader(const QByteArray& name, const QByteArray& value);
    /// Sends the client to \p url (status 301, 302, 303, 307 or 308).
    Fault& WithRedirect(const QByteArray& url, int status = 302);

    /// Sends \p bytes, header and all, before the answer, which follows on the same connection.
    Fault& WithEarlyAnswer(const QByteArray& bytes);

    /// Waits before anything is sent.
    Fault& WithDelay(int milliseconds);
    /// Reads the request and never answers, until the client or the server ends.
    Fault& WithoutAnswer();
    /// Sends the header, then nothing, until the client or the server ends.
    Fault& WithSilenceAfterHeader();
    /// Sends \p bytes of the body at a time, every \p milliseconds.
    Fault& WithDrip(qint64 bytes, int milliseconds);
    /// Closes the connection after \p bytes of the body, although Content-Length promises all of it.
    Fault& WithCutAfter(qint64 bytes);
    /// Sends the body chunked, without Content-Length; a cut then ends it without the last chunk.
    Fault& WithChunks();
    /// Resets the connection (TCP RST) instead of answering.
    Fault& WithReset();
    /// Closes the connection instead of answering.
    Fault& WithClose();
    /// Sends \p bytes, header and all, as they are instead of an answer, then closes the connection.
    Fault& WithRawAnswer(const QByteArray& bytes);
    /// Sends the header and \p bytes of the body, then resets the connection.
    Fault& WithResetAfter(qint64 bytes);
    /// Announces gzip and sends bytes that are none.
    Fault& WithBrokenGzip();
    /// Announces gzip and sends a body that grows to \p megabytes of blanks.
    Fault& WithGzipBomb(int megabytes = 200);

    /// Whether this fault speaks of a request with \p target to \p host; counts are not looked at.
    bool Matches(const QString& host, const QByteArray& target) const;

    /// What is to happen, for the server.
    struct Effect
    {
        std::optional<int> status;
        std::optional<QByteArray> body;
        std::optional<QByteArray> mediaType;
        std::optional<QByteArray> rawAnswer;
        QByteArray earlyAnswer;
        QByteArray secondMediaType;
        QList<std::pair<QByteArray, QByteArray>> headers;
        bool noMediaType = false;
        bool noAnswer = false;
        bool silentAfterHeader = false;
        bool chunked = false;
        bool reset = false;
        bool brokenGzip = false;
        int gzipBombMegabytes = 0;
        int delay = 0;
        int dripInterval = 0;
        qint64 dripBytes = 0;
        qint64 cutAfter = -1;
        qint64 resetAfter = -1;
    };
    const Effect& GetEffect() const
    {
        return m_effect;
    }
    int GetSkip() const
    {
        return m_skip;
    }
    /// -1: every time.
    int GetTimes() const
    {
        return m_times;
    }

private:
    QString m_text;
    std::optional<QRegularExpression> m_pattern;
    QString m_host;
    int m_skip = 0;
    int m_times = -1;
    Effect m_effect;
};

} // namespace korvel::Demo
