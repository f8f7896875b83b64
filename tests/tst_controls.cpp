#include "support/EventCount.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppStyleHelper.h>
#include <TalvixWidgets/BaseHelper.h>
#include <TalvixWidgets/QssFormatHelper.h>
#include <TalvixWidgets/ZrCalendarWidget.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrDialog.h>
#include <TalvixWidgets/ZrLoaddingWidget.h>
#include <TalvixWidgets/ZrMessageBoxFlowDownWidget.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtCharts/QBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QChart>
#include <QtCore/QPointer>
#include <QtCore/QVariantAnimation>
#include <QtWidgets/QFrame>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QToolTip>
#include <QtWidgets/QVBoxLayout>

#include <cstring>
#include <functional>
#include <limits>
#include <memory>

namespace {

/// A page whose hide does no more than set the mark, as pages may.
class MarkingPage : public BaseWidget
{
public:
    MarkingPage()
        : BaseWidget(nullptr, {})
    { }

    void doAfterWidgetShow() override
    {
        ++shows;
        markAtShow = m_bAfterHide;
    }

    void doAfterWidgetHide() override
    {
        ++hides;
        m_bAfterHide = true;
    }

    bool mark() const { return m_bAfterHide; }

    int shows = 0;
    int hides = 0;
    bool markAtShow = false;
};

/// A dialog that anybody may open.
class OpenDialog : public ZrDialog
{
public:
    using ZrDialog::closeZrDialog;
    using ZrDialog::showZrDialog;
    using ZrDialog::ZrDialog;
};

QList<QWidget *> toastsOn(const QWidget &page)
{
    QList<QWidget *> shown;
    const QList<QWidget *> all = page.findChildren<QWidget *>(QStringLiteral("toast"));
    for (QWidget *toast : all) {
        if (toast->isVisible())
            shown.append(toast);
    }
    return shown;
}

/// Place of a virtual operation among those of its class, in bytes.
template <typename Operation>
std::ptrdiff_t placeOf(Operation operation)
{
    std::ptrdiff_t place = 0;
    static_assert(sizeof operation >= sizeof place);
    std::memcpy(&place, &operation, sizeof place);
    return place;
}

NODE node(int id, const QString &name, int parent = 0)
{
    NODE made;
    made.id = id;
    made.name = name;
    if (parent)
        made.parentId = QString::number(parent);
    return made;
}

QList<NODE> company()
{
    return {node(1, QStringLiteral("Company")), node(2, QStringLiteral("Plant North"), 1),
        node(3, QStringLiteral("Hall A"), 2), node(4, QStringLiteral("Plant South"), 1),
        node(5, QStringLiteral("Hall A"), 4)};
}

int currentId(const ZrComboBoxWithTree &combo)
{
    NODE current;
    return combo.m_pTreeView->getCurrentItemData(current) ? current.id : 0;
}

void fill(ZrComboBoxWithTree &combo, QList<NODE> nodes)
{
    combo.clear();
    combo.addNode(nodes, true);
    combo.m_pTreeView->setRootAsCurrentItem();
}

QDateTime at(const char *text)
{
    return QDateTime::fromString(QString::fromLatin1(text), QStringLiteral("yyyy-MM-dd hh:mm"));
}

using Spans = QList<std::pair<QDateTime, QDateTime>>;

/// A calendar that is open for a span, and what it answers.
class OpenCalendar : public ZrCalendarWidget
{
public:
    OpenCalendar(QueryType type, const QDateTime &start, const QDateTime &stop)
        : ZrCalendarWidget(nullptr)
    {
        setType(type);
        showDialog(start, stop);
    }

    Spans answers() const
    {
        Spans spans;
        for (const QVariantList &answer : m_answers)
            spans.append({answer.at(0).toDateTime(), answer.at(1).toDateTime()});
        return spans;
    }

private:
    const QSignalSpy m_answers{this, &ZrCalendarWidget::signalDataTimeChanged};
};

/// A tree on show, its root current.
class ShownTree : public ZrComboBoxWithTree
{
public:
    explicit ShownTree(const QList<NODE> &nodes = company())
        : ZrComboBoxWithTree(nullptr)
    {
        fill(*this, nodes);
        show();
    }
};

} // namespace

class TestControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    // pages
    void everyShowReachesThePageBeforeShowReturns();
    void aPageThatComesBackFromTheTaskBarWasNeitherHiddenNorShown();
    void theBaseSetsTheMarkAtAHide();
    void aReadOnlyFieldOpensByKeys_data();
    void aReadOnlyFieldOpensByKeys();
    void operationsOfPagesStandInTheHostsOrder();
    void theMarkIsTheFirstMemberOfItsClass();
    void fieldsOfANodeStandInTheHostsOrder();

    // tips and messages
    void aTipTakesNeitherFocusNorMouse();
    void tipsStackWithTheNewestAtTheEdge();
    void theSameTipAgainMakesNoSecondOne();
    void anEmptyTipShowsNothing();
    void theLastTipCanBeShownAgain();
    void aMessageGoesByItself();
    void aNoteLooksAsItsKindIs();
    void markupInATipIsShownAsItStands();
    void aLongTipWrapsWithinThePage();
    void aMessageKeepsClearOfTheControlInUse();
    void aNoteLiesOnNeitherLegendNorAxis();
    void aNoteLiesWhereReadingStartsOrEnds();
    void aPageCanDieUnderItsTips();
    void aMessageWithoutAParentIsIgnored();

    // busy overlay
    void theOverlayHasPaintedWhenStartReturns();
    void theOverlayLeavesTimersAndPostedEventsWaiting();
    void theOverlayFollowsThePageAndGoesWithItsScope();
    void theOverlayOutlivesAPageThatDies();
    void anOverlayOfNothingStaysHidden();

    // buttons
    void aHiddenButtonForgetsHoverAndPress();
    void aPropertyIsSetAsTheObjectItselfWould();
    void anIconButtonIsNamedByItsToolTip();
    void aTextTooLongForAButtonLeavesItsEdgesFree_data();
    void aTextTooLongForAButtonLeavesItsEdgesFree();
    void aButtonStyleIsNamedForTheTheme();

    // chart view
    void theViewTellsTheGlobalPointerPosition();
    void buttonsAndWheelAreHarmlessOverAHiddenChart();
    void buttonsAndWheelAreHarmlessBesideTheItems();
    void aBarUnderThePointerIsHovered();
    void theSceneHasNoIndex();

    // dialog
    void theDialogOpensOverTheMiddleOfItsParent();
    void theDialogBlocksItsParentsWindowAlone();
    void escapePressesTheCloseButton();
    void escapeClosesADialogWithoutACloseButton();
    void closingTheWindowPressesTheCloseButton();
    void enterPressesTheButtonThatHasTheFocusElseOK();
    void theDialogIsDraggedByItsPanel();
    void aClosedDialogOpensAgain();

    // calendar
    void theCalendarKnowsItsWidthBeforeItIsShown();
    void enterConfirmsTheSpanThatItWasOpenedWith_data();
    void enterConfirmsTheSpanThatItWasOpenedWith();
    void escapeLeavesAllAsItWas();
    void withoutASpanThereIsNothingToConfirm();
    void twoPressesPickASpan();
    void aSecondPressBeyondTheLimitBeginsAnew();
    void aDragStopsAtTheLimit();
    void hoursAreThoseOfOneDay();
    void shiftAndArrowsPickASpanAcrossPages();
    void endsInTheWrongOrderAreTurnedRound();
    void aSpanThatIsTooLongIsShownAsFarAsItMayGo();
    void thePopupStaysOnTheScreen();
    void senselessMomentsAreNoSpan();

    // tree combo
    void anEmptyTreeHasNoNodes();
    void aFilledTreeHasNoCurrentNodeYet();
    void theRootBecomesCurrentOnRequest();
    void clearTakesTheTreeAway();
    void anotherNodeOfTheSameNameIsNews();
    void theSameNodeAgainIsNoNews();
    void newNamesKeepTheCurrentNodeAndWhatIsOpen();
    void typingFindsAndEnterChooses();
    void aSearchOpensNothingForGood();
    void escapeKeepsTheCurrentNode();
    void aClickChoosesAndClosesThePopup();
    void arrowsMoveTheCursorWithoutChoosing();
    void aSearchWithoutAHitSaysSo();
    void theCurrentNodeIsInSightWhenThePopupOpens();
    void aDisabledNodeCannotBeChosen();
    void aNewTreeClosesThePopup();
    void theWheelChangesNothing();
    void brokenTreesAreShownAllTheSame_data();
    void brokenTreesAreShownAllTheSame();

    // helpers
    void datesFollowTheUsersOrderAndCanBeReadBack_data();
    void datesFollowTheUsersOrderAndCanBeReadBack();
    void tabsHaveTheWantedWidthAndRoomForTheirText();
    void coloursAreFoundByKey();
    void opacityGoesIntoTheColourText();
    void theThemeBringsThePicturesThatFormsUse_data();
    void theThemeBringsThePicturesThatFormsUse();

    // Last, for the theme stays with the application.
    void theThemeMarksTheHighlightedButton();
    void theThemeGivesIconsToButtonsThatHaveNone();
    void tabsHaveTheWantedWidthUnderTheTheme();
    void theThemeKeepsTheSizesOfForms();
};

