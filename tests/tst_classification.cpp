#include "support/StatisticsScene.h"
#include "support/TestMain.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/QssFormatHelper.h>

#include <QtCharts/QtCharts>
#include <QtWidgets/QComboBox>

#include <limits>
#include <memory>

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();
constexpr int unknownMinor = -700;

using Pairs = QList<std::pair<int, int>>;

const QString pieClearing = QStringLiteral("BasicChart::clearPieChartData");

std::vector<TempDistributionItem> distribution(const Pairs &codesAndCounts)
{
    std::vector<TempDistributionItem> items;
    for (const auto &[code, count] : codesAndCounts)
        items.push_back({code, count});
    return items;
}

QString minorName(int major, int minor)
{
    return AppTranslationHelper::instance()->getSnapDetailMinorTypeName(major, minor);
}

/// A major type of the host with at least two minor types that have names, and these two.
struct KnownMajor
{
    int type = 0;
    int first = 0;
    int second = 0;
};

KnownMajor knownMajor(int beyond = 0)
{
    for (int type = beyond + 1; type < 1000; ++type) {
        KnownMajor known;
        known.type = type;
        for (int minor = 0; minor < 30; ++minor) {
            if (minorName(type, minor).isEmpty())
                continue;
            if (known.first == 0) {
                known.first = minor;
                continue;
            }
            known.second = minor;
            return known;
        }
    }
    return {};
}

QList<std::pair<QString, int>> itemsOf(const QComboBox *box)
{
    QList<std::pair<QString, int>> items;
    for (int index = 0; index < box->count(); ++index)
        items.append({box->itemText(index), box->itemData(index).toInt()});
    return items;
}

void fillDeviceGroups(StatisticsScene &scene)
{
    answerHandling(scene.manager, {{2, 5, "2024-05-03 01"}});
    answerOrgaDistribution(scene.manager, {{0, 11}}, {{1, 12}});
    scene.page.slotSearch();
    scene.forget();
}

void fillGroups(StatisticsScene &scene)
{
    answerItems(scene.manager.temperatureStatisticsOfGroups, {{93, "Ward", 4}});
    answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
    answerGroupDistribution(scene.manager, {{6, 30}}, {{1, 3}});
    scene.page.slotSearch();
    scene.forget();
}

void fillOrganisations(StatisticsScene &scene, const std::vector<SnapDetailMajorItem> &vehicles,
    const std::vector<SnapDetailMajorItem> &pedestrians)
{
    answerOrgas(scene.manager.trafficsStatisticsOfOrgas, {{41, "", {{4, 1, 0}}}});
    answerOrgas(scene.manager.trafficsStatisticsOfOrga, {{0, "2024-05-03 01", {{4, 1, 0}}}});
    answerDetails(scene.manager, vehicles, pedestrians);
    scene.page.slotSearch();
    scene.forget();
}

} // namespace

class TestClassification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void slicesOfTemperatureAndMask_data();
    void slicesOfTemperatureAndMask();
    void temperatureAndMaskEmptyThePieWithoutALine();
    void slicesOfEtiology_data();
    void slicesOfEtiology();
    void slicesOfNumber_data();
    void slicesOfNumber();
    void etiologyAndNumberClearThePieWithALine();
    void fillersTakeTheKeptLists();
    void labelsAreInTheLanguageOfTheMoment_data();
    void labelsAreInTheLanguageOfTheMoment();

    void knownMinorTypesAreNamedAndOthersAddUpAtTheEnd();
    void minorTypesOfOneNameDoNotMerge();
    void sumsOfOtherMinorTypes_data();
    void sumsOfOtherMinorTypes();
    void theFirstRecordOfTheMajorTypeCounts();
    void aMajorTypeThatIsMissingEmptiesThePie_data();
    void aMajorTypeThatIsMissingEmptiesThePie();
    void minorTypesEmptyThePieWithoutALine();

    void twoSeriesAndTheirNames_data();
    void twoSeriesAndTheirNames();

    void modesOfAGroup();
    void aGroupGoesBackToEtiologyWithEachSearch();
    void modesOfDeviceGroups();
    void deviceGroupsKeepTheirMode_data();
    void deviceGroupsKeepTheirMode();
    void modesOfTrafficAreItsMajorTypes_data();
    void modesOfTrafficAreItsMajorTypes();
    void theModeIsReadFromTheItemsData_data();
    void theModeIsReadFromTheItemsData();
    void aMajorTypeOfTrafficChoosesItsMinorTypes();
    void theChosenClassIsTheOneOfTheVehicleButton();

    void coloursOfDeviceGroupsFollowTheName_data();
    void coloursOfDeviceGroupsFollowTheName();
    void otherServicesColourByPlace();
};

