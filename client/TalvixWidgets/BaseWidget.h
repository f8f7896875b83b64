#pragma once

#include "BaseStyleWidget.h"

/// Base of the client's pages and dialogs.
///
/// Its show event calls `doAfterWidgetShow()`, each time the widget becomes visible.
class TALVIXWIDGETS_EXPORT BaseWidget : public BaseStyleWidget
{
    Q_OBJECT

public:
    explicit BaseWidget(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~BaseWidget() override;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void showEvent(QShowEvent *event) override;
};
