#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

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

using namespace Qt::StringLiterals;

namespace {
const QStringList tabKeys = {
    u"TK_OrganizationAlm"_s, u"TK_DeviceAlmStatistics"_s, u"TK_OrganizationOnline"_s, u"TK_DeviceOnline"_s};

QTabWidget *tabsOf(const QWidget *widget)
{
    return widget->findChild<QTabWidget *>(u"tabWidget"_s);
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

/// The four tabs on show.
struct ShownTabs
{
    ShownTabs() { showPage(widget); }

    PageScene scene;
    DataStaticsWidget widget;
    QTabWidget *tabs = tabsOf(&widget);
};

} // namespace

class TestPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        HostSettings::setLanguage({});
        setPresentMoment({});
    }

    void cleanup()
    {
        HostSettings::setLanguage({});
        deleteWhatIsDue();
    }

    // Stays first: one counter serves the process.
    void numbersStartAtOneAndNeverComeBack()
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

    void numberZeroAndBelowAndUnknownNumbersAreNormalAnswers_data()
    {
        table<int>({"number"},
            {{"zero", 0}, {"minus one, the answer of a failed init", -1}, {"smallest int", INT_MIN},
                {"largest int", INT_MAX}, {"number that was never given out", 1000000}});
    }

    void numberZeroAndBelowAndUnknownNumbersAreNormalAnswers()
    {
        QFETCH(int, number);
        QWidget frame;
        DataStaticsPlugin plugin;
        const int live = plugin.init(&frame);
        QCOMPARE(plugin.getWidget(number), nullptr);
        QVERIFY(!plugin.uninit(number));
        QVERIFY(plugin.getWidget(live));
    }

    void registryWithoutWidgetKnowsNoNumber()
    {
        const DataStaticsPlugin other;
        DataStaticsPlugin plugin;
        for (int number = -2; number < 10; ++number) {
            QCOMPARE(plugin.getWidget(number), nullptr);
            QVERIFY(!plugin.uninit(number));
        }
    }

    void numberLeadsToTheWidgetUnderItsParent()
    {
        QWidget frame;
        DataStaticsPlugin plugin;
        const int number = plugin.init(&frame);
        BaseWidget *widget = plugin.getWidget(number);
        QVERIFY(qobject_cast<DataStaticsWidget *>(widget));
        QCOMPARE(widget->parentWidget(), &frame);
        QCOMPARE(plugin.getWidget(number), widget);
    }

    void initWithoutParentIsAccepted()
    {
        DataStaticsPlugin plugin;
        const int number = plugin.init(nullptr);
        QVERIFY(number >= 1);
        BaseWidget *widget = plugin.getWidget(number);
        QVERIFY(qobject_cast<DataStaticsWidget *>(widget));
        QCOMPARE(widget->parentWidget(), nullptr);
        QVERIFY(plugin.uninit(number));
    }

    void initNeitherShowsNorAsks()
    {
        PageScene scene;
        QWidget frame;
        showPage(frame);
        DataStaticsPlugin plugin;
        BaseWidget *widget = plugin.getWidget(plugin.init(&frame));
        QVERIFY(!widget->isVisible());
        QCOMPARE(scene.client.calls, QStringList());
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void secondUninitAnswersFalse()
    {
        QWidget frame;
        DataStaticsPlugin plugin;
        const int number = plugin.init(&frame);
        QVERIFY(plugin.uninit(number));
        QVERIFY(!plugin.uninit(number));
    }

    void uninitLeavesWidgetWithParentAsItIs()
    {
        PageScene scene;
        QWidget frame;
        DataStaticsPlugin plugin;
        const int number = plugin.init(&frame);
        const QPointer<BaseWidget> widget = plugin.getWidget(number);
        showPage(frame);
        widget->show();
        QVERIFY(widget->isVisible());

        QVERIFY(plugin.uninit(number));
        deleteWhatIsDue();
        QCOMPARE(plugin.getWidget(number), nullptr);
        QVERIFY(widget);
        QCOMPARE(widget->parentWidget(), &frame);
        QVERIFY(widget->isVisible());
    }

    void uninitDeletesParentlessWidgetOnlyInTheEventLoop()
    {
        DataStaticsPlugin plugin;
        const int number = plugin.init(nullptr);
        const QPointer<BaseWidget> widget = plugin.getWidget(number);
        QVERIFY(plugin.uninit(number));
        QVERIFY(widget);
        QCOMPARE(plugin.getWidget(number), nullptr);
        QTRY_VERIFY(!widget);
    }

    void uninitInsideSlotOfItsWidgetIsSafe()
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

    void parentAtInitDecidesNotTheLaterOne()
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

    void uninitForgetsNumberWhoseParentDied()
    {
        DataStaticsPlugin plugin;
        auto frame = std::make_unique<QWidget>();
        const int number = plugin.init(frame.get());
        frame.reset();
        QVERIFY(plugin.uninit(number));
        QVERIFY(!plugin.uninit(number));
    }

    void destructionLeavesAllWidgetsAliveAndShown()
    {
        PageScene scene;
        QWidget frame;
        auto plugin = std::make_unique<DataStaticsPlugin>();
        const QPointer<BaseWidget> child = plugin->getWidget(plugin->init(&frame));
        const QPointer<BaseWidget> orphan = plugin->getWidget(plugin->init(nullptr));
        showPage(frame);
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

    void twoRegistriesShareTheCounterNotTheNumbers()
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

    void operationsLogNothing()
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

    void classesAddNothingToTheMetaObject()
    {
        const std::pair<const QMetaObject *, const QMetaObject *> classes[] = {
            {&DataStaticsPlugin::staticMetaObject, &QObject::staticMetaObject},
            {&DataStaticsWidget::staticMetaObject, &BaseWidget::staticMetaObject}};
        QStringList names;
        for (const auto &[meta, base] : classes) {
            names.append(QString::fromLatin1(meta->className()));
            QCOMPARE(meta->superClass(), base);
            QCOMPARE(meta->methodCount(), base->methodCount());
            QCOMPARE(meta->propertyCount(), base->propertyCount());
        }
        QCOMPARE(names, QStringList({"DataStaticsPlugin", "DataStaticsWidget"}));
    }

    void parentOfRegistryIsTheOneGiven()
    {
        QObject host;
        const DataStaticsPlugin child(&host);
        QCOMPARE(child.parent(), &host);
        const DataStaticsPlugin alone;
        QCOMPARE(alone.parent(), nullptr);
    }

    void tabHostHasFormOfFourPages()
    {
        QWidget frame;
        DataStaticsWidget widget(&frame);
        QCOMPARE(widget.parentWidget(), &frame);
        QCOMPARE(widget.objectName(), u"DataStaticsWidget"_s);
        QCOMPARE(widget.size(), QSize(933, 645));
        QCOMPARE(widget.windowTitle(), u"Form"_s);
        QCOMPARE(widget.windowFlags(), QWidget(&frame).windowFlags());

        auto *layout = qobject_cast<QVBoxLayout *>(widget.layout());
        QVERIFY(layout);
        QCOMPARE(layout->objectName(), u"verticalLayout"_s);
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
            QStringList(
                {u"tabOrganization"_s, u"tabDevice"_s, u"tabOrganizationOnline"_s, u"tabDeviceOnline"_s}));
        QCOMPARE(widget.findChildren<BasicChart *>().size(), 4);
    }

    void formAsksForPlaceholderTexts()
    {
        FormTextRecorder recorder;
        QCoreApplication::installTranslator(&recorder);
        {
            const DataStaticsWidget widget;
        }
        QCoreApplication::removeTranslator(&recorder);
        QStringList tabs = recorder.asked;
        tabs.removeAll(u"Form"_s);
        QCOMPARE(tabs,
            QStringList(
                {u"TK_Organization"_s, u"TK_Device"_s, u"TK_OrganizationOnline"_s, u"TK_DeviceOnline"_s}));
    }

    void pagesGetTheirServiceTypesInOrder()
    {
        LogCapture log;
        const DataStaticsWidget widget;
        QStringList lines = writtenLines(log);
        // Qt 6.11 also tells the pages of a tab widget that they are hidden before any was shown.
        lines.removeIf(
            [](const QString &line) { return line.startsWith(u"BasicChart::doAfterWidgetHide"_s); });
        QCOMPARE(lines,
            QStringList(
                {u"setServiceType type: 2"_s, u"setServiceType type: 3"_s, u"setServiceType type: 4"_s}));
    }

    void firstTabIsCurrent()
    {
        const DataStaticsWidget widget;
        QCOMPARE(tabsOf(&widget)->currentIndex(), 0);
        QCOMPARE(tabsOf(&widget)->currentWidget()->objectName(), u"tabOrganization"_s);
    }

    void tabTextsAreKeysWithoutLanguage()
    {
        const DataStaticsWidget widget;
        QCOMPARE(tabTexts(tabsOf(&widget)), tabKeys);
    }

    void tabsAreFittedTo140()
    {
        const QStringList shortTexts(4, u"a"_s);
        QCOMPARE(fittedWidths(shortTexts, 140), QList<int>({140, 140, 140, 140}));

        const DataStaticsWidget widget;
        const QList<int> widths = tabWidths(tabsOf(&widget));
        QCOMPARE(widths, fittedWidths(tabKeys, 140));
        for (const int width : widths)
            QVERIFY2(width >= 140, qPrintable(QString::number(width)));
    }

    void showAsksForAlarmsOfOrganisationsOnly()
    {
        ShownTabs shown;
        QCOMPARE(shown.scene.wholeLevelCalls(), QStringList({"getAlarmStatisticsOfOrgas"}));
        QCOMPARE(shown.scene.client.calls.count(u"getCurUserInfo"_s), 1);
        QCOMPARE(shown.scene.treeLoads(), 1);
    }

    void choosingTabShowsItsPageAndReloadsEachTime()
    {
        ShownTabs shown;

        shown.scene.forgetCalls();
        LogCapture log;
        clickTab(shown.tabs, 3);
        QCOMPARE(shown.tabs->currentIndex(), 3);
        QCOMPARE(log.count(u"BasicChart::doAfterWidgetHide Type 1"_s), 1);
        QCOMPARE(log.count(u"BasicChart::doAfterWidgetShow Type 4"_s), 1);
        QCOMPARE(shown.scene.treeLoads(), 1);
        QCOMPARE(shown.scene.wholeLevelCalls(), QStringList({"getOnlineStatisticsOfDevices"}));

        shown.scene.forgetCalls();
        log.clear();
        clickTab(shown.tabs, 0);
        QCOMPARE(log.count(u"BasicChart::doAfterWidgetHide Type 4"_s), 1);
        QCOMPARE(log.count(u"BasicChart::doAfterWidgetShow Type 1"_s), 1);
        QCOMPARE(shown.scene.treeLoads(), 1);
        QCOMPARE(shown.scene.wholeLevelCalls(), QStringList({"getAlarmStatisticsOfOrgas"}));
        QCOMPARE(shown.scene.client.calls.count(u"getCurUserInfo"_s), 0);
    }

    void eachTabOpensItsKind_data()
    {
        table<int, QString>({"tab", "query"},
            {{"alarms by device", 1, "getAlarmStatisticsOfDevices"},
                {"online by organisation", 2, "getOnlineStatisticsOfOrgas"},
                {"online by device", 3, "getOnlineStatisticsOfDevices"}});
    }

    void eachTabOpensItsKind()
    {
        QFETCH(int, tab);
        QFETCH(QString, query);
        ShownTabs shown;
        shown.scene.forgetCalls();
        LogCapture log;
        clickTab(shown.tabs, tab);
        QCOMPARE(shown.scene.wholeLevelCalls(), QStringList({query}));
        QCOMPARE(log.count(u"BasicChart::doAfterWidgetShow Type %1"_s.arg(tab + 1)), 1);
    }

    void dataStaticTypeOnlyRefits_data()
    {
        QTest::addColumn<int>("type");
        for (int type = -1; type < 10; ++type)
            QTest::addRow("type %d", type) << type;
        QTest::newRow("largest int") << INT_MAX;
        QTest::newRow("smallest int") << INT_MIN;
    }

    void dataStaticTypeOnlyRefits()
    {
        QFETCH(int, type);
        PageScene scene;
        DataStaticsWidget widget;
        QTabWidget *tabs = tabsOf(&widget);
        tabs->setCurrentIndex(2);
        tabs->setTabText(1, u"kept"_s);
        BaseHelper::getInstance()->adjustTabWidgetViewWidth(tabs, 260);
        QList<QWidget *> pages;
        for (int i = 0; i < tabs->count(); ++i)
            pages.append(tabs->widget(i));
        QStringList texts = tabKeys;
        texts[1] = u"kept"_s;
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
        QVERIFY(log.contains(u"BasicChart::doAfterWidgetShow Type 3"_s));
    }

    void languageChangeRetitlesAndRefits()
    {
        ShownTabs shown;
        const QList<int> before = tabWidths(shown.tabs);
        for (const QString &code : {u"x-long"_s, u"en"_s}) {
            QVERIFY(HostSettings::setLanguage(code));
            QStringList texts;
            for (const QString &key : tabKeys) {
                const QString text = AppLanguageTr::instance()->translate(key, AppLanguageTr::Title, -1);
                QVERIFY2(text != key, qPrintable(key));
                texts.append(text);
            }
            QTRY_COMPARE(tabTexts(shown.tabs), texts);
            QCOMPARE(tabWidths(shown.tabs), fittedWidths(texts, 140));
            QVERIFY(tabWidths(shown.tabs) != before);
            QCOMPARE(shown.tabs->currentIndex(), 0);
        }
    }

    void pagesRenewTheirTextsOnTheirOwn()
    {
        ShownTabs shown;
        auto *month = shown.tabs->widget(0)->findChild<QPushButton *>(u"pushButtonMonth"_s);
        const QString titleByHand = u"title by hand"_s;
        const QString textByHand = u"text by hand"_s;

        month->setText(textByHand);
        shown.widget.retranslateUi();
        QCOMPARE(month->text(), textByHand);

        shown.tabs->setTabText(0, titleByHand);
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(shown.tabs->widget(0), &change);
        QVERIFY(month->text() != textByHand);
        QCOMPARE(shown.tabs->tabText(0), titleByHand);
    }

    // The first line of the set-up is that of the second page's kind; the form stands as it was made by then.
    void formSelectsTheLastTabUntilItIsSetUp()
    {
        QWidget frame;
        int tabThen = -1;
        QStringList textsThen;
        LogCapture log;
        log.whenWritten = [&](const QString &line) {
            const QTabWidget *tabs = tabsOf(&frame);
            if (!tabs || line != u"setServiceType type: 2"_s)
                return;
            tabThen = tabs->currentIndex();
            textsThen = tabTexts(tabs);
        };
        const DataStaticsWidget widget(&frame);
        QCOMPARE(tabThen, 3);
        QCOMPARE(textsThen,
            QStringList(
                {u"TK_Organization"_s, u"TK_Device"_s, u"TK_OrganizationOnline"_s, u"TK_DeviceOnline"_s}));
        QCOMPARE(tabsOf(&widget)->currentIndex(), 0);
    }

    void settingUpAgainRenewsTextsAndGoesBackToTheFirstTab()
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
        QCOMPARE(scene.wholeLevelCalls(), QStringList({"getAlarmStatisticsOfOrgas"}));
    }
};

TALVIX_TEST_MAIN(TestPlugin)
#include "tst_plugin.moc"
