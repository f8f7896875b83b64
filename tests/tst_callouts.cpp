#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/BaseHelper.h>

#include <cmath>
#include <limits>

using namespace ChartProbe;

class CalloutsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void calloutIsMadeByTheFirstHover();
    void calloutIsMadeOnce();
    void calloutStandsBesideThePoint_data();
    void calloutStandsBesideThePoint();
    void calloutFlipsByItsOwnWidth();
    void calloutFitsItsText();
    void moveTakesTheCalloutAlong_data();
    void moveTakesTheCalloutAlong();
    void moveKeepsTextAndVisibility();
    void moveBeforeAnyHover();
    void moveBackFlipsTheCalloutBack();

    void lineHoverShowsThePoint_data();
    void lineHoverShowsThePoint();
    void linePointIsTheNearest_data();
    void linePointIsTheNearest();
    void lineTimeIsShownInTheUsersForm_data();
    void lineTimeIsShownInTheUsersForm();
    void lineTimeThatIsNoTimeIsLeftOut_data();
    void lineTimeThatIsNoTimeIsLeftOut();
    void secondLineHasItsOwnList();
    void secondLineBeyondItsListShowsNothing();
    void dualLineWithoutASenderShowsNothing_data();
    void dualLineWithoutASenderShowsNothing();
    void dualLineOfAnotherNameShowsNothing();
    void dualLineWithoutNamesIsSurvived();
    void lineHoverEnds();

    void pieHoverShowsTheWholeLabel();
    void pieHoverEnds();
    void noSliceDoesNothing();

    void barHoverShowsNameAndValue_data();
    void barHoverShowsNameAndValue();
    void barValueIsWrittenAsADouble_data();
    void barValueIsWrittenAsADouble();
    void dualBarHoverShowsTheSet_data();
    void dualBarHoverShowsTheSet();
    void barHoverEnds();
    void barOutOfRangeShowsNothing_data();
    void barOutOfRangeShowsNothing();
    void namesStandToTheLetter_data();
    void namesStandToTheLetter();

    void onlyTheEndOfTheHoverHidesTheCallout();
    void realPointerOverBars_data();
    void realPointerOverBars();
    void realPointerOverStackedBars();
    void realPointerOverDualBars();
    void realPointerOverALine_data();
    void realPointerOverALine();
    void realPointerOverTwoLines();
    void realPointerOverThePie();
    void realPointerOverTheTotal();
    void realPointerIsFollowed();
    void realPointerNearTheRightEdge();
};

static const QString span = QStringLiteral("2024-05-01~2024-05-03");

static const LabelledValues days = {{"2024-05-01", 30}, {"2024-05-02", 7}, {"2024-05-03", 1234567}};

void CalloutsTest::cleanup()
{
    HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
}

void CalloutsTest::calloutIsMadeByTheFirstHover()
{
    ChartStage stage(1, ChartStage::OnScreen);
    QVERIFY(!stage.page.labelCallout);
    QVERIFY(!stage.page.findChild<QLabel *>("LabelCallout"));
    stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(100, 100)));
    const QLabel *callout = stage.page.labelCallout;
    QVERIFY(callout);
    QCOMPARE(callout->parent(), &stage.page);
    QCOMPARE(callout->objectName(), QStringLiteral("LabelCallout"));
    QCOMPARE(callout->minimumSize(), QSize(200, 70));
    // Under the pointer it would end the very hover that it answers.
    QVERIFY(callout->testAttribute(Qt::WA_TransparentForMouseEvents));
    QCOMPARE(callout->text(), QStringLiteral("text"));
    QVERIFY(callout->isVisible());
}

void CalloutsTest::calloutIsMadeOnce()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.showCallout("first", stage.page.mapToGlobal(QPoint(100, 100)));
    const QPointer<QLabel> callout = stage.page.labelCallout;
    callout->hide();
    stage.page.showCallout("second", stage.page.mapToGlobal(QPoint(300, 100)));
    QCOMPARE(stage.page.labelCallout, callout.data());
    QCOMPARE(callout->text(), QStringLiteral("second"));
    QVERIFY(callout->isVisible());
    QCOMPARE(stage.page.findChildren<QLabel *>("LabelCallout").size(), 1);
}

