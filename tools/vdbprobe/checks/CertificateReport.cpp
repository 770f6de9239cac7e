#include <tools/vdbprobe/checks/CertificateReport.h>

#include <tools/vdbprobe/SafeText.h>

#include <QDateTime>
#include <QSslKey>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Tools {

namespace {

/// A certificate that expires within this many days is worth a word.
constexpr qint64 c_daysToWarn = 14;
/// More names than these say no more about whose certificate it is.
constexpr qsizetype c_namesToTell = 5;

QString NamesOf(const QStringList& commonNames, const QStringList& organizations)
{
    const QStringList names = commonNames.isEmpty() ? organizations : commonNames;
    return names.isEmpty() ? u"without a name"_s : OneLine(names.join(", "_L1));
}

QString IssuerOf(const QSslCertificate& certificate)
{
    return NamesOf(certificate.issuerInfo(QSslCertificate::CommonName),
                   certificate.issuerInfo(QSslCertificate::Organization));
}

QString SubjectOf(const QSslCertificate& certificate)
{
    return NamesOf(certificate.subjectInfo(QSslCertificate::CommonName),
                   certificate.subjectInfo(QSslCertificate::Organization));
}

QString KeyOf(const QSslCertificate& certificate)
{
    const QSslKey key = certificate.publicKey();
    const QString algorithm = key.algorithm() == QSsl::Rsa ? u"RSA"_s
        : key.algorithm() == QSsl::Ec                      ? u"EC"_s
        : key.algorithm() == QSsl::Dsa                     ? u"DSA"_s
                                                           : u"unknown kind of"_s;
    return u"%1 key of %2 bits"_s.arg(algorithm).arg(key.length());
}

bool IsAboutIssuer(const QSslError& error)
{
    return error.error() == QSslError::UnableToGetIssuerCertificate
        || error.error() == QSslError::UnableToGetLocalIssuerCertificate
        || error.error() == QSslError::UnableToVerifyFirstCertificate
        || error.error() == QSslError::CertificateUntrusted;
}

bool IsKeyShort(const QSslCertificate& certificate)
{
    const QSslKey key = certificate.publicKey();
    return key.length() < (key.algorithm() == QSsl::Ec ? 224 : 2048);
}

} // namespace

CertificateReport::CertificateReport(const QList<QSslCertificate>& chain, const QList<QSslError>& errors,
                                     const QString& host)
    : m_chain(chain)
    , m_errors(errors)
    , m_host(host)
{
    if (m_chain.isEmpty() && !m_errors.isEmpty() && !m_errors.first().certificate().isNull())
        m_chain.append(m_errors.first().certificate());
}

QString CertificateReport::Summary() const
{
    if (m_chain.isEmpty())
        return u"the server showed no certificate"_s;
    return u"issuer \"%1\", valid until %2"_s.arg(IssuerOf(m_chain.first()),
                                                  DateText(m_chain.first().expiryDate()));
}

QStringList CertificateReport::Details() const
{
    QStringList lines;
    for (const QSslCertificate& certificate : m_chain) {
        lines.append(u"certificate of \"%1\", issued by \"%2\", valid from %3 until %4, %5, SHA-256 %6"_s.arg(
            SubjectOf(certificate), IssuerOf(certificate), DateText(certificate.effectiveDate()),
            DateText(certificate.expiryDate()), KeyOf(certificate),
            QString::fromLatin1(certificate.digest(QCryptographicHash::Sha256).toHex())));
    }
    return lines;
}

QString CertificateReport::Reason() const
{
    QStringList reasons;
    for (const QSslError& error : m_errors)
        reasons.append(ReasonOf(error));
    // Qt has several words for one issuer.
    reasons.removeDuplicates();
    return reasons.join(", "_L1);
}

