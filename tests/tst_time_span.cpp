#include "support/PageScene.h"
#include "support/TestMain.h"

#include <devhost/widgets/HostSettings.h>
#include <page/TimeFormats.h>
#include <TalvixWidgets/BaseHelper.h>
#include <TalvixWidgets/ZrCalendarWidget.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtTest/QSignalSpy>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QToolButton>

#include <climits>

namespace {

using Tip = ProbePage::Tip;
using QueryType = BasicChart::QueryType;

const QString searchLine = QStringLiteral("BasicChart::slotSearch ");
const QString errorLine = QStringLiteral(" timeStrs error");
const QString monthTip = QStringLiteral("TK_TimeInterval(0-6 months)");
const QString dayTip = QStringLiteral("TK_TimeInterval(0-7 days)");
const QString hourTip = QStringLiteral("TK_TimeInterval(1 day)");

QDateTime at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second));
}

QLineEdit *timeEdit(const ProbePage &page)
{
    return page.part<QLineEdit>("lineEditTime");
}

void click(const ProbePage &page, const char *button)
{
    QTest::mouseClick(page.part<ZrPushButton>(button), Qt::LeftButton);
}

QVariantList highlights(const ProbePage &page)
{
    return {page.part<QWidget>("pushButtonHour")->property("highlight"),
        page.part<QWidget>("pushButtonDay")->property("highlight"),
        page.part<QWidget>("pushButtonMonth")->property("highlight")};
}

/// What the calendar popup gives back when its span is confirmed as it stands.
std::pair<QDateTime, QDateTime> confirmed(ZrCalendarWidget *calendar)
{
    const QSignalSpy spy(calendar, &ZrCalendarWidget::signalDataTimeChanged);
    calendar->shortcutEnter();
    if (spy.size() != 1)
        return {};
    return {spy.first().at(0).toDateTime(), spy.first().at(1).toDateTime()};
}

/// Notes the order in which widgets are polished.
class PolishOrder : public QProxyStyle
{
public:
    QStringList names;

    using QProxyStyle::polish;
    void polish(QWidget *widget) override
    {
        names.append(widget->objectName());
        QProxyStyle::polish(widget);
    }
};

} // namespace

class TestTimeSpan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void unitButtonsSetSpanUnitAndHighlight_data();
    void unitButtonsSetSpanUnitAndHighlight();
    void unitButtonsFollowThePresentMoment_data();
    void unitButtonsFollowThePresentMoment();
    void unitButtonsHighlightHourThenDayThenMonth_data();
    void unitButtonsHighlightHourThenDayThenMonth();
    void unitButtonsTellTheCalendar_data();
    void unitButtonsTellTheCalendar();
    void searchSeesTheNewUnitBeforeTheHighlight();
    void calendarHasTheNewUnitBeforeTheSearch();
    void secondClickSearchesNothingButMarksAgain();
    void secondClickAtALaterHourSearches();

    void limits_data();
    void limits();
    void limitsWithInvalidEndsAreHarmless_data();
    void limitsWithInvalidEndsAreHarmless();
    void limitedSpanIsSearched_data();
    void limitedSpanIsSearched();
    void tipComesBeforeTheText();
    void wholeDaysEndWithTheirLastSecond_data();
    void wholeDaysEndWithTheirLastSecond();
    void unchangedTextSearchesNothing();
    void otherDayNumberIsThatOfThePresentMoment();

    void calendarAnswerTakesThePagesUnit_data();
    void calendarAnswerTakesThePagesUnit();
    void confirmedPopupSearchesOnce();

    void popupStandsBelowTheTimeRightAligned();
    void popupGetsTheSpanOfTheText_data();
    void popupGetsTheSpanOfTheText();
    void popupIgnoresItsArgument();
    void malformedTextIsLoggedAndOpensThePopup_data();
    void malformedTextIsLoggedAndOpensThePopup();

    void requestStringsAreYearFirst_data();
    void requestStringsAreYearFirst();
    void requestStringsOfMalformedText_data();
    void requestStringsOfMalformedText();
    void queryAndLineUseRequestStrings_data();
    void queryAndLineUseRequestStrings();

    void hideAndShowKeepTheSpan();
    void spanDoesNotMoveWithTheClock();
    void springForwardNightCountsAsOneDay();
};

void TestTimeSpan::init()
{
    setPresentMoment({});
    HostSettings::setLanguage({});
    HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
}

void TestTimeSpan::cleanup()
{
    HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
}

