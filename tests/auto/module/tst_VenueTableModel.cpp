#include <ui/VenueTableModel.h>

#include <tests/support/MessageGuard.h>

#include <QAbstractItemModelTester>
#include <QDateTime>
#include <QGeoAddress>
#include <QSignalSpy>
#include <QTest>

using korvel::Data::VenueDatabase::Venue;
using korvel::Ui::VenueDatabase::VenueTableModel;

namespace {

Venue CreateVenue(qint64 id, const QString& name)
{
    Venue venue;
    venue.SetId(id);
    venue.SetComplexName(name);
    venue.SetVenueRoomName(QStringLiteral("Room %1").arg(id));
    venue.SetGeneralComment(QStringLiteral("General"));
    venue.SetStreetAddress(QStringLiteral("Main St 5"));
    venue.SetPostalCode(QStringLiteral("10115"));
    venue.SetCity(QStringLiteral("Berlin"));
    venue.SetCountryCode(QStringLiteral("DE"));
    venue.SetCountry(QStringLiteral("Germany"));
    venue.SetLocationComment(QStringLiteral("Location"));
    venue.SetLoadDockStreetAddress(QStringLiteral("Dock St 1"));
    venue.SetLoadDockComment(QStringLiteral("Dock"));
    venue.SetClearingOfHouseGrid(QStringLiteral("12.5"));
    venue.SetRiggingComment(QStringLiteral("Rigging"));
    venue.SetUploadDate(QDate(2020, 1, 2));
    venue.SetEditor(77);
    venue.SetEditDate(QDateTime(QDate(2024, 3, 1), QTime(10, 30)));
    return venue;
}

} // namespace

