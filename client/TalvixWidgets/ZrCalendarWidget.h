#pragma once

#include "BaseWidget.h"

#include <QtCore/QDateTime>

/// Popup in which the user picks a span of time by month, day or hour.
class TALVIXWIDGETS_EXPORT ZrCalendarWidget : public BaseWidget
{
    Q_OBJECT

public:
    /// Unit of a span. The numbers are the `timeType` of requests.
    enum QueryType : int { Month = 1, Day = 2, Hour = 3 };
    Q_ENUM(QueryType)

    explicit ZrCalendarWidget(QWidget *parent = nullptr);
    ~ZrCalendarWidget() override;

    /// Sets the unit of the spans on offer: up to six months, up to seven days, or the hours of one day.
    void setType(QueryType type);

    /// Opens the popup where it was moved to, with this span; invalid ends mean that there is none yet.
    /// The popup keeps itself on the screen. The answer comes by `signalDataTimeChanged`.
    void showDialog(const QDateTime &start, const QDateTime &stop);

    void initForm() override;
    void retranslateUi() override;
    /// Enter: confirms the span.
    void shortcutEnter() override;
    /// Escape: closes without an answer.
    void shortcutClose() override;

Q_SIGNALS:
    /// The user has confirmed a span. Local time; both ends belong to it.
    void signalDataTimeChanged(QDateTime start, QDateTime stop);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    class Private;
    Private *d;
};
