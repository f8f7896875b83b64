#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <charts/UserData.h>
#include <devhost/widgets/HostSettings.h>

#include <limits>

using namespace ChartProbe;

class BarChartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneSetWithoutLegend_data();
    void oneSetWithoutLegend();
    void recordersAndCamerasAreTwoStackedSets_data();
    void recordersAndCamerasAreTwoStackedSets();
    void valueGoesToTheSetOfTheDeviceType_data();
    void valueGoesToTheSetOfTheDeviceType();
    void unknownDeviceTypeIsLogged();
    void barWithoutDeviceTypeIsSkippedInBothSets();
    void firstOfTwoEntriesDecidesTheDeviceType();
    void deviceTypeIsFoundByExactComparison();
    void noDeviceTypeLeavesEmptySets();
    void twoSetsSideBySide_data();
    void twoSetsSideBySide();
    void barsOfBothSetsKnowTheirPositionAndTheFirstListsLabel();
    void barsOfAnEarlierChartKeepWhatTheyKnow();
    void labelsTurnWhereTheyHaveNoRoom_data();
    void labelsTurnWhereTheyHaveNoRoom();
    void secondListsLabelsAreNotUsed();
    void emptySecondListLeavesTheSecondSetEmpty();
    void longerSecondListIsSurvived();
    void barWidth_data();
    void barWidth();
    void builderSetsTheBarTitleOnly_data();
    void builderSetsTheBarTitleOnly();
    void axesAndMargins_data();
    void axesAndMargins();
    void boundCoversBothLists_data();
    void boundCoversBothLists();
    void emptyListsGiveAnEmptyChart_data();
    void emptyListsGiveAnEmptyChart();
    void withoutBarsTheSecondListBoundsTheAxis_data();
    void withoutBarsTheSecondListBoundsTheAxis();
    void logLines_data();
    void logLines();
    void listsAreNotChanged_data();
    void listsAreNotChanged();
    void eachCallMakesANewChartThatOwnsAllItsParts_data();
    void eachCallMakesANewChartThatOwnsAllItsParts();
    void everyBarHasItsOwnCategory_data();
    void everyBarHasItsOwnCategory();
    void labelsAreShownToTheLetter_data();
    void labelsAreShownToTheLetter();
    void aNameThatNoLayoutTakesGetsPainted_data();
    void aNameThatNoLayoutTakesGetsPainted();
    void barsOfOneNameAreHoveredEachInItsPlace();
    void dualBarsOfOneNameAreHoveredEachInItsPlace();
    void hoveringReachesTheSlot_data();
    void hoveringReachesTheSlot();
    void hoveredBarOfTheSecondSetSelectsByTheFirstListsLabel();
    void barsCarryNoValueLabels_data();
    void barsCarryNoValueLabels();
    void extremeValuesAreDrawn_data();
    void extremeValuesAreDrawn();
    void fiveThousandBars_data();
    void fiveThousandBars();
    void fiveThousandBarsAreShownAndReplaced();
    void textsFollowTheLanguage();

private:
    static OwnedChart build(ProbePage &page, int type)
    {
        return OwnedChart(type >= 7 && type <= 9 ? page.createDualBarChart() : page.createBarChart());
    }
    static QList<QBarSet *> sets(const QChart *chart)
    {
        const auto *bars = series<QAbstractBarSeries>(chart);
        return bars ? bars->barSets() : QList<QBarSet *>();
    }
    static UserData *userData(QBarSet *set, int index)
    {
        const QByteArray name = "UserSelfData" + QByteArray::number(index);
        return set->property(name.constData()).value<UserData *>();
    }
    static void kinds(const QList<int> &types)
    {
        QTest::addColumn<int>("type");
        for (const int type : types)
            QTest::addRow("service type %d", type) << type;
    }
    static void verifySet(QBarSet *set, const QString &label, const QColor &color)
    {
        QCOMPARE(set->label(), label);
        QCOMPARE(set->color(), color);
        QCOMPARE(set->borderColor(), color);
    }
    static void verifyTopLegend(const QChart *chart)
    {
        QVERIFY(chart->legend()->isVisible());
        QCOMPARE(chart->legend()->alignment(), Qt::AlignTop);
        QCOMPARE(chart->legend()->labelColor(), theme("$word_color_2"));
    }
};

static QStringList legendTexts(const QChart *chart)
{
    QStringList texts;
    for (const QLegendMarker *marker : chart->legend()->markers())
        texts.append(marker->label());
    return texts;
}

void BarChartsTest::oneSetWithoutLegend_data()
{
    kinds({1, 3, 5, 6, 0, 10});
}

void BarChartsTest::oneSetWithoutLegend()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", 30}, {"South", 7}, {"East", 0}};

    const OwnedChart chart(stage.page.createBarChart());
    QVERIFY(!chart->legend()->isVisible());
    QCOMPARE(chart->series().size(), 1);
    QVERIFY(series<QStackedBarSeries>(chart.get()));
    QCOMPARE(sets(chart.get()).size(), 1);
    QBarSet *set = sets(chart.get()).constFirst();
    verifySet(set, text("TK_Organization"), theme("$word_tabbar2_select"));
    QCOMPARE(values(set), (QList<double>{30, 7, 0}));
    QCOMPARE(categories(chart.get()), (QStringList{"North", "South", "East"}));
}

