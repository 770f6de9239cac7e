// The examples in the comments of the public headers. They are compiled, and tst_Documents compares the
// texts.
#include <data/ConnectorJsonRest.h>
#include <data/CountryCodeTranslator.h>
#include <data/DownloadManager.h>
#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDbSignalHandler.h>
#include <ui/VenueDetailsWidget.h>
#include <ui/VenueTableModel.h>

#include <QDebug>
#include <QMainWindow>
#include <QScreen>
#include <QTextEdit>
#include <QUrl>

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Ui::VenueDatabase;

// What stands for the host.
bool ImportModel(const QString& path);
void ShowPicture(QWidget& window, const QByteArray& bytes);
void Step(QWidget* picture, int direction);
bool SwitchTheme();
void ShowHelp();
using LocalConnector = ConnectorJsonRest;

void ConnectorJsonRestExample();
void ConnectorJsonRestExample()
{
    //! [ConnectorJsonRest]
    ConnectorJsonRest connector;
    QList<Venue> venues;
    if (connector.FindVenueEntries({{QStringLiteral("address.locality"), QStringLiteral("paris")}}, venues)
        == Ok) {
        for (const Venue& venue : std::as_const(venues))
            qInfo() << venue.GetId() << venue.GetComplexName() << venue.GetCountry();
    }
    //! [ConnectorJsonRest]
}

void ConnectorInterfaceExample();
void ConnectorInterfaceExample()
{
    //! [Connector_Interface]
    LocalConnector connector; // outlives the panel's use of it
    VenueDbCentralWidget panel;
    panel.SetConnector(&connector);
    panel.PerformQuery();
    //! [Connector_Interface]
}

void CountryCodeTranslatorExample();
void CountryCodeTranslatorExample()
{
    //! [CountryCodeTranslator]
    const CountryCodeTranslator countries;
    countries.GetCountry(QStringLiteral("CH")); // "Switzerland"
    countries.GetCountryCode(QStringLiteral("Japan")); // "JP"
    //! [CountryCodeTranslator]
}

void DownloadManagerExample(QWidget& window, const QUrl& url);
void DownloadManagerExample(QWidget& window, const QUrl& url)
{
    //! [DownloadManager]
    auto* downloads = new DownloadManager(&window);
    QObject::connect(downloads, &DownloadManager::PictureBinaryDataFinished, &window,
                     [&window](const QUrl&, const QByteArray& buffer) { ShowPicture(window, buffer); });
    downloads->RequestPictureBinaryData(url);
    //! [DownloadManager]
}

void TsFileExample(TsFile file);
void TsFileExample(TsFile file)
{
    //! [TsFile]
    if (file.CopyToTempFolder())
        ImportModel(file.GetTempPath());
    //! [TsFile]
}

void VenueExample(const Venue& venue);
void VenueExample(const Venue& venue)
{
    //! [Venue]
    QStringList lines;
    for (int column = 0; column < Venue::Size(true); ++column)
        lines.append(Venue::GetLabelAt(column, true) + QStringLiteral(": ")
                     + venue.GetMinimizedDataAt(column).toString());
    //! [Venue]
}

void PictureFullscreenDialogExample(QWidget& window, QList<Picture> pictures);
void PictureFullscreenDialogExample(QWidget& window, QList<Picture> pictures)
{
    //! [PictureFullscreenDialog]
    auto* viewer = new PictureFullscreenDialog(&window);
    viewer->SetDayMode(true);
    viewer->SetPictures(&pictures); // keeps a copy
    viewer->Open();
    viewer->SetPicturesIndex(0);
    //! [PictureFullscreenDialog]
}

void PictureNavigationButtonExample(QWidget* picture);
void PictureNavigationButtonExample(QWidget* picture)
{
    //! [PictureNavigationButton]
    auto* next = new PictureNavigationButton(1, picture);
    QObject::connect(next, &PictureNavigationButton::PictureNavigationClicked, picture,
                     [picture](int direction) { Step(picture, direction); });
    next->AdjustToParent(0);
    //! [PictureNavigationButton]
}

