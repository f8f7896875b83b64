#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <limits>

using namespace ChartProbe;

class TitlesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void barTitleOfEachKind_data();
    void barTitleOfEachKind();
    void barTitleOfUnknownKinds_data();
    void barTitleOfUnknownKinds();
    void lineAndPieTitleOfEachKind_data();
    void lineAndPieTitleOfEachKind();
    void lineAndPieTitleOfUnknownKinds_data();
    void lineAndPieTitleOfUnknownKinds();
    void unitWord_data();
    void unitWord();
    void trafficPieTitleForgetsTheSelectedBar_data();
    void trafficPieTitleForgetsTheSelectedBar();
    void deviceGroupsPieTitleFollowsTheMode();
    void deviceGroupsPieTitleBeforeAndAfterTheFirstLoad();
    void namesStandToTheLetter_data();
    void namesStandToTheLetter();
    void anotherLabelHasNoTitle();
    void aLongNameWidensNoPage();
    void timeStandsToTheLetter();
    void colourOfTheSpanIsTheThemes();
    void titlesFollowTheLanguage();
    void titlesOfALoadedPage_data();
    void titlesOfALoadedPage();

    void totalText_data();
    void totalText();
    void totalIsTheSumOfAllSlices();
    void noTotalHidesTheLabel_data();
    void noTotalHidesTheLabel();
    void totalFollowsThePane_data();
    void totalFollowsThePane();
    void totalIsPlacedAnewByEachResize();
    void resizeOfThePagePlacesTheTotalByItself();
    void oneResizeIsEnoughForTheTotal();
    void totalLabelFitsItsText();
    void totalFollowsTheLanguage();
    void pageButtonsComeAndGo_data();
    void pageButtonsComeAndGo();
    void pageButtonsOfOtherKindsStayAsTheyAre();
    void modeBoxIsPlaced_data();
    void modeBoxIsPlaced();
    void overlaysBeforeTheFirstLoad_data();
    void overlaysBeforeTheFirstLoad();

private:
    static QString title(ProbePage &page, const char *label)
    {
        return page.getChartTitle(page.part<QLabel>(label));
    }
    static QString totalHtml(int small, int large, const QString &number)
    {
        QssFormatHelper *theme = QssFormatHelper::getInstance();
        const QString colour = theme->findColorStrByKey("$word_color_2");
        return QStringLiteral("<html><head><style>#f{font-size:") + QString::number(small)
            + QStringLiteral("px; color:") + theme->changeColorStrOpacity(colour, 0.7f)
            + QStringLiteral("; white-space:pre;line-height:15px;}                                      "
                             "font{ font-size:")
            + QString::number(large) + QStringLiteral("px; color:") + colour
            + QStringLiteral("; white-space:pre; line-height:15px;font-weight:bold}"
                             "                                       </style> </head> <body><font id=\"f\"> ")
            + text("TK_PageTotalSize") + QStringLiteral("</font><br></br><br></br><font> ") + number
            + QStringLiteral("</font>                    </body></html>");
    }
};

void TitlesTest::barTitleOfEachKind_data()
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

void TitlesTest::barTitleOfEachKind()
{
    QFETCH(int, type);
    QFETCH(QString, key);
    ChartStage stage(type);
    stage.page.m_strSelectedBar = "North";
    LogCapture log;
    QCOMPARE(title(stage.page, "labelBarChartTitle"), barTitle(text(key)));
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("North"));
}

void TitlesTest::barTitleOfUnknownKinds_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {0, 10, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::addRow("service type %d", type) << type;
}

void TitlesTest::barTitleOfUnknownKinds()
{
    QFETCH(int, type);
    ChartStage stage(type);
    LogCapture log;
    QCOMPARE(title(stage.page, "labelBarChartTitle"), barTitle(QString()));
    QCOMPARE(log.lines(QtDebugMsg), QStringList{"ServiceType unkonw"});
}