void TestClassification::cleanup()
{
    HostSettings::setLanguage({});
}

void TestClassification::slicesOfTemperatureAndMask_data()
{
    QTest::addColumn<bool>("mask");
    QTest::addColumn<Pairs>("codesAndCounts");
    QTest::addColumn<LabelledValues>("pie");
    QTest::newRow("temperature 0") << false << Pairs({{0, 5}})
                                   << LabelledValues({{"TK_NormalTemperature", 5}});
    QTest::newRow("temperature 1") << false << Pairs({{1, 5}})
                                   << LabelledValues({{"TK_OvertemperatureOfHighTemperature", 5}});
    QTest::newRow("temperature 2") << false << Pairs({{2, 5}}) << LabelledValues({{"TK_LowTemp", 5}});
    QTest::newRow("temperature 3") << false << Pairs({{3, 5}})
                                   << LabelledValues({{"TK_AbnormalTemperature", 5}});
    QTest::newRow("temperature 4 makes no slice and the others do")
        << false << Pairs({{4, 7}, {2, 1}, {-1, 8}, {99, 9}, {0, 2}})
        << LabelledValues({{"TK_LowTemp", 1}, {"TK_NormalTemperature", 2}});
    QTest::newRow("a temperature count of 0 is a slice")
        << false << Pairs({{0, 0}}) << LabelledValues({{"TK_NormalTemperature", 0}});
    QTest::newRow("equal temperatures do not merge")
        << false << Pairs({{1, 3}, {0, 1}, {1, 4}})
        << LabelledValues({{"TK_OvertemperatureOfHighTemperature", 3}, {"TK_NormalTemperature", 1},
               {"TK_OvertemperatureOfHighTemperature", 4}});
    QTest::newRow("no temperature") << false << Pairs() << LabelledValues();
    QTest::newRow("mask 0") << true << Pairs({{0, 5}}) << LabelledValues({{"TK_MaskUndetected", 5}});
    QTest::newRow("mask 1") << true << Pairs({{1, 5}}) << LabelledValues({{"TK_MaskWeared", 5}});
    QTest::newRow("mask 2") << true << Pairs({{2, 5}}) << LabelledValues({{"TK_MaskUncovered", 5}});
    QTest::newRow("mask 3 makes no slice and the others do")
        << true << Pairs({{3, 7}, {2, 0}, {-1, 8}, {0, -2}})
        << LabelledValues({{"TK_MaskUncovered", 0}, {"TK_MaskUndetected", -2}});
    QTest::newRow("equal masks do not merge")
        << true << Pairs({{1, 3}, {1, 4}}) << LabelledValues({{"TK_MaskWeared", 3}, {"TK_MaskWeared", 4}});
}

void TestClassification::slicesOfTemperatureAndMask()
{
    QFETCH(bool, mask);
    QFETCH(Pairs, codesAndCounts);
    ProbePage page(9);
    page.pieDataList = {{"old", 1}};
    if (mask)
        page.setMaskPieList(distribution(codesAndCounts));
    else
        page.setTemperaturePieList(distribution(codesAndCounts));
    QTEST(page.pieDataList, "pie");
}

void TestClassification::temperatureAndMaskEmptyThePieWithoutALine()
{
    ProbePage page(9);
    LogCapture log;
    page.pieDataList = {{"old", 1}};
    page.setTemperaturePieList({});
    QCOMPARE(page.pieDataList, LabelledValues());
    page.pieDataList = {{"old", 1}};
    page.setMaskPieList({});
    QCOMPARE(page.pieDataList, LabelledValues());
    QCOMPARE(log.lines(), QStringList());
}

