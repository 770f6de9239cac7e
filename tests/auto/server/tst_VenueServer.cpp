#include <server/VenueServer.h>
#include <server/api/VenueService.h>
#include <server/catalogue/CatalogueGenerator.h>
#include <tests/support/Fixture.h>
#include <tests/support/QtVersion.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSemaphore>
#include <QSignalSpy>
#include <QSslSocket>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

const QByteArray c_jsonApi = "application/vnd.api+json";
const QByteArray c_smallPicture = "\x89PNG small fixed bytes";

VenueServer::Options TestOptions()
{
    VenueServer::Options options;
    options.host = u"venues.test.example"_s;
    options.pictureSource = [](const VenueRecord&, const PictureRecord& picture, QSize size) {
        return c_smallPicture + picture.id.toLatin1() + ' ' + QByteArray::number(size.width());
    };
    return options;
}

/// What became of one request.
struct Outcome
{
    int status = 0;
    QByteArray contentType;
    QByteArray body;
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
    qint64 milliseconds = 0;
};

} // namespace

class tst_VenueServer : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        StrictTest::init();
        StartServer(TestOptions());
        m_manager = std::make_unique<QNetworkAccessManager>();
    }

    void cleanup()
    {
        m_manager.reset();
        m_guard.reset();
        m_server.reset();
    }

    void ReachedThroughTheProxyUnderItsName()
    {
        const Outcome outcome = Get(u"/api/venue?include=editor"_s);
        QCOMPARE(outcome.error, QNetworkReply::NoError);
        QCOMPARE(outcome.status, 200);
        QCOMPARE(outcome.contentType, c_jsonApi);
        const QJsonObject document = JsonObject(outcome.body);
        QCOMPARE(At(document, u"data"_s).toArray().size(), 20);
        QCOMPARE(At(document, u"included"_s).toArray().size(), 2);
        QCOMPARE(m_server->Log().LastRequest().host, m_server->Host());
    }

    void RequestAnswers_data()
    {
        const Rows<QString, int, qsizetype> row("target", "status", "count");
        row("all venues", u"/api/venue"_s, 200, 20);
        row("one venue", u"/api/venue?filter[entity_id]=7"_s, 200, 1);
        row("venue that does not exist", u"/api/venue?filter[entity_id]=99"_s, 200, 0);
        row("title contains",
            u"/api/venue?filter[title][condition][path]=title&filter[title][condition][operator]=CONTAINS"
            "&filter[title][condition][value]=%2020"_s,
            200, 1);
        row("query that is not understood", u"/api/venue?page=2"_s, 400, -1);
        row("unknown path", u"/api/venues"_s, 404, -1);
        row("root", u"/"_s, 404, -1);
        row("unknown picture", u"/files/pictures/pic-99-1-small.jpg"_s, 404, -1);
        row("unknown rendition", u"/files/pictures/pic-1-1-huge.jpg"_s, 404, -1);
        row("unknown model file", u"/files/models/none.tessra"_s, 404, -1);
        row("path that leads out", u"/files/models/%2E%2E%2Fusers.json"_s, 404, -1);
    }
    void RequestAnswers()
    {
        const auto [target, status, count] = Fetch<QString, int, qsizetype>();
        const Outcome outcome = Get(target);
        QCOMPARE(outcome.status, status);
        QCOMPARE(outcome.contentType, c_jsonApi);
        const QJsonObject document = JsonObject(outcome.body);
        QVERIFY(document.contains(u"jsonapi"_s));
        if (count >= 0) {
            QCOMPARE(At(document, u"data"_s).toArray().size(), count);
            QVERIFY(!document.contains(u"errors"_s));
        } else {
            QCOMPARE(At(document, u"errors.0.status"_s).toString(), QString::number(status));
            QVERIFY(!At(document, u"errors.0.detail"_s).toString().isEmpty());
            QVERIFY(!document.contains(u"data"_s));
        }
        QCOMPARE(m_server->Log().LastRequest().status, status);
    }

    void OtherMethodsAreRefused_data()
    {
        const Rows<QByteArray> row("method");
        for (const char* method : {"POST", "PUT", "PATCH", "DELETE", "OPTIONS", "TRACE"})
            row(method, method);
    }
    void OtherMethodsAreRefused()
    {
        QFETCH(QByteArray, method);
        const Outcome outcome
            = OutcomeOf(m_manager->sendCustomRequest(QNetworkRequest(Url(u"/api/venue"_s)), method));
        QCOMPARE(outcome.status, 405);
        QCOMPARE(outcome.contentType, c_jsonApi);
        QCOMPARE(m_server->Log().LastRequest().method, method);
    }

    void QuestionMarksInTheQueryAreText()
    {
        VenueRecord venue;
        venue.entityId = 1;
        venue.title = u"What? Where? & 100% + more"_s;
        VenueCatalogue catalogue;
        catalogue.AddVenue(venue);
        m_server->SetCatalogue(catalogue);
        const QString target = u"/api/venue?filter[title][condition][path]=title"
                               "&filter[title][condition][operator]=CONTAINS"
                               "&filter[title][condition][value]=what?%20where?%20%26%20100%25%20+"_s;
        const Outcome outcome = Get(target);
        QCOMPARE(outcome.status, 200);
        QCOMPARE(At(JsonObject(outcome.body), u"data"_s).toArray().size(), 1);
        QCOMPARE(m_server->Log().LastRequest().target, target.toLatin1());
        QCOMPARE(m_server->Log().LastRequest().query.last().second, u"what? where? & 100% +"_s);
    }

    void ConnectionIsKeptAfterARefusedBody()
    {
        const QNetworkRequest request(Url(u"/api/venue"_s));
        QNetworkRequest post = request;
        post.setHeader(QNetworkRequest::ContentTypeHeader, c_jsonApi);
        QCOMPARE(OutcomeOf(m_manager->post(post, QByteArray(5000, 'x'))).status, 405);
        QCOMPARE(OutcomeOf(m_manager->get(request)).status, 200);
        QCOMPARE(m_server->Log().RequestCount(), 2);
        QCOMPARE(m_server->Log().TlsConnectionCount(), 1);
    }

    void HeadIsAnsweredWithoutABody()
    {
        const QNetworkRequest request(Url(u"/api/venue"_s));
        const qsizetype size = OutcomeOf(m_manager->get(request)).body.size();
        QNetworkReply* reply = m_manager->head(request);
        QTRY_VERIFY(reply->isFinished());
        QCOMPARE(reply->header(QNetworkRequest::ContentLengthHeader).toLongLong(), size);
        const Outcome outcome = OutcomeOf(reply);
        QCOMPARE(outcome.status, 200);
        QCOMPARE(outcome.contentType, c_jsonApi);
        QCOMPARE(outcome.body, QByteArray());
        QCOMPARE(m_server->Log().TlsConnectionCount(), 1);
    }

    void RequestsOnTheWire_data()
    {
        const Rows<QByteArray, QList<int>, bool> row("request", "statuses", "isKept");
        const QByteArray first = "GET /first HTTP/1.1\r\nHost: localhost\r\n";
        const QByteArray second = "GET /second HTTP/1.1\r\n\r\n";
        const QByteArray old = "GET / HTTP/1.0\r\n";
        const QByteArray manyLetters(70000, 'x');
        row("one", first + "\r\n", {404}, true);
        row("two at once", first + "\r\n" + second, {404, 404}, true);
        row("the last one", first + "Connection: close\r\n\r\n" + second, {404}, false);
        row("older client", old + "\r\n" + second, {404}, false);
        row("older client that stays", old + "Connection: Keep-Alive\r\n\r\n" + second, {404, 404}, true);
        row("body of a GET", first + "Content-Length: 5\r\n\r\nGET /" + second, {404, 404}, true);
        row("body in chunks", "POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n" + second,
            {405}, false);
        row("not HTTP", "Good morning\r\n\r\n" + second, {400}, false);
        row("blank line", "\r\n\r\n" + second, {400}, false);
        row("long target", "GET /" + manyLetters.left(9000) + " HTTP/1.1\r\n\r\n", {414}, false);
        row("target without an end", "GET /" + manyLetters, {414}, false);
        row("head without an end", first + "X: " + manyLetters, {400}, false);
    }
    void RequestsOnTheWire()
    {
        QFETCH(QByteArray, request);
        QFETCH(QList<int>, statuses);
        QFETCH(bool, isKept);
        QSslSocket socket;
        socket.setProxy(QNetworkProxy::NoProxy);
        socket.connectToHostEncrypted(u"localhost"_s, m_server->HttpsPort());
        QVERIFY2(socket.waitForEncrypted(5000), qPrintable(socket.errorString()));
        QByteArray received;
        const auto receivedStatuses = [&socket, &received] {
            received += socket.readAll();
            static const QRegularExpression c_line(u"HTTP/1.1 (\\d+) "_s);
            QList<int> found;
            for (const auto& match : c_line.globalMatch(QString::fromLatin1(received)))
                found.append(match.captured(1).toInt());
            return found;
        };
        socket.write(request);
        QTRY_COMPARE(receivedStatuses(), statuses);
        if (isKept) {
            socket.write("GET /later HTTP/1.1\r\n\r\n");
            QTRY_COMPARE(receivedStatuses(), statuses + QList<int>{404});
        } else {
            QTRY_COMPARE(socket.state(), QAbstractSocket::UnconnectedState);
            QCOMPARE(receivedStatuses(), statuses);
        }
    }

    void PicturesAndFilesAreServedWhereTheDocumentSays()
    {
        const QString query = u"/api/venue?include=from_the_auditorium.file,tessra.file"
                              "&filter[entity_id]=5"_s;
        const QJsonArray included = At(JsonObject(Get(query).body), u"included"_s).toArray();
        QCOMPARE(included.size(), 4); // picture, its file, model file, its content
        const QUrl small(At(included, u"1.links.small.href"_s).toString());
        QCOMPARE(small.host(), m_server->Host());
        const Outcome picture = OutcomeOf(Send(small));
        QCOMPARE(picture.status, 200);
        QCOMPARE(picture.contentType, QByteArray("image/png"));
        QCOMPARE(picture.body, c_smallPicture + "pic-5-1 480");

        const QString original = At(included, u"1.attributes.url"_s).toString();
        QCOMPARE(Get(original).body, c_smallPicture + "pic-5-1 3000");

        const QString model = At(included, u"3.attributes.url"_s).toString();
        const Outcome file = Get(model);
        QCOMPARE(file.status, 200);
        QCOMPARE(file.body.size(), 1000);
        QVERIFY(file.body.startsWith("5-hall-1.tessra\n"));
    }

    void PictureThatCannotBeMadeIsNotFound()
    {
        VenueService service(m_server->Host(),
                             [](const VenueRecord&, const PictureRecord&, QSize) { return QByteArray(); });
        service.SetCatalogue(*m_server->Catalogue());
        Request request;
        request.method = "GET";
        request.path = u"/files/pictures/pic-5-1-small.jpg"_s;
        QCOMPARE(service.AnswerTo(request).status, 404);
    }

    void LogTellsEachRequest()
    {
        QSignalSpy received(&m_server->Log(), &RequestLog::RequestReceived);
        const QByteArray target = "/api/venue?include=editor&filter%5Bentity_id%5D=4";
        QNetworkRequest request(QUrl::fromEncoded("https://venues.test.example" + target));
        request.setRawHeader("X-Trial", "yes");
        OutcomeOf(m_manager->get(request));
        QTRY_COMPARE(received.size(), 1);
        const QList<Request> requests = m_server->Log().Requests(u"filter[entity_id]"_s);
        QCOMPARE(requests.size(), 1);
        const Request& record = requests.constFirst();
        QCOMPARE(record.method, QByteArray("GET"));
        QCOMPARE(record.target, target);
        QCOMPARE(record.path, u"/api/venue"_s);
        QCOMPARE(record.query.size(), 2);
        QCOMPARE(record.query.at(0), std::pair(u"include"_s, u"editor"_s));
        QCOMPARE(record.query.at(1), std::pair(u"filter[entity_id]"_s, u"4"_s));
        QVERIFY(record.headers.contains({c_sendsHeaderNamesInSmallLetters ? "x-trial" : "X-Trial", "yes"}));
        QVERIFY(record.time.isValid());
        QCOMPARE(record.connectionId, m_server->Log().Connects().constFirst().connectionId);
        QCOMPARE(record.status, 200);
    }

    void LogCountsConnections()
    {
        Get(u"/api/venue"_s);
        Get(u"/nothing"_s);
        QCOMPARE(m_server->Log().RequestCount(), 2);
        QCOMPARE(m_server->Log().ConnectCount(), 1);
        QCOMPARE(m_server->Log().TlsConnectionCount(), 1);
        const ConnectRecord connect = m_server->Log().Connects().constFirst();
        QCOMPARE(connect.host, m_server->Host());
        QCOMPARE(connect.port, quint16(443));
        QCOMPARE(connect.status, 200);
        m_server->Log().Clear();
        QCOMPARE(m_server->Log().RequestCount(), 0);
    }

    void FaultsChangeTheAnswer_data()
    {
        // A null body is not compared.
        const Rows<Fault, int, QByteArray, QByteArray> row("fault", "status", "contentType", "body");

        const auto on = [] { return Fault::On(u"/api/venue?filter[entity_id]=1"_s); };
        row("status with an error document", on().WithStatus(503), 503, c_jsonApi, {});
        row("status with a web page", on().WithStatus(500).WithMediaType("text/html").WithBody("<b>down</b>"),
            500, "text/html", "<b>down</b>");
        row("status with a picture", on().WithStatus(404).WithMediaType("image/png").WithBody("png"), 404,
            "image/png", "png");
        row("status without a body", on().WithStatus(502).WithBody(QByteArray()).WithoutMediaType(), 502, {},
            "");
        row("status with the right media type and no body", on().WithStatus(500).WithBody(QByteArray()), 500,
            c_jsonApi, "");
        row("media type with charset", on().WithMediaType("application/vnd.api+json; charset=utf-8"), 200,
            "application/vnd.api+json; charset=utf-8", {});
        row("media type missing", on().WithoutMediaType(), 200, {}, {});
        row("media type twice", on().WithSecondMediaType("text/html"), 200,
            "application/vnd.api+json, text/html", {});
        row("other body", on().WithBody("{ not json"), 200, c_jsonApi, "{ not json");
        row("empty body", on().WithBody(QByteArray()), 200, c_jsonApi, "");
        row("body with zero bytes", on().WithBody(QByteArray("a\0b", 3)), 200, c_jsonApi,
            QByteArray("a\0b", 3));
        row("chunked body", on().WithBody("in chunks").WithChunks(), 200, c_jsonApi, "in chunks");
        row("by pattern", Fault::OnPattern(QRegularExpression(u"entity_id\\]=\\d$"_s)).WithStatus(418), 418,
            c_jsonApi, {});
        row("of another request", Fault::On(u"/files"_s).WithStatus(500), 200, c_jsonApi, {});
        row("redirect", on().WithRedirect("https://venues.test.example/files/models/2-hall-1.tessra", 307),
            200, "application/octet-stream", {});
    }
    void FaultsChangeTheAnswer()
    {
        const auto [fault, status, contentType, body] = Fetch<Fault, int, QByteArray, QByteArray>();
        m_server->AddFault(fault);
        const Outcome outcome = Get(u"/api/venue?filter[entity_id]=1"_s);
        QCOMPARE(outcome.status, status);
        QCOMPARE(outcome.contentType, contentType);
        if (!body.isNull())
            QCOMPARE(outcome.body, body);
        else
            QVERIFY(!outcome.body.isEmpty());
        m_server->ClearFaults();
        const Outcome afterwards = Get(u"/api/venue?filter[entity_id]=1"_s);
        QCOMPARE(afterwards.status, 200);
        QCOMPARE(afterwards.contentType, c_jsonApi);
    }

    void DelayedAnswerComesLate()
    {
        m_server->AddFault(Fault::On({}).WithDelay(300));
        const Outcome outcome = Get(u"/api/venue"_s);
        QCOMPARE(outcome.status, 200);
        QVERIFY(outcome.milliseconds >= 290);
    }

    void DripComesPieceByPiece()
    {
        m_server->AddFault(Fault::On({}).WithBody("abcdef").WithDrip(1, 30));
        QNetworkReply* reply = Send(Url(u"/api/venue"_s));
        QSignalSpy readyRead(reply, &QNetworkReply::readyRead);
        const Outcome outcome = OutcomeOf(reply);
        QCOMPARE(outcome.error, QNetworkReply::NoError);
        QCOMPARE(outcome.body, QByteArray("abcdef"));
        QVERIFY(outcome.milliseconds >= 5 * 30);
        QVERIFY(readyRead.size() >= 3);
    }

    void CountsOfAFault()
    {
        m_server->AddFault(Fault::On(u"/api/venue"_s).WithStatus(500).Skip(1).Times(2));
        m_server->AddFault(Fault::On(u"/api/venue"_s).WithStatus(501).Skip(1).Times(1));
        QList<int> statuses;
        for (int i = 0; i < 6; ++i)
            statuses.append(Get(u"/api/venue"_s).status);
        // The second fault lets the first request pass that reaches it, the very first one.
        QCOMPARE(statuses, QList<int>({200, 500, 500, 501, 200, 200}));
    }

    void FaultOfOneHostSparesTheOther()
    {
        m_server->AddHost(u"second.example"_s);
        m_server->AddFault(Fault::On({}).ForHost(u"second.example"_s).WithStatus(500));
        QCOMPARE(Get(u"/api/venue"_s).status, 200);
        QCOMPARE(Get(u"/api/venue"_s, u"second.example"_s).status, 500);
        QCOMPARE(m_server->Log().LastRequest().host, u"second.example"_s);
    }

    void StopInterruptsEveryWait_data()
    {
        const Rows<Fault> row("fault");
        row("no answer", Fault::On({}).WithoutAnswer());
        row("silence after the header", Fault::On({}).WithSilenceAfterHeader());
        row("long delay", Fault::On({}).WithDelay(60000));
        row("slow drip", Fault::On({}).WithDrip(1, 60000));
        row("idle connection", Fault::On(u"none"_s));
    }
    void StopInterruptsEveryWait()
    {
        QFETCH(Fault, fault);
        m_server->AddFault(fault);
        QNetworkReply* reply = Send(Url(u"/api/venue"_s));
        QTRY_COMPARE(m_server->Log().RequestCount(), 1);
        QElapsedTimer timer;
        timer.start();
        m_server->Stop();
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
        OutcomeOf(reply);
    }

    void RestartTakesTheSamePorts()
    {
        QCOMPARE(Get(u"/api/venue"_s).status, 200);
        const quint16 httpsPort = m_server->HttpsPort();
        const quint16 proxyPort = m_server->ProxyPort();
        m_server->Stop();
        QVERIFY(!m_server->IsRunning());
        const Outcome down = Get(u"/api/venue"_s);
        QVERIFY(down.error != QNetworkReply::NoError);
        QCOMPARE(down.status, 0);
        QVERIFY(m_server->Start());
        QCOMPARE(m_server->HttpsPort(), httpsPort);
        QCOMPARE(m_server->ProxyPort(), proxyPort);
        QCOMPARE(Get(u"/api/venue"_s).status, 200);
    }

    void PortInUseIsReported()
    {
        VenueServer::Options options = TestOptions();
        options.httpsPort = m_server->HttpsPort();
        VenueServer second(options);
        QVERIFY(!second.Start());
        QVERIFY(second.ErrorText().contains(QString::number(m_server->HttpsPort())));
        QVERIFY(!second.IsRunning());
    }

    void HangingConnectionsKeepNobodyWaiting()
    {
        m_server->AddFault(Fault::On(u"hang"_s).WithoutAnswer());
        std::vector<std::unique_ptr<QNetworkAccessManager>> managers;
        // A manager opens six connections to a host at most.
        for (int i = 0; i < 15; ++i) {
            managers.push_back(std::make_unique<QNetworkAccessManager>());
            for (int k = 0; k < 6; ++k)
                managers.back()->get(QNetworkRequest(Url(u"/hang"_s)));
        }
        QTRY_COMPARE_WITH_TIMEOUT(m_server->Log().RequestCount(u"hang"_s), 90, 20000);
        QCOMPARE(Get(u"/api/venue"_s).status, 200);
    }

    void PicturesThatTakeTimeKeepNobodyWaiting()
    {
        const auto painted = std::make_shared<QSemaphore>();
        const auto letGo = qScopeGuard([painted] { painted->release(); });
        VenueServer::Options options = TestOptions();
        options.pictureSource = [painted](const auto&, const auto&, QSize) {
            painted->acquire();
            return c_smallPicture;
        };
        StartServer(options);

        QNetworkReply* picture = Send(Url(u"/files/pictures/pic-1-1-small.jpg"_s));
        QTRY_COMPARE(m_server->Log().RequestCount(u"pic-1-1"_s), 1);
        QCOMPARE(Get(u"/api/venue"_s).status, 200);
        QVERIFY(!picture->isFinished());
        painted->release();
        QCOMPARE(OutcomeOf(picture).body, c_smallPicture);

        // One that may still be under way when the server stops.
        QNetworkReply* late = Send(Url(u"/files/pictures/pic-2-1-small.jpg"_s));
        QTRY_COMPARE(m_server->Log().RequestCount(u"pic-2-1"_s), 1);
        painted->release();
        m_server->Stop();
        QVERIFY(OutcomeOf(late).milliseconds < 10000);
    }

    void StopInterruptsABodyThatNobodyReads()
    {
        m_server->AddFault(Fault::On({}).WithBody(QByteArray(20 * 1000 * 1000, 'x')));
        QNetworkReply* reply = Send(Url(u"/api/venue"_s));
        reply->setReadBufferSize(1000);
        QTRY_VERIFY(reply->bytesAvailable() > 0);
        QElapsedTimer timer;
        timer.start();
        m_server->Stop();
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
        reply->setReadBufferSize(0);
        QVERIFY(OutcomeOf(reply).error != QNetworkReply::NoError);
    }

    void GuardRestoresTheApplication()
    {
        const QNetworkProxy proxy = QNetworkProxy::applicationProxy();
        const auto authorities = QSslConfiguration::defaultConfiguration().caCertificates();
        QVERIFY(authorities.contains(m_server->CaCertificate()));
        {
            VenueServer second(TestOptions());
            QVERIFY(second.Start());
            const auto guard = second.InstallInApplication();
            QCOMPARE(QNetworkProxy::applicationProxy().port(), second.ProxyPort());
        }
        QCOMPARE(QNetworkProxy::applicationProxy(), proxy);
        QCOMPARE(QSslConfiguration::defaultConfiguration().caCertificates(), authorities);
    }

