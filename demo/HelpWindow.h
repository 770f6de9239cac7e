#pragma once

#include <QDialog>

namespace korvel::Demo {

/// A page of help on the plan and the venue database.
class HelpWindow : public QDialog
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent = nullptr);
};

} // namespace korvel::Demo
