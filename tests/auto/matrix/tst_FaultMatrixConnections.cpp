#include <data/DownloadManager.h>

#include <tests/support/ConnectorTest.h>
#include <tests/support/QtVersion.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>

#include <QElapsedTimer>
#include <QHash>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

const QByteArray c_bytes("\x89PNG\0bytes", 10);
const QString c_failed = u"Request failed!"_s;
const QString c_noImage = u"Cannot convert reply. Reply is not an image."_s;

/// Kerberos, as it is when its server does not answer: the network thread waits in here.
QSemaphore g_kerberosIsAsked;
QSemaphore g_kerberosAnswers;

/// What the client offers to speak within TLS, in the extension "application layer protocols" of its first
/// message.
const QByteArray c_offerOfHttp2("\x00\x10\x00\x0e\x00\x0c\x02h2\x08http/1.1", 18);

/// A proxy that opens every tunnel and leads nowhere: it keeps what the client says.
class ListeningProxy : public QTcpServer
{
public:
    ListeningProxy()
    {
        setProxy(QNetworkProxy::NoProxy);
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this]() {
            QTcpSocket* const client = nextPendingConnection();
            connect(client, &QTcpSocket::readyRead, this, [this, client]() { Hear(client); });
        });
    }

    QNetworkProxy Address() const
    {
        return {QNetworkProxy::HttpProxy, u"127.0.0.1"_s, serverPort()};
    }

    /// All that came through the tunnel.
    QByteArray heard;

private:
    void Hear(QTcpSocket* client)
    {
        const QByteArray bytes = client->readAll();
        if (bytes.startsWith("CONNECT "))
            client->write("HTTP/1.1 200 Connection established\r\n\r\n");
        else
            heard += bytes;
    }
};

/// The proxy's demand for credentials of that kind, before it leads to the other host.
NetworkFault Demand(const QByteArray& challenge)
{
    return {.kind = NetworkFault::Kind::AnswerConnect,
            .value = 407,
            .challenge = challenge,
            .host = u"second.example"_s};
}

QByteArray Early(const QByteArray& status, const QByteArray& headers = {})
{
    return "HTTP/1.1 " + status + "\r\n" + headers + "\r\n";
}

/// Whether Qt takes \p early for the answer. Every Qt knows that 100 is none.
bool BreaksRequest(const QByteArray& early)
{
    return !c_skipsEarlyAnswers && early != Early("100 Continue");
}

QByteArray BytesOf(const QString& path)
{
    return "\x89PNG the bytes behind " + path.toLatin1();
}

QStringList Paths(int count)
{
    QStringList paths;
    for (int index = 0; index < count; ++index)
        paths.append(u"/bytes/%1."_s.arg(index));
    return paths;
}

/// A reply that names a file resource for each of \p paths, as a model file and as a picture.
QByteArray Files(const QStringList& paths)
{
    QByteArrayList elements;
    for (const QString& path : paths) {
        elements.append(QByteArray(R"({"type": "file", "attributes": {"url": "PATH"},)"
                                   R"("links": {"small": {"href": "HOST/PATH"}}})")
                            .replace("HOST/", ScriptedServer::Url({}).toLatin1())
                            .replace("PATH", path.toLatin1()));
    }
    return R"({"data": [], "included": [)" + elements.join(',') + "]}";
}

} // namespace

// Takes the place of the library's function, which Qt calls where a proxy asks for "Negotiate".
extern "C" Q_DECL_EXPORT quint32 gss_acquire_cred(quint32*, void*, quint32, void*, int, void** credentials,
                                                  void**, quint32*)
{
    // Qt gives them back also where there are none.
    *credentials = nullptr;
    g_kerberosIsAsked.release();
    g_kerberosAnswers.acquire();
    constexpr quint32 noCredentials = 7U << 16U;
    return noCredentials;
}

