#include <data/CountryCodeTranslator.h>

#include <tests/support/ConnectorTest.h>
#include <tests/support/QtVersion.h>
#include <tests/support/Rows.h>

#include <QElapsedTimer>
#include <QMetaProperty>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QSet>
#include <QSignalSpy>
#include <QThread>
#include <QTimer>

#include <functional>
#include <memory>
#include <type_traits>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Demo;
using namespace korvel::Test;

// Exported by Qt for tools; declared in a header that is not installed.
extern quintptr Q_CORE_EXPORT qtHookData[];

using Query = QList<std::pair<QString, QString>>;

/// Whatever implements the interface can be made, copied and assigned: its own part does not object.
class Implementation : public Connector_Interface
{
protected:
    Implementation();
    Implementation(const Implementation& other);
};
// Here, where a default that cannot be had is an error.
Implementation::Implementation() = default;
Implementation::Implementation(const Implementation& other) = default;

namespace {

static_assert(std::is_abstract_v<Connector_Interface>);
static_assert(std::has_virtual_destructor_v<Connector_Interface>);
static_assert(std::is_copy_assignable_v<Connector_Interface>);
static_assert(int(Ok) == 0 && int(WrongContentType) == 1 && int(Timeout) == 2);

// The private operations of the interface have no caller. Their members can be named where a template is
// instantiated explicitly, which is the one place that access control does not reach.
using VenueStub = QList<Venue> (Connector_Interface::*)();
using UserStub = QList<User> (Connector_Interface::*)();
template <int number> using Stub = std::integral_constant<int, number>;
VenueStub MemberOf(Stub<0>);
VenueStub MemberOf(Stub<1>);
UserStub MemberOf(Stub<2>);
UserStub MemberOf(Stub<3>);
template <int number, auto member> struct Exposed
{
    friend decltype(member) MemberOf(Stub<number>)
    {
        return member;
    }
};
template struct Exposed<0, &Connector_Interface::GetAllVenueEntries>;
template struct Exposed<1, &Connector_Interface::GetVenueEntries>;
template struct Exposed<2, &Connector_Interface::GetAllUserEntries>;
template struct Exposed<3, &Connector_Interface::GetUserEntries>;

/// Every QObject that was made in this thread during the life of this one and still lives. By Qt's hooks for
/// object inspectors.
class LivingObjects
{
public:
    LivingObjects()
    {
        s_objects.clear();
        qtHookData[c_addObject] = Address([](QObject* object) {
            if (IsThisThread())
                s_objects.insert(object);
        });
        qtHookData[c_removeObject] = Address([](QObject* object) {
            if (IsThisThread())
                s_objects.remove(object);
        });
    }
    ~LivingObjects()
    {
        qtHookData[c_addObject] = 0;
        qtHookData[c_removeObject] = 0;
    }
    Q_DISABLE_COPY_MOVE(LivingObjects)

    static QList<QObject*> All()
    {
        return s_objects.values();
    }

private:
    static quintptr Address(void (*hook)(QObject*))
    {
        return reinterpret_cast<quintptr>(hook);
    }
    /// The server makes objects too, in threads of its own.
    static bool IsThisThread()
    {
        return QThread::currentThread() == QCoreApplication::instance()->thread();
    }

    static constexpr int c_addObject = 3;
    static constexpr int c_removeObject = 4;
    static inline QSet<QObject*> s_objects;
};

} // namespace

class tst_ConnectorRequestLayer : public ConnectorTest
{
    Q_OBJECT

private Q_SLOTS:
    // The object.

    void AnswersToBothItsTypes()
    {
        QCOMPARE(m_connector->metaObject()->className(), "korvel::Data::VenueDatabase::ConnectorJsonRest");
        QCOMPARE(m_connector->qt_metacast("korvel::Data::VenueDatabase::ConnectorJsonRest"),
                 m_connector.get());
        Connector_Interface* const connector = m_connector.get();
        QCOMPARE(m_connector->qt_metacast("Connector_Interface"), static_cast<void*>(connector));
        QCOMPARE(dynamic_cast<QObject*>(connector), m_connector.get());
    }

    void IsCreatedByTheMetaTypeSystem()
    {
        const QMetaType type = QMetaType::fromType<ConnectorJsonRest>();
        void* const created = type.create();
        QVERIFY(created);
        const auto connector = static_cast<ConnectorJsonRest*>(created);
        QCOMPARE(connector->parent(), nullptr);
        QCOMPARE(connector->GetServerAddress(), QString());
        type.destroy(created);
    }

