#include "page/BasicChart.h"
#include "page/ServiceTypes.h"
#include "page/Texts.h"

#include "ui_BasicChart.h"

#include <TalvixWidgets/QssFormatHelper.h>

#include <QtCore/QDebug>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>

namespace {

const char *unitKey(int timeType)
{
    switch (timeType) {
    case ZrCalendarWidget::Day:
        return "TK_Day";
    case ZrCalendarWidget::Hour:
        return "TK_Hour";
    default:
        return "TK_Month";
    }
}

QString translatedOrEmpty(const char *key)
{
    return key ? Texts::inRichText(Texts::sentence(key)) : QString();
}

} // namespace

QString BasicChart::getChartTitle(QLabel *label)
{
    if (label == ui->labelBarChartTitle)
        return barTitle();
    if (label == ui->labelLineChartTitle)
        return detailTitle(serviceType().lineTitleKey);
    if (label == ui->labelPieChartTitle)
        return pieTitle();
    return {};
}

QString BasicChart::barTitle() const
{
    const char *key = serviceType().barTitleKey;
    if (!key)
        qDebug() << "ServiceType unkonw";
    return QStringLiteral("<html><head><style>font{font-size:15px;}                           "
                          "</style></head><body><font> %1</font></body></html>")
        .arg(translatedOrEmpty(key));
}

QString BasicChart::pieTitle()
{
    const ServiceTypeRow &row = serviceType();
    if (row.has(ServiceTypeRow::SnapClasses)) {
        // The pie of snapshots stands for no bar by name; the page loses its focus with it.
        m_strSelectedBar = QString();
        qDebug() << " ServiceType unknown";
    }
    const PieMode *mode = chosenPieMode();
    return detailTitle(mode && mode->titleKey ? mode->titleKey : row.pieTitleKey);
}

QString BasicChart::detailTitle(const char *key) const
{
    if (!key)
        qDebug() << "ServiceType unkonw";
    const QString timeColour =
        QssFormatHelper::getInstance()->findColorStrByKey(QStringLiteral("$word_color_5"));
    return QStringLiteral("<html><head><style>font{font-size:15px;} #f{color: ") + timeColour
        + QStringLiteral(";}")
        + QStringLiteral("</style></head><body><font id=\"f\"> %1 %2</font><font> %3%4</font></body></html>")
              .arg(Texts::inRichText(ui->lineEditTime->text()), Texts::inRichText(m_strSelectedBar),
                  translatedOrEmpty(unitKey(m_nTimeType)), translatedOrEmpty(key));
}
