#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>

#include <tests/support/FaultDialog.h>
#include <tests/support/FaultRows.h>
#include <tests/support/Files.h>
#include <tests/support/HostileData.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Replies.h>
#include <tests/support/Rows.h>
#include <tests/support/ServerTest.h>
#include <tests/support/Widgets.h>

#include <QLabel>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;

namespace {

const QString c_secondHost = u"second.example"_s;
const QByteArray c_oddPng = "https://second.example/pictures/odd.png";

QByteArray SmallPng()
{
    return EncodedPicture(QSize(60, 40), Qt::red);
}

/// A reply that lists one picture, whose bytes come in its address.
QByteArray OnePictureList()
{
    return PictureList({DataUrl(SmallPng()).toLatin1()});
}

} // namespace

/// What becomes of a venue's pictures in the slider when server and network fail, or answer with what no
/// honest server would.
class tst_FaultMatrixPictures : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ServerTest::init();
        m_dialog = std::make_unique<FaultDialog>();
        m_dialog->connector.asksForPictures = true;
    }
    void cleanup()
    {
        QCOMPARE(m_dialog->Complaint(), QString());
        m_dialog.reset();
        ServerTest::cleanup();
    }

    void List_data()
    {
        AddFaultRows(FaultRows());
    }
    void List()
    {
        QFETCH(FaultRow, fault);
        fault.make(*m_server,
                   {.request = QRegularExpression(u"^/api/venue\\?include=from_the"_s),
                    .body = OnePictureList(),
                    .mediaType = c_jsonApi});

        m_dialog->SelectVenue();

        if (fault.search == Ok) {
            QCOMPARE(Sizes(), QList({SmallPng().size()}));
            VerifySlider(u"1/1 Picture 1"_s, u"picture"_s);
        } else {
            QCOMPARE(Sizes(), QList<qsizetype>());
            VerifySlider(u"-/0"_s, u"No Image"_s);
            VdbMessages::Verify({FailureMessage(fault, u"Picture query"_s, m_host + u"/api/venue"_s)});
        }
        VerifyNothingLeft(fault, *m_server, 0);
    }

    void Bytes_data()
    {
        AddFaultRows(FaultRows());
    }
    void Bytes()
    {
        QFETCH(FaultRow, fault);
        // On a host of its own: the list comes through an unharmed connection.
        const FaultTarget target{.request = QRegularExpression(u"^/pictures/first\\.png$"_s),
                                 .body = NoisePicture(QSize(64, 64)),
                                 .mediaType = "image/png",
                                 .host = c_secondHost,
                                 .requestsBefore = 1,
                                 .manager = m_dialog->connector.Manager()};
        fault.make(*m_server, target);
        m_server->AnswerJsonApi(
            u"/api/venue"_s,
            PictureList({"https://second.example/pictures/first.png", DataUrl(SmallPng()).toLatin1()}));

        m_dialog->SelectVenue();

        const QList<Picture>& pictures = m_dialog->connector.pictures;
        QCOMPARE(pictures.size(), 2);
        const QByteArray bytes = pictures.first().GetPictureDataSmall();
        QCOMPARE(ReceivedComplaint(fault.picture, fault, target, bytes), QString());
        // Whole pictures are shown, others not; the next one comes and shows in any case.
        VerifySlider(u"1/2 Picture 1"_s,
                     fault.picture == Received::Whole ? u"picture"_s : u"Image failure"_s);
        QCOMPARE(pictures.last().GetPictureDataSmall(), SmallPng());
        m_dialog->Slider()->ShowVenuePic(1);
        VerifySlider(u"2/2 Picture 2"_s, u"picture"_s);

        if (fault.isError || fault.viewer == Signals::NotAnImage) {
            VdbMessages::Verify(
                {FailureMessage(fault, u"Picture download"_s, c_secondHost + u"/pictures/first.png"_s)});
        }
        VerifyNothingLeft(fault, *m_server, 1);
    }

    void BodyThatIsNoList_data()
    {
        QTest::addColumn<QByteArray>("body");
        for (const auto& [name, bytes] : BrokenDocuments(OnePictureList()))
            QTest::newRow(name.constData()) << bytes;
    }
    void BodyThatIsNoList()
    {
        QFETCH(QByteArray, body);
        m_server->AnswerJsonApi(u"/api/venue"_s, body);
        m_dialog->SelectVenue();
        QCOMPARE(Sizes(), QList<qsizetype>());
        VerifySlider(u"-/0"_s, u"No Image"_s);
        // An object that is nested too deeply has no more of an object than an array has.
        VdbMessages::Verify({u"^Picture query failed: "_s + m_host
                             + u"/api/venue - HTTP status 200 - the reply is not a JSON object$"_s});
    }

    void ListOfWrongTypes_data()
    {
        const Rows<QByteArray, int> row("included", "count");
        row("null", "null", 0);
        row("object", R"({"type": "file"})", 0);
        row("text", "\"file\"", 0);
        row("number", "2", 0);
        row("elements of other types", R"([null, 1, "file", [{"type": "file"}], true])", 0);
        row("type array", R"([{"type": ["file"]}])", 0);
        row("type null", R"([{"type": null}])", 0);
        row("file and no more", R"([{"type": "file"}])", 1);
        row("id number", R"([{"type": "file", "id": 5}])", 1);
        row("links array", R"([{"type": "file", "links": [{"small": {"href": "x"}}]}])", 1);
        row("links text", R"([{"type": "file", "links": "small"}])", 1);
        row("rendition text", R"([{"type": "file", "links": {"small": "x"}}])", 1);
        row("href number", R"([{"type": "file", "links": {"small": {"href": 7}}}])", 1);
        row("href null", R"([{"type": "file", "links": {"small": {"href": null}}}])", 1);
        row("attributes null", R"([{"type": "file", "attributes": null}])", 1);
        row("address number", R"([{"type": "file", "attributes": {"url": 7}}])", 1);
        row("picture of wrong types",
            R"([{"type": "picture", "attributes": [], "relationships": 3}, {"type": "file"}])", 1);
        row("relationship array", R"([{"type": "picture", "relationships": {"file": [{"data": 1}]}}])", 0);
        row("duplicate keys", R"([{"type": "venue", "type": "file"}])", 1);
        row("same file three times", R"([{"type": "file"}, {"type": "file"}, {"type": "file"}])", 3);
    }
    void ListOfWrongTypes()
    {
        const auto [included, count] = Fetch<QByteArray, int>();
        m_server->AnswerJsonApi(u"/api/venue"_s, R"({"included": )" + included + "}");
        // Where no text tells an address, the picture's own is asked: the host's root, or /pictures/odd.png.
        m_server->Answer(QString(), SmallPng(), "image/png");
        m_dialog->SelectVenue();
        QCOMPARE(Sizes(), QList<qsizetype>(count, SmallPng().size()));
        VerifySlider(count == 0 ? u"-/0"_s : u"1/%1 "_s.arg(count),
                     count == 0 ? u"No Image"_s : u"picture"_s);
    }

    void Address_data()
    {
        QTest::addColumn<HostileUrl>("address");
        const QString file = LocalPicture();
        QList<HostileUrl> addresses = HostileUrls(c_secondHost, file);
        addresses.append({"empty: the picture's own", QString(), true});
        addresses.append({"backslashes", u"https:\\/\\/second.example\\/pictures\\/odd.png"_s, true});
        addresses.append(
            {"doubled backslashes", u"https:\\\\/\\\\/second.example\\\\/pictures/odd.png"_s, true});
        addresses.append({"file with backslashes", u"file:\\/\\/"_s + file, false});
        addresses.append({"share", u"\\\\host\\share\\odd.png"_s, false});
        for (const HostileUrl& address : std::as_const(addresses))
            QTest::newRow(address.name.constData()) << address;
    }
    void Address()
    {
        QFETCH(HostileUrl, address);
        m_server->AnswerJsonApi(u"/api/venue"_s, PictureList({JsonText(address.url)}));
        m_server->Answer(u"/pictures/odd.png"_s, SmallPng(), "image/png");
        m_dialog->SelectVenue();
        QCOMPARE(Sizes(), QList({address.isFetched ? SmallPng().size() : 0}));
        VerifySlider(u"1/1 Picture 1"_s, address.isFetched ? u"picture"_s : u"Image failure"_s);
        // What is not fetched is not asked for either, and nothing local is read.
        QCOMPARE(m_server->Log().RequestCount(), address.isFetched ? 2 : 1);
        if (!address.isFetched)
            VdbMessages::Verify({u"^Picture download failed: .* - .+$"_s});
    }

    void UndecodableBytes_data()
    {
        const Rows<UndecodablePicture> row("picture");
        for (const UndecodablePicture& picture : UndecodablePictures())
            row(picture.name.constData(), picture);
        row("empty", {});
    }
    void UndecodableBytes()
    {
        QFETCH(UndecodablePicture, picture);
        const QByteArray bytes = picture.bytes;
        ExpectWarnings(picture.warnings);
        m_server->AnswerJsonApi(u"/api/venue"_s, PictureList({c_oddPng, DataUrl(SmallPng()).toLatin1()}));
        m_server->Answer(u"/pictures/odd.png"_s, bytes, "image/png");
        m_dialog->SelectVenue();
        QCOMPARE(Sizes(), QList({bytes.size(), SmallPng().size()}));
        VerifySlider(u"1/2 Picture 1"_s, u"Image failure"_s);
        m_dialog->Slider()->ShowVenuePic(-1);
        VerifySlider(u"2/2 Picture 2"_s, u"picture"_s);
    }

    void OddShape_data()
    {
        const Rows<QSize> row("size");
        row("1 x 1", QSize(1, 1));
        row("1 x 100,000", QSize(1, 100'000));
        row("100,000 x 1", QSize(100'000, 1));
        row("33 megapixels", QSize(5700, 5700));
    }
    void OddShape()
    {
        QFETCH(QSize, size);
        m_server->AnswerJsonApi(u"/api/venue"_s, PictureList({c_oddPng}));
        m_server->Answer(u"/pictures/odd.png"_s, BlankPng(size), "image/png");
        m_dialog->SelectVenue();
        VerifySlider(u"1/1 Picture 1"_s, u"picture"_s);
    }

    void Count_data()
    {
        QTest::addColumn<int>("count");
        for (const int count : {0, 1, 2, 7})
            QTest::addRow("%d pictures", count) << count;
    }
    void Count()
    {
        QFETCH(int, count);
        m_server->AnswerJsonApi(u"/api/venue"_s,
                                PictureList(QByteArrayList(count, DataUrl(SmallPng()).toLatin1())));
        m_dialog->SelectVenue();
        QCOMPARE(Sizes().size(), count);
        VerifySlider(count == 0 ? u"-/0"_s : u"1/%1 Picture 1"_s.arg(count),
                     count == 0 ? u"No Image"_s : u"picture"_s);
        for (const int which : {0, 1})
            QCOMPARE(NavigationButton(*m_dialog->Slider(), which)->isVisible(), count > 1);
        m_dialog->Slider()->ShowVenuePic(-1);
        VerifySlider(count == 0 ? u"-/0"_s : u"%1/%1 Picture %1"_s.arg(count),
                     count == 0 ? u"No Image"_s : u"picture"_s);
    }

    void CaptionIsPlain_data()
    {
        const Rows<QString, QByteArray> row("text", "json");
        for (const auto& [name, text, json] : HostileTexts())
            row(name.constData(), text, json);
    }
    void CaptionIsPlain()
    {
        const auto [text, json] = Fetch<QString, QByteArray>();
        m_server->AnswerJsonApi(
            u"/api/venue"_s,
            QByteArray(R"({"included": [{"type": "picture", "attributes": {"name": "TEXT"},)"
                       R"("relationships": {"file": {"data": {"id": "f", "meta": {"alt":)"
                       R"("TEXT"}}}}}, {"type": "file", "id": "f",)"
                       R"("attributes": {"url": "/pictures/odd.png"}}]})")
                .replace("TEXT", json));
        m_server->Answer(u"/pictures/odd.png"_s, SmallPng(), "image/png");
        m_dialog->SelectVenue();
        QCOMPARE(m_dialog->connector.pictures.first().GetPictureName(), text);
        VerifySlider(u"1/1 "_s + text, u"picture"_s);
        QCOMPARE(m_dialog->Caption()->textFormat(), Qt::PlainText);
        QVERIFY(!m_dialog->dialog.grab().isNull());
    }

private:
    QList<qsizetype> Sizes() const
    {
        QList<qsizetype> sizes;
        for (const Picture& picture : m_dialog->connector.pictures)
            sizes.append(picture.GetPictureDataSmall().size());
        return sizes;
    }
    void VerifySlider(const QString& caption, const QString& painted) const
    {
        QCOMPARE(m_dialog->Caption()->text(), caption);
        QCOMPARE(m_dialog->Painted(), painted);
    }
    /// A real picture outside of the network, which would show if it were read.
    QString LocalPicture()
    {
        const QString path = m_folder.filePath(u"odd.png"_s);
        WriteFile(path, SmallPng());
        return path;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<FaultDialog> m_dialog;
};

QTEST_MAIN(tst_FaultMatrixPictures)
#include "tst_FaultMatrixPictures.moc"
