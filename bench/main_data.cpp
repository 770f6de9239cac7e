#include <bench/Main.h>
#include <bench/SearchMemory.h>

#include <QCoreApplication>

#include <cstring>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 4 && std::strcmp(argv[1], korvel::Bench::c_searchMemoryOption) == 0)
        return korvel::Bench::PrintSearchMemory(QCoreApplication::arguments().sliced(2));
    return korvel::Bench::RunBenchmarks(argc, argv);
}
