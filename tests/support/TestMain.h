#pragma once

#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

#include <memory>

/// Fixes what the outcome must not depend on: platform, style, font, locale, time zone and the present
/// moment. The order of the test programs' static objects does not matter; the application lives as long as
/// this.
class TestApplication
{
public:
    TestApplication(int &argc, char **argv);
    ~TestApplication();

private:
    std::unique_ptr<QApplication> m_application;
};

/// The moment that tests live in unless they set another: Friday 2024-05-03 17:20:30 local time.
QDateTime testMoment();
/// Makes \a moment the present; an invalid one brings back `testMoment()`.
void setPresentMoment(const QDateTime &moment);
/// The moment of the tests, no language, and dates by year first.
void resetHostSettings();

#define TALVIX_TEST_MAIN(TestClass)                                                                          \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        TestApplication application(argc, argv);                                                             \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
