#include <data/DownloadManager.h>
#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbSignalHandler.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/FaultDialog.h>
#include <tests/support/MessageGuard.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/ScriptedServer.h>
#include <tests/support/VdbMessages.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

#include <memory>

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Ui::VenueDatabase;
using namespace Qt::Literals::StringLiterals;
using korvel::Test::DataUrl;
using korvel::Test::EncodedPicture;
using korvel::Test::FaultDialog;
using korvel::Test::ScriptedServer;
using korvel::Test::VdbMessages;

namespace {

constexpr qsizetype c_megabyte = 1000 * 1000;
constexpr int c_manyVenues = 100 * 1000;
// More than a signed number of 16 bits counts.
constexpr int c_manyPictures = 40 * 1000;

QByteArray SmallPng()
{
    return EncodedPicture(QSize(60, 40), Qt::red);
}

QByteArray OneVenueWith(const QByteArray& text)
{
    return R"({"data": [{"attributes": {"title": "A", "other": ")" + text + R"("}}]})";
}

QByteArray ManyVenues()
{
    QByteArray venues;
    for (int index = 0; index < c_manyVenues; ++index)
        venues += R"({"attributes": {"title": "A", "entity_id": )" + QByteArray::number(index) + "}},";
    venues.chop(1);
    return R"({"data": [)" + venues + "]}";
}

/// One picture of that name and description for each time; its bytes come in the address.
QByteArray ListOfPictures(int count, const QByteArray& text)
{
    QByteArray included;
    const QByteArray url = DataUrl(SmallPng()).toLatin1();
    for (int index = 0; index < count; ++index) {
        const QByteArray id = QByteArray::number(index);
        included += R"({"type": "picture", "attributes": {"name": ")" + text
            + R"("}, "relationships": {"file": {"data": {"id": ")" + id + R"(", "meta": {"alt": ")" + text
            + R"("}}}}}, {"type": "file", "id": ")" + id + R"(", "links": {"small": {"href": ")" + url
            + "\"}}},";
    }
    included.chop(1);
    return R"({"included": [)" + included + "]}";
}

QByteArray FileList(const QByteArray& text)
{
    return R"({"included": [{"type": "tessra", "attributes": {"name": ")" + text + R"(", "file_version": ")"
        + text
        + R"("}, "relationships": {"file": {"data": {"id": "f"}}}},)"
          R"({"type": "file", "id": "f", "attributes": {"url": "/files/hall.tessra"}}]})";
}

} // namespace