void TestControls::cleanup()
{
    HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
    setPresentMoment({});
}

void TestControls::everyShowReachesThePageBeforeShowReturns()
{
    MarkingPage page;
    page.show();
    QCOMPARE(page.shows, 1);
    page.hide();
    QCOMPARE(page.hides, 1);
    QVERIFY(page.mark());
    page.show();
    QCOMPARE(page.shows, 2);
    QVERIFY(!page.markAtShow);
    QVERIFY(!page.mark());
}

void TestControls::aPageThatComesBackFromTheTaskBarWasNeitherHiddenNorShown()
{
    MarkingPage page;
    page.show();
    QHideEvent minimised;
    QSpontaneKeyEvent::setSpontaneous(&minimised);
    qApp->notify(&page, &minimised);
    QCOMPARE(page.hides, 0);
    QShowEvent restored;
    QSpontaneKeyEvent::setSpontaneous(&restored);
    qApp->notify(&page, &restored);
    QCOMPARE(page.shows, 1);
}

void TestControls::theBaseSetsTheMarkAtAHide()
{
    class PlainPage : public BaseWidget
    {
    public:
        PlainPage()
            : BaseWidget(nullptr, {})
        { }
        using BaseWidget::m_bAfterHide;
    } page;
    page.show();
    page.hide();
    QVERIFY(page.m_bAfterHide);
    page.show();
    QVERIFY(!page.m_bAfterHide);
}

void TestControls::aReadOnlyFieldOpensByKeys_data()
{
    table<bool, int, int>({"readOnly", "key", "openings"},
        {{"Enter opens it", true, Qt::Key_Return, 1}, {"so does the space bar", true, Qt::Key_Space, 1},
            {"so does the arrow down", true, Qt::Key_Down, 1}, {"a letter does not", true, Qt::Key_A, 0},
            {"a field that takes text stays closed", false, Qt::Key_Return, 0}});
}

void TestControls::aReadOnlyFieldOpensByKeys()
{
    QFETCH(bool, readOnly);
    QFETCH(int, key);
    QFETCH(int, openings);
    BaseWidget page(nullptr, {});
    QLineEdit field(&page);
    field.setReadOnly(readOnly);
    field.installEventFilter(&page);
    QSignalSpy triggers(field.addAction(QIcon(), QLineEdit::TrailingPosition), &QAction::triggered);
    QTest::keyClick(&field, static_cast<Qt::Key>(key));
    QCOMPARE(triggers.count(), openings);
}

void TestControls::operationsOfPagesStandInTheHostsOrder()
{
#ifdef Q_CC_MSVC
    QSKIP("There a pointer to an operation tells nothing of its place.");
#else
    using Page = BaseStyleWidget;
    const std::ptrdiff_t places[] = {placeOf(&Page::initForm), placeOf(&Page::retranslateUi),
        placeOf(&Page::doAfterWidgetShow), placeOf(&Page::doAfterWidgetHide), placeOf(&Page::releaseResource),
        placeOf(&Page::processSpecialParam), placeOf(&Page::lineEditFocusIn), placeOf(&Page::textEditFocusIn),
        placeOf(&Page::doVerifyLineEditText), placeOf(&Page::doVeriryTextEditText),
        placeOf(&Page::shortcutEnter), placeOf(&Page::shortcutClose), placeOf(&Page::setPreviewConfigParam),
        placeOf(&Page::getSelectLayoutId), placeOf(&Page::getCurrLayoutList),
        placeOf(&Page::getCurLayoutMode), placeOf(&Page::getPicInPicModel), placeOf(&Page::getPicInPicPos),
        placeOf(&Page::getShowAllDevEnabled), placeOf(&Page::appQuitProcess), placeOf(&Page::setTips),
        placeOf(&Page::showTips)};
    QCOMPARE(std::size(places), 22U);
    for (std::size_t i = 1; i < std::size(places); ++i)
        QCOMPARE(places[i] - places[i - 1], std::ptrdiff_t(sizeof(void *)));
#endif
}

void TestControls::theMarkIsTheFirstMemberOfItsClass()
{
    struct Page : BaseStyleWidget
    {
        std::ptrdiff_t placeOfMark() const
        {
            return reinterpret_cast<const char *>(&m_bAfterHide)
                - reinterpret_cast<const char *>(static_cast<const QWidget *>(this));
        }
        static constexpr std::size_t sizeOfMark() { return sizeof(m_bAfterHide); }
    };
    QCOMPARE(Page().placeOfMark(), std::ptrdiff_t(sizeof(QWidget)));
    QCOMPARE(Page::sizeOfMark(), 1U);
}

void TestControls::fieldsOfANodeStandInTheHostsOrder()
{
    const NODE made;
    const void *const places[] = {&made.id, &made.name, &made.parentId, &made.iconPath, &made.toolTip,
        &made.uid, &made.level, &made.kind, &made.enabled, &made.context, &made.childCount, &made.checkState,
        &made.remark, &made.extension};
    QVERIFY(std::is_sorted(std::begin(places), std::end(places), std::less<const void *>()));
    QCOMPARE(places[0], static_cast<const void *>(&made));
    QCOMPARE(sizeof made.id, 4U);
    QCOMPARE(sizeof made.level, 4U);
    QCOMPARE(sizeof made.kind, 2U);
    QCOMPARE(sizeof made.enabled, 1U);
    QCOMPARE(sizeof made.context, 8U);
    QCOMPARE(sizeof made.childCount, 4U);
    QCOMPARE(sizeof made.checkState, 4U);

    for (const QString &empty :
        {made.name, made.parentId, made.iconPath, made.uid, made.remark, made.extension})
        QVERIFY(empty.isEmpty() && !empty.isNull());
    QVERIFY(made.toolTip.isNull());
    QCOMPARE(made.id, 0);
    QCOMPARE(made.level, 0);
    QCOMPARE(int(made.kind), 0);
    QCOMPARE(int(made.enabled), 1);
    QCOMPARE(made.context, quint64(0));
    QCOMPARE(made.childCount, 0);
    QCOMPARE(made.checkState, 1);
}

void TestControls::aTipTakesNeitherFocusNorMouse()
{
    BaseWidget page(nullptr, {});
    page.resize(600, 400);
    QLineEdit edit(&page);
    page.show();
    edit.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.setTips(QStringLiteral("No records"), 1);

    const QList<QWidget *> toasts = toastsOn(page);
    QCOMPARE(toasts.size(), 1);
    QCOMPARE(QApplication::focusWidget(), &edit);
    QVERIFY(page.rect().contains(toasts.first()->geometry()));
    QVERIFY(page.childAt(toasts.first()->geometry().center()) == nullptr);
}

void TestControls::tipsStackWithTheNewestAtTheEdge()
{
    BaseWidget page(nullptr, {});
    page.resize(600, 400);
    page.show();
    page.setTips(QStringLiteral("first"), 1);
    page.setTips(QStringLiteral("second"), 2);
    page.setTips(QStringLiteral("third"), 3);

    const QList<QWidget *> toasts = toastsOn(page);
    QCOMPARE(toasts.size(), 3);
    QTRY_VERIFY(toasts.at(2)->geometry().bottom() < toasts.at(1)->geometry().top());
    QTRY_VERIFY(toasts.at(1)->geometry().bottom() < toasts.at(0)->geometry().top());
    QVERIFY(toasts.at(2)->geometry().top() > 0);
    QVERIFY(toasts.at(2)->geometry().bottom() < page.height() / 2);
    QVERIFY(toasts.at(2)->geometry().right() > page.width() - 40);
}

void TestControls::theSameTipAgainMakesNoSecondOne()
{
    BaseWidget page(nullptr, {});
    page.resize(600, 400);
    page.show();
    page.setTips(QStringLiteral("No records"), 1);
    page.setTips(QStringLiteral("No records"), 1);
    QCOMPARE(toastsOn(page).size(), 1);
    page.setTips(QStringLiteral("No records"), 2);
    QCOMPARE(toastsOn(page).size(), 2);
}

