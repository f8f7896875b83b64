#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppTranslationHelper.h>

#include <limits>

using namespace ChartProbe;

class PieChartTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doughnutOfOneSeries_data();
    void doughnutOfOneSeries();
    void labelsCarryShareAndCount_data();
    void labelsCarryShareAndCount();
    void slicesStandLargestFirst();
    void equalValuesKeepTheirOrder();
    void otherGoesToTheEnd_data();
    void otherGoesToTheEnd();
    void ninthEntryAndAllBehindAreFolded_data();
    void ninthEntryAndAllBehindAreFolded();
    void shareIsOfTheWholeListNotOfTheFolded();
    void rebuildingGivesTheSameSlices_data();
    void rebuildingGivesTheSameSlices();
    void emptyListGivesAnEmptyDoughnut_data();
    void emptyListGivesAnEmptyDoughnut();
    void nothingToShareIsNotANumber();
    void sumWrapsAsAnInt();
    void valuesBelowZeroAndHugeOnesAreSurvived_data();
    void valuesBelowZeroAndHugeOnesAreSurvived();
    void slicesAreColouredByPosition_data();
    void slicesAreColouredByPosition();
    void otherIsColouredByItsPlaceNotItsSize();
    void deviceGroupsAreColouredByName_data();
    void deviceGroupsAreColouredByName();
    void deviceGroupSliceOfNoKnownNameKeepsTheDefaultColour_data();
    void deviceGroupSliceOfNoKnownNameKeepsTheDefaultColour();
    void namesAreShownToTheLetter_data();
    void namesAreShownToTheLetter();
    void legendShowsNamesToTheLetter_data();
    void legendShowsNamesToTheLetter();
    void aPieWithoutATotalTakesAnySize();
    void builderSetsThePieTitleOnly_data();
    void builderSetsThePieTitleOnly();
    void logLine();
    void eachCallMakesANewChartThatOwnsAllItsParts();
    void hoveringReachesTheSlot();
    void fiveThousandSlices();
    void otherFollowsTheLanguage();

    void switchingTheClassFillsPieAndModes_data();
    void switchingTheClassFillsPieAndModes();
    void switchingToAnAbsentClassEmptiesPieAndModes_data();
    void switchingToAnAbsentClassEmptiesPieAndModes();
    void switchingToAClassWithoutMajorTypesEmptiesPieAndModes();
    void switchingTheClassBeforeAnyChartFillsOnlyTheList();
    void switchingTheClassDoesNotWriteTheClearLine();
    void switchingTheClassOffersItsModesBeforeThePieIsBuilt();
    void switchingTheClassOnASmallPageKeepsTheChart();
    void classButtonsOfASpellOfClicksSwitchOnceEach();

    void majorTypeOfTrafficIsChosen_data();
    void majorTypeOfTrafficIsChosen();
    void majorTypeWithoutDetailRebuildsTheSamePie();
    void majorTypeOfAnAbsentClassKeepsThePieList();
    void temperatureByNumberEmptiesBarsAndLines();
    void temperatureByEtiologyBringsBarsAndLinesBack();
    void temperatureOfAnotherModeRebuildsThePieAlone();
    void hoveringEmptiedChartsShowsNothing();
    void deviceGroupsSwitchBetweenTemperatureAndMask();
    void deviceGroupsOfAnotherModeLoadTheCharts();
    void otherKindsOnlyRebuildThePie_data();
    void otherKindsOnlyRebuildThePie();
    void hiddenPieKeepsItsChartWhenTheModeChanges();
    void modeChangeEndsWithLookAndOverlays();
    void modesOnASmallPageBuildThePieOnce_data();
    void modesOnASmallPageBuildThePieOnce();
    void modesWithoutBarsKeepTheModes_data();
    void modesWithoutBarsKeepTheModes();
    void kindsWithoutAPieHaveNothingToSwitch_data();
    void kindsWithoutAPieHaveNothingToSwitch();
    void legendIsLessenedWhereItHasNoRoom();
    void choosingAModeByKeyboardReachesTheSlotOnce();
    void reloadAfterAModeReturnsToTheFirstItem();

