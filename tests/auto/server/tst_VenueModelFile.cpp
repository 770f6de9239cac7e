#include <demo/VenueModelFile.h>
#include <tests/support/Files.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace korvel::Demo;
using namespace korvel::Test;

namespace {

/// A file of the smallest permitted content with \p extra as its lines 6 and following.
QByteArray FileWith(const QByteArray& extra)
{
    return "tessra-venue 1\nname Hall\nunit m\noutline 0,0 9,0 9,9\nstage 1,1 2,1 2,2\n" + extra;
}

} // namespace

class tst_VenueModelFile : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EveryLineIsRead()
    {
        QString error;
        const std::optional<VenueModel> model = VenueModelFile::Parse(
            "tessra-venue 1\n# note\nname Zürich, großer Saal 大\nunit m\noutline -6,-4 6,-4 6,10 -6.5,10\n"
            "stage -4,-3.5 4,-3.5 4,0\nseats 1,2 3,4 5,6\nseats 7,8 9,8 9,9 7,9\nrigging -3,-2 250\nrigging "
            "3,2\n"
            "x-colour blue\n",
            &error);
        QVERIFY2(model, qPrintable(error));
        QCOMPARE(error, QString());
        QCOMPARE(model->name, u"Zürich, großer Saal 大"_s);
        QCOMPARE(model->outline, QPolygonF({{-6, -4}, {6, -4}, {6, 10}, {-6.5, 10}}));
        QCOMPARE(model->stage, QPolygonF({{-4, -3.5}, {4, -3.5}, {4, 0}}));
        QCOMPARE(model->seats.size(), 2);
        QCOMPARE(model->seats[0], QPolygonF({{1, 2}, {3, 4}, {5, 6}}));
        QCOMPARE(model->seats[1].size(), 4);
        QCOMPARE(model->riggingPoints.size(), 2);
        QCOMPARE(model->riggingPoints[0].position, QPointF(-3, -2));
        QCOMPARE(model->riggingPoints[0].load, 250.0);
        QCOMPARE(model->riggingPoints[1].position, QPointF(3, 2));
        QCOMPARE(model->riggingPoints[1].load, 0.0);
    }

    void LayoutIsFree_data()
    {
        const Rows<QByteArray> row("content");
        const QByteArray plain = FileWith("");
        row("as documented", plain);
        row("no line end at the end", plain.chopped(1));
        row("CR LF", QByteArray(plain).replace("\n", "\r\n"));
        row("byte order mark", "\xEF\xBB\xBF" + plain);
        row("several blanks", QByteArray(plain).replace(" ", "   ").replace("name   Hall", "name Hall"));
        row("indented and blank lines", QByteArray(plain).replace("\nunit", "\n\n  \n  unit"));
        row("other order", "tessra-venue 1\nstage 1,1 2,1 2,2\noutline 0,0 9,0 9,9\nunit m\nname Hall\n");
        row("exponents", QByteArray(plain).replace("9,9", "9e0,0.9e1"));
    }
    void LayoutIsFree()
    {
        QFETCH(QByteArray, content);
        QString error;
        const std::optional<VenueModel> model = VenueModelFile::Parse(content, &error);
        QVERIFY2(model, qPrintable(error));
        QCOMPARE(model->name, u"Hall"_s);
        QCOMPARE(model->outline, QPolygonF({{0, 0}, {9, 0}, {9, 9}}));
        QCOMPARE(model->stage, QPolygonF({{1, 1}, {2, 1}, {2, 2}}));
    }

    void WrongContentIsRefused_data()
    {
        const Rows<QByteArray, QByteArray, QByteArray> row("content", "start", "part");
        row("nothing", {}, "", "empty");
        row("picture", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), "", "UTF-8");
        row("NUL in a text", FileWith("# a") + '\0' + "b\n", "", "UTF-8");
        row("Latin-1", FileWith("# gro\xDF\n"), "", "UTF-8");
        row("cut inside a character", FileWith("# Stra\xC3"), "", "UTF-8");
        row("error page", "<html><body>404</body></html>", "", "not a venue model");
        row("other kind of file", "hello\n", "Line 1: ", "not a venue model");
        row("first line empty", "\ntessra-venue 1\n", "Line 1: ", "not a venue model");
        row("version 2", "tessra-venue 2\n", "Line 1: ", "\"2\"");
        row("version 1.0", "tessra-venue 1.0\n", "Line 1: ", "\"1.0\"");
        row("unknown keyword", FileWith("\nriging 1,1 5\n"), "Line 7: ", "\"riging\"");
        row("upper-case keyword", FileWith("Seats 1,1 2,2 3,3\n"), "Line 6: ", "\"Seats\"");
        row("second name", FileWith("name Other\n"), "Line 6: ", "only once");
        row("second unit", FileWith("unit m\n"), "Line 6: ", "only once");
        row("second outline", FileWith("outline 0,0 1,1 2,2\n"), "Line 6: ", "only once");
        row("second stage", FileWith("stage 0,0 1,1 2,2\n"), "Line 6: ", "only once");
        row("name without text", "tessra-venue 1\nname  \n", "Line 2: ", "name is missing");
        row("unit in feet", "tessra-venue 1\nunit ft\n", "Line 2: ", "\"ft\"");
        row("polygon of two corners", FileWith("seats 1,1 2,2\n"), "Line 6: ", "three corners");
        row("polygon without corners", FileWith("seats\n"), "Line 6: ", "three corners");
        row("position without comma", FileWith("seats 1,1 22 3,3\n"), "Line 6: ", "\"22\"");
        row("three coordinates", FileWith("seats 1,1 2,2,2 3,3\n"), "Line 6: ", "\"2,2\" is not a number");
        row("letter for a number", FileWith("seats 1,1 -2x,2 3,3\n"), "Line 6: ", "\"-2x\" is not a number");
        row("nothing before the comma", FileWith("seats 1,1 ,2 3,3\n"), "Line 6: ", "\"\" is not a number");
        row("not a number", FileWith("seats 1,1 nan,2 3,3\n"), "Line 6: ", "\"nan\"");
        row("infinity", FileWith("seats 1,1 2,inf 3,3\n"), "Line 6: ", "\"inf\"");
        row("minus infinity", FileWith("seats 1,1 2,-inf 3,3\n"), "Line 6: ", "\"-inf\"");
        row("overflow", FileWith("seats 1,1 2,1e999 3,3\n"), "Line 6: ", "\"1e999\"");
        row("too far out", FileWith("seats 1,1 2,10000.5 3,3\n"), "Line 6: ", "too far out");
        row("rigging without position", FileWith("rigging\n"), "Line 6: ", "rigging point");
        row("rigging with three words", FileWith("rigging 1,1 5 kg\n"), "Line 6: ", "rigging point");
        row("load not a number", FileWith("rigging 1,1 heavy\n"), "Line 6: ", "\"heavy\"");
        row("load nan", FileWith("rigging 1,1 nan\n"), "Line 6: ", "\"nan\"");
        row("negative load", FileWith("rigging 1,1 -1\n"), "Line 6: ", "out of range");
        row("load too large", FileWith("rigging 1,1 1000001\n"), "Line 6: ", "out of range");
        row("name missing", FileWith("").replace("name Hall\n", ""), "The line \"name\"", "missing");
        row("unit missing", FileWith("").replace("unit m\n", ""), "The line \"unit\"", "missing");
        row("outline missing", FileWith("").replace("outline", "x-outline"), "The line \"outline\"",
            "missing");
        row("stage missing", FileWith("").replace("stage", "x-stage"), "The line \"stage\"", "missing");
    }
    void WrongContentIsRefused()
    {
        const auto [content, start, part] = Fetch<QByteArray, QByteArray, QByteArray>();
        QString error;
        QVERIFY(!VenueModelFile::Parse(content, &error));
        QVERIFY2(error.toUtf8().startsWith(start), qPrintable(error));
        QVERIFY2(error.toUtf8().contains(part), qPrintable(error));
    }

    void LimitsAreExact()
    {
        QString error;
        // Six points stand in the frame already.
        const QByteArray enough
            = FileWith(QByteArray("rigging 1,1 5\n").repeated(VenueModelFile::c_maximumPoints - 6));
        const std::optional<VenueModel> full = VenueModelFile::Parse(enough, &error);
        QVERIFY2(full, qPrintable(error));
        QCOMPARE(full->riggingPoints.size(), VenueModelFile::c_maximumPoints - 6);
        QVERIFY(!VenueModelFile::Parse(enough + "rigging 1,1 5\n", &error));
        QVERIFY2(error.startsWith(u"Line 20000: "_s) && error.contains(u"20000 points"_s), qPrintable(error));
        QVERIFY(!VenueModelFile::Parse(FileWith("seats " + QByteArray("1,1 ").repeated(1000000)), &error));
        QVERIFY2(error.contains(u"20000 points"_s), qPrintable(error));

        const QByteArray frame = FileWith("#");
        const QByteArray largest = frame + QByteArray(VenueModelFile::c_maximumSize - frame.size(), '-');
        QVERIFY(VenueModelFile::Parse(largest, &error));
        QVERIFY(!VenueModelFile::Parse(largest + '-', &error));
        QVERIFY2(error.contains(u"larger than 4 MB"_s), qPrintable(error));

        QVERIFY(VenueModelFile::Parse(FileWith("rigging 10000,-10000 1000000\n"), &error));
    }

    void MessagesStayShortAndPrintable()
    {
        QString error;
        QVERIFY(!VenueModelFile::Parse(FileWith("a\x1b[31m\x07" + QByteArray(100000, 'z')), &error));
        QVERIFY2(error.size() < 100, qPrintable(error));
        for (const QChar character : std::as_const(error))
            QVERIFY(character.isPrint());
    }

    void FilesAreRead()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"hall.tessra"_s);
        WriteFile(path, FileWith("rigging 4,5 600\n"));
        QString error;
        const std::optional<VenueModel> model = VenueModelFile::Read(path, &error);
        QVERIFY2(model, qPrintable(error));
        QCOMPARE(model->riggingPoints.size(), 1);

        QVERIFY(QFile::resize(path, VenueModelFile::c_maximumSize + 1));
        QVERIFY(!VenueModelFile::Read(path, &error));
        QVERIFY2(error.contains(u"larger than 4 MB"_s), qPrintable(error));
    }

    void MissingFileIsReported()
    {
        QString error;
        QVERIFY(!VenueModelFile::Read(QDir::tempPath() + u"/no/such/file.tessra"_s, &error));
        QVERIFY2(error.startsWith(u"The file cannot be opened: "_s), qPrintable(error));
    }

    void ErrorMayBeLeftOut()
    {
        QVERIFY(!VenueModelFile::Parse("nonsense"));
        QVERIFY(VenueModelFile::Parse(FileWith("")));
    }
};

QTEST_MAIN(tst_VenueModelFile)
#include "tst_VenueModelFile.moc"
