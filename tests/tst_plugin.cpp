#include "support/PageScene.h"
#include "support/TestMain.h"

#include <devhost/widgets/HostSettings.h>
#include <page/BasicChart.h>
#include <plugin/DataStaticsPlugin.h>
#include <plugin/DataStaticsWidget.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/BaseHelper.h>

#include <QtCore/QPointer>
#include <QtCore/QTranslator>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

#include <climits>

namespace {

const QStringList tabKeys = {QStringLiteral("TK_OrganizationAlm"), QStringLiteral("TK_DeviceAlmStatistics"),
    QStringLiteral("TK_OrganizationOnline"), QStringLiteral("TK_DeviceOnline")};

QTabWidget *tabsOf(const QWidget *widget)
{
    return widget->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
}

QStringList tabTexts(const QTabWidget *tabs)
{
    QStringList texts;
    for (int i = 0; i < tabs->count(); ++i)
        texts.append(tabs->tabText(i));
    return texts;
}

QList<int> tabWidths(const QTabWidget *tabs)
{
    QList<int> widths;
    for (int i = 0; i < tabs->count(); ++i)
        widths.append(tabs->tabBar()->tabRect(i).width());
    return widths;
}

/// Tab widths of a tab widget with these texts, fitted to a width.
QList<int> fittedWidths(const QStringList &texts, int width)
{
    QTabWidget tabs;
    for (const QString &text : texts)
        tabs.addTab(new QWidget, text);
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(&tabs, width);
    return tabWidths(&tabs);
}

void clickTab(QTabWidget *tabs, int index)
{
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(index).center());
}

void deleteWhatIsDue()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Keeps what the form of the tab host asks translators for.
class FormTextRecorder : public QTranslator
{
public:
    mutable QStringList asked;

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        if (qstrcmp(context, "DataStaticsWidget") == 0)
            asked.append(QString::fromLatin1(sourceText));
        return {};
    }
};

/// Counts how often the texts of the tabs are renewed.
class CountingHost : public DataStaticsWidget
{
public:
    int renewals = 0;
    void retranslateUi() override
    {
        ++renewals;
        DataStaticsWidget::retranslateUi();
    }
};

} // namespace

class TestPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void numbersStartAtOneAndNeverComeBack();
    void numberZeroAndBelowAndUnknownNumbersAreNormalAnswers_data();
    void numberZeroAndBelowAndUnknownNumbersAreNormalAnswers();
    void registryWithoutWidgetKnowsNoNumber();
    void numberLeadsToTheWidgetUnderItsParent();
    void initWithoutParentIsAccepted();
    void initNeitherShowsNorAsks();
    void secondUninitAnswersFalse();
    void uninitLeavesWidgetWithParentAsItIs();
    void uninitDeletesParentlessWidgetOnlyInTheEventLoop();
    void uninitInsideSlotOfItsWidgetIsSafe();
    void parentAtInitDecidesNotTheLaterOne();
    void uninitForgetsNumberWhoseParentDied();
    void destructionLeavesAllWidgetsAliveAndShown();
    void twoRegistriesShareTheCounterNotTheNumbers();
    void operationsLogNothing();
    void classHasNoSignalSlotOrPropertyOfItsOwn();
    void parentOfRegistryIsTheOneGiven();

    void tabHostHasFormOfFourPages();
    void formAsksForPlaceholderTexts();
    void pagesGetTheirServiceTypesInOrder();
    void firstTabIsCurrent();
    void tabTextsAreKeysWithoutLanguage();
    void tabsAreFittedTo140();
    void showAsksForAlarmsOfOrganisationsOnly();
    void choosingTabShowsItsPageAndReloadsEachTime();
    void eachTabOpensItsKind_data();
    void eachTabOpensItsKind();
    void dataStaticTypeOnlyRefits_data();
    void dataStaticTypeOnlyRefits();
    void languageChangeRetitlesAndRefits();
    void pagesRenewTheirTextsOnTheirOwn();
    void formSelectsTheLastTabUntilItIsSetUp();
    void settingUpAgainRenewsTextsAndGoesBackToTheFirstTab();
    void tabHostAddsNothingToTheMetaObject();
};

