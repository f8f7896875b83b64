#include "support/ChartProbe.h"
#include "support/LogCapture.h"

#include <charts/UserData.h>
#include <devhost/widgets/HostSettings.h>

#include <limits>

using namespace ChartProbe;
using namespace Qt::StringLiterals;

static QStringList legendTexts(const QChart *chart)
{
    QStringList texts;
    for (const QLegendMarker *marker : chart->legend()->markers())
        texts.append(marker->label());
    return texts;
}

class BarChartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneSetWithoutLegend_data() { kinds({1, 3, 5, 6, 0, 10}); }
    void oneSetWithoutLegend()
    {
        ChartStage stage(kindOfRow());
        stage.page.barDataList = {{"North", 30}, {"South", 7}, {"East", 0}};

        const OwnedChart chart(stage.page.createBarChart());
        QVERIFY(!chart->legend()->isVisible());
        QCOMPARE(chart->series().size(), 1);
        QVERIFY(series<QStackedBarSeries>(chart.get()));
        QCOMPARE(sets(chart.get()).size(), 1);
        QBarSet *set = sets(chart.get()).constFirst();
        verifySet(set, text("TK_Organization"), theme("$word_tabbar2_select"));
        QCOMPARE(values(set), (QList<double>{30, 7, 0}));
        QCOMPARE(categories(chart.get()), (QStringList{"North", "South", "East"}));
    }

    void recordersAndCamerasAreTwoStackedSets_data() { kinds({2, 4}); }
    void recordersAndCamerasAreTwoStackedSets()
    {
        ChartStage stage(kindOfRow());
        stage.client.setRecorderTypes({2, 3});
        stage.page.barDataList = {{"gate", 30}, {"recorder", 7}, {"hall", 12}, {"store", 5}};
        stage.page.devTypeDataList = {{"hall", 1}, {"store", 3}, {"gate", 1}, {"recorder", 2}};

        const OwnedChart chart(stage.page.createBarChart());
        QCOMPARE(chart->series().size(), 1);
        QVERIFY(series<QStackedBarSeries>(chart.get()));
        const QList<QBarSet *> both = sets(chart.get());
        QCOMPARE(both.size(), 2);
        verifySet(both.at(0), text("TK_IPC"), theme("$word_tabbar2_select"));
        verifySet(both.at(1), text("TK_NVRAndDVR"), QColor("#2CACCE"));
        QCOMPARE(values(both.at(0)), (QList<double>{30, 0, 12, 0}));
        QCOMPARE(values(both.at(1)), (QList<double>{0, 7, 0, 5}));
        QCOMPARE(categories(chart.get()), (QStringList{"gate", "recorder", "hall", "store"}));
        verifyTopLegend(chart.get());
        QCOMPARE(legendTexts(chart.get()), (QStringList{text("TK_IPC"), text("TK_NVRAndDVR")}));
    }

    void valueGoesToTheSetOfTheDeviceType_data()
    {
        table<LabelledValues, LabelledValues, QList<double>, QList<double>, QStringList>(
            {"bars", "deviceTypes", "cameras", "recorders", "logged"},
            {{"a camera", {{"device", 9}}, {{"device", 1}}, {9}, {0}, {}},
                {"a recorder", {{"device", 9}}, {{"device", 2}}, {0}, {9}, {}},
                {"another recorder", {{"device", 9}}, {{"device", 3}}, {0}, {9}, {}},
                {"unknown kinds count as cameras", {{"device", 9}}, {{"device", 44}}, {9}, {0}, {"name 44"}},
                {"so does type 0", {{"device", 9}}, {{"device", 0}}, {9}, {0}, {"name 0"}},
                {"so does a negative type", {{"device", 9}}, {{"device", -1}}, {9}, {0}, {"name -1"}},
                {"each unknown kind is logged", {{"a", 9}, {"b", 8}, {"c", 7}},
                    {{"a", 1}, {"b", 44}, {"c", 4}}, {9, 8, 7}, {0, 0, 0}, {"name 44", "name 4"}},
                {"a bar without a device type is skipped in both sets",
                    {{"a", 9}, {"missing", 400}, {"c", 7}}, {{"a", 1}, {"c", 2}}, {9, 0}, {0, 7}, {}},
                {"the first of two entries decides", {{"twin", 9}, {"twin", 7}}, {{"twin", 2}, {"twin", 1}},
                    {0, 0}, {9, 7}, {}},
                {"names are compared exactly", {{"Gate", 9}, {"gate ", 8}, {"gat", 7}, {"gate", 6}},
                    {{"gate", 1}}, {6}, {0}, {}},
                {"no device types leave empty sets", {{"a", 9}, {"b", 8}}, {}, {}, {}, {}}});
    }

    void valueGoesToTheSetOfTheDeviceType()
    {
        QFETCH(LabelledValues, bars);
        QFETCH(LabelledValues, deviceTypes);
        QFETCH(QStringList, logged);
        for (const int type : {2, 4}) {
            ChartStage stage(type);
            stage.client.setRecorderTypes({2, 3});
            stage.page.barDataList = bars;
            stage.page.devTypeDataList = deviceTypes;
            LogCapture log;
            const OwnedChart chart(stage.page.createBarChart());
            QCOMPARE(sets(chart.get()).size(), 2);
            QTEST(values(sets(chart.get()).at(0)), "cameras");
            QTEST(values(sets(chart.get()).at(1)), "recorders");
            QCOMPARE(seen(categories(chart.get())), listKeys(bars));
            QCOMPARE(valueAxis(chart.get())->max(), bars.value(1).second == 400 ? 500.0 : 100.0);
            const QString maximum = QString::number(bars.value(1).second == 400 ? 400 : 9);
            QCOMPARE(log.lines(QtDebugMsg),
                (logged + QStringList{"BasicChart::getMaxValue  " + maximum, "createBarChart"}));
        }
    }

    void twoSetsSideBySide_data() { dualKinds(); }
    void twoSetsSideBySide()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        ChartStage stage(kindOfRow());
        stage.page.barDataList = {{"North", 30}, {"South", 7}};
        stage.page.barDataList2 = {{"North", 3}, {"South", 12}};

        const OwnedChart chart(stage.page.createDualBarChart());
        QCOMPARE(chart->series().size(), 1);
        QVERIFY(series<QBarSeries>(chart.get()));
        const QList<QBarSet *> both = sets(chart.get());
        QCOMPARE(both.size(), 2);
        verifySet(both.at(0), text(first), theme("$word_tabbar2_select"));
        verifySet(both.at(1), text(second), QColor("#2CACCE"));
        QCOMPARE(values(both.at(0)), (QList<double>{30, 7}));
        QCOMPARE(values(both.at(1)), (QList<double>{3, 12}));
        QCOMPARE(categories(chart.get()), (QStringList{"North", "South"}));
        verifyTopLegend(chart.get());
        QCOMPARE(legendTexts(chart.get()), (QStringList{text(first), text(second)}));
    }

    void barsOfBothSetsKnowTheirPositionAndTheFirstListsLabel()
    {
        ChartStage stage(8);
        stage.page.barDataList = {{"North", 30}, {"South", 7}, {"North", 1}};
        stage.page.barDataList2 = {{"South", 12}, {"North", 3}, {"North", 2}};

        const OwnedChart chart(stage.page.createDualBarChart());
        QList<UserData *> all;
        for (QBarSet *set : sets(chart.get())) {
            for (int i = 0; i < 3; ++i) {
                UserData *data = userData(set, i);
                QVERIFY(data);
                QCOMPARE(data->index, i);
                QCOMPARE(data->label, stage.page.barDataList.at(i).first);
                QVERIFY(!all.contains(data));
                all.append(data);
            }
            QVERIFY(!userData(set, 3));
            QCOMPARE(set->dynamicPropertyNames().size(), 3);
            QCOMPARE(set->property("UserSelfData0").metaType(), QMetaType::fromType<UserData *>());
        }
    }

    void barsOfAnEarlierChartKeepWhatTheyKnow()
    {
        ChartStage stage(9);
        stage.page.barDataList = {{"North", 30}, {"South", 7}};
        stage.page.barDataList2 = {{"North", 3}, {"South", 4}};
        const OwnedChart earlier(stage.page.createDualBarChart());
        const UserData *known = userData(sets(earlier.get()).at(1), 1);
        stage.page.barDataList = {{"East", 1}, {"West", 2}};
        stage.page.barDataList2 = {{"East", 3}, {"West", 5}};
        const OwnedChart later(stage.page.createDualBarChart());
        QCOMPARE(userData(sets(earlier.get()).at(1), 1), known);
        QCOMPARE(known->index, 1);
        QCOMPARE(known->label, u"South"_s);
    }

    void labelsTurnWhereTheyHaveNoRoom_data()
    {
        table<int, int, bool, bool>({"count", "length", "upright", "lessened"},
            {{"few short names stay level in the usual font", 3, 4, false, false},
                {"names that just do not fit are lessened", 10, 11, false, true},
                {"many names stand upright", 30, 9, true, false},
                {"a crowd stands upright in a lessened font", 100, 9, true, true},
                {"endless names of few bars stay level, where they keep more", 2, 300, false, true}});
    }

    void labelsTurnWhereTheyHaveNoRoom()
    {
        QFETCH(int, count);
        QFETCH(int, length);
        QFETCH(bool, upright);
        QFETCH(bool, lessened);
        ChartStage stage(1);
        for (int i = 0; i < count; ++i)
            stage.page.barDataList.append({QString(length, u'n') + QString::number(i), 5});
        QChartView view(stage.page.createBarChart());
        const int usual = QFontInfo(categoryAxis(view.chart())->labelsFont()).pixelSize();
        view.resize(1000, 250);
        view.show();
        QCoreApplication::processEvents();
        const QBarCategoryAxis *axis = categoryAxis(view.chart());
        const int pixels = QFontInfo(axis->labelsFont()).pixelSize();
        QCOMPARE(axis->labelsAngle(), upright ? -90 : 0);
        QVERIFY2((pixels < usual) == lessened, qPrintable(QString::number(pixels)));
        QVERIFY2(pixels >= 9, qPrintable(QString::number(pixels)));
        if (length == 300)
            return;

        // Names that have room again in a page of another size stand level again.
        stage.page.resize(20000, 700);
        view.resize(20000, 250);
        QCoreApplication::processEvents();
        QCOMPARE(axis->labelsAngle(), 0);
        QCOMPARE(QFontInfo(axis->labelsFont()).pixelSize(), usual);
    }

    void secondListsLabelsAreNotUsed()
    {
        ChartStage stage(7);
        stage.page.barDataList = {{"North", 30}};
        stage.page.barDataList2 = {{"elsewhere", 3}};

        const OwnedChart chart(stage.page.createDualBarChart());
        QCOMPARE(categories(chart.get()), (QStringList{"North"}));
        QCOMPARE(userData(sets(chart.get()).at(1), 0)->label, u"North"_s);
    }

    void emptySecondListLeavesTheSecondSetEmpty()
    {
        ChartStage stage(9);
        stage.page.barDataList = {{"North", 30}};

        const OwnedChart chart(stage.page.createDualBarChart());
        QCOMPARE(sets(chart.get()).size(), 2);
        QCOMPARE(sets(chart.get()).at(1)->count(), 0);
        QVERIFY(!userData(sets(chart.get()).at(1), 0));
    }

    void longerSecondListIsSurvived()
    {
        ChartStage stage(7);
        stage.page.barDataList = {{"North", 30}};
        stage.page.barDataList2 = {{"North", 3}, {"South", 77}, {"East", 5}};

        const OwnedChart chart(stage.page.createDualBarChart());
        QCOMPARE(values(sets(chart.get()).at(0)), (QList<double>{30}));
        QCOMPARE(values(sets(chart.get()).at(1)).value(0), 3.0);
        QCOMPARE(categories(chart.get()), (QStringList{"North"}));
        QCOMPARE(valueAxis(chart.get())->max(), 80.0);
    }

    void barWidth_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<double>("width");
        for (int type = 1; type <= 9; ++type) {
            const double ofFew = type >= 7 ? 0.15 : 0.075;
            QTest::addRow("type %d without bars", type) << type << 0 << ofFew;
            QTest::addRow("type %d with one bar", type) << type << 1 << ofFew;
            QTest::addRow("type %d with two bars", type) << type << 2 << 0.15;
            QTest::addRow("type %d with many bars", type) << type << 40 << 0.15;
        }
    }

    void barWidth()
    {
        QFETCH(int, type);
        QFETCH(int, count);
        ChartStage stage(type);
        stage.page.barDataList = bars(count);
        stage.page.barDataList2 = type >= 7 ? bars(count) : LabelledValues();
        for (int i = 0; i < count; ++i)
            stage.page.devTypeDataList.append({stage.page.barDataList.at(i).first, 1});

        const OwnedChart chart = build(stage.page, type);
        QTEST(static_cast<double>(series<QAbstractBarSeries>(chart.get())->barWidth()), "width");
    }

    void axesAndMargins_data() { boundOfEachKind(); }
    void axesAndMargins()
    {
        QFETCH(int, type);
        QFETCH(double, bound);
        ChartStage stage(type);
        stage.page.barDataList = {{"North", firstOfBound(type)}, {"South", 7}};
        stage.page.devTypeDataList = {{"North", 1}, {"South", 2}};
        if (type >= 7)
            stage.page.barDataList2 = {{"North", 3}, {"South", 12}};

        const OwnedChart chart = build(stage.page, type);
        verifyAxes(chart.get(), bound);
        verifyNoMargins(chart.get());
        QVERIFY(chart->title().isEmpty());
    }

    void boundCoversBothLists_data()
    {
        table<int, int, int, double>({"type", "first", "second", "bound"},
            {{"hundreds, the first list is higher", 1, 450, 120, 500.0},
                {"hundreds, the second list is higher", 1, 3, 950, 1000.0},
                {"hundreds on stacked sets", 2, 3, 950, 1000.0},
                {"hundreds, nothing counted", 3, 0, 0, 100.0},
                {"hundreds, an exact hundred", 4, 100, 0, 200.0},
                {"digits, the second list is higher", 5, 3, 37, 40.0},
                {"digits of persons, nothing counted", 6, 0, -4, 5.0},
                {"digits, the first list is higher", 7, 999, 120, 1000.0},
                {"digits, the second list of a dual chart is higher", 8, 120, 1000, 2000.0},
                {"digits, all below zero", 9, -3, -8, 5.0},
                {"hundreds up to the largest int", 1, std::numeric_limits<int>::max(), 0, 2147483700.0},
                {"digits up to the largest int", 7, 0, std::numeric_limits<int>::max(), 3000000000.0}});
    }

    void boundCoversBothLists()
    {
        QFETCH(int, type);
        QFETCH(int, first);
        QFETCH(int, second);
        ChartStage stage(type);
        stage.page.barDataList = {{"North", first}};
        stage.page.barDataList2 = {{"North", second}};
        stage.page.devTypeDataList = {{"North", 1}};

        const OwnedChart chart = build(stage.page, type);
        QCOMPARE(valueAxis(chart.get())->min(), 0.0);
        QTEST(static_cast<double>(valueAxis(chart.get())->max()), "bound");
    }

    void emptyListsGiveAnEmptyChart_data() { allKinds(); }
    void emptyListsGiveAnEmptyChart()
    {
        QFETCH(int, type);
        ChartStage stage(type);

        const OwnedChart chart = build(stage.page, type);
        QCOMPARE(chart->series().size(), 1);
        QCOMPARE(sets(chart.get()).size(), type == 2 || type == 4 || type >= 7 ? 2 : 1);
        for (QBarSet *set : sets(chart.get()))
            QCOMPARE(set->count(), 0);
        QCOMPARE(categories(chart.get()), QStringList());
        if (sets(chart.get()).size() == 2)
            verifyTopLegend(chart.get());
        verifyAxes(chart.get(), type <= 4 ? 100.0 : 5.0);
        verifyNoMargins(chart.get());
    }

    void withoutBarsTheSecondListBoundsTheAxis_data() { kinds({1, 2, 3, 4, 5, 6}); }
    void withoutBarsTheSecondListBoundsTheAxis()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        stage.page.barDataList2 = {{"North", 12}, {"South", 345}};

        const OwnedChart chart = build(stage.page, type);
        QCOMPARE(categories(chart.get()), QStringList());
        verifyAxes(chart.get(), 400.0);
    }

    void listsAreNotChanged_data() { allKinds(); }
    void listsAreNotChanged()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        const LabelledValues first = {{"North", 12}, {QString(), 70}, {"North", 3}};
        const LabelledValues second = {{"b", 4}, {"a", 9}, {"c", 9}};
        const LabelledValues kindsOfDevices = {{"North", 1}, {"South", 2}};
        stage.page.barDataList = first;
        stage.page.barDataList2 = second;
        stage.page.devTypeDataList = kindsOfDevices;

        const OwnedChart chart = build(stage.page, type);
        QCOMPARE(stage.page.barDataList, first);
        QVERIFY(stage.page.barDataList.at(1).first.isNull());
        QCOMPARE(stage.page.barDataList2, second);
        QCOMPARE(stage.page.devTypeDataList, kindsOfDevices);
    }

    void eachCallMakesANewChartThatOwnsAllItsParts_data() { kinds({1, 2, 9}); }
    void eachCallMakesANewChartThatOwnsAllItsParts()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        stage.page.barDataList = {{"North", 12}, {"South", 7}};
        stage.page.barDataList2 = {{"North", 3}, {"South", 19}};
        stage.page.devTypeDataList = {{"North", 1}, {"South", 1}};
        verifyNewCharts([&] { return build(stage.page, type); });
    }

    void everyBarHasItsOwnCategory_data()
    {
        table<QStringList>({"names"},
            {{"two bars of one name", {"Gate", "Gate"}},
                {"three of one name among others", {"Gate", "Hall", "Gate", "Yard", "Gate"}},
                {"two pairs", {"Gate", "Hall", "Hall", "Gate"}}, {"an empty name", {"Gate", "", "Hall"}},
                {"a null name", {"Gate", QString(), "Hall"}},
                {"null and empty names together", {QString(), "", QString(), "Hall", ""}},
                {"names that bear invisible marks themselves",
                    {"Gate", u"Gate\u200B"_s, "Gate", u"Gate\u200B\u200B"_s, u"Gate\u2060"_s, "Gate"}},
                {"names that differ in blanks", {"Gate", "Gate ", " Gate", "Gate"}}});
    }

    void everyBarHasItsOwnCategory()
    {
        QFETCH(QStringList, names);
        QStringList shown;
        for (const QString &name : names)
            shown.append(seen(name));
        for (int type = 1; type <= 9; ++type) {
            ChartStage stage(type);
            int value = 10;
            for (const QString &name : names) {
                stage.page.barDataList.append({name, ++value});
                stage.page.barDataList2.append({name, 1});
                stage.page.devTypeDataList.append({name, 1});
            }
            const OwnedChart chart = build(stage.page, type);
            QCOMPARE(categoryAxis(chart.get())->count(), names.size());
            QCOMPARE(seen(categories(chart.get())), shown);
            QCOMPARE(categories(chart.get()).value(0),
                names.constFirst().isNull() ? QString("") : names.constFirst());
            QCOMPARE(sets(chart.get()).constFirst()->count(), names.size());
            QCOMPARE(categoryAxis(chart.get())->min(), categories(chart.get()).constFirst());
            QCOMPARE(categoryAxis(chart.get())->max(), categories(chart.get()).constLast());
        }
    }

    void labelsAreShownToTheLetter_data() { trickyNameRows(); }
    void labelsAreShownToTheLetter()
    {
        QFETCH(QString, name);
        for (const int type : {1, 2, 7}) {
            ChartStage stage(type);
            stage.page.barDataList = {{name, 3}, {"other", 2}};
            stage.page.barDataList2 = {{name, 3}, {"other", 2}};
            stage.page.devTypeDataList = {{name, 1}, {"other", 1}};
            const OwnedChart chart = build(stage.page, type);
            QCOMPARE(plainText(categories(chart.get()).at(0)).simplified(), name.simplified());
            QCOMPARE(categories(chart.get()).at(1), u"other"_s);
            if (type == 7)
                QCOMPARE(userData(sets(chart.get()).at(1), 0)->label, name);
        }
    }

    void aNameThatNoLayoutTakesGetsPainted_data()
    {
        table<QString>({"name"},
            {{"a picture wider than a layout can count", "<img src=\"x\" width=9999999>"},
                {"three hundred thousand characters", QString(300000, 'x')}});
    }

    void aNameThatNoLayoutTakesGetsPainted()
    {
        QFETCH(QString, name);
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.barDataList = {{name, 3}, {"other", 2}};
        stage.page.lineDataList = {{name, 3}, {"other", 2}};
        stage.page.pieDataList = {{name, 3}, {"other", 2}};
        stage.page.loadChart();
        QCOMPARE(stage.page.m_strSelectedBar, name);
        stage.page.slotBarSelected(true, 0, sets(stage.page.barChartView->chart()).constFirst());
        QVERIFY(!stage.page.grab().isNull());
        QVERIFY(stage.page.labelCallout->text().size() < 2000);
    }

    void barsOfOneNameAreHoveredEachInItsPlace()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        stage.page.barDataList = {{"Gate", 90}, {"Gate", 60}, {QString(), 70}, {"Gate", 80}};
        stage.loadGrown();

        ZrChartView *view = stage.page.barChartView;
        for (int i = 0; i < 4; ++i) {
            moveAway(view);
            LogCapture log;
            moveTo(view, middleOfBar(view->chart(), i, 0, stage.page.barDataList.at(i).second));
            QCOMPARE(log.lines(QtDebugMsg),
                (QStringList{u"BasicChart::slotBarSelected index  %1 size 4"_s.arg(i)}));
            QCOMPARE(stage.page.labelCallout->text(),
                callout(span, stage.page.barDataList.at(i).first,
                    QString::number(stage.page.barDataList.at(i).second)));
        }
    }

    void dualBarsOfOneNameAreHoveredEachInItsPlace()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        stage.page.barDataList = {{"Gate", 9}, {"Gate", 6}, {"Gate", 8}};
        stage.page.barDataList2 = {{"Gate", 5}, {"Gate", 7}, {"Gate", 4}};
        stage.loadGrown();

        ZrChartView *view = stage.page.barChartView;
        QChart *chart = view->chart();
        const double column = chart->mapToPosition(QPointF(1, 0), chart->series().constFirst()).x()
            - chart->mapToPosition(QPointF(0, 0), chart->series().constFirst()).x();
        for (int i = 0; i < 3; ++i) {
            for (int set = 0; set < 2; ++set) {
                const double value =
                    set == 0 ? stage.page.barDataList.at(i).second : stage.page.barDataList2.at(i).second;
                moveAway(view);
                LogCapture log;
                moveTo(view,
                    middleOfBar(chart, i, 0, value) + QPointF(column * 0.075 / 2 * (set == 0 ? -1 : 1), 0));
                QCOMPARE(log.lines(QtDebugMsg),
                    (QStringList{u"BasicChart::slotBarSelected index  %1 size 3"_s.arg(i)}));
                QCOMPARE(stage.page.labelCallout->text(),
                    callout(span, text(set == 0 ? "TK_Vehicle" : "TK_Pedestrian"), QString::number(value)));
            }
        }
    }

    void hoveredBarOfTheSecondSetSelectsByTheFirstListsLabel()
    {
        ChartStage stage(9);
        stage.page.barDataList = {{"North", 12}, {"South", 7}};
        stage.page.barDataList2 = {{"one", 3}, {"two", 19}};

        const OwnedChart chart(stage.page.createDualBarChart());
        Q_EMIT series<QAbstractBarSeries>(chart.get())->hovered(true, 1, sets(chart.get()).at(1));
        QCOMPARE(stage.page.m_strSelectedBar, u"South"_s);
        QVERIFY(stage.page.m_pTimer->isActive());
        QCOMPARE(stage.page.m_pTimer->interval(), 800);
        QCOMPARE(stage.page.labelCallout->text(), callout(span, text("TK_AlarmUnAccepted"), "19"));
    }

    void barsCarryNoValueLabels_data() { kinds({1, 2, 7}); }
    void barsCarryNoValueLabels()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        stage.page.barDataList = {{"North", 12}};
        const OwnedChart chart = build(stage.page, type);
        QVERIFY(!series<QAbstractBarSeries>(chart.get())->isLabelsVisible());
    }

    void extremeValuesAreDrawn_data() { allKinds(); }
    void extremeValuesAreDrawn()
    {
        QFETCH(int, type);
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();
        ChartStage stage(type, ChartStage::OnScreen);
        stage.page.barDataList = {{"most", most}, {"least", least}, {"minus", -1}, {"none", 0}};
        stage.page.devTypeDataList = {{"most", 1}, {"least", 2}, {"minus", 3}, {"none", 1}};
        if (type >= 7)
            stage.page.barDataList2 = {{"most", least}, {"least", most}, {"minus", 0}, {"none", -7}};

        stage.page.loadChart();
        const QChart *chart = stage.page.barChartView->chart();
        if (type == 2 || type == 4) {
            QCOMPARE(values(sets(chart).at(0)), (QList<double>{most, 0, 0, 0}));
            QCOMPARE(values(sets(chart).at(1)), (QList<double>{0, least, -1, 0}));
        } else {
            QCOMPARE(values(sets(chart).at(0)), (QList<double>{most, least, -1, 0}));
        }
        QCOMPARE(valueAxis(chart)->max(), type <= 4 ? 2147483700.0 : 3000000000.0);
        QVERIFY(!stage.page.grab().isNull());

        for (LabelledValues *list : {&stage.page.barDataList, &stage.page.barDataList2}) {
            for (auto &entry : *list)
                entry.second = least;
        }
        stage.page.loadChart();
        QVERIFY(!stage.page.grab().isNull());
        QCOMPARE(values(sets(stage.page.barChartView->chart()).at(0)).constFirst(), double(least));
    }

    void fiveThousandBars_data()
    {
        table<int, bool>({"type", "oneName"},
            {{"of different names in one set", 1, false},
                {"of different names in two stacked sets", 2, false},
                {"of different names in two sets", 8, false}, {"of one name in one set", 1, true},
                {"of one name in two sets", 8, true}});
    }

    void fiveThousandBars()
    {
        QFETCH(int, type);
        QFETCH(bool, oneName);
        constexpr int count = 5000;
        ChartStage stage(type);
        stage.page.barDataList = bars(count);
        if (oneName) {
            for (auto &entry : stage.page.barDataList)
                entry.first = "Gate";
        }
        if (type == 8)
            stage.page.barDataList2 = stage.page.barDataList;
        for (const auto &entry : std::as_const(stage.page.barDataList))
            stage.page.devTypeDataList.append({entry.first, 1});

        const OwnedChart chart = build(stage.page, type);
        QCOMPARE(categoryAxis(chart.get())->count(), count);
        for (QBarSet *set : sets(chart.get())) {
            QCOMPARE(set->count(), count);
            if (type == 8) {
                QCOMPARE(userData(set, count - 1)->index, count - 1);
                QCOMPARE(userData(set, count - 1)->label, stage.page.barDataList.constLast().first);
            }
        }
        QCOMPARE(seen(categories(chart.get()).constLast()), stage.page.barDataList.constLast().first);
        QCOMPARE(valueAxis(chart.get())->max(), type == 8 ? 6000.0 : 5100.0);
    }

    void fiveThousandBarsAreShownAndReplaced()
    {
        ChartStage stage(8, ChartStage::OnScreen);
        stage.page.barDataList = bars(5000);
        stage.page.barDataList2 = bars(5000);
        stage.load();
        QVERIFY(!stage.page.grab().isNull());
        const QPointer<QChart> first = stage.page.barChartView->chart();
        QCOMPARE(sets(first).at(1)->count(), 5000);
        stage.load();
        QVERIFY(!stage.page.grab().isNull());
        runDeferredDeletes();
        QVERIFY(first.isNull());
        QCOMPARE(sets(stage.page.barChartView->chart()).at(1)->count(), 5000);
    }

    void textsFollowTheLanguage()
    {
        QVERIFY(HostSettings::setLanguage("en"));
        const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
        QVERIFY(text("TK_NVRAndDVR") != u"TK_NVRAndDVR"_s);
        ChartStage devices(4);
        ChartStage traffics(7);
        ChartStage groups(9);
        const OwnedChart stacked(devices.page.createBarChart());
        QCOMPARE(sets(stacked.get()).at(0)->label(), text("TK_IPC"));
        QCOMPARE(sets(stacked.get()).at(1)->label(), text("TK_NVRAndDVR"));
        const OwnedChart vehicles(traffics.page.createDualBarChart());
        QCOMPARE(sets(vehicles.get()).at(0)->label(), text("TK_Vehicle"));
        QCOMPARE(sets(vehicles.get()).at(1)->label(), text("TK_Pedestrian"));
        const OwnedChart accepted(groups.page.createDualBarChart());
        QCOMPARE(sets(accepted.get()).at(0)->label(), text("TK_AlarmAccepted"));
        QCOMPARE(sets(accepted.get()).at(1)->label(), text("TK_AlarmUnAccepted"));
        QCOMPARE(traffics.titleText("labelBarChartTitle"), barTitle(text("TK_TrafficsStatisticsOfDevices")));
    }

private:
    static OwnedChart build(ProbePage &page, int type)
    {
        return OwnedChart(type >= 7 && type <= 9 ? page.createDualBarChart() : page.createBarChart());
    }
    static QList<QBarSet *> sets(const QChart *chart)
    {
        const auto *bars = series<QAbstractBarSeries>(chart);
        return bars ? bars->barSets() : QList<QBarSet *>();
    }
    static UserData *userData(QBarSet *set, int index)
    {
        const QByteArray name = "UserSelfData" + QByteArray::number(index);
        return set->property(name.constData()).value<UserData *>();
    }
    static void verifySet(QBarSet *set, const QString &label, const QColor &color)
    {
        QCOMPARE(set->label(), label);
        QCOMPARE(set->color(), color);
        QCOMPARE(set->borderColor(), color);
    }
    static void verifyTopLegend(const QChart *chart)
    {
        QVERIFY(chart->legend()->isVisible());
        QCOMPARE(chart->legend()->alignment(), Qt::AlignTop);
        QCOMPARE(chart->legend()->labelColor(), theme("$word_color_2"));
    }
};

TALVIX_TEST_MAIN(BarChartsTest)

#include "tst_bar_charts.moc"
