#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <devhost/widgets/HostSettings.h>

#include <limits>

using namespace ChartProbe;

class LineChartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneLine_data();
    void oneLine();
    void twoLines_data();
    void twoLines();
    void lineLook_data();
    void lineLook();
    void legendStandsOnTop_data();
    void legendStandsOnTop();
    void axesAndMargins_data();
    void axesAndMargins();
    void bound_data();
    void bound();
    void singleLineIgnoresTheSecondList();
    void hourLabelsShowTheHour_data();
    void hourLabelsShowTheHour();
    void categoriesComeFromTheFirstListAlone();
    void secondLineMayBeLongerOrShorter();
    void everyPointHasItsOwnCategory_data();
    void everyPointHasItsOwnCategory();
    void emptyListsGiveAnEmptyChart_data();
    void emptyListsGiveAnEmptyChart();
    void missingLineNamesAreSurvived_data();
    void missingLineNamesAreSurvived();
    void nameIsTakenWhenTheChartIsBuilt();
    void namesAreShownToTheLetter_data();
    void namesAreShownToTheLetter();
    void legendShowsNamesToTheLetter_data();
    void legendShowsNamesToTheLetter();
    void builderSetsTheLineTitleOnly_data();
    void builderSetsTheLineTitleOnly();
    void logLines_data();
    void logLines();
    void nothingOfThePageIsChanged_data();
    void nothingOfThePageIsChanged();
    void eachCallMakesANewChartThatOwnsAllItsParts_data();
    void eachCallMakesANewChartThatOwnsAllItsParts();
    void hoveringReachesTheSlot_data();
    void hoveringReachesTheSlot();
    void bothLinesOfDevicesThatSawNothing();
    void extremeValuesAreDrawn_data();
    void extremeValuesAreDrawn();
    void fiveThousandPoints_data();
    void fiveThousandPoints();
    void namesFollowTheLanguage();

private:
    static bool isDual(int type) { return type >= 7 && type <= 9; }
    static OwnedChart build(ProbePage &page)
    {
        return OwnedChart(isDual(page.m_serviceType) ? page.createDualLineChart() : page.createLineChart());
    }
    static void kinds(const QList<int> &types)
    {
        QTest::addColumn<int>("type");
        for (const int type : types)
            QTest::addRow("service type %d", type) << type;
    }
    static QLineSeries *line(const OwnedChart &chart, int index = 0)
    {
        return series<QLineSeries>(chart.get(), index);
    }
};

static const LabelledValues days = {{"2024-05-01", 30}, {"2024-05-02", 7}, {"2024-05-03", 12}};
static const LabelledValues otherDays = {{"2024-05-01", 3}, {"2024-05-02", 41}, {"2024-05-03", 0}};

void LineChartsTest::oneLine_data()
{
    kinds({1, 2, 3, 4, 5, 6, 0, 10});
}

void LineChartsTest::oneLine()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.m_nTimeType = 2;
    stage.page.m_strSelectedBar = "North";
    stage.page.lineDataList = days;
    stage.page.lineDataList2 = otherDays;

    const OwnedChart chart(stage.page.createLineChart());
    QCOMPARE(chart->series().size(), 1);
    QVERIFY(line(chart));
    QCOMPARE(line(chart)->objectName(), QString());
    QCOMPARE(line(chart)->name(), QStringLiteral("North"));
    QCOMPARE(line(chart)->points(), (QList<QPointF>{{0, 30}, {1, 7}, {2, 12}}));
    QCOMPARE(line(chart)->pen().color(), theme("$word_color_4"));
    QCOMPARE(line(chart)->pointLabelsColor(), QColor(157, 172, 253, 255));
    QCOMPARE(categories(chart.get()), (QStringList{"2024-05-01", "2024-05-02", "2024-05-03"}));
}

void LineChartsTest::twoLines_data()
{
    kinds({7, 8, 9});
}

