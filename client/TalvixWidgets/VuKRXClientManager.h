#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtCore/QString>

/// Base of the client's managers: remembers why the last call failed.
class TALVIXWIDGETS_EXPORT VuKRXClientManager
{
public:
    VuKRXClientManager();
    virtual ~VuKRXClientManager();

    /// Why the last call on this manager failed, for the user to read. It stays until the next call.
    virtual QString getLastErrorString();

protected:
    void setLastErrorString(const QString &text);

private:
    Q_DISABLE_COPY(VuKRXClientManager)

    QString m_lastErrorString;
};
