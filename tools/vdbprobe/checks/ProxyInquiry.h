#pragma once

#include <QByteArray>
#include <QNetworkProxy>
#include <QString>
#include <QStringList>

namespace korvel::Tools {

/// Asks an HTTP proxy for a tunnel by hand and tells what it said, which Qt's own errors do not.
///
/// The proxy's password goes out only where the proxy asks for it in the form Basic.
class ProxyInquiry
{
public:
    /// Asks \p proxy for a tunnel to \p host and \p port. Blocks for at most \p timeout milliseconds, twice
    /// where a password is asked for. The tunnel is closed at once.
    ProxyInquiry(const QNetworkProxy& proxy, const QString& host, quint16 port, int timeout);

    /// What is wrong with the answer, and what the user may do; both empty when the tunnel opened.
    QString Reason() const;
    QString Hint() const;

private:
    void Ask(const QByteArray& credentials, int timeout);
    void ReadStatus(const QByteArray& header);
    QString PasswordHint() const;
    bool IsProxy() const;

    QNetworkProxy m_proxy;
    QByteArray m_target; ///< host and port
    QByteArray m_answer; ///< the beginning of whatever came
    bool m_isConnected = false;
    bool m_isClosed = false;
    int m_status = 0; ///< 0: no HTTP
    QString m_words; ///< that stand beside the status
    QStringList m_challenges; ///< for a password, as the proxy words them
};

} // namespace korvel::Tools
