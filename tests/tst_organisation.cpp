#include "support/PageScene.h"
#include "support/TestMain.h"

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

namespace {

using Tip = ProbePage::Tip;

const QString searchLine = QStringLiteral("BasicChart::slotSearch ");
const QString comboLine = QStringLiteral("BasicChart::comboDataExists");
const QString loadLine = QStringLiteral("BasicChart::slotOrgaInfoLoad");
const QString failLine = QStringLiteral("BasicChart::slotOrgaInfoLoad  addTreeView fail");
const QString defaultLine = QStringLiteral("ServiceType is default");
const QString noRootLine = QStringLiteral("get current orga failed!");
const Tip noOrganisation = {QStringLiteral("TK_orgNotExist"), 2};

const QList<int> typesWithTree = {1, 2, 3, 4, 7, 8, 9};
const QList<int> typesWithoutTree = {5, 6, 0, 10, -1, INT_MAX, INT_MIN};

void addTypes(const QList<int> &types)
{
    QTest::addColumn<int>("type");
    for (const int type : types)
        QTest::addRow("type %d", type) << type;
}

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

const QStringList alarmQuery = {QStringLiteral("getAlarmStatisticsOfOrgas")};

} // namespace

class TestOrganisation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nodesOfKindsWithTree_data();
    void nodesOfKindsWithTree();
    void nodesOfOtherKindsStay_data();
    void nodesOfOtherKindsStay();
    void copyOfTheListIsReplaced();
    void clientWorksOnAListOfItsOwn();

    void loadOnHiddenPageDoesNothing();
    void loadSetsTheRoot();
    void loadSetsUpTheCombo();
    void loadOpensTheFirstLevel();
    void loadTakesTheFirstOfSeveralRoots();
    void loadSearchesNothingWhileItRefills();
    void loadConnectsTheComboOnce();
    void loadWithoutNodesFails();
    void loadWithoutRootFails_data();
    void loadWithoutRootFails();
    void loadOfKindWithoutTreeFails_data();
    void loadOfKindWithoutTreeFails();
    void failedLoadCutsTheConnection();
    void failedLoadCutsTheConnectionOfAGoodOne();
    void failedLoadIsRepairedByTheNextShow();
    void timeAfterFailedLoadStopsAtTheEmptyCombo();

    void choiceOfANodeSearchesIt_data();
    void choiceOfANodeSearchesIt();
    void nodesOfOneNameAreDifferentChoices();
    void everyLoadReturnsToTheRoot();

    void currentIdIsZeroWithoutCurrentNode_data();
    void currentIdIsZeroWithoutCurrentNode();
    void currentIdIsLogged();
    void currentIdOfUnusualNumbers_data();
    void currentIdOfUnusualNumbers();
    void idListHoldsTheCurrentNodeAlone();
    void idListIsEmptyWithoutCurrentNode_data();
    void idListIsEmptyWithoutCurrentNode();
    void idListIsACopy();
    void idListLogsOnOneLine();

    void sumModeItems();
    void sumModeGoesIntoTheRequest_data();
    void sumModeGoesIntoTheRequest();

    void listChangeOnVisiblePageReloadsTheTreeOnly();
    void listChangeOnHiddenPageWaitsForTheShow();
    void listChangeToNothingTips();
    void listChangeFromAnotherThreadIsQueued();

    void languageChangeOnHiddenPageRenewsNames();
    void languageChangeOnVisiblePageReloads();
    void languageOfTheApplicationReachesTree_data();
    void languageOfTheApplicationReachesTree();
    void languageChangeWithoutTreeViewIsHarmless();
    void languageChangeOnKindWithoutTree();
    void languageChangeOnHiddenPageConnectsAFailedTreeAgain();

    void largeTreeOfInvalidNamesLoads();
};

void TestOrganisation::init()
{
    setPresentMoment({});
    HostSettings::setLanguage({});
}

void TestOrganisation::cleanup()
{
    HostSettings::setLanguage({});
}

void TestOrganisation::nodesOfKindsWithTree_data()
{
    addTypes(typesWithTree);
}