private:
    static OwnedChart build(ProbePage &page) { return OwnedChart(page.createPieChart()); }
    static QPieSeries *pie(const QChart *chart) { return series<QPieSeries>(chart); }
    static QPieSeries *pie(const OwnedChart &chart) { return pie(chart.get()); }
    static QStringList names(QPieSeries *pie)
    {
        QStringList result;
        for (QPieSlice *slice : pie->slices())
            result.append(slice->label().section(" | ", 0, 0));
        return result;
    }
    static QList<double> sizes(const QPieSeries *pie)
    {
        QList<double> result;
        for (QPieSlice *slice : pie->slices())
            result.append(slice->value());
        return result;
    }
    static void kinds(const QList<int> &types)
    {
        QTest::addColumn<int>("type");
        for (const int type : types)
            QTest::addRow("service type %d", type) << type;
    }
    /// "slice 0" … with falling values, the last of them 1.
    static LabelledValues slices(int count)
    {
        LabelledValues list;
        for (int i = 0; i < count; ++i)
            list.append({QStringLiteral("slice %1").arg(i), count - i});
        return list;
    }
    static SnapDetailMajorItem major(int type, int countOfOthers)
    {
        SnapDetailMajorItem item;
        item.majorType = type;
        item.minors = {{-4711, countOfOthers}};
        return item;
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

void PieChartTest::doughnutOfOneSeries_data()
{
    kinds({1, 2, 5, 6, 7, 8, 9, 0, 10});
}

void PieChartTest::doughnutOfOneSeries()
{
    QFETCH(int, type);
    ChartStage stage(type);
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

void PieChartTest::labelsCarryShareAndCount_data()
{
    QTest::addColumn<LabelledValues>("list");
    QTest::addColumn<QStringList>("labels");

    QTest::newRow("the whole") << LabelledValues{{"A", 7}} << QStringList{"A | 100.0% 7"};
    QTest::newRow("two digits are padded by one blank, one digit by two")
        << LabelledValues{{"A", 37}, {"B", 3}} << QStringList{"A |  92.5% 37", "B |   7.5% 3"};
    QTest::newRow("a share of nothing")
        << LabelledValues{{"A", 5}, {"B", 0}} << QStringList{"A | 100.0% 5", "B |   0.0% 0"};
    QTest::newRow("a third is rounded")
        << LabelledValues{{"A", 2}, {"B", 1}} << QStringList{"A |  66.7% 2", "B |  33.3% 1"};
    QTest::newRow("large counts are whole numbers") << LabelledValues{{"A", 1500000}, {"B", 500000}}
                                                    << QStringList{"A |  75.0% 1500000", "B |  25.0% 500000"};
}

void PieChartTest::labelsCarryShareAndCount()
{
    QFETCH(LabelledValues, list);
    QFETCH(QStringList, labels);
    for (const int type : {1, 7, 9}) {
        ChartStage stage(type);
        stage.page.pieDataList = list;
        const OwnedChart chart = build(stage.page);
        QStringList actual;
        for (QPieSlice *slice : pie(chart)->slices())
            actual.append(slice->label());
        QCOMPARE(actual, labels);
        QCOMPARE(stage.page.pieDataList, list);
    }
}

void PieChartTest::slicesStandLargestFirst()
{
    ChartStage stage(1);
    stage.page.pieDataList = {{"small", 1}, {"large", 9}, {"none", 0}, {"middle", 5}};
    const OwnedChart chart = build(stage.page);
    QCOMPARE(names(pie(chart)), (QStringList{"large", "middle", "small", "none"}));
    QCOMPARE(
        stage.page.pieDataList, (LabelledValues{{"large", 9}, {"middle", 5}, {"small", 1}, {"none", 0}}));
}

void PieChartTest::equalValuesKeepTheirOrder()
{
    ChartStage stage(1);
    for (int i = 0; i < 32; ++i)
        stage.page.pieDataList.append({QStringLiteral("slice %1").arg(i), i % 4 == 3 ? 9 : 5});
    const OwnedChart chart = build(stage.page);
    QCOMPARE(names(pie(chart)),
        (QStringList{"slice 3", "slice 7", "slice 11", "slice 15", "slice 19", "slice 23", "slice 27",
            "slice 31", text("TK_Other")}));

    stage.page.pieDataList = {{"e", 1}, {"a", 1}, {"d", 2}, {"b", 1}, {"f", 2}, {"c", 1}};
    const OwnedChart few = build(stage.page);
    QCOMPARE(names(pie(few)), (QStringList{"d", "f", "e", "a", "b", "c"}));
}

void PieChartTest::otherGoesToTheEnd_data()
{
    QTest::addColumn<LabelledValues>("list");
    QTest::addColumn<LabelledValues>("ordered");

    const QString name = QStringLiteral("TK_Other");
    QTest::newRow("the largest") << LabelledValues{{"a", 2}, {name, 90}, {"b", 5}}
                                 << LabelledValues{{"b", 5}, {"a", 2}, {name, 90}};
    QTest::newRow("the smallest") << LabelledValues{{name, 1}, {"a", 2}}
                                  << LabelledValues{{"a", 2}, {name, 1}};
    QTest::newRow("the only one") << LabelledValues{{name, 1}} << LabelledValues{{name, 1}};
    QTest::newRow("the first in order of two") << LabelledValues{{name, 40}, {"a", 30}, {name, 50}}
                                               << LabelledValues{{name, 40}, {"a", 30}, {name, 50}};
    QTest::newRow("the name is compared exactly") << LabelledValues{{"a", 1}, {"tk_other", 9},
        {"TK_Other ", 8}} << LabelledValues{{"tk_other", 9}, {"TK_Other ", 8}, {"a", 1}};
    LabelledValues eight = slices(7);
    eight.prepend({name, 500});
    LabelledValues eightOrdered = slices(7);
    eightOrdered.append({name, 500});
    QTest::newRow("of eight") << eight << eightOrdered;
    QTest::newRow("eight without it") << slices(8) << slices(8);
}

void PieChartTest::otherGoesToTheEnd()
{
    QFETCH(LabelledValues, list);
    QFETCH(LabelledValues, ordered);
    ChartStage stage(1);
    stage.page.pieDataList = list;
    const OwnedChart chart = build(stage.page);
    QCOMPARE(stage.page.pieDataList, ordered);
    QCOMPARE(names(pie(chart)), listKeys(ordered));
}

void PieChartTest::ninthEntryAndAllBehindAreFolded_data()
{
    QTest::addColumn<LabelledValues>("list");
    QTest::addColumn<LabelledValues>("folded");

    const QString name = QStringLiteral("TK_Other");
    LabelledValues nine = slices(9);
    nine[8].first = name;
    QTest::newRow("of exactly nine the ninth loses its name") << slices(9) << nine;

    LabelledValues twelve = slices(12).mid(0, 8);
    twelve.append({name, 4 + 3 + 2 + 1});
    QTest::newRow("of twelve the last four are summed") << slices(12) << twelve;

    LabelledValues largest = slices(11);
    largest.append({name, 700});
    LabelledValues largestFolded = slices(11).mid(0, 8);
    largestFolded.append({name, 3 + 2 + 1 + 700});
    QTest::newRow("the catch-all slice is summed with them however large") << largest << largestFolded;

    LabelledValues eightAndOther = slices(8);
    eightAndOther.prepend({name, 3});
    LabelledValues eightAndOtherFolded = slices(8);
    eightAndOtherFolded.append({name, 3});
    QTest::newRow("eight and the catch-all slice") << eightAndOther << eightAndOtherFolded;

    LabelledValues two = slices(8);
    two.prepend({name, 50});
    two.prepend({name, 40});
    LabelledValues twoFolded = slices(7);
    for (int i = 0; i < twoFolded.size(); ++i)
        twoFolded[i] = slices(8).at(i);
    twoFolded.prepend({name, 40});
    twoFolded.append({name, 1 + 50});
    QTest::newRow("a second catch-all entry keeps its place by value") << two << twoFolded;
}

void PieChartTest::ninthEntryAndAllBehindAreFolded()
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

void PieChartTest::shareIsOfTheWholeListNotOfTheFolded()
{
    ChartStage stage(1);
    for (int i = 0; i < 20; ++i)
        stage.page.pieDataList.append({QString::number(i), 5});
    const OwnedChart chart = build(stage.page);
    QCOMPARE(pie(chart)->slices().constFirst()->label(), QStringLiteral("0 |   5.0% 5"));
    QCOMPARE(pie(chart)->slices().constLast()->label(), text("TK_Other") + QStringLiteral(" |  60.0% 60"));
}

void PieChartTest::rebuildingGivesTheSameSlices_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("three") << 3;
    QTest::newRow("nine") << 9;
    QTest::newRow("thirty") << 30;
}

void PieChartTest::rebuildingGivesTheSameSlices()
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

void PieChartTest::emptyListGivesAnEmptyDoughnut_data()
{
    kinds({1, 5, 9});
}

void PieChartTest::emptyListGivesAnEmptyDoughnut()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.loadChart();
    const QChart *chart = stage.page.pieChartView->chart();
    QVERIFY(pie(chart));
    QCOMPARE(pie(chart)->count(), 0);
    QVERIFY(chart->legend()->markers().isEmpty());
    QVERIFY(stage.page.labelPiecount->isHidden());
    QVERIFY(stage.page.pieDataList.isEmpty());
    QVERIFY(!stage.page.grab().isNull());
}

