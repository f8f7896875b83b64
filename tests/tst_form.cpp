#include "support/EventCount.h"
#include "support/PageScene.h"
#include "support/TestMain.h"
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

namespace {

const QString navDot = QStringLiteral(":/images/home/charts/nav_dot.png");
const QString exportIcon = QStringLiteral(":/images/home/main/menu/export.png");
const QString dateIcon = QStringLiteral(":/images/home/common/common_16/date_16.png");
const QString searchLine = QStringLiteral("BasicChart::slotSearch ");

QBoxLayout *boxLayout(const QWidget &page, const QString &name)
{
    return page.findChild<QBoxLayout *>(name);
}

/// Object names of what a layout holds, "spacer" for a spacer.
QStringList contentOf(const QLayout *layout)
{
    QStringList names;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (item->widget())
            names.append(item->widget()->objectName());
        else if (item->layout())
            names.append(item->layout()->objectName());
        else
            names.append(QStringLiteral("spacer"));
    }
    return names;
}

/// The same with nested layouts unfolded.
QStringList leavesOf(const QLayout *layout)
{
    QStringList names;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (item->widget())
            names.append(item->widget()->objectName());
        else if (item->layout())
            names.append(leavesOf(item->layout()));
        else
            names.append(QStringLiteral("spacer"));
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
        steps.append(QStringLiteral("polish ") + widget->objectName());
        QProxyStyle::polish(widget);
    }
    void unpolish(QWidget *widget) override
    {
        steps.append(QStringLiteral("unpolish ") + widget->objectName());
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
    void init();
    void cleanup();

    void pageHasNameSizeAndTitle();
    void layoutsHoldTheirContent_data();
    void layoutsHoldTheirContent();
    void pieTitleHoldsLabelAndRadios();
    void margins_data();
    void margins();
    void spacings_data();
    void spacings();
    void stretches_data();
    void stretches();
    void spacers_data();
    void spacers();
    void widgetClasses_data();
    void widgetClasses();
    void widgetParents_data();
    void widgetParents();
    void sizeLimits_data();
    void sizeLimits();
    void fixedSizePolicies_data();
    void fixedSizePolicies();
    void titleLabelsKeepTheirHeight_data();
    void titleLabelsKeepTheirHeight();
    void centredInTheirLayout_data();
    void centredInTheirLayout();
    void titleDots_data();
    void titleDots();
    void sortButtonsHaveIconSizeAndAutoDefault_data();
    void sortButtonsHaveIconSizeAndAutoDefault();
    void exportButtonHasIconForOffAndNormal();
    void formTextsAreEmptyAtFirst_data();
    void formTextsAreEmptyAtFirst();
    void upperPaneAndLowerRowShareTheHeight();
    void minimumRulesTheButtonsOnScreen();

    void timeLineEditIsReadOnlyWithDateAction();
    void dateActionOpensTheCalendar();
    void calendarIsChildAndReportsToThePage();
    void userIsFetchedOnce();
    void userStaysDefaultWhenNobodyIsSignedIn();
    void firstSpanStartsNoSearch();
    void sortButtonToolTips();
    void sumModesHaveTextsAndData();
    void sumModeShowsTheSecondItem();
    void organisationSignalReloadsTheTree();
    void conditionsStartSearches_data();
    void conditionsStartSearches();
    void timerRepeatsAndWaits();
    void calloutTemplate();
    void radiosAreAnExclusiveGroup();
    void clickOnRadioSwitchesThePie();
    void lineNamesAreRenewed();
    void fixedTextsAreKeysWithoutLanguage();
    void unitButtonsAre65Wide();
    void buttonsGetTheirStyles_data();
    void buttonsGetTheirStyles();
    void buttonSlotsAreConnectedByName();
    void exportSlotIsConnectedByName();
    void initFormRunsOnce();

    void retranslateTextsSetsTheTable();
    void languageChangeRenewsAllTexts();
    void languageChangeKeepsSumModeAndItsData();
    void languageChangeRenewsPieModesByMajorType_data();
    void languageChangeRenewsPieModesByMajorType();
    void languageChangeOnVisiblePageRefillsPieModes();
    void languageChangeReloadsTreeAndDataButNotTheOrder();
    void languageChangeWithoutTreeSearchesNothing();
    void languageChangeShowsPagingAgainAfterAFailedSearch();
    void languageChangeOnHiddenPageStopsAtTheNodes();
    void languageChangeBeforeFirstShowIsHarmless();
    void languageOfTheApplicationSearchesVisiblePagesOnce_data();
    void languageOfTheApplicationSearchesVisiblePagesOnce();
    void languageChangeRenewsTitlesBarThenPieThenLine_data();
    void languageChangeRenewsTitlesBarThenPieThenLine();
    void languageChangeKeepsToolTipsAndLineNames();

    void highlightOfNoButtonIsIgnored();
    void highlightSetsPropertyAndPolishes_data();
    void highlightSetsPropertyAndPolishes();
    void highlightRepaintsTheButton();
    void markedButtonsAreNotCheckable_data();
    void markedButtonsAreNotCheckable();
};

void TestForm::init()
{
    setPresentMoment({});
    HostSettings::setLanguage({});
    HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
}

void TestForm::cleanup()
{
    HostSettings::setLanguage({});
}