void LineChartsTest::twoLines()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.m_nTimeType = 2;
    stage.page.m_strSelectedBar = "North";
    stage.page.lineNames = QStringList{"first", "second", "third"};
    stage.page.lineDataList = days;
    stage.page.lineDataList2 = otherDays;

    const OwnedChart chart(stage.page.createDualLineChart());
    QCOMPARE(chart->series().size(), 2);
    QVERIFY(line(chart, 0));
    QVERIFY(line(chart, 1));

    QCOMPARE(line(chart, 0)->objectName(), QStringLiteral("Line1"));
    QCOMPARE(line(chart, 0)->name(), QStringLiteral("first"));
    QCOMPARE(line(chart, 0)->points(), (QList<QPointF>{{0, 30}, {1, 7}, {2, 12}}));
    QCOMPARE(line(chart, 0)->pen().color(), theme("$word_color_4"));
    QCOMPARE(line(chart, 0)->pointLabelsColor(), QColor(157, 172, 253, 255));

    QCOMPARE(line(chart, 1)->objectName(), QStringLiteral("Line2"));
    QCOMPARE(line(chart, 1)->name(), QStringLiteral("second"));
    QCOMPARE(line(chart, 1)->points(), (QList<QPointF>{{0, 3}, {1, 41}, {2, 0}}));
    QCOMPARE(line(chart, 1)->pen().color(), QColor("#2CACCE"));
    QCOMPARE(line(chart, 1)->pointLabelsColor(), QColor("#2CACCE"));

    QCOMPARE(categories(chart.get()), (QStringList{"2024-05-01", "2024-05-02", "2024-05-03"}));
}

void LineChartsTest::lineLook_data()
{
    kinds({1, 6, 7, 9});
}

void LineChartsTest::lineLook()
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