void TestControls::anEmptyTipShowsNothing()
{
    BaseWidget page(nullptr, {});
    page.resize(600, 400);
    page.show();
    page.setTips({}, 1);
    page.showTips();
    QCOMPARE(toastsOn(page).size(), 0);
}

void TestControls::theLastTipCanBeShownAgain()
{
    BaseWidget page(nullptr, {});
    page.resize(600, 400);
    page.setTips(QStringLiteral("first"), 1);
    page.setTips(QStringLiteral("last"), 2);
    qDeleteAll(page.findChildren<QWidget *>(QStringLiteral("toast")));
    page.show();
    page.showTips();
    QCOMPARE(toastsOn(page).size(), 1);
    QCOMPARE(toastsOn(page).first()->accessibleName(), QStringLiteral("last"));
}

void TestControls::aMessageGoesByItself()
{
    QWidget page;
    page.resize(600, 400);
    page.show();
    ZrMessageBoxFlowDownWidget::showMessage(
        QStringLiteral("Exported"), &page, ZrMessageBoxFlowDownWidget::Success, 20);
    QCOMPARE(toastsOn(page).size(), 1);
    QVERIFY(toastsOn(page).first()->geometry().bottom() < page.height() / 2);
    QTRY_COMPARE(page.findChildren<QWidget *>(QStringLiteral("toast")).size(), 0);
}

void TestControls::aNoteLooksAsItsKindIs()
{
    QSet<QRgb> backgrounds;
    for (const int kind : {1, 2, 3}) {
        BaseWidget page(nullptr, {});
        page.resize(600, 400);
        page.show();
        page.setTips(QStringLiteral("text"), kind);
        const auto *fade = toastsOn(page).first()->findChild<QVariantAnimation *>();
        QTRY_COMPARE(fade->state(), QAbstractAnimation::Stopped);
        const QImage picture = toastsOn(page).first()->grab().toImage();
        backgrounds.insert(picture.pixel(picture.width() - 6, picture.height() / 2));
    }
    QCOMPARE(backgrounds.size(), 3);
}

void TestControls::markupInATipIsShownAsItStands()
{
    // As markup the first would be one bold letter and so much narrower.
    BaseWidget page(nullptr, {});
    page.resize(600, 400);
    page.show();
    page.setTips(QStringLiteral("<b>x</b>"), 1);
    page.setTips(QStringLiteral("x"), 1);
    const QList<QWidget *> toasts = toastsOn(page);
    const int letters = page.fontMetrics().horizontalAdvance(QStringLiteral("<b></b>"));
    QVERIFY(toasts.at(0)->width() - toasts.at(1)->width() >= letters - 1);
}

void TestControls::aLongTipWrapsWithinThePage()
{
    BaseWidget page(nullptr, {});
    page.resize(300, 400);
    page.show();
    page.setTips(QString(200, u'x') + QStringLiteral(" and so on"), 3);
    page.setTips(QString(1000000, u'y'), 3);
    const QList<QWidget *> toasts = toastsOn(page);
    QCOMPARE(toasts.size(), 2);
    for (const QWidget *toast : toasts) {
        QVERIFY(toast->width() <= page.width());
        QVERIFY(toast->height() > 3 * page.fontMetrics().height());
        QVERIFY(toast->height() <= page.height() / 2);
    }
}

void TestControls::aMessageKeepsClearOfTheControlInUse()
{
    QWidget page;
    page.resize(600, 400);
    QLineEdit edit(&page);
    edit.setGeometry(390, 40, 200, 40);
    page.show();
    edit.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    ZrMessageBoxFlowDownWidget::showMessage(
        QStringLiteral("Exported"), &page, ZrMessageBoxFlowDownWidget::Success, 0);
    QVERIFY(!toastsOn(page).first()->geometry().intersects(edit.geometry()));
}

void TestControls::aNoteLiesOnNeitherLegendNorAxis()
{
    BaseWidget page(nullptr, {});
    page.resize(900, 700);
    auto *column = new QVBoxLayout(&page);
    QList<ZrChartView *> views;
    for (int i = 0; i < 2; ++i) {
        views.append(new ZrChartView(new QChart, nullptr));
        auto *bars = new QBarSeries;
        bars->append(new QBarSet(QStringLiteral("Bars")));
        views.last()->chart()->addSeries(bars);
        views.last()->chart()->createDefaultAxes();
        column->addWidget(views.last());
    }
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    page.setTips(QStringLiteral("first"), 2);
    page.setTips(QString(150, u'x'), 3);
    QTest::qWait(300);
    const QChart *chart = views.first()->chart();
    const QRectF plot(views.first()->mapTo(&page, chart->mapToScene(chart->plotArea().topLeft()).toPoint()),
        chart->plotArea().size());
    for (const QWidget *toast : toastsOn(page))
        QVERIFY(plot.contains(toast->geometry()));
    QCOMPARE(toastsOn(page).size(), 2);
}

void TestControls::aNoteLiesWhereReadingStartsOrEnds()
{
    BaseWidget page(nullptr, {});
    page.resize(900, 400);
    page.setLayoutDirection(Qt::RightToLeft);
    page.show();
    page.setTips(QStringLiteral("text"), 1);
    QVERIFY(toastsOn(page).first()->geometry().right() < page.width() / 2);
}

void TestControls::aPageCanDieUnderItsTips()
{
    auto page = std::make_unique<BaseWidget>(nullptr, Qt::WindowFlags());
    page->resize(600, 400);
    page->show();
    page->setTips(QStringLiteral("first"), 1);
    ZrMessageBoxFlowDownWidget::showMessage(
        QStringLiteral("second"), page.get(), ZrMessageBoxFlowDownWidget::Failure, 10);
    const QPointer<QWidget> toast = toastsOn(*page).first();
    page.reset();
    QVERIFY(!toast);
    QTest::qWait(30);
}

void TestControls::aMessageWithoutAParentIsIgnored()
{
    const qsizetype widgets = QApplication::allWidgets().size();
    ZrMessageBoxFlowDownWidget::showMessage(
        QStringLiteral("text"), nullptr, ZrMessageBoxFlowDownWidget::Success, 0);
    QCOMPARE(QApplication::allWidgets().size(), widgets);
}

void TestControls::theOverlayHasPaintedWhenStartReturns()
{
    QWidget page;
    page.resize(300, 200);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    ZrLoaddingWidget overlay(&page, Qt::NonModal);
    EventCount paints(&overlay, QEvent::Paint);
    QVERIFY(!overlay.isVisible());
    overlay.start(0);
    QVERIFY(overlay.isVisible());
    QVERIFY(paints.count > 0);
}

void TestControls::theOverlayLeavesTimersAndPostedEventsWaiting()
{
    QWidget page;
    page.resize(300, 200);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    int ran = 0;
    QTimer::singleShot(0, &page, [&ran] { ++ran; });
    QMetaObject::invokeMethod(
        &page, [&ran] { ++ran; }, Qt::QueuedConnection);
    ZrLoaddingWidget overlay(&page, Qt::NonModal);
    overlay.start(0);
    QCOMPARE(ran, 0);
    QTRY_COMPARE(ran, 2);
}

void TestControls::theOverlayFollowsThePageAndGoesWithItsScope()
{
    QWidget page;
    page.resize(300, 200);
    page.show();
    {
        ZrLoaddingWidget overlay(&page, Qt::NonModal);
        overlay.start(50);
        QCOMPARE(overlay.geometry(), QRect(0, 0, 300, 200));
        page.resize(500, 350);
        QTRY_COMPARE(overlay.geometry(), QRect(0, 0, 500, 350));
    }
    QVERIFY(page.findChildren<QWidget *>().isEmpty());
}

void TestControls::theOverlayOutlivesAPageThatDies()
{
    auto page = std::make_unique<QWidget>();
    page->resize(300, 200);
    page->show();
    ZrLoaddingWidget overlay(page.get(), Qt::NonModal);
    overlay.start(0);
    page.reset();
    QVERIFY(!overlay.isVisible());
    overlay.start(0);
    QVERIFY(!overlay.isVisible());
}

void TestControls::anOverlayOfNothingStaysHidden()
{
    ZrLoaddingWidget overlay(nullptr, Qt::NonModal);
    overlay.start(0);
    QVERIFY(!overlay.isVisible());
}

void TestControls::aHiddenButtonForgetsHoverAndPress()
{
    QWidget page;
    page.resize(200, 100);
    ZrPushButton button(&page);
    button.setGeometry(50, 30, 100, 30);
    page.show();
    QSignalSpy clicks(&button, &QPushButton::clicked);
    button.setAttribute(Qt::WA_UnderMouse);
    QTest::mousePress(&button, Qt::LeftButton);
    QVERIFY(button.isDown());
    button.hide();
    QVERIFY(!button.isDown());
    QVERIFY(!button.underMouse());
    QTest::mouseRelease(&page, Qt::LeftButton);
    QCOMPARE(clicks.count(), 0);
}