void TestTimeSpan::unitButtonsSetSpanUnitAndHighlight_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariantList>("marks");
    QTest::newRow("month") << QByteArray("pushButtonMonth") << 1 << QStringLiteral("2023-11~2024-05")
                           << QVariantList({false, false, true});
    QTest::newRow("day") << QByteArray("pushButtonDay") << 2 << QStringLiteral("2024-04-26~2024-05-03")
                         << QVariantList({false, true, false});
    QTest::newRow("hour") << QByteArray("pushButtonHour") << 3
                          << QStringLiteral("2024-05-03 00~2024-05-03 17")
                          << QVariantList({true, false, false});
}

void TestTimeSpan::unitButtonsSetSpanUnitAndHighlight()
{
    QFETCH(QByteArray, button);
    QFETCH(int, unit);
    QFETCH(QString, text);
    QFETCH(QVariantList, marks);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    click(page, unit == 1 ? "pushButtonDay" : "pushButtonMonth");
    scene.forgetCalls();
    click(page, button.constData());
    QCOMPARE(page.m_nTimeType, unit);
    QCOMPARE(timeEdit(page)->text(), text);
    QCOMPARE(highlights(page), marks);
    QCOMPARE(page.tips.size(), 0);
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getAlarmStatisticsOfOrgas")}));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().timeType, unit);
}

void TestTimeSpan::unitButtonsFollowThePresentMoment_data()
{
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tip");
    const QByteArray month("pushButtonMonth");
    const QByteArray day("pushButtonDay");
    const QByteArray hour("pushButtonHour");
    QTest::newRow("six months back from the end of August are more than six months on from February")
        << at(2024, 8, 31, 12) << month << QStringLiteral("2024-02~2024-08") << monthTip;
    QTest::newRow("six months back from the last day that February has as well")
        << at(2024, 8, 29, 12) << month << QStringLiteral("2024-02~2024-08") << QString();
    QTest::newRow("six months across the turn of the year")
        << at(2024, 1, 15, 12) << month << QStringLiteral("2023-07~2024-01") << QString();
    QTest::newRow("seven days across the turn of the year")
        << at(2024, 1, 2, 12) << day << QStringLiteral("2023-12-26~2024-01-02") << QString();
    QTest::newRow("seven days across a leap day")
        << at(2024, 3, 3, 12) << day << QStringLiteral("2024-02-25~2024-03-03") << QString();
    QTest::newRow("the first second of a day")
        << at(2024, 5, 4, 0, 0, 1) << hour << QStringLiteral("2024-05-04 00~2024-05-04 00") << QString();
    QTest::newRow("the last second of a day")
        << at(2024, 5, 4, 23, 59, 59) << hour << QStringLiteral("2024-05-04 00~2024-05-04 23") << QString();
}

void TestTimeSpan::unitButtonsFollowThePresentMoment()
{
    QFETCH(QDateTime, now);
    QFETCH(QByteArray, button);
    QFETCH(QString, text);
    QFETCH(QString, tip);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    setPresentMoment(now);
    click(page, button.constData());
    QCOMPARE(timeEdit(page)->text(), text);
    QCOMPARE(page.tips, tip.isEmpty() ? QList<Tip>() : QList<Tip>({{tip, 2}}));
}

void TestTimeSpan::unitButtonsHighlightHourThenDayThenMonth_data()
{
    QTest::addColumn<QByteArray>("button");
    for (const char *button : {"pushButtonMonth", "pushButtonDay", "pushButtonHour"})
        QTest::newRow(button) << QByteArray(button);
}

void TestTimeSpan::unitButtonsHighlightHourThenDayThenMonth()
{
    QFETCH(QByteArray, button);
    PageScene scene;
    scene.client.clearTree();
    ProbePage page(1);
    PolishOrder style;
    page.setStyle(&style);
    showPage(page);
    style.names.clear();
    QVERIFY(QMetaObject::invokeMethod(&page, QByteArray("on_" + button + "_clicked").constData()));
    QCOMPARE(onlyLines(style.names,
                 {QStringLiteral("pushButtonHour"), QStringLiteral("pushButtonDay"),
                     QStringLiteral("pushButtonMonth")}),
        QStringList({QStringLiteral("pushButtonHour"), QStringLiteral("pushButtonDay"),
            QStringLiteral("pushButtonMonth")}));
    page.setStyle(nullptr);
}

void TestTimeSpan::unitButtonsTellTheCalendar_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("format");
    QTest::newRow("month") << QByteArray("pushButtonMonth") << QStringLiteral("yyyy-MM");
    QTest::newRow("day") << QByteArray("pushButtonDay") << QStringLiteral("yyyy-MM-dd");
    QTest::newRow("hour") << QByteArray("pushButtonHour") << QStringLiteral("yyyy-MM-dd hh");
}