void LineChartsTest::legendStandsOnTop_data()
{
    kinds({1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void LineChartsTest::legendStandsOnTop()
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

void LineChartsTest::axesAndMargins_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("bound");

    for (const int type : {1, 2, 3, 4})
        QTest::addRow("service type %d goes by hundreds", type) << type << 200.0;
    for (const int type : {5, 6, 7, 8, 9})
        QTest::addRow("service type %d goes by the leading digit", type) << type << 40.0;
}

void LineChartsTest::axesAndMargins()
{
    QFETCH(int, type);
    QFETCH(double, bound);
    ChartStage stage(type);
    stage.page.m_nTimeType = 2;
    stage.page.lineDataList = {{"2024-05-01", type <= 4 ? 100 : 37}, {"2024-05-02", 7}};
    if (isDual(type))
        stage.page.lineDataList2 = {{"2024-05-01", 3}, {"2024-05-02", 12}};

    const OwnedChart chart = build(stage.page);
    verifyAxes(chart.get(), bound);
    verifyNoMargins(chart.get());
    QVERIFY(chart->title().isEmpty());
}

void LineChartsTest::bound_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<double>("expected");

    QTest::newRow("hundreds, nothing counted") << 1 << 0 << 0 << 100.0;
    QTest::newRow("hundreds, an exact hundred") << 2 << 100 << 0 << 200.0;
    QTest::newRow("hundreds up to the largest int")
        << 3 << std::numeric_limits<int>::max() << 0 << 2147483700.0;
    QTest::newRow("digits of groups, nothing counted") << 5 << 0 << 0 << 5.0;
    QTest::newRow("digits of persons, below zero") << 6 << -9 << 0 << 5.0;
    QTest::newRow("digits, the first line is higher") << 7 << 999 << 30 << 1000.0;
    QTest::newRow("digits, the second line is higher") << 8 << 30 << 1000 << 2000.0;
    QTest::newRow("digits, the larger of two below zero") << 9 << -30 << -1 << 5.0;
    QTest::newRow("digits up to the largest int")
        << 9 << 4 << std::numeric_limits<int>::max() << 3000000000.0;
}

void LineChartsTest::bound()
{
    QFETCH(int, type);
    QFETCH(int, first);
    QFETCH(int, second);
    ChartStage stage(type);
    stage.page.lineDataList = {{"2024-05-01", first}};
    stage.page.lineDataList2 = {{"2024-05-01", second}};
    const OwnedChart chart = build(stage.page);
    QCOMPARE(valueAxis(chart.get())->min(), 0.0);
    QTEST(static_cast<double>(valueAxis(chart.get())->max()), "expected");
}

void LineChartsTest::singleLineIgnoresTheSecondList()
{
    ChartStage stage(1);
    stage.page.lineDataList = {{"2024-05-01", 3}};
    stage.page.lineDataList2 = {{"2024-05-01", 950}, {"2024-05-02", 1}};
    const OwnedChart chart(stage.page.createLineChart());
    QCOMPARE(valueAxis(chart.get())->max(), 100.0);
    QCOMPARE(categories(chart.get()), QStringList{"2024-05-01"});
}

void LineChartsTest::hourLabelsShowTheHour_data()
{
    QTest::addColumn<int>("timeType");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("shown");

    QTest::newRow("an hour") << 3 << "2024-05-03 17"
                             << "17";
    QTest::newRow("midnight") << 3 << "2024-05-03 00"
                              << "00";
    QTest::newRow("two characters of a longer label") << 3 << "2024-05-03 17:20:30"
                                                      << "17";
    QTest::newRow("thirteen characters of any kind") << 3 << "abcdefghijklm"
                                                     << "lm";
    QTest::newRow("twelve characters stay whole") << 3 << "abcdefghijkl"
                                                  << "abcdefghijkl";
    QTest::newRow("a day by hours stays whole") << 3 << "2024-05-03"
                                                << "2024-05-03";
    QTest::newRow("an empty label by hours") << 3 << ""
                                             << "";
    QTest::newRow("a day") << 2 << "2024-05-03"
                           << "2024-05-03";
    QTest::newRow("an hour by days stays whole") << 2 << "2024-05-03 17"
                                                 << "2024-05-03 17";
    QTest::newRow("a month") << 1 << "2024-05"
                             << "2024-05";
    QTest::newRow("an hour by months stays whole") << 1 << "2024-05-03 17"
                                                   << "2024-05-03 17";
    QTest::newRow("an hour by no known unit stays whole") << 0 << "2024-05-03 17"
                                                          << "2024-05-03 17";
}

void LineChartsTest::hourLabelsShowTheHour()
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

void LineChartsTest::categoriesComeFromTheFirstListAlone()
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

void LineChartsTest::secondLineMayBeLongerOrShorter()
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

void LineChartsTest::everyPointHasItsOwnCategory_data()
{
    QTest::addColumn<int>("timeType");
    QTest::addColumn<QStringList>("labels");
    QTest::addColumn<QStringList>("shown");

    QTest::newRow("one hour of two days")
        << 3 << QStringList{"2024-05-02 17", "2024-05-03 16", "2024-05-03 17"}
        << QStringList{"17", "16", "17"};
    QTest::newRow("null and empty labels")
        << 2 << QStringList{QString(), "2024-05-02", "", QString()} << QStringList{"", "2024-05-02", "", ""};
}

void LineChartsTest::everyPointHasItsOwnCategory()
{
    QFETCH(int, timeType);
    QFETCH(QStringList, labels);
    QFETCH(QStringList, shown);
    for (const int type : {2, 6, 8}) {
        ChartStage stage(type);
        stage.page.m_nTimeType = timeType;
        for (const QString &label : labels) {
            stage.page.lineDataList.append({label, 1});
            stage.page.lineDataList2.append({label, 1});
        }
        const OwnedChart chart = build(stage.page);
        QCOMPARE(seen(categories(chart.get())), shown);
        QCOMPARE(line(chart)->count(), labels.size());
    }
}

void LineChartsTest::emptyListsGiveAnEmptyChart_data()
{
    kinds({1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void LineChartsTest::emptyListsGiveAnEmptyChart()
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

void LineChartsTest::missingLineNamesAreSurvived_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("first");

    QTest::newRow("no name") << QStringList() << QString();
    QTest::newRow("one name") << QStringList{"first"} << "first";
}

void LineChartsTest::missingLineNamesAreSurvived()
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

void LineChartsTest::nameIsTakenWhenTheChartIsBuilt()
{
    ChartStage stage(1);
    stage.page.m_strSelectedBar = "North";
    stage.page.lineDataList = days;
    const OwnedChart before(stage.page.createLineChart());
    stage.page.m_strSelectedBar = "South";
    QCOMPARE(line(before)->name(), QStringLiteral("North"));
    const OwnedChart after(stage.page.createLineChart());
    QCOMPARE(line(after)->name(), QStringLiteral("South"));
    QCOMPARE(after->legend()->markers().constFirst()->label(), QStringLiteral("South"));
}

void LineChartsTest::namesAreShownToTheLetter_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
    QTest::newRow("markup") << "<b>Gate</b> & Hall";
    QTest::newRow("place markers") << "%1 %2 100%";
    QTest::newRow("two hundred characters") << QString(200, 'x');
}

void LineChartsTest::namesAreShownToTheLetter()
{
    QFETCH(QString, name);
    ChartStage stage(1);
    stage.page.m_strSelectedBar = name;
    stage.page.lineDataList = days;
    const OwnedChart chart(stage.page.createLineChart());
    QCOMPARE(line(chart)->name(), name);
}

void LineChartsTest::legendShowsNamesToTheLetter_data()
{
    trickyNameRows();
}

void LineChartsTest::legendShowsNamesToTheLetter()
{
    QFETCH(QString, name);
    ChartStage stage(1);
    stage.page.m_strSelectedBar = name;
    stage.page.lineDataList = days;
    const OwnedChart chart(stage.page.createLineChart());
    QCOMPARE(plainText(chart->legend()->markers().constFirst()->label()).simplified(), name.simplified());
    QCOMPARE(line(chart)->name(), name);
}

void LineChartsTest::builderSetsTheLineTitleOnly_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("key");

    QTest::newRow("alarms of organisations") << 1 << "TK_AlarmStatisticsOfNum";
    QTest::newRow("alarms of devices") << 2 << "TK_AlarmStatisticsOfNum";
    QTest::newRow("online of organisations") << 3 << "TK_OnlineStatisticsOfNum";
    QTest::newRow("online of devices") << 4 << "TK_OnlineStatisticsOfNum";
    QTest::newRow("temperature of groups") << 5 << "TK_TemperatureStatisticsOfNum";
    QTest::newRow("temperature of persons") << 6 << "TK_TemperatureStatisticsOfNum";
    QTest::newRow("traffics of organisations") << 7 << "TK_TrafficsStatisticsOfNum";
    QTest::newRow("traffics of devices") << 8 << "TK_TrafficsStatisticsOfNum";
    QTest::newRow("temperature of device groups") << 9 << "TK_TemperatureStatisticsOfNum";
}

void LineChartsTest::builderSetsTheLineTitleOnly()
{
    QFETCH(int, type);
    QFETCH(QString, key);
    ChartStage stage(type);
    for (const char *label : {"labelBarChartTitle", "labelLineChartTitle", "labelPieChartTitle"})
        stage.page.part<QLabel>(label)->setText("before");
    stage.page.m_nTimeType = 2;
    stage.page.m_strSelectedBar = "North";

    const OwnedChart chart = build(stage.page);
    QCOMPARE(stage.titleText("labelBarChartTitle"), QStringLiteral("before"));
    QCOMPARE(stage.titleText("labelLineChartTitle"),
        detailTitle("2024-05-01~2024-05-03", "North", text("TK_Day"), text(key)));
    QCOMPARE(stage.titleText("labelPieChartTitle"), QStringLiteral("before"));
}

void LineChartsTest::logLines_data()
{
    kinds({1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void LineChartsTest::logLines()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.lineDataList = days;
    stage.page.lineDataList2 = otherDays;
    LogCapture log;
    const OwnedChart chart = build(stage.page);
    const QString maximum = isDual(type) ? QStringLiteral("41") : QStringLiteral("30");
    QCOMPARE(log.lines(), (QStringList{"BasicChart::getMaxValue  " + maximum, "createLineChart"}));
}

void LineChartsTest::nothingOfThePageIsChanged_data()
{
    kinds({1, 7});
}

void LineChartsTest::nothingOfThePageIsChanged()
{
    QFETCH(int, type);
    ChartStage stage(type);
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
    QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("North"));
}

void LineChartsTest::eachCallMakesANewChartThatOwnsAllItsParts_data()
{
    kinds({1, 7});
}

void LineChartsTest::eachCallMakesANewChartThatOwnsAllItsParts()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.lineDataList = days;
    stage.page.lineDataList2 = otherDays;
    OwnedChart chart = build(stage.page);
    const OwnedChart other = build(stage.page);
    QVERIFY(chart != other);
    QVERIFY(!chart->parent());
    QVERIFY(!chart->parentItem());

    QList<QPointer<QObject>> parts = {categoryAxis(chart.get()), valueAxis(chart.get())};
    for (QAbstractSeries *one : chart->series())
        parts.append(one);
    chart.reset();
    for (const QPointer<QObject> &part : parts)
        QVERIFY(part.isNull());
    QCOMPARE(line(other)->count(), 3);
}

void LineChartsTest::hoveringReachesTheSlot_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");

    QTest::newRow("the only line") << 3 << 0 << "North"
                                   << "7";
    QTest::newRow("the first line") << 7 << 0 << "first"
                                    << "7";
    QTest::newRow("the second line") << 7 << 1 << "second"
                                     << "41";
}

