#pragma once

#include <tests/support/HangGuard.h>

#include <QList>
#include <QObject>
#include <QString>

namespace korvel::Demo {

class VenueServer;
struct TourContext;
struct TourStep;

/// The main flow unattended, through the real widgets with clicks and keys, once in each theme that is asked
/// for. Each step checks what is on screen against the catalogue of the server, writes "NN-theme-name.png"
/// and prints a line.
class Tour : public QObject
{
    Q_OBJECT

public:
    /// \p server runs and is installed in the application; the tour stops it and starts it again. \p folder
    /// is made if it does not exist. \p dayModes are the themes, true for the light one.
    Tour(VenueServer& server, const QString& folder, const QList<bool>& dayModes);

    /// True when every step showed what it should. Ends at the first that did not. Runs nested event loops; a
    /// tour that hangs ends the process.
    bool Run();

private:
    bool RunInTheme(bool dayMode);
    bool RunStep(const TourStep& step, TourContext& context);
    bool TakePicture(const QString& name);

    VenueServer& m_server;
    QString m_folder;
    QList<bool> m_dayModes;
    int m_number = 0;
    Test::HangGuard m_hangGuard;
};

} // namespace korvel::Demo