void TestTimeSpan::unitButtonsTellTheCalendar()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, format);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    click(page, button.constData());
    const QString text = timeEdit(page)->text();
    page.showZrCalendarWidget(true);
    const auto [start, stop] = confirmed(page.m_pCalendarWidget);
    QCOMPARE(start.toString(format) + QLatin1Char('~') + stop.toString(format), text);
    QCOMPARE(timeEdit(page)->text(), text);
    QCOMPARE(page.tips.size(), 0);
}

void TestTimeSpan::searchSeesTheNewUnitBeforeTheHighlight()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    int unitThen = 0;
    QVariantList marksThen;
    scene.manager.alarmStatisticsOfOrgas.answer = [&](const auto &request, auto &) {
        unitThen = request.timeType;
        marksThen = highlights(page);
        return true;
    };
    click(page, "pushButtonMonth");
    QCOMPARE(unitThen, 1);
    QCOMPARE(marksThen, QVariantList({true, false, false}));
    QCOMPARE(highlights(page), QVariantList({false, false, true}));
}

// The calendar offers the hours of a day by themselves; that tells its unit.
void TestTimeSpan::calendarHasTheNewUnitBeforeTheSearch()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    const int withHours = page.m_pCalendarWidget->height();
    QList<bool> hoursThen;
    scene.manager.alarmStatisticsOfOrgas.answer = [&](const auto &, auto &) {
        hoursThen.append(page.m_pCalendarWidget->height() == withHours);
        return true;
    };
    click(page, "pushButtonDay");
    click(page, "pushButtonHour");
    click(page, "pushButtonMonth");
    QCOMPARE(hoursThen, QList<bool>({false, true, false}));
}

void TestTimeSpan::secondClickSearchesNothingButMarksAgain()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    click(page, "pushButtonDay");
    scene.forgetCalls();
    page.m_nTimeType = 3;
    page.m_pCalendarWidget->setType(ZrCalendarWidget::Month);
    page.part<QWidget>("pushButtonDay")->setProperty("highlight", false);
    page.part<QWidget>("pushButtonHour")->setProperty("highlight", true);
    setPresentMoment(at(2024, 5, 3, 23, 0, 0));
    LogCapture log;
    click(page, "pushButtonDay");
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(page.m_nTimeType, 2);
    QCOMPARE(highlights(page), QVariantList({false, true, false}));
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-04-26~2024-05-03"));
    page.showZrCalendarWidget(true);
    const auto [start, stop] = confirmed(page.m_pCalendarWidget);
    QCOMPARE(start.date(), QDate(2024, 4, 26));
    QCOMPARE(stop.date(), QDate(2024, 5, 3));
}

void TestTimeSpan::secondClickAtALaterHourSearches()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    setPresentMoment(at(2024, 5, 3, 18, 0, 0));
    click(page, "pushButtonHour");
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-05-03 00~2024-05-03 18"));
    QCOMPARE(scene.wholeLevelCalls().size(), 1);
}