void TestForm::pageHasNameSizeAndTitle()
{
    const ProbePage page;
    QCOMPARE(page.objectName(), QStringLiteral("BasicChart"));
    QCOMPARE(page.size(), QSize(1136, 648));
    QCOMPARE(page.windowTitle(), QStringLiteral("Form"));
}

void TestForm::layoutsHoldTheirContent_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QString>("owner");
    QTest::addColumn<QString>("content");
    const auto row = [](const char *name, bool vertical, const char *owner, const char *content) {
        QTest::newRow(name) << QString::fromLatin1(name) << vertical << QString::fromLatin1(owner)
                            << QString::fromLatin1(content);
    };
    row("verticalLayout_8", true, "BasicChart", "verticalLayout_7");
    row("verticalLayout_7", true, "verticalLayout_8", "widgetBar horizontalLayout_6");
    row("verticalLayout_2", true, "widgetBar", "verticalLayout");
    row("verticalLayout", true, "verticalLayout_2", "widgetBarTitle widgetBarChart");
    row("horizontalLayout_9", false, "widgetBarTitle", "horizontalLayout_3");
    row("horizontalLayout_3", false, "horizontalLayout_9",
        "label_7 labelBarChartTitle spacer comboBox spacer comboBoxOrgType spacer horizontalLayout spacer "
        "lineEditTime spacer horizontalLayout_2 spacer pushButtonExport");
    row("horizontalLayout", false, "horizontalLayout_3", "pushButtonMonth pushButtonDay pushButtonHour");
    row("horizontalLayout_2", false, "horizontalLayout_3", "labelSort spacer pushButtonAsc pushButtonDesc");
    row("horizontalLayout_6", false, "verticalLayout_7", "widgetLine widgetPie");
    row("verticalLayout_4", true, "widgetLine", "verticalLayout_3");
    row("verticalLayout_3", true, "verticalLayout_4", "widgetLineTitle widgetLineChart");
    row("horizontalLayout_7", false, "widgetLineTitle", "horizontalLayout_4");
    row("horizontalLayout_4", false, "horizontalLayout_7", "label_5 labelLineChartTitle spacer");
    row("verticalLayout_5", true, "widgetPie", "verticalLayout_6");
    row("verticalLayout_6", true, "verticalLayout_5", "widgetPieTitle widgetPieChart");
}

void TestForm::layoutsHoldTheirContent()
{
    QFETCH(QString, name);
    QFETCH(bool, vertical);
    QFETCH(QString, owner);
    QFETCH(QString, content);
    const ProbePage page;
    const QBoxLayout *layout = boxLayout(page, name);
    QVERIFY(layout);
    QCOMPARE(qobject_cast<const QVBoxLayout *>(layout) != nullptr, vertical);
    QCOMPARE(layout->parent()->objectName(), owner);
    QCOMPARE(contentOf(layout), content.split(QLatin1Char(' ')));
}

void TestForm::pieTitleHoldsLabelAndRadios()
{
    const ProbePage page;
    const QBoxLayout *outer = boxLayout(page, QStringLiteral("horizontalLayout_8"));
    QVERIFY(qobject_cast<const QHBoxLayout *>(outer));
    QCOMPARE(outer->parent(), page.part<QWidget>("widgetPieTitle"));
    QCOMPARE(leavesOf(outer),
        QStringList({QStringLiteral("label_6"), QStringLiteral("labelPieChartTitle"),
            QStringLiteral("spacer"), QStringLiteral("carRadio"), QStringLiteral("personRadio")}));
    const QBoxLayout *title = boxLayout(page, QStringLiteral("horizontalLayout_5"));
    QVERIFY(qobject_cast<const QHBoxLayout *>(title));
    QCOMPARE(contentOf(title).mid(0, 3),
        QStringList(
            {QStringLiteral("label_6"), QStringLiteral("labelPieChartTitle"), QStringLiteral("spacer")}));
    const QBoxLayout *radios = boxLayout(page, QStringLiteral("horizontalLayout_10"));
    QVERIFY(qobject_cast<const QHBoxLayout *>(radios));
    QCOMPARE(contentOf(radios), QStringList({QStringLiteral("carRadio"), QStringLiteral("personRadio")}));
}

void TestForm::margins_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("nested");
    QTest::addColumn<QMargins>("margins");
    const auto row = [](const char *name, bool nested, const QMargins &margins) {
        QTest::newRow(name) << QString::fromLatin1(name) << nested << margins;
    };
    row("verticalLayout_7", true, {5, 5, 5, 5});
    row("verticalLayout_2", false, {0, 0, 0, 5});
    row("verticalLayout", true, {1, 0, 1, 1});
    row("horizontalLayout_9", false, {0, 5, 0, 0});
    row("horizontalLayout_3", true, {9, -1, 9, 1});
    row("horizontalLayout_6", true, {0, 5, 0, 5});
    row("verticalLayout_4", false, {0, 0, 0, 0});
    row("verticalLayout_3", true, {1, 0, 1, 5});
    row("horizontalLayout_7", false, {-1, 0, -1, 0});
    row("verticalLayout_5", false, {0, 0, 0, 0});
    row("verticalLayout_6", true, {1, 0, 1, 5});
    row("horizontalLayout_8", false, {9, 0, 9, 0});
}