void TestOrganisation::nodesOfKindsWithTree()
{
    QFETCH(int, type);
    PageScene scene;
    ProbePage page(type);
    QList<NODE> nodes = {nodeOf(77, QStringLiteral("came along"))};
    LogCapture log;
    page.organizeNodes(nodes);
    QCOMPARE(idsOf(nodes), QList<int>({77, 1, 2, 3}));
    QCOMPARE(idsOf(page.m_orgaList), QList<int>({1, 2, 3}));
    QCOMPARE(scene.client.calls,
        QStringList({QStringLiteral("getOrgaList"), QStringLiteral("organizeOrgaNodes")}));
    QCOMPARE(writtenLines(log), QStringList());
}

void TestOrganisation::nodesOfOtherKindsStay_data()
{
    addTypes(typesWithoutTree);
}

void TestOrganisation::nodesOfOtherKindsStay()
{
    QFETCH(int, type);
    PageScene scene;
    ProbePage page(type);
    page.m_orgaList.resize(2);
    QList<NODE> nodes = {nodeOf(77, QStringLiteral("came along"))};
    LogCapture log;
    page.organizeNodes(nodes);
    QCOMPARE(idsOf(nodes), QList<int>({77}));
    QCOMPARE(page.m_orgaList.size(), 2U);
    QCOMPARE(scene.client.calls, QStringList());
    QCOMPARE(log.lines(QtDebugMsg), QStringList({defaultLine}));
}

void TestOrganisation::copyOfTheListIsReplaced()
{
    PageScene scene;
    ProbePage page(1);
    QList<NODE> nodes;
    page.organizeNodes(nodes);
    scene.client.setTree(QStringLiteral("8 Elsewhere\n"));
    QList<NODE> later;
    page.organizeNodes(later);
    QCOMPARE(idsOf(page.m_orgaList), QList<int>({8}));
    QCOMPARE(idsOf(later), QList<int>({8}));
    scene.client.clearTree();
    page.organizeNodes(later);
    QVERIFY(page.m_orgaList.empty());
    QCOMPARE(idsOf(later), QList<int>({8}));
}

void TestOrganisation::clientWorksOnAListOfItsOwn()
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
    client.setTree(QStringLiteral("1 Company\n  2 Plant\n"));
    ProbePage page(1);
    QList<NODE> nodes;
    page.organizeNodes(nodes);
    QCOMPARE(idsOf(nodes), QList<int>({1, 2}));
    QVERIFY(client.handed != &page.m_orgaList);
    QCOMPARE(idsOf(page.m_orgaList), QList<int>({1, 2}));
    QCOMPARE(idsOf(client.getOrgaList()), QList<int>({1, 2}));
}

void TestOrganisation::loadOnHiddenPageDoesNothing()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    page.hide();
    scene.forgetCalls();
    page.tips.clear();
    LogCapture log;
    QVERIFY(!page.slotOrgaInfoLoad());
    QCOMPARE(writtenLines(log), QStringList({loadLine}));
    QCOMPARE(scene.client.calls, QStringList());
    QCOMPARE(page.tips.size(), 0);
    QCOMPARE(currentOrganisation(organisationCombo(page)), 3);
    QCOMPARE(organisationCombo(page)->currentText(), QStringLiteral("Plant South"));
}

void TestOrganisation::loadSetsTheRoot()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    page.tips.clear();
    LogCapture log;
    QVERIFY(page.slotOrgaInfoLoad());
    QCOMPARE(writtenLines(log), QStringList({loadLine}));
    QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
    QCOMPARE(organisationCombo(page)->currentText(), QStringLiteral("Company"));
    QVERIFY(organisationCombo(page)->count() > 0);
    QCOMPARE(page.tips.size(), 0);
}

void TestOrganisation::loadSetsUpTheCombo()
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

void TestOrganisation::loadOpensTheFirstLevel()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    ZrTreeView *tree = organisationCombo(page)->m_pTreeView;
    tree->collapseAll();
    QVERIFY(page.slotOrgaInfoLoad());
    QVERIFY(tree->isExpanded(tree->model()->index(0, 0)));
}

void TestOrganisation::loadTakesTheFirstOfSeveralRoots()
{
    PageScene scene;
    scene.client.setTree(QStringLiteral("5 North\n  6 Plant\n4 South\n"));
    ProbePage page(1);
    showPage(page);
    QCOMPARE(currentOrganisation(organisationCombo(page)), 5);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({5}));
}

