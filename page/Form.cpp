#include "BasicChart.h"

#include "Clock.h"
#include "Codes.h"
#include "Texts.h"
#include "ui_BasicChart.h"

#include <TalvixWidgets/AppStyleHelper.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/KrxClient.h>

#include <QtCore/QSignalBlocker>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtGui/QIcon>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyle>

#include <iterator>

namespace {

constexpr int segmentWidth = 65;

struct SumModeItem
{
    const char *key;
    Codes::SumMode mode;
};

constexpr SumModeItem sumModeItems[] = {
    {"TK_LowSum", Codes::LowerLevel},
    {"TK_AllSum", Codes::AllLevels},
    {"TK_OnlyCurrent", Codes::OnlyCurrent},
};
constexpr int sumModeIndexAtFirst = 1;

} // namespace

void BasicChart::initForm()
{
    initTimeSpan();
    KrxClient::instance()->getCurUserInfo(m_curUser);
    const QDateTime now = Clock::now();
    slotDataTimeChanged(now.date().startOfDay(), now, static_cast<QueryType>(m_nTimeType));

    ui->pushButtonAsc->setToolTip(Texts::sentence("TK_AscMode"));
    ui->pushButtonDesc->setToolTip(Texts::sentence("TK_DescMode"));
    for (const SumModeItem &item : sumModeItems) {
        ui->comboBoxOrgType->insertItem(
            ui->comboBoxOrgType->count(), QIcon(), Texts::sentence(item.key), item.mode);
    }
    ui->carRadio->setText(Texts::button("TK_Vehicle"));
    ui->personRadio->setText(Texts::button("TK_Pedestrian"));
    ui->comboBoxOrgType->setCurrentIndex(sumModeIndexAtFirst);

    connectSearch();
    initFocusDelay();
    m_strToolTipFormat =
        QStringLiteral("<p>&nbsp; %1 <br/><br/>                        &nbsp;  "
                       "<img src=\":/images/home/charts/nav_dot.png\" width=\"5\" height=\"5\"> "
                       "%2 &nbsp; %3 </p>");
    initSnapClassButtons();
    lineNames = {Texts::sentence("TK_Vehicle"), Texts::sentence("TK_Pedestrian")};
    retranslateTexts();
    initButtonStyles();
}

void BasicChart::initTimeSpan()
{
    ui->lineEditTime->setReadOnly(true);
    ui->lineEditTime->installEventFilter(this);
    QAction *open = ui->lineEditTime->addAction(
        QIcon(QStringLiteral(":/images/home/common/common_16/date_16.png")), QLineEdit::TrailingPosition);
    connect(open, &QAction::triggered, this, &BasicChart::showZrCalendarWidget);

    m_pCalendarWidget = new ZrCalendarWidget(this);
    m_pCalendarWidget->setType(ZrCalendarWidget::Hour);
    connect(
        m_pCalendarWidget, &ZrCalendarWidget::signalDataTimeChanged, this, &BasicChart::slotCalendarChanged);
}

void BasicChart::connectSearch()
{
    connect(KrxClient::instance(), &KrxClient::signalOrgaInfoChanged, this, &BasicChart::slotOrgaInfoLoad);
    connect(ui->lineEditTime, &QLineEdit::textChanged, this, &BasicChart::slotSearch);
    connectTree();
    connect(ui->comboBoxOrgType, &QComboBox::currentTextChanged, this, &BasicChart::slotSearch);
}

void BasicChart::initFocusDelay()
{
    m_pTimer = new QTimer(this);
    connect(m_pTimer, &QTimer::timeout, this, &BasicChart::slotTimerReq);
}

void BasicChart::initSnapClassButtons()
{
    auto *group = new QButtonGroup(this);
    group->setExclusive(true);
    ui->carRadio->setCheckable(true);
    ui->personRadio->setCheckable(true);
    group->addButton(ui->carRadio);
    group->addButton(ui->personRadio);
    ui->carRadio->setChecked(true);
    connect(
        group, SIGNAL(buttonClicked(QAbstractButton *)), this, SLOT(slot_switchPieChart(QAbstractButton *)));
}

void BasicChart::initButtonStyles()
{
    const auto segments = {ui->pushButtonMonth, ui->pushButtonDay, ui->pushButtonHour};
    for (ZrPushButton *segment : segments)
        AppStyleHelper::updateWidgetStyle(segment, AppStyleHelper::SegmentButton);
    for (ZrPushButton *segment : segments)
        segment->setFixedWidth(segmentWidth);
    AppStyleHelper::updateWidgetStyle(ui->pushButtonExport, AppStyleHelper::ToolButton);
}

void BasicChart::retranslateTexts()
{
    ui->carRadio->setText(Texts::button("TK_Vehicle"));
    ui->personRadio->setText(Texts::button("TK_Pedestrian"));
    ui->pushButtonExport->setText(Texts::sentence("TK_Export"));
    ui->pushButtonMonth->setText(Texts::button("TK_Month"));
    ui->pushButtonDay->setText(Texts::button("TK_Day"));
    ui->pushButtonHour->setText(Texts::button("TK_Hour"));
    ui->labelSort->setText(Texts::sentence("TK_sort"));
}

void BasicChart::retranslateUi()
{
    retranslateTexts();
    renewTreeTexts();
    for (QLabel *title : {ui->labelBarChartTitle, ui->labelPieChartTitle, ui->labelLineChartTitle})
        title->setText(getChartTitle(title));
    renewOrgTypeTexts();
    for (int i = 0; comboBoxPie && i < comboBoxPie->count(); ++i) {
        const int type = comboBoxPie->itemData(i, Qt::UserRole).toInt();
        comboBoxPie->setItemText(i, AppTranslationHelper::instance()->getSnapDetailMajorTypeName(type));
    }
    if (slotOrgaInfoLoad()) {
        slotSearch();
        updateChartOverlays();
    }
}

// Another language is no other condition: the search that a language change needs comes once, and last.
void BasicChart::renewOrgTypeTexts()
{
    const QSignalBlocker quiet(ui->comboBoxOrgType);
    for (int i = 0; i < static_cast<int>(std::size(sumModeItems)); ++i)
        ui->comboBoxOrgType->setItemText(i, Texts::sentence(sumModeItems[i].key));
}

void BasicChart::setButtonHighlight(ZrPushButton *button, bool on)
{
    if (!button)
        return;
    button->setProperty("highlight", on);
    style()->unpolish(button);
    style()->polish(button);
    button->update();
}
