#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtCore/QString>

class QTabWidget;

/// Small services of the application. One object for the process, on the GUI thread.
class TALVIXWIDGETS_EXPORT BaseHelper
{
public:
    /// Never null.
    static BaseHelper *getInstance();

    /// The user's display form of a date format. \a format and the answer have the same fields, and
    /// `QDateTime` can write and parse the answer. Formats in use: "yyyy-MM", "yyyy-MM-dd", "yyyy-MM-dd hh".
    static QString dateTimeFormatConversion(QString format);

    /// Fits the tab bar of \a tabs with tabs \a width pixels wide, wider where a text needs it.
    void adjustTabWidgetViewWidth(QTabWidget *tabs, int width);

private:
    BaseHelper() = default;
};
