#include "ReloadStage.h"

#include "OpeningStage.h"
#include "Settle.h"

#include <charts/ChartLayout.h>

#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QChart>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <cstdio>

namespace {

constexpr QSize pageSize(1136, 648);
const bool fitFirst = qEnvironmentVariableIsSet("TALVIX_BENCH_FIT_FIRST");

// Nothing is done for speed while it lives.
class PlainCharts
{
public:
    PlainCharts() { ChartLayouting::setPlain(true); }
    ~PlainCharts() { ChartLayouting::setPlain(false); }
    Q_DISABLE_COPY(PlainCharts)
};

QImage picture(QGraphicsView *view)
{
    QImage image(view->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    view->render(&painter);
    return image;
}

} // namespace

ReloadStage::ReloadStage(Kind kind, int bars)
    : m_page(kind)
    , m_dual(kind == TrafficOfOrganisations || kind == TrafficOfDevices)
    , m_devices(kind == AlarmsOfDevices)
{
    fillWorld(m_client, kind, bars);
    answerRows(m_manager, kind, bars);
    m_page.resize(pageSize);
    m_page.show();
    reloadPage();

    std::array<QRect, 3> places;
    for (std::size_t i = 0; i < places.size(); ++i) {
        QWidget *view = m_page.m_chartViewList.at(static_cast<qsizetype>(i));
        places[i] = QRect(view->mapTo(&m_page, QPoint()), view->size());
    }
    m_floor = std::make_unique<FloorCharts>(m_page.size(), places);
    m_floor->setFitFirst(fitFirst);
    m_figures = figures();
    m_floor->QWidget::show();
    reloadFloor();
    // Once more on both sides, so that every cache of the process is as warm for one as for the other.
    reloadPage();
    reloadFloor();
}

ChartFigures ReloadStage::figures() const
{
    ChartFigures result;
    result.dual = m_dual;
    result.devices = m_devices;
    result.lineName = m_page.m_strSelectedBar;
    result.lineNames = m_page.lineNames;
    result.bars = m_page.barDataList;
    result.bars2 = m_page.barDataList2;
    result.line = m_page.lineDataList;
    result.line2 = m_page.lineDataList2;
    result.pie = m_page.pieDataList;
    return result;
}

void ReloadStage::reloadPage()
{
    m_page.slotSearch();
    settle();
}

void ReloadStage::reloadFloor()
{
    const PlainCharts plain;
    m_floor->reload(m_figures);
    settle();
}

void ReloadStage::drillDownPage()
{
    QString bar = m_page.barDataList.constFirst().first;
    Q_EMIT m_page.barSetChanged(bar);
    settle();
}

void ReloadStage::drillDownFloor()
{
    const PlainCharts plain;
    m_floor->reloadLineAndPie(m_figures);
    settle();
}

void ReloadStage::turnPage()
{
    m_page.slotNext();
    settle();
}

std::unique_ptr<QWidget> ReloadStage::openedPage(Kind kind) const
{
    auto page = std::make_unique<ProbePage>(kind);
    page->resize(m_page.size());
    page->show();
    settle();
    return page;
}

std::unique_ptr<QWidget> ReloadStage::openedFloor() const
{
    const PlainCharts plain;
    std::unique_ptr<QWidget> form = bareForm();
    form->resize(m_page.size());
    auto *floor = new FloorCharts(m_floor->size(), m_floor->places());
    floor->setFitFirst(fitFirst);
    floor->setParent(form.get());
    form->show();
    floor->reload(m_figures);
    settle();
    return form;
}

bool ReloadStage::samePictures()
{
    bool same = true;
    for (std::size_t i = 0; i < m_floor->views().size(); ++i) {
        const QImage subject = picture(m_page.m_chartViewList.at(static_cast<qsizetype>(i)));
        if (subject == picture(m_floor->views()[i]))
            continue;
        const QRectF plot = m_page.m_chartViewList.at(static_cast<qsizetype>(i))->chart()->plotArea();
        const QRectF bare = m_floor->views()[i]->chart()->plotArea();
        std::fprintf(stderr, "view %zu of page and floor differ; plots %g x %g and %g x %g\n", i,
            plot.width(), plot.height(), bare.width(), bare.height());
        same = false;
    }
    return same;
}

void ReloadStage::keepPictures()
{
    for (std::size_t i = 0; i < m_floor->views().size(); ++i) {
        picture(m_page.m_chartViewList.at(static_cast<qsizetype>(i)))
            .save(QStringLiteral("page-%1.png").arg(i));
        picture(m_floor->views()[i]).save(QStringLiteral("floor-%1.png").arg(i));
    }
}