void TestClassification::slicesOfEtiology_data()
{
    QTest::addColumn<Pairs>("codesAndCounts");
    QTest::addColumn<LabelledValues>("pie");
    QTest::newRow("the label is the count and not the code")
        << Pairs({{5, 10}}) << LabelledValues({{"10", 10}});
    QTest::newRow("equal counts share a slice") << Pairs({{5, 10}, {6, 10}}) << LabelledValues({{"10", 20}});
    QTest::newRow("code -1 has an empty label") << Pairs({{-1, 3}}) << LabelledValues({{"", 3}});
    QTest::newRow("all of code -1 share a slice") << Pairs({{-1, 3}, {-1, 4}}) << LabelledValues({{"", 7}});
    QTest::newRow("slices keep their first place") << Pairs({{1, 5}, {-1, 2}, {2, 7}, {3, 5}, {-1, 1}})
                                                   << LabelledValues({{"5", 10}, {"", 3}, {"7", 7}});
    QTest::newRow("a third of the same count still finds its slice")
        << Pairs({{1, 5}, {2, 5}, {3, 5}}) << LabelledValues({{"5", 15}});
    QTest::newRow("a count of 0 is a slice") << Pairs({{0, 0}}) << LabelledValues({{"0", 0}});
    QTest::newRow("a negative count is a slice") << Pairs({{-2, -4}}) << LabelledValues({{"-4", -4}});
    QTest::newRow("sums wrap as 32-bit figures")
        << Pairs({{1, largest}, {2, largest}}) << LabelledValues({{"2147483647", -2}});
    QTest::newRow("nothing") << Pairs() << LabelledValues();
}

void TestClassification::slicesOfEtiology()
{
    QFETCH(Pairs, codesAndCounts);
    ProbePage page(5);
    page.pieDataList = {{"10", 1}};
    page.setEtiologyPieList(distribution(codesAndCounts));
    QTEST(page.pieDataList, "pie");
}

void TestClassification::slicesOfNumber_data()
{
    QTest::addColumn<Pairs>("abnormalAndTotal");
    QTest::addColumn<int>("abnormal");
    QTest::addColumn<int>("normal");
    QTest::newRow("nothing is 0 and 0") << Pairs() << 0 << 0;
    QTest::newRow("all records add up") << Pairs({{2, 10}, {1, 5}}) << 3 << 12;
    QTest::newRow("zeros are slices") << Pairs({{0, 0}}) << 0 << 0;
    QTest::newRow("more abnormal ones than all give a negative rest") << Pairs({{7, 5}}) << 7 << -2;
    QTest::newRow("the abnormal sum wraps") << Pairs({{largest, 0}, {1, 0}}) << smallest << smallest;
    QTest::newRow("the total wraps") << Pairs({{0, largest}, {0, 2}}) << 0 << smallest + 1;
    QTest::newRow("the difference wraps") << Pairs({{1, smallest}}) << 1 << largest;
}

void TestClassification::slicesOfNumber()
{
    QFETCH(Pairs, abnormalAndTotal);
    QFETCH(int, abnormal);
    QFETCH(int, normal);
    ProbePage page(5);
    page.pieDataList = {{"old", 1}};
    page.setNumberPieList(distribution(abnormalAndTotal));
    QCOMPARE(page.pieDataList, LabelledValues({{"TK_Abnormal", abnormal}, {"TK_Normal", normal}}));
}

void TestClassification::etiologyAndNumberClearThePieWithALine()
{
    ProbePage page(5);
    LogCapture log;
    page.setEtiologyPieList({});
    page.setNumberPieList({});
    QCOMPARE(log.lines(), QStringList({pieClearing, pieClearing}));
}