void TestForm::margins()
{
    QFETCH(QString, name);
    QFETCH(bool, nested);
    QFETCH(QMargins, margins);
    const ProbePage page;
    QCOMPARE(boxLayout(page, name)->contentsMargins(), resolvedMargins(margins, nested));
}

void TestForm::spacings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("spacing");
    QTest::newRow("between upper pane and lower row") << QStringLiteral("verticalLayout_7") << 6;
    QTest::newRow("none between the unit buttons") << QStringLiteral("horizontalLayout") << 0;
    QTest::newRow("none between the sort controls") << QStringLiteral("horizontalLayout_2") << 0;
    QTest::newRow("between line and pie") << QStringLiteral("horizontalLayout_6") << 10;
    QTest::newRow("none between the radios") << QStringLiteral("horizontalLayout_10") << 0;
}

void TestForm::spacings()
{
    QFETCH(QString, name);
    QFETCH(int, spacing);
    const ProbePage page;
    QCOMPARE(boxLayout(page, name)->spacing(), spacing);
}

void TestForm::stretches_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("stretches");
    QTest::newRow("upper pane and lower row") << QStringLiteral("verticalLayout_7") << QList<int>({1, 1});
    QTest::newRow("bar title and chart") << QStringLiteral("verticalLayout") << QList<int>({1, 6});
    QTest::newRow("line and pie") << QStringLiteral("horizontalLayout_6") << QList<int>({3, 2});
    QTest::newRow("line title and chart") << QStringLiteral("verticalLayout_3") << QList<int>({1, 6});
    QTest::newRow("pie title and chart") << QStringLiteral("verticalLayout_6") << QList<int>({1, 6});
}

void TestForm::stretches()
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

void TestForm::spacers_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("index");
    QTest::addColumn<QSizePolicy::Policy>("policy");
    QTest::addColumn<QSize>("size");
    const QString bar = QStringLiteral("horizontalLayout_3");
    QTest::newRow("behind the bar title") << bar << 2 << QSizePolicy::Expanding << QSize(40, 20);
    QTest::newRow("behind the tree") << bar << 4 << QSizePolicy::Fixed << QSize(20, 20);
    QTest::newRow("behind the sum mode") << bar << 6 << QSizePolicy::Fixed << QSize(20, 20);
    QTest::newRow("behind the unit buttons") << bar << 8 << QSizePolicy::Maximum << QSize(30, 20);
    QTest::newRow("behind the time") << bar << 10 << QSizePolicy::Preferred << QSize(40, 20);
    QTest::newRow("before the export button") << bar << 12 << QSizePolicy::Maximum << QSize(40, 20);
    QTest::newRow("behind the sort label")
        << QStringLiteral("horizontalLayout_2") << 1 << QSizePolicy::Fixed << QSize(20, 20);
    QTest::newRow("behind the line title")
        << QStringLiteral("horizontalLayout_4") << 2 << QSizePolicy::Expanding << QSize();
    QTest::newRow("behind the pie title")
        << QStringLiteral("horizontalLayout_5") << 2 << QSizePolicy::Expanding << QSize();
}

void TestForm::spacers()
{
    QFETCH(QString, layout);
    QFETCH(int, index);
    QFETCH(QSizePolicy::Policy, policy);
    QFETCH(QSize, size);
    const ProbePage page;
    const QSpacerItem *spacer = boxLayout(page, layout)->itemAt(index)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), policy);
    if (size.isValid())
        QCOMPARE(spacer->sizeHint(), size);
}

void TestForm::widgetClasses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("className");
    const auto row = [](const char *name, const char *className) {
        QTest::newRow(name) << QString::fromLatin1(name) << QByteArray(className);
    };
    for (const char *name : {"widgetBar", "widgetBarTitle", "widgetBarChart", "widgetLine", "widgetLineTitle",
             "widgetLineChart", "widgetPie", "widgetPieTitle", "widgetPieChart"})
        row(name, "QWidget");
    for (const char *name : {"label_5", "label_6", "label_7", "labelBarChartTitle", "labelLineChartTitle",
             "labelPieChartTitle", "labelSort"})
        row(name, "QLabel");
    for (const char *name : {"pushButtonMonth", "pushButtonDay", "pushButtonHour", "pushButtonAsc",
             "pushButtonDesc", "pushButtonExport", "carRadio", "personRadio"})
        row(name, "ZrPushButton");
    row("comboBox", "ZrComboBoxWithTree");
    row("comboBoxOrgType", "QComboBox");
    row("lineEditTime", "QLineEdit");
}

void TestForm::widgetClasses()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, className);
    const ProbePage page;
    const auto found = page.findChildren<QWidget *>(name);
    QCOMPARE(found.size(), 1);
    QCOMPARE(QByteArray(found.first()->metaObject()->className()), className);
}

void TestForm::widgetParents_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("children");
    const auto row = [](const char *parent, const char *children) {
        QTest::newRow(parent) << QString::fromLatin1(parent) << QString::fromLatin1(children);
    };
    row("BasicChart", "widgetBar widgetLine widgetPie");
    row("widgetBar", "widgetBarTitle widgetBarChart");
    row("widgetBarTitle",
        "label_7 labelBarChartTitle comboBox comboBoxOrgType pushButtonMonth pushButtonDay pushButtonHour "
        "lineEditTime labelSort pushButtonAsc pushButtonDesc pushButtonExport");
    row("widgetLine", "widgetLineTitle widgetLineChart");
    row("widgetLineTitle", "label_5 labelLineChartTitle");
    row("widgetPie", "widgetPieTitle widgetPieChart");
    row("widgetPieTitle", "label_6 labelPieChartTitle carRadio personRadio");
    row("widgetBarChart", "");
    row("widgetLineChart", "");
    row("widgetPieChart", "");
}

