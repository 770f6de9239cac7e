#include <server/faults/Fault.h>

#include <server/log/RequestLog.h>

namespace korvel::Demo {

Fault Fault::On(const QString& text)
{
    Fault fault;
    fault.m_text = text;
    return fault;
}

Fault Fault::OnPattern(const QRegularExpression& pattern)
{
    Fault fault;
    fault.m_pattern = pattern;
    return fault;
}

Fault& Fault::ForHost(const QString& host)
{
    m_host = host;
    return *this;
}

Fault& Fault::Times(int count)
{
    m_times = count;
    return *this;
}

Fault& Fault::Skip(int count)
{
    m_skip = count;
    return *this;
}

Fault& Fault::WithStatus(int status)
{
    m_effect.status = status;
    return *this;
}

Fault& Fault::WithBody(const QByteArray& body)
{
    m_effect.body = body;
    return *this;
}

Fault& Fault::WithMediaType(const QByteArray& mediaType)
{
    m_effect.mediaType = mediaType;
    return *this;
}

Fault& Fault::WithoutMediaType()
{
    m_effect.noMediaType = true;
    return *this;
}

Fault& Fault::WithSecondMediaType(const QByteArray& mediaType)
{
    m_effect.secondMediaType = mediaType;
    return *this;
}

Fault& Fault::WithHeader(const QByteArray& name, const QByteArray& value)
{
    m_effect.headers.append({name, value});
    return *this;
}

Fault& Fault::WithRedirect(const QByteArray& url, int status)
{
    m_effect.status = status;
    return WithBody(QByteArray()).WithHeader("Location", url);
}

Fault& Fault::WithEarlyAnswer(const QByteArray& bytes)
{
    m_effect.earlyAnswer = bytes;
    return *this;
}

Fault& Fault::WithDelay(int milliseconds)
{
    m_effect.delay = milliseconds;
    return *this;
}

Fault& Fault::WithoutAnswer()
{
    m_effect.noAnswer = true;
    return *this;
}

Fault& Fault::WithSilenceAfterHeader()
{
    m_effect.silentAfterHeader = true;
    return *this;
}

Fault& Fault::WithDrip(qint64 bytes, int milliseconds)
{
    m_effect.dripBytes = bytes;
    m_effect.dripInterval = milliseconds;
    return *this;
}

Fault& Fault::WithCutAfter(qint64 bytes)
{
    m_effect.cutAfter = bytes;
    return *this;
}

Fault& Fault::WithChunks()
{
    m_effect.chunked = true;
    return *this;
}

Fault& Fault::WithReset()
{
    m_effect.reset = true;
    return *this;
}

Fault& Fault::WithClose()
{
    return WithRawAnswer({});
}

Fault& Fault::WithRawAnswer(const QByteArray& bytes)
{
    m_effect.rawAnswer = bytes;
    return *this;
}

Fault& Fault::WithResetAfter(qint64 bytes)
{
    m_effect.resetAfter = bytes;
    return *this;
}

Fault& Fault::WithBrokenGzip()
{
    m_effect.brokenGzip = true;
    return *this;
}

Fault& Fault::WithGzipBomb(int megabytes)
{
    m_effect.gzipBombMegabytes = megabytes;
    return *this;
}

bool Fault::Matches(const QString& host, const QByteArray& target) const
{
    if (!m_host.isEmpty() && m_host.compare(host, Qt::CaseInsensitive) != 0)
        return false;
    return m_pattern.has_value() ? m_pattern->match(QString::fromUtf8(target)).hasMatch()
                                 : TargetContains(target, m_text);
}

} // namespace korvel::Demo