void TestClassification::fillersTakeTheKeptLists()
{
    ProbePage page(9);
    page.temperatureDistribution = {{0, 1}};
    page.setTemperaturePieList(page.temperatureDistribution);
    QCOMPARE(page.pieDataList, LabelledValues({{"TK_NormalTemperature", 1}}));
    page.maskDistribution = {{0, 2}};
    page.setMaskPieList(page.maskDistribution);
    QCOMPARE(page.pieDataList, LabelledValues({{"TK_MaskUndetected", 2}}));
    page.etiologyDistribution = {{0, 3}};
    page.setEtiologyPieList(page.etiologyDistribution);
    QCOMPARE(page.pieDataList, LabelledValues({{"3", 3}}));
    page.numberDistribution = {{4, 9}};
    page.setNumberPieList(page.numberDistribution);
    QCOMPARE(page.pieDataList, LabelledValues({{"TK_Abnormal", 4}, {"TK_Normal", 5}}));
    QCOMPARE(page.temperatureDistribution.size(), std::size_t(1));
    QCOMPARE(page.maskDistribution.size(), std::size_t(1));
    QCOMPARE(page.etiologyDistribution.size(), std::size_t(1));
    QCOMPARE(page.numberDistribution.size(), std::size_t(1));
}

void TestClassification::labelsAreInTheLanguageOfTheMoment_data()
{
    QTest::addColumn<QString>("filler");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("temperature") << "temperature"
                                 << QStringList(
                                        {"TK_NormalTemperature", "TK_OvertemperatureOfHighTemperature",
                                            "TK_LowTemp", "TK_AbnormalTemperature"});
    QTest::newRow("mask") << "mask"
                          << QStringList({"TK_MaskUndetected", "TK_MaskWeared", "TK_MaskUncovered"});
    QTest::newRow("number") << "number" << QStringList({"TK_Abnormal", "TK_Normal"});
    QTest::newRow("minor types") << "minor" << QStringList({"TK_Other"});
}

void TestClassification::labelsAreInTheLanguageOfTheMoment()
{
    QFETCH(QString, filler);
    QFETCH(QStringList, keys);
    QVERIFY(HostSettings::setLanguage(QStringLiteral("x-long")));
    ProbePage page(9);
    const std::vector<TempDistributionItem> all = {{0, 1}, {1, 2}, {2, 3}, {3, 4}};
    if (filler == QLatin1String("temperature"))
        page.setTemperaturePieList(all);
    else if (filler == QLatin1String("mask"))
        page.setMaskPieList(all);
    else if (filler == QLatin1String("number"))
        page.setNumberPieList(all);
    else
        page.setSnapMinorPieList({{1, {{unknownMinor, 1}}}}, 1);

    QStringList labels;
    for (const QString &key : std::as_const(keys)) {
        const QString label = AppLanguageTr::instance()->translate(key, AppLanguageTr::Sentence, -1);
        QVERIFY(label != key);
        labels.append(label);
    }
    QCOMPARE(listKeys(page.pieDataList), labels);
    HostSettings::setLanguage({});
    QCOMPARE(listKeys(page.pieDataList), labels);
}

void TestClassification::knownMinorTypesAreNamedAndOthersAddUpAtTheEnd()
{
    const KnownMajor known = knownMajor();
    QVERIFY(known.second != 0);
    ProbePage page(7);
    page.pieDataList = {{"old", 1}};
    page.setSnapMinorPieList(
        {{known.type, {{unknownMinor, 2}, {known.second, 40}, {-701, 3}, {known.first, 0}}}}, known.type);
    QCOMPARE(page.pieDataList,
        LabelledValues({{minorName(known.type, known.second), 40}, {minorName(known.type, known.first), 0},
            {"TK_Other", 5}}));
}

void TestClassification::minorTypesOfOneNameDoNotMerge()
{
    const KnownMajor known = knownMajor();
    ProbePage page(7);
    page.setSnapMinorPieList({{known.type, {{known.first, 2}, {known.first, 3}}}}, known.type);
    const QString name = minorName(known.type, known.first);
    QCOMPARE(page.pieDataList, LabelledValues({{name, 2}, {name, 3}}));
}

void TestClassification::sumsOfOtherMinorTypes_data()
{
    QTest::addColumn<QList<int>>("counts");
    QTest::addColumn<LabelledValues>("pie");
    QTest::newRow("two unknown ones are one slice")
        << QList<int>({2, 3}) << LabelledValues({{"TK_Other", 5}});
    QTest::newRow("zeros make none") << QList<int>({0, 0}) << LabelledValues();
    QTest::newRow("1 makes one") << QList<int>({1, 0}) << LabelledValues({{"TK_Other", 1}});
    QTest::newRow("a negative sum makes none") << QList<int>({5, -6}) << LabelledValues();
    QTest::newRow("a sum beyond 32 bits is negative and makes none")
        << QList<int>({largest, 1}) << LabelledValues();
}

