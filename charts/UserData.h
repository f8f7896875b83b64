#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMetaType>
#include <QtCore/QString>

/// Which bar a value of a bar set belongs to. The set carries one for each of its values, as a `UserData *`
/// in a dynamic property.
struct UserData
{
    int index = 0;
    QString label;

    /// Name of the dynamic property of the value at \a index.
    static QByteArray propertyName(int index) { return "UserSelfData" + QByteArray::number(index); }
};

Q_DECLARE_METATYPE(UserData *)
