#include <data/DownloadManager.h>
#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbSignalHandler.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/FaultDialog.h>
#include <tests/support/Files.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Replies.h>
#include <tests/support/Rows.h>
#include <tests/support/ServerTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTextEdit>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

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
    return PictureList(QByteArrayList(count, DataUrl(SmallPng()).toLatin1()), text);
}

} // namespace

/// Replies that are far larger than any honest one.
class tst_FaultMatrixLarge : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ServerTest::init();
        m_dialog = std::make_unique<FaultDialog>();
    }
    void cleanup()
    {
        m_dialog.reset();
        ServerTest::cleanup();
    }

    void SearchReply_data()
    {
        const Rows<QByteArray, int> row("body", "rows");
        const QByteArray one = R"({"data": [{"attributes": {"title": "A"}}]})";
        row("100 MB, most of it blanks", one + QByteArray(100 * c_megabyte, ' '), 1);
        row("100 MB, one text", OneVenueWith(QByteArray(100 * c_megabyte, 'x')), 1);
        row("100 MB that are no JSON", QByteArray(100 * c_megabyte, 'x'), 0);
        row("100,000 venues", ManyVenues(), c_manyVenues);
    }
    void SearchReply()
    {
        const auto [body, rows] = Fetch<QByteArray, int>();
        Connector().asksForVenues = true;
        m_server->AnswerJsonApi(u"/api/venue"_s, body);
        SearchPanel(m_dialog->dialog)->PerformQuery();
        QCOMPARE(Connector().statuses, QList({Ok, Ok}));
        QCOMPARE(m_dialog->boxes.shown, QStringList());
        QCOMPARE(Table()->model()->rowCount(), rows);
        QVERIFY(Connector().longest <= 30'500);
        DeleteWhatIsDue();
    }

    void TextsOfOneMegabyte_data()
    {
        const Rows<QByteArray> row("text");
        row("one word", QByteArray(c_megabyte, 'W'));
        row("many words", QByteArray("Wall ").repeated(c_megabyte / 5));
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
        m_server->AnswerJsonApi(u"include=tessra"_s, ModelFileList(text, "/files/hall.tessra", text));
        m_server->Answer(u"/files/hall.tessra"_s, "model", "text/plain");
        m_server->AnswerJsonApi(
            u"/api/venue"_s,
            QByteArray(
                R"({"data": [{"attributes": {"title": "TEXT", "venue_room_name": "TEXT", "comment": "TEXT",)"
                R"("general_comment": "TEXT", "rigging_specialties": "TEXT", "created": "TEXT",)"
                R"("address": {"locality": "TEXT", "address_line1": "TEXT", "country_code": "TEXT"}}}]})")
                .replace("TEXT", text));
        SearchPanel(m_dialog->dialog)->PerformQuery();
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
        QCOMPARE(Caption(*viewer)->text(), u"1/2 "_s + shown);
        viewer->hide();
        // There is no large rendition.
        qsizetype failures = 0;
        QTRY_COMPARE(failures += m_messages->Take().size(), 1);

        m_dialog->ImportButton()->click();
        QCOMPARE(m_messages->Take(), QStringList{u"An error occurred while writing TSFile to disk."_s});
    }

    void PictureList_data()
    {
        const Rows<QByteArray, int> row("body", "count");
        row("100 MB", ListOfPictures(1, "A") + QByteArray(100 * c_megabyte, ' '), 1);
        row("40,000 pictures", ListOfPictures(c_manyPictures, "A"), c_manyPictures);
    }
    void PictureList()
    {
        const auto [body, count] = Fetch<QByteArray, int>();
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
        const auto* caption = Caption(*viewer);
        QCOMPARE(caption->text(), u"%1/%1 A"_s.arg(count));
        viewer->OnPictureNavigationRequested(1);
        QCOMPARE(caption->text(), u"1/%1 A"_s.arg(count));
        viewer->OnPictureNavigationRequested(-1);
        QCOMPARE(caption->text(), u"%1/%1 A"_s.arg(count));
        viewer->hide();
        // None of the pictures has a large rendition: each attempt is logged, once it has failed.
        qsizetype failures = 0;
        QTRY_COMPARE(failures += m_messages->Take().size(), 3);
        DeleteWhatIsDue();
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
        const TempFolder folder;
        m_server->AnswerJsonApi(u"/api/venue"_s, ModelFileList("hall.tessra"));
        m_server->Answer(u"/files/hall.tessra"_s, QByteArray(100 * c_megabyte, 'm'), "text/plain");
        Connector().asksForFiles = true;
        m_dialog->SelectVenue();
        const QSignalSpy requests(VenueDbSignalHandler::GetInstance(),
                                  &VenueDbSignalHandler::ImportVenueFromTempFileRequest);
        m_dialog->ImportButton()->click();
        QCOMPARE(requests.count(), 1);
        QCOMPARE(QFile(requests.first().first().toString()).size(), 100 * c_megabyte);
        QVERIFY(QFile::remove(requests.first().first().toString()));
    }

    void LargeRenditionOf100Megabytes()
    {
        const QByteArray bytes
            = EncodedPicture(QSize(300, 200), Qt::blue) + QByteArray(100 * c_megabyte, 'x');
        m_server->Answer(u"/large.png"_s, bytes, "image/png");
        PictureFullscreenDialog viewer;
        QSignalSpy finished(viewer.findChild<DownloadManager*>(),
                            &DownloadManager::PictureBinaryDataFinished);
        Picture picture = MakePicture(SmallPng());
        picture.SetPictureUrlLarge(ScriptedServer::Url(u"/large.png"_s));
        OpenViewer(viewer, {picture});
        QVERIFY(finished.wait(30'000));
        QCOMPARE(finished.first().at(1).toByteArray().size(), bytes.size());
        QCOMPARE(viewer.GetStatusLabel()->text(), QString());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

private:
    FaultConnector& Connector() const
    {
        return m_dialog->connector;
    }
    QTableView* Table() const
    {
        return m_dialog->dialog.findChild<QTableView*>();
    }

    std::unique_ptr<FaultDialog> m_dialog;
};

QTEST_MAIN(tst_FaultMatrixLarge)
#include "tst_FaultMatrixLarge.moc"