void PieChartTest::nothingToShareIsNotANumber()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.pieDataList = {{"A", 0}, {"B", 0}};
    stage.page.loadChart();
    const QPieSeries *slices = pie(stage.page.pieChartView->chart());
    QCOMPARE(slices->count(), 2);
    QCOMPARE(slices->slices().at(0)->label(), QStringLiteral("A |   nan% 0"));
    QCOMPARE(slices->slices().at(1)->label(), QStringLiteral("B |   nan% 0"));
    QVERIFY(stage.page.labelPiecount->isHidden());
    QVERIFY(!stage.page.grab().isNull());
}

void PieChartTest::sumWrapsAsAnInt()
{
    constexpr int most = std::numeric_limits<int>::max();
    ChartStage stage(1);
    stage.page.pieDataList = {{"A", most}, {"B", most}};
    const OwnedChart chart = build(stage.page);
    QCOMPARE(pie(chart)->slices().at(0)->label(), QStringLiteral("A | -107374182350.0% 2147483647"));
}

void PieChartTest::valuesBelowZeroAndHugeOnesAreSurvived_data()
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
        labels.append(QStringLiteral("%1 |  -inf% -2147483648").arg(i));
    labels.append(QStringLiteral("TK_Other |   nan% 0"));
    QTest::newRow("sums that wrap to zero") << many << labels;
}