void TestPlugin::init()
{
    HostSettings::setLanguage({});
    setPresentMoment({});
}

void TestPlugin::cleanup()
{
    HostSettings::setLanguage({});
    deleteWhatIsDue();
}

// Stays first: one counter serves the process.
void TestPlugin::numbersStartAtOneAndNeverComeBack()
{
    QWidget frame;
    DataStaticsPlugin plugin;
    QCOMPARE(plugin.init(&frame), 1);
    QVERIFY(plugin.uninit(1));
    QCOMPARE(plugin.init(&frame), 2);
    QCOMPARE(plugin.init(&frame), 3);
    QCOMPARE(plugin.getWidget(1), nullptr);
    QVERIFY(plugin.getWidget(2));
    QVERIFY(plugin.getWidget(3));
    QVERIFY(plugin.getWidget(2) != plugin.getWidget(3));
}

void TestPlugin::numberZeroAndBelowAndUnknownNumbersAreNormalAnswers_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("zero") << 0;
    QTest::newRow("minus one, the answer of a failed init") << -1;
    QTest::newRow("smallest int") << INT_MIN;
    QTest::newRow("largest int") << INT_MAX;
    QTest::newRow("number that was never given out") << 1000000;
}

void TestPlugin::numberZeroAndBelowAndUnknownNumbersAreNormalAnswers()
{
    QFETCH(int, number);
    QWidget frame;
    DataStaticsPlugin plugin;
    const int live = plugin.init(&frame);
    QCOMPARE(plugin.getWidget(number), nullptr);
    QVERIFY(!plugin.uninit(number));
    QVERIFY(plugin.getWidget(live));
}

void TestPlugin::registryWithoutWidgetKnowsNoNumber()
{
    const DataStaticsPlugin other;
    DataStaticsPlugin plugin;
    for (int number = -2; number < 10; ++number) {
        QCOMPARE(plugin.getWidget(number), nullptr);
        QVERIFY(!plugin.uninit(number));
    }
}

void TestPlugin::numberLeadsToTheWidgetUnderItsParent()
{
    QWidget frame;
    DataStaticsPlugin plugin;
    const int number = plugin.init(&frame);
    BaseWidget *widget = plugin.getWidget(number);
    QVERIFY(qobject_cast<DataStaticsWidget *>(widget));
    QCOMPARE(widget->parentWidget(), &frame);
    QCOMPARE(plugin.getWidget(number), widget);
}

void TestPlugin::initWithoutParentIsAccepted()
{
    DataStaticsPlugin plugin;
    const int number = plugin.init(nullptr);
    QVERIFY(number >= 1);
    BaseWidget *widget = plugin.getWidget(number);
    QVERIFY(qobject_cast<DataStaticsWidget *>(widget));
    QCOMPARE(widget->parentWidget(), nullptr);
    QVERIFY(plugin.uninit(number));
}

