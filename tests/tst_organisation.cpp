#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/ZrCalendarWidget.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrPushButton.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtCharts/QChart>
#include <QtCore/QThread>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <climits>

using namespace Qt::StringLiterals;

namespace {

using Tip = ProbePage::Tip;

const QString defaultLine = u"ServiceType is default"_s;
const QString noRootLine = u"get current orga failed!"_s;
const Tip noOrganisation = {u"TK_orgNotExist"_s, 2};

const QList<int> typesWithTree = {1, 2, 3, 4, 7, 8, 9};
const QList<int> typesWithoutTree = {5, 6, 0, 10, -1, INT_MAX, INT_MIN};

QList<int> idsOf(const std::list<TalvixGroup> &groups)
{
    QList<int> ids;
    for (const TalvixGroup &group : groups)
        ids.append(group.get_group_id());
    return ids;
}

QList<int> idsOf(const QList<NODE> &nodes)
{
    QList<int> ids;
    for (const NODE &node : nodes)
        ids.append(node.id);
    return ids;
}

NODE nodeOf(int id, const QString &name)
{
    NODE node;
    node.id = id;
    node.name = name;
    return node;
}

QStringList itemTexts(const QComboBox *combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts.append(combo->itemText(i));
    return texts;
}

/// Stands a tree view without any item in for the combo box's own, for the length of a scope.
class RootlessTree
{
public:
    explicit RootlessTree(ZrComboBoxWithTree *combo, ZrTreeView *view)
        : m_combo(combo)
        , m_own(combo->m_pTreeView)
    {
        combo->m_pTreeView = view;
    }
    ~RootlessTree() { m_combo->m_pTreeView = m_own; }
    Q_DISABLE_COPY(RootlessTree)

private:
    ZrComboBoxWithTree *m_combo;
    ZrTreeView *m_own;
};

const QStringList alarmQuery = {u"getAlarmStatisticsOfOrgas"_s};

} // namespace