void TestClassification::sumsOfOtherMinorTypes()
{
    QFETCH(QList<int>, counts);
    ProbePage page(7);
    SnapDetailMajorItem item;
    item.majorType = 1;
    for (const int count : std::as_const(counts))
        item.minors.push_back({unknownMinor, count});
    page.setSnapMinorPieList({item}, 1);
    QTEST(page.pieDataList, "pie");
}

void TestClassification::theFirstRecordOfTheMajorTypeCounts()
{
    ProbePage page(7);
    page.setSnapMinorPieList(
        {{1, {{unknownMinor, 1}}}, {2, {{unknownMinor, 20}}}, {2, {{unknownMinor, 300}}}}, 2);
    QCOMPARE(page.pieDataList, LabelledValues({{"TK_Other", 20}}));
    page.setSnapMinorPieList({{2, {}}, {2, {{unknownMinor, 300}}}}, 2);
    QCOMPARE(page.pieDataList, LabelledValues());
}

void TestClassification::aMajorTypeThatIsMissingEmptiesThePie_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("among other major types") << 2;
    QTest::newRow("in an empty list") << 0;
}

void TestClassification::aMajorTypeThatIsMissingEmptiesThePie()
{
    QFETCH(int, count);
    ProbePage page(7);
    page.pieDataList = {{"old", 1}};
    page.setSnapMinorPieList(
        std::vector<SnapDetailMajorItem>(static_cast<std::size_t>(count), {1, {{unknownMinor, 1}}}), 3);
    QCOMPARE(page.pieDataList, LabelledValues());
}

void TestClassification::minorTypesEmptyThePieWithoutALine()
{
    ProbePage page(7);
    LogCapture log;
    page.setSnapMinorPieList({{1, {{unknownMinor, 1}}}}, 1);
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(page.pieDataList, LabelledValues({{"TK_Other", 1}}));
}

void TestClassification::twoSeriesAndTheirNames_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("traffics of organisations") << 7 << QStringList({"TK_Vehicle", "TK_Pedestrian"});
    QTest::newRow("traffics of devices") << 8 << QStringList({"TK_Vehicle", "TK_Pedestrian"});
    QTest::newRow("device groups") << 9 << QStringList({"TK_AlarmAccepted", "TK_AlarmUnAccepted"});
}

void TestClassification::twoSeriesAndTheirNames()
{
    QFETCH(int, type);
    StatisticsScene scene(type);
    scene.client.addChannel("cam", QStringLiteral("Gate"));
    const std::vector<SnapTypeCount> everyClass = {{0, 1, 0}, {1, 2, 0}, {2, 30, 0}, {3, 4, 0}, {4, 500, 0}};
    answerOrgas(scene.manager.trafficsStatisticsOfOrgas, {{41, "", everyClass}});
    answerOrgas(scene.manager.trafficsStatisticsOfOrga, {{0, "hour", everyClass}});
    answerSamples(scene.manager, {{"hour", {{"cam", everyClass}}}});
    answerHandling(scene.manager, {{0, 30, "hour"}, {1, 1, "hour"}, {2, 500, "hour"}, {4, 2, "hour"}});
    scene.page.slotSearch();
    QTEST(scene.page.lineNames, "names");
    QCOMPARE(listValues(scene.page.barDataList), QList<int>({500}));
    QCOMPARE(listValues(scene.page.barDataList2), QList<int>({30}));
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"hour", 500}}));
    QCOMPARE(scene.page.lineDataList2, LabelledValues({{"hour", 30}}));
}

void TestClassification::modesOfAGroup()
{
    StatisticsScene scene(5);
    fillGroups(scene);
    QCOMPARE(itemsOf(scene.page.comboBoxPie), LabelledValues({{"TK_ByEtiology", 2}, {"TK_ByNumber", 1}}));
    QCOMPARE(scene.page.comboBoxPie->currentIndex(), 0);
}