void PieChartTest::valuesBelowZeroAndHugeOnesAreSurvived()
{
    QFETCH(LabelledValues, list);
    QFETCH(QStringList, labels);
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.pieDataList = list;
    stage.page.loadChart();
    QStringList actual;
    for (QPieSlice *slice : pie(stage.page.pieChartView->chart())->slices())
        actual.append(slice->label());
    QCOMPARE(actual, labels);
    QVERIFY(!stage.page.grab().isNull());
}

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

void PieChartTest::slicesAreColouredByPosition_data()
{
    kinds({1, 2, 5, 6, 7, 8});
}

void PieChartTest::slicesAreColouredByPosition()
{
    QFETCH(int, type);
    ChartStage stage(type);
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

void PieChartTest::otherIsColouredByItsPlaceNotItsSize()
{
    ChartStage stage(1);
    stage.page.pieDataList = {{text("TK_Other"), 900}, {"a", 3}, {"b", 2}};
    const OwnedChart chart = build(stage.page);
    QCOMPARE(names(pie(chart)).constLast(), text("TK_Other"));
    QCOMPARE(pie(chart)->slices().at(0)->color(), theme("$background_chart_color_1"));
    QCOMPARE(pie(chart)->slices().at(2)->color(), QColor(67, 178, 249, 255));
}

void PieChartTest::deviceGroupsAreColouredByName_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("colour");

    QTest::newRow("normal") << "TK_NormalTemperature"
                            << "$word_normaltemp";
    QTest::newRow("over") << "TK_OvertemperatureOfHighTemperature"
                          << "$word_overtemp";
    QTest::newRow("low") << "TK_LowTemp"
                         << "$word_lowtemp";
    QTest::newRow("abnormal") << "TK_AbnormalTemperature"
                              << "$word_anormaltemp";
    QTest::newRow("mask worn") << "TK_MaskWeared"
                               << "$word_weared";
    QTest::newRow("no mask") << "TK_MaskUncovered"
                             << "$word_uncovered";
    QTest::newRow("mask not seen") << "TK_MaskUndetected"
                                   << "$word_undetected";
}

