#include "support/TestMain.h"

#include <page/AxisBound.h>

#include <limits>

class AxisBoundTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hundredRule_data();
    void hundredRule();
    void digitRule_data();
    void digitRule();
    void hundredRuleLeavesRoomOfAtMostAHundred();
    void digitRuleIsTheNextMultipleOfTheLeadingDigitsUnit();
};

void AxisBoundTest::hundredRule_data()
{
    QTest::addColumn<int>("maximum");
    QTest::addColumn<double>("bound");

    QTest::newRow("nothing counted") << 0 << 100.0;
    QTest::newRow("one") << 1 << 100.0;
    QTest::newRow("just below a hundred") << 99 << 100.0;
    QTest::newRow("an exact hundred is raised by a whole hundred") << 100 << 200.0;
    QTest::newRow("one above a hundred") << 101 << 200.0;
    QTest::newRow("two hundred and fifty") << 250 << 300.0;
    QTest::newRow("nine hundred and ninety-nine") << 999 << 1000.0;
    QTest::newRow("an exact thousand is raised by a whole hundred") << 1000 << 1100.0;
    QTest::newRow("the division of a small negative truncates to zero") << -1 << 100.0;
    QTest::newRow("minus ninety-nine truncates to zero") << -99 << 100.0;
    QTest::newRow("minus a hundred") << -100 << 0.0;
    QTest::newRow("minus two hundred and fifty truncates towards zero") << -250 << -100.0;
    QTest::newRow("the largest int whose bound is an int") << 2147483599 << 2147483600.0;
    QTest::newRow("the bound of the largest int is above every int")
        << std::numeric_limits<int>::max() << 2147483700.0;
    QTest::newRow("the smallest int") << std::numeric_limits<int>::min() << -2147483500.0;
}

void AxisBoundTest::hundredRule()
{
    QFETCH(int, maximum);
    QFETCH(double, bound);
    QCOMPARE(axisBound(AxisRule::Hundred, maximum), bound);
}

void AxisBoundTest::digitRule_data()
{
    QTest::addColumn<int>("maximum");
    QTest::addColumn<double>("bound");

    QTest::newRow("nothing counted") << 0 << 5.0;
    QTest::newRow("minus one") << -1 << 5.0;
    QTest::newRow("minus a thousand") << -1000 << 5.0;
    QTest::newRow("the smallest int") << std::numeric_limits<int>::min() << 5.0;
    QTest::newRow("the smallest single digit") << 1 << 10.0;
    QTest::newRow("five") << 5 << 10.0;
    QTest::newRow("the largest single digit") << 9 << 10.0;
    QTest::newRow("ten") << 10 << 20.0;
    QTest::newRow("eleven") << 11 << 20.0;
    QTest::newRow("nineteen") << 19 << 20.0;
    QTest::newRow("twenty") << 20 << 30.0;
    QTest::newRow("thirty-seven") << 37 << 40.0;
    QTest::newRow("ninety") << 90 << 100.0;
    QTest::newRow("ninety-nine") << 99 << 100.0;
    QTest::newRow("a hundred") << 100 << 200.0;
    QTest::newRow("nine hundred and eighty-seven") << 987 << 1000.0;
    QTest::newRow("nine hundred and ninety-nine") << 999 << 1000.0;
    QTest::newRow("a thousand") << 1000 << 2000.0;
    QTest::newRow("a thousand and one") << 1001 << 2000.0;
    QTest::newRow("the largest number of nine digits") << 999999999 << 1000000000.0;
    QTest::newRow("the smallest number of ten digits") << 1000000000 << 2000000000.0;
    QTest::newRow("the last whose bound is an int") << 1999999999 << 2000000000.0;
    QTest::newRow("the first whose bound is above every int") << 2000000000 << 3000000000.0;
    QTest::newRow("the largest int") << std::numeric_limits<int>::max() << 3000000000.0;
}

void AxisBoundTest::digitRule()
{
    QFETCH(int, maximum);
    QFETCH(double, bound);
    QCOMPARE(axisBound(AxisRule::Digit, maximum), bound);
}

void AxisBoundTest::hundredRuleLeavesRoomOfAtMostAHundred()
{
    for (int maximum = 0; maximum <= 5000; ++maximum) {
        const double bound = axisBound(AxisRule::Hundred, maximum);
        QCOMPARE(static_cast<int>(bound) % 100, 0);
        QVERIFY2(bound > maximum && bound - maximum <= 100, qPrintable(QString::number(maximum)));
    }
}

void AxisBoundTest::digitRuleIsTheNextMultipleOfTheLeadingDigitsUnit()
{
    for (int maximum = 10; maximum <= 120000; ++maximum) {
        const int unit = QByteArray("1").leftJustified(QByteArray::number(maximum).size(), '0').toInt();
        const double bound = axisBound(AxisRule::Digit, maximum);
        QCOMPARE(static_cast<int>(bound) % unit, 0);
        QVERIFY2(bound > maximum && bound - maximum <= unit, qPrintable(QString::number(maximum)));
    }
}

TALVIX_TEST_MAIN(AxisBoundTest)

#include "tst_axis_bound.moc"