void TestOrganisation::loadSearchesNothingWhileItRefills()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    scene.forgetCalls();
    const QSignalSpy changes(organisationCombo(page), &QComboBox::currentTextChanged);
    LogCapture log;
    QVERIFY(page.slotOrgaInfoLoad());
    QVERIFY(changes.size() > 0);
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestOrganisation::loadConnectsTheComboOnce()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    for (int i = 0; i < 3; ++i)
        QVERIFY(page.slotOrgaInfoLoad());
    scene.forgetCalls();
    LogCapture log;
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QCOMPARE(log.count(searchLine), 1);
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
}

void TestOrganisation::loadWithoutNodesFails()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.client.clearTree();
    page.tips.clear();
    LogCapture log;
    QVERIFY(!page.slotOrgaInfoLoad());
    QCOMPARE(writtenLines(log), QStringList({loadLine, failLine}));
    QCOMPARE(log.complaints(), QStringList());
    QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
    QCOMPARE(organisationCombo(page)->count(), 0);
    QCOMPARE(currentOrganisation(organisationCombo(page)), 0);
    QCOMPARE(page.m_chartViewList.size(), 3);
    QVERIFY(page.m_chartViewList.first()->chart()->isVisible());
}

void TestOrganisation::loadWithoutRootFails_data()
{
    QTest::addColumn<bool>("withView");
    QTest::newRow("tree view without a root item") << true;
    QTest::newRow("combo box without a tree view") << false;
}