void TestTimeSpan::limits_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QDateTime>("start");
    QTest::addColumn<QDateTime>("stop");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tip");
    const QString none;

    QTest::newRow("month: exactly six months pass")
        << 1 << at(2023, 12, 31) << at(2024, 6, 30) << QStringLiteral("2023-12~2024-06") << none;
    QTest::newRow("month: one day more is cut")
        << 1 << at(2023, 12, 31) << at(2024, 7, 1) << QStringLiteral("2023-12~2024-06") << monthTip;
    QTest::newRow("month: one day more within the last month tells as well")
        << 1 << at(2023, 11, 3) << at(2024, 5, 4) << QStringLiteral("2023-11~2024-05") << monthTip;
    QTest::newRow("month: the time of the day does not count")
        << 1 << at(2023, 11, 3, 1) << at(2024, 5, 3, 23) << QStringLiteral("2023-11~2024-05") << none;
    QTest::newRow("month: six short months up to the end of February pass")
        << 1 << at(2023, 8, 31) << at(2024, 2, 29) << QStringLiteral("2023-08~2024-02") << none;
    QTest::newRow("month: a day beyond six short months is cut")
        << 1 << at(2023, 8, 31) << at(2024, 3, 1) << QStringLiteral("2023-08~2024-02") << monthTip;
    QTest::newRow("month: six long months have more days")
        << 1 << at(2024, 3, 1) << at(2024, 9, 1) << QStringLiteral("2024-03~2024-09") << none;
    QTest::newRow("month: years are cut to six months")
        << 1 << at(2020, 1, 15) << at(2024, 5, 3) << QStringLiteral("2020-01~2020-07") << monthTip;
    QTest::newRow("month: a stop before the start stays")
        << 1 << at(2024, 5, 3) << at(2022, 5, 3) << QStringLiteral("2024-05~2022-05") << none;

    QTest::newRow("day: seven days pass")
        << 2 << at(2024, 4, 26) << at(2024, 5, 3) << QStringLiteral("2024-04-26~2024-05-03") << none;
    QTest::newRow("day: eight days are cut")
        << 2 << at(2024, 4, 25) << at(2024, 5, 3) << QStringLiteral("2024-04-25~2024-05-02") << dayTip;
    QTest::newRow("day: the time of the day does not count")
        << 2 << at(2024, 4, 26, 0) << at(2024, 5, 3, 23, 59, 59) << QStringLiteral("2024-04-26~2024-05-03")
        << none;
    QTest::newRow("day: years are cut to seven days")
        << 2 << at(2023, 12, 28) << at(2024, 5, 3) << QStringLiteral("2023-12-28~2024-01-04") << dayTip;
    QTest::newRow("day: a single day passes")
        << 2 << at(2024, 5, 3) << at(2024, 5, 3) << QStringLiteral("2024-05-03~2024-05-03") << none;
    QTest::newRow("day: a stop before the start stays")
        << 2 << at(2024, 5, 3) << at(2024, 4, 1) << QStringLiteral("2024-05-03~2024-04-01") << none;

    QTest::newRow("hour: hours of today pass") << 3 << at(2024, 5, 3, 4) << at(2024, 5, 3, 9)
                                               << QStringLiteral("2024-05-03 04~2024-05-03 09") << none;
    QTest::newRow("hour: both yesterday run to the end of yesterday")
        << 3 << at(2024, 5, 2, 4) << at(2024, 5, 2, 9) << QStringLiteral("2024-05-02 04~2024-05-02 23")
        << none;
    QTest::newRow("hour: yesterday to today is cut to yesterday")
        << 3 << at(2024, 5, 2, 4) << at(2024, 5, 3, 9) << QStringLiteral("2024-05-02 04~2024-05-02 23")
        << hourTip;
    QTest::newRow("hour: today to tomorrow runs to the end of today")
        << 3 << at(2024, 5, 3, 4) << at(2024, 5, 4, 9) << QStringLiteral("2024-05-03 04~2024-05-03 23")
        << none;
    QTest::newRow("hour: hours on the same day number of another month pass")
        << 3 << at(2024, 4, 3, 4) << at(2024, 4, 3, 9) << QStringLiteral("2024-04-03 04~2024-04-03 09")
        << none;
    QTest::newRow("hour: a month up to the same day number is cut")
        << 3 << at(2024, 4, 3, 4) << at(2024, 5, 3, 9) << QStringLiteral("2024-04-03 04~2024-04-03 23")
        << hourTip;
    QTest::newRow("hour: a stop on the same day number of a later month is cut")
        << 3 << at(2024, 5, 3, 4) << at(2024, 6, 3, 9) << QStringLiteral("2024-05-03 04~2024-05-03 23")
        << hourTip;
    QTest::newRow("hour: days that end on another day number are cut silently")
        << 3 << at(2024, 4, 28, 4) << at(2024, 5, 1, 9) << QStringLiteral("2024-04-28 04~2024-04-28 23")
        << none;
    QTest::newRow("hour: a stop before the start on the same day stays")
        << 3 << at(2024, 5, 3, 9) << at(2024, 5, 3, 4) << QStringLiteral("2024-05-03 09~2024-05-03 04")
        << none;
    QTest::newRow("hour: a stop days before the start on today's day number stays")
        << 3 << at(2024, 5, 5, 9) << at(2024, 5, 3, 4) << QStringLiteral("2024-05-05 09~2024-05-03 04")
        << none;
    QTest::newRow("hour: a stop on the day before the start moves to the start's day")
        << 3 << at(2024, 5, 3, 9) << at(2024, 5, 2, 4) << QStringLiteral("2024-05-03 09~2024-05-03 23")
        << none;

    for (const int unit : {0, 4, -1, INT_MAX, INT_MIN})
        QTest::addRow("unit %d knows no limit and shows months", unit)
            << unit << at(2019, 1, 15) << at(2024, 5, 3) << QStringLiteral("2019-01~2024-05") << none;
}

