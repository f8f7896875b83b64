#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppTranslationHelper.h>

#include <limits>

using namespace ChartProbe;
using namespace Qt::StringLiterals;

static QList<QColor> defaultColours(int count)
{
    QChart chart;
    auto *series = new QPieSeries(&chart);
    for (int i = 0; i < count; ++i)
        series->append(QString::number(i), count - i);
    chart.addSeries(series);
    QList<QColor> colours;
    for (QPieSlice *slice : series->slices())
        colours.append(slice->color());
    return colours;
}

class PieChartTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doughnutOfOneSeries_data() { kinds({1, 2, 5, 6, 7, 8, 9, 0, 10}); }
    void doughnutOfOneSeries()
    {
        ChartStage stage(kindOfRow());
        stage.page.pieDataList = {{"A", 30}, {"B", 10}};

        const OwnedChart chart = build(stage.page);
        QCOMPARE(chart->series().size(), 1);
        QVERIFY(pie(chart));
        QCOMPARE(pie(chart)->pieSize(), 0.86);
        QCOMPARE(pie(chart)->holeSize(), 0.618);
        QCOMPARE(sizes(pie(chart)), (QList<double>{30, 10}));
        for (QPieSlice *slice : pie(chart)->slices()) {
            QCOMPARE(slice->borderColor(), QColor(Qt::transparent));
            QVERIFY(!slice->isLabelVisible());
            QVERIFY(!slice->isExploded());
        }
        verifyNoMargins(chart.get());
        QVERIFY(chart->axes().isEmpty());
        QVERIFY(chart->title().isEmpty());

        const QLegend *legend = chart->legend();
        QVERIFY(legend->isVisible());
        QCOMPARE(legend->markerShape(), QLegend::MarkerShapeCircle);
        QCOMPARE(legend->alignment(), Qt::AlignRight);
        QCOMPARE(legend->labelColor(), theme("$word_color_2"));
        QVERIFY(!legend->isBackgroundVisible());
        QCOMPARE(legend->markers().size(), 2);
        QCOMPARE(legend->markers().at(0)->label(), pie(chart)->slices().at(0)->label());
        QCOMPARE(legend->markers().at(1)->label(), pie(chart)->slices().at(1)->label());
    }

    void labelsCarryShareAndCount_data()
    {
        table<LabelledValues, QStringList>({"list", "labels"},
            {{"the whole", {{"A", 7}}, {"A | 100.0% 7"}},
                {"two digits are padded by one blank, one digit by two", {{"A", 37}, {"B", 3}},
                    {"A |  92.5% 37", "B |   7.5% 3"}},
                {"a share of nothing", {{"A", 5}, {"B", 0}}, {"A | 100.0% 5", "B |   0.0% 0"}},
                {"a third is rounded", {{"A", 2}, {"B", 1}}, {"A |  66.7% 2", "B |  33.3% 1"}},
                {"large counts are whole numbers", {{"A", 1500000}, {"B", 500000}},
                    {"A |  75.0% 1500000", "B |  25.0% 500000"}}});
    }

    void labelsCarryShareAndCount()
    {
        QFETCH(LabelledValues, list);
        for (const int type : {1, 7, 9}) {
            ChartStage stage(type);
            stage.page.pieDataList = list;
            const OwnedChart chart = build(stage.page);
            QTEST(texts(pie(chart)), "labels");
            QCOMPARE(stage.page.pieDataList, list);
        }
    }

    void equalValuesKeepTheirOrder()
    {
        ChartStage stage(1);
        for (int i = 0; i < 32; ++i)
            stage.page.pieDataList.append({u"slice %1"_s.arg(i), i % 4 == 3 ? 9 : 5});
        const OwnedChart chart = build(stage.page);
        QCOMPARE(names(pie(chart)),
            (QStringList{"slice 3", "slice 7", "slice 11", "slice 15", "slice 19", "slice 23", "slice 27",
                "slice 31", text("TK_Other")}));
    }

    void slicesStandLargestFirstAndOtherLast_data()
    {
        const QString name = u"TK_Other"_s;
        table<LabelledValues, LabelledValues>({"list", "ordered"},
            {{"the largest first", {{"small", 1}, {"large", 9}, {"none", 0}, {"middle", 5}},
                 {{"large", 9}, {"middle", 5}, {"small", 1}, {"none", 0}}},
                {"equal values in their order", {{"e", 1}, {"a", 1}, {"d", 2}, {"b", 1}, {"f", 2}, {"c", 1}},
                    {{"d", 2}, {"f", 2}, {"e", 1}, {"a", 1}, {"b", 1}, {"c", 1}}},
                {"the catch-all slice is the largest", {{"a", 2}, {name, 90}, {"b", 5}},
                    {{"b", 5}, {"a", 2}, {name, 90}}},
                {"the smallest", {{name, 1}, {"a", 2}}, {{"a", 2}, {name, 1}}},
                {"the only one", {{name, 1}}, {{name, 1}}},
                {"the first in order of two", {{name, 40}, {"a", 30}, {name, 50}},
                    {{name, 40}, {"a", 30}, {name, 50}}},
                {"the name is compared exactly", {{"a", 1}, {"tk_other", 9}, {"TK_Other ", 8}},
                    {{"tk_other", 9}, {"TK_Other ", 8}, {"a", 1}}},
                {"of eight", LabelledValues{{name, 500}} + slices(7),
                    slices(7) + LabelledValues{{name, 500}}},
                {"eight without it", slices(8), slices(8)}});
    }

    void slicesStandLargestFirstAndOtherLast()
    {
        QFETCH(LabelledValues, list);
        QFETCH(LabelledValues, ordered);
        ChartStage stage(1);
        stage.page.pieDataList = list;
        const OwnedChart chart = build(stage.page);
        QCOMPARE(stage.page.pieDataList, ordered);
        QCOMPARE(names(pie(chart)), listKeys(ordered));
    }

    void ninthEntryAndAllBehindAreFolded_data()
    {
        table<LabelledValues, LabelledValues>({"list", "folded"},
            {{"of exactly nine the ninth loses its name", slices(9), slices(9).mid(0, 8) + other(1)},
                {"of twelve the last four are summed", slices(12),
                    slices(12).mid(0, 8) + other(4 + 3 + 2 + 1)},
                {"the catch-all slice is summed with them however large", slices(11) + other(700),
                    slices(11).mid(0, 8) + other(3 + 2 + 1 + 700)},
                {"eight and the catch-all slice", other(3) + slices(8), slices(8) + other(3)},
                {"a second catch-all entry keeps its place by value", other(40) + other(50) + slices(8),
                    other(40) + slices(8).mid(0, 7) + other(1 + 50)}});
    }

    void ninthEntryAndAllBehindAreFolded()
    {
        QFETCH(LabelledValues, list);
        QFETCH(LabelledValues, folded);
        for (const int type : {1, 9}) {
            ChartStage stage(type);
            stage.page.pieDataList = list;
            const OwnedChart chart = build(stage.page);
            QCOMPARE(stage.page.pieDataList, folded);
            QCOMPARE(names(pie(chart)), listKeys(folded));
            QCOMPARE(pie(chart)->slices().size(), 9);
            QCOMPARE(pie(chart)->slices().constLast()->value(), double(folded.constLast().second));
        }
    }

    void shareIsOfTheWholeListNotOfTheFolded()
    {
        ChartStage stage(1);
        for (int i = 0; i < 20; ++i)
            stage.page.pieDataList.append({QString::number(i), 5});
        const OwnedChart chart = build(stage.page);
        QCOMPARE(pie(chart)->slices().constFirst()->label(), u"0 |   5.0% 5"_s);
        QCOMPARE(pie(chart)->slices().constLast()->label(), text("TK_Other") + u" |  60.0% 60"_s);
    }

    void rebuildingGivesTheSameSlices_data()
    {
        table<int>({"count"}, {{"three", 3}, {"nine", 9}, {"thirty", 30}});
    }

    void rebuildingGivesTheSameSlices()
    {
        QFETCH(int, count);
        ChartStage stage(1);
        stage.page.pieDataList = slices(count);
        const OwnedChart first = build(stage.page);
        const LabelledValues once = stage.page.pieDataList;
        const OwnedChart second = build(stage.page);
        QCOMPARE(stage.page.pieDataList, once);
        QCOMPARE(pie(second)->slices().size(), std::min(count, 9));
        for (int i = 0; i < pie(second)->slices().size(); ++i) {
            QCOMPARE(pie(second)->slices().at(i)->label(), pie(first)->slices().at(i)->label());
            QCOMPARE(pie(second)->slices().at(i)->color(), pie(first)->slices().at(i)->color());
        }
    }

    void emptyListGivesAnEmptyDoughnut_data() { kinds({1, 5, 9}); }
    void emptyListGivesAnEmptyDoughnut()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.loadChart();
        const QChart *chart = stage.page.pieChartView->chart();
        QVERIFY(pie(chart));
        QCOMPARE(pie(chart)->count(), 0);
        QVERIFY(chart->legend()->markers().isEmpty());
        QVERIFY(stage.page.labelPiecount->isHidden());
        QVERIFY(stage.page.pieDataList.isEmpty());
        QVERIFY(!stage.page.grab().isNull());
    }

    void nothingToShareIsNotANumber()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.pieDataList = {{"A", 0}, {"B", 0}};
        stage.page.loadChart();
        const QPieSeries *slices = pie(stage.page.pieChartView->chart());
        QCOMPARE(slices->count(), 2);
        QCOMPARE(slices->slices().at(0)->label(), u"A |   nan% 0"_s);
        QCOMPARE(slices->slices().at(1)->label(), u"B |   nan% 0"_s);
        QVERIFY(stage.page.labelPiecount->isHidden());
        QVERIFY(!stage.page.grab().isNull());
    }

    void sumWrapsAsAnInt()
    {
        constexpr int most = std::numeric_limits<int>::max();
        ChartStage stage(1);
        stage.page.pieDataList = {{"A", most}, {"B", most}};
        const OwnedChart chart = build(stage.page);
        QCOMPARE(pie(chart)->slices().at(0)->label(), u"A | -107374182350.0% 2147483647"_s);
    }

    void valuesBelowZeroAndHugeOnesAreSurvived_data()
    {
        QTest::addColumn<LabelledValues>("list");
        QTest::addColumn<QStringList>("labels");
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();

        QTest::newRow("below zero") << LabelledValues{{"A", -3}, {"B", 9}}
                                    << QStringList{"B | 150.0% 9", "A | -50.0% -3"};
        QTest::newRow("the smallest int alone")
            << LabelledValues{{"A", least}} << QStringList{"A | 100.0% -2147483648"};
        QTest::newRow("the largest int alone")
            << LabelledValues{{"A", most}} << QStringList{"A | 100.0% 2147483647"};
        QTest::newRow("a sum of zero with figures")
            << LabelledValues{{"A", 5}, {"B", -5}} << QStringList{"A |   inf% 5", "B |  -inf% -5"};
        LabelledValues many;
        QStringList labels;
        for (int i = 0; i < 16; ++i)
            many.append({QString::number(i), least});
        for (int i = 0; i < 8; ++i)
            labels.append(u"%1 |  -inf% -2147483648"_s.arg(i));
        labels.append(u"TK_Other |   nan% 0"_s);
        QTest::newRow("sums that wrap to zero") << many << labels;
    }

    void valuesBelowZeroAndHugeOnesAreSurvived()
    {
        QFETCH(LabelledValues, list);
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.pieDataList = list;
        stage.page.loadChart();
        QTEST(texts(pie(stage.page.pieChartView->chart())), "labels");
        QVERIFY(!stage.page.grab().isNull());
    }

    void slicesAreColouredByPosition_data() { kinds({1, 2, 5, 6, 7, 8}); }
    void slicesAreColouredByPosition()
    {
        ChartStage stage(kindOfRow());
        stage.page.pieDataList = slices(12);
        const OwnedChart chart = build(stage.page);
        QList<QColor> expected = {theme("$background_chart_color_1"), QColor(225, 79, 113, 255),
            QColor(67, 178, 249, 255), QColor(249, 206, 79, 255), QColor(159, 80, 255, 255),
            QColor(182, 182, 182, 255)};
        expected += defaultColours(9).mid(6);
        QList<QColor> actual;
        for (QPieSlice *slice : pie(chart)->slices())
            actual.append(slice->color());
        QCOMPARE(actual, expected);
    }

    void otherIsColouredByItsPlaceNotItsSize()
    {
        ChartStage stage(1);
        stage.page.pieDataList = {{text("TK_Other"), 900}, {"a", 3}, {"b", 2}};
        const OwnedChart chart = build(stage.page);
        QCOMPARE(names(pie(chart)).constLast(), text("TK_Other"));
        QCOMPARE(pie(chart)->slices().at(0)->color(), theme("$background_chart_color_1"));
        QCOMPARE(pie(chart)->slices().at(2)->color(), QColor(67, 178, 249, 255));
    }

    void deviceGroupsAreColouredByName_data()
    {
        table<QString, QString>({"key", "colour"},
            {{"normal", "TK_NormalTemperature", "$word_normaltemp"},
                {"over", "TK_OvertemperatureOfHighTemperature", "$word_overtemp"},
                {"low", "TK_LowTemp", "$word_lowtemp"},
                {"abnormal", "TK_AbnormalTemperature", "$word_anormaltemp"},
                {"mask worn", "TK_MaskWeared", "$word_weared"},
                {"no mask", "TK_MaskUncovered", "$word_uncovered"},
                {"mask not seen", "TK_MaskUndetected", "$word_undetected"}});
    }

    void deviceGroupsAreColouredByName()
    {
        QFETCH(QString, key);
        QFETCH(QString, colour);
        const QColor expected = QssFormatHelper::getInstance()->findColorByKey(colour);
        QVERIFY(expected.isValid());
        for (const char *language : {"", "en"}) {
            QVERIFY(HostSettings::setLanguage(language));
            const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
            ChartStage stage(9);
            stage.page.pieDataList = {{"first", 9}, {text(key), 5}};
            const OwnedChart chart = build(stage.page);
            QCOMPARE(pie(chart)->slices().at(1)->color(), expected);
        }
    }

    void deviceGroupSliceOfNoKnownNameKeepsTheDefaultColour_data()
    {
        table<QString>({"name"},
            {{"another name", "elsewhere"}, {"no name", ""}, {"other case", "TK_normaltemperature"},
                {"the catch-all slice", "TK_Other"}});
    }

    void deviceGroupSliceOfNoKnownNameKeepsTheDefaultColour()
    {
        QFETCH(QString, name);
        ChartStage stage(9);
        stage.page.pieDataList = {{name, 5}};
        const OwnedChart chart = build(stage.page);
        QCOMPARE(pie(chart)->slices().at(0)->color(), defaultColours(1).constFirst());
    }

    void namesAreShownToTheLetter_data() { trickyNameRows(); }
    void namesAreShownToTheLetter()
    {
        QFETCH(QString, name);
        ChartStage stage(1);
        stage.page.pieDataList = {{name, 3}};
        const OwnedChart chart = build(stage.page);
        const QString whole = name + " | 100.0% 3";
        QCOMPARE(
            plainText(chart->legend()->markers().constFirst()->label()).simplified(), whole.simplified());
        QCOMPARE(pie(chart)->slices().at(0)->label(), whole);
    }

    void aPieWithoutATotalTakesAnySize()
    {
        ChartStage stage(1);
        stage.page.pieDataList = {{"smoke", 3}};
        const OwnedChart chart = build(stage.page);
        QVERIFY(!stage.page.labelPiecount);
        chart->resize(500, 300);
        QVERIFY(!stage.page.labelPiecount);
        QCOMPARE(chart->size(), QSizeF(500, 300));
    }

    void eachCallMakesANewChartThatOwnsAllItsParts()
    {
        ChartStage stage(1);
        stage.page.pieDataList = slices(4);
        verifyNewCharts([&stage] { return build(stage.page); });
    }

    void fiveThousandSlices()
    {
        ChartStage stage(1);
        stage.page.pieDataList = slices(5000);
        const OwnedChart chart = build(stage.page);
        QCOMPARE(pie(chart)->count(), 9);
        QCOMPARE(names(pie(chart)).at(7), u"slice 7"_s);
        QCOMPARE(
            stage.page.pieDataList.constLast(), (std::pair<QString, int>{text("TK_Other"), 4992 * 4993 / 2}));
    }

    void otherFollowsTheLanguage()
    {
        QVERIFY(HostSettings::setLanguage("en"));
        const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
        QVERIFY(text("TK_Other") != u"TK_Other"_s);
        ChartStage stage(1);
        stage.page.pieDataList = {{text("TK_Other"), 9}, {"TK_Other", 8}, {"a", 7}};
        const OwnedChart chart = build(stage.page);
        QCOMPARE(names(pie(chart)), (QStringList{"TK_Other", "a", text("TK_Other")}));
        stage.page.pieDataList = slices(10);
        const OwnedChart folded = build(stage.page);
        QCOMPARE(names(pie(folded)).constLast(), text("TK_Other"));
    }

    void switchingTheClassFillsPieAndModes_data() { kinds({7, 8}); }
    void switchingTheClassFillsPieAndModes()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.snapDetailMap = {
            {4, {major(30, 11), major(20, 12)}}, {2, {major(7, 21), major(9, 22), major(8, 23)}}};
        stage.page.loadChart();
        QCOMPARE(modes(stage.page.comboBoxPie), (QList<int>{30, 20}));
        QCOMPARE(stage.page.pieDataList, other(11));
        stage.page.comboBoxPie->setCurrentIndex(1);

        QTest::mouseClick(stage.page.part<QAbstractButton>("personRadio"), Qt::LeftButton);
        QCOMPARE(stage.page.pieDataList, other(21));
        QCOMPARE(modes(stage.page.comboBoxPie), (QList<int>{7, 9, 8}));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(stage.page.comboBoxPie->itemText(i),
                AppTranslationHelper::instance()->getSnapDetailMajorTypeName(
                    modes(stage.page.comboBoxPie).at(i)));
        }
        QCOMPARE(stage.page.comboBoxPie->currentIndex(), 0);
        QCOMPARE(sizes(pie(stage.page.pieChartView->chart())), QList<double>{21});

        stage.page.comboBoxPie->setCurrentIndex(2);
        QTest::mouseClick(stage.page.part<QAbstractButton>("carRadio"), Qt::LeftButton);
        QCOMPARE(stage.page.pieDataList, other(11));
        QCOMPARE(modes(stage.page.comboBoxPie), (QList<int>{30, 20}));
        QCOMPARE(stage.page.comboBoxPie->currentIndex(), 0);
        QCOMPARE(sizes(pie(stage.page.pieChartView->chart())), QList<double>{11});
    }

    void switchingToAnAbsentClassEmptiesPieAndModes_data() { kinds({7, 8}); }
    void switchingToAnAbsentClassEmptiesPieAndModes()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.snapDetailMap = {{4, {major(30, 11)}}};
        stage.load();

        QTest::mouseClick(stage.page.part<QAbstractButton>("personRadio"), Qt::LeftButton);
        QVERIFY(stage.page.pieDataList.isEmpty());
        QCOMPARE(stage.page.comboBoxPie->count(), 0);
        QVERIFY(stage.page.comboBoxPie->isVisible());
        QCOMPARE(pie(stage.page.pieChartView->chart())->count(), 0);
        QVERIFY(stage.page.labelPiecount->isHidden());
    }

    void switchingToAClassWithoutMajorTypesEmptiesPieAndModes()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.snapDetailMap = {{4, {major(30, 11)}}, {2, {}}};
        stage.page.loadChart();
        QTest::mouseClick(stage.page.part<QAbstractButton>("personRadio"), Qt::LeftButton);
        QVERIFY(stage.page.pieDataList.isEmpty());
        QCOMPARE(stage.page.comboBoxPie->count(), 0);
        QCOMPARE(stage.page.comboBoxPie->currentIndex(), -1);
    }

    void switchingTheClassBeforeAnyChartFillsOnlyTheList()
    {
        ChartStage stage(7);
        stage.page.snapDetailMap = {{4, {major(30, 11)}}};
        stage.page.pieDataList = slices(3);
        LogCapture log;
        stage.page.slot_switchPieChart(nullptr);
        QCOMPARE(stage.page.pieDataList, other(11));
        QVERIFY(!stage.page.comboBoxPie);
        QVERIFY(stage.page.m_chartViewList.isEmpty());
        QCOMPARE(log.lines(), QStringList());
    }

    void switchingTheClassDoesNotWriteTheClearLine()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.loadChart();
        stage.page.pieDataList = slices(3);
        LogCapture log;
        stage.page.slot_switchPieChart(nullptr);
        QVERIFY(stage.page.pieDataList.isEmpty());
        QCOMPARE(log.lines(), (QStringList{" ServiceType unknown", "createPieChart"}));
    }

    void switchingTheClassOffersItsModesBeforeThePieIsBuilt()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.snapDetailMap = {{4, {major(30, 11)}}, {2, {major(7, 21), major(9, 22)}}};
        stage.page.loadChart();
        LogCapture log;
        QList<int> offered;
        log.whenWritten = [&](const QString &line) {
            if (line == "createPieChart"_L1)
                offered = modes(stage.page.comboBoxPie);
        };
        QTest::mouseClick(stage.page.part<QAbstractButton>("personRadio"), Qt::LeftButton);
        QCOMPARE(offered, (QList<int>{7, 9}));
    }

    void switchingTheClassOnASmallPageKeepsTheChart()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.snapDetailMap = {{4, {major(30, 11)}}, {2, {major(7, 21)}}};
        stage.page.loadChart();
        stage.page.resize(1136, 500);
        QCoreApplication::processEvents();
        QVERIFY(!stage.page.part<QWidget>("widgetPie")->isVisible());
        const QPointer<QChart> chart = stage.page.pieChartView->chart();

        stage.page.part<QAbstractButton>("personRadio")->click();
        runDeferredDeletes();
        QCOMPARE(stage.page.pieDataList, other(21));
        QCOMPARE(modes(stage.page.comboBoxPie), QList<int>{7});
        QVERIFY(chart);
        QCOMPARE(stage.page.pieChartView->chart(), chart.data());

        stage.page.resize(1136, 648);
        QCoreApplication::processEvents();
        QVERIFY(stage.page.part<QWidget>("widgetPie")->isVisible());
        QCOMPARE(stage.page.pieChartView->chart(), chart.data());
    }

    void classButtonsOfASpellOfClicksSwitchOnceEach()
    {
        ChartStage stage(8, ChartStage::OnScreen);
        stage.page.snapDetailMap = {{4, {major(30, 11)}}, {2, {major(7, 21)}}};
        stage.page.loadChart();
        stage.page.loadChart();
        LogCapture log;
        for (const char *button : {"personRadio", "carRadio", "carRadio"})
            QTest::mouseClick(stage.page.part<QAbstractButton>(button), Qt::LeftButton);
        QCOMPARE(log.count("createPieChart"), 3);
        QCOMPARE(stage.page.pieDataList, other(11));
    }

    void majorTypeOfTrafficIsChosen_data() { kinds({7, 8}); }
    void majorTypeOfTrafficIsChosen()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.snapDetailMap = {{4, {major(30, 11), major(20, 12)}}, {2, {major(30, 21), major(20, 22)}}};
        stage.page.loadChart();
        const QPointer<QChart> bar = stage.page.barChartView->chart();
        const QPointer<QChart> old = stage.page.pieChartView->chart();

        stage.page.slot_switchPieType(1);
        QCOMPARE(stage.page.pieDataList, other(12));
        QCOMPARE(sizes(pie(stage.page.pieChartView->chart())), QList<double>{12});
        QCOMPARE(modes(stage.page.comboBoxPie), (QList<int>{30, 20}));
        QCOMPARE(stage.page.barChartView->chart(), bar.data());
        QVERIFY(old);
        runDeferredDeletes();
        QVERIFY(!old);

        stage.page.part<QAbstractButton>("personRadio")->setChecked(true);
        stage.page.slot_switchPieType(1);
        QCOMPARE(stage.page.pieDataList, other(22));
    }

    void majorTypeWithoutDetailRebuildsTheSamePie()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.loadChart();
        stage.page.pieDataList = slices(3);
        const QChart *old = stage.page.pieChartView->chart();
        stage.page.slot_switchPieType(0);
        QCOMPARE(stage.page.pieDataList, slices(3));
        QVERIFY(stage.page.pieChartView->chart() != old);
        QCOMPARE(pie(stage.page.pieChartView->chart())->count(), 3);
    }

    void majorTypeOfAnAbsentClassKeepsThePieList()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.snapDetailMap = {{2, {major(7, 21)}}};
        stage.page.loadChart();
        stage.page.pieDataList = slices(3);
        stage.page.slot_switchPieType(0);
        QCOMPARE(stage.page.pieDataList, slices(3));
        QCOMPARE(pie(stage.page.pieChartView->chart())->count(), 3);
    }

    void temperatureByNumberEmptiesBarsAndLines()
    {
        ChartStage stage(5, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}, {"South", 7}};
        stage.page.lineDataList = {{"2024-05-01", 5}};
        stage.page.etiologyDistribution = {{1, 6}};
        stage.page.numberDistribution = {{2, 10}, {1, 5}};
        stage.page.loadChart();
        QChart *bar = stage.page.barChartView->chart();
        QChart *line = stage.page.lineChartView->chart();
        LogCapture log;

        stage.page.slot_switchPieType(1);
        QCOMPARE(stage.page.pieDataList, (LabelledValues{{text("TK_Normal"), 12}, {text("TK_Abnormal"), 3}}));
        QCOMPARE(stage.page.barChartView->chart(), bar);
        QCOMPARE(stage.page.lineChartView->chart(), line);
        for (const QChart *emptied : {bar, line}) {
            QVERIFY(emptied->series().isEmpty());
            QVERIFY(emptied->axes(Qt::Horizontal).isEmpty());
            QCOMPARE(emptied->axes(Qt::Vertical).size(), 1);
            QVERIFY(qobject_cast<QValueAxis *>(emptied->axes(Qt::Vertical).constFirst()));
            QVERIFY(emptied->isVisible());
        }
        QCOMPARE(sizes(pie(stage.page.pieChartView->chart())), (QList<double>{12, 3}));
        QCOMPARE(log.lines(), (QStringList{"BasicChart::clearPieChartData", "createPieChart"}));
        QVERIFY(!stage.page.grab().isNull());
        waitForAnimation();
        QVERIFY(!stage.page.grab().isNull());

        stage.page.slot_switchPieType(1);
        QVERIFY(bar->series().isEmpty());
        QCOMPARE(bar->axes(Qt::Vertical).size(), 1);
    }

    void temperatureByEtiologyBringsBarsAndLinesBack()
    {
        ChartStage stage(5, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}, {"South", 7}};
        stage.page.lineDataList = {{"2024-05-01", 5}};
        stage.page.etiologyDistribution = {{1, 6}, {2, 4}};
        stage.page.numberDistribution = {{2, 10}};
        stage.page.loadChart();
        QList<QPointer<QObject>> emptied;
        for (const ZrChartView *view : std::as_const(stage.page.m_chartViewList))
            emptied += partsOf(view->chart());
        stage.page.slot_switchPieType(1);

        LogCapture log;
        stage.page.slot_switchPieType(0);
        QCOMPARE(stage.page.pieDataList, (LabelledValues{{"6", 6}, {"4", 4}}));
        QCOMPARE(stage.page.barChartView->chart()->series().size(), 1);
        QCOMPARE(categories(stage.page.barChartView->chart()), (QStringList{"North", "South"}));
        QCOMPARE(stage.page.lineChartView->chart()->series().size(), 1);
        QCOMPARE(sizes(pie(stage.page.pieChartView->chart())), (QList<double>{6, 4}));
        QCOMPARE(log.lines(),
            (QStringList{"BasicChart::clearPieChartData", "BasicChart::loadChart",
                "BasicChart::loadChart reloadcharts", "BasicChart::getMaxValue  30", "createBarChart",
                "BasicChart::getMaxValue  5", "createLineChart", "createPieChart", "createPieChart"}));
        runDeferredDeletes();
        for (const QPointer<QObject> &part : std::as_const(emptied))
            QVERIFY(part.isNull());
    }

    void temperatureOfAnotherModeRebuildsThePieAlone()
    {
        ChartStage stage(5, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.etiologyDistribution = {{1, 6}};
        stage.page.numberDistribution = {{2, 10}};
        stage.page.loadChart();
        stage.page.pieDataList = slices(3);
        for (const int index : {-1, 2, 99}) {
            LogCapture log;
            stage.page.slot_switchPieType(index);
            QCOMPARE(stage.page.pieDataList, slices(3));
            QCOMPARE(log.lines(), QStringList{"createPieChart"});
            QCOMPARE(stage.page.barChartView->chart()->series().size(), 1);
        }
    }

    void hoveringEmptiedChartsShowsNothing()
    {
        ChartStage stage(5, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.lineDataList = {{"2024-05-01", 30}, {"2024-05-02", 30}};
        stage.loadGrown();
        ZrChartView *barView = stage.page.barChartView;
        ZrChartView *lineView = stage.page.lineChartView;
        const QPointF onBar = middleOfBar(barView->chart(), 0, 0, 30);
        const QPointF onPoint = lineView->chart()->mapToPosition(QPointF(0, 30));
        moveTo(barView, onBar);
        QVERIFY(stage.page.labelCallout && stage.page.labelCallout->isVisible());
        moveAway(barView);
        moveTo(lineView, onPoint);
        QVERIFY(stage.page.labelCallout->isVisible());
        moveAway(lineView);
        QVERIFY(!stage.page.labelCallout->isVisible());

        stage.page.slot_switchPieType(1);
        waitForAnimation();
        moveTo(barView, onBar);
        QVERIFY(!stage.page.labelCallout->isVisible());
        moveTo(lineView, onPoint);
        QVERIFY(!stage.page.labelCallout->isVisible());
    }

    void deviceGroupsSwitchBetweenTemperatureAndMask()
    {
        ChartStage stage(9, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.barDataList2 = {{"North", 3}};
        stage.page.temperatureDistribution = {{0, 9}, {3, 2}};
        stage.page.maskDistribution = {{1, 8}, {2, 1}};
        stage.page.loadChart();

        LogCapture log;
        stage.page.comboBoxPie->setCurrentIndex(1);
        stage.page.slot_switchPieType(1);
        QCOMPARE(stage.page.pieDataList,
            (LabelledValues{{text("TK_MaskWeared"), 8}, {text("TK_MaskUncovered"), 1}}));
        QCOMPARE(sizes(pie(stage.page.pieChartView->chart())), (QList<double>{8, 1}));
        QCOMPARE(stage.page.comboBoxPie->currentIndex(), 1);
        QVERIFY(
            stage.titleText("labelPieChartTitle").contains(text("TK_StatisticalDistributionOfMaskSnapshot")));
        QCOMPARE(log.count("BasicChart::loadChart reloadcharts"), 1);
        QCOMPARE(log.count("createPieChart"), 2);

        stage.page.comboBoxPie->setCurrentIndex(0);
        stage.page.slot_switchPieType(0);
        QCOMPARE(stage.page.pieDataList,
            (LabelledValues{{text("TK_NormalTemperature"), 9}, {text("TK_AbnormalTemperature"), 2}}));
        QCOMPARE(sizes(pie(stage.page.pieChartView->chart())), (QList<double>{9, 2}));
        QVERIFY(stage.titleText("labelPieChartTitle")
                    .contains(text("TK_StatisticalDistributionOfBodytemperatureSnapshot")));
        QCOMPARE(stage.page.temperatureDistribution.size(), std::size_t(2));
        QCOMPARE(stage.page.maskDistribution.size(), std::size_t(2));
    }

    void deviceGroupsOfAnotherModeLoadTheCharts()
    {
        ChartStage stage(9, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.temperatureDistribution = {{0, 9}};
        stage.page.loadChart();
        stage.page.pieDataList = slices(3);
        LogCapture log;
        stage.page.slot_switchPieType(-1);
        QCOMPARE(stage.page.pieDataList, slices(3));
        QCOMPARE(log.lines(),
            (QStringList{"BasicChart::loadChart", "BasicChart::loadChart reloadcharts",
                "BasicChart::getMaxValue  30", "createBarChart", "BasicChart::getMaxValue  0",
                "createLineChart", "createPieChart", "createPieChart"}));
    }

    void otherKindsOnlyRebuildThePie_data() { kinds({1, 2, 6, 10}); }
    void otherKindsOnlyRebuildThePie()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.pieDataList = slices(3);
        stage.page.loadChart();
        const QChart *bar = stage.page.barChartView->chart();
        const QChart *pieBefore = stage.page.pieChartView->chart();
        stage.page.slot_switchPieType(0);
        QCOMPARE(stage.page.pieDataList, slices(3));
        QCOMPARE(stage.page.barChartView->chart(), bar);
        QVERIFY(stage.page.pieChartView->chart() != pieBefore);
    }

    void hiddenPieKeepsItsChartWhenTheModeChanges()
    {
        ChartStage stage(5, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.numberDistribution = {{2, 10}};
        stage.page.loadChart();
        stage.page.resize(1136, 500);
        QCoreApplication::processEvents();
        QVERIFY(!stage.page.part<QWidget>("widgetPie")->isVisible());
        const QPointer<QChart> chart = stage.page.pieChartView->chart();

        LogCapture log;
        stage.page.slot_switchPieType(1);
        QCOMPARE(stage.page.pieDataList, (LabelledValues{{text("TK_Abnormal"), 2}, {text("TK_Normal"), 8}}));
        QCOMPARE(stage.page.pieChartView->chart(), chart.data());
        QVERIFY(!log.contains("createPieChart"));
        QVERIFY(chart->series().isEmpty());
        runDeferredDeletes();
        QVERIFY(chart);
    }

    void modeChangeEndsWithLookAndOverlays()
    {
        for (const QSize &size : {QSize(1136, 648), QSize(1136, 500)}) {
            ChartStage stage(5, ChartStage::OnScreen);
            stage.page.barDataList = {{"North", 30}};
            stage.page.numberDistribution = {{2, 10}};
            stage.page.loadChart();
            stage.page.resize(size);
            QCoreApplication::processEvents();
            for (ZrChartView *view : std::as_const(stage.page.m_chartViewList))
                view->setRenderHint(QPainter::Antialiasing, false);
            QPalette palette = stage.page.palette();
            palette.setColor(QPalette::Window, Qt::red);
            stage.page.setPalette(palette);

            stage.page.slot_switchPieType(1);
            for (const ZrChartView *view : std::as_const(stage.page.m_chartViewList)) {
                QVERIFY(view->renderHints().testFlag(QPainter::Antialiasing));
                QCOMPARE(view->chart()->animationOptions(), QChart::SeriesAnimations);
                QCOMPARE(view->chart()->backgroundBrush(), QBrush(Qt::transparent));
            }
            QCOMPARE(stage.page.palette().color(QPalette::Window), QColor(0x19, 0x1A, 0x1E));
            QVERIFY(!stage.page.labelPiecount->isHidden());
            QVERIFY(stage.page.labelPiecount->text().contains("<font> 10</font>"));
        }
    }

    void modesOnASmallPageBuildThePieOnce_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("index");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("built");
        const QSize small(1136, 500);
        const QSize large(1136, 648);
        const std::pair<int, int> modes[] = {{9, 0}, {9, 1}, {9, -1}, {5, 0}};
        for (const auto &[type, index] : modes) {
            QTest::addRow("service type %d, item %d, on a small page", type, index)
                << type << index << small << 1;
            QTest::addRow("service type %d, item %d, on a large page", type, index)
                << type << index << large << 2;
        }
    }

    void modesOnASmallPageBuildThePieOnce()
    {
        QFETCH(int, index);
        QFETCH(QSize, size);
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.load();
        stage.page.resize(size);
        QCoreApplication::processEvents();
        LogCapture log;
        stage.page.slot_switchPieType(index);
        QTEST(log.count("createPieChart"), "built");
        QCOMPARE(log.count("createBarChart"), 1);
    }

    void modesWithoutBarsKeepTheModes_data()
    {
        table<int, int, LabelledValues>({"type", "index", "pie"},
            {{"by temperature", 9, 0, {{"TK_AbnormalTemperature", 2}}},
                {"by mask", 9, 1, {{"TK_MaskWeared", 8}}}, {"by no mode", 9, -1, {{"kept", 1}}},
                {"by etiology", 5, 0, {{"6", 6}}}});
    }

    void modesWithoutBarsKeepTheModes()
    {
        QFETCH(int, index);
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.load();
        stage.page.temperatureDistribution = {{3, 2}};
        stage.page.maskDistribution = {{1, 8}};
        stage.page.etiologyDistribution = {{1, 6}};
        stage.page.pieDataList = {{"kept", 1}};
        stage.page.comboBoxPie->addItem("left over", 77);
        LogCapture log;
        stage.page.slot_switchPieType(index);
        QTEST(stage.page.pieDataList, "pie");
        QCOMPARE(sizes(pie(stage.page.pieChartView->chart())),
            (QList<double>{double(stage.page.pieDataList.first().second)}));
        QVERIFY(log.contains("BasicChart::loadChart  barDataList is empty"));
        QCOMPARE(log.count("createPieChart"), 2);
        QCOMPARE(modes(stage.page.comboBoxPie).last(), 77);
    }

    void kindsWithoutAPieHaveNothingToSwitch_data() { kinds({3, 4}); }
    void kindsWithoutAPieHaveNothingToSwitch()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.devTypeDataList = {{"North", 1}};
        stage.load();
        stage.page.pieDataList = {{"kept", 1}};
        const QChart *bar = stage.page.barChartView->chart();
        stage.page.barChartView->setRenderHint(QPainter::Antialiasing, false);
        LogCapture log;
        for (const int index : {0, 1, -1})
            stage.page.slot_switchPieType(index);
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(stage.page.m_chartViewList.size(), 2);
        QCOMPARE(stage.page.barChartView->chart(), bar);
        QVERIFY(stage.page.barChartView->renderHints().testFlag(QPainter::Antialiasing));
        QCOMPARE(stage.page.pieDataList, (LabelledValues{{"kept", 1}}));
        QVERIFY(stage.page.comboBoxPie->isHidden());
    }

    void legendIsLessenedWhereItHasNoRoom()
    {
        const int usual = QFontInfo(QChart().legend()->font()).pixelSize();
        const auto pixels = [](int length) {
            ChartStage stage(1, ChartStage::OnScreen);
            stage.page.pieDataList = {{QString(length, u'n'), 5}};
            stage.load();
            return QFontInfo(stage.page.pieChartView->chart()->legend()->font()).pixelSize();
        };
        QCOMPARE(pixels(2), usual);
        const int lessened = pixels(15);
        QVERIFY2(lessened < usual && lessened > 9, qPrintable(QString::number(lessened)));
        QCOMPARE(pixels(40), 9);
    }

    void choosingAModeByKeyboardReachesTheSlotOnce()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.snapDetailMap = {{4, {major(30, 11), major(20, 12)}}};
        stage.page.loadChart();
        stage.page.loadChart();
        stage.page.loadChart();
        LogCapture log;
        QTest::keyClick(stage.page.comboBoxPie, Qt::Key_Down);
        QCOMPARE(stage.page.comboBoxPie->currentIndex(), 1);
        QCOMPARE(stage.page.pieDataList, other(12));
        QCOMPARE(log.count("createPieChart"), 1);
    }

    void reloadAfterAModeReturnsToTheFirstItem()
    {
        ChartStage stage(5, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 30}};
        stage.page.numberDistribution = {{2, 10}};
        stage.page.loadChart();
        stage.page.comboBoxPie->setCurrentIndex(1);
        stage.page.slot_switchPieType(1);
        stage.page.loadChart();
        QCOMPARE(stage.page.comboBoxPie->currentIndex(), 0);
        QCOMPARE(stage.page.comboBoxPie->currentText(), text("TK_ByEtiology"));
        QCOMPARE(modes(stage.page.comboBoxPie), (QList<int>{2, 1}));
        QCOMPARE(stage.page.pieDataList, (LabelledValues{{text("TK_Normal"), 8}, {text("TK_Abnormal"), 2}}));
    }

