#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/BaseHelper.h>

#include <cmath>
#include <limits>

using namespace ChartProbe;
using namespace Qt::StringLiterals;

static const LabelledValues days = {{"2024-05-01", 30}, {"2024-05-02", 7}, {"2024-05-03", 1234567}};

static QPoint underPointer(const ProbePage &page)
{
    return page.mapFromGlobal(QCursor::pos());
}

/// Hovers the only point of a line, which tells 5 of the bar "North".
static void hoverOnlyPoint(ProbePage &page, int timeType, const QString &label)
{
    page.m_nTimeType = timeType;
    page.m_strSelectedBar = "North";
    page.lineDataList = {{label, 5}};
    page.slotLineSelected(QPointF(0, 5), true);
}

class CalloutsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst); }

    void calloutIsMadeByTheFirstHover()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        QVERIFY(!stage.page.labelCallout);
        QVERIFY(!stage.page.findChild<QLabel *>("LabelCallout"));
        stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(100, 100)));
        const QLabel *callout = stage.page.labelCallout;
        QVERIFY(callout);
        QCOMPARE(callout->parent(), &stage.page);
        QCOMPARE(callout->objectName(), u"LabelCallout"_s);
        QCOMPARE(callout->minimumSize(), QSize(200, 70));
        // Under the pointer it would end the very hover that it answers.
        QVERIFY(callout->testAttribute(Qt::WA_TransparentForMouseEvents));
        QCOMPARE(callout->text(), u"text"_s);
        QVERIFY(callout->isVisible());
    }

    void calloutIsMadeOnce()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.showCallout("first", stage.page.mapToGlobal(QPoint(100, 100)));
        const QPointer<QLabel> callout = stage.page.labelCallout;
        callout->hide();
        stage.page.showCallout("second", stage.page.mapToGlobal(QPoint(300, 100)));
        QCOMPARE(stage.page.labelCallout, callout.data());
        QCOMPARE(callout->text(), u"second"_s);
        QVERIFY(callout->isVisible());
        QCOMPARE(stage.page.findChildren<QLabel *>("LabelCallout").size(), 1);
    }

    void calloutStandsBesideThePoint_data()
    {
        table<QPoint, QPoint>({"point", "place"},
            {{"in the middle", {500, 300}, {515, 285}}, {"the last that fits", {925, 300}, {940, 285}},
                {"the first that flips", {926, 300}, {711, 285}},
                {"at the right edge", {1135, 300}, {920, 285}},
                {"beyond the right edge", {1500, 300}, {1285, 285}},
                {"nothing keeps it below the top", {100, 3}, {115, -12}},
                {"nothing keeps it above the bottom", {100, 647}, {115, 632}},
                {"nothing keeps it off the left edge", {-300, 50}, {-285, 35}}});
    }

    void calloutStandsBesideThePoint()
    {
        QFETCH(QPoint, point);
        ChartStage stage(1, ChartStage::OnScreen);
        QCOMPARE(stage.page.width(), 1136);
        stage.page.showCallout("text", stage.page.mapToGlobal(point));
        QCOMPARE(stage.page.labelCallout->size(), QSize(200, 70));
        QTEST(stage.page.labelCallout->pos(), "place");
        QVERIFY(stage.page.labelCallout->isVisible());
    }

    void calloutFlipsByItsOwnWidth()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        const QString wide(60, 'm');
        stage.page.showCallout(wide, stage.page.mapToGlobal(QPoint(10, 300)));
        const int width = stage.page.labelCallout->width();
        QVERIFY(width > 300);
        const int last = 1136 - 10 - width - 1;
        stage.page.showCallout(wide, stage.page.mapToGlobal(QPoint(last, 300)));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(last + 15, 285));
        stage.page.showCallout(wide, stage.page.mapToGlobal(QPoint(last + 1, 300)));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(last + 1 - width - 15, 285));
        stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(last + 1, 300)));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(last + 16, 285));
    }

    void calloutFitsItsText()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        for (const QString &text : {QString(60, 'm'), u"a<br/>b<br/>c<br/>d<br/>e<br/>f<br/>g"_s, u"short"_s,
                 callout(span, QString(80, 'x'), "3")}) {
            stage.page.showCallout(text, stage.page.mapToGlobal(QPoint(10, 10)));
            const QLabel *label = stage.page.labelCallout;
            QCOMPARE(label->size(), label->sizeHint().expandedTo(QSize(200, 70)));
        }
    }

    void moveTakesTheCalloutAlong_data() { calloutStandsBesideThePoint_data(); }
    void moveTakesTheCalloutAlong()
    {
        QFETCH(QPoint, point);
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(40, 50)));
        stage.page.slotRecvMouseMove(stage.page.mapToGlobal(point));
        QTEST(stage.page.labelCallout->pos(), "place");
    }

    void moveKeepsTextAndVisibility()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(40, 50)));
        stage.page.labelCallout->resize(321, 99);
        stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(900, 60)));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(900 - 321 - 15, 45));
        QCOMPARE(stage.page.labelCallout->size(), QSize(321, 99));
        QCOMPARE(shownCallout(stage.page), u"text"_s);

        stage.page.labelCallout->hide();
        const QPoint place = stage.page.labelCallout->pos();
        stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(400, 400)));
        QCOMPARE(stage.page.labelCallout->pos(), place);
        QVERIFY(stage.page.labelCallout->isHidden());
    }

    void moveBeforeAnyHover()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(400, 400)));
        QVERIFY(!stage.page.labelCallout);
    }

    void moveBackFlipsTheCalloutBack()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(1000, 300)));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(785, 285));
        stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(800, 300)));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(815, 285));
        stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(1001, 310)));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(786, 295));
    }

    void lineHoverShowsThePoint_data() { kinds({1, 2, 3, 4, 5, 6, 0, 10}); }
    void lineHoverShowsThePoint()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.m_nTimeType = 2;
        stage.page.m_strSelectedBar = "North";
        stage.page.lineDataList = days;
        QCursor::setPos(stage.page.mapToGlobal(QPoint(300, 200)));
        stage.page.slotLineSelected(QPointF(2, 999), true);
        QCOMPARE(shownCallout(stage.page), callout("2024-05-03", "North", "1234567"));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(315, 185));

        stage.page.m_strSelectedBar = "South";
        stage.page.slotLineSelected(QPointF(0, 0), true);
        QCOMPARE(shownCallout(stage.page), callout("2024-05-01", "South", "30"));
    }

    void linePointIsTheNearest_data()
    {
        table<double, QString>({"x", "time"},
            {{"the first", 0.0, "2024-05-01"}, {"a little right of the first", 0.49, "2024-05-01"},
                {"a little left of the first", -0.49, "2024-05-01"},
                {"half way belongs to the next", 0.5, "2024-05-02"},
                {"nearer to the next", 0.51, "2024-05-02"}, {"the last", 2.0, "2024-05-03"},
                {"a little right of the last", 2.49, "2024-05-03"}, {"beyond the last", 2.51, ""},
                {"one beyond the last", 3.0, ""}, {"before the first", -0.51, ""},
                {"far before the first", -100.0, ""}, {"far beyond every int", 1e12, ""},
                {"far below every int", -1e12, ""}, {"infinite", std::numeric_limits<double>::infinity(), ""},
                {"not a number", std::nan(""), ""}});
    }

    void linePointIsTheNearest()
    {
        QFETCH(double, x);
        QFETCH(QString, time);
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.m_nTimeType = 2;
        stage.page.m_strSelectedBar = "North";
        stage.page.lineDataList = {{"2024-05-01", 5}, {"2024-05-02", 5}, {"2024-05-03", 5}};
        stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
        stage.page.slotLineSelected(QPointF(x, 5), true);
        QCOMPARE(shownCallout(stage.page), time.isEmpty() ? u"before"_s : callout(time, "North", "5"));
        if (time.isEmpty())
            QCOMPARE(stage.page.labelCallout->pos(), QPoint(55, 35));
    }

    void lineTimeIsShownInTheUsersForm_data()
    {
        table<int, QString, QString, QString>({"timeType", "label", "format", "shown"},
            {{"months", 1, "2024-05", "yyyy-MM", "2024-05"},
                {"days", 2, "2024-05-03", "yyyy-MM-dd", "2024-05-03"},
                {"hours", 3, "2024-05-03 17", "yyyy-MM-dd hh", "2024-05-03 17"},
                {"no known unit is read as days", 0, "2024-05-03", "yyyy-MM-dd", "2024-05-03"},
                {"another unit is read as days", 4, "2024-05-03", "yyyy-MM-dd", "2024-05-03"}});
    }

    void lineTimeIsShownInTheUsersForm()
    {
        QFETCH(int, timeType);
        QFETCH(QString, label);
        QFETCH(QString, format);
        QFETCH(QString, shown);
        ChartStage stage(1, ChartStage::OnScreen);
        hoverOnlyPoint(stage.page, timeType, label);
        QCOMPARE(shownCallout(stage.page), callout(shown, "North", "5"));

        HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
        const QString display = BaseHelper::dateTimeFormatConversion(format);
        QVERIFY(display != format);
        stage.page.slotLineSelected(QPointF(0, 5), true);
        QCOMPARE(shownCallout(stage.page),
            callout(QDateTime(QDate(2024, 5, format == "yyyy-MM" ? 1 : 3), QTime(17, 0)).toString(display),
                "North", "5"));
    }

    void lineTimeThatIsNoTimeIsLeftOut_data()
    {
        table<int, QString>({"timeType", "label"},
            {{"words", 2, "some day"}, {"no label", 2, ""}, {"a null label", 2, QString()},
                {"an hour among days", 2, "2024-05-03 17"}, {"a day among hours", 3, "2024-05-03"},
                {"a day that does not exist", 2, "2024-02-30"}, {"a thirteenth month", 1, "2024-13"}});
    }

    void lineTimeThatIsNoTimeIsLeftOut()
    {
        QFETCH(int, timeType);
        QFETCH(QString, label);
        ChartStage stage(1, ChartStage::OnScreen);
        hoverOnlyPoint(stage.page, timeType, label);
        QCOMPARE(shownCallout(stage.page), callout("", "North", "5"));
    }

    void secondLineHasItsOwnList()
    {
        for (const int type : {7, 8, 9}) {
            ChartStage stage(type, ChartStage::OnScreen);
            stage.page.m_nTimeType = 2;
            stage.page.m_strSelectedBar = "North";
            stage.page.lineNames = QStringList{"first", "second"};
            stage.page.lineDataList = days;
            stage.page.lineDataList2 = {{"2024-06-01", 4}, {"2024-06-02", 6}};
            const OwnedChart chart(stage.page.createDualLineChart());
            Q_EMIT series<QLineSeries>(chart.get(), 0)->hovered(QPointF(1.2, 7), true);
            QCOMPARE(shownCallout(stage.page), callout("2024-05-02", "first", "7"));
            Q_EMIT series<QLineSeries>(chart.get(), 1)->hovered(QPointF(0.8, 6), true);
            QCOMPARE(shownCallout(stage.page), callout("2024-06-02", "second", "6"));
            Q_EMIT series<QLineSeries>(chart.get(), 1)->hovered(QPointF(2, 6), true);
            QCOMPARE(shownCallout(stage.page), callout("2024-06-02", "second", "6"));
            Q_EMIT series<QLineSeries>(chart.get(), 0)->hovered(QPointF(2, 6), true);
            QCOMPARE(shownCallout(stage.page), callout("2024-05-03", "first", "1234567"));
        }
    }

    void secondLineBeyondItsListShowsNothing()
    {
        for (const int type : {7, 8, 9}) {
            ChartStage stage(type, ChartStage::OnScreen);
            stage.page.m_nTimeType = 2;
            stage.page.lineDataList = days;
            stage.page.lineDataList2 = {{"2024-06-01", 4}};
            const OwnedChart chart(stage.page.createDualLineChart());
            for (const double x : {1.0, 2.0, -1.0})
                Q_EMIT series<QLineSeries>(chart.get(), 1)->hovered(QPointF(x, 6), true);
            QVERIFY(!stage.page.labelCallout);
            Q_EMIT series<QLineSeries>(chart.get(), 1)->hovered(QPointF(0, 6), true);
            QVERIFY(stage.page.labelCallout->isVisible());
        }
    }

    void dualLineWithoutASenderShowsNothing_data() { kinds({7, 8, 9}); }
    void dualLineWithoutASenderShowsNothing()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = days;
        stage.page.slotLineSelected(QPointF(0, 0), true);
        QVERIFY(!stage.page.labelCallout);
        stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
        stage.page.slotLineSelected(QPointF(0, 0), true);
        QCOMPARE(shownCallout(stage.page), u"before"_s);
        stage.page.slotLineSelected(QPointF(0, 0), false);
        QVERIFY(stage.page.labelCallout->isHidden());
    }

    void dualLineOfAnotherNameShowsNothing()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = days;
        for (const QString name : {"", "Line3", "line1", "Line", "Line12"}) {
            QLineSeries line;
            line.setObjectName(name);
            connect(&line, &QXYSeries::hovered, &stage.page, &BasicChart::slotLineSelected);
            Q_EMIT line.hovered(QPointF(0, 0), true);
            QVERIFY(!stage.page.labelCallout);
        }
    }

    void dualLineWithoutNamesIsSurvived()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.m_nTimeType = 2;
        stage.page.lineDataList = days;
        stage.page.lineDataList2 = days;
        stage.page.lineNames = QStringList{"first"};
        const OwnedChart chart(stage.page.createDualLineChart());
        Q_EMIT series<QLineSeries>(chart.get(), 1)->hovered(QPointF(0, 0), true);
        QCOMPARE(shownCallout(stage.page), callout("2024-05-01", "", "30"));
        stage.page.lineNames.clear();
        Q_EMIT series<QLineSeries>(chart.get(), 0)->hovered(QPointF(1, 0), true);
        QCOMPARE(shownCallout(stage.page), callout("2024-05-02", "", "7"));
    }

    void lineHoverEnds()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.slotLineSelected(QPointF(0, 0), false);
        QVERIFY(!stage.page.labelCallout);
        stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
        stage.page.slotLineSelected(QPointF(99, 0), false);
        QVERIFY(stage.page.labelCallout->isHidden());
        stage.page.slotLineSelected(QPointF(0, 0), false);
        QVERIFY(stage.page.labelCallout->isHidden());
    }

    void pieHoverShowsTheWholeLabel()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        QCursor::setPos(stage.page.mapToGlobal(QPoint(300, 200)));
        QPieSlice slice("Fire |   7.5% 3", 3);
        stage.page.slotPieSelected(&slice, true);
        QVERIFY(slice.isExploded());
        QCOMPARE(slice.explodeDistanceFactor(), 0.1);
        QCOMPARE(shownCallout(stage.page), callout(span, "Fire |   7.5% 3", ""));
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(315, 185));
    }

    void pieHoverEnds()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        QPieSlice slice("Fire |   7.5% 3", 3);
        slice.setExploded(true);
        stage.page.slotPieSelected(&slice, false);
        QVERIFY(!slice.isExploded());
        QCOMPARE(slice.explodeDistanceFactor(), 0.1);
        QVERIFY(!stage.page.labelCallout);

        stage.page.slotPieSelected(&slice, true);
        QVERIFY(stage.page.labelCallout->isVisible());
        stage.page.slotPieSelected(&slice, false);
        QVERIFY(stage.page.labelCallout->isHidden());
        QVERIFY(!slice.isExploded());
    }

    void noSliceDoesNothing()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.slotPieSelected(nullptr, true);
        QVERIFY(!stage.page.labelCallout);
        stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
        stage.page.slotPieSelected(nullptr, false);
        QVERIFY(stage.page.labelCallout->isVisible());
        stage.page.slotPieSelected(nullptr, true);
        QCOMPARE(shownCallout(stage.page), u"before"_s);
    }

    void barValueIsWrittenAsADouble_data()
    {
        table<int, QString>({"value", "shown"},
            {{"nothing", 0, "0"}, {"one digit", 7, "7"}, {"six digits", 999999, "999999"},
                {"seven digits", 1234567, "1.23457e+06"}, {"a million", 1000000, "1e+06"},
                {"below zero", -5, "-5"},
                {"the largest int", std::numeric_limits<int>::max(), "2.14748e+09"}});
    }

    void barValueIsWrittenAsADouble()
    {
        QFETCH(int, value);
        QFETCH(QString, shown);
        QBarSet set("set");
        set.append(value);
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", value}};
        stage.page.slotBarSelected(true, 0, &set);
        QCOMPARE(shownCallout(stage.page), callout(span, "North", shown));
        ChartStage online(4, ChartStage::OnScreen);
        online.page.barDataList = {{"North", value}};
        online.page.slotBarSelected(true, 0, &set);
        QCOMPARE(online.page.labelCallout->text(), callout(span, "North", shown + "%"));
        ChartStage traffic(7, ChartStage::OnScreen);
        traffic.page.barDataList = {{"North", value}};
        const OwnedChart chart(traffic.page.createDualBarChart());
        traffic.page.slotBarSelected(
            true, 0, series<QAbstractBarSeries>(chart.get())->barSets().constFirst());
        QCOMPARE(traffic.page.labelCallout->text(), callout(span, text("TK_Vehicle"), shown));
    }

    void barHoverEnds()
    {
        QBarSet set("set");
        set.append(5);
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 5}};
        stage.page.slotBarSelected(false, 0, &set);
        QVERIFY(!stage.page.labelCallout);
        stage.page.slotBarSelected(true, 0, &set);
        QVERIFY(stage.page.labelCallout->isVisible());
        stage.page.slotBarSelected(false, 0, nullptr);
        QVERIFY(stage.page.labelCallout->isVisible());
        stage.page.slotBarSelected(false, 0, &set);
        QVERIFY(stage.page.labelCallout->isHidden());
    }

    void barOutOfRangeShowsNothing_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("index");
        for (int type = 1; type <= 9; ++type) {
            QTest::addRow("one beyond on service type %d", type) << type << 2;
            QTest::addRow("far beyond on service type %d", type) << type << std::numeric_limits<int>::max();
            QTest::addRow("below zero on service type %d", type) << type << -1;
        }
    }

    void barOutOfRangeShowsNothing()
    {
        QFETCH(int, index);
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 5}, {"South", 4}};
        stage.page.barDataList2 = {{"North", 5}, {"South", 4}};
        QBarSet set("set");
        set.append({5, 4, 3, 2});
        stage.page.m_strSelectedBar = "selected";
        stage.page.slotBarSelected(true, index, nullptr);
        stage.page.slotBarSelected(true, index, &set);
        QVERIFY(!stage.page.labelCallout || stage.page.labelCallout->isHidden());
        QCOMPARE(stage.page.m_strSelectedBar, u"selected"_s);
        stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
        stage.page.slotBarSelected(true, index, &set);
        QVERIFY(stage.page.labelCallout->isHidden());
        QVERIFY(!stage.page.m_pTimer->isActive());
    }

    void namesStandToTheLetter_data() { trickyNameRows(); }
    void namesStandToTheLetter()
    {
        QFETCH(QString, name);
        const auto shows = [&name](const ProbePage &page, const QString &time, const QString &value) {
            const QString shown =
                plainText(page.labelCallout->text()).remove(QChar::ObjectReplacementCharacter);
            const QString expected = time + ' ' + name + ' ' + value;
            if (shown.simplified() == expected.simplified())
                return true;
            qWarning() << shown << expected;
            return false;
        };
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.m_nTimeType = 2;
        stage.page.lineDataList = days;
        stage.page.m_strSelectedBar = name;
        stage.page.slotLineSelected(QPointF(1, 0), true);
        QVERIFY(shows(stage.page, "2024-05-02", "7"));

        QPieSlice slice(name, 3);
        stage.page.slotPieSelected(&slice, true);
        QVERIFY(shows(stage.page, span, ""));

        QBarSet set("set");
        set.append(5);
        stage.page.barDataList = {{name, 5}};
        stage.page.m_strSelectedBar = "another";
        stage.page.slotBarSelected(true, 0, &set);
        QVERIFY(shows(stage.page, span, "5"));
        QCOMPARE(stage.page.m_strSelectedBar, name);

        ChartStage dual(7, ChartStage::OnScreen);
        dual.page.barDataList = {{"bar", 5}};
        QBarSet named(name);
        named.append(5);
        dual.page.slotBarSelected(true, 0, &named);
        QVERIFY(shows(dual.page, span, "5"));

        dual.page.m_nTimeType = 2;
        dual.page.lineDataList = days;
        dual.page.lineNames = {name, "other"};
        QLineSeries line;
        line.setObjectName("Line1");
        connect(&line, &QXYSeries::hovered, &dual.page, &BasicChart::slotLineSelected);
        Q_EMIT line.hovered(QPointF(1, 0), true);
        QVERIFY(shows(dual.page, "2024-05-02", "7"));
    }

    void onlyTheEndOfTheHoverHidesTheCallout()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 90}};
        stage.page.loadChart();
        stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(40, 50)));
        stage.page.loadChart();
        stage.page.reloadLineAndPieChart();
        stage.page.reloadPieChart();
        stage.page.updateChartOverlays();
        QVERIFY(stage.page.labelCallout->isVisible());
        stage.page.clearChartData();
        QVERIFY(stage.page.labelCallout->isVisible());
        QCursor::setPos(stage.page.mapToGlobal(QPoint(1, 1)));
        QCoreApplication::processEvents();
        QCOMPARE(shownCallout(stage.page), u"text"_s);
    }

    void realPointerOverBars_data() { kinds({1, 2, 3, 4, 5, 6}); }
    void realPointerOverBars()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.client.setRecorderTypes({2});
        stage.page.barDataList = {{"North", 90}, {"South", 40}, {"East", 60}, {"West", 50}};
        stage.page.devTypeDataList = {{"North", 1}, {"South", 2}, {"East", 1}, {"West", 2}};
        stage.loadGrown();
        ZrChartView *view = stage.page.barChartView;
        const QString unit = stage.page.m_serviceType == 4 ? "%" : "";
        moveAway(view);
        QVERIFY(!stage.page.labelCallout);
        for (const int i : {0, 1, 2}) {
            const auto &[name, value] = stage.page.barDataList.at(i);
            moveTo(view, middleOfBar(view->chart(), i, 0, value));
            QCOMPARE(shownCallout(stage.page), callout(span, name, QString::number(value) + unit));
            QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
            moveTo(view, middleOfBar(view->chart(), i, value + 3, value + 8));
            QVERIFY(!stage.page.labelCallout->isVisible());
        }
    }

    void realPointerOverALine_data()
    {
        table<int, QStringList>({"timeType", "labels"},
            {{"days", 2, {"2024-05-01", "2024-05-02", "2024-05-03"}},
                {"months", 1, {"2024-03", "2024-04", "2024-05"}},
                {"hours that recur on the next day", 3,
                    {"2024-05-02 17", "2024-05-03 16", "2024-05-03 17"}}});
    }

    void realPointerOverALine()
    {
        QFETCH(int, timeType);
        QFETCH(QStringList, labels);
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.m_nTimeType = timeType;
        stage.page.barDataList = {{"North", 90}};
        stage.page.lineDataList = {{labels.at(0), 90}, {labels.at(1), 10}, {labels.at(2), 60}};
        stage.loadGrown();
        ZrChartView *view = stage.page.lineChartView;
        for (const int i : {2, 0, 1}) {
            moveAway(view);
            QVERIFY(!stage.page.labelCallout || stage.page.labelCallout->isHidden());
            const auto &[label, value] = stage.page.lineDataList.at(i);
            moveTo(view, view->chart()->mapToPosition(QPointF(i, value)));
            QCOMPARE(shownCallout(stage.page), callout(label, "North", QString::number(value)));
            QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
        }
    }

    void realPointerOverTwoLines()
    {
        ChartStage stage(8, ChartStage::OnScreen);
        stage.page.m_nTimeType = 2;
        stage.page.lineDataList = {{"2024-05-01", 9}, {"2024-05-02", 8}};
        stage.page.lineDataList2 = {{"2024-05-01", 2}, {"2024-05-02", 3}};
        stage.loadGrown();
        ZrChartView *view = stage.page.lineChartView;
        moveTo(view, view->chart()->mapToPosition(QPointF(1, 8)));
        QCOMPARE(shownCallout(stage.page), callout("2024-05-02", text("TK_Vehicle"), "8"));
        moveAway(view);
        QVERIFY(stage.page.labelCallout->isHidden());
        moveTo(view, view->chart()->mapToPosition(QPointF(0, 2)));
        QCOMPARE(shownCallout(stage.page), callout("2024-05-01", text("TK_Pedestrian"), "2"));
    }

    void realPointerOverThePie()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.pieDataList = {{"Fire", 30}, {"Smoke", 10}};
        stage.loadGrown();
        ZrChartView *view = stage.page.pieChartView;
        const QList<QPieSlice *> slices = series<QPieSeries>(view->chart())->slices();
        moveTo(view, pointOfRing(view->chart(), 0.5));
        QCOMPARE(shownCallout(stage.page), callout(span, "Fire |  75.0% 30", ""));
        QVERIFY(slices.at(0)->isExploded());
        QVERIFY(!slices.at(1)->isExploded());

        moveTo(view, pointOfRing(view->chart(), 0.875));
        QCOMPARE(shownCallout(stage.page), callout(span, "Smoke |  25.0% 10", ""));
        QVERIFY(!slices.at(0)->isExploded());
        QVERIFY(slices.at(1)->isExploded());

        moveTo(view, view->chart()->plotArea().center());
        QVERIFY(stage.page.labelCallout->isHidden());
        QVERIFY(!slices.at(1)->isExploded());
    }

    void realPointerOverTheTotal()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.pieDataList = {{"Fire", 30}};
        stage.loadGrown();
        ZrChartView *view = stage.page.pieChartView;
        stage.page.labelPiecount->resize(view->size());
        stage.page.labelPiecount->move(0, 0);
        QTest::mouseMove(stage.page.labelPiecount,
            view->mapFromScene(view->chart()->mapToScene(pointOfRing(view->chart(), 0.25))));
        QCOMPARE(shownCallout(stage.page), callout(span, "Fire | 100.0% 30", ""));
        QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
    }

    void realPointerIsFollowed()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.barDataList = {{"North", 90}};
        stage.page.pieDataList = {{"Fire", 30}};
        stage.page.lineDataList = {{"2024-05-01", 9}, {"2024-05-02", 8}};
        stage.loadGrown();
        ZrChartView *view = stage.page.barChartView;
        const QPointF middle = middleOfBar(view->chart(), 0, 0, 90);
        moveTo(view, middle);
        QVERIFY(stage.page.labelCallout);
        const QPoint first = stage.page.labelCallout->pos();
        moveTo(view, middle + QPointF(4, 20));
        QVERIFY(stage.page.labelCallout->isVisible());
        QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
        QVERIFY(stage.page.labelCallout->pos() != first);

        for (ZrChartView *other : std::as_const(stage.page.m_chartViewList)) {
            QTest::mouseMove(other->viewport(), QPoint(7, 9));
            stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(1, 1)));
            QTest::mouseMove(other->viewport(), QPoint(6, 6));
            QVERIFY(stage.page.labelCallout->isVisible());
            QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
        }
    }

    void realPointerNearTheRightEdge()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        for (int i = 0; i < 12; ++i)
            stage.page.barDataList.append({u"bar %1"_s.arg(i), 90});
        stage.loadGrown();
        ZrChartView *view = stage.page.barChartView;
        moveTo(view, middleOfBar(view->chart(), 11, 0, 90));
        QVERIFY(stage.page.labelCallout);
        const QPoint right = underPointer(stage.page);
        const int width = stage.page.labelCallout->width();
        QVERIFY(right.x() + 10 + width >= stage.page.width());
        QCOMPARE(stage.page.labelCallout->pos(), right + QPoint(-width - 15, -15));

        moveTo(view, middleOfBar(view->chart(), 3, 0, 90));
        QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
    }
};

TALVIX_TEST_MAIN(CalloutsTest)

#include "tst_callouts.moc"