void BarChartsTest::recordersAndCamerasAreTwoStackedSets_data()
{
    kinds({2, 4});
}

void BarChartsTest::recordersAndCamerasAreTwoStackedSets()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.client.setRecorderTypes({2, 3});
    stage.page.barDataList = {{"gate", 30}, {"recorder", 7}, {"hall", 12}, {"store", 5}};
    stage.page.devTypeDataList = {{"hall", 1}, {"store", 3}, {"gate", 1}, {"recorder", 2}};

    const OwnedChart chart(stage.page.createBarChart());
    QCOMPARE(chart->series().size(), 1);
    QVERIFY(series<QStackedBarSeries>(chart.get()));
    const QList<QBarSet *> both = sets(chart.get());
    QCOMPARE(both.size(), 2);
    verifySet(both.at(0), text("TK_IPC"), theme("$word_tabbar2_select"));
    verifySet(both.at(1), text("TK_NVRAndDVR"), QColor("#2CACCE"));
    QCOMPARE(values(both.at(0)), (QList<double>{30, 0, 12, 0}));
    QCOMPARE(values(both.at(1)), (QList<double>{0, 7, 0, 5}));
    QCOMPARE(categories(chart.get()), (QStringList{"gate", "recorder", "hall", "store"}));
    verifyTopLegend(chart.get());
    QCOMPARE(legendTexts(chart.get()), (QStringList{text("TK_IPC"), text("TK_NVRAndDVR")}));
}

void BarChartsTest::valueGoesToTheSetOfTheDeviceType_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<double>("camera");
    QTest::addColumn<double>("recorder");
    QTest::addColumn<bool>("logged");

    QTest::newRow("a camera") << 1 << 9.0 << 0.0 << false;
    QTest::newRow("a recorder") << 2 << 0.0 << 9.0 << false;
    QTest::newRow("another recorder") << 3 << 0.0 << 9.0 << false;
    QTest::newRow("unknown kinds count as cameras") << 44 << 9.0 << 0.0 << true;
    QTest::newRow("so does type 0") << 0 << 9.0 << 0.0 << true;
    QTest::newRow("so does a negative type") << -1 << 9.0 << 0.0 << true;
}

void BarChartsTest::valueGoesToTheSetOfTheDeviceType()
{
    QFETCH(int, deviceType);
    for (const int type : {2, 4}) {
        ChartStage stage(type);
        stage.client.setRecorderTypes({2, 3});
        stage.page.barDataList = {{"device", 9}};
        stage.page.devTypeDataList = {{"device", deviceType}};
        LogCapture log;
        const OwnedChart chart(stage.page.createBarChart());
        QTEST(values(sets(chart.get()).at(0)).value(0, -1), "camera");
        QTEST(values(sets(chart.get()).at(1)).value(0, -1), "recorder");
        QTEST(log.containsStart("name"), "logged");
    }
}

void BarChartsTest::unknownDeviceTypeIsLogged()
{
    ChartStage stage(2);
    stage.client.setRecorderTypes({2});
    stage.page.barDataList = {{"a", 9}, {"b", 8}, {"c", 7}};
    stage.page.devTypeDataList = {{"a", 1}, {"b", 44}, {"c", 3}};
    LogCapture log;
    const OwnedChart chart(stage.page.createBarChart());
    QCOMPARE(log.lines(QtDebugMsg),
        (QStringList{"name 44", "name 3", "BasicChart::getMaxValue  9", "createBarChart"}));
}

void BarChartsTest::barWithoutDeviceTypeIsSkippedInBothSets()
{
    ChartStage stage(2);
    stage.client.setRecorderTypes({2});
    stage.page.barDataList = {{"a", 9}, {"missing", 400}, {"c", 7}};
    stage.page.devTypeDataList = {{"a", 1}, {"c", 2}};

    const OwnedChart chart(stage.page.createBarChart());
    QCOMPARE(values(sets(chart.get()).at(0)), (QList<double>{9, 0}));
    QCOMPARE(values(sets(chart.get()).at(1)), (QList<double>{0, 7}));
    QCOMPARE(categories(chart.get()), (QStringList{"a", "missing", "c"}));
    QCOMPARE(valueAxis(chart.get())->max(), 500.0);
}

void BarChartsTest::firstOfTwoEntriesDecidesTheDeviceType()
{
    ChartStage stage(4);
    stage.client.setRecorderTypes({2});
    stage.page.barDataList = {{"twin", 9}, {"twin", 7}};
    stage.page.devTypeDataList = {{"twin", 2}, {"twin", 1}};

    const OwnedChart chart(stage.page.createBarChart());
    QCOMPARE(values(sets(chart.get()).at(0)), (QList<double>{0, 0}));
    QCOMPARE(values(sets(chart.get()).at(1)), (QList<double>{9, 7}));
}

