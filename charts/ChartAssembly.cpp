#include "page/BasicChart.h"
#include "page/ServiceTypes.h"
#include "page/Texts.h"

#include "ChartLayout.h"
#include "ui_BasicChart.h"

#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QChart>
#include <QtCore/QDebug>
#include <QtCore/QMutexLocker>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace {

enum View : int { BarView, LineView, PieView };

constexpr QSize pageButtonSize(48, 64);
constexpr int pageButtonStretch = 1;
constexpr int viewStretch = 20;
constexpr int pieModeWidth = 150;
constexpr QRgb windowColour = 0x191A1E;
constexpr QRgb windowTextColour = 0xD6D6D6;

// From the inside outwards: an inner layout tells the outer ones how much it needs.
void activateLayouts(QWidget &widget)
{
    const auto children = widget.findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (QWidget *child : children) {
        if (!child->isWindow())
            activateLayouts(*child);
    }
    if (widget.layout())
        widget.layout()->activate();
}

} // namespace

void BasicChart::loadChart()
{
    qDebug() << "BasicChart::loadChart";
    const ChartLayouting::UpdatesBlocker blocker(m_chartViewList);
    const bool first = m_chartViewList.isEmpty();
    if (!barDataList.isEmpty())
        m_strSelectedBar = barDataList.constFirst().first;
    if (first) {
        qDebug() << "BasicChart::loadChart  frist loadcharts";
        firstLoadCharts();
    } else {
        qDebug() << "BasicChart::loadChart reloadcharts";
        replaceChart(BarView, &BasicChart::barChart);
        reloadLineAndPieChart();
        if (barDataList.isEmpty()) {
            qDebug() << "BasicChart::loadChart  barDataList is empty";
            return;
        }
    }
    fillPieModes();
    finishChartChange();
    if (first)
        placeFirstCharts();
}

void BasicChart::firstLoadCharts()
{
    loadBarView();
    loadLineView();
    if (!serviceType().has(ServiceTypeRow::Pieless))
        loadPieView();
    if (!comboBoxPie) {
        comboBoxPie = new QComboBox(pieChartView);
        comboBoxPie->setObjectName(QStringLiteral("comboBoxPie"));
    }
    comboBoxPie->setFixedWidth(pieModeWidth);
    comboBoxPie->hide();
    connect(comboBoxPie, SIGNAL(activated(int)), this, SLOT(slot_switchPieType(int)));
    connect(this, &BasicChart::barSetChanged, this, &BasicChart::slotBarSetChanged);
    for (ZrChartView *view : std::as_const(m_chartViewList))
        connect(view, &ZrChartView::mouseMoved, this, &BasicChart::slotRecvMouseMove);
}

// The layouts would show and place the new views later on, and each of their sizes on the way would cost a
// layout of the charts.
void BasicChart::placeFirstCharts()
{
    const ChartLayouting::UpdatesBlocker blocker(m_chartViewList);
    for (ZrChartView *view : std::as_const(m_chartViewList))
        view->show();
    activateLayouts(*this);
    for (ZrChartView *view : std::as_const(m_chartViewList))
        ChartLayouting::layOut(*view);
}

void BasicChart::loadBarView()
{
    barChartView = addChartView(barChart());
    auto *column = new QVBoxLayout(ui->widgetBarChart);
    auto *row = new QHBoxLayout;
    if (serviceType().has(ServiceTypeRow::Paged))
        addPageButtons(row);
    else
        row->addWidget(barChartView);
    column->addLayout(row);
    ui->widgetBarChart->setLayout(column);
}

void BasicChart::addPageButtons(QHBoxLayout *row)
{
    pushButtonPrevious = new ZrPushButton(ui->widgetBarChart);
    pushButtonPrevious->setObjectName(QStringLiteral("pushButtonPrevious"));
    pushButtonPrevious->setToolTip(Texts::sentence("TK_PreviousPage"));
    pushButtonNext = new ZrPushButton(ui->widgetBarChart);
    pushButtonNext->setObjectName(QStringLiteral("pushButtonNext"));
    pushButtonNext->setToolTip(Texts::sentence("TK_NextPage"));
    for (ZrPushButton *button : {pushButtonPrevious, pushButtonNext}) {
        button->hide();
        button->setFixedSize(pageButtonSize.width(), pageButtonSize.height());
    }
    row->addWidget(pushButtonPrevious, pageButtonStretch);
    row->addWidget(barChartView, viewStretch);
    row->addWidget(pushButtonNext, pageButtonStretch);
    connect(pushButtonPrevious, &QAbstractButton::clicked, this, &BasicChart::slotPrevious);
    connect(pushButtonNext, &QAbstractButton::clicked, this, &BasicChart::slotNext);
}

void BasicChart::loadLineView()
{
    lineChartView = addChartView(lineChart());
    auto *column = new QVBoxLayout(ui->widgetLineChart);
    column->addWidget(lineChartView);
    ui->widgetLineChart->setLayout(column);
}

