#include "BasicChart.h"

#include "Clock.h"
#include "Codes.h"
#include "Texts.h"
#include "TimeFormats.h"
#include "ui_BasicChart.h"

#include <QtCore/QDebug>

namespace {

constexpr int monthsByDefault = 6;
constexpr int daysByDefault = 7;
constexpr int gapBelowLineEdit = 15;

} // namespace

void BasicChart::startSpan(QueryType type, const QDateTime &start, const QDateTime &stop)
{
    m_nTimeType = type;
    if (m_pCalendarWidget)
        m_pCalendarWidget->setType(type);
    slotDataTimeChanged(start, stop, static_cast<QueryType>(m_nTimeType));
    setButtonHighlight(ui->pushButtonHour, type == ZrCalendarWidget::Hour);
    setButtonHighlight(ui->pushButtonDay, type == ZrCalendarWidget::Day);
    setButtonHighlight(ui->pushButtonMonth, type == ZrCalendarWidget::Month);
}

void BasicChart::on_pushButtonMonth_clicked()
{
    const QDateTime now = Clock::now();
    startSpan(ZrCalendarWidget::Month, now.addMonths(-monthsByDefault), now);
}

void BasicChart::on_pushButtonDay_clicked()
{
    const QDateTime now = Clock::now();
    startSpan(ZrCalendarWidget::Day, now.addDays(-daysByDefault), now);
}

void BasicChart::on_pushButtonHour_clicked()
{
    const QDateTime now = Clock::now();
    startSpan(ZrCalendarWidget::Hour, now.date().startOfDay(), now);
}

void BasicChart::slotDataTimeChanged(QDateTime startTime, QDateTime stopTime, QueryType type)
{
    const auto span = TimeFormats::limited(startTime, stopTime, type, Clock::now().date());
    if (span.tip)
        setTips(Texts::sentence(span.tip), Codes::Warning);
    ui->lineEditTime->setText(TimeFormats::spanText(startTime, span.stop, TimeFormats::display(type)));
}

void BasicChart::slotCalendarChanged(QDateTime startTime, QDateTime stopTime)
{
    slotDataTimeChanged(startTime, stopTime, static_cast<QueryType>(m_nTimeType));
}

void BasicChart::showZrCalendarWidget(bool)
{
    if (!m_pCalendarWidget)
        return;
    const QPoint belowRightEdge(
        ui->lineEditTime->x() - m_pCalendarWidget->width() + ui->lineEditTime->width(),
        ui->lineEditTime->y() + ui->lineEditTime->height() + gapBelowLineEdit);
    m_pCalendarWidget->move(mapToGlobal(belowRightEdge));

    QStringList times = TimeFormats::spanParts(ui->lineEditTime->text());
    if (times.size() != 2) {
        qDebug() << " timeStrs error";
        times = {QString(), QString()};
    }
    const QString format = TimeFormats::display(m_nTimeType);
    m_pCalendarWidget->showDialog(
        QDateTime::fromString(times.at(0), format), QDateTime::fromString(times.at(1), format));
}

void BasicChart::currentTimeRange(QString &start, QString &end) const
{
    const QStringList times = TimeFormats::spanParts(ui->lineEditTime->text());
    const QString requested = TimeFormats::request(m_nTimeType);
    const QString displayed = TimeFormats::display(m_nTimeType);
    start = QDateTime::fromString(times.value(0), displayed).toString(requested);
    end = QDateTime::fromString(times.value(1), displayed).toString(requested);
}
