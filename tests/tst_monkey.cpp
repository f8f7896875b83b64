#include "support/AnswerSource.h"
#include "support/EverySlot.h"
#include "support/FakeKrxClient.h"
#include "support/LogCapture.h"
#include "support/PageInvariants.h"
#include "support/TestMain.h"

#include <devhost/widgets/HostSettings.h>
#include <export/TempResultExportWidget.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtCharts/QtCharts>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>

#include <iterator>

using namespace Qt::StringLiterals;

namespace {
constexpr int kindsOfStatistics = 9;
constexpr int eventsByDefault = 2000;
constexpr int seedByDefault = 20240503;

int setting(const char *variable, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(variable, &given);
    return given ? value : otherwise;
}

/// Dice whose throws a seed foretells.
class Dice
{
public:
    explicit Dice(int seed)
        : m_random(static_cast<quint32>(seed))
    { }

    /// A number from 0 to \a most.
    int upTo(int most) { return m_random.bounded(most + 1); }
    bool oneIn(int times) { return m_random.bounded(times) == 0; }

    template <typename Value, std::size_t size>
    Value pick(const Value (&values)[size])
    {
        return values[m_random.bounded(static_cast<int>(size))];
    }

private:
    QRandomGenerator m_random;
};

class DiceAnswers : public AnswerSource
{
public:
    explicit DiceAnswers(Dice &dice)
        : m_dice(dice)
    { }

    bool refuses() override { return m_dice.oneIn(20); }
    int rows(int most) override { return m_dice.upTo(most); }
    int number() override
    {
        constexpr int marked[] = {0, -1, 100, 1000000, 2147483647, -2147483647 - 1};
        return m_dice.oneIn(8) ? m_dice.pick(marked) : m_dice.upTo(60);
    }
    int organisation() override { return 40 + m_dice.upTo(8); }
    std::string uid() override
    {
        const char *const known[] = {"gate", "yard", "twin", "nvr", "unknown"};
        return m_dice.pick(known);
    }
    std::string name() override
    {
        const char *const names[] = {
            "Ann", "Ben", "%1", "<b>", "", "A name that is longer than any axis has room for"};
        return m_dice.pick(names);
    }
    std::string period() override { return "2024-05-03 " + std::to_string(10 + m_dice.upTo(13)); }

private:
    Dice &m_dice;
};

/// A page on a tab, with a neighbour, and everything that can be done to it.
class Stage
{
public:
    Stage(int kind, Dice &dice)
        : m_dice(dice)
        , m_answers(dice)
        , m_page(kind == 5 || kind == 6 ? 1 : kind)
    {
        m_client.setTree(u"41 Company\n"
                         "  42 Plant North\n"
                         "    44 Yard\n"
                         "  43 Plant South\n"
                         "  45 Plant North\n"_s);
        m_client.addChannel("gate", u"Gate"_s, "gate channel", "10.0.0.1", 1);
        m_client.addChannel("yard", u"Yard"_s, "yard channel", "10.0.0.2", 2);
        m_client.addChannel("twin", u"Gate"_s, "twin channel", {}, 1);
        m_client.addDevice("nvr", "Gate", "10.0.0.3", 3);
        m_client.addAlarmType(1, "Motion");
        answerFrom(m_manager, m_answers);
        m_tabs.addTab(&m_page, u"page"_s);
        m_tabs.addTab(new QWidget, u"neighbour"_s);
        m_tabs.resize(1136, 700);
        m_tabs.show();
        m_page.setServiceType(kind);
    }
    ~Stage() { HostSettings::setLanguage({}); }

    const ProbePage &page() const { return m_page; }

    /// Does what the dice say and gives it a name.
    const char *act()
    {
        const Action &action = chosen();
        (this->*action.perform)();
        closePopups();
        keepTree();
        holdFocusDelay();
        m_page.tips.clear();
        m_client.calls.clear();
        forgetRequests(m_manager);
        return action.name;
    }

private:
    struct Action
    {
        const char *name;
        int weight;
        void (Stage::*perform)();
    };

