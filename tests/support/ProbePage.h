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

    using BasicChart::barChartView;
    using BasicChart::barDataList;
    using BasicChart::barDataList2;
    using BasicChart::clearBarChartData;
    using BasicChart::clearChartData;
    using BasicChart::clearPieAndLineChartData;
    using BasicChart::clearPieChartData;
    using BasicChart::comboBoxPie;
    using BasicChart::compareCondition;
    using BasicChart::createBarChart;
    using BasicChart::createDualBarChart;
    using BasicChart::createDualLineChart;
    using BasicChart::createLineChart;
    using BasicChart::createPdf;
    using BasicChart::createPieChart;
    using BasicChart::currentTimeRange;
    using BasicChart::devDataList;
    using BasicChart::devTypeDataList;
    using BasicChart::etiologyDistribution;
    using BasicChart::getAlarmOfDevice;
    using BasicChart::getAlarmOfDevices;
    using BasicChart::getAlarmOfOrga;
    using BasicChart::getAlarmOfOrgas;
    using BasicChart::getChartDataByBarId;
    using BasicChart::getChartTitle;
    using BasicChart::getMaxValue;
    using BasicChart::getOnlineOfDevice;
    using BasicChart::getOnlineOfDevices;
    using BasicChart::getOnlineOfOrga;
    using BasicChart::getOnlineOfOrgas;
    using BasicChart::getOrgaID;
    using BasicChart::getOrgaIDList;
    using BasicChart::getSnapDetailPieData;
    using BasicChart::getSnapDetailSamples;
    using BasicChart::getTemperatureOfGroup;
    using BasicChart::getTemperatureOfGroups;
    using BasicChart::getTemperatureOfPerson;
    using BasicChart::getTemperatureOfPersons;
    using BasicChart::getTemperatureStatisticsOfDevGroups;
    using BasicChart::getTempStatisticsDistributionOfGroups;
    using BasicChart::getTrafficLineOfDevice;
    using BasicChart::getTrafficsStatisticsOfDevice;
    using BasicChart::getTrafficsStatisticsOfOrgas;
    using BasicChart::idlist;
    using BasicChart::labelCallout;
    using BasicChart::labelPiecount;
    using BasicChart::lineChartView;
    using BasicChart::lineDataList;
    using BasicChart::lineDataList2;
    using BasicChart::lineNames;
    using BasicChart::loadChart;
    using BasicChart::m_bFirstShow;
    using BasicChart::m_chartViewList;
    using BasicChart::m_curUser;
    using BasicChart::m_mutex;
    using BasicChart::m_nCurPage;
    using BasicChart::m_nPageSize;
    using BasicChart::m_nTimeType;
    using BasicChart::m_nTotalPage;
    using BasicChart::m_orgaList;
    using BasicChart::m_pCalendarWidget;
    using BasicChart::m_pExportWidget;
    using BasicChart::m_pTimer;
    using BasicChart::m_queryCondition;
    using BasicChart::m_serviceType;
    using BasicChart::m_strSelectedBar;
    using BasicChart::m_strToolTipFormat;
    using BasicChart::maskDistribution;
    using BasicChart::numberDistribution;
    using BasicChart::organizeNodes;
    using BasicChart::pieChartView;
    using BasicChart::pieDataList;
    using BasicChart::pushButtonNext;
    using BasicChart::pushButtonPrevious;
    using BasicChart::refreshAfterBarSort;
    using BasicChart::reloadLineAndPieChart;
    using BasicChart::reloadPieChart;
    using BasicChart::retranslateTexts;
    using BasicChart::setBarList;
    using BasicChart::setButtonHighlight;
    using BasicChart::setChartPalette;
    using BasicChart::setChartRenderHint;
    using BasicChart::setDevBarItem;
    using BasicChart::setEtiologyPieList;
    using BasicChart::setGroupLineList;
    using BasicChart::setGroupsBarList;
    using BasicChart::setLineAndPieItem;
    using BasicChart::setMaskPieList;
    using BasicChart::setNumberPieList;
    using BasicChart::setOnlineBarList;
    using BasicChart::setOnlinePieAndLineList;
    using BasicChart::setOrgaBarItem;
    using BasicChart::setPageInfo;
    using BasicChart::setPersonLineList;
    using BasicChart::setPersonsBarList;
    using BasicChart::setPieAndLineList;
    using BasicChart::setSnapMinorPieList;
    using BasicChart::setTempAlarmBarItem;
    using BasicChart::setTempAlarmLineItem;
    using BasicChart::setTempAlarmLineList;
    using BasicChart::setTemperaturePieList;
    using BasicChart::setTrafficDeviceBarItem;
    using BasicChart::setTrafficLineItem;
    using BasicChart::setTrafficOrgaBarItem;
    using BasicChart::showCallout;
    using BasicChart::snapDetailMap;
    using BasicChart::snapSamples;
    using BasicChart::sortFlag;
    using BasicChart::sortLineList;
    using BasicChart::tempAlarmHandleList;
    using BasicChart::temperatureDistribution;
    using BasicChart::ui;
    using BasicChart::updateChartOverlays;
};
