#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtCore/QString>
#include <QtGui/QColor>

/// The theme's colours by key, such as "$word_color_2". One object for the process, on the GUI thread.
class TALVIXWIDGETS_EXPORT QssFormatHelper
{
public:
    /// Never null.
    static QssFormatHelper *getInstance();

    /// The colour of \a key; an invalid colour for an unknown key.
    QColor findColorByKey(QString key);
    /// The colour of \a key in a form that rich text takes behind "color:"; empty for an unknown key.
    QString findColorStrByKey(QString key);
    /// \a color, as `findColorStrByKey` gives it, at \a opacity from 0 to 1.
    QString changeColorStrOpacity(QString color, float opacity);

private:
    QssFormatHelper() = default;
};