void TestTimeSpan::limits()
{
    QFETCH(int, unit);
    QFETCH(QDateTime, start);
    QFETCH(QDateTime, stop);
    QFETCH(QString, text);
    QFETCH(QString, tip);
    ProbePage page(1);
    page.m_nTimeType = 2;
    page.slotDataTimeChanged(start, stop, static_cast<QueryType>(unit));
    QCOMPARE(timeEdit(page)->text(), text);
    QCOMPARE(page.tips, tip.isEmpty() ? QList<Tip>() : QList<Tip>({{tip, 2}}));
    QCOMPARE(page.m_nTimeType, 2);
}

void TestTimeSpan::limitsWithInvalidEndsAreHarmless_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QDateTime>("start");
    QTest::addColumn<QDateTime>("stop");
    for (const int unit : {1, 2, 3, 0}) {
        QTest::addRow("unit %d, both invalid", unit) << unit << QDateTime() << QDateTime();
        QTest::addRow("unit %d, invalid start", unit) << unit << QDateTime() << at(2024, 5, 3, 9);
        QTest::addRow("unit %d, invalid stop", unit) << unit << at(2024, 5, 3, 9) << QDateTime();
        QTest::addRow("unit %d, ends of the calendar", unit) << unit << at(1, 1, 1) << at(9999, 12, 31, 23);
        QTest::addRow("unit %d, beyond four digits", unit) << unit << at(9999, 12, 31) << at(120000, 1, 1);
    }
}

void TestTimeSpan::limitsWithInvalidEndsAreHarmless()
{
    QFETCH(int, unit);
    QFETCH(QDateTime, start);
    QFETCH(QDateTime, stop);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    page.slotDataTimeChanged(start, stop, static_cast<QueryType>(unit));
    QCOMPARE(timeEdit(page)->text().count(QLatin1Char('~')), 1);
    if (!start.isValid())
        QVERIFY(timeEdit(page)->text().startsWith(QLatin1Char('~')));
    page.showZrCalendarWidget(false);
    page.m_pCalendarWidget->hide();
}

void TestTimeSpan::limitedSpanIsSearched_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QDateTime>("start");
    QTest::addColumn<QDateTime>("stop");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("months") << 1 << at(2023, 10, 3) << at(2024, 5, 3) << monthTip << QStringLiteral("2023-10")
                            << QStringLiteral("2024-04");
    QTest::newRow("days") << 2 << at(2024, 4, 20) << at(2024, 5, 3) << dayTip << QStringLiteral("2024-04-20")
                          << QStringLiteral("2024-04-27");
    QTest::newRow("hours") << 3 << at(2024, 5, 2, 6) << at(2024, 5, 3, 9) << hourTip
                           << QStringLiteral("2024-05-02 06") << QStringLiteral("2024-05-02 23");
}

void TestTimeSpan::limitedSpanIsSearched()
{
    QFETCH(int, unit);
    QFETCH(QDateTime, start);
    QFETCH(QDateTime, stop);
    QFETCH(QString, tip);
    QFETCH(QString, from);
    QFETCH(QString, to);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    page.m_nTimeType = unit;
    scene.forgetCalls();
    Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(start, stop);
    QCOMPARE(page.tips, QList<Tip>({{tip, 2}}));
    QCOMPARE(scene.wholeLevelCalls().size(), 1);
    const auto request = scene.manager.alarmStatisticsOfOrgas.requests.last();
    QCOMPARE(QString::fromStdString(request.startTime()), from);
    QCOMPARE(QString::fromStdString(request.endTime()), to);
}

void TestTimeSpan::tipComesBeforeTheText()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    qsizetype tipsAtTheSearch = -1;
    scene.manager.alarmStatisticsOfOrgas.answer = [&](const auto &, auto &) {
        tipsAtTheSearch = page.tips.size();
        return true;
    };
    page.slotDataTimeChanged(at(2024, 5, 2, 6), at(2024, 5, 3, 9), QueryType::Hour);
    QCOMPARE(tipsAtTheSearch, 1);
}

void TestTimeSpan::wholeDaysEndWithTheirLastSecond_data()
{
    QTest::addColumn<QDateTime>("stop");
    QTest::newRow("a stop on another day number") << at(2024, 5, 2, 9, 10, 11);
    QTest::newRow("a stop that is cut") << at(2024, 5, 3, 9, 10, 11);
}

void TestTimeSpan::wholeDaysEndWithTheirLastSecond()
{
    QFETCH(QDateTime, stop);
    const auto span =
        TimeFormats::limited(at(2024, 5, 2, 4), stop, ZrCalendarWidget::Hour, testMoment().date());
    QCOMPARE(span.stop, QDateTime(QDate(2024, 5, 2), QTime(23, 59, 59, 0)));
}

