#pragma once

#include "Codes.h"
#include "LabelledValues.h"

#include <TalvixMessages/AlarmStatisticsMessages.h>
#include <TalvixMessages/OnlineStatisticsMessages.h>
#include <TalvixMessages/SnapStatisticsMessages.h>
#include <TalvixMessages/TemperatureStatisticsMessages.h>
#include <TalvixModel/TalvixGroup.h>
#include <TalvixModel/TalvixUser.h>
#include <TalvixWidgets/BaseWidget.h>
#include <TalvixWidgets/ZrCalendarWidget.h>

#include <QtCore/QDateTime>
#include <QtCore/QMap>
#include <QtCore/QMutex>
#include <QtCore/QPoint>
#include <QtCore/QPointF>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QAbstractBarSeries;
class QAbstractButton;
class QBarSet;
class QChart;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineSeries;
class QPieSeries;
class QPieSlice;
class QTimer;
QT_END_NAMESPACE

class TalvixChannel;
class TempResultExportWidget;
class ZrChartView;
class ZrPushButton;
struct LabelStance;
struct NODE;

namespace Ui {
class BasicChart;
}

/// The statistics page: one widget for all nine kinds of statistics.
///
/// A query over a time span and an organisation fills the data lists, and the chart builders draw what stands
/// in them. What tells the kinds apart is a table
/// (`ServiceTypes.h`). All runs on the GUI thread; a query blocks it until the client has answered.
class BasicChart : public BaseWidget
{
    Q_OBJECT

public:
    using QueryType = ZrCalendarWidget::QueryType;

    /// The condition of the last query that asked page by page.
    struct QueryCondition
    {
        int userId = 0;
        QString startTime;
        QString endTime;
        int orgaId = 0;
        int timeType = 0;
    };

    /// What differs from kind to kind; one row for each (`page/ServiceTypes.h`).
    struct ServiceTypeRow;
    struct PieMode;
    /// What the requests of several queries have in common (`statistics/Requests.h`).
    struct Requests;

    explicit BasicChart(QWidget *parent = nullptr, int type = Codes::AlarmStatisticsOfOrgas);
    ~BasicChart() override;

    bool eventFilter(QObject *watched, QEvent *event) override;
    void initForm() override;
    void retranslateUi() override;
    void doAfterWidgetShow() override;
    void doAfterWidgetHide() override;

    /// Makes the page one of kind \a type and hides the widgets that the kind has no use for. The choice of
    /// levels, once hidden, stays so.
    void setServiceType(int type);

Q_SIGNALS:
    /// The pointer has rested on another bar; \a barID is its display name.
    void barSetChanged(QString &barID);

public Q_SLOTS:
    void slotPieSelected(QPieSlice *slice, bool state);
    void slotLineSelected(QPointF point, bool state);
    void slotBarSelected(bool state, int index, QBarSet *barset);
    void slotBarSetChanged(QString &barId);
    bool slotOrgaInfoLoad();
    void slotDataTimeChanged(QDateTime startTime, QDateTime stopTime, QueryType type);
    void slotSearch();
    void on_pushButtonMonth_clicked();
    void on_pushButtonDay_clicked();
    void on_pushButtonHour_clicked();
    void on_pushButtonAsc_clicked();
    void on_pushButtonDesc_clicked();
    void showZrCalendarWidget(bool state);
    void slotCalendarChanged(QDateTime startTime, QDateTime stopTime);
    void slotNext();
    void on_pushButtonExport_clicked();
    void slotPrevious();
    void slotRecvMouseMove(QPoint point);
    void slotTimerReq();
    void slot_switchPieChart(QAbstractButton *p_Button);
    void slot_switchPieType(int);

protected:
    void resizeEvent(QResizeEvent *event) override;

    Ui::BasicChart *ui;