void TestPlugin::initNeitherShowsNorAsks()
{
    PageScene scene;
    QWidget frame;
    frame.resize(1200, 700);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    DataStaticsPlugin plugin;
    BaseWidget *widget = plugin.getWidget(plugin.init(&frame));
    QVERIFY(!widget->isVisible());
    QCOMPARE(scene.client.calls, QStringList());
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestPlugin::secondUninitAnswersFalse()
{
    QWidget frame;
    DataStaticsPlugin plugin;
    const int number = plugin.init(&frame);
    QVERIFY(plugin.uninit(number));
    QVERIFY(!plugin.uninit(number));
}

void TestPlugin::uninitLeavesWidgetWithParentAsItIs()
{
    PageScene scene;
    QWidget frame;
    frame.resize(1200, 700);
    DataStaticsPlugin plugin;
    const int number = plugin.init(&frame);
    const QPointer<BaseWidget> widget = plugin.getWidget(number);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    widget->show();
    QVERIFY(widget->isVisible());

    QVERIFY(plugin.uninit(number));
    deleteWhatIsDue();
    QCOMPARE(plugin.getWidget(number), nullptr);
    QVERIFY(widget);
    QCOMPARE(widget->parentWidget(), &frame);
    QVERIFY(widget->isVisible());
}

void TestPlugin::uninitDeletesParentlessWidgetOnlyInTheEventLoop()
{
    DataStaticsPlugin plugin;
    const int number = plugin.init(nullptr);
    const QPointer<BaseWidget> widget = plugin.getWidget(number);
    QVERIFY(plugin.uninit(number));
    QVERIFY(widget);
    QCOMPARE(plugin.getWidget(number), nullptr);
    QTRY_VERIFY(!widget);
}

void TestPlugin::uninitInsideSlotOfItsWidgetIsSafe()
{
    DataStaticsPlugin plugin;
    const int number = plugin.init(nullptr);
    const QPointer<BaseWidget> widget = plugin.getWidget(number);
    QTabWidget *tabs = tabsOf(widget);
    bool aliveInsideSlot = false;
    connect(tabs, &QTabWidget::currentChanged, widget, [&] {
        plugin.uninit(number);
        aliveInsideSlot = !widget.isNull() && tabs->count() == 4;
    });
    tabs->setCurrentIndex(2);
    QVERIFY(aliveInsideSlot);
    QTRY_VERIFY(!widget);
}

void TestPlugin::parentAtInitDecidesNotTheLaterOne()
{
    DataStaticsPlugin plugin;
    QWidget frame;

    const int adopted = plugin.init(nullptr);
    const QPointer<BaseWidget> adoptedWidget = plugin.getWidget(adopted);
    adoptedWidget->setParent(&frame);
    QVERIFY(plugin.uninit(adopted));
    QTRY_VERIFY(!adoptedWidget);

    const int released = plugin.init(&frame);
    const QPointer<BaseWidget> releasedWidget = plugin.getWidget(released);
    releasedWidget->setParent(nullptr);
    QVERIFY(plugin.uninit(released));
    deleteWhatIsDue();
    QVERIFY(releasedWidget);
    delete releasedWidget;
}

void TestPlugin::uninitForgetsNumberWhoseParentDied()
{
    DataStaticsPlugin plugin;
    auto frame = std::make_unique<QWidget>();
    const int number = plugin.init(frame.get());
    frame.reset();
    QVERIFY(plugin.uninit(number));
    QVERIFY(!plugin.uninit(number));
}

void TestPlugin::destructionLeavesAllWidgetsAliveAndShown()
{
    PageScene scene;
    QWidget frame;
    frame.resize(1200, 700);
    auto plugin = std::make_unique<DataStaticsPlugin>();
    const QPointer<BaseWidget> child = plugin->getWidget(plugin->init(&frame));
    const QPointer<BaseWidget> orphan = plugin->getWidget(plugin->init(nullptr));
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    child->show();
    orphan->show();

    plugin.reset();
    deleteWhatIsDue();
    QVERIFY(child);
    QVERIFY(child->isVisible());
    QVERIFY(orphan);
    QVERIFY(orphan->isVisible());
    delete orphan;
}

void TestPlugin::twoRegistriesShareTheCounterNotTheNumbers()
{
    QWidget frame;
    DataStaticsPlugin one;
    DataStaticsPlugin other;
    const int first = one.init(&frame);
    const int second = other.init(&frame);
    const int third = one.init(&frame);
    QCOMPARE(second, first + 1);
    QCOMPARE(third, second + 1);
    QCOMPARE(other.getWidget(first), nullptr);
    QCOMPARE(one.getWidget(second), nullptr);
    QVERIFY(!other.uninit(first));
    QVERIFY(!one.uninit(second));
    QVERIFY(one.getWidget(first));
    QVERIFY(other.getWidget(second));
}

void TestPlugin::operationsLogNothing()
{
    QWidget frame;
    DataStaticsPlugin plugin;
    QStringList linesOfConstruction;
    {
        LogCapture log;
        const DataStaticsWidget widget;
        linesOfConstruction = writtenLines(log);
    }
    LogCapture log;
    const int number = plugin.init(&frame);
    QCOMPARE(writtenLines(log), linesOfConstruction);
    log.clear();
    plugin.getWidget(number);
    plugin.getWidget(-1);
    plugin.getWidget(number + 1);
    plugin.uninit(-1);
    plugin.uninit(number + 1);
    plugin.uninit(number);
    plugin.uninit(number);
    QCOMPARE(writtenLines(log), QStringList());
}

void TestPlugin::classHasNoSignalSlotOrPropertyOfItsOwn()
{
    const QMetaObject &meta = DataStaticsPlugin::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("DataStaticsPlugin"));
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(meta.propertyCount(), QObject::staticMetaObject.propertyCount());
}