void PieChartTest::deviceGroupsAreColouredByName()
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

void PieChartTest::deviceGroupSliceOfNoKnownNameKeepsTheDefaultColour_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("another name") << "elsewhere";
    QTest::newRow("no name") << "";
    QTest::newRow("other case") << "TK_normaltemperature";
    QTest::newRow("the catch-all slice") << "TK_Other";
}

void PieChartTest::deviceGroupSliceOfNoKnownNameKeepsTheDefaultColour()
{
    QFETCH(QString, name);
    ChartStage stage(9);
    stage.page.pieDataList = {{name, 5}};
    const OwnedChart chart = build(stage.page);
    QCOMPARE(pie(chart)->slices().at(0)->color(), defaultColours(1).constFirst());
}

void PieChartTest::namesAreShownToTheLetter_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
    QTest::newRow("markup") << "<b>Fire</b> & smoke";
    QTest::newRow("place markers") << "%1 %2 100%";
    QTest::newRow("two hundred characters") << QString(200, 'x');
}

void PieChartTest::namesAreShownToTheLetter()
{
    QFETCH(QString, name);
    ChartStage stage(1);
    stage.page.pieDataList = {{name, 3}};
    const OwnedChart chart = build(stage.page);
    QCOMPARE(pie(chart)->slices().at(0)->label(), name + QStringLiteral(" | 100.0% 3"));
}

void PieChartTest::legendShowsNamesToTheLetter_data()
{
    trickyNameRows();
}

void PieChartTest::legendShowsNamesToTheLetter()
{
    QFETCH(QString, name);
    ChartStage stage(1);
    stage.page.pieDataList = {{name, 3}};
    const OwnedChart chart = build(stage.page);
    const QString whole = name + " | 100.0% 3";
    QCOMPARE(plainText(chart->legend()->markers().constFirst()->label()).simplified(), whole.simplified());
    QCOMPARE(pie(chart)->slices().at(0)->label(), whole);
}

void PieChartTest::aPieWithoutATotalTakesAnySize()
{
    ChartStage stage(1);
    stage.page.pieDataList = {{"smoke", 3}};
    const OwnedChart chart = build(stage.page);
    QVERIFY(!stage.page.labelPiecount);
    chart->resize(500, 300);
    QVERIFY(!stage.page.labelPiecount);
    QCOMPARE(chart->size(), QSizeF(500, 300));
}

void PieChartTest::builderSetsThePieTitleOnly_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");

    QTest::newRow("alarms of organisations") << 1 << "North"
                                             << "TK_AlarmStatisticsOfType";
    QTest::newRow("alarms of devices") << 2 << "North"
                                       << "TK_AlarmStatisticsOfType";
    QTest::newRow("temperature of groups") << 5 << "North"
                                           << "TK_TemperatureStatisticsOfType";
    QTest::newRow("temperature of persons") << 6 << "North"
                                            << "TK_TemperatureStatisticsOfType";
    QTest::newRow("traffics of organisations name no bar") << 7 << ""
                                                           << "TK_TrafficsStatisticsOfType";
    QTest::newRow("traffics of devices name no bar") << 8 << ""
                                                     << "TK_TrafficsStatisticsOfType";
    QTest::newRow("device groups") << 9 << "North"
                                   << "TK_StatisticalDistributionOfBodytemperatureSnapshot";
}

