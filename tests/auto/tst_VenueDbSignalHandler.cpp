#include <ui/VenueDbDialogBase.h>
#include <ui/VenueDbSignalHandler.h>

#include <support/MessageGuard.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <memory>
#include <type_traits>
#include <vector>

using korvel::Ui::VenueDatabase::VenueDbDialogBase;
using korvel::Ui::VenueDatabase::VenueDbSignalHandler;

static_assert(!std::is_default_constructible_v<VenueDbSignalHandler>);
static_assert(!std::is_destructible_v<VenueDbSignalHandler>);

class tst_VenueDbSignalHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
    }

    // First, as long as there is no instance yet.
    void ThreadsThatAskAtOnceGetOneInstance()
    {
        constexpr std::size_t threadCount = 8;
        std::vector<VenueDbSignalHandler*> seen(threadCount, nullptr);
        std::atomic<bool> go = false;
        std::vector<std::unique_ptr<QThread>> threads;
        threads.reserve(threadCount);
        for (std::size_t i = 0; i < threadCount; ++i) {
            threads.emplace_back(QThread::create([&seen, &go, i] {
                go.wait(false);
                seen[i] = VenueDbSignalHandler::GetInstance();
            }));
            threads.back()->start();
        }
        go = true;
        go.notify_all();
        for (const std::unique_ptr<QThread>& thread : threads)
            QVERIFY(thread->wait());
        threads.clear();
        QVERIFY(seen.front());
        QVERIFY(std::all_of(seen.cbegin(), seen.cend(),
                            [&seen](const VenueDbSignalHandler* hub) { return hub == seen.front(); }));
        QCOMPARE(VenueDbSignalHandler::GetInstance(), seen.front());

        // An object of a thread that is gone may be fetched: the other tests need the instance here.
        seen.front()->moveToThread(QThread::currentThread());
        QCOMPARE(seen.front()->thread(), QThread::currentThread());
    }

    void InstanceHasNoParent()
    {
        QCOMPARE(VenueDbSignalHandler::GetInstance()->parent(), nullptr);
        QCOMPARE(VenueDbSignalHandler::GetInstance()->metaObject()->className(),
                 "korvel::Ui::VenueDatabase::VenueDbSignalHandler");
    }

    void OffersFourSignalsInThisOrder()
    {
        const QMetaObject& meta = VenueDbSignalHandler::staticMetaObject;
        QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
        const QByteArrayList signatures
            = {QByteArrayLiteral("VenueLoaded(bool)"), QByteArrayLiteral("HelpRequested()"),
               QByteArrayLiteral("DayModeChangeRequested()"),
               QByteArrayLiteral("ImportVenueFromTempFileRequest(QString)")};
        QCOMPARE(meta.methodCount() - meta.methodOffset(), int(signatures.size()));
        for (int i = 0; i < signatures.size(); ++i) {
            const QMetaMethod method = meta.method(meta.methodOffset() + i);
            QCOMPARE(method.methodSignature(), signatures.at(i));
            QCOMPARE(method.methodType(), QMetaMethod::Signal);
        }
    }

    void DialogsShareTheInstanceAndLeaveItAlone()
    {
        VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
        QSignalSpy requests(hub, &VenueDbSignalHandler::DayModeChangeRequested);
        {
            VenueDbDialogBase first;
            VenueDbDialogBase second;
            Q_EMIT first.DayModeChangeRequested();
            Q_EMIT second.DayModeChangeRequested();
        }
        QCOMPARE(requests.count(), 2);
        QCOMPARE(VenueDbSignalHandler::GetInstance(), hub);
        VenueDbDialogBase later;
        Q_EMIT later.DayModeChangeRequested();
        QCOMPARE(requests.count(), 3);
    }

    void ListenersEndWithTheirObject()
    {
        int answers = 0;
        {
            const QObject host;
            connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded, &host,
                    [&answers] { ++answers; });
            Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(true);
        }
        Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(true);
        QCOMPARE(answers, 1);
    }
};

QTEST_MAIN(tst_VenueDbSignalHandler)
#include "tst_VenueDbSignalHandler.moc"
