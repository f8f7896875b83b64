#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

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

using namespace Qt::StringLiterals;
using namespace std::string_literals;

namespace {

using Tip = ProbePage::Tip;
using QueryType = BasicChart::QueryType;

const QString errorLine = u" timeStrs error"_s;
const QString monthTip = u"TK_TimeInterval(0-6 months)"_s;
const QString dayTip = u"TK_TimeInterval(0-7 days)"_s;
const QString hourTip = u"TK_TimeInterval(1 day)"_s;

QDateTime at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second));
}

QLineEdit *timeEdit(const ProbePage &page)
{
    return page.part<QLineEdit>("lineEditTime");
}

std::pair<QString, QString> timeRange(ProbePage &page)
{
    QString start = u"overwritten"_s;
    QString end = u"overwritten"_s;
    page.currentTimeRange(start, end);
    return {start, end};
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
    void init() { resetHostSettings(); }

    void cleanup() { HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst); }

    void unitButtonsSetSpanUnitAndHighlight_data()
    {
        table<QByteArray, int, QString, QVariantList>({"button", "unit", "text", "marks"},
            {
                {"month", "pushButtonMonth", 1, "2023-11~2024-05", {false, false, true}},
                {"day", "pushButtonDay", 2, "2024-04-26~2024-05-03", {false, true, false}},
                {"hour", "pushButtonHour", 3, "2024-05-03 00~2024-05-03 17", {true, false, false}},
            });
    }

    void unitButtonsSetSpanUnitAndHighlight()
    {
        QFETCH(QByteArray, button);
        QFETCH(int, unit);
        QFETCH(QString, text);
        QFETCH(QVariantList, marks);
        auto &&[scene, page] = Shown(1);
        click(page, unit == 1 ? "pushButtonDay" : "pushButtonMonth");
        scene.forgetCalls();
        click(page, button.constData());
        QCOMPARE(page.m_nTimeType, unit);
        QCOMPARE(timeEdit(page)->text(), text);
        QCOMPARE(highlights(page), marks);
        QCOMPARE(page.tips.size(), 0);
        QCOMPARE(scene.wholeLevelCalls(), QStringList({"getAlarmStatisticsOfOrgas"}));
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().timeType, unit);
    }

    void unitButtonsFollowThePresentMoment_data()
    {
        const QByteArray month("pushButtonMonth");
        const QByteArray day("pushButtonDay");
        const QByteArray hour("pushButtonHour");
        table<QDateTime, QByteArray, QString, QString>({"now", "button", "text", "tip"},
            {
                {"six months back from the end of August are more than six months on from February",
                    at(2024, 8, 31, 12), month, "2024-02~2024-08", monthTip},
                {"six months back from the last day that February has as well", at(2024, 8, 29, 12), month,
                    "2024-02~2024-08", QString()},
                {"six months across the turn of the year", at(2024, 1, 15, 12), month, "2023-07~2024-01",
                    QString()},
                {"seven days across the turn of the year", at(2024, 1, 2, 12), day, "2023-12-26~2024-01-02",
                    QString()},
                {"seven days across a leap day", at(2024, 3, 3, 12), day, "2024-02-25~2024-03-03", QString()},
                {"the first second of a day", at(2024, 5, 4, 0, 0, 1), hour, "2024-05-04 00~2024-05-04 00",
                    QString()},
                {"the last second of a day", at(2024, 5, 4, 23, 59, 59), hour, "2024-05-04 00~2024-05-04 23",
                    QString()},
            });
    }

    void unitButtonsFollowThePresentMoment()
    {
        QFETCH(QDateTime, now);
        QFETCH(QByteArray, button);
        QFETCH(QString, text);
        QFETCH(QString, tip);
        auto &&[scene, page] = Shown(1);
        setPresentMoment(now);
        click(page, button.constData());
        QCOMPARE(timeEdit(page)->text(), text);
        QCOMPARE(page.tips, tip.isEmpty() ? QList<Tip>() : QList<Tip>({{tip, 2}}));
    }

    void unitButtonsHighlightHourThenDayThenMonth_data()
    {
        table<QByteArray>(
            {"button"}, {{"month", "pushButtonMonth"}, {"day", "pushButtonDay"}, {"hour", "pushButtonHour"}});
    }

    void unitButtonsHighlightHourThenDayThenMonth()
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
        QCOMPARE(onlyLines(style.names, {u"pushButtonHour"_s, u"pushButtonDay"_s, u"pushButtonMonth"_s}),
            QStringList({"pushButtonHour", "pushButtonDay", "pushButtonMonth"}));
        page.setStyle(nullptr);
    }

    void unitButtonsTellTheCalendar_data()
    {
        table<QByteArray, QString>({"button", "format"},
            {
                {"month", "pushButtonMonth", "yyyy-MM"},
                {"day", "pushButtonDay", "yyyy-MM-dd"},
                {"hour", "pushButtonHour", "yyyy-MM-dd hh"},
            });
    }

    void unitButtonsTellTheCalendar()
    {
        QFETCH(QByteArray, button);
        QFETCH(QString, format);
        auto &&[scene, page] = Shown(1);
        click(page, button.constData());
        const QString text = timeEdit(page)->text();
        page.showZrCalendarWidget(true);
        const auto [start, stop] = confirmed(page.m_pCalendarWidget);
        QCOMPARE(start.toString(format) + u'~' + stop.toString(format), text);
        QCOMPARE(timeEdit(page)->text(), text);
        QCOMPARE(page.tips.size(), 0);
    }

    void searchSeesTheNewUnitBeforeTheHighlight()
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
    void calendarHasTheNewUnitBeforeTheSearch()
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

    void secondClickSearchesNothingButMarksAgain()
    {
        auto &&[scene, page] = Shown(1);
        click(page, "pushButtonDay");
        scene.forgetCalls();
        page.m_nTimeType = 3;
        page.m_pCalendarWidget->setType(ZrCalendarWidget::Month);
        page.part<QWidget>("pushButtonDay")->setProperty("highlight", false);
        page.part<QWidget>("pushButtonHour")->setProperty("highlight", true);
        setPresentMoment(at(2024, 5, 3, 23, 0, 0));
        LogCapture log;
        click(page, "pushButtonDay");
        QVERIFY(!log.contains(written::search));
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(page.m_nTimeType, 2);
        QCOMPARE(highlights(page), QVariantList({false, true, false}));
        QCOMPARE(timeEdit(page)->text(), u"2024-04-26~2024-05-03"_s);
        page.showZrCalendarWidget(true);
        const auto [start, stop] = confirmed(page.m_pCalendarWidget);
        QCOMPARE(start.date(), QDate(2024, 4, 26));
        QCOMPARE(stop.date(), QDate(2024, 5, 3));
    }

    void secondClickAtALaterHourSearches()
    {
        auto &&[scene, page] = Shown(1);
        scene.forgetCalls();
        setPresentMoment(at(2024, 5, 3, 18, 0, 0));
        click(page, "pushButtonHour");
        QCOMPARE(timeEdit(page)->text(), u"2024-05-03 00~2024-05-03 18"_s);
        QCOMPARE(scene.wholeLevelCalls().size(), 1);
    }

    void limits_data()
    {
        const QString none;
        table<int, QDateTime, QDateTime, QString, QString>({"unit", "start", "stop", "text", "tip"},
            {
                {"month: exactly six months pass", 1, at(2023, 12, 31), at(2024, 6, 30), "2023-12~2024-06",
                    none},
                {"month: one day more is cut", 1, at(2023, 12, 31), at(2024, 7, 1), "2023-12~2024-06",
                    monthTip},
                {"month: one day more within the last month tells as well", 1, at(2023, 11, 3),
                    at(2024, 5, 4), "2023-11~2024-05", monthTip},
                {"month: the time of the day does not count", 1, at(2023, 11, 3, 1), at(2024, 5, 3, 23),
                    "2023-11~2024-05", none},
                {"month: six short months up to the end of February pass", 1, at(2023, 8, 31),
                    at(2024, 2, 29), "2023-08~2024-02", none},
                {"month: a day beyond six short months is cut", 1, at(2023, 8, 31), at(2024, 3, 1),
                    "2023-08~2024-02", monthTip},
                {"month: six long months have more days", 1, at(2024, 3, 1), at(2024, 9, 1),
                    "2024-03~2024-09", none},
                {"month: years are cut to six months", 1, at(2020, 1, 15), at(2024, 5, 3), "2020-01~2020-07",
                    monthTip},
                {"month: a stop before the start stays", 1, at(2024, 5, 3), at(2022, 5, 3), "2024-05~2022-05",
                    none},
                {"day: seven days pass", 2, at(2024, 4, 26), at(2024, 5, 3), "2024-04-26~2024-05-03", none},
                {"day: eight days are cut", 2, at(2024, 4, 25), at(2024, 5, 3), "2024-04-25~2024-05-02",
                    dayTip},
                {"day: the time of the day does not count", 2, at(2024, 4, 26, 0), at(2024, 5, 3, 23, 59, 59),
                    "2024-04-26~2024-05-03", none},
                {"day: years are cut to seven days", 2, at(2023, 12, 28), at(2024, 5, 3),
                    "2023-12-28~2024-01-04", dayTip},
                {"day: a single day passes", 2, at(2024, 5, 3), at(2024, 5, 3), "2024-05-03~2024-05-03",
                    none},
                {"day: a stop before the start stays", 2, at(2024, 5, 3), at(2024, 4, 1),
                    "2024-05-03~2024-04-01", none},
                {"hour: hours of today pass", 3, at(2024, 5, 3, 4), at(2024, 5, 3, 9),
                    "2024-05-03 04~2024-05-03 09", none},
                {"hour: both yesterday run to the end of yesterday", 3, at(2024, 5, 2, 4), at(2024, 5, 2, 9),
                    "2024-05-02 04~2024-05-02 23", none},
                {"hour: yesterday to today is cut to yesterday", 3, at(2024, 5, 2, 4), at(2024, 5, 3, 9),
                    "2024-05-02 04~2024-05-02 23", hourTip},
                {"hour: today to tomorrow runs to the end of today", 3, at(2024, 5, 3, 4), at(2024, 5, 4, 9),
                    "2024-05-03 04~2024-05-03 23", none},
                {"hour: hours on the same day number of another month pass", 3, at(2024, 4, 3, 4),
                    at(2024, 4, 3, 9), "2024-04-03 04~2024-04-03 09", none},
                {"hour: a month up to the same day number is cut", 3, at(2024, 4, 3, 4), at(2024, 5, 3, 9),
                    "2024-04-03 04~2024-04-03 23", hourTip},
                {"hour: a stop on the same day number of a later month is cut", 3, at(2024, 5, 3, 4),
                    at(2024, 6, 3, 9), "2024-05-03 04~2024-05-03 23", hourTip},
                {"hour: days that end on another day number are cut silently", 3, at(2024, 4, 28, 4),
                    at(2024, 5, 1, 9), "2024-04-28 04~2024-04-28 23", none},
                {"hour: a stop before the start on the same day stays", 3, at(2024, 5, 3, 9),
                    at(2024, 5, 3, 4), "2024-05-03 09~2024-05-03 04", none},
                {"hour: a stop days before the start on today's day number stays", 3, at(2024, 5, 5, 9),
                    at(2024, 5, 3, 4), "2024-05-05 09~2024-05-03 04", none},
                {"hour: a stop on the day before the start moves to the start's day", 3, at(2024, 5, 3, 9),
                    at(2024, 5, 2, 4), "2024-05-03 09~2024-05-03 23", none},
            });
        for (const int unit : {0, 4, -1, INT_MAX, INT_MIN})
            QTest::addRow("unit %d knows no limit and shows months", unit)
                << unit << at(2019, 1, 15) << at(2024, 5, 3) << u"2019-01~2024-05"_s << none;
    }

    void limits()
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

    void limitsWithInvalidEndsAreHarmless_data()
    {
        QTest::addColumn<int>("unit");
        QTest::addColumn<QDateTime>("start");
        QTest::addColumn<QDateTime>("stop");
        for (const int unit : {1, 2, 3, 0}) {
            QTest::addRow("unit %d, both invalid", unit) << unit << QDateTime() << QDateTime();
            QTest::addRow("unit %d, invalid start", unit) << unit << QDateTime() << at(2024, 5, 3, 9);
            QTest::addRow("unit %d, invalid stop", unit) << unit << at(2024, 5, 3, 9) << QDateTime();
            QTest::addRow("unit %d, ends of the calendar", unit)
                << unit << at(1, 1, 1) << at(9999, 12, 31, 23);
            QTest::addRow("unit %d, beyond four digits", unit)
                << unit << at(9999, 12, 31) << at(120000, 1, 1);
        }
    }

    void limitsWithInvalidEndsAreHarmless()
    {
        QFETCH(int, unit);
        QFETCH(QDateTime, start);
        QFETCH(QDateTime, stop);
        auto &&[scene, page] = Shown(1);
        page.slotDataTimeChanged(start, stop, static_cast<QueryType>(unit));
        QCOMPARE(timeEdit(page)->text().count(u'~'), 1);
        if (!start.isValid())
            QVERIFY(timeEdit(page)->text().startsWith(u'~'));
        page.showZrCalendarWidget(false);
        page.m_pCalendarWidget->hide();
    }

    void limitedSpanIsSearched_data()
    {
        table<int, QDateTime, QDateTime, QString, QString, QString>(
            {"unit", "start", "stop", "tip", "from", "to"},
            {
                {"months", 1, at(2023, 10, 3), at(2024, 5, 3), monthTip, "2023-10", "2024-04"},
                {"days", 2, at(2024, 4, 20), at(2024, 5, 3), dayTip, "2024-04-20", "2024-04-27"},
                {"hours", 3, at(2024, 5, 2, 6), at(2024, 5, 3, 9), hourTip, "2024-05-02 06", "2024-05-02 23"},
            });
    }

    void limitedSpanIsSearched()
    {
        QFETCH(int, unit);
        QFETCH(QDateTime, start);
        QFETCH(QDateTime, stop);
        QFETCH(QString, tip);
        QFETCH(QString, from);
        QFETCH(QString, to);
        auto &&[scene, page] = Shown(1);
        page.m_nTimeType = unit;
        scene.forgetCalls();
        Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(start, stop);
        QCOMPARE(page.tips, QList<Tip>({{tip, 2}}));
        QCOMPARE(scene.wholeLevelCalls().size(), 1);
        const auto request = scene.manager.alarmStatisticsOfOrgas.requests.last();
        QCOMPARE(QString::fromStdString(request.startTime()), from);
        QCOMPARE(QString::fromStdString(request.endTime()), to);
    }

    void tipComesBeforeTheText()
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

    void wholeDaysEndWithTheirLastSecond_data()
    {
        table<QDateTime>({"stop"},
            {
                {"a stop on another day number", at(2024, 5, 2, 9, 10, 11)},
                {"a stop that is cut", at(2024, 5, 3, 9, 10, 11)},
            });
    }

    void wholeDaysEndWithTheirLastSecond()
    {
        QFETCH(QDateTime, stop);
        const auto span =
            TimeFormats::limited(at(2024, 5, 2, 4), stop, ZrCalendarWidget::Hour, testMoment().date());
        QCOMPARE(span.stop, QDateTime(QDate(2024, 5, 2), QTime(23, 59, 59, 0)));
    }

    void unchangedTextSearchesNothing()
    {
        auto &&[scene, page] = Shown(1);
        scene.forgetCalls();
        page.slotDataTimeChanged(at(2024, 5, 3, 0, 30), at(2024, 5, 3, 17, 59), QueryType::Hour);
        QCOMPARE(scene.manager.calls, QStringList());
        page.slotDataTimeChanged(at(2024, 5, 3, 0, 30), at(2024, 5, 3, 18, 0), QueryType::Hour);
        QCOMPARE(scene.wholeLevelCalls().size(), 1);
    }

    void otherDayNumberIsThatOfThePresentMoment()
    {
        ProbePage page(1);
        setPresentMoment(at(2024, 5, 9, 12));
        page.slotDataTimeChanged(at(2024, 5, 9, 4), at(2024, 5, 9, 9), QueryType::Hour);
        QCOMPARE(timeEdit(page)->text(), u"2024-05-09 04~2024-05-09 09"_s);
        page.slotDataTimeChanged(at(2024, 5, 3, 4), at(2024, 5, 3, 9), QueryType::Hour);
        QCOMPARE(timeEdit(page)->text(), u"2024-05-03 04~2024-05-03 23"_s);
        QCOMPARE(page.tips.size(), 0);
    }

    void calendarAnswerTakesThePagesUnit_data()
    {
        table<int, QString>({"unit", "text"},
            {
                {"month", 1, "2024-05~2024-05"},
                {"day", 2, "2024-05-02~2024-05-03"},
                {"hour", 3, "2024-05-02 04~2024-05-02 23"},
                {"any other", 8, "2024-05~2024-05"},
            });
    }

    void calendarAnswerTakesThePagesUnit()
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

    void confirmedPopupSearchesOnce()
    {
        auto &&[scene, page] = Shown(1);
        scene.forgetCalls();
        page.m_pCalendarWidget->showDialog(at(2024, 5, 3, 4), at(2024, 5, 3, 6));
        page.m_pCalendarWidget->shortcutEnter();
        QCOMPARE(timeEdit(page)->text(), u"2024-05-03 04~2024-05-03 06"_s);
        QCOMPARE(scene.wholeLevelCalls().size(), 1);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().startTime(), "2024-05-03 04"s);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().endTime(), "2024-05-03 06"s);
    }

    void popupStandsBelowTheTimeRightAligned()
    {
        auto &&[scene, page] = Shown(1);
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

    void popupGetsTheSpanOfTheText_data()
    {
        QTest::addColumn<int>("unit");
        QTest::addColumn<QDateTime>("start");
        QTest::addColumn<QDateTime>("stop");
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("dayFirst");
        for (const bool dayFirst : {false, true}) {
            const char *order = dayFirst ? "day first" : "year first";
            QTest::addRow("months, %s", order)
                << 1 << at(2024, 2, 1) << at(2024, 4, 1) << u"yyyy-MM"_s << dayFirst;
            QTest::addRow("days, %s", order)
                << 2 << at(2024, 4, 28) << at(2024, 5, 2) << u"yyyy-MM-dd"_s << dayFirst;
            QTest::addRow("hours, %s", order)
                << 3 << at(2024, 5, 3, 4) << at(2024, 5, 3, 9) << u"yyyy-MM-dd hh"_s << dayFirst;
        }
    }

    void popupGetsTheSpanOfTheText()
    {
        QFETCH(int, unit);
        QFETCH(QDateTime, start);
        QFETCH(QDateTime, stop);
        QFETCH(QString, format);
        QFETCH(bool, dayFirst);
        HostSettings::setDateOrder(
            dayFirst ? HostSettings::DateOrder::DayFirst : HostSettings::DateOrder::YearFirst);
        auto &&[scene, page] = Shown(1);
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

    void popupIgnoresItsArgument()
    {
        auto &&[scene, page] = Shown(1);
        for (const bool state : {true, false}) {
            page.showZrCalendarWidget(state);
            QVERIFY(page.m_pCalendarWidget->isVisible());
            page.m_pCalendarWidget->hide();
        }
    }

    void malformedTextIsLoggedAndOpensThePopup_data()
    {
        table<QString, bool>({"text", "logged"},
            {
                {"no separator", "2024-05-03 04", true},
                {"nothing", QString(), true},
                {"three parts", "2024-05-03 04~2024-05-03 05~2024-05-03 06", true},
                {"a third part that is empty", "2024-05-03 04~2024-05-03 05~", true},
                {"two empty parts count as two", "~", false},
                {"two parts that are no dates", "soon~later", false},
            });
    }

    void malformedTextIsLoggedAndOpensThePopup()
    {
        QFETCH(QString, text);
        QFETCH(bool, logged);
        auto &&[scene, page] = Shown(1, {});
        timeEdit(page)->setText(text);
        LogCapture log;
        page.showZrCalendarWidget(true);
        QCOMPARE(log.lines(QtDebugMsg).count(errorLine), logged ? 1 : 0);
        QVERIFY(page.m_pCalendarWidget->isVisible());
        QVERIFY(!page.m_pCalendarWidget->findChild<ZrPushButton *>(u"pushButtonOK"_s)->isEnabled());
        page.m_pCalendarWidget->hide();
        QCOMPARE(timeEdit(page)->text(), text);
        QCOMPARE(page.tips.size(), 1);
    }

    void requestStringsAreYearFirst_data()
    {
        table<int, bool, QString, QString, QString>({"unit", "dayFirst", "displayStart", "from", "to"},
            {
                {"months, year first", 1, false, "2024-02", "2024-02", "2024-04"},
                {"days, year first", 2, false, "2024-04-28", "2024-04-28", "2024-05-02"},
                {"hours, year first", 3, false, "2024-05-03 00", "2024-05-03 00", "2024-05-03 17"},
                {"any other unit counts as months", 7, false, "2024-02", "2024-02", "2024-04"},
                {"months, day first", 1, true, "02", "2024-02", "2024-04"},
                {"days, day first", 2, true, "28", "2024-04-28", "2024-05-02"},
                {"hours, day first", 3, true, "03", "2024-05-03 00", "2024-05-03 17"},
            });
    }

    void requestStringsAreYearFirst()
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
        const QDateTime stop = unit == 2 ? at(2024, 5, 2)
            : unit == 3                  ? at(2024, 5, 3, 17, 20)
                                         : at(2024, 4, 30);
        page.slotDataTimeChanged(start, stop, static_cast<QueryType>(unit));
        const QString text = timeEdit(page)->text();
        QVERIFY2(text.startsWith(displayStart), qPrintable(text));
        QCOMPARE(text.startsWith(u"2024"_s), !dayFirst);
        const QString requestFormat = unit == 2 ? u"yyyy-MM-dd"_s
            : unit == 3                         ? u"yyyy-MM-dd hh"_s
                                                : u"yyyy-MM"_s;
        const QString format = BaseHelper::dateTimeFormatConversion(requestFormat);
        QCOMPARE(text, start.toString(format) + u'~' + stop.toString(format));
        QCOMPARE(timeRange(page), std::pair(from, to));
    }

    void requestStringsOfMalformedText_data()
    {
        const QString hour = u"2024-05-03 04"_s;
        table<QString, QString, QString>({"text", "from", "to"},
            {
                {"nothing", QString(), QString(), QString()},
                {"one part", hour, hour, QString()},
                {"only the separator", "~", QString(), QString()},
                {"no dates", "soon~later", QString(), QString()},
                {"of three parts the first two", "2024-05-03 04~2024-05-03 05~2024-05-03 06", hour,
                    "2024-05-03 05"},
                {"blanks around the separator", "2024-05-03 04 ~ 2024-05-03 05", QString(), QString()},
            });
    }

    void requestStringsOfMalformedText()
    {
        QFETCH(QString, text);
        QFETCH(QString, from);
        QFETCH(QString, to);
        ProbePage page(1);
        timeEdit(page)->setText(text);
        QCOMPARE(timeRange(page), std::pair(from, to));
    }

    void queryAndLineUseRequestStrings_data()
    {
        table<QByteArray, QString, QString>({"button", "from", "to"},
            {
                {"month", "pushButtonMonth", "2023-11", "2024-05"},
                {"day", "pushButtonDay", "2024-04-26", "2024-05-03"},
                {"hour", "pushButtonHour", "2024-05-03 00", "2024-05-03 17"},
            });
    }

    void queryAndLineUseRequestStrings()
    {
        QFETCH(QByteArray, button);
        QFETCH(QString, from);
        QFETCH(QString, to);
        HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
        auto &&[scene, page] = Shown(1);
        click(page, button.constData());
        QVERIFY(!timeEdit(page)->text().startsWith(u"20"_s));
        const auto bars = scene.manager.alarmStatisticsOfOrgas.requests.last();
        QCOMPARE(QString::fromStdString(bars.startTime()), from);
        QCOMPARE(QString::fromStdString(bars.endTime()), to);
        const auto line = scene.manager.alarmStatisticsOfOrga.requests.last();
        QCOMPARE(QString::fromStdString(line.startTime()), from);
        QCOMPARE(QString::fromStdString(line.endTime()), to);
    }

    void hideAndShowKeepTheSpan()
    {
        auto &&[scene, page] = Shown(1);
        Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(at(2024, 5, 3, 4), at(2024, 5, 3, 6));
        page.hide();
        page.show();
        QCOMPARE(timeEdit(page)->text(), u"2024-05-03 04~2024-05-03 06"_s);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().endTime(), "2024-05-03 06"s);
    }

    void spanDoesNotMoveWithTheClock()
    {
        auto &&[scene, page] = Shown(1);
        setPresentMoment(at(2024, 5, 4, 3));
        page.slotSearch();
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QCOMPARE(timeEdit(page)->text(), u"2024-05-03 00~2024-05-03 17"_s);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().endTime(), "2024-05-03 17"s);
    }

    void springForwardNightCountsAsOneDay()
    {
        setPresentMoment(at(2024, 3, 31, 12));
        auto &&[scene, page] = Shown(1);
        QCOMPARE(timeEdit(page)->text(), u"2024-03-31 00~2024-03-31 12"_s);
        QCOMPARE(page.tips.size(), 0);
        click(page, "pushButtonDay");
        QCOMPARE(timeEdit(page)->text(), u"2024-03-24~2024-03-31"_s);
        QCOMPARE(page.tips.size(), 0);
        page.slotDataTimeChanged(at(2024, 3, 31, 0), at(2024, 3, 31, 23, 59, 59), QueryType::Hour);
        QCOMPARE(timeEdit(page)->text(), u"2024-03-31 00~2024-03-31 23"_s);
        QCOMPARE(page.tips.size(), 0);
    }
};

TALVIX_TEST_MAIN(TestTimeSpan)
#include "tst_time_span.moc"