void TestTimeSpan::unchangedTextSearchesNothing()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    page.slotDataTimeChanged(at(2024, 5, 3, 0, 30), at(2024, 5, 3, 17, 59), QueryType::Hour);
    QCOMPARE(scene.manager.calls, QStringList());
    page.slotDataTimeChanged(at(2024, 5, 3, 0, 30), at(2024, 5, 3, 18, 0), QueryType::Hour);
    QCOMPARE(scene.wholeLevelCalls().size(), 1);
}

void TestTimeSpan::otherDayNumberIsThatOfThePresentMoment()
{
    ProbePage page(1);
    setPresentMoment(at(2024, 5, 9, 12));
    page.slotDataTimeChanged(at(2024, 5, 9, 4), at(2024, 5, 9, 9), QueryType::Hour);
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-05-09 04~2024-05-09 09"));
    page.slotDataTimeChanged(at(2024, 5, 3, 4), at(2024, 5, 3, 9), QueryType::Hour);
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-05-03 04~2024-05-03 23"));
    QCOMPARE(page.tips.size(), 0);
}

void TestTimeSpan::calendarAnswerTakesThePagesUnit_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("text");
    QTest::newRow("month") << 1 << QStringLiteral("2024-05~2024-05");
    QTest::newRow("day") << 2 << QStringLiteral("2024-05-02~2024-05-03");
    QTest::newRow("hour") << 3 << QStringLiteral("2024-05-02 04~2024-05-02 23");
    QTest::newRow("any other") << 8 << QStringLiteral("2024-05~2024-05");
}

void TestTimeSpan::calendarAnswerTakesThePagesUnit()
{
    QFETCH(int, unit);
    QFETCH(QString, text);
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    page.m_nTimeType = unit;
    Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(at(2024, 5, 2, 4), at(2024, 5, 3, 6));
    QCOMPARE(timeEdit(page)->text(), text);
}

void TestTimeSpan::confirmedPopupSearchesOnce()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    page.m_pCalendarWidget->showDialog(at(2024, 5, 3, 4), at(2024, 5, 3, 6));
    page.m_pCalendarWidget->shortcutEnter();
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-05-03 04~2024-05-03 06"));
    QCOMPARE(scene.wholeLevelCalls().size(), 1);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().startTime(), std::string("2024-05-03 04"));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().endTime(), std::string("2024-05-03 06"));
}

void TestTimeSpan::popupStandsBelowTheTimeRightAligned()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    page.showZrCalendarWidget(true);
    page.m_pCalendarWidget->hide();

    // Far enough to the left that the popup has room on the screen.
    page.move(-350, 0);
    QCoreApplication::processEvents();
    const QLineEdit *time = timeEdit(page);
    const QPoint wanted(
        time->x() - page.m_pCalendarWidget->width() + time->width(), time->y() + time->height() + 15);
    page.showZrCalendarWidget(true);
    QVERIFY(page.m_pCalendarWidget->isVisible());
    QCOMPARE(page.m_pCalendarWidget->pos(), page.mapToGlobal(wanted));
    page.m_pCalendarWidget->hide();
}

void TestTimeSpan::popupGetsTheSpanOfTheText_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QDateTime>("start");
    QTest::addColumn<QDateTime>("stop");
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("dayFirst");
    for (const bool dayFirst : {false, true}) {
        const char *order = dayFirst ? "day first" : "year first";
        QTest::addRow("months, %s", order)
            << 1 << at(2024, 2, 1) << at(2024, 4, 1) << QStringLiteral("yyyy-MM") << dayFirst;
        QTest::addRow("days, %s", order)
            << 2 << at(2024, 4, 28) << at(2024, 5, 2) << QStringLiteral("yyyy-MM-dd") << dayFirst;
        QTest::addRow("hours, %s", order)
            << 3 << at(2024, 5, 3, 4) << at(2024, 5, 3, 9) << QStringLiteral("yyyy-MM-dd hh") << dayFirst;
    }
}