void CalloutsTest::calloutStandsBesideThePoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QPoint>("place");

    QTest::newRow("in the middle") << QPoint(500, 300) << QPoint(515, 285);
    QTest::newRow("the last that fits") << QPoint(925, 300) << QPoint(940, 285);
    QTest::newRow("the first that flips") << QPoint(926, 300) << QPoint(711, 285);
    QTest::newRow("at the right edge") << QPoint(1135, 300) << QPoint(920, 285);
    QTest::newRow("beyond the right edge") << QPoint(1500, 300) << QPoint(1285, 285);
    QTest::newRow("nothing keeps it below the top") << QPoint(100, 3) << QPoint(115, -12);
    QTest::newRow("nothing keeps it above the bottom") << QPoint(100, 647) << QPoint(115, 632);
    QTest::newRow("nothing keeps it off the left edge") << QPoint(-300, 50) << QPoint(-285, 35);
}

void CalloutsTest::calloutStandsBesideThePoint()
{
    QFETCH(QPoint, point);
    ChartStage stage(1, ChartStage::OnScreen);
    QCOMPARE(stage.page.width(), 1136);
    stage.page.showCallout("text", stage.page.mapToGlobal(point));
    QCOMPARE(stage.page.labelCallout->size(), QSize(200, 70));
    QTEST(stage.page.labelCallout->pos(), "place");
    QVERIFY(stage.page.labelCallout->isVisible());
}

void CalloutsTest::calloutFlipsByItsOwnWidth()
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

void CalloutsTest::calloutFitsItsText()
{
    ChartStage stage(1, ChartStage::OnScreen);
    for (const QString &text : {QString(60, 'm'), QStringLiteral("a<br/>b<br/>c<br/>d<br/>e<br/>f<br/>g"),
             QStringLiteral("short"), callout(span, QString(80, 'x'), "3")}) {
        stage.page.showCallout(text, stage.page.mapToGlobal(QPoint(10, 10)));
        const QLabel *label = stage.page.labelCallout;
        QCOMPARE(label->size(), label->sizeHint().expandedTo(QSize(200, 70)));
    }
}

void CalloutsTest::moveTakesTheCalloutAlong_data()
{
    calloutStandsBesideThePoint_data();
}

void CalloutsTest::moveTakesTheCalloutAlong()
{
    QFETCH(QPoint, point);
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(40, 50)));
    stage.page.slotRecvMouseMove(stage.page.mapToGlobal(point));
    QTEST(stage.page.labelCallout->pos(), "place");
}

void CalloutsTest::moveKeepsTextAndVisibility()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(40, 50)));
    stage.page.labelCallout->resize(321, 99);
    stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(900, 60)));
    QCOMPARE(stage.page.labelCallout->pos(), QPoint(900 - 321 - 15, 45));
    QCOMPARE(stage.page.labelCallout->size(), QSize(321, 99));
    QCOMPARE(stage.page.labelCallout->text(), QStringLiteral("text"));
    QVERIFY(stage.page.labelCallout->isVisible());

    stage.page.labelCallout->hide();
    const QPoint place = stage.page.labelCallout->pos();
    stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(400, 400)));
    QCOMPARE(stage.page.labelCallout->pos(), place);
    QVERIFY(stage.page.labelCallout->isHidden());
}

void CalloutsTest::moveBeforeAnyHover()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(400, 400)));
    QVERIFY(!stage.page.labelCallout);
}

void CalloutsTest::moveBackFlipsTheCalloutBack()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(1000, 300)));
    QCOMPARE(stage.page.labelCallout->pos(), QPoint(785, 285));
    stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(800, 300)));
    QCOMPARE(stage.page.labelCallout->pos(), QPoint(815, 285));
    stage.page.slotRecvMouseMove(stage.page.mapToGlobal(QPoint(1001, 310)));
    QCOMPARE(stage.page.labelCallout->pos(), QPoint(786, 295));
}

