#include <ui/VenueDbDialogBase.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/StrictTest.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <functional>
#include <latch>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

static_assert(!std::is_default_constructible_v<VenueDbSignalHandler>);
static_assert(!std::is_destructible_v<VenueDbSignalHandler>);

namespace {

/// Runs a function. QThread::create() would run it within pthread_once(), where the thread sanitizer looks
/// away.
class RunningThread : public QThread
{
public:
    explicit RunningThread(std::function<void()> function)
        : m_function(std::move(function))
    {
        start();
    }

protected:
    void run() override
    {
        m_function();
    }

private:
    std::function<void()> m_function;
};

/// Part of a host that has a thread of its own and listens there to import requests, until an empty one
/// comes.
class ListeningThread : public QThread
{
public:
    ListeningThread(std::latch& listening, std::latch& finished)
        : m_listening(listening)
        , m_finished(finished)
    {
    }

    /// The paths that this very thread heard of.
    const QStringList& Heard() const
    {
        return m_heard;
    }

protected:
    void run() override
    {
        const QObject listener;
        connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::ImportVenueFromTempFileRequest,
                &listener, [this](const QString& path) {
                    if (path.isEmpty())
                        quit();
                    else if (QThread::currentThread() == this)
                        m_heard.append(path);
                });
        m_listening.count_down();
        exec();
        m_finished.count_down();
    }

private:
    std::latch& m_listening;
    std::latch& m_finished;
    QStringList m_heard;
};

} // namespace

class tst_VenueDbSignalHandler : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    // First, as long as there is no instance yet.
    void ThreadsThatAskAtOnceGetOneInstance()
    {
        constexpr std::size_t threadCount = 8;
        std::vector<VenueDbSignalHandler*> seen(threadCount, nullptr);
        std::latch go(threadCount);
        std::latch finished(threadCount);
        std::vector<std::unique_ptr<RunningThread>> threads;
        threads.reserve(threadCount);
        for (std::size_t i = 0; i < threadCount; ++i) {
            threads.push_back(std::make_unique<RunningThread>([&seen, &go, &finished, i] {
                go.arrive_and_wait();
                seen[i] = VenueDbSignalHandler::GetInstance();
                finished.count_down();
            }));
        }
        // The thread sanitizer sees this wait, while those of QThread are hidden in a library that it does
        // not know.
        finished.wait();
        for (const std::unique_ptr<RunningThread>& thread : threads)
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
            = {"VenueLoaded(bool)"_ba, "HelpRequested()"_ba, "DayModeChangeRequested()"_ba,
               "ImportVenueFromTempFileRequest(QString)"_ba};
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

    void ListenersInOtherThreadsHearEverythingInOrder()
    {
        constexpr int threadCount = 3;
        constexpr int requestCount = 100;
        VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
        std::latch listening(threadCount);
        std::latch finished(threadCount + 1);
        std::vector<std::unique_ptr<ListeningThread>> listeners;
        for (int i = 0; i < threadCount; ++i) {
            listeners.push_back(std::make_unique<ListeningThread>(listening, finished));
            listeners.back()->start();
        }
        listening.wait();

        // Meanwhile others come and go.
        std::atomic<bool> isOver = false;
        std::atomic<int> visits = 0;
        RunningThread visitor([&] {
            while (!isOver) {
                const QObject guest;
                connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded, &guest,
                        [] { });
                ++visits;
            }
            finished.count_down();
        });

        QStringList expected;
        for (int i = 0; i < requestCount; ++i) {
            expected.append(u"/tmp/host.%1"_s.arg(i));
            Q_EMIT hub->ImportVenueFromTempFileRequest(expected.constLast());
            Q_EMIT hub->VenueLoaded(true);
        }
        Q_EMIT hub->ImportVenueFromTempFileRequest(QString());
        QTRY_VERIFY(visits > 0);
        isOver = true;
        finished.wait();
        QVERIFY(visitor.wait());
        for (const std::unique_ptr<ListeningThread>& listener : listeners) {
            QVERIFY(listener->wait());
            QCOMPARE(listener->Heard(), expected);
        }
    }
};

QTEST_MAIN(tst_VenueDbSignalHandler)
#include "tst_VenueDbSignalHandler.moc"
