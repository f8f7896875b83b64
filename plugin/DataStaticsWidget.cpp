#include "DataStaticsWidget.h"

#include "page/Codes.h"
#include "page/Texts.h"
#include "ui_DataStaticsWidget.h"

#include <TalvixWidgets/BaseHelper.h>

namespace {

constexpr int tabWidth = 140;

} // namespace

DataStaticsWidget::DataStaticsWidget(QWidget *parent)
    : BaseWidget(parent, {})
    , ui(new Ui::DataStaticsWidget)
{
    ui->setupUi(this);
    DataStaticsWidget::initForm();
}

DataStaticsWidget::~DataStaticsWidget()
{
    delete ui;
}

void DataStaticsWidget::initForm()
{
    ui->tabOrganization->setServiceType(Codes::AlarmStatisticsOfOrgas);
    ui->tabDevice->setServiceType(Codes::AlarmStatisticsOfDevices);
    ui->tabOrganizationOnline->setServiceType(Codes::OnlineStatisticsOfOrgas);
    ui->tabDeviceOnline->setServiceType(Codes::OnlineStatisticsOfDevices);
    ui->tabWidget->setCurrentIndex(0);
    retranslateUi();
}

void DataStaticsWidget::retranslateUi()
{
    const std::pair<QWidget *, const char *> tabs[] = {
        {ui->tabOrganization, "TK_OrganizationAlm"},
        {ui->tabDevice, "TK_DeviceAlmStatistics"},
        {ui->tabOrganizationOnline, "TK_OrganizationOnline"},
        {ui->tabDeviceOnline, "TK_DeviceOnline"},
    };
    for (const auto &[page, key] : tabs)
        ui->tabWidget->setTabText(ui->tabWidget->indexOf(page), Texts::title(key));
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(ui->tabWidget, tabWidth);
}

void DataStaticsWidget::setDataStaticType(DataStaticType)
{
    BaseHelper::getInstance()->adjustTabWidgetViewWidth(ui->tabWidget, tabWidth);
}

// Kept in the interface: the tabs look as the style sheet of the host says.
void DataStaticsWidget::initCustomStyle()
{ }
