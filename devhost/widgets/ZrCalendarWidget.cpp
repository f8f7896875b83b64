#include <TalvixWidgets/ZrCalendarWidget.h>

#include "HostSettings.h"
#include "LanguageTexts.h"
#include "SpanGrid.h"

#include <TalvixWidgets/AppStyleHelper.h>
#include <TalvixWidgets/BaseHelper.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <limits>

namespace {

constexpr int popupWidth = 308;
constexpr int margin = 12;
constexpr int narrowestButton = 72;
constexpr int monthsInYear = 12;
constexpr int hoursInDay = 24;
constexpr int daysInWeek = 7;
constexpr int weeksOnPage = 6;
// How far the second end may be from the first.
constexpr qint64 monthsOnOffer = 6;
constexpr qint64 daysOnOffer = 7;

constexpr int firstYear = 1;
constexpr int lastYear = 9999;

qint64 monthNumber(const QDate &date)
{
    return qint64(date.year()) * monthsInYear + date.month() - 1;
}

QDate dateOfMonth(qint64 month)
{
    return QDate(static_cast<int>(month / monthsInYear), static_cast<int>(month % monthsInYear) + 1, 1);
}

bool isUsable(const QDateTime &moment)
{
    return moment.isValid() && moment.date().year() >= firstYear && moment.date().year() <= lastYear;
}

/// The host's present moment can be set, for pictures and tests of a certain day.
QDateTime presentMoment()
{
    const QDateTime given = qApp->property("TalvixDataStatics::currentTime").toDateTime();
    return given.isValid() ? given : QDateTime::currentDateTime();
}

QLocale languageLocale()
{
    const QString language = HostSettings::language();
    if (language.isEmpty())
        return QLocale::c();
    return language == QStringLiteral("de") || language == QStringLiteral("zh_CN")
        ? QLocale(language)
        : QLocale(QLocale::English, QLocale::UnitedKingdom);
}

QString text(const char *key)
{
    return LanguageTexts::find(QString::fromLatin1(key));
}

} // namespace

class ZrCalendarWidget::Private
{
public:
    explicit Private(ZrCalendarWidget *widget)
        : q(widget)
    { }

    void build();
    void retranslate();
    void applyType();
    void fitHeight();

    bool hasSpan() const { return first <= last; }
    qint64 farthest() const;
    /// Unit of the present moment, of the span's type.
    qint64 present() const;
    qint64 unitOf(const QDateTime &moment) const;
    QDateTime momentOf(qint64 unit) const;
    QString textOf(qint64 unit) const;

    void pick(qint64 unit);
    void dragTo(qint64 unit);
    void endDrag();
    void moveCursor(qint64 unit, bool extend);
    void turnPages(int pages);
    void goTo(const QDateTime &moment);
    void showUnit(qint64 unit);
    void pickDay(qint64 day);

    void refresh();
    void fillMonths();
    void fillDays();
    void fillHours();

    ZrCalendarWidget *q;
    QueryType type = Hour;

    /// Chosen units; none while \a last is below \a first.
    qint64 first = 0;
    qint64 last = -1;
    /// The end that was picked first; the other one is still to come while \a pending.
    qint64 anchor = 0;
    bool pending = false;
    bool dragging = false;
    /// The day whose hours are on offer.
    QDate day;
    /// First day of the month, or of the year, on view.
    QDate page;

    QLabel *labelTitle = nullptr;
    ZrPushButton *pushButtonEarlier = nullptr;
    ZrPushButton *pushButtonLater = nullptr;
    QLabel *labelPage = nullptr;
    /// Months or days; of an hour span the day.
    SpanGrid *grid = nullptr;
    SpanGrid *hours = nullptr;
    QLabel *labelSpan = nullptr;
    QLabel *labelLimit = nullptr;
    ZrPushButton *pushButtonToday = nullptr;
    ZrPushButton *pushButtonCancel = nullptr;
    ZrPushButton *pushButtonOK = nullptr;
};

