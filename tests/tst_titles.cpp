#include "support/ChartProbe.h"
#include "support/LogCapture.h"
#include "support/TitleKeys.h"

#include <devhost/widgets/HostSettings.h>
#include <page/Texts.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <limits>

using namespace ChartProbe;
using namespace Qt::StringLiterals;

namespace {

const char *const titleLabels[] = {"labelBarChartTitle", "labelLineChartTitle", "labelPieChartTitle"};

QString detailOfDays(const QString &bar, const QString &key)
{
    return detailTitle(span, bar, text("TK_Day"), text(key));
}

} // namespace

class TitlesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titlesOfEachKind_data() { titleKeyRows(); }
    void titlesOfEachKind()
    {
        QFETCH(TitleKeys, keys);
        ChartStage stage(keys.type);
        stage.page.m_nTimeType = 2;
        stage.page.m_strSelectedBar = "North";
        LogCapture log;
        QCOMPARE(title(stage.page, "labelBarChartTitle"), barTitle(text(keys.bar)));
        QCOMPARE(title(stage.page, "labelLineChartTitle"), detailOfDays("North", keys.line));
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(stage.page.m_strSelectedBar, u"North"_s);
        const bool traffic = keys.type == 7 || keys.type == 8;
        QCOMPARE(title(stage.page, "labelPieChartTitle"), detailOfDays(traffic ? "" : "North", keys.pie));
        QCOMPARE(log.lines(), traffic ? QStringList{" ServiceType unknown"} : QStringList());
        QCOMPARE(stage.page.m_strSelectedBar, traffic ? QString() : u"North"_s);
    }

    void eachBuilderSetsItsTitleOnly_data() { titleKeyRows(); }
    void eachBuilderSetsItsTitleOnly()
    {
        QFETCH(TitleKeys, keys);
        ChartStage stage(keys.type);
        ProbePage &page = stage.page;
        page.m_nTimeType = 2;
        page.m_strSelectedBar = "North";
        const auto titlesAfter = [&stage](QChart *chart) {
            const OwnedChart built(chart);
            QStringList titles;
            for (const char *label : titleLabels) {
                titles.append(stage.titleText(label));
                stage.page.part<QLabel>(label)->setText("before");
            }
            return titles;
        };
        titlesAfter(nullptr);
        const bool dual = keys.type >= 7;
        QCOMPARE(titlesAfter(dual ? page.createDualBarChart() : page.createBarChart()),
            (QStringList{barTitle(text(keys.bar)), "before", "before"}));
        QCOMPARE(titlesAfter(dual ? page.createDualLineChart() : page.createLineChart()),
            (QStringList{"before", detailOfDays("North", keys.line), "before"}));
        QCOMPARE(page.m_strSelectedBar, u"North"_s);
        const QString named = keys.type == 7 || keys.type == 8 ? "" : "North";
        QCOMPARE(titlesAfter(page.createPieChart()),
            (QStringList{"before", "before", detailOfDays(named, keys.pie)}));
        QCOMPARE(page.m_strSelectedBar, named);
    }

    void titlesOfUnknownKinds_data()
    {
        kinds({0, 10, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()});
    }

    void titlesOfUnknownKinds()
    {
        ChartStage stage(kindOfRow());
        stage.page.m_nTimeType = 1;
        stage.page.m_strSelectedBar = "North";
        const QString detail = detailTitle(span, "North", text("TK_Month"), QString());
        for (const char *label : titleLabels) {
            LogCapture log;
            QCOMPARE(title(stage.page, label), label == titleLabels[0] ? barTitle(QString()) : detail);
            QCOMPARE(log.lines(QtDebugMsg), QStringList{"ServiceType unkonw"});
            QCOMPARE(stage.page.m_strSelectedBar, u"North"_s);
        }
    }

    void unitWord_data()
    {
        table<int, QString>({"timeType", "key"},
            {{"month", 1, "TK_Month"}, {"day", 2, "TK_Day"}, {"hour", 3, "TK_Hour"},
                {"nothing falls to month", 0, "TK_Month"}, {"beyond the units falls to month", 4, "TK_Month"},
                {"below the units falls to month", -1, "TK_Month"}});
    }

    void unitWord()
    {
        QFETCH(int, timeType);
        QFETCH(QString, key);
        ChartStage stage(1);
        stage.page.m_nTimeType = timeType;
        stage.page.m_strSelectedBar = "North";
        QCOMPARE(title(stage.page, "labelLineChartTitle"),
            detailTitle(span, "North", text(key), text("TK_AlarmStatisticsOfNum")));
        QCOMPARE(title(stage.page, "labelPieChartTitle"),
            detailTitle(span, "North", text(key), text("TK_AlarmStatisticsOfType")));
    }

    void trafficPieTitleForgetsTheSelectedBar_data()
    {
        table<int>({"type"}, {{"of organisations", 7}, {"of devices", 8}});
    }

    void trafficPieTitleForgetsTheSelectedBar()
    {
        ChartStage stage(kindOfRow());
        stage.page.m_strSelectedBar = "North";
        LogCapture log;
        title(stage.page, "labelBarChartTitle");
        title(stage.page, "labelLineChartTitle");
        QCOMPARE(stage.page.m_strSelectedBar, u"North"_s);
        QVERIFY(!title(stage.page, "labelPieChartTitle").contains("North"));
        QCOMPARE(stage.page.m_strSelectedBar, QString(""));
        QVERIFY(!title(stage.page, "labelLineChartTitle").contains("North"));
        QCOMPARE(log.lines(), QStringList{" ServiceType unknown"});
    }

    void deviceGroupsPieTitleFollowsTheMode()
    {
        ChartStage stage(9);
        stage.page.loadChart();
        stage.page.m_strSelectedBar = "North";
        const QString temperature = detailTitle(
            span, "North", text("TK_Hour"), text("TK_StatisticalDistributionOfBodytemperatureSnapshot"));
        const QString mask =
            detailTitle(span, "North", text("TK_Hour"), text("TK_StatisticalDistributionOfMaskSnapshot"));

        stage.page.comboBoxPie->setCurrentIndex(0);
        QCOMPARE(title(stage.page, "labelPieChartTitle"), temperature);
        stage.page.comboBoxPie->setCurrentIndex(1);
        QCOMPARE(title(stage.page, "labelPieChartTitle"), mask);
        stage.page.comboBoxPie->setItemData(1, 3);
        QCOMPARE(title(stage.page, "labelPieChartTitle"), temperature);
        stage.page.comboBoxPie->setCurrentIndex(-1);
        QCOMPARE(title(stage.page, "labelPieChartTitle"), temperature);
    }

    void deviceGroupsPieTitleBeforeAndAfterTheFirstLoad()
    {
        ChartStage stage(9);
        stage.page.barDataList = {{"North", 3}};
        stage.page.loadChart();
        QVERIFY(stage.titleText("labelPieChartTitle")
                    .contains(text("TK_StatisticalDistributionOfBodytemperatureSnapshot")));
        stage.page.comboBoxPie->setCurrentIndex(1);
        stage.page.loadChart();
        QVERIFY(
            stage.titleText("labelPieChartTitle").contains(text("TK_StatisticalDistributionOfMaskSnapshot")));
    }

    void namesStandToTheLetter_data() { trickyNameRows(); }
    void namesStandToTheLetter()
    {
        QFETCH(QString, name);
        ChartStage stage(1);
        stage.page.m_strSelectedBar = name;
        const auto shown = [&](const char *key) {
            return ("2024-05-01~2024-05-03 " + name + ' ' + text("TK_Hour") + text(key)).simplified();
        };
        QCOMPARE(plainText(title(stage.page, "labelLineChartTitle")).simplified(),
            shown("TK_AlarmStatisticsOfNum"));
        QCOMPARE(plainText(title(stage.page, "labelPieChartTitle")).simplified(),
            shown("TK_AlarmStatisticsOfType"));
        QCOMPARE(stage.page.m_strSelectedBar, name);
    }

    void anotherLabelHasNoTitle()
    {
        ChartStage stage(1);
        QLabel other;
        LogCapture log;
        QCOMPARE(stage.page.getChartTitle(&other), QString());
        QCOMPARE(stage.page.getChartTitle(nullptr), QString());
        QVERIFY(log.lines(QtDebugMsg).isEmpty());
    }

    void aLongNameWidensNoPage()
    {
        ChartStage stage(1);
        const int before = stage.page.minimumSizeHint().width();
        stage.page.m_strSelectedBar = QString(300, 'x');
        for (const char *label : {"labelLineChartTitle", "labelPieChartTitle"})
            stage.page.part<QLabel>(label)->setText(title(stage.page, label));
        QCoreApplication::processEvents();
        QCOMPARE(stage.page.minimumSizeHint().width(), before);
    }

    // A character beyond the first plane takes two places; half of one is no text.
    void longNamesAreCutBetweenCharacters()
    {
        const QString face = QString::fromUtf8("\xF0\x9F\x99\x82");
        const QString start(999, u'x');
        QCOMPARE(Texts::inRichText(start + face), start);
        QCOMPARE(Texts::inRichText(start.left(998) + face + u'x'), start.left(998) + face);
        QCOMPARE(Texts::inRichText(start + u"xyz"_s), start + u'x');
    }

    void timeStandsToTheLetter()
    {
        ChartStage stage(1);
        stage.page.m_strSelectedBar = "North";
        for (const QString time : {"", "%2", "no span at all"}) {
            stage.setTime(time);
            QCOMPARE(title(stage.page, "labelLineChartTitle"),
                detailTitle(time, "North", text("TK_Hour"), text("TK_AlarmStatisticsOfNum")));
        }
    }

    void colourOfTheSpanIsTheThemes()
    {
        QVERIFY(!themeText("$word_color_5").isEmpty());
        ChartStage stage(1);
        QVERIFY(title(stage.page, "labelLineChartTitle")
                    .contains("#f{color: " + themeText("$word_color_5") + ";}"));
    }

    void titlesFollowTheLanguage()
    {
        for (const QString language : {"en", "x-long"}) {
            QVERIFY(HostSettings::setLanguage(language));
            const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
            ChartStage stage(1);
            QVERIFY(text("TK_AlarmStatisticsOfOrgas") != u"TK_AlarmStatisticsOfOrgas"_s);
            QCOMPARE(title(stage.page, "labelBarChartTitle"), barTitle(text("TK_AlarmStatisticsOfOrgas")));
            QCOMPARE(title(stage.page, "labelLineChartTitle"),
                detailTitle(span, "", text("TK_Hour"), text("TK_AlarmStatisticsOfNum")));
            QCOMPARE(title(stage.page, "labelPieChartTitle"),
                detailTitle(span, "", text("TK_Hour"), text("TK_AlarmStatisticsOfType")));
        }
    }

    void titlesOfALoadedPage_data() { allKinds(); }
    void titlesOfALoadedPage()
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

    void totalText_data()
    {
        table<int, QString>({"total", "number"},
            {{"one", 1, "1"}, {"a thousand without a separator", 12345, "12345"},
                {"the last in full", 999999, "999999"}, {"a million", 1000000, "1.00TK_Million"},
                {"rounded down", 1234567, "1.23TK_Million"}, {"rounded up", 1999999, "2.00TK_Million"},
                {"the largest int", std::numeric_limits<int>::max(), "2147.48TK_Million"}});
    }

    void totalText()
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

    void totalIsTheSumOfAllSlices()
    {
        ChartStage stage(1);
        stage.page.loadChart();
        stage.page.part<QWidget>("widgetPie")->resize(1000, 500);
        stage.page.pieDataList = {
            {"fire", 500000}, {"smoke", 499999}, {"none", 0}, {"minus", -7}, {"plus", 7}};
        stage.page.updateChartOverlays();
        QCOMPARE(stage.page.labelPiecount->text(), totalHtml(16, 24, "999999"));
        stage.page.pieDataList.append({"one more", 1});
        stage.page.updateChartOverlays();
        QCOMPARE(stage.page.labelPiecount->text(), totalHtml(16, 24, "1.00TK_Million"));
    }

    void noTotalHidesTheLabel_data()
    {
        table<LabelledValues>({"slices"},
            {{"no slices", {}}, {"slices of nothing", {{"fire", 0}, {"smoke", 0}}},
                {"below zero", {{"fire", -5}, {"smoke", 2}}}});
    }

    void noTotalHidesTheLabel()
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

    void totalFollowsThePane_data()
    {
        table<QSize, QPoint, int, int>({"pane", "place", "small", "large"},
            {{"wide", {1000, 500}, {315, 140}, 16, 24},
                {"tiny, slipping off to the left", {100, 100}, {-9, 28}, 10, 11},
                {"the sum is divided as an integer", {450, 349}, {117, 97}, 12, 16},
                {"one pixel more reaches the next hundred", {450, 350}, {117, 98}, 13, 17},
                {"below zero is truncated towards zero", {37, 51}, {-31, 14}, 9, 9},
                {"usual", {456, 305}, {119, 85}, 12, 16}});
    }

    void totalFollowsThePane()
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

    // The chart follows its view as well; without it the page must do.
    void resizeOfThePagePlacesTheTotalByItself()
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

    void oneResizeIsEnoughForTheTotal()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.pieDataList = {{"fire", 3}};
        stage.load();
        QLabel *label = stage.page.labelPiecount;
        for (const QSize &size : {QSize(1700, 900), QSize(900, 500), QSize(1200, 700), QSize(1136, 648)}) {
            stage.page.resize(size);
            QCoreApplication::processEvents();
            QVERIFY(stage.page.part<QWidget>("widgetPie")->width() > 300);
            const QPoint place = label->pos();
            const QString html = label->text();
            label->move(0, 0);
            label->setText("before");
            stage.page.updateChartOverlays();
            QCOMPARE(place, label->pos());
            QCOMPARE(html, label->text());
        }
    }

    void totalLabelFitsItsText()
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

    void totalFollowsTheLanguage()
    {
        QVERIFY(HostSettings::setLanguage("en"));
        const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
        ChartStage stage(1);
        stage.page.pieDataList = {{"fire", 2500000}};
        stage.page.loadChart();
        stage.page.part<QWidget>("widgetPie")->resize(1000, 500);
        stage.page.updateChartOverlays();
        QVERIFY(text("TK_Million") != u"TK_Million"_s);
        QCOMPARE(stage.page.labelPiecount->text(), totalHtml(16, 24, "2.50" + text("TK_Million")));
    }

    void pageButtonsComeAndGo_data()
    {
        table<int, int, bool, bool>({"page", "pages", "previous", "next"},
            {{"a single page", 1, 1, false, false}, {"the first of two", 1, 2, false, true},
                {"the second of two", 2, 2, true, false}, {"in the middle", 5, 9, true, true},
                {"no pages", 1, 0, false, false}, {"no page of no pages", 0, 0, false, false},
                {"beyond the last", 4, 3, true, false}, {"before the first", -2, 3, false, true}});
    }

    void pageButtonsComeAndGo()
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

    void pageButtonsOfOtherKindsStayAsTheyAre()
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

    void modeBoxIsPlaced_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("shown");
        for (int type = 0; type <= 10; ++type)
            QTest::addRow("service type %d", type) << type << (type == 5 || (type >= 7 && type <= 9));
    }

    void modeBoxIsPlaced()
    {
        QFETCH(bool, shown);
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
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

    void overlaysBeforeTheFirstLoad_data() { titlesOfALoadedPage_data(); }
    void overlaysBeforeTheFirstLoad()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.pieDataList = {{"fire", 3}};
        stage.page.m_nTotalPage = 3;
        LogCapture log;
        stage.page.updateChartOverlays();
        QVERIFY(!stage.page.labelPiecount);
        QVERIFY(!stage.page.comboBoxPie);
        QVERIFY(!stage.page.pushButtonNext);
        QCOMPARE(log.lines(), QStringList());
    }

private:
    static QString title(ProbePage &page, const char *label)
    {
        return page.getChartTitle(page.part<QLabel>(label));
    }
    static QString totalHtml(int small, int large, const QString &number)
    {
        QssFormatHelper *theme = QssFormatHelper::getInstance();
        const QString colour = theme->findColorStrByKey("$word_color_2");
        return u"<html><head><style>#f{font-size:"_s + QString::number(small) + u"px; color:"_s
            + theme->changeColorStrOpacity(colour, 0.7f)
            + u"; white-space:pre;line-height:15px;}                                      "
              "font{ font-size:"_s
            + QString::number(large) + u"px; color:"_s + colour
            + u"; white-space:pre; line-height:15px;font-weight:bold}"
              "                                       </style> </head> <body><font id=\"f\"> "_s
            + text("TK_PageTotalSize") + u"</font><br></br><br></br><font> "_s + number
            + u"</font>                    </body></html>"_s;
    }
};

TALVIX_TEST_MAIN(TitlesTest)

#include "tst_titles.moc"