void CalloutsTest::lineHoverShowsThePoint_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {1, 2, 3, 4, 5, 6, 0, 10})
        QTest::addRow("service type %d", type) << type;
}

void CalloutsTest::lineHoverShowsThePoint()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.m_nTimeType = 2;
    stage.page.m_strSelectedBar = "North";
    stage.page.lineDataList = days;
    QCursor::setPos(stage.page.mapToGlobal(QPoint(300, 200)));
    stage.page.slotLineSelected(QPointF(2, 999), true);
    QVERIFY(stage.page.labelCallout);
    QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-03", "North", "1234567"));
    QCOMPARE(stage.page.labelCallout->pos(), QPoint(315, 185));
    QVERIFY(stage.page.labelCallout->isVisible());

    stage.page.m_strSelectedBar = "South";
    stage.page.slotLineSelected(QPointF(0, 0), true);
    QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-01", "South", "30"));
}

void CalloutsTest::linePointIsTheNearest_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<QString>("time");

    QTest::newRow("the first") << 0.0 << "2024-05-01";
    QTest::newRow("a little right of the first") << 0.49 << "2024-05-01";
    QTest::newRow("a little left of the first") << -0.49 << "2024-05-01";
    QTest::newRow("half way belongs to the next") << 0.5 << "2024-05-02";
    QTest::newRow("nearer to the next") << 0.51 << "2024-05-02";
    QTest::newRow("the last") << 2.0 << "2024-05-03";
    QTest::newRow("a little right of the last") << 2.49 << "2024-05-03";
    QTest::newRow("beyond the last") << 2.51 << "";
    QTest::newRow("one beyond the last") << 3.0 << "";
    QTest::newRow("before the first") << -0.51 << "";
    QTest::newRow("far before the first") << -100.0 << "";
    QTest::newRow("far beyond every int") << 1e12 << "";
    QTest::newRow("far below every int") << -1e12 << "";
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << "";
    QTest::newRow("not a number") << std::nan("") << "";
}

void CalloutsTest::linePointIsTheNearest()
{
    QFETCH(double, x);
    QFETCH(QString, time);
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.m_nTimeType = 2;
    stage.page.m_strSelectedBar = "North";
    stage.page.lineDataList = {{"2024-05-01", 5}, {"2024-05-02", 5}, {"2024-05-03", 5}};
    stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
    stage.page.slotLineSelected(QPointF(x, 5), true);
    QVERIFY(stage.page.labelCallout->isVisible());
    QCOMPARE(stage.page.labelCallout->text(),
        time.isEmpty() ? QStringLiteral("before") : callout(time, "North", "5"));
    if (time.isEmpty())
        QCOMPARE(stage.page.labelCallout->pos(), QPoint(55, 35));
}

void CalloutsTest::lineTimeIsShownInTheUsersForm_data()
{
    QTest::addColumn<int>("timeType");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("shown");

    QTest::newRow("months") << 1 << "2024-05"
                            << "yyyy-MM"
                            << "2024-05";
    QTest::newRow("days") << 2 << "2024-05-03"
                          << "yyyy-MM-dd"
                          << "2024-05-03";
    QTest::newRow("hours") << 3 << "2024-05-03 17"
                           << "yyyy-MM-dd hh"
                           << "2024-05-03 17";
    QTest::newRow("no known unit is read as days") << 0 << "2024-05-03"
                                                   << "yyyy-MM-dd"
                                                   << "2024-05-03";
    QTest::newRow("another unit is read as days") << 4 << "2024-05-03"
                                                  << "yyyy-MM-dd"
                                                  << "2024-05-03";
}

