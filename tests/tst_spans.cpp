#include "support/TestMain.h"

#include <devhost/data/Spans.h>
#include <devhost/data/Sql.h>

using namespace devdata;

Q_DECLARE_METATYPE(devdata::TimeUnit)

class TestSpans : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSpanIsReadInTheFormOfItsUnit()
    {
        const Span hours = parseSpan(3, "2024-05-03 00", "2024-05-03 17");
        QCOMPARE(hours.unit, TimeUnit::Hour);
        QCOMPARE(hours.first, 2024050300);
        QCOMPARE(hours.last, 2024050317);
        const Span days = parseSpan(2, "2024-02-29", "2024-03-01");
        QCOMPARE(days.first, 20240229);
        QCOMPARE(days.last, 20240301);
        const Span months = parseSpan(1, "2023-12", "2024-01");
        QCOMPARE(months.first, 202312);
        QCOMPARE(months.last, 202401);
    }

    void aMonthMayBeWrittenAsADayOfIt()
    {
        const Span months = parseSpan(1, "2023-12-31", "2024-01");
        QCOMPARE(months.first, 202312);
        QCOMPARE(months.last, 202401);
        QVERIFY_THROWS_EXCEPTION(StoreError, parseSpan(1, "2023-02-29", "2024-01"));
    }

    void anotherFormIsRefused_data()
    {
        QTest::addColumn<int>("timeType");
        QTest::addColumn<QByteArray>("time");
        QTest::newRow("empty") << 3 << QByteArray();
        QTest::newRow("blank at the end") << 2 << QByteArray("2024-05-03 ");
        QTest::newRow("too short") << 2 << QByteArray("2024-5-3");
        QTest::newRow("sign") << 2 << QByteArray("+024-05-03");
        QTest::newRow("another separator") << 2 << QByteArray("2024/05/03");
        QTest::newRow("null byte") << 1 << QByteArray("2024-0\0", 7);
        QTest::newRow("other digits") << 1 << QByteArray("\xd9\xa2\xd9\xa0\xd9\xa2\xd9\xa4-\xd9\xa0\xd9\xa5");
        QTest::newRow("invalid UTF-8") << 1 << QByteArray("\xff\xfe\xff\xfe-05");
        QTest::newRow("minutes") << 3 << QByteArray("2024-05-03 00:00");
        QTest::newRow("day 0") << 2 << QByteArray("2024-05-00");
        QTest::newRow("day 31 of a short month") << 2 << QByteArray("2024-04-31");
        QTest::newRow("hour 24") << 3 << QByteArray("2024-05-03 24");
    }
    void anotherFormIsRefused()
    {
        QFETCH(int, timeType);
        QFETCH(QByteArray, time);
        QVERIFY_THROWS_EXCEPTION(StoreError, parseSpan(timeType, time.toStdString(), time.toStdString()));
    }

    void aSpanMayBeEmptyButNotTooLong()
    {
        QVERIFY(parseSpan(2, "2024-05-03", "2024-05-02").isEmpty());
        QVERIFY(!parseSpan(2, "2024-05-03", "2024-05-03").isEmpty());
        QVERIFY(parseSpan(3, "9999-12-31 23", "0001-01-01 00").isEmpty());
        QCOMPARE(bucketsOf(parseSpan(3, "2024-01-01 00", "2024-12-31 23")).size(), size_t(8784));
        QVERIFY_THROWS_EXCEPTION(StoreError, parseSpan(3, "2024-01-01 00", "2025-01-01 00"));
        QVERIFY_THROWS_EXCEPTION(StoreError, parseSpan(1, "0001-01", "9999-12"));
    }

    void periodsFollowEachOther_data()
    {
        QTest::addColumn<TimeUnit>("unit");
        QTest::addColumn<Bucket>("bucket");
        QTest::addColumn<Bucket>("next");
        QTest::addColumn<QByteArray>("label");
        QTest::newRow("hour") << TimeUnit::Hour << Bucket(2024050308) << Bucket(2024050309)
                              << QByteArray("2024-05-03 08");
        QTest::newRow("last hour of a year")
            << TimeUnit::Hour << Bucket(2023123123) << Bucket(2024010100) << QByteArray("2023-12-31 23");
        QTest::newRow("hour that the clock skips")
            << TimeUnit::Hour << Bucket(2024033101) << Bucket(2024033102) << QByteArray("2024-03-31 01");
        QTest::newRow("day before a leap day")
            << TimeUnit::Day << Bucket(20240228) << Bucket(20240229) << QByteArray("2024-02-28");
        QTest::newRow("last day of a year")
            << TimeUnit::Day << Bucket(20231231) << Bucket(20240101) << QByteArray("2023-12-31");
        QTest::newRow("December") << TimeUnit::Month << Bucket(202312) << Bucket(202401)
                                  << QByteArray("2023-12");
        QTest::newRow("year 1") << TimeUnit::Day << Bucket(10101) << Bucket(10102)
                                << QByteArray("0001-01-01");
    }
    void periodsFollowEachOther()
    {
        QFETCH(TimeUnit, unit);
        QFETCH(Bucket, bucket);
        QTEST(nextBucket(bucket, unit), "next");
        QTEST(QByteArray::fromStdString(labelOf(bucket, unit)), "label");
    }

    void theLastPeriodsOfAllEndTheirSpan()
    {
        QCOMPARE(bucketsOf(parseSpan(3, "9999-12-31 22", "9999-12-31 23")).size(), size_t(2));
        QCOMPARE(bucketsOf(parseSpan(1, "9999-11", "9999-12")).size(), size_t(2));
        QCOMPARE(bucketsOf(parseSpan(2, "9999-12-31", "9999-12-31")).size(), size_t(1));
    }

    void aMinuteBelongsToItsHourDayAndMonth()
    {
        const Minute minute = minuteOf(QDateTime(QDate(2024, 5, 3), QTime(17, 20, 59)));
        QCOMPARE(minute, 202405031720);
        QCOMPARE(bucketOf(minute, TimeUnit::Hour), 2024050317);
        QCOMPARE(bucketOf(minute, TimeUnit::Day), 20240503);
        QCOMPARE(bucketOf(minute, TimeUnit::Month), 202405);
        QCOMPARE(firstMinuteOf(202405, TimeUnit::Month), 202405010000);
        QCOMPARE(firstMinuteOf(20240503, TimeUnit::Day), 202405030000);
        QCOMPARE(firstMinuteOf(2024050317, TimeUnit::Hour), 202405031700);
    }

    void everyDayHasAsManyMinutes()
    {
        QCOMPARE(minutesBetween(202403310000, 202404010000), 24 * 60);
        QCOMPARE(minutesBetween(202410270000, 202410280000), 24 * 60);
        QCOMPARE(minutesBetween(202312312330, 202401010015), 45);
        QCOMPARE(minutesBetween(202401010015, 202312312330), -45);
        QCOMPARE(addMinutes(202312312330, 45), 202401010015);
        QCOMPARE(addMinutes(202401010015, -45), 202312312330);
        QCOMPARE(addMinutes(202402280000, 2 * 24 * 60), 202403010000);
    }
};

TALVIX_TEST_MAIN(TestSpans)
#include "tst_spans.moc"
