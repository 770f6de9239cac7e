#pragma once

namespace korvel::Demo {

/// What is right or wrong with the certificate that a server shows.
enum class CertificateKind
{
    Good,
    Expired, ///< signed by our authority, valid until yesterday
    SelfSigned, ///< right names, signed by itself
    WrongHost, ///< signed by our authority, for another host name
    UnknownAuthority, ///< right names, signed by an authority that nobody trusts
    MissingIntermediate, ///< signed by an intermediate authority, whose certificate the server does not send
    ExpiredIntermediate, ///< signed by an intermediate authority, whose certificate is no longer valid
    ShortKey, ///< a key of 1024 bits; where OpenSSL's security level allows the server to have it
    OldTls, ///< a good one, for clients that speak TLS 1.1
    ClientDemanded, ///< a good one, for clients that have one, too
    ClientDemandedTls12 ///< the same up to TLS 1.2, where the client learns of it in the handshake
};

} // namespace korvel::Demo
