#include "TestMain.h"

#include <devhost/widgets/HostSettings.h>
#include <page/Clock.h>

#include <QtGui/QFont>
#include <QtWidgets/QStyleFactory>

#include <ctime>

namespace {

// What the tests say holds in other places too; these name one.
constexpr const char *zoneVariable = "TALVIX_TEST_TIME_ZONE";
constexpr const char *localeVariable = "TALVIX_TEST_LOCALE";

// Before the application, so that no static object of Qt has looked at them yet.
void fixEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_PLATFORMTHEME", "");
    qputenv("TZ", qEnvironmentVariableIsSet(zoneVariable) ? qgetenv(zoneVariable) : "Europe/Berlin");
    qputenv("LANG", "C.UTF-8");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_SCALE_FACTOR", "1");
    qputenv("QT_LOGGING_RULES", "");
    qunsetenv("QT_STYLE_OVERRIDE");
#ifndef Q_OS_WIN
    tzset();
#endif
}

} // namespace

TestApplication::TestApplication(int &argc, char **argv)
{
    fixEnvironment();
    QLocale::setDefault(QLocale(qEnvironmentVariable(localeVariable, QStringLiteral("C"))));
    m_application = std::make_unique<QApplication>(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
    QApplication::setDoubleClickInterval(400);
    setPresentMoment({});
}

TestApplication::~TestApplication() = default;

QDateTime testMoment()
{
    return QDateTime(QDate(2024, 5, 3), QTime(17, 20, 30));
}

void setPresentMoment(const QDateTime &moment)
{
    qApp->setProperty(Clock::currentTimeProperty, moment.isValid() ? moment : testMoment());
}

void resetHostSettings()
{
    setPresentMoment({});
    HostSettings::setLanguage({});
    HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
}
