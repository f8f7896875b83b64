#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtWidgets/QPushButton>

/// Push button that takes its look from the theme.
///
/// The dynamic property "highlight" (bool) marks the selected one of several buttons; the theme's style sheet
/// has a selector for it, which takes effect after the style was unpolished and polished.
class TALVIXWIDGETS_EXPORT ZrPushButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ZrPushButton(QWidget *parent = nullptr);
    ~ZrPushButton() override;

    /// Sets a declared property ("text", "icon", "iconSize", "autoDefault" …) or a dynamic one.
    /// Answers as `QObject::setProperty` does: false for a dynamic property.
    bool setProperty(const char *name, const QVariant &value);

protected:
    bool event(QEvent *event) override;
    /// Forgets hover and press, so that the button does not come back highlighted.
    void hideEvent(QHideEvent *event) override;
    /// Ends a text that is too long for the button in dots; the tool tip then has it whole.
    void paintEvent(QPaintEvent *event) override;
};