void CalloutsTest::lineTimeIsShownInTheUsersForm()
{
    QFETCH(int, timeType);
    QFETCH(QString, label);
    QFETCH(QString, format);
    QFETCH(QString, shown);
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.m_nTimeType = timeType;
    stage.page.m_strSelectedBar = "North";
    stage.page.lineDataList = {{label, 5}};
    stage.page.slotLineSelected(QPointF(0, 5), true);
    QCOMPARE(stage.page.labelCallout->text(), callout(shown, "North", "5"));

    HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
    const QString display = BaseHelper::dateTimeFormatConversion(format);
    QVERIFY(display != format);
    stage.page.slotLineSelected(QPointF(0, 5), true);
    QCOMPARE(stage.page.labelCallout->text(),
        callout(QDateTime(QDate(2024, 5, format == "yyyy-MM" ? 1 : 3), QTime(17, 0)).toString(display),
            "North", "5"));
}

void CalloutsTest::lineTimeThatIsNoTimeIsLeftOut_data()
{
    QTest::addColumn<int>("timeType");
    QTest::addColumn<QString>("label");

    QTest::newRow("words") << 2 << "some day";
    QTest::newRow("no label") << 2 << "";
    QTest::newRow("a null label") << 2 << QString();
    QTest::newRow("an hour among days") << 2 << "2024-05-03 17";
    QTest::newRow("a day among hours") << 3 << "2024-05-03";
    QTest::newRow("a day that does not exist") << 2 << "2024-02-30";
    QTest::newRow("a thirteenth month") << 1 << "2024-13";
}

void CalloutsTest::lineTimeThatIsNoTimeIsLeftOut()
{
    QFETCH(int, timeType);
    QFETCH(QString, label);
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.m_nTimeType = timeType;
    stage.page.m_strSelectedBar = "North";
    stage.page.lineDataList = {{label, 5}};
    stage.page.slotLineSelected(QPointF(0, 5), true);
    QCOMPARE(stage.page.labelCallout->text(), callout("", "North", "5"));
}

void CalloutsTest::secondLineHasItsOwnList()
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
        QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-02", "first", "7"));
        Q_EMIT series<QLineSeries>(chart.get(), 1)->hovered(QPointF(0.8, 6), true);
        QCOMPARE(stage.page.labelCallout->text(), callout("2024-06-02", "second", "6"));
        Q_EMIT series<QLineSeries>(chart.get(), 1)->hovered(QPointF(2, 6), true);
        QCOMPARE(stage.page.labelCallout->text(), callout("2024-06-02", "second", "6"));
        Q_EMIT series<QLineSeries>(chart.get(), 0)->hovered(QPointF(2, 6), true);
        QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-03", "first", "1234567"));
    }
}

void CalloutsTest::secondLineBeyondItsListShowsNothing()
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

void CalloutsTest::dualLineWithoutASenderShowsNothing_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {7, 8, 9})
        QTest::addRow("service type %d", type) << type;
}

void CalloutsTest::dualLineWithoutASenderShowsNothing()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.lineDataList = days;
    stage.page.lineDataList2 = days;
    stage.page.slotLineSelected(QPointF(0, 0), true);
    QVERIFY(!stage.page.labelCallout);
    stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
    stage.page.slotLineSelected(QPointF(0, 0), true);
    QCOMPARE(stage.page.labelCallout->text(), QStringLiteral("before"));
    stage.page.slotLineSelected(QPointF(0, 0), false);
    QVERIFY(stage.page.labelCallout->isHidden());
}

void CalloutsTest::dualLineOfAnotherNameShowsNothing()
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

void CalloutsTest::dualLineWithoutNamesIsSurvived()
{
    ChartStage stage(7, ChartStage::OnScreen);
    stage.page.m_nTimeType = 2;
    stage.page.lineDataList = days;
    stage.page.lineDataList2 = days;
    stage.page.lineNames = QStringList{"first"};
    const OwnedChart chart(stage.page.createDualLineChart());
    Q_EMIT series<QLineSeries>(chart.get(), 1)->hovered(QPointF(0, 0), true);
    QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-01", "", "30"));
    stage.page.lineNames.clear();
    Q_EMIT series<QLineSeries>(chart.get(), 0)->hovered(QPointF(1, 0), true);
    QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-02", "", "7"));
}

