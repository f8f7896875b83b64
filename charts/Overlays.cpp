#include "page/BasicChart.h"
#include "page/ServiceTypes.h"
#include "page/Texts.h"
#include "page/TimeFormats.h"

#include "ui_BasicChart.h"

#include <TalvixWidgets/BaseHelper.h>
#include <TalvixWidgets/QssFormatHelper.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtCharts/QPieSlice>
#include <QtGui/QCursor>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>

namespace {

constexpr int million = 1000000;
constexpr float faded = 0.7F;
constexpr QPoint pieModePosition(450, 28);
constexpr QSize smallestCallout(200, 70);
constexpr QPoint calloutOffset(15, -15);
constexpr int roomRightOfCallout = 10;
constexpr double explodeDistance = 0.1;

QString totalText(int total)
{
    if (total < million)
        return QString::number(total);
    return QString::number(total / static_cast<double>(million), 'f', 2) + Texts::sentence("TK_Million");
}

QString labelDateFormat(int timeType)
{
    switch (timeType) {
    case ZrCalendarWidget::Month:
    case ZrCalendarWidget::Hour:
        return TimeFormats::request(timeType);
    default:
        return TimeFormats::request(ZrCalendarWidget::Day);
    }
}

QString periodText(const QString &label, int timeType)
{
    const QString format = labelDateFormat(timeType);
    return QDateTime::fromString(label, format).toString(BaseHelper::dateTimeFormatConversion(format));
}

} // namespace

void BasicChart::updateChartOverlays()
{
    const ServiceTypeRow &row = serviceType();
    showPageButtons();
    if (labelPiecount)
        updatePieCount();
    if (comboBoxPie) {
        // Without a pie it has no view to lie in, and would open a window of its own.
        const bool offered = row.splitsPie() && comboBoxPie->parentWidget();
        if (offered)
            comboBoxPie->move(pieModePosition);
        comboBoxPie->setVisible(offered);
    }
}

void BasicChart::showPageButtons()
{
    if (!serviceType().has(ServiceTypeRow::Paged))
        return;
    if (pushButtonNext)
        pushButtonNext->setVisible(m_nCurPage < m_nTotalPage);
    if (pushButtonPrevious)
        pushButtonPrevious->setVisible(m_nCurPage > 1);
}

void BasicChart::updatePieCount()
{
    const int total = wrappingTotal(pieDataList);
    if (total < 1) {
        labelPiecount->hide();
        return;
    }
    const QSize pane = ui->widgetPie->size();
    const int scale = (pane.height() + pane.width()) / 100;
    QssFormatHelper *theme = QssFormatHelper::getInstance();
    const QString colour = theme->findColorStrByKey(QStringLiteral("$word_color_2"));
    labelPiecount->setText(
        QStringLiteral("<html><head><style>#f{font-size:%1px; color:%2; white-space:pre;line-height:15px;}   "
                       "                                   "
                       "font{ font-size:%3px; color:%4; white-space:pre; line-height:15px;font-weight:bold}  "
                       "                                     "
                       "</style> </head> <body><font id=\"f\"> %5</font>"
                       "<br></br><br></br><font> %6</font>                    </body></html>")
            .arg(QString::number(scale / 2 + 9), theme->changeColorStrOpacity(colour, faded),
                QString::number(scale + 9), colour, Texts::inRichText(Texts::sentence("TK_PageTotalSize")),
                Texts::inRichText(totalText(total))));
    labelPiecount->show();
    labelPiecount->adjustSize();
    const double x = 0.26 * pane.width() + (pane.width() / 100.0 - 4.5) * 10.0;
    const double y = 0.28 * pane.height();
    labelPiecount->move(static_cast<int>(x), static_cast<int>(y));
    // Has the text laid out. The first paint would do it otherwise, and ask for a second one.
    labelPiecount->heightForWidth(labelPiecount->width());
}

void BasicChart::showCallout(const QString &text, const QPoint &globalPos)
{
    if (!labelCallout) {
        labelCallout = new QLabel(this);
        labelCallout->setObjectName(QStringLiteral("LabelCallout"));
        labelCallout->setMinimumSize(smallestCallout);
        // Under the pointer it would end the very hover that it answers.
        labelCallout->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    labelCallout->setText(text);
    labelCallout->adjustSize();
    placeCallout(globalPos);
    labelCallout->show();
}

void BasicChart::placeCallout(const QPoint &globalPos)
{
    const QPoint pointer = mapFromGlobal(globalPos);
    const int calloutWidth = labelCallout->width();
    QPoint place = pointer + calloutOffset;
    if (pointer.x() + roomRightOfCallout + calloutWidth >= width())
        place.setX(pointer.x() - calloutWidth - calloutOffset.x());
    labelCallout->move(place);
}

void BasicChart::hideCallout()
{
    if (labelCallout && labelCallout->isVisible())
        labelCallout->hide();
}

void BasicChart::slotRecvMouseMove(QPoint point)
{
    if (labelCallout && labelCallout->isVisible())
        placeCallout(point);
}

void BasicChart::slotLineSelected(QPointF point, bool state)
{
    if (!state) {
        hideCallout();
        return;
    }
    const LabelledValues *list = &lineDataList;
    QString name = m_strSelectedBar;
    if (serviceType().dual()) {
        const QString line = sender() ? sender()->objectName() : QString();
        if (line == QLatin1String("Line1")) {
            name = lineNames.value(0);
        } else if (line == QLatin1String("Line2")) {
            list = &lineDataList2;
            name = lineNames.value(1);
        } else {
            return;
        }
    }
    // Before the first show there are neither call-outs nor lines.
    if (m_strToolTipFormat.isEmpty())
        return;
    // Rounding what no int holds, or what is no number, is undefined.
    if (!(qAbs(point.x()) <= qreal(list->size())))
        return;
    const int index = qRound(point.x());
    if (index < 0 || index >= list->size())
        return;
    const auto &[label, value] = list->at(index);
    showCallout(m_strToolTipFormat.arg(Texts::inRichText(periodText(label, m_nTimeType)),
                    Texts::inRichText(name), QString::number(value)),
        QCursor::pos());
}

void BasicChart::slotPieSelected(QPieSlice *slice, bool state)
{
    if (!slice)
        return;
    slice->setExploded(state);
    slice->setExplodeDistanceFactor(explodeDistance);
    if (!state)
        hideCallout();
    else if (!m_strToolTipFormat.isEmpty())
        showCallout(m_strToolTipFormat.arg(Texts::inRichText(ui->lineEditTime->text()),
                        Texts::inRichText(slice->label()), QString()),
            QCursor::pos());
}
