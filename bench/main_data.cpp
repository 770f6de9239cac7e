#include <bench/Main.h>

#include <QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return korvel::Bench::RunBenchmarks(argc, argv);
}
