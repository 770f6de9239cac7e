#include <data/DownloadManager.h>
#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureView.h>

#include <tests/support/FaultRows.h>
#include <tests/support/Files.h>
#include <tests/support/FullDisk.h>
#include <tests/support/HostileData.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/QtVersion.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/SaveDriver.h>
#include <tests/support/ServerTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

constexpr QSize c_smallSize(60, 40);
constexpr QSize c_largeSize(64, 64);
const QString c_loading = u"Loading large image..."_s;
/// The JPEG plug-in's words for a device that takes no more.
const QStringList c_encoderFailed(c_warningsOfJpegError, u"Bogus message code 0"_s);
const QString c_path = u"/pictures/odd.png"_s;

QStringList ExpectedSignals(Signals sequence)
{
    const QString failed = u"Request failed!"_s;
    const QString noImage = u"Cannot convert reply. Reply is not an image."_s;
    switch (sequence) {
    case Signals::Image:
        return {u"image"_s};
    case Signals::NotAnImage:
        return {noImage};
    case Signals::TwoFailures:
        return {failed, noImage};
    case Signals::FailedThenImage:
        return {failed, u"image"_s};
    }
    return {};
}

} // namespace

/// What the full-screen viewer makes of large renditions that do not come, come damaged, or cannot be saved.
class tst_FaultMatrixViewer : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QStandardPaths::setTestModeEnabled(true);
        QVERIFY(m_home.isValid());
        qputenv("HOME", m_home.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_home.path().toLocal8Bit());
        ServerTest::initTestCase();
    }
    void init()
    {
        ServerTest::init();
        m_emitted.clear();
        m_buffer.clear();
        m_viewer = std::make_unique<PictureFullscreenDialog>();
        auto* downloads = m_viewer->findChild<DownloadManager*>();
        connect(downloads, &DownloadManager::PictureBinaryDataFinished, this,
                [this](const QUrl& url, const QByteArray& buffer) {
                    m_emitted.append(u"image"_s);
                    m_buffer = buffer;
                    QCOMPARE(url, m_url);
                });
        connect(downloads, &DownloadManager::RequestFailed, this,
                [this](const QUrl& url, const QString& message) {
                    m_emitted.append(message);
                    QCOMPARE(url, m_url);
                });
        // The host's own, which nobody may touch.
        QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    }
    void cleanup()
    {
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
        m_viewer.reset();
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
        QGuiApplication::restoreOverrideCursor();
        QVERIFY(!QGuiApplication::overrideCursor());
        ServerTest::cleanup();
    }

    void LargeRendition_data()
    {
        AddFaultRows(ViewerFaultRows());
    }
    void LargeRendition()
    {
        QFETCH(FaultRow, fault);
        const FaultTarget target{.request = QRegularExpression(u"^/pictures/odd\\.png$"_s),
                                 .body = NoisePicture(c_largeSize),
                                 .mediaType = "image/png"};
        fault.make(*m_server, target);

        Show(ScriptedServer::Url(c_path));
        VerifyOutcome(fault.viewer);

        if (m_emitted.last() == u"image"_s) {
            QCOMPARE(ReceivedComplaint(fault.picture, fault, target, m_buffer), QString());
            QCOMPARE(m_viewer->GetStatusLabel()->text(), QString());
            // What cannot be decoded leaves nothing to be seen.
            QCOMPARE(ShownSize(*m_viewer), fault.picture == Received::Whole ? c_largeSize : QSize(0, 0));
        } else {
            QCOMPARE(m_viewer->GetStatusLabel()->text(), c_loading);
            QCOMPARE(ShownSize(*m_viewer), c_smallSize);
        }
        if (fault.isError || fault.viewer == Signals::NotAnImage)
            VdbMessages::Verify({FailureMessage(fault, u"Picture download"_s, m_host + c_path)});
        VerifyNothingLeft(fault, *m_server, 0);
    }

    void Address_data()
    {
        QTest::addColumn<HostileUrl>("address");
        const QString file = m_home.filePath(u"odd.png"_s);
        QList<HostileUrl> addresses = HostileUrls(m_host, file);
        addresses.append({"empty", QString(), false});
        // Unlike small ones, addresses of large renditions are used as the server sent them.
        addresses.append({"backslashes", u"https:\\/\\/venues.korvel.example\\/pictures\\/odd.png"_s, false});
        addresses.append({"file with backslashes", u"file:\\/\\/"_s + file, false});
        for (const HostileUrl& address : std::as_const(addresses))
            QTest::newRow(address.name.constData()) << address;
    }
    void Address()
    {
        QFETCH(HostileUrl, address);
        WriteFile(m_home.filePath(u"odd.png"_s), EncodedPicture(c_largeSize, Qt::blue));
        m_server->Answer(c_path, EncodedPicture(c_largeSize, Qt::blue), "image/png");

        Show(address.url);
        const bool isText = address.url.startsWith(u"data:"_s);
        VerifyOutcome(address.isFetched ? Signals::Image
                          : isText      ? Signals::NotAnImage
                                        : Signals::TwoFailures);

        QCOMPARE(m_viewer->GetStatusLabel()->text(), address.isFetched ? QString() : c_loading);
        QCOMPARE(ShownSize(*m_viewer), address.isFetched ? c_largeSize : c_smallSize);
        QCOMPARE(m_server->Log().RequestCount(), address.isFetched ? 1 : 0);
        if (!address.isFetched)
            VdbMessages::Verify({u"^Picture download failed: .* - .+$"_s});
    }

    void UndecodableRendition_data()
    {
        QTest::addColumn<UndecodablePicture>("picture");
        for (const UndecodablePicture& picture : UndecodablePictures())
            QTest::newRow(picture.name.constData()) << picture;
    }
    void UndecodableRendition()
    {
        QFETCH(UndecodablePicture, picture);
        const QByteArray bytes = picture.bytes;
        // Once for the screen, once for the file.
        ExpectWarnings(picture.warnings + picture.warnings);
        ShowLarge(bytes);
        QCOMPARE(m_buffer, bytes);
        QCOMPARE(m_viewer->GetStatusLabel()->text(), QString());
        QCOMPARE(ShownSize(*m_viewer), picture.isTooLarge ? c_smallSize : QSize(0, 0));

        SaveDriver user(SavePath());
        m_viewer->OnSaveImageAs();
        QCOMPARE(m_viewer->GetStatusLabel()->text(), u"Could not save file. Sorry."_s);
        QCOMPARE(user.boxes, QStringList());
        QCOMPARE(user.dialogs, 2);
        QVERIFY(!QFile::exists(SavePath()));
    }

    void EmptyRendition()
    {
        // Nothing arrived, so the small picture is still the largest at hand.
        ShowLarge(QByteArray());
        QCOMPARE(m_viewer->GetStatusLabel()->text(), QString());
        QVERIFY(m_viewer->SaveImage(SavePath()));
        QCOMPARE(QImageReader(SavePath()).size(), c_smallSize);
    }

    void OddShape_data()
    {
        const Rows<QSize, bool> row("size", "isSaved");
        row("1 x 1", QSize(1, 1), true);
        row("1 x 65,000", QSize(1, 65'000), true);
        // JPEG counts the pixels of a side in 16 bits.
        row("1 x 65,536", QSize(1, 65'536), false);
        row("65,536 x 1", QSize(65'536, 1), false);
        row("1 x 100,000", QSize(1, 100'000), false);
        row("100,000 x 1", QSize(100'000, 1), false);
    }
    void OddShape()
    {
        const auto [size, isSaved] = Fetch<QSize, bool>();
        ShowLarge(BlankPng(size));
        QCOMPARE(ShownSize(*m_viewer), size);
        for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Minus, Qt::Key_Minus})
            QTest::keyClick(m_viewer.get(), key);
        QVERIFY(!m_viewer->grab().isNull());

        if (isSaved) {
            QVERIFY(m_viewer->SaveImage(SavePath()));
            QCOMPARE(QImageReader(SavePath()).size(), size);
        } else {
            ExpectWarnings(
                QStringList(c_warningsOfJpegError, u"Maximum supported image dimension is 65500 pixels"_s));
            VerifyCannotWrite(SavePath(), false);
            QVERIFY(!QFile::exists(SavePath()));
        }
    }

    void SaveTarget_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("isFull");
        const QSize large(700, 500);
        for (const QSize& size : {c_largeSize, large}) {
            const char* which = size == large ? "large" : "small";
            // Not even root creates files there.
            QTest::addRow("read-only folder, %s picture", which) << u"/proc/odd.jpg"_s << size << false;
            QTest::addRow("missing folder, %s picture", which) << u"missing/odd.jpg"_s << size << false;
            QTest::addRow("folder that is a file, %s picture", which) << u"file/odd.jpg"_s << size << false;
            QTest::addRow("full disk, %s picture", which)
                << u"full-%1.jpg"_s.arg(QLatin1String(which)) << size << true;
        }
    }
    void SaveTarget()
    {
        QFETCH(QString, path);
        QFETCH(QSize, size);
        QFETCH(bool, isFull);
        WriteFile(m_home.filePath(u"file"_s));
        // Noise: as many bytes as a picture of that size can have.
        ShowLarge(NoisePicture(size));
        const QString target = QDir(m_home.path()).absoluteFilePath(path);
        QVERIFY(!QFile::exists(target));
        // What does not fit into the buffers fails inside the encoder.
        if (isFull && size != c_largeSize)
            ExpectWarnings(c_encoderFailed);
        VerifyCannotWrite(target, isFull);
        QVERIFY(!QFile::exists(target));
        QVERIFY(m_viewer->SaveImage(SavePath()));
        QCOMPARE(QImageReader(SavePath()).size(), size);
    }

    void FullDiskLeavesTheOldFile()
    {
        const QString path = SavePath();
        WriteFile(path, "old");
        ShowLarge(NoisePicture(QSize(700, 500)));
        ExpectWarnings(c_encoderFailed);
        SaveDriver user(path);
        {
            const FullDisk fullDisk;
            QVERIFY(!m_viewer->SaveImage(path));
        }
        QCOMPARE(user.boxes, QStringList{u"Cannot write "_s + path});
        QCOMPARE(ContentOf(path), QByteArray("old"));
    }

    void CaptionIsPlain_data()
    {
        QTest::addColumn<QString>("text");
        for (const auto& [name, text, json] : HostileTexts())
            QTest::newRow(name.constData()) << text;
    }
    void CaptionIsPlain()
    {
        QFETCH(QString, text);
        ShowLarge(EncodedPicture(c_largeSize, Qt::blue), text);
        const auto* caption = Caption(*m_viewer);
        QCOMPARE(caption->text(), u"1/1 "_s + text);
        QCOMPARE(caption->textFormat(), Qt::PlainText);
        // However long it is, the caption stays in the view.
        QVERIFY(m_viewer->findChild<PictureView*>()->rect().contains(caption->geometry()));
        QVERIFY(!m_viewer->grab().isNull());
    }

private:
    QString SavePath() const
    {
        return m_home.filePath(QString::fromLatin1(QTest::currentDataTag() ? QTest::currentDataTag() : "x")
                                   .remove(QRegularExpression(u"[^a-z0-9]"_s))
                               + u".jpg"_s);
    }

    /// Opens the viewer on a picture whose large rendition is behind \p url.
    void Show(const QString& url, const QString& description = u"Hall"_s)
    {
        m_url = QUrl(url);
        Picture picture = MakePicture(EncodedPicture(c_smallSize, Qt::red), {}, description);
        picture.SetPictureName(u"hall.view.png"_s);
        picture.SetPictureUrlLarge(url);
        OpenViewer(*m_viewer, {picture});
        QCOMPARE(m_viewer->GetStatusLabel()->text(), c_loading);
        QCOMPARE(ShownSize(*m_viewer), c_smallSize);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }

    /// Opens the viewer on a picture with that large rendition and waits for it.
    void ShowLarge(const QByteArray& bytes, const QString& description = u"Hall"_s)
    {
        m_server->Answer(c_path, bytes, "image/png");
        Show(ScriptedServer::Url(c_path), description);
        VerifyOutcome(Signals::Image);
    }

    void VerifyOutcome(Signals sequence)
    {
        const QStringList expected = ExpectedSignals(sequence);
        QTRY_COMPARE_WITH_TIMEOUT(m_emitted.size(), expected.size(), 25'000);
        // Nothing comes after it.
        QTest::qWait(0);
        QCOMPARE(m_emitted, expected);
        QVERIFY(m_viewer->isVisible());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
        QVERIFY(Caption(*m_viewer)->text().startsWith(u"1/1 "_s));
    }

    /// Saving to \p path ends in the box, and the save dialog comes again.
    void VerifyCannotWrite(const QString& path, bool isFull)
    {
        std::optional<FullDisk> fullDisk;
        SaveDriver user(path);
        if (isFull) {
            user.beforeSaving = [&]() { fullDisk.emplace(); };
            user.afterSaving = [&]() { fullDisk.reset(); };
        }
        m_viewer->OnSaveImageAs();
        QCOMPARE(user.boxes, QStringList{u"Cannot write "_s + path});
        QCOMPARE(user.dialogs, 2);
        QCOMPARE(m_viewer->GetStatusLabel()->text(), QString());
    }

    QTemporaryDir m_home;
    QUrl m_url;
    QStringList m_emitted;
    QByteArray m_buffer;
    std::unique_ptr<PictureFullscreenDialog> m_viewer;
};

QTEST_MAIN(tst_FaultMatrixViewer)
#include "tst_FaultMatrixViewer.moc"