void BarChartsTest::deviceTypeIsFoundByExactComparison()
{
    ChartStage stage(2);
    stage.page.barDataList = {{"Gate", 9}, {"gate ", 8}, {"gat", 7}, {"gate", 6}};
    stage.page.devTypeDataList = {{"gate", 1}};

    const OwnedChart chart(stage.page.createBarChart());
    QCOMPARE(values(sets(chart.get()).at(0)), (QList<double>{6}));
}

void BarChartsTest::noDeviceTypeLeavesEmptySets()
{
    ChartStage stage(2);
    stage.page.barDataList = {{"a", 9}, {"b", 8}};

    const OwnedChart chart(stage.page.createBarChart());
    QCOMPARE(sets(chart.get()).size(), 2);
    QCOMPARE(sets(chart.get()).at(0)->count(), 0);
    QCOMPARE(sets(chart.get()).at(1)->count(), 0);
    QCOMPARE(categories(chart.get()), (QStringList{"a", "b"}));
}

void BarChartsTest::twoSetsSideBySide_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");

    QTest::newRow("traffics of organisations") << 7 << "TK_Vehicle"
                                               << "TK_Pedestrian";
    QTest::newRow("traffics of devices") << 8 << "TK_Vehicle"
                                         << "TK_Pedestrian";
    QTest::newRow("temperature of device groups") << 9 << "TK_AlarmAccepted"
                                                  << "TK_AlarmUnAccepted";
}

void BarChartsTest::twoSetsSideBySide()
{
    QFETCH(int, type);
    QFETCH(QString, first);
    QFETCH(QString, second);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", 30}, {"South", 7}};
    stage.page.barDataList2 = {{"North", 3}, {"South", 12}};

    const OwnedChart chart(stage.page.createDualBarChart());
    QCOMPARE(chart->series().size(), 1);
    QVERIFY(series<QBarSeries>(chart.get()));
    const QList<QBarSet *> both = sets(chart.get());
    QCOMPARE(both.size(), 2);
    verifySet(both.at(0), text(first), theme("$word_tabbar2_select"));
    verifySet(both.at(1), text(second), QColor("#2CACCE"));
    QCOMPARE(values(both.at(0)), (QList<double>{30, 7}));
    QCOMPARE(values(both.at(1)), (QList<double>{3, 12}));
    QCOMPARE(categories(chart.get()), (QStringList{"North", "South"}));
    verifyTopLegend(chart.get());
    QCOMPARE(legendTexts(chart.get()), (QStringList{text(first), text(second)}));
}

void BarChartsTest::barsOfBothSetsKnowTheirPositionAndTheFirstListsLabel()
{
    ChartStage stage(8);
    stage.page.barDataList = {{"North", 30}, {"South", 7}, {"North", 1}};
    stage.page.barDataList2 = {{"South", 12}, {"North", 3}, {"North", 2}};

    const OwnedChart chart(stage.page.createDualBarChart());
    QList<UserData *> all;
    for (QBarSet *set : sets(chart.get())) {
        for (int i = 0; i < 3; ++i) {
            UserData *data = userData(set, i);
            QVERIFY(data);
            QCOMPARE(data->index, i);
            QCOMPARE(data->label, stage.page.barDataList.at(i).first);
            QVERIFY(!all.contains(data));
            all.append(data);
        }
        QVERIFY(!userData(set, 3));
        QCOMPARE(set->dynamicPropertyNames().size(), 3);
        QCOMPARE(set->property("UserSelfData0").metaType(), QMetaType::fromType<UserData *>());
    }
}

void BarChartsTest::barsOfAnEarlierChartKeepWhatTheyKnow()
{
    ChartStage stage(9);
    stage.page.barDataList = {{"North", 30}, {"South", 7}};
    stage.page.barDataList2 = {{"North", 3}, {"South", 4}};
    const OwnedChart earlier(stage.page.createDualBarChart());
    const UserData *known = userData(sets(earlier.get()).at(1), 1);
    stage.page.barDataList = {{"East", 1}, {"West", 2}};
    stage.page.barDataList2 = {{"East", 3}, {"West", 5}};
    const OwnedChart later(stage.page.createDualBarChart());
    QCOMPARE(userData(sets(earlier.get()).at(1), 1), known);
    QCOMPARE(known->index, 1);
    QCOMPARE(known->label, QStringLiteral("South"));
}

void BarChartsTest::labelsTurnWhereTheyHaveNoRoom_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("upright");
    QTest::addColumn<bool>("lessened");
    QTest::newRow("few short names stay level in the usual font") << 3 << 4 << false << false;
    QTest::newRow("names that just do not fit are lessened") << 10 << 11 << false << true;
    QTest::newRow("many names stand upright") << 30 << 9 << true << false;
    QTest::newRow("a crowd stands upright in a lessened font") << 100 << 9 << true << true;
    QTest::newRow("endless names of few bars stay level, where they keep more") << 2 << 300 << false << true;
}