void TestControls::aPropertyIsSetAsTheObjectItselfWould()
{
    ZrPushButton button(nullptr);
    QVERIFY(button.setProperty("text", QStringLiteral("Export")));
    QCOMPARE(button.text(), QStringLiteral("Export"));
    QVERIFY(button.setProperty("iconSize", QSize(16, 16)));
    QCOMPARE(button.iconSize(), QSize(16, 16));
    QVERIFY(!button.setProperty("highlight", true));
    QCOMPARE(button.property("highlight"), QVariant(true));
    QVERIFY(!button.setProperty(nullptr, true));
}

void TestControls::anIconButtonIsNamedByItsToolTip()
{
    ZrPushButton icon(nullptr);
    icon.setToolTip(QStringLiteral("Next page"));
    QCOMPARE(icon.accessibleName(), QStringLiteral("Next page"));
    icon.setToolTip(QStringLiteral("Nächste Seite"));
    QCOMPARE(icon.accessibleName(), QStringLiteral("Nächste Seite"));

    ZrPushButton labelled(nullptr);
    labelled.setText(QStringLiteral("Export"));
    labelled.setToolTip(QStringLiteral("Writes a file"));
    QCOMPARE(labelled.accessibleName(), QString());
}

void TestControls::aTextTooLongForAButtonLeavesItsEdgesFree_data()
{
    QTest::addColumn<bool>("icon");

    QTest::newRow("text alone") << false;
    QTest::newRow("icon and text") << true;
}

void TestControls::aTextTooLongForAButtonLeavesItsEdgesFree()
{
    QFETCH(bool, icon);
    const auto edges = [](QWidget &button) {
        const QImage image = button.grab().toImage();
        return std::pair(
            image.copy(0, 0, 4, image.height()), image.copy(image.width() - 4, 0, 4, image.height()));
    };
    ZrPushButton button(nullptr);
    button.setFixedSize(65, 30);
    const auto empty = edges(button);
    QPixmap square(16, 16);
    square.fill(Qt::red);
    if (icon)
        button.setIcon(square);
    button.setText(QString(30, 'W'));
    QCOMPARE(edges(button), empty);
    QCOMPARE(button.text(), QString(30, 'W'));

    const QPoint middle = button.rect().center();
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QHelpEvent help(QEvent::ToolTip, middle, button.mapToGlobal(middle));
    QCoreApplication::sendEvent(&button, &help);
    QCOMPARE(QToolTip::text(), QString(30, 'W'));
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());

    button.setText(QStringLiteral("W"));
    QCoreApplication::sendEvent(&button, &help);
    QVERIFY(!QToolTip::isVisible());
}

void TestControls::aButtonStyleIsNamedForTheTheme()
{
    ZrPushButton button(nullptr);
    AppStyleHelper::updateWidgetStyle(&button, AppStyleHelper::ConfirmButton);
    QCOMPARE(button.property("buttonStyle"), QVariant(QStringLiteral("confirm")));
    AppStyleHelper::updateWidgetStyle(&button, static_cast<AppStyleHelper::newWidgetStyleType>(99));
    QCOMPARE(button.property("buttonStyle"), QVariant(QStringLiteral("confirm")));
    AppStyleHelper::updateWidgetStyle(nullptr, AppStyleHelper::ToolButton);
}

void TestControls::theViewTellsTheGlobalPointerPosition()
{
    ZrChartView view(new QChart, nullptr);
    view.resize(300, 200);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy moves(&view, &ZrChartView::mouseMoved);
    QTest::mouseMove(view.viewport(), QPoint(120, 80));
    QTRY_VERIFY(moves.count() > 0);
    QCOMPARE(moves.last().at(0).toPoint(), view.viewport()->mapToGlobal(QPoint(120, 80)));
}

void TestControls::buttonsAndWheelAreHarmlessOverAHiddenChart()
{
    ZrChartView view(new QChart, nullptr);
    view.resize(300, 200);
    view.show();
    view.chart()->setVisible(false);
    const QPoint place(150, 100);
    QTest::mouseMove(view.viewport(), place);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view.viewport(), Qt::RightButton, {}, place);
    QTest::mouseRelease(view.viewport(), Qt::RightButton, {}, place);
    QWheelEvent wheel(QPointF(place), view.mapToGlobal(QPointF(place)), QPoint(), QPoint(0, 120),
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &wheel);
    QVERIFY(!view.chart()->isVisible());
}

void TestControls::buttonsAndWheelAreHarmlessBesideTheItems()
{
    ZrChartView view(nullptr, nullptr);
    QVERIFY(view.chart());
    view.resize(300, 200);
    view.show();
    view.scene()->removeItem(view.chart());
    const std::unique_ptr<QChart> taken(view.chart());
    for (const QPoint &place : {QPoint(0, 0), QPoint(299, 199), QPoint(-5, 500)}) {
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, place);
    }
    QVERIFY(view.scene()->items().isEmpty());
}

