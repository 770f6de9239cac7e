#include <ui/VenueDbCentralWidget.h>

#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QAbstractItemModelTester>
#include <QStandardItemModel>

using namespace Qt::StringLiterals;

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

Venue ChangedVenue(qint64 id, const QString& name, const QString& changed)
{
    Venue venue = MakeVenue(id, name);
    venue.SetEditDate(QDateTime::fromString(changed, Qt::ISODate));
    return venue;
}

} // namespace

class tst_VenueSortFilterProxyModel : public StrictTest
{
    Q_OBJECT

private:
    VenueTableModel m_model;
    VenueDbCentralWidget::VenueSortFilterProxyModel m_proxy;

    QList<qint64> ShownIds() const
    {
        QList<qint64> ids;
        for (int row = 0; row < m_proxy.rowCount(); ++row)
            ids.append(m_proxy.index(row, 0).data().toLongLong());
        return ids;
    }

private Q_SLOTS:
    void init()
    {
        StrictTest::init();
        m_proxy.setSourceModel(nullptr);
        m_model.SetVenueData({ChangedVenue(1, u"Beta"_s, u"2024-03-01T10:00:00"_s),
                              ChangedVenue(2, u"Alpha"_s, u"2026-01-31T10:00:00"_s),
                              ChangedVenue(3, u"Gamma"_s, u"2021-12-24T10:00:00"_s)});
        m_proxy.setSourceModel(&m_model);
        m_proxy.sort(-1);
    }

    void OrderFollowsTheColumn_data()
    {
        const Rows<int, Qt::SortOrder, QList<qint64>> row("column", "order", "ids");
        row("dates ascending: newest first", 5, Qt::AscendingOrder, {2, 1, 3});
        row("dates descending: oldest first", 5, Qt::DescendingOrder, {3, 1, 2});
        row("texts keep their order ascending", 1, Qt::AscendingOrder, {1, 2, 3});
        row("texts keep their order descending", 1, Qt::DescendingOrder, {1, 2, 3});
        row("ids sort as texts", 0, Qt::AscendingOrder, {1, 2, 3});
    }
    void OrderFollowsTheColumn()
    {
        const auto [column, order] = Fetch<int, Qt::SortOrder>();
        m_proxy.sort(column, order);
        QTEST(ShownIds(), "ids");
    }

    void IdsCompareAsTexts()
    {
        m_model.SetVenueData({MakeVenue(9), MakeVenue(10), MakeVenue(100)});
        m_proxy.sort(0, Qt::AscendingOrder);
        QCOMPARE(ShownIds(), (QList<qint64>{10, 100, 9}));
    }

    void TextsThatAreDatesSortAsDates()
    {
        m_model.SetVenueData({ChangedVenue(1, u"2021-01-01"_s, {}),
                              ChangedVenue(2, u"2023-01-01T00:00:00"_s, {}),
                              ChangedVenue(3, u"2022-01-01"_s, {})});
        m_proxy.sort(1, Qt::AscendingOrder);
        QCOMPARE(ShownIds(), (QList<qint64>{2, 3, 1}));
    }

    void InvalidDatesComeLastInAscendingOrder()
    {
        m_model.SetVenueData({MakeVenue(1), ChangedVenue(2, {}, u"2024-03-01T10:00:00"_s)});
        m_proxy.sort(5, Qt::AscendingOrder);
        QCOMPARE(ShownIds(), (QList<qint64>{2, 1}));
    }

    void ComparesAnySourceModel()
    {
        QStandardItemModel model;
        for (const QVariant& value : {QVariant(u"b"_s), QVariant(12), QVariant(2.5)}) {
            auto* item = new QStandardItem;
            item->setData(value, Qt::DisplayRole);
            model.appendRow(item);
        }
        m_proxy.setSourceModel(&model);
        // A number cannot be a date-time, so the pair is compared as texts.
        QVERIFY(m_proxy.lessThan(model.index(1, 0), model.index(0, 0)));
        QVERIFY(m_proxy.lessThan(model.index(1, 0), model.index(2, 0)));
        QVERIFY(!m_proxy.lessThan(model.index(0, 0), model.index(2, 0)));
    }

    void EverythingIsAccepted()
    {
        QCOMPARE(m_proxy.rowCount(), m_model.rowCount());
        QCOMPARE(m_proxy.columnCount(), 6);
    }

    void BehavesAsAModel()
    {
        const QAbstractItemModelTester tester(&m_proxy,
                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
        m_proxy.sort(5, Qt::AscendingOrder);
        m_model.SetVenueData({});
        m_model.SetVenueData({MakeVenue(1)});
        QCOMPARE(m_proxy.rowCount(), 1);
    }
};

QTEST_MAIN(tst_VenueSortFilterProxyModel)
#include "tst_VenueSortFilterProxyModel.moc"
