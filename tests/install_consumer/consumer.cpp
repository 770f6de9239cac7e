// Drives the example host through the installed module without a display and without a server: whatever the
// host may use is linked and called, and the program ends with 0 when all of it behaved.

#include "HostWindow.h"

#include <data/Connector_Interface.h>
#include <data/CountryCodeTranslator.h>
#include <data/Venue.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QHostAddress>
#include <QMessageBox>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QTemporaryFile>
#include <QTextStream>
#include <QTimer>

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Ui::VenueDatabase;

namespace {

bool s_failed = false;

void Check(bool holds, const char* what)
{
    QTextStream(stdout) << (holds ? "ok      " : "FAILED  ") << what << Qt::endl;
    s_failed = s_failed || !holds;
}

/// A port of this machine that refuses connections: no request leaves it, and each fails at once.
quint16 RefusingPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

void CheckRecords()
{
    Venue venue;
    venue.SetId(7);
    venue.SetComplexName(QStringLiteral("Concert Hall"));
    venue.SetMinimizedElementCount(true);
    const Venue copy = venue;
    Check(copy.GetId() == 7 && copy.GetComplexName() == QLatin1String("Concert Hall"),
          "a copied record keeps its values");

    const CountryCodeTranslator translator;
    Check(translator.GetCountryCode(translator.GetCountry(QStringLiteral("NO"))) == QLatin1String("NO"),
          "country codes translate both ways");
}

/// Opens the database by the host's own menu, answers the error box with "Close" and waits for the end of it.
void CheckOpenWithoutServer(HostWindow& window, VenueDbDialog& dialog)
{
    QEventLoop loop;
    bool boxAnswered = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &loop, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            boxAnswered = true;
            box->button(QMessageBox::Close)->click();
        } else if (boxAnswered && !dialog.isVisible()) {
            loop.quit();
        }
    });
    QTimer::singleShot(20000, &loop, &QEventLoop::quit);

    window.menuBar()->actions().constFirst()->menu()->actions().constFirst()->trigger();
    Check(dialog.isVisible(), "the host's menu entry opens the dialog");
    Check(dialog.size() == QSize(1062, 768), "the dialog has its opening size");
    watch.start(10);
    loop.exec();
    Check(boxAnswered, "a server that cannot be reached is reported");
    Check(!dialog.isVisible(), "Close in the error box hides the dialog");
}

void CheckImport()
{
    VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
    QList<bool> answers;
    QObject context;
    QObject::connect(hub, &VenueDbSignalHandler::VenueLoaded, &context,
                     [&answers](bool loaded) { answers.append(loaded); });

    QTemporaryFile model;
    Check(model.open() && model.write("hall") == 4 && model.flush(), "a model file can be written");
    Q_EMIT hub->ImportVenueFromTempFileRequest(model.fileName());
    Check(answers == QList<bool>{true}, "a readable model is answered with true, once");

    answers.clear();
    Q_EMIT hub->ImportVenueFromTempFileRequest(model.fileName() + QStringLiteral(".missing"));
    Check(answers == QList<bool>({false, true}), "an unreadable one with false, then with true");
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), RefusingPort()));

    CheckRecords();

    HostWindow window;
    window.show();
    auto* dialog = window.findChild<VenueDbDialog*>();
    Check(dialog != nullptr, "the host owns a dialog");
    if (!dialog)
        return 1;
    Check(dialog->GetVdbConnectionInfo() == QLatin1String("JsonRest connection "), "the host is connected");
    CheckOpenWithoutServer(window, *dialog);
    CheckImport();
    Check(!dialog->ConnectVdb(QStringLiteral("jsonrest")), "an unknown connection type is refused");
    Check(dialog->GetVdbConnectionInfo() == QLatin1String("no connection specified"), "and told as such");

    return s_failed ? 1 : 0;
}