void TestForm::widgetParents()
{
    QFETCH(QString, parent);
    QFETCH(QString, children);
    const ProbePage page;
    const QWidget *owner = parent == page.objectName() ? &page : page.findChild<QWidget *>(parent);
    QVERIFY(owner);
    QSet<QString> found;
    for (const QWidget *child : owner->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        found.insert(child->objectName());
    const QStringList wanted = children.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QCOMPARE(found, QSet<QString>(wanted.cbegin(), wanted.cend()));
}

void TestForm::sizeLimits_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("minimum");
    QTest::addColumn<QSize>("maximum");
    const auto row = [](const char *name, const QSize &minimum, const QSize &maximum) {
        QTest::newRow(name) << QString::fromLatin1(name) << minimum << maximum;
    };
    const QSize none(0, 0);
    row("comboBox", {190, 30}, {QWIDGETSIZE_MAX, 30});
    row("comboBoxOrgType", {140, 30}, {QWIDGETSIZE_MAX, 30});
    row("pushButtonMonth", {50, 30}, none);
    row("pushButtonDay", {50, 30}, none);
    row("pushButtonHour", {50, 30}, none);
    row("pushButtonAsc", {30, 25}, none);
    row("pushButtonDesc", {30, 25}, none);
    row("lineEditTime", {240, 30}, {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX});
}

void TestForm::sizeLimits()
{
    QFETCH(QString, name);
    QFETCH(QSize, minimum);
    QFETCH(QSize, maximum);
    const ProbePage page;
    const auto *widget = page.findChild<QWidget *>(name);
    QCOMPARE(widget->minimumSize(), minimum);
    QCOMPARE(widget->maximumSize(), maximum);
}

void TestForm::fixedSizePolicies_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
        {"pushButtonMonth", "pushButtonDay", "pushButtonHour", "pushButtonAsc", "pushButtonDesc"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestForm::fixedSizePolicies()
{
    QFETCH(QString, name);
    const ProbePage page;
    const QSizePolicy policy = page.findChild<QWidget *>(name)->sizePolicy();
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Fixed);
}

void TestForm::titleLabelsKeepTheirHeight_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"labelBarChartTitle", "labelLineChartTitle", "labelPieChartTitle"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestForm::titleLabelsKeepTheirHeight()
{
    QFETCH(QString, name);
    const ProbePage page;
    const QSizePolicy policy = page.findChild<QLabel *>(name)->sizePolicy();
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Fixed);
}

void TestForm::centredInTheirLayout_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *layout, const char *name) {
        QTest::newRow(name) << QString::fromLatin1(layout) << QString::fromLatin1(name);
    };
    row("horizontalLayout_3", "comboBox");
    row("horizontalLayout_3", "lineEditTime");
    row("horizontalLayout", "pushButtonMonth");
    row("horizontalLayout", "pushButtonDay");
    row("horizontalLayout", "pushButtonHour");
    row("horizontalLayout_2", "pushButtonAsc");
    row("horizontalLayout_2", "pushButtonDesc");
}

void TestForm::centredInTheirLayout()
{
    QFETCH(QString, layout);
    QFETCH(QString, name);
    const ProbePage page;
    const QLayoutItem *item = itemOf(boxLayout(page, layout), page.findChild<QWidget *>(name));
    QVERIFY(item);
    QCOMPARE(item->alignment(), Qt::Alignment(Qt::AlignCenter));
}

void TestForm::titleDots_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"label_5", "label_6", "label_7"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestForm::titleDots()
{
    QFETCH(QString, name);
    QVERIFY(QFile::exists(navDot));
    const ProbePage page;
    const auto *label = page.findChild<QLabel *>(name);
    QVERIFY(!label->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(label->pixmap(Qt::ReturnByValue).toImage(), QPixmap(navDot).toImage());
    if (name == QStringLiteral("label_7"))
        QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
}

void TestForm::sortButtonsHaveIconSizeAndAutoDefault_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("ascending") << QStringLiteral("pushButtonAsc");
    QTest::newRow("descending") << QStringLiteral("pushButtonDesc");
}

void TestForm::sortButtonsHaveIconSizeAndAutoDefault()
{
    QFETCH(QString, name);
    const ProbePage page;
    const auto *button = page.findChild<ZrPushButton *>(name);
    QCOMPARE(button->iconSize(), QSize(16, 16));
    QVERIFY(button->autoDefault());
    QVERIFY(button->isEnabled());
}

void TestForm::exportButtonHasIconForOffAndNormal()
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

