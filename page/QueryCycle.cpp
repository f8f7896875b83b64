#include "BasicChart.h"

#include "Clock.h"
#include "Codes.h"
#include "ServiceTypes.h"
#include "Texts.h"
#include "TimeFormats.h"
#include "ui_BasicChart.h"

#include <TalvixWidgets/KRXClientStatisticsManager.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrLoaddingWidget.h>

#include <QtCharts/QChart>
#include <QtCore/QDebug>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QLabel>

#include <initializer_list>
#include <tuple>
#include <utility>

namespace {

constexpr int daysAtFirst = 7;
constexpr QSize smallestSizeWithPie(1000, 600);

auto fieldsOf(const BasicChart::QueryCondition &condition)
{
    return std::tie(
        condition.userId, condition.startTime, condition.endTime, condition.orgaId, condition.timeType);
}

} // namespace

void BasicChart::doAfterWidgetShow()
{
    if (m_bFirstShow) {
        startAtFirstShow();
        m_bFirstShow = false;
    }
    ZrLoaddingWidget loading(this, Qt::NonModal);
    loading.start(0);
    qDebug() << "BasicChart::doAfterWidgetShow Type" << m_serviceType;
    if (slotOrgaInfoLoad()) {
        slotSearch();
        updateChartOverlays();
        on_pushButtonDesc_clicked();
    }
}

void BasicChart::startAtFirstShow()
{
    initForm();
    const QDateTime now = Clock::now();
    const bool byDays = serviceType().has(ServiceTypeRow::StartsByDays);
    if (byDays) {
        ui->pushButtonHour->setVisible(false);
        startSpan(ZrCalendarWidget::Day, now.addDays(-daysAtFirst), now);
    } else {
        startSpan(ZrCalendarWidget::Hour, now.date().startOfDay(), now);
    }
}

// The base's own hide handling is not wanted: a page keeps all it has for the next show.
void BasicChart::doAfterWidgetHide()
{
    qDebug() << "BasicChart::doAfterWidgetHide Type" << m_serviceType;
    m_bAfterHide = true;
}

void BasicChart::slotSearch()
{
    qDebug() << "BasicChart::slotSearch ";
    qDebug() << "BasicChart::comboDataExists";
    if (ui->comboBox->count() == 0)
        return;
    qDebug() << "BasicChart::getChartData";
    const int result = (this->*serviceType().query)();
    if (result != Codes::Success)
        clearChartData();

    switch (result) {
    case Codes::NoOrganisation:
        setTips(Texts::sentence("TK_orgNotExist"), Codes::Warning);
        break;
    case Codes::Failed:
        setTips(
            Texts::sentence("TK_GetFailed") + KRXClientStatisticsManager::instance()->getLastErrorString(),
            Codes::Failure);
        break;
    case Codes::NoRecords:
        setTips(Texts::sentence("TK_NoRecords"), Codes::Statement);
        break;
    case Codes::Success:
        if (sortFlag)
            on_pushButtonDesc_clicked();
        else
            on_pushButtonAsc_clicked();
        loadChart();
        break;
    default:
        break;
    }
}

void BasicChart::clearChartData()
{
    for (QLabel *title : {ui->labelLineChartTitle, ui->labelBarChartTitle, ui->labelPieChartTitle})
        title->setText(QString());
    for (QWidget *control :
        std::initializer_list<QWidget *>{pushButtonPrevious, pushButtonNext, labelPiecount, comboBoxPie}) {
        if (control)
            control->setVisible(false);
    }
    for (ZrChartView *view : std::as_const(m_chartViewList)) {
        if (view)
            view->chart()->setVisible(false);
    }
    snapSamples.clear();
    snapDetailMap.clear();
    etiologyDistribution.clear();
    numberDistribution.clear();
    temperatureDistribution.clear();
    maskDistribution.clear();
    clearPieChartData();
}

void BasicChart::compareCondition()
{
    QString start;
    QString end;
    currentTimeRange(start, end);

    QueryCondition condition;
    if (TimeFormats::spanParts(ui->lineEditTime->text()).size() == 2) {
        condition.startTime = start;
        condition.endTime = end;
    }
    condition.userId = m_curUser.get_id();
    condition.orgaId = getOrgaID();
    condition.timeType = m_nTimeType;
    if (fieldsOf(condition) != fieldsOf(m_queryCondition)) {
        m_queryCondition = condition;
        m_nTotalPage = 1;
        m_nCurPage = 1;
    }
    qDebug() << "BasicChart::compareCondition";
}

void BasicChart::setPageInfo(int total, int curpage)
{
    if (total >= 0 && curpage >= 0) {
        m_nTotalPage = total;
        m_nCurPage = curpage;
    }
    qDebug() << "BasicChart::setPageInfo"
             << "total" << total << "curpage " << curpage;
}

void BasicChart::slotTimerReq()
{
    if (!m_strSelectedBar.isEmpty())
        Q_EMIT barSetChanged(m_strSelectedBar);
    if (m_pTimer)
        m_pTimer->stop();
}

bool BasicChart::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->lineEditTime && event->type() == QEvent::MouseButtonPress) {
        showZrCalendarWidget(true);
        return true;
    }
    return BaseWidget::eventFilter(watched, event);
}

void BasicChart::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (serviceType().has(ServiceTypeRow::Pieless))
        return;
    const bool roomForPie =
        height() >= smallestSizeWithPie.height() && width() >= smallestSizeWithPie.width();
    ui->widgetPie->setVisible(roomForPie);
    if (roomForPie)
        updateChartOverlays();
}
