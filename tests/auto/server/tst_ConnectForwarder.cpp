#include <server/VenueServer.h>
#include <server/catalogue/CatalogueGenerator.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QSslSocket>
#include <QTcpSocket>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;
using Kind = NetworkFault::Kind;

namespace {

const QString c_host = u"venues.test.example"_s;
const QString c_secondHost = u"second.example"_s;

NetworkFault FaultOf(Kind kind, qint64 value = 0)
{
    return {.kind = kind, .value = value, .host = {}};
}

} // namespace

/// Tests the forwarder from both of its ends, as part of the server that it belongs to.
class tst_ConnectForwarder : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        StrictTest::init();
        VenueServer::Options options;
        options.host = c_host;
        options.pictureSource = [](const VenueRecord&, const PictureRecord&, QSize) { return QByteArray(); };
        m_server = std::make_unique<VenueServer>(options);
        m_server->AddHost(c_secondHost);
        m_server->SetCatalogue(CatalogueGenerator({.venueCount = 5}).Catalogue());
        QVERIFY2(m_server->Start(), qPrintable(m_server->ErrorText()));
        m_guard = m_server->InstallInApplication();
    }

    void cleanup()
    {
        m_guard.reset();
        m_server.reset();
    }

    void ConnectIsAnswered_data()
    {
        const Rows<QByteArray, QByteArray> row("request", "answer");
        row("known host", "CONNECT venues.test.example:443 HTTP/1.1\r\n\r\n",
            "HTTP/1.1 200 Connection established\r\n");
        row("capital letters", "CONNECT Venues.Test.EXAMPLE:443 HTTP/1.1\r\nHost: x\r\n\r\n",
            "HTTP/1.1 200 Connection established\r\n");
        row("unknown host", "CONNECT other.example:443 HTTP/1.1\r\n\r\n", "HTTP/1.1 502 Bad Gateway\r\n");
        row("other port", "CONNECT venues.test.example:80 HTTP/1.1\r\n\r\n", "HTTP/1.1 502 Bad Gateway\r\n");
        row("no port", "CONNECT venues.test.example HTTP/1.1\r\n\r\n", "HTTP/1.1 502 Bad Gateway\r\n");
        row("plain proxy request", "GET http://venues.test.example/ HTTP/1.1\r\n\r\n",
            "HTTP/1.1 405 Method Not Allowed\r\n");
        row("nonsense", "\r\n\r\n", "HTTP/1.1 405 Method Not Allowed\r\n");
    }
    void ConnectIsAnswered()
    {
        const auto [request, answer] = Fetch<QByteArray, QByteArray>();
        QCOMPARE(AnswerToConnect(request), answer);
        const bool isConnect = request.startsWith("CONNECT");
        QCOMPARE(m_server->Log().ConnectCount(), isConnect ? 1 : 0);
        if (isConnect)
            QCOMPARE(m_server->Log().Connects().constFirst().status, answer.split(' ').at(1).toInt());
    }

    void HeaderMayComeInPieces()
    {
        QTcpSocket socket;
        socket.setProxy(QNetworkProxy::NoProxy);
        socket.connectToHost(u"127.0.0.1"_s, m_server->ProxyPort());
        QVERIFY(socket.waitForConnected(5000));
        const QByteArray header
            = "CONNECT venues.test.example:443 HTTP/1.1\r\nHost: venues.test.example\r\n\r\n";
        for (const char byte : header) {
            QCOMPARE(socket.bytesAvailable(), 0);
            socket.write(&byte, 1);
            socket.flush();
        }
        QVERIFY(socket.waitForReadyRead(5000));
        QVERIFY(socket.readAll().startsWith("HTTP/1.1 200 "));
    }

    void HeaderWithoutAnEndIsRefused()
    {
        QVERIFY(AnswerToConnect("CONNECT " + QByteArray(100000, 'x')).startsWith("HTTP/1.1 431 "));
    }

    void EachConnectionShowsItsCertificate_data()
    {
        const Rows<QSsl::SslProtocol> row("protocol");
        row("TLS 1.2", QSsl::TlsV1_2);
        row("TLS 1.3", QSsl::TlsV1_3);
    }
    void EachConnectionShowsItsCertificate()
    {
        QFETCH(QSsl::SslProtocol, protocol);
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setProtocol(protocol);
        configuration.setSslOption(QSsl::SslOptionDisableSessionPersistence, false);
        for (const bool isGood : {true, false}) {
            QSslSocket socket;
            socket.setProxy(QNetworkProxy::NoProxy);
            socket.setSslConfiguration(configuration);
            socket.connectToHostEncrypted(u"localhost"_s, m_server->HttpsPort());
            QCOMPARE(socket.waitForEncrypted(5000), isGood);
            if (isGood) {
                socket.write("GET / HTTP/1.1\r\n\r\n");
                QVERIFY(socket.waitForReadyRead(5000));
                // A session that could be resumed would hide the certificate that has gone bad meanwhile.
                configuration.setSessionTicket(socket.sslConfiguration().sessionTicket());
                QVERIFY(!configuration.sessionTicket().isEmpty());
                NetworkFault fault = FaultOf(Kind::BadCertificate);
                fault.certificate = CertificateKind::Expired;
                m_server->AddFault(fault);
            }
        }
    }

    void SlowTunnels_data()
    {
        const Rows<NetworkFault, qint64> row("fault", "atLeast");
        // TLS needs one round trip before the request, the request is another one: four times the way.
        row("latency", FaultOf(Kind::Latency, 60), qint64(4 * 60));
        // Certificate and answer have more than 6000 bytes.
        row("byte rate", FaultOf(Kind::ByteRate, 20000), 250);
    }
    void SlowTunnels()
    {
        const auto [fault, atLeast] = Fetch<NetworkFault, qint64>();
        m_server->AddFault(fault);
        const Outcome outcome = Get();
        QCOMPARE(outcome.status, 200);
        QVERIFY2(outcome.milliseconds >= atLeast, qPrintable(QString::number(outcome.milliseconds)));
    }

    void LargeBodiesArriveWhole()
    {
        // More than all buffers on the way together.
        QByteArray body(20 * 1000 * 1000, Qt::Uninitialized);
        for (qsizetype i = 0; i < body.size(); ++i)
            body[i] = static_cast<char>(i % 251);
        m_server->AddFault(Fault::On(u"/api/venue"_s).WithBody(body));
        const Outcome outcome = Get();
        QCOMPARE(outcome.error, QNetworkReply::NoError);
        QVERIFY(outcome.body == body);
    }

    void ResetInTheAnswerBreaksTheTunnel()
    {
        m_server->AddFault(FaultOf(Kind::ResetAfter, 3000));
        QVERIFY(Get().error != QNetworkReply::NoError);
        QCOMPARE(m_server->Log().Connects().constFirst().status, 200);
        m_server->ClearFaults();
        QCOMPARE(Get().status, 200);
    }

    void FaultConcernsItsHostOnly()
    {
        NetworkFault fault = FaultOf(Kind::RefuseConnection);
        fault.host = c_secondHost.toUpper();
        m_server->AddFault(fault);
        QCOMPARE(Get(c_host).status, 200);
        QVERIFY(Get(c_secondHost).error != QNetworkReply::NoError);
    }

    void FaultCountsConnections()
    {
        NetworkFault fault = FaultOf(Kind::AnswerConnect, 502);
        fault.skip = 1;
        fault.times = 2;
        m_server->AddFault(fault);
        QList<bool> successes;
        for (int i = 0; i < 4; ++i)
            successes.append(Get().error == QNetworkReply::NoError);
        QCOMPARE(successes, QList<bool>({true, false, false, true}));
    }

    void FaultOfDirectConnections()
    {
        NetworkFault fault = FaultOf(Kind::BadCertificate);
        fault.certificate = CertificateKind::Expired;
        fault.host = u"localhost"_s;
        fault.times = 1;
        m_server->AddFault(fault);
        for (const bool succeeds : {false, true}) {
            QSslSocket socket;
            socket.setProxy(QNetworkProxy::NoProxy);
            socket.connectToHostEncrypted(u"localhost"_s, m_server->HttpsPort());
            QCOMPARE(socket.waitForEncrypted(5000), succeeds);
        }
        QCOMPARE(m_server->Log().ConnectCount(), 2);
        QCOMPARE(m_server->Log().Connects().constFirst().host, u"localhost"_s);
    }

    void StopClosesHalfOpenConnections()
    {
        QTcpSocket beforeConnect;
        QTcpSocket beforeTls;
        for (QTcpSocket* socket : {&beforeConnect, &beforeTls}) {
            socket->setProxy(QNetworkProxy::NoProxy);
            socket->connectToHost(u"127.0.0.1"_s, m_server->ProxyPort());
            QVERIFY(socket->waitForConnected(5000));
        }
        beforeTls.write("CONNECT venues.test.example:443 HTTP/1.1\r\n\r\n");
        QVERIFY(beforeTls.waitForReadyRead(5000));
        QElapsedTimer timer;
        timer.start();
        m_server->Stop();
        QVERIFY(timer.elapsed() < 1000);
        QTRY_COMPARE(beforeConnect.state(), QAbstractSocket::UnconnectedState);
        QTRY_COMPARE(beforeTls.state(), QAbstractSocket::UnconnectedState);
    }