    const Action &chosen()
    {
        static constexpr Action actions[] = {
            {"show or hide", 3, &Stage::showOrHide},
            {"tab", 3, &Stage::changeTab},
            {"span", 6, &Stage::pressSpan},
            {"calendar", 4, &Stage::useCalendar},
            {"tree", 6, &Stage::chooseNode},
            {"levels", 4, &Stage::chooseLevels},
            {"type", 6, &Stage::typeKeys},
            {"hover bar", 10, &Stage::hoverBars},
            {"rest on a bar", 6, &Stage::rest},
            {"hover line", 4, &Stage::hoverLine},
            {"hover pie", 4, &Stage::hoverPie},
            {"press chart", 4, &Stage::pressChart},
            {"sort", 6, &Stage::sort},
            {"page", 6, &Stage::turnPage},
            {"pie mode", 6, &Stage::choosePieMode},
            {"snapshot class", 4, &Stage::chooseSnapClass},
            {"language", 1, &Stage::changeLanguage},
            {"resize", 3, &Stage::resize},
            {"new tree", 2, &Stage::renewTree},
            {"failing client", 2, &Stage::breakClient},
            {"idle", 10, &Stage::idle},
            {"export", 1, &Stage::exportPage},
            {"any slot", 4, &Stage::callSlot},
            {"a page never shown", 2, &Stage::callSlotsOfAnotherPage},
        };
        int sum = 0;
        for (const Action &action : actions)
            sum += action.weight;
        int throwOfDice = m_dice.upTo(sum - 1);
        const Action *action = actions;
        for (; throwOfDice >= action->weight; ++action)
            throwOfDice -= action->weight;
        return *action;
    }

    void showOrHide() { m_tabs.setVisible(!m_tabs.isVisible()); }
    void changeTab() { m_tabs.setCurrentIndex(1 - m_tabs.currentIndex()); }
    void resize() { m_tabs.resize(300 + m_dice.upTo(1100), 200 + m_dice.upTo(700)); }
    void idle() { QCoreApplication::processEvents(); }

    void click(const char *button) { click(m_page.part<QWidget>(button)); }
    void click(QWidget *button)
    {
        if (button && button->isVisible())
            QTest::mouseClick(button, Qt::LeftButton);
    }

    void pressSpan()
    {
        const char *const buttons[] = {"pushButtonMonth", "pushButtonDay", "pushButtonHour"};
        click(m_dice.pick(buttons));
    }

    void sort()
    {
        const char *const buttons[] = {"pushButtonAsc", "pushButtonDesc"};
        click(m_dice.pick(buttons));
    }

    void turnPage() { click(m_dice.oneIn(3) ? m_page.pushButtonPrevious : m_page.pushButtonNext); }

    void useCalendar()
    {
        ZrCalendarWidget *calendar = m_page.m_pCalendarWidget;
        if (!calendar || !m_page.isVisible())
            return;
        click("lineEditTime");
        for (int i = m_dice.upTo(5); i > 0; --i)
            pressKey(calendar->focusWidget() ? calendar->focusWidget() : calendar);
        if (m_dice.oneIn(3))
            calendar->shortcutClose();
        else
            calendar->shortcutEnter();
    }

    void chooseNode()
    {
        auto *combo = m_page.part<ZrComboBoxWithTree>("comboBox");
        const QAbstractItemModel *model = combo->m_pTreeView->model();
        QModelIndex node = model->index(0, 0);
        for (int depth = m_dice.upTo(2); depth > 0 && model->rowCount(node) > 0; --depth)
            node = model->index(m_dice.upTo(model->rowCount(node) - 1), 0, node);
        if (m_dice.oneIn(3) && combo->isVisible())
            combo->showPopup();
        if (node.isValid())
            combo->m_pTreeView->setCurrentIndex(node);
        combo->hidePopup();
    }

    void chooseLevels()
    {
        auto *levels = m_page.part<QComboBox>("comboBoxOrgType");
        if (levels->count() > 0)
            levels->setCurrentIndex(m_dice.upTo(levels->count() - 1));
    }

    void typeKeys()
    {
        QWidget *focus = m_tabs.focusWidget();
        pressKey(focus ? focus : &m_page);
    }

    void pressKey(QWidget *widget)
    {
        constexpr Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home,
            Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Space,
            Qt::Key_P, Qt::Key_Backspace};
        QKeyEvent press(QEvent::KeyPress, m_dice.pick(keys),
            m_dice.oneIn(4) ? Qt::ShiftModifier : Qt::NoModifier, u"p"_s);
        QCoreApplication::sendEvent(widget, &press);
    }

