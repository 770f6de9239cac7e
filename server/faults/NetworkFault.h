#pragma once

#include <server/faults/CertificateKind.h>

#include <QByteArray>
#include <QString>

namespace korvel::Demo {

/// One thing that goes wrong below HTTP with the connections to a host.
struct NetworkFault
{
    enum class Kind
    {
        RefuseConnection, ///< the proxy closes the connection instead of answering CONNECT
        AnswerConnect, ///< CONNECT is answered with the status \a value, for example 403, 407 or 502
        NeverAnswer, ///< CONNECT is never answered
        NoProxy, ///< CONNECT is answered as by a server of mail
        BadCertificate, ///< the server shows \a certificate
        GarbageInsteadOfTls, ///< the tunnel opens, then bytes arrive that are not TLS
        ResetAfter, ///< TCP reset once \a value bytes (TLS included) have gone to the client; 0: at once
        Latency, ///< each direction is \a value milliseconds late
        Jitter, ///< each piece is up to \a value milliseconds late, a different time each
        ByteRate, ///< at most \a value bytes per second to the client
        SingleBytes ///< every byte to the client travels in a packet of its own
    };

    Kind kind = Kind::RefuseConnection;
    qint64 value = 0;
    CertificateKind certificate = CertificateKind::Good;
    QByteArray challenge = "Basic realm=\"venues\""; ///< what an AnswerConnect of 407 asks for
    /// Host of the connections concerned; empty: every host. Direct connections to the HTTPS port are those
    /// to "localhost", and only the kinds from BadCertificate on and RefuseConnection apply to them.
    QString host;
    int skip = 0; ///< connections that pass unharmed first
    int times = -1; ///< connections concerned then; -1: all
};

} // namespace korvel::Demo