class tst_VenueTableModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
    }

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
        QTest::addColumn<int>("column");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("id") << 0 << QVariant(qint64(4294967297));
        QTest::newRow("complex name") << 1 << QVariant(QStringLiteral("<b>Arena</b>"));
        QTest::newRow("venue/room name") << 2 << QVariant(QStringLiteral("Room 4294967297"));
        QTest::newRow("city") << 3 << QVariant(QStringLiteral("Berlin"));
        QTest::newRow("country") << 4 << QVariant(QStringLiteral("Germany"));
        QTest::newRow("editing date") << 5 << QVariant(QDateTime(QDate(2024, 3, 1), QTime(10, 30)));
    }
    void CellHoldsTheMinimizedValue()
    {
        QFETCH(int, column);
        QFETCH(QVariant, value);
        for (const bool minimized : {false, true}) {
            Venue venue = CreateVenue(4294967297, QStringLiteral("<b>Arena</b>"));
            venue.SetMinimizedElementCount(minimized);
            VenueTableModel model;
            model.SetVenueData({CreateVenue(1, QStringLiteral("First")), venue});
            const QVariant shown = model.data(model.index(1, column), Qt::DisplayRole);
            QCOMPARE(shown.metaType(), value.metaType());
            QCOMPARE(shown, value);
        }
    }

    // The record itself is the authority on its minimised columns; the model answers without copying it.
    void CellsAgreeWithTheRecord()
    {
        const Venue full = CreateVenue(7, QStringLiteral("Arena"));
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
        model.SetVenueData({CreateVenue(7, QStringLiteral("Arena"))});
        QVERIFY(!model.data(model.index(0, 1), role).isValid());
        QVERIFY(!model.headerData(1, Qt::Horizontal, role).isValid());
        QVERIFY(!model.headerData(0, Qt::Vertical, role).isValid());
    }

    void ColumnHasItsLabel_data()
    {
        QTest::addColumn<int>("section");
        QTest::addColumn<QString>("label");
        QTest::newRow("0") << 0 << QStringLiteral("ID");
        QTest::newRow("1") << 1 << QStringLiteral("Complex name");
        QTest::newRow("2") << 2 << QStringLiteral("Venue/room name");
        QTest::newRow("3") << 3 << QStringLiteral("City");
        QTest::newRow("4") << 4 << QStringLiteral("Country");
        QTest::newRow("5") << 5 << QStringLiteral("Editing date (UTC)");
        QTest::newRow("behind the last") << 6 << QString();
        QTest::newRow("negative") << -1 << QString();
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
        model.SetVenueData({CreateVenue(7, QStringLiteral("A")), CreateVenue(-1, QStringLiteral("B"))});
        QCOMPARE(model.headerData(0, Qt::Vertical, Qt::DisplayRole), QVariant(qint64(7)));
        QCOMPARE(model.headerData(1, Qt::Vertical, Qt::DisplayRole), QVariant(qint64(-1)));
    }

    void OutsideTheTableIsNothing()
    {
        VenueTableModel model;
        model.SetVenueData({CreateVenue(7, QStringLiteral("A")), CreateVenue(8, QStringLiteral("B"))});
        const QModelIndex stale = model.index(1, 1);
        model.SetVenueData({CreateVenue(7, QStringLiteral("A"))});
        QVERIFY(!model.data(QModelIndex(), Qt::DisplayRole).isValid());
        QVERIFY(!model.data(stale, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(1, Qt::Vertical, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(-1, Qt::Vertical, Qt::DisplayRole).isValid());

        Venue venue = CreateVenue(99, QStringLiteral("untouched"));
        model.GetSingleVenueData(stale, &venue);
        model.GetSingleVenueData(QModelIndex(), &venue);
        QCOMPARE(venue.GetId(), 99);
        QCOMPARE(venue.GetComplexName(), QStringLiteral("untouched"));
    }

    void RowsHaveNoChildren()
    {
        VenueTableModel model;
        model.SetVenueData({CreateVenue(7, QStringLiteral("A")), CreateVenue(8, QStringLiteral("B"))});
        QCOMPARE(model.rowCount(QModelIndex()), 2);
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
        QCOMPARE(model.columnCount(model.index(0, 0)), 0);
    }

    void SingleVenueIsTheFullRecord_data()
    {
        QTest::addColumn<bool>("minimized");
        QTest::newRow("full column set") << false;
        QTest::newRow("minimised column set") << true;
    }
    void SingleVenueIsTheFullRecord()
    {
        QFETCH(bool, minimized);
        Venue stored = CreateVenue(8, QStringLiteral("B"));
        stored.SetMinimizedElementCount(minimized);
        VenueTableModel model;
        model.SetVenueData({CreateVenue(7, QStringLiteral("A")), stored});
        // Showing a row must not change what is stored.
        QVERIFY(model.data(model.index(1, 3), Qt::DisplayRole).isValid());

        Venue venue;
        venue.SetMinimizedElementCount(!minimized);
        model.GetSingleVenueData(model.index(1, 4), &venue);
        QCOMPARE(venue.GetId(), 8);
        QCOMPARE(venue.GetComplexName(), QStringLiteral("B"));
        QCOMPARE(venue.GetVenueRoomName(), QStringLiteral("Room 8"));
        QCOMPARE(venue.GetGeneralComment(), QStringLiteral("General"));
        QCOMPARE(venue.GetAddress(), stored.GetAddress());
        QCOMPARE(venue.GetLocationComment(), QStringLiteral("Location"));
        QCOMPARE(venue.GetLoadDockStreetAddress(), QStringLiteral("Dock St 1"));
        QCOMPARE(venue.GetLoadDockComment(), QStringLiteral("Dock"));
        QCOMPARE(venue.GetClearingOfHouseGrid(), QStringLiteral("12.5"));
        QCOMPARE(venue.GetRiggingComment(), QStringLiteral("Rigging"));
        QCOMPARE(venue.GetUploadDate(), QDate(2020, 1, 2));
        QCOMPARE(venue.GetEditor(), 77);
        QCOMPARE(venue.GetEditDate(), QDateTime(QDate(2024, 3, 1), QTime(10, 30)));
        QCOMPARE(venue.GetDataAt(3).toString(),
                 minimized ? QStringLiteral("Berlin") : QStringLiteral("General"));
    }

    void RefillResetsTheModelOnce()
    {
        VenueTableModel model;
        QSignalSpy before(&model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy after(&model, &QAbstractItemModel::modelReset);
        int rowsBefore = -1;
        connect(&model, &QAbstractItemModel::modelAboutToBeReset, this,
                [&] { rowsBefore = model.rowCount(QModelIndex()); });
        model.SetVenueData({CreateVenue(7, QStringLiteral("A"))});
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
        model.SetVenueData({CreateVenue(7, QStringLiteral("A")), CreateVenue(8, QStringLiteral("B"))});
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