void LineChartsTest::hoveringReachesTheSlot()
{
    QFETCH(int, type);
    QFETCH(int, index);
    QFETCH(QString, name);
    QFETCH(QString, value);
    ChartStage stage(type);
    stage.page.m_nTimeType = 2;
    stage.page.m_strSelectedBar = "North";
    stage.page.lineNames = QStringList{"first", "second"};
    stage.page.lineDataList = days;
    stage.page.lineDataList2 = otherDays;
    const OwnedChart chart = build(stage.page);
    Q_EMIT line(chart, index)->hovered(QPointF(1, 5), true);
    QVERIFY(stage.page.labelCallout);
    QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-02", name, value));
}

void LineChartsTest::bothLinesOfDevicesThatSawNothing()
{
    ChartStage stage(8);
    stage.page.lineDataList = {{"2024-05-03 00", 0}, {"2024-05-03 01", 0}};
    stage.page.lineDataList2 = stage.page.lineDataList;
    const OwnedChart chart(stage.page.createDualLineChart());
    QCOMPARE(line(chart, 0)->points(), (QList<QPointF>{{0, 0}, {1, 0}}));
    QCOMPARE(line(chart, 1)->points(), (QList<QPointF>{{0, 0}, {1, 0}}));
    QCOMPARE(valueAxis(chart.get())->max(), 5.0);
}