void CalloutsTest::lineHoverEnds()
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

void CalloutsTest::pieHoverShowsTheWholeLabel()
{
    ChartStage stage(1, ChartStage::OnScreen);
    QCursor::setPos(stage.page.mapToGlobal(QPoint(300, 200)));
    QPieSlice slice("Fire |   7.5% 3", 3);
    stage.page.slotPieSelected(&slice, true);
    QVERIFY(slice.isExploded());
    QCOMPARE(slice.explodeDistanceFactor(), 0.1);
    QCOMPARE(stage.page.labelCallout->text(), callout(span, "Fire |   7.5% 3", ""));
    QCOMPARE(stage.page.labelCallout->pos(), QPoint(315, 185));
    QVERIFY(stage.page.labelCallout->isVisible());
}

void CalloutsTest::pieHoverEnds()
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

void CalloutsTest::noSliceDoesNothing()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.slotPieSelected(nullptr, true);
    QVERIFY(!stage.page.labelCallout);
    stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
    stage.page.slotPieSelected(nullptr, false);
    QVERIFY(stage.page.labelCallout->isVisible());
    stage.page.slotPieSelected(nullptr, true);
    QCOMPARE(stage.page.labelCallout->text(), QStringLiteral("before"));
}

void CalloutsTest::barHoverShowsNameAndValue_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("value");

    for (const int type : {1, 2, 3, 5, 6})
        QTest::addRow("service type %d shows the number", type) << type << "75";
    QTest::newRow("service type 4 shows a percentage") << 4 << "75%";
}

void CalloutsTest::barHoverShowsNameAndValue()
{
    QFETCH(int, type);
    QFETCH(QString, value);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 100}, {"South", 75}};
    stage.page.devTypeDataList = {{"North", 1}, {"South", 2}};
    QCursor::setPos(stage.page.mapToGlobal(QPoint(300, 200)));
    const OwnedChart chart(stage.page.createBarChart());
    auto *bars = series<QAbstractBarSeries>(chart.get());
    Q_EMIT bars->hovered(true, 1, bars->barSets().constLast());
    QCOMPARE(stage.page.labelCallout->text(), callout(span, "South", value));
    QCOMPARE(stage.page.labelCallout->pos(), QPoint(315, 185));
}

void CalloutsTest::barValueIsWrittenAsADouble_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("shown");

    QTest::newRow("nothing") << 0 << "0";
    QTest::newRow("six digits") << 999999 << "999999";
    QTest::newRow("seven digits") << 1234567 << "1.23457e+06";
    QTest::newRow("a million") << 1000000 << "1e+06";
    QTest::newRow("below zero") << -5 << "-5";
    QTest::newRow("the largest int") << std::numeric_limits<int>::max() << "2.14748e+09";
}

void CalloutsTest::barValueIsWrittenAsADouble()
{
    QFETCH(int, value);
    QFETCH(QString, shown);
    QBarSet set("set");
    set.append(value);
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", value}};
    stage.page.slotBarSelected(true, 0, &set);
    QCOMPARE(stage.page.labelCallout->text(), callout(span, "North", shown));
    ChartStage online(4, ChartStage::OnScreen);
    online.page.barDataList = {{"North", value}};
    online.page.slotBarSelected(true, 0, &set);
    QCOMPARE(online.page.labelCallout->text(), callout(span, "North", shown + "%"));
    ChartStage traffic(7, ChartStage::OnScreen);
    traffic.page.barDataList = {{"North", value}};
    const OwnedChart chart(traffic.page.createDualBarChart());
    traffic.page.slotBarSelected(true, 0, series<QAbstractBarSeries>(chart.get())->barSets().constFirst());
    QCOMPARE(traffic.page.labelCallout->text(), callout(span, text("TK_Vehicle"), shown));
}

