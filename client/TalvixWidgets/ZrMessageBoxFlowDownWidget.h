#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtWidgets/QWidget>

/// Message that flows down over a widget and goes by itself.
class TALVIXWIDGETS_EXPORT ZrMessageBoxFlowDownWidget : public QWidget
{
    Q_OBJECT

public:
    enum MessageType : int { Success = 1, Warning = 2, Failure = 3 };
    Q_ENUM(MessageType)

    /// Shows \a text over \a parent and returns at once; the message takes no focus.
    /// \a value is its time on show in milliseconds; 0 means the usual time.
    static void showMessage(QString text, QWidget *parent, MessageType type, int value);

private:
    using QWidget::QWidget;
};
