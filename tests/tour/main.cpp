#include "devhost/app/Figures.h"
#include "devhost/app/HostWindow.h"
#include "devhost/widgets/HostSettings.h"

#include <TalvixWidgets/ZrComboBoxWithTree.h>

#include <QtCharts/QAbstractBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QChartView>
#include <QtCore/QDir>
#include <QtCore/QHashFunctions>
#include <QtCore/QLoggingCategory>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>

#include <cstdio>
#include <ctime>
#include <stdexcept>

/// Takes a newcomer's first ten minutes with real clicks and keys, and a picture at each step.
namespace {

constexpr QSize windowSize(1280, 800);
constexpr QSize wideWindowSize(1840, 960);
constexpr int settlingTime = 1500;
constexpr int restingTime = 800 + settlingTime;

class Tour
{
public:
    Tour(HostWindow &window, const QDir &folder)
        : m_window(window)
        , m_folder(folder)
    { }

    void take()
    {
        m_window.resize(windowSize);
        m_window.show();
        settle();
        picture("1-start");
        restOnBar(1);
        picture("2-resting-on-a-bar");
        chooseOrganisation();
        chooseSpan();
        click("hostFailNext");
        click("pushButtonDay");
        picture("5-failure");
        click("pushButtonHour");
        chooseKind();
        m_window.resize(wideWindowSize);
        m_window.openKind(8);
        settle();
        picture("7-traffic");
    }

private:
    template <typename Widget = QWidget>
    Widget *visible(const char *name = nullptr) const
    {
        for (QWidget *top : QApplication::topLevelWidgets()) {
            for (auto *widget : top->findChildren<Widget *>(QString::fromLatin1(name))) {
                if (widget->isVisible())
                    return widget;
            }
        }
        throw std::runtime_error(
            std::string("There is no visible ") + (name ? name : Widget::staticMetaObject.className()) + ".");
    }

    static void settle(int milliseconds = settlingTime) { QTest::qWait(milliseconds); }

    void click(const char *name) const
    {
        QTest::mouseClick(visible(name), Qt::LeftButton);
        settle();
    }

    void restOnBar(int index) const
    {
        // The first view of a page is that of its bars.
        auto *view = visible<QChartView>();
        auto *series = qobject_cast<QAbstractBarSeries *>(view->chart()->series().constFirst());
        const QPointF middle(index, series->barSets().constFirst()->at(index) / 2);
        QTest::mouseMove(view->viewport(), view->chart()->mapToPosition(middle, series).toPoint());
        settle(restingTime);
    }

    void chooseOrganisation() const
    {
        QTest::mouseClick(visible<ZrComboBoxWithTree>(), Qt::LeftButton);
        settle();
        QTest::keyClicks(visible("lineEditSearch"), QStringLiteral("ter"));
        settle();
        picture("3-organisation");
        QTest::keyClick(visible("lineEditSearch"), Qt::Key_Escape);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        settle();
    }

    void chooseSpan() const
    {
        click("lineEditTime");
        picture("4-span");
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        settle();
    }

    void chooseKind() const
    {
        click("hostMenu");
        picture("6-kinds");
        QTest::keyClick(visible("hostKinds"), Qt::Key_Escape);
        settle();
    }

    /// The window with what floats above it.
    void picture(const char *name) const
    {
        QPixmap picture = m_window.grab();
        QPainter painter(&picture);
        for (QWidget *top : QApplication::topLevelWidgets()) {
            if (top != &m_window && top->isVisible())
                painter.drawPixmap(m_window.mapFromGlobal(top->pos()), top->grab());
        }
        painter.end();
        const QString file = m_folder.filePath(QStringLiteral("tour-%1.png").arg(QLatin1String(name)));
        if (!picture.save(file))
            throw std::runtime_error(qPrintable(QStringLiteral("\"%1\" cannot be written.").arg(file)));
        std::printf("%s\n", qPrintable(file));
    }

    HostWindow &m_window;
    QDir m_folder;
};

void fixSurroundings()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
#ifndef Q_OS_WIN
    tzset();
#endif
    QHashSeed::setDeterministicGlobalSeed();
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("usage: talvix-tour <folder for the pictures>\n", stderr);
        return 2;
    }
    fixSurroundings();
    QApplication application(argc, argv);
    // A blinking cursor would make another picture each time.
    QApplication::setCursorFlashTime(0);
    Options options;
    options.now = QDateTime(QDate(2024, 5, 3), QTime(17, 20));
    qApp->setProperty("TalvixDataStatics::currentTime", options.now);
    try {
        Figures figures(options);
        figures.open();
        HostSettings::setLanguage(QStringLiteral("en"));
        HostSettings::applyTheme();
        const QTemporaryDir home;
        QSettings settings(home.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
        HostWindow window(figures.service(), settings);
        window.setSource(figures.displayName(), options.now, HostWindow::MomentOf::Choice);
        Tour(window, QDir(QString::fromLocal8Bit(argv[1]))).take();
    } catch (const std::exception &problem) {
        std::fprintf(stderr, "talvix-tour: %s\n", problem.what());
        return 1;
    }
    return 0;
}
