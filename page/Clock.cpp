#include "Clock.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QVariant>

QDateTime Clock::now()
{
    const QVariant given = qApp->property(currentTimeProperty);
    if (given.typeId() == QMetaType::QDateTime && given.toDateTime().isValid())
        return given.toDateTime();
    return QDateTime::currentDateTime();
}
