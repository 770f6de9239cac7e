#include <tests/soak/SoakRun.h>

#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbSignalHandler.h>

#include <bench/support/HeapUse.h>
#include <tests/support/GeneratedServer.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QNetworkReply>
#include <QPushButton>
#include <QTableView>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace korvel::Soak {

using Ui::VenueDatabase::PictureFullscreenDialog;
using Ui::VenueDatabase::PictureSlider;
using Ui::VenueDatabase::TsFileOpener;
using Ui::VenueDatabase::VenueDbCentralWidget;
using Ui::VenueDatabase::VenueDbDialog;
using Ui::VenueDatabase::VenueDbSignalHandler;

namespace {

constexpr int c_venues = 6;
constexpr int c_pictures = 5;

void Require(bool isTrue, const char* what)
{
    if (!isTrue)
        qFatal("This did not happen: %s", what);
}

/// Runs the event loop until \p isDone.
template <typename Condition> void WaitUntil(Condition isDone, const char* what)
{
    constexpr qint64 c_patience = 30000;
    constexpr int c_slice = 100;
    QElapsedTimer waited;
    waited.start();
    while (!isDone()) {
        Require(waited.elapsed() < c_patience, what);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, c_slice);
    }
}

qint64 EntryCount(const QString& folder)
{
    return QDir(folder)
        .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System)
        .size();
}

} // namespace

SoakRun::SoakRun(const Rounds& rounds)
    : m_rounds(rounds)
    , m_server(Test::GeneratedServer(
          {.venueCount = c_venues, .picturesPerVenue = c_pictures, .modelFilesPerVenue = 1},
          Test::EncodedPicture(QSize(60, 40), Qt::darkCyan)))
    , m_network(m_server->InstallInApplication())
{

    m_dialog = std::make_unique<VenueDbDialog>();
    // Instead of ConnectVdb(): the replies under this one can be counted.
    Require(m_dialog->findChild<VenueDbCentralWidget*>()->SetConnector(&m_connector),
            "the dialog takes the connector");
    m_slider = m_dialog->findChild<PictureSlider*>();
    m_viewer = m_dialog->findChild<PictureFullscreenDialog*>();
    QObject::connect(VenueDbSignalHandler::GetInstance(),
                     &VenueDbSignalHandler::ImportVenueFromTempFileRequest, m_dialog.get(),
                     [this](const QString& path) {
                         QFile file(path);
                         Require(file.open(QIODevice::ReadOnly) && !file.readAll().isEmpty(),
                                 "the model file can be read");
                         ++m_imports;
                         m_dialog->SetVenueLoaded(true);
                     });
    m_dialog->Open(nullptr);
    WaitUntil([this]() { return Table()->model() && Table()->model()->rowCount() == c_venues; },
              "the venues are listed");
}

SoakRun::~SoakRun() = default;

QList<Sample> SoakRun::Run()
{
    Phase(u"searches"_s, m_rounds.searches, [this](qint64) { Search(); });
    Phase(u"selections"_s, m_rounds.selections, [this](qint64 round) { SelectRow(round); });

    m_pictures = m_connector.GetPictureEntries(1);
    Require(m_pictures.size() == c_pictures, "five pictures are listed");
    m_slider->ShowFullScreen();
    Phase(u"downloads"_s, m_rounds.viewerSteps / 2, [this](qint64 round) { StepWithDownload(round); });
    Phase(u"viewer steps"_s, m_rounds.viewerSteps - m_rounds.viewerSteps / 2,
          [this](qint64) { StepAtHand(); });
    m_viewer->hide();

    SelectRow(0);
    Phase(u"imports"_s, m_rounds.imports / 2, [this](qint64) { Import(); });
    Phase(u"new imports"_s, m_rounds.imports - m_rounds.imports / 2, [this](qint64 round) {
        SelectRow(round + 1);
        Import();
    });
    return m_samples;
}

void SoakRun::Phase(const QString& name, qint64 rounds, const Step& step)
{
    QElapsedTimer time;
    time.start();
    constexpr qint64 c_samplesPerPhase = 100;
    const qint64 interval = qMax(qint64(1), rounds / c_samplesPerPhase);
    // What a later phase of imports leaves behind counts from its first round on.
    const qint64 warmUp = name == "new imports"_L1 ? 0 : m_rounds.warmUp;
    for (qint64 round = -warmUp; round < rounds; ++round) {
        if (round == 0)
            m_samples.append(TakeSample(name, 0));
        step(round + warmUp);
        if (round >= 0 && ((round + 1) % interval == 0 || round + 1 == rounds))
            m_samples.append(TakeSample(name, round + 1));
    }
    std::fprintf(stderr, "%s: %lld rounds in %.1f s\n", qPrintable(name), static_cast<long long>(rounds),
                 double(time.elapsed()) / 1000.0);
}

Sample SoakRun::TakeSample(const QString& phase, qint64 round)
{
    // The server notes every request; that is its growth and not the module's.
    m_server->Log().Clear();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return {phase,
            round,
            static_cast<qint64>(Bench::HeapInUse()),
            EntryCount(u"/proc/self/fd"_s),
            m_connector.findChildren<QNetworkReply*>().size(),
            EntryCount(QDir::tempPath())};
}

void SoakRun::Search()
{
    Test::Button(*m_dialog, u"Search"_s)->click();
    Require(Table()->model()->rowCount() == c_venues, "a search finds all venues");
}

void SoakRun::SelectRow(qint64 round)
{
    Table()->clearSelection();
    Table()->selectRow(static_cast<int>(round % c_venues));
    Require(m_dialog->findChild<TsFileOpener*>()->findChild<QPushButton*>()->isEnabled(),
            "the model file is offered");
}

void SoakRun::StepWithDownload(qint64 round)
{
    // A fresh list has no large rendition yet.
    if (round % c_pictures == 0)
        m_slider->UpdateUi(&m_pictures);
    m_viewer->ModifyPicturesIndex(1);
    Require(QApplication::overrideCursor() != nullptr, "a download starts");
    WaitUntil([]() { return !QApplication::overrideCursor(); }, "a download ends");
}

void SoakRun::StepAtHand()
{
    m_viewer->ModifyPicturesIndex(1);
    Require(!QApplication::overrideCursor(), "the large rendition is at hand");
    Require(m_viewer->findChild<QGraphicsView*>()->scene()->items().size() == 1, "a picture is shown");
}

void SoakRun::Import()
{
    const qint64 before = m_imports;
    m_dialog->findChild<TsFileOpener*>()->findChild<QPushButton*>()->click();
    Require(m_imports == before + 1, "the host is asked to import");
}

QTableView* SoakRun::Table() const
{
    return m_dialog->findChild<QTableView*>();
}

} // namespace korvel::Soak
