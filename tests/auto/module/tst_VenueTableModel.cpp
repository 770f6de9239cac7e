#include <ui/VenueTableModel.h>

#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QAbstractItemModelTester>
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

    // The record itself is the authority on its minimised columns; the model answers without copying it.
    void CellsAgreeWithTheRecord_data()
    {
        const Rows<Venue, bool> row("venue", "minimized");
        const Venue filled = FilledVenue(4294967297, u"<b>Arena</b>"_s);
        row("filled, full column set", filled, false);
        row("filled, minimised column set", filled, true);
        row("empty", Venue(), false);
    }
    void CellsAgreeWithTheRecord()
    {
        auto [venue, minimized] = Fetch<Venue, bool>();
        venue.SetMinimizedElementCount(minimized);
        VenueTableModel model;
        model.SetVenueData({FilledVenue(1, u"First"_s), venue});
        venue.SetMinimizedElementCount(true);
        for (int column = 0; column < 6; ++column) {
            const QVariant shown = model.data(model.index(1, column), Qt::DisplayRole);
            QVERIFY(shown.isValid());
            QCOMPARE(shown, venue.GetDataAt(column));
            QCOMPARE(shown.metaType(), venue.GetDataAt(column).metaType());
        }
    }

    void OtherRolesAnswerNothing_data()
    {
        const Rows<int> row("role");
        for (const int role : {Qt::ToolTipRole, Qt::TextAlignmentRole, Qt::FontRole, Qt::EditRole,
                               Qt::DecorationRole, Qt::UserRole})
            row("role " + QByteArray::number(role), role);
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

    // And on what they are called, the ones before the first and behind the last included.
    void ColumnHasItsLabel()
    {
        for (int section = -1; section <= 6; ++section) {
            const QVariant shown = VenueTableModel().headerData(section, Qt::Horizontal, Qt::DisplayRole);
            QCOMPARE(shown.metaType(), QMetaType::fromType<QString>());
            QCOMPARE(shown.toString(), Venue::GetLabelAt(section, true));
        }
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
        QCOMPARE(venue.GetDataAt(3).toString(), minimized ? u"Berlin"_s : u"general"_s);
        venue.SetMinimizedElementCount(false);
        for (qint64 index = 0; index < 10; ++index)
            QCOMPARE(venue.GetDataAt(index), FilledVenue(8, u"B"_s).GetDataAt(index));
        // What is in no column.
        QCOMPARE(venue.GetEditor(), 42);
        QCOMPARE(venue.GetAddress(), FilledVenue().GetAddress());
        QCOMPARE(venue.GetClearingOfHouseGrid(), u"12.5"_s);
        QCOMPARE(venue.GetRiggingComment(), u"rigging"_s);
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
