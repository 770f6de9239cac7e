#include <tools/vdbprobe/CertificateReport.h>

#include <tools/vdbprobe/SafeText.h>

#include <QDateTime>
#include <QSslKey>

#include <algorithm>

namespace korvel::Tools {

namespace {

/// A certificate that expires within this many days is worth a word.
constexpr qint64 c_daysToWarn = 14;
/// More names than these say no more about whose certificate it is.
constexpr qsizetype c_namesToTell = 5;

QString NamesOf(const QStringList& commonNames, const QStringList& organizations)
{
    const QStringList names = commonNames.isEmpty() ? organizations : commonNames;
    return names.isEmpty() ? QStringLiteral("without a name") : OneLine(names.join(QLatin1String(", ")));
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
    const QString algorithm = key.algorithm() == QSsl::Rsa ? QStringLiteral("RSA")
        : key.algorithm() == QSsl::Ec                      ? QStringLiteral("EC")
        : key.algorithm() == QSsl::Dsa                     ? QStringLiteral("DSA")
                                                           : QStringLiteral("unknown kind of");
    return QStringLiteral("%1 key of %2 bits").arg(algorithm).arg(key.length());
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
        return QStringLiteral("the server showed no certificate");
    return QStringLiteral("issuer \"%1\", valid until %2")
        .arg(IssuerOf(m_chain.first()), DateText(m_chain.first().expiryDate()));
}

QStringList CertificateReport::Details() const
{
    QStringList lines;
    for (const QSslCertificate& certificate : m_chain) {
        lines.append(
            QStringLiteral("certificate of \"%1\", issued by \"%2\", valid from %3 until %4, %5, SHA-256 %6")
                .arg(SubjectOf(certificate), IssuerOf(certificate), DateText(certificate.effectiveDate()),
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
    return reasons.join(QLatin1String(", "));
}

QString CertificateReport::ReasonOf(const QSslError& error) const
{
    if (IsAboutIssuer(error) && !m_chain.isEmpty())
        return QStringLiteral("the issuer \"%1\" is not trusted here").arg(IssuerOf(m_chain.last()));
    switch (error.error()) {
    case QSslError::CertificateExpired:
    case QSslError::CertificateNotYetValid:
        return DateReason(error);
    case QSslError::HostNameMismatch:
        return NamesReason();
    case QSslError::UnspecifiedError:
        // Qt has no word for what the TLS library's security level refuses.
        return QStringLiteral("the certificate of \"%1\" is refused%2: %3")
            .arg(SubjectOf(error.certificate()),
                 IsKeyShort(error.certificate()) ? QStringLiteral(", its key is too short") : QString(),
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
    return isExpired ? QStringLiteral("the certificate of \"%1\" expired on %2")
                           .arg(SubjectOf(certificate), DateText(certificate.expiryDate()))
                     : QStringLiteral("the certificate of \"%1\" is not valid before %2")
                           .arg(SubjectOf(certificate), DateText(certificate.effectiveDate()));
}

QString CertificateReport::NamesReason() const
{
    QStringList names
        = m_chain.isEmpty() ? QStringList() : m_chain.first().subjectAlternativeNames().values();
    if (names.isEmpty() && !m_chain.isEmpty())
        names.append(SubjectOf(m_chain.first()));
    names.removeDuplicates();
    const QString more = names.size() > c_namesToTell ? QStringLiteral(" and others") : QString();
    return QStringLiteral("the certificate is for %1%2, not for the host name %3")
        .arg(OneLine(names.mid(0, c_namesToTell).join(QLatin1String(", "))), more, OneLine(m_host));
}

QString CertificateReport::Hint() const
{
    if (m_errors.isEmpty()) {
        const bool endsSoon = !m_chain.isEmpty()
            && QDateTime::currentDateTimeUtc().daysTo(m_chain.first().expiryDate()) < c_daysToWarn;
        return endsSoon ? QStringLiteral("The certificate expires soon.") : QString();
    }
    if (IsAboutIssuer(m_errors.first()))
        return IssuerHint();
    switch (m_errors.first().error()) {
    case QSslError::SelfSignedCertificate:
    case QSslError::SelfSignedCertificateInChain:
        return IssuerHint();
    case QSslError::CertificateExpired:
    case QSslError::CertificateNotYetValid:
        return QStringLiteral(
            "Is this computer's clock right? Otherwise whoever runs the server must replace "
            "this certificate.");
    case QSslError::HostNameMismatch:
        return QStringLiteral(
            "Another server answers under this name: look at the proxy and the name service.");
    case QSslError::UnspecifiedError:
        return QStringLiteral("It breaks the rules of this computer's TLS library: the server needs a "
                              "certificate with an RSA key of at least 2048 bits, or an EC key, and a "
                              "signature with SHA-256.");
    default:
        return QStringLiteral("Show this to whoever runs the server or the proxy.");
    }
}

QString CertificateReport::IssuerHint() const
{
    const QString company
        = QStringLiteral("your company's own authority, name its certificate with --ca, and let the "
                         "application trust it before its first request.");
    if (m_chain.size() != 1 || m_chain.first().isSelfSigned())
        return QStringLiteral("If the issuer is ") + company;
    return QStringLiteral("The server sends its own certificate alone. If \"%1\" is an intermediate "
                          "authority, the usual case, the intermediate certificate is missing: whoever runs "
                          "the server must add it to what the server sends. If it is ")
               .arg(IssuerOf(m_chain.first()))
        + company;
}

} // namespace korvel::Tools