void BarChartsTest::labelsTurnWhereTheyHaveNoRoom()
{
    QFETCH(int, count);
    QFETCH(int, length);
    QFETCH(bool, upright);
    QFETCH(bool, lessened);
    ChartStage stage(1);
    for (int i = 0; i < count; ++i)
        stage.page.barDataList.append({QString(length, QLatin1Char('n')) + QString::number(i), 5});
    QChartView view(stage.page.createBarChart());
    const int usual = QFontInfo(categoryAxis(view.chart())->labelsFont()).pixelSize();
    view.resize(1000, 250);
    view.show();
    QCoreApplication::processEvents();
    const QBarCategoryAxis *axis = categoryAxis(view.chart());
    const int pixels = QFontInfo(axis->labelsFont()).pixelSize();
    QCOMPARE(axis->labelsAngle(), upright ? -90 : 0);
    QVERIFY2((pixels < usual) == lessened, qPrintable(QString::number(pixels)));
    QVERIFY2(pixels >= 9, qPrintable(QString::number(pixels)));
    if (length == 300)
        return;

    // Names that have room again in a page of another size stand level again.
    stage.page.resize(20000, 700);
    view.resize(20000, 250);
    QCoreApplication::processEvents();
    QCOMPARE(axis->labelsAngle(), 0);
    QCOMPARE(QFontInfo(axis->labelsFont()).pixelSize(), usual);
}

void BarChartsTest::secondListsLabelsAreNotUsed()
{
    ChartStage stage(7);
    stage.page.barDataList = {{"North", 30}};
    stage.page.barDataList2 = {{"elsewhere", 3}};

    const OwnedChart chart(stage.page.createDualBarChart());
    QCOMPARE(categories(chart.get()), (QStringList{"North"}));
    QCOMPARE(userData(sets(chart.get()).at(1), 0)->label, QStringLiteral("North"));
}

void BarChartsTest::emptySecondListLeavesTheSecondSetEmpty()
{
    ChartStage stage(9);
    stage.page.barDataList = {{"North", 30}};

    const OwnedChart chart(stage.page.createDualBarChart());
    QCOMPARE(sets(chart.get()).size(), 2);
    QCOMPARE(sets(chart.get()).at(1)->count(), 0);
    QVERIFY(!userData(sets(chart.get()).at(1), 0));
}

void BarChartsTest::longerSecondListIsSurvived()
{
    ChartStage stage(7);
    stage.page.barDataList = {{"North", 30}};
    stage.page.barDataList2 = {{"North", 3}, {"South", 77}, {"East", 5}};

    const OwnedChart chart(stage.page.createDualBarChart());
    QCOMPARE(values(sets(chart.get()).at(0)), (QList<double>{30}));
    QCOMPARE(values(sets(chart.get()).at(1)).value(0), 3.0);
    QCOMPARE(categories(chart.get()), (QStringList{"North"}));
    QCOMPARE(valueAxis(chart.get())->max(), 80.0);
}

void BarChartsTest::barWidth_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("width");

    for (const int type : {1, 2, 3, 4, 5, 6}) {
        QTest::addRow("type %d without bars", type) << type << 0 << 0.075;
        QTest::addRow("type %d with one bar", type) << type << 1 << 0.075;
        QTest::addRow("type %d with two bars", type) << type << 2 << 0.15;
        QTest::addRow("type %d with many bars", type) << type << 40 << 0.15;
    }
    for (const int type : {7, 8, 9}) {
        QTest::addRow("type %d without bars", type) << type << 0 << 0.15;
        QTest::addRow("type %d with one bar", type) << type << 1 << 0.15;
        QTest::addRow("type %d with two bars", type) << type << 2 << 0.15;
        QTest::addRow("type %d with many bars", type) << type << 40 << 0.15;
    }
}

void BarChartsTest::barWidth()
{
    QFETCH(int, type);
    QFETCH(int, count);
    ChartStage stage(type);
    stage.page.barDataList = bars(count);
    stage.page.barDataList2 = type >= 7 ? bars(count) : LabelledValues();
    for (int i = 0; i < count; ++i)
        stage.page.devTypeDataList.append({stage.page.barDataList.at(i).first, 1});

    const OwnedChart chart = build(stage.page, type);
    QTEST(static_cast<double>(series<QAbstractBarSeries>(chart.get())->barWidth()), "width");
}

void BarChartsTest::builderSetsTheBarTitleOnly_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("key");

    QTest::newRow("alarms of organisations") << 1 << "TK_AlarmStatisticsOfOrgas";
    QTest::newRow("alarms of devices") << 2 << "TK_AlarmStatisticsOfDevices";
    QTest::newRow("online of organisations") << 3 << "TK_OnlineStatisticsOfOrgas";
    QTest::newRow("online of devices") << 4 << "TK_OnlineStatisticsOfDevices";
    QTest::newRow("temperature of groups") << 5 << "TK_TemperatureStatisticsOfNum";
    QTest::newRow("temperature of persons") << 6 << "TK_TemperatureStatisticsOfPersons";
    QTest::newRow("traffics of organisations") << 7 << "TK_TrafficsStatisticsOfDevices";
    QTest::newRow("traffics of devices") << 8 << "TK_TrafficsStatisticsOfDevices";
    QTest::newRow("temperature of device groups") << 9 << "TK_TemperatureStatisticsOfDevGroups";
}

