#include "TestMain.h"

#include <QtWidgets/QStyleFactory>

#include <ctime>

namespace {

constexpr const char *presentMomentProperty = "presentMoment";

// Before the application, so that no static object of Qt has looked at them yet.
void fixEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_PLATFORMTHEME", "");
    qputenv("TZ", "Europe/Berlin");
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
    QLocale::setDefault(QLocale::c());
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
    qApp->setProperty(presentMomentProperty, moment.isValid() ? moment : testMoment());
}
