#include "OpeningStage.h"
#include "ReloadStage.h"

#include <tests/support/TestMain.h>

#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>

namespace {

template <typename Action>
void counted(const QByteArray &name, Action action)
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    action();
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(name.constData());
}

// Kind 0 stands for no page: the tab host is made, against bare forms. Where the widgets come to lie in
// memory changes a count by more than a percent, so several are made.
void countOpening()
{
    tabHost();
    bareForms();
    const auto several = [](std::unique_ptr<QWidget> (*make)()) {
        for (int i = 0; i < 10; ++i)
            make();
    };
    counted("page 0 0", [&] { several(tabHost); });
    counted("floor 0 0", [&] { several(bareForms); });
}

void countFirstLoad(ReloadStage &stage, Kind kind, const QByteArray &row)
{
    stage.openedPage(kind);
    stage.openedFloor();
    std::unique_ptr<QWidget> opened;
    counted("page " + row, [&] { opened = stage.openedPage(kind); });
    counted("floor " + row, [&] { opened = stage.openedFloor(); });
}

bool count(const QByteArray &what, int bars)
{
    const QByteArray firstLoad = "first-";
    const bool first = what.startsWith(firstLoad);
    const Kind kind = static_cast<Kind>(what.mid(first ? firstLoad.size() : 0).toInt());
    if (kind == 0) {
        countOpening();
        return true;
    }
    ReloadStage stage(kind, bars);
    if (qEnvironmentVariableIsSet("TALVIX_BENCH_KEEP_PICTURES"))
        stage.keepPictures();
    if (!stage.samePictures())
        return false;
    const QByteArray row = what + ' ' + QByteArray::number(bars);
    if (first) {
        countFirstLoad(stage, kind, row);
        return true;
    }
    counted("page " + row, [&stage] { stage.reloadPage(); });
    counted("floor " + row, [&stage] { stage.reloadFloor(); });
    return true;
}

} // namespace

// Under callgrind: one dump for each count, named "page KIND BARS" or "floor KIND BARS".
int main(int argc, char **argv)
{
    TestApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    for (int i = 1; i + 1 < argc; i += 2) {
        if (!count(argv[i], std::atoi(argv[i + 1]))) {
            std::fprintf(stderr, "kind %s with %s bars: not the same pictures\n", argv[i], argv[i + 1]);
            return 1;
        }
    }
    return 0;
}
