#pragma once

#include <data/Connector_Interface.h>

#include <tests/support/ScriptedServer.h>

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QRegularExpression>
#include <QString>

#include <functional>

class QNetworkAccessManager;

namespace korvel::Test {

/// The one request that is to go wrong, and what its honest answer would be.
struct FaultTarget
{
    QRegularExpression request{}; ///< of path and query as sent
    QByteArray body{}; ///< longer than FaultRow::c_begin
    QByteArray mediaType{};
    QString host{}; ///< faults of connections concern this host only; empty: every host
    /// How many requests, each on a connection of its own, go well before.
    int requestsBefore = 0;
    /// Sends those requests; not needed where there are none.
    QNetworkAccessManager* manager = nullptr;
};

/// Which bytes come out of a download that does not look at the status.
enum class Received
{
    Nothing,
    Whole,
    Page, ///< FaultRow::page
    Begin, ///< the first FaultRow::c_begin bytes
    Scrap ///< something short and worthless
};

/// What the download manager emits for one request, in this order.
enum class Signals
{
    Image,
    NotAnImage,
    TwoFailures,
    FailedThenImage
};

/// One way in which servers and networks fail, and what each kind of query makes of it.
struct FaultRow
{
    /// How much of the body arrives where it ends too early.
    static constexpr qsizetype c_begin = 5000;

    QByteArray name;
    std::function<void(ScriptedServer&, const FaultTarget&)> make;

    /// The venue search's status. The lists are complete with Ok and empty otherwise.
    Data::VenueDatabase::ResultStatus search = Data::VenueDatabase::WrongContentType;
    Received picture = Received::Nothing;
    Received file = Received::Nothing;
    Signals viewer = Signals::TwoFailures;

    bool isError = true; ///< Qt reports an error, which is logged
    int status = 0; ///< the HTTP status that is logged, 0: none
    bool isRequestSent = true; ///< the request leaves through a trusted connection
    /// Qt reports it where HTTP/2 is offered only, which is to the viewer. A query ends with its time-out.
    bool isEndlessForQueries = false;
    QByteArray page; ///< the body for Received::Page
};

/// Every fault whose end a query does not have to wait for.
QList<FaultRow> FaultRows();
/// Those that only the time-out of a query ends.
QList<FaultRow> EndlessFaultRows();
/// Every fault of which the viewer hears.
QList<FaultRow> ViewerFaultRows();
/// Those with which the viewer waits on.
QList<FaultRow> EndlessViewerFaultRows();

/// An answer that comes two seconds before the time-out.
FaultRow JustInTimeRow();

/// Adds each of \p rows to the running test's table, in the column "fault".
void AddFaultRows(const QList<FaultRow>& rows);

/// What is logged, as a pattern, when \p what failed at \p place (host and path).
QString FailureMessage(const FaultRow& row, const QString& what, const QString& place);

/// What is wrong with \p bytes as the result of a download of \p target; empty where nothing is.
QString ReceivedComplaint(Received expected, const FaultRow& row, const FaultTarget& target,
                          const QByteArray& bytes);

/// Verifies, where the request of \p row does not leave, that nothing reached \p server after the first
/// \p requests, each of which had a connection of its own.
void VerifyNothingLeft(const FaultRow& row, ScriptedServer& server, int requests);

/// The honest answer to \p target as a fault, to be made dishonest.
Demo::Fault Honest(const FaultTarget& target);

} // namespace korvel::Test

Q_DECLARE_METATYPE(korvel::Test::FaultRow)