void CalloutsTest::dualBarHoverShowsTheSet_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");

    QTest::newRow("traffics of organisations") << 7 << "TK_Vehicle"
                                               << "TK_Pedestrian";
    QTest::newRow("traffics of devices") << 8 << "TK_Vehicle"
                                         << "TK_Pedestrian";
    QTest::newRow("device groups") << 9 << "TK_AlarmAccepted"
                                   << "TK_AlarmUnAccepted";
}

void CalloutsTest::dualBarHoverShowsTheSet()
{
    QFETCH(int, type);
    QFETCH(QString, first);
    QFETCH(QString, second);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 100}, {"South", 75}};
    stage.page.barDataList2 = {{"North", 3}, {"South", 4}};
    const OwnedChart chart(stage.page.createDualBarChart());
    auto *bars = series<QAbstractBarSeries>(chart.get());
    Q_EMIT bars->hovered(true, 0, bars->barSets().at(0));
    QCOMPARE(stage.page.labelCallout->text(), callout(span, text(first), "100"));
    Q_EMIT bars->hovered(true, 1, bars->barSets().at(1));
    QCOMPARE(stage.page.labelCallout->text(), callout(span, text(second), "4"));
}

void CalloutsTest::barHoverEnds()
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

void CalloutsTest::barOutOfRangeShowsNothing_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");

    for (const int type : {1, 4, 7}) {
        QTest::addRow("one beyond on service type %d", type) << type << 2;
        QTest::addRow("far beyond on service type %d", type) << type << std::numeric_limits<int>::max();
        QTest::addRow("below zero on service type %d", type) << type << -1;
    }
}

void CalloutsTest::barOutOfRangeShowsNothing()
{
    QFETCH(int, type);
    QFETCH(int, index);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 5}, {"South", 4}};
    stage.page.barDataList2 = {{"North", 5}, {"South", 4}};
    QBarSet set("set");
    set.append({5, 4, 3, 2});
    stage.page.m_strSelectedBar = "selected";
    stage.page.slotBarSelected(true, index, nullptr);
    stage.page.slotBarSelected(true, index, &set);
    QVERIFY(!stage.page.labelCallout || stage.page.labelCallout->isHidden());
    QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("selected"));
    stage.page.showCallout("before", stage.page.mapToGlobal(QPoint(40, 50)));
    stage.page.slotBarSelected(true, index, &set);
    QVERIFY(stage.page.labelCallout->isHidden());
}

void CalloutsTest::namesStandToTheLetter_data()
{
    trickyNameRows();
    QTest::newRow("an empty name") << QString("");
    QTest::newRow("a null name") << QString();
}

void CalloutsTest::namesStandToTheLetter()
{
    QFETCH(QString, name);
    const auto shows = [&name](const ProbePage &page, const QString &time, const QString &value) {
        const QString shown = plainText(page.labelCallout->text()).remove(QChar::ObjectReplacementCharacter);
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

void CalloutsTest::onlyTheEndOfTheHoverHidesTheCallout()
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
    QVERIFY(stage.page.labelCallout->isVisible());
    QCOMPARE(stage.page.labelCallout->text(), QStringLiteral("text"));
}

void CalloutsTest::realPointerOverBars_data()
{
    QTest::addColumn<int>("type");

    for (const int type : {1, 3, 5, 6})
        QTest::addRow("service type %d", type) << type;
}

static QPoint underPointer(const ProbePage &page)
{
    return page.mapFromGlobal(QCursor::pos());
}

void CalloutsTest::realPointerOverBars()
{
    QFETCH(int, type);
    ChartStage stage(type, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 90}, {"South", 40}, {"East", 60}, {"West", 50}};
    stage.page.loadChart();
    waitForAnimation();
    ZrChartView *view = stage.page.barChartView;
    moveAway(view);
    QVERIFY(!stage.page.labelCallout);
    for (const int i : {0, 1, 2}) {
        const auto &[name, value] = stage.page.barDataList.at(i);
        moveTo(view, middleOfBar(view->chart(), i, 0, value));
        QVERIFY(stage.page.labelCallout);
        QVERIFY(stage.page.labelCallout->isVisible());
        QCOMPARE(stage.page.labelCallout->text(), callout(span, name, QString::number(value)));
        QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
        moveTo(view, middleOfBar(view->chart(), i, value + 3, value + 8));
        QVERIFY(!stage.page.labelCallout->isVisible());
    }
}

