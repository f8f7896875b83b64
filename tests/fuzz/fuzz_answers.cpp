// Answers as no sensible server would give them, on pages of every kind, while their user works on.

#include "FuzzSupport.h"

#include "support/AnswerSource.h"
#include "support/PageInvariants.h"
#include "support/PageScene.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>

#include <QtCharts/QtCharts>

namespace {

constexpr int mostActions = 16;

/// Answers from the bytes of the input; without any left there are no rows.
class FuzzedAnswers : public AnswerSource
{
public:
    explicit FuzzedAnswers(FuzzedDataProvider &data)
        : m_data(data)
    { }

    bool refuses() override { return m_data.ConsumeIntegralInRange(0, 15) == 15; }
    int rows(int most) override
    {
        return m_data.remaining_bytes() > 0 ? m_data.ConsumeIntegralInRange(0, most) : 0;
    }
    int number() override { return Fuzz::number(m_data); }
    int organisation() override
    {
        return m_data.ConsumeBool() ? m_data.ConsumeIntegralInRange(40, 48) : Fuzz::number(m_data);
    }
    std::string uid() override
    {
        const char *const known[] = {"gate", "yard", "twin", "noip", "nvr", "bad", ""};
        return m_data.ConsumeIntegralInRange(0, 5) == 5 ? Fuzz::name(m_data) : m_data.PickValueInArray(known);
    }
    std::string name() override { return Fuzz::name(m_data); }
    std::string period() override { return Fuzz::timeText(m_data).toStdString(); }

private:
    FuzzedDataProvider &m_data;
};

class Visit
{
public:
    explicit Visit(FuzzedDataProvider &data)
        : m_data(data)
        , m_answers(data)
        , m_scene(data.ConsumeIntegralInRange(0, 10))
    {
        prepareClient();
        answerFrom(m_scene.manager, m_answers);
    }

    void run()
    {
        search();
        for (int i = 0; i < mostActions && m_data.remaining_bytes() > 0; ++i) {
            act();
            keepTree();
            Fuzz::report(brokenInvariant(page()));
        }
    }

private:
    ProbePage &page() { return m_scene.page; }
    QChart *chart(int view) { return page().m_chartViewList.isEmpty() ? nullptr : chartOf(view); }
    QChart *chartOf(int view)
    {
        return page().m_chartViewList.at(view % page().m_chartViewList.size())->chart();
    }
    void search() { page().slotSearch(); }

    void prepareClient()
    {
        FakeKrxClient &client = m_scene.client;
        client.addOrganisation(44, Fuzz::name(m_data), 41);
        client.addOrganisation(45, "Plant North", 42);
        client.addOrganisation(46, Fuzz::name(m_data), m_answers.organisation());
        client.addChannel("gate", QStringLiteral("Gate"), "gate", "10.0.0.1", 1);
        client.addChannel("yard", Fuzz::text(m_data), Fuzz::name(m_data), Fuzz::name(m_data), 2);
        client.addChannel("twin", QStringLiteral("Gate"), "twin", "10.0.0.2", Fuzz::number(m_data));
        client.addChannel("noip", QStringLiteral("Gate"), Fuzz::name(m_data), {}, 3);
        client.addDevice("nvr", "Gate", Fuzz::name(m_data), 2);
        client.addDevice("bad", Fuzz::name(m_data), Fuzz::name(m_data), Fuzz::number(m_data));
        client.addAlarmType(1, Fuzz::name(m_data));
    }

    void act()
    {
        switch (m_data.ConsumeIntegralInRange(0, 21)) {
        case 0:
            return page().setVisible(!page().isVisible());
        case 1:
            return search();
        case 2:
            return page().on_pushButtonMonth_clicked();
        case 3:
            return page().on_pushButtonDay_clicked();
        case 4:
            return page().on_pushButtonHour_clicked();
        case 5:
            return page().slotCalendarChanged(Fuzz::moment(m_data), Fuzz::moment(m_data));
        case 6:
            return page().on_pushButtonAsc_clicked();
        case 7:
            return page().on_pushButtonDesc_clicked();
        case 8:
            return page().slotNext();
        case 9:
            return page().slotPrevious();
        case 10:
            return hoverBar();
        case 11:
            return hoverPoint();
        case 12:
            return hoverSlice();
        case 13:
            return page().slotTimerReq();
        case 14:
            return choosePieMode();
        case 15:
            return chooseSnapClass();
        case 16:
            return chooseOrganisations();
        case 17:
            return changeLanguage();
        case 18:
            return page().resize(
                m_data.ConsumeIntegralInRange(0, 1400), m_data.ConsumeIntegralInRange(0, 900));
        case 19:
            return movePointer();
        case 20:
            return changeTree();
        default:
            return Fuzz::settle();
        }
    }