void TestForm::formTextsAreEmptyAtFirst_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
        {"label_5", "label_6", "label_7", "labelBarChartTitle", "labelLineChartTitle", "labelPieChartTitle",
            "labelSort", "pushButtonMonth", "pushButtonDay", "pushButtonHour", "pushButtonAsc",
            "pushButtonDesc", "pushButtonExport", "carRadio", "personRadio", "lineEditTime"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestForm::formTextsAreEmptyAtFirst()
{
    QFETCH(QString, name);
    HostSettings::setLanguage(QStringLiteral("en"));
    const ProbePage page;
    QCOMPARE(page.findChild<QWidget *>(name)->property("text").toString(), QString());
}

void TestForm::upperPaneAndLowerRowShareTheHeight()
{
    PageScene scene;
    scene.client.clearTree();
    ProbePage page(1);
    showPage(page);
    const QBoxLayout *rows = boxLayout(page, QStringLiteral("verticalLayout_7"));
    const int upper = rows->itemAt(0)->geometry().height();
    const int lower = rows->itemAt(1)->geometry().height();
    QVERIFY2(qAbs(upper - lower) <= 1, qPrintable(QStringLiteral("%1 %2").arg(upper).arg(lower)));
    QVERIFY(upper > 250);
}

void TestForm::minimumRulesTheButtonsOnScreen()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QCOMPARE(page.part<QWidget>("pushButtonAsc")->size(), QSize(30, 25));
    QCOMPARE(page.part<QWidget>("pushButtonDesc")->size(), QSize(30, 25));
    for (const char *name : {"pushButtonMonth", "pushButtonDay", "pushButtonHour"})
        QCOMPARE(page.part<QWidget>(name)->size(), QSize(65, 30));
    QCOMPARE(page.part<QWidget>("comboBox")->height(), 30);
    QCOMPARE(page.part<QWidget>("comboBoxOrgType")->height(), 30);
}

void TestForm::timeLineEditIsReadOnlyWithDateAction()
{
    QVERIFY(QFile::exists(dateIcon));
    PageScene scene;
    ProbePage page(1);
    showPage(page);
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

void TestForm::dateActionOpensTheCalendar()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(!page.m_pCalendarWidget->isVisible());
    QTest::mouseClick(page.part<QLineEdit>("lineEditTime")->findChild<QToolButton *>(), Qt::LeftButton);
    QVERIFY(page.m_pCalendarWidget->isVisible());
}

void TestForm::calendarIsChildAndReportsToThePage()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    QVERIFY(page.m_pCalendarWidget);
    QCOMPARE(page.m_pCalendarWidget->parent(), &page);
    QCOMPARE(page.findChildren<ZrCalendarWidget *>().size(), 1);
    Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(
        QDateTime(QDate(2024, 5, 3), QTime(4, 0)), QDateTime(QDate(2024, 5, 3), QTime(6, 0)));
    QCOMPARE(page.part<QLineEdit>("lineEditTime")->text(), QStringLiteral("2024-05-03 04~2024-05-03 06"));
}

void TestForm::userIsFetchedOnce()
{
    PageScene scene;
    scene.client.setUserId(42);
    ProbePage page(1);
    showPage(page);
    QCOMPARE(page.m_curUser.get_id(), 42);
    scene.client.setUserId(43);
    page.hide();
    page.show();
    QCOMPARE(scene.client.calls.count(QStringLiteral("getCurUserInfo")), 1);
    QCOMPARE(page.m_curUser.get_id(), 42);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().userId, 42);
}

void TestForm::userStaysDefaultWhenNobodyIsSignedIn()
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

void TestForm::firstSpanStartsNoSearch()
{
    PageScene scene;
    ProbePage page(1);
    LogCapture log;
    page.initForm();
    QCOMPARE(page.part<QLineEdit>("lineEditTime")->text(), QStringLiteral("2024-05-03 00~2024-05-03 17"));
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(page.tips.size(), 0);
    QCOMPARE(scene.client.calls, QStringList({QStringLiteral("getCurUserInfo")}));
}

void TestForm::sortButtonToolTips()
{
    PageScene scene;
    ProbePage page(1);
    QCOMPARE(page.part<QWidget>("pushButtonAsc")->toolTip(), QString());
    page.initForm();
    QCOMPARE(page.part<QWidget>("pushButtonAsc")->toolTip(), QStringLiteral("TK_AscMode"));
    QCOMPARE(page.part<QWidget>("pushButtonDesc")->toolTip(), QStringLiteral("TK_DescMode"));
}

void TestForm::sumModesHaveTextsAndData()
{
    PageScene scene;
    ProbePage page(1);
    const auto *combo = page.part<QComboBox>("comboBoxOrgType");
    QCOMPARE(combo->count(), 0);
    page.initForm();
    QCOMPARE(itemTexts(combo),
        QStringList(
            {QStringLiteral("TK_LowSum"), QStringLiteral("TK_AllSum"), QStringLiteral("TK_OnlyCurrent")}));
    QCOMPARE(itemNumbers(combo), QList<int>({1, 2, 3}));
    for (int i = 0; i < 3; ++i)
        QVERIFY(combo->itemIcon(i).isNull());
}

void TestForm::sumModeShowsTheSecondItem()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    const auto *combo = page.part<QComboBox>("comboBoxOrgType");
    QCOMPARE(combo->currentIndex(), 1);
    QCOMPARE(combo->currentData().toInt(), 2);
    QCOMPARE(combo->currentText(), QStringLiteral("TK_AllSum"));
}

