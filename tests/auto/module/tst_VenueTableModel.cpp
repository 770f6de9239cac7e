#include <ui/VenueTableModel.h>

#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QAbstractItemModelTester>
#include <QDateTime>
#include <QGeoAddress>
#include <QSignalSpy>

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
        QCOMPARE(model.headerData(5, Qt::Horizontal, Qt::DisplayRole).toString(),
                 QStringLiteral("Editing date (UTC)"));
    }

    void CellHoldsTheMinimizedValue_data()
    {
        const Rows<int, QVariant> row("column", "value");
        row("id", 0, qint64(4294967297));
        row("complex name", 1, QStringLiteral("<b>Arena</b>"));
        row("venue/room name", 2, QStringLiteral("room"));
        row("city", 3, QStringLiteral("Berlin"));
        row("country", 4, QStringLiteral("Germany"));
        row("editing date", 5, QDateTime(QDate(2024, 3, 1), QTime(10, 20, 30)));
    }
    void CellHoldsTheMinimizedValue()
    {
        QFETCH(int, column);
        QFETCH(QVariant, value);
        for (const bool minimized : {false, true}) {
            Venue venue = FilledVenue(4294967297, QStringLiteral("<b>Arena</b>"));
            venue.SetMinimizedElementCount(minimized);
            VenueTableModel model;
            model.SetVenueData({FilledVenue(1, QStringLiteral("First")), venue});
            const QVariant shown = model.data(model.index(1, column), Qt::DisplayRole);
            QCOMPARE(shown.metaType(), value.metaType());
            QCOMPARE(shown, value);
        }
    }

    // The record itself is the authority on its minimised columns; the model answers without copying it.
    void CellsAgreeWithTheRecord()
    {
        const Venue full = FilledVenue(7, QStringLiteral("Arena"));
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
        model.SetVenueData({FilledVenue(7, QStringLiteral("Arena"))});
        QVERIFY(!model.data(model.index(0, 1), role).isValid());
        QVERIFY(!model.headerData(1, Qt::Horizontal, role).isValid());
        QVERIFY(!model.headerData(0, Qt::Vertical, role).isValid());
    }

    void ColumnHasItsLabel_data()
    {
        const Rows<int, QString> row("section", "label");
        row("0", 0, QStringLiteral("ID"));
        row("1", 1, QStringLiteral("Complex name"));
        row("2", 2, QStringLiteral("Venue/room name"));
        row("3", 3, QStringLiteral("City"));
        row("4", 4, QStringLiteral("Country"));
        row("5", 5, QStringLiteral("Editing date (UTC)"));
        row("behind the last", 6, {});
        row("negative", -1, {});
    }
    void ColumnHasItsLabel()
    {
        QFETCH(int, section);
        QFETCH(QString, label);
        const QVariant shown = VenueTableModel().headerData(section, Qt::Horizontal, Qt::DisplayRole);
        QCOMPARE(shown.metaType(), QMetaType::fromType<QString>());
        QCOMPARE(shown.toString(), label);
    }

    void RowHeaderIsTheId()
    {
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, QStringLiteral("A")), FilledVenue(-1, QStringLiteral("B"))});
        QCOMPARE(model.headerData(0, Qt::Vertical, Qt::DisplayRole), QVariant(qint64(7)));
        QCOMPARE(model.headerData(1, Qt::Vertical, Qt::DisplayRole), QVariant(qint64(-1)));
    }

    void OutsideTheTableIsNothing()
    {
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, QStringLiteral("A")), FilledVenue(8, QStringLiteral("B"))});
        const QModelIndex stale = model.index(1, 1);
        model.SetVenueData({FilledVenue(7, QStringLiteral("A"))});
        QVERIFY(!model.data(QModelIndex(), Qt::DisplayRole).isValid());
        QVERIFY(!model.data(stale, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(1, Qt::Vertical, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(-1, Qt::Vertical, Qt::DisplayRole).isValid());

        Venue venue = FilledVenue(99, QStringLiteral("untouched"));
        model.GetSingleVenueData(stale, &venue);
        model.GetSingleVenueData(QModelIndex(), &venue);
        QCOMPARE(venue.GetId(), 99);
        QCOMPARE(venue.GetComplexName(), QStringLiteral("untouched"));
    }

    void RowsHaveNoChildren()
    {
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, QStringLiteral("A")), FilledVenue(8, QStringLiteral("B"))});
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
        Venue stored = FilledVenue(8, QStringLiteral("B"));
        stored.SetMinimizedElementCount(minimized);
        VenueTableModel model;
        model.SetVenueData({FilledVenue(7, QStringLiteral("A")), stored});
        // Showing a row must not change what is stored.
        QVERIFY(model.data(model.index(1, 3), Qt::DisplayRole).isValid());

        Venue venue;
        venue.SetMinimizedElementCount(!minimized);
        model.GetSingleVenueData(model.index(1, 4), &venue);
        const Venue expected = FilledVenue(8, QStringLiteral("B"));
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
        QCOMPARE(venue.GetDataAt(3).toString(),
                 minimized ? QStringLiteral("Berlin") : QStringLiteral("general"));
    }

    void RefillResetsTheModelOnce()
    {
        VenueTableModel model;
        QSignalSpy before(&model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy after(&model, &QAbstractItemModel::modelReset);
        int rowsBefore = -1;
        connect(&model, &QAbstractItemModel::modelAboutToBeReset, this,
                [&] { rowsBefore = model.rowCount(QModelIndex()); });
        model.SetVenueData({FilledVenue(7, QStringLiteral("A"))});
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
        model.SetVenueData({FilledVenue(7, QStringLiteral("A")), FilledVenue(8, QStringLiteral("B"))});
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
