#include "support/ScenePage.h"
#include "support/TestMain.h"
#include "support/TestTable.h"
#include "support/TextRecorder.h"
#include "support/TitleKeys.h"

#include <export/TempResultExportWidget.h>
#include <plugin/DataStaticsWidget.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtWidgets/QLabel>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
const QString sentence = " 1";
const QStringList fixedTexts = {
    "TK_Vehicle 2", "TK_Pedestrian 2", "TK_Export 1", "TK_Month 2", "TK_Day 2", "TK_Hour 2", "TK_sort 1"};
const QStringList sumModes = {"TK_LowSum 1", "TK_AllSum 1", "TK_OnlyCurrent 1"};
const QStringList lines = {"TK_Vehicle 1", "TK_Pedestrian 1"};

/// What is asked for, each once, in the order of the alphabet.
QStringList eachOnce(QStringList asked)
{
    asked.removeDuplicates();
    asked.sort();
    return asked;
}

} // namespace

/// In which form each place asks for its text: sentences (1), short texts of buttons (2), texts of tabs (3).
class TestTextForms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabsAskForTitles()
    {
        DataStaticsWidget widget;
        const QStringList titles = {"TK_OrganizationAlm 3", "TK_DeviceAlmStatistics 3",
            "TK_OrganizationOnline 3", "TK_DeviceOnline 3"};
        const TextRecorder texts;
        widget.retranslateUi();
        QCOMPARE(texts.asked, titles);
    }

    void theDialogAsksForItsTexts()
    {
        const TextRecorder texts;
        const TempResultExportWidget dialog(nullptr);
        QCOMPARE(texts.asked,
            QStringList({"TK_Export 1", "TK_ExportMode 1", "Excel 1", "PDF 1", "TK_OK 1", "TK_Cancel 2",
                "TK_Close 1"}));
    }

    void aPageSetsUpItsTextsInOrder()
    {
        const FakeKrxClient client;
        ProbePage page(1);
        const TextRecorder texts;
        page.initForm();
        QCOMPARE(texts.asked,
            QStringList({"TK_AscMode 1", "TK_DescMode 1"}) + sumModes
                + QStringList({"TK_Vehicle 2", "TK_Pedestrian 2"}) + lines + fixedTexts);
    }

    void aLanguageChangeRenewsTheFixedTexts()
    {
        const FakeKrxClient client;
        ProbePage page(1);
        page.initForm();
        const TextRecorder texts;
        page.retranslateUi();
        const QStringList titles = {"TK_AlarmStatisticsOfNum 1", "TK_AlarmStatisticsOfOrgas 1",
            "TK_AlarmStatisticsOfType 1", "TK_Hour 1"};
        QCOMPARE(texts.asked.mid(0, fixedTexts.size()), fixedTexts);
        QCOMPARE(eachOnce(texts.asked.mid(fixedTexts.size(), titles.size() + 1)), titles);
        QCOMPARE(texts.asked.mid(fixedTexts.size() + titles.size() + 1), sumModes);
    }

    void titlesAreSentences_data() { titleKeyRows(); }
    void titlesAreSentences()
    {
        QFETCH(TitleKeys, keys);
        ProbePage page(keys.type);
        TextRecorder texts;
        page.getChartTitle(page.part<QLabel>("labelBarChartTitle"));
        QCOMPARE(texts.asked, QStringList{keys.bar + sentence});
        const std::pair<int, QString> units[] = {
            {1, "TK_Month 1"}, {2, "TK_Day 1"}, {3, "TK_Hour 1"}, {4, "TK_Month 1"}};
        for (const auto &[unit, word] : units) {
            page.m_nTimeType = unit;
            texts.asked.clear();
            page.getChartTitle(page.part<QLabel>("labelLineChartTitle"));
            QCOMPARE(eachOnce(texts.asked), eachOnce({word, keys.line + sentence}));
            texts.asked.clear();
            page.getChartTitle(page.part<QLabel>("labelPieChartTitle"));
            QCOMPARE(eachOnce(texts.asked), eachOnce({word, keys.pie + sentence}));
        }
    }

    void aLoadedPageAsksForSentences_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("own");
        const QString share = u" | %1% %2 1"_s;
        const QString total = u"TK_PageTotalSize 1"_s;
        const QString other = u"TK_Other 1"_s;
        const QStringList paging = {"TK_PreviousPage 1", "TK_NextPage 1"};
        const QStringList devices = {"TK_IPC 1", "TK_NVRAndDVR 1"};
        const QStringList organisations = {"TK_Organization 1"};
        const QStringList handling = {"TK_AlarmAccepted 1", "TK_AlarmUnAccepted 1"};
        const QStringList pie = {share, total, other};
        const auto row = [](int type, const QStringList &own) {
            QTest::addRow("service type %d", type) << type << own;
        };
        row(1, organisations + pie);
        row(2, devices + paging + pie);
        row(3, organisations);
        row(4, devices + paging);
        row(5, organisations + pie + QStringList({"TK_ByEtiology 1", "TK_ByNumber 1"}));
        row(6, organisations + paging + pie);
        row(7, lines + pie);
        row(8, lines + pie);
        row(9,
            handling + pie
                + QStringList({"TK_ByTemperature 1", "TK_ByMask 1", "TK_OvertemperatureOfHighTemperature 1",
                    "TK_NormalTemperature 1"}));
    }

    void aLoadedPageAsksForSentences()
    {
        QFETCH(int, type);
        QFETCH(QStringList, own);
        ScenePage page(type);
        TextRecorder texts;
        page.fillTree(page);
        QVERIFY(page.barChartView);

        const QStringList ofThePage = eachOnce(texts.asked);
        texts.asked.clear();
        for (const char *label : {"labelBarChartTitle", "labelLineChartTitle"})
            page.getChartTitle(page.part<QLabel>(label));
        if (page.pieChartView)
            page.getChartTitle(page.part<QLabel>("labelPieChartTitle"));
        const QStringList wanted = own + texts.asked;
        QCOMPARE(ofThePage, eachOnce(wanted));
    }

    void classesAreSentences_data()
    {
        table<int, QStringList>({"filler", "asked"},
            {{"temperature classes", 0,
                 {"TK_NormalTemperature 1", "TK_OvertemperatureOfHighTemperature 1", "TK_LowTemp 1",
                     "TK_AbnormalTemperature 1"}},
                {"mask classes", 1, {"TK_MaskUndetected 1", "TK_MaskWeared 1", "TK_MaskUncovered 1"}},
                {"numbers", 2, {"TK_Abnormal 1", "TK_Normal 1"}},
                {"minor types without a name", 3, {"TK_Other 1"}}});
    }

    void classesAreSentences()
    {
        QFETCH(int, filler);
        QFETCH(QStringList, asked);
        ProbePage page(9);
        const std::vector<TempDistributionItem> classes = {{0, 1}, {1, 1}, {2, 1}, {3, 1}};
        const TextRecorder texts;
        if (filler == 0)
            page.setTemperaturePieList(classes);
        else if (filler == 1)
            page.setMaskPieList(classes);
        else if (filler == 2)
            page.setNumberPieList(classes);
        else
            page.setSnapMinorPieList({{1, {{-700, 4}}}}, 1);
        QCOMPARE(texts.asked, asked);
    }

    void outcomesAreSentences_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("refused");
        for (int type = 1; type <= 9; ++type) {
            QTest::addRow("service type %d, refused", type) << type << true;
            QTest::addRow("service type %d, no records", type) << type << false;
        }
    }

    void outcomesAreSentences()
    {
        QFETCH(int, type);
        QFETCH(bool, refused);
        ShownPage page(type);
        page.fillTree(page);
        page.slotSearch();
        const QString key = page.devDataList.constFirst().second;
        ScriptedStatisticsManager empty;
        if (refused)
            empty.failWith(u"away"_s);
        const QString word = refused ? u"TK_GetFailed 1"_s : u"TK_NoRecords 1"_s;
        TextRecorder texts;
        page.slotSearch();
        QCOMPARE(texts.asked, QStringList({word}));

        // The kinds 7 to 9 tell nobody of a bar without detail; of distributions all tell at the end.
        texts.asked.clear();
        page.getChartDataByBarId(key);
        QStringList tips = texts.asked;
        tips.removeAll(u"TK_Vehicle 1"_s);
        tips.removeAll(u"TK_Pedestrian 1"_s);
        tips.removeAll(u"TK_AlarmAccepted 1"_s);
        tips.removeAll(u"TK_AlarmUnAccepted 1"_s);
        const QString none = u"TK_NoRecords 1"_s;
        const QStringList wanted = type <= 4 || type == 6 ? QStringList({word})
            : type == 5 && refused                        ? QStringList({word, word, word, none})
            : type == 5                                   ? QStringList({none, none})
            : type == 9                                   ? QStringList({none})
                                                          : QStringList();
        QCOMPARE(tips, wanted);
    }

    void aMissingOrganisationIsASentence()
    {
        ShownPage page;
        TextRecorder texts;
        ZrTreeView noCurrentItem;
        ZrTreeView *const tree = std::exchange(organisationCombo(page)->m_pTreeView, &noCurrentItem);
        page.slotSearch();
        organisationCombo(page)->m_pTreeView = tree;
        QCOMPARE(texts.asked, QStringList({"TK_orgNotExist 1"}));

        texts.asked.clear();
        page.client.clearTree();
        QVERIFY(!page.slotOrgaInfoLoad());
        QCOMPARE(texts.asked, QStringList({"TK_orgNotExist 1"}));
    }

    void limitsAreSentences_data()
    {
        table<int, QString>({"unit", "asked"},
            {{"months", 1, "TK_TimeInterval(0-6 months) 1"}, {"days", 2, "TK_TimeInterval(0-7 days) 1"},
                {"hours", 3, "TK_TimeInterval(1 day) 1"}});
    }

    void limitsAreSentences()
    {
        QFETCH(int, unit);
        QFETCH(QString, asked);
        const FakeKrxClient client;
        ProbePage page(1);
        const TextRecorder texts;
        page.slotDataTimeChanged(
            testMoment().addYears(-1), testMoment(), static_cast<BasicChart::QueryType>(unit));
        QCOMPARE(texts.asked, QStringList({asked}));
    }

    void largeTotalsAskForTheWordOfTheMillion()
    {
        ShownPage page;
        page.pieDataList = {{u"Motion"_s, 1000000}};
        const TextRecorder texts;
        page.updateChartOverlays();
        QCOMPARE(eachOnce(texts.asked), QStringList({"TK_Million 1", "TK_PageTotalSize 1"}));
    }
};

TALVIX_TEST_MAIN(TestTextForms)
#include "tst_text_forms.moc"
