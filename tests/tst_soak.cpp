#include "support/ChartProbe.h"
#include "support/LiveObjects.h"
#include "support/LogCapture.h"
#include "support/PageScene.h"

#include <TalvixWidgets/ZrComboBoxWithTree.h>

#include <QtCore/QTemporaryDir>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kindsOfStatistics = 9;
constexpr int cyclesByDefault = 30;
constexpr int reloadsByDefault = 300;

// Caches of fonts, glyphs, styles and dialogs fill in the first rounds.
constexpr int cyclesUntilWarm = 2 * kindsOfStatistics;
constexpr int reloadsUntilWarm = 60;
// A leak of the smallest object would be 32 bytes a cycle; what hash tables and caches sway by is levelled by
// a few blocks that do not grow with the number of cycles.
constexpr qint64 bytesPerCycle = 16;
constexpr qint64 bytesOfSway = 16 * 1024;

int setting(const char *variable, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(variable, &given);
    return given ? value : otherwise;
}

QString growth(const char *what, qint64 before, qint64 after, int times)
{
    return u"%1 %2: from %3 to %4 bytes, %5 each"_s.arg(times)
        .arg(QLatin1String(what))
        .arg(before)
        .arg(after)
        .arg(static_cast<double>(after - before) / times, 0, 'f', 2);
}

/// Answers the file dialog of an export.
void saveInFileDialog(QObject &watch, const QString &file)
{
    QTimer::singleShot(1, &watch, [&watch, file] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return saveInFileDialog(watch, file);
        dialog->setOption(QFileDialog::DontConfirmOverwrite);
        dialog->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(file);
        dialog->findChild<QDialogButtonBox *>(u"buttonBox"_s)->button(QDialogButtonBox::Save)->click();
    });
}

} // namespace

/// Everything that a page makes goes with it. TALVIX_SOAK_CYCLES and TALVIX_SOAK_RELOADS make it a long run.
class SoakTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<PageScene> scene;
    std::unique_ptr<LogCapture> log;
    QTemporaryDir folder;
    QString figures;

    void settle()
    {
        ChartProbe::runDeferredDeletes();
        QCoreApplication::processEvents();
        log->clear();
    }

    /// A page of a kind on show with its charts, as its user opens it.
    std::unique_ptr<ProbePage> opened(int kind)
    {
        auto page = std::make_unique<ProbePage>(kind);
        page->resize(1136, 648);
        page->show();
        scene->fillTree(*page);
        page->slotSearch();
        return page;
    }

    void drillDown(ProbePage &page)
    {
        const QChart *bars = page.barChartView->chart();
        auto *series = ChartProbe::series<QAbstractBarSeries>(bars);
        QBarSet *set = series->barSets().constLast();
        Q_EMIT series->hovered(true, set->count() - 1, set);
        page.slotTimerReq();
        if (auto *pie = ChartProbe::series<QPieSeries>(page.m_chartViewList.constLast()->chart()))
            Q_EMIT pie->hovered(pie->slices().value(0), true);
    }

    void exportPage(ProbePage &page)
    {
        QObject watch;
        saveInFileDialog(watch, folder.filePath(u"page.pdf"_s));
        QVERIFY(page.createPdf());
    }

    void oneCycle(int kind)
    {
        const std::unique_ptr<ProbePage> page = opened(kind);
        QVERIFY(page->barChartView);
        drillDown(*page);
        settle();
        page->on_pushButtonAsc_clicked();
        page->slotNext();
        exportPage(*page);
        page->hide();
        scene->forgetCalls();
        forgetRequests(scene->manager);
    }

    /// Runs the step until all is warm and then \a times more, after each of which nothing may be left.
    template <typename Step>
    void leavesNothing(const QString &what, int untilWarm, int times, const Step &step)
    {
        QMap<QString, int> objects;
        qint64 bytes = 0;
        for (int i = 0; i < untilWarm + times; ++i) {
            if (i == untilWarm) {
                objects = LiveObjects::byClass();
                bytes = LiveObjects::allocatedBytes();
            }
            step(i);
            settle();
            if (i >= untilWarm) {
                const QString left = LiveObjects::difference(objects, LiveObjects::byClass());
                QVERIFY2(left.isEmpty(), qUtf8Printable(u"%1 %2: %3"_s.arg(what).arg(i).arg(left)));
            }
        }
        const qint64 now = LiveObjects::allocatedBytes();
        figures = growth(qPrintable(what + 's'), bytes, now, times);
        if (bytes >= 0)
            QVERIFY(now - bytes <= bytesOfSway + times * bytesPerCycle);
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (!LiveObjects::watch())
            QSKIP("This Qt does not tell of its objects.");
        // Styles keep the pictures of their buttons until megabytes of them are full: no leak, but in its
        // way.
        QPixmapCache::setCacheLimit(0);
        scene = std::make_unique<PageScene>();
    }
    void cleanupTestCase() { scene.reset(); }
    void init() { log = std::make_unique<LogCapture>(); }
    void cleanup()
    {
        log.reset();
        if (!figures.isEmpty())
            qInfo().noquote() << figures;
        figures.clear();
    }

    void aCycleLeavesNothingBehind()
    {
        const int cycles = setting("TALVIX_SOAK_CYCLES", cyclesByDefault);
        leavesNothing(u"cycle"_s, cyclesUntilWarm, cycles,
            [this](int cycle) { oneCycle(1 + cycle % kindsOfStatistics); });
    }

    void reloadsLeaveNothingBehind()
    {
        const int reloads = setting("TALVIX_SOAK_RELOADS", reloadsByDefault);
        const std::unique_ptr<ProbePage> page = opened(9);
        QCOMPARE(page->barChartView->chart()->animationOptions(), QChart::SeriesAnimations);
        leavesNothing(u"reload"_s, reloadsUntilWarm, reloads, [&page](int) { page->loadChart(); });
    }

    void aLeftBehindObjectIsNoticed()
    {
        const QMap<QString, int> before = LiveObjects::byClass();
        QTimer left;
        QCOMPARE(LiveObjects::difference(before, LiveObjects::byClass()), u"QTimer +1"_s);
    }
};

TALVIX_TEST_MAIN(SoakTest)

#include "tst_soak.moc"