void TitlesTest::lineAndPieTitleOfEachKind_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("lineKey");
    QTest::addColumn<QString>("pieKey");

    QTest::newRow("alarms of organisations") << 1 << "TK_AlarmStatisticsOfNum"
                                             << "TK_AlarmStatisticsOfType";
    QTest::newRow("alarms of devices") << 2 << "TK_AlarmStatisticsOfNum"
                                       << "TK_AlarmStatisticsOfType";
    QTest::newRow("online of organisations") << 3 << "TK_OnlineStatisticsOfNum"
                                             << "TK_OnlineStatisticsOfType";
    QTest::newRow("online of devices") << 4 << "TK_OnlineStatisticsOfNum"
                                       << "TK_OnlineStatisticsOfType";
    QTest::newRow("temperature of groups") << 5 << "TK_TemperatureStatisticsOfNum"
                                           << "TK_TemperatureStatisticsOfType";
    QTest::newRow("temperature of persons") << 6 << "TK_TemperatureStatisticsOfNum"
                                            << "TK_TemperatureStatisticsOfType";
    QTest::newRow("traffics of organisations") << 7 << "TK_TrafficsStatisticsOfNum"
                                               << "TK_TrafficsStatisticsOfType";
    QTest::newRow("traffics of devices") << 8 << "TK_TrafficsStatisticsOfNum"
                                         << "TK_TrafficsStatisticsOfType";
    QTest::newRow("temperature of device groups") << 9 << "TK_TemperatureStatisticsOfNum"
                                                  << "TK_StatisticalDistributionOfBodytemperatureSnapshot";
}

void TitlesTest::lineAndPieTitleOfEachKind()
{
    QFETCH(int, type);
    QFETCH(QString, lineKey);
    QFETCH(QString, pieKey);
    ChartStage stage(type);
    stage.page.m_nTimeType = 2;
    stage.page.m_strSelectedBar = "North";
    LogCapture log;
    QCOMPARE(title(stage.page, "labelLineChartTitle"),
        detailTitle("2024-05-01~2024-05-03", "North", text("TK_Day"), text(lineKey)));
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("North"));
    const bool traffic = type == 7 || type == 8;
    QCOMPARE(title(stage.page, "labelPieChartTitle"),
        detailTitle("2024-05-01~2024-05-03", traffic ? "" : "North", text("TK_Day"), text(pieKey)));
    QCOMPARE(log.lines(), traffic ? QStringList{" ServiceType unknown"} : QStringList());
    QCOMPARE(stage.page.m_strSelectedBar, traffic ? QString() : QStringLiteral("North"));
}

void TitlesTest::lineAndPieTitleOfUnknownKinds_data()
{
    barTitleOfUnknownKinds_data();
}

void TitlesTest::lineAndPieTitleOfUnknownKinds()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.m_nTimeType = 1;
    stage.page.m_strSelectedBar = "North";
    for (const char *label : {"labelLineChartTitle", "labelPieChartTitle"}) {
        LogCapture log;
        QCOMPARE(title(stage.page, label),
            detailTitle("2024-05-01~2024-05-03", "North", text("TK_Month"), QString()));
        QCOMPARE(log.lines(QtDebugMsg), QStringList{"ServiceType unkonw"});
        QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("North"));
    }
}

void TitlesTest::unitWord_data()
{
    QTest::addColumn<int>("timeType");
    QTest::addColumn<QString>("key");

    QTest::newRow("month") << 1 << "TK_Month";
    QTest::newRow("day") << 2 << "TK_Day";
    QTest::newRow("hour") << 3 << "TK_Hour";
    QTest::newRow("nothing falls to month") << 0 << "TK_Month";
    QTest::newRow("beyond the units falls to month") << 4 << "TK_Month";
    QTest::newRow("below the units falls to month") << -1 << "TK_Month";
}

