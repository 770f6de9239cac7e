#include "HostWindow.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    HostWindow window;
    window.show();
    return QApplication::exec();
}
