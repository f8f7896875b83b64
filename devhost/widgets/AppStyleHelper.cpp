#include <TalvixWidgets/AppStyleHelper.h>

#include <TalvixWidgets/ZrPushButton.h>

#include <QtWidgets/QStyle>

void AppStyleHelper::updateWidgetStyle(ZrPushButton *button, newWidgetStyleType type)
{
    if (!button)
        return;
    QString name;
    switch (type) {
    case ToolButton:
        name = QStringLiteral("tool");
        break;
    case ConfirmButton:
        name = QStringLiteral("confirm");
        break;
    case CancelButton:
        name = QStringLiteral("cancel");
        break;
    case SegmentButton:
        name = QStringLiteral("segment");
        break;
    }
    if (name.isEmpty())
        return;
    button->setProperty("buttonStyle", name);
    // Selectors on a property are looked at when a widget is polished, not when the property changes.
    button->style()->unpolish(button);
    button->style()->polish(button);
    button->update();
}
