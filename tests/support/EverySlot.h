#pragma once

#include <page/BasicChart.h>

#include <QtCharts/QBarSet>
#include <QtCharts/QPieSlice>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

#include <QtGui/QAction>

#include <functional>
#include <vector>

/// Everything that a host, a signal or a user can call on a page without a dialog that waits for an answer.
inline const std::vector<std::function<void(BasicChart &)>> &everySlot()
{
    const auto control = [](const char *name, auto use) {
        return [name, use](BasicChart &page) {
            if (auto *widget = page.findChild<QWidget *>(QString::fromLatin1(name)))
                use(widget);
        };
    };
    const auto click = [control](const char *name) {
        return control(name, [](QWidget *widget) { qobject_cast<QAbstractButton *>(widget)->click(); });
    };
    const auto choose = [control](const char *name) {
        return control(name, [](QWidget *widget) {
            auto *box = qobject_cast<QComboBox *>(widget);
            box->setCurrentIndex(box->count() - 1);
            Q_EMIT box->activated(box->currentIndex());
        });
    };
    static const std::vector<std::function<void(BasicChart &)>> slots = {
        [](BasicChart &page) { page.slotPieSelected(nullptr, true); },
        [](BasicChart &page) {
            QPieSlice slice(QStringLiteral("slice"), 1);
            page.slotPieSelected(&slice, true);
            page.slotPieSelected(&slice, false);
        },
        [](BasicChart &page) { page.slotLineSelected(QPointF(0, 1), true); },
        [](BasicChart &page) { page.slotLineSelected(QPointF(-7, 1e300), false); },
        [](BasicChart &page) { page.slotBarSelected(true, 0, nullptr); },
        [](BasicChart &page) {
            QBarSet set(QStringLiteral("set"));
            set.append(1);
            page.slotBarSelected(true, 0, &set);
            page.slotBarSelected(true, -1, &set);
            page.slotBarSelected(false, 7, &set);
        },
        [](BasicChart &page) {
            QString bar = QStringLiteral("Plant North");
            page.slotBarSetChanged(bar);
        },
        [](BasicChart &page) {
            QString bar = QStringLiteral("no such bar");
            Q_EMIT page.barSetChanged(bar);
        },
        [](BasicChart &page) { page.slotOrgaInfoLoad(); },
        [](BasicChart &page) { page.slotDataTimeChanged({}, {}, BasicChart::QueryType::Day); },
        [](BasicChart &page) { page.slotSearch(); },
        [](BasicChart &page) { page.on_pushButtonMonth_clicked(); },
        [](BasicChart &page) { page.on_pushButtonDay_clicked(); },
        [](BasicChart &page) { page.on_pushButtonHour_clicked(); },
        [](BasicChart &page) { page.on_pushButtonAsc_clicked(); },
        [](BasicChart &page) { page.on_pushButtonDesc_clicked(); },
        [](BasicChart &page) { page.showZrCalendarWidget(true); },
        [](BasicChart &page) { page.slotCalendarChanged({}, {}); },
        [](BasicChart &page) { page.slotNext(); },
        [](BasicChart &page) { page.slotPrevious(); },
        [](BasicChart &page) { page.slotRecvMouseMove(QPoint(10, 10)); },
        [](BasicChart &page) { page.slotTimerReq(); },
        [](BasicChart &page) { page.slot_switchPieChart(nullptr); },
        [](BasicChart &page) { page.slot_switchPieType(0); },
        [](BasicChart &page) { page.slot_switchPieType(-1); },
        [](BasicChart &page) { page.retranslateUi(); },
        [](BasicChart &page) { page.resize(900 + page.width() % 300, 500 + page.height() % 300); },
        click("pushButtonMonth"),
        click("pushButtonDay"),
        click("pushButtonHour"),
        click("pushButtonAsc"),
        click("pushButtonDesc"),
        click("carRadio"),
        click("personRadio"),
        click("pushButtonNext"),
        click("pushButtonPrevious"),
        choose("comboBoxOrgType"),
        choose("comboBoxPie"),
        choose("comboBox"),
        control("lineEditTime",
            [](QWidget *widget) {
                const auto actions = widget->actions();
                for (QAction *action : actions)
                    action->trigger();
            }),
    };
    return slots;
}