void ZrCalendarWidget::Private::build()
{
    const auto named = [](auto *widget, const char *name) {
        widget->setObjectName(QString::fromLatin1(name));
        return widget;
    };
    labelTitle = named(new QLabel(q), "labelTitle");
    pushButtonEarlier = named(new ZrPushButton(q), "pushButtonEarlier");
    labelPage = named(new QLabel(q), "labelPage");
    pushButtonLater = named(new ZrPushButton(q), "pushButtonLater");
    grid = named(new SpanGrid(q), "grid");
    hours = named(new SpanGrid(q), "hours");
    labelSpan = named(new QLabel(q), "labelSpan");
    labelLimit = named(new QLabel(q), "labelLimit");
    pushButtonToday = named(new ZrPushButton(q), "pushButtonToday");
    pushButtonCancel = named(new ZrPushButton(q), "pushButtonCancel");
    pushButtonOK = named(new ZrPushButton(q), "pushButtonOK");
    for (QLabel *label : {labelTitle, labelPage, labelSpan, labelLimit})
        label->setTextFormat(Qt::PlainText);
    labelPage->setAlignment(Qt::AlignCenter);
    labelTitle->setWordWrap(true);
    labelLimit->setWordWrap(true);
    AppStyleHelper::updateWidgetStyle(pushButtonCancel, AppStyleHelper::CancelButton);
    AppStyleHelper::updateWidgetStyle(pushButtonToday, AppStyleHelper::CancelButton);
    AppStyleHelper::updateWidgetStyle(pushButtonOK, AppStyleHelper::ConfirmButton);

    for (ZrPushButton *button : {pushButtonCancel, pushButtonOK})
        button->setMinimumWidth(narrowestButton);

    auto *pageRow = new QHBoxLayout;
    pageRow->addWidget(pushButtonEarlier);
    pageRow->addWidget(labelPage, 1);
    pageRow->addWidget(pushButtonLater);
    auto *buttonRow = new QHBoxLayout;
    buttonRow->addWidget(pushButtonToday);
    buttonRow->addStretch();
    buttonRow->addWidget(pushButtonCancel);
    buttonRow->addWidget(pushButtonOK);

    auto *column = new QVBoxLayout(q);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(8);
    column->addWidget(labelTitle);
    column->addLayout(pageRow);
    column->addWidget(grid);
    column->addWidget(hours);
    column->addWidget(labelSpan);
    column->addWidget(labelLimit);
    column->addLayout(buttonRow);

    QObject::connect(pushButtonEarlier, &QPushButton::clicked, q, [this] { turnPages(-1); });
    QObject::connect(pushButtonLater, &QPushButton::clicked, q, [this] { turnPages(1); });
    QObject::connect(pushButtonToday, &QPushButton::clicked, q, [this] { goTo(presentMoment()); });
    QObject::connect(pushButtonCancel, &QPushButton::clicked, q, &ZrCalendarWidget::shortcutClose);
    QObject::connect(pushButtonOK, &QPushButton::clicked, q, &ZrCalendarWidget::shortcutEnter);
    QObject::connect(grid, &SpanGrid::pageWanted, q, [this](int pages) { turnPages(pages); });
    QObject::connect(
        grid, &SpanGrid::pressed, q, [this](qint64 unit) { type == Hour ? pickDay(unit) : pick(unit); });
    QObject::connect(
        grid, &SpanGrid::dragged, q, [this](qint64 unit) { type == Hour ? pickDay(unit) : dragTo(unit); });
    QObject::connect(grid, &SpanGrid::cursorWanted, q, [this](qint64 unit, bool extend) {
        if (type == Hour)
            pickDay(unit);
        else
            moveCursor(unit, extend);
    });
    QObject::connect(hours, &SpanGrid::pressed, q, [this](qint64 unit) { pick(unit); });
    QObject::connect(hours, &SpanGrid::dragged, q, [this](qint64 unit) { dragTo(unit); });
    QObject::connect(
        hours, &SpanGrid::cursorWanted, q, [this](qint64 unit, bool extend) { moveCursor(unit, extend); });
    for (SpanGrid *field : {grid, hours})
        QObject::connect(field, &SpanGrid::released, q, [this] { endDrag(); });
}