    // Pages of temperature load no tree of their own and search for nothing without one.
    void keepTree()
    {
        auto *combo = page().part<ZrComboBoxWithTree>("comboBox");
        if (combo->count() > 0)
            return;
        QList<NODE> nodes;
        m_scene.client.organizeOrgaNodes(nodes, m_scene.client.getOrgaList());
        combo->addNode(nodes, true);
        combo->m_pTreeView->setRootAsCurrentItem();
    }

    void hoverBar()
    {
        QChart *bars = chart(0);
        auto *series = bars ? qobject_cast<QAbstractBarSeries *>(bars->series().value(0)) : nullptr;
        if (!series || series->count() == 0)
            return;
        QBarSet *set = series->barSets().at(m_data.ConsumeIntegralInRange(0, series->count() - 1));
        const int index = m_data.ConsumeIntegralInRange(-1, set->count());
        Q_EMIT series->hovered(m_data.ConsumeBool(), index, set);
    }

    void hoverPoint()
    {
        QChart *lines = chart(1);
        auto *series =
            lines ? qobject_cast<QLineSeries *>(lines->series().value(m_data.ConsumeBool())) : nullptr;
        if (series)
            Q_EMIT series->hovered(
                QPointF(m_data.ConsumeFloatingPointInRange(-2.0, 15.0), 0), m_data.ConsumeBool());
    }

    void hoverSlice()
    {
        QChart *pie = chart(2);
        auto *series = pie ? qobject_cast<QPieSeries *>(pie->series().value(0)) : nullptr;
        if (series && !series->isEmpty())
            Q_EMIT series->hovered(series->slices().at(m_data.ConsumeIntegralInRange(0, series->count() - 1)),
                m_data.ConsumeBool());
    }

    void choosePieMode()
    {
        QComboBox *modes = page().comboBoxPie;
        if (!modes)
            return;
        const int index = m_data.ConsumeIntegralInRange(-1, modes->count());
        modes->setCurrentIndex(index);
        Q_EMIT modes->activated(index);
    }

    void chooseSnapClass()
    {
        const char *const buttons[] = {"carRadio", "personRadio"};
        page().part<QAbstractButton>(m_data.PickValueInArray(buttons))->click();
    }

    void chooseOrganisations()
    {
        auto *types = page().part<QComboBox>("comboBoxOrgType");
        types->setCurrentIndex(m_data.ConsumeIntegralInRange(-1, types->count() - 1));
    }

    void changeLanguage()
    {
        const QStringList languages = HostSettings::languages() << QString();
        HostSettings::setLanguage(
            languages.at(m_data.ConsumeIntegralInRange<qsizetype>(0, languages.size() - 1)));
    }

    void changeTree()
    {
        if (m_data.ConsumeBool()) {
            auto *combo = page().part<ZrComboBoxWithTree>("comboBox");
            const QAbstractItemModel *model = combo->m_pTreeView->model();
            const QModelIndex root = model->index(0, 0);
            combo->m_pTreeView->setCurrentIndex(
                m_data.ConsumeBool() ? root : model->index(m_data.ConsumeIntegralInRange(0, 4), 0, root));
            return;
        }
        m_scene.client.addOrganisation(Fuzz::number(m_data), Fuzz::name(m_data), m_answers.organisation());
        Q_EMIT m_scene.client.signalOrgaInfoChanged({}, {});
    }

    void movePointer()
    {
        if (page().m_chartViewList.isEmpty())
            return;
        ZrChartView *view = page().m_chartViewList.at(
            m_data.ConsumeIntegralInRange<qsizetype>(0, page().m_chartViewList.size() - 1));
        const QPoint place(m_data.ConsumeIntegralInRange(0, 1100), m_data.ConsumeIntegralInRange(0, 500));
        QMouseEvent move(QEvent::MouseMove, place, view->viewport()->mapToGlobal(place), Qt::NoButton,
            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &move);
    }

    FuzzedDataProvider &m_data;
    FuzzedAnswers m_answers;
    StatisticsScene m_scene;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzedDataProvider data(bytes, size);
    {
        Visit visit(data);
        visit.run();
    }
    HostSettings::setLanguage({});
    Fuzz::settle();
    return 0;
}