void BarChartsTest::builderSetsTheBarTitleOnly()
{
    QFETCH(int, type);
    QFETCH(QString, key);
    ChartStage stage(type);
    for (const char *label : {"labelBarChartTitle", "labelLineChartTitle", "labelPieChartTitle"})
        stage.page.part<QLabel>(label)->setText("before");
    stage.page.m_strSelectedBar = "selected";

    const OwnedChart chart = build(stage.page, type);
    QCOMPARE(stage.titleText("labelBarChartTitle"), barTitle(text(key)));
    QCOMPARE(stage.titleText("labelLineChartTitle"), QStringLiteral("before"));
    QCOMPARE(stage.titleText("labelPieChartTitle"), QStringLiteral("before"));
    QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("selected"));
}

void BarChartsTest::axesAndMargins_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("bound");

    for (const int type : {1, 2, 3, 4})
        QTest::addRow("service type %d goes by hundreds", type) << type << 200.0;
    for (const int type : {5, 6, 7, 8, 9})
        QTest::addRow("service type %d goes by the leading digit", type) << type << 40.0;
}

void BarChartsTest::axesAndMargins()
{
    QFETCH(int, type);
    QFETCH(double, bound);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", type <= 4 ? 100 : 37}, {"South", 7}};
    stage.page.devTypeDataList = {{"North", 1}, {"South", 2}};
    if (type >= 7)
        stage.page.barDataList2 = {{"North", 3}, {"South", 12}};

    const OwnedChart chart = build(stage.page, type);
    verifyAxes(chart.get(), bound);
    verifyNoMargins(chart.get());
    QVERIFY(chart->title().isEmpty());
}

void BarChartsTest::boundCoversBothLists_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<double>("bound");

    QTest::newRow("hundreds, the first list is higher") << 1 << 450 << 120 << 500.0;
    QTest::newRow("hundreds, the second list is higher") << 1 << 3 << 950 << 1000.0;
    QTest::newRow("hundreds on stacked sets") << 2 << 3 << 950 << 1000.0;
    QTest::newRow("hundreds, nothing counted") << 3 << 0 << 0 << 100.0;
    QTest::newRow("hundreds, an exact hundred") << 4 << 100 << 0 << 200.0;
    QTest::newRow("digits, the second list is higher") << 5 << 3 << 37 << 40.0;
    QTest::newRow("digits of persons, nothing counted") << 6 << 0 << -4 << 5.0;
    QTest::newRow("digits, the first list is higher") << 7 << 999 << 120 << 1000.0;
    QTest::newRow("digits, the second list of a dual chart is higher") << 8 << 120 << 1000 << 2000.0;
    QTest::newRow("digits, all below zero") << 9 << -3 << -8 << 5.0;
    QTest::newRow("hundreds up to the largest int")
        << 1 << std::numeric_limits<int>::max() << 0 << 2147483700.0;
    QTest::newRow("digits up to the largest int")
        << 7 << 0 << std::numeric_limits<int>::max() << 3000000000.0;
}

void BarChartsTest::boundCoversBothLists()
{
    QFETCH(int, type);
    QFETCH(int, first);
    QFETCH(int, second);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", first}};
    stage.page.barDataList2 = {{"North", second}};
    stage.page.devTypeDataList = {{"North", 1}};

    const OwnedChart chart = build(stage.page, type);
    QCOMPARE(valueAxis(chart.get())->min(), 0.0);
    QTEST(static_cast<double>(valueAxis(chart.get())->max()), "bound");
}

