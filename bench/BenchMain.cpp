#include <tests/support/TestMain.h>

#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    TestApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
