#pragma once

#include <server/api/VenuePicture.h>
#include <server/catalogue/VenueCatalogue.h>
#include <server/faults/Fault.h>
#include <server/faults/NetworkFault.h>
#include <server/log/RequestLog.h>
#include <server/network/ApplicationNetworkGuard.h>
#include <server/network/CertificateAuthority.h>

#include <QNetworkProxy>
#include <QObject>
#include <QSslCertificate>

#include <memory>

namespace korvel::Demo {

class ConnectForwarder;
class FaultPlan;
class VenueService;

/// The venue database's world on one machine: an HTTPS server with a catalogue, reached through an HTTP
/// CONNECT proxy under its real host name or directly on a port, everything on 127.0.0.1.
///
/// \code
/// VenueServer server;
/// server.SetCatalogue(CatalogueGenerator({.venueCount = 20}).Catalogue());
/// QVERIFY2(server.Start(), qPrintable(server.ErrorText()));
/// const auto network = server.InstallInApplication();   // before the first QNetworkAccessManager is used
/// server.AddFault(Fault::On(QStringLiteral("/api/venue")).WithStatus(503).Times(1));
/// ...
/// QTRY_COMPARE(server.Log().RequestCount(QStringLiteral("/api/venue")), 1);
/// \endcode
///
/// The server runs in threads of its own and needs no event loop of the caller. Members belong to the thread
/// that made it, except for Log(), the faults and SetCatalogue(), which may be used from every thread. The
/// certificate authority lasts as long as the object: a server started again is trusted by the same clients.
class VenueServer : public QObject
{
    Q_OBJECT

public:
    struct Options
    {
        /// Host name of the venue database, the one that the module was built with by default.
        QString host;
        quint16 httpsPort = 0; ///< 0: the one of the last start, else any free one
        quint16 proxyPort = 0; ///< likewise
        /// Makes pictures; without one, VenuePicture does, which needs a QGuiApplication. Tests pass a
        /// function that returns a few small bytes.
        PictureSource pictureSource;

        Options();
    };

    explicit VenueServer(QObject* parent = nullptr);
    explicit VenueServer(const Options& options, QObject* parent = nullptr);
    /// Stops.
    ~VenueServer() override;

    /// Listens. False with the reason in ErrorText() when a port cannot be had. After Stop() it takes the
    /// same ports again. Catalogue, hosts, faults and log are kept.
    bool Start();
    /// Closes ports and connections, also those in the middle of an answer, and returns when all is quiet.
    /// Requests then fail like those to a server that is down.
    void Stop();
    bool IsRunning() const;
    QString ErrorText() const;

    QString Host() const;
    /// For TLS clients that come without the proxy: https://localhost:<port>/
    quint16 HttpsPort() const;
    quint16 ProxyPort() const;
    QNetworkProxy Proxy() const;
    QSslCertificate CaCertificate() const;
    /// The authority's certificate as PEM text, for example for `curl --cacert`.
    QByteArray CaPem() const;

    /// Makes the proxy application-wide and the authority trusted until the returned guard dies. Start first.
    [[nodiscard]] std::unique_ptr<ApplicationNetworkGuard> InstallInApplication() const;

    void SetCatalogue(const VenueCatalogue& catalogue);
    std::shared_ptr<const VenueCatalogue> Catalogue() const;

    /// Lets the proxy lead to this server under one more name, for example "second.example"; it has a valid
    /// certificate there too.
    void AddHost(const QString& host);

    /// Faults of one list are tried in the order added; the first one that is due wins.
    void AddFault(const Fault& fault);
    /// Concerns connections made from now on: kept ones go on. See DropConnections().
    void AddFault(const NetworkFault& fault);
    void ClearFaults();

    /// Restarts, so that clients have to connect anew. False as Start().
    bool DropConnections();

    RequestLog& Log()
    {
        return *m_log;
    }

private:
    Options m_options;
    QString m_errorText;
    quint16 m_httpsPort = 0;
    quint16 m_proxyPort = 0;
    CertificateAuthority m_authority;
    RequestLog* m_log = nullptr;
    std::unique_ptr<VenueService> m_service;
    std::unique_ptr<FaultPlan> m_faults;
    std::unique_ptr<ConnectForwarder> m_forwarder;
};

} // namespace korvel::Demo