void TestClassification::aGroupGoesBackToEtiologyWithEachSearch()
{
    StatisticsScene scene(5);
    fillGroups(scene);
    scene.page.comboBoxPie->setCurrentIndex(1);
    scene.page.slotSearch();
    QCOMPARE(scene.page.comboBoxPie->currentIndex(), 0);
    QCOMPARE(scene.page.comboBoxPie->count(), 2);
}

void TestClassification::modesOfDeviceGroups()
{
    StatisticsScene scene(9);
    fillDeviceGroups(scene);
    QCOMPARE(itemsOf(scene.page.comboBoxPie), LabelledValues({{"TK_ByTemperature", 1}, {"TK_ByMask", 2}}));
    QCOMPARE(scene.page.comboBoxPie->currentIndex(), 0);
}

void TestClassification::deviceGroupsKeepTheirMode_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<LabelledValues>("pie");
    QTest::newRow("temperature") << 0 << 0 << LabelledValues({{"TK_NormalTemperature", 11}});
    QTest::newRow("mask") << 1 << 1 << LabelledValues({{"TK_MaskWeared", 12}});
    QTest::newRow("a third item goes to the first") << 2 << 0 << LabelledValues();
    QTest::newRow("no item goes to the first") << -1 << 0 << LabelledValues();
}

void TestClassification::deviceGroupsKeepTheirMode()
{
    QFETCH(int, before);
    StatisticsScene scene(9);
    fillDeviceGroups(scene);
    scene.page.comboBoxPie->addItem(QStringLiteral("third"), 3);
    scene.page.comboBoxPie->setCurrentIndex(before);
    scene.page.slotSearch();
    QTEST(scene.page.comboBoxPie->currentIndex(), "after");
    QCOMPARE(itemsOf(scene.page.comboBoxPie), LabelledValues({{"TK_ByTemperature", 1}, {"TK_ByMask", 2}}));
    QTEST(scene.page.pieDataList, "pie");
}

void TestClassification::modesOfTrafficAreItsMajorTypes_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QList<int>>("types");
    const KnownMajor first = knownMajor();
    const KnownMajor second = knownMajor(first.type);
    QTest::newRow("of vehicles") << QByteArray("carRadio") << QList<int>({second.type, 987654, first.type});
    QTest::newRow("of pedestrians") << QByteArray("personRadio") << QList<int>({first.type});
}

void TestClassification::modesOfTrafficAreItsMajorTypes()
{
    QFETCH(QByteArray, button);
    QFETCH(QList<int>, types);
    const KnownMajor first = knownMajor();
    const KnownMajor second = knownMajor(first.type);
    QVERIFY(second.type > first.type);
    StatisticsScene scene(7);
    scene.press(button.constData());
    fillOrganisations(scene,
        {{second.type, {{unknownMinor, 1}}}, {987654, {}}, {first.type, {{unknownMinor, 2}}}},
        {{first.type, {{unknownMinor, 4}}}});
    LabelledValues expected;
    for (const int type : std::as_const(types))
        expected.append({AppTranslationHelper::instance()->getSnapDetailMajorTypeName(type), type});
    QCOMPARE(itemsOf(scene.page.comboBoxPie), expected);
    QCOMPARE(scene.page.comboBoxPie->currentIndex(), 0);
}

void TestClassification::theModeIsReadFromTheItemsData_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("data");
    QTest::addColumn<LabelledValues>("pie");
    QTest::newRow("group, data 2") << 5 << 2 << LabelledValues({{"30", 30}});
    QTest::newRow("group, data 1") << 5 << 1 << LabelledValues({{"TK_Normal", 2}, {"TK_Abnormal", 1}});
    QTest::newRow("device groups, data 1") << 9 << 1 << LabelledValues({{"TK_NormalTemperature", 11}});
    QTest::newRow("device groups, data 2") << 9 << 2 << LabelledValues({{"TK_MaskWeared", 12}});
}

void TestClassification::theModeIsReadFromTheItemsData()
{
    QFETCH(int, type);
    QFETCH(int, data);
    StatisticsScene scene(type);
    if (type == 5)
        fillGroups(scene);
    else
        fillDeviceGroups(scene);
    for (int index = 0; index < 2; ++index) {
        scene.page.pieDataList = {{"old", 1}};
        scene.page.comboBoxPie->setItemData(index, data);
        scene.page.slot_switchPieType(index);
        QTEST(scene.page.pieDataList, "pie");
    }
}

