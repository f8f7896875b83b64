#include <TalvixWidgets/ZrMessageBoxFlowDownWidget.h>

#include "Toast.h"

void ZrMessageBoxFlowDownWidget::showMessage(QString text, QWidget *parent, MessageType type, int value)
{
    switch (type) {
    case Success:
        Toast::showMessage(parent, text, Toast::Success, value);
        return;
    case Warning:
        Toast::showMessage(parent, text, Toast::Warning, value);
        return;
    case Failure:
        Toast::showMessage(parent, text, Toast::Failure, value);
        return;
    }
    Toast::showMessage(parent, text, Toast::Statement, value);
}