void TestForm::organisationSignalReloadsTheTree()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Add);
    QCOMPARE(scene.treeLoads(), 1);
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestForm::conditionsStartSearches_data()
{
    QTest::addColumn<QString>("condition");
    QTest::newRow("the time text") << QStringLiteral("time");
    QTest::newRow("another node of the tree") << QStringLiteral("tree");
    QTest::newRow("another sum mode") << QStringLiteral("sum");
}

void TestForm::conditionsStartSearches()
{
    QFETCH(QString, condition);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    LogCapture log;
    if (condition == QStringLiteral("time"))
        QTest::mouseClick(page.part<ZrPushButton>("pushButtonDay"), Qt::LeftButton);
    else if (condition == QStringLiteral("tree"))
        QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    else
        QTest::keyClick(page.part<QComboBox>("comboBoxOrgType"), Qt::Key_Down);
    QCOMPARE(log.count(searchLine), 1);
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getAlarmStatisticsOfOrgas")}));
}

void TestForm::timerRepeatsAndWaits()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    QVERIFY(page.m_pTimer);
    QCOMPARE(page.m_pTimer->parent(), &page);
    QVERIFY(!page.m_pTimer->isSingleShot());
    QVERIFY(!page.m_pTimer->isActive());

    QStringList emitted;
    connect(&page, &BasicChart::barSetChanged, this, [&emitted](QString &bar) { emitted.append(bar); });
    page.m_strSelectedBar = QStringLiteral("Plant North");
    page.m_pTimer->start(1);
    QTRY_COMPARE(emitted, QStringList({QStringLiteral("Plant North")}));
    QVERIFY(!page.m_pTimer->isActive());
}

void TestForm::calloutTemplate()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    QCOMPARE(page.m_strToolTipFormat,
        QStringLiteral("<p>&nbsp; %1 <br/><br/>                        &nbsp;  "
                       "<img src=\":/images/home/charts/nav_dot.png\" width=\"5\" height=\"5\"> %2 &nbsp; %3 "
                       "</p>"));
}

void TestForm::radiosAreAnExclusiveGroup()
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

void TestForm::clickOnRadioSwitchesThePie()
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

void TestForm::lineNamesAreRenewed()
{
    PageScene scene;
    ProbePage page(1);
    page.lineNames = QStringList({QStringLiteral("left over")});
    page.initForm();
    QCOMPARE(page.lineNames, QStringList({QStringLiteral("TK_Vehicle"), QStringLiteral("TK_Pedestrian")}));
}

void TestForm::fixedTextsAreKeysWithoutLanguage()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    for (const FixedText &text : fixedTexts)
        QCOMPARE(page.part<QWidget>(text.widget)->property("text").toString(), QString::fromLatin1(text.key));
}

void TestForm::unitButtonsAre65Wide()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    for (const char *name : {"pushButtonMonth", "pushButtonDay", "pushButtonHour"}) {
        const auto *button = page.part<ZrPushButton>(name);
        QCOMPARE(button->minimumWidth(), 65);
        QCOMPARE(button->maximumWidth(), 65);
        QCOMPARE(button->minimumHeight(), 30);
    }
}

void TestForm::buttonsGetTheirStyles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("style");
    QTest::newRow("month") << QStringLiteral("pushButtonMonth") << 12;
    QTest::newRow("day") << QStringLiteral("pushButtonDay") << 12;
    QTest::newRow("hour") << QStringLiteral("pushButtonHour") << 12;
    QTest::newRow("export") << QStringLiteral("pushButtonExport") << 5;
}

void TestForm::buttonsGetTheirStyles()
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

void TestForm::buttonSlotsAreConnectedByName()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    const auto *lineEdit = page.part<QLineEdit>("lineEditTime");
    QTest::mouseClick(page.part<ZrPushButton>("pushButtonMonth"), Qt::LeftButton);
    QCOMPARE(lineEdit->text(), QStringLiteral("2023-11~2024-05"));
    QTest::mouseClick(page.part<ZrPushButton>("pushButtonDay"), Qt::LeftButton);
    QCOMPARE(lineEdit->text(), QStringLiteral("2024-04-26~2024-05-03"));
    QTest::mouseClick(page.part<ZrPushButton>("pushButtonHour"), Qt::LeftButton);
    QCOMPARE(lineEdit->text(), QStringLiteral("2024-05-03 00~2024-05-03 17"));
    LogCapture log;
    QTest::mouseClick(page.part<ZrPushButton>("pushButtonAsc"), Qt::LeftButton);
    QCOMPARE(log.count(QStringLiteral("BasicChart::on_pushButtonAsc_clicked")), 1);
    QTest::mouseClick(page.part<ZrPushButton>("pushButtonDesc"), Qt::LeftButton);
    QCOMPARE(log.count(QStringLiteral("BasicChart::on_pushButtonDesc_clicked")), 1);
}

void TestForm::exportSlotIsConnectedByName()
{
    PageScene scene;
    ProbePage page(9);
    showPage(page);
    bool asked = false;
    QTimer::singleShot(0, &page, [&] {
        asked = page.m_pExportWidget != nullptr;
        if (asked)
            page.m_pExportWidget->findChild<ZrPushButton *>(QStringLiteral("pushButtonCancel"))->click();
    });
    QTest::mouseClick(page.part<ZrPushButton>("pushButtonExport"), Qt::LeftButton);
    QVERIFY(asked);
}

