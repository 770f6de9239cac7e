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

using korvel::Ui::VenueDatabase::VenueDbDialog;
using korvel::Ui::VenueDatabase::VenueDbSignalHandler;

/// Leads the program to a local venue server, which is reached through its proxy on \p port and has a
/// certificate of its own authority. A host that talks to the real server needs nothing of this.
bool UseLocalServer(quint16 port, const QString& caFile)
{
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), port));
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
    window.setWindowTitle(QStringLiteral("Planner"));
    auto* plan = new QPlainTextEdit(QStringLiteral("No venue yet"));
    plan->setReadOnly(true);
    window.setCentralWidget(plan);
    window.resize(1200, 850);

    // One dialog for the whole run. It asks the server for nothing before Open().
    auto* venues = new VenueDbDialog(&window);
    venues->ConnectVdb(QStringLiteral("JSONREST"));
    // Light where the desktop is light.
    venues->SetDayMode(QApplication::palette().color(QPalette::Window).lightness() > 127);

    // What the user asks for in the dialog arrives through the hub.
    const VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
    QObject::connect(hub, &VenueDbSignalHandler::HelpRequested, &window,
                     [&window] { window.statusBar()->showMessage(QStringLiteral("Help on venues")); });
    QObject::connect(hub, &VenueDbSignalHandler::ImportVenueFromTempFileRequest, &window,
                     [plan, venues](const QString& path) {
                         QFile model(path);
                         if (model.open(QIODevice::ReadOnly))
                             plan->setPlainText(QString::fromUtf8(model.readAll()));
                         venues->SetVenueLoaded(true); // the import button works again
                     });

    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Venue"));
    QObject::connect(menu->addAction(QStringLiteral("Venue &database...")), &QAction::triggered, &window,
                     [&window, venues] { venues->Open(window.screen()); });

    window.show();
    venues->Open(window.screen());
    const int result = QApplication::exec();
    venues->DisconnectVdb();
    return result;
}
