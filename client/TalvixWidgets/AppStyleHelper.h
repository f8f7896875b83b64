#pragma once

#include "TalvixWidgetsGlobal.h"

class ZrPushButton;

/// The theme's named button styles.
class TALVIXWIDGETS_EXPORT AppStyleHelper
{
public:
    enum newWidgetStyleType : int {
        ToolButton = 5,    ///< a command with an icon
        ConfirmButton = 9, ///< the affirmative button of a dialog
        CancelButton = 10, ///< the dismissive button of a dialog
        SegmentButton = 12 ///< one of several neighbours of which one is highlighted
    };

    /// Gives \a button the style of \a type. A null button and an unknown type are ignored.
    static void updateWidgetStyle(ZrPushButton *button, newWidgetStyleType type);
};