private:
    void StartServer(const VenueServer::Options& options)
    {
        m_guard.reset();
        m_server = std::make_unique<VenueServer>(options);
        m_server->SetCatalogue(
            CatalogueGenerator({.venueCount = 20, .picturesPerVenue = 2, .modelFilesPerVenue = 1})
                .Catalogue());
        QVERIFY2(m_server->Start(), qPrintable(m_server->ErrorText()));
        m_guard = m_server->InstallInApplication();
    }

    QUrl Url(const QString& pathAndQuery, const QString& host = {}) const
    {
        return QUrl(u"https://"_s + (host.isEmpty() ? m_server->Host() : host) + pathAndQuery);
    }

    QNetworkReply* Send(const QUrl& url)
    {
        return m_manager->get(QNetworkRequest(url));
    }

    Outcome Get(const QString& pathAndQuery, const QString& host = {})
    {
        return OutcomeOf(Send(Url(pathAndQuery, host)));
    }

    static Outcome OutcomeOf(QNetworkReply* reply)
    {
        QElapsedTimer timer;
        timer.start();
        QSignalSpy finished(reply, &QNetworkReply::finished);
        if (!reply->isFinished() && !finished.wait(10000))
            QTest::qFail("no answer within ten seconds", __FILE__, __LINE__);
        Outcome outcome;
        outcome.milliseconds = timer.elapsed();
        outcome.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        outcome.contentType = reply->rawHeader("Content-Type");
        outcome.body = reply->isOpen() ? reply->readAll() : QByteArray();
        outcome.error = reply->error();
        reply->deleteLater();
        return outcome;
    }

    std::unique_ptr<VenueServer> m_server;
    std::unique_ptr<ApplicationNetworkGuard> m_guard;
    std::unique_ptr<QNetworkAccessManager> m_manager;
};

QTEST_GUILESS_MAIN(tst_VenueServer)
#include "tst_VenueServer.moc"