void PieChartTest::builderSetsThePieTitleOnly()
{
    QFETCH(int, type);
    QFETCH(QString, name);
    QFETCH(QString, key);
    ChartStage stage(type);
    for (const char *label : {"labelBarChartTitle", "labelLineChartTitle", "labelPieChartTitle"})
        stage.page.part<QLabel>(label)->setText("before");
    stage.page.m_nTimeType = 2;
    stage.page.m_strSelectedBar = "North";

    const OwnedChart chart = build(stage.page);
    QCOMPARE(stage.titleText("labelBarChartTitle"), QStringLiteral("before"));
    QCOMPARE(stage.titleText("labelLineChartTitle"), QStringLiteral("before"));
    QCOMPARE(stage.titleText("labelPieChartTitle"),
        detailTitle("2024-05-01~2024-05-03", name, text("TK_Day"), text(key)));
    QCOMPARE(stage.page.m_strSelectedBar, name);
}

void PieChartTest::logLine()
{
    ChartStage stage(1);
    stage.page.pieDataList = slices(12);
    LogCapture log;
    const OwnedChart chart = build(stage.page);
    QCOMPARE(log.lines(), QStringList{"createPieChart"});
}

void PieChartTest::eachCallMakesANewChartThatOwnsAllItsParts()
{
    ChartStage stage(1);
    stage.page.pieDataList = slices(4);
    OwnedChart chart = build(stage.page);
    const OwnedChart second = build(stage.page);
    QVERIFY(chart != second);
    QVERIFY(!chart->parent());
    QVERIFY(!chart->parentItem());
    const QPointer<QPieSeries> slices = pie(chart);
    const QPointer<QPieSlice> slice = pie(chart)->slices().constLast();
    chart.reset();
    QVERIFY(slices.isNull());
    QVERIFY(slice.isNull());
    QCOMPARE(pie(second)->count(), 4);
}

void PieChartTest::hoveringReachesTheSlot()
{
    ChartStage stage(1);
    stage.page.pieDataList = {{"A", 3}, {"B", 1}};
    const OwnedChart chart = build(stage.page);
    QPieSlice *slice = pie(chart)->slices().at(1);
    Q_EMIT pie(chart)->hovered(slice, true);
    QVERIFY(slice->isExploded());
    QCOMPARE(slice->explodeDistanceFactor(), 0.1);
    QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-01~2024-05-03", "B |  25.0% 1", ""));
    Q_EMIT pie(chart)->hovered(slice, false);
    QVERIFY(!slice->isExploded());
}

void PieChartTest::fiveThousandSlices()
{
    ChartStage stage(1);
    stage.page.pieDataList = slices(5000);
    const OwnedChart chart = build(stage.page);
    QCOMPARE(pie(chart)->count(), 9);
    QCOMPARE(names(pie(chart)).at(7), QStringLiteral("slice 7"));
    QCOMPARE(
        stage.page.pieDataList.constLast(), (std::pair<QString, int>{text("TK_Other"), 4992 * 4993 / 2}));
}

void PieChartTest::otherFollowsTheLanguage()
{
    QVERIFY(HostSettings::setLanguage("en"));
    const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
    QVERIFY(text("TK_Other") != QStringLiteral("TK_Other"));
    ChartStage stage(1);
    stage.page.pieDataList = {{text("TK_Other"), 9}, {"TK_Other", 8}, {"a", 7}};
    const OwnedChart chart = build(stage.page);
    QCOMPARE(names(pie(chart)), (QStringList{"TK_Other", "a", text("TK_Other")}));
    stage.page.pieDataList = slices(10);
    const OwnedChart folded = build(stage.page);
    QCOMPARE(names(pie(folded)).constLast(), text("TK_Other"));
}

void PieChartTest::switchingTheClassFillsPieAndModes_data()
{
    kinds({7, 8});
}

void PieChartTest::switchingTheClassFillsPieAndModes()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
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

void PieChartTest::switchingToAnAbsentClassEmptiesPieAndModes_data()
{
    kinds({7, 8});
}