    QChart *chart(int view) const
    {
        return view < m_page.m_chartViewList.size() ? m_page.m_chartViewList.at(view)->chart() : nullptr;
    }

    void hoverBars()
    {
        auto *series = chart(0) ? qobject_cast<QAbstractBarSeries *>(chart(0)->series().value(0)) : nullptr;
        if (!series || series->count() == 0)
            return;
        QBarSet *set = series->barSets().at(m_dice.upTo(series->count() - 1));
        Q_EMIT series->hovered(!m_dice.oneIn(4), m_dice.upTo(set->count()), set);
    }

    void rest()
    {
        if (m_focusDelayed)
            m_page.slotTimerReq();
        m_focusDelayed = false;
    }

    void hoverLine()
    {
        auto *line =
            chart(1) ? qobject_cast<QLineSeries *>(chart(1)->series().value(m_dice.upTo(1))) : nullptr;
        if (line)
            Q_EMIT line->hovered(QPointF(m_dice.upTo(14) - 0.4, 1), !m_dice.oneIn(4));
    }

    void hoverPie()
    {
        auto *pie = chart(2) ? qobject_cast<QPieSeries *>(chart(2)->series().value(0)) : nullptr;
        if (pie && !pie->isEmpty())
            Q_EMIT pie->hovered(pie->slices().at(m_dice.upTo(pie->count() - 1)), !m_dice.oneIn(3));
    }

    void pressChart()
    {
        if (m_page.m_chartViewList.isEmpty())
            return;
        QWidget *view =
            m_page.m_chartViewList.at(m_dice.upTo(static_cast<int>(m_page.m_chartViewList.size()) - 1))
                ->viewport();
        const QPoint place(m_dice.upTo(view->width()), m_dice.upTo(view->height()));
        if (!view->isVisible())
            return;
        if (m_dice.oneIn(2))
            QTest::mouseMove(view, place);
        else
            QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, place);
    }

    void choosePieMode()
    {
        QComboBox *modes = m_page.comboBoxPie;
        if (!modes || !modes->isVisible() || modes->count() == 0)
            return;
        const int mode = m_dice.upTo(modes->count() - 1);
        modes->setCurrentIndex(mode);
        Q_EMIT modes->activated(mode);
    }

    void chooseSnapClass()
    {
        const char *const buttons[] = {"carRadio", "personRadio"};
        click(m_dice.pick(buttons));
    }

    void changeLanguage()
    {
        const QStringList languages = HostSettings::languages() << QString();
        HostSettings::setLanguage(languages.at(m_dice.upTo(static_cast<int>(languages.size()) - 1)));
    }

    void renewTree()
    {
        if (m_dice.oneIn(4))
            m_client.addOrganisation(46 + m_dice.upTo(3), m_answers.name(), 41 + m_dice.upTo(4));
        Q_EMIT m_client.signalOrgaInfoChanged({}, {});
    }

    void breakClient()
    {
        m_broken = !m_broken;
        m_manager.failWith(m_broken ? u"The server is away."_s : QString());
    }

    // Whether the page is on show or not.
    void callSlot() { callSlotOf(m_page); }

    void callSlotOf(ProbePage &page)
    {
        const auto &slots = everySlot();
        slots.at(static_cast<std::size_t>(m_dice.upTo(static_cast<int>(slots.size()) - 1)))(page);
    }

    void callSlotsOfAnotherPage()
    {
        auto *page = new ProbePage(m_dice.upTo(9));
        for (int i = m_dice.upTo(5); i > 0; --i)
            callSlotOf(*page);
        page->deleteLater();
        callSlotOf(*page);
    }

    // The page blocks in its dialogs until they are answered.
    void exportPage()
    {
        if (!m_page.isVisible())
            return;
        QObject watch;
        answerDialogs(watch);
        m_page.on_pushButtonExport_clicked();
    }

    // An answer may open another dialog and wait for it, so the next look is due before this one is done.
    void answerDialogs(QObject &watch)
    {
        QTimer::singleShot(1, &watch, [this, &watch] { answerDialogs(watch); });
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (!window->isVisible())
                continue;
            if (auto *mode = qobject_cast<TempResultExportWidget *>(window)) {
                const char *const buttons[] = {"pushButtonOK", "pushButtonCancel", "pushButtonClose"};
                mode->findChild<QAbstractButton *>(QString::fromLatin1(m_dice.pick(buttons)))->click();
            } else if (auto *question = qobject_cast<QMessageBox *>(window)) {
                question->button(QMessageBox::Yes)->click();
            } else if (auto *dialog = qobject_cast<QFileDialog *>(window)) {
                answerFileDialog(*dialog);
            }
        }
    }

    void answerFileDialog(QFileDialog &dialog)
    {
        auto *name = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
        const QString file = m_folder.filePath(u"page.pdf"_s);
        if (m_dice.oneIn(4) || name->text() == file)
            return dialog.reject();
        name->setText(file);
        dialog.findChild<QDialogButtonBox *>(u"buttonBox"_s)->button(QDialogButtonBox::Save)->click();
    }

    static void closePopups()
    {
        while (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
    }

    // Pages of temperature load no tree of their own and search for nothing without one.
    void keepTree()
    {
        auto *combo = m_page.part<ZrComboBoxWithTree>("comboBox");
        if (combo->count() > 0)
            return;
        QList<NODE> nodes;
        m_client.organizeOrgaNodes(nodes, m_client.getOrgaList());
        combo->addNode(nodes, true);
        combo->m_pTreeView->setRootAsCurrentItem();
    }

    // The delay is the only thing here that goes by the clock; it ends when the dice say so.
    void holdFocusDelay()
    {
        if (!m_page.m_pTimer || !m_page.m_pTimer->isActive())
            return;
        m_page.m_pTimer->stop();
        m_focusDelayed = true;
    }

    Dice &m_dice;
    DiceAnswers m_answers;
    FakeKrxClient m_client;
    ScriptedStatisticsManager m_manager;
    QTemporaryDir m_folder;
    QTabWidget m_tabs;
    ProbePage m_page;
    bool m_broken = false;
    bool m_focusDelayed = false;
};

