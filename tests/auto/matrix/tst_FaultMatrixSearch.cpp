#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/ErrorBoxes.h>
#include <tests/support/FaultConnector.h>
#include <tests/support/FaultRows.h>
#include <tests/support/HostileData.h>
#include <tests/support/Rows.h>
#include <tests/support/ServerTest.h>
#include <tests/support/Widgets.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// The longest that a query may take: its time-out and half a second.
constexpr qint64 c_longest = 30'500;
const QString c_searchPattern = u"^/api/venue\\?filter"_s;
const QString c_refreshPattern = u"^/api/venue\\?include=editor$"_s;

/// A reply with two venues, longer than what is cut off.
QByteArray TwoVenues()
{
    return R"({"data": [)"
           R"({"attributes": {"entity_id": 1, "title": "A", "address": {"country_code": "DE"}}},)"
           R"({"attributes": {"entity_id": 2, "title": "B", "address": {"country_code": "FR"}}}]})"
        + QByteArray(12'000, ' ');
}

QByteArray OneAttribute(const QByteArray& attributes)
{
    return R"({"data": [{"type": "venue", "attributes": )" + attributes + "}]}";
}

} // namespace

/// What becomes of a venue search, and of the refresh of the countries behind it, when server and network
/// fail: the query's own result, and what the user sees of it.
class tst_FaultMatrixSearch : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ServerTest::init();
        m_connector = std::make_unique<FaultConnector>();
        m_connector->asksForVenues = true;
        m_dialog = std::make_unique<VenueDbDialog>();
        Panel()->SetConnector(m_connector.get());
        m_dialog->show();
        // A filter tells the search from the refresh, which has none.
        Panel()->findChildren<QLineEdit*>().first()->setText(u"x"_s);
        m_boxes = std::make_unique<ErrorBoxes>(QMessageBox::Close);
    }
    void cleanup()
    {
        m_boxes.reset();
        m_dialog.reset();
        m_connector.reset();
        // The box tells the user; nothing else is logged.
        ServerTest::cleanup();
    }

    void Search_data()
    {
        AddFaultRows(FaultRows());
    }
    void Search()
    {
        QFETCH(FaultRow, fault);
        fault.make(*m_server, Target(c_searchPattern, 0));
        m_server->AnswerJsonApi(u"/api/venue"_s, TwoVenues());

        Panel()->PerformQuery();

        if (fault.search == Ok) {
            QCOMPARE(m_connector->statuses, QList({Ok, Ok}));
            VerifyFound(2);
            QVERIFY(m_server->ReceivedBytesAfter(0) > 0);
        } else {
            QCOMPARE(m_connector->statuses, QList({fault.search}));
            QCOMPARE(m_connector->found, QList({OldNames()}));
            VerifyRefused(0);
        }
        VerifyNothingLeft(fault, *m_server, 0);
    }

    void CountryRefresh_data()
    {
        AddFaultRows(FaultRows());
    }
    void CountryRefresh()
    {
        QFETCH(FaultRow, fault);
        fault.make(*m_server, Target(c_refreshPattern, 1));
        m_server->AddFault(Honest(Target(c_searchPattern, 0)).WithHeader("Connection", "close"));

        Panel()->PerformQuery();

        QCOMPARE(m_connector->statuses, QList({Ok, fault.search}));
        if (fault.search == Ok) {
            VerifyFound(2);
        } else {
            QCOMPARE(m_connector->found.last(), OldNames());
            // Whatever the search found stands in the table of the hidden dialog.
            VerifyRefused(2);
            QCOMPARE(Countries(), QStringList{u"--"_s});
        }
        VerifyNothingLeft(fault, *m_server, 1);
    }

    void DialogSearchesAgainAfterAFault_data()
    {
        AddFaultRows(FaultRows());
    }
    void DialogSearchesAgainAfterAFault()
    {
        QFETCH(FaultRow, fault);
        fault.make(*m_server, Target(c_searchPattern, 0));
        Panel()->PerformQuery();
        QCOMPARE(m_boxes->shown.size(), fault.search == Ok ? 0 : 1);

        // The server has recovered, and the user opens the dialog again. A connection that broke may fail
        // one more request; then the user presses "Retry".
        m_server->Reset();
        m_server->AnswerJsonApi(u"/api/venue"_s, TwoVenues());
        m_boxes = std::make_unique<ErrorBoxes>(QMessageBox::Retry);
        m_dialog->Open(nullptr);
        QTRY_COMPARE(RowCount(Table()), 2);
        QVERIFY2(m_boxes->shown.isEmpty(), "The search did not recover");
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(m_connector->statuses.last(), Ok);
    }

    void BodyThatIsNoVenueList_data()
    {
        const Rows<QByteArray> row("body");
        for (const auto& [name, bytes] : BrokenDocuments(TwoVenues()))
            row(name.constData(), bytes);
        row("empty object", "{}");
        row("data missing", R"({"Data": [{}]})");
        row("data null", R"({"data": null})");
        row("data object", R"({"data": {"attributes": {"title": "A"}}})");
        row("data text", R"({"data": "A"})");
        row("data number", R"({"data": 2})");
        row("data empty", R"({"data": []})");
        row("second data empty", R"({"data": [{}], "data": []})");
    }
    void BodyThatIsNoVenueList()
    {
        QFETCH(QByteArray, body);
        m_server->AnswerJsonApi(u"/api/venue"_s, body);
        Panel()->PerformQuery();
        QCOMPARE(m_connector->statuses, QList({Ok, Ok}));
        QCOMPARE(m_connector->found, QList({QStringList(), QStringList()}));
        VerifyFound(0);
        QCOMPARE(Countries(), QStringList{u"--"_s});
    }

    void VenueOfWrongTypes_data()
    {
        const Rows<QByteArray, QByteArray, QString> row("element", "id", "title");
        const auto attributes
            = [](const char* json) { return R"({"attributes": )" + QByteArray(json) + "}"; };
        const QString none;
        row("element null", "null", "0", none);
        row("element number", "1", "0", none);
        row("element text", "\"A\"", "0", none);
        row("element array", "[{}]", "0", none);
        row("element empty", "{}", "0", none);
        row("attributes null", attributes("null"), "0", none);
        row("attributes array", attributes(R"([{"title": "A"}])"), "0", none);
        row("attributes text", attributes(R"("title")"), "0", none);
        row("title number", attributes(R"({"entity_id": 5, "title": 7})"), "5", none);
        row("title object", attributes(R"({"entity_id": 5, "title": {"value": "A"}})"), "5", none);
        row("title array", attributes(R"({"entity_id": 5, "title": ["A"]})"), "5", none);
        row("title true", attributes(R"({"entity_id": 5, "title": true})"), "5", none);
        row("address array", attributes(R"({"entity_id": 5, "title": "A", "address": [{"locality": "x"}]})"),
            "5", u"A"_s);
        row("address text", attributes(R"({"entity_id": 5, "title": "A", "address": "x"})"), "5", u"A"_s);
        row("country code number",
            attributes(R"({"entity_id": 5, "title": "A", "address": {"country_code": 49}})"), "5", u"A"_s);
        row("dates as numbers",
            attributes(R"({"entity_id": 5, "title": "A", "created": 20240101, "changed": 1704067200})"), "5",
            u"A"_s);
        row("dates that never were",
            attributes(R"({"entity_id": 5, "title": "A", "created": "2023-02-30",)"
                       R"("changed": "2023-13-01T25:61:61+00:00"})"),
            "5", u"A"_s);
        row("relationships array", R"({"attributes": {"entity_id": 5, "title": "A"}, "relationships": [1]})",
            "5", u"A"_s);
        row("editor without data",
            R"({"attributes": {"entity_id": 5, "title": "A"}, "relationships": {"editor": null}})", "5",
            u"A"_s);
        row("id as text", attributes(R"({"entity_id": "5", "title": "A"})"), "0", u"A"_s);
        row("id as a fraction", attributes(R"({"entity_id": 5.5, "title": "A"})"), "0", u"A"_s);
        row("id of 31 bits", attributes(R"({"entity_id": 2147483647, "title": "A"})"), "2147483647", u"A"_s);
        row("id beyond 31 bits", attributes(R"({"entity_id": 2147483648, "title": "A"})"), "0", u"A"_s);
        row("id beyond 64 bits", attributes(R"({"entity_id": 1e300, "title": "A"})"), "0", u"A"_s);
        row("negative id", attributes(R"({"entity_id": -5, "title": "A"})"), "-5", u"A"_s);
        row("id null", attributes(R"({"entity_id": null, "title": "A"})"), "0", u"A"_s);
        row("duplicate keys", attributes(R"({"entity_id": 4, "title": "Z", "title": "A", "entity_id": 5})"),
            "5", u"A"_s);
        row("duplicate attributes",
            R"({"attributes": {"entity_id": 4, "title": "Z"}, "attributes": {"entity_id": 5, "title": "A"}})",
            "5", u"A"_s);
    }
    void VenueOfWrongTypes()
    {
        const auto [element, id, title] = Fetch<QByteArray, QByteArray, QString>();
        m_server->AnswerJsonApi(u"/api/venue"_s,
                                R"({"data": [)" + element + R"(], "included": [{"type": "user"}, 1, null]})");
        Panel()->PerformQuery();
        QCOMPARE(m_connector->statuses, QList({Ok, Ok}));
        VerifyFound(1);
        QCOMPARE(Cell(0, 0).toLatin1(), id);
        QCOMPARE(Cell(0, 1), title);
        // The rest of the row copes as well.
        QCOMPARE(Cell(0, 2), QString());
        QCOMPARE(Cell(0, 3), QString());
        QCOMPARE(Cell(0, 4), u"unknown"_s);
        QCOMPARE(Cell(0, 5), QString());
    }

    void HostileText_data()
    {
        const Rows<QString, QByteArray> row("text", "json");
        for (const auto& [name, text, json] : HostileTexts())
            row(name.constData(), text, json);
    }
    void HostileText()
    {
        const auto [text, json] = Fetch<QString, QByteArray>();
        m_server->AnswerJsonApi(
            u"/api/venue"_s,
            OneAttribute(
                QByteArray(R"({"title": "TEXT", "venue_room_name": "TEXT", "general_comment": "TEXT",)"
                           R"("address": {"locality": "TEXT", "country_code": "TEXT"},)"
                           R"("rigging_specialties": "TEXT", "created": "TEXT", "changed": "TEXT"})")
                    .replace("TEXT", json)));
        Panel()->PerformQuery();
        VerifyFound(1);
        for (const int column : {1, 2, 3})
            QCOMPARE(Cell(0, column), text);
        // No country has such a code.
        QCOMPARE(Cell(0, 4), u"unknown"_s);
        QCOMPARE(Countries(), QStringList({u"--"_s, u"unknown"_s}));
        // Painting it is survived as well.
        QVERIFY(!m_dialog->grab().isNull());
    }