QString CertificateReport::ReasonOf(const QSslError& error) const
{
    if (IsAboutIssuer(error) && !m_chain.isEmpty())
        return u"the issuer \"%1\" is not trusted here"_s.arg(IssuerOf(m_chain.last()));
    switch (error.error()) {
    case QSslError::CertificateExpired:
    case QSslError::CertificateNotYetValid:
        return DateReason(error);
    case QSslError::HostNameMismatch:
        return NamesReason();
    case QSslError::UnspecifiedError:
        // Qt has no word for what the TLS library's security level refuses.
        return u"the certificate of \"%1\" is refused%2: %3"_s.arg(
            SubjectOf(error.certificate()),
            IsKeyShort(error.certificate()) ? u", its key is too short"_s : QString(),
            KeyOf(error.certificate()));
    default:
        return OneLine(error.errorString());
    }
}

QString CertificateReport::DateReason(const QSslError& error) const
{
    const bool isExpired = error.error() == QSslError::CertificateExpired;
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const auto isConcerned = [isExpired, now](const QSslCertificate& certificate) {
        return isExpired ? certificate.expiryDate() < now : certificate.effectiveDate() > now;
    };
    QSslCertificate certificate = error.certificate();
    if (certificate.isNull() || !isConcerned(certificate)) {
        const auto found = std::find_if(m_chain.cbegin(), m_chain.cend(), isConcerned);
        if (found == m_chain.cend())
            return OneLine(error.errorString());
        certificate = *found;
    }
    return isExpired ? u"the certificate of \"%1\" expired on %2"_s.arg(SubjectOf(certificate),
                                                                        DateText(certificate.expiryDate()))
                     : u"the certificate of \"%1\" is not valid before %2"_s.arg(
                           SubjectOf(certificate), DateText(certificate.effectiveDate()));
}

QString CertificateReport::NamesReason() const
{
    QStringList names
        = m_chain.isEmpty() ? QStringList() : m_chain.first().subjectAlternativeNames().values();
    if (names.isEmpty() && !m_chain.isEmpty())
        names.append(SubjectOf(m_chain.first()));
    names.removeDuplicates();
    const QString more = names.size() > c_namesToTell ? u" and others"_s : QString();
    return u"the certificate is for %1%2, not for the host name %3"_s.arg(
        OneLine(names.mid(0, c_namesToTell).join(", "_L1)), more, OneLine(m_host));
}

QString CertificateReport::Hint() const
{
    if (m_errors.isEmpty()) {
        const bool endsSoon = !m_chain.isEmpty()
            && QDateTime::currentDateTimeUtc().daysTo(m_chain.first().expiryDate()) < c_daysToWarn;
        return endsSoon ? u"The certificate expires soon."_s : QString();
    }
    if (IsAboutIssuer(m_errors.first()))
        return IssuerHint();
    switch (m_errors.first().error()) {
    case QSslError::SelfSignedCertificate:
    case QSslError::SelfSignedCertificateInChain:
        return IssuerHint();
    case QSslError::CertificateExpired:
    case QSslError::CertificateNotYetValid:
        return u"Is this computer's clock right? Otherwise whoever runs the server must replace "
               "this certificate."_s;
    case QSslError::HostNameMismatch:
        return u"Another server answers under this name: look at the proxy and the name service."_s;
    case QSslError::UnspecifiedError:
        return u"It breaks the rules of this computer's TLS library: the server needs a "
               "certificate with an RSA key of at least 2048 bits, or an EC key, and a "
               "signature with SHA-256."_s;
    default:
        return u"Show this to whoever runs the server or the proxy."_s;
    }
}

QString CertificateReport::IssuerHint() const
{
    const QString company = u"your company's own authority, name its certificate with --ca, and let the "
                            "application trust it before its first request."_s;
    if (m_chain.size() != 1 || m_chain.first().isSelfSigned())
        return u"If the issuer is "_s + company;
    return u"The server sends its own certificate alone. If \"%1\" is an intermediate "
           "authority, the usual case, the intermediate certificate is missing: whoever runs "
           "the server must add it to what the server sends. If it is "_s.arg(IssuerOf(m_chain.first()))
        + company;
}

} // namespace korvel::Tools