void PictureSliderExample(QWidget& window, QList<Picture> pictures);
void PictureSliderExample(QWidget& window, QList<Picture> pictures)
{
    //! [PictureSlider]
    auto* slider = new PictureSlider(&window);
    slider->SetDayMode(true);
    slider->UpdateUi(&pictures); // keeps a copy; shows the first
    slider->ShowVenuePic(1); // the second
    //! [PictureSlider]
}

void PictureViewExample(QWidget& window, QGraphicsScene* scene);
void PictureViewExample(QWidget& window, QGraphicsScene* scene)
{
    //! [PictureView]
    auto* view = new PictureView(&window);
    view->setScene(scene); // stays the caller's
    view->FitPictureInView();
    view->ZoomBy(PictureView::c_zoomStep);
    //! [PictureView]
}

void TsFileOpenerExample(QWidget& window, QList<TsFile> files);
void TsFileOpenerExample(QWidget& window, QList<TsFile> files)
{
    //! [TsFileOpener]
    auto* opener = new TsFileOpener(&window);
    opener->UpdateUi(&files); // keeps a copy
    QObject::connect(opener, &TsFileOpener::ImportVenueFromTempFileRequest, &window, [](const QString& path) {
        Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(ImportModel(path));
    });
    //! [TsFileOpener]
}

void VenueDbCentralWidgetExample(Connector_Interface& connector);
void VenueDbCentralWidgetExample(Connector_Interface& connector)
{
    //! [VenueDbCentralWidget]
    VenueDbCentralWidget panel;
    panel.SetConnector(&connector); // stays the caller's
    panel.show();
    panel.PerformQuery();
    //! [VenueDbCentralWidget]
}

void VenueDbDialogExample(QMainWindow& mainWindow);
void VenueDbDialogExample(QMainWindow& mainWindow)
{
    //! [VenueDbDialog]
    auto* dialog = new VenueDbDialog(&mainWindow);
    QObject::connect(VenueDbSignalHandler::GetInstance(),
                     &VenueDbSignalHandler::ImportVenueFromTempFileRequest, dialog,
                     [dialog](const QString& path) { dialog->SetVenueLoaded(ImportModel(path)); });
    dialog->ConnectVdb(QStringLiteral("JSONREST"));
    dialog->SetDayMode(true);
    dialog->Open(mainWindow.screen());
    //! [VenueDbDialog]
}

void VenueDbDialogBaseExample();
void VenueDbDialogBaseExample()
{
    //! [VenueDbDialogBase]
    VenueDbDialogBase dialog;
    dialog.SetContentWidget(new QTextEdit(&dialog));
    dialog.SetStatusLabelText(QStringLiteral("Ready"));
    dialog.show();
    //! [VenueDbDialogBase]
}

void VenueDbSignalHandlerExample(QMainWindow& mainWindow, VenueDbDialog* dialog);
void VenueDbSignalHandlerExample(QMainWindow& mainWindow, VenueDbDialog* dialog)
{
    //! [VenueDbSignalHandler]
    const VenueDbSignalHandler* hub = VenueDbSignalHandler::GetInstance();
    QObject::connect(hub, &VenueDbSignalHandler::HelpRequested, &mainWindow, [] { ShowHelp(); });
    QObject::connect(hub, &VenueDbSignalHandler::DayModeChangeRequested, &mainWindow,
                     [dialog] { dialog->SetDayMode(SwitchTheme()); });
    //! [VenueDbSignalHandler]
}

void VenueDetailsWidgetExample(QWidget& window, Venue venue, QList<Picture> pictures, QList<TsFile> files);
void VenueDetailsWidgetExample(QWidget& window, Venue venue, QList<Picture> pictures, QList<TsFile> files)
{
    //! [VenueDetailsWidget]
    auto* details = new VenueDetailsWidget(&window);
    details->SetDayMode(true);
    details->UpdateUi(&venue, &pictures, &files);
    details->SetCollapsed(true);
    //! [VenueDetailsWidget]
}

void VenueTableModelExample(const QList<Venue>& venues);
void VenueTableModelExample(const QList<Venue>& venues)
{
    //! [VenueTableModel]
    VenueTableModel model;
    model.SetVenueData(venues);
    Venue second;
    model.GetSingleVenueData(model.index(1, 0), &second);
    //! [VenueTableModel]
}
