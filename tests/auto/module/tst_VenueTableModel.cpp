#include <ui/VenueTableModel.h>

#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QAbstractItemModelTester>
#include <QDateTime>
#include <QGeoAddress>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

using namespace korvel::Test;
using korvel::Data::VenueDatabase::Venue;
using korvel::Ui::VenueDatabase::VenueTableModel;

class tst_VenueTableModel : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EmptyListStillHasSixLabelledColumns()
    {
        const VenueTableModel model;
        QCOMPARE(model.rowCount(QModelIndex()), 0);
        QCOMPARE(model.columnCount(QModelIndex()), 6);
        QCOMPARE(model.parent(), nullptr);
        QCOMPARE(model.headerData(5, Qt::Horizontal, Qt::DisplayRole).toString(), u"Editing date (UTC)"_s);
    }

    void CellHoldsTheMinimizedValue_data()
    {
        const Rows<int, QVariant> row("column", "value");
        row("id", 0, qint64(4294967297));
        row("complex name", 1, u"<b>Arena</b>"_s);
        row("venue/room name", 2, u"room"_s);
        row("city", 3, u"Berlin"_s);
        row("country", 4, u"Germany"_s);
        row("editing date", 5, QDateTime(QDate(2024, 3, 1), QTime(10, 20, 30)));
    }
    void CellHoldsTheMinimizedValue()
    {
        const auto [column, value] = Fetch<int, QVariant>();
        for (const bool minimized : {false, true}) {
            Venue venue = FilledVenue(4294967297, u"<b>Arena</b>"_s);
            venue.SetMinimizedElementCount(minimized);
            VenueTableModel model;
            model.SetVenueData({FilledVenue(1, u"First"_s), venue});
            const QVariant shown = model.data(model.index(1, column), Qt::DisplayRole);
            QCOMPARE(shown.metaType(), value.metaType());
            QCOMPARE(shown, value);
        }
    }

    // The record itself is the authority on its minimised columns; the model answers without copying it.
    void CellsAgreeWithTheRecord()
    {
        const Venue full = FilledVenue(7, u"Arena"_s);
        for (Venue venue : {full, Venue()}) {
            VenueTableModel model;
            model.SetVenueData({venue});
            venue.SetMinimizedElementCount(true);
            for (int column = 0; column < Venue::Size(true); ++column) {
                const QVariant shown = model.data(model.index(0, column), Qt::DisplayRole);
                QVERIFY(shown.isValid());
                QCOMPARE(shown, venue.GetDataAt(column));
                QCOMPARE(shown.metaType(), venue.GetDataAt(column).metaType());
            }
        }
    }

    void OtherRolesAnswerNothing_data()
    {
        QTest::addColumn<int>("role");
        for (const int role : {int(Qt::ToolTipRole), int(Qt::TextAlignmentRole), int(Qt::FontRole),
                               int(Qt::EditRole), int(Qt::DecorationRole), int(Qt::UserRole)})
            QTest::addRow("role %d", role) << role;
    }
    void OtherRolesAnswerNothing()
    {
        QFETCH(int, role);
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, u"Arena"_s)});
        QVERIFY(!model.data(model.index(0, 1), role).isValid());
        QVERIFY(!model.headerData(1, Qt::Horizontal, role).isValid());
        QVERIFY(!model.headerData(0, Qt::Vertical, role).isValid());
    }

    void ColumnHasItsLabel_data()
    {
        const Rows<int, QString> row("section", "label");
        row("0", 0, u"ID"_s);
        row("1", 1, u"Complex name"_s);
        row("2", 2, u"Venue/room name"_s);
        row("3", 3, u"City"_s);
        row("4", 4, u"Country"_s);
        row("5", 5, u"Editing date (UTC)"_s);
        row("behind the last", 6, {});
        row("negative", -1, {});
    }
    void ColumnHasItsLabel()
    {
        const auto [section, label] = Fetch<int, QString>();
        const QVariant shown = VenueTableModel().headerData(section, Qt::Horizontal, Qt::DisplayRole);
        QCOMPARE(shown.metaType(), QMetaType::fromType<QString>());
        QCOMPARE(shown.toString(), label);
    }

    void RowHeaderIsTheId()
    {
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, u"A"_s), FilledVenue(-1, u"B"_s)});
        QCOMPARE(model.headerData(0, Qt::Vertical, Qt::DisplayRole), QVariant(qint64(7)));
        QCOMPARE(model.headerData(1, Qt::Vertical, Qt::DisplayRole), QVariant(qint64(-1)));
    }

    void OutsideTheTableIsNothing()
    {
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, u"A"_s), FilledVenue(8, u"B"_s)});
        const QModelIndex stale = model.index(1, 1);
        model.SetVenueData({FilledVenue(7, u"A"_s)});
        QVERIFY(!model.data(QModelIndex(), Qt::DisplayRole).isValid());
        QVERIFY(!model.data(stale, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(1, Qt::Vertical, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(-1, Qt::Vertical, Qt::DisplayRole).isValid());

        Venue venue = FilledVenue(99, u"untouched"_s);
        model.GetSingleVenueData(stale, &venue);
        model.GetSingleVenueData(QModelIndex(), &venue);
        QCOMPARE(venue.GetId(), 99);
        QCOMPARE(venue.GetComplexName(), u"untouched"_s);
    }

    void RowsHaveNoChildren()
    {
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, u"A"_s), FilledVenue(8, u"B"_s)});
        QCOMPARE(model.rowCount(QModelIndex()), 2);
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
        QCOMPARE(model.columnCount(model.index(0, 0)), 0);
    }

    void SingleVenueIsTheFullRecord_data()
    {
        const Rows<bool> row("minimized");
        row("full column set", false);
        row("minimised column set", true);
    }
    void SingleVenueIsTheFullRecord()
    {
        QFETCH(bool, minimized);
        Venue stored = FilledVenue(8, u"B"_s);
        stored.SetMinimizedElementCount(minimized);
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, u"A"_s), stored});
        // Showing a row must not change what is stored.
        QVERIFY(model.data(model.index(1, 3), Qt::DisplayRole).isValid());

        Venue venue;
        venue.SetMinimizedElementCount(!minimized);
        model.GetSingleVenueData(model.index(1, 4), &venue);
        const Venue expected = FilledVenue(8, u"B"_s);
        QCOMPARE(venue.GetId(), 8);
        QCOMPARE(venue.GetComplexName(), expected.GetComplexName());
        QCOMPARE(venue.GetVenueRoomName(), expected.GetVenueRoomName());
        QCOMPARE(venue.GetGeneralComment(), expected.GetGeneralComment());
        QCOMPARE(venue.GetAddress(), expected.GetAddress());
        QCOMPARE(venue.GetLocationComment(), expected.GetLocationComment());
        QCOMPARE(venue.GetLoadDockStreetAddress(), expected.GetLoadDockStreetAddress());
        QCOMPARE(venue.GetLoadDockComment(), expected.GetLoadDockComment());
        QCOMPARE(venue.GetClearingOfHouseGrid(), expected.GetClearingOfHouseGrid());
        QCOMPARE(venue.GetRiggingComment(), expected.GetRiggingComment());
        QCOMPARE(venue.GetUploadDate(), expected.GetUploadDate());
        QCOMPARE(venue.GetEditor(), 42);
        QCOMPARE(venue.GetEditDate(), expected.GetEditDate());
        QCOMPARE(venue.GetDataAt(3).toString(), minimized ? u"Berlin"_s : u"general"_s);
    }

    void RefillResetsTheModelOnce()
    {
        VenueTableModel model;
        QSignalSpy before(&model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy after(&model, &QAbstractItemModel::modelReset);
        int rowsBefore = -1;
        connect(&model, &QAbstractItemModel::modelAboutToBeReset, this,
                [&] { rowsBefore = model.rowCount(QModelIndex()); });
        model.SetVenueData({FilledVenue(7, u"A"_s)});
        QCOMPARE(before.count(), 1);
        QCOMPARE(after.count(), 1);
        QCOMPARE(rowsBefore, 0);
        QCOMPARE(model.rowCount(QModelIndex()), 1);
        model.SetVenueData({});
        QCOMPARE(after.count(), 2);
        QCOMPARE(model.rowCount(QModelIndex()), 0);
    }

    void KeepsTheModelContract()
    {
        VenueTableModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.SetVenueData({FilledVenue(7, u"A"_s), FilledVenue(8, u"B"_s)});
        model.SetVenueData({});
        model.SetVenueData({Venue()});
    }

    void AddsNoMetaObject()
    {
        const VenueTableModel model;
        QCOMPARE(model.metaObject()->className(), "QAbstractTableModel");
    }
};

QTEST_MAIN(tst_VenueTableModel)
#include "tst_VenueTableModel.moc"