void TestControls::aBarUnderThePointerIsHovered()
{
    auto *set = new QBarSet(QStringLiteral("set"));
    *set << 9 << 9 << 9;
    auto *series = new QBarSeries;
    series->append(set);
    series->setBarWidth(1);
    auto *chart = new QChart;
    chart->addSeries(series);
    chart->createDefaultAxes();
    chart->axes(Qt::Vertical).first()->setRange(0, 10);
    ZrChartView view(chart, nullptr);
    view.resize(400, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy hovers(series, &QBarSeries::hovered);
    const QPoint middle = view.mapFromScene(chart->mapToScene(chart->plotArea().center()));
    QTest::mouseMove(view.viewport(), QPoint(1, 1));
    QTest::mouseMove(view.viewport(), middle);
    QTRY_VERIFY(hovers.count() > 0);
    QCOMPARE(hovers.first().at(0).toBool(), true);
    QCOMPARE(hovers.first().at(1).toInt(), 1);
}

void TestControls::theSceneHasNoIndex()
{
    ZrChartView view(new QChart, nullptr);
    QCOMPARE(view.scene()->itemIndexMethod(), QGraphicsScene::NoIndex);
}

void TestControls::theDialogOpensOverTheMiddleOfItsParent()
{
    QWidget page;
    page.setGeometry(100, 100, 400, 300);
    page.show();
    OpenDialog dialog(&page);
    dialog.resize(200, 100);
    dialog.showZrDialog();
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.isWindow());
    QVERIFY(dialog.windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(dialog.geometry(), QRect(200, 200, 200, 100));
}

void TestControls::theDialogBlocksItsParentsWindowAlone()
{
    QWidget page;
    OpenDialog dialog(&page);
    QCOMPARE(dialog.windowModality(), Qt::WindowModal);
}

void TestControls::escapePressesTheCloseButton()
{
    QWidget page;
    page.show();
    OpenDialog dialog(&page);
    ZrPushButton close(&dialog);
    close.setObjectName(QStringLiteral("pushButtonClose"));
    QSignalSpy clicks(&close, &QPushButton::clicked);
    dialog.showZrDialog();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(clicks.count(), 1);
    QVERIFY(dialog.isVisible());
}

void TestControls::escapeClosesADialogWithoutACloseButton()
{
    QWidget page;
    page.show();
    OpenDialog dialog(&page);
    dialog.showZrDialog();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void TestControls::closingTheWindowPressesTheCloseButton()
{
    QWidget page;
    page.show();
    OpenDialog dialog(&page);
    ZrPushButton close(&dialog);
    close.setObjectName(QStringLiteral("pushButtonClose"));
    connect(&close, &QPushButton::clicked, &dialog, [&dialog] { dialog.closeZrDialog(); });
    QSignalSpy clicks(&close, &QPushButton::clicked);
    dialog.showZrDialog();
    dialog.close();
    QCOMPARE(clicks.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void TestControls::enterPressesTheButtonThatHasTheFocusElseOK()
{
    QWidget page;
    page.show();
    OpenDialog dialog(&page);
    auto *column = new QVBoxLayout(&dialog);
    QLineEdit edit;
    ZrPushButton ok(nullptr);
    ok.setObjectName(QStringLiteral("pushButtonOK"));
    ZrPushButton cancel(nullptr);
    for (QWidget *part : std::initializer_list<QWidget *>{&edit, &ok, &cancel})
        column->addWidget(part);
    QSignalSpy oks(&ok, &QPushButton::clicked);
    QSignalSpy cancels(&cancel, &QPushButton::clicked);
    dialog.showZrDialog();
    edit.setFocus();
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(oks.count(), 1);
    cancel.setFocus();
    QTest::keyClick(&cancel, Qt::Key_Enter);
    QCOMPARE(oks.count(), 1);
    QCOMPARE(cancels.count(), 1);
    for (QWidget *part : std::initializer_list<QWidget *>{&edit, &ok, &cancel})
        part->setParent(nullptr);
}

void TestControls::theDialogIsDraggedByItsPanel()
{
    QWidget page;
    page.setGeometry(100, 100, 400, 300);
    page.show();
    OpenDialog dialog(&page);
    dialog.resize(200, 100);
    dialog.showZrDialog();
    const QPoint before = dialog.pos();
    const QPoint grip = dialog.mapToGlobal(QPoint(50, 20));
    const auto send = [&](QEvent::Type type, const QPoint &global, Qt::MouseButton button,
                          Qt::MouseButtons held) {
        QMouseEvent event(
            type, dialog.mapFromGlobal(QPointF(global)), QPointF(global), button, held, Qt::NoModifier);
        QApplication::sendEvent(&dialog, &event);
    };
    send(QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, grip + QPoint(30, 40), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(dialog.pos(), before + QPoint(30, 40));
    send(QEvent::MouseButtonRelease, grip + QPoint(30, 40), Qt::LeftButton, Qt::NoButton);
    send(QEvent::MouseMove, grip + QPoint(90, 90), Qt::NoButton, Qt::NoButton);
    QCOMPARE(dialog.pos(), before + QPoint(30, 40));
}

void TestControls::aClosedDialogOpensAgain()
{
    QWidget page;
    page.show();
    OpenDialog dialog(&page);
    dialog.showZrDialog();
    dialog.closeZrDialog();
    QVERIFY(!dialog.isVisible());
    dialog.showZrDialog();
    QVERIFY(dialog.isVisible());
}

void TestControls::theCalendarKnowsItsWidthBeforeItIsShown()
{
    ZrCalendarWidget calendar(nullptr);
    const int width = calendar.width();
    for (const auto type : {ZrCalendarWidget::Month, ZrCalendarWidget::Day, ZrCalendarWidget::Hour}) {
        calendar.setType(type);
        QCOMPARE(calendar.width(), width);
        calendar.showDialog({}, {});
        QCOMPARE(calendar.width(), width);
        calendar.hide();
    }
}

void TestControls::enterConfirmsTheSpanThatItWasOpenedWith_data()
{
    table<ZrCalendarWidget::QueryType, QDateTime, QDateTime>({"type", "start", "stop"},
        {{"months", ZrCalendarWidget::Month, at("2023-11-01 00:00"), at("2024-05-01 00:00")},
            {"one month", ZrCalendarWidget::Month, at("2024-02-01 00:00"), at("2024-02-01 00:00")},
            {"days", ZrCalendarWidget::Day, at("2024-04-26 00:00"), at("2024-05-03 00:00")},
            {"hours", ZrCalendarWidget::Hour, at("2024-05-03 00:00"), at("2024-05-03 17:00")},
            {"hours of a day before", ZrCalendarWidget::Hour, at("2024-02-29 08:00"),
                at("2024-02-29 23:00")}});
}

void TestControls::enterConfirmsTheSpanThatItWasOpenedWith()
{
    QFETCH(ZrCalendarWidget::QueryType, type);
    QFETCH(QDateTime, start);
    QFETCH(QDateTime, stop);
    OpenCalendar calendar(type, start, stop);
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Return);
    QCOMPARE(calendar.answers(), (Spans{{start, stop}}));
    QVERIFY(!calendar.isVisible());
}

void TestControls::escapeLeavesAllAsItWas()
{
    OpenCalendar calendar(ZrCalendarWidget::Day, at("2024-05-01 00:00"), at("2024-05-03 00:00"));
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Left);
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Space);
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Escape);
    QVERIFY(!calendar.isVisible());
    QVERIFY(calendar.answers().isEmpty());
}

void TestControls::withoutASpanThereIsNothingToConfirm()
{
    OpenCalendar calendar(ZrCalendarWidget::Day, {}, {});
    const auto *ok = calendar.findChild<ZrPushButton *>(QStringLiteral("pushButtonOK"));
    QVERIFY(!ok->isEnabled());
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Return);
    QVERIFY(calendar.answers().isEmpty());
    QVERIFY(calendar.isVisible());

    // The cursor stands at the present day.
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Space);
    QVERIFY(ok->isEnabled());
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Return);
    QCOMPARE(calendar.answers(), (Spans{{at("2024-05-03 00:00"), at("2024-05-03 00:00")}}));
}

static QPoint cellOf(QWidget *grid, qint64 unit)
{
    QRect area;
    QMetaObject::invokeMethod(grid, "cellRect", Q_RETURN_ARG(QRect, area), Q_ARG(qint64, unit));
    return area.center();
}

static qint64 dayNumber(int year, int month, int day)
{
    return QDate(year, month, day).toJulianDay();
}

void TestControls::twoPressesPickASpan()
{
    OpenCalendar calendar(ZrCalendarWidget::Day, at("2024-05-01 00:00"), at("2024-05-03 00:00"));
    auto *grid = calendar.findChild<QWidget *>(QStringLiteral("grid"));
    QTest::mouseClick(grid, Qt::LeftButton, {}, cellOf(grid, dayNumber(2024, 5, 20)));
    QTest::mouseClick(grid, Qt::LeftButton, {}, cellOf(grid, dayNumber(2024, 5, 15)));
    QTest::mouseClick(calendar.findChild<QWidget *>(QStringLiteral("pushButtonOK")), Qt::LeftButton);
    QCOMPARE(calendar.answers(), (Spans{{at("2024-05-15 00:00"), at("2024-05-20 00:00")}}));
}

void TestControls::aSecondPressBeyondTheLimitBeginsAnew()
{
    OpenCalendar calendar(ZrCalendarWidget::Day, at("2024-05-01 00:00"), at("2024-05-03 00:00"));
    auto *grid = calendar.findChild<QWidget *>(QStringLiteral("grid"));
    QTest::mouseClick(grid, Qt::LeftButton, {}, cellOf(grid, dayNumber(2024, 5, 2)));
    QTest::mouseClick(grid, Qt::LeftButton, {}, cellOf(grid, dayNumber(2024, 5, 10)));
    QTest::mouseClick(grid, Qt::LeftButton, {}, cellOf(grid, dayNumber(2024, 5, 17)));
    QTest::keyClick(grid, Qt::Key_Return);
    QCOMPARE(calendar.answers(), (Spans{{at("2024-05-10 00:00"), at("2024-05-17 00:00")}}));
}

void TestControls::aDragStopsAtTheLimit()
{
    OpenCalendar calendar(ZrCalendarWidget::Month, at("2024-05-01 00:00"), at("2024-05-01 00:00"));
    auto *grid = calendar.findChild<QWidget *>(QStringLiteral("grid"));
    const QPoint january = cellOf(grid, 2024 * 12);
    const QPoint december = cellOf(grid, 2024 * 12 + 11);
    QTest::mousePress(grid, Qt::LeftButton, {}, january);
    QMouseEvent move(QEvent::MouseMove, QPointF(december), grid->mapToGlobal(QPointF(december)), Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(grid, &move);
    QTest::mouseRelease(grid, Qt::LeftButton, {}, december);
    QTest::keyClick(grid, Qt::Key_Return);
    QCOMPARE(calendar.answers(), (Spans{{at("2024-01-01 00:00"), at("2024-07-01 00:00")}}));
}

void TestControls::hoursAreThoseOfOneDay()
{
    OpenCalendar calendar(ZrCalendarWidget::Hour, at("2024-05-03 00:00"), at("2024-05-03 17:00"));
    auto *days = calendar.findChild<QWidget *>(QStringLiteral("grid"));
    auto *hours = calendar.findChild<QWidget *>(QStringLiteral("hours"));
    QTest::mouseClick(days, Qt::LeftButton, {}, cellOf(days, dayNumber(2024, 5, 1)));
    QTest::mouseClick(hours, Qt::LeftButton, {}, cellOf(hours, 8));
    QTest::mouseClick(hours, Qt::LeftButton, {}, cellOf(hours, 23));
    QTest::keyClick(hours, Qt::Key_Return);
    QCOMPARE(calendar.answers(), (Spans{{at("2024-05-01 08:00"), at("2024-05-01 23:00")}}));
}

void TestControls::shiftAndArrowsPickASpanAcrossPages()
{
    OpenCalendar calendar(ZrCalendarWidget::Day, at("2024-05-01 00:00"), at("2024-05-03 00:00"));
    auto *grid = calendar.findChild<QWidget *>(QStringLiteral("grid"));
    QCOMPARE(calendar.focusWidget(), grid);
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(grid, Qt::Key_Left, Qt::ShiftModifier);
    // A week more would be beyond the limit; the span goes as far as it may.
    QTest::keyClick(grid, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(grid, Qt::Key_Return);
    QCOMPARE(calendar.answers(), (Spans{{at("2024-04-26 00:00"), at("2024-05-03 00:00")}}));
}

void TestControls::endsInTheWrongOrderAreTurnedRound()
{
    OpenCalendar calendar(ZrCalendarWidget::Day, at("2024-05-03 00:00"), at("2024-05-01 00:00"));
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Return);
    QCOMPARE(calendar.answers(), (Spans{{at("2024-05-01 00:00"), at("2024-05-03 00:00")}}));
}

void TestControls::aSpanThatIsTooLongIsShownAsFarAsItMayGo()
{
    ZrCalendarWidget calendar(nullptr);
    QSignalSpy answers(&calendar, &ZrCalendarWidget::signalDataTimeChanged);
    calendar.setType(ZrCalendarWidget::Month);
    calendar.showDialog(at("2020-01-01 00:00"), at("2024-05-03 00:00"));
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Return);
    QCOMPARE(answers.first().at(0).toDateTime(), at("2020-01-01 00:00"));
    QCOMPARE(answers.first().at(1).toDateTime(), at("2020-07-01 00:00"));
    calendar.setType(ZrCalendarWidget::Hour);
    calendar.showDialog(at("2024-05-01 09:00"), at("2024-05-03 04:00"));
    QTest::keyClick(calendar.focusWidget(), Qt::Key_Return);
    QCOMPARE(answers.last().at(0).toDateTime(), at("2024-05-01 09:00"));
    QCOMPARE(answers.last().at(1).toDateTime(), at("2024-05-01 23:00"));
}

