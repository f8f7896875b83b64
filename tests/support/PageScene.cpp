#include "PageScene.h"

#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtTest/QtTest>

namespace {

AlarmStatisticsRecord alarmOf(int organisation, const char *uid, int count)
{
    AlarmStatisticsRecord record;
    record.orgaId = organisation;
    record.uid = uid;
    record.count = count;
    return record;
}

AlarmStatisticsRecord alarmAt(const char *period, int type, int count)
{
    AlarmStatisticsRecord record;
    record.timeLabel = period;
    record.alarmType = type;
    record.count = count;
    return record;
}

OnlineStatisticsRecord onlineOf(int organisation, const char *uid, int value)
{
    OnlineStatisticsRecord record;
    record.orgaId = organisation;
    record.uid = uid;
    record.value = value;
    return record;
}

OnlineStatisticsRecord onlineAt(const char *period, int value)
{
    OnlineStatisticsRecord record;
    record.timeLabel = period;
    record.value = value;
    return record;
}

template <typename Operation, typename Response>
void answersPages(Operation &operation, const Response &rows, const int &totalPages)
{
    operation.answer = [rows, &totalPages](const auto &request, Response &response) {
        response = rows;
        response.curPage = request.pageIndex;
        response.totalPage = totalPages;
        return true;
    };
}

} // namespace

PageScene::PageScene()
{
    client.setTree(QStringLiteral("1 Company\n"
                                  "  2 Plant North\n"
                                  "  3 Plant South\n"));
    client.addChannel("gate", QStringLiteral("Gate"), "gate channel", "10.0.0.1", 1);
    client.addChannel("yard", QStringLiteral("Yard"), "yard channel", "10.0.0.2", 1);
    client.addAlarmType(1, "Motion");
    client.addAlarmType(2, "Tamper");

    TalvixGetAlarmStatisticsOfOrgasResponseMessage alarmsOfOrgas;
    alarmsOfOrgas.records = {alarmOf(1, "", 5), alarmOf(2, "", 9), alarmOf(3, "", 7)};
    manager.alarmStatisticsOfOrgas.answers(alarmsOfOrgas);

    TalvixGetAlarmStatisticsOfOrgaResponseMessage alarmsOfOrga;
    alarmsOfOrga.records = {alarmAt("2024-05-03 01", 1, 3), alarmAt("2024-05-03 02", 2, 2)};
    manager.alarmStatisticsOfOrga.answers(alarmsOfOrga);

    TalvixGetAlarmStatisticsOfDevicesResponseMessage alarmsOfDevices;
    alarmsOfDevices.records = {alarmOf(0, "gate", 4), alarmOf(0, "yard", 8)};
    answersPages(manager.alarmStatisticsOfDevices, alarmsOfDevices, totalPages);

    TalvixGetAlarmStatisticsOfDeviceResponseMessage alarmsOfDevice;
    alarmsOfDevice.records = alarmsOfOrga.records;
    manager.alarmStatisticsOfDevice.answers(alarmsOfDevice);

    TalvixGetOnlineStatisticsOfOrgasResponseMessage onlineOfOrgas;
    onlineOfOrgas.records = {onlineOf(1, "", 5), onlineOf(2, "", 9), onlineOf(3, "", 7)};
    manager.onlineStatisticsOfOrgas.answers(onlineOfOrgas);

    TalvixGetOnlineStatisticsOfOrgaResponseMessage onlineOfOrga;
    onlineOfOrga.records = {onlineAt("2024-05-03 01", 3), onlineAt("2024-05-03 02", 2)};
    manager.onlineStatisticsOfOrga.answers(onlineOfOrga);

    TalvixGetOnlineStatisticsOfDevicesResponseMessage onlineOfDevices;
    onlineOfDevices.records = {onlineOf(0, "gate", 4), onlineOf(0, "yard", 8)};
    answersPages(manager.onlineStatisticsOfDevices, onlineOfDevices, totalPages);

    TalvixGetOnlineStatisticsOfDeviceResponseMessage onlineOfDevice;
    onlineOfDevice.records = onlineOfOrga.records;
    manager.onlineStatisticsOfDevice.answers(onlineOfDevice);

    TalvixGetTemperatureStatisticsOfGroupsResponseMessage groups;
    groups.statisticsList = {{11, "Kitchen", 4}, {12, "Office", 8}};
    manager.temperatureStatisticsOfGroups.answers(groups);

    TalvixGetTemperatureStatisticsOfGroupResponseMessage group;
    group.statisticsList = {{0, "2024-05-03 01", 4}};
    manager.temperatureStatisticsOfGroup.answers(group);

    TalvixGetTemperatureStatisticsOfPersonsResponseMessage persons;
    persons.statisticsList = {{21, "Ann", 4}, {22, "Ben", 8}};
    answersPages(manager.temperatureStatisticsOfPersons, persons, totalPages);

    TalvixGetTemperatureStatisticsOfPersonResponseMessage person;
    person.statisticsList = {{1, "2024-05-03 01", 4}};
    manager.temperatureStatisticsOfPerson.answers(person);

    TalvixGetTempStatisticsDistributionOfGroupsResponseMessage groupDistribution;
    groupDistribution.byNumberList = {{1, 4}};
    groupDistribution.byEtiologyList = {{1, 3}};
    manager.tempStatisticsDistributionOfGroups.answers(groupDistribution);

    TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage handling;
    handling.handleList = {{2, 4, "2024-05-03 01"}, {0, 3, "2024-05-03 01"}};
    manager.tempAlarmHandleStatistics.answers(handling);

    TalvixGetTempStatisticsDistributionOfOrgasResponseMessage distribution;
    distribution.byTemperatureList = {{1, 4}};
    distribution.byMaskList = {{1, 3}};
    manager.temperatureOfDevice.answers(distribution);

    TalvixGetSnapSamplesResponseMessage samples;
    samples.snapSampleList = {{"2024-05-03 01", {{"gate", {{4, 6, 0}, {2, 5, 0}}}}}};
    manager.snapSamplesResource.answers(samples);

    TalvixGetSnapDetailSamplesResponseMessage details;
    details.snapDetailList = {{1, {{1, 6}}}, {2, {{1, 4}}}};
    manager.snapDetailSamples.answers(details);

    TalvixGetSnapDetailSamplesOfOrgasResponseMessage trafficsOfOrgas;
    trafficsOfOrgas.snapOrgaList = {{1, "", {{4, 6, 0}, {2, 5, 0}}}, {2, "", {{4, 2, 0}, {2, 3, 0}}}};
    manager.trafficsStatisticsOfOrgas.answers(trafficsOfOrgas);

    TalvixGetSnapDetailSamplesOfOrgaResponseMessage trafficsOfOrga;
    trafficsOfOrga.snapOrgaList = {{0, "2024-05-03 01", {{4, 6, 0}, {2, 5, 0}}}};
    manager.trafficsStatisticsOfOrga.answers(trafficsOfOrga);
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

void PageScene::forgetCalls()
{
    client.calls.clear();
    manager.calls.clear();
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