void BasicChart::loadPieView()
{
    pieChartView = addChartView(createPieChart());
    if (!labelPiecount) {
        labelPiecount = new QLabel(pieChartView);
        labelPiecount->setObjectName(QStringLiteral("labelPiecount"));
        // It lies over the slices, which answer the pointer.
        labelPiecount->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    labelPiecount->hide();
    auto *column = new QVBoxLayout(ui->widgetPieChart);
    column->addWidget(pieChartView);
    ui->widgetPieChart->setLayout(column);
}

ZrChartView *BasicChart::addChartView(QChart *chart)
{
    ChartLayouting::hold(*chart);
    auto *view = new ZrChartView(chart, nullptr);
    m_chartViewList.append(view);
    connect(view, &QObject::destroyed, this, &BasicChart::forgetChartView);
    return view;
}

// Whoever deletes a view takes along what lies in it. The others keep their places in the list.
void BasicChart::forgetChartView(const QObject *view)
{
    for (ZrChartView *&known : m_chartViewList) {
        if (known == view)
            known = nullptr;
    }
    if (view == barChartView)
        barChartView = nullptr;
    if (view == lineChartView)
        lineChartView = nullptr;
    if (view == pieChartView) {
        pieChartView = nullptr;
        labelPiecount = nullptr;
        comboBoxPie = nullptr;
    }
}

void BasicChart::fillPieModes()
{
    if (!comboBoxPie)
        return;
    const ServiceTypeRow &row = serviceType();
    if (row.has(ServiceTypeRow::SnapClasses)) {
        offerSnapMajorTypes(openSnapClass());
    } else if (!row.pieModes.isEmpty()) {
        const int chosen = row.has(ServiceTypeRow::KeepsPieMode) ? comboBoxPie->currentIndex() : 0;
        comboBoxPie->clear();
        for (const PieMode &mode : row.pieModes)
            comboBoxPie->addItem(Texts::sentence(mode.key), mode.code);
        comboBoxPie->setCurrentIndex(chosen >= 0 && chosen < row.pieModes.size() ? chosen : 0);
    }
}

QChart *BasicChart::barChart()
{
    return serviceType().dual() ? createDualBarChart() : createBarChart();
}

QChart *BasicChart::lineChart()
{
    return serviceType().dual() ? createDualLineChart() : createLineChart();
}

// The old chart must be on its way out before the view lets go of it: deleting it while it is shown crashes.
void BasicChart::replaceChart(int view, QChart *(BasicChart::*builder)())
{
    ZrChartView *chartView = m_chartViewList.value(view);
    if (!chartView)
        return;
    chartView->chart()->deleteLater();
    QChart *chart = (this->*builder)();
    // A title in more lines, or a page button more, leaves the view less room. A chart that got its size when
    // it may animate would grow once more.
    if (view == BarView)
        showPageButtons();
    activateLayouts(*this);
    ChartLayouting::hold(*chart);
    chartView->setChart(chart);
    ChartLayouting::layOut(*chartView);
}

void BasicChart::reloadLineAndPieChart()
{
    const ChartLayouting::UpdatesBlocker blocker(m_chartViewList.mid(LineView));
    replaceChart(LineView, &BasicChart::lineChart);
    if (!serviceType().has(ServiceTypeRow::Pieless))
        replaceChart(PieView, &BasicChart::createPieChart);
    finishChartChange();
}

void BasicChart::reloadPieChart()
{
    const ChartLayouting::UpdatesBlocker blocker(m_chartViewList.mid(PieView));
    if (ui->widgetPie->isVisible())
        replaceChart(PieView, &BasicChart::createPieChart);
    finishChartChange();
}

void BasicChart::finishChartChange()
{
    setChartRenderHint(true);
    setChartPalette();
    updateChartOverlays();
}

void BasicChart::setChartRenderHint(bool on)
{
    for (ZrChartView *view : std::as_const(m_chartViewList)) {
        if (!view)
            continue;
        view->setRenderHint(QPainter::Antialiasing, on);
        QChart *chart = view->chart();
        const ChartLayouting::KeptLayout kept(*chart);
        chart->setAnimationOptions(QChart::SeriesAnimations);
        if (const QBrush transparent(Qt::transparent); chart->backgroundBrush() != transparent)
            chart->setBackgroundBrush(transparent);
    }
}

void BasicChart::setChartPalette()
{
    QPalette palette = window()->palette();
    palette.setBrush(QPalette::All, QPalette::Window, QBrush(QColor(windowColour)));
    palette.setBrush(QPalette::All, QPalette::WindowText, QBrush(QColor(windowTextColour)));
    window()->setPalette(palette);
}

int BasicChart::getMaxValue(const QList<int> &values)
{
    int maximum = 0;
    if (!values.isEmpty()) {
        const QMutexLocker lock(&m_mutex);
        maximum = *std::max_element(values.cbegin(), values.cend());
    }
    qDebug() << "BasicChart::getMaxValue " << maximum;
    return maximum;
}