void TestOrganisation::loadWithoutRootFails()
{
    QFETCH(bool, withView);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    page.tips.clear();
    {
        ZrTreeView empty;
        const RootlessTree tree(organisationCombo(page), withView ? &empty : nullptr);
        LogCapture log;
        QVERIFY(!page.slotOrgaInfoLoad());
        QCOMPARE(writtenLines(log), QStringList({loadLine, noRootLine, failLine}));
        QCOMPARE(log.lines(QtCriticalMsg), QStringList({noRootLine}));
        QCOMPARE(log.lines(QtDebugMsg), QStringList({loadLine, failLine}));
    }
    QCOMPARE(page.tips.size(), 0);
    QVERIFY(organisationCombo(page)->count() > 0);
    QCOMPARE(currentOrganisation(organisationCombo(page)), 0);

    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestOrganisation::loadOfKindWithoutTreeFails_data()
{
    addTypes(typesWithoutTree);
}

void TestOrganisation::loadOfKindWithoutTreeFails()
{
    QFETCH(int, type);
    PageScene scene;
    ProbePage page(type);
    showPage(page);
    QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
    scene.fillTree(page);
    scene.forgetCalls();
    page.tips.clear();
    LogCapture log;
    QVERIFY(!page.slotOrgaInfoLoad());
    QCOMPARE(writtenLines(log), QStringList({loadLine, defaultLine, failLine}));
    QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
    QCOMPARE(organisationCombo(page)->count(), 0);
    QCOMPARE(scene.client.calls, QStringList());
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestOrganisation::failedLoadCutsTheConnection()
{
    PageScene scene;
    scene.client.clearTree();
    ProbePage page(1);
    showPage(page);
    scene.client.setTree(QStringLiteral("1 Company\n  2 Plant North\n"));
    scene.fillTree(page);
    scene.forgetCalls();
    LogCapture log;
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestOrganisation::failedLoadCutsTheConnectionOfAGoodOne()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.client.clearTree();
    QVERIFY(!page.slotOrgaInfoLoad());
    scene.client.setTree(QStringLiteral("1 Company\n  2 Plant North\n"));
    scene.fillTree(page);
    scene.forgetCalls();
    LogCapture log;
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestOrganisation::failedLoadIsRepairedByTheNextShow()
{
    PageScene scene;
    scene.client.clearTree();
    ProbePage page(1);
    showPage(page);
    QCOMPARE(scene.manager.calls, QStringList());
    page.hide();
    scene.client.setTree(QStringLiteral("1 Company\n  2 Plant North\n"));
    page.show();
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    scene.forgetCalls();
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
}

void TestOrganisation::timeAfterFailedLoadStopsAtTheEmptyCombo()
{
    PageScene scene;
    scene.client.clearTree();
    ProbePage page(1);
    showPage(page);
    page.tips.clear();
    LogCapture log;
    QTest::mouseClick(page.part<ZrPushButton>("pushButtonDay"), Qt::LeftButton);
    QCOMPARE(writtenLines(log), QStringList({searchLine, comboLine}));
    QCOMPARE(page.tips.size(), 0);
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestOrganisation::choiceOfANodeSearchesIt_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("alarms of organisations send it as a list") << 1;
    QTest::newRow("alarms of devices send its number") << 2;
    QTest::newRow("online of organisations send it as a list") << 3;
    QTest::newRow("online of devices send its number") << 4;
}

void TestOrganisation::choiceOfANodeSearchesIt()
{
    QFETCH(int, type);
    PageScene scene;
    ProbePage page(type);
    showPage(page);
    scene.forgetCalls();
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
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

void TestOrganisation::nodesOfOneNameAreDifferentChoices()
{
    PageScene scene;
    scene.client.setTree(QStringLiteral("1 Plant\n  2 Plant\n"));
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    ZrComboBoxWithTree *combo = organisationCombo(page);
    combo->showPopup();
    QTRY_VERIFY(combo->m_pTreeView->isVisible());
    combo->m_pTreeView->expandAll();
    const QModelIndex child =
        combo->m_pTreeView->model()->index(0, 0, combo->m_pTreeView->model()->index(0, 0));
    QVERIFY(child.isValid());
    QTest::mouseClick(
        combo->m_pTreeView->viewport(), Qt::LeftButton, {}, combo->m_pTreeView->visualRect(child).center());
    QTRY_COMPARE(currentOrganisation(combo), 2);
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({2}));
}

void TestOrganisation::everyLoadReturnsToTheRoot()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    for (const char *name : {"Plant North", "Plant South"}) {
        QVERIFY(chooseOrganisation(organisationCombo(page), QString::fromLatin1(name)));
        QVERIFY(currentOrganisation(organisationCombo(page)) != 1);
        page.hide();
        page.show();
        QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({1}));
    }
}

void TestOrganisation::currentIdIsZeroWithoutCurrentNode_data()
{
    QTest::addColumn<QString>("state");
    QTest::newRow("page that was never shown") << QStringLiteral("new");
    QTest::newRow("tree without a current node") << QStringLiteral("no current");
    QTest::newRow("combo box without a tree view") << QStringLiteral("no view");
    QTest::newRow("tree that was emptied") << QStringLiteral("emptied");
}

void TestOrganisation::currentIdIsZeroWithoutCurrentNode()
{
    QFETCH(QString, state);
    PageScene scene;
    ProbePage page(2);
    if (state != QStringLiteral("new"))
        showPage(page);
    if (state == QStringLiteral("no current"))
        scene.fillTreeWithoutCurrent(page);
    if (state == QStringLiteral("emptied"))
        organisationCombo(page)->clear();
    ZrTreeView *own = organisationCombo(page)->m_pTreeView;
    const RootlessTree tree(organisationCombo(page), state == QStringLiteral("no view") ? nullptr : own);
    LogCapture log;
    QCOMPARE(page.getOrgaID(), 0);
    QCOMPARE(writtenLines(log), QStringList({QStringLiteral("BasicChart::getOrgaID  0")}));
}

void TestOrganisation::currentIdIsLogged()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    LogCapture log;
    QCOMPARE(page.getOrgaID(), 3);
    QCOMPARE(log.lines(QtDebugMsg), QStringList({QStringLiteral("BasicChart::getOrgaID  3")}));
}

void TestOrganisation::currentIdOfUnusualNumbers_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
    QTest::newRow("negative") << -5;
    QTest::newRow("zero") << 0;
}

void TestOrganisation::currentIdOfUnusualNumbers()
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

void TestOrganisation::idListHoldsTheCurrentNodeAlone()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    page.idlist = {9, 8, 7};
    QCOMPARE(page.getOrgaIDList(), std::vector<int>({1}));
    QCOMPARE(page.idlist, std::vector<int>({1}));
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QCOMPARE(page.getOrgaIDList(), std::vector<int>({2}));
    QCOMPARE(page.getOrgaIDList(), std::vector<int>({2}));
    QCOMPARE(page.idlist, std::vector<int>({2}));
}

void TestOrganisation::idListIsEmptyWithoutCurrentNode_data()
{
    currentIdIsZeroWithoutCurrentNode_data();
}

