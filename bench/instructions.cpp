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

// Kind 0 stands for no page: the tab host is made, against bare forms.
void countOpening()
{
    tabHost();
    bareForms();
    counted("page 0 0", [] { tabHost(); });
    counted("floor 0 0", [] { bareForms(); });
}

bool count(Kind kind, int bars)
{
    if (kind == 0) {
        countOpening();
        return true;
    }
    ReloadStage stage(kind, bars);
    if (qEnvironmentVariableIsSet("TALVIX_BENCH_KEEP_PICTURES"))
        stage.keepPictures();
    if (!stage.samePictures())
        return false;
    const QByteArray suffix = QByteArray::number(kind) + ' ' + QByteArray::number(bars);
    counted("page " + suffix, [&stage] { stage.reloadPage(); });
    counted("floor " + suffix, [&stage] { stage.reloadFloor(); });
    return true;
}

} // namespace

// Under callgrind: one dump for each count, named "page KIND BARS" or "floor KIND BARS".
int main(int argc, char **argv)
{
    TestApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    for (int i = 1; i + 1 < argc; i += 2) {
        if (!count(static_cast<Kind>(std::atoi(argv[i])), std::atoi(argv[i + 1]))) {
            std::fprintf(stderr, "kind %s with %s bars: not the same pictures\n", argv[i], argv[i + 1]);
            return 1;
        }
    }
    return 0;
}
