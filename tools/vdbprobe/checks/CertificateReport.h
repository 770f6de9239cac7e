#pragma once

#include <QList>
#include <QSslCertificate>
#include <QSslError>
#include <QString>
#include <QStringList>

namespace korvel::Tools {

/// What a TLS handshake showed of a server's certificates, and what is wrong with them.
class CertificateReport
{
public:
    /// \p chain as the server sent it, its own certificate first, and the \p errors that were found when it
    /// was checked for \p host.
    CertificateReport(const QList<QSslCertificate>& chain, const QList<QSslError>& errors,
                      const QString& host);

    bool HasErrors() const
    {
        return !m_errors.isEmpty();
    }
    /// Issuer and end of the server's own certificate.
    QString Summary() const;
    /// One line for each certificate.
    QStringList Details() const;
    /// The errors in words, with names and dates of the certificates concerned.
    QString Reason() const;
    /// What to do about the errors; without errors, about a certificate that ends in a few days.
    QString Hint() const;

private:
    QString ReasonOf(const QSslError& error) const;
    QString DateReason(const QSslError& error) const;
    QString NamesReason() const;
    QString IssuerHint() const;

    QList<QSslCertificate> m_chain;
    QList<QSslError> m_errors;
    QString m_host;
};

} // namespace korvel::Tools
