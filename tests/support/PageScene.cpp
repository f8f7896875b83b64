#include "PageScene.h"

#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

#include <algorithm>

namespace {

/// Makes a paged operation answer \a items on each page that it is asked for, of \a totalPages.
template <typename Operation, typename Rows, typename Member>
void answerPages(Operation &operation, const Rows &rows, Member list, const int &totalPages)
{
    operation.answer = [rows, list, &totalPages](const auto &request, auto &response) {
        response.*list = rows;
        response.curPage = request.pageIndex;
        response.totalPage = totalPages;
        return true;
    };
}

} // namespace

void Backend::forgetCalls()
{
    client.calls.clear();
    manager.calls.clear();
}

PageScene::PageScene()
{
    client.setTree(QStringLiteral("1 Company\n"
                                  "  2 Plant North\n"
                                  "  3 Plant South\n"));
    client.addChannel("gate", QStringLiteral("Gate"), "gate channel", "10.0.0.1", 1);
    client.addChannel("yard", QStringLiteral("Yard"), "yard channel", "10.0.0.2", 1);
    client.addAlarmType(1, "Motion");
    client.addAlarmType(2, "Tamper");

    answerRows(manager.alarmStatisticsOfOrgas,
        {alarmsOfOrganisation(1, 5), alarmsOfOrganisation(2, 9), alarmsOfOrganisation(3, 7)});
    const std::vector<AlarmStatisticsRecord> alarmDevices = {
        alarmsOfDevice("gate", 4), alarmsOfDevice("yard", 8)};
    answerPages(manager.alarmStatisticsOfDevices, alarmDevices,
        &TalvixGetAlarmStatisticsOfDevicesResponseMessage::records, totalPages);
    const std::vector<AlarmStatisticsRecord> alarmPeriods = {
        alarmsOfPeriod("2024-05-03 01", 1, 3), alarmsOfPeriod("2024-05-03 02", 2, 2)};
    answerRows(manager.alarmStatisticsOfOrga, alarmPeriods);
    answerRows(manager.alarmStatisticsOfDevice, alarmPeriods);

    answerRows(manager.onlineStatisticsOfOrgas,
        {onlineOfOrganisation(1, 5), onlineOfOrganisation(2, 9), onlineOfOrganisation(3, 7)});
    const std::vector<OnlineStatisticsRecord> onlineDevices = {
        onlineOfDevice("gate", 4), onlineOfDevice("yard", 8)};
    answerPages(manager.onlineStatisticsOfDevices, onlineDevices,
        &TalvixGetOnlineStatisticsOfDevicesResponseMessage::records, totalPages);
    const std::vector<OnlineStatisticsRecord> onlinePeriods = {
        onlineOfPeriod("2024-05-03 01", 3), onlineOfPeriod("2024-05-03 02", 2)};
    answerRows(manager.onlineStatisticsOfOrga, onlinePeriods);
    answerRows(manager.onlineStatisticsOfDevice, onlinePeriods);

    answerItems(manager.temperatureStatisticsOfGroups, {{11, "Kitchen", 4}, {12, "Office", 8}});
    answerItems(manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 01", 4}});
    const std::vector<TemperatureStatisticsItem> persons = {{21, "Ann", 4}, {22, "Ben", 8}};
    answerPages(manager.temperatureStatisticsOfPersons, persons,
        &TalvixGetTemperatureStatisticsOfPersonsResponseMessage::statisticsList, totalPages);
    answerItems(manager.temperatureStatisticsOfPerson, {{1, "2024-05-03 01", 4}});

    TalvixGetTempStatisticsDistributionOfGroupsResponseMessage groupDistribution;
    groupDistribution.byNumberList = {{1, 4}};
    groupDistribution.byEtiologyList = {{1, 3}};
    manager.tempStatisticsDistributionOfGroups.answers(groupDistribution);
    TalvixGetTempStatisticsDistributionOfOrgasResponseMessage distribution;
    distribution.byTemperatureList = {{1, 4}};
    distribution.byMaskList = {{1, 3}};
    manager.temperatureOfDevice.answers(distribution);
    answerHandling(manager, {{2, 4, "2024-05-03 01"}, {0, 3, "2024-05-03 01"}});

    answerSamples(manager, {{"2024-05-03 01", {{"gate", {{4, 6, 0}, {2, 5, 0}}}}}});
    TalvixGetSnapDetailSamplesResponseMessage details;
    details.snapDetailList = {{1, {{1, 6}}}, {2, {{1, 4}}}};
    manager.snapDetailSamples.answers(details);
    answerOrgas(manager.trafficsStatisticsOfOrgas,
        {{1, "", {{4, 6, 0}, {2, 5, 0}}}, {2, "", {{4, 2, 0}, {2, 3, 0}}}});
    answerOrgas(manager.trafficsStatisticsOfOrga, {{0, "2024-05-03 01", {{4, 6, 0}, {2, 5, 0}}}});
}

QStringList PageScene::wholeLevelCalls() const
{
    return onlyLines(manager.calls,
        {QStringLiteral("getAlarmStatisticsOfOrgas"), QStringLiteral("getAlarmStatisticsOfDevices"),
            QStringLiteral("getOnlineStatisticsOfOrgas"), QStringLiteral("getOnlineStatisticsOfDevices"),
            QStringLiteral("getTemperatureStatisticsOfGroups"),
            QStringLiteral("getTemperatureStatisticsOfPersons"),
            QStringLiteral("getTrafficsStatisticsOfOrgas"), QStringLiteral("getSnapSamplesResource"),
            QStringLiteral("getTempAlarmHandleStatistics")});
}

void PageScene::fillTreeWithoutCurrent(ProbePage &page)
{
    QList<NODE> nodes;
    client.organizeOrgaNodes(nodes, client.getOrgaList());
    organisationCombo(page)->addNode(nodes, true);
}

void PageScene::fillTree(ProbePage &page)
{
    if (organisationCombo(page)->count() > 0)
        return;
    fillTreeWithoutCurrent(page);
    organisationCombo(page)->m_pTreeView->setRootAsCurrentItem();
}

void showPage(QWidget &page)
{
    page.resize(1136, 648);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
}

ZrComboBoxWithTree *organisationCombo(const QWidget &page)
{
    return page.findChild<ZrComboBoxWithTree *>(QStringLiteral("comboBox"));
}

bool chooseOrganisation(ZrComboBoxWithTree *combo, const QString &name)
{
    combo->showPopup();
    ZrTreeView *tree = combo->m_pTreeView;
    if (!QTest::qWaitFor([tree] { return tree->isVisible(); }))
        return false;
    tree->expandAll();
    const QAbstractItemModel *model = tree->model();
    const QModelIndexList found = model->match(
        model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchWrap);
    if (found.isEmpty())
        return false;
    tree->scrollTo(found.first());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(found.first()).center());
    const bool chosen = QTest::qWaitFor([combo, name] { return combo->currentText() == name; });
    combo->hidePopup();
    return chosen;
}

