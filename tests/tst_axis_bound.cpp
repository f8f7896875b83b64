#include "support/TestMain.h"
#include "support/TestTable.h"

#include <page/AxisBound.h>

#include <limits>

class AxisBoundTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hundredRule_data()
    {
        table<int, double>({"maximum", "bound"},
            {{"nothing counted", 0, 100.0}, {"one", 1, 100.0}, {"just below a hundred", 99, 100.0},
                {"an exact hundred is raised by a whole hundred", 100, 200.0},
                {"one above a hundred", 101, 200.0}, {"two hundred and fifty", 250, 300.0},
                {"nine hundred and ninety-nine", 999, 1000.0},
                {"an exact thousand is raised by a whole hundred", 1000, 1100.0},
                {"the division of a small negative truncates to zero", -1, 100.0},
                {"minus ninety-nine truncates to zero", -99, 100.0}, {"minus a hundred", -100, 0.0},
                {"minus two hundred and fifty truncates towards zero", -250, -100.0},
                {"the largest int whose bound is an int", 2147483599, 2147483600.0},
                {"the bound of the largest int is above every int", std::numeric_limits<int>::max(),
                    2147483700.0},
                {"the smallest int", std::numeric_limits<int>::min(), -2147483500.0}});
    }

    void hundredRule()
    {
        QFETCH(int, maximum);
        QTEST(axisBound(AxisRule::Hundred, maximum), "bound");
    }

    void digitRule_data()
    {
        table<int, double>({"maximum", "bound"},
            {{"nothing counted", 0, 5.0}, {"minus one", -1, 5.0}, {"minus a thousand", -1000, 5.0},
                {"the smallest int", std::numeric_limits<int>::min(), 5.0},
                {"the smallest single digit", 1, 10.0}, {"five", 5, 10.0},
                {"the largest single digit", 9, 10.0}, {"ten", 10, 20.0}, {"eleven", 11, 20.0},
                {"nineteen", 19, 20.0}, {"twenty", 20, 30.0}, {"thirty-seven", 37, 40.0},
                {"ninety", 90, 100.0}, {"ninety-nine", 99, 100.0}, {"a hundred", 100, 200.0},
                {"nine hundred and eighty-seven", 987, 1000.0}, {"nine hundred and ninety-nine", 999, 1000.0},
                {"a thousand", 1000, 2000.0}, {"a thousand and one", 1001, 2000.0},
                {"the largest number of nine digits", 999999999, 1000000000.0},
                {"the smallest number of ten digits", 1000000000, 2000000000.0},
                {"the last whose bound is an int", 1999999999, 2000000000.0},
                {"the first whose bound is above every int", 2000000000, 3000000000.0},
                {"the largest int", std::numeric_limits<int>::max(), 3000000000.0}});
    }

    void digitRule()
    {
        QFETCH(int, maximum);
        QTEST(axisBound(AxisRule::Digit, maximum), "bound");
    }

    void hundredRuleLeavesRoomOfAtMostAHundred()
    {
        for (int maximum = 0; maximum <= 5000; ++maximum) {
            const double bound = axisBound(AxisRule::Hundred, maximum);
            QCOMPARE(static_cast<int>(bound) % 100, 0);
            QVERIFY2(bound > maximum && bound - maximum <= 100, qPrintable(QString::number(maximum)));
        }
    }

    void digitRuleIsTheNextMultipleOfTheLeadingDigitsUnit()
    {
        for (int maximum = 10; maximum <= 120000; ++maximum) {
            const int unit = QByteArray("1").leftJustified(QByteArray::number(maximum).size(), '0').toInt();
            const double bound = axisBound(AxisRule::Digit, maximum);
            QCOMPARE(static_cast<int>(bound) % unit, 0);
            QVERIFY2(bound > maximum && bound - maximum <= unit, qPrintable(QString::number(maximum)));
        }
    }
};

TALVIX_TEST_MAIN(AxisBoundTest)

#include "tst_axis_bound.moc"
