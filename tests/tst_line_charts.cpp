#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <devhost/widgets/HostSettings.h>

#include <limits>

using namespace ChartProbe;
using namespace Qt::StringLiterals;

static const LabelledValues days = {{"2024-05-01", 30}, {"2024-05-02", 7}, {"2024-05-03", 12}};
static const LabelledValues otherDays = {{"2024-05-01", 3}, {"2024-05-02", 41}, {"2024-05-03", 0}};

class LineChartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneLine_data() { kinds({1, 2, 3, 4, 5, 6, 0, 10}); }
    void oneLine()
    {
        ChartStage stage(kindOfRow());
        stage.page.m_nTimeType = 2;
        stage.page.m_strSelectedBar = "North";
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = otherDays;

        const OwnedChart chart(stage.page.createLineChart());
        QCOMPARE(chart->series().size(), 1);
        QVERIFY(line(chart));
        QCOMPARE(line(chart)->objectName(), QString());
        QCOMPARE(line(chart)->name(), u"North"_s);
        QCOMPARE(line(chart)->points(), (QList<QPointF>{{0, 30}, {1, 7}, {2, 12}}));
        QCOMPARE(line(chart)->pen().color(), theme("$word_color_4"));
        QCOMPARE(line(chart)->pointLabelsColor(), QColor(157, 172, 253, 255));
        QCOMPARE(categories(chart.get()), (QStringList{"2024-05-01", "2024-05-02", "2024-05-03"}));
    }

    void twoLines_data() { kinds({7, 8, 9}); }
    void twoLines()
    {
        ChartStage stage(kindOfRow());
        stage.page.m_nTimeType = 2;
        stage.page.m_strSelectedBar = "North";
        stage.page.lineNames = QStringList{"first", "second", "third"};
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = otherDays;

        const OwnedChart chart(stage.page.createDualLineChart());
        QCOMPARE(chart->series().size(), 2);
        QVERIFY(line(chart, 0));
        QVERIFY(line(chart, 1));

        QCOMPARE(line(chart, 0)->objectName(), u"Line1"_s);
        QCOMPARE(line(chart, 0)->name(), u"first"_s);
        QCOMPARE(line(chart, 0)->points(), (QList<QPointF>{{0, 30}, {1, 7}, {2, 12}}));
        QCOMPARE(line(chart, 0)->pen().color(), theme("$word_color_4"));
        QCOMPARE(line(chart, 0)->pointLabelsColor(), QColor(157, 172, 253, 255));

        QCOMPARE(line(chart, 1)->objectName(), u"Line2"_s);
        QCOMPARE(line(chart, 1)->name(), u"second"_s);
        QCOMPARE(line(chart, 1)->points(), (QList<QPointF>{{0, 3}, {1, 41}, {2, 0}}));
        QCOMPARE(line(chart, 1)->pen().color(), QColor("#2CACCE"));
        QCOMPARE(line(chart, 1)->pointLabelsColor(), QColor("#2CACCE"));

        QCOMPARE(categories(chart.get()), (QStringList{"2024-05-01", "2024-05-02", "2024-05-03"}));
    }

    void lineLook_data() { kinds({1, 6, 7, 9}); }
    void lineLook()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = otherDays;

        const OwnedChart chart = build(stage.page);
        QFont font;
        font.setPixelSize(20);
        QCOMPARE(chart->series().size(), isDual(type) ? 2 : 1);
        for (int i = 0; i < chart->series().size(); ++i) {
            const QPen pen = line(chart, i)->pen();
            QCOMPARE(pen.brush().style(), Qt::SolidPattern);
            QCOMPARE(pen.widthF(), 3.0);
            QCOMPARE(pen.style(), Qt::SolidLine);
            QCOMPARE(pen.capStyle(), Qt::SquareCap);
            QCOMPARE(pen.joinStyle(), Qt::BevelJoin);
            QCOMPARE(line(chart, i)->pointLabelsFont(), font);
            QVERIFY(line(chart, i)->pointsVisible());
            QVERIFY(!line(chart, i)->pointLabelsVisible());
        }
    }

    void legendStandsOnTop_data() { allKinds(); }
    void legendStandsOnTop()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        stage.page.m_strSelectedBar = "North";
        stage.page.lineNames = QStringList{"first", "second"};
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = otherDays;

        const OwnedChart chart = build(stage.page);
        const QLegend *legend = chart->legend();
        QVERIFY(legend->isVisible());
        QCOMPARE(legend->alignment(), Qt::AlignTop);
        QCOMPARE(legend->markerShape(), QLegend::MarkerShapeFromSeries);
        QCOMPARE(legend->labelColor(), theme("$word_color_2"));
        QStringList texts;
        for (const QLegendMarker *marker : legend->markers())
            texts.append(marker->label());
        QCOMPARE(texts, isDual(type) ? (QStringList{"first", "second"}) : (QStringList{"North"}));
    }

    void axesAndMargins_data() { boundOfEachKind(); }
    void axesAndMargins()
    {
        QFETCH(int, type);
        QFETCH(double, bound);
        ChartStage stage(type);
        stage.page.m_nTimeType = 2;
        stage.page.lineDataList = {{"2024-05-01", firstOfBound(type)}, {"2024-05-02", 7}};
        if (isDual(type))
            stage.page.lineDataList2 = {{"2024-05-01", 3}, {"2024-05-02", 12}};

        const OwnedChart chart = build(stage.page);
        verifyAxes(chart.get(), bound);
        verifyNoMargins(chart.get());
        QVERIFY(chart->title().isEmpty());
    }

    void bound_data()
    {
        table<int, int, int, double>({"type", "first", "second", "expected"},
            {{"hundreds, nothing counted", 1, 0, 0, 100.0}, {"hundreds, an exact hundred", 2, 100, 0, 200.0},
                {"hundreds up to the largest int", 3, std::numeric_limits<int>::max(), 0, 2147483700.0},
                {"digits of groups, nothing counted", 5, 0, 0, 5.0},
                {"digits of persons, below zero", 6, -9, 0, 5.0},
                {"digits, the first line is higher", 7, 999, 30, 1000.0},
                {"digits, the second line is higher", 8, 30, 1000, 2000.0},
                {"digits, the larger of two below zero", 9, -30, -1, 5.0},
                {"digits up to the largest int", 9, 4, std::numeric_limits<int>::max(), 3000000000.0}});
    }

    void bound()
    {
        QFETCH(int, first);
        QFETCH(int, second);
        ChartStage stage(kindOfRow());
        stage.page.lineDataList = {{"2024-05-01", first}};
        stage.page.lineDataList2 = {{"2024-05-01", second}};
        const OwnedChart chart = build(stage.page);
        QCOMPARE(valueAxis(chart.get())->min(), 0.0);
        QTEST(static_cast<double>(valueAxis(chart.get())->max()), "expected");
    }

    void singleLineIgnoresTheSecondList()
    {
        ChartStage stage(1);
        stage.page.lineDataList = {{"2024-05-01", 3}};
        stage.page.lineDataList2 = {{"2024-05-01", 950}, {"2024-05-02", 1}};
        const OwnedChart chart(stage.page.createLineChart());
        QCOMPARE(valueAxis(chart.get())->max(), 100.0);
        QCOMPARE(categories(chart.get()), QStringList{"2024-05-01"});
    }

    void hourLabelsShowTheHour_data()
    {
        table<int, QString, QString>({"timeType", "label", "shown"},
            {{"an hour", 3, "2024-05-03 17", "17"}, {"midnight", 3, "2024-05-03 00", "00"},
                {"two characters of a longer label", 3, "2024-05-03 17:20:30", "17"},
                {"thirteen characters of any kind", 3, "abcdefghijklm", "lm"},
                {"twelve characters stay whole", 3, "abcdefghijkl", "abcdefghijkl"},
                {"a day by hours stays whole", 3, "2024-05-03", "2024-05-03"},
                {"an empty label by hours", 3, "", ""}, {"a day", 2, "2024-05-03", "2024-05-03"},
                {"an hour by days stays whole", 2, "2024-05-03 17", "2024-05-03 17"},
                {"a month", 1, "2024-05", "2024-05"},
                {"an hour by months stays whole", 1, "2024-05-03 17", "2024-05-03 17"},
                {"an hour by no known unit stays whole", 0, "2024-05-03 17", "2024-05-03 17"}});
    }

    void hourLabelsShowTheHour()
    {
        QFETCH(int, timeType);
        QFETCH(QString, label);
        QFETCH(QString, shown);
        for (const int type : {1, 5, 7, 9}) {
            ChartStage stage(type);
            stage.page.m_nTimeType = timeType;
            stage.page.lineDataList = {{label, 3}};
            stage.page.lineDataList2 = {{"2024-05-03 23", 3}};
            const OwnedChart chart = build(stage.page);
            QCOMPARE(categories(chart.get()), QStringList{shown});
            QCOMPARE(stage.page.lineDataList.constFirst().first, label);
        }
    }

    void categoriesComeFromTheFirstListAlone()
    {
        ChartStage stage(8);
        stage.page.m_nTimeType = 2;
        stage.page.lineDataList = {{"2024-05-01", 1}, {"2024-05-02", 2}};
        stage.page.lineDataList2 = {{"2024-06-01", 1}, {"2024-06-02", 2}};
        const OwnedChart chart(stage.page.createDualLineChart());
        QCOMPARE(categories(chart.get()), (QStringList{"2024-05-01", "2024-05-02"}));
        QCOMPARE(chart->axes(Qt::Horizontal).size(), 1);
        QCOMPARE(chart->axes(Qt::Vertical).size(), 1);
    }

    void secondLineMayBeLongerOrShorter()
    {
        ChartStage stage(7);
        stage.page.m_nTimeType = 2;
        stage.page.lineDataList = {{"2024-05-01", 1}, {"2024-05-02", 2}};
        stage.page.lineDataList2 = {{"2024-05-01", 1}, {"2024-05-02", 2}, {"2024-05-03", 3}};
        const OwnedChart longer(stage.page.createDualLineChart());
        QCOMPARE(line(longer, 1)->count(), 3);
        QCOMPARE(categories(longer.get()).size(), 2);

        stage.page.lineDataList2.clear();
        const OwnedChart shorter(stage.page.createDualLineChart());
        QCOMPARE(line(shorter, 0)->count(), 2);
        QCOMPARE(line(shorter, 1)->count(), 0);
        QCOMPARE(categories(shorter.get()).size(), 2);
    }

    void everyPointHasItsOwnCategory_data()
    {
        table<int, QStringList, QStringList>({"timeType", "labels", "shown"},
            {{"one hour of two days", 3, {"2024-05-02 17", "2024-05-03 16", "2024-05-03 17"},
                 {"17", "16", "17"}},
                {"null and empty labels", 2, {QString(), "2024-05-02", "", QString()},
                    {"", "2024-05-02", "", ""}}});
    }

    void everyPointHasItsOwnCategory()
    {
        QFETCH(int, timeType);
        QFETCH(QStringList, labels);
        for (const int type : {2, 6, 8}) {
            ChartStage stage(type);
            stage.page.m_nTimeType = timeType;
            for (const QString &label : labels) {
                stage.page.lineDataList.append({label, 1});
                stage.page.lineDataList2.append({label, 1});
            }
            const OwnedChart chart = build(stage.page);
            QTEST(seen(categories(chart.get())), "shown");
            QCOMPARE(line(chart)->count(), labels.size());
        }
    }

    void emptyListsGiveAnEmptyChart_data() { allKinds(); }
    void emptyListsGiveAnEmptyChart()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        const OwnedChart chart = build(stage.page);
        QCOMPARE(chart->series().size(), isDual(type) ? 2 : 1);
        for (int i = 0; i < chart->series().size(); ++i)
            QCOMPARE(line(chart, i)->count(), 0);
        QCOMPARE(categories(chart.get()), QStringList());
        verifyAxes(chart.get(), type <= 4 ? 100.0 : 5.0);
        verifyNoMargins(chart.get());
    }

    void missingLineNamesAreSurvived_data()
    {
        table<QStringList, QString>(
            {"names", "first"}, {{"no name", {}, QString()}, {"one name", {"first"}, "first"}});
    }

    void missingLineNamesAreSurvived()
    {
        QFETCH(QStringList, names);
        ChartStage stage(7);
        stage.page.lineNames = names;
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = otherDays;
        const OwnedChart chart(stage.page.createDualLineChart());
        QTEST(line(chart, 0)->name(), "first");
        QCOMPARE(line(chart, 1)->name(), QString());
        QCOMPARE(line(chart, 1)->count(), 3);
    }

    void nameIsTakenWhenTheChartIsBuilt()
    {
        ChartStage stage(1);
        stage.page.m_strSelectedBar = "North";
        stage.page.lineDataList = days;
        const OwnedChart before(stage.page.createLineChart());
        stage.page.m_strSelectedBar = "South";
        QCOMPARE(line(before)->name(), u"North"_s);
        const OwnedChart after(stage.page.createLineChart());
        QCOMPARE(line(after)->name(), u"South"_s);
        QCOMPARE(after->legend()->markers().constFirst()->label(), u"South"_s);
    }

    void namesAreShownToTheLetter_data() { trickyNameRows(); }
    void namesAreShownToTheLetter()
    {
        QFETCH(QString, name);
        ChartStage stage(1);
        stage.page.m_strSelectedBar = name;
        stage.page.lineDataList = days;
        const OwnedChart chart(stage.page.createLineChart());
        QCOMPARE(plainText(chart->legend()->markers().constFirst()->label()).simplified(), name.simplified());
        QCOMPARE(line(chart)->name(), name);
    }

    void nothingOfThePageIsChanged_data() { kinds({1, 7}); }
    void nothingOfThePageIsChanged()
    {
        ChartStage stage(kindOfRow());
        const LabelledValues first = {{"b", 4}, {"a", 9}, {"a", 9}};
        const LabelledValues second = {{"d", 1}, {"c", 2}};
        stage.page.lineDataList = first;
        stage.page.lineDataList2 = second;
        stage.page.lineNames = QStringList{"x", "y"};
        stage.page.m_strSelectedBar = "North";
        const OwnedChart chart = build(stage.page);
        QCOMPARE(stage.page.lineDataList, first);
        QCOMPARE(stage.page.lineDataList2, second);
        QCOMPARE(stage.page.lineNames, (QStringList{"x", "y"}));
        QCOMPARE(stage.page.m_strSelectedBar, u"North"_s);
    }

    void eachCallMakesANewChartThatOwnsAllItsParts_data() { kinds({1, 7}); }
    void eachCallMakesANewChartThatOwnsAllItsParts()
    {
        ChartStage stage(kindOfRow());
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = otherDays;
        verifyNewCharts([&stage] { return build(stage.page); });
    }

    void bothLinesOfDevicesThatSawNothing()
    {
        ChartStage stage(8);
        stage.page.lineDataList = {{"2024-05-03 00", 0}, {"2024-05-03 01", 0}};
        stage.page.lineDataList2 = stage.page.lineDataList;
        const OwnedChart chart(stage.page.createDualLineChart());
        QCOMPARE(line(chart, 0)->points(), (QList<QPointF>{{0, 0}, {1, 0}}));
        QCOMPARE(line(chart, 1)->points(), (QList<QPointF>{{0, 0}, {1, 0}}));
        QCOMPARE(valueAxis(chart.get())->max(), 5.0);
    }

    void extremeValuesAreDrawn_data() { kinds({1, 7}); }
    void extremeValuesAreDrawn()
    {
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.lineDataList = {{"2024-05-03 00", most}, {"2024-05-03 01", least}, {"2024-05-03 02", -1}};
        stage.page.lineDataList2 = {{"2024-05-03 00", least}};
        stage.page.loadChart();
        QCOMPARE(series<QLineSeries>(stage.page.lineChartView->chart())->points(),
            (QList<QPointF>{{0, most}, {1, least}, {2, -1}}));
        QVERIFY(!stage.page.grab().isNull());
    }

    void fiveThousandPoints_data() { kinds({1, 7}); }
    void fiveThousandPoints()
    {
        constexpr int count = 5000;
        ChartStage stage(kindOfRow());
        stage.page.m_nTimeType = 3;
        const QDateTime start(QDate(2024, 1, 1), QTime(0, 0), Qt::UTC);
        for (int i = 0; i < count; ++i)
            stage.page.lineDataList.append({start.addSecs(3600 * i).toString("yyyy-MM-dd hh"), i});
        stage.page.lineDataList2 = stage.page.lineDataList;
        const OwnedChart chart = build(stage.page);
        QCOMPARE(line(chart)->count(), count);
        QCOMPARE(line(chart)->at(count - 1), QPointF(count - 1, count - 1));
        QCOMPARE(categories(chart.get()).size(), count);
        QCOMPARE(seen(categories(chart.get()).constLast()), u"07"_s);
    }

    void namesFollowTheLanguage()
    {
        QVERIFY(HostSettings::setLanguage("en"));
        const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
        ChartStage stage(7);
        stage.page.lineDataList = days;
        const OwnedChart chart(stage.page.createDualLineChart());
        QVERIFY(text("TK_Vehicle") != u"TK_Vehicle"_s);
        QCOMPARE(line(chart, 0)->name(), text("TK_Vehicle"));
        QCOMPARE(line(chart, 1)->name(), text("TK_Pedestrian"));
        QCOMPARE(stage.titleText("labelLineChartTitle"),
            detailTitle(span, "", text("TK_Hour"), text("TK_TrafficsStatisticsOfNum")));
    }

private:
    static bool isDual(int type) { return type >= 7 && type <= 9; }
    static OwnedChart build(ProbePage &page)
    {
        return OwnedChart(isDual(page.m_serviceType) ? page.createDualLineChart() : page.createLineChart());
    }
    static QLineSeries *line(const OwnedChart &chart, int index = 0)
    {
        return series<QLineSeries>(chart.get(), index);
    }
};

TALVIX_TEST_MAIN(LineChartsTest)

#include "tst_line_charts.moc"
