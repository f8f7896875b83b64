#pragma once

#include "FakeKrxClient.h"
#include "ProbePage.h"
#include "ScriptedStatisticsManager.h"
#include "TestMain.h"
#include "TestTable.h"

#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/QssFormatHelper.h>
#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QtCharts>

#include <array>
#include <memory>

namespace ChartProbe {

/// The time that the page under test shows.
inline const QString span = QStringLiteral("2024-05-01~2024-05-03");

/// Waits until the series of freshly shown charts have grown to their size.
inline void waitForAnimation()
{
    QTest::qWait(1300);
}

} // namespace ChartProbe

/// A page of one kind whose organisation tree is empty, so that nothing is asked and the lists are the
/// test's.
struct ChartStage
{
    enum Showing { OffScreen, OnScreen };

    explicit ChartStage(int type, Showing showing = OffScreen)
        : page(type)
    {
        page.resize(1136, 648);
        if (showing == OnScreen) {
            page.show();
            if (!QTest::qWaitForWindowExposed(&page))
                qFatal("the page does not come up");
        } else {
            page.initForm();
        }
        setTime(ChartProbe::span);
        page.tips.clear();
    }

    /// Loads the charts and lets new views of a shown page appear.
    void load()
    {
        page.loadChart();
        QCoreApplication::processEvents();
    }
    /// The same, and waits until the series have grown to their size.
    void loadGrown()
    {
        page.loadChart();
        ChartProbe::waitForAnimation();
    }
    void setTime(const QString &text) { page.part<QLineEdit>("lineEditTime")->setText(text); }
    QString titleText(const char *label) const { return page.part<QLabel>(label)->text(); }

    FakeKrxClient client;
    ScriptedStatisticsManager manager;
    ProbePage page;
};

using OwnedChart = std::unique_ptr<QChart>;

namespace ChartProbe {

inline QString text(const QString &key)
{
    return AppLanguageTr::instance()->translate(key, AppLanguageTr::Sentence, -1);
}

inline QColor theme(const char *key)
{
    return QssFormatHelper::getInstance()->findColorByKey(QString::fromLatin1(key));
}

inline QString themeText(const char *key)
{
    return QssFormatHelper::getInstance()->findColorStrByKey(QString::fromLatin1(key));
}

inline QString barTitle(const QString &words)
{
    return QStringLiteral("<html><head><style>font{font-size:15px;}                           "
                          "</style></head><body><font> ")
        + words + QStringLiteral("</font></body></html>");
}

inline QString detailTitle(const QString &time, const QString &bar, const QString &unit, const QString &words)
{
    return QStringLiteral("<html><head><style>font{font-size:15px;} #f{color: ") + themeText("$word_color_5")
        + QStringLiteral(";}</style></head><body><font id=\"f\"> ") + time + QLatin1Char(' ') + bar
        + QStringLiteral("</font><font> ") + unit + words + QStringLiteral("</font></body></html>");
}

inline QString callout(const QString &time, const QString &name, const QString &value)
{
    return QStringLiteral("<p>&nbsp; ") + time
        + QStringLiteral(" <br/><br/>                        &nbsp;  "
                         "<img src=\":/images/home/charts/nav_dot.png\" width=\"5\" height=\"5\"> ")
        + name + QStringLiteral(" &nbsp; ") + value + QStringLiteral(" </p>");
}

/// The text of the call-out that is seen, null without one.
inline QString shownCallout(const ProbePage &page)
{
    return page.labelCallout && page.labelCallout->isVisible() ? page.labelCallout->text() : QString();
}

/// What rich text shows.
inline QString plainText(const QString &richText)
{
    QTextDocument document;
    document.setHtml(richText);
    return document.toPlainText();
}

/// Names that rich text could take for something else.
inline QStringList trickyNames()
{
    return {QStringLiteral("Gate & Hall \"Yard\" 'east'"), QStringLiteral("R&amp;D"),
        QStringLiteral("Gate &lt;1&gt;"), QStringLiteral("&#38;"), QStringLiteral("<b>Gate</b>"),
        QStringLiteral("<img src=\"x\" width=9999999>"), QStringLiteral("a < b > c"), QStringLiteral("</p>"),
        QStringLiteral("%1"), QStringLiteral("%3 of %L2, 100%"), QString::fromUtf8("hall %\u0661 of %\u0663"),
        QStringLiteral("Gate\n  Hall\tYard"), QString::fromUtf8("大门"),
        QString::fromUtf8("\u05e9\u05e2\u05e8 <1> \u0628\u0648\u0627\u0628\u0629"),
        QString::fromUtf8("\xFFGate\xC3", 6), QString(200, QLatin1Char('x'))};
}

inline void trickyNameRows()
{
    QTest::addColumn<QString>("name");
    const QStringList names = trickyNames();
    for (const QString &name : names)
        QTest::addRow("the name \"%s\"", qUtf8Printable(name.simplified().left(30))) << name;
    QTest::newRow("an empty name") << "";
    QTest::newRow("a null name") << QString();
}

/// The kinds with two sets of bars and the names of the sets.
inline void dualKinds()
{
    table<int, QString, QString>({"type", "first", "second"},
        {{"traffics of organisations", 7, "TK_Vehicle", "TK_Pedestrian"},
            {"traffics of devices", 8, "TK_Vehicle", "TK_Pedestrian"},
            {"temperature of device groups", 9, "TK_AlarmAccepted", "TK_AlarmUnAccepted"}});
}

/// The bounds of the value axis for a list whose first value is `firstOfBound()`.
inline void boundOfEachKind()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("bound");
    for (const int type : {1, 2, 3, 4})
        QTest::addRow("service type %d goes by hundreds", type) << type << 200.0;
    for (const int type : {5, 6, 7, 8, 9})
        QTest::addRow("service type %d goes by the leading digit", type) << type << 40.0;
}