/// Connections that went bad: what happens to one request ends with it, and no request gets what another one
/// asked for.
class tst_FaultMatrixConnections : public ConnectorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ConnectorTest::init();
        m_downloads = std::make_unique<DownloadManager>();
        m_outcomes.clear();
        connect(m_downloads.get(), &DownloadManager::PictureBinaryDataFinished, this,
                [this](const QUrl& url, const QByteArray& buffer) { m_outcomes[url].bytes.append(buffer); });
        connect(
            m_downloads.get(), &DownloadManager::RequestFailed, this,
            [this](const QUrl& url, const QString& message) { m_outcomes[url].failures.append(message); });
    }
    void cleanup()
    {
        m_downloads.reset();
        m_connector.reset();
        VdbMessages::Take();
        ConnectorTest::cleanup();
    }

    // A proxy, or what stands before it, drops a connection before it answers CONNECT.

    void SearchSucceedsAfterADrop_data()
    {
        const Rows<bool> row("isDeleted");
        row("its wait timed out", false);
        row("its caller gave it up", true);
    }
    void SearchSucceedsAfterADrop()
    {
        QFETCH(bool, isDeleted);
        ServeOnce(u"/bytes"_s);
        // On a later connection; Qt tries the first one again by itself.
        m_server->AddFault(NetworkFault{.host = {}, .skip = 1, .times = 1});
        QVERIFY(m_connector->waitForFinished(Send(u"/bytes"_s), 10'000));
        QNetworkReply* const lost = Send(u"/bytes"_s);
        if (isDeleted) {
            QTRY_COMPARE(m_server->Log().ConnectCount(), 2);
            delete lost;
        } else {
            QVERIFY(!m_connector->waitForFinished(lost, 500));
        }

        m_server->AnswerJsonApi(u"/api/venue"_s, R"({"data": [{"attributes": {"title": "A"}}]})");
        QNetworkReply* const reply = m_connector->SendGetJsonRequest(u"/api/venue"_s, {});
        QVERIFY(m_connector->waitForFinished(reply, 10'000));
        QCOMPARE(reply->error(), QNetworkReply::NoError);
        QList<Venue> venues;
        QCOMPARE(m_connector->FindVenueEntries({}, venues), Ok);
        QCOMPARE(venues.size(), 1);
    }

    void OtherRepliesGoOnAfterATimeout()
    {
        Serve(u"/slow"_s, 1500);
        m_server->Withhold(u"/silent"_s);
        QNetworkReply* const slow = Send(u"/slow"_s);
        QVERIFY(!m_connector->waitForFinished(Send(u"/silent"_s), 300));
        QVERIFY(!slow->isFinished());
        Serve(u"/bytes"_s);
        QCOMPARE(m_connector->GetBinaryData(u"/bytes"_s), BytesOf(u"/bytes"_s));
        QVERIFY(!slow->isFinished());
        QVERIFY(m_connector->waitForFinished(slow, 10'000));
        QCOMPARE(slow->readAll(), BytesOf(u"/slow"_s));
        // Whoever asked may read it as long as the connector lives.
        QCOMPARE(slow->parent(), m_connector->findChild<QNetworkAccessManager*>());
    }

    void OtherDownloadsArriveAfterAFailure_data()
    {
        const Rows<Fault> row("fault");
        row("reset before the header", Fault::On(u"/lost"_s).WithReset());
        row("reset in the body", Fault::On(u"/lost"_s).WithBody(QByteArray(9000, 'x')).WithResetAfter(500));
        row("404", Fault::On(u"/lost"_s).WithStatus(404).WithBody("x"));
    }
    void OtherDownloadsArriveAfterAFailure()
    {
        QFETCH(Fault, fault);
        m_server->AddFault(fault.WithMediaType("text/html"));
        Serve(u"/slow"_s, 1500);
        Serve(u"/bytes"_s);
        Download(u"/slow"_s);
        // Qt sends two to one host together, and one that breaks then takes the other with it.
        QTRY_COMPARE(m_server->Log().RequestCount(), 1);
        Download(u"/lost"_s);
        QTRY_COMPARE(m_outcomes.value(Url(u"/lost"_s)).failures, QStringList({c_failed, c_noImage}));
        QVERIFY(!m_outcomes.contains(Url(u"/slow"_s)));
        Download(u"/bytes"_s);
        QTRY_COMPARE(m_outcomes.value(Url(u"/bytes"_s)).bytes, QByteArrayList{BytesOf(u"/bytes"_s)});
        QTRY_COMPARE(m_outcomes.value(Url(u"/slow"_s)).bytes, QByteArrayList{BytesOf(u"/slow"_s)});
        QCOMPARE(m_outcomes.size(), 3);
    }

    // A proxy refuses NTLM.

    void RefusedNtlmEndsWithItsWait()
    {
        m_server->AddFault(Demand("NTLM"));
        QNetworkReply* const refused = m_connector->SendGetUrlRequest(u"https://second.example/bytes"_s);
        if (c_noticesRefusedNtlm) {
            QVERIFY(m_connector->waitForFinished(refused, 10'000));
            QCOMPARE(refused->error(), QNetworkReply::ProxyAuthenticationRequiredError);
            QCOMPARE(m_server->Log().ConnectCount(), 2);
        } else {
            QVERIFY(!m_connector->waitForFinished(refused, 500));
            QVERIFY(m_server->Log().ConnectCount() > 2);
        }

        // While the other host answers, half a second later, the proxy is not asked once more.
        Serve(u"/slow"_s, 500);
        ConnectorJsonRest other;
        const auto asked = [&]() {
            const qsizetype before = m_server->Log().ConnectCount();
            other.GetBinaryData(u"/slow"_s);
            return m_server->Log().ConnectCount() - before;
        };
        // The other connector's own connection, and what was under way.
        asked();
        asked();
        QCOMPARE(asked(), 0);

        m_server->Reset();
        m_server->AddFault(
            Fault::On(u"/bytes"_s).WithStatus(200).WithBody(c_bytes).WithMediaType("image/png"));
        QCOMPARE(m_connector->GetPictureBinaryData(u"https://second.example/bytes"_s), c_bytes);
    }

    void BusyNetworkDoesNotHoldTheUserInterfaceUp()
    {
        m_server->AddFault(Demand("Negotiate"));
        QNetworkReply* const reply = m_connector->SendGetUrlRequest(u"https://second.example/bytes"_s);
        QVERIFY(g_kerberosIsAsked.tryAcquire(1, 10'000));
        // Qt would wait for its network thread for five seconds.
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!m_connector->waitForFinished(reply, 100));
        Serve(u"/bytes"_s);
        QCOMPARE(m_connector->GetBinaryData(u"/bytes"_s), BytesOf(u"/bytes"_s));
        const qint64 elapsed = timer.elapsed();
        g_kerberosAnswers.release();
        QVERIFY2(elapsed < 4000, qPrintable(QString::number(elapsed)));
    }

    // The protocols that are offered.

    void Http2IsOffered_data()
    {
        const Rows<std::function<void()>, bool> row("ask", "isOffered");
        row("not for a search", [this]() { m_connector->SendGetJsonRequest(u"/api/venue"_s, {}); }, false);
        row("not for the connector's pictures", [this]() { Send(u"/bytes"_s); }, false);
        row("for downloads side by side", [this]() { Download(u"/bytes"_s); }, true);
    }
    void Http2IsOffered()
    {
        QFETCH(std::function<void()>, ask);
        QFETCH(bool, isOffered);
        ListeningProxy proxy;
        m_connector->findChild<QNetworkAccessManager*>()->setProxy(proxy.Address());
        m_downloads->findChild<QNetworkAccessManager*>()->setProxy(proxy.Address());
        ask();
        const auto isHelloComplete = [&proxy]() {
            // The record's length stands in its fourth and fifth byte.
            return proxy.heard.size() > 5
                && proxy.heard.size() >= 5 + (uchar(proxy.heard.at(3)) << 8) + uchar(proxy.heard.at(4));
        };
        QTRY_VERIFY(isHelloComplete());
        QCOMPARE(proxy.heard.contains(c_offerOfHttp2), isOffered);
    }

    // A provisional answer comes before the real one. It makes its own request fail, unless Qt skips it, and
    // no other one.

    void EarlyAnswer_data()
    {
        const Rows<QByteArray> row("early");
        row("100 Continue", Early("100 Continue"));
        row("102 Processing", Early("102 Processing"));
        row("103 Early Hints", Early("103 Early Hints", "Link: </style.css>; rel=preload\r\n"));
        row("103 twice", Early("103 Early Hints") + Early("103 Early Hints"));
        row("103 with the media type of a picture", Early("103 Early Hints", "Content-Type: image/png\r\n"));
        row("103 with the media type of a list",
            Early("103 Early Hints", "Content-Type: application/vnd.api+json\r\n"));
        row("199", Early("199 Miscellaneous"));
    }

    void SearchAfterAnEarlyAnswerFindsItsOwn_data()
    {
        EarlyAnswer_data();
    }
    void SearchAfterAnEarlyAnswerFindsItsOwn()
    {
        QFETCH(QByteArray, early);
        const auto titled = [](const QByteArray& title) {
            return QByteArray(R"({"data": [{"attributes": {"title": "TITLE"}}]})").replace("TITLE", title);
        };
        m_server->AddFault(Fault::On(u"first"_s)
                               .WithEarlyAnswer(early)
                               .WithStatus(200)
                               .WithBody(titled("first"))
                               .WithMediaType(c_jsonApi));
        m_server->AnswerJsonApi(u"second"_s, titled("second"));
        QList<Venue> venues;
        QCOMPARE(m_connector->FindVenueEntries({{u"title"_s, u"first"_s}}, venues),
                 BreaksRequest(early) ? WrongContentType : Ok);
        QCOMPARE(NamesOf(venues), BreaksRequest(early) ? QStringList() : QStringList{u"first"_s});
        for (int count = 0; count < 3; ++count) {
            QCOMPARE(m_connector->FindVenueEntries({{u"title"_s, u"second"_s}}, venues), Ok);
            QCOMPARE(NamesOf(venues), QStringList{u"second"_s});
        }
    }

    void FilesAfterAnEarlyAnswerAreTheirOwn_data()
    {
        EarlyAnswer_data();
    }
    void FilesAfterAnEarlyAnswerAreTheirOwn()
    {
        QFETCH(QByteArray, early);
        const QStringList paths = Paths(4);
        ServeEarly(paths.at(1), early);
        ServeLists(paths);
        const QList<Picture> pictures = m_connector->GetPictureEntries(7);
        VerifyMessageOfEarlyAnswer(early, u"Picture download"_s, paths.at(1));
        const QList<TsFile> files = m_connector->GetTSFileEntries(7);
        VerifyMessageOfEarlyAnswer(early, u"Model file download"_s, paths.at(1));
        QCOMPARE(pictures.size(), paths.size());
        QCOMPARE(files.size(), paths.size());
        for (int index = 0; index < paths.size(); ++index) {
            const QByteArray bytes
                = index == 1 && BreaksRequest(early) ? QByteArray() : BytesOf(paths.at(index));
            QCOMPARE(pictures.at(index).GetPictureDataSmall(), bytes);
            QCOMPARE(files.at(index).GetFileData(), bytes);
        }
    }

    /// The next venue's lists are not those of the one before.
    void ListsAfterAnEarlyAnswerAreTheirOwn_data()
    {
        EarlyAnswer_data();
    }
    void ListsAfterAnEarlyAnswerAreTheirOwn()
    {
        QFETCH(QByteArray, early);
        const QStringList paths = Paths(3);
        m_server->AddFault(Fault::On(u"filter[entity_id]=7"_s)
                               .WithEarlyAnswer(early)
                               .WithStatus(200)
                               .WithBody(Files(paths))
                               .WithMediaType(c_jsonApi));
        ServeLists(paths.first(1));
        const qsizetype found = BreaksRequest(early) ? 0 : paths.size();
        QCOMPARE(m_connector->GetPictureEntries(7).size(), found);
        QCOMPARE(m_connector->GetTSFileEntries(8).size(), 1);
        QCOMPARE(m_connector->GetTSFileEntries(7).size(), found);
        const QList<Picture> pictures = m_connector->GetPictureEntries(8);
        QCOMPARE(pictures.size(), 1);
        QCOMPARE(pictures.first().GetPictureDataSmall(), BytesOf(paths.first()));
    }

    void DownloadsAfterAnEarlyAnswerAreTheirOwn_data()
    {
        EarlyAnswer_data();
    }
    void DownloadsAfterAnEarlyAnswerAreTheirOwn()
    {
        QFETCH(QByteArray, early);
        const QStringList paths = Paths(4);
        ServeEarly(paths.at(1), early);
        ServeLists(paths);
        for (const QString& path : paths) {
            Download(path);
            QTRY_VERIFY(HasEnded(path));
        }
        for (const QString& path : paths)
            VerifyDownload(path, path == paths.at(1) && BreaksRequest(early));
        VerifyMessageOfEarlyAnswer(early, u"Picture download"_s, paths.at(1));
    }

    /// More at a time than Qt has connections: some wait in Qt for those that an early answer came through.
    void DownloadsBesideAnEarlyAnswerGetNothingOfIt_data()
    {
        EarlyAnswer_data();
    }
    void DownloadsBesideAnEarlyAnswerGetNothingOfIt()
    {
        QFETCH(QByteArray, early);
        const QStringList paths = Paths(20);
        for (const int index : {0, 3, 8})
            ServeEarly(paths.at(index), early);
        ServeLists(paths);
        for (const QString& path : paths)
            Download(path);
        for (const QString& path : paths)
            QTRY_VERIFY(HasEnded(path));
        for (const QString& path : paths) {
            // Where it fails those beside it may fail with it.
            const bool hasFailed = BreaksRequest(early) && m_outcomes.value(Url(path)).bytes.isEmpty();
            VerifyDownload(path, hasFailed);
        }
        for (const int index : {0, 3, 8})
            VerifyDownload(paths.at(index), BreaksRequest(early));
        // The next ones have nothing to do with it.
        m_outcomes.clear();
        Download(paths.at(1));
        QTRY_VERIFY(HasEnded(paths.at(1)));
        VerifyDownload(paths.at(1), false);
    }

    void PicturesBesideAnEarlyAnswerGetNothingOfIt()
    {
        const QStringList paths = Paths(2);
        ServeEarly(paths.at(0), Early("103 Early Hints"));
        Serve(paths.at(1));
        // One query inside the wait of the other.
        QByteArray inner;
        QTimer::singleShot(
            0, this, [&]() { inner = m_connector->GetPictureBinaryData(ScriptedServer::Url(paths.at(1))); });
        QCOMPARE(m_connector->GetPictureBinaryData(ScriptedServer::Url(paths.at(0))),
                 c_skipsEarlyAnswers ? BytesOf(paths.at(0)) : QByteArray());
        QVERIFY((inner.isEmpty() && !c_skipsEarlyAnswers) || inner == BytesOf(paths.at(1)));
        QCOMPARE(m_connector->GetPictureBinaryData(ScriptedServer::Url(paths.at(1))), BytesOf(paths.at(1)));
    }

private:
    struct Outcome
    {
        QByteArrayList bytes;
        QStringList failures;
    };

    static QUrl Url(const QString& path)
    {
        return QUrl(ScriptedServer::Url(path));
    }
    QNetworkReply* Send(const QString& path) const
    {
        return m_connector->SendGetUrlRequest(ScriptedServer::Url(path));
    }
    void Download(const QString& path) const
    {
        m_downloads->RequestPictureBinaryData(Url(path));
    }

    static Fault Honest(const QString& path)
    {
        return Fault::On(path).WithStatus(200).WithBody(BytesOf(path)).WithMediaType("image/png");
    }
    void Serve(const QString& path, int delay = 0)
    {
        m_server->AddFault(Honest(path).WithDelay(delay));
    }
    /// Each answer on a connection of its own.
    void ServeOnce(const QString& path)
    {
        m_server->AddFault(Honest(path).WithHeader("Connection", "close"));
    }
    void ServeEarly(const QString& path, const QByteArray& early)
    {
        m_server->AddFault(Honest(path).WithEarlyAnswer(early));
    }
    /// Lists of \p paths for every venue, and what is behind them.
    void ServeLists(const QStringList& paths)
    {
        for (const QString& path : paths)
            Serve(path);
        m_server->AnswerJsonApi(u"/api/venue"_s, Files(paths));
    }

    bool HasEnded(const QString& path) const
    {
        const Outcome outcome = m_outcomes.value(Url(path));
        return !outcome.bytes.isEmpty() || outcome.failures.size() == 2;
    }
    void VerifyDownload(const QString& path, bool hasFailed) const
    {
        const Outcome outcome = m_outcomes.value(Url(path));
        QCOMPARE(outcome.bytes, hasFailed ? QByteArrayList() : QByteArrayList{BytesOf(path)});
        QCOMPARE(outcome.failures, hasFailed ? QStringList({c_failed, c_noImage}) : QStringList());
    }
    void VerifyMessageOfEarlyAnswer(const QByteArray& early, const QString& what, const QString& path)
    {
        const QString message = QRegularExpression::escape(what + u" failed: "_s + m_host + path)
            + u" - HTTP status \\d+ - .+"_s;
        VdbMessages::Verify(BreaksRequest(early) ? QStringList{message} : QStringList());
    }

    std::unique_ptr<DownloadManager> m_downloads;
    QHash<QUrl, Outcome> m_outcomes;
};

QTEST_GUILESS_MAIN(tst_FaultMatrixConnections)
#include "tst_FaultMatrixConnections.moc"
