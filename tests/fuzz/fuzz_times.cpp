// Times and spans: as texts in the line edit and in requests, and as answers of the calendar.

#include "FuzzSupport.h"

#include "support/ChartProbe.h"

#include <devhost/data/Periods.h>
#include <devhost/data/Sql.h>
#include <devhost/widgets/HostSettings.h>
#include <page/TimeFormats.h>

namespace {

constexpr int mostActions = 24;

void limitSpan(FuzzedDataProvider &data)
{
    const QDateTime start = Fuzz::moment(data);
    const QDateTime stop = Fuzz::moment(data);
    const int unit = data.ConsumeIntegralInRange(-1, 4);
    const TimeFormats::LimitedSpan span = TimeFormats::limited(start, stop, unit, testMoment().date());
    if (unit < ZrCalendarWidget::Month || unit > ZrCalendarWidget::Hour) {
        Fuzz::report(span.stop == stop && !span.tip ? QString() : QStringLiteral("no unit limits a span"));
        return;
    }
    const QString text = TimeFormats::spanText(start, span.stop, TimeFormats::display(unit));
    Fuzz::report(TimeFormats::spanParts(text).size() == 2 ? QString() : text);
    if (unit != ZrCalendarWidget::Hour && start.isValid() && span.stop.isValid() && span.tip)
        Fuzz::report(start <= span.stop ? QString() : QStringLiteral("a span was cut to before its start"));
}

// A span that is taken lies in the order of its ends and is written as it was read.
void readSpan(FuzzedDataProvider &data)
{
    const int unit = data.ConsumeIntegralInRange(-1, 4);
    const std::string start = Fuzz::timeText(data).toStdString();
    const std::string end = data.ConsumeBool() ? start : Fuzz::timeText(data).toStdString();
    try {
        const devdata::TimeRange range = devdata::parseTimeRange(unit, start, end);
        const std::vector<devdata::Period> periods = range.periods();
        Fuzz::report(
            periods.empty() == range.isEmpty() ? QString() : QStringLiteral("a time range lost its periods"));
        if (!periods.empty() && periods.back() != range.last)
            Fuzz::report(QStringLiteral("a time range has other periods than its end says"));
    } catch (const devdata::StoreError &) { }
}

class Visit
{
public:
    explicit Visit(FuzzedDataProvider &data)
        : m_data(data)
    { }

    void act(ProbePage &page)
    {
        switch (m_data.ConsumeIntegralInRange(0, 9)) {
        case 0:
            return limitSpan(m_data);
        case 1:
            return readSpan(m_data);
        case 2:
            return page.slotDataTimeChanged(Fuzz::moment(m_data), Fuzz::moment(m_data), unit());
        case 3:
            return page.slotCalendarChanged(Fuzz::moment(m_data), Fuzz::moment(m_data));
        case 4:
            return page.part<QLineEdit>("lineEditTime")->setText(Fuzz::timeText(m_data));
        case 5:
            page.m_nTimeType = unit();
            return;
        case 6:
            return askCalendar(page);
        case 7:
            return HostSettings::setDateOrder(m_data.ConsumeBool() ? HostSettings::DateOrder::YearFirst
                                                                   : HostSettings::DateOrder::DayFirst);
        case 8:
            return page.compareCondition();
        default:
            return ask(page);
        }
    }

private:
    BasicChart::QueryType unit()
    {
        return static_cast<BasicChart::QueryType>(m_data.ConsumeIntegralInRange(1, 3));
    }

    // What goes to the server is a time of the unit or nothing.
    void ask(ProbePage &page)
    {
        QString start;
        QString end;
        page.currentTimeRange(start, end);
        const QString format = TimeFormats::request(page.m_nTimeType);
        for (const QString &time : {start, end}) {
            const bool well = time.isEmpty() || QDateTime::fromString(time, format).toString(format) == time;
            Fuzz::report(well ? QString() : time);
        }
    }

    void askCalendar(ProbePage &page)
    {
        ZrCalendarWidget *calendar = page.m_pCalendarWidget;
        calendar->setType(unit());
        page.showZrCalendarWidget(true);
        for (int i = m_data.ConsumeIntegralInRange(0, 6); i > 0; --i)
            pressKey(*calendar);
        const auto answer = QObject::connect(calendar, &ZrCalendarWidget::signalDataTimeChanged,
            [](const QDateTime &start, const QDateTime &stop) {
                const bool well = start.isValid() && stop.isValid() && start <= stop;
                Fuzz::report(well ? QString() : QStringLiteral("the calendar gave no span"));
            });
        if (m_data.ConsumeBool())
            calendar->shortcutEnter();
        QObject::disconnect(answer);
        calendar->shortcutClose();
    }

    void pressKey(ZrCalendarWidget &calendar)
    {
        constexpr Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp,
            Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End, Qt::Key_Space, Qt::Key_Tab};
        QWidget *focus = calendar.focusWidget();
        QKeyEvent press(QEvent::KeyPress, m_data.PickValueInArray(keys),
            m_data.ConsumeBool() ? Qt::ShiftModifier : Qt::NoModifier);
        QCoreApplication::sendEvent(focus ? focus : &calendar, &press);
    }

    FuzzedDataProvider &m_data;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    static ChartStage *const stage = new ChartStage(1);
    FuzzedDataProvider data(bytes, size);
    Visit visit(data);
    for (int i = 0; i < mostActions && data.remaining_bytes() > 0; ++i)
        visit.act(stage->page);
    HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
    stage->page.m_nTimeType = ZrCalendarWidget::Hour;
    stage->page.m_pCalendarWidget->setType(ZrCalendarWidget::Hour);
    stage->setTime(QStringLiteral("2024-05-01~2024-05-03"));
    stage->page.tips.clear();
    Fuzz::settle();
    return 0;
}
