#pragma once

#include <QByteArray>

#include <httplib.h>

#include <functional>

namespace korvel::Demo {

/// The bytes of one accepted TLS connection, for httplib's request parser. Used by one thread.
class TlsStream : public httplib::Stream
{
public:
    /// \p ssl must outlive the stream; its handshake is done. \p onReceived hears of the number of bytes
    /// whenever some arrived.
    TlsStream(SSL* ssl, int socket, std::function<void(qint64)> onReceived);

    /// Waits at most \p milliseconds for the next request and reads its first line. False when none came.
    ///
    /// httplib takes a request whose query holds a question mark for a bad one; such marks are escaped before
    /// it sees them. Target() keeps what was sent.
    bool ReadRequestLine(int milliseconds);
    /// Path and query of the request read last, as sent.
    const QByteArray& Target() const
    {
        return m_target;
    }

    /// From now on nothing is sent any more, and whatever tries learns of a failure.
    void FailWrites()
    {
        m_failed = true;
    }
    /// True after FailWrites() or when sending failed by itself.
    bool Failed() const
    {
        return m_failed;
    }
    /// Lets the connection end with the answer that is being given.
    void CloseAfterAnswer()
    {
        m_closeAfterAnswer = true;
    }
    bool ClosesAfterAnswer() const
    {
        return m_closeAfterAnswer;
    }
    /// True when the other end has closed the connection or sends no more.
    bool IsPeerGone() const;

    bool is_readable() const override;
    bool is_writable() const override;
    ssize_t read(char* data, size_t size) override;
    ssize_t write(const char* data, size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;
    socket_t socket() const override;

private:
    bool Fill();

    SSL* m_ssl = nullptr;
    int m_socket = -1;
    std::function<void(qint64)> m_onReceived;
    QByteArray m_buffer;
    QByteArray m_target;
    bool m_failed = false;
    bool m_closeAfterAnswer = false;
};

} // namespace korvel::Demo