void BarChartsTest::emptyListsGiveAnEmptyChart_data()
{
    kinds({1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void BarChartsTest::emptyListsGiveAnEmptyChart()
{
    QFETCH(int, type);
    ChartStage stage(type);

    const OwnedChart chart = build(stage.page, type);
    QCOMPARE(chart->series().size(), 1);
    QCOMPARE(sets(chart.get()).size(), type == 2 || type == 4 || type >= 7 ? 2 : 1);
    for (QBarSet *set : sets(chart.get()))
        QCOMPARE(set->count(), 0);
    QCOMPARE(categories(chart.get()), QStringList());
    if (sets(chart.get()).size() == 2)
        verifyTopLegend(chart.get());
    verifyAxes(chart.get(), type <= 4 ? 100.0 : 5.0);
    verifyNoMargins(chart.get());
}

void BarChartsTest::withoutBarsTheSecondListBoundsTheAxis_data()
{
    kinds({1, 2, 3, 4, 5, 6});
}

void BarChartsTest::withoutBarsTheSecondListBoundsTheAxis()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.barDataList2 = {{"North", 12}, {"South", 345}};

    const OwnedChart chart = build(stage.page, type);
    QCOMPARE(categories(chart.get()), QStringList());
    verifyAxes(chart.get(), 400.0);
}

void BarChartsTest::logLines_data()
{
    kinds({1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void BarChartsTest::logLines()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", 12}, {"South", 7}};
    stage.page.devTypeDataList = {{"North", 1}, {"South", 1}};
    if (type >= 7)
        stage.page.barDataList2 = {{"North", 3}, {"South", 19}};

    LogCapture log;
    const OwnedChart chart = build(stage.page, type);
    const QString maximum = type >= 7 ? QStringLiteral("19") : QStringLiteral("12");
    QCOMPARE(log.lines(), (QStringList{"BasicChart::getMaxValue  " + maximum, "createBarChart"}));
}

void BarChartsTest::listsAreNotChanged_data()
{
    kinds({1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void BarChartsTest::listsAreNotChanged()
{
    QFETCH(int, type);
    ChartStage stage(type);
    const LabelledValues first = {{"North", 12}, {QString(), 70}, {"North", 3}};
    const LabelledValues second = {{"b", 4}, {"a", 9}, {"c", 9}};
    const LabelledValues kindsOfDevices = {{"North", 1}, {"South", 2}};
    stage.page.barDataList = first;
    stage.page.barDataList2 = second;
    stage.page.devTypeDataList = kindsOfDevices;

    const OwnedChart chart = build(stage.page, type);
    QCOMPARE(stage.page.barDataList, first);
    QVERIFY(stage.page.barDataList.at(1).first.isNull());
    QCOMPARE(stage.page.barDataList2, second);
    QCOMPARE(stage.page.devTypeDataList, kindsOfDevices);
}

void BarChartsTest::eachCallMakesANewChartThatOwnsAllItsParts_data()
{
    kinds({1, 2, 9});
}

void BarChartsTest::eachCallMakesANewChartThatOwnsAllItsParts()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", 12}, {"South", 7}};
    stage.page.barDataList2 = {{"North", 3}, {"South", 19}};
    stage.page.devTypeDataList = {{"North", 1}, {"South", 1}};

    OwnedChart chart = build(stage.page, type);
    const OwnedChart other = build(stage.page, type);
    QVERIFY(chart != other);
    QVERIFY(!chart->parent());
    QVERIFY(!chart->parentItem());
    QVERIFY(!chart->scene());

    QList<QPointer<QObject>> parts = {
        categoryAxis(chart.get()), valueAxis(chart.get()), series<QAbstractSeries>(chart.get())};
    for (QBarSet *set : sets(chart.get()))
        parts.append(set);
    chart.reset();
    for (const QPointer<QObject> &part : parts)
        QVERIFY(part.isNull());
    QCOMPARE(sets(other.get()).constFirst()->count(), 2);
}

void BarChartsTest::everyBarHasItsOwnCategory_data()
{
    QTest::addColumn<QStringList>("names");

    QTest::newRow("two bars of one name") << QStringList{"Gate", "Gate"};
    QTest::newRow("three of one name among others") << QStringList{"Gate", "Hall", "Gate", "Yard", "Gate"};
    QTest::newRow("two pairs") << QStringList{"Gate", "Hall", "Hall", "Gate"};
    QTest::newRow("an empty name") << QStringList{"Gate", "", "Hall"};
    QTest::newRow("a null name") << QStringList{"Gate", QString(), "Hall"};
    QTest::newRow("null and empty names together") << QStringList{QString(), "", QString(), "Hall", ""};
    QTest::newRow("names that bear invisible marks themselves")
        << QStringList{"Gate", QStringLiteral("Gate\u200B"), "Gate", QStringLiteral("Gate\u200B\u200B"),
               QStringLiteral("Gate\u2060"), "Gate"};
    QTest::newRow("names that differ in blanks") << QStringList{"Gate", "Gate ", " Gate", "Gate"};
}

void BarChartsTest::everyBarHasItsOwnCategory()
{
    QFETCH(QStringList, names);
    QStringList shown;
    for (const QString &name : names)
        shown.append(seen(name));
    for (int type = 1; type <= 9; ++type) {
        ChartStage stage(type);
        int value = 10;
        for (const QString &name : names) {
            stage.page.barDataList.append({name, ++value});
            stage.page.barDataList2.append({name, 1});
            stage.page.devTypeDataList.append({name, 1});
        }
        const OwnedChart chart = build(stage.page, type);
        QCOMPARE(categoryAxis(chart.get())->count(), names.size());
        QCOMPARE(seen(categories(chart.get())), shown);
        QCOMPARE(
            categories(chart.get()).value(0), names.constFirst().isNull() ? QString("") : names.constFirst());
        QCOMPARE(sets(chart.get()).constFirst()->count(), names.size());
        QCOMPARE(categoryAxis(chart.get())->min(), categories(chart.get()).constFirst());
        QCOMPARE(categoryAxis(chart.get())->max(), categories(chart.get()).constLast());
    }
}

void BarChartsTest::labelsAreShownToTheLetter_data()
{
    trickyNameRows();
}

void BarChartsTest::labelsAreShownToTheLetter()
{
    QFETCH(QString, name);
    for (const int type : {1, 2, 7}) {
        ChartStage stage(type);
        stage.page.barDataList = {{name, 3}, {"other", 2}};
        stage.page.barDataList2 = {{name, 3}, {"other", 2}};
        stage.page.devTypeDataList = {{name, 1}, {"other", 1}};
        const OwnedChart chart = build(stage.page, type);
        QCOMPARE(plainText(categories(chart.get()).at(0)).simplified(), name.simplified());
        QCOMPARE(categories(chart.get()).at(1), QStringLiteral("other"));
        if (type == 7)
            QCOMPARE(userData(sets(chart.get()).at(1), 0)->label, name);
    }
}

void BarChartsTest::aNameThatNoLayoutTakesGetsPainted_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("a picture wider than a layout can count") << "<img src=\"x\" width=9999999>";
    QTest::newRow("three hundred thousand characters") << QString(300000, 'x');
}

void BarChartsTest::aNameThatNoLayoutTakesGetsPainted()
{
    QFETCH(QString, name);
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.barDataList = {{name, 3}, {"other", 2}};
    stage.page.lineDataList = {{name, 3}, {"other", 2}};
    stage.page.pieDataList = {{name, 3}, {"other", 2}};
    stage.page.loadChart();
    QCOMPARE(stage.page.m_strSelectedBar, name);
    stage.page.slotBarSelected(true, 0, sets(stage.page.barChartView->chart()).constFirst());
    QVERIFY(!stage.page.grab().isNull());
    QVERIFY(stage.page.labelCallout->text().size() < 2000);
}

void BarChartsTest::barsOfOneNameAreHoveredEachInItsPlace()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.barDataList = {{"Gate", 90}, {"Gate", 60}, {QString(), 70}, {"Gate", 80}};
    stage.page.loadChart();
    waitForAnimation();

    ZrChartView *view = stage.page.barChartView;
    for (int i = 0; i < 4; ++i) {
        moveAway(view);
        LogCapture log;
        moveTo(view, middleOfBar(view->chart(), i, 0, stage.page.barDataList.at(i).second));
        QCOMPARE(log.lines(QtDebugMsg),
            (QStringList{QStringLiteral("BasicChart::slotBarSelected index  %1 size 4").arg(i)}));
        QCOMPARE(stage.page.labelCallout->text(),
            callout("2024-05-01~2024-05-03", stage.page.barDataList.at(i).first,
                QString::number(stage.page.barDataList.at(i).second)));
    }
}

void BarChartsTest::dualBarsOfOneNameAreHoveredEachInItsPlace()
{
    ChartStage stage(7, ChartStage::OnScreen);
    stage.page.barDataList = {{"Gate", 9}, {"Gate", 6}, {"Gate", 8}};
    stage.page.barDataList2 = {{"Gate", 5}, {"Gate", 7}, {"Gate", 4}};
    stage.page.loadChart();
    waitForAnimation();

    ZrChartView *view = stage.page.barChartView;
    QChart *chart = view->chart();
    const double column = chart->mapToPosition(QPointF(1, 0), chart->series().constFirst()).x()
        - chart->mapToPosition(QPointF(0, 0), chart->series().constFirst()).x();
    for (int i = 0; i < 3; ++i) {
        for (int set = 0; set < 2; ++set) {
            const double value =
                set == 0 ? stage.page.barDataList.at(i).second : stage.page.barDataList2.at(i).second;
            moveAway(view);
            LogCapture log;
            moveTo(
                view, middleOfBar(chart, i, 0, value) + QPointF(column * 0.075 / 2 * (set == 0 ? -1 : 1), 0));
            QCOMPARE(log.lines(QtDebugMsg),
                (QStringList{QStringLiteral("BasicChart::slotBarSelected index  %1 size 3").arg(i)}));
            QCOMPARE(stage.page.labelCallout->text(),
                callout("2024-05-01~2024-05-03", text(set == 0 ? "TK_Vehicle" : "TK_Pedestrian"),
                    QString::number(value)));
        }
    }
}

void BarChartsTest::hoveringReachesTheSlot_data()
{
    kinds({1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void BarChartsTest::hoveringReachesTheSlot()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", 12}, {"South", 7}};
    stage.page.barDataList2 = {{"North", 3}, {"South", 19}};
    stage.page.devTypeDataList = {{"North", 1}, {"South", 1}};

    const OwnedChart chart = build(stage.page, type);
    LogCapture log;
    Q_EMIT series<QAbstractBarSeries>(chart.get())->hovered(true, 1, sets(chart.get()).constFirst());
    QCOMPARE(log.lines(QtDebugMsg), (QStringList{"BasicChart::slotBarSelected index  1 size 2"}));
}

void BarChartsTest::hoveredBarOfTheSecondSetSelectsByTheFirstListsLabel()
{
    ChartStage stage(9);
    stage.page.barDataList = {{"North", 12}, {"South", 7}};
    stage.page.barDataList2 = {{"one", 3}, {"two", 19}};

    const OwnedChart chart(stage.page.createDualBarChart());
    Q_EMIT series<QAbstractBarSeries>(chart.get())->hovered(true, 1, sets(chart.get()).at(1));
    QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("South"));
    QVERIFY(stage.page.m_pTimer->isActive());
    QCOMPARE(stage.page.m_pTimer->interval(), 800);
    QCOMPARE(
        stage.page.labelCallout->text(), callout("2024-05-01~2024-05-03", text("TK_AlarmUnAccepted"), "19"));
}

void BarChartsTest::barsCarryNoValueLabels_data()
{
    kinds({1, 2, 7});
}

void BarChartsTest::barsCarryNoValueLabels()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", 12}};
    const OwnedChart chart = build(stage.page, type);
    QVERIFY(!series<QAbstractBarSeries>(chart.get())->isLabelsVisible());
}

void BarChartsTest::extremeValuesAreDrawn_data()
{
    kinds({1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void BarChartsTest::extremeValuesAreDrawn()
{
    QFETCH(int, type);
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.barDataList = {{"most", most}, {"least", least}, {"minus", -1}, {"none", 0}};
    stage.page.devTypeDataList = {{"most", 1}, {"least", 2}, {"minus", 3}, {"none", 1}};
    if (type >= 7)
        stage.page.barDataList2 = {{"most", least}, {"least", most}, {"minus", 0}, {"none", -7}};

    stage.page.loadChart();
    const QChart *chart = stage.page.barChartView->chart();
    if (type == 2 || type == 4) {
        QCOMPARE(values(sets(chart).at(0)), (QList<double>{most, 0, 0, 0}));
        QCOMPARE(values(sets(chart).at(1)), (QList<double>{0, least, -1, 0}));
    } else {
        QCOMPARE(values(sets(chart).at(0)), (QList<double>{most, least, -1, 0}));
    }
    QCOMPARE(valueAxis(chart)->max(), type <= 4 ? 2147483700.0 : 3000000000.0);
    QVERIFY(!stage.page.grab().isNull());

    for (LabelledValues *list : {&stage.page.barDataList, &stage.page.barDataList2}) {
        for (auto &entry : *list)
            entry.second = least;
    }
    stage.page.loadChart();
    QVERIFY(!stage.page.grab().isNull());
    QCOMPARE(values(sets(stage.page.barChartView->chart()).at(0)).constFirst(), double(least));
}

void BarChartsTest::fiveThousandBars_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("oneName");

    QTest::newRow("of different names in one set") << 1 << false;
    QTest::newRow("of different names in two stacked sets") << 2 << false;
    QTest::newRow("of different names in two sets") << 8 << false;
    QTest::newRow("of one name in one set") << 1 << true;
    QTest::newRow("of one name in two sets") << 8 << true;
}

void BarChartsTest::fiveThousandBars()
{
    QFETCH(int, type);
    QFETCH(bool, oneName);
    constexpr int count = 5000;
    ChartStage stage(type);
    stage.page.barDataList = bars(count);
    if (oneName) {
        for (auto &entry : stage.page.barDataList)
            entry.first = "Gate";
    }
    if (type == 8)
        stage.page.barDataList2 = stage.page.barDataList;
    for (const auto &entry : std::as_const(stage.page.barDataList))
        stage.page.devTypeDataList.append({entry.first, 1});

    const OwnedChart chart = build(stage.page, type);
    QCOMPARE(categoryAxis(chart.get())->count(), count);
    for (QBarSet *set : sets(chart.get())) {
        QCOMPARE(set->count(), count);
        if (type == 8) {
            QCOMPARE(userData(set, count - 1)->index, count - 1);
            QCOMPARE(userData(set, count - 1)->label, stage.page.barDataList.constLast().first);
        }
    }
    QCOMPARE(seen(categories(chart.get()).constLast()), stage.page.barDataList.constLast().first);
    QCOMPARE(valueAxis(chart.get())->max(), type == 8 ? 6000.0 : 5100.0);
}

void BarChartsTest::fiveThousandBarsAreShownAndReplaced()
{
    ChartStage stage(8, ChartStage::OnScreen);
    stage.page.barDataList = bars(5000);
    stage.page.barDataList2 = bars(5000);
    stage.load();
    QVERIFY(!stage.page.grab().isNull());
    const QPointer<QChart> first = stage.page.barChartView->chart();
    QCOMPARE(sets(first).at(1)->count(), 5000);
    stage.load();
    QVERIFY(!stage.page.grab().isNull());
    runDeferredDeletes();
    QVERIFY(first.isNull());
    QCOMPARE(sets(stage.page.barChartView->chart()).at(1)->count(), 5000);
}

void BarChartsTest::textsFollowTheLanguage()
{
    QVERIFY(HostSettings::setLanguage("en"));
    const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
    QVERIFY(text("TK_NVRAndDVR") != QStringLiteral("TK_NVRAndDVR"));
    ChartStage devices(4);
    ChartStage traffics(7);
    ChartStage groups(9);
    const OwnedChart stacked(devices.page.createBarChart());
    QCOMPARE(sets(stacked.get()).at(0)->label(), text("TK_IPC"));
    QCOMPARE(sets(stacked.get()).at(1)->label(), text("TK_NVRAndDVR"));
    const OwnedChart vehicles(traffics.page.createDualBarChart());
    QCOMPARE(sets(vehicles.get()).at(0)->label(), text("TK_Vehicle"));
    QCOMPARE(sets(vehicles.get()).at(1)->label(), text("TK_Pedestrian"));
    const OwnedChart accepted(groups.page.createDualBarChart());
    QCOMPARE(sets(accepted.get()).at(0)->label(), text("TK_AlarmAccepted"));
    QCOMPARE(sets(accepted.get()).at(1)->label(), text("TK_AlarmUnAccepted"));
    QCOMPARE(traffics.titleText("labelBarChartTitle"), barTitle(text("TK_TrafficsStatisticsOfDevices")));
}

TALVIX_TEST_MAIN(BarChartsTest)

#include "tst_bar_charts.moc"