void TitlesTest::unitWord()
{
    QFETCH(int, timeType);
    QFETCH(QString, key);
    ChartStage stage(1);
    stage.page.m_nTimeType = timeType;
    stage.page.m_strSelectedBar = "North";
    QCOMPARE(title(stage.page, "labelLineChartTitle"),
        detailTitle("2024-05-01~2024-05-03", "North", text(key), text("TK_AlarmStatisticsOfNum")));
    QCOMPARE(title(stage.page, "labelPieChartTitle"),
        detailTitle("2024-05-01~2024-05-03", "North", text(key), text("TK_AlarmStatisticsOfType")));
}

void TitlesTest::trafficPieTitleForgetsTheSelectedBar_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("of organisations") << 7;
    QTest::newRow("of devices") << 8;
}

void TitlesTest::trafficPieTitleForgetsTheSelectedBar()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.m_strSelectedBar = "North";
    LogCapture log;
    title(stage.page, "labelBarChartTitle");
    title(stage.page, "labelLineChartTitle");
    QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("North"));
    QVERIFY(!title(stage.page, "labelPieChartTitle").contains("North"));
    QCOMPARE(stage.page.m_strSelectedBar, QString(""));
    QVERIFY(!title(stage.page, "labelLineChartTitle").contains("North"));
    QCOMPARE(log.lines(), QStringList{" ServiceType unknown"});
}

void TitlesTest::deviceGroupsPieTitleFollowsTheMode()
{
    ChartStage stage(9);
    stage.page.loadChart();
    stage.page.m_strSelectedBar = "North";
    const QString temperature = detailTitle("2024-05-01~2024-05-03", "North", text("TK_Hour"),
        text("TK_StatisticalDistributionOfBodytemperatureSnapshot"));
    const QString mask = detailTitle(
        "2024-05-01~2024-05-03", "North", text("TK_Hour"), text("TK_StatisticalDistributionOfMaskSnapshot"));

    stage.page.comboBoxPie->setCurrentIndex(0);
    QCOMPARE(title(stage.page, "labelPieChartTitle"), temperature);
    stage.page.comboBoxPie->setCurrentIndex(1);
    QCOMPARE(title(stage.page, "labelPieChartTitle"), mask);
    stage.page.comboBoxPie->setItemData(1, 3);
    QCOMPARE(title(stage.page, "labelPieChartTitle"), temperature);
    stage.page.comboBoxPie->setCurrentIndex(-1);
    QCOMPARE(title(stage.page, "labelPieChartTitle"), temperature);
}

void TitlesTest::deviceGroupsPieTitleBeforeAndAfterTheFirstLoad()
{
    ChartStage stage(9);
    stage.page.barDataList = {{"North", 3}};
    stage.page.loadChart();
    QVERIFY(stage.titleText("labelPieChartTitle")
                .contains(text("TK_StatisticalDistributionOfBodytemperatureSnapshot")));
    stage.page.comboBoxPie->setCurrentIndex(1);
    stage.page.loadChart();
    QVERIFY(stage.titleText("labelPieChartTitle").contains(text("TK_StatisticalDistributionOfMaskSnapshot")));
}

void TitlesTest::namesStandToTheLetter_data()
{
    trickyNameRows();
    QTest::newRow("an empty name") << "";
    QTest::newRow("a null name") << QString();
}

void TitlesTest::namesStandToTheLetter()
{
    QFETCH(QString, name);
    ChartStage stage(1);
    stage.page.m_strSelectedBar = name;
    const auto shown = [&](const char *key) {
        return ("2024-05-01~2024-05-03 " + name + ' ' + text("TK_Hour") + text(key)).simplified();
    };
    QCOMPARE(
        plainText(title(stage.page, "labelLineChartTitle")).simplified(), shown("TK_AlarmStatisticsOfNum"));
    QCOMPARE(
        plainText(title(stage.page, "labelPieChartTitle")).simplified(), shown("TK_AlarmStatisticsOfType"));
    QCOMPARE(stage.page.m_strSelectedBar, name);
}

