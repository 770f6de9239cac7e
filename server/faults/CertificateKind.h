#pragma once

namespace korvel::Demo {

/// What is right or wrong with the certificate that a server shows.
enum class CertificateKind
{
    Good,
    Expired, ///< signed by our authority, valid until yesterday
    SelfSigned, ///< right names, signed by itself
    WrongHost, ///< signed by our authority, for another host name
    UnknownAuthority ///< right names, signed by an authority that nobody trusts
};

} // namespace korvel::Demo