void TestControls::thePopupStaysOnTheScreen()
{
    ZrCalendarWidget calendar(nullptr);
    const QRect room = calendar.screen()->availableGeometry();
    for (const QPoint &place : {room.bottomRight(), room.topLeft() - QPoint(500, 500)}) {
        calendar.move(place);
        calendar.showDialog({}, {});
        QVERIFY(room.contains(calendar.geometry()));
        calendar.hide();
    }
}

void TestControls::senselessMomentsAreNoSpan()
{
    ZrCalendarWidget calendar(nullptr);
    calendar.setType(static_cast<ZrCalendarWidget::QueryType>(77));
    const QDateTime early(QDate(-4000, 1, 1), QTime(0, 0));
    const QDateTime late(QDate(200000, 1, 1), QTime(0, 0));
    for (const auto type : {ZrCalendarWidget::Month, ZrCalendarWidget::Day, ZrCalendarWidget::Hour}) {
        calendar.setType(type);
        calendar.showDialog(early, late);
        QVERIFY(!calendar.findChild<ZrPushButton *>(QStringLiteral("pushButtonOK"))->isEnabled());
        calendar.hide();
        const QDateTime end(QDate(9999, 12, 31), QTime(23, 0));
        calendar.showDialog(end, end);
        for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Space})
            QTest::keyClick(calendar.focusWidget(), static_cast<Qt::Key>(key));
        QVERIFY(calendar.findChild<ZrPushButton *>(QStringLiteral("pushButtonOK"))->isEnabled());
        calendar.hide();
    }
}

void TestControls::anEmptyTreeHasNoNodes()
{
    ZrComboBoxWithTree combo(nullptr);
    NODE kept = node(42, QStringLiteral("kept"));
    QVERIFY(combo.m_pTreeView);
    QCOMPARE(combo.count(), 0);
    QVERIFY(!combo.m_pTreeView->getCurrentItemData(kept));
    QVERIFY(!combo.m_pTreeView->getRootItemData(kept));
    QVERIFY(!combo.m_pTreeView->setRootAsCurrentItem());
    QCOMPARE(kept.id, 42);

    QList<NODE> none;
    combo.addNode(none, true);
    QCOMPARE(combo.count(), 0);
    combo.showPopup();
    QVERIFY(!combo.findChild<QFrame *>(QStringLiteral("treePopup")));

    ZrTreeView lonely;
    QVERIFY(!lonely.getCurrentItemData(kept));
    QVERIFY(!lonely.setRootAsCurrentItem());
}

void TestControls::aFilledTreeHasNoCurrentNodeYet()
{
    ZrComboBoxWithTree combo(nullptr);
    QList<NODE> nodes = company();
    combo.addNode(nodes, true);
    QVERIFY(combo.count() > 0);
    QCOMPARE(combo.currentText(), QString());
    NODE current;
    QVERIFY(!combo.m_pTreeView->getCurrentItemData(current));
    NODE root;
    QVERIFY(combo.m_pTreeView->getRootItemData(root));
    QCOMPARE(root.id, 1);
    QVERIFY(combo.m_pTreeView->isExpanded(combo.m_pTreeView->model()->index(0, 0)));
}

void TestControls::theRootBecomesCurrentOnRequest()
{
    ZrComboBoxWithTree combo(nullptr);
    QSignalSpy news(&combo, &QComboBox::currentTextChanged);
    fill(combo, company());
    QCOMPARE(currentId(combo), 1);
    QCOMPARE(combo.currentText(), QStringLiteral("Company"));
    QCOMPARE(news.count(), 1);
    QCOMPARE(news.first().at(0).toString(), QStringLiteral("Company"));
}

void TestControls::clearTakesTheTreeAway()
{
    ZrComboBoxWithTree combo(nullptr);
    fill(combo, company());
    combo.clear();
    NODE none;
    QCOMPARE(combo.count(), 0);
    QCOMPARE(combo.currentText(), QString());
    QVERIFY(!combo.m_pTreeView->getCurrentItemData(none));
    QVERIFY(!combo.m_pTreeView->getRootItemData(none));
    QCOMPARE(combo.m_pTreeView->model()->rowCount(), 0);
    fill(combo, company());
    QCOMPARE(currentId(combo), 1);
}

void TestControls::anotherNodeOfTheSameNameIsNews()
{
    ZrComboBoxWithTree combo(nullptr);
    fill(combo, company());
    const QAbstractItemModel *tree = combo.m_pTreeView->model();
    const QModelIndex root = tree->index(0, 0);
    QSignalSpy news(&combo, &QComboBox::currentTextChanged);
    combo.m_pTreeView->setCurrentIndex(tree->index(0, 0, tree->index(0, 0, root)));
    QCOMPARE(currentId(combo), 3);
    QCOMPARE(news.count(), 1);
    combo.m_pTreeView->setCurrentIndex(tree->index(0, 0, tree->index(1, 0, root)));
    QCOMPARE(currentId(combo), 5);
    QCOMPARE(news.count(), 2);
    QCOMPARE(news.last().at(0).toString(), QStringLiteral("Hall A"));
}

void TestControls::theSameNodeAgainIsNoNews()
{
    ZrComboBoxWithTree combo(nullptr);
    fill(combo, company());
    QSignalSpy news(&combo, &QComboBox::currentTextChanged);
    combo.m_pTreeView->setRootAsCurrentItem();
    combo.m_pTreeView->setCurrentIndex(combo.m_pTreeView->model()->index(0, 0));
    QCOMPARE(news.count(), 0);
}

void TestControls::newNamesKeepTheCurrentNodeAndWhatIsOpen()
{
    ZrComboBoxWithTree combo(nullptr);
    fill(combo, company());
    const QAbstractItemModel *tree = combo.m_pTreeView->model();
    const QModelIndex north = tree->index(0, 0, tree->index(0, 0));
    combo.m_pTreeView->expand(north);
    combo.m_pTreeView->setCurrentIndex(north);
    combo.updateNode({node(1, QStringLiteral("Firma")), node(2, QStringLiteral("Werk Nord"), 1),
        node(99, QStringLiteral("Unbekannt"))});
    QCOMPARE(combo.currentText(), QStringLiteral("Werk Nord"));
    QCOMPARE(currentId(combo), 2);
    QCOMPARE(tree->index(0, 0).data().toString(), QStringLiteral("Firma"));
    QCOMPARE(tree->rowCount(), 1);
    QVERIFY(combo.m_pTreeView->isExpanded(north));
    QVERIFY(combo.m_pTreeView->isExpanded(tree->index(0, 0)));
}