void TitlesTest::anotherLabelHasNoTitle()
{
    ChartStage stage(1);
    QLabel other;
    LogCapture log;
    QCOMPARE(stage.page.getChartTitle(&other), QString());
    QCOMPARE(stage.page.getChartTitle(nullptr), QString());
    QVERIFY(log.lines(QtDebugMsg).isEmpty());
}

void TitlesTest::aLongNameWidensNoPage()
{
    ChartStage stage(1);
    const int before = stage.page.minimumSizeHint().width();
    stage.page.m_strSelectedBar = QString(300, 'x');
    for (const char *label : {"labelLineChartTitle", "labelPieChartTitle"})
        stage.page.part<QLabel>(label)->setText(title(stage.page, label));
    QCoreApplication::processEvents();
    QCOMPARE(stage.page.minimumSizeHint().width(), before);
}

void TitlesTest::timeStandsToTheLetter()
{
    ChartStage stage(1);
    stage.page.m_strSelectedBar = "North";
    for (const QString time : {"", "%2", "no span at all"}) {
        stage.setTime(time);
        QCOMPARE(title(stage.page, "labelLineChartTitle"),
            detailTitle(time, "North", text("TK_Hour"), text("TK_AlarmStatisticsOfNum")));
    }
}

void TitlesTest::colourOfTheSpanIsTheThemes()
{
    QVERIFY(!themeText("$word_color_5").isEmpty());
    ChartStage stage(1);
    QVERIFY(
        title(stage.page, "labelLineChartTitle").contains("#f{color: " + themeText("$word_color_5") + ";}"));
}

void TitlesTest::titlesFollowTheLanguage()
{
    for (const QString language : {"en", "x-long"}) {
        QVERIFY(HostSettings::setLanguage(language));
        const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
        ChartStage stage(1);
        QVERIFY(text("TK_AlarmStatisticsOfOrgas") != QStringLiteral("TK_AlarmStatisticsOfOrgas"));
        QCOMPARE(title(stage.page, "labelBarChartTitle"), barTitle(text("TK_AlarmStatisticsOfOrgas")));
        QCOMPARE(title(stage.page, "labelLineChartTitle"),
            detailTitle("2024-05-01~2024-05-03", "", text("TK_Hour"), text("TK_AlarmStatisticsOfNum")));
        QCOMPARE(title(stage.page, "labelPieChartTitle"),
            detailTitle("2024-05-01~2024-05-03", "", text("TK_Hour"), text("TK_AlarmStatisticsOfType")));
    }
}

void TitlesTest::titlesOfALoadedPage_data()
{
    QTest::addColumn<int>("type");
    for (int type = 1; type <= 9; ++type)
        QTest::addRow("service type %d", type) << type;
}

void TitlesTest::titlesOfALoadedPage()
{
    QFETCH(int, type);
    ChartStage stage(type);
    stage.page.barDataList = {{"North", 3}, {"South", 1}};
    stage.page.loadChart();
    const bool traffic = type == 7 || type == 8;
    const QString bar = stage.titleText("labelBarChartTitle");
    const QString line = stage.titleText("labelLineChartTitle");
    const QString pie = stage.titleText("labelPieChartTitle");
    QCOMPARE(bar, title(stage.page, "labelBarChartTitle"));
    QVERIFY(line.contains("<font id=\"f\"> 2024-05-01~2024-05-03 North</font>"));
    if (type == 3 || type == 4)
        QCOMPARE(pie, QString());
    else
        QCOMPARE(pie.contains("<font id=\"f\"> 2024-05-01~2024-05-03 North</font>"), !traffic);
}

