#include "BasicChart.h"

#include "ServiceTypes.h"
#include "ui_BasicChart.h"

#include <TalvixWidgets/ZrChartView.h>

#include <QtCore/QDebug>
#include <QtWidgets/QComboBox>

#include <utility>

BasicChart::BasicChart(QWidget *parent, int type)
    : BaseWidget(parent, {})
    , ui(new Ui::BasicChart)
    , m_serviceType(type)
{
    ui->setupUi(this);
    ui->lineEditTime->setObjectName(QStringLiteral("lineEditTime"));
}

BasicChart::~BasicChart()
{
    releaseFileDialog();
    if (comboBoxPie && !comboBoxPie->parentWidget())
        delete comboBoxPie;
    // Charts end their hovers as they die, and our slots answer; so they go while the page is still whole.
    labelPiecount = nullptr;
    comboBoxPie = nullptr;
    qDeleteAll(std::exchange(m_chartViewList, {}));
    delete ui;
}

void BasicChart::setServiceType(int type)
{
    if (type != m_serviceType) {
        m_serviceType = type;
        qDebug() << "setServiceType type:" << m_serviceType;
    }
    const ServiceTypeRow &row = serviceType();
    if (row.has(ServiceTypeRow::Pieless))
        ui->widgetPie->setVisible(false);
    if (row.has(ServiceTypeRow::SumModeHidden))
        ui->comboBoxOrgType->setVisible(false);
    ui->carRadio->setVisible(row.has(ServiceTypeRow::SnapClasses));
    ui->personRadio->setVisible(row.has(ServiceTypeRow::SnapClasses));
}

const BasicChart::ServiceTypeRow &BasicChart::serviceType() const
{
    return ServiceTypeRow::of(m_serviceType);
}