void TestControls::typingFindsAndEnterChooses()
{
    ShownTree combo;
    QVERIFY(QTest::qWaitForWindowActive(&combo));
    QSignalSpy news(&combo, &QComboBox::currentTextChanged);
    QTest::keyClick(&combo, Qt::Key_S);
    auto *line = combo.findChild<QLineEdit *>(QStringLiteral("lineEditSearch"));
    QVERIFY(line && line->isVisible());
    QCOMPARE(line->text(), QStringLiteral("s"));
    QTest::keyClicks(line, QStringLiteral("OUTH"));
    QCOMPARE(news.count(), 0);
    const QAbstractItemModel *tree = combo.m_pTreeView->model();
    QCOMPARE(tree->rowCount(tree->index(0, 0)), 1);
    QTest::keyClick(line, Qt::Key_Return);
    QVERIFY(!line->isVisible());
    QCOMPARE(currentId(combo), 4);
    QCOMPARE(news.count(), 1);
    QCOMPARE(tree->rowCount(tree->index(0, 0)), 2);
}

void TestControls::aSearchOpensNothingForGood()
{
    ZrComboBoxWithTree combo(nullptr);
    fill(combo, company());
    combo.show();
    combo.showPopup();
    const QAbstractItemModel *tree = combo.m_pTreeView->model();
    const auto isOpen = [&](int row) {
        return combo.m_pTreeView->isExpanded(tree->index(row, 0, tree->index(0, 0)));
    };
    combo.m_pTreeView->expand(tree->index(1, 0, tree->index(0, 0)));
    auto *line = combo.findChild<QLineEdit *>(QStringLiteral("lineEditSearch"));
    line->setText(QStringLiteral("hall"));
    QVERIFY(isOpen(0) && isOpen(1));
    line->clear();
    QVERIFY(!isOpen(0) && isOpen(1));
    line->setText(QStringLiteral("north"));
    combo.hidePopup();
    QVERIFY(!isOpen(0) && isOpen(1));
    QVERIFY(combo.m_pTreeView->isExpanded(tree->index(0, 0)));
}

void TestControls::escapeKeepsTheCurrentNode()
{
    ShownTree combo;
    QSignalSpy news(&combo, &QComboBox::currentTextChanged);
    QTest::keyClick(&combo, Qt::Key_Down);
    auto *line = combo.findChild<QLineEdit *>(QStringLiteral("lineEditSearch"));
    QTest::keyClicks(line, QStringLiteral("hall"));
    // The search hides nothing of the current node from those who ask for it.
    QTest::keyClicks(line, QStringLiteral("zzz"));
    QCOMPARE(currentId(combo), 1);
    QTest::keyClick(line, Qt::Key_Escape);
    QVERIFY(!line->isVisible());
    QCOMPARE(currentId(combo), 1);
    QCOMPARE(combo.m_pTreeView->currentIndex(), combo.m_pTreeView->model()->index(0, 0));
    QCOMPARE(news.count(), 0);
}

void TestControls::aClickChoosesAndClosesThePopup()
{
    ShownTree combo;
    QTest::mousePress(&combo, Qt::LeftButton);
    QTest::mouseRelease(&combo, Qt::LeftButton);
    auto *popup = combo.findChild<QFrame *>(QStringLiteral("treePopup"));
    QVERIFY(popup && popup->isVisible());
    const QAbstractItemModel *tree = combo.m_pTreeView->model();
    const QRect area = combo.m_pTreeView->visualRect(tree->index(1, 0, tree->index(0, 0)));
    QTest::mouseClick(combo.m_pTreeView->viewport(), Qt::LeftButton, {}, area.center());
    QVERIFY(!popup->isVisible());
    QCOMPARE(currentId(combo), 4);
    QCOMPARE(combo.currentText(), QStringLiteral("Plant South"));
}

void TestControls::arrowsMoveTheCursorWithoutChoosing()
{
    ShownTree combo;
    QTest::keyClick(&combo, Qt::Key_F4);
    auto *line = combo.findChild<QLineEdit *>(QStringLiteral("lineEditSearch"));
    QTest::keyClick(line, Qt::Key_Down);
    QTest::keyClick(line, Qt::Key_Down);
    QCOMPARE(currentId(combo), 1);
    QTest::keyClick(line, Qt::Key_Right);
    QTest::keyClick(line, Qt::Key_Down);
    QTest::keyClick(line, Qt::Key_Enter);
    QCOMPARE(currentId(combo), 5);
}

void TestControls::aSearchWithoutAHitSaysSo()
{
    ShownTree combo;
    combo.showPopup();
    auto *line = combo.findChild<QLineEdit *>(QStringLiteral("lineEditSearch"));
    const auto *label = combo.findChild<QLabel *>(QStringLiteral("labelNothingFound"));
    QVERIFY(!label->isVisible());
    line->setText(QStringLiteral("zzz"));
    QVERIFY(label->isVisible());
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(currentId(combo), 1);
    line->clear();
    QVERIFY(!label->isVisible());
}

void TestControls::theCurrentNodeIsInSightWhenThePopupOpens()
{
    QList<NODE> nodes = {node(1, QStringLiteral("Root"))};
    for (int branch = 0; branch < 100; ++branch)
        nodes.append(node(100 + branch, QStringLiteral("Branch %1").arg(branch), 1));
    for (int leaf = 0; leaf < 9900; ++leaf)
        nodes.append(node(1000 + leaf, QStringLiteral("Leaf %1").arg(leaf), 100 + leaf / 99));
    ShownTree combo(nodes);
    const QAbstractItemModel *tree = combo.m_pTreeView->model();
    const QModelIndex branch = tree->index(70, 0, tree->index(0, 0));
    const QModelIndex deep = tree->index(50, 0, branch);
    QVERIFY(deep.isValid());
    combo.m_pTreeView->setCurrentIndex(deep);
    combo.showPopup();
    QVERIFY(combo.m_pTreeView->isExpanded(branch));
    QVERIFY(combo.m_pTreeView->viewport()->rect().contains(combo.m_pTreeView->visualRect(deep).center()));
}

void TestControls::aDisabledNodeCannotBeChosen()
{
    QList<NODE> nodes = company();
    nodes[1].enabled = 0;
    ShownTree combo(nodes);
    combo.showPopup();
    const QAbstractItemModel *tree = combo.m_pTreeView->model();
    const QRect area = combo.m_pTreeView->visualRect(tree->index(0, 0, tree->index(0, 0)));
    QTest::mouseClick(combo.m_pTreeView->viewport(), Qt::LeftButton, {}, area.center());
    QCOMPARE(currentId(combo), 1);
}

void TestControls::aNewTreeClosesThePopup()
{
    ShownTree combo;
    combo.showPopup();
    auto *line = combo.findChild<QLineEdit *>(QStringLiteral("lineEditSearch"));
    line->setText(QStringLiteral("north"));
    fill(combo, company());
    QVERIFY(!line->isVisible());
    QCOMPARE(currentId(combo), 1);
    QCOMPARE(combo.m_pTreeView->model()->rowCount(combo.m_pTreeView->model()->index(0, 0)), 2);
}

void TestControls::theWheelChangesNothing()
{
    ShownTree combo;
    const QPointF place(combo.rect().center());
    QWheelEvent wheel(place, combo.mapToGlobal(place), QPoint(), QPoint(0, -120), Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&combo, &wheel);
    QCOMPARE(currentId(combo), 1);
    QVERIFY(!wheel.isAccepted());
}

void TestControls::brokenTreesAreShownAllTheSame_data()
{
    QList<int> ids;
    QStringList parents;
    for (int i = 0; i < 10000; ++i) {
        ids.append(i);
        parents.append(i ? QString::number(i - 1) : QString());
    }
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    table<QList<int>, QStringList, int>({"ids", "parents", "roots"},
        {{"an unknown parent makes a root", {1, 2}, {{}, "77"}, 2},
            {"a parent that is no number makes a root", {1, 2}, {{}, "one"}, 2},
            {"its own parent is a root", {1}, {"1"}, 1},
            {"a circle is cut once", {1, 2, 3}, {"3", "1", "2"}, 1},
            {"a circle with a tail is cut once", {1, 2, 3}, {"2", "3", "2"}, 1},
            {"children before their parents are found", {2, 1}, {"1", {}}, 1},
            {"equal numbers are two nodes", {1, 1}, {{}, {}}, 2},
            {"numbers may be negative and huge", {least, most}, {"-2147483648", "99999999999999"}, 2},
            {"ten thousand levels", ids, parents, 1}});
}