void TestOrganisation::idListIsEmptyWithoutCurrentNode()
{
    QFETCH(QString, state);
    PageScene scene;
    ProbePage page(1);
    if (state != QStringLiteral("new"))
        showPage(page);
    if (state == QStringLiteral("no current"))
        scene.fillTreeWithoutCurrent(page);
    if (state == QStringLiteral("emptied"))
        organisationCombo(page)->clear();
    ZrTreeView *own = organisationCombo(page)->m_pTreeView;
    const RootlessTree tree(organisationCombo(page), state == QStringLiteral("no view") ? nullptr : own);
    page.idlist = {9};
    QCOMPARE(page.getOrgaIDList(), std::vector<int>());
    QCOMPARE(page.idlist, std::vector<int>());
    scene.forgetCalls();
    QCOMPARE(page.getAlarmOfOrgas(), 1);
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestOrganisation::idListIsACopy()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    std::vector<int> copy = page.getOrgaIDList();
    copy.push_back(5);
    QCOMPARE(page.idlist, std::vector<int>({1}));
}

void TestOrganisation::idListLogsOnOneLine()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    LogCapture log;
    page.getOrgaIDList();
    QCOMPARE(log.lines(QtDebugMsg).size(), 1);
    const QString line = writtenLines(log).first();
    QVERIFY2(line.startsWith(QStringLiteral("BasicChart::getOrgaIDList idlist ")), qPrintable(line));
    QVERIFY2(line.contains(QStringLiteral("(3)")), qPrintable(line));
}

void TestOrganisation::sumModeItems()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    const auto *combo = page.part<QComboBox>("comboBoxOrgType");
    QCOMPARE(itemTexts(combo),
        QStringList(
            {QStringLiteral("TK_LowSum"), QStringLiteral("TK_AllSum"), QStringLiteral("TK_OnlyCurrent")}));
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(combo->itemData(i, Qt::UserRole).toInt(), i + 1);
        QVERIFY(combo->itemIcon(i).isNull());
    }
    QCOMPARE(combo->currentIndex(), 1);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().orgType, 2);
}

void TestOrganisation::sumModeGoesIntoTheRequest_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("orgType");
    QTest::newRow("lower levels") << 0 << 1;
    QTest::newRow("the organisation alone") << 2 << 3;
}

void TestOrganisation::sumModeGoesIntoTheRequest()
{
    QFETCH(int, index);
    QFETCH(int, orgType);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    auto *combo = page.part<QComboBox>("comboBoxOrgType");
    QTest::keyClick(combo, index == 0 ? Qt::Key_Up : Qt::Key_Down);
    QCOMPARE(combo->currentIndex(), index);
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().orgType, orgType);
    QCOMPARE(scene.manager.alarmStatisticsOfOrga.requests.last().orgType, orgType);
}

void TestOrganisation::listChangeOnVisiblePageReloadsTheTreeOnly()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    const LabelledValues bars = page.barDataList;
    const QString title = page.part<QLabel>("labelBarChartTitle")->text();
    QList<QChart *> charts;
    for (const ZrChartView *view : page.m_chartViewList)
        charts.append(view->chart());
    scene.client.setTree(QStringLiteral("4 Holding\n  1 Company\n"));
    scene.forgetCalls();
    page.tips.clear();
    LogCapture log;
    Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Add);
    QCOMPARE(writtenLines(log), QStringList({loadLine}));
    QCOMPARE(scene.treeLoads(), 1);
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(page.tips.size(), 0);
    QCOMPARE(currentOrganisation(organisationCombo(page)), 4);
    QCOMPARE(organisationCombo(page)->currentText(), QStringLiteral("Holding"));
    QCOMPARE(page.barDataList, bars);
    QCOMPARE(page.part<QLabel>("labelBarChartTitle")->text(), title);
    for (qsizetype i = 0; i < charts.size(); ++i) {
        QCOMPARE(page.m_chartViewList.at(i)->chart(), charts.at(i));
        QVERIFY(charts.at(i)->isVisible());
    }
    page.slotSearch();
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({4}));
}

void TestOrganisation::listChangeOnHiddenPageWaitsForTheShow()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    page.hide();
    scene.client.setTree(QStringLiteral("4 Holding\n"));
    scene.forgetCalls();
    LogCapture log;
    Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Delete);
    QCOMPARE(writtenLines(log), QStringList({loadLine}));
    QCOMPARE(scene.client.calls, QStringList());
    QCOMPARE(organisationCombo(page)->currentText(), QStringLiteral("Company"));
    page.show();
    QCOMPARE(organisationCombo(page)->currentText(), QStringLiteral("Holding"));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({4}));
}

