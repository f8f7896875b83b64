#pragma once

#include <QtCore/QDateTime>

/// The one door to the present moment.
namespace Clock {

/// The present in local time: the application's property "presentMoment" where it holds a moment, else the
/// system's clock. The property lets a host show a certain day; it reaches every copy of this code in the
/// process.
QDateTime now();

} // namespace Clock