QStringList complaintsOf(const LogCapture &log)
{
    QStringList lines = log.complaints();
    lines.removeIf([](const QString &line) { return line.startsWith(u"This plugin does not support"_s); });
    return lines;
}

} // namespace

/// A user at random. TALVIX_MONKEY_SEED and TALVIX_MONKEY_EVENTS set what he does and for how long; runs of
/// more than five minutes need a QTEST_FUNCTION_TIMEOUT as well.
class MonkeyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingThatAUserDoesBreaksAPage_data()
    {
        QTest::addColumn<int>("kind");
        const char *const names[kindsOfStatistics] = {"alarms of organisations", "alarms of devices",
            "online of organisations", "online of devices", "temperature of groups", "temperature of persons",
            "traffics of organisations", "traffics of devices", "temperature of device groups"};
        for (int kind = 1; kind <= kindsOfStatistics; ++kind)
            QTest::newRow(names[kind - 1]) << kind;
    }

    void nothingThatAUserDoesBreaksAPage()
    {
        QFETCH(int, kind);
        const int seed = setting("TALVIX_MONKEY_SEED", seedByDefault);
        const int events = setting("TALVIX_MONKEY_EVENTS", eventsByDefault) / kindsOfStatistics;
        Dice dice(seed + kind);
        LogCapture log;
        Stage stage(kind, dice);
        QStringList last;
        for (int event = 0; event < events; ++event) {
            last.append(QLatin1String(stage.act()));
            if (last.size() > 12)
                last.removeFirst();
            QString broken = brokenInvariant(stage.page());
            if (broken.isNull())
                broken = complaintsOf(log).value(0);
            QVERIFY2(broken.isNull(),
                qUtf8Printable(
                    u"seed %1, event %2 (%3): %4"_s.arg(seed).arg(event).arg(last.join(u", "_s), broken)));
            log.clear();
        }
    }

    void oneSeedIsOneStory()
    {
        constexpr int events = 120;
        QStringList stories[2];
        for (QStringList &story : stories) {
            Dice dice(7);
            const LogCapture log;
            Stage stage(8, dice);
            for (int event = 0; event < events; ++event) {
                story.append(QLatin1String(stage.act()));
                story.append(QString::number(stage.page().barDataList.size()));
                story.append(stage.page().m_strSelectedBar);
            }
        }
        QCOMPARE(stories[0], stories[1]);
    }
};

TALVIX_TEST_MAIN(MonkeyTest)

#include "tst_monkey.moc"
