#pragma once

#include <QApplication>

namespace korvel::Demo {

/// Tessra as an application: its name, its font and its style. The reference host and its tour look alike
/// because both are made with it.
class HostApplication : public QApplication
{
    Q_OBJECT

public:
    /// Takes the language from the option "--language" before anything else: it cannot change later.
    HostApplication(int& argc, char* argv[]);
};

} // namespace korvel::Demo