    LabelledValues barDataList;
    LabelledValues barDataList2;
    LabelledValues lineDataList;
    LabelledValues lineDataList2;
    LabelledValues pieDataList;
    LabelledValues devTypeDataList;
    ZrChartView *barChartView = nullptr;
    ZrChartView *lineChartView = nullptr;
    ZrChartView *pieChartView = nullptr;
    QString m_strSelectedBar;
    QList<ZrChartView *> m_chartViewList;
    TalvixUser m_curUser;
    int m_nTimeType = ZrCalendarWidget::Hour;
    int m_serviceType;
    ZrCalendarWidget *m_pCalendarWidget = nullptr;
    std::list<TalvixGroup> m_orgaList;
    std::vector<int> idlist;
    LabelledKeys devDataList;
    QueryCondition m_queryCondition;
    ZrPushButton *pushButtonPrevious = nullptr;
    ZrPushButton *pushButtonNext = nullptr;
    QLabel *labelPiecount = nullptr;
    QLabel *labelCallout = nullptr;
    QComboBox *comboBoxPie = nullptr;
    int m_nCurPage = 1;
    int m_nTotalPage = 1;
    int m_nPageSize = 10;
    QMutex m_mutex;
    QTimer *m_pTimer = nullptr;
    QString m_strToolTipFormat;
    bool sortFlag = true;
    std::vector<SnapTimeSample> snapSamples;
    QStringList lineNames;
    QMap<int, std::vector<SnapDetailMajorItem>> snapDetailMap;
    std::vector<TempDistributionItem> etiologyDistribution;
    std::vector<TempDistributionItem> numberDistribution;
    std::vector<TempAlarmHandleItem> tempAlarmHandleList;
    std::vector<TempDistributionItem> temperatureDistribution;
    std::vector<TempDistributionItem> maskDistribution;
    TempResultExportWidget *m_pExportWidget = nullptr;
    bool m_bFirstShow = true;

    // page/BasicChart.cpp
    const ServiceTypeRow &serviceType() const;

    // page/Form.cpp
    void initTimeSpan();
    void connectSearch();
    void initFocusDelay();
    void initSnapClassButtons();
    void initButtonStyles();
    void retranslateTexts();
    void renewOrgTypeTexts();
    void setButtonHighlight(ZrPushButton *button, bool on);

    // page/QueryCycle.cpp
    void startAtFirstShow();
    void clearChartData();
    void compareCondition();
    void setPageInfo(int total, int curpage);

    // page/TimeSpan.cpp
    void startSpan(QueryType type, const QDateTime &start, const QDateTime &stop);
    void currentTimeRange(QString &start, QString &end) const;

    // page/Organisation.cpp
    void organizeNodes(QList<NODE> &nodes);
    int getOrgaID() const;
    std::vector<int> getOrgaIDList();
    bool currentNode(NODE &node) const;
    bool fillTree(QList<NODE> &nodes);
    void renewTreeTexts();
    void connectTree();
    void disconnectTree();
    int selectedOrgType() const;

    // statistics/ChartData.cpp
    void clearBarChartData();
    void clearPieAndLineChartData();
    void clearPieChartData();
    void setBarList(const std::vector<AlarmStatisticsRecord> &records);
    void setOnlineBarList(const std::vector<OnlineStatisticsRecord> &records);
    void setPieAndLineList(const std::vector<AlarmStatisticsRecord> &records);
    void setOnlinePieAndLineList(const std::vector<OnlineStatisticsRecord> &records);
    void setOrgaBarItem(int id, int value);
    void setDevBarItem(const std::string &uid, int value);
    void setLineAndPieItem(const std::string &label, int value, int alarmType);
    void appendBar(const QString &name, const QString &key, int value);
    QString organisationName(int id);
    QString distinctChannelName(const QString &name, TalvixChannel &channel);
    void sortLineList();
    void getChartDataByBarId(const QString &key);
    bool openFirstBar();

    // statistics/AlarmQueries.cpp
    int getAlarmOfOrgas();
    int getAlarmOfDevices();
    void getAlarmOfOrga(const QString &key);
    void getAlarmOfDevice(const QString &key);

    // statistics/OnlineQueries.cpp
    int getOnlineOfOrgas();
    int getOnlineOfDevices();
    void getOnlineOfOrga(const QString &key);
    void getOnlineOfDevice(const QString &key);

    // statistics/TemperatureQueries.cpp
    int getTemperatureOfGroups();
    int getTemperatureOfPersons();
    void getTemperatureOfGroup(const QString &key);
    void getTemperatureOfPerson(const QString &key);
    void setGroupsBarList(const std::vector<TemperatureStatisticsItem> &items);
    void setPersonsBarList(const std::vector<TemperatureStatisticsItem> &items);
    void setGroupLineList(const std::vector<TemperatureStatisticsItem> &items);
    void setPersonLineList(const std::vector<TemperatureStatisticsItem> &items);

    // statistics/DistributionQueries.cpp
    void drillIntoGroup(const QString &key);
    void drillIntoDeviceGroup(const QString &key);
    StatisticsQueryOfOrga deviceGroupQuery(int queryType);
    void getTempStatisticsDistributionOfGroups(const QString &key, int queryType);
    int getTemperatureStatisticsOfDevGroups();
    void getTemperatureStatisticsOfDevGroups(const QString &key, int queryType);
    void setTempAlarmBarItem(const int &id, const std::vector<TempAlarmHandleItem> &records);
    void setTempAlarmLineList(const std::vector<TempAlarmHandleItem> &records);
    void setTempAlarmLineItem(const TempAlarmHandleItem &record);
    void foldOrgaBar(int id, int first, int second);

