#include <server/api/PictureStore.h>
#include <tests/support/MessageGuard.h>

#include <QDir>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>

#include <thread>
#include <vector>

using namespace korvel::Demo;

class tst_PictureStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void RenditionsHaveTheirSizes_data();
    void RenditionsHaveTheirSizes();
    void PictureIsMadeOnce();
    void FolderKeepsPictures();
    void ChangedVenueIsDrawnAnew();
    void ManyThreadsMakeOnePicture();

private:
    PictureSource Source();

    std::atomic<int> m_made = 0;
    VenueRecord m_venue;
    PictureRecord m_picture;
};

void tst_PictureStore::init()
{
    korvel::Test::FailOnUnexpectedWarnings();
    m_made = 0;
    m_venue = {};
    m_venue.entityId = 5;
    m_venue.title = QStringLiteral("Hall");
    m_picture = {QStringLiteral("p"), QStringLiteral("isometric"), {}, {}, {}};
}

PictureSource tst_PictureStore::Source()
{
    return [this](const VenueRecord& venue, const PictureRecord& picture, QSize size) {
        ++m_made;
        return venue.title.toUtf8() + picture.id.toUtf8() + QByteArray::number(size.width());
    };
}

void tst_PictureStore::RenditionsHaveTheirSizes_data()
{
    QTest::addColumn<QString>("rendition");
    QTest::addColumn<QSize>("size");
    QTest::newRow("small") << QStringLiteral("small") << QSize(480, 320);
    QTest::newRow("medium") << QStringLiteral("medium") << QSize(1200, 800);
    QTest::newRow("large") << QStringLiteral("large") << QSize(3000, 2000);
    QTest::newRow("unknown") << QStringLiteral("huge") << QSize();
}

void tst_PictureStore::RenditionsHaveTheirSizes()
{
    QFETCH(QString, rendition);
    QFETCH(QSize, size);
    QCOMPARE(PictureStore::RenditionSize(rendition), size);
}

void tst_PictureStore::PictureIsMadeOnce()
{
    PictureStore store(Source(), {});
    QCOMPARE(store.File(m_venue, m_picture, QStringLiteral("small")), QByteArray("Hallp480"));
    QCOMPARE(store.File(m_venue, m_picture, QStringLiteral("small")), QByteArray("Hallp480"));
    QCOMPARE(m_made, 1);
    QCOMPARE(store.File(m_venue, m_picture, QStringLiteral("medium")), QByteArray("Hallp1200"));
    QCOMPARE(m_made, 2);
}

void tst_PictureStore::FolderKeepsPictures()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("not/there/yet"));
    QCOMPARE(PictureStore(Source(), path).File(m_venue, m_picture, QStringLiteral("small")),
             QByteArray("Hallp480"));
    QCOMPARE(QDir(path).entryList(QDir::Files).size(), 1);
    QCOMPARE(PictureStore(Source(), path).File(m_venue, m_picture, QStringLiteral("small")),
             QByteArray("Hallp480"));
    QCOMPARE(m_made, 1);
}

void tst_PictureStore::ChangedVenueIsDrawnAnew()
{
    const QTemporaryDir folder;
    PictureStore store(Source(), folder.path());
    store.File(m_venue, m_picture, QStringLiteral("small"));
    m_venue.title = QStringLiteral("Renamed");
    QCOMPARE(store.File(m_venue, m_picture, QStringLiteral("small")), QByteArray("Renamedp480"));
    QCOMPARE(m_made, 2);
}

void tst_PictureStore::ManyThreadsMakeOnePicture()
{
    QSemaphore started;
    PictureStore store(
        [this, &started](const VenueRecord&, const PictureRecord&, QSize) {
            // Until the other threads have asked as well.
            started.acquire(4);
            ++m_made;
            return QByteArray("picture");
        },
        {});
    std::vector<std::thread> threads;
    std::atomic<int> right = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            started.release();
            right += store.File(m_venue, m_picture, QStringLiteral("small")) == "picture" ? 1 : 0;
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    QCOMPARE(right, 4);
    QCOMPARE(m_made, 1);
}

QTEST_GUILESS_MAIN(tst_PictureStore)
#include "tst_PictureStore.moc"
