#include "page/BasicChart.h"
#include "page/Codes.h"
#include "page/ServiceTypes.h"
#include "page/Texts.h"

#include "ui_BasicChart.h"
#include "UserData.h"

#include <QtCharts/QBarSet>
#include <QtCore/QDebug>
#include <QtCore/QTimer>
#include <QtCore/QVariant>
#include <QtGui/QCursor>

#include <algorithm>

namespace {

constexpr int focusDelayMs = 800;

QString numberText(double value)
{
    return QStringLiteral("%1").arg(value, 0, 'g', -1, QLatin1Char(' '));
}

} // namespace

int BasicChart::sortType() const
{
    return sortFlag ? Codes::Descending : Codes::Ascending;
}

void BasicChart::on_pushButtonAsc_clicked()
{
    sortBars(false);
    setButtonHighlight(ui->pushButtonAsc, true);
    setButtonHighlight(ui->pushButtonDesc, false);
    sortFlag = false;
    qDebug() << "BasicChart::on_pushButtonAsc_clicked";
}

void BasicChart::on_pushButtonDesc_clicked()
{
    sortBars(true);
    setButtonHighlight(ui->pushButtonAsc, false);
    setButtonHighlight(ui->pushButtonDesc, true);
    sortFlag = true;
    qDebug() << "BasicChart::on_pushButtonDesc_clicked";
}

// Descending is ascending read backwards. So tied bars keep their order when they descend, and turn round
// with each press when they ascend.
void BasicChart::sortBars(bool descend)
{
    const auto sorted = [descend](const LabelledValues &list) {
        LabelledValues result = sortBarList(list);
        if (descend)
            std::reverse(result.begin(), result.end());
        return result;
    };
    barDataList2 = sorted(barDataList2);
    const LabelledValues bars = sorted(barDataList);
    if (bars != barDataList) {
        barDataList = bars;
        refreshAfterBarSort();
    }
}

void BasicChart::refreshAfterBarSort()
{
    if (devDataList.isEmpty() || barDataList.isEmpty())
        return;
    const auto index = listKeys(devDataList).indexOf(barDataList.constFirst().first);
    if (index < 0)
        return;
    const QString key = devDataList.at(index).second;
    getChartDataByBarId(key);
    loadChart();
}

void BasicChart::slotBarSelected(bool state, int index, QBarSet *barset)
{
    if (!barset || m_strToolTipFormat.isEmpty())
        return;
    if (!state || index < 0 || index >= barDataList.size()) {
        hideCallout();
        return;
    }
    qDebug() << "BasicChart::slotBarSelected index " << index << "size" << barDataList.size();
    const ServiceTypeRow &row = serviceType();
    const QString time = Texts::inRichText(ui->lineEditTime->text());
    if (row.dual()) {
        const QString label = barset->label();
        showCallout(m_strToolTipFormat.arg(time, Texts::inRichText(label), numberText(barset->at(index))),
            QCursor::pos());
        if (label != m_strSelectedBar) {
            const QVariant item = barset->property(UserData::propertyName(index).constData());
            if (const UserData *bar = item.value<UserData *>())
                focusBar(bar->label);
        }
        return;
    }
    const auto &[name, value] = barDataList.at(index);
    QString figure = numberText(value);
    if (row.has(ServiceTypeRow::CallOutInPercent))
        figure += QLatin1Char('%');
    showCallout(m_strToolTipFormat.arg(time, Texts::inRichText(name), figure), QCursor::pos());
    if (name != m_strSelectedBar)
        focusBar(name);
}

void BasicChart::focusBar(const QString &name)
{
    m_strSelectedBar = name;
    if (m_pTimer)
        m_pTimer->start(focusDelayMs);
}

void BasicChart::slotBarSetChanged(QString &barId)
{
    if (devDataList.isEmpty())
        return;
    const auto index = listKeys(devDataList).indexOf(barId);
    if (index < 0)
        return;
    qDebug() << "BasicChart::slotBarSetChanged bar  id " << barId << "index" << index << "size"
             << devDataList.size();
    const QString key = devDataList.at(index).second;
    getChartDataByBarId(key);
    reloadLineAndPieChart();
}

void BasicChart::slotNext()
{
    if (m_nCurPage >= m_nTotalPage)
        return;
    ++m_nCurPage;
    slotSearch();
}

void BasicChart::slotPrevious()
{
    if (m_nCurPage < 2)
        return;
    --m_nCurPage;
    slotSearch();
}
