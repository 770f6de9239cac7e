#include <fuzz/FuzzTargets.h>

#include <fuzz/ReaderComparison.h>

#include <data/ConnectorJsonRest.h>
#include <data/Venue.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueTableModel.h>

#include <QCalendar>
#include <QIdentityProxyModel>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace korvel::Fuzz {

using Data::VenueDatabase::ConnectorJsonRest;
using Data::VenueDatabase::Venue;
using Ui::VenueDatabase::VenueDbCentralWidget;
using Ui::VenueDatabase::VenueTableModel;

namespace {

QJsonValue At(const QJsonValue& value, const char* member)
{
    return value.toObject().value(QLatin1String(member));
}

/// The editor as a reader without an index finds it.
qint64 ExpectedEditor(const QJsonValue& element, const QJsonArray& included)
{
    const QJsonValue wanted = At(At(At(At(element, "relationships"), "editor"), "data"), "id");
    for (const QJsonValue resource : included) {
        const QJsonValue id = At(resource, "id");
        if (At(resource, "type") == "user"_L1 && id.isString() && id.toString() == wanted.toString())
            return At(At(resource, "attributes"), "entity_id").toInt(0);
    }
    return -1;
}

void CheckVenue(const Venue& venue, const QJsonValue& element, const QJsonArray& included)
{
    const QJsonValue attributes = At(element, "attributes");
    Require(venue.GetId() == At(attributes, "entity_id").toInt(0), "a venue has its entity id");
    Require(venue.GetComplexName() == At(attributes, "title").toString(), "a venue has its title");
    Require(venue.GetCity() == At(At(attributes, "address"), "locality").toString(), "a venue has its city");
    Require(venue.GetEditor() == ExpectedEditor(element, included), "a venue has its editor");
    Require(venue.GetUploadDate()
                == QDate::fromString(At(attributes, "created").toString(), u"yyyy-MM-dd"_s, QCalendar()),
            "creation dates are those of Qt's parser");
    Require(venue.GetEditDate()
                == QDateTime::fromString(At(attributes, "changed").toString(), u"yyyy-MM-ddThh:mm:ss+00:00"_s,
                                         QCalendar()),
            "editing dates are those of Qt's parser");
    for (qint64 column = -1; column <= Venue::c_elementCount; ++column)
        (void)venue.GetDataAt(column);
    (void)venue.GetAddressText();
    (void)venue.GetEditDateAsString();
}

/// The short cuts that sorting takes for the module's own model lead to the same order as the long way.
void CheckSorting(VenueTableModel& model)
{
    QIdentityProxyModel otherModel;
    otherModel.setSourceModel(&model);
    VenueDbCentralWidget::VenueSortFilterProxyModel quick;
    VenueDbCentralWidget::VenueSortFilterProxyModel slow;
    quick.setSourceModel(&model);
    slow.setSourceModel(&otherModel);
    for (int column = 0; column < model.columnCount(); ++column) {
        for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            quick.sort(column, order);
            slow.sort(column, order);
            Require(quick.rowCount() == model.rowCount(), "sorting keeps every row");
            for (int row = 0; row < quick.rowCount(); ++row) {
                Require(quick.mapToSource(quick.index(row, 0)).row()
                            == slow.mapToSource(slow.index(row, 0)).row(),
                        "sorting by short cuts is sorting");
            }
        }
    }
}

} // namespace

void FuzzVenueReply(const QByteArray& input)
{
    const QString difference = ReaderDifference(input);
    Require(difference.isEmpty(), qPrintable(u"both readers find the same: "_s + difference));

    // One for the process: its translator is never deleted.
    const auto& connector = Kept<ConnectorJsonRest>();
    const QJsonObject reply = QJsonDocument::fromJson(input).object();
    const QJsonArray data = reply.value("data"_L1).toArray();
    const QJsonArray included = reply.value("included"_L1).toArray();

    const QList<Venue> venues = connector.ProcessVenueEntriesReply(reply);
    Require(venues.size() == data.size(), "one venue per element");
    for (qsizetype index = 0; index < venues.size(); ++index)
        CheckVenue(venues.at(index), data.at(data.size() - 1 - index), included);

    VenueTableModel model;
    model.SetVenueData(venues);
    CheckSorting(model);
}

} // namespace korvel::Fuzz