void ZrCalendarWidget::Private::retranslate()
{
    const char *title = type == Month ? "TK_CalendarMonths"
        : type == Day                 ? "TK_CalendarDays"
                                      : "TK_CalendarHours";
    const char *limit = type == Month ? "TK_CalendarLimitMonths"
        : type == Day                 ? "TK_CalendarLimitDays"
                                      : "TK_CalendarLimitHours";
    labelTitle->setText(text(title));
    labelLimit->setText(text(limit));
    pushButtonEarlier->setToolTip(text("TK_CalendarEarlier"));
    pushButtonLater->setToolTip(text("TK_CalendarLater"));
    pushButtonToday->setText(text("TK_CalendarToday"));
    pushButtonCancel->setText(text("TK_Cancel"));
    pushButtonOK->setText(text("TK_OK"));
    grid->setAccessibleName(text(type == Month ? "TK_Month" : "TK_Day"));
    hours->setAccessibleName(text("TK_Hour"));
    q->setAccessibleName(labelTitle->text());
    refresh();
    fitHeight();
}

void ZrCalendarWidget::Private::applyType()
{
    first = 0;
    last = -1;
    pending = false;
    dragging = false;
    hours->setVisible(type == Hour);
    goTo(presentMoment());
    retranslate();
}

void ZrCalendarWidget::Private::fitHeight()
{
    q->ensurePolished();
    q->layout()->activate();
    q->setFixedSize(popupWidth, q->layout()->totalHeightForWidth(popupWidth));
}

qint64 ZrCalendarWidget::Private::farthest() const
{
    return type == Month ? monthsOnOffer : type == Day ? daysOnOffer : hoursInDay - 1;
}

qint64 ZrCalendarWidget::Private::present() const
{
    return unitOf(presentMoment());
}

qint64 ZrCalendarWidget::Private::unitOf(const QDateTime &moment) const
{
    switch (type) {
    case Month:
        return monthNumber(moment.date());
    case Day:
        return moment.date().toJulianDay();
    case Hour:
        break;
    }
    return moment.time().hour();
}

QDateTime ZrCalendarWidget::Private::momentOf(qint64 unit) const
{
    switch (type) {
    case Month:
        return dateOfMonth(unit).startOfDay();
    case Day:
        return QDate::fromJulianDay(unit).startOfDay();
    case Hour:
        break;
    }
    return QDateTime(day, QTime(static_cast<int>(unit), 0));
}

QString ZrCalendarWidget::Private::textOf(qint64 unit) const
{
    const QString format = type == Month ? QStringLiteral("yyyy-MM")
        : type == Day                    ? QStringLiteral("yyyy-MM-dd")
                                         : QStringLiteral("yyyy-MM-dd hh");
    return momentOf(unit).toString(BaseHelper::dateTimeFormatConversion(format));
}

void ZrCalendarWidget::Private::pick(qint64 unit)
{
    SpanGrid *field = type == Hour ? hours : grid;
    dragging = false;
    if (pending && qAbs(unit - anchor) <= farthest()) {
        first = std::min(anchor, unit);
        last = std::max(anchor, unit);
        pending = false;
    } else {
        anchor = first = last = unit;
        pending = true;
    }
    field->setCursor(unit);
    showUnit(unit);
}

void ZrCalendarWidget::Private::dragTo(qint64 unit)
{
    if (!pending && !dragging)
        anchor = (type == Hour ? hours : grid)->cursor();
    dragging = true;
    pending = true;
    const qint64 reached = std::clamp(unit, anchor - farthest(), anchor + farthest());
    first = std::min(anchor, reached);
    last = std::max(anchor, reached);
    (type == Hour ? hours : grid)->setCursor(reached);
    refresh();
}

void ZrCalendarWidget::Private::endDrag()
{
    if (!dragging)
        return;
    dragging = false;
    pending = false;
    refresh();
}

void ZrCalendarWidget::Private::moveCursor(qint64 unit, bool extend)
{
    SpanGrid *field = type == Hour ? hours : grid;
    const qint64 lowest = type == Month ? qint64(firstYear) * monthsInYear
        : type == Day                   ? QDate(firstYear, 1, 1).toJulianDay()
                                        : 0;
    const qint64 highest = type == Month ? qint64(lastYear) * monthsInYear + monthsInYear - 1
        : type == Day                    ? QDate(lastYear, 12, 31).toJulianDay()
                                         : hoursInDay - 1;
    qint64 goal = std::clamp(unit, lowest, highest);
    if (extend) {
        if (!pending) {
            anchor = field->cursor();
            pending = true;
        }
        goal = std::clamp(goal, anchor - farthest(), anchor + farthest());
        first = std::min(anchor, goal);
        last = std::max(anchor, goal);
    }
    field->setCursor(goal);
    showUnit(goal);
}