void PieChartTest::switchingToAnAbsentClassEmptiesPieAndModes()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.snapDetailMap = {{4, {major(30, 11)}}};
    stage.load();

    QTest::mouseClick(stage.page.part<QAbstractButton>("personRadio"), Qt::LeftButton);
    QVERIFY(stage.page.pieDataList.isEmpty());
    QCOMPARE(stage.page.comboBoxPie->count(), 0);
    QVERIFY(stage.page.comboBoxPie->isVisible());
    QCOMPARE(pie(stage.page.pieChartView->chart())->count(), 0);
    QVERIFY(stage.page.labelPiecount->isHidden());
}

void PieChartTest::switchingToAClassWithoutMajorTypesEmptiesPieAndModes()
{
    ChartStage stage(7, ChartStage::OnScreen);
    stage.page.snapDetailMap = {{4, {major(30, 11)}}, {2, {}}};
    stage.page.loadChart();
    QTest::mouseClick(stage.page.part<QAbstractButton>("personRadio"), Qt::LeftButton);
    QVERIFY(stage.page.pieDataList.isEmpty());
    QCOMPARE(stage.page.comboBoxPie->count(), 0);
    QCOMPARE(stage.page.comboBoxPie->currentIndex(), -1);
}

void PieChartTest::switchingTheClassBeforeAnyChartFillsOnlyTheList()
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

void PieChartTest::switchingTheClassOffersItsModesBeforeThePieIsBuilt()
{
    ChartStage stage(7, ChartStage::OnScreen);
    stage.page.snapDetailMap = {{4, {major(30, 11)}}, {2, {major(7, 21), major(9, 22)}}};
    stage.page.loadChart();
    LogCapture log;
    QList<int> offered;
    log.whenWritten = [&](const QString &line) {
        if (line == QLatin1String("createPieChart"))
            offered = modes(stage.page.comboBoxPie);
    };
    QTest::mouseClick(stage.page.part<QAbstractButton>("personRadio"), Qt::LeftButton);
    QCOMPARE(offered, (QList<int>{7, 9}));
}

void PieChartTest::switchingTheClassDoesNotWriteTheClearLine()
{
    ChartStage stage(7, ChartStage::OnScreen);
    stage.page.loadChart();
    stage.page.pieDataList = slices(3);
    LogCapture log;
    stage.page.slot_switchPieChart(nullptr);
    QVERIFY(stage.page.pieDataList.isEmpty());
    QCOMPARE(log.lines(), (QStringList{" ServiceType unknown", "createPieChart"}));
}

void PieChartTest::switchingTheClassOnASmallPageKeepsTheChart()
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

void PieChartTest::classButtonsOfASpellOfClicksSwitchOnceEach()
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

void PieChartTest::majorTypeOfTrafficIsChosen_data()
{
    kinds({7, 8});
}

void PieChartTest::majorTypeOfTrafficIsChosen()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
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

void PieChartTest::majorTypeWithoutDetailRebuildsTheSamePie()
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

void PieChartTest::majorTypeOfAnAbsentClassKeepsThePieList()
{
    ChartStage stage(7, ChartStage::OnScreen);
    stage.page.snapDetailMap = {{2, {major(7, 21)}}};
    stage.page.loadChart();
    stage.page.pieDataList = slices(3);
    stage.page.slot_switchPieType(0);
    QCOMPARE(stage.page.pieDataList, slices(3));
    QCOMPARE(pie(stage.page.pieChartView->chart())->count(), 3);
}

void PieChartTest::temperatureByNumberEmptiesBarsAndLines()
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

void PieChartTest::temperatureByEtiologyBringsBarsAndLinesBack()
{
    ChartStage stage(5, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 30}, {"South", 7}};
    stage.page.lineDataList = {{"2024-05-01", 5}};
    stage.page.etiologyDistribution = {{1, 6}, {2, 4}};
    stage.page.numberDistribution = {{2, 10}};
    stage.page.loadChart();
    QList<QPointer<QObject>> emptied;
    for (const ZrChartView *view : std::as_const(stage.page.m_chartViewList)) {
        emptied.append(view->chart()->series().constFirst());
        for (QAbstractAxis *axis : view->chart()->axes())
            emptied.append(axis);
    }
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