void TitlesTest::totalText_data()
{
    QTest::addColumn<int>("total");
    QTest::addColumn<QString>("number");

    QTest::newRow("one") << 1 << "1";
    QTest::newRow("a thousand without a separator") << 12345 << "12345";
    QTest::newRow("the last in full") << 999999 << "999999";
    QTest::newRow("a million") << 1000000 << "1.00TK_Million";
    QTest::newRow("rounded down") << 1234567 << "1.23TK_Million";
    QTest::newRow("rounded up") << 1999999 << "2.00TK_Million";
    QTest::newRow("the largest int") << std::numeric_limits<int>::max() << "2147.48TK_Million";
}

void TitlesTest::totalText()
{
    QFETCH(int, total);
    QFETCH(QString, number);
    ChartStage stage(1);
    stage.page.loadChart();
    stage.page.pieDataList = {{"fire", total}};
    stage.page.part<QWidget>("widgetPie")->resize(1000, 500);
    stage.page.updateChartOverlays();
    QCOMPARE(stage.page.labelPiecount->text(), totalHtml(16, 24, number));
    QVERIFY(!stage.page.labelPiecount->isHidden());
}

void TitlesTest::totalIsTheSumOfAllSlices()
{
    ChartStage stage(1);
    stage.page.loadChart();
    stage.page.part<QWidget>("widgetPie")->resize(1000, 500);
    stage.page.pieDataList = {{"fire", 500000}, {"smoke", 499999}, {"none", 0}, {"minus", -7}, {"plus", 7}};
    stage.page.updateChartOverlays();
    QCOMPARE(stage.page.labelPiecount->text(), totalHtml(16, 24, "999999"));
    stage.page.pieDataList.append({"one more", 1});
    stage.page.updateChartOverlays();
    QCOMPARE(stage.page.labelPiecount->text(), totalHtml(16, 24, "1.00TK_Million"));
}

void TitlesTest::noTotalHidesTheLabel_data()
{
    QTest::addColumn<LabelledValues>("slices");

    QTest::newRow("no slices") << LabelledValues();
    QTest::newRow("slices of nothing") << LabelledValues{{"fire", 0}, {"smoke", 0}};
    QTest::newRow("below zero") << LabelledValues{{"fire", -5}, {"smoke", 2}};
}

void TitlesTest::noTotalHidesTheLabel()
{
    QFETCH(LabelledValues, slices);
    ChartStage stage(1);
    stage.page.pieDataList = {{"fire", 3}};
    stage.page.loadChart();
    QVERIFY(!stage.page.labelPiecount->isHidden());
    const QString before = stage.page.labelPiecount->text();

    stage.page.pieDataList = slices;
    stage.page.updateChartOverlays();
    QVERIFY(stage.page.labelPiecount->isHidden());
    QCOMPARE(stage.page.labelPiecount->text(), before);

    stage.page.pieDataList = {{"fire", 1}};
    stage.page.updateChartOverlays();
    QVERIFY(!stage.page.labelPiecount->isHidden());
}

void TitlesTest::totalFollowsThePane_data()
{
    QTest::addColumn<QSize>("pane");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<int>("small");
    QTest::addColumn<int>("large");

    QTest::newRow("wide") << QSize(1000, 500) << QPoint(315, 140) << 16 << 24;
    QTest::newRow("tiny, slipping off to the left") << QSize(100, 100) << QPoint(-9, 28) << 10 << 11;
    QTest::newRow("the sum is divided as an integer") << QSize(450, 349) << QPoint(117, 97) << 12 << 16;
    QTest::newRow("one pixel more reaches the next hundred")
        << QSize(450, 350) << QPoint(117, 98) << 13 << 17;
    QTest::newRow("below zero is truncated towards zero") << QSize(37, 51) << QPoint(-31, 14) << 9 << 9;
    QTest::newRow("usual") << QSize(456, 305) << QPoint(119, 85) << 12 << 16;
}