void TestPlugin::parentOfRegistryIsTheOneGiven()
{
    QObject host;
    const DataStaticsPlugin child(&host);
    QCOMPARE(child.parent(), &host);
    const DataStaticsPlugin alone;
    QCOMPARE(alone.parent(), nullptr);
}

void TestPlugin::tabHostHasFormOfFourPages()
{
    QWidget frame;
    DataStaticsWidget widget(&frame);
    QCOMPARE(widget.parentWidget(), &frame);
    QCOMPARE(widget.objectName(), QStringLiteral("DataStaticsWidget"));
    QCOMPARE(widget.size(), QSize(933, 645));
    QCOMPARE(widget.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(widget.windowFlags(), QWidget(&frame).windowFlags());

    auto *layout = qobject_cast<QVBoxLayout *>(widget.layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(layout->count(), 1);
    QTabWidget *tabs = tabsOf(&widget);
    QVERIFY(tabs);
    QCOMPARE(tabs->parentWidget(), &widget);
    QCOMPARE(layout->itemAt(0)->widget(), tabs);

    QStringList pages;
    for (int i = 0; i < tabs->count(); ++i) {
        QVERIFY(qobject_cast<BasicChart *>(tabs->widget(i)));
        pages.append(tabs->widget(i)->objectName());
    }
    QCOMPARE(pages,
        QStringList({QStringLiteral("tabOrganization"), QStringLiteral("tabDevice"),
            QStringLiteral("tabOrganizationOnline"), QStringLiteral("tabDeviceOnline")}));
    QCOMPARE(widget.findChildren<BasicChart *>().size(), 4);
}

void TestPlugin::formAsksForPlaceholderTexts()
{
    FormTextRecorder recorder;
    QCoreApplication::installTranslator(&recorder);
    {
        const DataStaticsWidget widget;
    }
    QCoreApplication::removeTranslator(&recorder);
    QStringList tabs = recorder.asked;
    tabs.removeAll(QStringLiteral("Form"));
    QCOMPARE(tabs,
        QStringList({QStringLiteral("TK_Organization"), QStringLiteral("TK_Device"),
            QStringLiteral("TK_OrganizationOnline"), QStringLiteral("TK_DeviceOnline")}));
}

void TestPlugin::pagesGetTheirServiceTypesInOrder()
{
    LogCapture log;
    const DataStaticsWidget widget;
    QStringList lines = writtenLines(log);
    // Qt 6.11 also tells the pages of a tab widget that they are hidden before any was shown.
    lines.removeIf(
        [](const QString &line) { return line.startsWith(QStringLiteral("BasicChart::doAfterWidgetHide")); });
    QCOMPARE(lines,
        QStringList({QStringLiteral("setServiceType type: 2"), QStringLiteral("setServiceType type: 3"),
            QStringLiteral("setServiceType type: 4")}));
}

void TestPlugin::firstTabIsCurrent()
{
    const DataStaticsWidget widget;
    QCOMPARE(tabsOf(&widget)->currentIndex(), 0);
    QCOMPARE(tabsOf(&widget)->currentWidget()->objectName(), QStringLiteral("tabOrganization"));
}

void TestPlugin::tabTextsAreKeysWithoutLanguage()
{
    const DataStaticsWidget widget;
    QCOMPARE(tabTexts(tabsOf(&widget)), tabKeys);
}

void TestPlugin::tabsAreFittedTo140()
{
    const QStringList shortTexts(4, QStringLiteral("a"));
    QCOMPARE(fittedWidths(shortTexts, 140), QList<int>({140, 140, 140, 140}));

    const DataStaticsWidget widget;
    const QList<int> widths = tabWidths(tabsOf(&widget));
    QCOMPARE(widths, fittedWidths(tabKeys, 140));
    for (const int width : widths)
        QVERIFY2(width >= 140, qPrintable(QString::number(width)));
}

void TestPlugin::showAsksForAlarmsOfOrganisationsOnly()
{
    PageScene scene;
    DataStaticsWidget widget;
    showPage(widget);
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getAlarmStatisticsOfOrgas")}));
    QCOMPARE(scene.client.calls.count(QStringLiteral("getCurUserInfo")), 1);
    QCOMPARE(scene.treeLoads(), 1);
}

void TestPlugin::choosingTabShowsItsPageAndReloadsEachTime()
{
    PageScene scene;
    DataStaticsWidget widget;
    showPage(widget);
    QTabWidget *tabs = tabsOf(&widget);

    scene.forgetCalls();
    LogCapture log;
    clickTab(tabs, 3);
    QCOMPARE(tabs->currentIndex(), 3);
    QCOMPARE(log.count(QStringLiteral("BasicChart::doAfterWidgetHide Type 1")), 1);
    QCOMPARE(log.count(QStringLiteral("BasicChart::doAfterWidgetShow Type 4")), 1);
    QCOMPARE(scene.treeLoads(), 1);
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getOnlineStatisticsOfDevices")}));

    scene.forgetCalls();
    log.clear();
    clickTab(tabs, 0);
    QCOMPARE(log.count(QStringLiteral("BasicChart::doAfterWidgetHide Type 4")), 1);
    QCOMPARE(log.count(QStringLiteral("BasicChart::doAfterWidgetShow Type 1")), 1);
    QCOMPARE(scene.treeLoads(), 1);
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getAlarmStatisticsOfOrgas")}));
    QCOMPARE(scene.client.calls.count(QStringLiteral("getCurUserInfo")), 0);
}

void TestPlugin::eachTabOpensItsKind_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("query");
    QTest::newRow("alarms by device") << 1 << QStringLiteral("getAlarmStatisticsOfDevices");
    QTest::newRow("online by organisation") << 2 << QStringLiteral("getOnlineStatisticsOfOrgas");
    QTest::newRow("online by device") << 3 << QStringLiteral("getOnlineStatisticsOfDevices");
}

void TestPlugin::eachTabOpensItsKind()
{
    QFETCH(int, tab);
    QFETCH(QString, query);
    PageScene scene;
    DataStaticsWidget widget;
    showPage(widget);
    scene.forgetCalls();
    LogCapture log;
    clickTab(tabsOf(&widget), tab);
    QCOMPARE(scene.wholeLevelCalls(), QStringList({query}));
    QCOMPARE(log.count(QStringLiteral("BasicChart::doAfterWidgetShow Type %1").arg(tab + 1)), 1);
}

void TestPlugin::dataStaticTypeOnlyRefits_data()
{
    QTest::addColumn<int>("type");
    for (int type = -1; type < 10; ++type)
        QTest::addRow("type %d", type) << type;
    QTest::newRow("largest int") << INT_MAX;
    QTest::newRow("smallest int") << INT_MIN;
}

void TestPlugin::dataStaticTypeOnlyRefits()
{
    QFETCH(int, type);
    PageScene scene;
    DataStaticsWidget widget;
    QTabWidget *tabs = tabsOf(&widget);
    tabs->setCurrentIndex(2);
    tabs->setTabText(1, QStringLiteral("kept"));
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(tabs, 260);
    QList<QWidget *> pages;
    for (int i = 0; i < tabs->count(); ++i)
        pages.append(tabs->widget(i));
    QStringList texts = tabKeys;
    texts[1] = QStringLiteral("kept");
    QVERIFY(tabWidths(tabs) != fittedWidths(texts, 140));

    LogCapture log;
    widget.setDataStaticType(static_cast<DataStaticsWidget::DataStaticType>(type));
    QCOMPARE(writtenLines(log), QStringList());
    QCOMPARE(tabs->currentIndex(), 2);
    QCOMPARE(tabTexts(tabs), texts);
    for (int i = 0; i < tabs->count(); ++i)
        QCOMPARE(tabs->widget(i), pages.at(i));
    QCOMPARE(tabs->count(), 4);
    QCOMPARE(tabWidths(tabs), fittedWidths(texts, 140));
    QCOMPARE(scene.client.calls, QStringList());

    showPage(widget);
    QVERIFY(log.contains(QStringLiteral("BasicChart::doAfterWidgetShow Type 3")));
}

void TestPlugin::pagesRenewTheirTextsOnTheirOwn()
{
    PageScene scene;
    DataStaticsWidget widget;
    showPage(widget);
    QTabWidget *tabs = tabsOf(&widget);
    auto *month = tabs->widget(0)->findChild<QPushButton *>(QStringLiteral("pushButtonMonth"));
    const QString titleByHand = QStringLiteral("title by hand");
    const QString textByHand = QStringLiteral("text by hand");

    month->setText(textByHand);
    widget.retranslateUi();
    QCOMPARE(month->text(), textByHand);

    tabs->setTabText(0, titleByHand);
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(tabs->widget(0), &change);
    QVERIFY(month->text() != textByHand);
    QCOMPARE(tabs->tabText(0), titleByHand);
}

void TestPlugin::languageChangeRetitlesAndRefits()
{
    PageScene scene;
    DataStaticsWidget widget;
    showPage(widget);
    QTabWidget *tabs = tabsOf(&widget);
    const QList<int> before = tabWidths(tabs);
    for (const QString &code : {QStringLiteral("x-long"), QStringLiteral("en")}) {
        QVERIFY(HostSettings::setLanguage(code));
        QStringList texts;
        for (const QString &key : tabKeys) {
            const QString text = AppLanguageTr::instance()->translate(key, AppLanguageTr::Title, -1);
            QVERIFY2(text != key, qPrintable(key));
            texts.append(text);
        }
        QTRY_COMPARE(tabTexts(tabs), texts);
        QCOMPARE(tabWidths(tabs), fittedWidths(texts, 140));
        QVERIFY(tabWidths(tabs) != before);
        QCOMPARE(tabs->currentIndex(), 0);
    }
}

// The first line of the set-up is that of the second page's kind; the form stands as it was made by then.
void TestPlugin::formSelectsTheLastTabUntilItIsSetUp()
{
    QWidget frame;
    int tabThen = -1;
    QStringList textsThen;
    LogCapture log;
    log.whenWritten = [&](const QString &line) {
        const QTabWidget *tabs = tabsOf(&frame);
        if (!tabs || line != QStringLiteral("setServiceType type: 2"))
            return;
        tabThen = tabs->currentIndex();
        textsThen = tabTexts(tabs);
    };
    const DataStaticsWidget widget(&frame);
    QCOMPARE(tabThen, 3);
    QCOMPARE(textsThen,
        QStringList({QStringLiteral("TK_Organization"), QStringLiteral("TK_Device"),
            QStringLiteral("TK_OrganizationOnline"), QStringLiteral("TK_DeviceOnline")}));
    QCOMPARE(tabsOf(&widget)->currentIndex(), 0);
}

void TestPlugin::settingUpAgainRenewsTextsAndGoesBackToTheFirstTab()
{
    PageScene scene;
    CountingHost widget;
    QCOMPARE(widget.renewals, 0);
    showPage(widget);
    clickTab(tabsOf(&widget), 2);
    scene.forgetCalls();
    widget.initForm();
    QCOMPARE(widget.renewals, 1);
    QCOMPARE(tabsOf(&widget)->currentIndex(), 0);
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getAlarmStatisticsOfOrgas")}));
}

void TestPlugin::tabHostAddsNothingToTheMetaObject()
{
    const QMetaObject &meta = DataStaticsWidget::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("DataStaticsWidget"));
    QCOMPARE(meta.superClass(), &BaseWidget::staticMetaObject);
    QCOMPARE(meta.methodCount(), BaseWidget::staticMetaObject.methodCount());
    QCOMPARE(meta.propertyCount(), BaseWidget::staticMetaObject.propertyCount());
}

TALVIX_TEST_MAIN(TestPlugin)
#include "tst_plugin.moc"
