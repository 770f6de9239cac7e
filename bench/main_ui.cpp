#include <bench/FirstShow.h>
#include <bench/Main.h>

#include <QApplication>

#include <cstring>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc == 2 && std::strcmp(argv[1], korvel::Bench::c_firstShowOption) == 0)
        return korvel::Bench::PrintFirstShow();
    return korvel::Bench::RunBenchmarks(argc, argv);
}