void TestControls::brokenTreesAreShownAllTheSame()
{
    QFETCH(QList<int>, ids);
    QFETCH(QStringList, parents);
    QFETCH(int, roots);
    QList<NODE> nodes;
    for (qsizetype i = 0; i < ids.size(); ++i) {
        NODE made = node(ids.at(i), QStringLiteral("name"));
        made.parentId = parents.at(i);
        nodes.append(made);
    }
    ZrComboBoxWithTree combo(nullptr);
    fill(combo, nodes);
    const QAbstractItemModel *tree = combo.m_pTreeView->model();
    QCOMPARE(tree->rowCount(), roots);
    qsizetype found = 0;
    std::function<void(const QModelIndex &)> walk = [&](const QModelIndex &above) {
        for (int row = 0; row < tree->rowCount(above); ++row) {
            ++found;
            walk(tree->index(row, 0, above));
        }
    };
    walk({});
    QCOMPARE(found, ids.size());
    combo.show();
    combo.showPopup();
    combo.findChild<QLineEdit *>(QStringLiteral("lineEditSearch"))->setText(QStringLiteral("AME"));
    combo.hidePopup();
    combo.updateNode(nodes);
    QCOMPARE(combo.currentText(), QStringLiteral("name"));
}

void TestControls::datesFollowTheUsersOrderAndCanBeReadBack_data()
{
    table<QString, QString, QString>({"format", "yearFirst", "dayFirst"},
        {{"month", "yyyy-MM", "2024-02", "02/2024"}, {"day", "yyyy-MM-dd", "2024-02-01", "01/02/2024"},
            {"hour", "yyyy-MM-dd hh", "2024-02-01 09", "01/02/2024 09"}});
}

void TestControls::datesFollowTheUsersOrderAndCanBeReadBack()
{
    QFETCH(QString, format);
    QFETCH(QString, yearFirst);
    QFETCH(QString, dayFirst);
    const QDateTime moment = at("2024-02-01 09:00");
    const QDateTime kept = QDateTime::fromString(moment.toString(format), format);

    QCOMPARE(moment.toString(BaseHelper::dateTimeFormatConversion(format)), yearFirst);
    HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
    const QString converted = BaseHelper::dateTimeFormatConversion(format);
    QCOMPARE(moment.toString(converted), dayFirst);
    QCOMPARE(QDateTime::fromString(dayFirst, converted), kept);
}

void TestControls::tabsHaveTheWantedWidthAndRoomForTheirText()
{
    QTabWidget tabs;
    tabs.addTab(new QWidget, QStringLiteral("short"));
    tabs.addTab(new QWidget, QString(60, u'w'));
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(&tabs, 140);
    QCOMPARE(tabs.tabBar()->tabRect(0).width(), 140);
    const int text = tabs.tabBar()->fontMetrics().horizontalAdvance(tabs.tabText(1));
    QVERIFY(tabs.tabBar()->tabRect(1).width() >= text);
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(&tabs, 180);
    QCOMPARE(tabs.tabBar()->tabRect(0).width(), 180);
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(nullptr, 140);
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(&tabs, std::numeric_limits<int>::min());
}

void TestControls::coloursAreFoundByKey()
{
    QssFormatHelper *theme = QssFormatHelper::getInstance();
    const char *keys[] = {"$background_chart_color_1", "$word_tabbar2_select", "$word_color_2",
        "$word_color_4", "$word_color_5", "$word_normaltemp", "$word_overtemp", "$word_lowtemp",
        "$word_anormaltemp", "$word_weared", "$word_uncovered", "$word_undetected"};
    for (const char *key : keys) {
        const QString name = QString::fromLatin1(key);
        QVERIFY2(theme->findColorByKey(name).isValid(), key);
        QCOMPARE(QColor(theme->findColorStrByKey(name)), theme->findColorByKey(name));
    }
    QVERIFY(!theme->findColorByKey(QStringLiteral("$word_unknown")).isValid());
    QCOMPARE(theme->findColorStrByKey(QStringLiteral("$word_unknown")), QString());
}

void TestControls::opacityGoesIntoTheColourText()
{
    QssFormatHelper *theme = QssFormatHelper::getInstance();
    QCOMPARE(theme->changeColorStrOpacity({}, 0.5F), QString());
    QCOMPARE(theme->changeColorStrOpacity(QStringLiteral("no colour"), 0.5F), QString());
    // Rich text has to take it, so it is a rich text that is looked at: an invisible one leaves no mark.
    const auto darkest = [theme](float opacity) {
        QLabel label(QStringLiteral("<font style=\"font-size:30px; color:%1\">MMM</font>")
                         .arg(theme->changeColorStrOpacity(QStringLiteral("#000000"), opacity)));
        label.setStyleSheet(QStringLiteral("background: white"));
        const QImage picture = label.grab().toImage();
        int lowest = 255;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                lowest = std::min(lowest, qGray(picture.pixel(x, y)));
        }
        return lowest;
    };
    QCOMPARE(darkest(1.0F), 0);
    QCOMPARE(darkest(7.0F), 0);
    QCOMPARE(darkest(0.0F), 255);
    QCOMPARE(darkest(-1.0F), 255);
    QVERIFY(qAbs(darkest(0.5F) - 127) < 4);
}

void TestControls::theThemeBringsThePicturesThatFormsUse_data()
{
    QTest::addColumn<QString>("file");
    for (const char *file : {":/images/home/charts/nav_dot.png", ":/images/home/main/menu/export.png",
             ":/images/home/common/common_16/date_16.png", ":/images/home/common/common_16/export_16.png"})
        QTest::newRow(file) << QString::fromLatin1(file);
}

void TestControls::theThemeBringsThePicturesThatFormsUse()
{
    QFETCH(QString, file);
    const QImage once(file);
    QVERIFY(!once.isNull());
    const QImage twice(QString(file).replace(QStringLiteral(".png"), QStringLiteral("@2x.png")));
    QCOMPARE(twice.size(), once.size() * 2);
}

void TestControls::theThemeMarksTheHighlightedButton()
{
    HostSettings::applyTheme();
    const auto colourOf = [](ZrPushButton &button, bool on) {
        button.setProperty("highlight", on);
        button.style()->unpolish(&button);
        button.style()->polish(&button);
        const QImage picture = button.grab().toImage();
        return picture.pixelColor(picture.width() / 2, 3);
    };
    for (const char *name : {"pushButtonAsc", "pushButtonDesc", "pushButtonDay"}) {
        ZrPushButton button(nullptr);
        button.setObjectName(QString::fromLatin1(name));
        button.resize(65, 30);
        AppStyleHelper::updateWidgetStyle(&button, AppStyleHelper::SegmentButton);
        const QColor off = colourOf(button, false);
        const QColor on = colourOf(button, true);
        QVERIFY2(on.blue() - off.blue() > 60, name);
        QCOMPARE(colourOf(button, false), off);
    }
}

void TestControls::theThemeGivesIconsToButtonsThatHaveNone()
{
    for (const char *name :
        {"pushButtonAsc", "pushButtonDesc", "pushButtonPrevious", "pushButtonNext", "pushButtonClose"}) {
        const auto picture = [](const QString &objectName) {
            ZrPushButton button(nullptr);
            button.setObjectName(objectName);
            button.setFixedSize(48, 64);
            return button.grab().toImage();
        };
        const QImage known = picture(QString::fromLatin1(name));
        QSet<QRgb> colours;
        for (int x = 0; x < known.width(); ++x)
            colours.insert(known.pixel(x, known.height() / 2));
        QVERIFY2(colours.size() > 3, name);
    }
}

void TestControls::tabsHaveTheWantedWidthUnderTheTheme()
{
    QTabWidget tabs;
    tabs.addTab(new QWidget, QStringLiteral("short"));
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(&tabs, 140);
    QCOMPARE(tabs.tabBar()->tabRect(0).width(), 140);
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(&tabs, 200);
    QCOMPARE(tabs.tabBar()->tabRect(0).width(), 200);
}

void TestControls::theThemeKeepsTheSizesOfForms()
{
    QWidget page;
    auto *row = new QHBoxLayout(&page);
    ZrPushButton segment(nullptr);
    segment.setObjectName(QStringLiteral("pushButtonHour"));
    segment.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    segment.setMinimumSize(50, 30);
    segment.setMaximumSize(0, 0);
    QComboBox box;
    box.setMinimumSize(140, 30);
    box.setMaximumHeight(30);
    QLineEdit line;
    line.setMinimumSize(240, 30);
    for (QWidget *part : QList<QWidget *>{&segment, &box, &line})
        row->addWidget(part, 0, Qt::AlignCenter);
    AppStyleHelper::updateWidgetStyle(&segment, AppStyleHelper::SegmentButton);
    segment.setFixedWidth(65);
    page.show();
    QCOMPARE(segment.size(), QSize(65, 30));
    QCOMPARE(box.height(), 30);
    QCOMPARE(line.height(), 30);
    for (QWidget *part : QList<QWidget *>{&segment, &box, &line})
        part->setParent(nullptr);
}

TALVIX_TEST_MAIN(TestControls)
#include "tst_controls.moc"