void ZrCalendarWidget::Private::turnPages(int pages)
{
    const QDate next = type == Month ? page.addYears(pages) : page.addMonths(pages);
    if (!next.isValid() || next.year() < firstYear || next.year() > lastYear)
        return;
    page = next;
    // The cursor comes along, so that the next arrow key starts from what is seen.
    if (type == Month)
        grid->setCursor(grid->cursor() + qint64(pages) * monthsInYear);
    else if (type == Day)
        grid->setCursor(QDate::fromJulianDay(grid->cursor()).addMonths(pages).toJulianDay());
    refresh();
}

void ZrCalendarWidget::Private::goTo(const QDateTime &moment)
{
    const QDate date = moment.date();
    page = type == Month ? QDate(date.year(), 1, 1) : QDate(date.year(), date.month(), 1);
    if (type == Hour) {
        day = date;
        hours->setCursor(moment.time().hour());
        grid->setCursor(date.toJulianDay());
    } else {
        grid->setCursor(unitOf(moment));
    }
    refresh();
}

void ZrCalendarWidget::Private::showUnit(qint64 unit)
{
    if (type != Hour) {
        const QDate date = type == Month ? dateOfMonth(unit) : QDate::fromJulianDay(unit);
        page = type == Month ? QDate(date.year(), 1, 1) : QDate(date.year(), date.month(), 1);
    }
    refresh();
}

void ZrCalendarWidget::Private::pickDay(qint64 number)
{
    const QDate date = QDate::fromJulianDay(number);
    if (!date.isValid() || date.year() < firstYear || date.year() > lastYear)
        return;
    day = date;
    page = QDate(date.year(), date.month(), 1);
    grid->setCursor(number);
    refresh();
}

void ZrCalendarWidget::Private::refresh()
{
    SpanGrid *field = type == Hour ? hours : grid;
    if (type == Month)
        fillMonths();
    else
        fillDays();
    if (type == Hour) {
        fillHours();
        grid->setSpan(day.toJulianDay(), day.toJulianDay());
    }
    field->setSpan(first, last);
    if (type == Hour)
        grid->setReach(std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max());
    if (pending)
        field->setReach(anchor - farthest(), anchor + farthest());
    else
        field->setReach(std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max());

    if (!hasSpan())
        labelSpan->setText(text("TK_CalendarNoSpan"));
    else if (pending && !dragging && first == last)
        labelSpan->setText(textOf(first) + QStringLiteral(" ~ ") + text("TK_CalendarSecondEnd"));
    else
        labelSpan->setText(textOf(first) + QStringLiteral(" ~ ") + textOf(last));
    pushButtonOK->setEnabled(hasSpan());
}

void ZrCalendarWidget::Private::fillMonths()
{
    const QLocale names = languageLocale();
    labelPage->setText(QString::number(page.year()));
    QList<SpanGrid::Cell> cells;
    for (int month = 1; month <= monthsInYear; ++month) {
        SpanGrid::Cell cell;
        cell.unit = qint64(page.year()) * monthsInYear + month - 1;
        cell.text = names.standaloneMonthName(month, QLocale::ShortFormat);
        cell.name = names.standaloneMonthName(month) + u' ' + QString::number(page.year());
        cell.present = cell.unit == present();
        cells.append(cell);
    }
    grid->setCells(cells, 3);
}