private:
    FaultTarget Target(const QString& request, int requestsBefore) const
    {
        return {.request = QRegularExpression(request),
                .body = TwoVenues(),
                .mediaType = c_jsonApi,
                .requestsBefore = requestsBefore,
                .manager = m_connector->Manager()};
    }

    VenueDbCentralWidget* Panel() const
    {
        return SearchPanel(*m_dialog);
    }
    QTableView* Table() const
    {
        return m_dialog->findChild<QTableView*>();
    }
    QString Cell(int row, int column) const
    {
        return ColumnTexts(Table(), column).value(row);
    }
    QStringList Countries() const
    {
        return ItemTexts(Panel()->findChild<QComboBox*>());
    }

    /// Nothing waits any more, nothing is in the way.
    void VerifyIdle(int rows) const
    {
        QCOMPARE(RowCount(Table()), rows);
        QCOMPARE(m_dialog->GetStatusLabel()->text(), QString());
        QCOMPARE(Panel()->cursor().shape(), Qt::ArrowCursor);
        const auto* details = m_dialog->findChild<VenueDetailsWidget*>();
        QVERIFY(details->isEnabledTo(m_dialog.get()));
        QVERIFY(details->isHidden());
        QVERIFY2(m_connector->longest <= c_longest, qPrintable(QString::number(m_connector->longest)));
    }
    void VerifyFound(int rows) const
    {
        QCOMPARE(m_boxes->shown, QStringList());
        QVERIFY(m_dialog->isVisible());
        VerifyIdle(rows);
        if (rows == 2)
            QCOMPARE(Countries(), QStringList({u"--"_s, u"France"_s, u"Germany"_s}));
    }
    void VerifyRefused(int rows) const
    {
        QCOMPARE(m_boxes->shown, QStringList{ErrorBoxes::ServerUnreachable()});
        QVERIFY(!m_dialog->isVisible());
        VerifyIdle(rows);
    }

    std::unique_ptr<FaultConnector> m_connector;
    std::unique_ptr<VenueDbDialog> m_dialog;
    std::unique_ptr<ErrorBoxes> m_boxes;
};

QTEST_MAIN(tst_FaultMatrixSearch)
#include "tst_FaultMatrixSearch.moc"