int currentOrganisation(ZrComboBoxWithTree *combo)
{
    NODE node;
    return combo->m_pTreeView->getCurrentItemData(node) ? node.id : 0;
}

QStringList writtenLines(const LogCapture &log)
{
    QStringList lines = log.lines();
    lines.removeIf(
        [](const QString &line) { return line.startsWith(QStringLiteral("This plugin does not support")); });
    return lines;
}

QStringList onlyLines(const QStringList &lines, const QStringList &wanted)
{
    QStringList found;
    for (const QString &line : lines) {
        if (wanted.contains(line))
            found.append(line);
    }
    return found;
}

QString StatisticsScene::smallTree()
{
    return QStringLiteral("41 Company\n"
                          "  42 Plant North\n"
                          "  43 Plant South\n");
}

StatisticsScene::StatisticsScene(int type, const QString &tree)
    : page(type == 5 || type == 6 ? 1 : type)
{
    client.setTree(tree);
    page.show();
    page.setServiceType(type);
    forget();
}

void StatisticsScene::forget()
{
    page.tips.clear();
    client.calls.clear();
    forgetRequests(manager);
}

int StatisticsScene::queryWholeLevel()
{
    switch (page.m_serviceType) {
    case 5:
        return page.getTemperatureOfGroups();
    case 6:
        return page.getTemperatureOfPersons();
    case 7:
        return page.getTrafficsStatisticsOfOrgas();
    case 8:
        return page.getTrafficsStatisticsOfDevice();
    case 9:
        return page.getTemperatureStatisticsOfDevGroups();
    default:
        return 0;
    }
}

void StatisticsScene::press(const char *button)
{
    QTest::mouseClick(page.part<QWidget>(button), Qt::LeftButton);
}

QStringList StatisticsScene::tips() const
{
    QStringList shown;
    for (const ProbePage::Tip &tip : page.tips)
        shown.append(QStringLiteral("%1 %2").arg(tip.kind).arg(tip.text));
    return shown;
}

DualValues StatisticsScene::dual(const LabelledValues &first, const LabelledValues &second)
{
    DualValues both;
    for (qsizetype i = 0; i < qMax(first.size(), second.size()); ++i) {
        const auto [label, value] = first.value(i, {QStringLiteral("missing"), 0});
        const auto [label2, value2] = second.value(i, {QStringLiteral("missing"), 0});
        both.append({label == label2 ? label : label + QStringLiteral(" against ") + label2, value, value2});
    }
    return both;
}

QStringList linesStartingWith(const LogCapture &log, const QStringList &starts)
{
    QStringList found;
    const QStringList lines = log.lines();
    for (const QString &line : lines) {
        const bool wanted = std::any_of(
            starts.cbegin(), starts.cend(), [&line](const QString &start) { return line.startsWith(start); });
        if (wanted)
            found.append(line);
    }
    return found;
}

int countOfReasonLines(const LogCapture &log, const QString &words, const QString &reason)
{
    const QRegularExpression pattern(
        QStringLiteral("\\A%1 ?\"?%2\"?\\z")
            .arg(QRegularExpression::escape(words), QRegularExpression::escape(reason)));
    return static_cast<int>(log.lines().filter(pattern).size());
}

QList<std::pair<int, int>> pairs(const std::vector<TempDistributionItem> &items)
{
    QList<std::pair<int, int>> list;
    for (const TempDistributionItem &item : items)
        list.append({item.code, item.count});
    return list;
}
