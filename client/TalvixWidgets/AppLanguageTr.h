#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtCore/QString>

/// The application's texts. One object for the process, on the GUI thread.
class TALVIXWIDGETS_EXPORT AppLanguageTr
{
public:
    /// How a text is to be used.
    enum CaptitalType : int {
        Sentence = 1, ///< running text and labels
        Button = 2,   ///< short text of a button
        Title = 3     ///< text of a tab
    };

    /// Never null.
    static AppLanguageTr *instance();

    /// The text of a "TK_" key in the application's language. A key that is not known, and so any text that
    /// is no key, is given back as it stands. \a value is a number for the text; -1 means none.
    QString translate(const QString &key, CaptitalType type, int value);

private:
    AppLanguageTr() = default;
};