    void BelongsToItsParent()
    {
        auto parent = std::make_unique<QObject>();
        const QPointer<ConnectorJsonRest> connector(new ConnectorJsonRest(parent.get()));
        QCOMPARE(connector->parent(), parent.get());
        const QPointer<QNetworkAccessManager> manager(connector->findChild<QNetworkAccessManager*>());
        QCOMPARE(manager->parent(), connector);
        parent.reset();
        QVERIFY(!connector);
        QVERIFY(!manager);
    }

    void OnlyTheTranslatorOutlivesTheConnector()
    {
        const LivingObjects living;
        {
            const ConnectorJsonRest connector(nullptr);
            QVERIFY(living.All().size() > 2);
            QCOMPARE(connector.findChild<CountryCodeTranslator*>(), nullptr);
        }
        DeleteWhatIsDue();
        QCOMPARE(living.All().size(), 1);
        const auto* const translator = qobject_cast<CountryCodeTranslator*>(living.All().first());
        QVERIFY(translator);
        QCOMPARE(translator->parent(), nullptr);
        QCOMPARE(translator->GetCountry(u"DE"_s), u"Germany"_s);
    }

    void DestructionEndsRunningRequestsSilently()
    {
        m_server->Withhold(u"/a"_s);
        const QPointer<QNetworkReply> reply(m_connector->SendGetJsonRequest(u"/a"_s, {}));
        QSignalSpy finished(reply, &QNetworkReply::finished);
        QTRY_COMPARE(m_server->Log().RequestCount(), 1);
        m_connector.reset();
        QVERIFY(!reply);
        QCOMPARE(finished.size(), 0);
    }

    void ServerAddressIsStoredAndReported()
    {
        QCOMPARE(m_connector->GetServerAddress(), QString());
        m_connector->SetServerAddress(u"https://other.example"_s);
        QCOMPARE(m_connector->GetServerAddress(), u"https://other.example"_s);
        QCOMPARE(m_connector->property("serverAddress"), QVariant(u"https://other.example"_s));
        QVERIFY(m_connector->setProperty("serverAddress", u"x"_s));
        QCOMPARE(m_connector->GetServerAddress(), u"x"_s);

        const QMetaObject* const meta = m_connector->metaObject();
        const QMetaProperty property = meta->property(meta->indexOfProperty("serverAddress"));
        QCOMPARE(property.metaType(), QMetaType::fromType<QString>());
        QVERIFY(property.isReadable() && property.isWritable() && !property.hasNotifySignal());
    }