void TestTimeSpan::popupGetsTheSpanOfTheText()
{
    QFETCH(int, unit);
    QFETCH(QDateTime, start);
    QFETCH(QDateTime, stop);
    QFETCH(QString, format);
    QFETCH(bool, dayFirst);
    HostSettings::setDateOrder(
        dayFirst ? HostSettings::DateOrder::DayFirst : HostSettings::DateOrder::YearFirst);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    page.m_nTimeType = unit;
    page.m_pCalendarWidget->setType(static_cast<QueryType>(unit));
    page.slotDataTimeChanged(start, stop, static_cast<QueryType>(unit));
    LogCapture log;
    page.showZrCalendarWidget(true);
    QVERIFY(page.m_pCalendarWidget->isVisible());
    QVERIFY(!log.contains(errorLine));
    const auto [from, to] = confirmed(page.m_pCalendarWidget);
    QCOMPARE(from.toString(format), start.toString(format));
    QCOMPARE(to.toString(format), stop.toString(format));
}

void TestTimeSpan::popupIgnoresItsArgument()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    for (const bool state : {true, false}) {
        page.showZrCalendarWidget(state);
        QVERIFY(page.m_pCalendarWidget->isVisible());
        page.m_pCalendarWidget->hide();
    }
}

void TestTimeSpan::malformedTextIsLoggedAndOpensThePopup_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("logged");
    QTest::newRow("no separator") << QStringLiteral("2024-05-03 04") << true;
    QTest::newRow("nothing") << QString() << true;
    QTest::newRow("three parts") << QStringLiteral("2024-05-03 04~2024-05-03 05~2024-05-03 06") << true;
    QTest::newRow("a third part that is empty") << QStringLiteral("2024-05-03 04~2024-05-03 05~") << true;
    QTest::newRow("two empty parts count as two") << QStringLiteral("~") << false;
    QTest::newRow("two parts that are no dates") << QStringLiteral("soon~later") << false;
}

void TestTimeSpan::malformedTextIsLoggedAndOpensThePopup()
{
    QFETCH(QString, text);
    QFETCH(bool, logged);
    PageScene scene;
    scene.client.clearTree();
    ProbePage page(1);
    showPage(page);
    timeEdit(page)->setText(text);
    LogCapture log;
    page.showZrCalendarWidget(true);
    QCOMPARE(log.lines(QtDebugMsg).count(errorLine), logged ? 1 : 0);
    QVERIFY(page.m_pCalendarWidget->isVisible());
    QVERIFY(!page.m_pCalendarWidget->findChild<ZrPushButton *>(QStringLiteral("pushButtonOK"))->isEnabled());
    page.m_pCalendarWidget->hide();
    QCOMPARE(timeEdit(page)->text(), text);
    QCOMPARE(page.tips.size(), 1);
}

void TestTimeSpan::requestStringsAreYearFirst_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<bool>("dayFirst");
    QTest::addColumn<QString>("displayStart");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("months, year first")
        << 1 << false << QStringLiteral("2024-02") << QStringLiteral("2024-02") << QStringLiteral("2024-04");
    QTest::newRow("days, year first") << 2 << false << QStringLiteral("2024-04-28")
                                      << QStringLiteral("2024-04-28") << QStringLiteral("2024-05-02");
    QTest::newRow("hours, year first") << 3 << false << QStringLiteral("2024-05-03 00")
                                       << QStringLiteral("2024-05-03 00") << QStringLiteral("2024-05-03 17");
    QTest::newRow("any other unit counts as months")
        << 7 << false << QStringLiteral("2024-02") << QStringLiteral("2024-02") << QStringLiteral("2024-04");
    QTest::newRow("months, day first")
        << 1 << true << QStringLiteral("02") << QStringLiteral("2024-02") << QStringLiteral("2024-04");
    QTest::newRow("days, day first") << 2 << true << QStringLiteral("28") << QStringLiteral("2024-04-28")
                                     << QStringLiteral("2024-05-02");
    QTest::newRow("hours, day first") << 3 << true << QStringLiteral("03") << QStringLiteral("2024-05-03 00")
                                      << QStringLiteral("2024-05-03 17");
}

void TestTimeSpan::requestStringsAreYearFirst()
{
    QFETCH(int, unit);
    QFETCH(bool, dayFirst);
    QFETCH(QString, displayStart);
    QFETCH(QString, from);
    QFETCH(QString, to);
    HostSettings::setDateOrder(
        dayFirst ? HostSettings::DateOrder::DayFirst : HostSettings::DateOrder::YearFirst);
    ProbePage page(1);
    page.m_nTimeType = unit;
    const QDateTime start = unit == 2 ? at(2024, 4, 28) : unit == 3 ? at(2024, 5, 3) : at(2024, 2, 1);
    const QDateTime stop = unit == 2 ? at(2024, 5, 2) : unit == 3 ? at(2024, 5, 3, 17, 20) : at(2024, 4, 30);
    page.slotDataTimeChanged(start, stop, static_cast<QueryType>(unit));
    const QString text = timeEdit(page)->text();
    QVERIFY2(text.startsWith(displayStart), qPrintable(text));
    QCOMPARE(text.startsWith(QStringLiteral("2024")), !dayFirst);
    const QString requestFormat = unit == 2 ? QStringLiteral("yyyy-MM-dd")
        : unit == 3                         ? QStringLiteral("yyyy-MM-dd hh")
                                            : QStringLiteral("yyyy-MM");
    const QString format = BaseHelper::dateTimeFormatConversion(requestFormat);
    QCOMPARE(text, start.toString(format) + QLatin1Char('~') + stop.toString(format));
    QString first = QStringLiteral("overwritten");
    QString last = QStringLiteral("overwritten");
    page.currentTimeRange(first, last);
    QCOMPARE(first, from);
    QCOMPARE(last, to);
}

