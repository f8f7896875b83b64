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

    using BasicChart::ui;
    using BasicChart::barDataList;
    using BasicChart::barDataList2;
    using BasicChart::lineDataList;
    using BasicChart::lineDataList2;
    using BasicChart::pieDataList;
    using BasicChart::devTypeDataList;
    using BasicChart::barChartView;
    using BasicChart::lineChartView;
    using BasicChart::pieChartView;
    using BasicChart::m_strSelectedBar;
    using BasicChart::m_chartViewList;
    using BasicChart::m_curUser;
    using BasicChart::m_nTimeType;
    using BasicChart::m_serviceType;
    using BasicChart::m_pCalendarWidget;
    using BasicChart::m_orgaList;
    using BasicChart::idlist;
    using BasicChart::devDataList;
    using BasicChart::m_queryCondition;
    using BasicChart::pushButtonPrevious;
    using BasicChart::pushButtonNext;
    using BasicChart::labelPiecount;
    using BasicChart::labelCallout;
    using BasicChart::comboBoxPie;
    using BasicChart::m_nCurPage;
    using BasicChart::m_nTotalPage;
    using BasicChart::m_nPageSize;
    using BasicChart::m_mutex;
    using BasicChart::m_pTimer;
    using BasicChart::m_strToolTipFormat;
    using BasicChart::sortFlag;
    using BasicChart::snapSamples;
    using BasicChart::lineNames;
    using BasicChart::snapDetailMap;
    using BasicChart::etiologyDistribution;
    using BasicChart::numberDistribution;
    using BasicChart::tempAlarmHandleList;
    using BasicChart::temperatureDistribution;
    using BasicChart::maskDistribution;
    using BasicChart::m_pExportWidget;
    using BasicChart::m_bFirstShow;
    using BasicChart::retranslateTexts;
    using BasicChart::setButtonHighlight;
    using BasicChart::clearChartData;
    using BasicChart::compareCondition;
    using BasicChart::setPageInfo;
    using BasicChart::currentTimeRange;
    using BasicChart::organizeNodes;
    using BasicChart::getOrgaID;
    using BasicChart::getOrgaIDList;
    using BasicChart::clearBarChartData;
    using BasicChart::clearPieAndLineChartData;
    using BasicChart::clearPieChartData;
    using BasicChart::setBarList;
    using BasicChart::setOnlineBarList;
    using BasicChart::setPieAndLineList;
    using BasicChart::setOnlinePieAndLineList;
    using BasicChart::setOrgaBarItem;
    using BasicChart::setDevBarItem;
    using BasicChart::setLineAndPieItem;
    using BasicChart::sortLineList;
    using BasicChart::getChartDataByBarId;
    using BasicChart::getAlarmOfOrgas;
    using BasicChart::getAlarmOfDevices;
    using BasicChart::getAlarmOfOrga;
    using BasicChart::getAlarmOfDevice;
    using BasicChart::getOnlineOfOrgas;
    using BasicChart::getOnlineOfDevices;
    using BasicChart::getOnlineOfOrga;
    using BasicChart::getOnlineOfDevice;
    using BasicChart::getTemperatureOfGroups;
    using BasicChart::getTemperatureOfPersons;
    using BasicChart::getTemperatureOfGroup;
    using BasicChart::getTemperatureOfPerson;
    using BasicChart::setGroupsBarList;
    using BasicChart::setPersonsBarList;
    using BasicChart::setGroupLineList;
    using BasicChart::setPersonLineList;
    using BasicChart::getTempStatisticsDistributionOfGroups;
    using BasicChart::getTemperatureStatisticsOfDevGroups;
    using BasicChart::setTempAlarmBarItem;
    using BasicChart::setTempAlarmLineList;
    using BasicChart::setTempAlarmLineItem;
    using BasicChart::getTrafficsStatisticsOfDevice;
    using BasicChart::getTrafficsStatisticsOfOrgas;
    using BasicChart::getTrafficLineOfDevice;
    using BasicChart::getSnapDetailPieData;
    using BasicChart::getSnapDetailSamples;
    using BasicChart::setTrafficDeviceBarItem;
    using BasicChart::setTrafficOrgaBarItem;
    using BasicChart::setTrafficLineItem;
    using BasicChart::setTemperaturePieList;
    using BasicChart::setMaskPieList;
    using BasicChart::setEtiologyPieList;
    using BasicChart::setNumberPieList;
    using BasicChart::setSnapMinorPieList;
    using BasicChart::refreshAfterBarSort;
    using BasicChart::loadChart;
    using BasicChart::reloadLineAndPieChart;
    using BasicChart::reloadPieChart;
    using BasicChart::setChartRenderHint;
    using BasicChart::setChartPalette;
    using BasicChart::getMaxValue;
    using BasicChart::createBarChart;
    using BasicChart::createDualBarChart;
    using BasicChart::createLineChart;
    using BasicChart::createDualLineChart;
    using BasicChart::createPieChart;
    using BasicChart::getChartTitle;
    using BasicChart::updateChartOverlays;
    using BasicChart::showCallout;
    using BasicChart::createPdf;
};
