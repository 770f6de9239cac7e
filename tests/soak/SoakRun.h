#pragma once

#include <tests/soak/SoakSample.h>

#include <data/ConnectorJsonRest.h>
#include <data/Picture.h>
#include <ui/VenueDbDialog.h>

#include <server/VenueServer.h>

#include <functional>
#include <memory>

class QTableView;

namespace korvel::Ui::VenueDatabase {
class PictureFullscreenDialog;
class PictureSlider;
} // namespace korvel::Ui::VenueDatabase

namespace korvel::Soak {

/// One host with one dialog that is used for a long time, against the local server in the same process. Every
/// step goes through the widgets that a user operates. Ends the program when a step does not do what it
/// should: a figure of something that did not happen is none.
class SoakRun
{
public:
    explicit SoakRun(const Rounds& rounds);
    ~SoakRun();

    /// Runs all phases; a line per phase is written to the standard error output.
    QList<Sample> Run();

private:
    using Step = std::function<void(qint64 round)>;

    /// Repeats \p step for the warm-up and then \p rounds times; takes about a hundred samples.
    void Phase(const QString& name, qint64 rounds, const Step& step);
    Sample TakeSample(const QString& phase, qint64 round);

    void Search();
    void SelectRow(qint64 round);
    void StepWithDownload(qint64 round);
    void StepAtHand();
    void Import();

    QTableView* Table() const;

    Rounds m_rounds;
    std::unique_ptr<Demo::VenueServer> m_server;
    std::unique_ptr<Demo::ApplicationNetworkGuard> m_network;
    Data::VenueDatabase::ConnectorJsonRest m_connector;
    std::unique_ptr<Ui::VenueDatabase::VenueDbDialog> m_dialog;
    Ui::VenueDatabase::PictureSlider* m_slider = nullptr;
    Ui::VenueDatabase::PictureFullscreenDialog* m_viewer = nullptr;
    /// Pictures as they arrived with the details: without large renditions.
    QList<Data::VenueDatabase::Picture> m_pictures;
    qint64 m_imports = 0;
    QList<Sample> m_samples;
};

} // namespace korvel::Soak