void TestForm::initFormRunsOnce()
{
    PageScene scene;
    ProbePage page(7);
    showPage(page);
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

void TestForm::retranslateTextsSetsTheTable()
{
    ProbePage page(1);
    page.retranslateTexts();
    for (const FixedText &text : fixedTexts)
        QCOMPARE(page.part<QWidget>(text.widget)->property("text").toString(), QString::fromLatin1(text.key));
    QCOMPARE(page.part<QLabel>("labelBarChartTitle")->text(), QString());
}

void TestForm::languageChangeRenewsAllTexts()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    for (const QString &code : {QStringLiteral("en"), QStringLiteral("x-long")}) {
        QVERIFY(HostSettings::setLanguage(code));
        QTRY_COMPARE(page.part<QLabel>("labelSort")->text(), translated("TK_sort", AppLanguageTr::Sentence));
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

void TestForm::languageChangeKeepsSumModeAndItsData()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    auto *combo = page.part<QComboBox>("comboBoxOrgType");
    combo->setCurrentIndex(2);
    QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
    QTRY_COMPARE(combo->currentText(), translated("TK_OnlyCurrent", AppLanguageTr::Sentence));
    QCOMPARE(combo->currentIndex(), 2);
    QCOMPARE(itemNumbers(combo), QList<int>({1, 2, 3}));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().orgType, 3);
}

void TestForm::languageChangeRenewsPieModesByMajorType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QList<int>>("modes");
    QTest::newRow("modes of person groups") << 5 << QList<int>({2, 1});
    QTest::newRow("major types of organisations") << 7 << QList<int>({1, 2});
    QTest::newRow("major types of devices") << 8 << QList<int>({1, 2});
    QTest::newRow("modes of device groups") << 9 << QList<int>({1, 2});
}

void TestForm::languageChangeRenewsPieModesByMajorType()
{
    QFETCH(int, type);
    QFETCH(QList<int>, modes);
    PageScene scene;
    ProbePage page(type);
    showPage(page);
    scene.fillTree(page);
    page.slotSearch();
    QCOMPARE(itemNumbers(page.comboBoxPie), modes);
    page.comboBoxPie->setCurrentIndex(1);
    page.comboBoxPie->setItemText(0, QStringLiteral("stale"));
    page.hide();
    page.retranslateUi();
    QStringList names;
    for (const int mode : modes)
        names.append(AppTranslationHelper::instance()->getSnapDetailMajorTypeName(mode));
    QCOMPARE(itemTexts(page.comboBoxPie), names);
    QCOMPARE(itemNumbers(page.comboBoxPie), modes);
    QCOMPARE(page.comboBoxPie->currentIndex(), 1);
}

void TestForm::languageChangeOnVisiblePageRefillsPieModes()
{
    PageScene scene;
    ProbePage page(9);
    showPage(page);
    page.comboBoxPie->setCurrentIndex(1);
    QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
    QTRY_COMPARE(itemTexts(page.comboBoxPie),
        QStringList({translated("TK_ByTemperature", AppLanguageTr::Sentence),
            translated("TK_ByMask", AppLanguageTr::Sentence)}));
    QCOMPARE(itemNumbers(page.comboBoxPie), QList<int>({1, 2}));
    QCOMPARE(page.comboBoxPie->currentIndex(), 1);
}

void TestForm::languageChangeReloadsTreeAndDataButNotTheOrder()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QTest::mouseClick(page.part<ZrPushButton>("pushButtonAsc"), Qt::LeftButton);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    scene.forgetCalls();
    scene.manager.alarmStatisticsOfOrgas.requests.clear();
    page.retranslateUi();
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getAlarmStatisticsOfOrgas")}));
    const auto request = scene.manager.alarmStatisticsOfOrgas.requests.first();
    QCOMPARE(request.listOrg(), std::vector<int>({1}));
    QCOMPARE(request.sortType, 2);
    QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
    QVERIFY(!page.sortFlag);
    QCOMPARE(page.part<QWidget>("pushButtonAsc")->property("highlight"), QVariant(true));
    QCOMPARE(page.part<QWidget>("pushButtonDesc")->property("highlight"), QVariant(false));
    QCOMPARE(listValues(page.barDataList), QList<int>({5, 7, 9}));
}

void TestForm::languageChangeWithoutTreeSearchesNothing()
{
    PageScene scene;
    scene.client.clearTree();
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    page.tips.clear();
    LogCapture log;
    page.retranslateUi();
    QCOMPARE(page.tips, QList<ProbePage::Tip>({{QStringLiteral("TK_orgNotExist"), 2}}));
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestForm::languageChangeShowsPagingAgainAfterAFailedSearch()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    scene.manager.failWith(QStringLiteral("away"));
    page.slotSearch();
    QVERIFY(page.pushButtonNext->isHidden());
    page.retranslateUi();
    QVERIFY(!page.pushButtonNext->isHidden());
    QVERIFY(page.pushButtonPrevious->isHidden());
}

void TestForm::languageChangeOnHiddenPageStopsAtTheNodes()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    page.hide();
    scene.forgetCalls();
    page.tips.clear();
    page.part<QLabel>("labelBarChartTitle")->clear();
    LogCapture log;
    page.retranslateUi();
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(scene.treeLoads(), 1);
    QCOMPARE(page.tips.size(), 0);
    QVERIFY(page.part<QLabel>("labelBarChartTitle")
                ->text()
                .contains(QStringLiteral("TK_AlarmStatisticsOfOrgas")));
}

