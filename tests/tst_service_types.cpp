#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/ZrCalendarWidget.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <climits>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A page as the constructor leaves it: nobody has told it its kind.
class BarePage : public BasicChart
{
public:
    using BasicChart::BasicChart;
    using BasicChart::m_mutex;
    using BasicChart::m_serviceType;
};

/// Tells where the members of a page lie.
class MemberMap : public BasicChart
{
public:
    std::vector<const void *> places() const
    {
        return {&ui, &barDataList, &barDataList2, &lineDataList, &lineDataList2, &pieDataList,
            &devTypeDataList, &barChartView, &lineChartView, &pieChartView, &m_strSelectedBar,
            &m_chartViewList, &m_curUser, &m_nTimeType, &m_serviceType, &m_pCalendarWidget, &m_orgaList,
            &idlist, &devDataList, &m_queryCondition, &pushButtonPrevious, &pushButtonNext, &labelPiecount,
            &labelCallout, &comboBoxPie, &m_nCurPage, &m_nTotalPage, &m_nPageSize, &m_mutex, &m_pTimer,
            &m_strToolTipFormat, &sortFlag, &snapSamples, &lineNames, &snapDetailMap, &etiologyDistribution,
            &numberDistribution, &tempAlarmHandleList, &temperatureDistribution, &maskDistribution,
            &m_pExportWidget, &m_bFirstShow};
    }
};

template <typename... Lists>
bool areUntouched(const Lists &...lists)
{
    return (lists.empty() && ...);
}

} // namespace

class TestServiceTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setPresentMoment({}); }

    void membersStartAsDeclared()
    {
        const ProbePage page;
        QVERIFY(page.ui);
        QVERIFY(areUntouched(page.barDataList, page.barDataList2, page.lineDataList, page.lineDataList2,
            page.pieDataList, page.devTypeDataList, page.devDataList));
        QVERIFY(areUntouched(page.m_chartViewList, page.m_orgaList, page.idlist, page.snapSamples,
            page.lineNames, page.snapDetailMap, page.etiologyDistribution, page.numberDistribution,
            page.tempAlarmHandleList, page.temperatureDistribution, page.maskDistribution));
        const QList<const void *> parts = {page.barChartView, page.lineChartView, page.pieChartView,
            page.m_pCalendarWidget, page.pushButtonPrevious, page.pushButtonNext, page.labelPiecount,
            page.labelCallout, page.comboBoxPie, page.m_pTimer, page.m_pExportWidget};
        QCOMPARE(parts, QList<const void *>(parts.size(), nullptr));
        QVERIFY(page.m_strSelectedBar.isEmpty());
        QCOMPARE(page.m_curUser.get_id(), 0);
        QCOMPARE(page.m_nTimeType, 3);
        QCOMPARE(page.m_serviceType, 1);
        QCOMPARE(page.m_nCurPage, 1);
        QCOMPARE(page.m_nTotalPage, 1);
        QCOMPARE(page.m_nPageSize, 10);
        QVERIFY(page.m_strToolTipFormat.isEmpty());
        QCOMPARE(page.sortFlag, true);
        QCOMPARE(page.m_bFirstShow, true);

        BarePage bare(nullptr, 1);
        QVERIFY(bare.m_mutex.tryLock());
        bare.m_mutex.unlock();
    }

    void constructorKeepsItsType_data() { kinds(knownTypes + typesOutside); }

    void constructorKeepsItsType()
    {
        QFETCH(int, type);
        LogCapture log;
        const BarePage page(nullptr, type);
        QCOMPARE(page.m_serviceType, type);
        QCOMPARE(writtenLines(log), QStringList());
    }

    void constructorHidesNothing_data() { kinds(knownTypes + typesOutside); }

    void constructorHidesNothing()
    {
        QFETCH(int, type);
        const BarePage page(nullptr, type);
        for (const char *name :
            {"widgetPie", "comboBoxOrgType", "carRadio", "personRadio", "pushButtonHour"}) {
            const auto *widget = page.findChild<QWidget *>(QString::fromLatin1(name));
            QVERIFY2(widget, name);
            QVERIFY2(!widget->isHidden(), name);
        }
    }

    void constructorRenamesTimeLineEdit()
    {
        const ProbePage page;
        QVERIFY(page.part<QLineEdit>("lineEditTime"));
        QVERIFY(!page.part<QWidget>("lineEdit"));
    }

    void pageIsChildOfItsParentWithoutFlags()
    {
        QWidget host;
        const BarePage child(&host, 4);
        QCOMPARE(child.parentWidget(), &host);
        QVERIFY(!child.isWindow());

        const BarePage alone(nullptr, 1);
        const QWidget plain;
        QCOMPARE(alone.parentWidget(), nullptr);
        QCOMPARE(alone.windowFlags(), plain.windowFlags());
    }

    void pageThatIsNeverShownTouchesNoClient_data() { kinds(knownTypes + typesOutside); }

    void pageThatIsNeverShownTouchesNoClient()
    {
        QFETCH(int, type);
        PageScene scene;
        {
            ProbePage page(type);
            page.resize(1136, 648);
            QVERIFY(page.m_bFirstShow);
            QCOMPARE(page.tips.size(), 0);
        }
        QCOMPARE(scene.client.calls, QStringList());
        QCOMPARE(scene.manager.calls, QStringList());
    }

    // The tree has its view from the start, so the names of its nodes are renewed; nothing else is asked.
    void languageOfAPageThatIsNeverShownAsksForNodesAlone()
    {
        PageScene scene;
        const ProbePage page(1);
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        const QStringList asked = scene.client.calls;
        HostSettings::setLanguage({});
        QCOMPARE(asked, QStringList({"getOrgaList", "organizeOrgaNodes"}));
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void membersLieAsDeclared()
    {
        const std::vector<const void *> places = MemberMap().places();
        QCOMPARE(places.size(), 42U);
        QVERIFY(std::is_sorted(places.begin(), places.end(), std::less<const void *>()));

        const BasicChart::QueryCondition condition;
        const std::vector<const void *> fields = {&condition.userId, &condition.startTime, &condition.endTime,
            &condition.orgaId, &condition.timeType};
        QVERIFY(std::is_sorted(fields.begin(), fields.end(), std::less<const void *>()));
    }

    void queryConditionStartsEmpty()
    {
        const ProbePage page;
        QCOMPARE(page.m_queryCondition.userId, 0);
        QVERIFY(page.m_queryCondition.startTime.isEmpty());
        QVERIFY(page.m_queryCondition.endTime.isEmpty());
        QCOMPARE(page.m_queryCondition.orgaId, 0);
        QCOMPARE(page.m_queryCondition.timeType, 0);
    }

    void deletionTakesAllChildrenAlong()
    {
        PageScene scene;
        auto page = std::make_unique<ProbePage>(1);
        showPage(*page);
        const QPointer<ZrCalendarWidget> calendar = page->m_pCalendarWidget;
        const QPointer<QTimer> timer = page->m_pTimer;
        const QPointer<QObject> barView =
            qobject_cast<QObject *>(page->findChild<QWidget *>(u"widgetBarChart"_s)->findChild<QWidget *>());
        const QPointer<QComboBox> combo = page->part<QComboBox>("comboBoxOrgType");
        QVERIFY(calendar);
        QVERIFY(timer);
        QVERIFY(barView);
        QVERIFY(combo);
        QCOMPARE(calendar->parent(), page.get());
        QCOMPARE(timer->parent(), page.get());
        page.reset();
        QVERIFY(!calendar);
        QVERIFY(!timer);
        QVERIFY(!barView);
        QVERIFY(!combo);
    }

    void deletionOfShownPageOfAnyKindIsClean_data() { kinds(knownTypes + typesOutside); }

    void deletionOfShownPageOfAnyKindIsClean()
    {
        QFETCH(int, type);
        PageScene scene;
        auto page = std::make_unique<ProbePage>(type);
        showPage(*page);
        const qsizetype calls = scene.client.calls.size();
        page.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Modify);
        QCoreApplication::processEvents();
        QCOMPARE(scene.client.calls.size(), calls);
    }

    void classTree()
    {
        const QMetaObject *meta = &BasicChart::staticMetaObject;
        QCOMPARE(QByteArray(meta->className()), "BasicChart"_ba);
        QCOMPARE(QByteArray(meta->superClass()->className()), "BaseWidget"_ba);
        QCOMPARE(QByteArray(meta->superClass()->superClass()->className()), "BaseStyleWidget"_ba);
        QCOMPARE(meta->superClass()->superClass()->superClass(), &QWidget::staticMetaObject);
    }

    void methodsStandInOrder()
    {
        const QList<QByteArray> wanted = {"barSetChanged(QString&)", "slotPieSelected(QPieSlice*,bool)",
            "slotLineSelected(QPointF,bool)", "slotBarSelected(bool,int,QBarSet*)",
            "slotBarSetChanged(QString&)", "slotOrgaInfoLoad()",
            "slotDataTimeChanged(QDateTime,QDateTime,QueryType)", "slotSearch()",
            "on_pushButtonMonth_clicked()", "on_pushButtonDay_clicked()", "on_pushButtonHour_clicked()",
            "on_pushButtonAsc_clicked()", "on_pushButtonDesc_clicked()", "showZrCalendarWidget(bool)",
            "slotCalendarChanged(QDateTime,QDateTime)", "slotNext()", "on_pushButtonExport_clicked()",
            "slotPrevious()", "slotRecvMouseMove(QPoint)", "slotTimerReq()",
            "slot_switchPieChart(QAbstractButton*)", "slot_switchPieType(int)"};
        const QMetaObject &meta = BasicChart::staticMetaObject;
        QList<QByteArray> found;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            found.append(method.methodSignature());
            const bool first = i == meta.methodOffset();
            QCOMPARE(method.methodType(), first ? QMetaMethod::Signal : QMetaMethod::Slot);
            QCOMPARE(method.access(), QMetaMethod::Public);
            const bool answers = method.name() == "slotOrgaInfoLoad";
            QCOMPARE(QByteArray(method.typeName()), QByteArray(answers ? "bool" : "void"));
        }
        QCOMPARE(found, wanted);
    }

    void methodParametersAreNamed_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QList<QByteArray>>("names");
        const auto row = [](const char *method, const QList<QByteArray> &names) {
            QTest::newRow(method) << QByteArray(method) << names;
        };
        row("barSetChanged", {"barID"});
        row("slotPieSelected", {"slice", "state"});
        row("slotLineSelected", {"point", "state"});
        row("slotBarSelected", {"state", "index", "barset"});
        row("slotBarSetChanged", {"barId"});
        row("slotDataTimeChanged", {"startTime", "stopTime", "type"});
        row("showZrCalendarWidget", {"state"});
        row("slotCalendarChanged", {"startTime", "stopTime"});
        row("slotRecvMouseMove", {"point"});
        row("slot_switchPieChart", {"p_Button"});
        row("slot_switchPieType", {""});
    }

    void methodParametersAreNamed()
    {
        QFETCH(QByteArray, method);
        QFETCH(QList<QByteArray>, names);
        const QMetaObject &meta = BasicChart::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            if (meta.method(i).name() == method) {
                QCOMPARE(meta.method(i).parameterNames(), names);
                return;
            }
        }
        QFAIL("no such method");
    }

    void changedTypeIsStoredAndLogged_data() { kinds(QList<int>({2, 3, 4, 5, 6, 7, 8, 9}) + typesOutside); }

    void changedTypeIsStoredAndLogged()
    {
        QFETCH(int, type);
        BarePage page(nullptr, 1);
        LogCapture log;
        page.setServiceType(type);
        QCOMPARE(page.m_serviceType, type);
        QCOMPARE(log.lines(QtDebugMsg), QStringList({u"setServiceType type: %1"_s.arg(type)}));
        QCOMPARE(writtenLines(log).size(), 1);
        page.setServiceType(type);
        QCOMPARE(writtenLines(log).size(), 1);
        page.setServiceType(1);
        QCOMPARE(page.m_serviceType, 1);
        QCOMPARE(writtenLines(log).last(), u"setServiceType type: 1"_s);
    }

    void equalTypeLogsNothingAndStillHidesRadios()
    {
        BarePage page(nullptr, 1);
        LogCapture log;
        page.setServiceType(1);
        QCOMPARE(writtenLines(log), QStringList());
        QCOMPARE(page.m_serviceType, 1);
        QVERIFY(page.findChild<QWidget *>(u"carRadio"_s)->isHidden());
        QVERIFY(page.findChild<QWidget *>(u"personRadio"_s)->isHidden());
    }

    void equalTypeStillHidesWhatItsKindHides()
    {
        BarePage page(nullptr, 4);
        LogCapture log;
        page.setServiceType(4);
        QCOMPARE(writtenLines(log), QStringList());
        QVERIFY(page.findChild<QWidget *>(u"widgetPie"_s)->isHidden());
        QVERIFY(page.findChild<QWidget *>(u"comboBoxOrgType"_s)->isHidden());
    }

    void hiddenControls_data()
    {
        table<int, bool, bool, bool>({"type", "pieHidden", "sumModeHidden", "radiosShown"},
            {
                {"alarms of organisations show pie and sum mode", 1, false, false, false},
                {"alarms of devices hide the sum mode", 2, false, true, false},
                {"online of organisations hides only the pie", 3, true, false, false},
                {"online of devices hides pie and sum mode", 4, true, true, false},
                {"temperature of groups shows pie and sum mode", 5, false, false, false},
                {"temperature of persons hides the sum mode", 6, false, true, false},
                {"traffics of organisations show the radios", 7, false, false, true},
                {"traffics of devices show the radios, not the sum mode", 8, false, true, true},
                {"temperature of device groups hides the sum mode", 9, false, true, false},
            });
        for (const int type : typesOutside)
            QTest::addRow("type %d", type) << type << false << false << false;
    }

    void hiddenControls()
    {
        QFETCH(int, type);
        QFETCH(bool, pieHidden);
        QFETCH(bool, sumModeHidden);
        QFETCH(bool, radiosShown);
        BarePage page(nullptr, 1);
        page.setServiceType(type);
        const auto hidden = [&page](const char *name) {
            return page.findChild<QWidget *>(QString::fromLatin1(name))->isHidden();
        };
        QCOMPARE(hidden("widgetPie"), pieHidden);
        QCOMPARE(hidden("comboBoxOrgType"), sumModeHidden);
        QCOMPARE(hidden("carRadio"), !radiosShown);
        QCOMPARE(hidden("personRadio"), !radiosShown);
        for (const char *name :
            {"comboBox", "lineEditTime", "labelSort", "pushButtonAsc", "pushButtonDesc", "pushButtonMonth",
                "pushButtonDay", "pushButtonHour", "pushButtonExport", "widgetLine", "widgetBar"})
            QVERIFY2(!hidden(name), name);
    }

    void hiddenPanesAreNeverShownAgain_data() { kinds({1, 2, 5, 7, 9, 0, 10}); }

    void hiddenPanesAreNeverShownAgain()
    {
        QFETCH(int, type);
        BarePage page(nullptr, 1);
        page.setServiceType(4);
        page.setServiceType(type);
        QVERIFY(page.findChild<QWidget *>(u"comboBoxOrgType"_s)->isHidden());
        QVERIFY(page.findChild<QWidget *>(u"widgetPie"_s)->isHidden());
    }

    void radiosComeAndGoWithTheType()
    {
        BarePage page(nullptr, 1);
        const auto *car = page.findChild<QWidget *>(u"carRadio"_s);
        const auto *person = page.findChild<QWidget *>(u"personRadio"_s);
        for (const int type : {1, 7, 2, 8, 9, 7, 8, 0}) {
            page.setServiceType(type);
            const bool shown = type == 7 || type == 8;
            QCOMPARE(!car->isHidden(), shown);
            QCOMPARE(!person->isHidden(), shown);
        }
    }

    void firstTimeUnit_data() { kinds(knownTypes + typesOutside); }

    void firstTimeUnit()
    {
        QFETCH(int, type);
        const bool byDay = type == 5 || type == 6;
        PageScene scene;
        ProbePage page(type);
        page.m_nTimeType = 1;
        showPage(page);
        QCOMPARE(page.m_nTimeType, byDay ? 2 : 3);
        QCOMPARE(page.part<QLineEdit>("lineEditTime")->text(),
            byDay ? u"2024-04-26~2024-05-03"_s : u"2024-05-03 00~2024-05-03 17"_s);
        QCOMPARE(page.part<QWidget>("pushButtonHour")->isHidden(), byDay);
        QCOMPARE(page.part<QWidget>("pushButtonHour")->isVisible(), !byDay);
        QVERIFY(!page.part<QWidget>("pushButtonDay")->isHidden());
        QVERIFY(!page.part<QWidget>("pushButtonMonth")->isHidden());
        QCOMPARE(page.part<QWidget>("pushButtonHour")->property("highlight"), QVariant(!byDay));
        QCOMPARE(page.part<QWidget>("pushButtonDay")->property("highlight"), QVariant(byDay));
        QCOMPARE(page.part<QWidget>("pushButtonMonth")->property("highlight"), QVariant(false));
    }

    void organisationTree_data() { kinds(knownTypes + typesOutside); }

    void organisationTree()
    {
        QFETCH(int, type);
        const bool filled = knownTypes.contains(type) && type != 5 && type != 6;
        PageScene scene;
        ProbePage page(type);
        LogCapture log;
        showPage(page);
        QCOMPARE(organisationCombo(page)->count() > 0, filled);
        QCOMPARE(scene.treeLoads(), filled ? 1 : 0);
        QCOMPARE(log.contains(u"ServiceType is default"_s), !filled);
        QCOMPARE(page.tips.contains(ProbePage::Tip{u"TK_orgNotExist"_s, 2}), !filled);
        QCOMPARE(scene.wholeLevelCalls().isEmpty(), !filled);
    }

    void queryOperation_data()
    {
        table<int, QString>({"type", "query"},
            {
                {"alarms of organisations", 1, "getAlarmStatisticsOfOrgas"},
                {"alarms of devices", 2, "getAlarmStatisticsOfDevices"},
                {"online of organisations", 3, "getOnlineStatisticsOfOrgas"},
                {"online of devices", 4, "getOnlineStatisticsOfDevices"},
                {"temperature of groups", 5, "getTemperatureStatisticsOfGroups"},
                {"temperature of persons", 6, "getTemperatureStatisticsOfPersons"},
                {"traffics of organisations", 7, "getTrafficsStatisticsOfOrgas"},
                {"traffics of devices", 8, "getSnapSamplesResource"},
                {"temperature of device groups", 9, "getTempAlarmHandleStatistics"},
            });
        for (const int type : typesOutside)
            QTest::addRow("type %d", type) << type << u"getAlarmStatisticsOfOrgas"_s;
    }

    void queryOperation()
    {
        QFETCH(int, type);
        QFETCH(QString, query);
        auto &&[scene, page] = Shown(type);
        scene.fillTree(page);
        scene.forgetCalls();
        page.slotSearch();
        QCOMPARE(scene.wholeLevelCalls(), QStringList({query}));
        QCOMPARE(scene.manager.calls.first(), query);
        QCOMPARE(page.barDataList.isEmpty(), typesOutside.contains(type));
        QVERIFY(!page.m_chartViewList.isEmpty());
    }

    void pagedQuery_data() { kinds(knownTypes + typesOutside); }

    void pagedQuery()
    {
        QFETCH(int, type);
        const bool paged = type == 2 || type == 4 || type == 6;
        PageScene scene;
        ProbePage page(type);
        LogCapture log;
        showPage(page);
        scene.fillTree(page);
        QVERIFY(paged || !log.contains(u"BasicChart::compareCondition"_s));
        page.m_queryCondition = {};
        log.clear();
        page.slotSearch();
        QCOMPARE(log.count(u"BasicChart::compareCondition"_s), paged ? 1 : 0);
        QCOMPARE(page.m_queryCondition.userId, paged ? 7 : 0);
        QCOMPARE(page.m_queryCondition.orgaId, paged ? 1 : 0);
        QCOMPARE(page.pushButtonPrevious != nullptr, paged);
        QCOMPARE(page.pushButtonNext != nullptr, paged);
        QCOMPARE(page.m_nTotalPage, paged ? 5 : 1);
        QCOMPARE(page.m_nCurPage, 1);
        QCOMPARE(page.m_nPageSize, 10);
    }

    void pieModeSelector_data() { kinds(knownTypes + typesOutside); }

    void pieModeSelector()
    {
        QFETCH(int, type);
        const bool shown = type == 5 || type == 7 || type == 8 || type == 9;
        auto &&[scene, page] = Shown(type);
        scene.fillTree(page);
        page.slotSearch();
        QVERIFY(page.comboBoxPie);
        QCOMPARE(!page.comboBoxPie->isHidden(), shown);
    }

    void pieViewIsMissingForOnlineKindsOnly_data() { kinds(knownTypes + typesOutside); }

    void pieViewIsMissingForOnlineKindsOnly()
    {
        QFETCH(int, type);
        auto &&[scene, page] = Shown(type);
        scene.fillTree(page);
        page.slotSearch();
        const bool online = type == 3 || type == 4;
        QCOMPARE(page.m_chartViewList.size(), online ? 2 : 3);
        QCOMPARE(page.pieChartView == nullptr, online);
        QCOMPARE(page.part<QWidget>("widgetPie")->isVisible(), !online);
    }

    void resultCodes_data()
    {
        table<bool, QString, bool, int, QString>({"organisation", "failure", "records", "code", "line"},
            {
                {"no organisation", false, QString(), true, 1,
                    "BasicChart::getAlarmOfOrgas No Suborganization"},
                {"refused by the client", true, "away", true, 2,
                    u"BasicChart::getAlarmOfOrgas fail \"away\""_s},
                {"no records", true, QString(), false, 3, "BasicChart::getAlarmOfOrgas records is empty"},
                {"success", true, QString(), true, 4, QString()},
            });
    }

    void resultCodes()
    {
        QFETCH(bool, organisation);
        QFETCH(QString, failure);
        QFETCH(bool, records);
        QFETCH(int, code);
        QFETCH(QString, line);
        auto &&[scene, page] = Shown(1);
        if (!organisation)
            scene.fillTreeWithoutCurrent(page);
        if (!failure.isNull())
            scene.manager.failWith(failure);
        if (!records)
            scene.manager.alarmStatisticsOfOrgas.answers({});
        scene.forgetCalls();
        LogCapture log;
        QCOMPARE(page.getAlarmOfOrgas(), code);
        QCOMPARE(scene.wholeLevelCalls().size(), organisation ? 1 : 0);
        QStringList endings;
        for (const QString &written : writtenLines(log)) {
            if (written.startsWith(u"BasicChart::getAlarmOfOrgas "_s))
                endings.append(written);
        }
        QCOMPARE(endings, line.isEmpty() ? QStringList() : QStringList({line}));
    }

    void searchOfTypeOutsideStopsAtEmptyTree_data() { kinds(QList<int>({5, 6}) + typesOutside); }

    void searchOfTypeOutsideStopsAtEmptyTree()
    {
        QFETCH(int, type);
        auto &&[scene, page] = Shown(type);
        LogCapture log;
        page.slotSearch();
        QCOMPARE(writtenLines(log), QStringList({"BasicChart::slotSearch ", "BasicChart::comboDataExists"}));
        QCOMPARE(scene.manager.calls, QStringList());
    }
};

TALVIX_TEST_MAIN(TestServiceTypes)
#include "tst_service_types.moc"