void TestOrganisation::listChangeToNothingTips()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.client.clearTree();
    page.tips.clear();
    Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Delete);
    QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
    QCOMPARE(organisationCombo(page)->count(), 0);
    QVERIFY(page.m_chartViewList.first()->chart()->isVisible());
    QVERIFY(!page.part<QLabel>("labelBarChartTitle")->text().isEmpty());
}

void TestOrganisation::listChangeFromAnotherThreadIsQueued()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.client.setTree(QStringLiteral("4 Holding\n"));
    scene.forgetCalls();
    LogCapture log;
    const std::unique_ptr<QThread> thread(QThread::create(
        [&scene] { Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Modify); }));
    thread->start();
    QVERIFY(thread->wait(10000));
    QVERIFY(!log.contains(loadLine));
    QCOMPARE(scene.client.calls, QStringList());
    QTRY_COMPARE(organisationCombo(page)->currentText(), QStringLiteral("Holding"));
    QCOMPARE(log.count(loadLine), 1);
    QCOMPARE(log.complaints(), QStringList());
}

void TestOrganisation::languageChangeOnHiddenPageRenewsNames()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    page.hide();
    scene.client.setTree(QStringLiteral("1 Firma\n  2 Werk Nord\n  3 Werk Sued\n"));
    scene.forgetCalls();
    page.tips.clear();
    LogCapture log;
    page.retranslateUi();
    QCOMPARE(organisationCombo(page)->currentText(), QStringLiteral("Werk Sued"));
    QCOMPARE(currentOrganisation(organisationCombo(page)), 3);
    QCOMPARE(scene.treeLoads(), 1);
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(page.tips.size(), 0);

    scene.forgetCalls();
    organisationCombo(page)->m_pTreeView->setRootAsCurrentItem();
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
}

void TestOrganisation::languageChangeOnVisiblePageReloads()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    scene.client.setTree(QStringLiteral("1 Firma\n  2 Werk Nord\n  3 Werk Sued\n"));
    scene.forgetCalls();
    LogCapture log;
    page.retranslateUi();
    QCOMPARE(organisationCombo(page)->currentText(), QStringLiteral("Firma"));
    QCOMPARE(scene.treeLoads(), 2);
    QCOMPARE(log.count(searchLine), 1);
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({1}));
    QVERIFY(listKeys(page.barDataList).contains(QStringLiteral("Werk Nord")));
}

void TestOrganisation::languageOfTheApplicationReachesTree_data()
{
    QTest::addColumn<bool>("visible");
    QTest::newRow("a visible page goes back to the root") << true;
    QTest::newRow("a hidden page keeps its node") << false;
}

void TestOrganisation::languageOfTheApplicationReachesTree()
{
    QFETCH(bool, visible);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    page.setVisible(visible);
    scene.client.setTree(QStringLiteral("1 Firma\n  2 Werk Nord\n  3 Werk Sued\n"));
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    QTRY_COMPARE(organisationCombo(page)->currentText(),
        visible ? QStringLiteral("Firma") : QStringLiteral("Werk Sued"));
    QCOMPARE(currentOrganisation(organisationCombo(page)), visible ? 1 : 3);
}

void TestOrganisation::languageChangeWithoutTreeViewIsHarmless()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    page.hide();
    scene.forgetCalls();
    const RootlessTree tree(organisationCombo(page), nullptr);
    page.retranslateUi();
    QCOMPARE(scene.client.calls, QStringList());
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestOrganisation::languageChangeOnKindWithoutTree()
{
    PageScene scene;
    ProbePage page(5);
    showPage(page);
    page.tips.clear();
    LogCapture log;
    page.retranslateUi();
    QCOMPARE(log.count(defaultLine), 2);
    QCOMPARE(log.count(loadLine), 1);
    QCOMPARE(log.count(failLine), 1);
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(page.tips, QList<Tip>({noOrganisation}));
}

// The load failed because the tree had no root item; the names that come with the language find it whole.
void TestOrganisation::languageChangeOnHiddenPageConnectsAFailedTreeAgain()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
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
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
}

void TestOrganisation::largeTreeOfInvalidNamesLoads()
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

TALVIX_TEST_MAIN(TestOrganisation)
#include "tst_organisation.moc"