void TestTimeSpan::requestStringsOfMalformedText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    const QString hour = QStringLiteral("2024-05-03 04");
    QTest::newRow("nothing") << QString() << QString() << QString();
    QTest::newRow("one part") << hour << hour << QString();
    QTest::newRow("only the separator") << QStringLiteral("~") << QString() << QString();
    QTest::newRow("no dates") << QStringLiteral("soon~later") << QString() << QString();
    QTest::newRow("of three parts the first two")
        << QStringLiteral("2024-05-03 04~2024-05-03 05~2024-05-03 06") << hour
        << QStringLiteral("2024-05-03 05");
    QTest::newRow("blanks around the separator")
        << QStringLiteral("2024-05-03 04 ~ 2024-05-03 05") << QString() << QString();
}

void TestTimeSpan::requestStringsOfMalformedText()
{
    QFETCH(QString, text);
    QFETCH(QString, from);
    QFETCH(QString, to);
    ProbePage page(1);
    timeEdit(page)->setText(text);
    QString first = QStringLiteral("overwritten");
    QString last = QStringLiteral("overwritten");
    page.currentTimeRange(first, last);
    QCOMPARE(first, from);
    QCOMPARE(last, to);
}

void TestTimeSpan::queryAndLineUseRequestStrings_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("month") << QByteArray("pushButtonMonth") << QStringLiteral("2023-11")
                           << QStringLiteral("2024-05");
    QTest::newRow("day") << QByteArray("pushButtonDay") << QStringLiteral("2024-04-26")
                         << QStringLiteral("2024-05-03");
    QTest::newRow("hour") << QByteArray("pushButtonHour") << QStringLiteral("2024-05-03 00")
                          << QStringLiteral("2024-05-03 17");
}

void TestTimeSpan::queryAndLineUseRequestStrings()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, from);
    QFETCH(QString, to);
    HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    click(page, button.constData());
    QVERIFY(!timeEdit(page)->text().startsWith(QStringLiteral("20")));
    const auto bars = scene.manager.alarmStatisticsOfOrgas.requests.last();
    QCOMPARE(QString::fromStdString(bars.startTime()), from);
    QCOMPARE(QString::fromStdString(bars.endTime()), to);
    const auto line = scene.manager.alarmStatisticsOfOrga.requests.last();
    QCOMPARE(QString::fromStdString(line.startTime()), from);
    QCOMPARE(QString::fromStdString(line.endTime()), to);
}

void TestTimeSpan::hideAndShowKeepTheSpan()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(at(2024, 5, 3, 4), at(2024, 5, 3, 6));
    page.hide();
    page.show();
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-05-03 04~2024-05-03 06"));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().endTime(), std::string("2024-05-03 06"));
}

void TestTimeSpan::spanDoesNotMoveWithTheClock()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    setPresentMoment(at(2024, 5, 4, 3));
    page.slotSearch();
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-05-03 00~2024-05-03 17"));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().endTime(), std::string("2024-05-03 17"));
}

void TestTimeSpan::springForwardNightCountsAsOneDay()
{
    setPresentMoment(at(2024, 3, 31, 12));
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-03-31 00~2024-03-31 12"));
    QCOMPARE(page.tips.size(), 0);
    click(page, "pushButtonDay");
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-03-24~2024-03-31"));
    QCOMPARE(page.tips.size(), 0);
    page.slotDataTimeChanged(at(2024, 3, 31, 0), at(2024, 3, 31, 23, 59, 59), QueryType::Hour);
    QCOMPARE(timeEdit(page)->text(), QStringLiteral("2024-03-31 00~2024-03-31 23"));
    QCOMPARE(page.tips.size(), 0);
}

TALVIX_TEST_MAIN(TestTimeSpan)
#include "tst_time_span.moc"