private:
    static OwnedChart build(ProbePage &page) { return OwnedChart(page.createPieChart()); }
    static QPieSeries *pie(const QChart *chart) { return series<QPieSeries>(chart); }
    static QPieSeries *pie(const OwnedChart &chart) { return pie(chart.get()); }
    static QStringList texts(const QPieSeries *pie)
    {
        QStringList result;
        for (QPieSlice *slice : pie->slices())
            result.append(slice->label());
        return result;
    }
    static QStringList names(const QPieSeries *pie)
    {
        QStringList result;
        for (const QString &label : texts(pie))
            result.append(label.section(" | ", 0, 0));
        return result;
    }
    static QList<double> sizes(const QPieSeries *pie)
    {
        QList<double> result;
        for (QPieSlice *slice : pie->slices())
            result.append(slice->value());
        return result;
    }

    /// "slice 0" … with falling values, the last of them 1.
    static LabelledValues slices(int count)
    {
        LabelledValues list;
        for (int i = 0; i < count; ++i)
            list.append({u"slice %1"_s.arg(i), count - i});
        return list;
    }
    static QList<int> modes(const QComboBox *box)
    {
        QList<int> result;
        for (int i = 0; i < box->count(); ++i)
            result.append(box->itemData(i).toInt());
        return result;
    }
    static LabelledValues other(int count) { return {{text("TK_Other"), count}}; }
};

TALVIX_TEST_MAIN(PieChartTest)

#include "tst_pie_chart.moc"
