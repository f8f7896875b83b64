#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/data/Periods.h>
#include <devhost/data/Sql.h>

using namespace Qt::StringLiterals;

using namespace devdata;

Q_DECLARE_METATYPE(devdata::TimeUnit)

class TestPeriods : public QObject
{
    Q_OBJECT

private:
    static QStringList labelsOf(int timeType, const char *start, const char *end)
    {
        QStringList labels;
        for (const Period period : parseTimeRange(timeType, start, end).periods())
            labels += QString::fromStdString(period.label());
        return labels;
    }

    static Minute minute(const char *text)
    {
        return Minute(QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate));
    }

private Q_SLOTS:
    void aTimeRangeIsReadInTheFormOfItsUnit()
    {
        const TimeRange hours = parseTimeRange(3, "2024-05-03 00", "2024-05-03 17");
        QCOMPARE(hours.unit(), TimeUnit::Hour);
        QCOMPARE(hours.first.start(), minute("2024-05-03T00:00"));
        QCOMPARE(hours.last.start(), minute("2024-05-03T17:00"));
        QCOMPARE(labelsOf(2, "2024-02-29", "2024-03-01"), (QStringList{"2024-02-29", "2024-03-01"}));
        QCOMPARE(labelsOf(1, "2023-12", "2024-01"), (QStringList{"2023-12", "2024-01"}));
    }

    void aMonthMayBeWrittenAsADayOfIt()
    {
        QCOMPARE(labelsOf(1, "2023-12-31", "2024-01"), (QStringList{"2023-12", "2024-01"}));
        QVERIFY_THROWS_EXCEPTION(StoreError, parseTimeRange(1, "2023-02-29", "2024-01"));
    }

    void anotherFormIsRefused_data()
    {
        table<int, QByteArray>({"timeType", "time"},
            {
                {"empty", 3, QByteArray()},
                {"blank at the end", 2, "2024-05-03 "},
                {"too short", 2, "2024-5-3"},
                {"sign", 2, "+024-05-03"},
                {"another separator", 2, "2024/05/03"},
                {"null byte", 1, QByteArray("2024-0\0", 7)},
                {"other digits", 1, "\xd9\xa2\xd9\xa0\xd9\xa2\xd9\xa4-\xd9\xa0\xd9\xa5"_ba},
                {"invalid UTF-8", 1, "\xff\xfe\xff\xfe-05"_ba},
                {"minutes", 3, "2024-05-03 00:00"},
                {"day 0", 2, "2024-05-00"},
                {"day 31 of a short month", 2, "2024-04-31"},
                {"hour 24", 3, "2024-05-03 24"},
            });
    }
    void anotherFormIsRefused()
    {
        QFETCH(int, timeType);
        QFETCH(QByteArray, time);
        QVERIFY_THROWS_EXCEPTION(
            StoreError, parseTimeRange(timeType, time.toStdString(), time.toStdString()));
    }

    void aTimeRangeMayBeEmptyButNotTooLong()
    {
        QVERIFY(parseTimeRange(2, "2024-05-03", "2024-05-02").isEmpty());
        QVERIFY(!parseTimeRange(2, "2024-05-03", "2024-05-03").isEmpty());
        QVERIFY(parseTimeRange(3, "9999-12-31 23", "0001-01-01 00").isEmpty());
        QCOMPARE(labelsOf(3, "2024-01-01 00", "2024-12-31 23").size(), 8784);
        QVERIFY_THROWS_EXCEPTION(StoreError, parseTimeRange(3, "2024-01-01 00", "2025-01-01 00"));
        QVERIFY_THROWS_EXCEPTION(StoreError, parseTimeRange(2, "2024-01-01", "2048-01-19"));
        QVERIFY_THROWS_EXCEPTION(StoreError, parseTimeRange(1, "0001-01", "9999-12"));
        QCOMPARE(labelsOf(1, "0001-01", "0732-12").size(), 8784);
    }

    void periodsFollowEachOther_data()
    {
        QTest::addColumn<TimeUnit>("unit");
        QTest::addColumn<QByteArray>("first");
        QTest::addColumn<QByteArray>("next");
        const auto row = [](const char *name, TimeUnit unit, const char *first, const char *next) {
            QTest::newRow(name) << unit << QByteArray(first) << QByteArray(next);
        };
        row("hour", TimeUnit::Hour, "2024-05-03 08", "2024-05-03 09");
        row("last hour of a year", TimeUnit::Hour, "2023-12-31 23", "2024-01-01 00");
        row("hour that the clock skips", TimeUnit::Hour, "2024-03-31 01", "2024-03-31 02");
        row("day before a leap day", TimeUnit::Day, "2024-02-28", "2024-02-29");
        row("last day of a year", TimeUnit::Day, "2023-12-31", "2024-01-01");
        row("December", TimeUnit::Month, "2023-12", "2024-01");
        row("year 1", TimeUnit::Day, "0001-01-01", "0001-01-02");
    }
    void periodsFollowEachOther()
    {
        QFETCH(TimeUnit, unit);
        QFETCH(QByteArray, first);
        QFETCH(QByteArray, next);
        const Period period = parseTimeRange(static_cast<int>(unit), first.data(), first.data()).first;
        QCOMPARE(QByteArray::fromStdString(period.label()), first);
        QCOMPARE(QByteArray::fromStdString(period.next().label()), next);
        QVERIFY(period < period.next());
        QVERIFY(period != period.next());
    }

    void theLastPeriodsOfAllEndTheirTimeRange()
    {
        QCOMPARE(labelsOf(3, "9999-12-31 22", "9999-12-31 23").size(), 2);
        QCOMPARE(labelsOf(1, "9999-11", "9999-12").size(), 2);
        QCOMPARE(labelsOf(2, "9999-12-31", "9999-12-31").size(), 1);
    }

    void aMinuteBelongsToItsHourDayAndMonth()
    {
        const Minute at(QDateTime(QDate(2024, 5, 3), QTime(17, 20, 59)));
        QCOMPARE(at, minute("2024-05-03T17:20"));
        const Period hour = at.period(TimeUnit::Hour);
        const Period day = hour.period(TimeUnit::Day);
        const Period month = day.period(TimeUnit::Month);
        QCOMPARE(hour, parseTimeRange(3, "2024-05-03 17", "2024-05-03 17").first);
        QCOMPARE(day, at.period(TimeUnit::Day));
        QCOMPARE(month, at.period(TimeUnit::Month));
        QCOMPARE(hour.start(), minute("2024-05-03T17:00"));
        QCOMPARE(day.start(), minute("2024-05-03T00:00"));
        QCOMPARE(month.start(), minute("2024-05-01T00:00"));
        QCOMPARE(hour.firstDay(), QDate(2024, 5, 3));
        QCOMPARE(month.firstDay(), QDate(2024, 5, 1));
    }

    void timesOfDifferentUnitsDiffer()
    {
        const Period day = parseTimeRange(2, "0001-01-01", "0001-01-01").first;
        const Period month = parseTimeRange(1, "0101-01", "0101-01").first;
        QCOMPARE(day.stored(), month.stored());
        QVERIFY(day != month);
    }

    // Databases that are in use hold these numbers.
    void timesAreStoredAsTheDigitsOfTheirLabels()
    {
        const Minute at = minute("2024-05-03T17:20");
        QCOMPARE(at.stored(), 202405031720);
        QCOMPARE(at.period(TimeUnit::Hour).stored(), 2024050317);
        QCOMPARE(at.period(TimeUnit::Day).stored(), 20240503);
        QCOMPARE(at.period(TimeUnit::Month).stored(), 202405);
        QCOMPARE(Minute::fromStored(202405031720), at);
        QCOMPARE(Period::fromStored(TimeUnit::Day, 20240503), at.period(TimeUnit::Day));
        QVERIFY(Minute().isNull());
        QVERIFY(!at.isNull());
        QVERIFY(Minute() < at);
    }

    void everyDayHasAsManyMinutes()
    {
        const auto minutesBetween = [](const char *from, const char *to) {
            return minute(from).minutesTo(minute(to));
        };
        QCOMPARE(minutesBetween("2024-03-31T00:00", "2024-04-01T00:00"), 24 * 60);
        QCOMPARE(minutesBetween("2024-10-27T00:00", "2024-10-28T00:00"), 24 * 60);
        QCOMPARE(minutesBetween("2023-12-31T23:30", "2024-01-01T00:15"), 45);
        QCOMPARE(minutesBetween("2024-01-01T00:15", "2023-12-31T23:30"), -45);
        QCOMPARE(minute("2023-12-31T23:30").plus(45), minute("2024-01-01T00:15"));
        QCOMPARE(minute("2024-01-01T00:15").plus(-45), minute("2023-12-31T23:30"));
        QCOMPARE(minute("2024-02-28T00:00").plus(2 * 24 * 60), minute("2024-03-01T00:00"));
    }
};

TALVIX_TEST_MAIN(TestPeriods)
#include "tst_periods.moc"