void PieChartTest::temperatureOfAnotherModeRebuildsThePieAlone()
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

void PieChartTest::hoveringEmptiedChartsShowsNothing()
{
    ChartStage stage(5, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 30}};
    stage.page.lineDataList = {{"2024-05-01", 30}, {"2024-05-02", 30}};
    stage.page.loadChart();
    waitForAnimation();
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

void PieChartTest::deviceGroupsSwitchBetweenTemperatureAndMask()
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
    QCOMPARE(
        stage.page.pieDataList, (LabelledValues{{text("TK_MaskWeared"), 8}, {text("TK_MaskUncovered"), 1}}));
    QCOMPARE(sizes(pie(stage.page.pieChartView->chart())), (QList<double>{8, 1}));
    QCOMPARE(stage.page.comboBoxPie->currentIndex(), 1);
    QVERIFY(stage.titleText("labelPieChartTitle").contains(text("TK_StatisticalDistributionOfMaskSnapshot")));
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

void PieChartTest::deviceGroupsOfAnotherModeLoadTheCharts()
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
            "BasicChart::getMaxValue  30", "createBarChart", "BasicChart::getMaxValue  0", "createLineChart",
            "createPieChart", "createPieChart"}));
}

void PieChartTest::otherKindsOnlyRebuildThePie_data()
{
    kinds({1, 2, 6, 10});
}

void PieChartTest::otherKindsOnlyRebuildThePie()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
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

void PieChartTest::hiddenPieKeepsItsChartWhenTheModeChanges()
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

void PieChartTest::modeChangeEndsWithLookAndOverlays()
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

void PieChartTest::modesOnASmallPageBuildThePieOnce_data()
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

void PieChartTest::modesOnASmallPageBuildThePieOnce()
{
    QFETCH(int, type);
    QFETCH(int, index);
    QFETCH(QSize, size);
    QFETCH(int, built);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 30}};
    stage.load();
    stage.page.resize(size);
    QCoreApplication::processEvents();
    LogCapture log;
    stage.page.slot_switchPieType(index);
    QCOMPARE(log.count("createPieChart"), built);
    QCOMPARE(log.count("createBarChart"), 1);
}

void PieChartTest::modesWithoutBarsKeepTheModes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<LabelledValues>("pie");
    QTest::newRow("by temperature") << 9 << 0 << LabelledValues{{"TK_AbnormalTemperature", 2}};
    QTest::newRow("by mask") << 9 << 1 << LabelledValues{{"TK_MaskWeared", 8}};
    QTest::newRow("by no mode") << 9 << -1 << LabelledValues{{"kept", 1}};
    QTest::newRow("by etiology") << 5 << 0 << LabelledValues{{"6", 6}};
}

void PieChartTest::modesWithoutBarsKeepTheModes()
{
    QFETCH(int, type);
    QFETCH(int, index);
    ChartStage stage(type, ChartStage::OnScreen);
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

void PieChartTest::kindsWithoutAPieHaveNothingToSwitch_data()
{
    kinds({3, 4});
}

void PieChartTest::kindsWithoutAPieHaveNothingToSwitch()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
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

void PieChartTest::legendIsLessenedWhereItHasNoRoom()
{
    const int usual = QFontInfo(QChart().legend()->font()).pixelSize();
    const auto pixels = [](int length) {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.pieDataList = {{QString(length, QLatin1Char('n')), 5}};
        stage.load();
        return QFontInfo(stage.page.pieChartView->chart()->legend()->font()).pixelSize();
    };
    QCOMPARE(pixels(2), usual);
    const int lessened = pixels(15);
    QVERIFY2(lessened < usual && lessened > 9, qPrintable(QString::number(lessened)));
    QCOMPARE(pixels(40), 9);
}

void PieChartTest::choosingAModeByKeyboardReachesTheSlotOnce()
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

void PieChartTest::reloadAfterAModeReturnsToTheFirstItem()
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

TALVIX_TEST_MAIN(PieChartTest)

#include "tst_pie_chart.moc"