void LineChartsTest::extremeValuesAreDrawn_data()
{
    kinds({1, 7});
}

void LineChartsTest::extremeValuesAreDrawn()
{
    QFETCH(int, type);
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.lineDataList = {{"2024-05-03 00", most}, {"2024-05-03 01", least}, {"2024-05-03 02", -1}};
    stage.page.lineDataList2 = {{"2024-05-03 00", least}};
    stage.page.loadChart();
    QCOMPARE(series<QLineSeries>(stage.page.lineChartView->chart())->points(),
        (QList<QPointF>{{0, most}, {1, least}, {2, -1}}));
    QVERIFY(!stage.page.grab().isNull());
}

void LineChartsTest::fiveThousandPoints_data()
{
    kinds({1, 7});
}

void LineChartsTest::fiveThousandPoints()
{
    QFETCH(int, type);
    constexpr int count = 5000;
    ChartStage stage(type);
    stage.page.m_nTimeType = 3;
    const QDateTime start(QDate(2024, 1, 1), QTime(0, 0), Qt::UTC);
    for (int i = 0; i < count; ++i)
        stage.page.lineDataList.append({start.addSecs(3600 * i).toString("yyyy-MM-dd hh"), i});
    stage.page.lineDataList2 = stage.page.lineDataList;
    const OwnedChart chart = build(stage.page);
    QCOMPARE(line(chart)->count(), count);
    QCOMPARE(line(chart)->at(count - 1), QPointF(count - 1, count - 1));
    QCOMPARE(categories(chart.get()).size(), count);
    QCOMPARE(seen(categories(chart.get()).constLast()), QStringLiteral("07"));
}

void LineChartsTest::namesFollowTheLanguage()
{
    QVERIFY(HostSettings::setLanguage("en"));
    const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
    ChartStage stage(7);
    stage.page.lineDataList = days;
    const OwnedChart chart(stage.page.createDualLineChart());
    QVERIFY(text("TK_Vehicle") != QStringLiteral("TK_Vehicle"));
    QCOMPARE(line(chart, 0)->name(), text("TK_Vehicle"));
    QCOMPARE(line(chart, 1)->name(), text("TK_Pedestrian"));
    QCOMPARE(stage.titleText("labelLineChartTitle"),
        detailTitle("2024-05-01~2024-05-03", "", text("TK_Hour"), text("TK_TrafficsStatisticsOfNum")));
}

TALVIX_TEST_MAIN(LineChartsTest)

#include "tst_line_charts.moc"