private:
    struct Outcome
    {
        int status = 0;
        QNetworkReply::NetworkError error = QNetworkReply::NoError;
        QByteArray body;
        qint64 milliseconds = 0;
    };

    QByteArray AnswerToConnect(const QByteArray& header)
    {
        QTcpSocket socket;
        socket.setProxy(QNetworkProxy::NoProxy);
        socket.connectToHost(u"127.0.0.1"_s, m_server->ProxyPort());
        if (!socket.waitForConnected(5000))
            return {};
        socket.write(header);
        return socket.waitForReadyRead(5000) ? socket.readLine() : QByteArray();
    }

    /// Asks with a manager of its own, so that no kept connection takes part.
    Outcome Get(const QString& host = c_host)
    {
        QNetworkAccessManager manager;
        QElapsedTimer timer;
        timer.start();
        QNetworkReply* reply = manager.get(QNetworkRequest(QUrl(u"https://"_s + host + u"/api/venue"_s)));
        Outcome outcome;
        QSignalSpy finished(reply, &QNetworkReply::finished);
        if (!finished.wait(10000))
            QTest::qFail("no answer within ten seconds", __FILE__, __LINE__);
        outcome.milliseconds = timer.elapsed();
        outcome.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        outcome.error = reply->error();
        outcome.body = reply->isOpen() ? reply->readAll() : QByteArray();
        return outcome;
    }

    std::unique_ptr<VenueServer> m_server;
    std::unique_ptr<ApplicationNetworkGuard> m_guard;
};

QTEST_GUILESS_MAIN(tst_ConnectForwarder)
#include "tst_ConnectForwarder.moc"