void CalloutsTest::realPointerOverStackedBars()
{
    for (const int type : {2, 4}) {
        ChartStage stage(type, ChartStage::OnScreen);
        stage.client.setRecorderTypes({2});
        stage.page.barDataList = {{"Gate", 90}, {"Recorder", 80}};
        stage.page.devTypeDataList = {{"Gate", 1}, {"Recorder", 2}};
        stage.page.loadChart();
        waitForAnimation();
        ZrChartView *view = stage.page.barChartView;
        const QString unit = type == 4 ? "%" : "";
        moveTo(view, middleOfBar(view->chart(), 0, 0, 90));
        QVERIFY(stage.page.labelCallout);
        QCOMPARE(stage.page.labelCallout->text(), callout(span, "Gate", "90" + unit));
        moveTo(view, middleOfBar(view->chart(), 1, 0, 80));
        QVERIFY(stage.page.labelCallout->isVisible());
        QCOMPARE(stage.page.labelCallout->text(), callout(span, "Recorder", "80" + unit));
    }
}

void CalloutsTest::realPointerOverDualBars()
{
    ChartStage stage(9, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 9}, {"South", 7}};
    stage.page.barDataList2 = {{"North", 6}, {"South", 8}};
    stage.page.loadChart();
    waitForAnimation();
    ZrChartView *view = stage.page.barChartView;
    QChart *chart = view->chart();
    const double column = chart->mapToPosition(QPointF(1, 0), chart->series().constFirst()).x()
        - chart->mapToPosition(QPointF(0, 0), chart->series().constFirst()).x();
    const QPointF beside(column * 0.075 / 2, 0);
    moveTo(view, middleOfBar(chart, 1, 0, 7) - beside);
    QVERIFY(stage.page.labelCallout);
    QCOMPARE(stage.page.labelCallout->text(), callout(span, text("TK_AlarmAccepted"), "7"));
    moveTo(view, middleOfBar(chart, 1, 0, 8) + beside);
    QCOMPARE(stage.page.labelCallout->text(), callout(span, text("TK_AlarmUnAccepted"), "8"));
    QCOMPARE(stage.page.m_strSelectedBar, QStringLiteral("South"));
    moveAway(view);
    QVERIFY(stage.page.labelCallout->isHidden());
}

void CalloutsTest::realPointerOverALine_data()
{
    QTest::addColumn<int>("timeType");
    QTest::addColumn<QStringList>("labels");

    QTest::newRow("days") << 2 << QStringList{"2024-05-01", "2024-05-02", "2024-05-03"};
    QTest::newRow("months") << 1 << QStringList{"2024-03", "2024-04", "2024-05"};
    QTest::newRow("hours that recur on the next day")
        << 3 << QStringList{"2024-05-02 17", "2024-05-03 16", "2024-05-03 17"};
}

void CalloutsTest::realPointerOverALine()
{
    QFETCH(int, timeType);
    QFETCH(QStringList, labels);
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.m_nTimeType = timeType;
    stage.page.barDataList = {{"North", 90}};
    stage.page.lineDataList = {{labels.at(0), 90}, {labels.at(1), 10}, {labels.at(2), 60}};
    stage.page.loadChart();
    waitForAnimation();
    ZrChartView *view = stage.page.lineChartView;
    for (const int i : {2, 0, 1}) {
        moveAway(view);
        QVERIFY(!stage.page.labelCallout || stage.page.labelCallout->isHidden());
        const auto &[label, value] = stage.page.lineDataList.at(i);
        moveTo(view, view->chart()->mapToPosition(QPointF(i, value)));
        QVERIFY(stage.page.labelCallout);
        QVERIFY(stage.page.labelCallout->isVisible());
        QCOMPARE(stage.page.labelCallout->text(), callout(label, "North", QString::number(value)));
        QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
    }
}

