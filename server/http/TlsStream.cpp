#include <server/http/TlsStream.h>

#include <poll.h>

#include <utility>

namespace korvel::Demo {

namespace {

/// Longer request lines are left to httplib, which refuses them.
constexpr qsizetype c_longestLine = 64LL * 1024;
constexpr int c_ioTimeout = 600 * 1000;

bool Poll(int socket, short events, int milliseconds)
{
    pollfd descriptor{.fd = socket, .events = events, .revents = 0};
    return poll(&descriptor, 1, milliseconds) > 0;
}

} // namespace

TlsStream::TlsStream(SSL* ssl, int socket, std::function<void(qint64)> onReceived)
    : m_ssl(ssl)
    , m_socket(socket)
    , m_onReceived(std::move(onReceived))
{
}

bool TlsStream::ReadRequestLine(int milliseconds)
{
    if (m_buffer.isEmpty() && SSL_pending(m_ssl) == 0 && !Poll(m_socket, POLLIN, milliseconds)) {
        return false;
    }
    while (!m_buffer.contains('\n') && m_buffer.size() < c_longestLine) {
        if (!Fill()) {
            return false;
        }
    }
    const qsizetype end = m_buffer.indexOf('\n');
    const qsizetype begin = m_buffer.indexOf(' ') + 1;
    const qsizetype length = m_buffer.lastIndexOf(' ', end) - begin;
    m_target.clear();
    if (end > 0 && begin > 0 && length > 0) {
        m_target = m_buffer.mid(begin, length);
        const qsizetype mark = m_target.indexOf('?') + 1;
        m_buffer.replace(begin, length, m_target.left(mark) + m_target.mid(mark).replace("?", "%3F"));
    }
    return true;
}

bool TlsStream::IsPeerGone() const
{
    return Poll(m_socket, POLLRDHUP, 0);
}

bool TlsStream::is_readable() const
{
    return !m_buffer.isEmpty() || SSL_pending(m_ssl) > 0 || Poll(m_socket, POLLIN, c_ioTimeout);
}

bool TlsStream::is_writable() const
{
    return !m_failed && Poll(m_socket, POLLOUT, c_ioTimeout);
}

ssize_t TlsStream::read(char* data, size_t size)
{
    if (m_buffer.isEmpty() && !Fill()) {
        return -1;
    }
    const size_t count = std::min(size, static_cast<size_t>(m_buffer.size()));
    std::copy_n(m_buffer.cbegin(), count, data);
    m_buffer.remove(0, static_cast<qsizetype>(count));
    return static_cast<ssize_t>(count);
}

ssize_t TlsStream::write(const char* data, size_t size)
{
    size_t written = 0;
    if (m_failed || (size > 0 && SSL_write_ex(m_ssl, data, size, &written) != 1)) {
        m_failed = true;
        return -1;
    }
    return static_cast<ssize_t>(written);
}

void TlsStream::get_remote_ip_and_port(std::string& ip, int& port) const
{
    ip = "127.0.0.1";
    port = 0;
}

void TlsStream::get_local_ip_and_port(std::string& ip, int& port) const
{
    ip = "127.0.0.1";
    port = 443;
}

socket_t TlsStream::socket() const
{
    return m_socket;
}

bool TlsStream::Fill()
{
    char data[16 * 1024];
    size_t count = 0;
    if (SSL_read_ex(m_ssl, data, sizeof data, &count) != 1) {
        return false;
    }
    m_buffer.append(data, static_cast<qsizetype>(count));
    m_onReceived(static_cast<qint64>(count));
    return true;
}

} // namespace korvel::Demo