void TestForm::languageChangeBeforeFirstShowIsHarmless()
{
    PageScene scene;
    ProbePage page(1);
    QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
    page.retranslateUi();
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(page.part<QLabel>("labelSort")->text(), translated("TK_sort", AppLanguageTr::Sentence));
    QCOMPARE(page.part<QComboBox>("comboBoxOrgType")->count(), 0);

    showPage(page);
    scene.forgetCalls();
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getAlarmStatisticsOfOrgas")}));
}

void TestForm::languageOfTheApplicationSearchesVisiblePagesOnce_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("visible");
    for (const int type : {1, 2, 3, 4, 7, 8, 9}) {
        QTest::addRow("type %d, a visible page searches once", type) << type << true;
        QTest::addRow("type %d, a hidden page does not search", type) << type << false;
    }
}

void TestForm::languageOfTheApplicationSearchesVisiblePagesOnce()
{
    QFETCH(int, type);
    QFETCH(bool, visible);
    PageScene scene;
    ProbePage page(type);
    showPage(page);
    page.setVisible(visible);
    for (const char *code : {"en", "de", ""}) {
        LogCapture log;
        scene.forgetCalls();
        QVERIFY(HostSettings::setLanguage(QString::fromLatin1(code)));
        QCOMPARE(log.count(searchLine), visible ? 1 : 0);
        QCOMPARE(scene.wholeLevelCalls().size(), visible ? 1 : 0);
    }
}

void TestForm::languageChangeRenewsTitlesBarThenPieThenLine_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("focusLost");
    QTest::newRow("the pie of organisations forgets the bar before the line names it") << 7 << true;
    QTest::newRow("the pie of devices forgets the bar before the line names it") << 8 << true;
    QTest::newRow("alarms keep their bar") << 1 << false;
}

void TestForm::languageChangeRenewsTitlesBarThenPieThenLine()
{
    QFETCH(int, type);
    QFETCH(bool, focusLost);
    PageScene scene;
    ProbePage page(type);
    page.initForm();
    page.m_strSelectedBar = QStringLiteral("Plant North");
    TextRecorder texts;
    page.retranslateUi();
    QCOMPARE(
        page.part<QLabel>("labelLineChartTitle")->text().contains(QStringLiteral("Plant North")), !focusLost);
    QCOMPARE(page.m_strSelectedBar.isEmpty(), focusLost);

    const QString kind = type == 1 ? QStringLiteral("TK_Alarm") : QStringLiteral("TK_Traffics");
    const QString bar =
        type == 1 ? QStringLiteral("StatisticsOfOrgas 1") : QStringLiteral("StatisticsOfDevices 1");
    QStringList titles;
    for (const QString &asked : std::as_const(texts.asked)) {
        if (asked.startsWith(kind))
            titles.append(asked.mid(kind.size()));
    }
    QCOMPARE(titles,
        QStringList({bar, QStringLiteral("StatisticsOfType 1"), QStringLiteral("StatisticsOfNum 1")}));
}

// Tool tips stay those of the set-up; the names of the lines come with the next detail.
void TestForm::languageChangeKeepsToolTipsAndLineNames()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    const QStringList names = page.lineNames;
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    QVERIFY(page.part<QLabel>("labelSort")->text() != QStringLiteral("TK_sort"));
    QCOMPARE(page.part<QWidget>("pushButtonAsc")->toolTip(), QStringLiteral("TK_AscMode"));
    QCOMPARE(page.part<QWidget>("pushButtonDesc")->toolTip(), QStringLiteral("TK_DescMode"));
    QCOMPARE(page.lineNames, names);
}

void TestForm::highlightOfNoButtonIsIgnored()
{
    ProbePage page(1);
    page.setButtonHighlight(nullptr, true);
    page.setButtonHighlight(nullptr, false);
    for (const char *name : {"pushButtonMonth", "pushButtonDay", "pushButtonHour"})
        QVERIFY(!page.part<QWidget>(name)->property("highlight").isValid());
}

void TestForm::highlightSetsPropertyAndPolishes_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestForm::highlightSetsPropertyAndPolishes()
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
    QCOMPARE(style.steps,
        QStringList({QStringLiteral("unpolish pushButtonDay"), QStringLiteral("polish pushButtonDay")}));
    page.setStyle(nullptr);
}

void TestForm::highlightRepaintsTheButton()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    auto *button = page.part<ZrPushButton>("pushButtonDay");
    QTest::qWait(50);
    const EventCount paints(button, QEvent::Paint);
    QTest::qWait(50);
    QCOMPARE(paints.count, 0);
    page.setButtonHighlight(button, true);
    QTRY_VERIFY(paints.count > 0);
}

void TestForm::markedButtonsAreNotCheckable_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
        {"pushButtonMonth", "pushButtonDay", "pushButtonHour", "pushButtonAsc", "pushButtonDesc"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestForm::markedButtonsAreNotCheckable()
{
    QFETCH(QString, name);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    auto *button = page.findChild<ZrPushButton *>(name);
    QVERIFY(!button->isCheckable());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!button->isChecked());
    QCOMPARE(button->property("highlight"), QVariant(true));
}

TALVIX_TEST_MAIN(TestForm)
#include "tst_form.moc"