void ZrCalendarWidget::Private::fillDays()
{
    const QLocale names = languageLocale();
    labelPage->setText(names.language() == QLocale::Chinese
            ? names.toString(page, QStringLiteral("yyyy年M月"))
            : names.standaloneMonthName(page.month()) + u' ' + QString::number(page.year()));
    const int weekStart = names.firstDayOfWeek();
    QStringList header;
    for (int i = 0; i < daysInWeek; ++i)
        header.append(names.standaloneDayName((weekStart - 1 + i) % daysInWeek + 1, QLocale::NarrowFormat));

    const qint64 today = presentMoment().date().toJulianDay();
    const int before = (page.dayOfWeek() - weekStart + daysInWeek) % daysInWeek;
    QList<SpanGrid::Cell> cells;
    for (int i = 0; i < weeksOnPage * daysInWeek; ++i) {
        const QDate date = page.addDays(i - before);
        SpanGrid::Cell cell;
        cell.unit = date.toJulianDay();
        cell.text = QString::number(date.day());
        cell.name = names.toString(date, QLocale::LongFormat);
        cell.muted = date.month() != page.month();
        cell.present = cell.unit == today;
        cells.append(cell);
    }
    grid->setCells(cells, daysInWeek, header);
}

void ZrCalendarWidget::Private::fillHours()
{
    const bool isToday = day == presentMoment().date();
    QList<SpanGrid::Cell> cells;
    for (int hour = 0; hour < hoursInDay; ++hour) {
        SpanGrid::Cell cell;
        cell.unit = hour;
        cell.text = QStringLiteral("%1").arg(hour, 2, 10, QLatin1Char('0'));
        cell.name = cell.text + QStringLiteral(":00");
        cell.present = isToday && hour == presentMoment().time().hour();
        cells.append(cell);
    }
    hours->setCells(cells, 8);
}

ZrCalendarWidget::ZrCalendarWidget(QWidget *parent)
    : BaseWidget(parent, Qt::Popup | Qt::FramelessWindowHint)
    , d(new Private(this))
{
    d->build();
    d->applyType();
}

ZrCalendarWidget::~ZrCalendarWidget()
{
    delete d;
}

void ZrCalendarWidget::setType(QueryType type)
{
    if (type < Month || type > Hour)
        return;
    d->type = type;
    d->applyType();
}

void ZrCalendarWidget::showDialog(const QDateTime &start, const QDateTime &stop)
{
    const bool known = isUsable(start) && isUsable(stop);
    const QDateTime from = known ? std::min(start, stop) : QDateTime();
    const QDateTime to = known ? std::max(start, stop) : QDateTime();
    d->pending = false;
    d->dragging = false;
    d->first = 0;
    d->last = -1;
    d->goTo(known ? to : isUsable(start) ? start : presentMoment());
    if (known) {
        if (d->type == Hour)
            d->day = from.date();
        d->first = d->unitOf(from);
        d->last = d->type == Hour && to.date() != from.date() ? hoursInDay - 1 : d->unitOf(to);
        d->last = std::min(d->last, d->first + d->farthest());
        d->goTo(d->momentOf(d->last));
    }
    d->retranslate();

    const QScreen *screen = QGuiApplication::screenAt(pos());
    const QRect room = (screen ? screen : this->screen())->availableGeometry();
    move(std::max(room.left(), std::min(x(), room.right() + 1 - width())),
        std::max(room.top(), std::min(y(), room.bottom() + 1 - height())));
    show();
    raise();
    (d->type == Hour ? d->hours : d->grid)->setFocus(Qt::PopupFocusReason);
}

void ZrCalendarWidget::initForm()
{ }

void ZrCalendarWidget::retranslateUi()
{
    d->retranslate();
}

void ZrCalendarWidget::shortcutEnter()
{
    if (!d->hasSpan())
        return;
    // Closed first: what the answer sets off may take its time.
    hide();
    Q_EMIT signalDataTimeChanged(d->momentOf(d->first), d->momentOf(d->last));
}

void ZrCalendarWidget::shortcutClose()
{
    hide();
}

void ZrCalendarWidget::mousePressEvent(QMouseEvent *event)
{
    // The base closes a popup on a press outside of it, which leaves all as it was.
    BaseWidget::mousePressEvent(event);
}

void ZrCalendarWidget::mouseMoveEvent(QMouseEvent *event)
{
    // Nothing behind the popup follows the pointer while it is open.
    event->accept();
}

void ZrCalendarWidget::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto *button = qobject_cast<QAbstractButton *>(focusWidget()))
            button->click();
        else
            shortcutEnter();
        break;
    case Qt::Key_Escape:
        shortcutClose();
        break;
    default:
        BaseWidget::keyPressEvent(event);
    }
}