inline int firstOfBound(int type)
{
    return type <= 4 ? 100 : 37;
}

/// What is seen of a text: everything but marks without a width.
inline QString seen(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (c.category() != QChar::Other_Format && c.category() != QChar::Mark_NonSpacing)
            result.append(c);
    }
    return result;
}

inline QStringList seen(const QStringList &texts)
{
    QStringList result;
    for (const QString &text : texts)
        result.append(seen(text));
    return result;
}

template <typename Series>
Series *series(const QChart *chart, int index = 0)
{
    return qobject_cast<Series *>(chart->series().value(index));
}

inline QBarCategoryAxis *categoryAxis(const QChart *chart)
{
    return qobject_cast<QBarCategoryAxis *>(chart->axes(Qt::Horizontal).value(0));
}

inline QValueAxis *valueAxis(const QChart *chart)
{
    return qobject_cast<QValueAxis *>(chart->axes(Qt::Vertical).value(0));
}

inline QStringList categories(const QChart *chart)
{
    QBarCategoryAxis *axis = categoryAxis(chart);
    return axis ? axis->categories() : QStringList();
}

inline QList<double> values(QBarSet *set)
{
    QList<double> result;
    for (int i = 0; i < set->count(); ++i)
        result.append(set->at(i));
    return result;
}

/// `count` bars "bar 0", "bar 1" … with the values 1, 2 …
inline LabelledValues bars(int count)
{
    LabelledValues list;
    for (int i = 0; i < count; ++i)
        list.append({QStringLiteral("bar %1").arg(i), i + 1});
    return list;
}

inline void verifyPen(const QPen &pen, double width, Qt::PenStyle style)
{
    QCOMPARE(pen.color(), QColor(63, 65, 71, 255));
    QCOMPARE(pen.brush().style(), Qt::SolidPattern);
    QCOMPARE(pen.widthF(), width);
    QCOMPARE(pen.style(), style);
    QCOMPARE(pen.capStyle(), Qt::SquareCap);
    QCOMPARE(pen.joinStyle(), Qt::BevelJoin);
}