/// Replies that are far larger than any honest one.
class tst_FaultMatrixLarge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_server = std::make_unique<ScriptedServer>();
    }
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
        m_messages.reset();
        m_messages = std::make_unique<VdbMessages>();
        m_server->Reset();
        m_dialog = std::make_unique<FaultDialog>();
    }
    void cleanup()
    {
        m_dialog.reset();
        QCOMPARE(m_messages->Take(), QStringList());
        m_messages.reset();
        QVERIFY(korvel::Test::NoWindowIsLeft());
    }
    void cleanupTestCase()
    {
        m_server.reset();
    }

    void SearchReply_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("rows");
        const QByteArray one = R"({"data": [{"attributes": {"title": "A"}}]})";
        QTest::newRow("100 MB, most of it blanks") << one + QByteArray(100 * c_megabyte, ' ') << 1;
        QTest::newRow("100 MB, one text") << OneVenueWith(QByteArray(100 * c_megabyte, 'x')) << 1;
        QTest::newRow("100 MB that are no JSON") << QByteArray(100 * c_megabyte, 'x') << 0;
        QTest::newRow("100,000 venues") << ManyVenues() << c_manyVenues;
    }
    void SearchReply()
    {
        QFETCH(QByteArray, body);
        QFETCH(int, rows);
        Connector().asksForVenues = true;
        m_server->AnswerJsonApi(u"/api/venue"_s, body);
        Panel()->PerformQuery();
        QCOMPARE(Connector().statuses, QList({Ok, Ok}));
        QCOMPARE(m_dialog->boxes.shown, QStringList());
        QCOMPARE(Table()->model()->rowCount(), rows);
        QVERIFY(Connector().longest <= 30'500);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void TextsOfOneMegabyte_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("one word") << QByteArray(c_megabyte, 'W');
        QTest::newRow("many words") << QByteArray("Wall ").repeated(c_megabyte / 5);
    }
    void TextsOfOneMegabyte()
    {
        QFETCH(QByteArray, text);
        const QString shown = QString::fromLatin1(text);
        Connector().asksForVenues = true;
        Connector().asksForPictures = true;
        Connector().asksForFiles = true;
        m_server->AnswerJsonApi(u"from_the"_s, ListOfPictures(2, text));
        // No file system takes a name as long.
        m_server->AnswerJsonApi(u"include=tessra"_s, FileList(text));
        m_server->Answer(u"/files/hall.tessra"_s, "model", "text/plain");
        m_server->AnswerJsonApi(
            u"/api/venue"_s,
            QByteArray(
                R"({"data": [{"attributes": {"title": "TEXT", "venue_room_name": "TEXT", "comment": "TEXT",)"
                R"("general_comment": "TEXT", "rigging_specialties": "TEXT", "created": "TEXT",)"
                R"("address": {"locality": "TEXT", "address_line1": "TEXT", "country_code": "TEXT"}}}]})")
                .replace("TEXT", text));
        Panel()->PerformQuery();
        QCOMPARE(Table()->model()->rowCount(), 1);
        QCOMPARE(Table()->model()->index(0, 1).data().toString(), shown);
        m_dialog->SelectVenue();
        QCOMPARE(m_dialog->Complaint(), QString());
        QCOMPARE(m_dialog->Caption()->text(), u"1/2 "_s + shown);
        QCOMPARE(m_dialog->FileBox()->itemText(0), shown);
        QCOMPARE(m_dialog->VersionLabel()->text(), shown);
        int fields = 0;
        for (const QTextEdit* field : m_dialog->Details()->findChildren<QTextEdit*>())
            fields += field->toPlainText().contains(shown) ? 1 : 0;
        // General, location, rigging and the address.
        QCOMPARE(fields, 4);
        QVERIFY(!m_dialog->dialog.grab().isNull());
        // Nothing of it makes the window wider than a screen.
        QVERIFY(m_dialog->dialog.minimumSizeHint().width() < 2000);

        auto* viewer = m_dialog->Slider()->findChild<PictureFullscreenDialog*>();
        m_dialog->Slider()->ShowFullScreen();
        QVERIFY(!viewer->grab().isNull());
        QCOMPARE(viewer->findChild<PictureView*>()->findChild<QLabel*>()->text(), u"1/2 "_s + shown);
        viewer->hide();
        // There is no large rendition.
        qsizetype failures = 0;
        QTRY_COMPARE(failures += m_messages->Take().size(), 1);

        m_dialog->ImportButton()->click();
        QCOMPARE(m_messages->Take(), QStringList{u"An error occurred while writing TSFile to disk."_s});
    }

    void PictureList_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("count");
        QTest::newRow("100 MB") << ListOfPictures(1, "A") + QByteArray(100 * c_megabyte, ' ') << 1;
        QTest::newRow("40,000 pictures") << ListOfPictures(c_manyPictures, "A") << c_manyPictures;
    }
    void PictureList()
    {
        QFETCH(QByteArray, body);
        QFETCH(int, count);
        Connector().asksForPictures = true;
        m_server->AnswerJsonApi(u"/api/venue"_s, body);
        m_dialog->SelectVenue();
        QCOMPARE(Connector().pictures.size(), count);
        QCOMPARE(m_dialog->Caption()->text(), u"1/%1 A"_s.arg(count));
        QCOMPARE(m_dialog->Painted(), u"picture"_s);
        m_dialog->Slider()->ShowVenuePic(-1);
        QCOMPARE(m_dialog->Caption()->text(), u"%1/%1 A"_s.arg(count));
        QCOMPARE(m_dialog->Painted(), u"picture"_s);

        // The viewer opens on the same one, and steps round the end.
        auto* viewer = m_dialog->Slider()->findChild<PictureFullscreenDialog*>();
        m_dialog->Slider()->ShowFullScreen();
        const auto* caption = viewer->findChild<PictureView*>()->findChild<QLabel*>();
        QCOMPARE(caption->text(), u"%1/%1 A"_s.arg(count));
        viewer->OnPictureNavigationRequested(1);
        QCOMPARE(caption->text(), u"1/%1 A"_s.arg(count));
        viewer->OnPictureNavigationRequested(-1);
        QCOMPARE(caption->text(), u"%1/%1 A"_s.arg(count));
        viewer->hide();
        // None of the pictures has a large rendition: each attempt is logged, once it has failed.
        qsizetype failures = 0;
        QTRY_COMPARE(failures += m_messages->Take().size(), 3);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void PictureOf100Megabytes()
    {
        // The rest stands behind the end of the picture, where decoders do not look.
        const QByteArray bytes = SmallPng() + QByteArray(100 * c_megabyte, 'x');
        m_server->AnswerJsonApi(u"/api/venue"_s,
                                R"({"included": [{"type": "file", "attributes": {"url": "/a.png"}}]})");
        m_server->Answer(u"/a.png"_s, bytes, "image/png");
        Connector().asksForPictures = true;
        m_dialog->SelectVenue();
        QCOMPARE(Connector().pictures.first().GetPictureDataSmall().size(), bytes.size());
        QCOMPARE(m_dialog->Painted(), u"picture"_s);
        QCOMPARE(m_dialog->Complaint(), QString());
    }

    void ModelFileOf100Megabytes()
    {
        const QTemporaryDir folder;
        qputenv("TMPDIR", QFile::encodeName(folder.path()));
        m_server->AnswerJsonApi(u"/api/venue"_s, FileList("hall.tessra"));
        m_server->Answer(u"/files/hall.tessra"_s, QByteArray(100 * c_megabyte, 'm'), "text/plain");
        Connector().asksForFiles = true;
        m_dialog->SelectVenue();
        const QSignalSpy requests(VenueDbSignalHandler::GetInstance(),
                                  &VenueDbSignalHandler::ImportVenueFromTempFileRequest);
        m_dialog->ImportButton()->click();
        QCOMPARE(requests.count(), 1);
        QCOMPARE(QFile(requests.first().first().toString()).size(), 100 * c_megabyte);
        QVERIFY(QFile::remove(requests.first().first().toString()));
        qunsetenv("TMPDIR");
    }

    void LargeRenditionOf100Megabytes()
    {
        const QByteArray bytes
            = EncodedPicture(QSize(300, 200), Qt::blue) + QByteArray(100 * c_megabyte, 'x');
        m_server->Answer(u"/large.png"_s, bytes, "image/png");
        PictureFullscreenDialog viewer;
        QSignalSpy finished(viewer.findChild<DownloadManager*>(),
                            &DownloadManager::PictureBinaryDataFinished);
        Picture picture;
        picture.SetPictureDataSmall(SmallPng());
        picture.SetPictureUrlLarge(ScriptedServer::Url(u"/large.png"_s));
        QList<Picture> pictures{picture};
        viewer.SetPictures(&pictures);
        viewer.Open();
        viewer.SetPicturesIndex(0);
        QVERIFY(finished.wait(30'000));
        QCOMPARE(finished.first().at(1).toByteArray().size(), bytes.size());
        QCOMPARE(viewer.GetStatusLabel()->text(), QString());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

private:
    korvel::Test::FaultConnector& Connector() const
    {
        return m_dialog->connector;
    }
    VenueDbCentralWidget* Panel() const
    {
        return m_dialog->dialog.findChild<VenueDbCentralWidget*>();
    }
    QTableView* Table() const
    {
        return m_dialog->dialog.findChild<QTableView*>();
    }

    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<VdbMessages> m_messages;
    std::unique_ptr<FaultDialog> m_dialog;
};

QTEST_MAIN(tst_FaultMatrixLarge)
#include "tst_FaultMatrixLarge.moc"