void TestClassification::aMajorTypeOfTrafficChoosesItsMinorTypes()
{
    StatisticsScene scene(7);
    fillOrganisations(
        scene, {{31, {{unknownMinor, 5}}}, {32, {{unknownMinor, 6}}}}, {{33, {{unknownMinor, 7}}}});
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_Other", 5}}));
    QTest::keyClick(scene.page.comboBoxPie, Qt::Key_Down);
    QCOMPARE(scene.page.comboBoxPie->currentData().toInt(), 32);
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_Other", 6}}));
}

void TestClassification::theChosenClassIsTheOneOfTheVehicleButton()
{
    StatisticsScene scene(7);
    fillOrganisations(scene, {{31, {{unknownMinor, 5}}}}, {{33, {{unknownMinor, 7}}}});
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_Other", 5}}));
    scene.press("personRadio");
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_Other", 7}}));
    QCOMPARE(itemsOf(scene.page.comboBoxPie), LabelledValues({{"33", 33}}));
    scene.press("carRadio");
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_Other", 5}}));
}

void TestClassification::coloursOfDeviceGroupsFollowTheName_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("themeKey");
    QTest::newRow("normal") << "TK_NormalTemperature"
                            << "$word_normaltemp";
    QTest::newRow("high") << "TK_OvertemperatureOfHighTemperature"
                          << "$word_overtemp";
    QTest::newRow("low") << "TK_LowTemp"
                         << "$word_lowtemp";
    QTest::newRow("abnormal") << "TK_AbnormalTemperature"
                              << "$word_anormaltemp";
    QTest::newRow("worn") << "TK_MaskWeared"
                          << "$word_weared";
    QTest::newRow("not worn") << "TK_MaskUncovered"
                              << "$word_uncovered";
    QTest::newRow("not seen") << "TK_MaskUndetected"
                              << "$word_undetected";
    QTest::newRow("a name of no class keeps the colour of the series") << "Elsewhere"
                                                                       << "";
    QTest::newRow("a name is compared by case") << "tk_lowtemp"
                                                << "";
    QTest::newRow("a name is compared whole") << "TK_LowTemp "
                                              << "";
}

void TestClassification::coloursOfDeviceGroupsFollowTheName()
{
    QFETCH(QString, key);
    QFETCH(QString, themeKey);
    QChart bare;
    auto *series = new QPieSeries(&bare);
    series->append(QStringLiteral("bare"), 1);
    bare.addSeries(series);

    for (const QString &language : {QString(), QStringLiteral("x-long")}) {
        HostSettings::setLanguage(language);
        ProbePage page(9);
        page.pieDataList = {{AppLanguageTr::instance()->translate(key, AppLanguageTr::Sentence, -1), 4}};
        const std::unique_ptr<QChart> chart(page.createPieChart());
        const auto *pie = qobject_cast<QPieSeries *>(chart->series().value(0));
        QVERIFY(pie);
        QCOMPARE(pie->count(), 1);
        const QColor expected = themeKey.isEmpty() ? series->slices().first()->color()
                                                   : QssFormatHelper::getInstance()->findColorByKey(themeKey);
        QVERIFY(expected.isValid());
        QCOMPARE(pie->slices().first()->color().name(), expected.name());
    }
}

void TestClassification::otherServicesColourByPlace()
{
    ProbePage page(5);
    page.pieDataList = {{"TK_LowTemp", 9}, {"TK_MaskWeared", 4}};
    const std::unique_ptr<QChart> chart(page.createPieChart());
    const auto *pie = qobject_cast<QPieSeries *>(chart->series().value(0));
    QVERIFY(pie);
    QCOMPARE(pie->slices().at(0)->color().name(),
        QssFormatHelper::getInstance()->findColorByKey(QStringLiteral("$background_chart_color_1")).name());
    QCOMPARE(pie->slices().at(1)->color().name(), QColor(225, 79, 113).name());
}

TALVIX_TEST_MAIN(TestClassification)
#include "tst_classification.moc"