void CalloutsTest::realPointerOverTwoLines()
{
    ChartStage stage(8, ChartStage::OnScreen);
    stage.page.m_nTimeType = 2;
    stage.page.lineDataList = {{"2024-05-01", 9}, {"2024-05-02", 8}};
    stage.page.lineDataList2 = {{"2024-05-01", 2}, {"2024-05-02", 3}};
    stage.page.loadChart();
    waitForAnimation();
    ZrChartView *view = stage.page.lineChartView;
    moveTo(view, view->chart()->mapToPosition(QPointF(1, 8)));
    QVERIFY(stage.page.labelCallout);
    QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-02", text("TK_Vehicle"), "8"));
    moveAway(view);
    QVERIFY(stage.page.labelCallout->isHidden());
    moveTo(view, view->chart()->mapToPosition(QPointF(0, 2)));
    QVERIFY(stage.page.labelCallout->isVisible());
    QCOMPARE(stage.page.labelCallout->text(), callout("2024-05-01", text("TK_Pedestrian"), "2"));
}

void CalloutsTest::realPointerOverThePie()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.pieDataList = {{"Fire", 30}, {"Smoke", 10}};
    stage.page.loadChart();
    waitForAnimation();
    ZrChartView *view = stage.page.pieChartView;
    const QList<QPieSlice *> slices = series<QPieSeries>(view->chart())->slices();
    moveTo(view, pointOfRing(view->chart(), 0.5));
    QVERIFY(stage.page.labelCallout);
    QVERIFY(stage.page.labelCallout->isVisible());
    QCOMPARE(stage.page.labelCallout->text(), callout(span, "Fire |  75.0% 30", ""));
    QVERIFY(slices.at(0)->isExploded());
    QVERIFY(!slices.at(1)->isExploded());

    moveTo(view, pointOfRing(view->chart(), 0.875));
    QVERIFY(stage.page.labelCallout->isVisible());
    QCOMPARE(stage.page.labelCallout->text(), callout(span, "Smoke |  25.0% 10", ""));
    QVERIFY(!slices.at(0)->isExploded());
    QVERIFY(slices.at(1)->isExploded());

    moveTo(view, view->chart()->plotArea().center());
    QVERIFY(stage.page.labelCallout->isHidden());
    QVERIFY(!slices.at(1)->isExploded());
}

void CalloutsTest::realPointerOverTheTotal()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.pieDataList = {{"Fire", 30}};
    stage.page.loadChart();
    waitForAnimation();
    ZrChartView *view = stage.page.pieChartView;
    stage.page.labelPiecount->resize(view->size());
    stage.page.labelPiecount->move(0, 0);
    QTest::mouseMove(stage.page.labelPiecount,
        view->mapFromScene(view->chart()->mapToScene(pointOfRing(view->chart(), 0.25))));
    QVERIFY(stage.page.labelCallout);
    QCOMPARE(stage.page.labelCallout->text(), callout(span, "Fire | 100.0% 30", ""));
    QCOMPARE(stage.page.labelCallout->pos(), underPointer(stage.page) + QPoint(15, -15));
}

void CalloutsTest::realPointerIsFollowed()
{
    ChartStage stage(1, ChartStage::OnScreen);
    stage.page.barDataList = {{"North", 90}};
    stage.page.pieDataList = {{"Fire", 30}};
    stage.page.lineDataList = {{"2024-05-01", 9}, {"2024-05-02", 8}};
    stage.page.loadChart();
    waitForAnimation();
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

void CalloutsTest::realPointerNearTheRightEdge()
{
    ChartStage stage(1, ChartStage::OnScreen);
    for (int i = 0; i < 12; ++i)
        stage.page.barDataList.append({QStringLiteral("bar %1").arg(i), 90});
    stage.page.loadChart();
    waitForAnimation();
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

TALVIX_TEST_MAIN(CalloutsTest)

#include "tst_callouts.moc"
