#include <server/network/CertificateAuthority.h>

#include <QRandomGenerator>

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

constexpr long c_daySeconds = 24L * 60L * 60L;

std::shared_ptr<EVP_PKEY> MakeKey()
{
    return {EVP_EC_gen("P-256"), EVP_PKEY_free};
}

void AddExtension(X509* certificate, X509* issuer, int nid, const QByteArray& value)
{
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, &context, nid, value.constData());
    Q_ASSERT(extension != nullptr);
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

std::shared_ptr<X509> MakeCertificate(EVP_PKEY* key, const QByteArray& commonName, long firstSecond,
                                      long lastSecond)
{
    std::shared_ptr<X509> certificate(X509_new(), X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    // A fresh number each time: clients refuse two certificates of one issuer that share theirs.
    ASN1_INTEGER_set_uint64(X509_get_serialNumber(certificate.get()),
                            QRandomGenerator::global()->generate64() >> 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), firstSecond);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), lastSecond);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME* name = X509_get_subject_name(certificate.get());
    const auto add = [name](const char* field, const QByteArray& text) {
        X509_NAME_add_entry_by_txt(name, field, MBSTRING_UTF8,
                                   reinterpret_cast<const unsigned char*>(text.constData()),
                                   static_cast<int>(text.size()), -1, 0);
    };
    add("O", "Venue server of this machine");
    // A common name may have 64 characters at most; the host names that count are the alternative names.
    add("CN", commonName.left(64));
    return certificate;
}

/// The words with a number behind them: a client that trusts several authorities of one name tries only one.
QByteArray UniqueName(const QByteArray& words)
{
    return words + ' ' + QByteArray::number(QRandomGenerator::global()->generate(), 16);
}

/// The PEM text that \p write gives to the memory passed.
template <typename Write> QByteArray PemOf(const Write& write)
{
    const std::unique_ptr<BIO, decltype(&BIO_free)> memory(BIO_new(BIO_s_mem()), BIO_free);
    write(memory.get());
    char* data = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &data);
    return {data, size};
}

QByteArray PemOf(X509* certificate)
{
    return PemOf([certificate](BIO* memory) { PEM_write_bio_X509(memory, certificate); });
}

QByteArray PemOf(EVP_PKEY* key)
{
    return PemOf(
        [key](BIO* memory) { PEM_write_bio_PrivateKey(memory, key, nullptr, nullptr, 0, nullptr, nullptr); });
}

} // namespace

CertificateAuthority::CertificateAuthority()
    : m_authority(MakeAuthority(UniqueName("Throw-away venue server authority"), 2 * c_daySeconds))
    , m_unknownAuthority(MakeAuthority("Authority that nobody trusts", 2 * c_daySeconds))
    , m_serverKey(MakeKey())
{
}

CertificateAuthority::Signer CertificateAuthority::MakeAuthority(const QByteArray& commonName,
                                                                 long lastSecond, const Signer* issuer)
{
    Signer authority;
    authority.key = MakeKey();
    authority.certificate = MakeCertificate(authority.key.get(), commonName, -10 * c_daySeconds, lastSecond);
    const Signer& signer = issuer == nullptr ? authority : *issuer;
    X509* certificate = authority.certificate.get();
    X509_set_issuer_name(certificate, X509_get_subject_name(signer.certificate.get()));
    AddExtension(certificate, signer.certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
    AddExtension(certificate, signer.certificate.get(), NID_key_usage, "critical,keyCertSign,cRLSign");
    AddExtension(certificate, signer.certificate.get(), NID_subject_key_identifier, "hash");
    X509_sign(certificate, signer.key.get(), EVP_sha256());
    return authority;
}

QSslCertificate CertificateAuthority::Certificate() const
{
    return QSslCertificate(Pem(), QSsl::Pem);
}

QByteArray CertificateAuthority::Pem() const
{
    return PemOf(m_authority.certificate.get());
}

ServerIdentity CertificateAuthority::Issue(const QStringList& hosts, CertificateKind kind) const
{
    const QStringList names = kind == CertificateKind::WrongHost ? QStringList{u"somebody-else.example"_s}
                                                                 : hosts + QStringList{u"localhost"_s};
    const bool expired = kind == CertificateKind::Expired;
    const bool isKeyShort = kind == CertificateKind::ShortKey;
    const Signer intermediate
        = MakeAuthority("Intermediate venue server authority",
                        (kind == CertificateKind::ExpiredIntermediate ? -3 : 2) * c_daySeconds, &m_authority);

    Signer server;
    server.key = isKeyShort ? std::shared_ptr<EVP_PKEY>(EVP_RSA_gen(1024), EVP_PKEY_free) : m_serverKey;
    server.certificate = MakeCertificate(server.key.get(), names.constFirst().toLatin1(), -10 * c_daySeconds,
                                         expired ? -c_daySeconds : 2 * c_daySeconds);
    X509* certificate = server.certificate.get();
    const bool isIndirect
        = kind == CertificateKind::MissingIntermediate || kind == CertificateKind::ExpiredIntermediate;
    const Signer& signer = kind == CertificateKind::SelfSigned ? server
        : kind == CertificateKind::UnknownAuthority            ? m_unknownAuthority
        : isIndirect                                           ? intermediate
                                                               : m_authority;
    X509_set_issuer_name(certificate, X509_get_subject_name(signer.certificate.get()));

    QByteArrayList alternatives;
    for (const QString& name : names)
        alternatives.append("DNS:" + name.toLatin1());
    if (kind != CertificateKind::WrongHost)
        alternatives.append("IP:127.0.0.1");
    AddExtension(certificate, signer.certificate.get(), NID_basic_constraints, "critical,CA:FALSE");
    AddExtension(certificate, signer.certificate.get(), NID_key_usage, "critical,digitalSignature");
    AddExtension(certificate, signer.certificate.get(), NID_ext_key_usage, "serverAuth");
    AddExtension(certificate, signer.certificate.get(), NID_subject_alt_name, alternatives.join(','));
    X509_sign(certificate, signer.key.get(), EVP_sha256());
    QList<QSslCertificate> chain{QSslCertificate(PemOf(certificate), QSsl::Pem)};
    if (kind == CertificateKind::ExpiredIntermediate)
        chain.append(QSslCertificate(PemOf(intermediate.certificate.get()), QSsl::Pem));
    return {.chain = chain,
            .key = QSslKey(PemOf(server.key.get()), isKeyShort ? QSsl::Rsa : QSsl::Ec, QSsl::Pem)};
}

} // namespace korvel::Demo
