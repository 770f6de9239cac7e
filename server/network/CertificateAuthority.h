#pragma once

#include <server/faults/CertificateKind.h>

#include <QByteArray>
#include <QSslCertificate>
#include <QSslKey>
#include <QStringList>

#include <memory>

// OpenSSL's own opaque types; its headers stay in the sources.
using EVP_PKEY = struct evp_pkey_st;
using X509 = struct x509_st;

namespace korvel::Demo {

/// A server certificate with its private key, in memory only.
struct ServerIdentity
{
    QList<QSslCertificate> chain; ///< what the server sends, its own certificate first
    QSslKey key;
};

/// A throw-away certificate authority, made anew by every construction (EC P-256, valid for two days).
///
/// No key ever leaves the memory of the process. Const members may be called from several threads.
class CertificateAuthority
{
public:
    CertificateAuthority();

    /// The authority's own certificate, for a client's list of trusted authorities.
    QSslCertificate Certificate() const;
    /// The same certificate as PEM text, for example for `curl --cacert`.
    QByteArray Pem() const;

    /// A new server certificate for \p hosts, "localhost" and 127.0.0.1, with the defect that \p kind names.
    /// Never empty.
    ServerIdentity Issue(const QStringList& hosts, CertificateKind kind = CertificateKind::Good) const;

private:
    /// The same as OpenSSL knows it, which can sign.
    struct Signer
    {
        std::shared_ptr<X509> certificate;
        std::shared_ptr<EVP_PKEY> key;
    };

    /// An authority that \p issuer has signed or, without one, itself, valid until \p lastSecond from now.
    static Signer MakeAuthority(const QByteArray& commonName, long lastSecond,
                                const Signer* issuer = nullptr);

    Signer m_authority;
    Signer m_unknownAuthority;
    std::shared_ptr<EVP_PKEY> m_serverKey;
};

} // namespace korvel::Demo
