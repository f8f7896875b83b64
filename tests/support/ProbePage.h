#pragma once

#include <page/BasicChart.h>

#include <QtCore/QList>

/// A page whose inside tests can look at, and which keeps its tips instead of showing them.
class ProbePage : public BasicChart
{
public:
    struct Tip
    {
        QString text;
        int kind;
        friend bool operator==(const Tip &a, const Tip &b) { return a.text == b.text && a.kind == b.kind; }
    };

    explicit ProbePage(int type = 1, QWidget *parent = nullptr)
        : BasicChart(parent, 1)
    {
        setServiceType(type);
    }

    QList<Tip> tips;

    void setTips(const QString &text, const int &kind) override { tips.append({text, kind}); }

    /// A widget of the form by its object name, such as "lineEditTime" or "pushButtonAsc".
    template <typename Widget>
    Widget *part(const char *name) const
    {
        return findChild<Widget *>(QString::fromLatin1(name));
    }

    using BasicChart::barChartView, BasicChart::barDataList, BasicChart::barDataList2,
        BasicChart::clearBarChartData, BasicChart::clearChartData, BasicChart::clearPieAndLineChartData,
        BasicChart::clearPieChartData, BasicChart::comboBoxPie, BasicChart::compareCondition,
        BasicChart::createBarChart, BasicChart::createDualBarChart, BasicChart::createDualLineChart,
        BasicChart::createLineChart, BasicChart::createPdf, BasicChart::createPieChart,
        BasicChart::currentTimeRange, BasicChart::devDataList, BasicChart::devTypeDataList,
        BasicChart::etiologyDistribution, BasicChart::getAlarmOfDevice, BasicChart::getAlarmOfDevices,
        BasicChart::getAlarmOfOrga, BasicChart::getAlarmOfOrgas, BasicChart::getChartDataByBarId,
        BasicChart::getChartTitle, BasicChart::getMaxValue, BasicChart::getOnlineOfDevice,
        BasicChart::getOnlineOfDevices, BasicChart::getOnlineOfOrga, BasicChart::getOnlineOfOrgas,
        BasicChart::getOrgaID, BasicChart::getOrgaIDList, BasicChart::getSnapDetailPieData,
        BasicChart::getSnapDetailSamples, BasicChart::getTemperatureOfGroup,
        BasicChart::getTemperatureOfGroups, BasicChart::getTemperatureOfPerson,
        BasicChart::getTemperatureOfPersons, BasicChart::getTemperatureStatisticsOfDevGroups,
        BasicChart::getTempStatisticsDistributionOfGroups, BasicChart::getTrafficLineOfDevice,
        BasicChart::getTrafficsStatisticsOfDevice, BasicChart::getTrafficsStatisticsOfOrgas,
        BasicChart::idlist, BasicChart::labelCallout, BasicChart::labelPiecount, BasicChart::lineChartView,
        BasicChart::lineDataList, BasicChart::lineDataList2, BasicChart::lineNames, BasicChart::loadChart,
        BasicChart::m_bFirstShow, BasicChart::m_chartViewList, BasicChart::m_curUser, BasicChart::m_mutex,
        BasicChart::m_nCurPage, BasicChart::m_nPageSize, BasicChart::m_nTimeType, BasicChart::m_nTotalPage,
        BasicChart::m_orgaList, BasicChart::m_pCalendarWidget, BasicChart::m_pExportWidget,
        BasicChart::m_pTimer, BasicChart::m_queryCondition, BasicChart::m_serviceType,
        BasicChart::m_strSelectedBar, BasicChart::m_strToolTipFormat, BasicChart::maskDistribution,
        BasicChart::numberDistribution, BasicChart::organizeNodes, BasicChart::pieChartView,
        BasicChart::pieDataList, BasicChart::pushButtonNext, BasicChart::pushButtonPrevious,
        BasicChart::refreshAfterBarSort, BasicChart::reloadLineAndPieChart, BasicChart::reloadPieChart,
        BasicChart::retranslateTexts, BasicChart::setBarList, BasicChart::setButtonHighlight,
        BasicChart::setChartPalette, BasicChart::setChartRenderHint, BasicChart::setDevBarItem,
        BasicChart::setEtiologyPieList, BasicChart::setGroupLineList, BasicChart::setGroupsBarList,
        BasicChart::setLineAndPieItem, BasicChart::setMaskPieList, BasicChart::setNumberPieList,
        BasicChart::setOnlineBarList, BasicChart::setOnlinePieAndLineList, BasicChart::setOrgaBarItem,
        BasicChart::setPageInfo, BasicChart::setPersonLineList, BasicChart::setPersonsBarList,
        BasicChart::setPieAndLineList, BasicChart::setSnapMinorPieList, BasicChart::setTempAlarmBarItem,
        BasicChart::setTempAlarmLineItem, BasicChart::setTempAlarmLineList, BasicChart::setTemperaturePieList,
        BasicChart::setTrafficDeviceBarItem, BasicChart::setTrafficLineItem,
        BasicChart::setTrafficOrgaBarItem, BasicChart::showCallout, BasicChart::snapDetailMap,
        BasicChart::snapSamples, BasicChart::sortFlag, BasicChart::sortLineList,
        BasicChart::tempAlarmHandleList, BasicChart::temperatureDistribution, BasicChart::ui,
        BasicChart::updateChartOverlays;
};