void TitlesTest::totalFollowsThePane()
{
    QFETCH(QSize, pane);
    QFETCH(int, small);
    QFETCH(int, large);
    ChartStage stage(1);
    stage.page.pieDataList = {{"fire", 3}};
    stage.page.loadChart();
    stage.page.part<QWidget>("widgetPie")->resize(pane);
    QCOMPARE(stage.page.part<QWidget>("widgetPie")->size(), pane);
    stage.page.updateChartOverlays();
    QTEST(stage.page.labelPiecount->pos(), "place");
    QCOMPARE(stage.page.labelPiecount->text(), totalHtml(small, large, "3"));
}

void TitlesTest::totalIsPlacedAnewByEachResize()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.pieDataList = {{"fire", 3}};
    stage.page.loadChart();
    for (const QSize &size : {QSize(1136, 648), QSize(1700, 900), QSize(1200, 700)}) {
        stage.page.resize(size);
        QCoreApplication::processEvents();
        stage.page.resize(size + QSize(1, 0));
        QCoreApplication::processEvents();
        const QPoint place = stage.page.labelPiecount->pos();
        const QString html = stage.page.labelPiecount->text();
        stage.page.labelPiecount->move(0, 0);
        stage.page.labelPiecount->setText("before");
        stage.page.updateChartOverlays();
        const QSize pane = stage.page.part<QWidget>("widgetPie")->size();
        QVERIFY(std::abs(place.x() - stage.page.labelPiecount->x()) <= 1);
        QCOMPARE(place.y(), stage.page.labelPiecount->y());
        QCOMPARE(html, stage.page.labelPiecount->text());
        QVERIFY(pane.width() > 300);
    }
}

// The chart follows its view as well; without it the page must do.
void TitlesTest::resizeOfThePagePlacesTheTotalByItself()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.pieDataList = {{"fire", 3}};
    stage.load();
    stage.page.pieChartView->chart()->disconnect(&stage.page);
    stage.page.labelPiecount->setText("before");
    stage.page.labelPiecount->move(0, 0);
    stage.page.resize(1700, 900);
    const QSize pane = stage.page.part<QWidget>("widgetPie")->size();
    const int scale = (pane.width() + pane.height()) / 100;
    QCOMPARE(stage.page.labelPiecount->text(), totalHtml(scale / 2 + 9, scale + 9, "3"));
    QCOMPARE(stage.page.labelPiecount->y(), static_cast<int>(0.28 * pane.height()));
}

void TitlesTest::oneResizeIsEnoughForTheTotal()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.pieDataList = {{"fire", 3}};
    stage.load();
    for (const QSize &size : {QSize(1700, 900), QSize(900, 500), QSize(1200, 700)}) {
        stage.page.resize(size);
        QCoreApplication::processEvents();
        const QPoint place = stage.page.labelPiecount->pos();
        const QString html = stage.page.labelPiecount->text();
        stage.page.updateChartOverlays();
        QCOMPARE(place, stage.page.labelPiecount->pos());
        QCOMPARE(html, stage.page.labelPiecount->text());
    }
}

void TitlesTest::totalLabelFitsItsText()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.pieDataList = {{"fire", 3}};
    stage.load();
    QLabel *label = stage.page.labelPiecount;
    QCOMPARE(label->size(), label->sizeHint());
    const int narrow = label->width();
    stage.page.pieDataList = {{"fire", 999999}};
    stage.page.updateChartOverlays();
    QCOMPARE(label->size(), label->sizeHint());
    QVERIFY(label->width() >= narrow);
    QVERIFY(label->isVisible());
}

void TitlesTest::totalFollowsTheLanguage()
{
    QVERIFY(HostSettings::setLanguage("en"));
    const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
    ChartStage stage(1);
    stage.page.pieDataList = {{"fire", 2500000}};
    stage.page.loadChart();
    stage.page.part<QWidget>("widgetPie")->resize(1000, 500);
    stage.page.updateChartOverlays();
    QVERIFY(text("TK_Million") != QStringLiteral("TK_Million"));
    QCOMPARE(stage.page.labelPiecount->text(), totalHtml(16, 24, "2.50" + text("TK_Million")));
}

