#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtCore/QString>

/// Display forms of names that come from the server. One object for the process, on the GUI thread.
class TALVIXWIDGETS_EXPORT AppTranslationHelper
{
public:
    /// Never null.
    static AppTranslationHelper *instance();

    /// The display form of \a text (UTF-8): translated when the application knows it, else the text itself.
    /// Null gives an empty string; bytes that are no UTF-8 are replaced, never refused.
    QString getStringAfterTranslation(const char *text);

    /// Name of a major type of snapshots; the decimal number for an unknown one.
    QString getSnapDetailMajorTypeName(int type);
    /// Name of a minor type of snapshots; empty for an unknown one.
    QString getSnapDetailMinorTypeName(int major, int minor);

private:
    AppTranslationHelper() = default;
};
