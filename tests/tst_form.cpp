#include "support/EventCount.h"
#include "support/ScenePage.h"
#include "support/TestMain.h"
#include "support/TestTable.h"
#include "support/TextRecorder.h"

#include <devhost/widgets/HostSettings.h>
#include <export/TempResultExportWidget.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/AppStyleHelper.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/BaseHelper.h>
#include <TalvixWidgets/ZrCalendarWidget.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrPushButton.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QToolButton>

using namespace Qt::StringLiterals;

namespace {
const QString navDot = u":/images/home/charts/nav_dot.png"_s;
const QString exportIcon = u":/images/home/main/menu/export.png"_s;
const QString dateIcon = u":/images/home/common/common_16/date_16.png"_s;
const QString searchLine = u"BasicChart::slotSearch "_s;

QBoxLayout *boxLayout(const QWidget &page, const QString &name)
{
    return page.findChild<QBoxLayout *>(name);
}

/// Object names of what a layout holds, "spacer" for a spacer; nested layouts are named or unfolded.
QStringList contentOf(const QLayout *layout, bool unfold = false)
{
    QStringList names;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (item->widget())
            names.append(item->widget()->objectName());
        else if (item->layout())
            names += unfold ? contentOf(item->layout(), true) : QStringList(item->layout()->objectName());
        else
            names.append(u"spacer"_s);
    }
    return names;
}

QLayoutItem *itemOf(const QLayout *layout, const QWidget *widget)
{
    for (int i = 0; i < layout->count(); ++i) {
        if (layout->itemAt(i)->widget() == widget)
            return layout->itemAt(i);
    }
    return nullptr;
}

/// What a layout makes of these margins in the same place, -1 being the style's default.
QMargins resolvedMargins(const QMargins &margins, bool nested)
{
    QWidget window;
    auto *pane = new QWidget(&window);
    auto *outer = new QHBoxLayout(pane);
    QHBoxLayout *layout = outer;
    if (nested) {
        layout = new QHBoxLayout;
        outer->addLayout(layout);
    }
    layout->setContentsMargins(margins.left(), margins.top(), margins.right(), margins.bottom());
    return layout->contentsMargins();
}

QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(16, 16).toImage();
}

/// Notes which buttons are unpolished and polished.
class PolishRecorder : public QProxyStyle
{
public:
    QStringList steps;

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;

    void polish(QWidget *widget) override
    {
        steps.append(u"polish "_s + widget->objectName());
        QProxyStyle::polish(widget);
    }

    void unpolish(QWidget *widget) override
    {
        steps.append(u"unpolish "_s + widget->objectName());
        QProxyStyle::unpolish(widget);
    }
};

QString translated(const char *key, AppLanguageTr::CaptitalType type)
{
    return AppLanguageTr::instance()->translate(QString::fromLatin1(key), type, -1);
}

struct FixedText
{
    const char *widget;
    const char *key;
    AppLanguageTr::CaptitalType type;
};

const FixedText fixedTexts[] = {
    {"carRadio", "TK_Vehicle", AppLanguageTr::Button},
    {"personRadio", "TK_Pedestrian", AppLanguageTr::Button},
    {"pushButtonExport", "TK_Export", AppLanguageTr::Sentence},
    {"pushButtonMonth", "TK_Month", AppLanguageTr::Button},
    {"pushButtonDay", "TK_Day", AppLanguageTr::Button},
    {"pushButtonHour", "TK_Hour", AppLanguageTr::Button},
    {"labelSort", "TK_sort", AppLanguageTr::Sentence},
};

QStringList itemTexts(const QComboBox *combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts.append(combo->itemText(i));
    return texts;
}

QList<int> itemNumbers(const QComboBox *combo)
{
    QList<int> numbers;
    for (int i = 0; i < combo->count(); ++i)
        numbers.append(combo->itemData(i, Qt::UserRole).toInt());
    return numbers;
}

} // namespace

class TestForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { resetHostSettings(); }

    void cleanup() { HostSettings::setLanguage({}); }

    void pageHasNameSizeAndTitle()
    {
        const ProbePage page;
        QCOMPARE(page.objectName(), u"BasicChart"_s);
        QCOMPARE(page.size(), QSize(1136, 648));
        QCOMPARE(page.windowTitle(), u"Form"_s);
    }

    void layoutsHoldTheirContent_data()
    {
        table<bool, QString, QString>({"vertical", "owner", "content"},
            {{"verticalLayout_8", true, "BasicChart", "verticalLayout_7"},
                {"verticalLayout_7", true, "verticalLayout_8", "widgetBar horizontalLayout_6"},
                {"verticalLayout_2", true, "widgetBar", "verticalLayout"},
                {"verticalLayout", true, "verticalLayout_2", "widgetBarTitle widgetBarChart"},
                {"horizontalLayout_9", false, "widgetBarTitle", "horizontalLayout_3"},
                {"horizontalLayout_3", false, "horizontalLayout_9",
                    "label_7 labelBarChartTitle spacer comboBox spacer comboBoxOrgType spacer "
                    "horizontalLayout "
                    "spacer "
                    "lineEditTime spacer horizontalLayout_2 spacer pushButtonExport"},
                {"horizontalLayout", false, "horizontalLayout_3",
                    "pushButtonMonth pushButtonDay pushButtonHour"},
                {"horizontalLayout_2", false, "horizontalLayout_3",
                    "labelSort spacer pushButtonAsc pushButtonDesc"},
                {"horizontalLayout_6", false, "verticalLayout_7", "widgetLine widgetPie"},
                {"verticalLayout_4", true, "widgetLine", "verticalLayout_3"},
                {"verticalLayout_3", true, "verticalLayout_4", "widgetLineTitle widgetLineChart"},
                {"horizontalLayout_7", false, "widgetLineTitle", "horizontalLayout_4"},
                {"horizontalLayout_4", false, "horizontalLayout_7", "label_5 labelLineChartTitle spacer"},
                {"verticalLayout_5", true, "widgetPie", "verticalLayout_6"},
                {"verticalLayout_6", true, "verticalLayout_5", "widgetPieTitle widgetPieChart"}});
    }

    void layoutsHoldTheirContent()
    {
        const QString name = rowName();
        QFETCH(QString, content);
        const ProbePage page;
        const QBoxLayout *layout = boxLayout(page, name);
        QVERIFY(layout);
        QTEST(qobject_cast<const QVBoxLayout *>(layout) != nullptr, "vertical");
        QTEST(layout->parent()->objectName(), "owner");
        QCOMPARE(contentOf(layout), content.split(u' '));
    }

    void pieTitleHoldsLabelAndRadios()
    {
        const ProbePage page;
        const QBoxLayout *outer = boxLayout(page, u"horizontalLayout_8"_s);
        QVERIFY(qobject_cast<const QHBoxLayout *>(outer));
        QCOMPARE(outer->parent(), page.part<QWidget>("widgetPieTitle"));
        QCOMPARE(contentOf(outer, true),
            QStringList(
                {u"label_6"_s, u"labelPieChartTitle"_s, u"spacer"_s, u"carRadio"_s, u"personRadio"_s}));
        const QBoxLayout *title = boxLayout(page, u"horizontalLayout_5"_s);
        QVERIFY(qobject_cast<const QHBoxLayout *>(title));
        QCOMPARE(contentOf(title).mid(0, 3), QStringList({"label_6", "labelPieChartTitle", "spacer"}));
        const QBoxLayout *radios = boxLayout(page, u"horizontalLayout_10"_s);
        QVERIFY(qobject_cast<const QHBoxLayout *>(radios));
        QCOMPARE(contentOf(radios), QStringList({"carRadio", "personRadio"}));
    }

    void margins_data()
    {
        table<bool, QMargins>({"nested", "margins"},
            {{"verticalLayout_7", true, {5, 5, 5, 5}}, {"verticalLayout_2", false, {0, 0, 0, 5}},
                {"verticalLayout", true, {1, 0, 1, 1}}, {"horizontalLayout_9", false, {0, 5, 0, 0}},
                {"horizontalLayout_3", true, {9, -1, 9, 1}}, {"horizontalLayout_6", true, {0, 5, 0, 5}},
                {"verticalLayout_4", false, {0, 0, 0, 0}}, {"verticalLayout_3", true, {1, 0, 1, 5}},
                {"horizontalLayout_7", false, {-1, 0, -1, 0}}, {"verticalLayout_5", false, {0, 0, 0, 0}},
                {"verticalLayout_6", true, {1, 0, 1, 5}}, {"horizontalLayout_8", false, {9, 0, 9, 0}}});
    }

    void margins()
    {
        const QString name = rowName();
        QFETCH(bool, nested);
        QFETCH(QMargins, margins);
        const ProbePage page;
        QCOMPARE(boxLayout(page, name)->contentsMargins(), resolvedMargins(margins, nested));
    }

    void spacings_data()
    {
        table<QString, int>({"name", "spacing"},
            {{"between upper pane and lower row", "verticalLayout_7", 6},
                {"none between the unit buttons", "horizontalLayout", 0},
                {"none between the sort controls", "horizontalLayout_2", 0},
                {"between line and pie", "horizontalLayout_6", 10},
                {"none between the radios", "horizontalLayout_10", 0}});
    }

    void spacings()
    {
        QFETCH(QString, name);
        QFETCH(int, spacing);
        const ProbePage page;
        QCOMPARE(boxLayout(page, name)->spacing(), spacing);
    }

    void stretches_data()
    {
        table<QString, QList<int>>({"name", "stretches"},
            {{"upper pane and lower row", "verticalLayout_7", {1, 1}},
                {"bar title and chart", "verticalLayout", {1, 6}},
                {"line and pie", "horizontalLayout_6", {3, 2}},
                {"line title and chart", "verticalLayout_3", {1, 6}},
                {"pie title and chart", "verticalLayout_6", {1, 6}}});
    }

    void stretches()
    {
        QFETCH(QString, name);
        QFETCH(QList<int>, stretches);
        const ProbePage page;
        const QBoxLayout *layout = boxLayout(page, name);
        QList<int> found;
        for (int i = 0; i < layout->count(); ++i)
            found.append(layout->stretch(i));
        QCOMPARE(found, stretches);
    }

    void spacers_data()
    {
        const QString bar = u"horizontalLayout_3"_s;
        table<QString, int, QSizePolicy::Policy, QSize>({"layout", "index", "policy", "size"},
            {{"behind the bar title", bar, 2, QSizePolicy::Expanding, {40, 20}},
                {"behind the tree", bar, 4, QSizePolicy::Fixed, {20, 20}},
                {"behind the sum mode", bar, 6, QSizePolicy::Fixed, {20, 20}},
                {"behind the unit buttons", bar, 8, QSizePolicy::Maximum, {30, 20}},
                {"behind the time", bar, 10, QSizePolicy::Preferred, {40, 20}},
                {"before the export button", bar, 12, QSizePolicy::Maximum, {40, 20}},
                {"behind the sort label", "horizontalLayout_2", 1, QSizePolicy::Fixed, {20, 20}},
                {"behind the line title", "horizontalLayout_4", 2, QSizePolicy::Expanding, {}},
                {"behind the pie title", "horizontalLayout_5", 2, QSizePolicy::Expanding, {}}});
    }

    void spacers()
    {
        QFETCH(QString, layout);
        QFETCH(int, index);
        QFETCH(QSize, size);
        const ProbePage page;
        const QSpacerItem *spacer = boxLayout(page, layout)->itemAt(index)->spacerItem();
        QVERIFY(spacer);
        QTEST(spacer->sizePolicy().horizontalPolicy(), "policy");
        if (size.isValid())
            QCOMPARE(spacer->sizeHint(), size);
    }

    void widgetClasses_data()
    {
        QTest::addColumn<QByteArray>("className");
        const std::pair<const char *, QStringList> classes[] = {
            {"QWidget",
                {"widgetBar", "widgetBarTitle", "widgetBarChart", "widgetLine", "widgetLineTitle",
                    "widgetLineChart", "widgetPie", "widgetPieTitle", "widgetPieChart"}},
            {"QLabel",
                {"label_5", "label_6", "label_7", "labelBarChartTitle", "labelLineChartTitle",
                    "labelPieChartTitle", "labelSort"}},
            {"ZrPushButton",
                {"pushButtonMonth", "pushButtonDay", "pushButtonHour", "pushButtonAsc", "pushButtonDesc",
                    "pushButtonExport", "carRadio", "personRadio"}},
            {"ZrComboBoxWithTree", {"comboBox"}}, {"QComboBox", {"comboBoxOrgType"}},
            {"QLineEdit", {"lineEditTime"}}};
        for (const auto &[className, widgets] : classes) {
            for (const QString &name : widgets)
                QTest::newRow(qPrintable(name)) << QByteArray(className);
        }
    }

    void widgetClasses()
    {
        QFETCH(QByteArray, className);
        const ProbePage page;
        const auto found = page.findChildren<QWidget *>(rowName());
        QCOMPARE(found.size(), 1);
        QCOMPARE(QByteArray(found.first()->metaObject()->className()), className);
    }

    void widgetParents_data()
    {
        table<QString>({"children"},
            {{"BasicChart", "widgetBar widgetLine widgetPie"}, {"widgetBar", "widgetBarTitle widgetBarChart"},
                {"widgetBarTitle",
                    "label_7 labelBarChartTitle comboBox comboBoxOrgType pushButtonMonth pushButtonDay "
                    "pushButtonHour "
                    "lineEditTime labelSort pushButtonAsc pushButtonDesc pushButtonExport"},
                {"widgetLine", "widgetLineTitle widgetLineChart"},
                {"widgetLineTitle", "label_5 labelLineChartTitle"},
                {"widgetPie", "widgetPieTitle widgetPieChart"},
                {"widgetPieTitle", "label_6 labelPieChartTitle carRadio personRadio"}, {"widgetBarChart", ""},
                {"widgetLineChart", ""}, {"widgetPieChart", ""}});
    }

    void widgetParents()
    {
        const QString parent = rowName();
        QFETCH(QString, children);
        const ProbePage page;
        const QWidget *owner = parent == page.objectName() ? &page : page.findChild<QWidget *>(parent);
        QVERIFY(owner);
        QSet<QString> found;
        for (const QWidget *child : owner->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            found.insert(child->objectName());
        const QStringList wanted = children.split(u' ', Qt::SkipEmptyParts);
        QCOMPARE(found, QSet<QString>(wanted.cbegin(), wanted.cend()));
    }

    void sizeLimits_data()
    {
        const QSize none(0, 0);
        table<QSize, QSize>({"minimum", "maximum"},
            {{"comboBox", {190, 30}, {QWIDGETSIZE_MAX, 30}},
                {"comboBoxOrgType", {140, 30}, {QWIDGETSIZE_MAX, 30}}, {"pushButtonMonth", {50, 30}, none},
                {"pushButtonDay", {50, 30}, none}, {"pushButtonHour", {50, 30}, none},
                {"pushButtonAsc", {30, 25}, none}, {"pushButtonDesc", {30, 25}, none},
                {"lineEditTime", {240, 30}, {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX}}});
    }

    void sizeLimits()
    {
        const QString name = rowName();
        const ProbePage page;
        const auto *widget = page.findChild<QWidget *>(name);
        QTEST(widget->minimumSize(), "minimum");
        QTEST(widget->maximumSize(), "maximum");
    }

    void sizePolicies_data()
    {
        using Policy = QSizePolicy::Policy;
        table<Policy, Policy>({"horizontal", "vertical"},
            {{"pushButtonMonth", Policy::Fixed, Policy::Fixed},
                {"pushButtonDay", Policy::Fixed, Policy::Fixed},
                {"pushButtonHour", Policy::Fixed, Policy::Fixed},
                {"pushButtonAsc", Policy::Fixed, Policy::Fixed},
                {"pushButtonDesc", Policy::Fixed, Policy::Fixed},
                {"labelBarChartTitle", Policy::Preferred, Policy::Fixed},
                {"labelLineChartTitle", Policy::Preferred, Policy::Fixed},
                {"labelPieChartTitle", Policy::Preferred, Policy::Fixed}});
    }

    void sizePolicies()
    {
        const ProbePage page;
        const QSizePolicy policy = page.findChild<QWidget *>(rowName())->sizePolicy();
        QTEST(policy.horizontalPolicy(), "horizontal");
        QTEST(policy.verticalPolicy(), "vertical");
    }

    void centredInTheirLayout_data()
    {
        table<QString>({"layout"},
            {{"comboBox", "horizontalLayout_3"}, {"lineEditTime", "horizontalLayout_3"},
                {"pushButtonMonth", "horizontalLayout"}, {"pushButtonDay", "horizontalLayout"},
                {"pushButtonHour", "horizontalLayout"}, {"pushButtonAsc", "horizontalLayout_2"},
                {"pushButtonDesc", "horizontalLayout_2"}});
    }

    void centredInTheirLayout()
    {
        QFETCH(QString, layout);
        const ProbePage page;
        const QLayoutItem *item = itemOf(boxLayout(page, layout), page.findChild<QWidget *>(rowName()));
        QVERIFY(item);
        QCOMPARE(item->alignment(), Qt::Alignment(Qt::AlignCenter));
    }

    void titleDots_data() { names({"label_5", "label_6", "label_7"}); }
    void titleDots()
    {
        QFETCH(QString, name);
        QVERIFY(QFile::exists(navDot));
        const ProbePage page;
        const auto *label = page.findChild<QLabel *>(name);
        QVERIFY(!label->pixmap(Qt::ReturnByValue).isNull());
        QCOMPARE(label->pixmap(Qt::ReturnByValue).toImage(), QPixmap(navDot).toImage());
        if (name == u"label_7"_s)
            QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
    }

    void sortButtonsHaveIconSizeAndAutoDefault_data()
    {
        table<QString>({"name"}, {{"ascending", "pushButtonAsc"}, {"descending", "pushButtonDesc"}});
    }

    void sortButtonsHaveIconSizeAndAutoDefault()
    {
        QFETCH(QString, name);
        const ProbePage page;
        const auto *button = page.findChild<ZrPushButton *>(name);
        QCOMPARE(button->iconSize(), QSize(16, 16));
        QVERIFY(button->autoDefault());
        QVERIFY(button->isEnabled());
    }

    void exportButtonHasIconForOffAndNormal()
    {
        QVERIFY(QFile::exists(exportIcon));
        const ProbePage page;
        const auto *button = page.part<ZrPushButton>("pushButtonExport");
        QCOMPARE(button->text(), QString());
        QVERIFY(!button->icon().isNull());
        QCOMPARE(imageOf(button->icon()), imageOf(QIcon(exportIcon)));
        QVERIFY(!button->icon().availableSizes(QIcon::Normal, QIcon::Off).isEmpty());
        QVERIFY(button->icon().availableSizes(QIcon::Normal, QIcon::On).isEmpty());
    }

    void formTextsAreEmptyAtFirst_data()
    {
        names({"label_5", "label_6", "label_7", "labelBarChartTitle", "labelLineChartTitle",
            "labelPieChartTitle", "labelSort", "pushButtonMonth", "pushButtonDay", "pushButtonHour",
            "pushButtonAsc", "pushButtonDesc", "pushButtonExport", "carRadio", "personRadio",
            "lineEditTime"});
    }

    void formTextsAreEmptyAtFirst()
    {
        QFETCH(QString, name);
        HostSettings::setLanguage(u"en"_s);
        const ProbePage page;
        QCOMPARE(page.findChild<QWidget *>(name)->property("text").toString(), QString());
    }

    void upperPaneAndLowerRowShareTheHeight()
    {
        PageScene scene;
        scene.client.clearTree();
        ProbePage page(1);
        showPage(page);
        const QBoxLayout *rows = boxLayout(page, u"verticalLayout_7"_s);
        const int upper = rows->itemAt(0)->geometry().height();
        const int lower = rows->itemAt(1)->geometry().height();
        QVERIFY2(qAbs(upper - lower) <= 1, qPrintable(u"%1 %2"_s.arg(upper).arg(lower)));
        QVERIFY(upper > 250);
    }

    void minimumRulesTheButtonsOnScreen()
    {
        ShownPage page;
        QCOMPARE(page.part<QWidget>("pushButtonAsc")->size(), QSize(30, 25));
        QCOMPARE(page.part<QWidget>("pushButtonDesc")->size(), QSize(30, 25));
        for (const char *name : {"pushButtonMonth", "pushButtonDay", "pushButtonHour"})
            QCOMPARE(page.part<QWidget>(name)->size(), QSize(65, 30));
        QCOMPARE(page.part<QWidget>("comboBox")->height(), 30);
        QCOMPARE(page.part<QWidget>("comboBoxOrgType")->height(), 30);
    }

    void timeLineEditIsReadOnlyWithDateAction()
    {
        QVERIFY(QFile::exists(dateIcon));
        ShownPage page;
        const auto *lineEdit = page.part<QLineEdit>("lineEditTime");
        QVERIFY(lineEdit->isReadOnly());
        QCOMPARE(lineEdit->actions().size(), 1);
        QCOMPARE(imageOf(lineEdit->actions().first()->icon()), imageOf(QIcon(dateIcon)));
        QVERIFY(!lineEdit->actions().first()->icon().isNull());
        const auto *button = lineEdit->findChild<QToolButton *>();
        QVERIFY(button);
        QCOMPARE(button->defaultAction(), lineEdit->actions().first());
        QVERIFY(button->geometry().left() > lineEdit->width() / 2);
    }

    void dateActionOpensTheCalendar()
    {
        ShownPage page;
        QVERIFY(!page.m_pCalendarWidget->isVisible());
        QTest::mouseClick(page.part<QLineEdit>("lineEditTime")->findChild<QToolButton *>(), Qt::LeftButton);
        QVERIFY(page.m_pCalendarWidget->isVisible());
    }

    void calendarIsChildAndReportsToThePage()
    {
        ScenePage page;
        QVERIFY(page.m_pCalendarWidget);
        QCOMPARE(page.m_pCalendarWidget->parent(), &page);
        QCOMPARE(page.findChildren<ZrCalendarWidget *>().size(), 1);
        Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(
            QDateTime(QDate(2024, 5, 3), QTime(4, 0)), QDateTime(QDate(2024, 5, 3), QTime(6, 0)));
        QCOMPARE(page.part<QLineEdit>("lineEditTime")->text(), u"2024-05-03 04~2024-05-03 06"_s);
    }

    void userIsFetchedOnce()
    {
        PageScene scene;
        scene.client.setUserId(42);
        ProbePage page(1);
        showPage(page);
        QCOMPARE(page.m_curUser.get_id(), 42);
        scene.client.setUserId(43);
        page.hide();
        page.show();
        QCOMPARE(scene.client.calls.count(u"getCurUserInfo"_s), 1);
        QCOMPARE(page.m_curUser.get_id(), 42);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().userId, 42);
    }

    void userStaysDefaultWhenNobodyIsSignedIn()
    {
        PageScene scene;
        scene.client.signOut();
        ProbePage page(1);
        showPage(page);
        QCOMPARE(page.m_curUser.get_id(), 0);
        QCOMPARE(page.tips.size(), 0);
        QVERIFY(!scene.manager.alarmStatisticsOfOrgas.requests.isEmpty());
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().userId, 0);
    }

    void firstSpanStartsNoSearch()
    {
        PageScene scene;
        ProbePage page(1);
        LogCapture log;
        page.initForm();
        QCOMPARE(page.part<QLineEdit>("lineEditTime")->text(), u"2024-05-03 00~2024-05-03 17"_s);
        QVERIFY(!log.contains(searchLine));
        QCOMPARE(page.tips.size(), 0);
        QCOMPARE(scene.client.calls, QStringList({"getCurUserInfo"}));
    }

    void sortButtonToolTips()
    {
        PageScene scene;
        ProbePage page(1);
        QCOMPARE(page.part<QWidget>("pushButtonAsc")->toolTip(), QString());
        page.initForm();
        QCOMPARE(page.part<QWidget>("pushButtonAsc")->toolTip(), u"TK_AscMode"_s);
        QCOMPARE(page.part<QWidget>("pushButtonDesc")->toolTip(), u"TK_DescMode"_s);
    }

    void sumModesHaveTextsAndData()
    {
        PageScene scene;
        ProbePage page(1);
        const auto *combo = page.part<QComboBox>("comboBoxOrgType");
        QCOMPARE(combo->count(), 0);
        page.initForm();
        QCOMPARE(itemTexts(combo), QStringList({"TK_LowSum", "TK_AllSum", "TK_OnlyCurrent"}));
        QCOMPARE(itemNumbers(combo), QList<int>({1, 2, 3}));
        for (int i = 0; i < 3; ++i)
            QVERIFY(combo->itemIcon(i).isNull());
    }

    void sumModeShowsTheSecondItem()
    {
        ScenePage page;
        const auto *combo = page.part<QComboBox>("comboBoxOrgType");
        QCOMPARE(combo->currentIndex(), 1);
        QCOMPARE(combo->currentData().toInt(), 2);
        QCOMPARE(combo->currentText(), u"TK_AllSum"_s);
    }

    void organisationSignalReloadsTheTree()
    {
        ShownPage page;
        page.forgetCalls();
        Q_EMIT page.client.signalOrgaInfoChanged({}, TalvixOperatorType::Add);
        QCOMPARE(page.treeLoads(), 1);
        QCOMPARE(page.manager.calls, QStringList());
    }

    void conditionsStartSearches_data()
    {
        table<QString>({"condition"},
            {{"the time text", "time"}, {"another node of the tree", "tree"}, {"another sum mode", "sum"}});
    }

    void conditionsStartSearches()
    {
        QFETCH(QString, condition);
        ShownPage page;
        page.forgetCalls();
        LogCapture log;
        if (condition == u"time"_s)
            QTest::mouseClick(page.part<ZrPushButton>("pushButtonDay"), Qt::LeftButton);
        else if (condition == u"tree"_s)
            QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        else
            QTest::keyClick(page.part<QComboBox>("comboBoxOrgType"), Qt::Key_Down);
        QCOMPARE(log.count(searchLine), 1);
        QCOMPARE(page.wholeLevelCalls(), QStringList({"getAlarmStatisticsOfOrgas"}));
    }

    void timerRepeatsAndWaits()
    {
        ScenePage page;
        QVERIFY(page.m_pTimer);
        QCOMPARE(page.m_pTimer->parent(), &page);
        QVERIFY(!page.m_pTimer->isSingleShot());
        QVERIFY(!page.m_pTimer->isActive());

        QStringList emitted;
        connect(&page, &BasicChart::barSetChanged, this, [&emitted](QString &bar) { emitted.append(bar); });
        page.m_strSelectedBar = u"Plant North"_s;
        page.m_pTimer->start(1);
        QTRY_COMPARE(emitted, QStringList({"Plant North"}));
        QVERIFY(!page.m_pTimer->isActive());
    }

    void calloutTemplate()
    {
        ScenePage page;
        QCOMPARE(page.m_strToolTipFormat,
            u"<p>&nbsp; %1 <br/><br/>                        &nbsp;  "
            "<img src=\":/images/home/charts/nav_dot.png\" width=\"5\" height=\"5\"> %2 &nbsp; %3 "
            "</p>"_s);
    }

    void radiosAreAnExclusiveGroup()
    {
        PageScene scene;
        ProbePage page(7);
        auto *car = page.part<ZrPushButton>("carRadio");
        auto *person = page.part<ZrPushButton>("personRadio");
        QVERIFY(!car->isCheckable());
        page.initForm();
        const auto groups = page.findChildren<QButtonGroup *>();
        QCOMPARE(groups.size(), 1);
        QCOMPARE(groups.first()->parent(), &page);
        QVERIFY(groups.first()->exclusive());
        QCOMPARE(groups.first()->buttons().size(), 2);
        QCOMPARE(car->group(), groups.first());
        QCOMPARE(person->group(), groups.first());
        QCOMPARE(groups.first()->id(car), -2);
        QCOMPARE(groups.first()->id(person), -3);
        QVERIFY(car->isCheckable());
        QVERIFY(person->isCheckable());
        QVERIFY(car->isChecked());
        QVERIFY(!person->isChecked());
    }

    void clickOnRadioSwitchesThePie()
    {
        PageScene scene;
        scene.manager.snapDetailSamples.answer = [](const TalvixGetSnapDetailSamplesRequestMessage &request,
                                                     TalvixGetSnapDetailSamplesResponseMessage &response) {
            response.snapDetailList = {{request.majorType == 4 ? 6 : 1, {{1, 3}}}};
            return true;
        };
        ProbePage page(7);
        showPage(page);
        QCOMPARE(itemNumbers(page.comboBoxPie), QList<int>({6}));
        scene.forgetCalls();
        QTest::mouseClick(page.part<ZrPushButton>("personRadio"), Qt::LeftButton);
        QVERIFY(page.part<ZrPushButton>("personRadio")->isChecked());
        QVERIFY(!page.part<ZrPushButton>("carRadio")->isChecked());
        QCOMPARE(itemNumbers(page.comboBoxPie), QList<int>({1}));
        QTest::mouseClick(page.part<ZrPushButton>("carRadio"), Qt::LeftButton);
        QCOMPARE(itemNumbers(page.comboBoxPie), QList<int>({6}));
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void lineNamesAreRenewed()
    {
        PageScene scene;
        ProbePage page(1);
        page.lineNames = QStringList({"left over"});
        page.initForm();
        QCOMPARE(page.lineNames, QStringList({"TK_Vehicle", "TK_Pedestrian"}));
    }

    void fixedTextsAreKeysWithoutLanguage()
    {
        ScenePage page;
        for (const FixedText &text : fixedTexts)
            QCOMPARE(
                page.part<QWidget>(text.widget)->property("text").toString(), QString::fromLatin1(text.key));
    }

    void unitButtonsAre65Wide()
    {
        ScenePage page;
        for (const char *name : {"pushButtonMonth", "pushButtonDay", "pushButtonHour"}) {
            const auto *button = page.part<ZrPushButton>(name);
            QCOMPARE(button->minimumWidth(), 65);
            QCOMPARE(button->maximumWidth(), 65);
            QCOMPARE(button->minimumHeight(), 30);
        }
    }

    void buttonsGetTheirStyles_data()
    {
        table<QString, int>({"name", "style"},
            {{"month", "pushButtonMonth", 12}, {"day", "pushButtonDay", 12}, {"hour", "pushButtonHour", 12},
                {"export", "pushButtonExport", 5}});
    }

    void buttonsGetTheirStyles()
    {
        QFETCH(QString, name);
        QFETCH(int, style);
        PageScene scene;
        ProbePage page(1);
        const auto *button = page.findChild<ZrPushButton *>(name);
        ZrPushButton styled;
        AppStyleHelper::updateWidgetStyle(&styled, static_cast<AppStyleHelper::newWidgetStyleType>(style));
        const QByteArrayList marks = styled.dynamicPropertyNames();
        QVERIFY(!marks.isEmpty());
        for (const QByteArray &mark : marks)
            QVERIFY(button->property(mark) != styled.property(mark));
        page.initForm();
        for (const QByteArray &mark : marks)
            QCOMPARE(button->property(mark), styled.property(mark));
    }

    void buttonSlotsAreConnectedByName()
    {
        ShownPage page;
        const auto *lineEdit = page.part<QLineEdit>("lineEditTime");
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonMonth"), Qt::LeftButton);
        QCOMPARE(lineEdit->text(), u"2023-11~2024-05"_s);
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonDay"), Qt::LeftButton);
        QCOMPARE(lineEdit->text(), u"2024-04-26~2024-05-03"_s);
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonHour"), Qt::LeftButton);
        QCOMPARE(lineEdit->text(), u"2024-05-03 00~2024-05-03 17"_s);
        LogCapture log;
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonAsc"), Qt::LeftButton);
        QCOMPARE(log.count(u"BasicChart::on_pushButtonAsc_clicked"_s), 1);
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonDesc"), Qt::LeftButton);
        QCOMPARE(log.count(u"BasicChart::on_pushButtonDesc_clicked"_s), 1);
    }

    void exportSlotIsConnectedByName()
    {
        ShownPage page(9);
        bool asked = false;
        QTimer::singleShot(0, &page, [&] {
            asked = page.m_pExportWidget != nullptr;
            if (asked)
                page.m_pExportWidget->findChild<ZrPushButton *>(u"pushButtonCancel"_s)->click();
        });
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonExport"), Qt::LeftButton);
        QVERIFY(asked);
    }

    void initFormRunsOnce()
    {
        ShownPage page(7);
        const auto *calendar = page.m_pCalendarWidget;
        const auto *timer = page.m_pTimer;
        const auto timers = page.findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
        for (int i = 0; i < 3; ++i) {
            page.hide();
            page.show();
        }
        QCOMPARE(page.m_pCalendarWidget, calendar);
        QCOMPARE(page.findChildren<ZrCalendarWidget *>().size(), 1);
        QCOMPARE(page.m_pTimer, timer);
        QCOMPARE(page.findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly), timers);
        QCOMPARE(page.findChildren<QButtonGroup *>().size(), 1);
        QCOMPARE(page.part<QComboBox>("comboBoxOrgType")->count(), 3);
        QCOMPARE(page.part<QLineEdit>("lineEditTime")->actions().size(), 1);
        QCOMPARE(page.lineNames.size(), 2);
    }

    void retranslateTextsSetsTheTable()
    {
        ProbePage page(1);
        page.retranslateTexts();
        for (const FixedText &text : fixedTexts)
            QCOMPARE(
                page.part<QWidget>(text.widget)->property("text").toString(), QString::fromLatin1(text.key));
        QCOMPARE(page.part<QLabel>("labelBarChartTitle")->text(), QString());
    }

    void languageChangeRenewsAllTexts()
    {
        ShownPage page;
        for (const QString &code : {u"en"_s, u"x-long"_s}) {
            QVERIFY(HostSettings::setLanguage(code));
            QTRY_COMPARE(
                page.part<QLabel>("labelSort")->text(), translated("TK_sort", AppLanguageTr::Sentence));
            for (const FixedText &text : fixedTexts) {
                const QString wanted = translated(text.key, text.type);
                QVERIFY2(wanted != QString::fromLatin1(text.key), text.key);
                QCOMPARE(page.part<QWidget>(text.widget)->property("text").toString(), wanted);
            }
            QCOMPARE(itemTexts(page.part<QComboBox>("comboBoxOrgType")),
                QStringList({translated("TK_LowSum", AppLanguageTr::Sentence),
                    translated("TK_AllSum", AppLanguageTr::Sentence),
                    translated("TK_OnlyCurrent", AppLanguageTr::Sentence)}));
            for (const char *name : {"labelBarChartTitle", "labelPieChartTitle", "labelLineChartTitle"}) {
                auto *label = page.part<QLabel>(name);
                QCOMPARE(label->text(), page.getChartTitle(label));
            }
            QVERIFY(page.part<QLabel>("labelBarChartTitle")
                        ->text()
                        .contains(translated("TK_AlarmStatisticsOfOrgas", AppLanguageTr::Sentence)));
            QVERIFY(page.part<QLabel>("labelPieChartTitle")
                        ->text()
                        .contains(translated("TK_AlarmStatisticsOfType", AppLanguageTr::Sentence)));
            QVERIFY(page.part<QLabel>("labelLineChartTitle")
                        ->text()
                        .contains(translated("TK_AlarmStatisticsOfNum", AppLanguageTr::Sentence)));
        }
    }

    void languageChangeKeepsSumModeAndItsData()
    {
        ShownPage page;
        auto *combo = page.part<QComboBox>("comboBoxOrgType");
        combo->setCurrentIndex(2);
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        QTRY_COMPARE(combo->currentText(), translated("TK_OnlyCurrent", AppLanguageTr::Sentence));
        QCOMPARE(combo->currentIndex(), 2);
        QCOMPARE(itemNumbers(combo), QList<int>({1, 2, 3}));
        QCOMPARE(page.manager.alarmStatisticsOfOrgas.requests.last().orgType, 3);
    }

    void languageChangeRenewsPieModesByMajorType_data()
    {
        table<int, QList<int>>({"type", "modes"},
            {{"modes of person groups", 5, {2, 1}}, {"major types of organisations", 7, {1, 2}},
                {"major types of devices", 8, {1, 2}}, {"modes of device groups", 9, {1, 2}}});
    }

    void languageChangeRenewsPieModesByMajorType()
    {
        QFETCH(int, type);
        QFETCH(QList<int>, modes);
        ShownPage page(type);
        page.fillTree(page);
        page.slotSearch();
        QCOMPARE(itemNumbers(page.comboBoxPie), modes);
        page.comboBoxPie->setCurrentIndex(1);
        page.comboBoxPie->setItemText(0, u"stale"_s);
        page.hide();
        page.retranslateUi();
        QStringList names;
        for (const int mode : modes)
            names.append(AppTranslationHelper::instance()->getSnapDetailMajorTypeName(mode));
        QCOMPARE(itemTexts(page.comboBoxPie), names);
        QCOMPARE(itemNumbers(page.comboBoxPie), modes);
        QCOMPARE(page.comboBoxPie->currentIndex(), 1);
    }

    void languageChangeOnVisiblePageRefillsPieModes()
    {
        ShownPage page(9);
        page.comboBoxPie->setCurrentIndex(1);
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        QTRY_COMPARE(itemTexts(page.comboBoxPie),
            QStringList({translated("TK_ByTemperature", AppLanguageTr::Sentence),
                translated("TK_ByMask", AppLanguageTr::Sentence)}));
        QCOMPARE(itemNumbers(page.comboBoxPie), QList<int>({1, 2}));
        QCOMPARE(page.comboBoxPie->currentIndex(), 1);
    }

    void languageChangeReloadsTreeAndDataButNotTheOrder()
    {
        ShownPage page;
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonAsc"), Qt::LeftButton);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        page.forgetCalls();
        page.manager.alarmStatisticsOfOrgas.requests.clear();
        page.retranslateUi();
        QCOMPARE(page.wholeLevelCalls(), QStringList({"getAlarmStatisticsOfOrgas"}));
        const auto request = page.manager.alarmStatisticsOfOrgas.requests.first();
        QCOMPARE(request.listOrg(), std::vector<int>({1}));
        QCOMPARE(request.sortType, 2);
        QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
        QVERIFY(!page.sortFlag);
        QCOMPARE(page.part<QWidget>("pushButtonAsc")->property("highlight"), QVariant(true));
        QCOMPARE(page.part<QWidget>("pushButtonDesc")->property("highlight"), QVariant(false));
        QCOMPARE(listValues(page.barDataList), QList<int>({5, 7, 9}));
    }

    void languageChangeWithoutTreeSearchesNothing()
    {
        PageScene scene;
        scene.client.clearTree();
        ProbePage page(1);
        showPage(page);
        scene.forgetCalls();
        page.tips.clear();
        LogCapture log;
        page.retranslateUi();
        QCOMPARE(page.tips, QList<ProbePage::Tip>({{u"TK_orgNotExist"_s, 2}}));
        QVERIFY(!log.contains(searchLine));
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void languageChangeShowsPagingAgainAfterAFailedSearch()
    {
        ShownPage page(2);
        page.manager.failWith(u"away"_s);
        page.slotSearch();
        QVERIFY(page.pushButtonNext->isHidden());
        page.retranslateUi();
        QVERIFY(!page.pushButtonNext->isHidden());
        QVERIFY(page.pushButtonPrevious->isHidden());
    }

    void languageChangeOnHiddenPageStopsAtTheNodes()
    {
        ShownPage page;
        page.hide();
        page.forgetCalls();
        page.tips.clear();
        page.part<QLabel>("labelBarChartTitle")->clear();
        LogCapture log;
        page.retranslateUi();
        QVERIFY(!log.contains(searchLine));
        QCOMPARE(page.manager.calls, QStringList());
        QCOMPARE(page.treeLoads(), 1);
        QCOMPARE(page.tips.size(), 0);
        QVERIFY(page.part<QLabel>("labelBarChartTitle")->text().contains(u"TK_AlarmStatisticsOfOrgas"_s));
    }

    void languageChangeBeforeFirstShowIsHarmless()
    {
        PageScene scene;
        ProbePage page(1);
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        page.retranslateUi();
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(page.part<QLabel>("labelSort")->text(), translated("TK_sort", AppLanguageTr::Sentence));
        QCOMPARE(page.part<QComboBox>("comboBoxOrgType")->count(), 0);

        showPage(page);
        scene.forgetCalls();
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QCOMPARE(scene.wholeLevelCalls(), QStringList({"getAlarmStatisticsOfOrgas"}));
    }

    void languageOfTheApplicationSearchesVisiblePagesOnce_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("visible");
        for (const int type : {1, 2, 3, 4, 7, 8, 9}) {
            QTest::addRow("type %d, a visible page searches once", type) << type << true;
            QTest::addRow("type %d, a hidden page does not search", type) << type << false;
        }
    }

    void languageOfTheApplicationSearchesVisiblePagesOnce()
    {
        QFETCH(int, type);
        QFETCH(bool, visible);
        ShownPage page(type);
        page.setVisible(visible);
        for (const char *code : {"en", "de", ""}) {
            LogCapture log;
            page.forgetCalls();
            QVERIFY(HostSettings::setLanguage(QString::fromLatin1(code)));
            QCOMPARE(log.count(searchLine), visible ? 1 : 0);
            QCOMPARE(page.wholeLevelCalls().size(), visible ? 1 : 0);
        }
    }

    void languageChangeRenewsTitlesBarThenPieThenLine_data()
    {
        table<int, bool>({"type", "focusLost"},
            {{"the pie of organisations forgets the bar before the line names it", 7, true},
                {"the pie of devices forgets the bar before the line names it", 8, true},
                {"alarms keep their bar", 1, false}});
    }

    void languageChangeRenewsTitlesBarThenPieThenLine()
    {
        QFETCH(int, type);
        QFETCH(bool, focusLost);
        ScenePage page(type);
        page.m_strSelectedBar = u"Plant North"_s;
        TextRecorder texts;
        page.retranslateUi();
        QCOMPARE(page.part<QLabel>("labelLineChartTitle")->text().contains(u"Plant North"_s), !focusLost);
        QCOMPARE(page.m_strSelectedBar.isEmpty(), focusLost);

        const QString kind = type == 1 ? u"TK_Alarm"_s : u"TK_Traffics"_s;
        const QString bar = type == 1 ? u"StatisticsOfOrgas 1"_s : u"StatisticsOfDevices 1"_s;
        QStringList titles;
        for (const QString &asked : std::as_const(texts.asked)) {
            if (asked.startsWith(kind))
                titles.append(asked.mid(kind.size()));
        }
        QCOMPARE(titles, QStringList({bar, u"StatisticsOfType 1"_s, u"StatisticsOfNum 1"_s}));
    }

    // Tool tips stay those of the set-up; the names of the lines come with the next detail.
    void languageChangeKeepsToolTipsAndLineNames()
    {
        ScenePage page;
        const QStringList names = page.lineNames;
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        QVERIFY(page.part<QLabel>("labelSort")->text() != u"TK_sort"_s);
        QCOMPARE(page.part<QWidget>("pushButtonAsc")->toolTip(), u"TK_AscMode"_s);
        QCOMPARE(page.part<QWidget>("pushButtonDesc")->toolTip(), u"TK_DescMode"_s);
        QCOMPARE(page.lineNames, names);
    }

    void highlightOfNoButtonIsIgnored()
    {
        ProbePage page(1);
        page.setButtonHighlight(nullptr, true);
        page.setButtonHighlight(nullptr, false);
        for (const char *name : {"pushButtonMonth", "pushButtonDay", "pushButtonHour"})
            QVERIFY(!page.part<QWidget>(name)->property("highlight").isValid());
    }

    void highlightSetsPropertyAndPolishes_data() { table<bool>({"on"}, {{"on", true}, {"off", false}}); }
    void highlightSetsPropertyAndPolishes()
    {
        QFETCH(bool, on);
        ProbePage page(1);
        PolishRecorder style;
        page.setStyle(&style);
        auto *button = page.part<ZrPushButton>("pushButtonDay");
        button->QObject::setProperty("highlight", !on);
        style.steps.clear();
        page.setButtonHighlight(button, on);
        QCOMPARE(button->property("highlight"), QVariant(on));
        QCOMPARE(style.steps, QStringList({"unpolish pushButtonDay", "polish pushButtonDay"}));
        page.setStyle(nullptr);
    }

    void highlightRepaintsTheButton()
    {
        ShownPage page;
        auto *button = page.part<ZrPushButton>("pushButtonDay");
        QTest::qWait(50);
        const EventCount paints(button, QEvent::Paint);
        QTest::qWait(50);
        QCOMPARE(paints.count, 0);
        page.setButtonHighlight(button, true);
        QTRY_VERIFY(paints.count > 0);
    }

    void markedButtonsAreNotCheckable_data()
    {
        names({"pushButtonMonth", "pushButtonDay", "pushButtonHour", "pushButtonAsc", "pushButtonDesc"});
    }

    void markedButtonsAreNotCheckable()
    {
        QFETCH(QString, name);
        ShownPage page;
        auto *button = page.findChild<ZrPushButton *>(name);
        QVERIFY(!button->isCheckable());
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!button->isChecked());
        QCOMPARE(button->property("highlight"), QVariant(true));
    }
};

TALVIX_TEST_MAIN(TestForm)
#include "tst_form.moc"
