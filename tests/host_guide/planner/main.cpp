#include <ui/VenueDbDialog.h>
#include <ui/VenueDbSignalHandler.h>

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QMenuBar>
#include <QNetworkProxy>
#include <QPalette>
#include <QPlainTextEdit>
#include <QSslConfiguration>
#include <QStatusBar>

using namespace Qt::StringLiterals;

using korvel::Ui::VenueDatabase::VenueDbDialog;
using korvel::Ui::VenueDatabase::VenueDbSignalHandler;

/// Leads the program to a local venue server, which is reached through its proxy on \p port and has a
/// certificate of its own authority. A host that talks to the real server needs nothing of this.
bool UseLocalServer(quint16 port, const QString& caFile)
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::HttpProxy, u"127.0.0.1"_s, port));
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    const bool isRead = configuration.addCaCertificates(caFile);
    QSslConfiguration::setDefaultConfiguration(configuration);
    return isRead;
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 3 && !UseLocalServer(arguments[1].toUShort(), arguments[2]))
        qFatal("%s holds no certificate", qPrintable(arguments[2]));

    QMainWindow window;
    window.setWindowTitle(u"Planner"_s);
    auto* plan = new QPlainTextEdit(u"No venue yet"_s);
    plan->setReadOnly(true);
    window.setCentralWidget(plan);
    window.resize(1200, 850);

    // One dialog for the whole run. It asks the server for nothing before Open().
    auto* venues = new VenueDbDialog(&window);
    venues->ConnectVdb(u"JSONREST"_s);
    // Light where the desktop is light.
    venues->SetDayMode(QApplication::palette().color(QPalette::Window).lightness() > 127);

    // What the user asks for in the dialog arrives through the hub.
    const VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
    QObject::connect(hub, &VenueDbSignalHandler::HelpRequested, &window,
                     [&window] { window.statusBar()->showMessage(u"Help on venues"_s); });
    QObject::connect(hub, &VenueDbSignalHandler::ImportVenueFromTempFileRequest, &window,
                     [plan, venues](const QString& path) {
                         QFile model(path);
                         if (model.open(QIODevice::ReadOnly))
                             plan->setPlainText(QString::fromUtf8(model.readAll()));
                         venues->SetVenueLoaded(true); // the import button works again
                     });

    QMenu* menu = window.menuBar()->addMenu(u"&Venue"_s);
    QObject::connect(menu->addAction(u"Venue &database..."_s), &QAction::triggered, &window,
                     [&window, venues] { venues->Open(window.screen()); });

    window.show();
    venues->Open(window.screen());
    const int result = QApplication::exec();
    venues->DisconnectVdb();
    return result;
}
