#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/QssFormatHelper.h>

#include <QtCharts/QtCharts>
#include <QtWidgets/QComboBox>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int unknownMinor = -700;

using Pairs = QList<std::pair<int, int>>;

const QString pieClearing = u"BasicChart::clearPieChartData"_s;

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
    void cleanup() { HostSettings::setLanguage({}); }

    void slicesOfTemperatureAndMask_data()
    {
        table<bool, Pairs, LabelledValues>({"mask", "codesAndCounts", "pie"},
            {
                {"temperature 0", false, {{0, 5}}, {{"TK_NormalTemperature", 5}}},
                {"temperature 1", false, {{1, 5}}, {{"TK_OvertemperatureOfHighTemperature", 5}}},
                {"temperature 2", false, {{2, 5}}, {{"TK_LowTemp", 5}}},
                {"temperature 3", false, {{3, 5}}, {{"TK_AbnormalTemperature", 5}}},
                {"temperature 4 makes no slice and the others do", false,
                    {{4, 7}, {2, 1}, {-1, 8}, {99, 9}, {0, 2}},
                    {{"TK_LowTemp", 1}, {"TK_NormalTemperature", 2}}},
                {"a temperature count of 0 is a slice", false, {{0, 0}}, {{"TK_NormalTemperature", 0}}},
                {"equal temperatures do not merge", false, {{1, 3}, {0, 1}, {1, 4}},
                    {{"TK_OvertemperatureOfHighTemperature", 3}, {"TK_NormalTemperature", 1},
                        {"TK_OvertemperatureOfHighTemperature", 4}}},
                {"no temperature", false, {}, {}},
                {"mask 0", true, {{0, 5}}, {{"TK_MaskUndetected", 5}}},
                {"mask 1", true, {{1, 5}}, {{"TK_MaskWeared", 5}}},
                {"mask 2", true, {{2, 5}}, {{"TK_MaskUncovered", 5}}},
                {"mask 3 makes no slice and the others do", true, {{3, 7}, {2, 0}, {-1, 8}, {0, -2}},
                    {{"TK_MaskUncovered", 0}, {"TK_MaskUndetected", -2}}},
                {"equal masks do not merge", true, {{1, 3}, {1, 4}},
                    {{"TK_MaskWeared", 3}, {"TK_MaskWeared", 4}}},
            });
    }

    void slicesOfTemperatureAndMask()
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

    void temperatureAndMaskEmptyThePieWithoutALine()
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

    void slicesOfEtiology_data()
    {
        table<Pairs, LabelledValues>({"codesAndCounts", "pie"},
            {
                {"the label is the count and not the code", {{5, 10}}, {{"10", 10}}},
                {"equal counts share a slice", {{5, 10}, {6, 10}}, {{"10", 20}}},
                {"code -1 has an empty label", {{-1, 3}}, {{"", 3}}},
                {"all of code -1 share a slice", {{-1, 3}, {-1, 4}}, {{"", 7}}},
                {"slices keep their first place", {{1, 5}, {-1, 2}, {2, 7}, {3, 5}, {-1, 1}},
                    {{"5", 10}, {"", 3}, {"7", 7}}},
                {"a third of the same count still finds its slice", {{1, 5}, {2, 5}, {3, 5}}, {{"5", 15}}},
                {"a count of 0 is a slice", {{0, 0}}, {{"0", 0}}},
                {"a negative count is a slice", {{-2, -4}}, {{"-4", -4}}},
                {"sums wrap as 32-bit figures", {{1, largest}, {2, largest}}, {{"2147483647", -2}}},
                {"nothing", {}, {}},
            });
    }

    void slicesOfEtiology()
    {
        QFETCH(Pairs, codesAndCounts);
        ProbePage page(5);
        page.pieDataList = {{"10", 1}};
        page.setEtiologyPieList(distribution(codesAndCounts));
        QTEST(page.pieDataList, "pie");
    }

    void slicesOfNumber_data()
    {
        table<Pairs, int, int>({"abnormalAndTotal", "abnormal", "normal"},
            {
                {"nothing is 0 and 0", {}, 0, 0},
                {"all records add up", {{2, 10}, {1, 5}}, 3, 12},
                {"zeros are slices", {{0, 0}}, 0, 0},
                {"more abnormal ones than all give a negative rest", {{7, 5}}, 7, -2},
                {"the abnormal sum wraps", {{largest, 0}, {1, 0}}, smallest, smallest},
                {"the total wraps", {{0, largest}, {0, 2}}, 0, smallest + 1},
                {"the difference wraps", {{1, smallest}}, 1, largest},
            });
    }

    void slicesOfNumber()
    {
        QFETCH(Pairs, abnormalAndTotal);
        QFETCH(int, abnormal);
        QFETCH(int, normal);
        ProbePage page(5);
        page.pieDataList = {{"old", 1}};
        page.setNumberPieList(distribution(abnormalAndTotal));
        QCOMPARE(page.pieDataList, LabelledValues({{"TK_Abnormal", abnormal}, {"TK_Normal", normal}}));
    }

    void etiologyAndNumberClearThePieWithALine()
    {
        ProbePage page(5);
        LogCapture log;
        page.setEtiologyPieList({});
        page.setNumberPieList({});
        QCOMPARE(log.lines(), QStringList({pieClearing, pieClearing}));
    }

    void fillersTakeTheKeptLists()
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

    void labelsAreInTheLanguageOfTheMoment_data()
    {
        table<QString, QStringList>({"filler", "keys"},
            {
                {"temperature", "temperature",
                    {"TK_NormalTemperature", "TK_OvertemperatureOfHighTemperature", "TK_LowTemp",
                        "TK_AbnormalTemperature"}},
                {"mask", "mask", {"TK_MaskUndetected", "TK_MaskWeared", "TK_MaskUncovered"}},
                {"number", "number", {"TK_Abnormal", "TK_Normal"}},
                {"minor types", "minor", {"TK_Other"}},
            });
    }

    void labelsAreInTheLanguageOfTheMoment()
    {
        QFETCH(QString, filler);
        QFETCH(QStringList, keys);
        QVERIFY(HostSettings::setLanguage(u"x-long"_s));
        ProbePage page(9);
        const std::vector<TempDistributionItem> all = {{0, 1}, {1, 2}, {2, 3}, {3, 4}};
        if (filler == "temperature"_L1)
            page.setTemperaturePieList(all);
        else if (filler == "mask"_L1)
            page.setMaskPieList(all);
        else if (filler == "number"_L1)
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

    void knownMinorTypesAreNamedAndOthersAddUpAtTheEnd()
    {
        const KnownMajor known = knownMajor();
        QVERIFY(known.second != 0);
        ProbePage page(7);
        page.pieDataList = {{"old", 1}};
        page.setSnapMinorPieList(
            {{known.type, {{unknownMinor, 2}, {known.second, 40}, {-701, 3}, {known.first, 0}}}}, known.type);
        QCOMPARE(page.pieDataList,
            LabelledValues({{minorName(known.type, known.second), 40},
                {minorName(known.type, known.first), 0}, {"TK_Other", 5}}));
    }

    void minorTypesOfOneNameDoNotMerge()
    {
        const KnownMajor known = knownMajor();
        ProbePage page(7);
        page.setSnapMinorPieList({{known.type, {{known.first, 2}, {known.first, 3}}}}, known.type);
        const QString name = minorName(known.type, known.first);
        QCOMPARE(page.pieDataList, LabelledValues({{name, 2}, {name, 3}}));
    }

    void sumsOfOtherMinorTypes_data()
    {
        table<QList<int>, LabelledValues>({"counts", "pie"},
            {
                {"two unknown ones are one slice", {2, 3}, {{"TK_Other", 5}}},
                {"zeros make none", {0, 0}, {}},
                {"1 makes one", {1, 0}, {{"TK_Other", 1}}},
                {"a negative sum makes none", {5, -6}, {}},
                {"a sum beyond 32 bits is negative and makes none", {largest, 1}, {}},
            });
    }

    void sumsOfOtherMinorTypes()
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

    void theFirstRecordOfTheMajorTypeCounts()
    {
        ProbePage page(7);
        page.setSnapMinorPieList(
            {{1, {{unknownMinor, 1}}}, {2, {{unknownMinor, 20}}}, {2, {{unknownMinor, 300}}}}, 2);
        QCOMPARE(page.pieDataList, LabelledValues({{"TK_Other", 20}}));
        page.setSnapMinorPieList({{2, {}}, {2, {{unknownMinor, 300}}}}, 2);
        QCOMPARE(page.pieDataList, LabelledValues());
    }

    void aMajorTypeThatIsMissingEmptiesThePie_data()
    {
        table<int>({"count"}, {{"among other major types", 2}, {"in an empty list", 0}});
    }

    void aMajorTypeThatIsMissingEmptiesThePie()
    {
        QFETCH(int, count);
        ProbePage page(7);
        page.pieDataList = {{"old", 1}};
        page.setSnapMinorPieList(
            std::vector<SnapDetailMajorItem>(static_cast<std::size_t>(count), {1, {{unknownMinor, 1}}}), 3);
        QCOMPARE(page.pieDataList, LabelledValues());
    }

    void minorTypesEmptyThePieWithoutALine()
    {
        ProbePage page(7);
        LogCapture log;
        page.setSnapMinorPieList({{1, {{unknownMinor, 1}}}}, 1);
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(page.pieDataList, LabelledValues({{"TK_Other", 1}}));
    }

    void twoSeriesAndTheirNames_data()
    {
        table<int, QStringList>({"type", "names"},
            {
                {"traffics of organisations", 7, {"TK_Vehicle", "TK_Pedestrian"}},
                {"traffics of devices", 8, {"TK_Vehicle", "TK_Pedestrian"}},
                {"device groups", 9, {"TK_AlarmAccepted", "TK_AlarmUnAccepted"}},
            });
    }

    void twoSeriesAndTheirNames()
    {
        QFETCH(int, type);
        StatisticsScene scene(type);
        scene.client.addChannel("cam", u"Gate"_s);
        const std::vector<SnapTypeCount> everyClass = {
            {0, 1, 0}, {1, 2, 0}, {2, 30, 0}, {3, 4, 0}, {4, 500, 0}};
        answerOrgas(scene.manager.trafficsStatisticsOfOrgas, {{41, "", everyClass}});
        answerOrgas(scene.manager.trafficsStatisticsOfOrga, {{0, "hour", everyClass}});
        answerSamples(scene.manager, {{"hour", {{"cam", everyClass}}}});
        answerHandling(scene.manager, {{0, 30, "hour"}, {1, 1, "hour"}, {2, 500, "hour"}, {4, 2, "hour"}});
        scene.page.slotSearch();
        QTEST(scene.page.lineNames, "names");
        QCOMPARE(listValues(scene.page.barDataList), QList<int>({500}));
        QCOMPARE(listValues(scene.page.barDataList2), QList<int>({30}));
        QCOMPARE(scene.lines(), DualValues({{"hour", 500, 30}}));
    }

    void modesOfAGroup()
    {
        StatisticsScene scene(5);
        fillGroups(scene);
        QCOMPARE(itemsOf(scene.page.comboBoxPie), LabelledValues({{"TK_ByEtiology", 2}, {"TK_ByNumber", 1}}));
        QCOMPARE(scene.page.comboBoxPie->currentIndex(), 0);
    }

    void aGroupGoesBackToEtiologyWithEachSearch()
    {
        StatisticsScene scene(5);
        fillGroups(scene);
        scene.page.comboBoxPie->setCurrentIndex(1);
        scene.page.slotSearch();
        QCOMPARE(scene.page.comboBoxPie->currentIndex(), 0);
        QCOMPARE(scene.page.comboBoxPie->count(), 2);
    }

    void modesOfDeviceGroups()
    {
        StatisticsScene scene(9);
        fillDeviceGroups(scene);
        QCOMPARE(
            itemsOf(scene.page.comboBoxPie), LabelledValues({{"TK_ByTemperature", 1}, {"TK_ByMask", 2}}));
        QCOMPARE(scene.page.comboBoxPie->currentIndex(), 0);
    }

    void deviceGroupsKeepTheirMode_data()
    {
        table<int, int, LabelledValues>({"before", "after", "pie"},
            {
                {"temperature", 0, 0, {{"TK_NormalTemperature", 11}}},
                {"mask", 1, 1, {{"TK_MaskWeared", 12}}},
                {"a third item goes to the first", 2, 0, {}},
                {"no item goes to the first", -1, 0, {}},
            });
    }

    void deviceGroupsKeepTheirMode()
    {
        QFETCH(int, before);
        StatisticsScene scene(9);
        fillDeviceGroups(scene);
        scene.page.comboBoxPie->addItem(u"third"_s, 3);
        scene.page.comboBoxPie->setCurrentIndex(before);
        scene.page.slotSearch();
        QTEST(scene.page.comboBoxPie->currentIndex(), "after");
        QCOMPARE(
            itemsOf(scene.page.comboBoxPie), LabelledValues({{"TK_ByTemperature", 1}, {"TK_ByMask", 2}}));
        QTEST(scene.page.pieDataList, "pie");
    }

    void modesOfTrafficAreItsMajorTypes_data()
    {
        const KnownMajor first = knownMajor();
        const KnownMajor second = knownMajor(first.type);
        table<QByteArray, QList<int>>({"button", "types"},
            {
                {"of vehicles", "carRadio", {second.type, 987654, first.type}},
                {"of pedestrians", "personRadio", {first.type}},
            });
    }

    void modesOfTrafficAreItsMajorTypes()
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

    void theModeIsReadFromTheItemsData_data()
    {
        table<int, int, LabelledValues>({"type", "data", "pie"},
            {
                {"group, data 2", 5, 2, {{"30", 30}}},
                {"group, data 1", 5, 1, {{"TK_Normal", 2}, {"TK_Abnormal", 1}}},
                {"device groups, data 1", 9, 1, {{"TK_NormalTemperature", 11}}},
                {"device groups, data 2", 9, 2, {{"TK_MaskWeared", 12}}},
            });
    }

    void theModeIsReadFromTheItemsData()
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

    void aMajorTypeOfTrafficChoosesItsMinorTypes()
    {
        StatisticsScene scene(7);
        fillOrganisations(
            scene, {{31, {{unknownMinor, 5}}}, {32, {{unknownMinor, 6}}}}, {{33, {{unknownMinor, 7}}}});
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_Other", 5}}));
        QTest::keyClick(scene.page.comboBoxPie, Qt::Key_Down);
        QCOMPARE(scene.page.comboBoxPie->currentData().toInt(), 32);
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_Other", 6}}));
    }

    void theChosenClassIsTheOneOfTheVehicleButton()
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

    void coloursOfDeviceGroupsFollowTheName_data()
    {
        table<QString, QString>({"key", "themeKey"},
            {
                {"normal", "TK_NormalTemperature", "$word_normaltemp"},
                {"high", "TK_OvertemperatureOfHighTemperature", "$word_overtemp"},
                {"low", "TK_LowTemp", "$word_lowtemp"},
                {"abnormal", "TK_AbnormalTemperature", "$word_anormaltemp"},
                {"worn", "TK_MaskWeared", "$word_weared"},
                {"not worn", "TK_MaskUncovered", "$word_uncovered"},
                {"not seen", "TK_MaskUndetected", "$word_undetected"},
                {"a name of no class keeps the colour of the series", "Elsewhere", ""},
                {"a name is compared by case", "tk_lowtemp", ""},
                {"a name is compared whole", "TK_LowTemp ", ""},
            });
    }

    void coloursOfDeviceGroupsFollowTheName()
    {
        QFETCH(QString, key);
        QFETCH(QString, themeKey);
        QChart bare;
        auto *series = new QPieSeries(&bare);
        series->append(u"bare"_s, 1);
        bare.addSeries(series);

        for (const QString &language : {QString(), u"x-long"_s}) {
            HostSettings::setLanguage(language);
            ProbePage page(9);
            page.pieDataList = {{AppLanguageTr::instance()->translate(key, AppLanguageTr::Sentence, -1), 4}};
            const std::unique_ptr<QChart> chart(page.createPieChart());
            const auto *pie = qobject_cast<QPieSeries *>(chart->series().value(0));
            QVERIFY(pie);
            QCOMPARE(pie->count(), 1);
            const QColor expected = themeKey.isEmpty()
                ? series->slices().first()->color()
                : QssFormatHelper::getInstance()->findColorByKey(themeKey);
            QVERIFY(expected.isValid());
            QCOMPARE(pie->slices().first()->color().name(), expected.name());
        }
    }

    void otherServicesColourByPlace()
    {
        ProbePage page(5);
        page.pieDataList = {{"TK_LowTemp", 9}, {"TK_MaskWeared", 4}};
        const std::unique_ptr<QChart> chart(page.createPieChart());
        const auto *pie = qobject_cast<QPieSeries *>(chart->series().value(0));
        QVERIFY(pie);
        QCOMPARE(pie->slices().at(0)->color().name(),
            QssFormatHelper::getInstance()->findColorByKey(u"$background_chart_color_1"_s).name());
        QCOMPARE(pie->slices().at(1)->color().name(), QColor(225, 79, 113).name());
    }
};

TALVIX_TEST_MAIN(TestClassification)
#include "tst_classification.moc"