/// One category axis and one value axis from 0 to `bound`, in the look that bars and lines share.
inline void verifyAxes(const QChart *chart, double bound)
{
    QCOMPARE(chart->axes().size(), 2);
    QBarCategoryAxis *category = categoryAxis(chart);
    QVERIFY(category);
    QVERIFY(!category->isGridLineVisible());
    verifyPen(category->linePen(), 1.5, Qt::SolidLine);
    QCOMPARE(category->labelsColor(), QColor(Qt::gray));
    QVERIFY(category->isLineVisible());
    QVERIFY(category->labelsVisible());

    QValueAxis *value = valueAxis(chart);
    QVERIFY(value);
    QCOMPARE(value->min(), 0.0);
    QCOMPARE(value->max(), bound);
    QCOMPARE(value->tickCount(), 6);
    QCOMPARE(value->labelFormat(), QStringLiteral("%d"));
    QCOMPARE(value->labelsColor(), QColor(Qt::gray));
    verifyPen(value->gridLinePen(), 1.0, Qt::DashLine);
    QVERIFY(value->isGridLineVisible());
    QVERIFY(!value->isLineVisible());
    QVERIFY(value->labelsVisible());

    for (QAbstractSeries *one : chart->series()) {
        QCOMPARE(one->attachedAxes().size(), 2);
        QVERIFY(one->attachedAxes().contains(categoryAxis(chart)));
        QVERIFY(one->attachedAxes().contains(valueAxis(chart)));
    }
}

/// Neither the chart nor its layout keeps a margin.
inline void verifyNoMargins(const QChart *chart)
{
    std::array<double, 4> margins = {-1, -1, -1, -1};
    chart->layout()->getContentsMargins(&margins[0], &margins[1], &margins[2], &margins[3]);
    QCOMPARE(margins, (std::array<double, 4>{0, 0, 0, 0}));
    QCOMPARE(chart->margins(), QMargins(0, 0, 0, 0));
}

/// Moves the real pointer to a point in the coordinates of the view's chart.
inline void moveTo(QChartView *view, const QPointF &chartPoint)
{
    QTest::mouseMove(view->viewport(), view->mapFromScene(view->chart()->mapToScene(chartPoint)));
}

/// Moves the real pointer out of the plot, where nothing can be hovered.
inline void moveAway(QChartView *view)
{
    QTest::mouseMove(view->viewport(), QPoint(1, 1));
}

/// Everything that a chart is built of.
inline QList<QPointer<QObject>> partsOf(const QChart *chart)
{
    QList<QPointer<QObject>> parts;
    for (QAbstractAxis *axis : chart->axes())
        parts.append(axis);
    for (QAbstractSeries *one : chart->series()) {
        parts.append(one);
        if (const auto *bars = qobject_cast<QAbstractBarSeries *>(one)) {
            for (QBarSet *set : bars->barSets())
                parts.append(set);
        } else if (const auto *pie = qobject_cast<QPieSeries *>(one)) {
            for (QPieSlice *slice : pie->slices())
                parts.append(slice);
        }
    }
    return parts;
}

/// Each call of \a build makes another chart, which belongs to nobody and takes all its parts along.
template <typename Build>
void verifyNewCharts(const Build &build)
{
    OwnedChart chart = build();
    const OwnedChart other = build();
    QVERIFY(chart != other);
    QVERIFY(!chart->parent());
    QVERIFY(!chart->parentItem());
    QVERIFY(!chart->scene());
    const QList<QPointer<QObject>> parts = partsOf(chart.get());
    const QList<QPointer<QObject>> otherParts = partsOf(other.get());
    QVERIFY(parts.size() > 1);
    chart.reset();
    for (const QPointer<QObject> &part : parts)
        QVERIFY(part.isNull());
    for (const QPointer<QObject> &part : otherParts)
        QVERIFY(part);
}

/// What a class of snapshots counts: some of no minor type that has a name.
inline SnapDetailMajorItem major(int type, int countOfOthers)
{
    SnapDetailMajorItem item;
    item.majorType = type;
    item.minors = {{-4711, countOfOthers}};
    return item;
}

/// Lets everything go that was left to the event loop for deletion.
inline void runDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

inline QPointF middleOfBar(QChart *chart, int bar, double from, double to)
{
    QAbstractSeries *first = chart->series().value(0);
    return (chart->mapToPosition(QPointF(bar, from), first) + chart->mapToPosition(QPointF(bar, to), first))
        / 2;
}

/// A point on the ring of the pie, `turn` of a full turn clockwise from the top.
inline QPointF pointOfRing(const QChart *chart, double turn)
{
    const QRectF area = chart->plotArea();
    const double radius = std::min(area.width(), area.height()) / 2 * 0.86 * (1 + 0.618) / 2;
    const double angle = turn * 2 * M_PI;
    return area.center() + QPointF(radius * std::sin(angle), -radius * std::cos(angle));
}

} // namespace ChartProbe