void TitlesTest::pageButtonsComeAndGo_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("pages");
    QTest::addColumn<bool>("previous");
    QTest::addColumn<bool>("next");

    QTest::newRow("a single page") << 1 << 1 << false << false;
    QTest::newRow("the first of two") << 1 << 2 << false << true;
    QTest::newRow("the second of two") << 2 << 2 << true << false;
    QTest::newRow("in the middle") << 5 << 9 << true << true;
    QTest::newRow("no pages") << 1 << 0 << false << false;
    QTest::newRow("no page of no pages") << 0 << 0 << false << false;
    QTest::newRow("beyond the last") << 4 << 3 << true << false;
    QTest::newRow("before the first") << -2 << 3 << false << true;
}

void TitlesTest::pageButtonsComeAndGo()
{
    QFETCH(int, page);
    QFETCH(int, pages);
    for (const int type : {2, 4, 6}) {
        ChartStage stage(type, ChartStage::OnScreen);
        stage.page.loadChart();
        for (const auto &[before, beforeOf] : {std::pair{1, 1}, std::pair{2, 3}}) {
            stage.page.m_nCurPage = before;
            stage.page.m_nTotalPage = beforeOf;
            stage.page.updateChartOverlays();
            stage.page.m_nCurPage = page;
            stage.page.m_nTotalPage = pages;
            stage.page.updateChartOverlays();
            QTEST(stage.page.pushButtonPrevious->isVisible(), "previous");
            QTEST(stage.page.pushButtonNext->isVisible(), "next");
            QVERIFY(stage.page.pushButtonPrevious->isEnabled());
            QVERIFY(stage.page.pushButtonNext->isEnabled());
        }
    }
}

void TitlesTest::pageButtonsOfOtherKindsStayAsTheyAre()
{
    ChartStage stage(2, ChartStage::OnScreen);
    stage.page.m_nTotalPage = 3;
    stage.page.loadChart();
    QVERIFY(stage.page.pushButtonNext->isVisible());
    stage.page.setServiceType(1);
    stage.page.m_nCurPage = 3;
    stage.page.updateChartOverlays();
    QVERIFY(stage.page.pushButtonNext->isVisible());
    QVERIFY(!stage.page.pushButtonPrevious->isVisible());
}

void TitlesTest::modeBoxIsPlaced_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("shown");
    for (int type = 0; type <= 10; ++type)
        QTest::addRow("service type %d", type) << type << (type == 5 || (type >= 7 && type <= 9));
}

void TitlesTest::modeBoxIsPlaced()
{
    QFETCH(int, type);
    QFETCH(bool, shown);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.load();
    for (const bool before : {true, false}) {
        if (stage.page.comboBoxPie->parent())
            stage.page.comboBoxPie->setVisible(before);
        stage.page.comboBoxPie->move(3, 3);
        stage.page.updateChartOverlays();
        QCOMPARE(stage.page.comboBoxPie->isVisible(), shown);
        QCOMPARE(stage.page.comboBoxPie->pos(), shown ? QPoint(450, 28) : QPoint(3, 3));
    }
}

void TitlesTest::overlaysBeforeTheFirstLoad_data()
{
    titlesOfALoadedPage_data();
}

void TitlesTest::overlaysBeforeTheFirstLoad()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.pieDataList = {{"fire", 3}};
    stage.page.m_nTotalPage = 3;
    LogCapture log;
    stage.page.updateChartOverlays();
    QVERIFY(!stage.page.labelPiecount);
    QVERIFY(!stage.page.comboBoxPie);
    QVERIFY(!stage.page.pushButtonNext);
    QCOMPARE(log.lines(), QStringList());
}

TALVIX_TEST_MAIN(TitlesTest)

#include "tst_titles.moc"