class TestOrganisation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setPresentMoment({});
        HostSettings::setLanguage({});
    }

    void cleanup() { HostSettings::setLanguage({}); }

    void nodesOfKindsWithTree_data() { kinds(typesWithTree); }

    void nodesOfKindsWithTree()
    {
        QFETCH(int, type);
        PageScene scene;
        ProbePage page(type);
        QList<NODE> nodes = {nodeOf(77, u"came along"_s)};
        LogCapture log;
        page.organizeNodes(nodes);
        QCOMPARE(idsOf(nodes), QList<int>({77, 1, 2, 3}));
        QCOMPARE(idsOf(page.m_orgaList), QList<int>({1, 2, 3}));
        QCOMPARE(scene.client.calls, QStringList({"getOrgaList", "organizeOrgaNodes"}));
        QCOMPARE(writtenLines(log), QStringList());
    }

    void nodesOfOtherKindsStay_data() { kinds(typesWithoutTree); }

    void nodesOfOtherKindsStay()
    {
        QFETCH(int, type);
        PageScene scene;
        ProbePage page(type);
        page.m_orgaList.resize(2);
        QList<NODE> nodes = {nodeOf(77, u"came along"_s)};
        LogCapture log;
        page.organizeNodes(nodes);
        QCOMPARE(idsOf(nodes), QList<int>({77}));
        QCOMPARE(page.m_orgaList.size(), 2U);
        QCOMPARE(scene.client.calls, QStringList());
        QCOMPARE(log.lines(QtDebugMsg), QStringList({defaultLine}));
    }

    void copyOfTheListIsReplaced()
    {
        PageScene scene;
        ProbePage page(1);
        QList<NODE> nodes;
        page.organizeNodes(nodes);
        scene.client.setTree(u"8 Elsewhere\n"_s);
        QList<NODE> later;
        page.organizeNodes(later);
        QCOMPARE(idsOf(page.m_orgaList), QList<int>({8}));
        QCOMPARE(idsOf(later), QList<int>({8}));
        scene.client.clearTree();
        page.organizeNodes(later);
        QVERIFY(page.m_orgaList.empty());
        QCOMPARE(idsOf(later), QList<int>({8}));
    }

    void clientWorksOnAListOfItsOwn()
    {
        class EatingClient : public FakeKrxClient
        {
        public:
            std::list<TalvixGroup> *handed = nullptr;
            void organizeOrgaNodes(QList<NODE> &nodes, std::list<TalvixGroup> &list) override
            {
                FakeKrxClient::organizeOrgaNodes(nodes, list);
                handed = &list;
                list.clear();
            }
        };
        EatingClient client;
        client.setTree(u"1 Company\n  2 Plant\n"_s);
        ProbePage page(1);
        QList<NODE> nodes;
        page.organizeNodes(nodes);
        QCOMPARE(idsOf(nodes), QList<int>({1, 2}));
        QVERIFY(client.handed != &page.m_orgaList);
        QCOMPARE(idsOf(page.m_orgaList), QList<int>({1, 2}));
        QCOMPARE(idsOf(client.getOrgaList()), QList<int>({1, 2}));
    }

    void loadOnHiddenPageDoesNothing()
    {
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        page.hide();
        scene.forgetCalls();
        page.tips.clear();
        LogCapture log;
        QVERIFY(!page.slotOrgaInfoLoad());
        QCOMPARE(writtenLines(log), QStringList({written::load}));
        QCOMPARE(scene.client.calls, QStringList());
        QCOMPARE(page.tips.size(), 0);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 3);
        QCOMPARE(organisationCombo(page)->currentText(), u"Plant South"_s);
    }

    void loadSetsTheRoot()
    {
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        page.tips.clear();
        LogCapture log;
        QVERIFY(page.slotOrgaInfoLoad());
        QCOMPARE(writtenLines(log), QStringList({written::load}));
        QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
        QCOMPARE(organisationCombo(page)->currentText(), u"Company"_s);
        QVERIFY(organisationCombo(page)->count() > 0);
        QCOMPARE(page.tips.size(), 0);
    }

    void loadSetsUpTheCombo()
    {
        PageScene scene;
        ProbePage page(1);
        QCOMPARE(organisationCombo(page)->maxVisibleItems(), 10);
        showPage(page);
        QCOMPARE(organisationCombo(page)->maxVisibleItems(), 25);
        organisationCombo(page)->setMaxVisibleItems(7);
        organisationCombo(page)->setEditable(true);
        QVERIFY(page.slotOrgaInfoLoad());
        QCOMPARE(organisationCombo(page)->maxVisibleItems(), 25);
        QVERIFY(!organisationCombo(page)->isEditable());

        organisationCombo(page)->setMaxVisibleItems(7);
        scene.client.clearTree();
        QVERIFY(!page.slotOrgaInfoLoad());
        QCOMPARE(organisationCombo(page)->maxVisibleItems(), 7);
    }

    void loadOpensTheFirstLevel()
    {
        auto &&[scene, page] = Shown(1);
        ZrTreeView *tree = organisationCombo(page)->m_pTreeView;
        tree->collapseAll();
        QVERIFY(page.slotOrgaInfoLoad());
        QVERIFY(tree->isExpanded(tree->model()->index(0, 0)));
    }

    void loadTakesTheFirstOfSeveralRoots()
    {
        auto &&[scene, page] = Shown(1, u"5 North\n  6 Plant\n4 South\n"_s);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 5);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({5}));
    }

    void loadSearchesNothingWhileItRefills()
    {
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        scene.forgetCalls();
        const QSignalSpy changes(organisationCombo(page), &QComboBox::currentTextChanged);
        LogCapture log;
        QVERIFY(page.slotOrgaInfoLoad());
        QVERIFY(changes.size() > 0);
        QVERIFY(!log.contains(written::search));
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void loadConnectsTheComboOnce()
    {
        auto &&[scene, page] = Shown(1);
        for (int i = 0; i < 3; ++i)
            QVERIFY(page.slotOrgaInfoLoad());
        scene.forgetCalls();
        LogCapture log;
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QCOMPARE(log.count(written::search), 1);
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    }

    void loadWithoutNodesFails()
    {
        auto &&[scene, page] = Shown(1);
        scene.client.clearTree();
        page.tips.clear();
        LogCapture log;
        QVERIFY(!page.slotOrgaInfoLoad());
        QCOMPARE(writtenLines(log), QStringList({written::load, written::loadFailed}));
        QCOMPARE(log.complaints(), QStringList());
        QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
        QCOMPARE(organisationCombo(page)->count(), 0);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 0);
        QCOMPARE(page.m_chartViewList.size(), 3);
        QVERIFY(page.m_chartViewList.first()->chart()->isVisible());
    }

    void loadWithoutRootFails_data()
    {
        table<bool>({"withView"},
            {{"tree view without a root item", true}, {"combo box without a tree view", false}});
    }

    void loadWithoutRootFails()
    {
        QFETCH(bool, withView);
        auto &&[scene, page] = Shown(1);
        scene.forgetCalls();
        page.tips.clear();
        {
            ZrTreeView empty;
            const RootlessTree tree(organisationCombo(page), withView ? &empty : nullptr);
            LogCapture log;
            QVERIFY(!page.slotOrgaInfoLoad());
            QCOMPARE(writtenLines(log), QStringList({written::load, noRootLine, written::loadFailed}));
            QCOMPARE(log.lines(QtCriticalMsg), QStringList({noRootLine}));
            QCOMPARE(log.lines(QtDebugMsg), QStringList({written::load, written::loadFailed}));
        }
        QCOMPARE(page.tips.size(), 0);
        QVERIFY(organisationCombo(page)->count() > 0);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 0);

        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void loadOfKindWithoutTreeFails_data() { kinds(typesWithoutTree); }

    void loadOfKindWithoutTreeFails()
    {
        QFETCH(int, type);
        auto &&[scene, page] = Shown(type);
        QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
        scene.fillTree(page);
        scene.forgetCalls();
        page.tips.clear();
        LogCapture log;
        QVERIFY(!page.slotOrgaInfoLoad());
        QCOMPARE(writtenLines(log), QStringList({written::load, defaultLine, written::loadFailed}));
        QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
        QCOMPARE(organisationCombo(page)->count(), 0);
        QCOMPARE(scene.client.calls, QStringList());
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void failedLoadCutsTheConnection_data()
    {
        table<bool>({"good"}, {{"the first load failed", false}, {"the first load was good", true}});
    }

    void failedLoadCutsTheConnection()
    {
        QFETCH(bool, good);
        auto &&[scene, page] = Shown(1, good ? u"1 Company\n"_s : QString());
        scene.client.clearTree();
        QVERIFY(!page.slotOrgaInfoLoad());
        scene.client.setTree(u"1 Company\n  2 Plant North\n"_s);
        scene.fillTree(page);
        scene.forgetCalls();
        LogCapture log;
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QVERIFY(!log.contains(written::search));
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void failedLoadIsRepairedByTheNextShow()
    {
        auto &&[scene, page] = Shown(1, {});
        QCOMPARE(scene.manager.calls, QStringList());
        page.hide();
        scene.client.setTree(u"1 Company\n  2 Plant North\n"_s);
        page.show();
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
        scene.forgetCalls();
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    }

    void timeAfterFailedLoadStopsAtTheEmptyCombo()
    {
        auto &&[scene, page] = Shown(1, {});
        page.tips.clear();
        LogCapture log;
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonDay"), Qt::LeftButton);
        QCOMPARE(writtenLines(log), QStringList({written::search, written::combo}));
        QCOMPARE(page.tips.size(), 0);
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void choiceOfANodeSearchesIt_data()
    {
        table<int>({"type"},
            {
                {"alarms of organisations send it as a list", 1},
                {"alarms of devices send its number", 2},
                {"online of organisations send it as a list", 3},
                {"online of devices send its number", 4},
            });
    }

    void choiceOfANodeSearchesIt()
    {
        QFETCH(int, type);
        auto &&[scene, page] = Shown(type);
        scene.forgetCalls();
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        QCOMPARE(scene.wholeLevelCalls().size(), 1);
        QCOMPARE(scene.treeLoads(), 0);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 3);
        std::vector<int> asked;
        switch (type) {
        case 1:
            asked = scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg();
            break;
        case 2:
            asked = {scene.manager.alarmStatisticsOfDevices.requests.last().orgaId};
            break;
        case 3:
            asked = scene.manager.onlineStatisticsOfOrgas.requests.last().listOrg();
            break;
        default:
            asked = {scene.manager.onlineStatisticsOfDevices.requests.last().orgaId};
            break;
        }
        QCOMPARE(asked, std::vector<int>({3}));
    }

    void nodesOfOneNameAreDifferentChoices()
    {
        auto &&[scene, page] = Shown(1, u"1 Plant\n  2 Plant\n"_s);
        scene.forgetCalls();
        ZrComboBoxWithTree *combo = organisationCombo(page);
        combo->showPopup();
        QTRY_VERIFY(combo->m_pTreeView->isVisible());
        combo->m_pTreeView->expandAll();
        const QModelIndex child =
            combo->m_pTreeView->model()->index(0, 0, combo->m_pTreeView->model()->index(0, 0));
        QVERIFY(child.isValid());
        QTest::mouseClick(combo->m_pTreeView->viewport(), Qt::LeftButton, {},
            combo->m_pTreeView->visualRect(child).center());
        QTRY_COMPARE(currentOrganisation(combo), 2);
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({2}));
    }

    void everyLoadReturnsToTheRoot()
    {
        auto &&[scene, page] = Shown(1);
        for (const char *name : {"Plant North", "Plant South"}) {
            QVERIFY(chooseOrganisation(organisationCombo(page), QString::fromLatin1(name)));
            QVERIFY(currentOrganisation(organisationCombo(page)) != 1);
            page.hide();
            page.show();
            QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
            QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({1}));
        }
    }

    void withoutCurrentNodeThereIsNoId_data()
    {
        table<QString>({"state"},
            {
                {"page that was never shown", "new"},
                {"tree without a current node", "no current"},
                {"combo box without a tree view", "no view"},
                {"tree that was emptied", "emptied"},
            });
    }

    void withoutCurrentNodeThereIsNoId()
    {
        QFETCH(QString, state);
        PageScene scene;
        ProbePage page(1);
        if (state != u"new"_s)
            showPage(page);
        if (state == u"no current"_s)
            scene.fillTreeWithoutCurrent(page);
        if (state == u"emptied"_s)
            organisationCombo(page)->clear();
        ZrTreeView *own = organisationCombo(page)->m_pTreeView;
        const RootlessTree tree(organisationCombo(page), state == u"no view"_s ? nullptr : own);
        LogCapture log;
        QCOMPARE(page.getOrgaID(), 0);
        QCOMPARE(writtenLines(log), QStringList({"BasicChart::getOrgaID  0"}));
        page.idlist = {9};
        QCOMPARE(page.getOrgaIDList(), std::vector<int>());
        QCOMPARE(page.idlist, std::vector<int>());
        scene.forgetCalls();
        QCOMPARE(page.getAlarmOfOrgas(), 1);
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void currentIdIsLogged()
    {
        auto &&[scene, page] = Shown(2);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        LogCapture log;
        QCOMPARE(page.getOrgaID(), 3);
        QCOMPARE(log.lines(QtDebugMsg), QStringList({"BasicChart::getOrgaID  3"}));
    }

    void currentIdOfUnusualNumbers_data()
    {
        table<int>({"id"}, {{"largest", INT_MAX}, {"smallest", INT_MIN}, {"negative", -5}, {"zero", 0}});
    }

    void currentIdOfUnusualNumbers()
    {
        QFETCH(int, id);
        PageScene scene;
        scene.client.clearTree();
        scene.client.addOrganisation(id, "Odd");
        ProbePage page(1);
        showPage(page);
        QCOMPARE(page.getOrgaID(), id);
        QCOMPARE(page.getOrgaIDList(), std::vector<int>({id}));
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({id}));
    }

    void idListHoldsTheCurrentNodeAlone()
    {
        auto &&[scene, page] = Shown(1);
        page.idlist = {9, 8, 7};
        QCOMPARE(page.getOrgaIDList(), std::vector<int>({1}));
        QCOMPARE(page.idlist, std::vector<int>({1}));
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QCOMPARE(page.getOrgaIDList(), std::vector<int>({2}));
        QCOMPARE(page.getOrgaIDList(), std::vector<int>({2}));
        QCOMPARE(page.idlist, std::vector<int>({2}));
    }

    void idListIsACopy()
    {
        auto &&[scene, page] = Shown(1);
        std::vector<int> copy = page.getOrgaIDList();
        copy.push_back(5);
        QCOMPARE(page.idlist, std::vector<int>({1}));
    }

    void idListLogsOnOneLine()
    {
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        LogCapture log;
        page.getOrgaIDList();
        QCOMPARE(log.lines(QtDebugMsg).size(), 1);
        const QString line = writtenLines(log).first();
        QVERIFY2(line.startsWith(u"BasicChart::getOrgaIDList idlist "_s), qPrintable(line));
        QVERIFY2(line.contains(u"(3)"_s), qPrintable(line));
    }

    void sumModeItems()
    {
        auto &&[scene, page] = Shown(1);
        const auto *combo = page.part<QComboBox>("comboBoxOrgType");
        QCOMPARE(itemTexts(combo), QStringList({"TK_LowSum", "TK_AllSum", "TK_OnlyCurrent"}));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(combo->itemData(i, Qt::UserRole).toInt(), i + 1);
            QVERIFY(combo->itemIcon(i).isNull());
        }
        QCOMPARE(combo->currentIndex(), 1);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().orgType, 2);
    }

    void sumModeGoesIntoTheRequest_data()
    {
        table<int, int>({"index", "orgType"}, {{"lower levels", 0, 1}, {"the organisation alone", 2, 3}});
    }

    void sumModeGoesIntoTheRequest()
    {
        QFETCH(int, index);
        QFETCH(int, orgType);
        auto &&[scene, page] = Shown(1);
        scene.forgetCalls();
        auto *combo = page.part<QComboBox>("comboBoxOrgType");
        QTest::keyClick(combo, index == 0 ? Qt::Key_Up : Qt::Key_Down);
        QCOMPARE(combo->currentIndex(), index);
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().orgType, orgType);
        QCOMPARE(scene.manager.alarmStatisticsOfOrga.requests.last().orgType, orgType);
    }

    void listChangeOnVisiblePageReloadsTheTreeOnly()
    {
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        const LabelledValues bars = page.barDataList;
        const QString title = page.part<QLabel>("labelBarChartTitle")->text();
        QList<QChart *> charts;
        for (const ZrChartView *view : page.m_chartViewList)
            charts.append(view->chart());
        scene.client.setTree(u"4 Holding\n  1 Company\n"_s);
        scene.forgetCalls();
        page.tips.clear();
        LogCapture log;
        Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Add);
        QCOMPARE(writtenLines(log), QStringList({written::load}));
        QCOMPARE(scene.treeLoads(), 1);
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(page.tips.size(), 0);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 4);
        QCOMPARE(organisationCombo(page)->currentText(), u"Holding"_s);
        QCOMPARE(page.barDataList, bars);
        QCOMPARE(page.part<QLabel>("labelBarChartTitle")->text(), title);
        for (qsizetype i = 0; i < charts.size(); ++i) {
            QCOMPARE(page.m_chartViewList.at(i)->chart(), charts.at(i));
            QVERIFY(charts.at(i)->isVisible());
        }
        page.slotSearch();
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({4}));
    }

    void listChangeOnHiddenPageWaitsForTheShow()
    {
        auto &&[scene, page] = Shown(1);
        page.hide();
        scene.client.setTree(u"4 Holding\n"_s);
        scene.forgetCalls();
        LogCapture log;
        Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Delete);
        QCOMPARE(writtenLines(log), QStringList({written::load}));
        QCOMPARE(scene.client.calls, QStringList());
        QCOMPARE(organisationCombo(page)->currentText(), u"Company"_s);
        page.show();
        QCOMPARE(organisationCombo(page)->currentText(), u"Holding"_s);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({4}));
    }

    void listChangeToNothingTips()
    {
        auto &&[scene, page] = Shown(1);
        scene.client.clearTree();
        page.tips.clear();
        Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Delete);
        QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
        QCOMPARE(organisationCombo(page)->count(), 0);
        QVERIFY(page.m_chartViewList.first()->chart()->isVisible());
        QVERIFY(!page.part<QLabel>("labelBarChartTitle")->text().isEmpty());
    }

    void listChangeFromAnotherThreadIsQueued()
    {
        PageScene scene;
        ProbePage page(1);
        showPage(page);
        scene.client.setTree(u"4 Holding\n"_s);
        scene.forgetCalls();
        LogCapture log;
        const std::unique_ptr<QThread> thread(QThread::create(
            [&scene] { Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Modify); }));
        thread->start();
        QVERIFY(thread->wait(10000));
        QVERIFY(!log.contains(written::load));
        QCOMPARE(scene.client.calls, QStringList());
        QTRY_COMPARE(organisationCombo(page)->currentText(), u"Holding"_s);
        QCOMPARE(log.count(written::load), 1);
        QCOMPARE(log.complaints(), QStringList());
    }

    void languageChangeOnHiddenPageRenewsNames()
    {
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        page.hide();
        scene.client.setTree(u"1 Firma\n  2 Werk Nord\n  3 Werk Sued\n"_s);
        scene.forgetCalls();
        page.tips.clear();
        LogCapture log;
        page.retranslateUi();
        QCOMPARE(organisationCombo(page)->currentText(), u"Werk Sued"_s);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 3);
        QCOMPARE(scene.treeLoads(), 1);
        QVERIFY(!log.contains(written::search));
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(page.tips.size(), 0);

        scene.forgetCalls();
        organisationCombo(page)->m_pTreeView->setRootAsCurrentItem();
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    }

    void languageChangeOnVisiblePageReloads()
    {
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        scene.client.setTree(u"1 Firma\n  2 Werk Nord\n  3 Werk Sued\n"_s);
        scene.forgetCalls();
        LogCapture log;
        page.retranslateUi();
        QCOMPARE(organisationCombo(page)->currentText(), u"Firma"_s);
        QCOMPARE(scene.treeLoads(), 2);
        QCOMPARE(log.count(written::search), 1);
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({1}));
        QVERIFY(listKeys(page.barDataList).contains(u"Werk Nord"_s));
    }

    void languageOfTheApplicationReachesTree_data()
    {
        table<bool>({"visible"},
            {{"a visible page goes back to the root", true}, {"a hidden page keeps its node", false}});
    }

    void languageOfTheApplicationReachesTree()
    {
        QFETCH(bool, visible);
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        page.setVisible(visible);
        scene.client.setTree(u"1 Firma\n  2 Werk Nord\n  3 Werk Sued\n"_s);
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        QTRY_COMPARE(organisationCombo(page)->currentText(), visible ? u"Firma"_s : u"Werk Sued"_s);
        QCOMPARE(currentOrganisation(organisationCombo(page)), visible ? 1 : 3);
    }

    void languageChangeWithoutTreeViewIsHarmless()
    {
        auto &&[scene, page] = Shown(1);
        page.hide();
        scene.forgetCalls();
        const RootlessTree tree(organisationCombo(page), nullptr);
        page.retranslateUi();
        QCOMPARE(scene.client.calls, QStringList());
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void languageChangeOnKindWithoutTree()
    {
        auto &&[scene, page] = Shown(5);
        page.tips.clear();
        LogCapture log;
        page.retranslateUi();
        QCOMPARE(log.count(defaultLine), 2);
        QCOMPARE(log.count(written::load), 1);
        QCOMPARE(log.count(written::loadFailed), 1);
        QVERIFY(!log.contains(written::search));
        QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
    }

    // The load failed because the tree had no root item; the names that come with the language find it whole.
    void languageChangeOnHiddenPageConnectsAFailedTreeAgain()
    {
        auto &&[scene, page] = Shown(1);
        {
            ZrTreeView empty;
            const RootlessTree tree(organisationCombo(page), &empty);
            QVERIFY(!page.slotOrgaInfoLoad());
        }
        scene.forgetCalls();
        organisationCombo(page)->m_pTreeView->setRootAsCurrentItem();
        QCOMPARE(scene.wholeLevelCalls(), QStringList());

        page.hide();
        page.retranslateUi();
        QCOMPARE(scene.wholeLevelCalls(), QStringList());
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    }

    void largeTreeOfInvalidNamesLoads()
    {
        PageScene scene;
        scene.client.clearTree();
        scene.client.addOrganisation(1, "Company");
        for (int id = 2; id <= 3000; ++id)
            scene.client.addOrganisation(id, "bad \xff\xfe name", id / 2);
        ProbePage page(1);
        showPage(page);
        QCOMPARE(page.m_orgaList.size(), 3000U);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
        QCOMPARE(page.getOrgaIDList(), std::vector<int>({1}));
    }
};

TALVIX_TEST_MAIN(TestOrganisation)
#include "tst_organisation.moc"