    void UsersAndStubsAnswerWithoutTheNetwork()
    {
        Connector_Interface* const connector = m_connector.get();
        QCOMPARE(connector->FindUserEntries({{u"name"_s, u"x"_s}}).size(), 0);
        QCOMPARE((connector->*MemberOf(Stub<0>{}))().size(), 0);
        QCOMPARE((connector->*MemberOf(Stub<1>{}))().size(), 0);
        QCOMPARE((connector->*MemberOf(Stub<2>{}))().size(), 0);
        QCOMPARE((connector->*MemberOf(Stub<3>{}))().size(), 0);
        QCOMPARE(m_connector->findChildren<QNetworkReply*>().size(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(m_server->Log().ConnectCount(), 0);
    }

    // Requests.

    void JsonRequestOnTheWire_data()
    {
        const Rows<QString, Query, QByteArray> row("path", "query", "target");
        const QString path = u"/api/venue"_s;
        row("no query", path, {}, "/api/venue");
        row("one pair", path, {{u"a"_s, u"1"_s}}, "/api/venue?a=1");
        row("order is kept", path, {{u"b"_s, u"1"_s}, {u"a"_s, u"2"_s}}, "/api/venue?b=1&a=2");
        row("repeated names are all kept", path,
            {{u"a"_s, u"2"_s}, {u"b"_s, u"x"_s}, {u"a"_s, u"1"_s}, {u"a"_s, u"1"_s}},
            "/api/venue?a=2&b=x&a=1&a=1");
        row("brackets stay", path, {{u"filter[a][b]"_s, u"[c]"_s}}, "/api/venue?filter[a][b]=[c]");
        row("separators are encoded", path, {{u"a&b"_s, u"c=d#e&f"_s}}, "/api/venue?a%26b=c%3Dd%23e%26f");
        row("blank and accent", path, {{u"a"_s, u"\u00fc b"_s}}, "/api/venue?a=%C3%BC%20b");
        row("empty path", {}, {{u"a"_s, u"1"_s}}, "/?a=1");
        row("path with a question mark and a hash", u"/a?b#c"_s, {{u"a"_s, u"1"_s}}, "/a%3Fb%23c?a=1");
        row("path with a blank, an accent and a triplet", u"/a b/\u00fc%2Fc"_s, {}, "/a%20b/%C3%BC%2Fc");
        // What counts is that it remains a path.
        row("path that looks like a host", u"//second.example/a"_s, {},
            c_keepsLeadingSlashes ? "//second.example/a" : "/second.example/a");
    }
    void JsonRequestOnTheWire()
    {
        const auto [path, query, target] = Fetch<QString, Query, QByteArray>();
        m_server->Answer(QString(), "body", "text/plain");
        m_connector->SetServerAddress(u"https://second.example"_s);
        QNetworkReply* const reply = m_connector->SendGetJsonRequest(path, query);
        QCOMPARE(reply->request().url().scheme(), u"https"_s);
        QVERIFY(m_connector->waitForFinished(reply, 20'000));
        QCOMPARE(reply->readAll(), QByteArray("body"));
        QCOMPARE(m_server->Log().RequestCount(), 1);
        QCOMPARE(m_server->Log().LastRequest().method, QByteArray("GET"));
        QCOMPARE(m_server->Log().LastRequest().target, target);
        // The stored address changes nothing.
        QCOMPARE(m_server->Log().LastRequest().host, m_host);
        QCOMPARE(m_server->Log().Connects().first().port, 443);
        QCOMPARE(m_connector->GetServerAddress(), u"https://second.example"_s);
    }

    void PathWithoutSlashStaysOnTheFixedHost_data()
    {
        const Rows<QString> row("path");
        row("relative", u"api/venue"_s);
        row("whole URL", u"https://second.example/a"_s);
        row("file", u"file:///etc/passwd"_s);
        row("port and user", u":8080@second.example/a"_s);
        row("end of a host name", u".second.example/a"_s);
    }
    void PathWithoutSlashStaysOnTheFixedHost()
    {
        QFETCH(QString, path);
        QNetworkReply* const reply = m_connector->SendGetJsonRequest(path, {});
        QVERIFY(!reply->isFinished());
        QVERIFY(m_connector->waitForFinished(reply, 20'000));
        QVERIFY(reply->error() != QNetworkReply::NoError);
        for (const auto& connection : m_server->Log().Connects())
            QCOMPARE(connection.host, m_host);
    }

    void UrlRequestGoesWhereItsTextSays_data()
    {
        const Rows<QString, QString, QByteArray> row("url", "host", "target");
        row("server's own host", ScriptedServer::Url(u"/a.jpg"_s), m_host, "/a.jpg");
        row("other host", u"https://second.example/a.jpg"_s, u"second.example"_s, "/a.jpg");
        row("query", u"https://second.example/a.jpg?itok=x%26y&b"_s, u"second.example"_s,
            "/a.jpg?itok=x%26y&b");
        row("scheme and host in capitals", u"HTTPS://SECOND.example/A.jpg"_s, u"second.example"_s, "/A.jpg");
        row("tolerant: blank, accent, stray per cent sign", u"https://second.example/gro\u00df 100%.jpg"_s,
            u"second.example"_s, "/gro%C3%9F%20100%25.jpg");
        row("fragment stays here", u"https://second.example/a.jpg#part"_s, u"second.example"_s, "/a.jpg");
        row("no path", u"https://second.example"_s, u"second.example"_s, "/");
    }
    void UrlRequestGoesWhereItsTextSays()
    {
        const auto [url, host, target] = Fetch<QString, QString, QByteArray>();
        m_server->Answer(QString(), "body", "text/plain");
        m_connector->SetServerAddress(u"https://third.example"_s);
        QNetworkReply* const reply = m_connector->SendGetUrlRequest(url);
        QVERIFY(m_connector->waitForFinished(reply, 20'000));
        QCOMPARE(reply->readAll(), QByteArray("body"));
        QCOMPARE(m_server->Log().LastRequest().host, host);
        QCOMPARE(m_server->Log().LastRequest().target, target);
    }

    void RequestHasNoHeadersOfItsOwn_data()
    {
        const Rows<bool> row("json");
        row("JSON request", true);
        row("URL request", false);
    }
    void RequestHasNoHeadersOfItsOwn()
    {
        QFETCH(bool, json);
        QNetworkReply* const reply = json ? m_connector->SendGetJsonRequest(u"/a"_s, {{u"a"_s, u"1"_s}})
                                          : m_connector->SendGetUrlRequest(ScriptedServer::Url(u"/a"_s));
        QCOMPARE(reply->request().rawHeaderList().size(), 0);
        QVERIFY(m_connector->waitForFinished(reply, 20'000));
        // What Qt itself adds to every request.
        const QByteArrayList ofQt{"accept-encoding", "accept-language", "connection", "host", "user-agent"};
        QByteArrayList names;
        for (const auto& [name, value] : m_server->Log().LastRequest().headers) {
            names.append(name.toLower());
            if (names.last() == "user-agent")
                QCOMPARE(value, QByteArray("Mozilla/5.0"));
        }
        QCOMPARE(names, ofQt);
    }

    void HandedOutReplyStaysTheCallers()
    {
        m_server->Answer(QString(), "body", "text/plain");
        const QPointer<QNetworkReply> json(m_connector->SendGetJsonRequest(u"/a"_s, {}));
        const QPointer<QNetworkReply> url(m_connector->SendGetUrlRequest(ScriptedServer::Url(u"/b"_s)));
        auto* const manager = m_connector->findChild<QNetworkAccessManager*>();
        QCOMPARE(json->parent(), manager);
        QCOMPARE(url->parent(), manager);
        QVERIFY(m_connector->waitForFinished(json, 20'000));
        QVERIFY(m_connector->waitForFinished(url, 20'000));
        QCoreApplication::processEvents();
        DeleteWhatIsDue();
        QVERIFY(json && url);
        QCOMPARE(json->readAll(), QByteArray("body"));
        QCOMPARE(url->readAll(), QByteArray("body"));
        m_connector.reset();
        QVERIFY(!json && !url);
    }

    // The wait.

    void WaitIsTrueWhenTheReplyFinishes_data()
    {
        const Rows<int> row("status");
        row("success", 200);
        row("error page", 500);
    }
    void WaitIsTrueWhenTheReplyFinishes()
    {
        QFETCH(int, status);
        m_server->AddFault(Fault::On(u"/a"_s).WithStatus(status).WithDelay(50));
        QNetworkReply* const reply = m_connector->SendGetJsonRequest(u"/a"_s, {});
        QVERIFY(m_connector->waitForFinished(reply, 20'000));
        QVERIFY(reply->isFinished());
    }

    void WaitIsTrueForAFailedConnection()
    {
        m_server->Server().Stop();
        QNetworkReply* const reply = m_connector->SendGetJsonRequest(u"/a"_s, {});
        QVERIFY(m_connector->waitForFinished(reply, 20'000));
        QVERIFY(reply->error() != QNetworkReply::NoError);
    }

    void FinishedReplyCountsAtOnce()
    {
        QNetworkReply* const reply = m_connector->SendGetJsonRequest(u"/a"_s, {});
        QSignalSpy finished(reply, &QNetworkReply::finished);
        QVERIFY(finished.wait(20'000));
        bool eventsWereServed = false;
        const QObject context;
        QTimer::singleShot(0, &context, [&eventsWereServed]() { eventsWereServed = true; });
        QVERIFY(m_connector->waitForFinished(reply, 0));
        QVERIFY(m_connector->waitForFinished(reply, 20'000));
        QVERIFY(!eventsWereServed);
    }

    void NoReplyIsNoSuccess()
    {
        QVERIFY(!m_connector->waitForFinished(nullptr, 20'000));
    }

    void TimeoutAbortsTheReply_data()
    {
        const Rows<Fault> row("fault");
        row("no answer", Fault::On(u"/a"_s).WithoutAnswer());
        row("header only", Fault::On(u"/a"_s).WithBody("body").WithSilenceAfterHeader());
        row("drips", Fault::On(u"/a"_s).WithBody(QByteArray(100'000, 'x')).WithDrip(10, 50));
    }
    void TimeoutAbortsTheReply()
    {
        QFETCH(Fault, fault);
        m_server->AddFault(fault);
        QNetworkReply* const reply = m_connector->SendGetJsonRequest(u"/a"_s, {});
        QSignalSpy finished(reply, &QNetworkReply::finished);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!m_connector->waitForFinished(reply, 700));
        // A coarse timer may end up to a twentieth too early.
        QVERIFY2(timer.elapsed() >= 700, qPrintable(QString::number(timer.elapsed())));
        QVERIFY(reply->isFinished());
        QCOMPARE(reply->error(), QNetworkReply::OperationCanceledError);
        QCOMPARE(finished.size(), 1);
        // The reply belongs to the caller all the same.
        DeleteWhatIsDue();
        QCOMPARE(m_connector->findChild<QNetworkReply*>(), reply);
    }

    void TimeoutOfZeroIsOverAtOnce()
    {
        m_server->Withhold(u"/a"_s);
        QNetworkReply* const reply = m_connector->SendGetJsonRequest(u"/a"_s, {});
        QVERIFY(!m_connector->waitForFinished(reply, 0));
        QCOMPARE(reply->error(), QNetworkReply::OperationCanceledError);
    }

    void TimersAreServedDuringTheWait()
    {
        m_server->AddFault(Fault::On(u"/a"_s).WithDelay(300));
        int count = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&count]() { ++count; });
        timer.start(10);
        QVERIFY(m_connector->waitForFinished(m_connector->SendGetJsonRequest(u"/a"_s, {}), 20'000));
        QVERIFY(count > 1);
    }

    void WaitsNest()
    {
        m_server->AddFault(Fault::On(u"/outer"_s).WithBody("outer"));
        m_server->AddFault(Fault::On(u"/inner"_s).WithBody("inner").WithDelay(2500));
        QNetworkReply* const outer = m_connector->SendGetJsonRequest(u"/outer"_s, {});
        bool innerFinished = false;
        QTimer::singleShot(0, this, [&]() {
            innerFinished
                = m_connector->waitForFinished(m_connector->SendGetJsonRequest(u"/inner"_s, {}), 20'000);
        });
        // Its time runs out while the inner wait holds it up, but the reply had finished before.
        QVERIFY(m_connector->waitForFinished(outer, 2000));
        QVERIFY(innerFinished);
        QCOMPARE(outer->readAll(), QByteArray("outer"));
    }

    void WaitEndsWhen_data()
    {
        const Rows<std::function<void()>> row("happening");
        row("the reply is deleted", [this]() { delete m_reply; });
        row("the reply is deleted later", [this]() { m_reply->deleteLater(); });
        row("the connector is deleted", [this]() { m_connector.reset(); });
        row("the connector is deleted later", [this]() { m_connector.release()->deleteLater(); });
    }
    void WaitEndsWhen()
    {
        QFETCH(std::function<void()>, happening);
        m_server->Withhold(u"/a"_s);
        OnRequest({}, happening);
        m_reply = m_connector->SendGetJsonRequest(u"/a"_s, {});
        ConnectorJsonRest* const connector = m_connector.get();
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!connector->waitForFinished(m_reply, 20'000));
        QVERIFY(timer.elapsed() < 15'000);
        QVERIFY(!m_reply);
    }

    void ReplyThatDiesWhenItFinishesIsNoSuccess()
    {
        m_reply = m_connector->SendGetJsonRequest(u"/a"_s, {});
        connect(m_reply, &QNetworkReply::finished, this, [this]() { m_connector.reset(); });
        ConnectorJsonRest* const connector = m_connector.get();
        QVERIFY(!connector->waitForFinished(m_reply, 20'000));
        QVERIFY(!m_reply);
    }

    void QuittingEndsTheWait()
    {
        m_server->Withhold(u"/a"_s);
        bool finished = true;
        QVERIFY(QuittingEnds({}, [&]() {
            finished = m_connector->waitForFinished(m_connector->SendGetJsonRequest(u"/a"_s, {}), 20'000);
        }));
        QVERIFY(!finished);
        // The request has not been aborted: nothing timed out.
        QVERIFY(!m_connector->findChild<QNetworkReply*>()->isFinished());
    }

    void WaitThatBeginsWhileQuittingEndsAtOnce()
    {
        m_server->Withhold(u"/a"_s);
        const QObject context;
        bool finished = true;
        QTimer::singleShot(0, &context, [&]() {
            QCoreApplication::quit();
            finished = m_connector->waitForFinished(m_connector->SendGetJsonRequest(u"/a"_s, {}), 20'000);
        });
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::exec();
        QVERIFY(!finished);
        QVERIFY(timer.elapsed() < 15'000);
    }

private:
    QPointer<QNetworkReply> m_reply;
};

QTEST_GUILESS_MAIN(tst_ConnectorRequestLayer)
#include "tst_ConnectorRequestLayer.moc"