    // statistics/TrafficQueries.cpp
    void drillIntoChannel(const QString &key);
    int getTrafficsStatisticsOfDevice();
    int getTrafficsStatisticsOfOrgas();
    void getTrafficsStatisticsOfOrgas(const QString &key);
    void getTrafficLineOfDevice(const QString &key);
    void getSnapDetailPieData(const QString &key, int mode);
    bool getSnapDetailSamples(
        const QString &key, int majorClass, std::vector<SnapDetailMajorItem> &out, int mode);
    int chosenSnapClass() const;
    void setBarList(const std::vector<SnapTimeSample> &samples);
    void setGroupsBarList(const std::vector<SnapOrgaItem> &items);
    void setTrafficDeviceBarItem(const std::string &uid, const std::vector<SnapTypeCount> &counts);
    void setTrafficOrgaBarItem(const int &id, const std::vector<SnapTypeCount> &counts);
    void setTrafficLineItem(const std::string &label, const std::vector<SnapTypeCount> &counts);

    // statistics/Classification.cpp
    void setTemperaturePieList(const std::vector<TempDistributionItem> &items);
    void setMaskPieList(const std::vector<TempDistributionItem> &items);
    void setEtiologyPieList(const std::vector<TempDistributionItem> &items);
    void setNumberPieList(const std::vector<TempDistributionItem> &items);
    void setSnapMinorPieList(const std::vector<SnapDetailMajorItem> &items, int majorType);

    // charts/ChartAssembly.cpp
    void loadChart();
    void firstLoadCharts();
    void placeFirstCharts();
    void loadBarView();
    void loadLineView();
    void loadPieView();
    void addPageButtons(QHBoxLayout *row);
    ZrChartView *addChartView(QChart *chart);
    void forgetChartView(const QObject *view);
    void fillPieModes();
    QChart *barChart();
    QChart *lineChart();
    void replaceChart(int view, QChart *(BasicChart::*builder)());
    void finishChartChange();
    void reloadLineAndPieChart();
    void reloadPieChart();
    void setChartRenderHint(bool on);
    void setChartPalette();
    int getMaxValue(const QList<int> &values);

    // charts/BarCharts.cpp
    QChart *createBarChart();
    QChart *createDualBarChart();
    void appendSingleSet(QChart &chart, QAbstractBarSeries &series);
    void appendDeviceSets(QChart &chart, QAbstractBarSeries &series);
    void showBars(QChart &chart, QAbstractBarSeries *series);

    // charts/LineCharts.cpp
    QChart *createLineChart();
    QChart *createDualLineChart();
    void showLines(QChart &chart, const QList<QLineSeries *> &lines, const QList<int> &values);

    // charts/PieChart.cpp
    QChart *createPieChart();
    QList<std::pair<QString, QString>> appendSlices(QPieSeries &series, int total);
    QList<int> openSnapClass();
    void offerSnapMajorTypes(const QList<int> &majorTypes);
    const PieMode *pieMode(int code) const;
    const PieMode *chosenPieMode() const;
    void openPieMode(const PieMode *mode);
    void fillEtiologyPie();
    void fillNumberPie();
    void fillTemperaturePie();
    void fillMaskPie();
    void emptyAllCharts();

    // charts/BarFocus.cpp
    void refreshAfterBarSort();
    void sortBars(bool descending);
    void focusBar(const QString &name);
    int sortType() const;

    // charts/Titles.cpp
    QString getChartTitle(QLabel *label);
    QString barTitle() const;
    QString pieTitle();
    QString detailTitle(const char *key) const;

    // charts/Overlays.cpp
    void hideCallout();
    void updateChartOverlays();
    void showPageButtons();
    void updatePieCount();
    void placeCallout(const QPoint &globalPos);
    void showCallout(const QString &text, const QPoint &globalPos);

    // export/PdfSnapshot.cpp
    bool createPdf();
    void releaseFileDialog();
    void exportPdf();

private:
    ListIndex<int> m_barIndex;
    ListIndex<int> m_barIndex2;
    ListIndex<int> m_lineIndex;
    ListIndex<int> m_lineIndex2;
    ListIndex<int> m_pieIndex;
    ListIndex<QString> m_keyIndex;
    std::shared_ptr<LabelStance> m_barLabelStance;
    std::map<int, std::shared_ptr<LabelStance>> m_lineLabelStances; ///< by time unit
    bool m_isChoosingFile = false;
};
